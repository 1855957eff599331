#include "platform/street/draw/mark.h"
#include "platform/street/draw/scene.h"
#include "platform/street/draw/made_town.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

Projection SheetOf(double ratio = 1)
{
    return Projection(View{MadeTown::kMiddle, 4000, QSize(800, 600) * ratio, ratio});
}

class SceneTest : public ::testing::Test
{
protected:
    QTemporaryDir home;
    Scene scene{[this](const QString& path) { return home.filePath(path.section(u'\\', -1)); }};

    void Put(qint32 id, Place place, const QString& picture, qint32 flags = 0x8C42, const QString& text = {})
    {
        scene.points[id] = {place, flags, u"C:\\VAS2000\\arrows\\"_s + picture, text};
    }
    QImage Painted(const Projection& projection)
    {
        QImage image(projection.Of().size, QImage::Format_RGB32);
        image.fill(Qt::green);
        QPainter painter(&image);
        scene.Paint(painter, projection, {});
        return image;
    }
};

TEST_F(SceneTest, PutsAnArrowsTipOnItsPlace)
{
    const Projection sheet = SheetOf();
    const QPointF middle(400, 300);
    for (const auto& [direction, corner] :
         {std::pair(u"LT"_s, Qt::TopLeftCorner), std::pair(u"RB"_s, Qt::BottomRightCorner)}) {
        Put(2, MadeTown::kMiddle, u"ARROWBLUECOMP1"_s + direction + u".BMP"_s);
        const QRectF box = scene.BoxOf(2, sheet);
        EXPECT_EQ(corner == Qt::TopLeftCorner ? box.topLeft() : box.bottomRight(), middle);
    }
    Put(2, MadeTown::kMiddle, u"reddoor.bmp"_s);
    EXPECT_EQ(scene.BoxOf(2, sheet).center(), middle);
    Put(2, MadeTown::kMiddle, u"pinred.bmp"_s);
    EXPECT_EQ(scene.BoxOf(2, sheet).bottom(), 300);
    EXPECT_TRUE(scene.BoxOf(3, sheet).isEmpty());
}

TEST_F(SceneTest, ShowsABitmapFromElsewhereByTheHotSpotOfItsFlags)
{
    QImage own(10, 6, QImage::Format_RGB32);
    own.fill(Qt::white);
    own.setPixelColor(5, 3, QColor(Qt::red));
    own.save(home.filePath(u"church.bmp"_s));
    own.save(home.filePath(u"comp.bmp"_s)); // a user's own house in place of ours
    const Projection sheet = SheetOf();
    for (const QString& name : {u"church.bmp"_s, u"comp.bmp"_s}) {
        Put(7, MadeTown::kMiddle, name, 0xC00);
        EXPECT_EQ(scene.BoxOf(7, sheet), QRectF(400, 300, 10, 6));
        Put(7, MadeTown::kMiddle, name, 0x300);
        EXPECT_EQ(scene.BoxOf(7, sheet), QRectF(390, 294, 10, 6));
    }
    QImage image = Painted(sheet);
    EXPECT_EQ(image.pixelColor(395, 297), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(391, 295), QColor(Qt::white));
    Put(7, MadeTown::kMiddle, u"church.bmp"_s, 0x1300);
    image = Painted(sheet);
    EXPECT_EQ(image.pixelColor(395, 297), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(391, 295), QColor(Qt::green)) << "see-through";
    EXPECT_EQ(scene.BoxOf(7, SheetOf(2)).size(), QSizeF(20, 12)) << "as large to the eye on a fine screen";
}

TEST_F(SceneTest, DrawsOurOwnBitmapsAnewAtTwoHundredPercent)
{
    ASSERT_TRUE(WriteMarks(home.path()).isEmpty());
    Put(2, MadeTown::kMiddle, u"ARROWBLUECOMP1LT.BMP"_s);
    const QImage image = Painted(SheetOf(2));
    const QImage mark = DrawMark(*ReadMark(u"ARROWBLUECOMP1LT.BMP"_s), 2, false);
    int same = 0;
    int inked = 0;
    for (int y = 0; y < mark.height(); ++y) {
        for (int x = 0; x < mark.width(); ++x) {
            if (qAlpha(mark.pixel(x, y)) < 255)
                continue;
            ++inked;
            same += image.pixel(800 + x, 600 + y) == mark.pixel(x, y) ? 1 : 0;
        }
    }
    EXPECT_GT(inked, 2000);
    EXPECT_EQ(same, inked);
}

TEST_F(SceneTest, DrawsWhatIsSeenThroughAnewForADarkMap)
{
    ASSERT_TRUE(WriteMarks(home.path()).isEmpty());
    Put(2, MadeTown::kMiddle, u"ARROWBLUECOMP1LT.BMP"_s, 0x1000);
    const auto painted = [&](bool dark) {
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        Look look;
        look.dark = dark;
        scene.Paint(painter, SheetOf(), look);
        return image;
    };
    const QImage light = painted(false);
    EXPECT_NE(painted(true), light);
    EXPECT_EQ(painted(false), light);
}

