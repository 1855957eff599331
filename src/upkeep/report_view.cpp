#include "upkeep/report_view.h"

#include <QElapsedTimer>

namespace vasclip::upkeep {

namespace {

constexpr int kKeptEvery = 8; ///< pages: as many are made for one at most

} // namespace

ReportView::ReportView(const ReportLayout& layout, const paper::Sheet& sheet, const ReportFacts& facts,
                       const RecordFeed& feed)
    : m_pager(layout, sheet, facts, feed, m_setter)
{}

bool ReportView::CountSome(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!m_counted) {
        if (m_known % kKeptEvery == 0)
            m_kept.append(m_next);
        if (m_pager.Next(m_next, 0))
            ++m_known;
        else
            m_counted = true;
        if (timer.hasExpired(milliseconds))
            break;
    }
    return m_counted;
}

std::optional<paper::Page> ReportView::PageAt(int number)
{
    if (number < 1 || number > m_known)
        return std::nullopt;
    ReportPager::Place place = m_kept[(number - 1) / kKeptEvery];
    while (place.page < number)
        if (!m_pager.Next(place, 0))
            return std::nullopt;
    return m_pager.Next(place, m_counted ? m_known : 0);
}

QList<QRect> PlacesOf(const paper::Page& page, const QString& text)
{
    QList<QRect> places;
    if (text.isEmpty())
        return places;
    for (const paper::TextItem& item : page.texts)
        if (item.text.contains(text, Qt::CaseInsensitive))
            places.append(
                QRect(item.at.x(), item.at.y() - item.face.size, item.width, item.face.size * 5 / 4));
    return places;
}

} // namespace vasclip::upkeep
