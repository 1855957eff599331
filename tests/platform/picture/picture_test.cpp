#include "platform/picture/picture.h"

#include "platform/picture/facts.h"
#include "platform/picture/jpeg_reader.h"
#include "platform/picture/whole.h"
#include "platform/text/runtime_error.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QColor>
#include <QFile>
#include <QtEndian>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {
namespace {

/// A red left half and a blue right half.
QImage Halves(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, x < width / 2 ? Qt::red : Qt::blue);
    }
    return image;
}

QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

/// A JPEG with an orientation tag: the marker segment goes behind the start of the image.
QByteArray Oriented(const QByteArray& jpeg, char orientation)
{
    QByteArray exif("Exif\0\0MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0", 25);
    exif.append(orientation);
    exif.append(QByteArray(6, '\0'));
    QByteArray segment("\xFF\xE1", 2);
    const auto length = static_cast<quint16>(exif.size() + 2);
    segment.append(static_cast<char>(length >> 8));
    segment.append(static_cast<char>(length & 0xFF));
    QByteArray result = jpeg;
    return result.insert(2, segment + exif);
}

int NumberOf(const std::function<void()>& step, QString* description = nullptr)
{
    try {
        step();
    } catch (const RuntimeError& failure) {
        if (description)
            *description = failure.Description();
        return failure.Number();
    }
    return 0;
}

bool IsReddish(QColor colour)
{
    return colour.red() > 200 && colour.blue() < 60;
}

struct PictureTest : testing::Test
{
    tests::TempHome home;
};

TEST_F(PictureTest, ContentDecidesTheFormat)
{
    const QImage image = Halves(40, 20);
    for (const char* format : {"JPG", "PNG", "BMP", "PPM"}) {
        home.Put(u"C:\\SNAP\\A.JPG"_s, Encoded(image, format));
        const QImage read = Load(home.disk, u"c:\\snap\\a.jpg"_s);
        EXPECT_EQ(read.size(), QSize(40, 20)) << format;
        EXPECT_TRUE(IsReddish(read.pixelColor(5, 10))) << format;
        EXPECT_FALSE(IsReddish(read.pixelColor(35, 10))) << format;
        EXPECT_EQ(PictureSize(home.disk, u"C:\\SNAP\\A.JPG"_s), QSize(40, 20)) << format;
    }
}

TEST_F(PictureTest, LargePicturesComeOutScaledSmallOnesDoNot)
{
    const QByteArray wide = Encoded(Halves(1000, 400), "JPG");
    EXPECT_EQ(FromBytes(wide, u"a"_s, 480).size(), QSize(480, 192));
    EXPECT_EQ(FromBytes(wide, u"a"_s, 1000).size(), QSize(1000, 400));
    EXPECT_EQ(FromBytes(wide, u"a"_s, 2000).size(), QSize(1000, 400));
    EXPECT_EQ(FromBytes(wide, u"a"_s).size(), QSize(1000, 400));
    EXPECT_EQ(FromBytes(Encoded(Halves(400, 1000), "PNG"), u"a"_s, 100).size(), QSize(40, 100));
    EXPECT_EQ(FromBytes(Encoded(Halves(2000, 2), "PNG"), u"a"_s, 100).size(), QSize(100, 1));
    EXPECT_TRUE(IsReddish(FromBytes(wide, u"a"_s, 100).pixelColor(10, 20)));
}

TEST_F(PictureTest, OrientationIsApplied)
{
    const QByteArray jpeg = Encoded(Halves(64, 32), "JPG");
    home.Put(u"C:\\A.JPG"_s, Oriented(jpeg, 6)); // to be turned clockwise: left becomes top
    const QImage turned = Load(home.disk, u"C:\\A.JPG"_s);
    EXPECT_EQ(turned.size(), QSize(32, 64));
    EXPECT_TRUE(IsReddish(turned.pixelColor(16, 8)));
    EXPECT_FALSE(IsReddish(turned.pixelColor(16, 56)));
    EXPECT_EQ(PictureSize(home.disk, u"C:\\A.JPG"_s), QSize(32, 64));
    EXPECT_EQ(Load(home.disk, u"C:\\A.JPG"_s, 16).size(), QSize(8, 16));
    home.Put(u"C:\\A.JPG"_s, Oriented(jpeg, 3));
    EXPECT_FALSE(IsReddish(Load(home.disk, u"C:\\A.JPG"_s).pixelColor(5, 16)));
    EXPECT_EQ(PictureSize(home.disk, u"C:\\A.JPG"_s), QSize(64, 32));
    home.Put(u"C:\\A.JPG"_s, Oriented(jpeg, 77)); // no such orientation
    EXPECT_TRUE(IsReddish(Load(home.disk, u"C:\\A.JPG"_s).pixelColor(5, 16)));
}

