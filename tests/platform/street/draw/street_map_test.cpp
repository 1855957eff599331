#include "platform/street/draw/made_town.h"
#include "platform/street/geodesy.h"
#include "platform/street/street_map.h"
#include "platform/street/street_through.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr Place kHouse{32464100, -86459500};

/// Knows a sure address, a doubtful one, and one house near its place.
class FewAddresses : public Geocoder
{
public:
    [[nodiscard]] std::vector<Candidate> Find(const QString& address, int /*limit*/) const override
    {
        if (address == u"110 MAIN ST, PRATTVILLE, AL"_s)
            return {{kHouse, FoundBy::Range, 60, u"110 MAIN ST"_s, 1, true}};
        if (address == u"110 MAINE ST"_s)
            return {{kHouse, FoundBy::Range, 60, u"110 MAIN ST"_s, 0.7, false},
                    {{1, 2}, FoundBy::Street, 900, u"MAINE AVE"_s, 0.5, false}};
        return {};
    }
    [[nodiscard]] std::vector<Candidate> Near(Place place, double withinFeet) const override
    {
        if (DistanceFeet(place, kHouse) > withinFeet)
            return {};
        return {{kHouse, FoundBy::Range, 60, u"110 MAIN ST, PRATTVILLE"_s, 1, true}};
    }
};

class StreetMapTest : public ::testing::Test
{
protected:
    QTemporaryDir home;
    std::shared_ptr<MadeTown> town = std::make_shared<MadeTown>();
    StreetMap map{{town, std::make_shared<FewAddresses>(),
                   [this](const QString& path) { return home.filePath(path.section(u'\\', -1)); }}};

    StreetMapTest()
    {
        for (int i = -5; i <= 5; ++i) {
            town->Road(town->Name(u"Street %1"_s.arg(i + 6)), RoadClass::Local,
                       {MadeTown::At(-5000, i * 500), MadeTown::At(5000, i * 500)});
            town->Road(town->Name(u"Avenue %1"_s.arg(i + 6)), RoadClass::Arterial,
                       {MadeTown::At(i * 500, -5000), MadeTown::At(i * 500, 5000)});
        }
    }
    void At(Place place)
    {
        map.SetLatitude(place.latitude);
        map.SetLongitude(place.longitude);
    }
    Place Here() const { return {map.Latitude(), map.Longitude()}; }
    qint32 Do(qint32 number)
    {
        map.DoAction(number);
        return map.Status();
    }
    void Put(qint32 id, Place place, const QString& picture = u"C:\\arrows\\ARROWBLUECOMP1LT.BMP"_s)
    {
        map.SetID(id);
        At(place);
        map.SetFlags(0x8C42);
        map.SetPicture(picture);
        map.SetText(u"POINT %1"_s.arg(id));
        EXPECT_EQ(Do(action::kAddPoint), 0);
    }
};

TEST_F(StreetMapTest, PlacesOnlyWhatIsSure)
{
    At({5, 6});
    map.SetLocation(u"110 MAIN ST, PRATTVILLE, AL"_s);
    EXPECT_EQ(Do(action::kGeocode), 0);
    EXPECT_EQ(Here(), kHouse);
    At({5, 6});
    map.SetLocation(u"110 MAINE ST"_s);
    EXPECT_LT(Do(action::kGeocode), 0);
    EXPECT_EQ(Here(), (Place{5, 6}));
    ASSERT_EQ(map.Candidates().size(), 2U);
    EXPECT_EQ(map.Candidates()[1].address, u"MAINE AVE"_s);
    EXPECT_EQ(Do(action::kFind), 0) << "to look at";
    EXPECT_EQ(Here(), kHouse);
    map.SetLocation(u"1 NOWHERE"_s);
    EXPECT_LT(Do(action::kGeocode), 0);
    EXPECT_LT(Do(action::kFind), 0);
    EXPECT_TRUE(map.Candidates().empty());
}

TEST_F(StreetMapTest, FindsTheAddressOfAPlace)
{
    At({kHouse.latitude + 300, kHouse.longitude});
    EXPECT_EQ(Do(action::kReverse), 0);
    EXPECT_EQ(map.Location(), u"110 MAIN ST, PRATTVILLE"_s);
    At({0, 0});
    EXPECT_LT(Do(action::kReverse), 0);
    At({2147483647, -2147483647});
    EXPECT_LT(Do(action::kReverse), 0);
}

