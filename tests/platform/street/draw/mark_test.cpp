#include "platform/street/draw/mark.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

Mark MarkOf(const QString& name)
{
    const auto mark = ReadMark(name);
    EXPECT_TRUE(mark) << name.toStdString();
    return mark.value_or(Mark());
}

TEST(Mark, ReadsTypeNumberAndDirectionFromTheName)
{
    const Mark comp = MarkOf(u"ARROWBLUECOMP1LT.BMP"_s);
    EXPECT_EQ(comp.caption, u"COMP 1"_s);
    EXPECT_EQ(comp.colour, 0);
    EXPECT_EQ(comp.across, -1);
    EXPECT_EQ(comp.down, -1);
    const Mark subject = MarkOf(u"arrowredsubjectdn.bmp"_s);
    EXPECT_EQ(subject.caption, u"SUBJECT"_s);
    EXPECT_EQ(subject.colour, 1);
    EXPECT_EQ(subject.across, 0);
    EXPECT_EQ(subject.down, 1);
    EXPECT_EQ(MarkOf(u"ARROWBLACKALTCOMP9RI.BMP"_s).caption, u"ALT 9"_s);
    EXPECT_EQ(MarkOf(u"ARROWREDRENTAL2UP.BMP"_s).caption, u"RENT 2"_s);
    EXPECT_EQ(MarkOf(u"ARROWREDLISTING3RB.BMP"_s).caption, u"LIST 3"_s);
    EXPECT_EQ(MarkOf(u"ARROWREDLF.BMP"_s).caption, QString());
    EXPECT_TRUE(MarkOf(u"REDDOORAnchor.bmp"_s).anchored);
    EXPECT_EQ(MarkOf(u"REDDOORAnchor.bmp"_s).kind, Mark::Kind::RedDoor);
    EXPECT_FALSE(MarkOf(u"comp.bmp"_s).anchored);
    for (const QString& name : {u"ARROWGREENCOMP1LT.BMP"_s, u"ARROWBLUECOMP0LT.BMP"_s, u"ARROWBLUECOMP12LT.BMP"_s,
                                u"ARROWBLUESUBJECT1LT.BMP"_s, u"ARROWBLUECOMP1XX.BMP"_s, u"ARROW.BMP"_s,
                                u"church.bmp"_s, u"ARROWBLUECOMP1LT"_s, u""_s})
        EXPECT_FALSE(ReadMark(name)) << name.toStdString();
}

TEST(Mark, HasAllColoursTypesNumbersAndDirections)
{
    const QStringList names = MarkNames();
    EXPECT_EQ(names.size(), 3 * (1 + 1 + 4 * 10) * 8 + 12);
    for (const QString& name : names)
        EXPECT_TRUE(ReadMark(name)) << name.toStdString();
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size());
}

// The pixel at the hot spot belongs to the arrow, the opposite corner of a slanted one does not lie further.
TEST(Mark, PointsWithItsTip)
{
    for (const QString& direction : {u"LT"_s, u"UP"_s, u"RT"_s, u"RI"_s, u"RB"_s, u"DN"_s, u"LB"_s, u"LF"_s}) {
        const Mark mark = MarkOf(u"ARROWREDCOMP4"_s + direction + u".BMP"_s);
        for (const double ratio : {1.0, 2.0}) {
            const QImage image = DrawMark(mark, ratio, false);
            const QPointF hot = HotSpot(mark);
            const QRectF all(image.rect());
            const QPointF tip(hot.x() * all.width(), hot.y() * all.height());
            const QPointF inwards(-mark.across * 3.5 * ratio, -mark.down * 3.5 * ratio);
            const QPoint at(static_cast<int>(std::floor(tip.x() + inwards.x())),
                            static_cast<int>(std::floor(tip.y() + inwards.y())));
            EXPECT_GT(qAlpha(image.pixel(at)), 100) << direction.toStdString() << ratio;
        }
    }
}

int LightestOf(const QImage& mark)
{
    int lightest = 0;
    for (int y = 0; y < mark.height(); ++y)
        for (int x = 0; x < mark.width(); ++x)
            if (const QColor pixel = mark.pixelColor(x, y); pixel.alpha() == 255)
                lightest = std::max(lightest, pixel.lightness());
    return lightest;
}

