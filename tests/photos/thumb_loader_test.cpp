#include "photos/thumb_loader.h"

#include "capture_home.h"

namespace vasclip::photos {
namespace {

using namespace Qt::Literals::StringLiterals;
using tests::NamedThumbs;

Thumb Noise(int width, int height, unsigned seed)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, (seed = seed * 1664525 + 1013904223) | 0xff000000);
    return {image, {4000, 3000}};
}

Thumb Plain(QRgb colour)
{
    QImage image(320, 240, QImage::Format_RGB32);
    image.fill(colour);
    return {image, {4000, 3000}};
}

TEST(ThumbCache, KeepsASmallPictureAndTheFilesPixels)
{
    ThumbCache cache;
    cache.SetLimit(100'000);
    cache.Put(u"C:\\a.jpg"_s, Plain(0xff336699));
    const auto kept = cache.Get(u"C:\\a.jpg"_s);
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->image.size(), QSize(160, 120));
    EXPECT_EQ(kept->fullSize, QSize(4000, 3000));
    EXPECT_NEAR(qBlue(kept->image.pixel(80, 60)), 0x99, 4);
    cache.Remove(u"C:\\a.jpg"_s);
    EXPECT_FALSE(cache.Get(u"C:\\a.jpg"_s));
    EXPECT_EQ(cache.Bytes(), 0);
}

TEST(ThumbCache, WhatWasNotAskedForLongestGoesFirst)
{
    ThumbCache cache;
    cache.SetLimit(1'000'000);
    cache.Put(u"a"_s, Plain(1));
    const qsizetype one = cache.Bytes();
    cache.Put(u"b"_s, Plain(2));
    cache.Put(u"c"_s, Plain(3));
    (void)cache.Get(u"a"_s);
    cache.SetLimit(2 * one + one / 2);
    EXPECT_TRUE(cache.Has(u"a"_s));
    EXPECT_FALSE(cache.Has(u"b"_s));
    EXPECT_TRUE(cache.Has(u"c"_s));
    EXPECT_EQ(cache.Count(), 2);
}

