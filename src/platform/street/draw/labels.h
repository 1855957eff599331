#pragma once

#include "platform/street/draw/canvas.h"
#include "platform/street/draw/content.h"
#include "platform/street/draw/occupied.h"
#include "platform/street/draw/placed_text.h"
#include "platform/street/draw/style.h"

#include <QHash>

#include <map>

namespace vasclip::street::draw {

/// What stands on a picture of a map, for those who ask and for tests.
struct Written
{
    QString text;
    QRectF box; ///< around all of it
    double size = 0; ///< of its letters, in pixels of the picture
};

/// Writes labels, each where nothing is written yet: what comes first has the first choice.
class LabelSheet
{
public:
    /// @param kept  boxes that stay free of labels
    LabelSheet(Canvas& canvas, const Projection& projection, const Content& content, const Look& look,
               const std::vector<QRectF>& kept);

    /// All labels, the weightiest first.
    void WriteAll();
    [[nodiscard]] const std::vector<Written>& All() const { return m_written; }

private:
    /// The stretches of one name.
    struct Street
    {
        QString name;
        QString shield;
        RoadClass roadClass = RoadClass::Local; ///< the widest
        std::vector<std::vector<QPointF>> lines;
    };

    void WritePlaces(bool great);
    [[nodiscard]] const QColor& InkOf(PlaceKind kind) const;
    void WriteShields();
    void WriteStreets();
    void WriteStreet(const Street& street);
    void WriteAreas();
    void WriteBrooks();
    void WriteHouses();
    void WriteRanges();

    void FindStreets();
    bool WriteAlong(const Walk& walk, const QString& text, Face face, double size, double distance, double beside,
                    const QColor& ink);
    bool WriteLevel(const QString& text, Face face, double size, QPointF middle, const QColor& ink);
    /// Writes at the places along a line that a text repeats at. @param apart  pixels between two of them
    void Repeat(const Walk& walk, const QString& text, Face face, double size, double apart, const QColor& ink);
    [[nodiscard]] bool IsNear(const QString& text, QPointF place, double distance) const;
    void Note(const QString& text, const PlacedText& placed, double size);
    [[nodiscard]] const TextRun& Run(const QString& text, Face face);
    /// Pixels of the picture of a size in points.
    [[nodiscard]] double Points(double points) const;

    Canvas& m_canvas;
    const Projection& m_projection;
    const Content& m_content;
    const Look& m_look;
    const Palette& m_palette;
    Occupied m_occupied;
    std::vector<Street> m_streets;
    std::map<std::pair<QString, Face>, TextRun> m_runs;
    QHash<QString, std::vector<QPointF>> m_places; ///< where a text stands already
    std::vector<Written> m_written;
};

} // namespace vasclip::street::draw
