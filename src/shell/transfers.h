#pragma once

#include "link/transfer.h"

#include <functional>

namespace vasclip::shell {

class Program;
class RecordOnShow;

/// The report's columns and pictures go into the Databook; the record on show comes anew, what was told of the
/// transfer stays.
void Transfer(Program& program, RecordOnShow& shown, const std::function<link::TransferTally(link::LinkDesk&)>& work);

} // namespace vasclip::shell
