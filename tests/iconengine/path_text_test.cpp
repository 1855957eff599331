#include "iconengine/path_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vasclip::drawing {
namespace {

using namespace Qt::StringLiterals;

/// The points of a path, as whole hundredths.
QString Shape(const QString& text)
{
    const QPainterPath path = ReadPath(text);
    QStringList words;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QString kind = element.type == QPainterPath::MoveToElement   ? u"M"_s
                             : element.type == QPainterPath::LineToElement ? u"L"_s
                                                                           : u"c"_s;
        words.append(kind + QString::number(std::round(element.x * 100) / 100) + u',' +
                     QString::number(std::round(element.y * 100) / 100));
    }
    return words.join(u' ');
}

struct Row
{
    QString text, shape;
};

class PathText : public testing::TestWithParam<Row>
{};

TEST_P(PathText, IsDrawnAsTheStandardSays)
{
    EXPECT_EQ(Shape(GetParam().text).toStdString(), GetParam().shape.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, PathText,
    testing::Values(
        Row{u"M1 2L3,4"_s, u"M1,2 L3,4"_s},
        Row{u"M1 2 3 4 5 6"_s, u"M1,2 L3,4 L5,6"_s},             // further points of a move are lines
        Row{u"m1 2 3 4"_s, u"M1,2 L4,6"_s},
        Row{u"M1 2h3v4H0V0"_s, u"M1,2 L4,2 L4,6 L0,6 L0,0"_s},
        Row{u"M1-2.5l-.5.5"_s, u"M1,-2.5 L0.5,-2"_s},            // a sign or a second dot begins the next number
        Row{u"M0 0h1e1"_s, u"M0,0 L10,0"_s},
        Row{u"M1 1h2v2zl1 0"_s, u"M1,1 L3,1 L3,3 L1,1 M1,1 L2,1"_s},
        Row{u"M0 0c1 0 2 1 2 2s1 2 2 2"_s, u"M0,0 c1,0 c2,1 c2,2 c2,3 c3,4 c4,4"_s},
        Row{u"M0 0s1 0 2 2"_s, u"M0,0 c0,0 c1,0 c2,2"_s},        // no curve before it: the pen's own place
        Row{u"M0 0Q3 0 3 3T6 6"_s, u"M0,0 c2,0 c3,1 c3,3 c3,5 c4,6 c6,6"_s},
        Row{u"M1 0A1 1 0 0 1 0 1"_s, u"M1,0 c1,0.55 c0.55,1 c0,1"_s},
        Row{u"M1 0a1 1 0 01-1 1"_s, u"M1,0 c1,0.55 c0.55,1 c0,1"_s},     // flags need no blanks
        Row{u"M0 0A0 5 0 0 1 4 4"_s, u"M0,0 L4,4"_s},            // no radius: a line
        Row{u"M0 0A5 5 0 0 1 0 0"_s, u"M0,0"_s},                 // no way to go
        Row{u"M0 0L1 1 oops 2 2"_s, u"M0,0 L1,1"_s},
        Row{u"M0 0L1"_s, u"M0,0"_s},
        Row{u""_s, u""_s}));

TEST(PathText, TakesTheLongArcAndTheOtherWay)
{
    const QRectF small = ReadPath(u"M1 0A1 1 0 0 1 0 1"_s).boundingRect();
    const QRectF large = ReadPath(u"M1 0A1 1 0 1 0 0 1"_s).boundingRect();
    EXPECT_NEAR(small.width(), 1, 0.01);
    EXPECT_NEAR(large.width(), 2, 0.01);
    EXPECT_NEAR(large.bottom(), 1, 0.01);
    EXPECT_NEAR(large.top(), -1, 0.01);
}

TEST(PathText, WidensAnArcThatIsTooNarrowForItsEnds)
{
    const QRectF half = ReadPath(u"M0 0A1 1 0 0 1 10 0"_s).boundingRect();
    EXPECT_NEAR(half.height(), 5, 0.02);
}

} // namespace
} // namespace vasclip::drawing
