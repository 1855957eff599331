#pragma once

#include "platform/paper/pdf.h"
#include "upkeep/report_pager.h"

namespace vasclip::upkeep {

/// Writes the columns of a layout for each record: UTF-8 with a byte-order mark, lines with CR LF, a value in
/// quotes where it needs them. Beside the file, flushed, then renamed.
/// @param file  native path. @throws RuntimeError 61, 75
[[nodiscard]] paper::Made WriteReportCsv(const QString& file, const ReportLayout& layout,
                                         const RecordFeed& feed, const QDate& today,
                                         const std::function<bool()>& goOn);

/// A value as a field of a CSV line.
[[nodiscard]] QString CsvField(const QString& value);

} // namespace vasclip::upkeep
