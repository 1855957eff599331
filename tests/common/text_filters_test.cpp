#include "common/text_filters.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

TEST(RemoveIllegalChars, DropsExactlyTheTableOfCodes)
{
    const auto illegal = [](int code) {
        return (code >= 1 && code <= 31) || (code >= 33 && code <= 39) || code == 42 || code == 43 ||
               code == 47 || (code >= 58 && code <= 64) || code == 92 || code == 94 || code == 96 ||
               code == 126 || code == 127;
    };
    for (int code = 1; code < 512; ++code) {
        const QString text = u"A"_s + QChar(code) + u"B"_s;
        EXPECT_EQ(RemoveIllegalChars(text), illegal(code) ? u"AB"_s : text) << code;
    }
    EXPECT_EQ(RemoveIllegalChars(u"O'Neil, (A-1) [x]_y. \"q\" #5"_s), u"ONeil, (A-1) [x]_y. q 5"_s);
    EXPECT_EQ(RemoveIllegalChars(QString()), QString());
}

TEST(ReplaceChar, ReplacesEveryOccurrenceOnce)
{
    EXPECT_EQ(ReplaceChar(u"a.b.c"_s, u"."_s, u""_s), u"abc"_s);
    EXPECT_EQ(ReplaceChar(u"a'b"_s, u"'"_s, u"''"_s), u"a''b"_s);
    EXPECT_EQ(ReplaceChar(u"aaa"_s, u"aa"_s, u"b"_s), u"ba"_s);
    EXPECT_EQ(ReplaceChar(u"Main St"_s, u"main"_s, u"x"_s), u"Main St"_s);
    EXPECT_EQ(ReplaceChar(u"..."_s, u"."_s, u" "_s), u"   "_s);
    EXPECT_EQ(ReplaceChar(u"abc"_s, u""_s, u"x"_s), u"abc"_s);
    EXPECT_EQ(ReplaceChar(u""_s, u"a"_s, u"x"_s), u""_s);
}

TEST(PadLeft, PadsAndCutsOnTheLeft)
{
    EXPECT_EQ(PadLeft(u"7"_s, 3, u'0'), u"007"_s);
    EXPECT_EQ(PadLeft(u" 7 "_s, 3, u'0'), u"007"_s);
    EXPECT_EQ(PadLeft(u"12345"_s, 3, u'0'), u"345"_s);
    EXPECT_EQ(PadLeft(u""_s, 2, u'*'), u"**"_s);
    EXPECT_EQ(PadLeft(u"abc"_s, 0, u'0'), u""_s);
    EXPECT_EQ(PadLeft(u"abc"_s, -4, u'0'), u""_s);
}

TEST(IsNumericChar, KnowsDigitsAndTheHyphen)
{
    for (int code = 1; code < 256; ++code)
        EXPECT_EQ(IsNumericChar(QString(QChar(code))), (code >= '0' && code <= '9') || code == '-') << code;
    EXPECT_FALSE(IsNumericChar(QString()));
    EXPECT_FALSE(IsNumericChar(u" "_s));
}

TEST(errClearFldSetFocus, ClearsAndFocuses)
{
    forms::ControlSet set;
    forms::TextBox box(set, u"txtPicDelay"_s);
    forms::ComboBox combo(set, u"cboGeneral"_s);
    box.SetText(u"11"_s);
    combo.SetText(u"x"_s);
    int focused = 0;
    QObject::connect(&box, &forms::Control::FocusWanted, &box, [&] { ++focused; });
    QObject::connect(&combo, &forms::Control::FocusWanted, &combo, [&] { ++focused; });
    errClearFldSetFocus(box);
    errClearFldSetFocus(combo);
    EXPECT_EQ(box.Text(), QString());
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(focused, 2);
}

} // namespace
} // namespace vasclip::common
