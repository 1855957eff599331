#include "upkeep/report_blocks.h"

#include "store/fields.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using paper::kPoint;

namespace {

constexpr int kGutter = kReportGutter;
const QString kGoesOn = u"%1 (continued)"_s;

/// A rule as wide as the page.
void Rule(Block& block, int y, int width, QRgb colour, int thick = 10)
{
    block.content.boxes.append({.box = QRect(0, y, width, thick), .fill = colour});
}

} // namespace

BlockMaker::BlockMaker(const ReportLayout& layout, const ReportFacts& facts, BlockMeasures measures,
                       paper::Typesetter& setter)
    : m_layout(layout)
    , m_facts(facts)
    , m_measures(measures)
    , m_setter(setter)
    , m_plain{measures.text}
    , m_strong{measures.text, true}
    , m_small{measures.text * 7 / 8}
    , m_smallStrong{measures.text * 7 / 8, true}
    , m_large{measures.text * 5 / 4, true}
{}

void BlockMaker::Put(Block& block, const QString& text, paper::Face face, QRgb colour, int x, int y,
                     int width, Side side)
{
    if (text.isEmpty())
        return;
    const QString shown = m_setter.Cut(text, face, width);
    const int wide = m_setter.Width(shown, face);
    const int left = side == Side::Left ? x : side == Side::Right ? x + width - wide : x + (width - wide) / 2;
    block.content.texts.append({.at = QPoint(left, y + m_setter.Ascent(face)),
                                .width = wide,
                                .text = shown,
                                .face = face,
                                .ink = colour});
}

Block BlockMaker::Gap(int height) const
{
    Block block;
    block.height = height;
    block.gap = true;
    return block;
}

QString BlockMaker::NameOf(const store::Record& record) const
{
    const QString address = Printed(record, fields::ADDRESS, Format::Text, m_facts.now.date());
    return address.isEmpty() ? Printed(record, fields::CENTRALKEY, Format::Text, m_facts.now.date())
                             : address;
}

std::vector<BlockMaker::Cell> BlockMaker::Cells() const
{
    int all = 0;
    for (const Column& column : m_layout.columns)
        all += column.wide;
    const int room = m_measures.width - kGutter * (static_cast<int>(m_layout.columns.size()) - 1);
    std::vector<Cell> cells;
    int before = 0;
    for (const Column& column : m_layout.columns) {
        const int from = room * before / all;
        before += column.wide;
        cells.push_back(
            {from + kGutter * static_cast<int>(cells.size()), std::max(room * before / all - from, 1)});
    }
    return cells;
}

Block BlockMaker::TableHead()
{
    const std::vector<Cell> cells = Cells();
    std::vector<QStringList> words;
    qsizetype most = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        words.push_back(m_setter.Lines(m_layout.columns[static_cast<qsizetype>(i)].heading, m_smallStrong,
                                       cells[i].width, 2));
        most = std::max(most, words.back().size());
    }
    const int line = m_setter.LineHeight(m_smallStrong);
    Block block;
    block.height = static_cast<int>(most) * line + 6 * kPoint;
    block.content.boxes.append(
        {.box = QRect(-3 * kPoint, 0, m_measures.width + 6 * kPoint, block.height - 2 * kPoint),
         .fill = ink::kBand});
    for (std::size_t i = 0; i < cells.size(); ++i) {
        int y = 2 * kPoint +
                line * static_cast<int>(most - words[i].size()); // headings of one line stand at the foot
        for (const QString& text : words[i]) {
            Put(block, text, m_smallStrong, ink::kAccent, cells[i].x, y, cells[i].width,
                m_layout.columns[static_cast<qsizetype>(i)].side);
            y += line;
        }
    }
    return block;
}

Block BlockMaker::OfRow(const store::Record& record)
{
    const std::vector<Cell> cells = Cells();
    const int line = m_setter.LineHeight(m_plain);
    Block block;
    int lines = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const Column& column = m_layout.columns[static_cast<qsizetype>(i)];
        const QString text = Printed(record, column.field, column.format, m_facts.now.date());
        const QStringList shown = column.lines > 1
                                      ? m_setter.Lines(text, m_plain, cells[i].width, column.lines)
                                      : QStringList{text};
        int y = 3 * kPoint / 2;
        for (const QString& one : shown) {
            Put(block, one, m_plain, ink::kText, cells[i].x, y, cells[i].width, column.side);
            y += line;
        }
        lines = std::max(lines, static_cast<int>(shown.size()));
    }
    block.height = lines * line + 3 * kPoint;
    Rule(block, block.height - 6, m_measures.width, ink::kRule, 6);
    return block;
}

Block BlockMaker::OfGroup(const QString& words, int level, bool newPage)
{
    const paper::Face face = level == 0 ? m_large : m_strong;
    Block block;
    const int top = level == 0 ? 8 * kPoint : 5 * kPoint;
    Put(block, words, face, ink::kAccent, 0, top, m_measures.width, Side::Left);
    block.height = top + m_setter.LineHeight(face) + 3 * kPoint;
    if (level == 0)
        Rule(block, block.height - 2 * kPoint, m_measures.width, ink::kAccent, 14);
    block.withNext = true;
    block.newPage = newPage;
    return block;
}

std::vector<Block> BlockMaker::OfTotals(const QString& words, const Sums& sums)
{
    std::vector<Block> blocks;
    if (m_layout.totals.isEmpty())
        return blocks;
    const int line = m_setter.LineHeight(m_small) + m_setter.LineHeight(m_strong) + 2 * kPoint;
    const int across =
        std::min<int>(static_cast<int>(m_layout.totals.size()), m_measures.width > 9 * paper::kInch ? 8 : 5);
    const int cell = m_measures.width / across;
    Block block;
    int y = 6 * kPoint;
    Put(block, words, m_smallStrong, ink::kAccent, 4 * kPoint, y, m_measures.width - 8 * kPoint, Side::Left);
    y += m_setter.LineHeight(m_smallStrong) + 2 * kPoint;
    for (qsizetype i = 0; i < m_layout.totals.size(); ++i) {
        const int x = static_cast<int>(i % across) * cell + 4 * kPoint;
        if (i > 0 && i % across == 0)
            y += line;
        Put(block, m_layout.totals[i].label, m_small, ink::kQuiet, x, y, cell - kGutter, Side::Left);
        Put(block, sums.Text(m_layout.totals, i), m_strong, ink::kText, x, y + m_setter.LineHeight(m_small),
            cell - kGutter, Side::Left);
    }
    block.height = y + line + 2 * kPoint;
    block.content.boxes.prepend(
        {.box = QRect(0, 3 * kPoint, m_measures.width, block.height - 3 * kPoint), .fill = ink::kBand});
    blocks.push_back(std::move(block));
    blocks.push_back(Gap(6 * kPoint));
    return blocks;
}

Block BlockMaker::OfWords(const QString& words)
{
    Block block;
    Put(block, words, m_plain, ink::kQuiet, 0, 40 * kPoint, m_measures.width, Side::Centre);
    block.height = 40 * kPoint + m_setter.LineHeight(m_plain);
    return block;
}

Block BlockMaker::Continued(const QString& words)
{
    Block block;
    Put(block, kGoesOn.arg(words), m_small, ink::kQuiet, 0, 0, m_measures.width, Side::Left);
    block.height = m_setter.LineHeight(m_small) + 4 * kPoint;
    return block;
}

} // namespace vasclip::upkeep
