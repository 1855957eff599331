#pragma once

#include "platform/engine/jet/page_writer.h"

#include <memory>

namespace vasclip::engine::jet {

/// The maps that say which pages belong to a table, an index or a column of long values. Their places are given
/// out early, what they list is known when everything else is written.
class MapWriter
{
public:
    /// @param system  the page of the maps of the system tables
    MapWriter(PageWriter& pages, quint32 system)
        : m_pages(pages)
    {
        m_maps.push_back({system, {}});
    }

    /// A place on the page of the system tables' maps.
    [[nodiscard]] RowPointer TakeSystem() { return TakeOn(m_maps.front()); }
    /// @param maps  that shall lie on one page
    [[nodiscard]] std::vector<RowPointer> Take(int maps);
    void Set(RowPointer place, PageSet pages);
    void Finish();          ///< all maps but the next one
    void WriteFreeMap(quint32 page); ///< the last thing to be written: which pages are free

private:
    struct MapPage
    {
        quint32 page = 0;
        std::vector<PageSet> maps;
    };

    [[nodiscard]] static RowPointer TakeOn(MapPage& page);
    [[nodiscard]] QByteArray Encoded(const PageSet& pages);

    PageWriter& m_pages;
    std::vector<MapPage> m_maps;
};

} // namespace vasclip::engine::jet
