#include "databook/copy_rows.h"

#include "common/error_block.h"
#include "databook/grid.h"
#include "platform/text/call_errors.h"

#include <QLocale>

#include <algorithm>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Shown
{
    const forms::GridColumn* column;
    qsizetype field; ///< place in a row of the source, -1 if it has none
};

QList<Shown> ShownColumns(const forms::Grid& grid)
{
    QList<Shown> shown;
    const QStringList fields = grid.Source()->FieldNames();
    for (const forms::GridColumn& column : grid.Columns())
        if (column.visible)
            shown.append({&column, fields.indexOf(column.field, 0)});
    return shown;
}

void AddLine(CopiedRows& copied, const QStringList& cells, const QList<Shown>& columns, QLatin1StringView tag)
{
    copied.html += "<tr>"_L1;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        // A tab within a cell would move all that follow it.
        copied.text +=
            QString(cells.at(i)).replace(u'\t', u' ') + (i + 1 < cells.size() ? u"\t"_s : u"\r\n"_s);
        const QLatin1StringView side =
            columns.at(i).column->rightAligned ? " align=\"right\""_L1 : QLatin1StringView();
        copied.html += "<"_L1 + tag + side + ">"_L1 + cells.at(i).toHtmlEscaped() + "</"_L1 + tag + ">"_L1;
    }
    copied.html += "</tr>\n"_L1;
}

} // namespace

CopiedRows CopyRows(const forms::Grid& grid, QList<RowRange> rows)
{
    const common::RoutineScope scope{"CopyRows"};
    CopiedRows copied;
    if (grid.Source() == nullptr)
        return copied;
    qint64 count = 0;
    for (const RowRange& range : std::as_const(rows))
        count += range.to - range.from + 1;
    if (count <= 0)
        return copied;
    if (count > kMostRowsCopied) {
        const QLocale locale;
        throw RuntimeError(error::kOutOfMemory,
                           u"%1 records are selected and one copy takes %2 at most. Nothing was copied. "
                           u"Select fewer, or search first and copy what was found"_s.arg(
                               locale.toString(count), locale.toString(kMostRowsCopied)));
    }
    std::sort(rows.begin(), rows.end(),
              [](const RowRange& one, const RowRange& other) { return one.from < other.from; });
    const QDate today = grid.Source()->Today();
    const QList<Shown> columns = ShownColumns(grid);
    copied.html = u"<table>\n"_s;
    QStringList cells;
    for (const Shown& shown : columns)
        cells.append(shown.column->caption);
    AddLine(copied, cells, columns, "th"_L1);
    for (const RowRange& range : std::as_const(rows)) {
        for (qint64 row = range.from; row <= range.to; ++row) {
            const QStringList stored = grid.Source()->Row(row);
            cells.clear();
            for (const Shown& shown : columns)
                cells.append(shown.field < 0 ? QString()
                                             : FormatCell(*shown.column, stored.value(shown.field), today));
            AddLine(copied, cells, columns, "td"_L1);
        }
    }
    copied.html += u"</table>\n"_s;
    return copied;
}

} // namespace vasclip::databook
