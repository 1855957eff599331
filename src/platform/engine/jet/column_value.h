#pragma once

#include "platform/engine/jet/definition.h"
#include "platform/engine/types.h"

#include <QVariant>

#include <optional>

namespace vasclip::engine::jet {

/// The field that shows a column; nothing for one of a kind that is not known. Numbers with more digits than the
/// engine's own have, and identifiers, are shown as texts.
[[nodiscard]] std::optional<Field> FieldOf(const Column& column, const Format& format);

/// A stored value. A long one is read whole. @throws Damaged
[[nodiscard]] QVariant ValueOf(PageFile& file, const Column& column, const Bytes& bytes);

/// Days since 30 December 1899 whose fraction is the time of day, also before that day; in UTC, so that no summer
/// time moves the wall clock. @throws Damaged
[[nodiscard]] QDateTime DateOf(double serial);
[[nodiscard]] double SerialOf(const QDateTime& value);

} // namespace vasclip::engine::jet
