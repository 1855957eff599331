#include "windows/record_model.h"

#include "databook/grid.h"
#include "windows/guard.h"
#include "windows/theme.h"

#include <QMetaObject>

#include <algorithm>
#include <limits>

namespace vasclip::windows {

namespace {
constexpr int kRowsKept = 600;
}

RecordModel::RecordModel(forms::Grid& grid, EventGuard& guard, QObject* parent)
    : QAbstractTableModel(parent)
    , m_grid(grid)
    , m_guard(guard)
    , m_cache(kRowsKept)
{
    Reset();
}

void RecordModel::Reset()
{
    beginResetModel();
    m_cache.clear();
    m_reported = false;
    m_columns = m_grid.Columns();
    m_fields.clear();
    m_rows = 0;
    if (const forms::GridSource* source = m_grid.Source()) {
        m_guard.Run([&] {
            m_fields = source->FieldNames();
            m_rows = static_cast<int>(std::min<qint64>(source->RowCount(), std::numeric_limits<int>::max()));
        });
    }
    m_fieldOf.clear();
    for (const forms::GridColumn& column : std::as_const(m_columns))
        m_fieldOf.append(static_cast<int>(m_fields.indexOf(column.field, 0)));
    endResetModel();
}

void RecordModel::Forget()
{
    const qint64 rows = m_grid.Source() ? m_grid.Source()->RowCount() : 0;
    if (rows != m_rows) {
        Reset();
        return;
    }
    m_cache.clear();
    m_reported = false;
    if (m_rows > 0 && !m_columns.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, static_cast<int>(m_columns.size()) - 1));
}

int RecordModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int RecordModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

const QStringList* RecordModel::Row(int row) const
{
    if (const QStringList* kept = m_cache.object(row))
        return kept;
    auto* read = new QStringList;
    try {
        if (m_grid.Source() != nullptr)
            *read = m_grid.Source()->Row(row);
    } catch (const RuntimeError& failure) {
        Failed(failure);
    } catch (const std::exception& failure) {
        Failed(RuntimeError(error::kCorruptDatabase, QString::fromLocal8Bit(failure.what())));
    }
    m_cache.insert(row, read);
    return read;
}

/// A view asks while it paints: the box comes when it is through.
void RecordModel::Failed(const RuntimeError& failure) const
{
    if (m_reported)
        return;
    m_reported = true;
    QMetaObject::invokeMethod(
        const_cast<RecordModel*>(this), [this, failure] { m_guard.Report(failure); }, Qt::QueuedConnection);
}

QString RecordModel::Text(int row, const QString& field) const
{
    const auto named = std::find_if(m_fields.cbegin(), m_fields.cend(), [&](const QString& name) {
        return name.compare(field, Qt::CaseInsensitive) == 0;
    });
    if (row < 0 || row >= m_rows || named == m_fields.cend())
        return {};
    return Row(row)->value(named - m_fields.cbegin());
}

QString RecordModel::Shown(const QString& stored, const forms::GridColumn& column) const
{
    const forms::GridSource* source = m_grid.Source();
    return databook::FormatCell(column, stored, source ? source->Today() : QDate());
}

QVariant RecordModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows || index.column() >= m_columns.size())
        return {};
    const forms::GridColumn& column = m_columns.at(index.column());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: {
        const int field = m_fieldOf.at(index.column());
        const QString shown = field < 0 ? QString() : Shown(Row(index.row())->value(field), column);
        return shown.isEmpty() && role == Qt::ToolTipRole ? QVariant() : shown;
    }
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | (column.rightAligned ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_columns.size())
        return {};
    const forms::GridColumn& column = m_columns.at(section);
    switch (role) {
    case Qt::DisplayRole:
        return column.caption;
    case Qt::ToolTipRole:
        return column.field;
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | (column.rightAligned ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

Qt::ItemFlags RecordModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled
                           : Qt::NoItemFlags;
}

} // namespace vasclip::windows
