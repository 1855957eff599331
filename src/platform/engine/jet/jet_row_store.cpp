#include "platform/engine/jet/jet_row_store.h"

#include "platform/engine/errors.h"

#include <algorithm>
#include <set>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Identities handed out in one piece.
constexpr std::size_t kPiece = 4096;

sql::RowValues ValuesOf(Table& table, const FoundRow& row)
{
    return [&table, &row](int field) { return table.Value(row, field); };
}

bool IsColumn(const sql::TypedColumn& column)
{
    return column.value && column.value->kind == sql::Typed::Kind::Column && column.value->field >= 0;
}

struct Entry
{
    Bookmark id{};
    QVariantList keys;
};

} // namespace

JetRowStore::JetRowStore(std::shared_ptr<Opening> opening, sql::TypedStatement select)
    : m_opening(std::move(opening))
    , m_rows(m_opening->Need(select.from.table.name))
    , m_select(std::move(select))
{
    m_shape.table = m_select.from.table;
    m_shape.computed = m_select.computed;
    m_shape.updatable = false;
    for (const sql::TypedColumn& column : m_select.columns) {
        m_shape.fields.append(column.field);
        m_shape.sources.push_back(column.source);
    }
}

TableRows& JetRowStore::Rows() const
{
    NeedOpen();
    return m_rows;
}

void JetRowStore::ReadMatching(const std::function<bool(Bookmark)>& sink)
{
    Table& table = Rows().Rows();
    const auto less = [](const QVariantList& left, const QVariantList& right) {
        return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                            [](const QVariant& one, const QVariant& other) {
                                                return sql::Compare(one, other) < 0;
                                            });
    };
    std::set<QVariantList, decltype(less)> seen(less);
    table.ForEach([&](const FoundRow& row) {
        const sql::Evaluator evaluator(ValuesOf(table, row), Time());
        if (!evaluator.Holds(m_select.where))
            return true;
        if (m_select.distinct) {
            QVariantList shown;
            for (const sql::TypedColumn& column : m_select.columns)
                shown.append(evaluator.Evaluate(*column.value));
            if (!seen.insert(std::move(shown)).second)
                return true;
        }
        return sink(BookmarkOf(row.home));
    });
}

void JetRowStore::ReadSorted(const std::function<bool(std::span<const Bookmark>)>& sink)
{
    Table& table = Rows().Rows();
    std::vector<Entry> entries;
    ReadMatching([&](Bookmark id) {
        const auto row = table.Find(PlaceOf(id));
        if (!row)
            return true;
        Entry entry{id, {}};
        const sql::Evaluator evaluator(ValuesOf(table, *row), Time());
        for (const sql::TypedOrder& order : m_select.order)
            entry.keys.append(evaluator.Evaluate(*order.key));
        entries.push_back(std::move(entry));
        return true;
    });
    std::stable_sort(entries.begin(), entries.end(), [this](const Entry& left, const Entry& right) {
        for (std::size_t i = 0; i < m_select.order.size(); ++i) {
            const auto place = static_cast<qsizetype>(i);
            const int order = sql::Compare(left.keys[place], right.keys[place]);
            if (order != 0)
                return (order < 0) != m_select.order[i].descending;
        }
        return false;
    });
    std::vector<Bookmark> ids;
    ids.reserve(entries.size());
    for (const Entry& entry : entries)
        ids.push_back(entry.id);
    if (!ids.empty())
        static_cast<void>(sink(ids));
}

void JetRowStore::ReadKeys(const std::function<bool(std::span<const Bookmark>)>& sink)
{
    if (!m_select.order.empty())
        return ReadSorted(sink);
    std::vector<Bookmark> ids;
    bool wanted = true;
    ReadMatching([&](Bookmark id) {
        ids.push_back(id);
        if (ids.size() < kPiece)
            return true;
        wanted = sink(ids);
        ids.clear();
        return wanted;
    });
    if (wanted && !ids.empty())
        static_cast<void>(sink(ids));
}

QVariantList JetRowStore::ReadComputed()
{
    Table& table = Rows().Rows();
    std::vector<sql::RowValues> rows;
    ReadMatching([&](Bookmark id) {
        rows.push_back([&table, id](int field) {
            const auto row = table.Find(PlaceOf(id));
            return row ? table.Value(*row, field) : QVariant();
        });
        return true;
    });
    const sql::Evaluator evaluator(std::move(rows), Time());
    QVariantList values;
    for (const sql::TypedColumn& column : m_select.columns)
        values.append(sql::ToField(evaluator.Evaluate(*column.value), column.field.type));
    return values;
}

