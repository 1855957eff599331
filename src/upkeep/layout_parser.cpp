#include "upkeep/layout_parser.h"

#include "store/fields.h"
#include "store/schema.h"
#include "upkeep/layout_templates.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostColumns = 40;
constexpr int kMostFields = 400; ///< of all sections

using Kind = RecordPart::Kind;

class Parser
{
public:
    explicit Parser(ReportLayout& layout)
        : m_layout(layout)
    {}
    void Line(LineReader& line);
    void End(int lines) const;

private:
    using Read = void (Parser::*)(LineReader&);
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
    void Text(LineReader& line) { m_layout.text = line.Length(u"the size of the text"_s, 5 / 72.0, 16 / 72.0); }
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

    RecordPart& Part(LineReader& line, Kind kind);

    ReportLayout& m_layout;
    int m_fields = 0;
};

const std::array<Parser::Statement, 18> Parser::kStatements{{
    {"layout"_L1, &Parser::Layout},   {"title"_L1, &Parser::Title},     {"subtitle"_L1, &Parser::Subtitle},
    {"footer"_L1, &Parser::Footer},   {"paper"_L1, &Parser::Paper},     {"margin"_L1, &Parser::Margin},
    {"text"_L1, &Parser::Text},       {"sort"_L1, &Parser::Sort},       {"group"_L1, &Parser::GroupBy},
    {"record"_L1, &Parser::Record},   {"heading"_L1, &Parser::Heading}, {"line"_L1, &Parser::TextLine},
    {"section"_L1, &Parser::Section}, {"field"_L1, &Parser::Field},     {"notes"_L1, &Parser::Notes},
    {"photos"_L1, &Parser::Photos},   {"column"_L1, &Parser::TableColumn}, {"total"_L1, &Parser::TotalOf},
}};

void Parser::Line(LineReader& line)
{
    const QString word = line.Word(u"A word such as 'title' or 'column'"_s);
    const auto found = std::find_if(kStatements.begin(), kStatements.end(), [&](const Statement& statement) {
        return word.compare(statement.word, Qt::CaseInsensitive) == 0;
    });
    if (found == kStatements.end()) {
        QStringList words;
        for (const Statement& statement : kStatements)
            words.append(statement.word);
        line.Refuse(u"'%1' begins no line of a layout. A line begins with one of: %2"_s.arg(word.left(40), words.join(u", "_s)));
    }
    (this->*found->read)(line);
    line.End();
}

void Parser::End(int lines) const
{
    if (m_layout.columns.isEmpty() && m_layout.parts.isEmpty())
        throw LayoutError(std::max(1, lines), 1,
                          u"the layout prints nothing of a record. Add a 'column' line, or 'heading' and 'section' lines"_s);
    const QRect inside = m_layout.sheet.Inside();
    if (inside.width() < 3 * paper::kInch || inside.height() < 3 * paper::kInch)
        throw LayoutError(std::max(1, lines), 1,
                          u"the margins leave less than 3 inches of the paper. Make them smaller, or the paper larger"_s);
}

void Parser::Paper(LineReader& line)
{
    const QString name = line.Word(u"The paper's name"_s);
    if (!paper::PaperNames().contains(name.toLower()))
        line.Refuse(u"there is no paper '%1'. Write one of: %2"_s.arg(name.left(40), paper::PaperNames().join(u", "_s)));
    m_layout.sheet.name = name.toLower();
    m_layout.sheet.landscape = line.Take(u"landscape"_s);
    if (!m_layout.sheet.landscape)
        static_cast<void>(line.Take(u"portrait"_s));
}

void Parser::Sort(LineReader& line)
{
    do {
        SortKey key{.field = ReadField(line)};
        key.down = line.Take(u"down"_s);
        if (!key.down)
            static_cast<void>(line.Take(u"up"_s));
        m_layout.sort.append(key);
    } while (line.TakeComma());
}

void Parser::GroupBy(LineReader& line)
{
    Group group{.field = ReadField(line), .heading = {}};
    group.heading = ReadTemplate(line, Columns::Yes);
    group.newPage = line.Take(u"page"_s);
    if (m_layout.groups.size() >= 3)
        throw LayoutError(line.Number(), 1, u"a layout has at most three groups. Take this line out"_s);
    m_layout.groups.append(group);
}

void Parser::Record(LineReader& line)
{
    const QString how = line.Word(u"'flow', 'keep' or 'page'"_s).toLower();
    if (how == u"flow")
        m_layout.flow = Flow::Over;
    else if (how == u"keep")
        m_layout.flow = Flow::Together;
    else if (how == u"page")
        m_layout.flow = Flow::OwnPage;
    else
        line.Refuse(u"'%1' is no way to place a record. Write flow, keep or page"_s.arg(how.left(40)));
}

RecordPart& Parser::Part(LineReader& line, Kind kind)
{
    if (!m_layout.columns.isEmpty())
        throw LayoutError(line.Number(), 1,
                          u"a layout with columns is a table and has no such lines. Take this line out, or the columns"_s);
    m_layout.parts.append(RecordPart{.kind = kind, .heading = {}, .line = {}, .section = {}, .notes = {}, .photos = {}});
    return m_layout.parts.last();
}

