#include "upkeep/layout_statements.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

const std::array<LayoutStatements::Statement, 18> LayoutStatements::kStatements{{
    {"layout"_L1, &LayoutStatements::Layout},
    {"title"_L1, &LayoutStatements::Title},
    {"subtitle"_L1, &LayoutStatements::Subtitle},
    {"footer"_L1, &LayoutStatements::Footer},
    {"paper"_L1, &LayoutStatements::Paper},
    {"margin"_L1, &LayoutStatements::Margin},
    {"text"_L1, &LayoutStatements::Text},
    {"sort"_L1, &LayoutStatements::Sort},
    {"group"_L1, &LayoutStatements::GroupBy},
    {"record"_L1, &LayoutStatements::Record},
    {"heading"_L1, &LayoutStatements::Heading},
    {"line"_L1, &LayoutStatements::TextLine},
    {"section"_L1, &LayoutStatements::Section},
    {"field"_L1, &LayoutStatements::Field},
    {"notes"_L1, &LayoutStatements::Notes},
    {"photos"_L1, &LayoutStatements::Photos},
    {"column"_L1, &LayoutStatements::TableColumn},
    {"total"_L1, &LayoutStatements::TotalOf},
}};

void LayoutStatements::Line(LineReader& line)
{
    const QString word = line.Word(u"A word such as 'title' or 'column'"_s);
    const auto found = std::find_if(kStatements.begin(), kStatements.end(), [&](const Statement& statement) {
        return word.compare(statement.word, Qt::CaseInsensitive) == 0;
    });
    if (found == kStatements.end()) {
        QStringList words;
        for (const Statement& statement : kStatements)
            words.append(statement.word);
        line.Refuse(u"'%1' begins no line of a layout. A line begins with one of: %2"_s.arg(
            word.left(40), words.join(u", "_s)));
    }
    (this->*found->read)(line);
    line.End();
}

void LayoutStatements::End(int lines) const
{
    if (m_layout.columns.isEmpty() && m_layout.parts.isEmpty())
        throw LayoutError(
            std::max(1, lines), 1,
            u"the layout prints nothing of a record. Add a 'column' line, or 'heading' and 'section' lines"_s);
    const QRect inside = m_layout.sheet.Inside();
    if (inside.width() < 3 * paper::kInch || inside.height() < 3 * paper::kInch)
        throw LayoutError(
            std::max(1, lines), 1,
            u"the margins leave less than 3 inches of the paper. Make them smaller, or the paper larger"_s);
}

void LayoutStatements::Paper(LineReader& line)
{
    const QString name = line.Word(u"The paper's name"_s);
    if (!paper::PaperNames().contains(name.toLower()))
        line.Refuse(u"there is no paper '%1'. Write one of: %2"_s.arg(name.left(40),
                                                                      paper::PaperNames().join(u", "_s)));
    m_layout.sheet.name = name.toLower();
    m_layout.sheet.landscape = line.Take(u"landscape"_s);
    if (!m_layout.sheet.landscape)
        static_cast<void>(line.Take(u"portrait"_s));
}

void LayoutStatements::Sort(LineReader& line)
{
    do {
        SortKey key{.field = ReadField(line)};
        key.down = line.Take(u"down"_s);
        if (!key.down)
            static_cast<void>(line.Take(u"up"_s));
        m_layout.sort.append(key);
    } while (line.TakeComma());
}

void LayoutStatements::GroupBy(LineReader& line)
{
    Group group{.field = ReadField(line), .heading = {}};
    group.heading = ReadTemplate(line, Columns::Yes);
    group.newPage = line.Take(u"page"_s);
    if (m_layout.groups.size() >= 3)
        throw LayoutError(line.Number(), 1, u"a layout has at most three groups. Take this line out"_s);
    m_layout.groups.append(group);
}

void LayoutStatements::Record(LineReader& line)
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

} // namespace vasclip::upkeep
