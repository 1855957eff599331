#pragma once

#include <QString>

namespace vasclip::files {

/// Simple case folding, one character for one, so that two spellings of a name always have one length.
[[nodiscard]] QString FoldedName(const QString& name);

/// Does a name match a pattern of `*` and `?`? Both must be folded. "*.*" matches names without a dot too;
/// "?" at the end of a name or before a dot may stand for nothing; a dot at the end of a pattern wants a name
/// without one.
[[nodiscard]] bool MatchesPattern(QStringView name, QStringView pattern);

/// True if the text holds `*` or `?`.
[[nodiscard]] bool HasWildcard(const QString& text);

} // namespace vasclip::files
