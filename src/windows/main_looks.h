#pragma once

namespace Ui {
class frm_Main;
}

namespace vasclip::windows {

/// Icons of the main window, the ways its buttons are drawn and how its panes share their room.
void Decorate(Ui::frm_Main& ui);
/// What a screen reader calls its widgets.
void NamesForReaders(Ui::frm_Main& ui);

} // namespace vasclip::windows
