#include "platform/paper/painter.h"
#include "platform/paper/typesetter.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace vasclip::paper {
namespace {

constexpr Face kFace{180};

struct NoPictures final : PictureSource
{
    QImage Picture(const QString&, QSize) override { return {}; }
};

TEST(Typesetter, SetsInTheTypefaceThatIsKnown)
{
    EXPECT_EQ(QFontInfo(FontOf(kFace)).family(), u"DejaVu Sans"_s);
}

TEST(Typesetter, MeasuresPlainLettersAsTheFontDoes)
{
    Typesetter setter;
    const QFontMetricsF metrics(FontOf(kFace));
    for (const QString& text : {u"1234 Main Street"_s, u"Ærø, Zürich"_s, u""_s})
        EXPECT_NEAR(setter.Width(text, kFace), metrics.horizontalAdvance(text), 6) << text.toStdString();
}

TEST(Typesetter, BreaksWithinTheWidthAndLosesNoWord)
{
    Typesetter setter;
    const QString text =
        QString(u"The seller paid no concessions and left the refrigerator. "_s).repeated(30).trimmed();
    const QStringList lines = setter.Lines(text, kFace, 4000);
    EXPECT_GT(lines.size(), 5);
    for (const QString& line : lines)
        EXPECT_LE(setter.Width(line, kFace), 4000) << line.toStdString();
    EXPECT_EQ(lines.join(u' '), text);
}

TEST(Typesetter, BreaksAWordThatIsLongerThanTheLine)
{
    Typesetter setter;
    const QString word(500, u'W');
    const QStringList lines = setter.Lines(word, kFace, 3000);
    EXPECT_GT(lines.size(), 10);
    EXPECT_EQ(lines.join(QString()), word);
}

TEST(Typesetter, EndsWithAnEllipsisWhereThereAreMoreLinesThanWanted)
{
    Typesetter setter;
    const QStringList lines =
        setter.Lines(u"one two three four five six seven eight nine ten"_s, kFace, 1200, 2);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines.last().endsWith(u'…')) << lines.last().toStdString();
    EXPECT_LE(setter.Width(lines.last(), kFace), 1200);
}

TEST(Typesetter, KeepsTheLineBreaksOfTheText)
{
    Typesetter setter;
    EXPECT_EQ(setter.Lines(u"a\r\nb\nc"_s, kFace, 4000), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
}

TEST(Typesetter, TakesOtherScriptsAndPicturesOfFaces)
{
    Typesetter setter;
    for (const QString& text : {u"שלום עולם"_s, u"مرحبا بالعالم"_s, u"😀 house 🏠"_s, QString(QChar(0xd800))}) {
        EXPECT_GT(setter.Width(text, kFace), 0);
        EXPECT_FALSE(setter.Lines(text.repeated(40), kFace, 2000).isEmpty());
    }
}

TEST(Painter, DrawsOnWhitePaperOfTheSheetsSize)
{
    NoPictures none;
    Page page;
    page.texts.append(
        {.at = {1440, 1440}, .width = 0, .text = u"Text"_s, .face = {400, true}, .ink = 0xff000000});
    const QImage image = Picture({.name = u"letter"_s}, page, 72, none);
    EXPECT_EQ(image.size(), QSize(612, 792));
    EXPECT_EQ(image.pixel(600, 780), qRgb(255, 255, 255));
    const QImage wide = Picture({.name = u"letter"_s, .landscape = true}, page, 72, none);
    EXPECT_EQ(wide.size(), QSize(792, 612));
    EXPECT_NE(image.copy(72, 50, 40, 30),
              Picture({.name = u"letter"_s}, Page{}, 72, none).copy(72, 50, 40, 30));
}

} // namespace
} // namespace vasclip::paper
