#pragma once

#include "shell/start_up.h"

namespace vasclip::shell {

class frm_Main;
struct frm_Splash;

/// Brings the main screen up in the fixed order. @throws forms::EndOfProgram when it may not go on
void Form_load(frm_Main& main, const StartUpOptions& options, frm_Splash& splash);

} // namespace vasclip::shell
