#include "platform/street/draw/map_sheet.h"
#include "platform/street/draw/tiles.h"
#include "platform/street/draw/made_town.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSemaphore>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

/// A town whose cells come when the test lets them.
class SlowTown : public MadeTown
{
public:
    [[nodiscard]] std::vector<std::shared_ptr<const Cell>> Cells(const Extent& extent, Level level) const override
    {
        gate.acquire();
        gate.release();
        return MadeTown::Cells(extent, level);
    }
    mutable QSemaphore gate{1};
};

class TilesTest : public ::testing::Test
{
protected:
    std::shared_ptr<SlowTown> town = std::make_shared<SlowTown>();
    int told = 0;
    Tiles tiles{town, [this] { ++told; }};
    Look look;
    int kept = 0;

    TilesTest()
    {
        for (int i = -10; i <= 10; ++i) {
            town->Road(town->Name(u"Street %1"_s.arg(i + 11)), RoadClass::Local,
                       {MadeTown::At(-6000, i * 400), MadeTown::At(6000, i * 400)});
            town->Road(0, RoadClass::Arterial, {MadeTown::At(i * 400 - 50, -5000), MadeTown::At(i * 400 + 90, 5000)});
        }
        town->Area(AreaKind::Park, {},
                   {MadeTown::At(-700, -700), MadeTown::At(900, -500), MadeTown::At(500, 900), MadeTown::At(-800, 200)});
    }
    static Frame FrameAt(double east, double north, double feet = 4000)
    {
        return FrameOf({MadeTown::At(east, north), feet, QSize(900, 700), 1}).Snapped();
    }
    bool Paint(const Frame& frame, QImage* image = nullptr, quint64 version = 0)
    {
        QImage own(frame.size, QImage::Format_RGB32);
        own.fill(Qt::red);
        QPainter painter(&own);
        const bool whole = tiles.Paint(
            painter, frame, look,
            [this](const Projection& /*wide*/) {
                ++kept;
                return std::vector<QRectF>();
            },
            version);
        painter.end();
        if (image != nullptr)
            *image = own;
        return whole;
    }
    void Finish(const Frame& frame, QImage* image = nullptr)
    {
        for (int i = 0; i < 50 && !Paint(frame, image); ++i)
            tiles.Wait();
        EXPECT_TRUE(Paint(frame, image));
    }
};

TEST_F(TilesTest, FitTogetherToThePictureThatIsDrawnAsAWhole)
{
    const Frame frame = FrameAt(130, -70);
    QImage image;
    Finish(frame, &image);
    const QImage ground = DrawGround(*town, Projection(frame), look);
    int differ = 0;
    for (int y = 0; y < ground.height(); ++y) {
        for (int x = 0; x < ground.width(); ++x) {
            const QColor a = ground.pixelColor(x, y);
            const QColor b = image.pixelColor(x, y);
            differ += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) > 40 ? 1 : 0;
        }
    }
    // The names alone differ.
    EXPECT_LT(differ, 900 * 700 / 20);
    EXPECT_GT(differ, 100);
}

TEST_F(TilesTest, NeverWaitForWhoDraws)
{
    town->gate.acquire(); // no cell comes
    QElapsedTimer timer;
    timer.start();
    QImage image;
    EXPECT_FALSE(Paint(FrameAt(0, 0), &image));
    EXPECT_LT(timer.elapsed(), 150);
    EXPECT_EQ(image.pixelColor(450, 350), PaletteOf(false).land);
    EXPECT_EQ(told, 0);
    town->gate.release();
    tiles.Wait();
    QCoreApplication::processEvents();
    EXPECT_GE(told, 1);
    EXPECT_TRUE(Paint(FrameAt(0, 0), &image));
    EXPECT_NE(image.pixelColor(450, 350), PaletteOf(false).land);
}

TEST_F(TilesTest, ShowACoarsePartUntilTheFineOneIsThere)
{
    Finish(FrameAt(0, 0, 6000));
    town->gate.acquire();
    QImage image;
    EXPECT_FALSE(Paint(FrameAt(0, 0, 4000), &image));
    const QColor park = PaletteOf(false).areas.at(1);
    EXPECT_EQ(image.pixelColor(500, 300), park);
    town->gate.release();
    Finish(FrameAt(0, 0, 4000), &image);
    EXPECT_EQ(image.pixelColor(500, 300), park);
}

TEST_F(TilesTest, KeepWhatIsThereWhilePanning)
{
    Finish(FrameAt(0, 0));
    const int asked = kept;
    Frame frame = FrameAt(0, 0);
    frame.x += 30 / frame.scale;
    frame = frame.Snapped();
    Paint(frame);
    EXPECT_EQ(kept, asked) << "the names reach further than the sheet";
    frame.x += 120 / frame.scale;
    Paint(frame.Snapped());
    EXPECT_EQ(kept, asked + 1);
    Finish(frame.Snapped());
    Paint(frame.Snapped(), nullptr, 1);
    EXPECT_EQ(kept, asked + 2) << "the points have changed";
}

TEST_F(TilesTest, StayWithinTheirBytes)
{
    for (int i = 0; i < 12; ++i)
        Finish(FrameAt(i * 5000.0, 0));
    EXPECT_LE(tiles.Bytes(), Tiles::kBytes + 1220 * 1020 * 4);
    EXPECT_GT(tiles.Bytes(), Tiles::kBytes / 2);
}

TEST_F(TilesTest, AreDrawnAnewInOtherColours)
{
    QImage image;
    Finish(FrameAt(3000, 3000), &image);
    EXPECT_EQ(image.pixelColor(20, 20), PaletteOf(false).land);
    look.dark = true;
    Finish(FrameAt(3000, 3000), &image);
    EXPECT_EQ(image.pixelColor(20, 20), PaletteOf(true).land);
}

TEST_F(TilesTest, EndInTheMiddleOfTheirWork)
{
    for (int i = 0; i < 20; ++i) {
        Tiles brief(town, [] { ADD_FAILURE() << "told after its end"; });
        QImage image(900, 700, QImage::Format_RGB32);
        QPainter painter(&image);
        brief.Paint(painter, FrameAt(i * 100, 0), look, nullptr, 0);
    }
    QCoreApplication::processEvents();
}

TEST_F(TilesTest, ShowBareLandWithoutMaps)
{
    tiles.SetSource(nullptr);
    QImage image;
    EXPECT_TRUE(Paint(FrameAt(0, 0), &image));
    EXPECT_EQ(image.pixelColor(450, 350), PaletteOf(false).land);
    tiles.SetSource(town);
    Finish(FrameAt(0, 0), &image);
    EXPECT_NE(image.pixelColor(450, 350), PaletteOf(false).land);
}

} // namespace

} // namespace vasclip::street::draw
