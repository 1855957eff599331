#pragma once

#include "store/data_source.h"

namespace vasclip::store {

/// The records of a SELECT with their long fields in pieces, beside every cursor.
class LongRows
{
public:
    /// @throws RuntimeError as Database::OpenRecordset
    LongRows(engine::Database& database, const QString& sql);

    [[nodiscard]] qint64 Count() const;
    /// Stands on the record of a place. @return false for one that is gone meanwhile
    [[nodiscard]] bool StandOn(qint64 place);
    [[nodiscard]] QString Text(const QString& field) const; ///< as stored, "" for Null
    [[nodiscard]] qint64 Size(const QString& field) const;
    [[nodiscard]] QByteArray Chunk(const QString& field, qint64 offset, qint64 bytes) const;

private:
    std::unique_ptr<engine::Recordset> m_rows;
};

} // namespace vasclip::store
