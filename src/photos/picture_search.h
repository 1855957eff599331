#pragma once

#include "forms/ports.h"
#include "platform/files/disk.h"

#include <QDateTime>

#include <functional>

namespace vasclip::photos {

using namespace Qt::StringLiterals;

/// A directory that holds pictures.
struct FoundDirectory
{
    QString path; ///< with a backslash at its end
    int count = 0;
    QDateTime newest = {};
};

/// Ten digits of age: the older the larger, so that texts sort like times.
inline constexpr int kAgeDigits = 10;

/// "C:\PICS\  (12 Images)|0000000042": what sorts and shows a directory.
[[nodiscard]] QString FoundRow(const FoundDirectory& found, const QDateTime& now);
/// The part of a row that is shown.
[[nodiscard]] QString FoundText(const QString& row);
/// The directory that a shown row names.
[[nodiscard]] QString FoundPath(const QString& shown);

struct SearchWish
{
    QString root;                           ///< where to begin
    QString patterns = u"*.jpg;*.bmp"_s;
    QDateTime after = {};                     ///< only pictures saved after this; invalid for all
};

/// Walks a directory tree, depth first, and tells of every directory with pictures.
///
/// Directories that may not be read are passed over, and so are those that a link leads back to.
/// @param look   called for each directory before it is read, after a turn of the queue; false stops
/// @param found  false stops
/// @return false if it was stopped
bool SearchPictures(const forms::Ports& ports, const files::Disk& disk, const SearchWish& wish,
                    const std::function<bool(const QString& directory)>& look,
                    const std::function<bool(const FoundDirectory&)>& found);

} // namespace vasclip::photos
