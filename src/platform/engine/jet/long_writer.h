#pragma once

#include "platform/engine/jet/map_writer.h"
#include "platform/engine/long_source.h"

#include <optional>

namespace vasclip::engine::jet {

/// The long values of one column of a new table.
class LongWriter
{
public:
    explicit LongWriter(PageWriter& pages)
        : m_pages(pages)
    {}

    /// Stores a value. @return its head, as the row holds it
    [[nodiscard]] QByteArray Add(const QByteArray& value);
    /// Likewise, page by page as it is read; where that fails, nothing of it is kept.
    [[nodiscard]] QByteArray Add(const LongSource& value);
    /// @param owned, withRoom  its maps
    void Finish(MapWriter& maps, RowPointer owned, RowPointer withRoom);

private:
    [[nodiscard]] RowPointer AddShared(const QByteArray& row);
    [[nodiscard]] RowPointer AddChain(const LongSource& value);
    void WriteChain(const LongSource& value, std::vector<quint32>& pages);
    void WriteShared();

    PageWriter& m_pages;
    PageSet m_owned;
    quint32 m_number = 0; ///< of the page that values share
    std::optional<PageBuilder> m_shared;
};

} // namespace vasclip::engine::jet
