#include "platform/files/native.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vasclip::files::native {

namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr std::size_t kPiece = 1024 * 1024;
constexpr char kHiddenMark[] = "user.vasclip.hidden";

Failure FailureOf(int code)
{
    switch (code) {
    case 0:
        return Failure::None;
    case ENOENT:
        return Failure::NotFound;
    case ENOTDIR:
        return Failure::NotADirectory;
    case EISDIR:
        return Failure::IsADirectory;
    case EEXIST:
        return Failure::Exists;
    case ENOTEMPTY:
        return Failure::NotEmpty;
    case EACCES:
    case EPERM:
        return Failure::Denied;
    case EROFS:
        return Failure::ReadOnlyDisk;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return Failure::Full;
    case EBUSY:
    case ETXTBSY:
        return Failure::Busy;
    case EIO:
        return Failure::Io;
    case ENODEV:
    case ENXIO:
    case ENOTCONN:
    case ESTALE:
        return Failure::NoDevice;
    case ENAMETOOLONG:
        return Failure::NameTooLong;
    case EXDEV:
        return Failure::OtherDisk;
    case EMFILE:
    case ENFILE:
        return Failure::TooManyFiles;
    default:
        return Failure::Other;
    }
}

Failure Answer(int result)
{
    return result == 0 ? Failure::None : FailureOf(errno);
}

QByteArray Encoded(const QString& path)
{
    return path.toUtf8();
}

qint64 Nanoseconds(const timespec& time)
{
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

/// Read once at start: asking means setting, and another thread may be making a file then.
const mode_t kUmask = [] {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}();

struct CloseDirectory
{
    void operator()(DIR* handle) const { closedir(handle); }
};

class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int Number() const { return m_number; }
    [[nodiscard]] bool IsOpen() const { return m_number >= 0; }
    int Close()
    {
        const int number = m_number;
        m_number = -1;
        return number >= 0 ? close(number) : 0;
    }

private:
    int m_number;
};

Failure WriteAll(int file, const char* data, qint64 size)
{
    while (size > 0) {
        const ssize_t written = write(file, data, std::size_t(size));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return FailureOf(errno);
        }
        data += written;
        size -= written;
    }
    return Failure::None;
}

ssize_t ReadSome(int file, char* data, std::size_t size)
{
    ssize_t got = 0;
    do {
        got = read(file, data, size);
    } while (got < 0 && errno == EINTR);
    return got;
}

Failure FlushDirectory(const QByteArray& directory)
{
    const Descriptor handle(open(directory.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!handle.IsOpen())
        return errno == EACCES ? Failure::None : FailureOf(errno);
    // Some file systems cannot flush a directory; the rename then is as safe as they make it.
    if (fsync(handle.Number()) != 0 && errno != EINVAL && errno != ENOTSUP)
        return FailureOf(errno);
    return Failure::None;
}

QByteArray DirectoryOf(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash <= 0 ? QByteArray("/") : path.left(slash);
}

/// A link as target stays a link: what it points to is replaced.
QByteArray BehindLinks(const QByteArray& path)
{
    struct stat status;
    if (lstat(path.constData(), &status) != 0 || !S_ISLNK(status.st_mode))
        return path;
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.constData(), nullptr), &std::free);
    return real ? QByteArray(real.get()) : path;
}