TEST_F(SceneTest, FindsThePointUnderAPixel)
{
    const Projection sheet = SheetOf();
    Put(1, MadeTown::kMiddle, u"ARROWREDSUBJECTLT.BMP"_s);
    Put(2, MadeTown::At(30, -30), u"ARROWBLUECOMP1LT.BMP"_s); // partly below the subject's
    const QRectF subject = scene.BoxOf(1, sheet);
    const QRectF comp = scene.BoxOf(2, sheet);
    const QPointF both = subject.intersected(comp).center();
    ASSERT_TRUE(subject.intersects(comp));
    EXPECT_EQ(scene.PointAt(sheet, both), 1);
    EXPECT_EQ(scene.PointAt(sheet, comp.bottomRight() - QPointF(10, 3)), 2);
    EXPECT_EQ(scene.PointAt(sheet, subject.topRight() + QPointF(-2, 2)), 0) << "beside the tip";
    EXPECT_EQ(scene.PointAt(sheet, QPointF(5, 5)), 0);
    // What is found lies on top: the subject's whole picture is the same without the comp.
    const QImage together = Painted(sheet).copy(subject.toRect());
    scene.points.erase(2);
    const QImage alone = Painted(sheet).copy(subject.toRect());
    const QImage mark = DrawMark(*ReadMark(u"ARROWREDSUBJECTLT.BMP"_s), 1, false);
    for (int y = 0; y < mark.height(); ++y) {
        for (int x = 0; x < mark.width(); ++x) {
            if (qAlpha(mark.pixel(x, y)) == 255) {
                ASSERT_EQ(together.pixel(x, y), alone.pixel(x, y)) << x << "," << y;
            }
        }
    }
}

TEST_F(SceneTest, WritesTextsBesideTheirPointsAndNeverOverOthers)
{
    const Projection sheet = SheetOf();
    Put(2, MadeTown::kMiddle, u"comp.bmp"_s, 0x8C42, u"110 N CHESTNUT ST"_s);
    const size_t alone = scene.Boxes(sheet).size();
    EXPECT_EQ(alone, 2U);
    for (int i = 0; i < 30; ++i)
        Put(3 + i, MadeTown::At((i % 6) * 80, (i / 6) * 60), u"reddoor.bmp"_s, 0x8C42, u"%1 MAIN ST"_s.arg(i));
    const std::vector<QRectF> boxes = scene.Boxes(sheet);
    EXPECT_GT(boxes.size(), 31U);
    const std::vector<QRectF> labels = [&] {
        std::vector<QRectF> found;
        for (const QRectF& box : boxes) {
            if (box.height() < 22)
                found.push_back(box);
        }
        return found;
    }();
    ASSERT_FALSE(labels.empty());
    for (const QRectF& label : labels) {
        EXPECT_EQ(std::count_if(boxes.begin(), boxes.end(), [&label](const QRectF& one) { return one.intersects(label); }), 1);
        EXPECT_NE(scene.PointAt(sheet, label.center()), 0);
    }
}

TEST_F(SceneTest, TellsWhichPointsLieInARingThatIsNotClosed)
{
    SceneLine ring;
    for (int k = 0; k < 36; ++k)
        ring.line.push_back(MadeTown::At(-1000 * std::sin(k * M_PI / 18), 1000 * std::cos(k * M_PI / 18)));
    Put(1, MadeTown::kMiddle, u"comp.bmp"_s);
    Put(2, MadeTown::At(990, 0), u"comp.bmp"_s);
    Put(3, MadeTown::At(1010, 0), u"comp.bmp"_s);
    Put(4, MadeTown::At(85, 990), u"comp.bmp"_s); // by the step that is missing, inside
    Put(5, MadeTown::At(85, 1000), u"comp.bmp"_s); // outside
    EXPECT_EQ(scene.Within(ring), (std::vector<qint32>{1, 2, 4}));
    EXPECT_TRUE(scene.Within({}).empty());

    ring.width = 2;
    ring.colour = 0xFF00FF;
    scene.points.clear();
    scene.lines[12345] = ring;
    const QImage image = Painted(SheetOf());
    const QPointF step = SheetOf().Pixel(MadeTown::At(87, 996));
    bool closed = false;
    for (int y = -3; y <= 3; ++y)
        closed = closed || image.pixelColor(step.toPoint() + QPoint(0, y)) == QColor(255, 0, 255);
    EXPECT_TRUE(closed) << "a circle to the eye";
}

} // namespace

} // namespace vasclip::street::draw
