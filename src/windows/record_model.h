#pragma once

#include "forms/grid.h"

#include <QAbstractTableModel>
#include <QCache>

namespace vasclip::windows {

class EventGuard;

/// The rows of a record grid as a view wants them. Asks the grid's source for a row when it is painted and
/// keeps the last few hundred.
class RecordModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    RecordModel(forms::Grid& grid, EventGuard& guard, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    void Reset();  ///< other rows or other columns
    void Forget(); ///< the same rows may read differently now
    /// Stored text of a field in a row, "" if the row is gone.
    [[nodiscard]] QString Text(int row, const QString& field) const;

private:
    const QStringList* Row(int row) const;
    [[nodiscard]] QString Shown(const QString& stored, const forms::GridColumn& column) const;
    void Failed(const RuntimeError& failure) const;

    forms::Grid& m_grid;
    EventGuard& m_guard;
    int m_rows = 0;
    QList<forms::GridColumn> m_columns;
    QList<int> m_fieldOf; ///< place in the source's row, by column
    QStringList m_fields;
    mutable QCache<int, QStringList> m_cache;
    mutable bool m_reported = false; ///< one box for a grid that cannot be read, not one a row
};

} // namespace vasclip::windows
