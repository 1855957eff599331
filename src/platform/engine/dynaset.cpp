#include "platform/engine/dynaset.h"

#include "platform/engine/errors.h"

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kPageRows = 32;
/// What others change shows up in a grid after this time at the latest.
constexpr std::chrono::milliseconds kPageLife{250};

} // namespace

Dynaset::Dynaset(std::unique_ptr<RowStore> store)
    : RowRecordset(std::move(store))
{
    ReadKeys();
    MoveFirst();
}

void Dynaset::ReadKeys()
{
    RowStore& store = Store();
    std::vector<Bookmark> ids;
    if (Shape().computed) {
        ShowComputed(store.ReadComputed());
        ids.push_back({});
    } else {
        store.ReadKeys([&ids](std::span<const Bookmark> some) {
            ids.insert(ids.end(), some.begin(), some.end());
            return true;
        });
    }
    ids.shrink_to_fit();
    m_ids = std::move(ids);
    m_page = {};
    m_places.reset();
}

std::optional<Bookmark> Dynaset::CurrentId() const
{
    if (m_gone || m_at < 0 || m_at >= Count())
        return std::nullopt;
    return m_ids[static_cast<std::size_t>(m_at)];
}

void Dynaset::Stand(qint64 at)
{
    static_cast<void>(Store());
    CancelUpdate();
    if (!Shape().computed)
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
    static_cast<void>(Store());
    if (m_ids.empty() || (m_at >= Count() && !m_gone))
        throw RuntimeError(error::kNoCurrentRecord, u"There is no current record to move from"_s);
    Stand(m_gone ? m_at : m_at + 1);
}

void Dynaset::MovePrevious()
{
    static_cast<void>(Store());
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

std::vector<qint64> Dynaset::PositionsOf(const std::vector<Bookmark>& bookmarks) const
{
    if (!m_places)
        m_places.emplace(m_ids);
    std::vector<qint64> positions;
    positions.reserve(bookmarks.size());
    for (const Bookmark bookmark : bookmarks)
        positions.push_back(m_places->Of(bookmark));
    return positions;
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

void Dynaset::RowAdded(Bookmark id)
{
    m_ids.push_back(id);
    m_places.reset();
}

void Dynaset::RowDeleted(Bookmark)
{
    m_ids.erase(m_ids.begin() + m_at);
    m_places.reset();
    m_gone = true;
}

void Dynaset::ReadPage(qint64 first, const QList<int>& fields) const
{
    RowStore& store = Store();
    for (const int field : fields) {
        if (field < 0 || field >= Fields().size())
            throw RuntimeError(error::kFieldUnknown, u"There is no field number %1"_s.arg(field));
    }
    Page page;
    page.first = first;
    page.fields = fields;
    page.generation = store.Generation();
    const auto rows = static_cast<std::size_t>(std::min(kPageRows, Count() - first));
    const std::span<const Bookmark> ids{m_ids.data() + first, rows};
    for (auto& row : store.Read(ids, fields, Longs::Whole))
        page.rows.append(row ? std::move(row->values) : QVariantList());
    page.read = Clock::now();
    m_page = std::move(page);
}

QVariantList Dynaset::Peek(qint64 position, const QList<int>& fields) const
{
    const RowStore& store = Store();
    if (position < 0 || position >= Count())
        throw RuntimeError(error::kNoCurrentRecord,
                           u"There is no record number %1 among %2"_s.arg(QString::number(position + 1),
                                                                          QString::number(Count())));
    if (Shape().computed) {
        QVariantList values;
        for (const int field : fields)
            values.append(Value(field));
        return values;
    }
    const bool fresh = m_page.fields == fields && m_page.generation == store.Generation() &&
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
