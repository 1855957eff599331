#include "platform/engine/jet/table_writer.h"

#include "platform/engine/jet/index_key.h"
#include "platform/engine/jet/jet_text.h"
#include "platform/engine/jet/row_writer.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

TableWriter::TableWriter(PageWriter& pages, MapWriter& maps, NewTable table, std::optional<SystemPlace> system)
    : m_pages(pages)
    , m_maps(maps)
    , m_table(std::move(table))
    , m_system(system)
{
    DefinitionFacts blank;
    int longs = 0;
    for (const NewColumn& column : std::as_const(m_table.columns)) {
        m_longs.push_back(column.Long() ? std::make_unique<LongWriter>(m_pages) : nullptr);
        longs += column.Long() ? 1 : 0;
    }
    blank.longs.resize(longs);
    blank.indexes.resize(m_table.indexes.size());
    const int needed = PageCountOf(DefinitionBlock(m_table, blank).size());
    for (int i = 0; i < needed; ++i)
        m_definition.append(m_system ? m_system->definition : m_pages.Take());

    const auto count = static_cast<int>(2 + 2 * longs + m_table.indexes.size());
    std::vector<RowPointer> places;
    if (m_system)
        std::generate_n(std::back_inserter(places), count, [&] { return m_maps.TakeSystem(); });
    else
        places = m_maps.Take(count);
    std::size_t next = 0;
    m_owned = places[next++];
    m_withRoom = places[next++];
    for (int i = 0; i < longs; ++i, next += 2)
        m_longMaps.emplace_back(places[next], places[next + 1]);
    for (qsizetype i = 0; i < m_table.indexes.size(); ++i)
        m_indexes.push_back({m_table.indexes[i],
                             m_system ? m_system->firstRoot + static_cast<quint32>(i) : m_pages.Take(), places[next++],
                             std::make_unique<EntrySorter>(m_pages.Native()), {}, {}});
}

RowPointer TableWriter::Place(const QByteArray& row)
{
    int number = m_builder ? m_builder->Add(row) : -1;
    if (number < 0) {
        if (m_builder)
            m_pages.Write(m_page, m_builder->Bytes());
        const bool first = !m_builder && m_system && m_system->firstData != 0;
        m_page = first ? m_system->firstData : m_pages.Take();
        m_data.Add(m_page);
        m_builder.emplace(Page());
        number = m_builder->Add(row);
    }
    return {m_page, static_cast<quint8>(number)};
}

void TableWriter::Add(const QVariantList& values)
{
    QList<QByteArray> stored;
    stored.reserve(values.size());
    for (qsizetype i = 0; i < values.size(); ++i) {
        const NewColumn& column = m_table.columns[i];
        if (column.type == ColumnType::Boolean && !values[i].isValid() && !m_table.system)
            ++m_emptyTruths;
        LongWriter* const longs = m_longs[static_cast<std::size_t>(i)].get();
        if (!values[i].isValid())
            stored.append(QByteArray());
        else if (const LongSource* source = LongSourceOf(values[i]); source && longs)
            stored.append(longs->Add(*source));
        else if (longs)
            stored.append(longs->Add(column.type == ColumnType::Memo
                                         ? StoredText(values[i].toString(), column.compress)
                                         : values[i].toByteArray()));
        else
            stored.append(StoredValue(column, values[i]));
    }
    const RowPointer place = Place(StoredRow(m_table, stored));
    AddKeys(values, place);
    ++m_rows;
}

void TableWriter::AddKeys(const QVariantList& values, RowPointer place)
{
    for (IndexWork& work : m_indexes) {
        if (!work.trouble.isEmpty())
            continue;
        QByteArray entry;
        bool allNull = true;
        for (const int column : std::as_const(work.index.columns)) {
            const auto key = IndexKey(m_table.columns[column].type, values[column]);
            if (!key) {
                work.trouble = u"'%1' holds characters whose order is not known there"_s.arg(
                    values[column].toString().left(60));
                break;
            }
            allNull = allNull && key->size() == 1;
            entry += *key;
        }
        if (work.trouble.isEmpty() && entry.size() > kLongestKey)
            work.trouble = u"the key of record %1 is too long for an index there"_s.arg(m_rows + 1);
        if (!work.trouble.isEmpty() || (allNull && work.index.IgnoresNulls()))
            continue;
        const char pointer[kEntryPointer] = {static_cast<char>(place.page >> 16), static_cast<char>(place.page >> 8),
                                             static_cast<char>(place.page), static_cast<char>(place.row)};
        entry.append(pointer, kEntryPointer);
        if (allNull && work.index.Unique() && !work.index.primary) {
            // Several empty keys are no repeated one, but only an index that ignores them takes them.
            if (std::exchange(work.empty, entry).isEmpty())
                continue;
            work.index.marks |= kIgnoresNulls;
            continue;
        }
        work.entries->Add(entry);
    }
}

void TableWriter::FinishIndexes(DefinitionFacts& facts)
{
    QList<NewIndex> kept;
    for (IndexWork& work : m_indexes) {
        BuiltIndex built;
        if (work.trouble.isEmpty()) {
            if (!work.empty.isEmpty() && !work.index.IgnoresNulls())
                work.entries->Add(work.empty);
            work.entries->Sort();
            built = WriteIndex(m_pages, *work.entries, Page(), work.root);
            if (built.repeated && work.index.Unique())
                work.trouble = u"two records have one key, as keys are compared there"_s;
        }
        work.entries.reset();
        if (work.trouble.isEmpty()) {
            m_maps.Set(work.map, built.pages);
            facts.indexes.append({built.keys, work.map, work.root});
            kept.append(work.index);
            continue;
        }
        m_notes.append(u"The table %1 is without its index %2: %3"_s.arg(m_table.name, work.index.name, work.trouble));
        if (built.pages.Empty())
            m_pages.Release(work.root);
        else
            built.pages.ForEach([this](quint32 page) { m_pages.Release(page); });
    }
    m_table.indexes = kept;
}

void TableWriter::Finish()
{
    DefinitionFacts facts;
    facts.rows = m_rows;
    facts.owned = m_owned;
    facts.withRoom = m_withRoom;
    if (m_builder) {
        m_pages.Write(m_page, m_builder->Bytes());
        PageSet room;
        room.Add(m_page);
        m_maps.Set(m_withRoom, room);
        m_maps.Set(m_owned, m_data);
    }
    std::size_t next = 0;
    for (const auto& longs : m_longs) {
        if (!longs)
            continue;
        const auto& [owned, withRoom] = m_longMaps[next++];
        longs->Finish(m_maps, owned, withRoom);
        facts.longs.append({owned, withRoom});
    }
    FinishIndexes(facts);
    if (m_emptyTruths > 0)
        m_notes.append(u"The table %1 has No where %2 empty Yes/No values were: an Access database knows no empty one"_s.arg(
            m_table.name, QString::number(m_emptyTruths)));
    WriteDefinition(facts);
}

void TableWriter::WriteDefinition(const DefinitionFacts& facts)
{
    const QList<QByteArray> pages = PagesOfDefinition(DefinitionBlock(m_table, facts), m_definition);
    for (qsizetype i = 0; i < m_definition.size(); ++i) {
        if (i < pages.size())
            m_pages.Write(m_definition[i], pages[i]);
        else
            m_pages.Release(m_definition[i]); // an index that could not be left it smaller
    }
}

} // namespace vasclip::engine::jet
