#include "platform/engine/table_recordset.h"

#include "platform/engine/errors.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

const QString& IdName()
{
    static const QString name = QString::fromUtf16(sql::kIdColumn);
    return name;
}

} // namespace

TableRecordset::TableRecordset(std::shared_ptr<Session> session, sql::Plan plan)
    : RowRecordset(std::move(session), std::move(plan))
{
    Build();
    MoveFirst();
}

std::optional<qint64> TableRecordset::CurrentId() const
{
    return m_place == Place::Row ? std::optional(m_stand.id) : std::nullopt;
}

void TableRecordset::Build()
{
    m_keys.clear();
    m_types.clear();
    m_unique = false;
    for (const IndexDef& index : Table().indexes) {
        if (m_index.isEmpty() || index.name.compare(m_index, Qt::CaseInsensitive) != 0)
            continue;
        m_unique = index.unique || index.primary;
        for (const QString& name : index.fields) {
            m_keys.append(QuoteName(name));
            for (const Field& field : Table().fields) {
                if (field.name.compare(name, Qt::CaseInsensitive) == 0)
                    m_types.append(field.type);
            }
        }
    }
    m_seekSql.clear();
    if (m_keys.isEmpty())
        return;
    m_seekSql = u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(IdName(), Plan().tableSql, m_keys.front());
    // Of several with one key, the first in the order of the index.
    if (!m_unique || m_keys.size() > 1)
        m_seekSql += u" ORDER BY %1, %2 LIMIT 1"_s.arg(m_keys.join(u", "_s), IdName());
}

QString TableRecordset::KeyColumns() const
{
    return m_keys.isEmpty() ? IdName() : IdName() + u", "_s + m_keys.join(u", "_s);
}

std::optional<TableRecordset::Stand> TableRecordset::ReadStand(qint64 id) const
{
    Query query(Open(), u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(KeyColumns(), Plan().tableSql, IdName()));
    query.Bind(1, id);
    if (!query.Step())
        return std::nullopt;
    Stand stand{id, {}};
    for (int i = 0; i < m_keys.size(); ++i)
        stand.key.append(query.Value(i + 1, m_types[i]));
    return stand;
}

std::optional<TableRecordset::Stand> TableRecordset::Edge(bool last) const
{
    QStringList order = m_keys;
    order.append(IdName());
    if (last) {
        for (QString& term : order)
            term += u" DESC"_s;
    }
    Query query(Open(), u"SELECT %1 FROM %2 ORDER BY %3 LIMIT 1"_s.arg(KeyColumns(), Plan().tableSql,
                                                                       order.join(u", "_s)));
    if (!query.Step())
        return std::nullopt;
    Stand stand{query.Integer(0), {}};
    for (int i = 0; i < m_keys.size(); ++i)
        stand.key.append(query.Value(i + 1, m_types[i]));
    return stand;
}

namespace {

/// The rows that agree in the first `level` keys and lie beyond in the next one: one range of the index.
QString Range(const QStringList& terms, int level, bool back, bool isNull)
{
    QStringList tests;
    for (int i = 0; i < level; ++i)
        tests.append(u"%1 IS ?%2"_s.arg(terms[i], QString::number(i + 1)));
    // Null comes first: behind it lies everything that is not, before it nothing.
    if (isNull)
        tests.append(terms[level] + (back ? u" < NULL"_s : u" IS NOT NULL"_s));
    else
        tests.append(u"%1 %2 ?%3"_s.arg(terms[level], back ? u"<"_s : u">"_s, QString::number(level + 1)));
    return tests.join(u" AND "_s);
}

} // namespace

std::optional<TableRecordset::Stand> TableRecordset::Neighbour(const Stand& from, bool back) const
{
    QStringList terms = m_keys;
    terms.append(IdName());
    QVariantList key = from.key;
    key.append(QVariant::fromValue(static_cast<qlonglong>(from.id)));
    const QString direction = back ? u" DESC"_s : QString();
    const auto find = [&](const QString& range, int level, int bound) -> std::optional<Stand> {
        QStringList order;
        for (qsizetype i = level; i < terms.size(); ++i)
            order.append(terms[i] + direction);
        Query query(Open(), u"SELECT %1 FROM %2 WHERE %3 ORDER BY %4 LIMIT 1"_s.arg(
                                KeyColumns(), Plan().tableSql, range, order.join(u", "_s)));
        query.BindAll(key.mid(0, bound));
        if (!query.Step())
            return std::nullopt;
        Stand stand{query.Integer(0), {}};
        for (int i = 0; i < m_keys.size(); ++i)
            stand.key.append(query.Value(i + 1, m_types[i]));
        return stand;
    };
    for (auto level = static_cast<int>(terms.size()) - 1; level >= 0; --level) {
        const bool isNull = !key[level].isValid();
        const bool ownKeyIsAlone = m_unique && level == m_keys.size() && !from.key.contains(QVariant());
        if (ownKeyIsAlone || (isNull && back))
            continue;
        if (auto found = find(Range(terms, level, back, isNull), level, level + (isNull ? 0 : 1)))
            return found;
        if (back && !isNull && level < m_keys.size()) {
            // The comparison leaves out the Nulls, which lie before all others.
            QStringList tests;
            for (int i = 0; i < level; ++i)
                tests.append(u"%1 IS ?%2"_s.arg(terms[i], QString::number(i + 1)));
            tests.append(terms[level] + u" IS NULL"_s);
            if (auto found = find(tests.join(u" AND "_s), level, level))
                return found;
        }
    }
    return std::nullopt;
}

