#include "platform/files/listing.h"

#include "platform/files/drive_path.h"
#include "platform/files/wildcard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::files {

namespace {

constexpr qsizetype kMostListings = 64;
constexpr qint64 kTrustOwnChangesMs = 2000;

bool Before(const ListingCache::Name& a, const ListingCache::Name& b)
{
    const int order = a.folded.compare(b.folded);
    return order != 0 ? order < 0 : a.name < b.name;
}

/// A new file that never reached its place, since its process was killed. A day is longer than any write
/// takes.
bool IsLeftover(const QString& directory, const QString& name, qint64 nowNs)
{
    constexpr qint64 kDayNs = 86'400'000'000'000;
    native::Info info;
    return name.startsWith(QStringView(native::kOwnPrefix)) && name.endsWith(u".tmp"_s) &&
           native::Inspect(directory + u'/' + name, info) == native::Failure::None && !info.directory &&
           nowNs - info.modifiedNs > kDayNs;
}

bool IsShown(const QString& name)
{
    return !name.startsWith(QStringView(native::kOwnPrefix)) && IsPossibleName(name);
}

} // namespace

bool ListingCache::IsGood(const Listing& listing, const native::Info& info, Need need) const
{
    if (listing.device != info.device || listing.inode != info.inode || listing.stampNs != info.modifiedNs)
        return false;
    switch (listing.state) {
    case State::Settled:
        return true;
    case State::Young:
        return false;
    case State::Entered:
        return need == Need::LookUp && !listing.sinceEntered.hasExpired(kTrustOwnChangesMs);
    }
    return false;
}

/// Gives the lock away while the directory is read: a slow one does not hold up look-ups in others.
native::Failure ListingCache::Refresh(std::unique_lock<std::mutex>& lock, const QString& directory, Need need,
                                      Listing*& listing)
{
    native::Info info;
    if (const native::Failure failure = native::Inspect(directory, info); failure != native::Failure::None) {
        m_listings.remove(directory);
        return failure;
    }
    if (const auto kept = m_listings.find(directory); kept != m_listings.end() && IsGood(*kept, info, need)) {
        listing = &*kept;
        return native::Failure::None;
    }

    m_listings.remove(directory); // first, so that the new names take the old ones' memory
    lock.unlock();
    const qint64 startedNs = native::StampClockNs();
    QList<native::Entry> entries;
    if (const native::Failure failure = native::List(directory, entries); failure != native::Failure::None) {
        lock.lock();
        return failure;
    }
    Listing fresh;
    fresh.names.reserve(entries.size());
    for (native::Entry& entry : entries) {
        if (IsShown(entry.name))
            fresh.names.append({FoldedName(entry.name), std::move(entry.name), entry.directory});
        else if (IsLeftover(directory, entry.name, startedNs))
            (void)native::Remove(directory + u'/' + entry.name); // where it may not go, it stays unseen
    }
    std::sort(fresh.names.begin(), fresh.names.end(), Before);
    fresh.device = info.device;
    fresh.inode = info.inode;
    fresh.stampNs = info.modifiedNs;
    fresh.state = startedNs > info.modifiedNs ? State::Settled : State::Young;
    lock.lock();
    if (m_listings.size() >= kMostListings)
        m_listings.clear();
    listing = &*m_listings.insert(directory, std::move(fresh));
    return native::Failure::None;
}

std::optional<QString> ListingCache::Find(const QString& directory, const QString& folded)
{
    std::unique_lock lock(m_mutex);
    Listing* listing = nullptr;
    if (Refresh(lock, directory, Need::LookUp, listing) != native::Failure::None)
        return std::nullopt;
    const auto found =
        std::lower_bound(listing->names.cbegin(), listing->names.cend(), folded,
                         [](const Name& name, const QString& wanted) { return name.folded < wanted; });
    if (found == listing->names.cend() || found->folded != folded)
        return std::nullopt;
    return found->name;
}

native::Failure ListingCache::ForEach(const QString& directory, const std::function<bool(const Name&)>& use)
{
    std::unique_lock lock(m_mutex);
    Listing* listing = nullptr;
    if (const native::Failure failure = Refresh(lock, directory, Need::Exact, listing);
        failure != native::Failure::None)
        return failure;
    for (const Name& name : std::as_const(listing->names)) {
        if (!use(name))
            break;
    }
    return native::Failure::None;
}

ListingCache::Change::Change(ListingCache& cache, const QString& directory)
    : m_cache(cache)
    , m_directory(directory)
{
    const std::lock_guard lock(m_cache.m_mutex);
    const auto kept = m_cache.m_listings.constFind(m_directory);
    native::Info info;
    m_wasGood = kept != m_cache.m_listings.constEnd() &&
                native::Inspect(m_directory, info) == native::Failure::None &&
                m_cache.IsGood(*kept, info, Need::LookUp);
}

void ListingCache::Change::Enter(const std::function<void(QList<Name>&)>& edit)
{
    const std::lock_guard lock(m_cache.m_mutex);
    const auto kept = m_cache.m_listings.find(m_directory);
    if (kept == m_cache.m_listings.end())
        return;
    native::Info info;
    if (!m_wasGood || native::Inspect(m_directory, info) != native::Failure::None) {
        m_cache.m_listings.erase(kept);
        return;
    }
    edit(kept->names);
    kept->stampNs = info.modifiedNs;
    if (kept->state != State::Entered)
        kept->sinceEntered.start();
    kept->state = State::Entered;
}

void ListingCache::Change::Added(const QString& name, bool directory)
{
    Enter([&](QList<Name>& names) {
        Name fresh{FoldedName(name), name, directory};
        const auto place = std::lower_bound(names.begin(), names.end(), fresh, Before);
        if (place == names.end() || place->name != name)
            names.insert(place, std::move(fresh));
    });
}

void ListingCache::Change::Removed(const QString& name)
{
    Enter([&](QList<Name>& names) {
        const Name gone{FoldedName(name), name, false};
        const auto place = std::lower_bound(names.begin(), names.end(), gone, Before);
        if (place != names.end() && place->name == name)
            names.erase(place);
    });
}

} // namespace vasclip::files
