#pragma once

#include "platform/sheet/cell_values.h"
#include "platform/sheet/part_reader.h"

#include <optional>

namespace vasclip::sheet {

class Workbook;

struct Row
{
    qint64 number = 0; ///< as the spreadsheet shows it, from 1
    QList<Cell> cells; ///< from column A on
};

/// The rows of one sheet that hold anything, from the first on. A formula is what it came to when the file was stored. Cells
/// that are merged over several rows have their value in each of them, in the first column.
class SheetReader
{
public:
    /// @throws RuntimeError 3343 as PartReader
    SheetReader(const Workbook& book, const QString& part);

    /// The next row, nothing behind the last. @throws RuntimeError 3343 with the line for what can't be read
    [[nodiscard]] std::optional<Row> Next();
    [[nodiscard]] qint64 At() const { return m_xml.At(); } ///< of Size, for a gauge
    [[nodiscard]] qint64 Size() const { return m_size; }

    static constexpr qint64 kLastRow = 1048576;
    static constexpr qsizetype kLastColumn = 16384;

private:
    struct Merged
    {
        qint64 first = 0, last = 0;
        qsizetype column = 0;
    };
    void FindMerged(const Package& package, const QString& part);
    void ReadRow(Row& row);
    [[nodiscard]] Cell ReadCell();
    void SpreadMerged(Row& row);

    const Workbook& m_book;
    PartReader m_xml;
    qint64 m_size = 0;
    qint64 m_lastNumber = 0;
    QList<Merged> m_merged;     ///< that begin further down, or go on
    QHash<qsizetype, Cell> m_spread; ///< what goes on down a column
};

} // namespace vasclip::sheet
