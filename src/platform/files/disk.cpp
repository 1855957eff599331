#include "platform/files/disk.h"

#include "platform/files/drive_path.h"
#include "platform/files/drives.h"
#include "platform/files/failures.h"
#include "platform/files/kept_inis.h"
#include "platform/files/listing.h"
#include "platform/files/native.h"
#include "platform/files/wildcard.h"
#include "platform/text/runtime_error.h"

#include <QDir>
#include <QHash>

#include <algorithm>
#include <exception>
#include <functional>

using namespace Qt::StringLiterals;

namespace vasclip::files {

using native::Failure;

namespace {

constexpr int kContentDenied = error::kPermissionDenied;
constexpr int kDenied = error::kPathFileAccess;

QString Joined(const QString& directory, const QString& name)
{
    return directory.endsWith(u'/') ? directory + name : directory + u'/' + name;
}

QString NameOf(const QString& nativePath)
{
    return nativePath.mid(nativePath.lastIndexOf(u'/') + 1);
}

QString DirectoryOf(const QString& nativePath)
{
    const qsizetype slash = nativePath.lastIndexOf(u'/');
    const bool isRoot = slash <= 0 || nativePath[slash - 1] == u':';
    return isRoot ? nativePath.left(slash + 1) : nativePath.left(slash);
}

} // namespace

struct Disk::Private
{
    /// Where a drive path leads. Parts that are not there keep their given spelling, and where the system finds a name in any
    /// spelling the others do so too: Spelled has them as they are on disk.
    struct Place
    {
        QString native;
        native::Info info;
        qsizetype missing =
            0; ///< parts at the end that are not on disk; 0 means it stands, 1 that its directory does
        Failure failure = Failure::None; ///< why the first missing part could not be seen

        [[nodiscard]] bool Stands() const { return missing == 0; }
        [[nodiscard]] bool IsFile() const { return Stands() && !info.directory; }
        [[nodiscard]] bool IsDirectory() const { return Stands() && info.directory; }
    };

    QString home;
    QList<Drive> drives; ///< when the home was opened, "C" first
    QList<Drive> machine = native::MachineDrives(); ///< those that the machine had then
    QHash<QChar, QString> roots;
    mutable ListingCache listings;
    mutable KeptInis inis;

    [[nodiscard]] QString RootOf(const DrivePath& path) const
    {
        const auto root = roots.constFind(path.drive);
        if (root != roots.constEnd())
            return *root;
        for (const auto& [letter, come] : native::MachineDrives())
            if (letter == path.drive)
                return come;
        ThrowNumber(error::kDeviceUnavailable, path.Text(), u"lies on a drive that drives.ini does not map"_s);
    }

    /// The home's drives as they are now: those of the machine come and go, a card's with its reader.
    [[nodiscard]] QList<Drive> DrivesNow() const
    {
        const QList<Drive> present = native::MachineDrives();
        QList<Drive> now = drives;
        now.removeIf([&](const Drive& drive) {
            return drive.first != u'C' && machine.contains(drive) && !present.contains(drive);
        });
        for (const Drive& drive : present) {
            const auto at = std::find_if(now.cbegin() + 1, now.cend(),
                                         [&](const Drive& other) { return other.first >= drive.first; });
            if (drive.first != u'C' && (at == now.cend() || at->first != drive.first))
                now.insert(at, drive);
        }
        return now;
    }

    /// One question to the system if the spelling is exact; else part by part from the deepest directory that
    /// stands.
    [[nodiscard]] Place Resolve(const DrivePath& path) const
    {
        return Resolve(path, RootOf(path), path.parts.size());
    }