void TableRecordset::Land(std::optional<Stand> stand, Place otherwise)
{
    Moved();
    m_noMatch = false;
    m_place = stand ? Place::Row : otherwise;
    if (stand)
        m_stand = std::move(*stand);
    m_keyKnown = true;
}

void TableRecordset::MoveFirst()
{
    Land(Edge(false), Place::Nowhere);
}

void TableRecordset::MoveLast()
{
    Land(Edge(true), Place::Nowhere);
}

void TableRecordset::Step(bool back)
{
    static_cast<void>(Open());
    const Place wrongEnd = back ? Place::Before : Place::Behind;
    if (m_place == wrongEnd || m_place == Place::Nowhere || m_place == Place::Missed)
        throw RuntimeError(error::kNoCurrentRecord, u"There is no current record to move from"_s);
    if (m_place == Place::Before || m_place == Place::Behind) {
        Land(Edge(back), Place::Nowhere);
        return;
    }
    if (!m_keyKnown) {
        const auto stand = ReadStand(m_stand.id);
        if (!stand)
            throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
        m_stand = *stand;
    }
    Land(Neighbour(m_stand, back), wrongEnd);
}

void TableRecordset::MoveNext()
{
    Step(false);
}

void TableRecordset::MovePrevious()
{
    Step(true);
}

qint64 TableRecordset::RecordCount() const
{
    Query query(Open(), u"SELECT count(*) FROM %1"_s.arg(Plan().tableSql));
    return query.Step() ? query.Integer(0) : 0;
}

qint64 TableRecordset::RowsBefore(const Stand& stand) const
{
    QStringList terms = m_keys;
    terms.append(IdName());
    QVariantList key = stand.key;
    key.append(QVariant::fromValue(static_cast<qlonglong>(stand.id)));
    qint64 rows = 0;
    const auto count = [&](const QString& range, int bound) {
        Query query(Open(), u"SELECT count(*) FROM %1 WHERE %2"_s.arg(Plan().tableSql, range));
        query.BindAll(key.mid(0, bound));
        rows += query.Step() ? query.Integer(0) : 0;
    };
    for (int level = 0; level < terms.size(); ++level) {
        if (!key[level].isValid())
            continue;
        count(Range(terms, level, true, false), level + 1);
        if (level < m_keys.size()) {
            QStringList tests;
            for (int i = 0; i < level; ++i)
                tests.append(u"%1 IS ?%2"_s.arg(terms[i], QString::number(i + 1)));
            tests.append(terms[level] + u" IS NULL"_s);
            count(tests.join(u" AND "_s), level);
        }
    }
    return rows;
}

qint64 TableRecordset::AbsolutePosition() const
{
    if (m_place != Place::Row)
        return -1;
    return PositionOf(m_stand.id);
}

qint64 TableRecordset::PositionOf(const Bookmark& bookmark) const
{
    const auto stand = ReadStand(bookmark);
    return stand ? RowsBefore(*stand) : -1;
}

void TableRecordset::SetAbsolutePosition(qint64)
{
    throw RuntimeError(error::kInvalidOperation, u"The position of a table can not be set by number"_s);
}

QVariantList TableRecordset::Peek(qint64, const QList<int>&) const
{
    throw RuntimeError(error::kInvalidOperation, u"The rows of a table can not be read by number"_s);
}

void TableRecordset::SetBookmark(const Bookmark& bookmark)
{
    auto stand = ReadStand(bookmark);
    if (!stand)
        throw RuntimeError(error::kBadBookmark, u"The bookmark is not valid: its record is gone"_s);
    Land(std::move(stand), Place::Nowhere);
}

void TableRecordset::SetIndex(const QString& name)
{
    if (name.compare(m_index, Qt::CaseInsensitive) == 0)
        return;
    if (!name.isEmpty()) {
        bool known = false;
        for (const IndexDef& index : Table().indexes)
            known = known || index.name.compare(name, Qt::CaseInsensitive) == 0;
        if (!known)
            throw RuntimeError(error::kNoSuchIndex,
                               u"'%1' is not an index of the table '%2'"_s.arg(name, Table().name));
    }
    static_cast<void>(Open());
    m_index = name;
    Build();
    // The record stays where it is; only its neighbours are others now.
    m_keyKnown = false;
}

void TableRecordset::Seek(const QString& comparison, const QString& key)
{
    Connection& connection = Open();
    if (comparison != u"=")
        throw RuntimeError(error::kInvalidOperation,
                           u"Seek compares with \"=\" only, not with \"%1\""_s.arg(comparison));
    if (m_keys.isEmpty())
        throw RuntimeError(error::kNoSuchIndex,
                           u"Seek needs an index, and none of '%1' is chosen"_s.arg(Table().name));
    qint64 id = 0;
    bool found = false;
    {
        Query query(connection, m_seekSql);
        query.Bind(1, key);
        found = query.Step();
        if (found)
            id = query.Integer(0);
    }
    Moved();
    m_noMatch = !found;
    m_place = found ? Place::Row : Place::Missed;
    m_stand = {id, {}};
    m_keyKnown = false;
}

void TableRecordset::RowChanged(qint64 id)
{
    m_stand.id = id;
    m_keyKnown = false;
}

void TableRecordset::RowDeleting(qint64 id)
{
    if (m_keyKnown)
        return;
    if (const auto stand = ReadStand(id)) {
        m_stand = *stand;
        m_keyKnown = true;
    }
}

void TableRecordset::Requery()
{
    MoveFirst();
}

} // namespace vasclip::engine
