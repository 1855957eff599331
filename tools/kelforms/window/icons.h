#pragma once

#include <QIcon>

class QColor;

namespace kelforms {

enum class IconKind { Open, Save, Close, Activate, Follow, Dark, Light };

/// A line drawing in the given colour, sharp at every scale.
[[nodiscard]] QIcon DrawIcon(IconKind kind, const QColor& colour);

} // namespace kelforms
