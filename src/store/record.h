#pragma once

#include "store/data_source.h"

#include <QHash>

#include <optional>

namespace vasclip::store {

/// A record as a value: what it held when it was read, whatever becomes of it and of the cursor.
class Record
{
public:
    using Names = QHash<QString, int>; ///< places of the fields by their names in capitals
    Record(std::shared_ptr<const Names> names, QVariantList values);

    [[nodiscard]] bool Has(const QString& field) const;
    /// Null of a long binary field too, which is not read. @throws RuntimeError 3265
    [[nodiscard]] QVariant Value(const QString& field) const;
    [[nodiscard]] QString Text(const QString& field) const; ///< trimmed, "" for Null. @throws RuntimeError 3265
    [[nodiscard]] const QVariantList& Values() const { return m_values; } ///< in the order of the fields

private:
    std::shared_ptr<const Names> m_names; ///< shared by all records of a source
    QVariantList m_values;
};

/// Reads the record of a key, of any case, from the table of a source. Neither its cursor nor its change under way
/// notices, and the queue does not turn.
/// @return nothing for a blank key or a record that is not there
/// @throws RuntimeError of the engine, 91 unbound
[[nodiscard]] std::optional<Record> ReadRecord(const DataSource& source, const QString& key);

/// The records of a SELECT as values, beside every cursor: their keys are read at once, a record when it is asked for.
class Rows
{
public:
    /// @throws RuntimeError of the engine: 3075, 3061, 3078 for a statement that is wrong
    Rows(engine::Database& database, const QString& sql);

    [[nodiscard]] qint64 Count() const;
    [[nodiscard]] const engine::FieldList& Fields() const;
    /// The next record, nothing behind the last. @throws RuntimeError 3167 for one that is gone meanwhile
    [[nodiscard]] std::optional<Record> Next();
    /// The record at a place from 0, nothing for one that is gone meanwhile. @throws RuntimeError 3021
    [[nodiscard]] std::optional<Record> At(qint64 place) const;
    [[nodiscard]] QVariant LongAt(qint64 place, int field) const; ///< long binary. @throws RuntimeError 3021, 3167
    [[nodiscard]] std::vector<qint64> PlacesOf(const std::vector<engine::Bookmark>& records) const; ///< each or -1

private:
    std::unique_ptr<engine::Recordset> m_rows;
    std::shared_ptr<const Record::Names> m_names;
    QList<int> m_read; ///< fields that are not long
    qint64 m_next = 0;
};

/// Reads what a SELECT finds in the database of a source. @throws as Rows, RuntimeError 91 unbound
[[nodiscard]] Rows ReadRows(const DataSource& source, const QString& sql);

/// Records of a table. @throws RuntimeError of the engine
[[nodiscard]] qint64 CountRows(engine::Database& database, const QString& table);

/// A cursor of a source that nobody sees.
class RecordReader
{
public:
    explicit RecordReader(const DataSource& source);
    [[nodiscard]] std::optional<Record> Read(const QString& key);
    [[nodiscard]] static RecordReader& Of(const DataSource& source);

private:
    std::unique_ptr<engine::Recordset> m_rows;
    std::shared_ptr<const Record::Names> m_names;
};

} // namespace vasclip::store
