#pragma once

#include "platform/engine/database.h"
#include "store/record.h"
#include "upkeep/report_layout.h"
#include "upkeep/report_pager.h"

namespace vasclip::upkeep {

/// The report of a choice of "Report Length", and the database that it is printed from.
struct ReportFiles
{
    QString report;
    QString database;
};

/// @param chosen  0 to 2, any other number for none of them
[[nodiscard]] ReportFiles SelectReportFiles(int chosen);

/// Fills the report database with the records of a search, in its order; it is made if it is not there, and anew where
/// it can't be written. The Databook is only read.
/// @param databook  file that the records come from
/// @param search    as SearchTextOf has it; one that is only a sort finds all
/// @return how many they are
/// @throws RuntimeError of engine and disk
qint64 FillReport(engine::Engine& engine, const QString& file, const QString& databook, const QString& table,
                  const QString& search);

/// The records of a filled report database for a layout: its columns alone, in its order. Open while this
/// lives.
class ReportTable
{
public:
    /// @throws RuntimeError of the engine
    ReportTable(engine::Engine& engine, const QString& file, const ReportLayout& layout);
    ~ReportTable();
    ReportTable(const ReportTable&) = delete;
    ReportTable& operator=(const ReportTable&) = delete;

    [[nodiscard]] qint64 Count() const { return m_rows->Count(); }
    [[nodiscard]] RecordFeed Feed() const;

private:
    std::shared_ptr<engine::Database> m_database;
    std::unique_ptr<store::Rows> m_rows;
};

} // namespace vasclip::upkeep
