#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QDirIterator>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {
namespace {

const QString kSamples = qEnvironmentVariable("VASCLIP_SAMPLES", u"" VASCLIP_SAMPLES_DEFAULT ""_s);

/// Columns of the list that stands beside the samples.
enum Column {
    Path = 0,
    Format = 3,
    ShownWidth = 7,
    ShownHeight = 8,
    Components = 10,
    Bits = 11,
    Decode = 12,
    Quads = 13,
    Make = 14,
    Model = 15,
    Taken = 16
};

QList<QStringList> Expected()
{
    QList<QStringList> rows;
    QFile file(kSamples + u"/expected.tsv"_s);
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QStringList columns = QString::fromUtf8(line).split(u'\t');
        if (!line.startsWith('#') && !line.startsWith("path\t") && columns.size() > Taken)
            rows << columns;
    }
    return rows;
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Mean colour of one quarter, 0 to 3 in reading order.
QColor Mean(const QImage& image, int quarter)
{
    const int width = std::max(image.width() / 2, 1);
    const int height = std::max(image.height() / 2, 1);
    qint64 red = 0;
    qint64 green = 0;
    qint64 blue = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = image.pixel(std::min(x + quarter % 2 * width, image.width() - 1),
                                           std::min(y + quarter / 2 * height, image.height() - 1));
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
        }
    }
    const qint64 count = std::max<qint64>(1, qint64(width) * height);
    return QColor(static_cast<int>(red / count), static_cast<int>(green / count),
                  static_cast<int>(blue / count));
}

/// Of five bits a reader may make eight in one way or another.
constexpr int kFiveBits = 7;

/// The largest difference of a colour in any pixel; 255 for pictures of different size.
int LargestDifference(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return 255;
    int largest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor left = one.pixelColor(x, y);
            const QColor right = other.pixelColor(x, y);
            largest = std::max({largest, std::abs(left.red() - right.red()),
                                std::abs(left.green() - right.green()), std::abs(left.blue() - right.blue())});
        }
    return largest;
}

TEST(Samples, SoundPicturesComeOutUprightAndInTheirColours)
{
    const QList<QStringList> rows = Expected();
    if (rows.isEmpty())
        GTEST_SKIP() << "no sample pictures in " << kSamples.toStdString();
    int compared = 0;
    for (const QStringList& row : rows) {
        if (row[Decode] != "ok"_L1 || row[ShownWidth].toInt() == 0)
            continue;
#ifdef Q_OS_WIN // where the reader of TIFF is built without JPEG inside
        if (row[Path].contains(u"ycbcr_jpeg"_s) || row[Path].endsWith(u"_jpg.tif"_s))
            continue;
#endif
        const QByteArray bytes = Content(kSamples + u'/' + row[Path]);
        const QImage small = FromBytes(bytes, row[Path], 480);
        const QSize shown(row[ShownWidth].toInt(), row[ShownHeight].toInt());
        EXPECT_EQ(small.width() > small.height(), shown.width() > shown.height()) << row[Path].toStdString();
        EXPECT_LE(std::max(small.width(), small.height()), 480);
        if (std::max(shown.width(), shown.height()) <= 480) {
            EXPECT_EQ(small.size(), shown) << row[Path].toStdString();
        }
        const QStringList quads = row[Quads].split(u';', Qt::SkipEmptyParts);
        const bool sixteen = row[Bits].contains(u"16"_s) || row[Bits].contains(u"12"_s);
        if (sixteen || row[Components] == "4"_L1 || quads.size() != 4)
            continue;
        ++compared;
        for (int quarter = 0; quarter < 4; ++quarter) {
            const QStringList parts = quads[quarter].split(u',');
            const QColor mean = Mean(small, quarter);
            EXPECT_NEAR(mean.red(), parts[0].toInt(), 12)
                << row[Path].toStdString() << " quarter " << quarter;
            EXPECT_NEAR(mean.green(), parts[1].toInt(), 12)
                << row[Path].toStdString() << " quarter " << quarter;
            EXPECT_NEAR(mean.blue(), parts[2].toInt(), 12)
                << row[Path].toStdString() << " quarter " << quarter;
        }
    }
    EXPECT_GT(compared, 60);
}

TEST(Samples, BitmapsEqualTheirReferences)
{
    const QStringList names = QDir(kSamples + u"/bmp-ref"_s).entryList({u"*.png"_s});
    if (names.isEmpty())
        GTEST_SKIP() << "no reference pictures in " << kSamples.toStdString();
    int compared = 0;
    for (const QString& name : names) {
        const QString stem = name.chopped(4);
        const QImage wanted = FromBytes(Content(kSamples + u"/bmp-ref/"_s + name), name);
        for (const QString& of : {stem, stem + u"rle"_s, stem + u"topdown"_s, stem + u"os2"_s, stem + u"v4"_s,
                                  stem + u"pal"_s}) {
            const QString file = kSamples + u"/bmp/g/%1.bmp"_s.arg(of);
            if (!QFile::exists(file))
                continue;
            const QImage read = FromBytes(Content(file), of);
            EXPECT_LE(LargestDifference(read, wanted), of == u"rgb16"_s ? kFiveBits : 0) << of.toStdString();
            ++compared;
        }
    }
    EXPECT_GT(compared, 8);
}

