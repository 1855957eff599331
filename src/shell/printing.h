#pragma once

namespace vasclip::shell {

class Program;

/// Report Print Options, for the records of the current search.
void PrintReport(Program& program);

} // namespace vasclip::shell
