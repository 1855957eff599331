// The strips of one record that is no line of a table.

#include "upkeep/report_blocks.h"

#include <algorithm>

namespace vasclip::upkeep {

using paper::kPoint;

namespace {

constexpr int kGutter = kReportGutter;

} // namespace

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

void BlockMaker::AddLine(std::vector<Block>& blocks, const LinePart& part, const store::Record& record,
                         int width)
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

void BlockMaker::AddSection(std::vector<Block>& blocks, const SectionPart& part, const store::Record& record,
                            int width)
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
                Put(row, texts[n], m_plain, ink::kText, x + label, static_cast<int>(n) * line, cell - label,
                    Side::Left);
            lines = std::max(lines, static_cast<int>(texts.size()));
        }
        row.height = lines * line + kPoint;
        blocks.push_back(std::move(row));
    }
}

void BlockMaker::AddNotes(std::vector<Block>& blocks, const NotesPart& part, const store::Record& record,
                          int width)
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
        case RecordPart::Kind::Line:
            AddLine(blocks, part.line, record, width);
            break;
        case RecordPart::Kind::Section:
            AddSection(blocks, part.section, record, width);
            break;
        case RecordPart::Kind::Notes:
            AddNotes(blocks, part.notes, record, width);
            break;
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
