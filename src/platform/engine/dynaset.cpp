#include "platform/engine/dynaset.h"

#include "platform/engine/errors.h"

#include <algorithm>
#include <numeric>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kPageRows = 32;
/// What others change shows up in a grid after this time at the latest.
constexpr std::chrono::milliseconds kPageLife{250};

} // namespace

Dynaset::Dynaset(std::shared_ptr<Session> session, sql::Plan plan)
    : RowRecordset(std::move(session), std::move(plan))
{
    ReadKeys();
    MoveFirst();
}

/// The keys of a whole table whose row numbers have no gap, known without a walk over the rows; nullopt for
/// any other.
std::optional<std::vector<qint64>> Dynaset::KeysWithoutGap() const
{
    if (!Plan().whole)
        return std::nullopt;
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString& table = Plan().tableSql;
    Query query(Open(), u"SELECT (SELECT min(%1) FROM %2), (SELECT max(%1) FROM %2), "
                        u"(SELECT count(*) FROM %2)"_s.arg(id, table));
    if (!query.Step())
        return std::nullopt;
    const qint64 first = query.Integer(0);
    const qint64 count = query.Integer(2);
    if (count > 0 && query.Integer(1) - first + 1 != count)
        return std::nullopt;
    std::vector<qint64> ids(static_cast<std::size_t>(count));
    std::iota(ids.begin(), ids.end(), first);
    return ids;
}

void Dynaset::ReadKeys()
{
    if (auto ids = KeysWithoutGap()) {
        m_ids = std::move(*ids);
        m_page = {};
        return;
    }
    std::vector<qint64> ids;
    Query query(Open(), Plan().sql);
    query.BindAll(Plan().bindings);
    if (Plan().computed) {
        if (query.Step()) {
            QVariantList values;
            for (int i = 0; i < Plan().columns.size(); ++i)
                values.append(query.Value(i, Plan().columns[i].field.type));
            ShowComputed(values);
            ids.push_back(0);
        }
    } else {
        while (query.Step())
            ids.push_back(query.Integer(0));
        // Without an order SQLite takes the rows from whatever index is smallest; ours is that of insertion.
        if (!Plan().ordered)
            std::sort(ids.begin(), ids.end());
    }
    ids.shrink_to_fit();
    m_ids = std::move(ids);
    m_page = {};
}

std::optional<qint64> Dynaset::CurrentId() const
{
    if (m_gone || m_at < 0 || m_at >= Count())
        return std::nullopt;
    return m_ids[static_cast<std::size_t>(m_at)];
}

void Dynaset::Stand(qint64 at)
{
    static_cast<void>(Open());
    CancelUpdate();
    if (!Plan().computed)
        Moved();
    m_at = at;
    m_gone = false;
}

void Dynaset::MoveFirst()
{
    Stand(m_ids.empty() ? -1 : 0);
}

void Dynaset::MoveLast()
{
    Stand(Count() - 1);
}

void Dynaset::MoveNext()
{
    static_cast<void>(Open());
    if (m_ids.empty() || (m_at >= Count() && !m_gone))
        throw RuntimeError(error::kNoCurrentRecord, u"There is no current record to move from"_s);
    Stand(m_gone ? m_at : m_at + 1);
}

void Dynaset::MovePrevious()
{
    static_cast<void>(Open());
    if (m_ids.empty() || m_at < 0)
        throw RuntimeError(error::kNoCurrentRecord, u"There is no current record to move from"_s);
    Stand(m_at - 1);
}

qint64 Dynaset::AbsolutePosition() const
{
    return CurrentId() ? m_at : -1;
}

void Dynaset::SetAbsolutePosition(qint64 position)
{
    if (position < 0 || position >= Count())
        throw RuntimeError(error::kNoCurrentRecord,
                           u"There is no record number %1 among %2"_s.arg(QString::number(position + 1),
                                                                          QString::number(Count())));
    Stand(position);
}

qint64 Dynaset::PositionOf(const Bookmark& bookmark) const
{
    const auto found = std::find(m_ids.begin(), m_ids.end(), bookmark);
    return found == m_ids.end() ? -1 : found - m_ids.begin();
}

