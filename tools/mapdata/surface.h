#pragma once

#include "platform/street/types.h"

#include <vector>

namespace vasclip::mapdata {

/// Asks quickly whether places lie in a surface, whose sides are sorted into bands from south to north.
class Surface
{
public:
    /// @param rings  filled by the even-odd rule
    explicit Surface(const std::vector<std::vector<street::Place>>& rings);

    [[nodiscard]] bool Contains(street::Place place) const;

private:
    struct Side
    {
        street::Place from;
        street::Place to;
    };
    [[nodiscard]] std::size_t BandOf(qint32 latitude) const;

    street::Extent m_extent;
    std::vector<std::vector<Side>> m_bands;
};

} // namespace vasclip::mapdata