TEST_F(StreetMapTest, KeepsPointsByTheirIds)
{
    Put(7, kHouse);
    Put(8, MadeTown::At(100, 100));
    map.SetText(u"other"_s);
    map.SetPicture(QString());
    map.SetFlags(0);
    map.SetID(7);
    EXPECT_EQ(Do(action::kLoadPoint), 0);
    EXPECT_EQ(Here(), kHouse);
    EXPECT_EQ(map.Flags(), 0x8C42);
    EXPECT_EQ(map.Picture(), u"C:\\arrows\\ARROWBLUECOMP1LT.BMP"_s);
    EXPECT_EQ(map.Text(), u"POINT 7"_s);
    map.SetPicture(u"C:\\arrows\\ARROWBLUECOMP1UP.BMP"_s);
    map.SetFlags(0x60862);
    EXPECT_EQ(Do(action::kWritePoint), 0);
    map.SetID(8);
    EXPECT_EQ(Do(action::kLoadPoint), 0);
    map.SetID(7);
    EXPECT_EQ(Do(action::kLoadPoint), 0);
    EXPECT_EQ(map.Flags(), 0x60862);
    EXPECT_EQ(Do(action::kDeletePoint), 0);
    EXPECT_LT(Do(action::kDeletePoint), 0);
    EXPECT_LT(Do(action::kLoadPoint), 0);
    EXPECT_LT(Do(action::kWritePoint), 0);
    EXPECT_EQ(Do(action::kClearPoints), 0);
    EXPECT_TRUE(map.Points().empty());
    At({91000000, 0});
    EXPECT_LT(Do(action::kAddPoint), 0);
    EXPECT_TRUE(map.Points().empty());
}

// Degrees run from north towards the west.
TEST_F(StreetMapTest, MeasuresAndProjects)
{
    At(kHouse);
    EXPECT_EQ(Do(action::kSetOrigin), 0);
    map.SetValue(5280);
    map.SetDValue(90);
    EXPECT_EQ(Do(action::kProject), 0);
    EXPECT_LT(map.Longitude(), kHouse.longitude);
    EXPECT_NEAR(map.Latitude(), kHouse.latitude, 20);
    map.SetValue(0);
    EXPECT_EQ(Do(action::kDistance), 0);
    EXPECT_NEAR(map.Value(), 5280, 0.5);
    At(kHouse);
    map.SetDValue(0);
    EXPECT_EQ(Do(action::kProject), 0);
    EXPECT_GT(map.Latitude(), kHouse.latitude);
    map.SetValue(std::nan(""));
    EXPECT_LT(Do(action::kProject), 0);
}

TEST_F(StreetMapTest, TellsThePointsWithinARingOfThirtySix)
{
    std::vector<std::pair<QString, qint32>> found;
    map.OnPointFound([&](const QString& text, qint32 id) {
        found.emplace_back(text, id);
        map.SetID(1000);
        map.DoAction(action::kClearPoints); // what is told was found before
    });
    Put(1, kHouse);
    Put(2, Project(kHouse, 45, 2600));
    Put(3, Project(kHouse, 45, 2680));
    std::vector<Place> ring;
    for (int k = 0; k < 36; ++k) {
        At(kHouse);
        map.SetDValue(k * 10);
        map.SetValue(2640);
        EXPECT_EQ(Do(action::kProject), 0);
        ring.push_back(Here());
    }
    map.SetID(12345);
    EXPECT_LT(Do(action::kPointsInLine), 0);
    map.CreateLine(12345, ring, 2, 0xFF00FF);
    EXPECT_EQ(map.Status(), 0);
    EXPECT_EQ(Do(action::kPointsInLine), 0);
    EXPECT_EQ(found, (std::vector<std::pair<QString, qint32>>{{u"POINT 1"_s, 1}, {u"POINT 2"_s, 2}}));
    map.DestroyLine(12345);
    map.SetID(12345);
    EXPECT_LT(Do(action::kPointsInLine), 0);
    map.CreateLine(5, ring, 2, 0);
    EXPECT_EQ(Do(action::kClearLines), 0);
    map.SetID(5);
    EXPECT_LT(Do(action::kPointsInLine), 0);
    map.CreateLine(6, {kHouse}, 1, 0);
    EXPECT_LT(map.Status(), 0);
}

