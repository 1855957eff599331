#include "store/record.h"

#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "store/messages.h"

using namespace Qt::StringLiterals;

namespace vasclip::store {

namespace {

std::shared_ptr<const Record::Names> NamesOf(const engine::FieldList& fields)
{
    Record::Names names;
    for (int i = 0; i < fields.size(); ++i) {
        // A name may be there twice; the first one answers.
        if (const QString name = fields.at(i).name.toUpper(); !names.contains(name))
            names.insert(name, i);
    }
    return std::make_shared<const Record::Names>(std::move(names));
}

} // namespace

Record::Record(std::shared_ptr<const Names> names, QVariantList values)
    : m_names(std::move(names))
    , m_values(std::move(values))
{}

bool Record::Has(const QString& field) const
{
    return m_names->contains(field.toUpper());
}

QVariant Record::Value(const QString& field) const
{
    const auto place = m_names->constFind(field.toUpper());
    if (place == m_names->cend())
        throw RuntimeError(error::kFieldUnknown, u"The record has no field %1"_s.arg(field));
    return m_values.at(*place);
}

QString Record::Text(const QString& field) const
{
    return text::Trim(Value(field).toString());
}

Rows::Rows(engine::Database& database, const QString& sql)
    : m_rows(database.OpenRecordset(sql, engine::RecordsetType::Dynaset))
    , m_names(NamesOf(m_rows->Fields()))
{
    for (int i = 0; i < m_rows->Fields().size(); ++i)
        if (m_rows->Fields().at(i).type != engine::FieldType::LongBinary)
            m_read.append(i);
}

qint64 Rows::Count() const
{
    return m_rows->RecordCount();
}

const engine::FieldList& Rows::Fields() const
{
    return m_rows->Fields();
}

std::optional<Record> Rows::Next()
{
    if (m_next >= Count())
        return std::nullopt;
    std::optional<Record> record = At(m_next++);
    if (!record)
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
    return record;
}

std::optional<Record> Rows::At(qint64 place) const
{
    QVariantList read;
    if (!m_read.isEmpty()) {
        read = m_rows->Peek(place, m_read);
        if (read.isEmpty())
            return std::nullopt;
    }
    if (read.size() == m_rows->Fields().size())
        return Record(m_names, std::move(read));
    QVariantList values(m_rows->Fields().size());
    for (qsizetype i = 0; i < read.size(); ++i)
        values[m_read.at(i)] = read.at(i);
    return Record(m_names, std::move(values));
}

QVariant Rows::LongAt(qint64 place, int field) const
{
    m_rows->SetAbsolutePosition(place);
    return m_rows->Value(field);
}

std::vector<qint64> Rows::PlacesOf(const std::vector<engine::Bookmark>& records) const
{
    return m_rows->PositionsOf(records);
}

Rows ReadRows(const DataSource& source, const QString& sql)
{
    return Rows(source.Database(), sql);
}

qint64 CountRows(engine::Database& database, const QString& table)
{
    return database.OpenRecordset(table, engine::RecordsetType::Table)->RecordCount();
}

RecordReader::RecordReader(const DataSource& source)
    : m_rows(source.Database().OpenRecordset(source.RecordSource(), engine::RecordsetType::Table))
    , m_names(NamesOf(m_rows->Fields()))
{
    m_rows->SetIndex(kKeyIndex);
}

std::optional<Record> RecordReader::Read(const QString& key)
{
    const QString wanted = text::Trim(key);
    if (wanted.isEmpty())
        return std::nullopt;
    m_rows->Seek(u"="_s, wanted);
    if (m_rows->NoMatch())
        return std::nullopt;
    QVariantList values;
    values.reserve(m_rows->Fields().size());
    for (int i = 0; i < m_rows->Fields().size(); ++i)
        values.append(m_rows->Fields().at(i).type == engine::FieldType::LongBinary ? QVariant() : m_rows->Value(i));
    return Record(m_names, std::move(values));
}

RecordReader& RecordReader::Of(const DataSource& source)
{
    if (!source.m_reader)
        source.m_reader = std::make_unique<RecordReader>(source);
    return *source.m_reader;
}

std::optional<Record> ReadRecord(const DataSource& source, const QString& key)
{
    return RecordReader::Of(source).Read(key);
}

} // namespace vasclip::store
