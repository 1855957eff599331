#include "platform/engine/sqlite/sqlite_database.h"

#include "platform/engine/copier.h"
#include "platform/engine/dynaset.h"
#include "platform/engine/errors.h"
#include "platform/engine/sqlite/schema_tables.h"
#include "platform/engine/sqlite/sqlite_row_store.h"
#include "platform/engine/table_recordset.h"
#include "platform/files/native.h"

#include <QFileInfo>

#include <sqlite3.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Finds the tables of the open database and of those that a statement names by their path.
class SessionCatalog final : public sql::Catalog
{
public:
    explicit SessionCatalog(const Session& session)
        : m_session(session)
    {}

    /// The SQLite schema of a database, which is attached if it is another one.
    QString Schema(const QString& database)
    {
        if (database.isEmpty())
            return u"main"_s;
        const QString path = PathOf(database);
        const QString native = NativeOf(path);
        if (native.isEmpty())
            throw RuntimeError(
                error::kDatabaseNotFound,
                u"Could not find the file %1. Make sure that its name and directory are right"_s.arg(path));
        // SQLite lets a file that is open for reading reach no other one for writing.
        const bool readOnly = m_session.Open().ReadOnly() || !files::native::MayWrite(native) ||
                              (m_session.workspace->disk->GetAttr(path) & files::ReadOnly) != 0;
        return m_session.Open().Attach(native, path, readOnly);
    }

    /// A database of another kind; null for the open one and for files that can be attached.
    std::shared_ptr<Database> Foreign(const QString& database)
    {
        if (database.isEmpty())
            return nullptr;
        const auto known = m_foreign.constFind(database);
        if (known != m_foreign.constEnd())
            return *known;
        return *m_foreign.insert(database, m_session.workspace->openForeign(PathOf(database)));
    }

    const TableDef* Find(const QString& database, const QString& table) override
    {
        if (const auto foreign = Foreign(database)) {
            if (!foreign->TableNames().contains(table, Qt::CaseInsensitive))
                return nullptr;
            m_found.push_back(std::make_unique<TableDef>(foreign->Table(table)));
            return m_found.back().get();
        }
        const TableDef* found = m_session.Open().FindTable(table, Schema(database));
        if (!found)
            return nullptr;
        // The list that it stands in may be read again while the statement is translated.
        m_found.push_back(std::make_unique<TableDef>(*found));
        return m_found.back().get();
    }

private:
    /// "" for a file that is not there.
    [[nodiscard]] QString NativeOf(const QString& path) const
    {
        return QFileInfo(m_session.workspace->disk->ToNative(path)).canonicalFilePath();
    }

    /// The extension may be left out.
    [[nodiscard]] QString PathOf(const QString& database) const
    {
        const bool bare = !m_session.workspace->disk->Found(database) &&
                          database.lastIndexOf(u'.') <= database.lastIndexOf(u'\\');
        return bare ? database + u".MDB"_s : database;
    }

    const Session& m_session;
    std::vector<std::unique_ptr<TableDef>> m_found;
    QHash<QString, std::shared_ptr<Database>> m_foreign;
};

/// Attached files go when the statement is done, unless a transaction still needs them.
struct Detaching
{
    explicit Detaching(Connection& connection)
        : owner(connection)
    {}
    ~Detaching() { owner.DetachAll(); }
    Detaching(const Detaching&) = delete;
    Detaching& operator=(const Detaching&) = delete;
    Connection& owner;
};

void CheckName(const QString& name, const QString& what)
{
    constexpr int kLongest = 64;
    const bool bad = name.trimmed().isEmpty() || name.size() > kLongest || name.contains(u'\n') ||
                     name.contains(QChar(0)) || name.contains(u'[') || name.contains(u']') ||
                     name.startsWith(u"vas_"_s, Qt::CaseInsensitive) ||
                     name.startsWith(u"sqlite_"_s, Qt::CaseInsensitive);
    if (bad)
        throw RuntimeError(error::kSyntax,
                           u"'%1' can not be the name of a %2"_s.arg(name.left(kLongest), what));
}

