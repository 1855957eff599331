#pragma once

#include <QStringList>

namespace vasclip::tests {

/// What labels have had spoken since the program began: the toolkit passes it to every reader that it knows, and this
/// test program brings one along.
QStringList& Spoken();

} // namespace vasclip::tests
