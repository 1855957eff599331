#pragma once

#include "forms/controls.h"

namespace vasclip::shell {

class Program;
class WindowWants;

// What the Help menu leads to.

/// The tutorials are there as far as their files are.
void LoadHelpMenu(const Program& program, forms::Menu& mnuHelpItem);
void StartTutorial(const Program& program, const forms::Menu& mnuHelpItem, int index);
void OpenHelp(const Program& program, WindowWants& wants);
/// The text of the program directory, else the one that the program carries.
[[nodiscard]] QString ChangesText(const Program& program);
/// The page is the deployment's; what is no address of the web is not opened.
void ConnectToWebsite(const Program& program);

} // namespace vasclip::shell
