#include "demo/card.h"
#include "demo/drawing/house_picture.h"
#include "demo/photo_shoot.h"
#include "platform/picture/facts.h"
#include "platform/picture/picture.h"
#include "support/temp_home.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

Look LookOf(Design design, quint32 seed)
{
    Look look;
    look.design = design;
    look.seed = seed;
    look.day = seed + 7;
    return look;
}

TEST(Pictures, AreJpegsOfCameraSize)
{
    QByteArray bytes = AsJpeg(DrawFrontView(LookOf(Design::Bungalow, 3)));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    EXPECT_EQ(reader.format(), "jpeg");
    EXPECT_EQ(reader.size(), QSize(1600, 1200));
    EXPECT_GT(bytes.size(), 100'000); // grain and leaves compress like a photo's
    EXPECT_LT(bytes.size(), 900'000);
    EXPECT_FALSE(reader.read().isNull());
}

TEST(Pictures, DifferByDesignHouseDayAndSide)
{
    QSet<QByteArray> seen;
    int drawn = 0;
    const auto add = [&](const QImage& picture) {
        seen.insert(QCryptographicHash::hash(
            {reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes()},
            QCryptographicHash::Sha1));
        ++drawn;
    };
    for (int design = 0; design <= static_cast<int>(Design::EmptyLot); ++design)
        add(DrawFrontView(LookOf(static_cast<Design>(design), 5)));
    add(DrawFrontView(LookOf(Design::Ranch, 6)));
    Look otherDay = LookOf(Design::Ranch, 5);
    otherDay.day = 99;
    add(DrawFrontView(otherDay));
    add(DrawRearView(LookOf(Design::Ranch, 5)));
    add(DrawStreetScene(LookOf(Design::Ranch, 5)));
    for (int room = 0; room <= static_cast<int>(Room::Deck); ++room)
        add(DrawRoomView(LookOf(Design::Ranch, 5), static_cast<Room>(room)));
    add(DrawRoomView(LookOf(Design::Ranch, 6), Room::Kitchen));
    EXPECT_EQ(seen.size(), drawn);
}

TEST(Pictures, AreTheSameForTheSameLook)
{
    const Look look = LookOf(Design::Farmhouse, 8);
    EXPECT_EQ(DrawFrontView(look), DrawFrontView(look));
    EXPECT_EQ(DrawStreetScene(look), DrawStreetScene(look));
}

TEST(Pictures, OfTheCameraHaveTheirOwnNames)
{
    const QList<Shot> shots = CapturePictures(u"C:\\VASSNAP\\"_s);
    EXPECT_EQ(shots.size(), 24);
    QSet<QString> names;
    for (const Shot& shot : shots) {
        EXPECT_TRUE(shot.path.startsWith("C:\\VASSNAP\\DSC00"_L1) && shot.path.endsWith(".JPG"_L1))
            << shot.path.toStdString();
        names.insert(shot.path);
    }
    EXPECT_EQ(names.size(), shots.size());
    EXPECT_EQ(shots.first().path, u"C:\\VASSNAP\\DSC00123.JPG"_s);
}

TEST(Card, HasTwoHundredPicturesThatAreTheSameEveryTime)
{
    const auto made = [](tests::TempHome& home) {
        home.MakeDirs(u"C:\\CARD"_s);
        int told = 0;
        MakeCard(home.disk, u"C:\\CARD\\"_s, [&](int done) { told = done; });
        EXPECT_EQ(told, kCardPictures);
    };
    tests::TempHome first;
    made(first);
    const QStringList names = first.disk.Dir(u"C:\\CARD\\*.JPG"_s);
    ASSERT_EQ(names.size(), 200);
    QSet<int> orientations;
    QSet<QByteArray> contents;
    qint64 bytes = 0;
    for (const QString& name : names) {
        const QString path = u"C:\\CARD\\"_s + name;
        const picture::Facts facts = picture::Describe(first.disk, path);
        orientations.insert(facts.orientation);
        const bool high = facts.orientation == 6 || facts.orientation == 8;
        EXPECT_EQ(facts.size, high ? QSize(600, 800) : QSize(800, 600)) << name.toStdString();
        const QImage small = picture::EmbeddedThumbnail(first.disk, path).image;
        EXPECT_EQ(small.size(), high ? QSize(120, 160) : QSize(160, 120)) << name.toStdString();
        bytes += first.disk.FileLen(path);
        contents.insert(QCryptographicHash::hash(first.disk.ReadWhole(path), QCryptographicHash::Sha1));
    }
    EXPECT_EQ(orientations, (QSet<int>{1, 3, 6, 8}));
    EXPECT_EQ(contents.size(), 200);
    EXPECT_LT(bytes, 25'000'000);
    tests::TempHome second;
    made(second);
    for (const int i : {0, 57, 199})
        EXPECT_EQ(first.disk.ReadWhole(u"C:\\CARD\\"_s + names[i]), second.disk.ReadWhole(u"C:\\CARD\\"_s + names[i]));
}

TEST(Card, ATurnedPictureComesOutUprightAgain)
{
    QImage upright(80, 120, QImage::Format_RGB32);
    upright.fill(Qt::blue);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 80; ++x)
            upright.setPixel(x, y, 0xffff0000);
    for (const int orientation : {1, 3, 6, 8}) {
        const QImage back = picture::FromBytes(CameraJpeg(upright, orientation), u"x"_s);
        ASSERT_EQ(back.size(), upright.size()) << orientation;
        EXPECT_GT(qRed(back.pixel(40, 10)), 200) << orientation;
        EXPECT_GT(qBlue(back.pixel(40, 110)), 200) << orientation;
    }
}

} // namespace
} // namespace vasclip::demo
