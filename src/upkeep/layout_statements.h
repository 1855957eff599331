#pragma once

#include "upkeep/layout_templates.h"

#include <array>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

/// Reads a layout line by line; what a line says goes into the layout. All throw LayoutError.
class LayoutStatements
{
public:
    explicit LayoutStatements(ReportLayout& layout)
        : m_layout(layout)
    {}
    void Line(LineReader& line);
    void End(int lines) const;

private:
    using Read = void (LayoutStatements::*)(LineReader&);
    struct Statement
    {
        QLatin1StringView word;
        Read read;
    };
    static const std::array<Statement, 18> kStatements;

    void Layout(LineReader& line) { m_layout.words = line.Text(u"The report's name"_s); }
    void Title(LineReader& line) { m_layout.title = ReadTemplate(line, Columns::No); }
    void Subtitle(LineReader& line) { m_layout.subtitle = ReadTemplate(line, Columns::No); }
    void Footer(LineReader& line) { m_layout.footer = ReadTemplate(line, Columns::No); }
    void Paper(LineReader& line);
    void Margin(LineReader& line) { m_layout.sheet.margin = line.Length(u"the margin"_s, 0.2, 2); }
    void Text(LineReader& line)
    {
        m_layout.text = line.Length(u"the size of the text"_s, 5 / 72.0, 16 / 72.0);
    }
    void Sort(LineReader& line);
    void GroupBy(LineReader& line);
    void Record(LineReader& line);
    void Heading(LineReader& line);
    void TextLine(LineReader& line);
    void Section(LineReader& line);
    void Field(LineReader& line);
    void Notes(LineReader& line);
    void Photos(LineReader& line);
    void TableColumn(LineReader& line);
    void TotalOf(LineReader& line);

    RecordPart& Part(LineReader& line, RecordPart::Kind kind);

    ReportLayout& m_layout;
    int m_fields = 0;
};

} // namespace vasclip::upkeep
