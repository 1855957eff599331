#include "platform/files/failures.h"

#include "platform/text/runtime_error.h"

namespace vasclip::files {

namespace {

QString WordsOf(int number)
{
    switch (number) {
    case error::kBadFileName:
        return QStringLiteral("Bad file name or number");
    case error::kFileNotFound:
        return QStringLiteral("File not found");
    case error::kDeviceIo:
        return QStringLiteral("Device I/O error");
    case error::kFileExists:
        return QStringLiteral("File already exists");
    case error::kDiskFull:
        return QStringLiteral("Disk full");
    case error::kTooManyFiles:
        return QStringLiteral("Too many files");
    case error::kDeviceUnavailable:
        return QStringLiteral("Device unavailable");
    case error::kPermissionDenied:
        return QStringLiteral("Permission denied");
    case error::kDiskNotReady:
        return QStringLiteral("Disk not ready");
    case error::kOtherDrive:
        return QStringLiteral("Can't rename with different drive");
    case error::kPathNotFound:
        return QStringLiteral("Path not found");
    default:
        return QStringLiteral("Path/File access error");
    }
}

} // namespace

void ThrowNumber(int number, const QString& path, const QString& detail)
{
    throw RuntimeError(number, WordsOf(number) + QStringLiteral(": \"") + path + u'"' +
                                   (detail.isEmpty() ? QString() : u' ' + detail));
}

void ThrowFailure(native::Failure failure, const QString& path, int denied)
{
    using native::Failure;
    switch (failure) {
    case Failure::NotFound:
        ThrowNumber(error::kFileNotFound, path);
    case Failure::NotADirectory:
        ThrowNumber(error::kPathNotFound, path, QStringLiteral("goes through a file"));
    case Failure::IsADirectory:
        ThrowNumber(error::kPathFileAccess, path, QStringLiteral("is a directory"));
    case Failure::Exists:
        ThrowNumber(error::kFileExists, path);
    case Failure::NotEmpty:
        ThrowNumber(error::kPathFileAccess, path, QStringLiteral("is not empty"));
    case Failure::Denied:
        ThrowNumber(denied, path, QStringLiteral("is closed to this user; check its permissions"));
    case Failure::ReadOnlyDisk:
        ThrowNumber(error::kPathFileAccess, path, QStringLiteral("lies on a read-only disk"));
    case Failure::Full:
        ThrowNumber(error::kDiskFull, path, QStringLiteral("could not be written; nothing was changed"));
    case Failure::Busy:
        ThrowNumber(error::kPermissionDenied, path, QStringLiteral("is in use"));
    case Failure::Io:
        ThrowNumber(error::kDeviceIo, path);
    case Failure::NoDevice:
        ThrowNumber(error::kDeviceUnavailable, path);
    case Failure::NameTooLong:
        ThrowNumber(error::kPathNotFound, path, QStringLiteral("is too long a name for this disk"));
    case Failure::OtherDisk:
        ThrowNumber(error::kOtherDrive, path);
    case Failure::TooManyFiles:
        ThrowNumber(error::kTooManyFiles, path, QStringLiteral("could not be opened"));
    case Failure::Differs:
        ThrowNumber(error::kDeviceIo, path,
                    QStringLiteral("does not hold what was written to it; nothing was changed"));
    case Failure::None:
    case Failure::Stopped:
    case Failure::Other:
        break;
    }
    ThrowNumber(error::kPathFileAccess, path);
}

} // namespace vasclip::files
