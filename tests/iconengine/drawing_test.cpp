#include "iconengine/drawing.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QImage>

#include <cstdlib>

namespace vasclip::drawing {
namespace {

using namespace Qt::StringLiterals;

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage Drawn(const QByteArray& svg, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    EXPECT_TRUE(Paint(painter, svg, QRectF(0, 0, side, side))) << svg.constData();
    return image;
}

/// The mean difference of a channel, of 255.
double Difference(const QImage& a, const QImage& b)
{
    double sum = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q)) +
                   std::abs(qAlpha(p) - qAlpha(q));
        }
    }
    return sum / (4.0 * a.width() * a.height());
}

TEST(Drawing, OfEachIconIsAsQtDrawsIt)
{
    const QDir icons(QString::fromUtf8(VASCLIP_ICONS));
    const QStringList names = icons.entryList({u"*.svg"_s});
    ASSERT_GE(names.size(), 44);
    for (const QString& name : names) {
        const QByteArray svg = Content(icons.filePath(name));
        for (const int side : {16, 24, 64}) {
            const QImage wanted = QIcon(icons.filePath(name)).pixmap(QSize(side, side), 1.0).toImage();
            if (wanted.isNull())
                GTEST_SKIP() << "Qt's own SVG module is not here to compare with";
            EXPECT_LT(Difference(Drawn(svg, side), wanted.convertToFormat(QImage::Format_ARGB32_Premultiplied)), 0.5)
                << name.toStdString() << " at " << side;
        }
    }
}

TEST(Drawing, HandsTheLookOfAGroupDown)
{
    const QImage image = Drawn(R"(<svg width="8" height="8"><g fill="#ff0000"><rect width="8" height="4"/>
        <rect y="4" width="8" height="4" fill="#0000ff"/></g></svg>)",
                               8);
    EXPECT_EQ(image.pixelColor(4, 1), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(4, 6), QColor(0, 0, 255));
}

TEST(Drawing, LaysItsBoxOverTheWholeRectangle)
{
    const QImage image = Drawn(R"(<svg viewBox="10 10 2 2"><rect x="11" y="11" width="1" height="1"/></svg>)", 8);
    EXPECT_EQ(image.pixelColor(1, 1).alpha(), 0);
    EXPECT_EQ(image.pixelColor(6, 6), QColor(0, 0, 0));
}

TEST(Drawing, IsRefusedIfItIsNone)
{
    QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    for (const char* bad : {"", "<html/>", "<svg/>", "<svg width='8' height='8'><rect"})
        EXPECT_FALSE(Paint(painter, bad, QRectF(0, 0, 8, 8))) << bad;
}

} // namespace
} // namespace vasclip::drawing
