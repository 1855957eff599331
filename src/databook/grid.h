#pragma once

#include "databook/record_desk.h"
#include "forms/grid.h"
#include "store/data_source.h"

#include <QDate>
#include <QObject>

#include <vector>

namespace vasclip::databook {

/// The SELECT of all records, letter for letter, without an ORDER BY.
[[nodiscard]] const QString& SelectAllText();
/// A SELECT of the program's own without those of its columns that a table has not, as one of an older layout.
[[nodiscard]] QString WithColumnsOf(const engine::TableDef& table, const QString& select);
/// " ORDER BY ..." for a SORTGRID of 1 to 6, "" for 0 and everything else.
[[nodiscard]] QString OrderByText(int sortGrid);

/// The SORTGRID that orders by a field, 0 for a field that none of the six orders has. Without regard to
/// case.
[[nodiscard]] int SortGridOf(const QString& field);
/// Lets the next display come in the order of a field: sets the SORTGRID setting, and the order of a search
/// on display. @return false, changing nothing, for a field without an order
bool SortBy(GridState& state, int& sortGrid, const QString& field);

/// The rows of a dynaset for a grid. They are asked for as they are shown; the last few screens of them are
/// kept until the source is refreshed or Forget is called. The source outlives this.
class GridRows : public forms::GridSource
{
public:
    explicit GridRows(const store::DataSource& source);

    [[nodiscard]] qint64 RowCount() const override; ///< 0 for a source that is not open
    [[nodiscard]] QStringList FieldNames() const override;
    [[nodiscard]] QStringList Row(qint64 row) const override;
    [[nodiscard]] QDate Today() const override { return m_source.Engine().Time().Today(); }

    /// From now on a repaint of the grid reads the rows again.
    void Follow(const forms::Grid& grid);

    void Forget(); ///< reads rows again; call after changing a record

    static constexpr std::size_t kKeptRows = 512;

private:
    struct Kept
    {
        qint64 row = -1;
        QStringList texts;
    };
    [[nodiscard]] QStringList Read(qint64 row) const;
    const QList<int>& Fields() const;

    const store::DataSource& m_source;
    mutable std::vector<Kept> m_kept;
    mutable QList<int> m_fields;
    QObject m_context; ///< ends the connections
    QMetaObject::Connection m_repaint;
};

/// The default column plan: every column of the SELECT in its order, visible, with a caption for people.
[[nodiscard]] const QList<forms::GridColumn>& DefaultColumns();

/// With mode "DEFAULT" gives the grid the default plan; any other mode leaves the columns as they are. Then
/// sets the formats.
void SetGridSettings(forms::Grid& grid, const QString& mode);

/// SALEDATE and LOADDATE show as "Short Date", FRONT asks FormatCell ("FormatText Event").
void SetFormatText(forms::Grid& grid);

/// What a cell shows for a stored text: dates in the user's short form ("01/01/1900", a pending sale, as it
/// is stored), a mark for a record with a front photo, photo views in one line. Everything else on one line
/// as stored.
[[nodiscard]] QString FormatCell(const forms::GridColumn& column, const QString& stored, QDate today);

/// Shows all records, or the search that is on display, in the order of SORTGRID.
/// `txtcentralkey` takes the key of the current row. The settings' pending filter does not reach this.
/// @throws RuntimeError for what the central error block does not handle; the grid then shows what it did
/// before
void DisplayAllRecords(const forms::Ports& ports, RecordDesk& desk, store::DataSource& datsql, GridRows& rows,
                       int sortGrid);

} // namespace vasclip::databook
