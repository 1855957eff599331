#pragma once

#include "demo/drawing/scenery.h"

namespace vasclip::demo {

/// What a general photo of a report shows.
enum class Room { Kitchen, LivingRoom, MainBath, Basement, GarageInterior, Deck };

/// A room as seen from its door: four walls in perspective, a window, what stands there. The deck looks out.
void DrawRoom(Scene& scene, const Look& look, Room room);

} // namespace vasclip::demo
