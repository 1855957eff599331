#include "upkeep/report_blocks.h"

#include "store/fields.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using paper::kPoint;

namespace {

constexpr int kGutter = 7 * kPoint; ///< between columns
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

void BlockMaker::Put(Block& block, const QString& text, paper::Face face, QRgb colour, int x, int y, int width, Side side)
{
    if (text.isEmpty())
        return;
    const QString shown = m_setter.Cut(text, face, width);
    const int wide = m_setter.Width(shown, face);
    const int left = side == Side::Left ? x : side == Side::Right ? x + width - wide : x + (width - wide) / 2;
    block.content.texts.append(
        {.at = QPoint(left, y + m_setter.Ascent(face)), .width = wide, .text = shown, .face = face, .ink = colour});
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
    return address.isEmpty() ? Printed(record, fields::CENTRALKEY, Format::Text, m_facts.now.date()) : address;
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
        cells.push_back({from + kGutter * static_cast<int>(cells.size()), std::max(room * before / all - from, 1)});
    }
    return cells;
}

Block BlockMaker::TableHead()
{
    const std::vector<Cell> cells = Cells();
    std::vector<QStringList> words;
    qsizetype most = 1;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        words.push_back(m_setter.Lines(m_layout.columns[static_cast<qsizetype>(i)].heading, m_smallStrong, cells[i].width, 2));
        most = std::max(most, words.back().size());
    }
    const int line = m_setter.LineHeight(m_smallStrong);
    Block block;
    block.height = static_cast<int>(most) * line + 6 * kPoint;
    block.content.boxes.append({.box = QRect(-3 * kPoint, 0, m_measures.width + 6 * kPoint, block.height - 2 * kPoint), .fill = ink::kBand});
    for (std::size_t i = 0; i < cells.size(); ++i) {
        int y = 2 * kPoint + line * static_cast<int>(most - words[i].size()); // headings of one line stand at the foot
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
        const QStringList shown = column.lines > 1 ? m_setter.Lines(text, m_plain, cells[i].width, column.lines) : QStringList{text};
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
    const int across = std::min<int>(static_cast<int>(m_layout.totals.size()), m_measures.width > 9 * paper::kInch ? 8 : 5);
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
        Put(block, sums.Text(m_layout.totals, i), m_strong, ink::kText, x, y + m_setter.LineHeight(m_small), cell - kGutter, Side::Left);
    }
    block.height = y + line + 2 * kPoint;
    block.content.boxes.prepend({.box = QRect(0, 3 * kPoint, m_measures.width, block.height - 3 * kPoint), .fill = ink::kBand});
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

void BlockMaker::AddHeading(std::vector<Block>& blocks, const HeadingPart& part, const store::Record& record)
{
    const int width = m_measures.width;
    Block block;
    const QString right = Filled(part.right, &record, m_facts);
    const int rightWidth = std::min(m_setter.Width(right, m_large), width / 2);
    Put(block, right, m_large, ink::kText, width - rightWidth, 0, rightWidth, Side::Right);
    const QString left = Filled(part.left, &record, m_facts);
    Put(block, left.isEmpty() ? NameOf(record) : left, m_large, ink::kAccent, 0, 0,
        width - rightWidth - (rightWidth > 0 ? kGutter : 0), Side::Left);
    block.height = m_setter.LineHeight(m_large) + kPoint;
    block.withNext = true;
    blocks.push_back(std::move(block));
}

void BlockMaker::AddLine(std::vector<Block>& blocks, const LinePart& part, const store::Record& record, int width)
{
    const QString text = Filled(part.text, &record, m_facts);
    if (text.isEmpty())
        return;
    for (const QString& line : m_setter.Lines(text, m_plain, width, 3)) {
        Block block;
        Put(block, line, m_plain, ink::kQuiet, 0, 0, width, Side::Left);
        block.height = m_setter.LineHeight(m_plain);
        block.withNext = true;
        blocks.push_back(std::move(block));
    }
    blocks.back().height += 2 * kPoint;
}

