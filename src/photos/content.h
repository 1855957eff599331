#pragma once

#include "platform/files/disk.h"

#include <QByteArray>
#include <QStringList>

#include <functional>

namespace vasclip::photos {

using namespace Qt::StringLiterals;

/// What a file holds, as a sum of 32 bytes; two files with one sum hold the same.
/// @param step  called every megabyte; false stops
/// @return "" if it was stopped @throws as Disk::ReadPieces
[[nodiscard]] QByteArray ContentSum(const files::Disk& disk, const QString& path,
                                    const std::function<bool()>& step = {});

/// Do two files hold the same? Of different lengths neither is read. @throws as Disk::ReadPieces
[[nodiscard]] bool SameContent(const files::Disk& disk, const QString& left, const QString& right);

// Which files are pictures, by list.
inline const QString kCapturePatterns = u"*.jpg;*.bmp"_s;
inline const QString kTrashPatterns = u"*.jpg;*.bmp;*.tif"_s;

/// Names in a directory that match any of the patterns ("*.jpg;*.bmp"), by name without regard to case, each
/// once; empty for a directory that is not there.
[[nodiscard]] QStringList PictureNames(const files::Disk& disk, const QString& directory,
                                       const QString& patterns);

/// Names of the directories in a directory, by name without regard to case. @throws as Disk::Dir
[[nodiscard]] QStringList DirectoryNames(const files::Disk& disk, const QString& directory);

} // namespace vasclip::photos
