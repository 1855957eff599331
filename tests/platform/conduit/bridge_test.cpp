#include "platform/conduit/pipe_conduit.h"

#include "servers.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;
using namespace vasclip::test;

namespace {

std::unique_ptr<Conduit> Bridge(const QStringList& arguments, int timeLimitMs = 5000)
{
    auto link = MakePipeConduit({u"" LINK_PEER ""_s, arguments, timeLimitMs});
    link->SetLinkTopic(u"KEL|SMITH"_s);
    link->SetLinkItem(u"URAR|14|2"_s);
    return link;
}

TEST(PipeConduit, SpeaksWithABridgeProcess)
{
    const auto link = Bridge({u"--stdio"_s});
    link->SetLinkMode(2);
    const QString text = u"1.2 Mi. NW\r\n\"é 漢\" "_s.repeated(5000);
    link->SetText(text);
    link->LinkPoke();
    link->SetLinkMode(0);
    link->SetLinkMode(2);
    link->SetText({});
    link->LinkRequest();
    EXPECT_TRUE(link->Text() == text);
    link->SetLinkItem(u"REFUSE"_s);
    EXPECT_EQ(ThrownBy([&] { link->LinkPoke(); }).words, u"No such cell"_s);
    EXPECT_EQ(link->LinkMode(), 2);
}

TEST(PipeConduit, ABridgeThatIsNotThere)
{
    const auto link = MakePipeConduit({u"/no/such/bridge"_s, {}, 1000});
    link->SetLinkTopic(u"KEL|SMITH"_s);
    const Thrown thrown = ThrownBy([&] { link->SetLinkMode(2); });
    EXPECT_EQ(thrown.number, 282);
    EXPECT_TRUE(thrown.words.startsWith(u"The bridge /no/such/bridge cannot be started"_s));
}

TEST(PipeConduit, ABridgeThatIsSilent)
{
    const auto link = Bridge({u"--silent"_s}, 500);
    link->SetLinkMode(2);
    EXPECT_EQ(ThrownBy([&] { link->LinkRequest(); }).number, 286);
    EXPECT_EQ(link->LinkMode(), 0);
}

TEST(PipeConduit, ABridgeThatDiesInTheMiddleOfAnAnswer)
{
    const auto link = Bridge({u"--die"_s});
    link->SetLinkMode(2);
    const Thrown thrown = ThrownBy([&] { link->LinkRequest(); });
    EXPECT_EQ(thrown.number, 289);
    EXPECT_EQ(thrown.words, u"The forms program closed the link in the middle of an answer"_s);
    EXPECT_EQ(link->LinkMode(), 0);
}

} // namespace
