#pragma once

#include "upkeep/report_blocks.h"

#include <functional>

namespace vasclip::upkeep {

/// Where records come from: those of the report's table in its order. A record that is gone is left out.
struct RecordFeed
{
    qint64 count = 0;
    std::function<std::optional<store::Record>(qint64 place)> at;
};

/// Lays a report out page by page. It keeps no page and no record but the one it is at, so that a report of
/// any length takes the same memory; a page can be made again from the place where it began.
class ReportPager
{
public:
    ReportPager(const ReportLayout& layout, const paper::Sheet& sheet, const ReportFacts& facts,
                RecordFeed feed, paper::Typesetter& setter);

    /// Where a page begins.
    struct Place
    {
        qint64 record = 0;
        std::size_t block = 0; ///< of what the record brings
        int page = 1;
        QStringList groupValues; ///< of the record before
        QList<Sums> sums;   ///< of the records before, the whole report's first, then those of the groups
        bool begun = false; ///< a page was made
    };

    /// The page that begins at `place`, which then is where the next one begins; nothing behind the last.
    /// @param pages  how many there are, for the foot; 0 if that is not known
    [[nodiscard]] std::optional<paper::Page> Next(Place& place, int pages);
    [[nodiscard]] const paper::Sheet& Sheet() const { return m_sheet; }

private:
    void Load(const Place& place);
    void LoadEnd(const Place& place);
    void Step(Place& place);
    [[nodiscard]] int Needed(std::size_t block) const;
    void PutHead(paper::Page& page, int& y, const Place& place);
    void PutFoot(paper::Page& page, int number, int pages);
    [[nodiscard]] QString GroupWords(const Group& group, const store::Record& record) const;

    const ReportLayout& m_layout;
    paper::Sheet m_sheet;
    ReportFacts m_facts;
    RecordFeed m_feed;
    paper::Typesetter& m_setter;
    QRect m_inside;
    int m_top = 0, m_bottom = 0; ///< between head and foot
    BlockMaker m_maker;

    // The unit that it is at.
    qint64 m_loaded = -1;
    std::optional<store::Record> m_record;
    std::vector<Block> m_blocks;
    std::size_t m_recordFrom = 0; ///< its first block that is the record's own
    QStringList m_values;         ///< of the groups
    qsizetype m_changed = 0;      ///< first group that differs from the record before
};

} // namespace vasclip::upkeep
