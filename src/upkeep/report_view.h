#pragma once

#include "platform/paper/typesetter.h"
#include "upkeep/report_pager.h"

#include <memory>

namespace vasclip::upkeep {

/// The pages of a report, to be looked at in any order. It keeps where some of them begin and makes a page
/// from there.
class ReportView
{
public:
    ReportView(const ReportLayout& layout, const paper::Sheet& sheet, const ReportFacts& facts,
               const RecordFeed& feed);

    /// Counts on for about so long. @return true once all are counted
    bool CountSome(int milliseconds);
    [[nodiscard]] bool Counted() const { return m_counted; }
    [[nodiscard]] int Pages() const { return m_known; } ///< counted so far, at least 1 once begun
    [[nodiscard]] qint64 RecordsCounted() const { return m_next.record; }
    /// A page from 1; nothing for one that is not counted.
    [[nodiscard]] std::optional<paper::Page> PageAt(int number);
    [[nodiscard]] const paper::Sheet& Sheet() const { return m_pager.Sheet(); }

private:
    paper::Typesetter m_setter;
    ReportPager m_pager;
    ReportPager::Place m_next;        ///< where the first page begins that is not counted
    QList<ReportPager::Place> m_kept; ///< of every so many pages
    int m_known = 0;
    bool m_counted = false;
};

/// The texts of a page that hold a text, without regard to case.
[[nodiscard]] QList<QRect> PlacesOf(const paper::Page& page, const QString& text);

} // namespace vasclip::upkeep
