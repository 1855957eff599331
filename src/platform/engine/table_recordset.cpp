#include "platform/engine/table_recordset.h"

#include "platform/engine/errors.h"

#include <algorithm>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// How many rows ahead are asked for; what another user changes there shows at the latest so many rows later.
constexpr int kReadAhead = 64;

} // namespace

TableRecordset::TableRecordset(std::unique_ptr<RowStore> store)
    : RowRecordset(std::move(store))
{
    MoveFirst();
}

std::optional<Bookmark> TableRecordset::CurrentId() const
{
    return m_place == Place::Row ? std::optional(m_stand.id) : std::nullopt;
}

const IndexDef* TableRecordset::Order() const
{
    if (m_index.isEmpty())
        return nullptr;
    const auto& indexes = Table().indexes;
    const auto found = std::find_if(indexes.begin(), indexes.end(), [this](const IndexDef& index) {
        return index.name.compare(m_index, Qt::CaseInsensitive) == 0;
    });
    return found == indexes.end() ? nullptr : &*found;
}

std::optional<Stand> TableRecordset::Edge(bool last)
{
    m_ahead = {};
    auto stands = Store().Walk(Order(), nullptr, last, 1);
    return stands.empty() ? std::nullopt : std::optional(std::move(stands.front()));
}

std::optional<Stand> TableRecordset::Neighbour(bool back)
{
    RowStore& store = Store();
    const bool ahead = m_ahead.next < m_ahead.stands.size() && m_ahead.back == back &&
                       m_ahead.generation == store.Generation();
    if (!ahead)
        m_ahead = {store.Walk(Order(), &m_stand, back, kReadAhead), 0, back, store.Generation()};
    if (m_ahead.stands.empty())
        return std::nullopt;
    return std::move(m_ahead.stands[m_ahead.next++]);
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
    static_cast<void>(Store());
    const Place wrongEnd = back ? Place::Before : Place::Behind;
    if (m_place == wrongEnd || m_place == Place::Nowhere || m_place == Place::Missed)
        throw RuntimeError(error::kNoCurrentRecord, u"There is no current record to move from"_s);
    if (m_place == Place::Before || m_place == Place::Behind) {
        Land(Edge(back), Place::Nowhere);
        return;
    }
    if (!m_keyKnown) {
        const auto stand = Store().StandOf(Order(), m_stand.id);
        if (!stand)
            throw RuntimeError(error::kRecordDeleted, u"The record was deleted by somebody else"_s);
        m_stand = *stand;
    }
    Land(Neighbour(back), wrongEnd);
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
    return Store().CountRows();
}

qint64 TableRecordset::AbsolutePosition() const
{
    if (m_place != Place::Row)
        return -1;
    return PositionOf(m_stand.id);
}

qint64 TableRecordset::PositionOf(const Bookmark& bookmark) const
{
    const auto stand = Store().StandOf(Order(), bookmark);
    return stand ? Store().CountBefore(Order(), *stand) : -1;
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
    m_ahead = {};
    auto stand = Store().StandOf(Order(), bookmark);
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
    static_cast<void>(Store());
    m_index = name;
    m_ahead = {};
    // The record stays where it is; only its neighbours are others now.
    m_keyKnown = false;
}

void TableRecordset::Seek(const QString& comparison, const QString& key)
{
    RowStore& store = Store();
    if (comparison != u"=")
        throw RuntimeError(error::kInvalidOperation,
                           u"Seek compares with \"=\" only, not with \"%1\""_s.arg(comparison));
    const IndexDef* order = Order();
    if (!order)
        throw RuntimeError(error::kNoSuchIndex,
                           u"Seek needs an index, and none of '%1' is chosen"_s.arg(Table().name));
    const std::optional<Bookmark> found = store.Seek(*order, key);
    Moved();
    m_ahead = {};
    m_noMatch = !found;
    m_place = found ? Place::Row : Place::Missed;
    m_stand = {found.value_or(Bookmark{}), {}};
    m_keyKnown = false;
}

void TableRecordset::RowChanged(Bookmark id)
{
    m_stand.id = id;
    m_keyKnown = false;
}

void TableRecordset::RowDeleting(Bookmark id)
{
    if (m_keyKnown)
        return;
    if (const auto stand = Store().StandOf(Order(), id)) {
        m_stand = *stand;
        m_keyKnown = true;
    }
}

void TableRecordset::Requery()
{
    MoveFirst();
}

} // namespace vasclip::engine
