#include "platform/engine/memory_row_store.h"

#include "platform/engine/errors.h"
#include "platform/engine/long_source.h"

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

sql::RowValues ValuesOf(const MemoryRow& row)
{
    return [values = row.values](int field) { return values[field]; };
}

int FieldOf(const TableDef& table, const QString& name)
{
    for (int i = 0; i < table.fields.size(); ++i) {
        if (table.fields[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

bool Before(const Stand& left, const Stand& right)
{
    for (qsizetype i = 0; i < left.key.size(); ++i) {
        const int order = sql::Compare(sql::FromField(left.key[i]), sql::FromField(right.key[i]));
        if (order != 0)
            return order < 0;
    }
    return left.id < right.id;
}

} // namespace

MemoryRowStore::MemoryRowStore(std::shared_ptr<MemoryOpening> opening, sql::TypedStatement select)
    : m_opening(std::move(opening))
    , m_select(std::move(select))
{
    m_shape.table = m_select.from.table;
    m_shape.computed = m_select.computed;
    m_shape.updatable = m_select.updatable;
    for (const sql::TypedColumn& column : m_select.columns) {
        m_shape.fields.append(column.field);
        m_shape.sources.push_back(column.source);
    }
}

void MemoryRowStore::NeedOpen() const
{
    if (!m_opening->open)
        throw RuntimeError(error::kClosed, u"The record set is closed"_s);
}

MemoryTable& MemoryRowStore::Table() const
{
    NeedOpen();
    return m_opening->server->Table(m_shape.table.name);
}

bool MemoryRowStore::Updatable() const
{
    return m_opening->open && !m_opening->readOnly && Table().mayChange;
}

void MemoryRowStore::ReadKeys(const std::function<bool(std::span<const Bookmark>)>& sink)
{
    struct Entry
    {
        Bookmark id;
        QVariantList keys;
        QVariantList shown;
    };
    std::vector<Entry> entries;
    for (const auto& [id, row] : Table().rows) {
        const sql::Evaluator evaluator(ValuesOf(row), Time());
        if (!evaluator.Holds(m_select.where))
            continue;
        Entry entry{Bookmark{id}, {}, {}};
        for (const sql::TypedOrder& order : m_select.order)
            entry.keys.append(evaluator.Evaluate(*order.key));
        for (std::size_t i = 0; m_select.distinct && i < m_select.columns.size(); ++i)
            entry.shown.append(evaluator.Evaluate(*m_select.columns[i].value));
        const bool known = m_select.distinct &&
                           std::any_of(entries.begin(), entries.end(), [&](const Entry& other) {
                               return std::equal(entry.shown.begin(), entry.shown.end(), other.shown.begin(),
                                                 [](const QVariant& left, const QVariant& right) {
                                                     return sql::Compare(left, right) == 0;
                                                 });
                           });
        if (!known)
            entries.push_back(std::move(entry));
    }
    std::stable_sort(entries.begin(), entries.end(), [this](const Entry& left, const Entry& right) {
        for (std::size_t i = 0; i < m_select.order.size(); ++i) {
            const auto place = static_cast<qsizetype>(i);
            const int order = sql::Compare(left.keys[place], right.keys[place]);
            if (order != 0)
                return (order < 0) != m_select.order[i].descending;
        }
        return false;
    });
    for (const Entry& entry : entries) {
        if (!sink({&entry.id, 1}))
            return;
    }
}

QVariantList MemoryRowStore::ReadComputed()
{
    std::vector<sql::RowValues> rows;
    for (const auto& [id, row] : Table().rows) {
        if (sql::Evaluator(ValuesOf(row), Time()).Holds(m_select.where))
            rows.push_back(ValuesOf(row));
    }
    const sql::Evaluator evaluator(std::move(rows), Time());
    QVariantList values;
    for (const sql::TypedColumn& column : m_select.columns)
        values.append(sql::ToField(evaluator.Evaluate(*column.value), column.field.type));
    return values;
}

std::vector<std::optional<StoredRow>> MemoryRowStore::Read(std::span<const Bookmark> ids,
                                                           const QList<int>& fields, Longs longs)
{
    const MemoryTable& table = Table();
    std::vector<std::optional<StoredRow>> rows;
    for (const Bookmark id : ids) {
        const auto found = table.rows.find(static_cast<qint64>(id));
        if (found == table.rows.end()) {
            rows.emplace_back();
            continue;
        }
        const sql::Evaluator evaluator(ValuesOf(found->second), Time());
        StoredRow row{found->second.version, {}};
        for (const int field : fields) {
            const sql::TypedColumn& column = m_select.columns[static_cast<std::size_t>(field)];
            QVariant value = sql::ToField(evaluator.Evaluate(*column.value), column.field.type);
            if (longs == Longs::Sizes && column.field.type == FieldType::LongBinary && value.isValid())
                value = QVariant::fromValue(static_cast<qlonglong>(value.toByteArray().size()));
            row.values.append(std::move(value));
        }
        rows.emplace_back(std::move(row));
    }
    return rows;
}

std::optional<qint64> MemoryRowStore::Version(Bookmark id)
{
    const MemoryTable& table = Table();
    const auto found = table.rows.find(static_cast<qint64>(id));
    return found == table.rows.end() ? std::nullopt : std::optional(found->second.version);
}

QVariant MemoryRowStore::ReadLong(Bookmark id, int field)
{
    const MemoryTable& table = Table();
    const auto found = table.rows.find(static_cast<qint64>(id));
    if (found == table.rows.end())
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
    const sql::TypedColumn& column = m_select.columns[static_cast<std::size_t>(field)];
    return sql::Evaluator(ValuesOf(found->second), Time()).Evaluate(*column.value);
}

QByteArray MemoryRowStore::ReadPiece(Bookmark id, int source, qint64 offset, qint64 bytes)
{
    const MemoryTable& table = Table();
    const auto found = table.rows.find(static_cast<qint64>(id));
    return found == table.rows.end() ? QByteArray()
                                     : found->second.values[source].toByteArray().mid(offset, bytes);
}

void MemoryRowStore::Change(const std::function<void(MemoryTable&)>& change)
{
    NeedOpen();
    MemoryServer& server = *m_opening->server;
    const bool together = server.InTransaction();
    if (together)
        server.Savepoint();
    try {
        server.Statement([&](QList<MemoryTable>& tables) {
            for (MemoryTable& table : tables) {
                if (table.def.name == m_shape.table.name)
                    change(table);
            }
        });
    } catch (...) {
        if (together)
            server.TakeBack();
        throw;
    }
    ++m_opening->generation;
}

void MemoryRowStore::CheckUnique(const MemoryTable& table, qint64 id) const
{
    for (const IndexDef& index : table.def.indexes) {
        if (!index.unique && !index.primary)
            continue;
        const Stand own = StandAt(&index, id, table.rows.at(id));
        for (const auto& [other, row] : table.rows) {
            if (other == id)
                continue;
            const Stand there = StandAt(&index, other, row);
            const bool same = std::equal(own.key.begin(), own.key.end(), there.key.begin(),
                                         [](const QVariant& left, const QVariant& right) {
                                             return left.isValid() && right.isValid() &&
                                                    sql::Compare(sql::FromField(left), sql::FromField(right)) == 0;
                                         });
            if (same)
                throw RuntimeError(error::kDuplicateKey,
                                   u"The change would give two records the same key in %1"_s.arg(index.name));
        }
    }
}

Bookmark MemoryRowStore::Insert(const RowChanges& values)
{
    qint64 id = 0;
    Change([&](MemoryTable& table) {
        id = table.nextId++;
        MemoryRow row;
        row.values.resize(table.def.fields.size());
        for (const auto& [field, value] : values)
            row.values[field] = WholeValue(value);
        table.rows[id] = std::move(row);
        CheckUnique(table, id);
    });
    return Bookmark{id};
}

UpdateOutcome MemoryRowStore::Update(Bookmark id, qint64 version, const RowChanges& values)
{
    UpdateOutcome outcome = UpdateOutcome::Done;
    Change([&](MemoryTable& table) {
        const auto found = table.rows.find(static_cast<qint64>(id));
        if (found == table.rows.end()) {
            outcome = UpdateOutcome::Gone;
            return;
        }
        if (found->second.version != version) {
            outcome = UpdateOutcome::Changed;
            return;
        }
        for (const auto& [field, value] : values)
            found->second.values[field] = WholeValue(value);
        ++found->second.version;
        CheckUnique(table, found->first);
    });
    return outcome;
}

bool MemoryRowStore::Delete(Bookmark id)
{
    bool deleted = false;
    Change([&](MemoryTable& table) { deleted = table.rows.erase(static_cast<qint64>(id)) > 0; });
    return deleted;
}

qint64 MemoryRowStore::CountRows()
{
    return static_cast<qint64>(Table().rows.size());
}

Stand MemoryRowStore::StandAt(const IndexDef* index, qint64 id, const MemoryRow& row) const
{
    Stand stand{Bookmark{id}, {}};
    for (const QString& name : index ? index->fields : QStringList())
        stand.key.append(row.values[FieldOf(m_shape.table, name)]);
    return stand;
}

std::vector<Stand> MemoryRowStore::InOrder(const IndexDef* index) const
{
    std::vector<Stand> stands;
    for (const auto& [id, row] : Table().rows)
        stands.push_back(StandAt(index, id, row));
    std::sort(stands.begin(), stands.end(), Before);
    return stands;
}

std::optional<Stand> MemoryRowStore::StandOf(const IndexDef* index, Bookmark id)
{
    const MemoryTable& table = Table();
    const auto found = table.rows.find(static_cast<qint64>(id));
    return found == table.rows.end() ? std::nullopt
                                     : std::optional(StandAt(index, found->first, found->second));
}

std::vector<Stand> MemoryRowStore::Walk(const IndexDef* index, const Stand* from, bool back, int most)
{
    std::vector<Stand> stands = InOrder(index);
    if (back)
        std::reverse(stands.begin(), stands.end());
    if (from)
        std::erase_if(stands, [&](const Stand& stand) { return back ? !Before(stand, *from) : !Before(*from, stand); });
    stands.resize(std::min(stands.size(), static_cast<std::size_t>(std::min(most, m_opening->rowsAhead))));
    return stands;
}

qint64 MemoryRowStore::CountBefore(const IndexDef* index, const Stand& stand)
{
    const std::vector<Stand> stands = InOrder(index);
    return std::count_if(stands.begin(), stands.end(),
                         [&](const Stand& other) { return Before(other, stand); });
}

std::optional<Bookmark> MemoryRowStore::Seek(const IndexDef& index, const QString& key)
{
    for (const Stand& stand : InOrder(&index)) {
        if (stand.key.front().isValid() && sql::Compare(stand.key.front(), key) == 0)
            return stand.id;
    }
    return std::nullopt;
}

} // namespace vasclip::engine