QVariant JetRowStore::Shown(Table& table, const FoundRow& row, const sql::TypedColumn& column) const
{
    if (IsColumn(column) && table.Def().fields[column.value->field].type == column.field.type)
        return table.Value(row, column.value->field);
    return sql::ToField(sql::Evaluator(ValuesOf(table, row), Time()).Evaluate(*column.value), column.field.type);
}

std::vector<std::optional<StoredRow>> JetRowStore::Read(std::span<const Bookmark> ids, const QList<int>& fields,
                                                        Longs longs)
{
    Table& table = Rows().Rows();
    std::vector<std::optional<StoredRow>> rows;
    rows.reserve(ids.size());
    for (const Bookmark id : ids) {
        const auto found = table.Find(PlaceOf(id));
        if (!found) {
            rows.emplace_back();
            continue;
        }
        StoredRow row{1, {}};
        row.values.reserve(fields.size());
        for (const int field : fields) {
            const sql::TypedColumn& column = m_select.columns[static_cast<std::size_t>(field)];
            const bool size = longs == Longs::Sizes && column.field.type == FieldType::LongBinary;
            const int source = IsColumn(column) ? column.value->field : -1;
            if (size && source >= 0 && table.Def().fields[source].type == FieldType::LongBinary)
                row.values.append(table.SizeOf(*found, source));
            else if (const QVariant value = Shown(table, *found, column); size && value.isValid())
                row.values.append(QVariant::fromValue<qlonglong>(value.toByteArray().size()));
            else
                row.values.append(value);
        }
        rows.emplace_back(std::move(row));
    }
    return rows;
}

std::optional<qint64> JetRowStore::Version(Bookmark id)
{
    return Rows().Rows().Find(PlaceOf(id)) ? std::optional<qint64>(1) : std::nullopt;
}

QVariant JetRowStore::ReadLong(Bookmark id, int field)
{
    Table& table = Rows().Rows();
    const auto row = table.Find(PlaceOf(id));
    if (!row)
        throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
    return Shown(table, *row, m_select.columns[static_cast<std::size_t>(field)]);
}

QByteArray JetRowStore::ReadPiece(Bookmark id, int source, qint64 offset, qint64 bytes)
{
    Table& table = Rows().Rows();
    if (m_long.id != id || m_long.source != source) {
        const auto row = table.Find(PlaceOf(id));
        m_long = {id, source, row ? table.LongOf(*row, source) : nullptr};
    }
    return m_long.value ? m_long.value->Read(offset, bytes) : QByteArray();
}

Bookmark JetRowStore::Insert(const RowChanges&)
{
    throw RuntimeError(error::kFileIsReadOnly, WhyReadOnly());
}

UpdateOutcome JetRowStore::Update(Bookmark, qint64, const RowChanges&)
{
    throw RuntimeError(error::kFileIsReadOnly, WhyReadOnly());
}

bool JetRowStore::Delete(Bookmark)
{
    throw RuntimeError(error::kFileIsReadOnly, WhyReadOnly());
}

qint64 JetRowStore::CountRows()
{
    return static_cast<qint64>(Rows().InOrder(nullptr).size());
}

std::optional<Stand> JetRowStore::StandOf(const IndexDef* index, Bookmark id)
{
    return Rows().StandOf(index, id);
}

std::vector<Stand> JetRowStore::Walk(const IndexDef* index, const Stand* from, bool back, int most)
{
    const std::vector<Bookmark>& order = Rows().InOrder(index);
    std::vector<Stand> stands;
    const auto count = static_cast<qint64>(order.size());
    qint64 at = back ? count - 1 : 0;
    if (from) {
        const auto place = static_cast<qint64>(m_rows.PlaceOfStand(index, *from));
        const bool there = place < count && order[static_cast<std::size_t>(place)] == from->id;
        at = back ? place - 1 : place + (there ? 1 : 0);
    }
    for (; at >= 0 && at < count && static_cast<int>(stands.size()) < most; at += back ? -1 : 1) {
        if (auto stand = m_rows.StandOf(index, order[static_cast<std::size_t>(at)]))
            stands.push_back(std::move(*stand));
    }
    return stands;
}

qint64 JetRowStore::CountBefore(const IndexDef* index, const Stand& stand)
{
    return static_cast<qint64>(Rows().PlaceOfStand(index, stand));
}

std::optional<Bookmark> JetRowStore::Seek(const IndexDef& index, const QString& key)
{
    return Rows().Seek(index, key);
}

} // namespace vasclip::engine::jet
