#include "platform/engine/jet/new_database.h"

#include "platform/engine/errors.h"
#include "platform/engine/jet/new_rows.h"
#include "platform/engine/sql_typer.h"
#include "platform/engine/table_recordset.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

FileWriter& Making::Need() const
{
    if (!writer)
        throw RuntimeError(error::kClosed, u"The database %1 is closed"_s.arg(path));
    return *writer;
}

std::unique_ptr<Recordset> NewDatabase::OpenRecordset(const QString& source, RecordsetType type)
{
    if (type != RecordsetType::Table || source.trimmed().startsWith(u"SELECT "_s, Qt::CaseInsensitive))
        throw RuntimeError(error::kInvalidOperation,
                           u"%1 is still being made: records can be added to its tables and nothing else"_s.arg(Path()));
    return std::make_unique<TableRecordset>(OpenRows(sql::WholeTable(Table(source.trimmed()))));
}

std::unique_ptr<RowStore> NewDatabase::OpenRows(const sql::TypedStatement& select)
{
    return std::make_unique<NewRows>(m_making, select);
}

qint64 NewDatabase::Execute(const QString&)
{
    throw RuntimeError(error::kInvalidOperation,
                       u"%1 is still being made: copy records into it from the database that has them"_s.arg(Path()));
}

QStringList NewDatabase::TableNames() const
{
    QStringList names;
    for (const auto& table : m_making->Need().Tables())
        names.append(table->Table().name);
    return names;
}

TableDef NewDatabase::Table(const QString& name) const
{
    static_cast<void>(m_making->Need());
    const auto found = m_making->tables.find(name.trimmed().toUpper());
    if (found == m_making->tables.end())
        throw RuntimeError(error::kTableUnknown, u"There is no table '%1' in %2"_s.arg(name, Path()));
    return found->second;
}

void NewDatabase::CreateTable(const TableDef& table)
{
    m_making->Need().AddTable(table);
    m_making->tables[table.name.toUpper()] = table;
}

void NewDatabase::AppendField(const QString&, const Field&)
{
    throw RuntimeError(error::kInvalidOperation, u"A table of %1 gets all its fields when it is made"_s.arg(Path()));
}

void NewDatabase::AppendIndex(const QString&, const IndexDef&)
{
    throw RuntimeError(error::kInvalidOperation, u"A table of %1 gets all its indexes when it is made"_s.arg(Path()));
}

void NewDatabase::Rollback()
{
    --m_begun;
    m_making->writer.reset();
}

void NewDatabase::Close()
{
    if (!m_making->writer)
        return;
    const auto writer = std::move(m_making->writer);
    writer->Finish(m_making->time->Now());
    m_making->notes = writer->Notes();
}

QString NewRows::WhyReadOnly() const
{
    return u"%1 is still being made"_s.arg(m_making->path);
}

NewRows::NewRows(std::shared_ptr<Making> making, const sql::TypedStatement& select)
    : m_making(std::move(making))
{
    m_shape.table = select.from.table;
    for (const sql::TypedColumn& column : select.columns) {
        m_shape.fields.append(column.field);
        m_shape.sources.push_back(column.source);
    }
}

Bookmark NewRows::Insert(const RowChanges& values)
{
    TableWriter* const table = m_making->Need().Find(m_shape.table.name);
    QVariantList row(m_shape.table.fields.size());
    for (const auto& [field, value] : values)
        row[field] = value;
    table->Add(row);
    return Bookmark{++m_added};
}

} // namespace vasclip::engine::jet
