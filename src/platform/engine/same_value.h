#pragma once

#include "platform/engine/types.h"

#include <QVariant>

namespace vasclip::engine {

/// Are two values of a field the same, as precisely as both kinds of database can hold it? A currency has four
/// decimals, a date no less than a millisecond, and a text no mark of its byte order at its front. Long values may be sources,
/// which are compared in pieces.
[[nodiscard]] bool SameValue(const Field& field, const QVariant& left, const QVariant& right);

} // namespace vasclip::engine
