#pragma once

#include "platform/engine/jet/entry_sorter.h"
#include "platform/engine/jet/index_writer.h"
#include "platform/engine/jet/long_writer.h"
#include "platform/engine/jet/new_table.h"

#include <QStringList>
#include <QVariant>

namespace vasclip::engine::jet {

/// Where a table of the system lies; these places are the same in every file.
struct SystemPlace
{
    quint32 definition = 0;
    quint32 firstRoot = 0;
    quint32 firstData = 0; ///< 0 for a table without rows
};

/// One table of a new file: its rows are written as they come.
class TableWriter
{
public:
    TableWriter(PageWriter& pages, MapWriter& maps, NewTable table, std::optional<SystemPlace> system = {});

    [[nodiscard]] const NewTable& Table() const { return m_table; }
    [[nodiscard]] quint32 Page() const { return m_definition.front(); }
    [[nodiscard]] bool Empty() const { return m_rows == 0; }
    /// @param values  one for each column, Null if invalid
    /// @throws 3047, 3163, 61
    void Add(const QVariantList& values);
    /// Writes what is left: the last page of rows, the indexes, the definition.
    void Finish();
    /// What the file could not take, in sentences: an index of texts whose order is not known there, an empty Yes/No.
    [[nodiscard]] const QStringList& Notes() const { return m_notes; }

private:
    struct IndexWork
    {
        NewIndex index;
        quint32 root = 0;
        RowPointer map;
        std::unique_ptr<EntrySorter> entries;
        QString trouble; ///< why it can't be; "" while it can
        QByteArray empty; ///< the entry of the one row whose key is empty, until there is another
    };

    [[nodiscard]] RowPointer Place(const QByteArray& row);
    void AddKeys(const QVariantList& values, RowPointer place);
    void FinishIndexes(DefinitionFacts& facts);
    void WriteDefinition(const DefinitionFacts& facts);

    PageWriter& m_pages;
    MapWriter& m_maps;
    NewTable m_table;
    std::optional<SystemPlace> m_system;
    QList<quint32> m_definition; ///< pages that it may lie on
    RowPointer m_owned;
    RowPointer m_withRoom;
    std::vector<std::pair<RowPointer, RowPointer>> m_longMaps;
    std::vector<std::unique_ptr<LongWriter>> m_longs; ///< of each column; null for others
    std::vector<IndexWork> m_indexes;
    PageSet m_data;
    quint32 m_page = 0;
    std::optional<PageBuilder> m_builder;
    quint32 m_rows = 0;
    qint64 m_emptyTruths = 0; ///< Yes/No values, which a file can't leave empty
    QStringList m_notes;
};

} // namespace vasclip::engine::jet
