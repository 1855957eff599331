// The walk of a SQLite table in the order of an index: each step is one range of the index.

#include "platform/engine/sqlite/sqlite_row_store.h"

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

QString IdName()
{
    return QString::fromUtf16(sql::kIdColumn);
}

/// The terms that decide the place of a row: its key, and itself among equals.
QStringList Terms(const QStringList& columns)
{
    return columns + QStringList{IdName()};
}

QVariantList Values(const Stand& stand)
{
    QVariantList values = stand.key;
    values.append(QVariant::fromValue(static_cast<qlonglong>(stand.id)));
    return values;
}

/// Agreement in the first `level` terms.
QStringList Agreement(const QStringList& terms, int level)
{
    QStringList tests;
    for (int i = 0; i < level; ++i)
        tests.append(u"%1 IS ?%2"_s.arg(terms[i], QString::number(i + 1)));
    return tests;
}

/// The rows that agree in the first `level` terms and lie beyond in the next one: one range of the index.
QString Range(const QStringList& terms, int level, bool back, bool isNull)
{
    QStringList tests = Agreement(terms, level);
    // Null comes first: behind it lies everything that is not, before it nothing.
    if (isNull)
        tests.append(terms[level] + (back ? u" < NULL"_s : u" IS NOT NULL"_s));
    else
        tests.append(u"%1 %2 ?%3"_s.arg(terms[level], back ? u"<"_s : u">"_s, QString::number(level + 1)));
    return tests.join(u" AND "_s);
}

/// The Nulls of a term, which a comparison leaves out and which lie before all others.
QString NullRange(const QStringList& terms, int level)
{
    return (Agreement(terms, level) << terms[level] + u" IS NULL"_s).join(u" AND "_s);
}

QString Shown(const QStringList& columns)
{
    return (QStringList{IdName()} + columns).join(u", "_s);
}

} // namespace

const SqliteRowStore::Keys& SqliteRowStore::KeysOf(const IndexDef* index)
{
    const QString name = index ? index->name : QString();
    if (m_keys.index == name)
        return m_keys;
    m_keys = {name, {}, {}, index && (index->unique || index->primary)};
    if (!index)
        return m_keys;
    for (const QString& column : index->fields) {
        m_keys.columns.append(QuoteName(column));
        const auto field = std::find_if(
            m_plan.table.fields.begin(), m_plan.table.fields.end(),
            [&](const Field& one) { return one.name.compare(column, Qt::CaseInsensitive) == 0; });
        m_keys.types.append(field->type);
    }
    return m_keys;
}

Stand SqliteRowStore::StandAt(const Query& query, const Keys& keys)
{
    Stand stand{Bookmark{query.Integer(0)}, {}};
    for (int i = 0; i < keys.columns.size(); ++i)
        stand.key.append(query.Value(i + 1, keys.types[i]));
    return stand;
}

std::optional<Stand> SqliteRowStore::StandOf(const IndexDef* index, Bookmark id)
{
    const Keys& keys = KeysOf(index);
    Query query(Open(),
                u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(Shown(keys.columns), m_plan.tableSql, IdName()));
    query.Bind(1, static_cast<qint64>(id));
    return query.Step() ? std::optional(StandAt(query, keys)) : std::nullopt;
}

std::optional<Stand> SqliteRowStore::Edge(const Keys& keys, bool last)
{
    QStringList order = Terms(keys.columns);
    if (last) {
        for (QString& term : order)
            term += u" DESC"_s;
    }
    Query query(Open(), u"SELECT %1 FROM %2 ORDER BY %3 LIMIT 1"_s.arg(Shown(keys.columns), m_plan.tableSql,
                                                                       order.join(u", "_s)));
    return query.Step() ? std::optional(StandAt(query, keys)) : std::nullopt;
}

std::optional<Stand> SqliteRowStore::Neighbour(const Keys& keys, const Stand& from, bool back)
{
    const QStringList terms = Terms(keys.columns);
    const QVariantList values = Values(from);
    const QString direction = back ? u" DESC"_s : QString();
    const auto find = [&](const QString& range, int level, int bound) -> std::optional<Stand> {
        QStringList order;
        for (qsizetype i = level; i < terms.size(); ++i)
            order.append(terms[i] + direction);
        Query query(Open(), u"SELECT %1 FROM %2 WHERE %3 ORDER BY %4 LIMIT 1"_s.arg(
                                Shown(keys.columns), m_plan.tableSql, range, order.join(u", "_s)));
        query.BindAll(values.mid(0, bound));
        return query.Step() ? std::optional(StandAt(query, keys)) : std::nullopt;
    };
    for (auto level = static_cast<int>(terms.size()) - 1; level >= 0; --level) {
        const bool isNull = !values[level].isValid();
        const bool isKey = level < keys.columns.size();
        const bool ownKeyIsAlone = keys.unique && !isKey && !from.key.contains(QVariant());
        if (ownKeyIsAlone || (isNull && back))
            continue;
        if (auto found = find(Range(terms, level, back, isNull), level, level + (isNull ? 0 : 1)))
            return found;
        if (back && !isNull && isKey) {
            if (auto found = find(NullRange(terms, level), level, level))
                return found;
        }
    }
    return std::nullopt;
}

std::vector<Stand> SqliteRowStore::Walk(const IndexDef* index, const Stand* from, bool back, int)
{
    const Keys& keys = KeysOf(index);
    std::optional<Stand> next = from ? Neighbour(keys, *from, back) : Edge(keys, back);
    std::vector<Stand> stands;
    if (next)
        stands.push_back(std::move(*next));
    return stands;
}

qint64 SqliteRowStore::CountBefore(const IndexDef* index, const Stand& stand)
{
    const Keys& keys = KeysOf(index);
    const QStringList terms = Terms(keys.columns);
    const QVariantList values = Values(stand);
    qint64 rows = 0;
    const auto count = [&](const QString& range, int bound) {
        Query query(Open(), u"SELECT count(*) FROM %1 WHERE %2"_s.arg(m_plan.tableSql, range));
        query.BindAll(values.mid(0, bound));
        rows += query.Step() ? query.Integer(0) : 0;
    };
    for (int level = 0; level < terms.size(); ++level) {
        if (!values[level].isValid())
            continue;
        count(Range(terms, level, true, false), level + 1);
        if (level < keys.columns.size())
            count(NullRange(terms, level), level);
    }
    return rows;
}

std::optional<Bookmark> SqliteRowStore::Seek(const IndexDef& index, const QString& key)
{
    if (m_seekSql.isEmpty() || m_seekIndex != index.name) {
        const Keys& keys = KeysOf(&index);
        m_seekIndex = index.name;
        m_seekSql =
            u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(IdName(), m_plan.tableSql, keys.columns.front());
        // Of several with one key, the first in the order of the index.
        if (!keys.unique || keys.columns.size() > 1)
            m_seekSql += u" ORDER BY %1, %2 LIMIT 1"_s.arg(keys.columns.join(u", "_s), IdName());
    }
    Query query(Open(), m_seekSql);
    query.Bind(1, key);
    return query.Step() ? std::optional(Bookmark{query.Integer(0)}) : std::nullopt;
}

} // namespace vasclip::engine
