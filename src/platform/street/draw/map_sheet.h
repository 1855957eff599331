#pragma once

#include "platform/street/draw/labels.h"

#include <QImage>

namespace vasclip::street::draw {

/// A map's ground alone, opaque.
[[nodiscard]] QImage DrawGround(const CellSource& source, const Projection& projection, const Look& look);

/// A map's labels alone, on nothing.
/// @param kept  boxes, in pixels of the picture, that labels keep off
/// @param written  when given, receives what stands where
[[nodiscard]] QImage DrawLabels(const CellSource& source, const Projection& projection, const Look& look,
                                const std::vector<QRectF>& kept = {}, std::vector<Written>* written = nullptr);

/// Ground, labels and furniture: a whole map. The same ground gives the same bytes.
[[nodiscard]] QImage DrawMap(const CellSource& source, const Projection& projection, const Look& look,
                             const std::vector<QRectF>& kept = {});

} // namespace vasclip::street::draw
