#include "upkeep/report_print.h"

#include "platform/paper/typesetter.h"
#include "platform/text/runtime_error.h"
#include "upkeep/draft_file.h"

#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kCounting = u"Counting the pages"_s;
const QString kPrinting = u"Printing"_s;
const QString kTakesNothing =
    u"The printer takes nothing. Check that it is switched on and connected, or save a PDF instead"_s;
const QString kOtherPaper = u"The printer does not take %1, and would cut what stands on it. Choose another paper, or save a PDF "
                            u"instead. Nothing was printed"_s;
const QString kTakesNoMore = u"The printer took no further page. What it has is not the whole report"_s;

/// A printer that keeps a paper of its own would cut the pages.
void PutOn(QPagedPaintDevice& device, const paper::Sheet& sheet)
{
    const QPageLayout wanted = sheet.Layout();
    if (!device.pageLayout().isEquivalentTo(wanted))
        device.setPageLayout(wanted);
    const QPageLayout taken = device.pageLayout();
    if (paper::PaperOfSize(taken.pageSize().size(QPageSize::Point)) != sheet.name ||
        taken.orientation() != wanted.orientation())
        throw RuntimeError(error::kDeviceUnavailable, kOtherPaper.arg(paper::PaperWords(sheet.name)));
}

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
    DraftFile draft(file, file);
    const paper::Made made = paper::WritePdf(
        draft.Out(), file, book.sheet, {.title = book.layout.words, .made = book.facts.now},
        [&] { return pager.Next(place, pages); }, book.pictures,
        [&] { return progress(kPrinting, std::min(place.page, pages), pages); });
    if (made == paper::Made::Whole)
        draft.Finish();
    return made;
}

SentPages PrintToDevice(const ReportBook& book, QPagedPaintDevice& device, double dots, const QPageRanges& wanted,
                      const ReportProgress& progress)
{
    SentPages printed{.pages = CountPages(book, progress)};
    printed.stopped = printed.pages == 0;
    const int last = wanted.isEmpty() ? printed.pages : std::min(wanted.lastPage(), printed.pages);
    PutOn(device, book.sheet);
    QPainter painter;
    paper::Typesetter setter;
    ReportPager pager(book.layout, book.sheet, book.facts, book.feed, setter);
    for (ReportPager::Place place; !printed.stopped && place.page <= last;) {
        const bool goes = wanted.isEmpty() || wanted.contains(place.page);
        printed.stopped = !progress(kPrinting, place.page, printed.pages);
        const std::optional<paper::Page> page = printed.stopped ? std::nullopt : pager.Next(place, printed.pages);
        if (!page)
            break;
        if (!goes)
            continue;
        if (printed.sent == 0 ? !painter.begin(&device) : !device.newPage())
            throw RuntimeError(error::kDeviceUnavailable, printed.sent == 0 ? kTakesNothing : kTakesNoMore);
        ++printed.sent;
        paper::Paint(painter, *page, dots / paper::kInch, book.pictures);
    }
    return printed;
}

} // namespace vasclip::upkeep
