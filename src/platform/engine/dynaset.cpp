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
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString& table = Plan().tableSql;
    if (Plan().computed || Plan().ordered || Plan().sql != u"SELECT %1 FROM %2"_s.arg(id, table))
        return std::nullopt;
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
    const QString sql =
        u"SELECT %1 FROM %2 WHERE %3 = ?1"_s.arg(columns.isEmpty() ? u"1"_s : columns.join(u", "_s),
                                                 Plan().tableSql, QString::fromUtf16(sql::kIdColumn));
    const Reading reading(connection);
    Page page;
    page.first = first;
    page.fields = fields;
    page.generation = connection.Generation();
    const qint64 last = std::min(first + kPageRows, Count());
    // Begun and not ended, it keeps the file's read lock for the page; each row would take and drop it anew.
    Query lock(connection, u"SELECT 1 FROM sqlite_master"_s);
    static_cast<void>(lock.Step());
    Query query(connection, sql);
    query.BindAll(Plan().columnBindings, 2);
    for (qint64 at = first; at < last; ++at) {
        QVariantList values;
        query.Bind(1, m_ids[static_cast<std::size_t>(at)]);
        if (query.Step()) {
            for (qsizetype i = 0; i < fields.size(); ++i)
                values.append(query.Value(static_cast<int>(i), Fields()[fields[i]].type));
        }
        query.Again();
        page.rows.append(std::move(values));
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
