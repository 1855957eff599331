#pragma once

#include "demo/drawing/look.h"
#include "demo/drawing/rooms.h"

#include <QByteArray>
#include <QImage>

namespace vasclip::demo {

/// The property from the street, from its garden, and the street it stands in: 1600 by 1200 camera pictures.
/// The same look gives the same pixels. Safe to call from several threads.
[[nodiscard]] QImage DrawFrontView(const Look& look);
[[nodiscard]] QImage DrawRearView(const Look& look);
[[nodiscard]] QImage DrawStreetScene(const Look& look);

/// A room of the property, or the view from its deck, at the same size.
[[nodiscard]] QImage DrawRoomView(const Look& look, Room room);

/// The picture as a camera saves it.
[[nodiscard]] QByteArray AsJpeg(const QImage& picture, int quality = 85);

} // namespace vasclip::demo
