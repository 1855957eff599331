#include "platform/engine/row_walk.h"

#include "platform/engine/errors.h"
#include "platform/engine/sql_typer.h"
#include "platform/engine/values.h"

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

RowWalk::RowWalk(Database& database, const QString& table, const QStringList& fields)
    : m_rows(database.OpenRows(sql::WholeTable(database.Table(table))))
{
    const FieldList& all = m_rows->Shape().table.fields;
    for (const QString& name : fields) {
        const auto found = std::find_if(all.begin(), all.end(), [&](const Field& field) {
            return field.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == all.end())
            throw RuntimeError(error::kFieldUnknown, u"There is no field '%1' in '%2'"_s.arg(name, table));
        m_sources.append(static_cast<int>(found - all.begin()));
        m_fields.append(*found);
    }
    m_rows->ReadKeys([this](std::span<const Bookmark> some) {
        m_ids.insert(m_ids.end(), some.begin(), some.end());
        return true;
    });
}

void RowWalk::Read()
{
    m_first = m_next;
    m_read.clear();
    m_generation = m_rows->Generation();
    m_read = m_rows->Read(std::span(m_ids).subspan(m_first, std::min(m_atOnce.Next(), m_ids.size() - m_first)), m_sources,
                          Longs::Sizes);
    m_atOnce.Saw(m_read);
}

bool RowWalk::Next()
{
    m_changes.clear();
    while (m_next < m_ids.size()) {
        if (m_next >= m_first + m_read.size() || m_generation != m_rows->Generation())
            Read();
        std::optional<StoredRow>& row = m_read[m_next - m_first];
        m_id = m_ids[m_next++];
        if (!row)
            continue;
        m_row = std::move(*row);
        return true;
    }
    return false;
}

const QVariant& RowWalk::Value(int field) const
{
    const auto changed = m_changes.find(m_sources.at(field));
    return changed == m_changes.end() ? m_row.values.at(field) : changed->second;
}

void RowWalk::Set(int field, const QVariant& value)
{
    m_changes[m_sources.at(field)] = FitToField(m_fields.at(field), value, m_rows->Time());
}

void RowWalk::CheckRequired(int source, const QVariant& value) const
{
    if (value.isValid())
        return;
    const TableDef& table = m_rows->Shape().table;
    const Field& field = table.fields.at(source);
    if (field.required)
        ThrowNeeded(field.name);
    for (const IndexDef& index : table.indexes)
        if (index.primary && index.fields.contains(field.name, Qt::CaseInsensitive))
            throw RuntimeError(error::kKeyIsNull, u"The key field '%1' needs a value"_s.arg(field.name));
}

void RowWalk::Update()
{
    if (m_changes.empty())
        return;
    for (const auto& [source, value] : m_changes)
        CheckRequired(source, value);
    const bool known = m_generation == m_rows->Generation();
    switch (m_rows->Update(m_id, m_row.version, m_changes)) {
    case UpdateOutcome::Done:
        break;
    case UpdateOutcome::Gone:
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else meanwhile"_s);
    case UpdateOutcome::Changed:
        throw RuntimeError(error::kDataChanged, u"The data has changed: somebody else changed this record meanwhile. "
                                                "Nothing was stored"_s);
    }
    if (known)
        m_generation = m_rows->Generation();
}

void RowWalk::Delete()
{
    const bool known = m_generation == m_rows->Generation();
    if (!m_rows->Delete(m_id))
        throw RuntimeError(error::kRecordDeleted, u"The record was already deleted by somebody else"_s);
    if (known)
        m_generation = m_rows->Generation();
}

} // namespace vasclip::engine
