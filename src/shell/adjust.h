#pragma once

#include "forms/controls.h"

#include <utility>

namespace vasclip::shell {

class Program;

/// The adjust window on a picture. @return the file that is to be shown from now on, and whether it changed
/// which files there are
[[nodiscard]] std::pair<QString, bool> Adjust(Program& program, const QString& path);

/// A photo opens in the adjust window and is shown anew behind it.
void SlotPhoto_DblClick(Program& program, forms::PictureBox& slot);

} // namespace vasclip::shell
