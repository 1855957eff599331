#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// A comp of the report as the lists of the map's windows name it: "COMP #1", "ALT COMP #2", "LISTING #3", "RENTAL #4".
[[nodiscard]] QString LabelOf(link::SlotRef slot);
/// The comp of such a label; nothing for any other text.
[[nodiscard]] std::optional<link::SlotRef> SlotOfLabel(const QString& label);

/// The point of a label: by its caption, else the arrow of that comp, else the house of its address; -1 for none.
[[nodiscard]] qint32 PointOfLabel(MapDesk& desk, const QString& label);

/// A row that separates others and can't be chosen.
inline const QString kSeparatorRow = QString(30, u'-');

} // namespace vasclip::map
