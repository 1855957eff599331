#include "platform/street/draw/labels.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

constexpr double kApart = 330; // pixels of 1/96 inch between two shields of a road
constexpr double kHeight = 19;

enum class Kind { Interstate, Us, State, County };

Kind KindOf(const QString& shield)
{
    const QString system = shield.section(u' ', 0, 0);
    if (system == u"I"_s)
        return Kind::Interstate;
    if (system == u"US"_s)
        return Kind::Us;
    return system == u"CR"_s || system == u"CO"_s ? Kind::County : Kind::State;
}

QPainterPath Outline(Kind kind, const QRectF& box)
{
    QPainterPath path;
    const double bend = box.height() * 0.32;
    if (kind == Kind::State || kind == Kind::County) {
        path.addRoundedRect(box, kind == Kind::State ? box.height() / 2 : bend / 2,
                            kind == Kind::State ? box.height() / 2 : bend / 2);
        return path;
    }
    // A shield: broad shoulders, a point below.
    path.moveTo(box.left() + bend * 0.4, box.top());
    path.quadTo(box.center().x(), box.top() + bend * 0.5, box.right() - bend * 0.4, box.top());
    path.quadTo(box.right() + bend * 0.3, box.center().y(), box.right() - bend, box.bottom() - bend * 0.5);
    path.quadTo(box.center().x() + bend * 0.3, box.bottom() - bend * 0.3, box.center().x(), box.bottom());
    path.quadTo(box.center().x() - bend * 0.3, box.bottom() - bend * 0.3, box.left() + bend,
                box.bottom() - bend * 0.5);
    path.quadTo(box.left() - bend * 0.3, box.center().y(), box.left() + bend * 0.4, box.top());
    path.closeSubpath();
    return path;
}

void PaintShield(QImage& image, Kind kind, const QRectF& box, double line)
{
    const QPainterPath outline = Outline(kind, box);
    const bool interstate = kind == Kind::Interstate;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, interstate ? QColor(0x2b, 0x55, 0xa3) : QColor(0xff, 0xff, 0xff));
    if (interstate) {
        painter.setClipPath(outline);
        painter.fillRect(QRectF(box.left() - 4, box.top(), box.width() + 8, box.height() * 0.22),
                         QColor(0xc1, 0x33, 0x3a));
        painter.setClipping(false);
    }
    painter.strokePath(outline, QPen(interstate ? QColor(0xff, 0xff, 0xff) : QColor(0x33, 0x33, 0x38), line));
}

} // namespace

void LabelSheet::WriteShields()
{
    const double metres = m_projection.Metres();
    const double size = Points(7.5);
    const double height = m_projection.Px(kHeight);
    const double apart = m_projection.Px(kApart);
    for (const Street& street : m_streets) {
        // County roads are many: close in only.
        if (street.shield.isEmpty() || !m_look.Of(street.roadClass).named ||
            metres > (street.roadClass <= RoadClass::Highway ? 400
                      : street.roadClass < RoadClass::Local  ? 25
                                                             : 8))
            continue;
        const Kind kind = KindOf(street.shield);
        const QString number = street.shield.section(u' ', 1);
        const TextRun& run = Run(number, Face::Bold);
        const double width = std::max(height * (kind == Kind::Interstate || kind == Kind::Us ? 1.1 : 1.0),
                                      run.width * size + m_projection.Px(kind == Kind::County ? 6 : 10));
        for (const auto& line : street.lines) {
            const Walk walk(line);
            const int parts = std::max(1, static_cast<int>(walk.Length() / apart));
            if (walk.Length() < 2 * width)
                continue;
            for (int i = 0; i < parts; ++i) {
                for (const double shift : {0.0, 0.2, -0.2, 0.4, -0.4}) {
                    const QPointF middle = walk.At((i + 0.5 + shift) * walk.Length() / parts).toPoint();
                    const QRectF box(middle.x() - width / 2, middle.y() - height / 2, width, height);
                    if (!m_occupied.IsFree(std::vector{box.adjusted(-2, -2, 2, 2)}) ||
                        IsNear(street.shield, middle, apart * 0.7))
                        continue;
                    PaintShield(m_canvas.Image(), kind, box, m_projection.Px(1.2));
                    PlacedText text = OnTheLevel(
                        run, size, middle + QPointF(0, kind == Kind::Interstate ? m_projection.Px(1.5) : 0));
                    Write(m_canvas, text, kind == Kind::Interstate ? QColor(Qt::white) : QColor(0x22, 0x22, 0x26),
                          QColor(0, 0, 0, 0));
                    text.boxes = {box.adjusted(-2, -2, 2, 2)};
                    Note(street.shield, text, size);
                    break;
                }
            }
        }
    }
}

} // namespace vasclip::street::draw
