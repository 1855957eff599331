// The preview's long work: counting, finding, saving, printing.

#include "common/error_block.h"
#include "upkeep/frm_report_preview.h"
#include "upkeep/report_csv.h"

#include <algorithm>
#include <array>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;
using common::RoutineScope;

namespace {

constexpr int kBetweenTurns = 60; ///< milliseconds between two turns of the queue
constexpr int kSlice = 40;

} // namespace

ReportBook frm_ReportPreview::Book(paper::PictureSource& pictures)
{
    return {.layout = *m_layout,
            .sheet = m_sheet,
            .facts = m_facts,
            .feed = m_table->Feed(),
            .pictures = pictures};
}

bool frm_ReportPreview::Progress(const QString& doing, qint64 done, qint64 total)
{
    if (m_sincePump.isValid() && !m_sincePump.hasExpired(kBetweenTurns))
        return !m_stop;
    m_sincePump.start();
    gauWork.SetCaption(doing);
    gauWork.SetRange(static_cast<int>(std::max<qint64>(total, 1)));
    gauWork.SetValue(static_cast<int>(done));
    m_desk.ports.pump.DoEvents();
    return !m_stop;
}

void frm_ReportPreview::Work(forms::Control& asked, const std::function<void()>& work)
{
    if (m_busy || !m_view)
        return;
    const std::array<forms::Control*, 16> others{
        &cboLayout, &cboPaper, &optOrientation(0), &optOrientation(1), &cmdFirst, &cmdPrevious, &cmdNext,
        &cmdLast,   &txtPage,  &cboZoom,           &txtFind,           &cmdFind,  &cmdPrint,    &cmdPDF,
        &cmdCSV,    &cmdExit};
    const auto begin = [&](bool busy) {
        m_busy = busy;
        gauWork.SetVisible(busy);
        cmdStop.SetVisible(busy);
        for (forms::Control* control : others)
            control->SetEnabled(!busy);
    };
    m_stop = false;
    m_sincePump.invalidate();
    lblmsg.Show({}, forms::Colour::Normal);
    cmdStop.SetVisible(true);
    cmdStop.SetFocus(); // before the others can't have it
    begin(true);
    struct Ended
    {
        const std::function<void()> end;
        ~Ended() { end(); }
    } const ended{[&] {
        begin(false);
        ShowCount();
        asked.SetFocus();
    }};
    const forms::Hourglass hourglass(m_desk.ports.window); // by which the program's end waits for the work
    common::Guarded(m_desk.ports.prompter, work);
}

void frm_ReportPreview::Tell(paper::Made made, const QString& done, qsizetype missing)
{
    if (made == paper::Made::Stopped)
        lblmsg.Show(u"Stopped. Nothing was stored."_s, forms::Colour::Red);
    else if (missing > 0)
        lblmsg.Show(done + (missing == 1 ? u" 1 photo was not found; its place says so."_s
                                         : u" %1 photos were not found; their places say so."_s.arg(missing)),
                    forms::Colour::Red);
    else
        lblmsg.Show(done, forms::Colour::Blue);
}

bool frm_ReportPreview::CountAll(forms::Control& asked)
{
    if (m_view && m_view->Counted())
        return true;
    Work(asked, [this] {
        while (!m_view->CountSome(kSlice) &&
               Progress(u"Counting the pages"_s, m_view->RecordsCounted(), m_facts.count)) {
        }
    });
    return m_view && m_view->Counted();
}

void frm_ReportPreview::SavePdf(const QString& file)
{
    const RoutineScope scope{"SavePdf"};
    Work(cmdPDF, [&] {
        ReportPictures pictures(m_desk.disk, m_desk.globals.G_PhotoDir);
        const paper::Made made =
            PrintToPdf(Book(pictures), file, [this](const QString& doing, qint64 done, qint64 total) {
                return Progress(doing, done, total);
            });
        Tell(made, u"The report is in %1."_s.arg(file), pictures.Missing());
    });
}

