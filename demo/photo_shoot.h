#pragma once

#include "demo/drawing/rooms.h"
#include "platform/files/disk.h"

#include <QList>

#include <functional>

namespace vasclip::demo {

enum class View { Front, Rear, Street, Inside };

/// A picture that is to be drawn and where it goes.
struct Shot
{
    QString path; ///< drive path
    Look look;
    View view = View::Front;
    Room room = Room::Kitchen; ///< of a view of the inside
};

/// One picture as a JPEG.
[[nodiscard]] QByteArray Taken(const Shot& shot);

/// Draws the pictures on two threads and writes them in order.
/// @param progress  told after each picture how many are done
/// @throws RuntimeError when a picture cannot be encoded or written; nothing further is then drawn
void ShootAll(const files::Disk& disk, const QList<Shot>& shots,
              const std::function<void(int done)>& progress);

/// The pictures waiting in the camera directory: properties nobody has filed yet.
/// @param directory  with its trailing backslash
[[nodiscard]] QList<Shot> CapturePictures(const QString& directory);

} // namespace vasclip::demo