/// A new file on its way to replace `target`. Goes away unless it arrives.
class Replacement
{
public:
    explicit Replacement(const QString& target)
        : m_target(BehindLinks(Encoded(target)))
    {
        // By chance and not by process number: on a share, two machines may have one number.
        constexpr int kTries = 10;
        for (int tried = 0; tried < kTries && m_file < 0 && (tried == 0 || errno == EEXIST); ++tried) {
            m_name = DirectoryOf(m_target) + '/' + QString::fromUtf16(kOwnPrefix).toUtf8() +
                     QByteArray::number(QRandomGenerator::system()->generate64(), 36) + ".tmp";
            m_file = open(m_name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        }
        m_failure = m_file < 0 ? FailureOf(errno) : Failure::None;
    }
    ~Replacement()
    {
        if (m_file >= 0)
            close(m_file);
        if (!m_arrived && m_file != kNeverOpened)
            unlink(m_name.constData());
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    [[nodiscard]] Failure Opened() const { return m_failure; }
    [[nodiscard]] int File() const { return m_file; }

    /// Does the disk hold what was written?
    [[nodiscard]] Failure ReadBack(const QByteArray& sum) const
    {
        if (fsync(m_file) != 0)
            return FailureOf(errno);
        // What was written a moment ago would else be read from memory.
        posix_fadvise(m_file, 0, 0, POSIX_FADV_DONTNEED);
        QCryptographicHash read(QCryptographicHash::Blake2b_256);
        const Failure failure = ReadPieces(QString::fromUtf8(m_name), [&read](QByteArrayView piece) {
            read.addData(piece);
            return true;
        });
        if (failure != Failure::None)
            return failure;
        return read.result() == sum ? Failure::None : Failure::Differs;
    }

    /// @param mode  permissions when there is no target yet
    Failure Arrive(mode_t mode)
    {
        struct stat old;
        if (stat(m_target.constData(), &old) == 0) {
            mode = old.st_mode & 07777;
            if (old.st_uid != geteuid() || old.st_gid != getegid()) {
                // Only root may give a file away; for others the new owner is the writer.
                if (fchown(m_file, old.st_uid, old.st_gid) != 0)
                    mode &= 0777;
            }
        }
        if (fchmod(m_file, mode) != 0 && errno != EPERM)
            return FailureOf(errno);
        if (fsync(m_file) != 0)
            return FailureOf(errno);
        const int file = m_file;
        m_file = -2;
        if (close(file) != 0)
            return FailureOf(errno);
        if (rename(m_name.constData(), m_target.constData()) != 0)
            return FailureOf(errno);
        m_arrived = true;
        return FlushDirectory(DirectoryOf(m_target));
    }

private:
    static constexpr int kNeverOpened = -1;
    QByteArray m_target;
    QByteArray m_name;
    int m_file = kNeverOpened;
    bool m_arrived = false;
    Failure m_failure = Failure::None;
};

} // namespace

QString SystemPath(const QString& path)
{
    return path;
}

Failure Inspect(const QString& path, Info& info)
{
    struct stat status;
    if (stat(Encoded(path).constData(), &status) != 0)
        return FailureOf(errno);
    info.directory = S_ISDIR(status.st_mode);
    info.readOnly = (status.st_mode & kAnyWrite) == 0;
    info.size = status.st_size;
    info.modifiedNs = Nanoseconds(status.st_mtim);
    info.changedNs = Nanoseconds(status.st_ctim);
    info.device = status.st_dev;
    info.inode = status.st_ino;
    return Failure::None;
}

bool SameFile(const QString& a, const QString& b)
{
    Info one, other;
    return Inspect(a, one) == Failure::None && Inspect(b, other) == Failure::None && one.device == other.device &&
           one.inode == other.inode;
}

const bool kTellsSpellings = true;

QString AsSpelled(const QString& /*root*/, const QString& path)
{
    return path;
}

Failure List(const QString& directory, QList<Entry>& entries)
{
    const std::unique_ptr<DIR, CloseDirectory> handle(opendir(Encoded(directory).constData()));
    if (!handle)
        return FailureOf(errno);
    for (;;) {
        errno = 0;
        const dirent* found = readdir(handle.get());
        if (!found)
            return FailureOf(errno);
        const QByteArrayView raw(found->d_name);
        if (raw == "." || raw == "..")
            continue;
        QString name = QString::fromUtf8(raw);
        if (name.contains(QChar::ReplacementCharacter))
            continue;
        bool isDirectory = found->d_type == DT_DIR;
        if (found->d_type == DT_LNK || found->d_type == DT_UNKNOWN) {
            struct stat status;
            isDirectory =
                fstatat(dirfd(handle.get()), found->d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
        }
        entries.append({std::move(name), isDirectory});
    }
}

qint64 StampClockNs()
{
    timespec now{};
#ifdef CLOCK_REALTIME_COARSE
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
#else
    clock_gettime(CLOCK_REALTIME, &now);
#endif
    return Nanoseconds(now);
}

Failure ReadAll(const QString& path, QByteArray& content)
{
    const Descriptor file(open(Encoded(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen())
        return FailureOf(errno);
    struct stat status;
    if (fstat(file.Number(), &status) != 0)
        return FailureOf(errno);
    if (S_ISDIR(status.st_mode))
        return Failure::IsADirectory;
    content.clear();
    if (S_ISREG(status.st_mode))
        content.reserve(status.st_size + 1);
    std::array<char, 64 * 1024> buffer;
    for (;;) {
        const ssize_t got = ReadSome(file.Number(), buffer.data(), buffer.size());
        if (got < 0)
            return FailureOf(errno);
        if (got == 0)
            return Failure::None;
        content.append(buffer.data(), got);
    }
}

Failure Replace(const QString& path, const QByteArray& content)
{
    Replacement fresh(path);
    if (fresh.Opened() != Failure::None)
        return fresh.Opened();
    const Failure written = WriteAll(fresh.File(), content.constData(), content.size());
    return written != Failure::None ? written : fresh.Arrive(0666 & ~kUmask);
}

Failure ReadPieces(const QString& path, const std::function<bool(QByteArrayView)>& use)
{
    const Descriptor file(open(Encoded(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen())
        return FailureOf(errno);
    const auto buffer = std::make_unique<std::array<char, kPiece>>();
    for (;;) {
        const ssize_t got = ReadSome(file.Number(), buffer->data(), buffer->size());
        if (got < 0)
            return FailureOf(errno);
        if (got == 0)
            return Failure::None;
        if (!use(QByteArrayView(buffer->data(), got)))
            return Failure::Stopped;
    }
}

Failure Copy(const QString& source, const QString& target, const CopyWatch& watch)
{
    const Descriptor from(open(Encoded(source).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!from.IsOpen())
        return FailureOf(errno);
    struct stat status;
    if (fstat(from.Number(), &status) != 0)
        return FailureOf(errno);
    if (S_ISDIR(status.st_mode))
        return Failure::IsADirectory;

    Replacement fresh(target);
    if (fresh.Opened() != Failure::None)
        return fresh.Opened();
    const auto buffer = std::make_unique<std::array<char, kPiece>>();
    QCryptographicHash sum(QCryptographicHash::Blake2b_256);
    for (qint64 copied = 0;;) {
        const ssize_t got = ReadSome(from.Number(), buffer->data(), buffer->size());
        if (got < 0)
            return FailureOf(errno);
        if (got == 0)
            break;
        if (const Failure written = WriteAll(fresh.File(), buffer->data(), got); written != Failure::None)
            return written;
        if (watch.readBack)
            sum.addData(QByteArrayView(buffer->data(), got));
        copied += got;
        if (watch.step && !watch.step(copied))
            return Failure::Stopped;
    }
    if (watch.readBack) {
        if (const Failure same = fresh.ReadBack(sum.result()); same != Failure::None)
            return same;
    }
    const timespec times[2] = {status.st_atim, status.st_mtim};
    if (futimens(fresh.File(), times) != 0)
        return FailureOf(errno);
    const mode_t mode = (status.st_mode & kAnyWrite) == 0 ? 0444 : 0666;
    return fresh.Arrive(mode & ~kUmask);
}

Failure Rename(const QString& from, const QString& onto, bool sameFile)
{
    const QByteArray old = Encoded(from);
    const QByteArray fresh = Encoded(onto);
    if (sameFile)
        return Answer(rename(old.constData(), fresh.constData()));
#ifdef RENAME_NOREPLACE
    if (renameat2(AT_FDCWD, old.constData(), AT_FDCWD, fresh.constData(), RENAME_NOREPLACE) == 0)
        return Failure::None;
    if (errno != EINVAL && errno != ENOSYS)
        return FailureOf(errno);
#endif
    struct stat status;
    if (lstat(fresh.constData(), &status) == 0)
        return Failure::Exists;
    return Answer(rename(old.constData(), fresh.constData()));
}

Failure Remove(const QString& path)
{
    return Answer(unlink(Encoded(path).constData()));
}

Failure MakeDirectory(const QString& path)
{
    return Answer(mkdir(Encoded(path).constData(), 0777));
}

Failure RemoveDirectory(const QString& path)
{
    return Answer(rmdir(Encoded(path).constData()));
}

Failure SetReadOnly(const QString& path, bool readOnly)
{
    const QByteArray name = Encoded(path);
    struct stat status;
    if (stat(name.constData(), &status) != 0)
        return FailureOf(errno);
    const mode_t old = status.st_mode & 07777;
    // Whoever may read may write again, as far as new files would have it.
    const mode_t writable = old | S_IWUSR | (((old & 0444) >> 1) & ~kUmask);
    const mode_t wanted = readOnly ? old & ~kAnyWrite : (old & kAnyWrite) == 0 ? writable : old;
    return wanted == old ? Failure::None : Answer(chmod(name.constData(), wanted));
}

bool MayWrite(const QString& path)
{
    return QFileInfo(path).isWritable();
}

Failure FreeBytes(const QString& directory, qint64& bytes)
{
    struct statvfs disk;
    if (statvfs(Encoded(directory).constData(), &disk) != 0)
        return FailureOf(errno);
    const quint64 free = quint64{disk.f_bavail} * disk.f_frsize;
    bytes = static_cast<qint64>(std::min<quint64>(free, std::numeric_limits<qint64>::max()));
    return Failure::None;
}

bool IsHidden(const QString& path)
{
    return getxattr(Encoded(path).constData(), kHiddenMark, nullptr, 0) >= 0;
}

void SetHidden(const QString& path, bool hidden)
{
    const QByteArray name = Encoded(path);
    if (hidden)
        (void)setxattr(name.constData(), kHiddenMark, "1", 1, 0);
    else
        (void)removexattr(name.constData(), kHiddenMark);
}

QList<std::pair<QChar, QString>> MachineDrives()
{
    return {{u'Z', u"/"_s}};
}

} // namespace vasclip::files::native
