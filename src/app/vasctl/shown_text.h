#pragma once

#include <QString>

namespace vasclip::vasctl {

/// A text as a terminal may be given it: a control character of a record, a file's name or an answer is shown as a
/// sign and does nothing, nor does one that turns the direction of writing. Line ends and tabs stay.
[[nodiscard]] QString Visible(const QString& text);

/// The same for JSON, whose reader gets every character back: what the terminal would obey is escaped.
[[nodiscard]] QByteArray VisibleJson(const QByteArray& json);

} // namespace vasclip::vasctl
