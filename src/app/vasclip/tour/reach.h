#pragma once

#include <QStringList>

class QWidget;

namespace vasclip::app {

/// What a user could not see, reach or hear of a window that stands on the screen: a window larger than its screen,
/// a control beyond an edge that no scroll bar leads to, words that are cut off, a control that a screen reader
/// would call by no name, or by another than the one on it. A line a finding.
[[nodiscard]] QStringList OutOfReach(const QWidget& window);

} // namespace vasclip::app
