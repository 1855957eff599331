#pragma once

#include "platform/street/features.h"

#include <QHash>

#include <vector>

namespace vasclip::mapdata {

/// Knows the ground beside the lines of a source, so that the same streets of another are not drawn twice.
class Cover
{
public:
    void Add(const street::RoadEdge& road);
    /// Does a line run along roads all the way, a road's width apart at most?
    [[nodiscard]] bool Covers(const std::vector<street::Place>& line) const;

private:
    struct Step
    {
        street::Place from;
        street::Place to;
    };
    [[nodiscard]] bool IsNear(street::Place place) const;

    QHash<quint64, std::vector<Step>> m_steps; ///< by the squares that they come near
};

} // namespace vasclip::mapdata