    [[nodiscard]] Place Resolve(const DrivePath& path, const QString& root, qsizetype depth) const
    {
        Place place;
        place.native = root;
        for (qsizetype at = 0; at < depth; ++at)
            place.native = Joined(place.native, path.parts[at]);
        place.failure = native::Inspect(place.native, place.info);
        if (place.failure == Failure::None)
            return place;
        if (depth == 0)
            ThrowNumber(error::kDiskNotReady, path.Text(),
                        u"cannot be reached: the directory of its drive, \"%1\", is not there"_s.arg(root));

        const Failure failure = place.failure;
        const QString& part = path.parts[depth - 1];
        place = Resolve(path, root, depth - 1);
        if (place.IsDirectory() && native::kTellsSpellings) {
            const auto standsAs = [&place](const QString& name) {
                const QString found = Joined(place.native, name);
                native::Info info;
                if (native::Inspect(found, info) != Failure::None)
                    return false;
                place.native = found;
                place.info = info;
                return true;
            };
            // The exact name first: the question above may have failed for a directory of another spelling.
            if (standsAs(part))
                return place;
            const auto spelled = listings.Find(place.native, FoldedName(part));
            if (spelled && standsAs(*spelled))
                return place;
            place.failure = failure;
        } else if (place.Stands()) {
            place.failure = place.IsDirectory() ? failure : Failure::NotADirectory;
        }
        place.native = Joined(place.native, part);
        ++place.missing;
        return place;
    }

    [[nodiscard]] Place Resolve(const QString& path) const
    {
        return Resolve(ParseDrivePath(path, Wildcards::Refused));
    }

    /// With the names as they are on disk, which costs a question for each: for what is handed out, and for changes, of which
    /// the listings hear.
    [[nodiscard]] Place Spelled(const DrivePath& path) const
    {
        Place place = Resolve(path);
        place.native = native::AsSpelled(RootOf(path), place.native);
        return place;
    }

    [[nodiscard]] Place Spelled(const QString& path) const
    {
        return Spelled(ParseDrivePath(path, Wildcards::Refused));
    }

    /// For an operation on a file that must be there. @throws 53 for a directory too
    [[nodiscard]] Place ExistingFile(const QString& path, int denied) const
    {
        Place place = Resolve(path);
        if (place.IsFile())
            return place;
        if (place.missing > 0 && place.failure != Failure::NotFound &&
            place.failure != Failure::NotADirectory)
            ThrowFailure(place.failure, path, denied);
        ThrowNumber(error::kFileNotFound, path);
    }

    /// For an operation that makes a name. @throws 76 if its directory is not there
    [[nodiscard]] Place Target(const QString& path, int denied) const
    {
        Place place = Spelled(path);
        if (place.missing > 0) {
            if (place.failure != Failure::NotFound)
                ThrowFailure(place.failure, path, denied);
            if (place.missing > 1)
                ThrowNumber(error::kPathNotFound, path);
        }
        return place;
    }

    /// For content that is to be put at a name.
    [[nodiscard]] Place ContentTarget(const QString& path) const
    {
        Place place = Target(path, kContentDenied);
        if (place.IsDirectory())
            ThrowFailure(Failure::IsADirectory, path, kContentDenied);
        if (place.IsFile() && place.info.readOnly)
            ThrowNumber(error::kPathFileAccess, path, u"is read-only"_s);
        return place;
    }

    static void Check(Failure failure, const QString& path, int denied)
    {
        if (failure != Failure::None)
            ThrowFailure(failure, path, denied);
    }

