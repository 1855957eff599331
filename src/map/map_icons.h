#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Shows one of the map's bitmaps in a picture of a screen; one that is not there shows nothing.
void ShowBitmap(const MapDesk& desk, forms::PictureBox& box, const QString& name);

} // namespace vasclip::map
