#include "platform/street/draw/stretches.h"

#include <cmath>
#include <optional>
#include <unordered_map>

namespace vasclip::street::draw {

namespace {

quint64 KeyOf(Place place)
{
    return (static_cast<quint64>(static_cast<quint32>(place.latitude)) << 32U) |
           static_cast<quint32>(place.longitude);
}

struct End
{
    size_t edge = 0;
    bool atStart = true; ///< the edge begins here
};

class Joiner
{
public:
    Joiner(const std::vector<const std::vector<Place>*>& edges, const Projection& projection)
        : m_edges(edges), m_projection(projection), m_used(edges.size(), false)
    {
        for (size_t i = 0; i < edges.size(); ++i) {
            m_ends[KeyOf(edges[i]->front())].push_back({i, true});
            m_ends[KeyOf(edges[i]->back())].push_back({i, false});
        }
    }

    std::vector<std::vector<QPointF>> Lines()
    {
        std::vector<std::vector<QPointF>> lines;
        // First from where a street begins, so that what is left are rings.
        for (const bool anywhere : {false, true}) {
            for (size_t i = 0; i < m_edges.size(); ++i) {
                for (const bool fromStart : {true, false}) {
                    const Place begin = fromStart ? m_edges[i]->front() : m_edges[i]->back();
                    if (!m_used[i] && (anywhere || m_ends[KeyOf(begin)].size() != 2))
                        lines.push_back(Follow({i, fromStart}));
                }
            }
        }
        return lines;
    }

private:
    std::vector<QPointF> Follow(End end)
    {
        std::vector<QPointF> line;
        for (std::optional<End> next = end; next; next = Straightest(line, *next)) {
            m_used[next->edge] = true;
            Append(line, *m_edges[next->edge], next->atStart);
            next->atStart = !next->atStart; // we stand at the other end now
        }
        return line;
    }

    void Append(std::vector<QPointF>& line, const std::vector<Place>& edge, bool forward) const
    {
        for (size_t i = line.empty() ? 0 : 1; i < edge.size(); ++i) {
            const QPointF pixel = m_projection.Pixel(forward ? edge[i] : edge[edge.size() - 1 - i]);
            if (!line.empty() && std::hypot(pixel.x() - line.back().x(), pixel.y() - line.back().y()) < 0.5)
                continue;
            line.push_back(pixel);
        }
    }

    std::optional<End> Straightest(const std::vector<QPointF>& line, End from)
    {
        const std::vector<Place>& edge = *m_edges[from.edge];
        const Place here = from.atStart ? edge.front() : edge.back();
        std::optional<End> best;
        double least = 0.3; // a cosine: sharper than that is another stretch
        for (const End end : m_ends[KeyOf(here)]) {
            if (m_used[end.edge] || line.size() < 2)
                continue;
            const std::vector<Place>& next = *m_edges[end.edge];
            const QPointF on = m_projection.Pixel(end.atStart ? next[1] : next[next.size() - 2]) -
                               m_projection.Pixel(here);
            const QPointF came = line.back() - line[line.size() - 2];
            const double lengths = std::hypot(on.x(), on.y()) * std::hypot(came.x(), came.y());
            const double cosine = lengths > 0 ? QPointF::dotProduct(on, came) / lengths : 1;
            if (cosine > least) {
                least = cosine;
                best = end;
            }
        }
        return best;
    }

    const std::vector<const std::vector<Place>*>& m_edges;
    const Projection& m_projection;
    std::vector<bool> m_used;
    std::unordered_map<quint64, std::vector<End>> m_ends;
};

} // namespace

std::vector<std::vector<QPointF>> Join(const std::vector<const std::vector<Place>*>& edges,
                                       const Projection& projection)
{
    return Joiner(edges, projection).Lines();
}

} // namespace vasclip::street::draw
