#include "support/recording_conduit.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using vasclip::RuntimeError;
using vasclip::test::RecordingConduit;

namespace {

TEST(RecordingConduit, WritesDownTheConversation)
{
    RecordingConduit link;
    link.SetLinkMode(0);
    link.SetLinkTopic(u"KEL|SMITH"_s);
    link.SetLinkMode(2);
    link.SetLinkItem(u"URAR|14|2"_s);
    link.SetText(u"1.2 Mi. NW"_s);
    link.LinkPoke();
    EXPECT_EQ(link.Take(), (QStringList{u"mode 0"_s, u"topic KEL|SMITH"_s, u"mode 2"_s, u"item URAR|14|2"_s,
                                        u"text 1.2 Mi. NW"_s, u"poke"_s}));
    EXPECT_TRUE(link.log.isEmpty());
    EXPECT_EQ(link.pokes, (QList<QStringList>{{u"KEL|SMITH"_s, u"URAR|14|2"_s, u"1.2 Mi. NW"_s}}));
}

TEST(RecordingConduit, AnswersOnceBeforeItsStandingAnswer)
{
    RecordingConduit link;
    link.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"A.RPT,"_s);
    link.AnswerOnce(u"kel|query"_s, u"activereports"_s, u"none"_s);
    link.SetLinkTopic(u"KEL|Query"_s);
    link.SetLinkMode(2);
    link.SetLinkItem(u"ActiveReports"_s);
    QStringList answers;
    for (int i = 0; i < 3; ++i) {
        link.LinkRequest();
        answers.append(link.Text());
    }
    EXPECT_EQ(answers, (QStringList{u"none"_s, u"A.RPT,"_s, u"A.RPT,"_s}));
}

TEST(RecordingConduit, FailsAsTheRealOneDoes)
{
    RecordingConduit link;
    EXPECT_THROW(link.LinkRequest(), RuntimeError);
    link.SetLinkMode(2);
    EXPECT_THROW(link.SetLinkTopic(u"KEL|Query"_s), RuntimeError);
    link.FailOnce(u"poke"_s, 286, u"too late"_s);
    EXPECT_THROW(link.LinkPoke(), RuntimeError);
    EXPECT_EQ(link.LinkMode(), 0);
    link.SetLinkMode(2);
    EXPECT_NO_THROW(link.LinkPoke());
    link.running = false;
    EXPECT_THROW(link.SetLinkMode(2), RuntimeError);
}

} // namespace
