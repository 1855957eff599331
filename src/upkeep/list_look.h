#pragma once

#include <QChar>
#include <QList>
#include <QString>

namespace vasclip::upkeep {

/// In which order the parts of a date are written in a file.
enum class DateOrder { MonthFirst, DayFirst, YearFirst };

/// Where the values of one column of a list go.
struct ListColumn
{
    QString heading; ///< as the file has it, "(column 3)" where it has none
    QString field;   ///< of the Databook; "" leaves the column behind
    bool operator==(const ListColumn&) const = default;
};

/// What a list is taken for, before anything is read into the Databook. A list is a text file of columns or a sheet of a
/// spreadsheet file.
struct ListLook
{
    QChar delimiter = u','; ///< of a text file
    QString codePage;       ///< of a text file
    QString sheet;          ///< of a spreadsheet file
    qint64 headingLine = 1; ///< 0 for a list without headings
    DateOrder dates = DateOrder::MonthFirst;
    QChar decimal = u'.';
    QList<ListColumn> columns;
};

} // namespace vasclip::upkeep
