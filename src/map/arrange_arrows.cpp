#include "map/arrange_arrows.h"

#include "map/arrange.h"
#include "map/flags.h"
#include "map/messages.h"
#include "map/picture_names.h"
#include "map/rotate.h"
#include "platform/picture/facts.h"
#include "platform/street/draw/mark.h"
#include "platform/text/text.h"

#include <QHash>

#include <cmath>
#include <numbers>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kHouseSize = 6; ///< pixels around an arrow's tip, where nothing else is drawn of its house
constexpr double kPaperWidth = 720, kPaperHeight = 480; ///< of the report's picture, in pixels of 1/96 inch

/// From places to pixels of a layout of the view as it stands.
class Projection
{
public:
    Projection(double width, double height, street::Place centre, double feet)
        : m_width(width)
        , m_height(height)
        , m_pixelsPerFoot(feet > 0 ? width / feet : 0)
        , m_centre(centre)
    {}
    /// The layout on the screen.
    [[nodiscard]] static Projection OfScreen(MapDesk& desk)
    {
        desk.map.DoAction(street::action::kReadCentre);
        return {desk.map.Width(), desk.map.Height(), {desk.map.Latitude(), desk.map.Longitude()}, desk.map.Scale()};
    }
    /// That of the report's picture: all that is in sight, on three by two.
    [[nodiscard]] Projection OnPaper() const
    {
        const double across = m_width / m_pixelsPerFoot, down = m_height / m_pixelsPerFoot;
        return {kPaperWidth, kPaperHeight, m_centre, std::max(across, down * kPaperWidth / kPaperHeight)};
    }
    [[nodiscard]] bool Usable() const { return m_width > 0 && m_height > 0 && m_pixelsPerFoot > 0; }
    [[nodiscard]] Tile View() const { return {0, 0, m_width, m_height}; }
    [[nodiscard]] Spot SpotOf(street::Place place) const
    {
        constexpr double kMillion = 1'000'000, kFeetOfDegree = 364'567; // of a meridian, on average
        const double latitude = m_centre.latitude / kMillion * std::numbers::pi / 180;
        const double north = (place.latitude - m_centre.latitude) / kMillion * kFeetOfDegree;
        const double east = (place.longitude - m_centre.longitude) / kMillion * kFeetOfDegree * std::cos(latitude);
        return {m_width / 2 + east * m_pixelsPerFoot, m_height / 2 - north * m_pixelsPerFoot};
    }

private:
    double m_width, m_height, m_pixelsPerFoot;
    street::Place m_centre;
};

constexpr int kFaint = 40;
constexpr int kBand = 2; ///< rows of a bitmap that count as one

/// What of our own drawing hides something; its rows have no gaps.
std::vector<Tile> InkOf(const QImage& drawing)
{
    std::vector<Tile> inked;
    for (int top = 0; top < drawing.height(); top += kBand) {
        int left = drawing.width(), right = -1;
        const int bottom = std::min(top + kBand, drawing.height());
        for (int y = top; y < bottom; ++y) {
            for (int x = 0; x < drawing.width(); ++x) {
                if (qAlpha(drawing.pixel(x, y)) > kFaint) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
            }
        }
        if (right >= left)
            inked.push_back({double(left), double(top), double(right - left + 1), double(bottom - top)});
    }
    return inked;
}

/// Sizes of bitmaps, each read once.
class Sizes
{
public:
    explicit Sizes(const MapDesk& desk)
        : m_desk(desk)
    {}
    QSize Of(const QString& name)
    {
        const QString path = BitmapPath(m_desk.globals.arrowsDir, name);
        if (const auto known = m_sizes.constFind(path); known != m_sizes.cend())
            return *known;
        QSize size;
        try {
            if (m_desk.disk.FileExists(path))
                size = picture::Describe(m_desk.disk, path).size;
        } catch (const RuntimeError&) {
            size = {}; // a damaged bitmap is none
        }
        return *m_sizes.insert(path, size);
    }
    /// None for a bitmap from elsewhere, which is shown whole.
    [[nodiscard]] std::vector<Tile> InkedOf(const QString& name) const
    {
        const QString path = BitmapPath(m_desk.globals.arrowsDir, name);
        const std::optional<street::draw::Mark> mark = street::draw::ReadMark(name);
        return mark && street::draw::IsOwnBitmap(m_desk.disk.ToNative(path)) ? InkOf(street::draw::DrawMark(*mark, 1, false))
                                                                             : std::vector<Tile>();
    }

private:
    const MapDesk& m_desk;
    QHash<QString, QSize> m_sizes;
};