void BlockMaker::AddSection(std::vector<Block>& blocks, const SectionPart& part, const store::Record& record, int width)
{
    QList<std::pair<QString, QString>> shown;
    for (const LabelledField& field : part.fields) {
        const QString value = Printed(record, field.field, field.format, m_facts.now.date());
        if (part.blanks || !value.isEmpty())
            shown.append({field.label, value});
    }
    if (shown.isEmpty())
        return;
    if (!part.words.isEmpty()) {
        Block title;
        Put(title, part.words, m_smallStrong, ink::kAccent, 0, 5 * kPoint, width, Side::Left);
        title.height = 5 * kPoint + m_setter.LineHeight(m_smallStrong) + 2 * kPoint;
        title.content.boxes.append({.box = QRect(0, title.height - kPoint, width, 6), .fill = ink::kRule});
        title.height += kPoint;
        title.withNext = true;
        blocks.push_back(std::move(title));
    }
    const int cell = (width - kGutter * 2 * (part.columns - 1)) / part.columns;
    const int label = cell * 2 / 5;
    const int line = m_setter.LineHeight(m_plain);
    for (qsizetype from = 0; from < shown.size(); from += part.columns) {
        Block row;
        int lines = 1;
        for (int i = 0; i < part.columns && from + i < shown.size(); ++i) {
            const auto& [name, value] = shown[from + i];
            const int x = i * (cell + 2 * kGutter);
            const int lift = m_setter.Ascent(m_plain) - m_setter.Ascent(m_small); // on one baseline
            Put(row, name, m_small, ink::kQuiet, x, lift, label - kGutter / 2, Side::Left);
            const QStringList texts = m_setter.Lines(value, m_plain, cell - label, 4);
            for (qsizetype n = 0; n < texts.size(); ++n)
                Put(row, texts[n], m_plain, ink::kText, x + label, static_cast<int>(n) * line, cell - label, Side::Left);
            lines = std::max(lines, static_cast<int>(texts.size()));
        }
        row.height = lines * line + kPoint;
        blocks.push_back(std::move(row));
    }
}

void BlockMaker::AddNotes(std::vector<Block>& blocks, const NotesPart& part, const store::Record& record, int width)
{
    const QString text = LongText(record, part.field);
    if (text.isEmpty())
        return;
    if (!part.label.isEmpty()) {
        Block title;
        Put(title, part.label, m_smallStrong, ink::kAccent, 0, 5 * kPoint, width, Side::Left);
        title.height = 5 * kPoint + m_setter.LineHeight(m_smallStrong) + kPoint;
        title.withNext = true;
        blocks.push_back(std::move(title));
    }
    const QStringList lines = m_setter.Lines(text, m_plain, width);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        Block block;
        Put(block, lines[i], m_plain, ink::kText, 0, 0, width, Side::Left);
        block.height = m_setter.LineHeight(m_plain);
        // No line stands alone on a page.
        block.withNext = lines.size() > 1 && (i == 0 || i == lines.size() - 2);
        blocks.push_back(std::move(block));
    }
}

std::vector<Block> BlockMaker::OfRecord(const store::Record& record)
{
    std::vector<Block> blocks;
    if (!m_layout.columns.isEmpty()) {
        blocks.push_back(OfRow(record));
        return blocks;
    }
    const PhotosPart* beside = Beside();
    if (beside && !HasPhotos(*beside, record))
        beside = nullptr;
    const int besideWidth = beside ? BesideWidth(*beside) : 0;
    const int width = m_measures.width - (beside ? besideWidth + 2 * kGutter : 0);
    std::size_t underHeading = 0;
    for (const RecordPart& part : m_layout.parts) {
        switch (part.kind) {
        case RecordPart::Kind::Heading: 
            AddHeading(blocks, part.heading, record);
            underHeading = blocks.size() == underHeading + 1 ? blocks.size() : underHeading;
            break;
        case RecordPart::Kind::Line: AddLine(blocks, part.line, record, width); break;
        case RecordPart::Kind::Section: AddSection(blocks, part.section, record, width); break;
        case RecordPart::Kind::Notes: AddNotes(blocks, part.notes, record, width); break;
        case RecordPart::Kind::Photos:
            if (!part.photos.beside)
                AddPhotos(blocks, part.photos, record);
            break;
        }
    }
    if (blocks.empty())
        AddHeading(blocks, {}, record);
    if (beside) {
        if (underHeading == blocks.size())
            blocks.push_back({});
        PutBeside(blocks[underHeading], *beside, record, besideWidth);
    }
    blocks.back().withNext = false;
    Block end = Gap(14 * kPoint);
    end.content.boxes.append({.box = QRect(0, 7 * kPoint, m_measures.width, 6), .fill = ink::kRule});
    blocks.push_back(std::move(end));
    return blocks;
}

} // namespace vasclip::upkeep
