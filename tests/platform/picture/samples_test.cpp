#include "platform/picture/picture.h"
#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QDirIterator>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {
namespace {

const QString kSamples = qEnvironmentVariable("VASCLIP_SAMPLES", QStringLiteral(VASCLIP_SAMPLES_DEFAULT));

/// Columns of the list that stands beside the samples.
enum Column {
    Path = 0,
    Format = 3,
    ShownWidth = 7,
    ShownHeight = 8,
    Components = 10,
    Bits = 11,
    Decode = 12,
    Quads = 13
};

QList<QStringList> Expected()
{
    QList<QStringList> rows;
    QFile file(kSamples + u"/expected.tsv"_s);
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QStringList columns = QString::fromUtf8(line).split(u'\t');
        if (!line.startsWith('#') && !line.startsWith("path\t") && columns.size() > Quads)
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
    const int width = image.width() / 2;
    const int height = image.height() / 2;
    qint64 red = 0;
    qint64 green = 0;
    qint64 blue = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = image.pixel(x + quarter % 2 * width, y + quarter / 2 * height);
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
        }
    }
    const qint64 count = std::max<qint64>(1, qint64(width) * height);
    return QColor(static_cast<int>(red / count), static_cast<int>(green / count),
                  static_cast<int>(blue / count));
}

TEST(Samples, SoundPicturesComeOutUprightAndInTheirColours)
{
    const QList<QStringList> rows = Expected();
    if (rows.isEmpty())
        GTEST_SKIP() << "no sample pictures in " << kSamples.toStdString();
    int compared = 0;
    for (const QStringList& row : rows) {
        const bool used = row[Format] == "JPEG"_L1 || row[Format] == "BMP"_L1;
        if (!used || row[Decode] != "ok"_L1 || row[ShownWidth].toInt() == 0)
            continue;
        const QByteArray bytes = Content(kSamples + u'/' + row[Path]);
        const QImage small = FromBytes(bytes, row[Path], 480);
        const QSize shown(row[ShownWidth].toInt(), row[ShownHeight].toInt());
        EXPECT_EQ(small.width() > small.height(), shown.width() > shown.height()) << row[Path].toStdString();
        EXPECT_LE(std::max(small.width(), small.height()), 480);
        if (std::max(shown.width(), shown.height()) <= 480) {
            EXPECT_EQ(small.size(), shown) << row[Path].toStdString();
        }
        const QStringList quads = row[Quads].split(u';', Qt::SkipEmptyParts);
        if (row[Bits] != "8"_L1 || row[Components] == "4"_L1 || quads.size() != 4)
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
    EXPECT_GT(compared, 20);
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
