#include "link/send_bulk.h"

#include "desk_test.h"
#include "fake_proximity.h"
#include "link/kel_channel.h"

namespace vasclip::link {
namespace {

class Send : public DeskTest
{
protected:
    QString sent = u"12 OAK ST"_s; ///< key of the record

    void SetUp() override
    {
        DeskTest::SetUp();
        AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"1850"_s},
                                 {u"BEDROOM"_s, u" 3 "_s},
                                 {u"BATH"_s, u"2.5"_s},
                                 {u"YEARBUILT"_s, u"1987"_s},
                                 {u"SALEDATE"_s, u"05/06/2003"_s},
                                 {u"LEASEDATE"_s, u"01/01/1900"_s},
                                 {u"FUNCUTIL1"_s, u"X"_s},
                                 {u"CITY"_s, u"Duluth"_s},
                                 {u"ST"_s, u"MN"_s}});
        sources.datsql.Refresh();
    }
    /// A row for the second page of sales of form UA5.
    void Row(const QString& field, const QString& row, const QString& trueFalse = {},
             const QString& preEval = {})
    {
        Map({u"UA5"_s, u"PAGE2"_s, field, row, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s, preEval, trueFalse});
    }
    SendResult SendComp(qint16 comp, const QString& compType = u"SALE"_s)
    {
        return SendBulk(desk, Read(sent), u"UA5"_s, u"SMITH"_s, comp, compType);
    }
};

TEST_F(Send, IsOnePokeAFieldInTableOrder)
{
    Row(u"GLA"_s, u"12"_s);
    Row(u"CITY"_s, u"13"_s);
    const SendResult result = SendComp(5);
    EXPECT_TRUE(result.complete);
    EXPECT_EQ(result.sent, 2);
    EXPECT_EQ(conduit.log, (QStringList{u"mode 0"_s, u"topic KEL|SMITH"_s, u"mode 2"_s, u"item PAGE2|12|5"_s,
                                        u"text 1850"_s, u"poke"_s, u"mode 0"_s, u"topic KEL|SMITH"_s,
                                        u"mode 2"_s, u"item PAGE2|13|5"_s, u"text Duluth"_s, u"poke"_s}));
    EXPECT_EQ(conduit.LinkMode(), 2);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Send, OfCompSixAddsTheOffsetTwice)
{
    Row(u"GLA"_s, u"12"_s);
    SendComp(6);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|12|7=1850"_s}));
}

TEST_F(Send, OfTheSubjectIsUnshifted)
{
    Map({u"UA5"_s, u"PAGE1"_s, u"GLA"_s, u"12"_s, u"3"_s, u"SALE"_s, u"10"_s, u"2"_s});
    SendComp(10);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE1|12|3=1850"_s}));
}

TEST_F(Send, ReadsTheRowsOfItsGroupAndPageOnly)
{
    Row(u"GLA"_s, u"12"_s);
    Map({u"UA5"_s, u"RENTP"_s, u"GLA"_s, u"1"_s, u"1"_s, u"RENT"_s, u"4"_s, u"1"_s});
    Map({u"UA5"_s, u"PAGE1"_s, u"GLA"_s, u"2"_s, u"1"_s, u"SALE"_s, u"1"_s, u"1"_s});
    SendComp(4, u"RENT"_s);
    EXPECT_EQ(Poked(), (QStringList{u"RENTP|1|1=1850"_s}));
}

