#include "memo_partner.h"
#include "servers.h"

#include "platform/conduit/channel_conduit.h"
#include "platform/conduit/chosen_conduit.h"
#include "platform/conduit/dde_way.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;
using namespace vasclip::test;

namespace {

/// As on Windows: no pipe between.
TEST(DdeWay, TheMembersOverAPartnerOfThisProcess)
{
    MemoPartner* partner = nullptr;
    ChannelConduit link(
        [&](const QDeadlineTimer&) {
            auto memo = std::make_unique<MemoPartner>();
            partner = memo.get();
            return std::make_unique<DdeWay>(std::move(memo));
        },
        1000);
    link.SetLinkTopic(u"KEL|nobody"_s);
    EXPECT_EQ(ThrownBy([&] { link.SetLinkMode(2); }).number, 282);
    EXPECT_EQ(link.LinkMode(), 0);
    link.SetLinkTopic(u"KEL|A|B"_s);
    EXPECT_EQ(ThrownBy([&] { link.SetLinkMode(2); }).number, 285);
    EXPECT_EQ(link.LinkMode(), 0);
    link.SetLinkTopic(u"KEL|R1"_s);
    link.SetLinkMode(2);
    EXPECT_EQ(ThrownBy([&] { link.SetLinkTopic(u"KEL|R2"_s); }).number, 287);
    link.SetLinkItem(u"X"_s);
    link.SetText(u"é"_s);
    link.LinkPoke();
    link.SetLinkMode(0);
    EXPECT_EQ(ThrownBy([&] { link.LinkRequest(); }).number, 293);
    link.SetLinkMode(2);
    link.SetText({});
    link.LinkRequest();
    EXPECT_EQ(link.Text(), u"é"_s);
    link.LinkExecute(u"[a]\r"_s);
    EXPECT_EQ(partner->commands, u"[a]\r");
    link.SetLinkItem(u"LATE"_s);
    EXPECT_EQ(ThrownBy([&] { link.LinkRequest(); }).number, 286);
    EXPECT_EQ(link.LinkMode(), 0);
    link.SetLinkMode(2);
    EXPECT_EQ(partner->opened, (std::vector<std::u16string>{u"KEL|R1", u"KEL|R1"}));
}

TEST(ChosenConduit, KeepsWhatTheFieldHolds)
{
    const auto make = [](MemoPartner*& partner) {
        return std::make_unique<ChannelConduit>(
            [&partner](const QDeadlineTimer&) {
                auto memo = std::make_unique<MemoPartner>();
                partner = memo.get();
                return std::make_unique<DdeWay>(std::move(memo));
            },
            1000);
    };
    MemoPartner *first = nullptr, *second = nullptr;
    ChosenConduit link(make(first));
    link.SetLinkTopic(u"KEL|R1"_s);
    link.SetLinkMode(2);
    link.SetLinkItem(u"X"_s);
    link.SetText(u"y"_s);
    link.Use(make(second));
    EXPECT_EQ(link.LinkMode(), 0);
    link.SetLinkMode(2);
    link.LinkPoke();
    EXPECT_EQ(second->kept[u"X"], u"y");
    EXPECT_EQ(second->opened, (std::vector<std::u16string>{u"KEL|R1"}));
}

} // namespace
