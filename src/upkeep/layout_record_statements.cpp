// The lines of a layout that say what is printed of a record.

#include "upkeep/layout_statements.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostColumns = 40;
constexpr int kMostFields = 400; ///< of all sections
constexpr int kMostTotals = 12;

} // namespace

RecordPart& LayoutStatements::Part(LineReader& line, RecordPart::Kind kind)
{
    if (!m_layout.columns.isEmpty())
        throw LayoutError(
            line.Number(), 1,
            u"a layout with columns is a table and has no such lines. Take this line out, or the columns"_s);
    m_layout.parts.append(
        RecordPart{.kind = kind, .heading = {}, .line = {}, .section = {}, .notes = {}, .photos = {}});
    return m_layout.parts.last();
}

void LayoutStatements::Heading(LineReader& line)
{
    RecordPart& part = Part(line, RecordPart::Kind::Heading);
    part.heading.left = ReadTemplate(line, Columns::Yes);
    if (line.Take(u"right"_s))
        part.heading.right = ReadTemplate(line, Columns::Yes);
}

void LayoutStatements::TextLine(LineReader& line)
{
    Part(line, RecordPart::Kind::Line).line.text = ReadTemplate(line, Columns::Yes);
}

void LayoutStatements::Section(LineReader& line)
{
    SectionPart& section = Part(line, RecordPart::Kind::Section).section;
    if (line.NextIsText())
        section.words = line.Text(u"The section's words"_s);
    if (line.Take(u"columns"_s))
        section.columns = line.WholeNumber(u"the number of columns"_s, 1, 4);
    section.blanks = line.Take(u"blanks"_s);
}

void LayoutStatements::Field(LineReader& line)
{
    if (m_layout.parts.isEmpty() || m_layout.parts.last().kind != RecordPart::Kind::Section)
        throw LayoutError(line.Number(), 1,
                          u"a field stands in a section. Write a 'section' line before it"_s);
    if (++m_fields > kMostFields)
        throw LayoutError(line.Number(), 1,
                          u"a layout has at most %1 fields. Take this line out"_s.arg(kMostFields));
    LabelledField field{.field = ReadField(line), .label = {}, .format = Format::Text};
    field.label = line.NextIsText() ? line.Text(u"The label"_s) : HeadingOf(field.field);
    field.format = ReadFormat(line, Format::Text);
    m_layout.parts.last().section.fields.append(field);
}

void LayoutStatements::Notes(LineReader& line)
{
    NotesPart& notes = Part(line, RecordPart::Kind::Notes).notes;
    notes.field = ReadField(line);
    notes.label = line.NextIsText() ? line.Text(u"The label"_s) : HeadingOf(notes.field);
}

void LayoutStatements::Photos(LineReader& line)
{
    PhotosPart& photos = Part(line, RecordPart::Kind::Photos).photos;
    photos.all = line.Take(u"all"_s);
    if (!photos.all && !line.Take(u"front"_s))
        throw LayoutError(line.Number(), line.Column(), u"'all' or 'front' is wanted here"_s);
    photos.beside = line.Take(u"beside"_s);
    if (line.Take(u"across"_s))
        photos.across = line.WholeNumber(u"the number of photos in a row"_s, 1, 6);
    if (line.Take(u"high"_s))
        photos.high = line.Length(u"the height of a photo"_s, 0.4, 9);
    photos.captions = line.Take(u"captions"_s);
}

void LayoutStatements::TableColumn(LineReader& line)
{
    if (!m_layout.parts.isEmpty())
        throw LayoutError(
            line.Number(), 1,
            u"a layout with headings and sections has no columns. Take this line out, or those lines"_s);
    if (m_layout.columns.size() >= kMostColumns)
        throw LayoutError(line.Number(), 1,
                          u"a table has at most %1 columns. Take this line out"_s.arg(kMostColumns));
    Column column{.field = ReadField(line), .heading = {}};
    column.heading = line.NextIsText() ? line.Text(u"The heading"_s) : HeadingOf(column.field);
    if (line.Take(u"wide"_s))
        column.wide = line.WholeNumber(u"the width"_s, 1, 200);
    column.format = ReadFormat(line, Format::Text);
    const bool number = column.format == Format::Number || column.format == Format::Money;
    column.side = number ? Side::Right : Side::Left;
    if (line.Take(u"left"_s))
        column.side = Side::Left;
    else if (line.Take(u"right"_s))
        column.side = Side::Right;
    else if (line.Take(u"center"_s))
        column.side = Side::Centre;
    if (line.Take(u"lines"_s))
        column.lines = line.WholeNumber(u"the number of lines"_s, 1, 20);
    m_layout.columns.append(column);
}

void LayoutStatements::TotalOf(LineReader& line)
{
    static const QList<std::pair<QString, Total::Of>> kinds{{u"count"_s, Total::Of::Count},
                                                            {u"sum"_s, Total::Of::Sum},
                                                            {u"average"_s, Total::Of::Average},
                                                            {u"lowest"_s, Total::Of::Lowest},
                                                            {u"highest"_s, Total::Of::Highest}};
    const QString word = line.Word(u"'count', 'sum', 'average', 'lowest' or 'highest'"_s).toLower();
    const auto kind =
        std::find_if(kinds.begin(), kinds.end(), [&](const auto& one) { return one.first == word; });
    if (kind == kinds.end())
        line.Refuse(u"'%1' is no total. Write count, sum, average, lowest or highest"_s.arg(word.left(40)));
    Total total{.of = kind->second, .field = {}, .label = {}};
    if (total.of != Total::Of::Count)
        total.field = ReadField(line);
    total.label = line.NextIsText() ? line.Text(u"The label"_s) : word + u' ' + HeadingOf(total.field);
    total.format = ReadFormat(line, Format::Number);
    if (m_layout.totals.size() >= kMostTotals)
        throw LayoutError(line.Number(), 1,
                          u"a layout has at most %1 totals. Take this line out"_s.arg(kMostTotals));
    m_layout.totals.append(total);
}

} // namespace vasclip::upkeep
