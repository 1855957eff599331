#include "store/record.h"

#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/messages.h"

using namespace Qt::StringLiterals;

namespace vasclip::store {

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

RecordReader::RecordReader(const DataSource& source)
    : m_rows(source.Database().OpenRecordset(source.RecordSource(), engine::RecordsetType::Table))
{
    m_rows->SetIndex(kKeyIndex);
    Record::Names names;
    for (int i = 0; i < m_rows->Fields().size(); ++i)
        names.insert(m_rows->Fields().at(i).name.toUpper(), i);
    m_names = std::make_shared<const Record::Names>(std::move(names));
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
