#include "platform/conduit/link_session.h"

#include "memo_handler.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::conduit;
using vasclip::test::MemoHandler;

namespace {

constexpr auto kHello =
    "{\"hello\":\"vasclip-link\",\"version\":1,\"nonce\":\"n1\",\"program\":\"t\",\"pid\":1}\n";

TEST(LinkSession, GreetsBeforeItServes)
{
    MemoHandler handler;
    LinkSession session(handler, u"memo"_s);
    const QList<QByteArray> lines = session.Feed(kHello);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(DecodeHello(lines[0].chopped(1)).nonce, u"n1"_s);
    EXPECT_EQ(DecodeHello(lines[0].chopped(1)).program, u"memo"_s);
    EXPECT_FALSE(session.Finished());
}

TEST(LinkSession, AQuestionBeforeTheGreetingEndsIt)
{
    MemoHandler handler;
    handler.memory[u"K|S/x"_s] = u"secret"_s;
    LinkSession session(handler, u"memo"_s);
    const QList<QByteArray> lines =
        session.Feed("{\"id\":1,\"do\":\"request\",\"topic\":\"K|S\",\"item\":\"x\"}\n");
    ASSERT_EQ(lines.size(), 1);
    EXPECT_EQ(DecodeAnswer(lines[0].chopped(1)).kind, LinkAnswer::Kind::Error);
    EXPECT_FALSE(lines[0].contains("secret"));
    EXPECT_TRUE(session.Finished());
    EXPECT_TRUE(session.Feed(kHello).isEmpty());
}

TEST(LinkSession, GarbageIsRefusedAndTheNextLineServed)
{
    MemoHandler handler;
    handler.memory[u"K|S/x"_s] = u"value"_s;
    LinkSession session(handler, u"memo"_s);
    static_cast<void>(session.Feed(kHello));
    const QList<QByteArray> lines =
        session.Feed("rubbish\n{\"id\":5,\"do\":\"request\",\"topic\":\"K|S\",\"item\":\"x\"}\n");
    ASSERT_EQ(lines.size(), 2);
    const LinkAnswer refusal = DecodeAnswer(lines[0].chopped(1));
    EXPECT_EQ(refusal.id, 0);
    EXPECT_EQ(refusal.kind, LinkAnswer::Kind::Error);
    EXPECT_TRUE(refusal.text.contains(u"\"rubbish\""_s));
    EXPECT_EQ(DecodeAnswer(lines[1].chopped(1)).text, u"value"_s);
    EXPECT_FALSE(session.Finished());
}

TEST(LinkSession, WhatTheHandlerThrowsBecomesARefusal)
{
    MemoHandler handler;
    int seen = 0;
    LinkSession session(handler, u"memo"_s, [&seen](const LinkMessage& message, const LinkAnswer& answer) {
        ++seen;
        EXPECT_EQ(message.id, answer.id);
    });
    static_cast<void>(session.Feed(kHello));
    for (const auto& [item, words] :
         {std::pair{"REFUSE", u"I will not say \"REFUSE\""_s}, std::pair{"BREAK", u"something broke"_s}}) {
        const QList<QByteArray> lines = session.Feed(
            QByteArray("{\"id\":9,\"do\":\"request\",\"topic\":\"K|S\",\"item\":\"") + item + "\"}\n");
        ASSERT_EQ(lines.size(), 1);
        EXPECT_EQ(DecodeAnswer(lines[0].chopped(1)).text, words);
        EXPECT_EQ(DecodeAnswer(lines[0].chopped(1)).id, 9);
    }
    EXPECT_EQ(seen, 2);
}

TEST(LinkSession, SurvivesTenThousandLinesOfNoise)
{
    MemoHandler handler;
    LinkSession session(handler, u"memo"_s);
    static_cast<void>(session.Feed(kHello));
    std::mt19937 random(20040307);
    const QByteArray seed = "{\"id\":5,\"do\":\"poke\",\"topic\":\"K|S\",\"item\":\"x\",\"text\":\"y\"}";
    for (int i = 0; i < 10000; ++i) {
        QByteArray line = seed;
        for (int changes = static_cast<int>(random() % 6); changes > 0; --changes)
            line[static_cast<qsizetype>(random() % static_cast<unsigned>(line.size()))] =
                static_cast<char>(random());
        line.replace('\n', ' ');
        ASSERT_EQ(session.Feed(line + '\n').size(), 1) << i;
        ASSERT_FALSE(session.Finished());
    }
}

} // namespace
