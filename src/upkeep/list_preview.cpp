#include "upkeep/list_preview.h"

#include "platform/text/text.h"
#include "store/schema.h"
#include "upkeep/list_values.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kSamples = 3;
constexpr qsizetype kSampleLetters = 40;
const QString kLine = u"line"_s;
const QString kLeftBehind = u"(left behind)"_s;

QString OneLine(const QString& text)
{
    return text.simplified();
}

/// Values that differ say more than the same one three times.
QStringList Samples(const ListSample& sample, const ListLook& look)
{
    QStringList joined;
    for (qsizetype column = 0; column < look.columns.size(); ++column) {
        QStringList values;
        for (const ListLine& line : sample.lines) {
            if (line.number <= look.headingLine || column >= line.cells.size())
                continue;
            const QString value = OneLine(line.cells.at(column).text).left(kSampleLetters);
            if (!value.isEmpty() && !values.contains(value))
                values.append(value);
            if (values.size() == kSamples)
                break;
        }
        joined.append(values.join(u"  \u00B7  "_s));
    }
    return joined;
}

} // namespace

ListPreview PreviewOf(const ListSample& sample, const ListLook& look, bool text, QDate today)
{
    ListPreview preview;
    preview.samples = Samples(sample, look);
    for (const ListColumn& column : look.columns)
        if (!column.field.isEmpty())
            preview.fields.append(column.field);
    const LineMaker maker(look, text, today);
    for (const ListLine& line : sample.lines) {
        if (line.number <= look.headingLine)
            continue;
        ++preview.seen;
        const ReadLine made = maker.Make(line);
        if (!made.fault.isEmpty()) {
            if (++preview.refused <= kPreviewFaults)
                preview.faults.append(u"Line %1: "_s.arg(line.number) + made.fault);
            continue;
        }
        if (preview.lines.size() >= kPreviewLines)
            continue;
        ListLine shown{line.number, {}};
        for (const QString& field : std::as_const(preview.fields))
            shown.cells.append({OneLine(made.values.value(field))});
        preview.lines.append(shown);
    }
    return preview;
}

QString NameOfField(const QString& field)
{
    if (field.isEmpty())
        return kLeftBehind;
    const store::CompsColumn* column = store::FindCompsColumn(field);
    const QString heading = column ? QString(column->heading) : QString();
    if (heading.isEmpty())
        return field;
    return heading.compare(field, Qt::CaseInsensitive) == 0 ? heading : heading + u"  \u00B7  "_s + field;
}

QStringList ColumnRows::FieldNames() const
{
    return {u"heading"_s, u"values"_s, u"field"_s};
}

QStringList ColumnRows::Row(qint64 row) const
{
    if (row < 0 || row >= RowCount())
        return {};
    const ListColumn& column = m_look.columns.at(row);
    return {OneLine(column.heading), m_preview.samples.value(row), NameOfField(column.field)};
}

QList<forms::GridColumn> ColumnRows::Columns()
{
    return {{.field = u"heading"_s, .caption = u"Column of the file"_s, .width = 170},
            {.field = u"values"_s, .caption = u"Some of its values"_s, .width = 330},
            {.field = u"field"_s, .caption = u"Goes into"_s, .width = 220}};
}

QStringList PreviewRows::FieldNames() const
{
    return QStringList{kLine} + m_preview.fields;
}

QStringList PreviewRows::Row(qint64 row) const
{
    if (row < 0 || row >= RowCount())
        return {};
    const ListLine& line = m_preview.lines.at(row);
    QStringList texts{QString::number(line.number)};
    for (const ListCell& cell : line.cells)
        texts.append(cell.text);
    return texts;
}

QList<forms::GridColumn> PreviewRows::Columns() const
{
    QList<forms::GridColumn> columns{{.field = kLine, .caption = u"Line"_s, .width = 60, .rightAligned = true}};
    for (const QString& field : m_preview.fields) {
        const store::CompsColumn* known = store::FindCompsColumn(field);
        columns.append({.field = field, .caption = known ? QString(known->heading) : field, .width = 130});
    }
    return columns;
}

} // namespace vasclip::upkeep
