#include "platform/engine/sqlite/sqlite_row_store.h"

#include "platform/engine/errors.h"
#include "platform/engine/long_source.h"

#include <algorithm>
#include <array>
#include <numeric>

#include <sqlite3.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

/// Identities handed out in one piece.
constexpr std::size_t kPiece = 4096;

const QString& IdName()
{
    static const QString name = QString::fromUtf16(sql::kIdColumn);
    return name;
}

const QString& VersionName()
{
    static const QString name = QString::fromUtf16(sql::kVersionColumn);
    return name;
}

qint64 Number(Bookmark id)
{
    return static_cast<qint64>(id);
}

/// The source of a value that is not held whole; null for another value.
const LongSource* Large(const QVariant& value)
{
    const LongSource* source = LongSourceOf(value);
    return source != nullptr && source->size > kHeldWhole ? source : nullptr;
}

/// The statement that changes a row, and the pieces of its large values: together they are stored or taken back.
class OneChange
{
public:
    OneChange(Connection& connection, const RowChanges& values)
    {
        if (std::ranges::any_of(values, [](const auto& one) { return Large(one.second) != nullptr; }))
            m_together.emplace(connection);
        m_statement.emplace(connection);
    }
    void Commit()
    {
        m_statement->Commit();
        if (m_together)
            m_together->Commit();
    }

private:
    std::optional<Writing> m_together;
    std::optional<OneStatement> m_statement;
};

using Blob = std::unique_ptr<sqlite3_blob, int (*)(sqlite3_blob*)>;
enum class Access { Read, Write };

Blob OpenBlob(const Connection& connection, const sql::Plan& plan, Bookmark id, int source, Access access, int& code)
{
    sqlite3_blob* blob = nullptr;
    code = sqlite3_blob_open(connection.Handle(), plan.targetSchema.toUtf8().constData(),
                             plan.table.name.toUtf8().constData(),
                             plan.table.fields[source].name.toUtf8().constData(), Number(id),
                             access == Access::Write ? 1 : 0, &blob);
    return {blob, &sqlite3_blob_close};
}

} // namespace

Connection& Session::Open() const
{
    if (!connection)
        throw RuntimeError(error::kClosed, u"The database %1 is closed"_s.arg(path));
    return *connection;
}

QString Session::WhyReadOnly() const
{
    if (connection && !connection->Damage().isEmpty())
        return connection->DamageText();
    return u"Can not update: the database %1 is read-only. Get the rights to write it and its directory"_s.arg(
        path);
}

SqliteRowStore::SqliteRowStore(std::shared_ptr<Session> session, sql::Plan plan)
    : m_session(std::move(session))
    , m_connection(m_session->connection)
    , m_plan(std::move(plan))
{
    m_shape.table = m_plan.table;
    m_shape.computed = m_plan.computed;
    m_shape.updatable = m_plan.updatable;
    for (const sql::OutputColumn& column : std::as_const(m_plan.columns)) {
        m_shape.fields.append(column.field);
        m_shape.sources.push_back(column.source);
    }
    m_versionSql = u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(VersionName(), m_plan.tableSql, IdName());
    m_session->stores.push_back(this);
    m_connection->AddUse(m_plan.table.name);
}

SqliteRowStore::~SqliteRowStore()
{
    Release();
    std::erase(m_session->stores, this);
}

void SqliteRowStore::Release()
{
    if (m_connection)
        m_connection->RemoveUse(m_plan.table.name);
    m_connection.reset();
}

Connection& SqliteRowStore::Open() const
{
    if (!m_connection)
        throw RuntimeError(error::kClosed, u"The record set is closed"_s);
    return *m_connection;
}

/// First and last identity of a whole table whose numbers have no gap, known without a walk over the rows;
/// an empty table gives last below first.
std::optional<std::pair<qint64, qint64>> SqliteRowStore::RunWithoutGap() const
{
    Query query(Open(), u"SELECT (SELECT min(%1) FROM %2), (SELECT max(%1) FROM %2), "
                        u"(SELECT count(*) FROM %2)"_s.arg(IdName(), m_plan.tableSql));
    if (!query.Step())
        return std::nullopt;
    const qint64 first = query.Integer(0);
    const qint64 count = query.Integer(2);
    if (count > 0 && query.Integer(1) - first + 1 != count)
        return std::nullopt;
    return std::pair{first, first + count - 1};
}

