#pragma once

namespace vasclip::shell {

class Program;
class RecordOnShow;

/// The repairs of whole tables. While one is at work the grid is let go of; afterwards grid and record on show are
/// those that there are then.
void ShowMaintenance(Program& program, RecordOnShow& shown);
/// Records of a range of sale dates into another file.
void ShowArchive(Program& program, RecordOnShow& shown);

} // namespace vasclip::shell
