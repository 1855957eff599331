#pragma once

#include "store/data_source.h"

namespace vasclip::store {

// Long binary and memo fields of the record on which a source stands, in pieces.

/// Bytes of a long binary field, characters of a memo; 0 for Null. @throws RuntimeError 3021, 3265
[[nodiscard]] qint64 FieldSize(const DataSource& source, const QString& field);
/// @throws RuntimeError 3021, 3219 for a field that is not read in pieces, 3265
[[nodiscard]] QByteArray GetChunk(const DataSource& source, const QString& field, qint64 offset, qint64 bytes);
/// Adds to the field within the change under way; the first piece replaces what the record holds.
/// @throws RuntimeError 3020 without a change, 3219, 3265
void AppendChunk(DataSource& source, const QString& field, const QByteArray& bytes);

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