TEST_F(StreetMapTest, LooksWhereItIsTold)
{
    At(kHouse);
    EXPECT_EQ(Do(action::kSetCentre), 0);
    At({0, 0});
    EXPECT_EQ(Do(action::kReadCentre), 0);
    EXPECT_EQ(Here(), kHouse);
    map.SetScale(26400);
    EXPECT_EQ(map.Scale(), 26400);
    map.SetScale(1.4);
    EXPECT_EQ(map.Scale(), StreetMap::kLeastFeet);
    map.SetScale(std::nan(""));
    EXPECT_EQ(map.Scale(), StreetMap::kLeastFeet);
    map.SetScale(1e300);
    EXPECT_EQ(map.Scale(), StreetMap::kMostFeet);
    At({90000001, 0});
    EXPECT_LT(Do(action::kSetCentre), 0);
    map.SetSize(QSize(1000, 500), 2);
    EXPECT_EQ(map.Width(), 1000);
    EXPECT_EQ(map.Height(), 500);
}

TEST_F(StreetMapTest, KnowsItsActionsAndFeaturesAlone)
{
    for (const qint32 number : {0, -1, 8, 999})
        EXPECT_EQ(Do(number), -1) << number;
    EXPECT_EQ(Do(action::kApplyFeatures), 0);
    const auto apply = [this](qint32 feature, qint32 attribute, double value) {
        map.SetFeature(feature);
        map.SetAttribute(attribute);
        map.SetValue(value);
        return Do(action::kApplyAttribute);
    };
    for (const qint32 feature : {7, 4, 5, 6}) {
        EXPECT_EQ(apply(feature, 12, 9), 0);
        EXPECT_EQ(apply(feature, 13, 9), 0);
        EXPECT_EQ(apply(feature, 3, 2), 0);
    }
    EXPECT_EQ(apply(11, 10, 0), 0);
    EXPECT_EQ(apply(18, 12, 8), 0);
    EXPECT_EQ(apply(18, 13, 8), 0);
    EXPECT_EQ(apply(21, 13, 0xFFFFFF), 0);
    for (const qint32 attribute : {1, 2, 3})
        EXPECT_EQ(apply(21, attribute, 0xFF0000), 0);
    EXPECT_EQ(apply(7, 99, 1), -1);
    EXPECT_EQ(apply(99, 12, 1), -1);
    EXPECT_EQ(apply(7, 12, 0), -1);
    EXPECT_EQ(apply(7, 12, std::nan("")), -1);
}

// Three levels of detail: all, streets without names, main roads alone.
TEST_F(StreetMapTest, ShowsAsMuchAsItIsAskedTo)
{
    const auto apply = [this](qint32 attribute, bool value) {
        map.SetFeature(7);
        map.SetAttribute(attribute);
        map.SetValue(value ? 1 : 0);
        EXPECT_EQ(Do(action::kApplyAttribute), 0);
        return map.ReportPicture(1500, 1000);
    };
    At(MadeTown::kMiddle);
    Do(action::kSetCentre);
    map.SetScale(4000);
    apply(10, true);
    const QImage all = apply(1, true);
    const QImage nameless = apply(10, false);
    const QImage bare = apply(1, false);
    EXPECT_NE(all, nameless);
    EXPECT_NE(nameless, bare);
    EXPECT_EQ(apply(1, true), nameless);
    EXPECT_EQ(apply(10, true), all);
}

TEST_F(StreetMapTest, AStreetThatIsClickedOnIsHighlighted)
{
    town->Road(town->Name(u"Street 6"_s), RoadClass::Local, {MadeTown::At(5000, 0), MadeTown::At(5500, 300)});
    town->Road(town->Name(u"Street 6"_s), RoadClass::Local, {MadeTown::At(900, 700), MadeTown::At(950, 800)});
    town->Twice();
    At(kHouse);
    Do(action::kSetCentre);
    map.SetScale(3000);
    const auto painted = [this] { return map.ReportPicture(600, 400); };
    const QImage plain = painted();
    At(kHouse);
    ASSERT_EQ(Do(action::kReverse), 0);
    EXPECT_EQ(painted(), plain) << "while it is off, a place is looked up and nothing more";
    map.SetStreetClick(true);
    ASSERT_EQ(Do(action::kReverse), 0);
    EXPECT_EQ(StreetThrough(*town, kHouse),
              (std::vector<std::vector<Place>>{{MadeTown::At(-5000, 0), MadeTown::At(5000, 0)},
                                               {MadeTown::At(5000, 0), MadeTown::At(5500, 300)}}))
        << "as far as it hangs together";
    const QImage blue = painted();
    EXPECT_NE(blue, plain);
    map.SetFeature(21);
    map.SetAttribute(1);
    map.SetValue(0x0000FF);
    EXPECT_EQ(Do(action::kApplyAttribute), 0);
    EXPECT_NE(painted(), blue);
    map.SetAttribute(3);
    map.SetValue(3);
    EXPECT_EQ(Do(action::kApplyAttribute), 0);
    map.SetStreetClick(false);
    EXPECT_EQ(painted(), plain);
    map.SetStreetClick(true);
    At(kHouse);
    ASSERT_EQ(Do(action::kReverse), 0);
    EXPECT_NE(painted(), plain);
    Do(action::kClearPoints);
    EXPECT_EQ(painted(), plain);
}

