#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>

namespace vasclip::artwork {

/// An icon file of Windows with one picture for each size. What is smaller than 256 pixels is a bitmap with a mask, which
/// every program reads that reads icons; 256 is a PNG, as the system's own are.
/// @param pictures  square, of 1 to 256 pixels
[[nodiscard]] QByteArray IconFile(const QList<QImage>& pictures);

/// The sizes that the shell asks for between 100 % and 250 %.
inline constexpr int kIconSizes[] = {16, 20, 24, 32, 40, 48, 64, 256};

} // namespace vasclip::artwork
