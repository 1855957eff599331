#include "artwork/icon_file.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImageReader>

namespace vasclip::artwork {
namespace {

QImage Sample(int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int i = 0; i < side; ++i) // a red line, and a corner that is half there
        image.setPixel(i, i, qRgba(200, 0, 0, 255));
    image.setPixel(side - 1, 0, qRgba(0, 0, 255, 128));
    return image;
}

TEST(IconFile, IsReadBackPictureForPicture)
{
    QList<QImage> pictures;
    for (const int side : kIconSizes)
        pictures.append(Sample(side));
    QByteArray file = IconFile(pictures);
    QBuffer buffer(&file);
    QImageReader reader(&buffer, "ico");
    ASSERT_EQ(reader.imageCount(), pictures.size());
    for (int i = 0; i < pictures.size(); ++i) {
        ASSERT_TRUE(reader.jumpToImage(i));
        EXPECT_EQ(reader.read().convertToFormat(QImage::Format_ARGB32), pictures[i]) << i;
    }
}

TEST(IconFile, MasksWhatIsClear)
{
    const QByteArray file = IconFile({Sample(16)});
    constexpr int kHeads = 6 + 16 + 40, kPixels = 16 * 16 * 4, kMaskLine = 4;
    ASSERT_EQ(file.size(), kHeads + kPixels + 16 * kMaskLine);
    EXPECT_EQ(quint8(file[kHeads + kPixels]), 0xff); // the lowest line: all clear but the end of the diagonal
    EXPECT_EQ(quint8(file[kHeads + kPixels + 1]), 0xfe);
    EXPECT_EQ(quint8(file[kHeads + kPixels + 15 * kMaskLine]), 0x7f);
    EXPECT_EQ(quint8(file[kHeads + kPixels + 15 * kMaskLine + 1]), 0xfe);
}

} // namespace
} // namespace vasclip::artwork
