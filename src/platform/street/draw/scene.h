#pragma once

#include "platform/street/draw/placed_text.h"
#include "platform/street/draw/style.h"
#include "platform/street/draw/view.h"

#include <QHash>
#include <QImage>
#include <QString>

#include <functional>
#include <map>

namespace vasclip::street::draw {

/// A numbered point of the map.
struct ScenePoint
{
    Place place;
    qint32 flags = 0;
    QString picture; ///< drive path, "" for none
    QString text; ///< written beside it
};

struct SceneLine
{
    std::vector<Place> line;
    qint32 width = 1;
    qint32 colour = 0; ///< red in the lowest byte
};

/// The points and lines that lie on a map, and how they look. One thread.
class Scene
{
public:
    /// @param toNative  the native path of a drive path
    explicit Scene(std::function<QString(const QString&)> toNative);

    std::map<qint32, ScenePoint> points;
    std::map<qint32, SceneLine> lines;
    std::vector<std::vector<Place>> highlight; ///< a street that was clicked on
    qint32 highlightColour = 0xFF0000;         ///< red in the lowest byte
    double highlightWidth = 1;                 ///< each step wider by 5 pixels of 1/96 inch
    double labelPoints = 8; ///< size of the points' texts

    /// The `ID`s of the points within a line, which is closed from its last place to its first.
    [[nodiscard]] std::vector<qint32> Within(const SceneLine& line) const;
    /// Lines below, then points, the first on top: the subject is never hidden.
    void Paint(QPainter& painter, const Projection& projection, const Look& look);
    /// Where the points' pictures lie, for a map's names to keep off.
    [[nodiscard]] std::vector<QRectF> Boxes(const Projection& projection);
    /// Where a point's picture lies, empty without one.
    [[nodiscard]] QRectF BoxOf(qint32 id, const Projection& projection);
    /// The point whose picture or text is painted at a pixel, the topmost; 0 for none.
    [[nodiscard]] qint32 PointAt(const Projection& projection, QPointF pixel);
    /// Forgets the pictures: their files may have changed.
    void ForgetPictures() { m_pictures.clear(); }

private:
    struct Picture
    {
        QImage image;
        std::optional<QPointF> hotSpot; ///< its own; else the flags say
    };
    struct Placed
    {
        qint32 id = 0;
        const ScenePoint* point = nullptr;
        Picture picture;
        QRectF box;
        QRectF label; ///< empty where there is no text or no room
        QImage letters;
    };

    [[nodiscard]] const Picture& PictureOf(const ScenePoint& point, double ratio, bool dark);
    [[nodiscard]] Picture ReadPicture(const ScenePoint& point, double ratio, bool dark) const;
    [[nodiscard]] QImage LettersOf(const QString& text, const Projection& projection, const Look& look);
    /// The points in sight, the topmost first.
    [[nodiscard]] std::vector<Placed> Layout(const Projection& projection, const Look& look);
    void PaintHighlight(QPainter& painter, const Projection& projection) const;
    void PaintLine(QPainter& painter, const Projection& projection, const SceneLine& line) const;

    std::function<QString(const QString&)> m_toNative;
    QHash<QString, Picture> m_pictures; ///< by name, ratio, what the flags change and light or dark
    QHash<QString, QImage> m_letters;
};

/// Where the place lies in a picture by the hot spot of its flags, from 0 to 1 in both directions.
[[nodiscard]] QPointF HotSpot(qint32 flags);

} // namespace vasclip::street::draw
