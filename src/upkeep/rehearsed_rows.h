#pragma once

#include "forms/grid.h"
#include "upkeep/rehearsal.h"

#include <vector>

namespace vasclip::upkeep {

/// The rows of a rehearsal for a grid: those that want a decision first, then refused, new and equal ones.
class RehearsedRows : public forms::GridSource
{
public:
    explicit RehearsedRows(const Rehearsal& rehearsal);

    [[nodiscard]] qint64 RowCount() const override { return static_cast<qint64>(m_order.size()); }
    [[nodiscard]] QStringList FieldNames() const override;
    [[nodiscard]] QStringList Row(qint64 row) const override;
    /// Place among the rehearsal's rows, -1 for none.
    [[nodiscard]] qsizetype PlaceOf(qint64 row) const;
    [[nodiscard]] static QList<forms::GridColumn> Columns();

private:
    const Rehearsal& m_rehearsal;
    std::vector<qsizetype> m_order;
};

/// The fields of one row beside those of the record that it meets.
class FieldRows : public forms::GridSource
{
public:
    void Take(QList<FieldPair> pairs) { m_pairs = std::move(pairs); }
    [[nodiscard]] qint64 RowCount() const override { return m_pairs.size(); }
    [[nodiscard]] QStringList FieldNames() const override;
    [[nodiscard]] QStringList Row(qint64 row) const override;
    [[nodiscard]] static QList<forms::GridColumn> Columns();

private:
    QList<FieldPair> m_pairs;
};

} // namespace vasclip::upkeep
