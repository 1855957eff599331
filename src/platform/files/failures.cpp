#include "platform/files/failures.h"

#include "platform/text/runtime_error.h"

using namespace Qt::StringLiterals;

namespace vasclip::files {

namespace {

QString WordsOf(int number)
{
    switch (number) {
    case error::kBadFileName:
        return u"Bad file name or number"_s;
    case error::kFileNotFound:
        return u"File not found"_s;
    case error::kDeviceIo:
        return u"Device I/O error"_s;
    case error::kFileExists:
        return u"File already exists"_s;
    case error::kDiskFull:
        return u"Disk full"_s;
    case error::kTooManyFiles:
        return u"Too many files"_s;
    case error::kDeviceUnavailable:
        return u"Device unavailable"_s;
    case error::kPermissionDenied:
        return u"Permission denied"_s;
    case error::kDiskNotReady:
        return u"Disk not ready"_s;
    case error::kOtherDrive:
        return u"Can't rename with different drive"_s;
    case error::kPathNotFound:
        return u"Path not found"_s;
    default:
        return u"Path/File access error"_s;
    }
}

} // namespace

void ThrowNumber(int number, const QString& path, const QString& detail)
{
    throw RuntimeError(number, WordsOf(number) + u": \""_s + path + u'"' +
                                   (detail.isEmpty() ? QString() : u' ' + detail));
}

void ThrowFailure(native::Failure failure, const QString& path, int denied)
{
    using native::Failure;
    switch (failure) {
    case Failure::NotFound:
        ThrowNumber(error::kFileNotFound, path);
    case Failure::NotADirectory:
        ThrowNumber(error::kPathNotFound, path, u"goes through a file"_s);
    case Failure::IsADirectory:
        ThrowNumber(error::kPathFileAccess, path, u"is a directory"_s);
    case Failure::Exists:
        ThrowNumber(error::kFileExists, path);
    case Failure::NotEmpty:
        ThrowNumber(error::kPathFileAccess, path, u"is not empty"_s);
    case Failure::Denied:
        ThrowNumber(denied, path, u"is closed to this user; check its permissions"_s);
    case Failure::ReadOnlyDisk:
        ThrowNumber(error::kPathFileAccess, path, u"lies on a read-only disk"_s);
    case Failure::Full:
        ThrowNumber(error::kDiskFull, path, u"could not be written; nothing was changed"_s);
    case Failure::Busy:
        ThrowNumber(error::kPermissionDenied, path, u"is in use"_s);
    case Failure::Io:
        ThrowNumber(error::kDeviceIo, path);
    case Failure::NoDevice:
        ThrowNumber(error::kDeviceUnavailable, path);
    case Failure::NameTooLong:
        ThrowNumber(error::kPathNotFound, path, u"is too long a name for this disk"_s);
    case Failure::OtherDisk:
        ThrowNumber(error::kOtherDrive, path);
    case Failure::TooManyFiles:
        ThrowNumber(error::kTooManyFiles, path, u"could not be opened"_s);
    case Failure::Differs:
        ThrowNumber(error::kDeviceIo, path, u"does not hold what was written to it; nothing was changed"_s);
    case Failure::None:
    case Failure::Stopped:
    case Failure::Other:
        break;
    }
    ThrowNumber(error::kPathFileAccess, path);
}

} // namespace vasclip::files
