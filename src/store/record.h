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

private:
    std::shared_ptr<const Names> m_names; ///< shared by all records of a source
    QVariantList m_values;
};

/// Reads the record of a key, of any case, from the table of a source. Neither its cursor nor its change under way
/// notices, and the queue does not turn.
/// @return nothing for a blank key or a record that is not there
/// @throws RuntimeError of the engine, 91 unbound
[[nodiscard]] std::optional<Record> ReadRecord(const DataSource& source, const QString& key);

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
