#include "forms/grid.h"

#include <algorithm>
#include <utility>

namespace vasclip::forms {

void Grid::SetColumns(const QList<GridColumn>& columns)
{
    if (m_columns == columns)
        return;
    m_columns = columns;
    Q_EMIT ColumnsChanged();
}

int Grid::ColumnOf(const QString& field) const
{
    for (int i = 0; i < m_columns.size(); ++i)
        if (m_columns.at(i).field.compare(field, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

bool Grid::ShowColumn(int column, bool visible)
{
    if (column < 0 || column >= m_columns.size())
        return false;
    const auto shown =
        std::count_if(m_columns.begin(), m_columns.end(), [](const GridColumn& one) { return one.visible; });
    if (!visible && m_columns.at(column).visible && (m_columns.at(column).fixed || shown == 1))
        return false;
    QList<GridColumn> columns = m_columns;
    columns[column].visible = visible;
    SetColumns(columns);
    return true;
}

int Grid::MoveColumn(int column, int places)
{
    if (column < 0 || column >= m_columns.size())
        return column;
    const int step = places < 0 ? -1 : 1;
    int target = column;
    for (int at = column + step; places != 0 && at >= 0 && at < m_columns.size(); at += step) {
        if (!m_columns.at(at).visible)
            continue;
        target = at;
        places -= step;
    }
    QList<GridColumn> columns = m_columns;
    columns.move(column, target);
    SetColumns(columns);
    return target;
}

void Grid::ResizeColumn(int column, int width)
{
    if (column < 0 || column >= m_columns.size())
        return;
    QList<GridColumn> columns = m_columns;
    columns[column].width = std::clamp(width, kNarrowest, kWidest);
    SetColumns(columns);
}

void Grid::ClickHead(int column)
{
    if (column >= 0 && column < m_columns.size() && m_columns.at(column).sortable)
        Q_EMIT HeadClick(m_columns.at(column).field);
}

void Grid::Rebind(const GridSource* source, qint64 row)
{
    m_source = source;
    m_row = std::min(row, RowCount() - 1);
    SetSelected({});
    Q_EMIT Rebound();
    Q_EMIT RowColChange();
}

void Grid::SetRow(qint64 row)
{
    const qint64 count = RowCount();
    const qint64 kept = count == 0 ? -1 : std::clamp<qint64>(row, 0, count - 1);
    if (m_row == kept)
        return;
    m_row = kept;
    Q_EMIT RowColChange();
}

void Grid::StandNowhere()
{
    SetSelected({});
    if (std::exchange(m_row, -1) != -1)
        Q_EMIT RowColChange();
}

qint64 Grid::SelectedCount() const
{
    qint64 count = 0;
    for (const RowSpan& span : m_selected)
        count += span.last - span.first + 1;
    return count;
}

void Grid::SetSelected(const QList<RowSpan>& spans)
{
    if (m_selected == spans)
        return;
    m_selected = spans;
    Q_EMIT SelectionChanged();
}

QString Grid::CurrentText(const QString& field) const
{
    if (!m_source || m_row < 0)
        return {};
    const QStringList names = m_source->FieldNames();
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (names[i].compare(field, Qt::CaseInsensitive) == 0)
            return m_source->Row(m_row).value(i);
    }
    return {};
}

} // namespace vasclip::forms
