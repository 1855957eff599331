#pragma once

#include "platform/street/draw/canvas.h"
#include "platform/street/draw/content.h"
#include "platform/street/draw/style.h"

namespace vasclip::street::draw {

/// Paints land, water, areas, rails and roads: all but what is written. What it paints at a place does not depend on
/// the picture's edge, so that pictures of neighbouring ground fit together.
void PaintGround(Canvas& canvas, const Projection& projection, const Content& content, const Look& look);

} // namespace vasclip::street::draw
