#pragma once

#include "platform/engine/jet/table.h"
#include "platform/engine/row_store.h"

namespace vasclip::engine::jet {

[[nodiscard]] inline Bookmark BookmarkOf(RowPointer home)
{
    return Bookmark{static_cast<qint64>(home.Stored())};
}
[[nodiscard]] inline RowPointer PlaceOf(Bookmark id)
{
    return RowPointer::Of(static_cast<quint32>(static_cast<qint64>(id)));
}

/// A table's rows in the order in which they lie and in those of its indexes, each made when it is first asked for.
/// The order of an index is worked out by this engine's own rules of comparison: the stored one follows others.
class TableRows
{
public:
    explicit TableRows(std::unique_ptr<Table> table)
        : m_table(std::move(table))
    {}

    [[nodiscard]] Table& Rows() { return *m_table; }
    /// @param index  nullptr for the order in which they lie
    [[nodiscard]] const std::vector<Bookmark>& InOrder(const IndexDef* index);
    [[nodiscard]] std::optional<Stand> StandOf(const IndexDef* index, Bookmark id);
    /// How many rows come before a stand.
    [[nodiscard]] std::size_t PlaceOfStand(const IndexDef* index, const Stand& stand);
    [[nodiscard]] std::optional<Bookmark> Seek(const IndexDef& index, const QString& key);

private:
    [[nodiscard]] std::vector<int> FieldsOf(const IndexDef* index) const;
    [[nodiscard]] QVariantList KeyOf(const std::vector<int>& fields, Bookmark id);

    std::unique_ptr<Table> m_table;
    std::map<QString, std::vector<Bookmark>> m_orders; ///< by the index's name; "" as they lie
};

} // namespace vasclip::engine::jet
