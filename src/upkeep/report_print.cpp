#include "upkeep/report_print.h"

#include "platform/paper/typesetter.h"
#include "platform/text/runtime_error.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kCounting = u"Counting the pages"_s;
const QString kPrinting = u"Printing"_s;

} // namespace

int CountPages(const ReportBook& book, const ReportProgress& progress)
{
    paper::Typesetter setter;
    ReportPager pager(book.layout, book.sheet, book.facts, book.feed, setter);
    ReportPager::Place place;
    while (progress(kCounting, place.record, book.feed.count))
        if (!pager.Next(place, 0))
            return place.page - 1;
    return 0;
}

paper::Made PrintToPdf(const ReportBook& book, const QString& file, const ReportProgress& progress)
{
    const int pages = CountPages(book, progress);
    if (pages == 0)
        return paper::Made::Stopped;
    paper::Typesetter setter;
    ReportPager pager(book.layout, book.sheet, book.facts, book.feed, setter);
    ReportPager::Place place;
    return paper::WritePdf(
        file, book.sheet, {.title = book.layout.words, .made = book.facts.now},
        [&] { return pager.Next(place, pages); }, book.pictures,
        [&] { return progress(kPrinting, std::min(place.page, pages), pages); });
}

paper::Made PrintToDevice(const ReportBook& book, QPagedPaintDevice& device, double dots, int from, int to,
                          const ReportProgress& progress)
{
    const int pages = CountPages(book, progress);
    if (pages == 0)
        return paper::Made::Stopped;
    device.setPageLayout(book.sheet.Layout());
    QPainter painter;
    if (!painter.begin(&device))
        throw RuntimeError(
            error::kDeviceUnavailable,
            u"The printer takes nothing. Check that it is switched on and connected, or save a PDF instead."_s);
    paper::Typesetter setter;
    ReportPager pager(book.layout, book.sheet, book.facts, book.feed, setter);
    bool first = true;
    for (ReportPager::Place place; place.page <= std::min(to, pages);) {
        if (!progress(kPrinting, place.page, pages))
            return paper::Made::Stopped;
        const bool wanted = place.page >= from;
        const std::optional<paper::Page> page = pager.Next(place, pages);
        if (!page)
            break;
        if (!wanted)
            continue;
        if (!first && !device.newPage())
            throw RuntimeError(error::kDeviceUnavailable,
                               u"The printer took no further page. What it has is not the whole report."_s);
        first = false;
        paper::Paint(painter, *page, dots / paper::kInch, book.pictures);
    }
    return paper::Made::Whole;
}

} // namespace vasclip::upkeep
