#pragma once

#include "platform/files/disk.h"

#include <QDateTime>
#include <QString>

namespace vasclip::photos {

/// A picture file as it was when the user pointed at it: opened a menu over it, began to drag it, was asked
/// about it. Directories fill and names come back while he makes up his mind.
struct PointedFile
{
    QString path = {};      ///< drive path; "" for none
    QDateTime written = {}; ///< invalid if it was not there
    qint64 bytes = -1;
    bool operator==(const PointedFile&) const = default;
};

/// Never throws: a file that can't be looked at is as one that is not there.
[[nodiscard]] PointedFile PointAt(const files::Disk& disk, const QString& path);

/// @return "" while it is the file that was pointed at, else what has become of it, for the user's eyes. What
/// was not there when it was pointed at is left to those who look for it.
[[nodiscard]] QString WhyAnother(const files::Disk& disk, const PointedFile& pointed);

} // namespace vasclip::photos
