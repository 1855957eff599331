#pragma once

#include "upkeep/import_plan.h"

#include <QChar>

namespace vasclip::upkeep {

/// Where the values of one column of a CSV file go.
struct CsvColumn
{
    QString heading; ///< as the file has it
    QString field;   ///< of the Databook; "" leaves the column behind
};

/// What a CSV file is taken for, before anything is read into the Databook.
struct CsvLook
{
    QChar delimiter = u',';
    QString codePage;
    QList<CsvColumn> columns;
};

/// The field of the Databook that a heading means: its own name, its heading in the grid, or a word that people use
/// ("Sq Ft", "Sale Price"); "" for none.
[[nodiscard]] QString FieldOfHeading(const QString& heading);

/// Reads code page, delimiter and headings, and proposes where each column goes; what was chosen for the same headings
/// before comes first.
/// @param delimiter, codePage  a null one and "" are found out
/// @throws RuntimeError 53, 3343 for a file without headings or of another code page
[[nodiscard]] CsvLook LookAtCsv(const TransferDesk& desk, const QString& file, QChar delimiter = {},
                                const QString& codePage = {});
/// Keeps a choice of columns for files of the same headings. @throws RuntimeError of the disk
void KeepColumns(const TransferDesk& desk, const CsvLook& look);

/// The rows of a CSV file as a database of their own, which goes when this does. Keys come from the addresses where the
/// file has none; dates and numbers are stored as the Databook writes them.
class CsvSource
{
public:
    static const QString kTable;

    /// @throws RuntimeError of the disk, 3343 for a text that can't be read to its end
    CsvSource(const TransferDesk& desk, const QString& file, const CsvLook& look, const WorkStep& step);
    ~CsvSource();
    CsvSource(const CsvSource&) = delete;
    CsvSource& operator=(const CsvSource&) = delete;

    [[nodiscard]] const QString& File() const { return m_file; } ///< of the database
    [[nodiscard]] bool Stopped() const { return m_stopped; }
    /// Lines whose values can't be: "Line 7: ..." as their key.
    [[nodiscard]] const QList<RefusedRow>& Refused() const { return m_refused; }
    [[nodiscard]] const QStringList& LeftBehind() const { return m_leftBehind; }

private:
    void Fill(const QString& text, const CsvLook& look, const WorkStep& step);
    void Remove() const;

    const TransferDesk m_desk;
    QString m_file;
    bool m_stopped = false;
    QList<RefusedRow> m_refused;
    QStringList m_leftBehind;
};

} // namespace vasclip::upkeep
