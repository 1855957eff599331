#include "platform/engine/jet/table_rows.h"

#include "platform/engine/sql_functions.h"

#include <algorithm>

namespace vasclip::engine::jet {

namespace {

/// Below, equal to or above 0, by the values alone.
int CompareKeys(const QVariantList& left, const QVariantList& right)
{
    for (qsizetype i = 0; i < left.size() && i < right.size(); ++i) {
        const int order = sql::Compare(left[i], right[i]);
        if (order != 0)
            return order;
    }
    return 0;
}

} // namespace

std::vector<int> TableRows::FieldsOf(const IndexDef* index) const
{
    std::vector<int> places;
    const FieldList& fields = m_table->Def().fields;
    for (const QString& name : index ? index->fields : QStringList()) {
        for (int i = 0; i < fields.size(); ++i) {
            if (fields[i].name.compare(name, Qt::CaseInsensitive) == 0)
                places.push_back(i);
        }
    }
    return places;
}

QVariantList TableRows::KeyOf(const std::vector<int>& fields, Bookmark id)
{
    QVariantList key;
    if (fields.empty())
        return key;
    const auto row = m_table->Find(PlaceOf(id));
    for (const int field : fields)
        key.append(row ? sql::FromField(m_table->Value(*row, field)) : QVariant());
    return key;
}

const std::vector<Bookmark>& TableRows::InOrder(const IndexDef* index)
{
    const QString name = index ? index->name : QString();
    const auto known = m_orders.find(name);
    if (known != m_orders.end())
        return known->second;
    std::vector<Bookmark> order;
    if (!index) {
        m_table->ForEach([&](const FoundRow& row) {
            order.push_back(BookmarkOf(row.home));
            return true;
        });
        return m_orders[name] = std::move(order);
    }
    const std::vector<int> fields = FieldsOf(index);
    std::vector<std::pair<QVariantList, Bookmark>> keyed;
    for (const Bookmark id : InOrder(nullptr))
        keyed.emplace_back(KeyOf(fields, id), id);
    std::sort(keyed.begin(), keyed.end(), [](const auto& left, const auto& right) {
        const int order = CompareKeys(left.first, right.first);
        return order != 0 ? order < 0 : left.second < right.second;
    });
    order.reserve(keyed.size());
    for (const auto& [key, id] : keyed)
        order.push_back(id);
    return m_orders[name] = std::move(order);
}

std::optional<Stand> TableRows::StandOf(const IndexDef* index, Bookmark id)
{
    if (!m_table->Find(PlaceOf(id)))
        return std::nullopt;
    return Stand{id, KeyOf(FieldsOf(index), id)};
}

std::size_t TableRows::PlaceOfStand(const IndexDef* index, const Stand& stand)
{
    const std::vector<Bookmark>& order = InOrder(index);
    const std::vector<int> fields = FieldsOf(index);
    const auto found = std::partition_point(order.begin(), order.end(), [&](Bookmark id) {
        const int before = CompareKeys(KeyOf(fields, id), stand.key);
        return before != 0 ? before < 0 : id < stand.id;
    });
    return static_cast<std::size_t>(found - order.begin());
}

std::optional<Bookmark> TableRows::Seek(const IndexDef& index, const QString& key)
{
    const std::vector<Bookmark>& order = InOrder(&index);
    std::vector<int> fields = FieldsOf(&index);
    fields.resize(std::min<std::size_t>(fields.size(), 1));
    const FieldType type = fields.empty() ? FieldType::Text : m_table->Def().fields[fields.front()].type;
    const bool text = type == FieldType::Text || type == FieldType::Memo;
    const QVariantList wanted{text ? QVariant(key) : QVariant(sql::AsNumber(key))};
    const auto found = std::partition_point(order.begin(), order.end(),
                                            [&](Bookmark id) { return CompareKeys(KeyOf(fields, id), wanted) < 0; });
    if (found == order.end() || CompareKeys(KeyOf(fields, *found), wanted) != 0)
        return std::nullopt;
    return *found;
}

} // namespace vasclip::engine::jet
