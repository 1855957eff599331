#include "platform/street/draw/canvas.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace vasclip::street::draw {
namespace {

/// A half transparent and an opaque colour, over a ground of neither.
const QColor kGlass(30, 90, 200, 140);
const QColor kInk(20, 20, 24);

QImage Sheet(QImage::Format format, const QColor& ground)
{
    QImage image(120, 90, format);
    image.fill(ground);
    return image;
}

QPainterPath Ring()
{
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    path.addEllipse(QRectF(10.3, 8.7, 60, 60));
    path.addEllipse(QRectF(25.1, 23.2, 30, 31));
    return path;
}

/// By how much two pictures differ at most, of 255.
int Difference(const QImage& one, const QImage& other)
{
    int most = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = QColor::fromRgba(one.pixel(x, y));
            const QColor b = QColor::fromRgba(other.pixel(x, y));
            most = std::max({most, std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                             std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha())});
        }
    }
    return most;
}

/// What a painter's chords of a curve are away from it, a fourteenth of a pixel, makes of 255.
constexpr int kUnseen = 18;

/// The canvas fills as a painter does.
int Apart(const QPainterPath& path, const QColor& colour, QImage::Format format = QImage::Format_RGB32,
          const QColor& ground = QColor(240, 230, 210))
{
    QImage canvas = Sheet(format, ground);
    Canvas(canvas).Fill(path, colour);
    QImage painted = Sheet(format, ground);
    QPainter painter(&painted);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, colour);
    painter.end();
    EXPECT_NE(painted, Sheet(format, ground)) << "nothing was painted";
    return Difference(canvas, painted);
}

TEST(Canvas, FillsAsAPainterDoes)
{
    EXPECT_LE(Apart(Ring(), kInk), kUnseen);
    EXPECT_LE(Apart(Ring(), kGlass), kUnseen);
}

TEST(Canvas, FillsWhatIsSeenThrough)
{
    EXPECT_LE(Apart(Ring(), kGlass, QImage::Format_ARGB32_Premultiplied, Qt::transparent), kUnseen);
}

TEST(Canvas, LeavesAHoleByOddAndEvenAlone)
{
    QPainterPath thrice;
    thrice.addRect(10, 10, 60, 60);
    thrice.addRect(30, 30, 60, 40);
    thrice.addRect(40.5, 5, 10, 80);
    for (const Qt::FillRule rule : {Qt::OddEvenFill, Qt::WindingFill}) {
        thrice.setFillRule(rule);
        EXPECT_LE(Apart(thrice, kInk), 1) << rule;
    }
}

TEST(Canvas, FillsTheSheetOfAnAreaThatReachesBeyondIt)
{
    // Over each edge, over all of them, and round about the sheet with a side in each direction.
    for (const QPointF by : {QPointF(-40, 0), QPointF(80, 0), QPointF(0, -40), QPointF(0, 60), QPointF(70, -30)})
        EXPECT_LE(Apart(Ring().translated(by), kInk), kUnseen) << by.x() << ' ' << by.y();
    QPainterPath slanted;
    slanted.moveTo(-500, 30);
    slanted.lineTo(60, -700);
    slanted.lineTo(900, 40);
    slanted.lineTo(50, 75);
    slanted.closeSubpath();
    EXPECT_LE(Apart(slanted, kInk), 2);
    QPainterPath all;
    all.addRect(-1000, -1000, 5000, 5000);
    EXPECT_EQ(Apart(all, kInk), 0);
}

TEST(Canvas, LeavesTheSheetAsItIsBesideAnArea)
{
    QImage image = Sheet(QImage::Format_RGB32, Qt::white);
    Canvas canvas(image);
    for (const QPointF by : {QPointF(-200, 0), QPointF(200, 0), QPointF(0, -200), QPointF(0, 200)})
        canvas.Fill(Ring().translated(by), kInk);
    canvas.Fill(QPainterPath(), kInk);
    EXPECT_EQ(image, Sheet(QImage::Format_RGB32, Qt::white));
    // Nothing of them is left for what comes next.
    QImage once = Sheet(QImage::Format_RGB32, Qt::white);
    Canvas(once).Fill(Ring(), kInk);
    canvas.Fill(Ring(), kInk);
    EXPECT_EQ(image, once);
}

TEST(Canvas, StandsPlacesFarAway)
{
    QImage image = Sheet(QImage::Format_RGB32, Qt::white);
    QPainterPath road;
    road.moveTo(-3e9, 20);
    road.lineTo(3e9, 20);
    road.lineTo(3e9, 50);
    road.lineTo(-3e9, 50);
    Canvas(image).Fill(road, kInk);
    EXPECT_EQ(image.pixel(60, 30), kInk.rgb());
    EXPECT_EQ(image.pixel(60, 19), QColor(Qt::white).rgb());
    EXPECT_EQ(image.pixel(60, 50), QColor(Qt::white).rgb());
}

TEST(Canvas, StrokesAsAPainterDoes)
{
    QPainterPath line;
    line.moveTo(12, 15);
    line.lineTo(60.5, 70);
    line.lineTo(100, 20);
    line.lineTo(105, 80);
    for (const QPen& pen : {QPen(kInk, 9.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin), QPen(kGlass, 3, Qt::DashLine, Qt::FlatCap)}) {
        QImage image = Sheet(QImage::Format_RGB32, Qt::white);
        Canvas(image).Stroke({line}, pen);
        QImage painted = Sheet(QImage::Format_RGB32, Qt::white);
        QPainter painter(&painted);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.strokePath(line, pen);
        painter.end();
        EXPECT_LE(Difference(image, painted), 2 * kUnseen);
    }
}

TEST(Canvas, FillsAnOutlineWhereItIsMovedTo)
{
    const QTransform where = QTransform().translate(70, 20).rotate(30).scale(0.5, 0.5);
    QImage moved = Sheet(QImage::Format_RGB32, Qt::white);
    Canvas(moved).Fill(Outline(Ring(), 0.05), where, kInk);
    QImage there = Sheet(QImage::Format_RGB32, Qt::white);
    Canvas(there).Fill(where.map(Ring()), kInk);
    EXPECT_LE(Difference(moved, there), kUnseen);
}

} // namespace
} // namespace vasclip::street::draw
