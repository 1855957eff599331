#include "demo/drawing/house_picture.h"
#include "demo/photo_shoot.h"

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

} // namespace
} // namespace vasclip::demo