TEST_F(PictureTest, ErrorsNameTheFile)
{
    QString text;
    EXPECT_EQ(NumberOf([&] { (void)Load(home.disk, u"C:\\NONE.JPG"_s); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)PictureSize(home.disk, u"C:\\NONE.JPG"_s); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)Load(home.disk, u"  "_s); }), error::kBadFileName);
    EXPECT_EQ(NumberOf([&] { (void)PictureSize(home.disk, QString()); }), error::kBadFileName);
    EXPECT_EQ(NumberOf([&] { SaveJpeg(home.disk, Halves(2, 2), QString(), 90); }), error::kBadFileName);
    home.Put(u"C:\\TEXT.JPG"_s, "this is no picture");
    EXPECT_EQ(NumberOf([&] { (void)Load(home.disk, u"C:\\TEXT.JPG"_s); }, &text), error::kCorruptPicture);
    EXPECT_TRUE(text.contains(u"C:\\TEXT.JPG"_s)) << text.toStdString();
    EXPECT_EQ(NumberOf([&] { (void)PictureSize(home.disk, u"C:\\TEXT.JPG"_s); }), error::kCorruptPicture);
    home.Put(u"C:\\EMPTY.JPG"_s, QByteArray());
    EXPECT_EQ(NumberOf([&] { (void)Load(home.disk, u"C:\\EMPTY.JPG"_s); }), error::kCorruptPicture);
    EXPECT_EQ(NumberOf([&] { (void)PictureSize(home.disk, u"C:\\EMPTY.JPG"_s); }), error::kCorruptPicture);
}

TEST_F(PictureTest, ADrawingIsNoPicture)
{
    const QByteArray svg =
        "<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    EXPECT_EQ(NumberOf([&] { (void)FromBytes(svg, u"a"_s); }), error::kCorruptPicture);
}

TEST_F(PictureTest, CutShortAnywhereIsAnError)
{
    for (const char* format : {"JPG", "PNG", "BMP"}) {
        const QByteArray whole = Encoded(Halves(60, 40), format);
        EXPECT_EQ(NumberOf([&] { (void)FromBytes(whole, u"a"_s); }), 0) << format;
        for (int tenths = 0; tenths < 10; ++tenths) {
            const QByteArray cut = whole.left(whole.size() * tenths / 10);
            EXPECT_EQ(NumberOf([&] { (void)FromBytes(cut, u"a"_s); }), error::kCorruptPicture)
                << format << " at " << tenths << " tenths";
        }
    }
}

TEST_F(PictureTest, FlippedBytesCostAnErrorAtMost)
{
    for (const char* format : {"JPG", "PNG", "BMP", "PPM"}) {
        const QByteArray whole = Encoded(Halves(60, 40), format);
        for (qsizetype at = 0; at < whole.size(); at += 3) {
            QByteArray damaged = whole;
            damaged[at] = static_cast<char>(~damaged[at]);
            QImage read;
            const int number = NumberOf([&] {
                read = FromBytes(damaged, u"a"_s, 0, {1'000'000, 1'000'000});
            });
            EXPECT_TRUE(number == error::kCorruptPicture || (number == 0 && !read.isNull()))
                << format << " at " << at;
        }
    }
}