void SqliteRowStore::ReadKeys(const std::function<bool(std::span<const Bookmark>)>& sink)
{
    std::vector<Bookmark> ids;
    if (m_plan.whole) {
        if (const auto run = RunWithoutGap()) {
            for (qint64 id = run->first; id <= run->second;) {
                ids.clear();
                for (; id <= run->second && ids.size() < kPiece; ++id)
                    ids.push_back(Bookmark{id});
                if (!sink(ids))
                    return;
            }
            return;
        }
    }
    Query query(Open(), m_plan.sql);
    query.BindAll(m_plan.bindings);
    if (m_plan.ordered) {
        while (query.Step()) {
            ids.push_back(Bookmark{query.Integer(0)});
            if (ids.size() < kPiece)
                continue;
            if (!sink(ids))
                return;
            ids.clear();
        }
    } else {
        // Without an order SQLite takes the rows from whatever index is smallest; ours is that of insertion.
        while (query.Step())
            ids.push_back(Bookmark{query.Integer(0)});
        std::sort(ids.begin(), ids.end());
    }
    if (!ids.empty())
        static_cast<void>(sink(ids));
}

QVariantList SqliteRowStore::ReadComputed()
{
    Query query(Open(), m_plan.sql);
    query.BindAll(m_plan.bindings);
    QVariantList values;
    if (query.Step()) {
        for (int i = 0; i < m_shape.fields.size(); ++i)
            values.append(query.Value(i, m_shape.fields[i].type));
    }
    return values;
}

const SqliteRowStore::Select& SqliteRowStore::SelectOf(const QList<int>& fields, Longs longs)
{
    Select& select = fields.size() == m_shape.fields.size() ? m_row : m_some;
    if (!select.head.isEmpty() && fields == select.fields && longs == select.longs)
        return select;
    QStringList columns{IdName(), VersionName()};
    for (const int field : fields) {
        const sql::OutputColumn& column = m_plan.columns[field];
        const bool size = longs == Longs::Sizes && column.field.type == FieldType::LongBinary;
        columns.append(size ? u"length(%1)"_s.arg(column.sql) : column.sql);
    }
    select.fields = fields;
    select.longs = longs;
    select.head = u"SELECT %1 FROM %2 WHERE %3 "_s.arg(columns.join(u", "_s), m_plan.tableSql, IdName());
    select.one = select.head + u"= ?1"_s;
    return select;
}

StoredRow SqliteRowStore::RowOf(const Query& query, const Select& select) const
{
    StoredRow row;
    row.version = query.Integer(1);
    row.values.reserve(select.fields.size());
    int place = 2;
    for (const int field : select.fields) {
        const FieldType type = m_shape.fields[field].type;
        const bool size = select.longs == Longs::Sizes && type == FieldType::LongBinary;
        row.values.append(query.Value(place++, size ? FieldType::Long : type));
    }
    return row;
}

std::vector<std::optional<StoredRow>> SqliteRowStore::Read(std::span<const Bookmark> ids,
                                                           const QList<int>& fields, Longs longs)
{
    Connection& connection = Open();
    const Select select = SelectOf(fields, longs);
    std::vector<std::optional<StoredRow>> rows(ids.size());
    bool run = ids.size() > 1;
    for (std::size_t i = 1; run && i < ids.size(); ++i)
        run = Number(ids[i]) == Number(ids.front()) + static_cast<qint64>(i);
    if (run) {
        // A run of identities takes one statement instead of one for each row.
        const Reading together(connection);
        Query query(connection, select.head + u"BETWEEN ?1 AND ?1 + %1 ORDER BY %2"_s.arg(
                                             QString::number(ids.size() - 1), IdName()));
        query.Bind(1, Number(ids.front())).BindAll(m_plan.columnBindings, 2);
        while (query.Step())
            rows[static_cast<std::size_t>(query.Integer(0) - Number(ids.front()))] = RowOf(query, select);
        return rows;
    }
    // Begun and not ended, it keeps the file's read lock for all rows; each one would take and drop it anew.
    std::optional<Query> lock;
    if (ids.size() > 1) {
        lock.emplace(connection, u"SELECT 1 FROM sqlite_master"_s);
        static_cast<void>(lock->Step());
    }
    Query query(connection, select.one);
    query.BindAll(m_plan.columnBindings, 2);
    for (std::size_t i = 0; i < ids.size(); ++i) {
        query.Bind(1, Number(ids[i]));
        if (query.Step())
            rows[i] = RowOf(query, select);
        query.Again();
    }
    return rows;
}

std::optional<qint64> SqliteRowStore::Version(Bookmark id)
{
    Query query(Open(), m_versionSql);
    query.Bind(1, Number(id));
    return query.Step() ? std::optional(query.Integer(0)) : std::nullopt;
}

QVariant SqliteRowStore::ReadLong(Bookmark id, int field)
{
    Query query(Open(), u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(m_plan.columns[field].sql, m_plan.tableSql,
                                                                 IdName()));
    query.Bind(1, Number(id)).BindAll(m_plan.columnBindings, 2);
    if (!query.Step())
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
    return query.Value(0, FieldType::LongBinary);
}

