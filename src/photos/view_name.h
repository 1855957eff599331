#pragma once

#include <QString>

namespace vasclip::photos {

/// A view as a record can hold it: "|" and line breaks, which part the lines of PHOTOS, become blanks. Every
/// view passes here on its way in: filed, renamed, listed, or taken from a report's caption.
[[nodiscard]] QString CleanView(const QString& view);

/// What to tell of a view that came with such letters; "" for one that CleanView leaves as it is.
[[nodiscard]] QString CleanedView(const QString& given);

} // namespace vasclip::photos
