#include "platform/engine/row_recordset.h"

#include "platform/engine/errors.h"
#include "platform/engine/values.h"

#include <sqlite3.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

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

/// Size of a name folded for look-up.
QString Fold(const QString& name)
{
    return name.toUpper();
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

RowRecordset::RowRecordset(std::shared_ptr<Session> session, sql::Plan plan)
    : m_session(std::move(session))
    , m_plan(std::move(plan))
{
    QStringList columns;
    for (const sql::OutputColumn& column : std::as_const(m_plan.columns)) {
        // A name may be there twice; the first one answers.
        if (!m_byName.contains(Fold(column.field.name)))
            m_byName.insert(Fold(column.field.name), static_cast<int>(m_fields.size()));
        m_fields.append(column.field);
        columns.append(column.field.type == FieldType::LongBinary ? u"length(%1)"_s.arg(column.sql)
                                                                  : column.sql);
    }
    m_rowSql = u"SELECT %1, %2 FROM %3 WHERE %4 = ?1"_s.arg(VersionName(), columns.join(u", "_s),
                                                            m_plan.tableSql, IdName());
    m_versionSql = u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(VersionName(), m_plan.tableSql, IdName());
    m_session->recordsets.push_back(this);
    m_session->connection->AddUse(Table().name);
}

RowRecordset::~RowRecordset()
{
    RowRecordset::Close();
}

void RowRecordset::Close()
{
    if (!m_session)
        return;
    if (m_session->connection)
        m_session->connection->RemoveUse(Table().name);
    std::erase(m_session->recordsets, this);
    m_session.reset();
    m_row.reset();
    m_mode = EditMode::None;
    m_changes.clear();
    m_chunks.clear();
}

Connection& RowRecordset::Open() const
{
    if (!m_session)
        throw RuntimeError(error::kClosed, u"The record set is closed"_s);
    return m_session->Open();
}

bool RowRecordset::Updatable() const
{
    return m_session && m_session->Updatable() && m_plan.updatable;
}

void RowRecordset::NeedUpdatable() const
{
    static_cast<void>(Open());
    if (Updatable())
        return;
    throw RuntimeError(
        error::kFileIsReadOnly,
        m_session->Updatable()
            ? u"The result of this query can not be changed"_s
            : m_session->WhyReadOnly());
}

qint64 RowRecordset::NeedId() const
{
    static_cast<void>(Open());
    const std::optional<qint64> id = CurrentId();
    if (!id)
        throw RuntimeError(error::kNoCurrentRecord, u"There is no current record"_s);
    return *id;
}

void RowRecordset::Moved()
{
    CancelUpdate();
    m_current = false;
}

void RowRecordset::ShowComputed(const QVariantList& values)
{
    m_row = Row{0, 0, 0, values};
    m_current = true;
}

std::optional<RowRecordset::Row> RowRecordset::ReadRow(qint64 id) const
{
    Query query(Open(), m_rowSql);
    query.Bind(1, id).BindAll(m_plan.columnBindings, 2);
    if (!query.Step())
        return std::nullopt;
    Row row;
    row.id = id;
    row.version = query.Integer(0);
    row.generation = Open().Generation();
    row.values.reserve(m_fields.size());
    for (int i = 0; i < m_fields.size(); ++i)
        row.values.append(query.Value(i + 1, m_fields[i].type == FieldType::LongBinary ? FieldType::Long
                                                                                       : m_fields[i].type));
    return row;
}

bool RowRecordset::Unchanged(qint64 id) const
{
    // Ids are never given out again, and every change raises the version; one taken back, the generation.
    if (!m_row || m_row->id != id || m_plan.computed || m_row->generation != Open().Generation())
        return false;
    Query query(Open(), m_versionSql);
    query.Bind(1, id);
    return query.Step() && query.Integer(0) == m_row->version;
}

bool RowRecordset::ReadNow(qint64 id) const
{
    if (!Unchanged(id))
        m_row = ReadRow(id);
    m_current = m_row.has_value();
    return m_current;
}

const RowRecordset::Row& RowRecordset::NeedRow() const
{
    const qint64 id = NeedId();
    // What other record sets of this engine change shows at once, unless this one is being edited.
    const bool fresh = m_mode == EditMode::InProgress || m_plan.computed ||
                       (m_current && m_row && m_row->generation == Open().Generation());
    if (m_row && (m_row->id == id || m_plan.computed) && fresh)
        return *m_row;
    if (!ReadNow(id))
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
    return *m_row;
}

int RowRecordset::NeedField(int field) const
{
    if (field < 0 || field >= m_fields.size())
        throw RuntimeError(error::kFieldUnknown, u"There is no field number %1 in '%2'"_s.arg(
                                                     QString::number(field), Table().name));
    return field;
}

int RowRecordset::FieldIndex(const QString& name) const
{
    return m_byName.value(Fold(name), -1);
}

int RowRecordset::NeedField(const QString& name) const
{
    const int field = FieldIndex(name);
    if (field < 0)
        throw RuntimeError(error::kFieldUnknown, u"There is no field '%1' in '%2'"_s.arg(name, Table().name));
    return field;
}

/// The table's own field behind a field of the set.
int RowRecordset::NeedSource(int field) const
{
    const int source = m_plan.columns[field].source;
    if (source < 0)
        throw RuntimeError(error::kInvalidOperation,
                           u"'%1' is computed and can not be changed"_s.arg(m_fields[field].name));
    return source;
}

const QVariant* RowRecordset::Changed(int field) const
{
    if (m_mode == EditMode::None)
        return nullptr;
    const auto found = m_changes.find(m_plan.columns[field].source);
    return found == m_changes.end() ? nullptr : &found->second;
}

QVariant RowRecordset::LongValue(int field) const
{
    Query query(Open(), u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(m_plan.columns[field].sql, m_plan.tableSql,
                                                                 IdName()));
    query.Bind(1, NeedId()).BindAll(m_plan.columnBindings, 2);
    if (!query.Step())
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
    return query.Value(0, FieldType::LongBinary);
}

QVariant RowRecordset::Value(int field) const
{
    static_cast<void>(NeedField(field));
    static_cast<void>(Open());
    if (const QVariant* changed = Changed(field))
        return *changed;
    if (m_mode == EditMode::Add)
        return {};
    const Row& row = NeedRow();
    if (m_fields[field].type == FieldType::LongBinary && row.values[field].isValid())
        return LongValue(field);
    return row.values[field];
}

void RowRecordset::SetValue(int field, const QVariant& value)
{
    static_cast<void>(NeedField(field));
    if (m_mode == EditMode::None)
        throw RuntimeError(error::kNoEdit, u"The field '%1' can be set only after Edit or AddNew"_s.arg(
                                               m_fields[field].name));
    const int source = NeedSource(field);
    m_changes[source] = FitToField(Table().fields[source], value);
    m_chunks.erase(source);
}

void RowRecordset::Edit()
{
    NeedUpdatable();
    const qint64 id = NeedId();
    CancelUpdate();
    if (!ReadNow(id))
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
    m_mode = EditMode::InProgress;
}

void RowRecordset::AddNew()
{
    NeedUpdatable();
    CancelUpdate();
    m_mode = EditMode::Add;
}

void RowRecordset::CancelUpdate()
{
    m_mode = EditMode::None;
    m_changes.clear();
    m_chunks.clear();
}

void RowRecordset::CheckRequired(bool adding) const
{
    const auto isNull = [&](int source) {
        const auto found = m_changes.find(source);
        return found == m_changes.end() ? adding : !found->second.isValid();
    };
    for (int i = 0; i < Table().fields.size(); ++i) {
        const Field& field = Table().fields[i];
        if (field.required && isNull(i))
            throw RuntimeError(error::kValueRequired, u"The field '%1' needs a value"_s.arg(field.name));
        for (const IndexDef& index : Table().indexes) {
            if (index.primary && index.fields.contains(field.name, Qt::CaseInsensitive) && isNull(i))
                throw RuntimeError(error::kKeyIsNull, u"The key field '%1' needs a value"_s.arg(field.name));
        }
    }
}

qint64 RowRecordset::Insert()
{
    QStringList names;
    QStringList places;
    for (const auto& [source, value] : m_changes) {
        names.append(QuoteName(Table().fields[source].name));
        places.append(u'?' + QString::number(places.size() + 1));
    }
    const QString sql = names.isEmpty() ? u"INSERT INTO %1 DEFAULT VALUES"_s.arg(m_plan.tableSql)
                                        : u"INSERT INTO %1(%2) VALUES(%3)"_s.arg(
                                              m_plan.tableSql, names.join(u", "_s), places.join(u", "_s));
    Connection& connection = Open();
    Writing writing(connection);
    qint64 id = 0;
    {
        Query query(connection, sql);
        int place = 1;
        for (const auto& [source, value] : m_changes)
            query.Bind(place++, value);
        query.Run();
        id = sqlite3_last_insert_rowid(connection.Handle());
    }
    writing.Commit();
    return id;
}

void RowRecordset::Store()
{
    QStringList assignments;
    for (const auto& [source, value] : m_changes)
        assignments.append(u"%1 = ?%2"_s.arg(QuoteName(Table().fields[source].name),
                                             QString::number(assignments.size() + 3)));
    // The version in the condition makes the test for other users' changes and the change itself one step.
    const QString sql = u"UPDATE %1 SET %2, %3 = %3 + 1 WHERE %4 = ?1 AND %3 = ?2"_s.arg(
        m_plan.tableSql, assignments.join(u", "_s), VersionName(), IdName());
    Connection& connection = Open();
    Writing writing(connection);
    {
        Query query(connection, sql);
        query.Bind(1, m_row->id).Bind(2, m_row->version);
        int place = 3;
        for (const auto& [source, value] : m_changes)
            query.Bind(place++, value);
        query.Run();
    }
    if (sqlite3_changes(connection.Handle()) == 0) {
        std::optional<Row> fresh = ReadRow(m_row->id);
        if (!fresh)
            throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else meanwhile"_s);
        m_row = std::move(fresh);
        throw RuntimeError(
            error::kDataChanged,
            u"The data has changed: somebody else changed this record since it was opened for editing. "
            "Nothing was stored; updating again overwrites the other change"_s);
    }
    writing.Commit();
}

void RowRecordset::Update()
{
    Connection& connection = Open();
    if (m_mode == EditMode::None)
        throw RuntimeError(error::kNoEdit, u"There is nothing to update without Edit or AddNew"_s);
    const bool adding = m_mode == EditMode::Add;
    CheckRequired(adding);
    if (adding) {
        const qint64 id = Insert();
        connection.Touch();
        CancelUpdate();
        RowAdded(id);
        return;
    }
    const qint64 id = m_row->id;
    if (!m_changes.empty()) {
        Store();
        connection.Touch();
    }
    CancelUpdate();
    m_row.reset();
    RowChanged(id);
}

void RowRecordset::Delete()
{
    NeedUpdatable();
    const qint64 id = NeedId();
    CancelUpdate();
    RowDeleting(id);
    Connection& connection = Open();
    Writing writing(connection);
    {
        Query query(connection, u"DELETE FROM %1 WHERE %2 = ?1"_s.arg(m_plan.tableSql, IdName()));
        query.Bind(1, id).Run();
    }
    if (sqlite3_changes(connection.Handle()) == 0)
        throw RuntimeError(error::kRecordDeleted, u"The record was already deleted by somebody else"_s);
    writing.Commit();
    connection.Touch();
    m_row.reset();
    RowDeleted(id);
}

qint64 RowRecordset::FieldSize(const QString& name) const
{
    const int field = NeedField(name);
    if (const QVariant* changed = Changed(field))
        return changed->typeId() == QMetaType::QByteArray ? changed->toByteArray().size()
                                                          : changed->toString().size();
    if (m_mode == EditMode::Add)
        return 0;
    const QVariant value = NeedRow().values[field];
    switch (m_fields[field].type) {
    case FieldType::LongBinary:
        return value.toLongLong();
    case FieldType::Memo:
    case FieldType::Text:
        return value.toString().size();
    case FieldType::Binary:
        return value.toByteArray().size();
    default:
        return m_fields[field].size;
    }
}

QByteArray RowRecordset::GetChunk(const QString& name, qint64 offset, qint64 bytes) const
{
    const int field = NeedField(name);
    const FieldType type = m_fields[field].type;
    if (type != FieldType::LongBinary && type != FieldType::Memo)
        throw RuntimeError(error::kInvalidOperation, u"The field '%1' is not read in pieces"_s.arg(name));
    offset = std::max<qint64>(offset, 0);
    bytes = std::max<qint64>(bytes, 0);
    if (type == FieldType::Memo)
        return Value(field).toString().mid(offset, bytes).toUtf8();
    const bool stored = m_mode != EditMode::Add && !Changed(field) && m_plan.columns[field].source >= 0;
    if (!stored)
        return Value(field).toByteArray().mid(offset, bytes);

    const Row& row = NeedRow();
    if (!row.values[field].isValid())
        return {};
    Connection& connection = Open();
    sqlite3_blob* blob = nullptr;
    const qsizetype point = m_plan.tableSql.indexOf(u"\".\""_s);
    const QByteArray schema = m_plan.tableSql.mid(1, point - 1).toUtf8();
    const int code = sqlite3_blob_open(
        connection.Handle(), schema.constData(), Table().name.toUtf8().constData(),
        Table().fields[m_plan.columns[field].source].name.toUtf8().constData(), row.id, 0, &blob);
    const std::unique_ptr<sqlite3_blob, int (*)(sqlite3_blob*)> owner(blob, &sqlite3_blob_close);
    if (code == SQLITE_ERROR) // the row or its value is gone
        return {};
    connection.Check(code);
    const qint64 size = sqlite3_blob_bytes(blob);
    if (offset >= size)
        return {};
    QByteArray chunk(std::min(bytes, size - offset), Qt::Uninitialized);
    connection.Check(
        sqlite3_blob_read(blob, chunk.data(), static_cast<int>(chunk.size()), static_cast<int>(offset)));
    return chunk;
}

void RowRecordset::AppendChunk(const QString& name, const QByteArray& bytes)
{
    const int field = NeedField(name);
    const FieldType type = m_fields[field].type;
    if (type != FieldType::LongBinary && type != FieldType::Memo)
        throw RuntimeError(error::kInvalidOperation, u"The field '%1' is not written in pieces"_s.arg(name));
    if (m_mode == EditMode::None)
        throw RuntimeError(error::kNoEdit,
                           u"The field '%1' can be set only after Edit or AddNew"_s.arg(name));
    const int source = NeedSource(field);
    QByteArray& whole = m_chunks[source];
    whole += bytes;
    // The first piece replaces what the record holds; a letter of a memo may be cut between two pieces.
    if (type == FieldType::Memo)
        m_changes[source] = FitToField(Table().fields[source], QString::fromUtf8(whole));
    else
        m_changes[source] = whole;
}

} // namespace vasclip::engine
