#pragma once

class QDialog;

namespace vasclip::windows {

/// Keeps a window that is built but not shown yet within its screen. What needs more room than there is, as with large
/// text on a small screen, moves in a scroll area; the last row, which has the buttons, stays below it.
void FitToScreen(QDialog& window);

} // namespace vasclip::windows
