#include "windows/send_to_printer.h"

#include "platform/desktop/print_service.h"
#include "upkeep/frm_report_preview.h"

#include <QDialog>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

namespace {

using Preview = upkeep::frm_ReportPreview;

/// Part by part: a layout without margins is refused as a whole by a printer that can't print up to the edge.
void PutOn(QPrinter& printer, const paper::Sheet& sheet)
{
    const QPageLayout layout = sheet.Layout();
    printer.setFullPage(true);
    printer.setPageSize(layout.pageSize());
    printer.setPageOrientation(layout.orientation());
    printer.setPageMargins({});
}

/// For the dialogue, which takes no other paper to margins that the printer can't print on.
void Propose(QPrinter& printer, const paper::Sheet& sheet)
{
    const double margin = static_cast<double>(sheet.margin) / paper::kPoint;
    PutOn(printer, sheet);
    printer.setFullPage(false);
    printer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Point);
}

/// Pages that were typed are chosen twice by the dialogue: the service would choose once more among those that it gets.
void ChooseOnce(const QPrinter& printer)
{
    constexpr auto kServiceOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00); ///< names and values in turn
    QStringList options = printer.printEngine()->property(kServiceOptions).toStringList();
    const qsizetype at = options.indexOf(u"page-ranges"_s);
    if (at < 0 || printer.printRange() != QPrinter::PageRange)
        return;
    options.remove(at, 2);
    printer.printEngine()->setProperty(kServiceOptions, options);
}

QString NameOf(const QPageSize& size)
{
    return paper::PaperOfSize(size.size(QPageSize::Point));
}

/// What was chosen in the printer's properties becomes the report's paper, to be seen and remembered. They begin with the
/// printer's usual paper whatever they are handed, so that one says nothing, and those of another printer may begin upright.
/// @param before  the printer that the dialogue began with
/// @return false for a paper of which there are no reports
bool TakePaper(Preview& preview, const QPrinter& printer, const QString& before)
{
    const QPageLayout chosen = printer.pageLayout();
    const QPageSize usual = QPrinterInfo(printer).defaultPageSize();
    const bool isUsual = chosen.pageSize().sizePoints() == usual.sizePoints();
    const bool isUpright = chosen.orientation() == QPageLayout::Portrait;
    if (isUsual && isUpright && printer.printerName() != before)
        return true;
    const QString name = isUsual ? preview.Sheet().name : NameOf(chosen.pageSize());
    if (name.isEmpty()) {
        preview.TellOtherPaper(chosen.pageSize().name());
        return false;
    }
    preview.ChoosePaper(name, !isUpright);
    return true;
}

bool Lists(const QPrinterInfo& printer, const QString& paperName)
{
    const QList<QPageSize> sizes = printer.supportedPageSizes();
    return sizes.isEmpty() || printer.supportsCustomPageSizes() ||
           std::ranges::any_of(sizes, [&](const QPageSize& size) {
               return NameOf(size) == paperName;
           });
}

upkeep::PrinterAnswer AnswerOf(const QPrinter& printer, const paper::Sheet& sheet)
{
    if (printer.outputFormat() != QPrinter::NativeFormat || !printer.outputFileName().isEmpty())
        return {};
    upkeep::PrinterAnswer answer{.refusal = desktop::PrintRefusal()};
    const QPrinterInfo now = QPrinterInfo::printerInfo(printer.printerName());
    if (!answer.refusal.isEmpty() && now.isNull())
        answer.refusal = QDialog::tr("%1 is not there any more").arg(printer.printerName());
    else if (!answer.refusal.isEmpty())
        return answer;
    else if (now.state() == QPrinter::Error)
        answer.note = QDialog::tr("%1 is stopped: the report waits there until it is started again.").arg(printer.printerName());
    else if (!Lists(now, sheet.name))
        answer.note = QDialog::tr("%1 does not list the paper %2: look at what it prints.")
                          .arg(printer.printerName(), paper::PaperWords(sheet.name));
    return answer;
}

} // namespace

void AskForPrinter(QDialog& window, Preview& preview)
{
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        preview.TellNoPrinter();
        return;
    }
    if (!preview.CountAll(preview.cmdPrint)) // the dialogue takes no page beyond the last one
        return;
    QPrinter printer(QPrinter::HighResolution);
    Propose(printer, preview.Sheet());
    printer.setDocName(preview.SuggestedName());
    QPrintDialog dialog(&printer, &window);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    dialog.setMinMax(1, preview.Pages());
    dialog.setFromTo(1, preview.Pages());
    const QString before = printer.printerName();
    if (dialog.exec() != QDialog::Accepted || !TakePaper(preview, printer, before))
        return;
    ChooseOnce(printer);
    SendToPrinter(preview, printer);
}

void SendToPrinter(Preview& preview, QPrinter& printer)
{
    PutOn(printer, preview.Sheet());
    preview.PrintTo(printer, printer.resolution(),
                    printer.printRange() == QPrinter::PageRange ? printer.pageRanges() : QPageRanges(),
                    [&] { return AnswerOf(printer, preview.Sheet()); });
}

} // namespace vasclip::windows
