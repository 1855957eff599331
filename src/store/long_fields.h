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

} // namespace vasclip::store
