#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QChar>
#include <QList>
#include <QString>

#include <functional>
#include <utility>

/// The system's own file calls, on native paths with "/" between the parts. Nothing here throws: a call
/// answers why it failed, and `failures.h` gives that its number. One source file for each system stands
/// behind this header.
namespace vasclip::files::native {

enum class Failure {
    None,
    NotFound,      ///< the name, or a directory on the way to it
    NotADirectory, ///< a file stands where a directory should
    IsADirectory,
    Exists,
    NotEmpty,
    Denied,
    ReadOnlyDisk,
    Full,
    Busy,
    Io,
    NoDevice,
    NameTooLong,
    OtherDisk, ///< a rename from one disk to another
    TooManyFiles,
    Stopped, ///< by whoever watched the copy
    Differs, ///< what was read back is not what was written
    Other,
};

/// What the system knows of a name; links are followed.
struct Info
{
    bool directory = false;
    bool readOnly = false; ///< by its attribute, whoever asks
    qint64 size = 0;
    qint64 modifiedNs = 0; ///< since 1970, UTC
    qint64 changedNs = 0;
    quint64 device = 0; ///< and inode: other ones once another file has the name; of two names ask SameFile
    quint64 inode = 0;
};

struct Entry
{
    QString name;
    bool directory = false;
};

/// A path as the system's own calls take it: on Windows its long form ("\\?\C:\..." or "\\?\UNC\machine\share\..."),
/// which alone may have more than 260 characters; elsewhere the path itself. One that is not whole stays what it is.
[[nodiscard]] QString SystemPath(const QString& path);

[[nodiscard]] Failure Inspect(const QString& path, Info& info);
/// Do two names that stand lead to one file?
[[nodiscard]] bool SameFile(const QString& a, const QString& b);
/// Does the system tell a name from the same one in another spelling?
extern const bool kTellsSpellings;
/// A path below a root with its names as they are on disk, as far as it stands. Where the system tells spellings
/// apart, that is the path itself.
[[nodiscard]] QString AsSpelled(const QString& root, const QString& path);
/// Names without "." and "..", and without those that no text can hold.
[[nodiscard]] Failure List(const QString& directory, QList<Entry>& entries);
/// The clock that stamps changes of directories, as coarse as it is.
[[nodiscard]] qint64 StampClockNs();

[[nodiscard]] Failure ReadAll(const QString& path, QByteArray& content);
/// A new file beside the target, flushed, renamed over it; then the directory is flushed. An existing target
/// keeps its permissions. On a failure the new file is gone and the target is as it was.
[[nodiscard]] Failure Replace(const QString& path, const QByteArray& content);
/// How a copy is watched.
struct CopyWatch
{
    std::function<bool(qint64 bytes)> step; ///< told the bytes copied so far; false stops the copy
    bool readBack = false;                  ///< compares the new file with the source before it arrives
};

/// Likewise with another file's content, time and attributes.
[[nodiscard]] Failure Copy(const QString& source, const QString& target, const CopyWatch& watch = {});
/// Gives a file's content piece by piece until `use` answers false, which is Stopped.
[[nodiscard]] Failure ReadPieces(const QString& path, const std::function<bool(QByteArrayView)>& use);
/// Never replaces, unless `onto` is the same file under a spelling of its own.
[[nodiscard]] Failure Rename(const QString& from, const QString& onto, bool sameFile);
[[nodiscard]] Failure Remove(const QString& path);
[[nodiscard]] Failure MakeDirectory(const QString& path);
[[nodiscard]] Failure RemoveDirectory(const QString& path);
[[nodiscard]] Failure SetReadOnly(const QString& path, bool readOnly);
/// May this user change a file, or make files in a directory? It is tried where the attributes do not tell.
[[nodiscard]] bool MayWrite(const QString& path);
/// Bytes that this user may still write on the disk that holds a directory, whether or not the list of mounts names it.
[[nodiscard]] Failure FreeBytes(const QString& directory, qint64& bytes);
[[nodiscard]] bool IsHidden(const QString& path);
/// Does nothing where the disk cannot keep the mark.
void SetHidden(const QString& path, bool hidden);

/// The drives that the machine has now, whatever the home, with their native directories.
[[nodiscard]] QList<std::pair<QChar, QString>> MachineDrives();

/// Files that this room keeps for itself begin so, and no listing shows them.
inline constexpr char16_t kOwnPrefix[] = u".vasclip-";

} // namespace vasclip::files::native
