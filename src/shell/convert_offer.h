#pragma once

#include <QString>

namespace vasclip::shell {

class Program;

/// An Access file in the place of one that the program writes: offers to make a Vasclip database of it under the same
/// name. The Access file is kept beside it as it is. Without a wish, or where nothing came of it, the file stays and
/// opens for reading only. Must be asked before the program has the file open.
/// @param table  that it must have; any other file is left to whoever opens it
void OfferConversion(Program& program, const QString& path, const QString& table);

} // namespace vasclip::shell