void frm_ReportPreview::SaveCsv(const QString& file)
{
    const RoutineScope scope{"SaveCsv"};
    Work(cmdCSV, [&] {
        const paper::Made made = WriteReportCsv(file, *m_layout, m_table->Feed(), m_facts.now.date(),
                                                [this] { return Progress(u"Writing the records"_s, 0, 0); });
        Tell(made, u"The records are in %1."_s.arg(file));
    });
}

void frm_ReportPreview::PrintTo(QPagedPaintDevice& printer, double dots, const QPageRanges& wanted,
                                const std::function<PrinterAnswer()>& answer)
{
    const RoutineScope scope{"PrintTo"};
    Work(cmdPrint, [&] {
        ReportPictures pictures(m_desk.disk, m_desk.globals.G_PhotoDir);
        const SentPages printed = PrintToDevice(
            Book(pictures), printer, dots, wanted,
            [this](const QString& doing, qint64 done, qint64 total) { return Progress(doing, done, total); });
        TellPrinted(printed, wanted, answer && printed.sent > 0 ? answer() : PrinterAnswer(), pictures.Missing());
    });
}

void frm_ReportPreview::TellPrinted(const SentPages& printed, const QPageRanges& wanted, const PrinterAnswer& answer,
                                    qsizetype missing)
{
    if (!answer.refusal.isEmpty())
        lblmsg.Show(u"The printer has not taken the report: %1. Nothing was printed."_s.arg(answer.refusal),
                    forms::Colour::Red);
    else if (printed.stopped && printed.sent > 0)
        lblmsg.Show(printed.sent == 1 ? u"Stopped. The printer has one page."_s
                                      : u"Stopped. The printer has %1 pages."_s.arg(printed.sent),
                    forms::Colour::Red);
    else if (printed.stopped)
        lblmsg.Show(u"Stopped. Nothing was printed."_s, forms::Colour::Red);
    else if (printed.sent == 0)
        lblmsg.Show(u"The report has no page %1; its last one is %2. Nothing was printed."_s.arg(wanted.toString())
                        .arg(printed.pages),
                    forms::Colour::Red);
    else
        Tell(paper::Made::Whole, u"The report was sent to the printer."_s, missing);
    if (!answer.note.isEmpty())
        lblmsg.Show(lblmsg.Caption() + u' ' + answer.note, forms::Colour::Red);
}

/// The next page with the text, from the one behind this on; behind the last it goes on at the first.
void frm_ReportPreview::FindNext(forms::Control& asked)
{
    const QString wanted = txtFind.Text().trimmed();
    if (wanted.isEmpty())
        return;
    int found = 0;
    const int from = m_page;
    bool stopped = false;
    bool looked = false;
    Work(asked, [&] {
        const auto look = [&](int page) {
            const std::optional<paper::Page> made = m_view->PageAt(page);
            if (made && !PlacesOf(*made, wanted).isEmpty())
                found = page;
        };
        const auto goOn = [&](int page) {
            stopped = !Progress(u"Looking for %1"_s.arg(wanted), page, m_view->Pages());
            return !stopped && found == 0;
        };
        for (int page = from + 1; goOn(page); ++page) {
            if (page > m_view->Pages() && !m_view->Counted())
                m_view->CountSome(0);
            if (page > m_view->Pages())
                break;
            look(page);
        }
        for (int page = 1; page <= from && found == 0 && !stopped && goOn(page); ++page)
            look(page);
        looked = true;
    });
    if (found > 0)
        ShowPage(found);
    else if (!looked)
        return; // the box has told why, and nobody knows what stands on the other pages
    lblmsg.Show(found > 0 ? QString()
                : stopped ? u"Stopped."_s
                          : u"%1 stands on no page."_s.arg(wanted),
                forms::Colour::Red);
}

} // namespace vasclip::upkeep
