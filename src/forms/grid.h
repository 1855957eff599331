#pragma once

#include "forms/controls.h"

namespace vasclip::forms {

/// Where a grid takes its rows from. Rows are asked for as they are shown.
class GridSource
{
public:
    virtual ~GridSource() = default;
    [[nodiscard]] virtual qint64 RowCount() const = 0;
    [[nodiscard]] virtual QStringList FieldNames() const = 0;
    /// The stored texts of a whole row, one for each field name; empty if the row is gone.
    [[nodiscard]] virtual QStringList Row(qint64 row) const = 0;
    /// Whose year dates without one are of; an invalid day leaves them as they are stored.
    [[nodiscard]] virtual QDate Today() const { return {}; }
};

struct GridColumn
{
    QString field; ///< field name of the source
    QString caption;
    int width = 90; ///< device-independent pixels
    bool visible = true;
    QString numberFormat = {}; ///< "" as stored, "Short Date", or "FormatText Event"
    bool rightAligned = false;
    bool sortable = false; ///< a click on its heading means something
    bool fixed = false;    ///< may not be hidden
    bool operator==(const GridColumn&) const = default;
};

/// Rows from one to another, both of them too.
struct RowSpan
{
    qint64 first = 0;
    qint64 last = 0;
    bool operator==(const RowSpan&) const = default;
};

/// A bound record grid: columns in their shown order, the current row, and a source.
class Grid : public Control
{
    Q_OBJECT
public:
    using Control::Control;

    [[nodiscard]] const QList<GridColumn>& Columns() const { return m_columns; }
    void SetColumns(const QList<GridColumn>& columns);
    [[nodiscard]] int ColumnOf(const QString& field) const; ///< without regard to case; -1 if there is none
    /// Shows or hides a column. @return false if it may not be hidden: it is fixed, or the last one on show
    bool ShowColumn(int column, bool visible);
    /// Moves a column by so many visible places, to the left if negative, as far as there are any.
    /// @return where it stands now
    int MoveColumn(int column, int places);
    void ResizeColumn(int column, int width); ///< kept between kNarrowest and kWidest
    /// The user clicked a heading. Nothing happens for a column that is not sortable.
    void ClickHead(int column);

    static constexpr int kNarrowest = 28;
    static constexpr int kWidest = 2000;

    [[nodiscard]] const GridSource* Source() const { return m_source; }
    [[nodiscard]] qint64 RowCount() const { return m_source == nullptr ? 0 : m_source->RowCount(); }
    /// Takes a source (not owned; nullptr empties the grid) and stands on a row of it, -1 for none.
    /// Raises Rebound, then RowColChange, since the current record is another one.
    void Rebind(const GridSource* source, qint64 row = 0);
    void Refresh() { Q_EMIT Repaint(); }

    /// What stands in place of rows where there are none; "" speaks of records.
    [[nodiscard]] const QString& EmptyWords() const { return m_emptyWords; }
    void SetEmptyWords(const QString& words) { m_emptyWords = words; } ///< shown with the next Rebind

    [[nodiscard]] qint64 Row() const { return m_row; } ///< -1 for an empty grid
    void SetRow(qint64 row); ///< kept within the rows; raises RowColChange if it differs
    /// On no row, though there are rows: what is spoken of is not among them. Raises RowColChange if it
    /// stood on one.
    void StandNowhere();

    /// The rows that the user has selected; none once the grid takes a source.
    [[nodiscard]] const QList<RowSpan>& Selected() const { return m_selected; }
    [[nodiscard]] qint64 SelectedCount() const;
    void SetSelected(const QList<RowSpan>& spans);
    /// Stored text of a field in the current row, "" if there is none.
    [[nodiscard]] QString CurrentText(const QString& field) const;

Q_SIGNALS:
    void ColumnsChanged();
    void HeadClick(const QString& field);
    void Rebound();
    void Repaint();
    void RowColChange();
    void SelectionChanged();

private:
    QList<GridColumn> m_columns;
    const GridSource* m_source = nullptr;
    qint64 m_row = -1;
    QList<RowSpan> m_selected;
    QString m_emptyWords;
};

} // namespace vasclip::forms