void Dynaset::SetBookmark(const Bookmark& bookmark)
{
    const qint64 position = PositionOf(bookmark);
    if (position < 0)
        throw RuntimeError(error::kBadBookmark, u"The bookmark is not valid: its record is gone"_s);
    Stand(position);
}

void Dynaset::SetIndex(const QString&)
{
    throw RuntimeError(error::kInvalidOperation, u"A query has no index to choose"_s);
}

void Dynaset::Seek(const QString&, const QString&)
{
    throw RuntimeError(error::kInvalidOperation, u"Seek works on a table, not on a query"_s);
}

void Dynaset::RowAdded(qint64 id)
{
    m_ids.push_back(id);
}

void Dynaset::RowDeleted(qint64)
{
    m_ids.erase(m_ids.begin() + m_at);
    m_gone = true;
}

void Dynaset::ReadPage(qint64 first, const QList<int>& fields) const
{
    Connection& connection = Open();
    QStringList columns;
    for (const int field : fields) {
        if (field < 0 || field >= Fields().size())
            throw RuntimeError(error::kFieldUnknown, u"There is no field number %1"_s.arg(field));
        columns.append(Plan().columns[field].sql);
    }
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString select = u"SELECT %1%2 FROM %3 WHERE %1 "_s.arg(
        id, columns.isEmpty() ? QString() : u", "_s + columns.join(u", "_s), Plan().tableSql);
    const Reading reading(connection);
    Page page;
    page.first = first;
    page.fields = fields;
    page.generation = connection.Generation();
    const qint64 last = std::min(first + kPageRows, Count());
    const auto idAt = [this](qint64 at) { return m_ids[static_cast<std::size_t>(at)]; };
    const auto read = [&fields, this](Query& query) {
        QVariantList values;
        values.reserve(fields.size());
        for (qsizetype i = 0; i < fields.size(); ++i)
            values.append(query.Value(static_cast<int>(i) + 1, Fields()[fields[i]].type));
        return values;
    };
    if (!Plan().ordered && last > first && idAt(last - 1) - idAt(first) == last - 1 - first) {
        // A run of ids takes one statement instead of one for each row.
        Query query(connection, select + u"BETWEEN ?1 AND ?1 + %1 ORDER BY %2"_s.arg(
                                             QString::number(last - 1 - first), id));
        query.Bind(1, idAt(first)).BindAll(Plan().columnBindings, 2);
        page.rows.resize(last - first); // one that somebody took away meanwhile stays empty
        while (query.Step())
            page.rows[query.Integer(0) - idAt(first)] = read(query);
    } else {
        // Begun and not ended, it keeps the file's read lock for the page; each row would take and drop it
        // anew.
        Query lock(connection, u"SELECT 1 FROM sqlite_master"_s);
        static_cast<void>(lock.Step());
        Query query(connection, select + u"= ?1"_s);
        query.BindAll(Plan().columnBindings, 2);
        for (qint64 at = first; at < last; ++at) {
            query.Bind(1, idAt(at));
            page.rows.append(query.Step() ? read(query) : QVariantList());
            query.Again();
        }
    }
    page.read = Clock::now();
    m_page = std::move(page);
}

QVariantList Dynaset::Peek(qint64 position, const QList<int>& fields) const
{
    Connection& connection = Open();
    if (position < 0 || position >= Count())
        throw RuntimeError(error::kNoCurrentRecord,
                           u"There is no record number %1 among %2"_s.arg(QString::number(position + 1),
                                                                          QString::number(Count())));
    if (Plan().computed) {
        QVariantList values;
        for (const int field : fields)
            values.append(Value(field));
        return values;
    }
    const bool fresh = m_page.fields == fields && m_page.generation == connection.Generation() &&
                       position >= m_page.first && position < m_page.first + m_page.rows.size() &&
                       Clock::now() - m_page.read < kPageLife;
    if (!fresh)
        ReadPage(position / kPageRows * kPageRows, fields);
    return m_page.rows[position - m_page.first];
}

void Dynaset::Requery()
{
    ReadKeys();
    MoveFirst();
}

} // namespace vasclip::engine
