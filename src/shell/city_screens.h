#pragma once

namespace vasclip::shell {

class Program;
class RecordOnShow;

/// The city of the record on show; that of a comp of the open report is read from it.
void AttachCity(Program& program, RecordOnShow& shown);
/// The cities of all records of a neighborhood.
void MassCity(Program& program, RecordOnShow& shown);

} // namespace vasclip::shell
