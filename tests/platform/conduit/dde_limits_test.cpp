#include "latin_page.h"

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/letters.h"

#include <gtest/gtest.h>

#include <functional>

using namespace vasclip::conduit::dde;

namespace {

const vasclip::test::LatinPage kPage;

std::string Refusal(const std::function<void()>& step)
{
    try {
        step();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Reason(), Why::Refused);
        return failure.what();
    }
    return {};
}

std::string OfText(std::u16string_view text)
{
    return Refusal([&] { static_cast<void>(RequireText(kPage, "The value for \"A\"", text)); });
}

std::string OfTopic(std::u16string_view whole)
{
    return Refusal([&] { static_cast<void>(RequireTopic(kPage, whole)); });
}

TEST(DdeLimits, ACharacterOutsideTheCodePageIsNamedWithItsPlace)
{
    EXPECT_EQ(OfText(u"caf\u00e9 \u6f22"), "The value for \"A\" holds \"\u6f22\" (U+6F22) at place 6, which code page 28591 "
                                           "does not have; nothing was sent");
    EXPECT_EQ(OfText(u"\U0001F600"), "The value for \"A\" holds \"\U0001F600\" (U+1F600) at place 1, which code page 28591 "
                                     "does not have; nothing was sent");
    EXPECT_EQ(OfText(u"\u0100\U0001F600"),
              "The value for \"A\" holds \"\u0100\" (U+0100) at place 1, which code page 28591 does not have; nothing was sent");
    EXPECT_EQ(RequireText(kPage, "x", u"caf\u00e9"), "caf\xe9");
}

TEST(DdeLimits, AZeroWithinATextWouldEndIt)
{
    EXPECT_EQ(OfText(std::u16string_view(u"ab\0c", 4)),
              "The value for \"A\" holds a zero character at place 3, where the exchange would end it; nothing was sent");
}

TEST(DdeLimits, SixtyFourKilobytesWithTheZero)
{
    EXPECT_EQ(OfText(std::u16string(65535, u'x')), "");
    EXPECT_EQ(OfText(std::u16string(65536, u'x')),
              "The value for \"A\" has 65536 bytes, and the exchange takes at most 65535; nothing was sent");
}

TEST(DdeLimits, NamesHaveAtMost255Characters)
{
    EXPECT_EQ(Refusal([] { RequireItem(kPage, std::u16string(255, u'i')); }), "");
    EXPECT_EQ(Refusal([] { RequireItem(kPage, std::u16string(256, u'i')); }),
              "The item \"" + std::string(60, 'i') +
                  "...\" has 256 characters, and the exchange takes at most 255; nothing was sent");
    EXPECT_EQ(Refusal([] { RequireItem(kPage, u""); }), "No item is named, and the exchange wants one; nothing was sent");
    EXPECT_EQ(Refusal([] { RequireItem(kPage, u"UA5|14|2"); }), ""); // a bar in an item is nothing special
    EXPECT_EQ(OfTopic(u"KEL|" + std::u16string(255, u't')), "");
    EXPECT_NE(OfTopic(u"KEL|" + std::u16string(256, u't')).find("The topic \"tttt"), std::string::npos);
    std::u16string whole(258, u's');
    whole[256] = u'|';
    EXPECT_NE(OfTopic(whole).find("The service \"ssss"), std::string::npos);
}

TEST(DdeLimits, ATopicHoldsNoBar)
{
    const Topic topic = RequireTopic(kPage, u"KEL|SMITH 12.RPT");
    EXPECT_EQ(topic.service, u"KEL");
    EXPECT_EQ(topic.topic, u"SMITH 12.RPT");
    EXPECT_EQ(OfTopic(u"KEL|A|B.RPT"),
              "The topic \"A|B.RPT\" holds a bar (\"|\"), which the exchange keeps for itself; nothing was sent");
    EXPECT_EQ(OfTopic(u"KEL"), "\"KEL\" is no topic: a service, \"|\" and a topic are wanted; nothing was sent");
    EXPECT_EQ(OfTopic(u"KEL|"), "No topic is named, and the exchange wants one; nothing was sent");
    EXPECT_EQ(OfTopic(u"|System"), "No service is named, and the exchange wants one; nothing was sent");
}

TEST(DdeLetters, Utf8BothWays)
{
    const std::u16string text = u"a\u00e9\u20ac\U0001F600\u07ff\u0800\uffff\U00010000\U0010ffff";
    EXPECT_EQ(Utf8(text), "a\u00e9\u20ac\U0001F600\u07ff\u0800\uffff\U00010000\U0010ffff");
    EXPECT_EQ(Utf16(Utf8(text)), text);
    const char16_t half[] = {u'a', 0xd83d, u'b', 0};
    EXPECT_EQ(Utf8(half), "a\ufffdb");
    EXPECT_EQ(UnitsAt(u"\U0001F600", 0), 2U);
    EXPECT_EQ(UnitsAt(half, 1), 1U);
}

TEST(DdeLetters, WhatIsNoUtf8)
{
    for (const char* bytes : {"\x80", "\xc0\x80", "\xc1\xbf", "\xe0\x80\x80", "\xed\xa0\x80", "\xf0\x80\x80\x80",
                              "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "a\xe2\x82", "\xe2\x28\xa1", "\xff"})
        EXPECT_EQ(Utf16(bytes), std::nullopt) << bytes;
}

TEST(DdeLetters, NamesAreComparedWithoutCase)
{
    EXPECT_TRUE(SameName(u"KEL|System", u"kel|SYSTEM"));
    EXPECT_FALSE(SameName(u"KEL", u"KEL1"));
    EXPECT_FALSE(SameName(u"[", u"{")); // 32 apart as well
}

} // namespace
