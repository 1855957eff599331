#pragma once

#include <QStringList>

class QWidget;

namespace vasclip::app {

/// The Alt letters that two things on show in a window share, so that neither is reached by one stroke: controls and menus
/// of the bar, tabs, and the entries of each menu. A line a clash.
[[nodiscard]] QStringList SharedLetters(const QWidget& window);

} // namespace vasclip::app
