#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace vasclip::files {

class IniText;

enum Attribute : unsigned { Normal = 0, ReadOnly = 1, Hidden = 2, Directory = 16 };

/// What stands behind the drive letters of one home.
///
/// Everything above this room speaks of drive paths ("C:\VASSNAP\"), compared without regard to case. `C:`
/// is `<home>/drive_c` (on a machine with a C of its own only if that is there), on Linux `Z:` is `/`, and
/// `<home>/drives.ini` (section "DRIVES", "D"=directory) maps more. A name outside a mapped drive, or a `..` that leaves it, is refused with error 76 (error 68 for
/// a drive that is not mapped, 71 for one whose directory is gone), error 52 for a name that no drive path
/// can have.
///
/// All paths of the operations are drive paths. Names are found without regard to case: an exact match wins,
/// else the first match in sorted order.
class Disk
{
public:
    /// @param home  native directory of the program's home; made (with drive_c) if it is missing
    explicit Disk(const QString& home);
    ~Disk();
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    [[nodiscard]] QString Home() const;

    /// The native path of a drive path. Parts that exist are spelled as they are on disk, others as given.
    [[nodiscard]] QString ToNative(const QString& path) const;
    /// The drive path of a native path, through the mapped drive that reaches deepest; nullopt outside all.
    [[nodiscard]] std::optional<QString> ToDrivePath(const QString& native) const;
    /// Letters of the drives that there are now with their native directories, "C" first. A drive that the machine has got since
    /// the home was opened is among them, one that it has lost is not.
    [[nodiscard]] QList<std::pair<QChar, QString>> Drives() const;

    /// Names (not paths) in a directory that match the last part of `pattern` (`*` and `?`; "*.*" is all),
    /// without regard to case, sorted without regard to case; with `Directory` also directories, but never
    /// "." and "..". A directory that is not there gives an empty list.
    [[nodiscard]] QStringList Dir(const QString& pattern, unsigned attributes = Normal) const;
    /// The `Dir` test: does at least one entry match? A path without wildcards is one look-up. With
    /// `Directory` and a closing backslash the directory itself is meant, so that an empty one is found too.
    [[nodiscard]] bool Found(const QString& pattern, unsigned attributes = Normal) const;

    /// True if the file's length is 1 or more. Never throws: an error is false.
    [[nodiscard]] bool FileExists(const QString& path) const noexcept;
    /// True if the directory is there. Never throws.
    [[nodiscard]] bool DirExists(const QString& path) const noexcept;

    [[nodiscard]] qint64 FileLen(const QString& path) const;         ///< @throws 53
    [[nodiscard]] QDateTime FileDateTime(const QString& path) const; ///< local time; @throws 53
    [[nodiscard]] unsigned GetAttr(const QString& path) const;       ///< Attribute bits; @throws 53
    void SetAttr(const QString& path, unsigned attributes) const;    ///< @throws 53, 75
    void Kill(const QString& pattern) const;                         ///< deletes files; @throws 53, 75
    /// Copies with overwriting: to a new file beside the target, flushed, then renamed. @throws 53, 61, 70,
    /// 75, 76
    void FileCopy(const QString& source, const QString& target) const;
    /// FileCopy whose new file is read back and compared before it takes the target's name.
    /// @param step  told the bytes copied so far; false stops the copy, and the target is as it was
    /// @return false if it was stopped
    /// @throws 57 if the disk did not keep what was written, else as FileCopy
    bool FileCopyChecked(const QString& source, const QString& target,
                         const std::function<bool(qint64 bytes)>& step = {}) const;
    void Name(const QString& from, const QString& to) const; ///< renames; @throws 53, 58, 75
    void MkDir(const QString& path) const;                   ///< one level; @throws 75, 76
    void RmDir(const QString& path) const;                   ///< @throws 75, 76

    /// Gives a file's content piece by piece, so that a large one takes no memory.
    /// @param use  false stops the reading
    /// @return false if it was stopped; @throws 53, 57, 75
    bool ReadPieces(const QString& path, const std::function<bool(QByteArrayView)>& use) const;
    /// Bytes that this user may still write where `path` lies. @throws 57, 76
    [[nodiscard]] qint64 FreeBytes(const QString& path) const;

    [[nodiscard]] QByteArray ReadWhole(const QString& path) const; ///< @throws 53, 57, 75
    /// Replaces a file: new file, flush, rename, so that a reader sees the old or the new one whole.
    /// @throws 61 disk full, 70 permission denied, 75, 76; the old file is then untouched
    void WriteWhole(const QString& path, const QByteArray& content) const;

    /// An ini file for the profile calls, read anew only when it has changed; null for one that can't be read. May be
    /// asked by any thread. @throws as ToNative
    [[nodiscard]] std::shared_ptr<const IniText> Ini(const QString& path) const;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// `--home DIR`, else VASCLIP_HOME, else the user's data directory.
[[nodiscard]] QString DefaultHome();

} // namespace vasclip::files
