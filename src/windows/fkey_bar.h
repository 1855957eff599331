#pragma once

class QWidget;

namespace vasclip::windows {

/// The six buttons of frm_FKey, each under the name of its key, for the window of an entry screen. The
/// buttons take no focus, so that the field keeps it. Bound by the screen's companion
/// (forms::Screen::Companion).
[[nodiscard]] QWidget* MakeFKeyBar(QWidget* parent);

} // namespace vasclip::windows
