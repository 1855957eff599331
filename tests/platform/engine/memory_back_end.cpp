#include "platform/engine/memory_back_end.h"

#include "platform/engine/copier.h"
#include "platform/engine/dynaset.h"
#include "platform/engine/errors.h"
#include "platform/engine/memory_row_store.h"
#include "platform/engine/sql_typer.h"
#include "platform/engine/table_recordset.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

class ServerCatalog final : public sql::Catalog
{
public:
    explicit ServerCatalog(MemoryServer& server)
        : m_server(server)
    {}
    const TableDef* Find(const QString& database, const QString& name) override
    {
        if (!database.isEmpty())
            throw RuntimeError(error::kInvalidOperation, u"A server reaches no files"_s);
        for (const MemoryTable& table : m_server.Tables()) {
            if (table.def.name.compare(name, Qt::CaseInsensitive) == 0)
                return &table.def;
        }
        return nullptr;
    }

private:
    MemoryServer& m_server;
};

class MemoryDatabase final : public Database
{
public:
    MemoryDatabase(std::shared_ptr<MemoryOpening> opening, std::function<void()> closed)
        : m_opening(std::move(opening))
        , m_closed(std::move(closed))
    {}
    ~MemoryDatabase() override
    {
        for (; m_begun > 0 && m_opening->open; --m_begun)
            Server().Rollback();
        Close();
    }

    [[nodiscard]] QString Path() const override { return m_opening->path; }
    [[nodiscard]] OpenMode Mode() const override
    {
        return m_opening->readOnly ? OpenMode::ReadOnly : OpenMode::Shared;
    }
    [[nodiscard]] std::unique_ptr<Recordset> OpenRecordset(const QString& source,
                                                           RecordsetType type) override
    {
        ServerCatalog catalog(Server());
        if (!source.trimmed().startsWith(u"SELECT"_s, Qt::CaseInsensitive)) {
            auto rows = OpenRows(sql::WholeTable(Table(source)));
            if (type == RecordsetType::Table)
                return std::make_unique<TableRecordset>(std::move(rows));
            return std::make_unique<Dynaset>(std::move(rows));
        }
        return std::make_unique<Dynaset>(OpenRows(sql::Type(source, catalog, *m_opening->time)));
    }
    [[nodiscard]] std::unique_ptr<RowStore> OpenRows(const sql::TypedStatement& select) override
    {
        return std::make_unique<MemoryRowStore>(m_opening, select);
    }
    qint64 Execute(const QString&) override
    {
        throw RuntimeError(error::kInvalidOperation, u"The server of the tests runs no action statements"_s);
    }
    [[nodiscard]] QStringList TableNames() const override
    {
        QStringList names;
        for (const MemoryTable& table : Server().Tables())
            names.append(table.def.name);
        return names;
    }
    [[nodiscard]] TableDef Table(const QString& name) const override { return Server().Table(name).def; }
    void CreateTable(const TableDef& table) override
    {
        Server().Statement([&](QList<MemoryTable>& tables) {
            MemoryTable made;
            made.def = table;
            tables.append(made);
        });
    }
    void AppendField(const QString& table, const Field& field) override
    {
        MemoryTable& found = Server().Table(table);
        found.def.fields.append(field);
        for (auto& [id, row] : found.rows)
            row.values.append(QVariant());
    }
    void AppendIndex(const QString& table, const IndexDef& index) override
    {
        Server().Table(table).def.indexes.append(index);
    }
    void BeginTrans() override
    {
        Server().Begin();
        ++m_begun;
    }
    void CommitTrans() override
    {
        if (m_begun == 0)
            throw RuntimeError(error::kNoTransaction, u"There is no transaction to commit"_s);
        --m_begun;
        Server().Commit();
    }
    void Rollback() override
    {
        if (m_begun == 0)
            throw RuntimeError(error::kNoTransaction, u"There is no transaction to roll back"_s);
        --m_begun;
        ++m_opening->generation;
        Server().Rollback();
    }
    void Close() override
    {
        if (std::exchange(m_opening->open, false))
            m_closed();
    }

private:
    [[nodiscard]] MemoryServer& Server() const
    {
        if (!m_opening->open)
            throw RuntimeError(error::kClosed, u"The database is closed"_s);
        return *m_opening->server;
    }

    std::shared_ptr<MemoryOpening> m_opening;
    std::function<void()> m_closed;
    int m_begun = 0;
};

} // namespace

std::shared_ptr<MemoryServer> MemoryBackEnd::ServerOf(const QString& path) const
{
    const auto server = m_servers.value(path.toUpper());
    if (!server)
        throw RuntimeError(error::kDatabaseNotFound, u"There is no server at %1"_s.arg(path));
    return server;
}

std::shared_ptr<Database> MemoryBackEnd::Open(const QString& path, OpenMode mode)
{
    auto opening = std::make_shared<MemoryOpening>();
    opening->path = path;
    opening->server = ServerOf(path);
    opening->readOnly = mode == OpenMode::ReadOnly;
    opening->rowsAhead = m_rowsAhead;
    opening->time = m_time;
    ++m_users[path.toUpper()];
    return std::make_shared<MemoryDatabase>(opening, [this, path] { --m_users[path.toUpper()]; });
}

void MemoryBackEnd::Create(const QString& path)
{
    auto server = std::make_shared<MemoryServer>();
    server->waits = m_waits;
    m_servers[path.toUpper()] = std::move(server);
}

void MemoryBackEnd::Copy(const QString&, const QString&)
{
    throw RuntimeError(error::kInvalidOperation, u"A server is not copied as a file"_s);
}

QList<User> MemoryBackEnd::Users(const QString& path) const
{
    return QList<User>(m_users.value(path.toUpper()), User{u"here"_s, 1, true});
}

} // namespace vasclip::engine
