#pragma once

#include "platform/files/disk.h"

#include <QByteArray>
#include <QImage>

#include <functional>

namespace vasclip::demo {

inline constexpr int kCardPictures = 200;

/// A camera's JPEG: the picture stored as the camera held it, with its orientation and a small picture of
/// itself in the head.
/// @param upright      as people see it; @param orientation  1, 3, 6 or 8
[[nodiscard]] QByteArray CameraJpeg(const QImage& upright, int orientation);

/// The pictures of a memory card, the same every time: a walk around some houses, near and far, upright and
/// turned. @param directory  with its trailing backslash; @param progress  told after every picture
void MakeCard(const files::Disk& disk, const QString& directory, const std::function<void(int done)>& progress);

} // namespace vasclip::demo
