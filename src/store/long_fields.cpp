#include "store/long_fields.h"

#include "platform/engine/errors.h"

namespace vasclip::store {

LongRows::LongRows(engine::Database& database, const QString& sql)
    : m_rows(database.OpenRecordset(sql, engine::RecordsetType::Dynaset))
{}

qint64 LongRows::Count() const
{
    return m_rows->RecordCount();
}

bool LongRows::StandOn(qint64 place)
{
    try {
        m_rows->SetAbsolutePosition(place);
        static_cast<void>(m_rows->Value(0)); // the record is read now
        return true;
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kRecordDeleted)
            throw;
        return false;
    }
}

QString LongRows::Text(const QString& field) const
{
    return m_rows->Value(field).toString();
}

qint64 LongRows::Size(const QString& field) const
{
    return m_rows->FieldSize(field);
}

QByteArray LongRows::Chunk(const QString& field, qint64 offset, qint64 bytes) const
{
    return m_rows->GetChunk(field, offset, bytes);
}

} // namespace vasclip::store
