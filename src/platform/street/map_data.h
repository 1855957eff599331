#pragma once

#include "platform/street/cell.h"
#include "platform/street/cell_cache.h"
#include "platform/street/county_file.h"
#include "platform/street/edge_store.h"
#include "platform/street/map_index.h"

#include <QMap>
#include <QSet>
#include <QStringList>

#include <list>
#include <mutex>

namespace vasclip::street {

/// How much an open directory keeps at hand; what is asked for goes on top while it is used.
struct MapLimits
{
    qsizetype cellBytes = 8 * 1024 * 1024;
    int openFiles = 32;
};

/// A directory of maps, open. What can't be read is left out and told; nothing here throws. Any thread may ask.
///
/// It stays as it was opened: maps that are imported or removed meanwhile show in a new one, and files that are
/// deleted under it go on while they are open.
class MapData : public CellSource, public EdgeStore
{
public:
    /// @param directory  native
    /// @param index  which of its indexes says what the maps are
    explicit MapData(const QString& directory, const MapLimits& limits = {}, QStringView index = kIndexName);
    ~MapData() override;
    MapData(const MapData&) = delete;
    MapData& operator=(const MapData&) = delete;

    /// Is there an index that could be read?
    [[nodiscard]] bool IsOpen() const { return m_index != nullptr; }
    [[nodiscard]] const QString& Directory() const { return m_directory; }
    /// All maps that the index names, by their numbers.
    [[nodiscard]] const std::vector<CountyRecord>& Counties() const;
    /// What was wrong so far, a sentence for each map that could not be used: "01001: the file is missing".
    [[nodiscard]] QStringList Problems() const;
    /// Does the directory have another index by now?
    [[nodiscard]] bool IsOutdated() const;
    /// Bytes of the decoded cells at hand.
    [[nodiscard]] qsizetype CachedBytes() const { return m_cells.Bytes(); }

    [[nodiscard]] std::vector<std::shared_ptr<const Cell>> Cells(const Extent& extent, Level level) const override;
    [[nodiscard]] QString StreetName(const Cell& cell, quint32 street) const override;
    [[nodiscard]] QString Shield(const Cell& cell, quint32 street) const override;
    [[nodiscard]] Extent Covered() const override;

    [[nodiscard]] const NameIndex* Index() const override;
    [[nodiscard]] std::vector<quint32> CountiesAt(const Extent& extent) const override;
    [[nodiscard]] std::shared_ptr<const LookupReader> Lookup(quint32 county) const override;
    [[nodiscard]] std::shared_ptr<const Cell> CellAt(quint32 county, quint32 cell) const override;
    [[nodiscard]] std::vector<std::shared_ptr<const Cell>> CellsNear(quint32 county,
                                                                     const Extent& extent) const override;

private:
    struct Open
    {
        quint32 county = 0;
        std::shared_ptr<const CountyFile> file;
    };

    /// The map of that number in the index; null for none.
    [[nodiscard]] const CountyRecord* Record(quint32 county) const;
    /// Null where the file can't be used.
    [[nodiscard]] std::shared_ptr<const CountyFile> File(const CountyRecord& record) const;
    [[nodiscard]] std::shared_ptr<const CountyFile> OpenFile(const CountyRecord& record, QString& problem) const;
    [[nodiscard]] std::shared_ptr<const Cell> CellOf(const CountyFile& file, const CountyRecord& record,
                                                     quint32 id) const;
    void AppendCells(const CountyRecord& record, const Extent& extent, Level level,
                     std::vector<std::shared_ptr<const Cell>>& cells) const;
    void Tell(const CountyRecord& record, const QString& problem) const;

    const QString m_directory;
    const QString m_indexPath;
    const MapLimits m_limits;
    std::unique_ptr<MapIndex> m_index;
    QByteArray m_indexStamp; ///< by which another index is known
    mutable CellCache m_cells;
    mutable std::mutex m_guard; ///< over what follows
    mutable std::list<Open> m_open; ///< the one used last is the first
    mutable QMap<QString, QString> m_problems; ///< by county
    mutable QSet<quint32> m_unusable; ///< counties whose file is not tried again
};

} // namespace vasclip::street
