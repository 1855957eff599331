#include "platform/files/native.h"

#include <QCryptographicHash>
#include <QDir>
#include <QRandomGenerator>

#include <limits>
#include <string>

#include <windows.h>

// The header takes this name for its own, and mingw-w64 leaves one code out.
#undef RemoveDirectory
#ifndef ERROR_DISK_QUOTA_EXCEEDED
#define ERROR_DISK_QUOTA_EXCEEDED 1295L
#endif

using namespace Qt::StringLiterals;

namespace vasclip::files::native {

namespace {

Failure FailureOf(DWORD code)
{
    switch (code) {
    case ERROR_SUCCESS:
        return Failure::None;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
        return Failure::NotFound;
    case ERROR_DIRECTORY:
        return Failure::NotADirectory;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return Failure::Exists;
    case ERROR_DIR_NOT_EMPTY:
        return Failure::NotEmpty;
    case ERROR_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
        return Failure::Denied;
    case ERROR_WRITE_PROTECT:
        return Failure::ReadOnlyDisk;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_QUOTA_EXCEEDED:
        return Failure::Full;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return Failure::Busy;
    case ERROR_CRC:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
        return Failure::Io;
    case ERROR_NOT_READY:
    case ERROR_BAD_UNIT:
    case ERROR_INVALID_DRIVE:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_NETNAME_DELETED:
    case ERROR_NETWORK_BUSY:
    case ERROR_SEM_TIMEOUT:
    case ERROR_NO_NET_OR_BAD_PATH:
    case ERROR_CONNECTION_UNAVAIL:
    case ERROR_NETWORK_UNREACHABLE:
    case ERROR_HOST_UNREACHABLE:
    case ERROR_CONNECTION_ABORTED:
    case ERROR_NOT_CONNECTED:
        return Failure::NoDevice;
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
        return Failure::NameTooLong;
    case ERROR_NOT_SAME_DEVICE:
        return Failure::OtherDisk;
    case ERROR_TOO_MANY_OPEN_FILES:
        return Failure::TooManyFiles;
    default:
        return Failure::Other;
    }
}

Failure Answer(BOOL good)
{
    return good ? Failure::None : FailureOf(GetLastError());
}

std::wstring Wide(const QString& path)
{
    return SystemPath(path).toStdWString();
}

qint64 Nanoseconds(const FILETIME& time)
{
    constexpr qint64 kTicksTo1970 = 116'444'736'000'000'000;
    return ((qint64(time.dwHighDateTime) << 32 | time.dwLowDateTime) - kTicksTo1970) * 100;
}

class Handle
{
public:
    explicit Handle(HANDLE handle)
        : m_handle(handle)
    {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] HANDLE Get() const { return m_handle; }
    [[nodiscard]] bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }
    void Close()
    {
        if (IsOpen())
            CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE m_handle;
};

bool Open(const std::wstring& name, BY_HANDLE_FILE_INFORMATION& found)
{
    const Handle handle(CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return handle.IsOpen() && GetFileInformationByHandle(handle.Get(), &found);
}

/// From either of the two answers of the system, whose names are the same.
template <class Found>
void Fill(Info& info, const Found& found)
{
    info.directory = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    info.readOnly = !info.directory && (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    info.size = qint64(found.nFileSizeHigh) << 32 | found.nFileSizeLow;
    info.modifiedNs = Nanoseconds(found.ftLastWriteTime);
    info.changedNs = info.modifiedNs;
    info.device = 0;
    info.inode = quint64(Nanoseconds(found.ftCreationTime));
}

/// A new name beside the target.
QString FreshName(const QString& target)
{
    return target.left(target.lastIndexOf(u'/') + 1) + QString::fromUtf16(kOwnPrefix) +
           QString::number(QRandomGenerator::system()->generate64(), 36) + u".tmp"_s;
}

/// Puts a flushed new file in the target's place, or takes it away again.
Failure Arrive(const QString& fresh, const QString& target)
{
    const DWORD old = GetFileAttributesW(Wide(target).c_str());
    if (MoveFileExW(Wide(fresh).c_str(), Wide(target).c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        if (old != INVALID_FILE_ATTRIBUTES && (old & FILE_ATTRIBUTE_HIDDEN) != 0)
            SetFileAttributesW(Wide(target).c_str(), old);
        return Failure::None;
    }
    const Failure failure = FailureOf(GetLastError());
    DeleteFileW(Wide(fresh).c_str());
    return failure;
}

Failure SumOf(const QString& path, QByteArray& sum)
{
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    const Failure failure = ReadPieces(path, [&hash](QByteArrayView piece) {
        hash.addData(piece);
        return true;
    });
    sum = hash.result();
    return failure;
}

/// Do both files hold the same?
Failure Compare(const QString& source, const QString& copy)
{
    QByteArray wanted, got;
    if (const Failure failure = SumOf(source, wanted); failure != Failure::None)
        return failure;
    if (const Failure failure = SumOf(copy, got); failure != Failure::None)
        return failure;
    return wanted == got ? Failure::None : Failure::Differs;
}

} // namespace

QString SystemPath(const QString& path)
{
    const QString native = QDir::toNativeSeparators(path);
    const QString mark = u"\\\\?\\"_s;
    if (native.startsWith(mark) || native.startsWith(u"\\\\.\\"))
        return native;
    if (native.startsWith(u"\\\\"))
        return mark + u"UNC"_s + native.mid(1);
    return native.size() > 2 && native[1] == u':' && native[2] == u'\\' ? mark + native : native;
}

Failure Inspect(const QString& path, Info& info)
{
    // By its name, since to open a file costs many times as much, most on a share; what a link leads to is opened.
    const std::wstring name = Wide(path);
    WIN32_FILE_ATTRIBUTE_DATA found;
    if (!GetFileAttributesExW(name.c_str(), GetFileExInfoStandard, &found))
        return FailureOf(GetLastError());
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        Fill(info, found);
        return Failure::None;
    }
    BY_HANDLE_FILE_INFORMATION opened;
    if (!Open(name, opened))
        return FailureOf(GetLastError());
    Fill(info, opened);
    return Failure::None;
}

bool SameFile(const QString& a, const QString& b)
{
    BY_HANDLE_FILE_INFORMATION one, other;
    return Open(Wide(a), one) && Open(Wide(b), other) && one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
           one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

const bool kTellsSpellings = false;

QString AsSpelled(const QString& root, const QString& path)
{
    QString spelled = root.endsWith(u'/') ? root.chopped(1) : root;
    bool stands = true;
    for (const QString& part : path.mid(spelled.size()).split(u'/', Qt::SkipEmptyParts)) {
        const QString asked = spelled + u'/' + part;
        WIN32_FIND_DATAW found;
        const HANDLE search = stands ? FindFirstFileExW(Wide(asked).c_str(), FindExInfoBasic, &found,
                                                        FindExSearchNameMatch, nullptr, 0)
                                     : INVALID_HANDLE_VALUE;
        stands = search != INVALID_HANDLE_VALUE;
        if (!stands) {
            spelled = asked;
            continue;
        }
        FindClose(search);
        // A short name ("PHOTOS~1") stands for another one, which is no spelling of it.
        const QString name = QString::fromWCharArray(found.cFileName);
        spelled += u'/' + (name.compare(part, Qt::CaseInsensitive) == 0 ? name : part);
    }
    return spelled.size() <= root.size() ? root : spelled;
}

Failure List(const QString& directory, QList<Entry>& entries)
{
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileExW((Wide(directory) + L"\\*").c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        return FailureOf(GetLastError());
    do {
        const QString name = QString::fromWCharArray(found.cFileName);
        if (name != u"." && name != u"..")
            entries.append({name, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    } while (FindNextFileW(search, &found));
    const DWORD end = GetLastError();
    FindClose(search);
    return end == ERROR_NO_MORE_FILES ? Failure::None : FailureOf(end);
}

qint64 StampClockNs()
{
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    return Nanoseconds(now);
}

Failure ReadAll(const QString& path, QByteArray& content)
{
    const Handle file(CreateFileW(Wide(path).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen())
        return FailureOf(GetLastError());
    content.clear();
    QByteArray buffer(64 * 1024, Qt::Uninitialized);
    for (;;) {
        DWORD got = 0;
        if (!ReadFile(file.Get(), buffer.data(), DWORD(buffer.size()), &got, nullptr))
            return FailureOf(GetLastError());
        if (got == 0)
            return Failure::None;
        content.append(buffer.constData(), got);
    }
}

Failure Replace(const QString& path, const QByteArray& content)
{
    const QString fresh = FreshName(path);
    Handle file(CreateFileW(Wide(fresh).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                            nullptr));
    if (!file.IsOpen())
        return FailureOf(GetLastError());
    Failure failure = Failure::None;
    constexpr qsizetype kChunk = 16 * 1024 * 1024;
    for (qsizetype at = 0; at < content.size() && failure == Failure::None; at += kChunk) {
        DWORD written = 0;
        failure = Answer(WriteFile(file.Get(), content.constData() + at,
                                   DWORD(qMin(kChunk, content.size() - at)), &written, nullptr));
    }
    if (failure == Failure::None)
        failure = Answer(FlushFileBuffers(file.Get()));
    file.Close();
    if (failure == Failure::None)
        return Arrive(fresh, path);
    DeleteFileW(Wide(fresh).c_str());
    return failure;
}

Failure ReadPieces(const QString& path, const std::function<bool(QByteArrayView)>& use)
{
    const Handle file(CreateFileW(Wide(path).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen())
        return FailureOf(GetLastError());
    QByteArray buffer(1024 * 1024, Qt::Uninitialized);
    for (;;) {
        DWORD got = 0;
        if (!ReadFile(file.Get(), buffer.data(), DWORD(buffer.size()), &got, nullptr))
            return FailureOf(GetLastError());
        if (got == 0)
            return Failure::None;
        if (!use(QByteArrayView(buffer.constData(), qsizetype(got))))
            return Failure::Stopped;
    }
}

Failure Copy(const QString& source, const QString& target, const CopyWatch& watch)
{
    // Read and written by hand: the system's own copy is not stopped by its watcher everywhere.
    const Handle from(CreateFileW(Wide(source).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!from.IsOpen())
        return FailureOf(GetLastError());
    BY_HANDLE_FILE_INFORMATION old;
    if (!GetFileInformationByHandle(from.Get(), &old))
        return FailureOf(GetLastError());
    const QString fresh = FreshName(target);
    Handle onto(CreateFileW(Wide(fresh).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                            nullptr));
    if (!onto.IsOpen())
        return FailureOf(GetLastError());
    const auto giveUp = [&](Failure failure) {
        onto.Close();
        DeleteFileW(Wide(fresh).c_str());
        return failure;
    };
    QByteArray buffer(1024 * 1024, Qt::Uninitialized);
    for (qint64 copied = 0;;) {
        DWORD got = 0, written = 0;
        if (!ReadFile(from.Get(), buffer.data(), DWORD(buffer.size()), &got, nullptr))
            return giveUp(FailureOf(GetLastError()));
        if (got == 0)
            break;
        if (!WriteFile(onto.Get(), buffer.constData(), got, &written, nullptr))
            return giveUp(FailureOf(GetLastError()));
        copied += got;
        if (watch.step && !watch.step(copied))
            return giveUp(Failure::Stopped);
    }
    if (!FlushFileBuffers(onto.Get()) ||
        !SetFileTime(onto.Get(), nullptr, &old.ftLastAccessTime, &old.ftLastWriteTime))
        return giveUp(FailureOf(GetLastError()));
    onto.Close();
    if (watch.readBack)
        if (const Failure same = Compare(source, fresh); same != Failure::None)
            return giveUp(same);
    const Failure arrived = Arrive(fresh, target);
    if (arrived == Failure::None)
        SetFileAttributesW(Wide(target).c_str(), old.dwFileAttributes);
    return arrived;
}

Failure Rename(const QString& from, const QString& onto, bool /*sameFile*/)
{
    return Answer(MoveFileExW(Wide(from).c_str(), Wide(onto).c_str(), MOVEFILE_WRITE_THROUGH));
}

Failure Remove(const QString& path)
{
    return Answer(DeleteFileW(Wide(path).c_str()));
}

Failure MakeDirectory(const QString& path)
{
    return Answer(CreateDirectoryW(Wide(path).c_str(), nullptr));
}

Failure RemoveDirectory(const QString& path)
{
    return Answer(RemoveDirectoryW(Wide(path).c_str()));
}

Failure SetReadOnly(const QString& path, bool readOnly)
{
    const DWORD old = GetFileAttributesW(Wide(path).c_str());
    if (old == INVALID_FILE_ATTRIBUTES)
        return FailureOf(GetLastError());
    const DWORD wanted = readOnly ? old | FILE_ATTRIBUTE_READONLY : old & ~DWORD(FILE_ATTRIBUTE_READONLY);
    return wanted == old ? Failure::None : Answer(SetFileAttributesW(Wide(path).c_str(), wanted));
}

bool MayWrite(const QString& path)
{
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return false;
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        // Of a directory the attribute says nothing, and of a share its own rules say less than the server's.
        const Handle fresh(CreateFileW(Wide(FreshName(path + u'/')).c_str(), GENERIC_WRITE | DELETE, kShared, nullptr, CREATE_NEW,
                                       FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
        return fresh.IsOpen();
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return false;
    const Handle file(CreateFileW(Wide(path).c_str(), GENERIC_READ | GENERIC_WRITE, kShared, nullptr, OPEN_EXISTING, 0, nullptr));
    return file.IsOpen() || FailureOf(GetLastError()) == Failure::Busy;
}

Failure FreeBytes(const QString& directory, qint64& bytes)
{
    ULARGE_INTEGER free;
    if (!GetDiskFreeSpaceExW((Wide(directory) + L"\\").c_str(), &free, nullptr, nullptr))
        return FailureOf(GetLastError());
    bytes = static_cast<qint64>(qMin<quint64>(free.QuadPart, std::numeric_limits<qint64>::max()));
    return Failure::None;
}

bool IsHidden(const QString& path)
{
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
}

void SetHidden(const QString& path, bool hidden)
{
    const DWORD old = GetFileAttributesW(Wide(path).c_str());
    if (old == INVALID_FILE_ATTRIBUTES)
        return;
    SetFileAttributesW(Wide(path).c_str(),
                       hidden ? old | FILE_ATTRIBUTE_HIDDEN : old & ~DWORD(FILE_ATTRIBUTE_HIDDEN));
}

QList<std::pair<QChar, QString>> MachineDrives()
{
    QList<std::pair<QChar, QString>> drives;
    const DWORD present = GetLogicalDrives();
    for (int letter = 0; letter < 26; ++letter) {
        if ((present & (DWORD(1) << letter)) != 0)
            drives.append(
                {QChar(char16_t(u'A' + letter)), QString(QChar(char16_t(u'A' + letter))) + u":/"_s});
    }
    return drives;
}

} // namespace vasclip::files::native
