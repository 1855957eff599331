#include "upkeep/report_pager.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using paper::kPoint;

namespace {

constexpr paper::Face kTitle{15 * kPoint, true};
constexpr paper::Face kSubtitle{8 * kPoint};
constexpr int kHeadHeight = 40 * kPoint;
constexpr int kFootHeight = 18 * kPoint;

BlockMeasures MeasuresOf(const ReportLayout& layout, const paper::Sheet& sheet)
{
    const QRect inside = sheet.Inside();
    return {
        .width = inside.width(), .height = inside.height() - kHeadHeight - kFootHeight, .text = layout.text};
}

void PutText(paper::Typesetter& setter, paper::Page& page, const QString& text, paper::Face face, QRgb ink,
             QRect room, Side side)
{
    const QString shown = setter.Cut(text, face, room.width());
    if (shown.isEmpty())
        return;
    const int width = setter.Width(shown, face);
    const int x = side == Side::Right ? room.left() + room.width() - width : room.left();
    page.texts.append({.at = {x, room.top() + setter.Ascent(face)},
                       .width = width,
                       .text = shown,
                       .face = face,
                       .ink = ink});
}

} // namespace

ReportPager::ReportPager(const ReportLayout& layout, const paper::Sheet& sheet, const ReportFacts& facts,
                         RecordFeed feed, paper::Typesetter& setter)
    : m_layout(layout)
    , m_sheet(sheet)
    , m_facts(facts)
    , m_feed(std::move(feed))
    , m_setter(setter)
    , m_inside(sheet.Inside())
    , m_top(m_inside.top() + kHeadHeight)
    , m_bottom(m_inside.top() + m_inside.height() - kFootHeight)
    , m_maker(layout, m_facts, MeasuresOf(layout, sheet), setter)
{}

QString ReportPager::GroupWords(const Group& group, const store::Record& record) const
{
    const QString words = Filled(group.heading, &record, m_facts);
    return words.isEmpty() ? u"(blank)"_s : words;
}

/// The blocks of the record at a place: totals of the groups that end before it, headings of those that begin
/// with it, itself.
void ReportPager::Load(const Place& place)
{
    m_loaded = place.record;
    m_blocks.clear();
    m_recordFrom = 0;
    m_record.reset();
    if (place.record >= m_feed.count) {
        LoadEnd(place);
        return;
    }
    m_record = m_feed.at(place.record);
    if (!m_record)
        return;
    m_values.clear();
    for (const Group& group : m_layout.groups)
        m_values.append(Printed(*m_record, group.field, Format::Text, m_facts.now.date()).toUpper());
    m_changed = 0;
    while (m_changed < m_values.size() && m_changed < place.groupValues.size() &&
           m_values[m_changed] == place.groupValues[m_changed])
        ++m_changed;
    const bool first = place.groupValues.isEmpty();
    if (m_changed < m_values.size() && !first)
        for (qsizetype level = m_values.size() - 1; level >= m_changed; --level)
            std::ranges::move(m_maker.OfTotals(u"Group totals"_s, place.sums.value(level + 1)),
                              std::back_inserter(m_blocks));
    for (qsizetype level = m_changed; level < m_layout.groups.size(); ++level) {
        const Group& group = m_layout.groups[level];
        m_blocks.push_back(
            m_maker.OfGroup(GroupWords(group, *m_record), static_cast<int>(level), group.newPage && !first));
    }
    m_recordFrom = m_blocks.size();
    std::ranges::move(m_maker.OfRecord(*m_record), std::back_inserter(m_blocks));
    if (m_layout.flow == Flow::OwnPage && m_recordFrom == 0)
        m_blocks.front().newPage = true;
}

void ReportPager::LoadEnd(const Place& place)
{
    if (place.sums.isEmpty() || place.sums.first().records == 0) {
        m_blocks.push_back(m_maker.OfWords(u"No records were found."_s));
        return;
    }
    for (qsizetype level = m_layout.groups.size() - 1; level >= 0; --level)
        std::ranges::move(m_maker.OfTotals(u"Group totals"_s, place.sums.value(level + 1)),
                          std::back_inserter(m_blocks));
    std::ranges::move(m_maker.OfTotals(u"Report totals"_s, place.sums.first()), std::back_inserter(m_blocks));
}

/// The record at the place is done.
void ReportPager::Step(Place& place)
{
    if (m_record) {
        place.sums.resize(m_layout.groups.size() + 1);
        for (qsizetype level = m_changed; level < m_layout.groups.size(); ++level)
            place.sums[level + 1] = {};
        for (Sums& sums : place.sums)
            sums.Add(m_layout.totals, *m_record);
        place.groupValues = m_values;
    }
    ++place.record;
    place.block = 0;
}

