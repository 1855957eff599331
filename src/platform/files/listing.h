#pragma once

#include "platform/files/native.h"

#include <QElapsedTimer>
#include <QHash>
#include <QString>

#include <functional>
#include <mutex>
#include <optional>

namespace vasclip::files {

/// What stands in directories, kept between look-ups so that a name of another spelling is found without
/// reading 50,000 names again.
///
/// A kept listing is good as long as the directory bears the same change stamp. A stamp as young as the
/// clock's last tick proves nothing (a second change may bear it too), so such a listing is read again. Our
/// own changes are entered into the listing; after them, a name that another process made in the same instant
/// may be missed under another spelling for up to two seconds, and only there: `ForEach` always reads anew
/// then.
class ListingCache
{
public:
    struct Name
    {
        QString folded;
        QString name;
        bool directory = false;
    };

    /// The spelling on disk of the first name, in sorted order, that folds as given.
    [[nodiscard]] std::optional<QString> Find(const QString& directory, const QString& folded);

    /// Calls `use` for each name in sorted order until it answers false; the cache is locked meanwhile.
    native::Failure ForEach(const QString& directory, const std::function<bool(const Name&)>& use);

    /// Stands around one change of ours in a directory, and enters it if nobody else changed anything before
    /// it.
    class Change
    {
    public:
        Change(ListingCache& cache, const QString& directory);
        void Added(const QString& name, bool directory);
        void Removed(const QString& name);

    private:
        void Enter(const std::function<void(QList<Name>&)>& edit);
        ListingCache& m_cache;
        QString m_directory;
        bool m_wasGood = false;
    };

private:
    enum class State {
        Settled,
        Young,   ///< read in the clock tick of the last change
        Entered, ///< holds changes of ours that were not read back
    };

    struct Listing
    {
        QList<Name> names; ///< sorted by folded name, then by name
        quint64 device = 0;
        quint64 inode = 0;
        qint64 stampNs = 0;
        State state = State::Young;
        QElapsedTimer sinceEntered;
    };

    enum class Need { Exact, LookUp };

    native::Failure Refresh(std::unique_lock<std::mutex>& lock, const QString& directory, Need need,
                            Listing*& listing);
    [[nodiscard]] bool IsGood(const Listing& listing, const native::Info& info, Need need) const;

    std::mutex m_mutex;
    QHash<QString, Listing> m_listings;
};

} // namespace vasclip::files
