#include "upkeep/placed_file.h"

#include <QFile>

namespace vasclip::upkeep {

namespace {

constexpr qint64 kPiece = 32768;

} // namespace

bool SameBytes(const QString& left, const QString& right)
{
    QFile one(left);
    QFile other(right);
    if (!one.open(QIODevice::ReadOnly) || !other.open(QIODevice::ReadOnly) || one.size() != other.size())
        return false;
    while (!one.atEnd())
        if (one.read(kPiece) != other.read(kPiece))
            return false;
    return true;
}

bool RemoveFile(const QString& native)
{
    if (!QFile::exists(native) || QFile::remove(native))
        return true;
    QFile::setPermissions(native, QFile::permissions(native) | QFile::WriteOwner);
    return QFile::remove(native);
}

} // namespace vasclip::upkeep
