#pragma once

#include "photos/photo_desk.h"

namespace vasclip::photos {

/// An unused stem of eight characters in `PHOTODIR`. It may hold a "-": the digits come from a random number
/// below 1 in its text form, and small ones have a negative exponent.
[[nodiscard]] QString findunique(const forms::Ports& ports, const files::Disk& disk, const QString& photoDir);
[[nodiscard]] QString findunique(const PhotoDesk& desk);

/// The eight characters that `findunique` makes of a number of 0 to below 1.
[[nodiscard]] QString StemOf(double random);

/// A random stem, or one that the caller has drawn.
enum class Stem { Fresh, Given };

/// Stores a picture in `PHOTODIR` and sets `PictureSaved`. Every picture of the store comes through here.
///
/// With `REDUX`, and whenever the source is no ".JPG", it is turned upright, each side is cut to its limit
/// for itself, and it is written as JPEG; without, a JPEG is encoded anew at its size, or at a quality of 100
/// copied byte for byte. The stored name appears with the whole file under it or not at all; the source is
/// not touched.
///
/// Errors 53, 74, 75 and 76 repeat the step up to ten times, then ask; others leave, and `notSaved` tells
/// why.
/// @param control  shows the stored file afterwards and records it in its slot, unless it is `geatemp`
/// @return PictureSaved
bool FormatPictureNow(PhotoDesk& desk, const QString& source, forms::PictureBox& control,
                      Stem use = Stem::Fresh, const QString& given = {});

/// Writes the picture that a control shows as JPEG, at `QUALITY` if the name ends in "JPG". Waits a second.
/// @throws RuntimeError 5 for a control without a picture, and the errors of Disk
void SaveTheImage(PhotoDesk& desk, const QString& path, const forms::PictureBox& control);

} // namespace vasclip::photos
