#pragma once

namespace vasclip::shell {

class Program;

/// The screen that copies the records on show into another database.
void ShowExport(Program& program);

} // namespace vasclip::shell