void Parser::Heading(LineReader& line)
{
    RecordPart& part = Part(line, Kind::Heading);
    part.heading.left = ReadTemplate(line, Columns::Yes);
    if (line.Take(u"right"_s))
        part.heading.right = ReadTemplate(line, Columns::Yes);
}

void Parser::TextLine(LineReader& line)
{
    Part(line, Kind::Line).line.text = ReadTemplate(line, Columns::Yes);
}

void Parser::Section(LineReader& line)
{
    SectionPart& section = Part(line, Kind::Section).section;
    if (line.NextIsText())
        section.words = line.Text(u"The section's words"_s);
    if (line.Take(u"columns"_s))
        section.columns = line.WholeNumber(u"the number of columns"_s, 1, 4);
    section.blanks = line.Take(u"blanks"_s);
}

void Parser::Field(LineReader& line)
{
    if (m_layout.parts.isEmpty() || m_layout.parts.last().kind != Kind::Section)
        throw LayoutError(line.Number(), 1, u"a field stands in a section. Write a 'section' line before it"_s);
    if (++m_fields > kMostFields)
        throw LayoutError(line.Number(), 1, u"a layout has at most %1 fields. Take this line out"_s.arg(kMostFields));
    LabelledField field{.field = ReadField(line), .label = {}, .format = Format::Text};
    field.label = line.NextIsText() ? line.Text(u"The label"_s) : HeadingOf(field.field);
    field.format = ReadFormat(line, Format::Text);
    m_layout.parts.last().section.fields.append(field);
}

void Parser::Notes(LineReader& line)
{
    NotesPart& notes = Part(line, Kind::Notes).notes;
    notes.field = ReadField(line);
    notes.label = line.NextIsText() ? line.Text(u"The label"_s) : HeadingOf(notes.field);
}

void Parser::Photos(LineReader& line)
{
    PhotosPart& photos = Part(line, Kind::Photos).photos;
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

void Parser::TableColumn(LineReader& line)
{
    if (!m_layout.parts.isEmpty())
        throw LayoutError(line.Number(), 1,
                          u"a layout with headings and sections has no columns. Take this line out, or those lines"_s);
    if (m_layout.columns.size() >= kMostColumns)
        throw LayoutError(line.Number(), 1, u"a table has at most %1 columns. Take this line out"_s.arg(kMostColumns));
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

void Parser::TotalOf(LineReader& line)
{
    static const QList<std::pair<QString, Total::Of>> kinds{{u"count"_s, Total::Of::Count},
                                                            {u"sum"_s, Total::Of::Sum},
                                                            {u"average"_s, Total::Of::Average},
                                                            {u"lowest"_s, Total::Of::Lowest},
                                                            {u"highest"_s, Total::Of::Highest}};
    const QString word = line.Word(u"'count', 'sum', 'average', 'lowest' or 'highest'"_s).toLower();
    const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const auto& one) { return one.first == word; });
    if (kind == kinds.end())
        line.Refuse(u"'%1' is no total. Write count, sum, average, lowest or highest"_s.arg(word.left(40)));
    Total total{.of = kind->second, .field = {}, .label = {}};
    if (total.of != Total::Of::Count)
        total.field = ReadField(line);
    total.label = line.NextIsText() ? line.Text(u"The label"_s) : word + u' ' + HeadingOf(total.field);
    total.format = ReadFormat(line, Format::Number);
    if (m_layout.totals.size() >= 12)
        throw LayoutError(line.Number(), 1, u"a layout has at most 12 totals. Take this line out"_s);
    m_layout.totals.append(total);
}

} // namespace

ReportLayout ParseLayout(const QByteArray& content)
{
    if (content.size() > kMostLayoutBytes)
        throw LayoutError(1, 1, u"the file has %1 bytes, and a layout at most %2. It is another kind of file"_s
                                    .arg(content.size()).arg(kMostLayoutBytes));
    QStringDecoder decode(QStringDecoder::Utf8);
    QString text = decode(content);
    if (decode.hasError() || text.contains(QChar(0)))
        throw LayoutError(1, 1, u"the file is no text in UTF-8. A layout is a text file; copy one that comes with the "
                                "program and edit it"_s);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    ReportLayout layout;
    Parser parser(layout);
    const QStringList lines = text.split(u'\n');
    for (int number = 1; number <= lines.size(); ++number) {
        if (number > kMostLayoutLines)
            throw LayoutError(number, 1, u"a layout has at most %1 lines. Shorten it"_s.arg(kMostLayoutLines));
        const QString& line = lines[number - 1];
        LineReader words(WordsOf(line, number), number, static_cast<int>(line.trimmed().size()) + 1);
        if (!words.AtEnd())
            parser.Line(words);
    }
    parser.End(static_cast<int>(lines.size()));
    return layout;
}

} // namespace vasclip::upkeep
