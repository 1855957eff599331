#pragma once

#include "store/record.h"

namespace vasclip::upkeep {

// A field of a row beside that of the record that it meets.

/// What a person sees of a value: blanks around it do not count; "" for a field that is not there.
[[nodiscard]] QString Shown(const store::Record& record, const QString& field);
[[nodiscard]] bool IsKey(const QString& field);
/// What mine holds once it has taken theirs. Photos come view by view: an export knows the front one alone, and the
/// others stay.
[[nodiscard]] QVariant Taken(const store::Record& mine, const store::Record& theirs, const QString& field);
/// Would taking theirs change mine?
[[nodiscard]] bool Differs(const store::Record& mine, const store::Record& theirs, const QString& field);

} // namespace vasclip::upkeep