ArrowShapes ShapesOf(Sizes& sizes, const MapPoint& point)
{
    ArrowShapes shapes;
    PictureName name = ParsePicture(point.picture);
    for (int direction = 1; direction <= kDirections; ++direction) {
        name.direction = direction;
        const QSize size = sizes.Of(ArrowName(name));
        if (size.isEmpty())
            continue;
        ArrowShape& shape = shapes[static_cast<std::size_t>(direction - 1)];
        shape = ShapeOf(direction, size.width(), size.height());
        shape.inked = sizes.InkedOf(ArrowName(name));
    }
    return shapes;
}

QString Caption(const MapPoint& point)
{
    const PictureName name = ParsePicture(point.picture);
    return name.number > 0 ? name.type + u" #"_s + text::Dec(name.number)
                           : (name.type.isEmpty() ? text::Trim(point.text) : name.type);
}

struct Scene
{
    std::vector<MapPoint> points; ///< of the arrows
    std::vector<ArrowToArrange> arrows;
    std::vector<Tile> houses;
    Sheet paper;
};

Scene SceneOf(MapDesk& desk, const Projection& projection, const Projection& paper)
{
    Scene scene;
    scene.paper.view = paper.View();
    Sizes sizes(desk);
    for (qint32 id = 1; id <= desk.state.g_MapPointCount; ++id) {
        const std::optional<MapPoint> point = LoadPoint(desk, id);
        if (!point)
            continue;
        const Spot spot = projection.SpotOf(point->place);
        const PictureName name = ParsePicture(point->picture);
        if (name.arrow) {
            const bool byHand = desk.state.turnedByHand.contains(id) || point->flags & flag::kAnchored;
            scene.points.push_back(*point);
            scene.paper.spots.push_back(paper.SpotOf(point->place));
            scene.arrows.push_back({.house = spot,
                                    .direction = name.direction,
                                    .fixed = byHand,
                                    .shapes = ShapesOf(sizes, *point)});
        } else {
            const QSize size = sizes.Of(BitmapName(point->picture));
            const double width = std::max<double>(size.width(), kHouseSize);
            const double height = std::max<double>(size.height(), kHouseSize);
            const auto tile = [&](Spot at) { return Tile{at.x - width / 2, at.y - height / 2, width, height}; };
            scene.houses.push_back(tile(spot));
            scene.paper.houses.push_back(tile(paper.SpotOf(point->place)));
        }
    }
    return scene;
}

} // namespace

ArrangeTally ArrangeArrows(MapDesk& desk)
{
    ArrangeTally tally;
    const Projection screen = Projection::OfScreen(desk);
    if (!screen.Usable())
        return tally;
    const Scene scene = SceneOf(desk, screen, screen.OnPaper());
    const Arrangement arranged = Arrange(scene.arrows, scene.houses, kHouseSize, screen.View(), {scene.paper});
    for (std::size_t i = 0; i < scene.points.size(); ++i)
        if (arranged.directions[i] != scene.arrows[i].direction &&
            TurnArrow(desk, scene.points[i], arranged.directions[i]))
            tally.turned.append(Caption(scene.points[i]));
    for (const int i : arranged.crowded)
        tally.crowded.append(Caption(scene.points[static_cast<std::size_t>(i)]));
    return tally;
}

void cmdArrange_Click(MapDesk& desk)
{
    if (desk.state.working)
        return;
    const ArrangeTally tally = ArrangeArrows(desk);
    desk.map.Refresh();
    if (!tally.crowded.isEmpty())
        desk.status.lblmsg.Show(messages::kCrowded.arg(tally.crowded.join(u", "_s)), forms::Colour::Red);
    else
        desk.status.lblmsg.Show(tally.turned.isEmpty() ? messages::kArrangedAlready
                                                       : messages::kArranged.arg(tally.turned.join(u", "_s)),
                                forms::Colour::Blue);
}

} // namespace vasclip::map