TEST(ThumbCache, NeverHoldsMoreThanItsLimitNorAPictureThatCompressesBadly)
{
    ThumbCache cache;
    cache.SetLimit(50'000);
    for (int i = 0; i < 100; ++i) {
        cache.Put(QString::number(i), Noise(160, 120, static_cast<unsigned>(i)));
        cache.Put(u"p"_s + QString::number(i), Plain(static_cast<QRgb>(i)));
        EXPECT_LE(cache.Bytes(), 50'000);
    }
    EXPECT_FALSE(cache.Has(u"99"_s));
    EXPECT_TRUE(cache.Has(u"p99"_s));
    cache.Clear();
    EXPECT_EQ(cache.Bytes(), 0);
    EXPECT_EQ(cache.Count(), 0);
}

class LoaderTest : public testing::Test
{
protected:
    std::shared_ptr<NamedThumbs::Log> log = std::make_shared<NamedThumbs::Log>();
    work::ThreadWorkers workers{1};
    ThumbLoader loader{std::make_unique<NamedThumbs>(log), workers};
    QStringList told;
    int settled = 0;

    void SetUp() override
    {
        loader.SetLimit(1'000'000);
        QObject::connect(&loader, &ThumbLoader::Arrived, &loader,
                         [this](const QString& path, const Thumb& thumb, ThumbLoader::Pass pass) {
                             const char* names[] = {"kept", "head", "whole"};
                             told << QLatin1StringView(names[static_cast<int>(pass)]) + u' ' + path + u' ' +
                                         QString::number(thumb.image.width());
                         });
        QObject::connect(&loader, &ThumbLoader::Broken, &loader,
                         [this](const QString& path, const QString& why) { told << u"broken "_s + path + u' ' + why; });
        QObject::connect(&loader, &ThumbLoader::Settled, &loader, [this] { ++settled; });
    }
    bool Finish()
    {
        return tests::Until([this] { return loader.Idle() && settled > 0; });
    }
};

TEST_F(LoaderTest, HeadsOfAllBeforeADecodeOfOneAndWhatMayComeLast)
{
    loader.Show({u"EXIF1"_s, u"A"_s, u"EXIF2"_s}, {u"NEXT"_s, u"EXIF3"_s}, 320);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(log->Asked(), (QStringList{u"head EXIF1"_s, u"head A"_s, u"head EXIF2"_s, u"decode EXIF1"_s,
                                         u"decode A"_s, u"decode EXIF2"_s, u"head NEXT"_s, u"decode NEXT"_s,
                                         u"head EXIF3"_s}));
    EXPECT_EQ(told, (QStringList{u"head EXIF1 160"_s, u"head EXIF2 160"_s, u"whole EXIF1 320"_s,
                                 u"whole A 320"_s, u"whole EXIF2 320"_s}));
    EXPECT_EQ(settled, 1);
    EXPECT_EQ(loader.Cache().Count(), 5);
}

TEST_F(LoaderTest, WhatIsKeptIsThereAtOnceAndMadeSharpAgain)
{
    loader.Show({u"A"_s}, {}, 320);
    ASSERT_TRUE(Finish());
    loader.Show({u"B"_s}, {}, 320);
    ASSERT_TRUE(tests::Until([this] { return settled == 2; }));
    told.clear();
    loader.Show({u"A"_s}, {u"B"_s}, 320);
    EXPECT_EQ(told, QStringList{u"kept A 160"_s}) << "before the event loop has turned";
    ASSERT_TRUE(tests::Until([this] { return settled == 3; }));
    EXPECT_EQ(told.last(), u"whole A 320"_s);
    EXPECT_EQ(log->Asked().filter(u"B"_s).size(), 2) << "what is kept is not made for the next page";
}

TEST_F(LoaderTest, ABrokenFileIsToldAndTheRestGoesOn)
{
    loader.Show({u"BAD1"_s, u"A"_s, u"BAD2"_s}, {u"BAD3"_s, u"NEXT"_s}, 320);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(told, (QStringList{u"broken BAD1 cut short"_s, u"whole A 320"_s, u"broken BAD2 cut short"_s}));
    EXPECT_TRUE(loader.Cache().Has(u"NEXT"_s));
    EXPECT_FALSE(loader.Cache().Has(u"BAD1"_s));
}

TEST_F(LoaderTest, APageThatWasLeftIsForgotten)
{
    log->held = true;
    QStringList first, second;
    for (int i = 0; i < 12; ++i) {
        first << u"A"_s + QString::number(i);
        second << u"B"_s + QString::number(i);
    }
    loader.Show(first, {}, 320);
    loader.Show(second, {}, 320);
    log->held = false;
    ASSERT_TRUE(Finish());
    EXPECT_LE(log->Asked().filter(u" A"_s).size(), 1) << "at most the one that was at work";
    EXPECT_TRUE(told.filter(u" A"_s).isEmpty());
    EXPECT_EQ(told.filter(u" B"_s).size(), 12);
    EXPECT_EQ(settled, 1);
}

TEST_F(LoaderTest, ADecodingThatIsNotWantedAnyMoreIsGivenUp)
{
    loader.Show({u"SLOW"_s}, {}, 320);
    ASSERT_TRUE(tests::Until([this] { return !log->Asked().filter(u"decode SLOW"_s).isEmpty(); }));
    loader.Show({u"A"_s}, {}, 320);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(told, QStringList{u"whole A 320"_s}) << "what was given up is not told, nor called broken";
    loader.Show({u"SLOW"_s}, {}, 320); // and none holds up the end of the program
    ASSERT_TRUE(tests::Until([this] { return log->Asked().filter(u"decode SLOW"_s).size() == 2; }));
}

TEST_F(LoaderTest, AFileThatHasChangedIsMadeAnew)
{
    loader.Show({u"A"_s}, {}, 320);
    ASSERT_TRUE(Finish());
    loader.Again(u"A"_s);
    loader.Again(u"NOBODY"_s);
    ASSERT_TRUE(tests::Until([this] { return settled == 2; }));
    EXPECT_EQ(told, (QStringList{u"whole A 320"_s, u"whole A 320"_s}));
    loader.ForgetAll();
    EXPECT_EQ(loader.Cache().Count(), 0);
    EXPECT_TRUE(loader.Idle());
}

TEST_F(LoaderTest, AnEmptyPageIsSettledAtOnce)
{
    loader.Show({}, {}, 320);
    EXPECT_EQ(settled, 1);
    EXPECT_TRUE(loader.Idle());
}

} // namespace
} // namespace vasclip::photos