/// Room that a block wants below it, with those that stay on its page.
int ReportPager::Needed(std::size_t block) const
{
    int needed = 0, besides = 0;
    for (std::size_t i = block; i < m_blocks.size(); ++i) {
        besides = std::max(besides, m_blocks[i].besides > 0 ? needed + m_blocks[i].besides : 0);
        needed += m_blocks[i].height;
        if (!m_blocks[i].withNext)
            break;
    }
    if (m_layout.flow != Flow::Over && block <= m_recordFrom && m_record) {
        int whole = 0;
        for (std::size_t i = block; i < m_blocks.size(); ++i)
            whole += m_blocks[i].gap ? 0 : m_blocks[i].height;
        if (whole <= m_bottom - m_top && block + 1 < m_blocks.size() &&
            (block == m_recordFrom || m_blocks[block].withNext))
            needed = std::max(needed, whole);
    }
    return std::max(needed, besides);
}

void ReportPager::PutHead(paper::Page& page, int& y, const Place& place)
{
    const int left = m_inside.left(), width = m_inside.width(), right = width / 3;
    const QString title = Filled(m_layout.title, nullptr, m_facts);
    PutText(m_setter, page, title.isEmpty() ? m_layout.words : title, kTitle, ink::kText,
            {left, m_inside.top(), width - right, kHeadHeight}, Side::Left);
    PutText(m_setter, page, Filled(m_layout.subtitle, nullptr, m_facts), kSubtitle, ink::kQuiet,
            {left, m_inside.top() + m_setter.LineHeight(kTitle), width * 3 / 4, kHeadHeight}, Side::Left);
    const QString date = Filled({{{{}, u"DATE"_s, Format::Text}}, {}}, nullptr, m_facts);
    PutText(m_setter, page, date, kSubtitle, ink::kQuiet,
            {left + width - right,
             m_inside.top() + m_setter.LineHeight(kTitle) - m_setter.LineHeight(kSubtitle), right,
             kHeadHeight},
            Side::Right);
    page.boxes.append(
        {.box = QRect(left, m_inside.top() + kHeadHeight - 8 * kPoint, width, 24), .fill = ink::kAccent});
    y = m_top;
    const auto put = [&](const Block& block) {
        page.Take(block.content, {left, y});
        y += block.height;
    };
    if (!m_layout.columns.isEmpty() && m_feed.count > 0)
        put(m_maker.TableHead());
    if (!place.begun || place.record >= m_feed.count)
        return;
    if (m_loaded != place.record)
        Load(place);
    if (!m_record)
        return;
    const bool within = place.block > m_recordFrom;
    if (!m_layout.groups.isEmpty() && (within || m_changed == m_layout.groups.size()))
        put(m_maker.Continued(GroupWords(m_layout.groups.last(), *m_record)));
    if (within)
        put(m_maker.Continued(m_maker.NameOf(*m_record)));
}

void ReportPager::PutFoot(paper::Page& page, int number, int pages)
{
    const int left = m_inside.left(), width = m_inside.width();
    const int y = m_bottom + kFootHeight - m_setter.LineHeight(kSubtitle);
    page.boxes.append({.box = QRect(left, y - 4 * kPoint, width, 8), .fill = ink::kRule});
    const QString words = pages > 0 ? u"Page %1 of %2"_s.arg(number).arg(pages) : u"Page %1"_s.arg(number);
    PutText(m_setter, page, words, kSubtitle, ink::kQuiet, {left + width / 2, y, width / 2, kFootHeight},
            Side::Right);
    PutText(m_setter, page, Filled(m_layout.footer, nullptr, m_facts), kSubtitle, ink::kQuiet,
            {left, y, width / 2, kFootHeight}, Side::Left);
}

std::optional<paper::Page> ReportPager::Next(Place& place, int pages)
{
    if (place.record > m_feed.count)
        return std::nullopt;
    paper::Page page;
    int y = 0;
    const Place began = place;
    PutHead(page, y, place);
    const int top = y;
    int floor = y; // below what stands beside a record
    bool any = false;
    while (place.record <= m_feed.count) {
        if (m_loaded != place.record || m_blocks.empty())
            Load(place);
        bool full = false;
        for (; place.block < m_blocks.size() && !full;) {
            const Block& block = m_blocks[place.block];
            if (block.gap || block.below || place.block == m_recordFrom)
                y = std::max(y, floor);
            if (block.gap && y + block.height > m_bottom) { // the page ends here as well as behind it
                ++place.block;
                continue;
            }
            const bool atTop = y == top;
            if (block.gap && atTop) {
                ++place.block;
                continue;
            }
            full = !atTop && (block.newPage || y + Needed(place.block) > m_bottom);
            if (full)
                break;
            page.Take(block.content, {m_inside.left(), y});
            if (block.besides > 0)
                floor = std::max(floor, y + block.besides);
            y += block.height;
            any = true;
            ++place.block;
        }
        if (full)
            break;
        Step(place);
    }
    if (!any && began.begun)
        return std::nullopt;
    PutFoot(page, began.page, pages);
    place.begun = true;
    ++place.page;
    return page;
}

} // namespace vasclip::upkeep