TEST(Mark, ThatIsSeenThroughHasLightInkOnADarkMapAndNoLightField)
{
    for (const QString& colour : {u"BLUE"_s, u"RED"_s, u"BLACK"_s}) {
        const Mark mark = MarkOf(u"ARROW"_s + colour + u"COMP8LF.BMP"_s);
        const QImage dark = DrawMark(mark, 2, true, true);
        EXPECT_GT(LightestOf(dark), 180) << colour.toStdString() << ": its letters";
        int field = 0;
        int dim = 0;
        for (int y = 8; y < dark.height() - 8; ++y)
            for (int x = 40; x < dark.width() - 8; ++x) {
                const QColor pixel = dark.pixelColor(x, y);
                field += pixel.alpha() > 0 && pixel.alpha() < 200 ? 1 : 0;
                dim += pixel.alpha() > 0 && pixel.alpha() < 200 && pixel.lightness() < 30 ? 1 : 0;
            }
        EXPECT_GT(field, 100) << colour.toStdString();
        EXPECT_GT(dim, field * 9 / 10) << colour.toStdString() << ": the streets show through it";
        EXPECT_NE(DrawMark(mark, 2, true, false), dark);
        EXPECT_EQ(DrawMark(mark, 2, false, true), DrawMark(mark, 2, false, false)) << "a filled one is as on a light map";
    }
}

TEST(Mark, IsDrawnAnewAtTwiceTheSize)
{
    const Mark mark = MarkOf(u"ARROWBLUECOMP8LF.BMP"_s);
    const QImage one = DrawMark(mark, 1, false);
    const QImage two = DrawMark(mark, 2, false);
    EXPECT_EQ(two.size(), one.size() * 2);
    EXPECT_NE(two, one.scaled(two.size()));
    EXPECT_NE(DrawMark(mark, 1, true), one);
    EXPECT_NE(DrawMark(MarkOf(u"ARROWBLUECOMP9LF.BMP"_s), 1, false), one);
}

TEST(MarkFiles, WritesWhatIsMissingAndNoMore)
{
    const QTemporaryDir home;
    const QString own = home.filePath(u"arrowredcomp1lt.bmp"_s);
    QFile(own).open(QIODevice::WriteOnly);
    QFile foreign(home.filePath(u"COMP.BMP"_s));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    foreign.write("BM of somebody");
    foreign.close();
    EXPECT_TRUE(WriteMarks(home.path()).isEmpty());
    EXPECT_EQ(QDir(home.path()).entryList(QDir::Files).size(), MarkNames().size());
    EXPECT_EQ(QFile(foreign.fileName()).size(), 14);
    EXPECT_FALSE(IsOwnBitmap(foreign.fileName()));
    const QString file = home.filePath(u"ARROWBLUECOMP1LT.BMP"_s);
    EXPECT_TRUE(IsOwnBitmap(file));
    const QImage bitmap(file);
    EXPECT_EQ(bitmap.size(), DrawMark(MarkOf(u"ARROWBLUECOMP1LT.BMP"_s), 1, false).size());
    EXPECT_EQ(bitmap.pixelColor(bitmap.width() - 1, 0), QColor(Qt::white));
    EXPECT_EQ(WriteMarks(u"/nowhere/at/all"_s).size(), MarkNames().size());
}

TEST(MarkFiles, HoldNothingThatLayInMemoryBehindARow)
{
    const QTemporaryDir home;
    ASSERT_TRUE(WriteMarks(home.path()).isEmpty());
    for (const QString& name : QDir(home.path()).entryList(QDir::Files)) {
        QFile file(home.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        const QImage mark = QImage::fromData(bytes);
        const qsizetype row = (mark.width() + 3) / 4 * 4;
        for (int y = 1; y <= mark.height(); ++y)
            ASSERT_EQ(bytes.mid(bytes.size() - (y - 1) * row - (row - mark.width()), row - mark.width()).count('\0'),
                      row - mark.width())
                << name.toStdString() << ", row " << y;
    }
}

TEST(MarkFiles, DeliversThemIntoAHomeOnce)
{
    const QTemporaryDir program;
    const QTemporaryDir home;
    const QString arrows = home.filePath(u"VAS2000/arrows"_s);
    for (const QString& name : {u"comp.bmp"_s, u"reddot.bmp"_s}) {
        QFile file(program.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("new");
    }
    EXPECT_TRUE(DeliverMarks(program.path(), arrows).isEmpty());
    EXPECT_EQ(QDir(arrows).entryList(QDir::Files).size(), 2);
    QFile own(arrows + u"/comp.bmp"_s);
    own.remove();
    own.setFileName(arrows + u"/COMP.BMP"_s); // a user's own
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    own.close();
    EXPECT_TRUE(DeliverMarks(program.path(), arrows).isEmpty());
    EXPECT_EQ(QDir(arrows).entryList(QDir::Files), (QStringList{u"COMP.BMP"_s, u"reddot.bmp"_s}));
    EXPECT_EQ(own.size(), 0);
    EXPECT_EQ(DeliverMarks(program.path(), u"/proc/arrows"_s).size(), 2);
    EXPECT_TRUE(DeliverMarks(program.filePath(u"gone"_s), arrows).isEmpty());
}

} // namespace

} // namespace vasclip::street::draw
