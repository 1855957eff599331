#pragma once

#include "upkeep/transfer_desk.h"

#include <QChar>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

struct CsvForm
{
    QChar delimiter = u',';
    QString codePage = u"UTF-8"_s; ///< one of CodePages
};

struct CsvExport
{
    bool written = false; ///< false: the file is as it was
    qint64 records = 0;
    qint64 lost = 0; ///< letters that the code page does not have, written as "?"
};

/// Writes the records of a search as a CSV file with a line of headings. The file takes its name when it is whole.
/// @param file  drive path. @throws RuntimeError of disk and engine
CsvExport ExportCsv(const TransferDesk& desk, const QString& file, const QString& search, const CsvForm& form,
                    const WorkStep& step);

} // namespace vasclip::upkeep