TEST_F(PictureTest, LimitsAreCheckedBeforeAnythingIsAllocated)
{
    QByteArray bomb = Encoded(Halves(2, 2), "BMP");
    qToLittleEndian<qint32>(15'000, bomb.data() + 18);
    qToLittleEndian<qint32>(15'000, bomb.data() + 22);
    QString text;
    EXPECT_EQ(NumberOf([&] { (void)FromBytes(bomb, u"BOMB.BMP"_s); }, &text), error::kCorruptPicture);
    EXPECT_TRUE(text.contains(u"15000 by 15000"_s)) << text.toStdString();
    const QByteArray jpeg = Encoded(Halves(100, 100), "JPG");
    EXPECT_EQ(NumberOf([&] {
                  (void)FromBytes(jpeg, u"a"_s, 0, {9'999, 1'000'000});
              }),
              error::kCorruptPicture);
    EXPECT_EQ(NumberOf([&] { (void)FromBytes(jpeg, u"a"_s, 0, {10'000, 1'000'000}); }), 0);
    home.Put(u"C:\\A.JPG"_s, jpeg);
    EXPECT_EQ(NumberOf([&] {
                  (void)Load(home.disk, u"C:\\A.JPG"_s, 0, {10'000, jpeg.size() - 1});
              }),
              error::kCorruptPicture);
    EXPECT_EQ(NumberOf([&] { (void)Load(home.disk, u"C:\\A.JPG"_s, 0, {10'000, jpeg.size()}); }), 0);
}

TEST_F(PictureTest, APictureOfFiftyMillionPixelsIsFine)
{
    const QByteArray large = Encoded(QImage(8200, 6200, QImage::Format_Grayscale8), "JPG");
    EXPECT_EQ(FromBytes(large, u"a"_s, 480).size(), QSize(480, 362));
}

TEST_F(PictureTest, SavesAsJpegInThePlaceOfAnOlderFile)
{
    home.Put(u"C:\\PHOTOS\\OLD.JPG"_s, "older");
    SaveJpeg(home.disk, Halves(200, 100), u"C:\\PHOTOS\\OLD.JPG"_s, 90);
    EXPECT_EQ(home.disk.Dir(u"C:\\PHOTOS\\*.*"_s), QStringList{u"OLD.JPG"_s});
    EXPECT_TRUE(IsJpeg(home.disk.ReadWhole(u"C:\\PHOTOS\\OLD.JPG"_s)));
    EXPECT_EQ(PictureSize(home.disk, u"C:\\PHOTOS\\OLD.JPG"_s), QSize(200, 100));
    EXPECT_NE(NumberOf([&] { SaveJpeg(home.disk, Halves(2, 2), u"C:\\NODIR\\A.JPG"_s, 90); }), 0);
}

TEST_F(PictureTest, QualityTellsInTheLengthAndIsKeptWithinItsRange)
{
    QImage noise(64, 64, QImage::Format_RGB32);
    quint32 seed = 1;
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            noise.setPixel(x, y, seed = seed * 1664525 + 1013904223);
    }
    EXPECT_LT(ToJpeg(noise, 20).size() * 2, ToJpeg(noise, 95).size());
    EXPECT_EQ(ToJpeg(noise, 0), ToJpeg(noise, 1));
    EXPECT_EQ(ToJpeg(noise, 500), ToJpeg(noise, 100));
    EXPECT_EQ(NumberOf([&] { (void)ToJpeg(QImage(), 90); }), 5);
}

TEST_F(PictureTest, TransparencyBecomesWhite)
{
    QImage clear(16, 16, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    EXPECT_GT(FromBytes(ToJpeg(clear, 90), u"a"_s).pixelColor(8, 8).lightness(), 250);
}

/// A bitmap as OS/2 wrote it: 12 or 16 bytes of head, no more colours than it needs, one pixel of each in a row.
QByteArray Os2Bitmap(int headBytes, int bits, int colours, int gap)
{
    const auto number = [](quint32 value, int bytes) {
        QByteArray little(4, '\0');
        qToLittleEndian(value, little.data());
        return little.left(bytes);
    };
    const int side = headBytes == 12 ? 2 : 4;
    QByteArray head = number(quint32(headBytes), 4) + number(quint32(colours), side) + number(2, side) + number(1, 2) +
                      number(quint32(bits), 2);
    for (int i = 0; i < colours; ++i) {
        head += QByteArray(1, static_cast<char>(i * 15)) + QByteArray(1, static_cast<char>(255 - i * 15)) +
                QByteArray(1, static_cast<char>(i * 7));
        if (headBytes > 12)
            head += '\0';
    }
    head += QByteArray(gap, '\x55');
    QByteArray row((colours * bits + 31) / 32 * 4, '\0');
    for (int x = 0; x < colours; ++x)
        row[x * bits / 8] = static_cast<char>(row[x * bits / 8] | x << (bits == 4 && x % 2 == 0 ? 4 : 0));
    return "BM" + number(0, 4) + number(0, 4) + number(quint32(14 + head.size()), 4) + head + row + row;
}

TEST_F(PictureTest, ABitmapOfOs2KeepsItsPixelsWhereTheyAre)
{
    for (const int headBytes : {12, 16})
        for (const int bits : {4, 8})
            for (const int colours : {5, 16})
                for (const int gap : {0, 6}) {
                    SCOPED_TRACE(u"head %1, %2 bits, %3 colours, gap %4"_s.arg(headBytes).arg(bits).arg(colours).arg(gap)
                                     .toStdString());
                    const QByteArray bytes = Os2Bitmap(headBytes, bits, colours, gap);
                    const QImage image = FromBytes(bytes, u"a"_s);
                    ASSERT_EQ(image.size(), QSize(colours, 2));
                    for (int x = 0; x < colours; ++x)
                        EXPECT_EQ(image.pixelColor(x, 1), QColor(x * 7, 255 - x * 15, x * 15)) << x;
                    home.Put(u"C:\\OS2.BMP"_s, bytes);
                    const Facts facts = Describe(home.disk, u"C:\\OS2.BMP"_s);
                    EXPECT_EQ(facts.size, QSize(colours, 2));
                    EXPECT_EQ(facts.bitsPerPixel, bits);
                    EXPECT_EQ(facts.compression, u"None"_s);
                }
    EXPECT_EQ(NumberOf([] { (void)FromBytes(Os2Bitmap(12, 8, 16, 0).chopped(1), u"a"_s); }), 481) << "cut short";
}

TEST_F(PictureTest, BitsAndCompressionAreThoseOfTheFile)
{
    const QImage grey = Halves(8, 8).convertToFormat(QImage::Format_Grayscale8);
    struct Row
    {
        QByteArray bytes;
        QString format;
        int bits;
        QString compression;
    };
    const Row rows[] = {
        {Encoded(Halves(8, 8), "PNG"), u"PNG"_s, 24, u"Deflate"_s},
        {Encoded(Halves(8, 8).convertToFormat(QImage::Format_ARGB32), "PNG"), u"PNG"_s, 32, u"Deflate"_s},
        {Encoded(Halves(8, 8).convertToFormat(QImage::Format_Mono), "PNG"), u"PNG"_s, 1, u"Deflate"_s},
        {Encoded(grey, "PNG"), u"PNG"_s, 8, u"Deflate"_s},
        {Encoded(Halves(8, 8), "BMP"), u"BMP"_s, 24, u"None"_s},
        {Encoded(grey, "BMP"), u"BMP"_s, 8, u"None"_s},
    };
    for (const Row& row : rows) {
        home.Put(u"C:\\A.X"_s, row.bytes);
        const Facts facts = Describe(home.disk, u"C:\\A.X"_s);
        EXPECT_EQ(facts.format, row.format);
        EXPECT_EQ(facts.bitsPerPixel, row.bits) << row.format.toStdString();
        EXPECT_EQ(facts.compression, row.compression);
    }
}

/// One pixel as a TIFF of either order of bytes.
/// @param bits  of the samples that the file tells of, which may be fewer than there are
QByteArray SmallTiff(bool big, const QList<quint16>& bits, quint16 samples, quint16 compression = 1)
{
    const auto two = [big](quint16 value) {
        QByteArray bytes(2, '\0');
        big ? qToBigEndian(value, bytes.data()) : qToLittleEndian(value, bytes.data());
        return bytes;
    };
    const auto four = [big](quint32 value) {
        QByteArray bytes(4, '\0');
        big ? qToBigEndian(value, bytes.data()) : qToLittleEndian(value, bytes.data());
        return bytes;
    };
    constexpr quint32 kDirectory = 8;
    constexpr quint16 kEntries = 9;
    constexpr quint32 kBehind = kDirectory + 2 + kEntries * 12 + 4;
    const auto number = [&](quint16 tag, quint16 value) { return two(tag) + two(3) + four(1) + two(value) + two(0); };
    QByteArray list;
    for (const quint16 one : bits)
        list += two(one);
    const auto count = static_cast<quint32>(bits.size());
    const QByteArray held = count <= 2 ? list.leftJustified(4, '\0') : four(kBehind);
    const QByteArray behind = count <= 2 ? QByteArray() : list;
    const quint32 pixels = kBehind + static_cast<quint32>(behind.size());
    return (big ? QByteArray("MM") : QByteArray("II")) + two(42) + four(kDirectory) + two(kEntries) + number(256, 1) +
           number(257, 1) + two(258) + two(3) + four(count) + held + number(259, compression) +
           number(262, samples >= 3 ? 2 : 1) + two(273) + two(4) + four(1) + four(pixels) + number(277, samples) +
           number(278, 1) + two(279) + two(4) + four(1) + four(samples) + four(0) + behind + QByteArray(samples, '\x40');
}

TEST_F(PictureTest, BitsAndCompressionOfATiffAreThoseOfTheFile)
{
    struct Row
    {
        QByteArray bytes;
        int bits;
        QString compression;
    };
    for (const bool big : {false, true}) {
        const Row rows[] = {{SmallTiff(big, {8, 8, 8}, 3), 24, u"None"_s},
                            {SmallTiff(big, {8, 8, 8, 8}, 4), 32, u"None"_s},
                            {SmallTiff(big, {8}, 1), 8, u"None"_s},
                            {SmallTiff(big, {8}, 3), 24, u"None"_s}, // told once for all
                            {SmallTiff(big, {8, 8, 8}, 3, 32773), 24, u"PackBits"_s},
                            {SmallTiff(big, {8}, 1, 5), 8, u"LZW"_s}};
        for (const Row& row : rows) {
            SCOPED_TRACE(u"%1 bits, %2, %3"_s.arg(row.bits).arg(row.compression).arg(big).toStdString());
            home.Put(u"C:\\A.TIF"_s, row.bytes);
            const Facts facts = Describe(home.disk, u"C:\\A.TIF"_s);
            EXPECT_EQ(facts.size, QSize(1, 1));
            EXPECT_EQ(facts.format, u"TIFF"_s);
            EXPECT_EQ(facts.bitsPerPixel, row.bits);
            EXPECT_EQ(facts.compression, row.compression);
        }
    }
}

TEST_F(PictureTest, ARunLengthBitmapIsCalledSo)
{
    QByteArray windows = Encoded(Halves(8, 8).convertToFormat(QImage::Format_Grayscale8), "BMP");
    windows[30] = 1;
    QByteArray os2 = Os2Bitmap(16, 8, 16, 20); // a longer head of OS/2, whose fourth method is one too
    os2[14] = 24;
    os2.replace(30, 4, QByteArray("\4\0\0\0", 4));
    for (const QByteArray& bytes : {windows, os2}) {
        home.Put(u"C:\\R.BMP"_s, bytes);
        EXPECT_EQ(Describe(home.disk, u"C:\\R.BMP"_s).compression, u"RLE"_s);
    }
}

TEST(IsWholeBmp, CountsTheRows)
{
    const QByteArray whole = Encoded(Halves(61, 40), "BMP");
    EXPECT_TRUE(IsWholeBmp(whole));
    EXPECT_FALSE(IsWholeBmp(whole.chopped(1)));
    EXPECT_FALSE(IsWholeBmp(whole.left(33)));
    EXPECT_FALSE(IsWholeBmp("BM"));
    QByteArray compressed = whole.chopped(100);
    compressed[30] = 1;
    EXPECT_TRUE(IsWholeBmp(compressed));
    QByteArray topDown = whole;
    qToLittleEndian<qint32>(-40, topDown.data() + 22);
    EXPECT_TRUE(IsWholeBmp(topDown));
    EXPECT_FALSE(IsWholeBmp(topDown.chopped(1)));
    QByteArray endless = whole;
    qToLittleEndian<qint32>(0x7FFFFFFF, endless.data() + 18);
    qToLittleEndian<quint32>(0x80000000U, endless.data() + 22);
    EXPECT_FALSE(IsWholeBmp(endless));
}

} // namespace
} // namespace vasclip::picture