QByteArray SqliteRowStore::ReadPiece(Bookmark id, int source, qint64 offset, qint64 bytes)
{
    Connection& connection = Open();
    int code = SQLITE_OK;
    const Blob blob = OpenBlob(connection, m_plan, id, source, Access::Read, code);
    if (code == SQLITE_ERROR) // the row or its value is gone
        return {};
    connection.Check(code);
    const qint64 size = sqlite3_blob_bytes(blob.get());
    if (offset >= size)
        return {};
    QByteArray chunk(std::min(bytes, size - offset), Qt::Uninitialized);
    connection.Check(
        sqlite3_blob_read(blob.get(), chunk.data(), static_cast<int>(chunk.size()), static_cast<int>(offset)));
    return chunk;
}

/// A large value is bound as so many zeros, which take no memory, and WriteLarge puts its pieces in their place.
void SqliteRowStore::BindValues(Query& query, int first, const RowChanges& values) const
{
    for (const auto& [source, value] : values) {
        if (const LongSource* large = Large(value))
            query.BindZeros(first++, large->size);
        else
            query.Bind(first++, WholeValue(value));
    }
}

void SqliteRowStore::WriteLarge(Bookmark id, const RowChanges& values)
{
    Connection& connection = Open();
    for (const auto& [source, value] : values) {
        const LongSource* const large = Large(value);
        if (large == nullptr)
            continue;
        int code = SQLITE_OK;
        Blob blob = OpenBlob(connection, m_plan, id, source, Access::Write, code);
        connection.Check(code);
        ReadInPieces(*large, kLongPiece, [&](qint64 offset, const QByteArray& piece) {
            code = sqlite3_blob_write(blob.get(), piece.constData(), static_cast<int>(piece.size()), static_cast<int>(offset));
            if (code == SQLITE_OK)
                return;
            blob.reset(); // with it ends what SQLite takes back by itself, of which Fail takes note
            connection.Fail(code);
        });
    }
}

Bookmark SqliteRowStore::Insert(const RowChanges& values)
{
    QStringList names;
    QStringList places;
    for (const auto& [source, value] : values) {
        names.append(QuoteName(m_plan.table.fields[source].name));
        places.append(u'?' + QString::number(places.size() + 1));
    }
    const QString sql = names.isEmpty() ? u"INSERT INTO %1 DEFAULT VALUES"_s.arg(m_plan.tableSql)
                                        : u"INSERT INTO %1(%2) VALUES(%3)"_s.arg(
                                              m_plan.tableSql, names.join(u", "_s), places.join(u", "_s));
    Connection& connection = Open();
    OneChange writing(connection, values);
    Bookmark id{};
    {
        Query query(connection, sql);
        BindValues(query, 1, values);
        query.Run();
        id = Bookmark{sqlite3_last_insert_rowid(connection.Handle())};
    }
    WriteLarge(id, values);
    writing.Commit();
    connection.Touch();
    return id;
}

/// The statement that stores those fields: one row after the other is mostly changed in the same ones.
const QString& SqliteRowStore::UpdateOf(const RowChanges& values)
{
    const auto isField = [](int field, const auto& value) { return field == value.first; };
    if (!m_updateSql.isEmpty() && std::ranges::equal(m_updateFields, values, isField))
        return m_updateSql;
    QStringList assignments;
    m_updateFields.clear();
    for (const auto& [source, value] : values) {
        assignments.append(u"%1 = ?%2"_s.arg(QuoteName(m_plan.table.fields[source].name),
                                             QString::number(assignments.size() + 3)));
        m_updateFields.push_back(source);
    }
    // The version in the condition makes the test for other users' changes and the change itself one step.
    m_updateSql = u"UPDATE %1 SET %2, %3 = %3 + 1 WHERE %4 = ?1 AND %3 = ?2"_s.arg(
        m_plan.tableSql, assignments.join(u", "_s), VersionName(), IdName());
    return m_updateSql;
}

UpdateOutcome SqliteRowStore::Update(Bookmark id, qint64 version, const RowChanges& values)
{
    Connection& connection = Open();
    OneChange writing(connection, values);
    {
        Query query(connection, UpdateOf(values));
        query.Bind(1, Number(id)).Bind(2, version);
        BindValues(query, 3, values);
        query.Run();
    }
    if (sqlite3_changes(connection.Handle()) == 0)
        return Version(id) ? UpdateOutcome::Changed : UpdateOutcome::Gone;
    WriteLarge(id, values);
    writing.Commit();
    connection.Touch();
    return UpdateOutcome::Done;
}

bool SqliteRowStore::Delete(Bookmark id)
{
    Connection& connection = Open();
    OneStatement writing(connection);
    {
        Query query(connection, u"DELETE FROM %1 WHERE %2 = ?1"_s.arg(m_plan.tableSql, IdName()));
        query.Bind(1, Number(id)).Run();
    }
    if (sqlite3_changes(connection.Handle()) == 0)
        return false;
    writing.Commit();
    connection.Touch();
    return true;
}

qint64 SqliteRowStore::CountRows()
{
    Query query(Open(), u"SELECT count(*) FROM %1"_s.arg(m_plan.tableSql));
    return query.Step() ? query.Integer(0) : 0;
}

} // namespace vasclip::engine