TEST_F(Send, TakesTheFormNameFromTheFirstRow)
{
    Row(u"GLA"_s, u"12"_s);
    Map({u"UA5"_s, u"OTHER"_s, u"CITY"_s, u"13"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
    SendComp(4);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|12|3=1850"_s, u"PAGE2|13|3=Duluth"_s}));
}

TEST_F(Send, ReadsTheCityLineUnderOneWordAndSendsItUnderAnother)
{
    Row(u"NEIGHBORHD"_s, u"13"_s, u"R"_s);
    Row(u"CityStZip"_s, u"13"_s);
    EXPECT_TRUE(SendComp(5).complete);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|13|5=Duluth, MN"_s}));
}

TEST_F(Send, ByAMappingOfBeforeSendsTheNeighborhood)
{
    AddComp(u"14 Elm St"_s, {{u"NEIGHBORHD"_s, u"Oak Hill"_s}, {u"CITY"_s, u"Duluth"_s}});
    sent = u"14 ELM ST"_s;
    Row(u"NEIGHBORHD"_s, u"13"_s);
    EXPECT_TRUE(SendComp(5).complete);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|13|5=Oak Hill"_s}));
}

TEST_F(Send, LeavesTheCityLineOfARecordWithoutACityAndSaysSo)
{
    AddComp(u"14 Elm St"_s);
    sent = u"14 ELM ST"_s;
    Row(u"CITYSTZIP"_s, u"13"_s);
    Row(u"PROXIMITY"_s, u"14"_s);
    Row(u"CENTRALKEY"_s, u"15"_s);
    const SendResult result = SendComp(5);
    EXPECT_TRUE(result.complete);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    ASSERT_EQ(result.unsent.size(), 2);
    EXPECT_EQ(result.unsent[0].what, u"city line"_s);
    EXPECT_EQ(result.unsent[1].what, u"proximity"_s);
    EXPECT_EQ(result.unsent[1].item, u"PAGE2|14|5"_s);
}

struct ValueRow
{
    const char* name;
    QString field, trueFalse, preEval;
    QStringList pokes;
};
class SentValue : public Send, public testing::WithParamInterface<ValueRow>
{};
TEST_P(SentValue, IsShapedByTheRow)
{
    const ValueRow& row = GetParam();
    Row(row.field, u"12"_s, row.trueFalse, row.preEval);
    EXPECT_TRUE(SendComp(5).complete);
    EXPECT_EQ(Poked(), row.pokes);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, SentValue,
    testing::Values(
        ValueRow{"Plain", u"gla"_s, {}, {}, {u"PAGE2|12|5=1850"_s}},
        ValueRow{"BedBath", u"BedBath"_s, {}, {}, {u"PAGE2|12|5=3 / 2.5"_s}},
        ValueRow{"YearBuiltLosesItsBlankAgain", u"YEARBUILT"_s, {}, {}, {u"PAGE2|12|5=1987"_s}},
        ValueRow{"SaleDateIsNotSent", u"SALEDATE"_s, {}, {}, {}},
        ValueRow{"SaleDateInAnotherCaseIs", u"SaleDate"_s, {}, {}, {u"PAGE2|12|5=05/06/2003"_s}},
        ValueRow{"SaleDateAsCheckBoxIs", u"SALEDATE"_s, u"1"_s, {}, {u"PAGE2|12|5=05/06/2003"_s}},
        ValueRow{"EmptyLeaseDateIsBlank", u"LEASEDATE"_s, {}, {}, {u"PAGE2|12|5="_s}},
        ValueRow{"CentralKeyIsNotSent", u"CentralKey"_s, {}, {}, {}},
        ValueRow{"CheckBoxZero", u"FUNCUTIL1"_s, u"0"_s, {}, {u"PAGE2|12|5=X"_s}},
        ValueRow{"CheckBoxOne", u"FUNCUTIL1"_s, u" 1 "_s, {}, {u"PAGE2|12|5=X"_s}},
        ValueRow{"CheckBoxOfNull", u"FUNCUTIL2"_s, u"1"_s, {}, {u"PAGE2|12|5="_s}},
        ValueRow{"CompositeHoldsTheFormTwiceUnshifted",
                 u"ST"_s,
                 u"A"_s,
                 u"CITY"_s,
                 {u"PAGE2|PAGE2|12|3=Duluth MN"_s}},
        ValueRow{"CompositeInLowerCase", u"ST"_s, u"a"_s, u"CITY"_s, {u"PAGE2|PAGE2|12|3=Duluth MN"_s}},
        ValueRow{"AnyOtherMarkSendsNothing", u"GLA"_s, u"Z"_s, {}, {}},
        ValueRow{"ProximityWithoutAMapPoint", u"PROXIMITY"_s, {}, {}, {}}),
    [](const auto& row) { return row.param.name; });

TEST_F(Send, LeaseDateThatIsADateIsSent)
{
    AddComp(u"14 Elm St"_s, {{u"LEASEDATE"_s, u"1/2/2001"_s}});
    AddComp(u"16 Elm St"_s, {{u"LEASEDATE"_s, u"1/1/1900"_s}});
    Row(u"LEASEDATE"_s, u"12"_s);
    sent = u"14 ELM ST"_s;
    SendComp(4);
    sent = u"16 ELM ST"_s;
    SendComp(4);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|12|3=1/2/2001"_s, u"PAGE2|12|3="_s}));
}

TEST_F(Send, AddressTakesItsCase)
{
    Row(u"Address"_s, u"12"_s);
    for (int addressCase : {0, 1, 2}) {
        globals.addressCase = addressCase;
        SendComp(4);
    }
    EXPECT_EQ(Poked(),
              (QStringList{u"PAGE2|12|3=12 OAK ST"_s, u"PAGE2|12|3=12 Oak St"_s, u"PAGE2|12|3=12 Oak St"_s}));
}

class Proximity : public Send
{
protected:
    void SetUp() override
    {
        Send::SetUp();
        Row(u"PROXIMITY"_s, u"5"_s);
        desk.proximity = &map;
        map.shownAddress = u"99 Elsewhere"_s;
    }
    FakeProximity map;
};

TEST_F(Proximity, OfThePointOnTheMapIsItsText)
{
    map.shownAddress = u" 12 oak st "_s;
    map.shownProximity = u" .4 Mi. SE "_s;
    SendComp(4);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|5|3=.4 Mi. SE"_s}));
    EXPECT_TRUE(map.asked.isEmpty());
}

TEST_F(Proximity, OfAnotherPointIsComputedForTheGridsRecord)
{
    SendComp(4);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|5|3=1.2 Mi. NW"_s}));
    EXPECT_EQ(map.asked, (QStringList{u"12 OAK ST"_s, u"12 OAK ST"_s}));
}

TEST_F(Proximity, SwitchedOffIsBlank)
{
    state.proximityOnDrop = false;
    SendComp(4);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|5|3="_s}));
    EXPECT_TRUE(map.asked.isEmpty());
}

TEST_F(Proximity, OfAnUnknownPlaceIsBlank)
{
    map.miles.clear();
    SendComp(4);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|5|3="_s}));
}

TEST_F(Proximity, WithoutASubjectPointHasNoDirection)
{
    map.direction.clear();
    SendComp(4);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|5|3=1.2 Mi."_s}));
}

TEST_F(Proximity, WithoutAMapStaysAsItIs)
{
    desk.proximity = nullptr;
    SendComp(4);
    EXPECT_EQ(Poked(), QStringList());
}

TEST_F(Send, DoesNotPump)
{
    Row(u"GLA"_s, u"12"_s);
    const int before = doubles.pump.turns;
    SendComp(4);
    EXPECT_EQ(doubles.pump.turns, before);
}

TEST_F(Send, AFailingPokeEndsItAndSaysWhere)
{
    Row(u"GLA"_s, u"12"_s);
    Row(u"CITY"_s, u"13"_s);
    Row(u"ST"_s, u"14"_s);
    conduit.FailOnce(u"item PAGE2|13|5"_s, error::kLinkBusy, u"The forms program refused the field"_s);
    const SendResult result = SendComp(5);
    EXPECT_FALSE(result.complete);
    EXPECT_EQ(result.sent, 1);
    EXPECT_EQ(result.failure, error::kLinkBusy);
    EXPECT_TRUE(LinkSurvived(result));
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|12|5=1850"_s}));
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(
        doubles.prompter.Last().text,
        u"The forms program refused the field (sending CITY to PAGE2|13|5, row 2 of 3 in Comp2Kel). 1 field "
        "was sent and stays in the report; this one and those after it were not. Send the comp again to send "
        "them all.\r\nError # 285 in module KelPokeText."_s);
}

TEST_F(Send, AFormsProgramThatDiesIsNotAskedForMore)
{
    Row(u"GLA"_s, u"12"_s);
    Row(u"CITY"_s, u"13"_s);
    conduit.FailOnce(u"poke"_s, error::kLinkPeerGone, u"The forms program has gone"_s);
    const SendResult result = SendComp(5);
    EXPECT_FALSE(LinkSurvived(result));
    EXPECT_EQ(result.sent, 0);
    EXPECT_EQ(conduit.log.count(u"poke"_s), 1);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(
        u"0 fields were sent and stay in the report; whether this one was is not known, those after it were not."_s))
        << qPrintable(doubles.prompter.Last().text);
}

TEST_F(Send, AnUnknownColumnEndsIt)
{
    Row(u"GLA"_s, u"12"_s);
    Row(u"NOSUCH"_s, u"13"_s);
    Row(u"CITY"_s, u"14"_s);
    const SendResult result = SendComp(4);
    EXPECT_EQ(result.failure, error::kFieldUnknown);
    EXPECT_EQ(Poked(), (QStringList{u"PAGE2|12|3=1850"_s}));
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"sending NOSUCH"_s));
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"Error # 3265 in module"_s));
}

TEST_F(Send, AnUnknownSecondColumnEndsItToo)
{
    Row(u"GLA"_s, u"12"_s, u"A"_s, u"NOSUCH"_s);
    EXPECT_EQ(SendComp(4).failure, error::kFieldUnknown);
    EXPECT_TRUE(conduit.pokes.isEmpty());
}

TEST_F(Send, AMappingWithoutRowsIsReported)
{
    const SendResult result = SendComp(5);
    EXPECT_FALSE(result.complete);
    EXPECT_TRUE(conduit.log.isEmpty());
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Comp2Kel has no rows for form 'UA5', group 'SALE', comp '4'; nothing was sent.\r\n"
              "Error # 3021 in module SendBulk."_s);
}

} // namespace
} // namespace vasclip::link
