#pragma once

#include "platform/sheet/number_formats.h"

#include <QList>
#include <QString>

namespace vasclip::sheet {

/// A cell as a text that means the same everywhere: a number with a point, a date as 2004-03-07, a time as 13:45, TRUE or FALSE.
struct Cell
{
    enum class Kind {
        Empty,
        Text,
        Value, ///< a number, a date, a time, yes or no: nobody's way of writing
        Error, ///< what stands in the cell instead, "#N/A", in words
    };
    Kind kind = Kind::Empty;
    QString text;
};

/// From which day a file counts.
enum class DaySystem { From1900, From1904 };

/// How the numbers of a style are shown.
struct NumberStyle
{
    Shown shown = Shown::Number;
    int zeros = 0;
};

/// A number as it stands in the file. @param written  as the file has it
[[nodiscard]] Cell NumberCell(const QString& written, const NumberStyle& style, DaySystem days);
/// A count of days as a date, "2004-03-07", with its time where it has one, "2004-03-07 13:45".
/// Rule: dates of spreadsheets. Day 60 of the system from 1900 is 2/29/1900, which was none.
/// @return "" for a count outside of 1900 to 9999 and for that day
[[nodiscard]] QString DateOfDays(double days, DaySystem system);

} // namespace vasclip::sheet
