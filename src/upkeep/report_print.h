#pragma once

#include "platform/paper/pdf.h"
#include "upkeep/report_pager.h"

#include <QPageRanges>

class QPagedPaintDevice;

namespace vasclip::upkeep {

/// How far a long report is: `done` of `total` records or pages. False stops.
using ReportProgress = std::function<bool(const QString& doing, qint64 done, qint64 total)>;

/// Everything that a report's pages come from.
struct ReportBook
{
    const ReportLayout& layout;
    paper::Sheet sheet;
    ReportFacts facts;
    RecordFeed feed;
    paper::PictureSource& pictures;
};

/// @return 0 if it was stopped
[[nodiscard]] int CountPages(const ReportBook& book, const ReportProgress& progress);

/// All pages into a PDF. What stood under the file's name stays until the new one is whole.
/// @param file  native path. @throws RuntimeError as DraftFile and paper::WritePdf
[[nodiscard]] paper::Made PrintToPdf(const ReportBook& book, const QString& file,
                                     const ReportProgress& progress);

struct SentPages
{
    bool stopped = false;
    int sent = 0;  ///< pages that the printer has
    int pages = 0; ///< of the report; 0 if it was stopped while they were counted
};

/// Pages to a printer, which hears of nothing before the first of them.
/// @param wanted  numbers of pages; empty for all
/// @throws RuntimeError 68 for a printer that takes nothing, or not this paper
[[nodiscard]] SentPages PrintToDevice(const ReportBook& book, QPagedPaintDevice& device, double dots,
                                    const QPageRanges& wanted, const ReportProgress& progress);

} // namespace vasclip::upkeep