TEST_F(StreetMapTest, StoresThePictureOfTheReport)
{
    At(MadeTown::kMiddle);
    Do(action::kSetCentre);
    map.SetScale(5000);
    Put(1, kHouse);
    map.SetDark(true);
    EXPECT_TRUE(map.DrawTo(u"C:\\VAS2000\\VAS2000.JPG"_s, 1500, 1000, 92));
    EXPECT_EQ(map.Status(), 0);
    QFile file(home.filePath(u"VAS2000.JPG"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const QImage picture = QImage::fromData(bytes, "JPG");
    EXPECT_EQ(picture.size(), QSize(1500, 1000));
    EXPECT_NEAR(picture.dotsPerMeterX() * 0.0254, 200, 1);
    EXPECT_GT(qGray(picture.pixel(20, 500)), 200) << "light";
    file.close();
    EXPECT_TRUE(map.DrawTo(u"C:\\VAS2000\\VAS2000.JPG"_s, 1500, 1000, 92));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), bytes);
    EXPECT_TRUE(map.DrawTo(u"C:\\VAS2000\\map.png"_s, 1500, 1000, 92));
    EXPECT_EQ(QImage(home.filePath(u"map.png"_s)), map.ReportPicture(1500, 1000));
    EXPECT_FALSE(map.DrawTo(u"C:\\VAS2000\\x.jpg"_s, 0, 1000, 92));
    EXPECT_LT(map.Status(), 0);
    QTemporaryDir gone;
    StreetMap elsewhere({nullptr, nullptr, [](const QString&) { return u"/nowhere/at/all.jpg"_s; }});
    EXPECT_FALSE(elsewhere.DrawTo(u"C:\\x.jpg"_s, 150, 100, 92));
    EXPECT_LT(elsewhere.Status(), 0);
}

TEST_F(StreetMapTest, NamesWhoseDataItIs)
{
    At(MadeTown::kMiddle);
    Do(action::kSetCentre);
    map.SetScale(5000);
    const QImage nameless = map.ReportPicture(1500, 1000);
    map.SetCredit(u"\u00a9 OpenStreetMap contributors"_s);
    const QImage credited = map.ReportPicture(1500, 1000);
    EXPECT_NE(credited.copy(1100, 965, 400, 35), nameless.copy(1100, 965, 400, 35));
    map.SetCredit(QString());
    EXPECT_EQ(map.ReportPicture(1500, 1000), nameless);
}

// All that was in sight is on the picture, though the window is taller.
TEST_F(StreetMapTest, CutsNothingOffForTheReport)
{
    map.SetSize(QSize(600, 600), 1);
    At(MadeTown::kMiddle);
    Do(action::kSetCentre);
    map.SetScale(4000);
    Put(1, map.PlaceAt({300, 590}), u"C:\\reddot.bmp"_s);
    const QImage picture = map.ReportPicture(1500, 1000);
    bool found = false;
    for (int y = 900; y < 1000; ++y)
        found = found || picture.pixelColor(750, y) == QColor(0xe0, 0x1b, 0x24);
    EXPECT_TRUE(found);
}