TEST(Samples, HeadsTellSizesWithoutDecoding)
{
    const QList<QStringList> rows = Expected();
    if (rows.isEmpty())
        GTEST_SKIP() << "no sample pictures in " << kSamples.toStdString();
    int dated = 0;
    for (const QStringList& row : rows) {
        if (row[Decode] != "ok"_L1 || row[ShownWidth].toInt() == 0)
            continue;
        const QString file = kSamples + u'/' + row[Path];
        const Facts facts = DescribeNativeFile(file, row[Path]);
        EXPECT_EQ(facts.size, QSize(row[ShownWidth].toInt(), row[ShownHeight].toInt())) << row[Path].toStdString();
        EXPECT_EQ(facts.format, row[Format]) << row[Path].toStdString();
        EXPECT_GT(facts.bitsPerPixel, 0) << row[Path].toStdString();
        const QStringList bits = row[Bits].split(u' ', Qt::SkipEmptyParts);
        if ((row[Format] == "TIFF"_L1 || row[Format] == "BMP"_L1) && !bits.isEmpty()) {
            int sum = 0;
            for (const QString& sample : bits)
                sum += sample.toInt();
            EXPECT_EQ(facts.bitsPerPixel, sum) << row[Path].toStdString();
            EXPECT_FALSE(facts.compression.isEmpty()) << row[Path].toStdString();
        }
        if (facts.notes.taken.isValid() && !row[Taken].isEmpty()) {
            ++dated;
            EXPECT_EQ(facts.notes.taken.toString(u"yyyy:MM:dd HH:mm:ss"_s), row[Taken].left(19))
                << row[Path].toStdString();
            EXPECT_EQ(facts.notes.make, row[Make]) << row[Path].toStdString();
            EXPECT_EQ(facts.notes.model, row[Model]) << row[Path].toStdString();
        }
    }
    EXPECT_GT(dated, 8);
}

TEST(Samples, CamerasEmbedThumbnailsOfTheirPictures)
{
    const QDir photos(kSamples + u"/photo"_s);
    if (!photos.exists())
        GTEST_SKIP() << "no sample pictures in " << kSamples.toStdString();
    int found = 0;
    for (const QString& name : photos.entryList({u"*.jpg"_s})) {
        const QImage small = EmbeddedThumbnailOfNativeFile(photos.filePath(name)).image;
        if (small.isNull())
            continue;
        ++found;
        const QImage picture = FromNativeFile(photos.filePath(name), name, 160);
        if (DescribeNativeFile(photos.filePath(name), name).orientation > 1) {
            EXPECT_EQ(small.width() > small.height(), picture.width() > picture.height()) << name.toStdString();
        }
        EXPECT_LE(std::max(small.width(), small.height()), 640);
        EXPECT_NEAR(Mean(small, 0).lightness(), Mean(picture, 0).lightness(), 40) << name.toStdString();
    }
    EXPECT_GT(found, 5);
}

TEST(Samples, AnyFileCostsAnErrorAtMost)
{
    if (Expected().isEmpty())
        GTEST_SKIP() << "no sample pictures in " << kSamples.toStdString();
    int refused = 0;
    QDirIterator files(kSamples, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        for (const int side : {0, 200}) {
            if (side == 0 && QFileInfo(path).size() > 300'000)
                continue; // the full size of large ones takes long and shows nothing new
            try {
                EXPECT_FALSE(FromBytes(Content(path), path, side).isNull());
            } catch (const RuntimeError& failure) {
                EXPECT_EQ(failure.Number(), error::kCorruptPicture) << path.toStdString();
                EXPECT_TRUE(failure.Description().contains(path));
                ++refused;
            }
        }
    }
    EXPECT_GT(refused, 20);
}

TEST(Samples, APictureThatIsCutShortIsRefused)
{
    const QString path = kSamples + u"/jpeg-corrupt/made-truncated-70pct.jpg"_s;
    if (!QFile::exists(path))
        GTEST_SKIP() << "no sample pictures in " << kSamples.toStdString();
    try {
        (void)FromBytes(Content(path), path);
        ADD_FAILURE() << "a cut picture was taken";
    } catch (const RuntimeError& failure) {
        EXPECT_TRUE(failure.Description().contains(u"cut short"_s)) << failure.Description().toStdString();
    }
}

} // namespace
} // namespace vasclip::picture