bool HasField(const TableDef& table, const QString& name)
{
    return std::any_of(table.fields.begin(), table.fields.end(), [&](const Field& field) {
        return field.name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

SqliteDatabase::~SqliteDatabase()
{
    // A transaction that nobody ended is taken back; record sets keep the file itself open.
    for (; m_begun > 0 && m_session->connection; --m_begun) {
        try {
            m_session->connection->Rollback();
        } catch (const RuntimeError&) {
            break; // SQLite does it when the file closes
        }
    }
}

const TableDef& SqliteDatabase::NeedTable(const QString& name) const
{
    const TableDef* table = Open().FindTable(name.trimmed());
    if (!table)
        throw RuntimeError(
            error::kTableUnknown,
            u"There is no table '%1' in %2. Make sure that its name is spelled correctly"_s.arg(
                name, m_session->path));
    return *table;
}

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(const QString& source, RecordsetType type)
{
    Connection& connection = Open();
    const QString text = source.trimmed();
    const bool selects = text.startsWith(u"SELECT"_s, Qt::CaseInsensitive) &&
                         (text.size() == 6 || !(text[6].isLetterOrNumber() || text[6] == u'_'));
    if (!selects) {
        auto store = OpenRows(sql::WholeTable(NeedTable(text)));
        if (type == RecordsetType::Table)
            return std::make_unique<TableRecordset>(std::move(store));
        return std::make_unique<Dynaset>(std::move(store));
    }
    if (type == RecordsetType::Table)
        throw RuntimeError(error::kInvalidOperation, u"A query can not be opened as a table"_s);
    const Detaching detaching(connection);
    SessionCatalog catalog(*m_session);
    const sql::TypedStatement statement = sql::Type(source, catalog, *m_session->workspace->time);
    if (statement.kind != sql::Statement::Kind::Select)
        throw RuntimeError(error::kInvalidOperation,
                           u"This statement changes data and gives no records to open"_s);
    if (catalog.Foreign(statement.from.database) || catalog.Schema(statement.from.database) != u"main")
        throw RuntimeError(error::kInvalidOperation,
                           u"Only tables of the open database can be opened: open the other one instead"_s);
    return std::make_unique<Dynaset>(OpenRows(statement));
}

std::unique_ptr<RowStore> SqliteDatabase::OpenRows(const sql::TypedStatement& select)
{
    static_cast<void>(Open());
    return std::make_unique<SqliteRowStore>(m_session,
                                            sql::Print(select, [](const QString&) { return u"main"_s; }));
}

void SqliteDatabase::NeedUpdatable() const
{
    static_cast<void>(Open());
    if (!m_session->Updatable())
        throw RuntimeError(error::kFileIsReadOnly, m_session->WhyReadOnly());
}

void SqliteDatabase::NeedUnused(const QString& table) const
{
    Connection& connection = Open();
    if (connection.InUse(table) || Companion::HasOthers(connection.NativePath()))
        throw RuntimeError(
            error::kTableLocked,
            u"The database engine could not lock table '%1' because it is already in use by another "
            "person or process"_s.arg(table));
}

qint64 SqliteDatabase::Execute(const QString& text)
{
    using Kind = sql::Statement::Kind;
    Connection& connection = Open();
    const Detaching detaching(connection);
    SessionCatalog catalog(*m_session);
    const sql::TypedStatement statement = sql::Type(text, catalog, *m_session->workspace->time);
    if (statement.kind == Kind::Select)
        throw RuntimeError(error::kInvalidOperation, u"A SELECT gives records: open it as a record set"_s);
    const auto from = catalog.Foreign(statement.from.database);
    const auto into = catalog.Foreign(statement.into.database);
    if (from || into) {
        const auto isThird = [&catalog](const QString& database) {
            return !database.isEmpty() && catalog.Schema(database) != u"main";
        };
        const bool third = (from && into) || (!from && isThird(statement.from.database)) ||
                           (!into && isThird(statement.into.database));
        return CopyBetween(statement, from.get(), into.get(), third);
    }
    const sql::Plan plan =
        sql::Print(statement, [&catalog](const QString& database) { return catalog.Schema(database); });
    const bool own = plan.targetSchema == u"main";
    if (own || m_session->mode == OpenMode::ReadOnly)
        NeedUpdatable();
    if (plan.kind == Kind::Drop && own)
        NeedUnused(plan.table.name);
    Writing writing(connection);
    const qint64 rows = Work(plan);
    writing.Commit();
    connection.Touch();
    return rows;
}

qint64 SqliteDatabase::CopyBetween(const sql::TypedStatement& statement, Database* from, Database* into, bool third)
{
    using Kind = sql::Statement::Kind;
    const bool copies = statement.kind == Kind::InsertSelect || statement.kind == Kind::SelectInto;
    if (!copies || third)
        throw RuntimeError(error::kInvalidOperation,
                           u"Between databases of different kinds, records can only be copied from or into the "
                           "open one: open the other one instead"_s);
    if (into && Open().Depth() > 0)
        throw RuntimeError(error::kTooManyDatabases,
                           u"A transaction on %1 can not reach %2, which is a database of another kind. End it "
                           "first"_s.arg(m_session->path, into->Path()));
    if (!into)
        NeedUpdatable();
    return CopyRows(statement, from ? *from : *this, into ? *into : *this);
}

qint64 SqliteDatabase::Work(const sql::Plan& plan)
{
    Connection& connection = Open();
    using Kind = sql::Statement::Kind;
    if (plan.kind == Kind::Drop) {
        DropTable(connection, plan.targetSchema, plan.table.name);
        return 0;
    }
    if (plan.kind == Kind::SelectInto) {
        CheckName(plan.newTable.name, u"table"_s);
        for (const Field& field : plan.newTable.fields)
            CheckName(field.name, u"field"_s);
        StoreTable(connection, plan.targetSchema, plan.newTable);
    }
    Query query(connection, plan.sql);
    query.BindAll(plan.bindings).Run();
    return sqlite3_changes64(connection.Handle());
}

QStringList SqliteDatabase::TableNames() const
{
    QStringList names;
    for (const TableDef& table : Open().Tables())
        names.append(table.name);
    return names;
}

TableDef SqliteDatabase::Table(const QString& name) const
{
    return NeedTable(name);
}

void SqliteDatabase::CreateTable(const TableDef& table)
{
    NeedUpdatable();
    CheckName(table.name, u"table"_s);
    Connection& connection = Open();
    if (connection.FindTable(table.name))
        throw RuntimeError(error::kTableExists, u"The table '%1' already exists"_s.arg(table.name));
    TableDef seen;
    for (const Field& field : table.fields) {
        CheckName(field.name, u"field"_s);
        if (HasField(seen, field.name))
            throw RuntimeError(error::kFieldDefinedTwice,
                               u"The field '%1' is defined more than once"_s.arg(field.name));
        seen.fields.append(field);
    }
    for (const IndexDef& index : table.indexes) {
        for (const QString& name : index.fields) {
            if (!HasField(table, name))
                throw RuntimeError(error::kFieldUnknown,
                                   u"There is no field '%1' to index in '%2'"_s.arg(name, table.name));
        }
    }
    Writing writing(connection);
    StoreTable(connection, u"main"_s, table);
    writing.Commit();
}

void SqliteDatabase::AppendField(const QString& tableName, const Field& field)
{
    NeedUpdatable();
    CheckName(field.name, u"field"_s);
    const TableDef table = NeedTable(tableName);
    if (HasField(table, field.name))
        throw RuntimeError(
            error::kFieldDefinedTwice,
            u"Can not define field '%1' more than once in the table '%2'"_s.arg(field.name, table.name));
    NeedUnused(table.name);
    Writing writing(Open());
    StoreField(Open(), u"main"_s, table, field);
    writing.Commit();
}

void SqliteDatabase::AppendIndex(const QString& tableName, const IndexDef& index)
{
    NeedUpdatable();
    const TableDef table = NeedTable(tableName);
    CheckName(index.name, u"index"_s);
    IndexDef spelled = index;
    for (QString& name : spelled.fields) {
        const auto found = std::find_if(table.fields.begin(), table.fields.end(), [&](const Field& field) {
            return field.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (found == table.fields.end())
            throw RuntimeError(error::kFieldUnknown,
                               u"There is no field '%1' to index in '%2'"_s.arg(name, table.name));
        name = found->name;
    }
    for (const IndexDef& known : table.indexes) {
        if (known.name.compare(index.name, Qt::CaseInsensitive) == 0)
            throw RuntimeError(error::kIndexExists, u"The table '%1' already has an index named '%2'"_s.arg(
                                                        table.name, index.name));
    }
    if (spelled.fields.isEmpty())
        throw RuntimeError(error::kSyntax, u"The index '%1' has no fields"_s.arg(index.name));
    NeedUnused(table.name);
    Writing writing(Open());
    StoreIndex(Open(), u"main"_s, table, spelled);
    writing.Commit();
}

TextIndex SqliteDatabase::IndexOf(const QString& name, const QStringList& fields) const
{
    const TableDef& table = NeedTable(name);
    for (const QString& field : fields) {
        if (!HasField(table, field))
            throw RuntimeError(error::kFieldUnknown,
                               u"There is no field '%1' to look in in '%2'"_s.arg(field, table.name));
    }
    return {Open(), table, fields};
}

TextIndexState SqliteDatabase::KeepTextIndex(const QString& table, const QStringList& fields,
                                             int milliseconds)
{
    TextIndex index = IndexOf(table, fields);
    return m_session->Updatable() ? index.Make(milliseconds) : index.Check(milliseconds);
}

TextHits SqliteDatabase::FindText(const TextSearch& search)
{
    return IndexOf(search.table, search.fields).Find(search);
}

void SqliteDatabase::BeginTrans()
{
    Open().Begin();
    ++m_begun;
}

void SqliteDatabase::CommitTrans()
{
    if (m_begun == 0)
        throw RuntimeError(error::kNoTransaction, u"There is no transaction to commit"_s);
    Open().Commit();
    --m_begun;
    Open().Touch();
}

void SqliteDatabase::Rollback()
{
    if (m_begun == 0)
        throw RuntimeError(error::kNoTransaction, u"There is no transaction to roll back"_s);
    --m_begun;
    Open().Rollback();
}

void SqliteDatabase::Close()
{
    if (!m_session->connection)
        return;
    for (; m_begun > 0; --m_begun)
        m_session->connection->Rollback();
    for (SqliteRowStore* store : m_session->stores)
        store->Release();
    m_session->connection.reset();
    m_session->companion.reset();
}

} // namespace vasclip::engine