TEST_F(StreetMapTest, IsMovedByPointer)
{
    map.SetSize(QSize(800, 600), 2);
    At(kHouse);
    Do(action::kSetCentre);
    map.SetScale(4000);
    const Place grabbed = map.PlaceAt({200, 150});
    map.PanBy({120, -40});
    const Place there = map.PlaceAt({320, 110});
    EXPECT_NEAR(there.latitude, grabbed.latitude, 10);
    EXPECT_NEAR(there.longitude, grabbed.longitude, 10);
    EXPECT_NEAR(map.Scale(), 4000, 2);
    const Place under = map.PlaceAt({700, 500});
    map.ZoomAt({700, 500}, 2);
    EXPECT_NEAR(map.Scale(), 2000, 2);
    EXPECT_NEAR(map.PlaceAt({700, 500}).latitude, under.latitude, 10);
    EXPECT_NEAR(map.PlaceAt({700, 500}).longitude, under.longitude, 10);
    const QPointF back = map.PixelOf(under);
    EXPECT_NEAR(back.x(), 700, 1);
    EXPECT_NEAR(back.y(), 500, 1);
    for (int i = 0; i < 100; ++i)
        map.ZoomAt({10, 10}, 1.5);
    EXPECT_NEAR(map.Scale(), StreetMap::kLeastFeet, 1);
    map.ZoomAt({10, 10}, 0);
    EXPECT_NEAR(map.Scale(), StreetMap::kLeastFeet, 1);
}

TEST_F(StreetMapTest, TellsWhatLiesUnderThePointer)
{
    map.SetSize(QSize(800, 600), 2);
    At(kHouse);
    Do(action::kSetCentre);
    Put(4, kHouse, u"C:\\arrows\\ARROWBLUECOMP1LT.BMP"_s);
    const QRectF box = map.BoxOf(4);
    EXPECT_NEAR(box.left(), 400, 1);
    EXPECT_NEAR(box.top(), 300, 1);
    EXPECT_EQ(map.PointAt(box.center() + QPointF(5, 5)), 4);
    EXPECT_EQ(map.PointAt({100, 100}), 0);
    map.MovePoint(4, map.PlaceAt({100, 100}), true);
    EXPECT_EQ(map.PointAt(QPointF(100, 100) + (box.center() - box.topLeft()) + QPointF(5, 5)), 4);
    map.MovePoint(99, kHouse, true);
    EXPECT_EQ(map.Points().size(), 1U);
}

TEST_F(StreetMapTest, PartsMeetWhereTheControlBeginsWithinAPixel)
{
    constexpr double kRatio = 1.5; // so that 21 and 111 pixels of 1/96 inch are 31.5 and 166.5
    const QSize size(700, 420);
    map.SetSize(size, kRatio);
    map.SetDark(true);
    map.SetScale(26400);
    At(kHouse);
    Do(action::kSetCentre);
    for (int step = 0; step < 12; ++step) {
        map.PanBy({37, 29});
        map.FinishDrawing();
        QImage screen((size + QSize(40, 140)) * kRatio, QImage::Format_RGB32);
        screen.setDevicePixelRatio(kRatio);
        screen.fill(Qt::magenta);
        QPainter painter(&screen);
        painter.translate(21, 111);
        ASSERT_TRUE(map.Paint(painter));
        painter.end();
        int bare = 0;
        for (int y = 168; y < 166 + 630 - 2; ++y)
            for (int x = 33; x < 31 + 1050 - 2; ++x)
                bare += screen.pixel(x, y) == QColor(Qt::magenta).rgb() ? 1 : 0;
        EXPECT_EQ(bare, 0) << "after " << step + 1 << " steps";
    }
}

TEST_F(StreetMapTest, PaintsWhatItShowsAndAsksToBePaintedAgain)
{
    int asked = 0;
    map.SetSize(QSize(800, 600), 2);
    At(MadeTown::kMiddle);
    Do(action::kSetCentre);
    map.SetScale(4000);
    map.OnChanged([&asked] { ++asked; });
    Put(1, MadeTown::kMiddle, u"C:\\reddot.bmp"_s);
    EXPECT_GE(asked, 1);
    QImage image(1600, 1200, QImage::Format_RGB32);
    image.setDevicePixelRatio(2);
    asked = 0;
    {
        QPainter painter(&image);
        map.Paint(painter);
    }
    map.FinishDrawing();
    QCoreApplication::processEvents();
    EXPECT_GE(asked, 1);
    {
        QPainter painter(&image);
        EXPECT_TRUE(map.Paint(painter));
    }
    EXPECT_EQ(image.pixelColor(800, 600), QColor(0xe0, 0x1b, 0x24)) << "the dot, in the middle";
    map.SetMaps(nullptr, nullptr);
    EXPECT_LT(Do(action::kGeocode), 0);
    QPainter painter(&image);
    EXPECT_TRUE(map.Paint(painter));
}

} // namespace

} // namespace vasclip::street
