#include "platform/engine/jet/jet_database.h"

#include "platform/engine/dynaset.h"
#include "platform/engine/errors.h"
#include "platform/engine/jet/checker.h"
#include "platform/engine/jet/jet_row_store.h"
#include "platform/engine/sql_typer.h"
#include "platform/engine/table_recordset.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

class OwnTables final : public sql::Catalog
{
public:
    explicit OwnTables(Opening& opening)
        : m_opening(opening)
    {}
    const TableDef* Find(const QString& database, const QString& name) override
    {
        if (!database.isEmpty())
            throw RuntimeError(error::kInvalidOperation,
                               u"A statement on %1 reaches no other files: open the other one instead"_s.arg(
                                   m_opening.path));
        return &m_opening.Need(name).Rows().Def();
    }

private:
    Opening& m_opening;
};

} // namespace

void JetDatabase::Refuse() const
{
    m_opening->NeedOpen();
    throw RuntimeError(error::kFileIsReadOnly, m_opening->WhyReadOnly());
}

std::unique_ptr<Recordset> JetDatabase::OpenRecordset(const QString& source, RecordsetType type)
{
    const QString text = source.trimmed();
    const bool selects = text.startsWith(u"SELECT"_s, Qt::CaseInsensitive) &&
                         (text.size() == 6 || !(text[6].isLetterOrNumber() || text[6] == u'_'));
    if (!selects) {
        auto rows = OpenRows(sql::WholeTable(Table(text)));
        if (type == RecordsetType::Table)
            return std::make_unique<TableRecordset>(std::move(rows));
        return std::make_unique<Dynaset>(std::move(rows));
    }
    if (type == RecordsetType::Table)
        throw RuntimeError(error::kInvalidOperation, u"A query can not be opened as a table"_s);
    OwnTables catalog(*m_opening);
    const sql::TypedStatement statement = sql::Type(source, catalog, *m_opening->time);
    if (statement.kind != sql::Statement::Kind::Select)
        throw RuntimeError(error::kInvalidOperation, u"This statement changes data and gives no records to open"_s);
    return std::make_unique<Dynaset>(OpenRows(statement));
}

std::unique_ptr<RowStore> JetDatabase::OpenRows(const sql::TypedStatement& select)
{
    return std::make_unique<JetRowStore>(m_opening, select);
}

qint64 JetDatabase::Execute(const QString&)
{
    Refuse();
}

QStringList JetDatabase::TableNames() const
{
    m_opening->NeedOpen();
    QStringList names;
    for (const Catalogue::Entry& table : std::as_const(m_opening->catalogue.tables))
        names.append(table.name);
    return names;
}

TableDef JetDatabase::Table(const QString& name) const
{
    return m_opening->Need(name.trimmed()).Rows().Def();
}

void JetDatabase::CreateTable(const TableDef&)
{
    Refuse();
}

void JetDatabase::AppendField(const QString&, const Field&)
{
    Refuse();
}

void JetDatabase::AppendIndex(const QString&, const IndexDef&)
{
    Refuse();
}

void JetDatabase::EndTrans()
{
    if (m_begun == 0)
        throw RuntimeError(error::kNoTransaction, u"There is no transaction to end"_s);
    --m_begun;
}

QString JetDatabase::Damage() const
{
    return m_opening->findings->Lines().value(0);
}

QStringList JetDatabase::Check(CheckDepth depth)
{
    m_opening->NeedOpen();
    if (depth == CheckDepth::Whole)
        CheckFile(*m_opening);
    return m_opening->findings->Lines();
}

} // namespace vasclip::engine::jet
