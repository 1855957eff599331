#pragma once

namespace vasclip::shell {

class Program;
class RecordOnShow;

/// The screen that copies the records on show into another database.
void ShowExport(Program& program);

/// The screen that adds the records of another database. The grid shows them afterwards.
void ShowImport(Program& program, RecordOnShow& shown);

} // namespace vasclip::shell
