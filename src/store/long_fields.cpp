#include "store/long_fields.h"

namespace vasclip::store {

qint64 FieldSize(const DataSource& source, const QString& field)
{
    return source.Recordset().FieldSize(field);
}

QByteArray GetChunk(const DataSource& source, const QString& field, qint64 offset, qint64 bytes)
{
    return source.Recordset().GetChunk(field, offset, bytes);
}

void AppendChunk(DataSource& source, const QString& field, const QByteArray& bytes)
{
    source.Recordset().AppendChunk(field, bytes);
}

} // namespace vasclip::store
