#pragma once

class QWidget;

namespace vasclip::windows {

/// Widgets made late stand at the end of the tab order; those of `page` come behind another one instead.
void ChainFocus(QWidget* behind, const QWidget& page);

} // namespace vasclip::windows