    bool CopyFile(const QString& source, const QString& target, const native::CopyWatch& watch) const;
    void Walk(const DrivePath& pattern, unsigned attributes,
              const std::function<bool(const ListingCache::Name&)>& use) const;
};

Disk::Disk(const QString& home)
    : d(std::make_unique<Private>())
{
    d->home = QDir::cleanPath(QDir(home).absolutePath());
    if (!QDir().mkpath(d->home))
        throw RuntimeError(error::kPathFileAccess,
                           u"Path/File access error: the home \"%1\" cannot be made; check the "
                           "permissions of the directories above it"_s.arg(d->home));
    d->drives = ReadDrives(d->home);
    for (const auto& [letter, root] : std::as_const(d->drives)) {
        d->roots.insert(letter, root);
        if (letter == u'C' && !QDir().mkpath(root))
            throw RuntimeError(
                error::kPathFileAccess,
                u"Path/File access error: the directory of drive C, \"%1\", cannot be made"_s.arg(root));
    }
}

Disk::~Disk() = default;

std::shared_ptr<const IniText> Disk::Ini(const QString& path) const
{
    const Private::Place place = d->Resolve(path);
    return place.IsFile() ? d->inis.Read(place.native, place.info) : nullptr;
}

QString Disk::Home() const
{
    return d->home;
}

QString Disk::ToNative(const QString& path) const
{
    return d->Spelled(path).native;
}

std::optional<QString> Disk::ToDrivePath(const QString& nativePath) const
{
    if (!QDir::isAbsolutePath(nativePath))
        return std::nullopt;
    const QString wanted = QDir::cleanPath(nativePath);
    const Qt::CaseSensitivity spelling = native::kTellsSpellings ? Qt::CaseSensitive : Qt::CaseInsensitive;
    std::optional<QString> best;
    qsizetype deepest = -1;
    for (const auto& [letter, root] : d->DrivesNow()) {
        // A whole drive is spelt in one way, and one of a machine that is off would take long to say so.
        const bool whole = root.size() == 3 && root[1] == u':';
        for (const QString& spelled : {root, whole ? QString() : QDir(root).canonicalPath()}) {
            const QString prefix = spelled.endsWith(u'/') ? spelled : spelled + u'/';
            const bool inside = wanted.compare(spelled, spelling) == 0 || wanted.startsWith(prefix, spelling);
            if (spelled.isEmpty() || !inside || spelled.size() <= deepest)
                continue;
            const QStringList parts = wanted.mid(prefix.size()).split(u'/', Qt::SkipEmptyParts);
            if (!std::all_of(parts.cbegin(), parts.cend(), IsPossibleName))
                continue;
            deepest = spelled.size();
            best = letter + u":\\"_s + parts.join(u'\\');
        }
    }
    return best;
}

QList<std::pair<QChar, QString>> Disk::Drives() const
{
    return d->DrivesNow();
}

void Disk::Private::Walk(const DrivePath& pattern, unsigned attributes,
                         const std::function<bool(const ListingCache::Name&)>& use) const
{
    DrivePath directory = pattern;
    const QString last = pattern.closed || pattern.parts.isEmpty() ? u"*"_s : directory.parts.takeLast();
    const Place place = Spelled(directory);
    if (!place.IsDirectory())
        return;
    const QString folded = FoldedName(last);
    const Failure failure = listings.ForEach(place.native, [&](const ListingCache::Name& name) {
        if (name.directory && (attributes & Directory) == 0)
            return true;
        return !MatchesPattern(name.folded, folded) || use(name);
    });
    if (failure != Failure::None && failure != Failure::NotFound)
        ThrowFailure(failure, directory.Text(), kDenied);
}

QStringList Disk::Dir(const QString& pattern, unsigned attributes) const
{
    const DrivePath path = ParseDrivePath(pattern, Wildcards::InLastPart);
    QStringList names;
    if (!path.closed && !HasWildcard(path.parts.last())) {
        const Private::Place place = d->Spelled(path);
        if (place.IsFile() || (place.IsDirectory() && (attributes & Directory) != 0))
            names.append(NameOf(place.native));
        return names;
    }
    d->Walk(path, attributes, [&](const ListingCache::Name& name) {
        names.append(name.name);
        return true;
    });
    return names;
}

bool Disk::Found(const QString& pattern, unsigned attributes) const
{
    const DrivePath path = ParseDrivePath(pattern, Wildcards::InLastPart);
    const bool directoriesToo = (attributes & Directory) != 0;
    if (path.closed && directoriesToo)
        return d->Resolve(path).IsDirectory();
    if (!path.closed && !HasWildcard(path.parts.last())) {
        const Private::Place place = d->Resolve(path);
        return place.IsFile() || (directoriesToo && place.IsDirectory());
    }
    bool found = false;
    d->Walk(path, attributes, [&](const ListingCache::Name&) {
        found = true;
        return false;
    });
    return found;
}

bool Disk::FileExists(const QString& path) const noexcept
{
    try {
        const Private::Place place = d->Resolve(path);
        return place.IsFile() && place.info.size >= 1;
    } catch (const std::exception&) {
        return false;
    }
}

bool Disk::DirExists(const QString& path) const noexcept
{
    try {
        return d->Resolve(path).IsDirectory();
    } catch (const std::exception&) {
        return false;
    }
}

qint64 Disk::FileLen(const QString& path) const
{
    return d->ExistingFile(path, kDenied).info.size;
}

QDateTime Disk::FileDateTime(const QString& path) const
{
    const Private::Place place = d->Resolve(path);
    if (!place.Stands())
        ThrowNumber(error::kFileNotFound, path);
    return QDateTime::fromMSecsSinceEpoch(place.info.modifiedNs / 1'000'000);
}

unsigned Disk::GetAttr(const QString& path) const
{
    const Private::Place place = d->Resolve(path);
    if (!place.Stands())
        ThrowNumber(error::kFileNotFound, path);
    unsigned attributes = Normal;
    if (place.info.directory)
        attributes |= Directory;
    if (place.info.readOnly)
        attributes |= ReadOnly;
    if (native::IsHidden(place.native))
        attributes |= Hidden;
    return attributes;
}

void Disk::SetAttr(const QString& path, unsigned attributes) const
{
    const Private::Place place = d->Resolve(path);
    if (!place.Stands())
        ThrowNumber(error::kFileNotFound, path);
    const bool hidden = (attributes & Hidden) != 0;
    if (place.info.directory) {
        native::SetHidden(place.native, hidden);
        return;
    }
    // The mark is kept in the file, so it is set while the file can be written.
    Private::Check(native::SetReadOnly(place.native, false), path, kDenied);
    native::SetHidden(place.native, hidden);
    if ((attributes & ReadOnly) != 0)
        Private::Check(native::SetReadOnly(place.native, true), path, kDenied);
}

void Disk::Kill(const QString& pattern) const
{
    const DrivePath path = ParseDrivePath(pattern, Wildcards::InLastPart);
    DrivePath directory = path;
    if (!path.closed)
        directory.parts.removeLast();
    const QStringList names = Dir(pattern);
    if (names.isEmpty())
        ThrowNumber(error::kFileNotFound, pattern);
    const QString nativeDirectory = d->Spelled(directory).native;

    // All are looked at before the first one goes.
    for (const QString& name : names) {
        native::Info info;
        if (native::Inspect(Joined(nativeDirectory, name), info) == Failure::None && info.readOnly)
            ThrowNumber(error::kPathFileAccess,
                        directory.Text() + (directory.Text().endsWith(u'\\') ? QString() : u"\\"_s) + name,
                        u"is read-only; nothing was deleted"_s);
    }
    for (const QString& name : names) {
        ListingCache::Change change(d->listings, nativeDirectory);
        const Failure failure = native::Remove(Joined(nativeDirectory, name));
        if (failure != Failure::None && failure != Failure::NotFound)
            ThrowFailure(failure, pattern, kDenied);
        change.Removed(name);
    }
}

void Disk::FileCopy(const QString& source, const QString& target) const
{
    d->CopyFile(source, target, {});
}

bool Disk::FileCopyChecked(const QString& source, const QString& target,
                           const std::function<bool(qint64 bytes)>& step) const
{
    return d->CopyFile(source, target, {step, true});
}

/// @return false if whoever watches it stopped the copy
bool Disk::Private::CopyFile(const QString& source, const QString& target,
                             const native::CopyWatch& watch) const
{
    const Place from = ExistingFile(source, kContentDenied);
    const Place onto = ContentTarget(target);
    if (onto.IsFile() && native::SameFile(onto.native, from.native))
        ThrowNumber(error::kPermissionDenied, target, u"is source and target at once"_s);
    ListingCache::Change change(listings, DirectoryOf(onto.native));
    const Failure failure = native::Copy(from.native, onto.native, watch);
    if (failure == Failure::Stopped)
        return false;
    Check(failure, target, kContentDenied);
    change.Added(NameOf(onto.native), false);
    return true;
}

void Disk::Name(const QString& from, const QString& to) const
{
    const Private::Place old = d->Spelled(from);
    if (!old.Stands())
        ThrowNumber(error::kFileNotFound, from);
    Private::Place fresh = d->Target(to, kDenied);
    const bool sameFile = fresh.Stands() && fresh.native == old.native;
    if (fresh.Stands() && !sameFile)
        ThrowNumber(error::kFileExists, to);
    if (sameFile) // the name changes its spelling
        fresh.native = Joined(DirectoryOf(old.native), ParseDrivePath(to, Wildcards::Refused).parts.last());

    ListingCache::Change leaving(d->listings, DirectoryOf(old.native));
    ListingCache::Change arriving(d->listings, DirectoryOf(fresh.native));
    Failure failure = native::Rename(old.native, fresh.native, sameFile);
    if (failure == Failure::OtherDisk && !old.info.directory) {
        failure = native::Copy(old.native, fresh.native);
        if (failure == Failure::None)
            failure = native::Remove(old.native);
    }
    Private::Check(failure, failure == Failure::NotFound ? from : to, kDenied);
    leaving.Removed(NameOf(old.native));
    arriving.Added(NameOf(fresh.native), old.info.directory);
}

void Disk::MkDir(const QString& path) const
{
    const Private::Place place = d->Target(path, kDenied);
    if (place.Stands())
        ThrowNumber(error::kPathFileAccess, path, u"is there already"_s);
    ListingCache::Change change(d->listings, DirectoryOf(place.native));
    const Failure failure = native::MakeDirectory(place.native);
    if (failure == Failure::Exists)
        ThrowNumber(error::kPathFileAccess, path, u"is there already"_s);
    Private::Check(failure, path, kDenied);
    change.Added(NameOf(place.native), true);
}

void Disk::RmDir(const QString& path) const
{
    const DrivePath parsed = ParseDrivePath(path, Wildcards::Refused);
    const Private::Place place = d->Spelled(parsed);
    if (!place.IsDirectory())
        ThrowNumber(error::kPathNotFound, path);
    if (parsed.parts.isEmpty())
        ThrowNumber(error::kPathFileAccess, path, u"is a whole drive"_s);
    ListingCache::Change change(d->listings, DirectoryOf(place.native));
    Private::Check(native::RemoveDirectory(place.native), path, kDenied);
    change.Removed(NameOf(place.native));
}

bool Disk::ReadPieces(const QString& path, const std::function<bool(QByteArrayView)>& use) const
{
    const Private::Place place = d->ExistingFile(path, kDenied);
    const Failure failure = native::ReadPieces(place.native, use);
    if (failure == Failure::Stopped)
        return false;
    Private::Check(failure, path, kDenied);
    return true;
}

qint64 Disk::FreeBytes(const QString& path) const
{
    const Private::Place place = d->Resolve(path);
    if (!place.Stands())
        ThrowNumber(error::kPathNotFound, path);
    qint64 bytes = 0;
    if (native::FreeBytes(place.IsDirectory() ? place.native : DirectoryOf(place.native), bytes) != Failure::None)
        ThrowNumber(error::kDeviceIo, path);
    return bytes;
}

QByteArray Disk::ReadWhole(const QString& path) const
{
    const Private::Place place = d->ExistingFile(path, kDenied);
    QByteArray content;
    Private::Check(native::ReadAll(place.native, content), path, kDenied);
    return content;
}

void Disk::WriteWhole(const QString& path, const QByteArray& content) const
{
    const Private::Place place = d->ContentTarget(path);
    ListingCache::Change change(d->listings, DirectoryOf(place.native));
    Private::Check(native::Replace(place.native, content), path, kContentDenied);
    change.Added(NameOf(place.native), false);
    d->inis.Forget(place.native);
}

} // namespace vasclip::files
