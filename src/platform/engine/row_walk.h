#pragma once

#include "platform/engine/database.h"
#include "platform/engine/row_store.h"
#include "platform/engine/rows_at_once.h"

namespace vasclip::engine {

/// Goes once through all rows of a table in the order of insertion, reads some of their fields in pieces, and changes or
/// deletes the one that it stands on. It is for a transaction that the caller holds: what fails, fails for all of them. A row
/// is changed only as it was read; what a statement or a record set of this engine changes meanwhile is read anew.
class RowWalk
{
public:
    /// @param fields  none that holds a long binary value. @throws 3078, 3265
    RowWalk(Database& database, const QString& table, const QStringList& fields);

    [[nodiscard]] qint64 Count() const { return static_cast<qint64>(m_ids.size()); }
    [[nodiscard]] const FieldList& Fields() const { return m_fields; }
    /// To the next row that is there still. @return false behind the last one
    [[nodiscard]] bool Next();
    [[nodiscard]] const QVariant& Value(int field) const; ///< as set or read
    void Set(int field, const QVariant& value);           ///< @throws 3163, 3421
    /// Stores what was set, if anything was.
    /// @throws 3197 somebody changed the row, 3167 it is gone, 3314, 3058, and as RowStore::Update
    void Update();
    void Delete(); ///< @throws 3167

private:
    void Read();
    void CheckRequired(int source, const QVariant& value) const;

    std::unique_ptr<RowStore> m_rows;
    FieldList m_fields;
    QList<int> m_sources; ///< of each the field of the table
    std::vector<Bookmark> m_ids;
    RowsAtOnce m_atOnce;
    std::vector<std::optional<StoredRow>> m_read;
    std::size_t m_first = 0; ///< of m_ids that m_read begins with
    std::size_t m_next = 0;
    quint64 m_generation = 0; ///< of the store, as far as this walk knows its changes
    StoredRow m_row;
    Bookmark m_id{};
    RowChanges m_changes;
};

} // namespace vasclip::engine
