#pragma once

#include <QString>

namespace vasclip::sheet {

/// What a cell's number is by the format that it is shown in.
enum class Shown { Number, Date, Time };

/// A format that every file has without telling it, by its number.
[[nodiscard]] Shown ShownByNumber(int format);
/// A format that the file spells out, such as "yyyy\-mm\-dd;@" or "[h]:mm".
[[nodiscard]] Shown ShownBy(const QString& code);
/// How many digits a format of zeros alone asks for ("00000" of a ZIP); 0 for any other.
[[nodiscard]] int LeadingZeros(const QString& code);

} // namespace vasclip::sheet
