#include "forms/grid.h"

#include <algorithm>

namespace vasclip::forms {

void Grid::SetColumns(const QList<GridColumn>& columns)
{
    if (m_columns == columns)
        return;
    m_columns = columns;
    Q_EMIT ColumnsChanged();
}

void Grid::Rebind(const GridSource* source)
{
    m_source = source;
    m_row = source && source->RowCount() > 0 ? 0 : -1;
    Q_EMIT Rebound();
    Q_EMIT RowColChange();
}

void Grid::SetRow(qint64 row)
{
    const qint64 count = m_source ? m_source->RowCount() : 0;
    const qint64 kept = count == 0 ? -1 : std::clamp<qint64>(row, 0, count - 1);
    if (m_row == kept)
        return;
    m_row = kept;
    Q_EMIT RowColChange();
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
