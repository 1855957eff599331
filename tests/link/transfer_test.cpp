#include "link/transfer.h"

#include "desk_test.h"
#include "link/refresh.h"
#include "link/save_data.h"
#include "link/set_city.h"
#include "link/tabs.h"
#include "link/talk.h"
#include "platform/conduit/patience.h"
#include "store/change.h"

namespace vasclip::link {
namespace {

/// A report SMITH of form UA5 with a field of each group's first page.
class Transfer : public DeskTest
{
protected:
    const QString topic = u"KEL|SMITH"_s;

    void SetUp() override
    {
        DeskTest::SetUp();
        OpenReport(u"SMITH"_s, u"UA5,"_s);
        addr.txtKelReport.SetText(u"SMITH"_s);
        addr.txtFormType.SetText(u"UA5"_s);
        addr.txtKelListForms.SetText(u"UA5,"_s);
        globals.useSubjCsz = u"NONE"_s;
        for (const QString& group : {u"SALE"_s, u"ALT"_s, u"RENT"_s, u"LIST"_s})
            for (const QString& base : {u"1"_s, u"4"_s, u"7"_s})
                Map({u"UA5"_s, group + base, u"GLA"_s, u"7"_s, u"1"_s, group, base, u"1"_s});
        Map({u"UA5"_s, u"UA5"_s, u"GLA"_s, u"7"_s, u"9"_s, u"SALE"_s, u"10"_s, u"0"_s});
        conduit.unscripted = u"1850"_s;
    }
    void Slot(const forms::ControlArray<forms::TextBox>& labels, int index, const QString& address)
    {
        labels(index).SetText(address);
    }
    [[nodiscard]] QStringList Read()
    {
        QStringList items;
        for (const QString& entry : conduit.Take())
            if (entry.startsWith(u"item "_s) && entry.contains(u'|'))
                items << entry.mid(5);
        return items;
    }
    [[nodiscard]] QStringList Keys()
    {
        QStringList keys;
        const auto rows = sources.datDatabook.Database().OpenRecordset(
            u"SELECT CENTRALKEY FROM COMPS ORDER BY CENTRALKEY"_s, engine::RecordsetType::Dynaset);
        for (; !rows->Eof(); rows->MoveNext())
            keys << rows->Value(0).toString().trimmed();
        return keys;
    }
    [[nodiscard]] QString Value(const QString& key, const QString& field)
    {
        StandOn(key);
        return store::GetFieldData(sources.datDatabook, field);
    }
};

TEST_F(Transfer, ANewCompBecomesARecordWithoutAQuestion)
{
    Slot(report.txtComp, 5, u" 12 oak st "_s);
    const TransferTally tally = TransferComps(desk, false, 5, What::Data);
    EXPECT_EQ(tally.added, 1);
    EXPECT_EQ(tally.stored, QStringList(u"12 OAK ST"_s));
    EXPECT_EQ(Read(), QStringList(u"SALE4|7|2"_s));
    EXPECT_EQ(Keys(), QStringList(u"12 OAK ST"_s));
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"GLA"_s), u"1850"_s);
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"APPRSLTYPE"_s), u"F"_s);
    EXPECT_FALSE(Value(u"12 OAK ST"_s, u"LOADDATE"_s).isEmpty());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(status.lblmsg.Caption(), u"1 record was added."_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Blue);
}

TEST_F(Transfer, EveryStepIsToldInItsWords)
{
    QList<store::Step> steps;
    sources.datDatabook.Watch([&](const store::Step& step) { steps.append(step); });
    Slot(report.txtComp, 5, u"12 Oak St"_s);
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    EXPECT_EQ(TransferComps(desk, false, 5, What::Data).added, 1);
    EXPECT_EQ(TransferComps(desk, false, 5, What::Data).replaced, 1);
    ASSERT_EQ(steps.size(), 2) << "the city and the dates are part of the one step";
    EXPECT_EQ(steps[0].words, u"Add 12 OAK ST from the report"_s);
    EXPECT_EQ(steps[0].after.value(u"GLA"_s).toString().trimmed(), u"1850"_s);
    EXPECT_EQ(steps[1].words, u"Take 12 OAK ST from the report"_s);
    EXPECT_TRUE(steps[1].before.contains(u"LOADDATE"_s));
}

TEST_F(Transfer, TheRecordOnShowAndItsEditStayWhateverIsStored)
{
    AddComp(u"9 Elm"_s, {{u"GLA"_s, u"900"_s}});
    AddComp(u"1 A"_s, {{u"GLA"_s, u"900"_s}});
    Slot(report.txtComp, 1, u"1 A"_s);
    Slot(report.txtComp, 2, u"2 A"_s);
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    StandOn(u"9 ELM"_s);
    store::Change typing(sources.datDatabook, u"typed"_s);
    typing.Set(u"GLA"_s, u"950"_s);
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_EQ(tally.stored, (QStringList{u"1 A"_s, u"2 A"_s}));
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"CENTRALKEY"_s), u"9 ELM"_s);
    typing.Store();
    EXPECT_EQ(store::ReadRecord(sources.datDatabook, u"9 ELM"_s)->Text(u"GLA"_s), u"950"_s);
    EXPECT_EQ(store::ReadRecord(sources.datDatabook, u"1 A"_s)->Text(u"GLA"_s), u"1850"_s);
}

TEST_F(Transfer, ARecordThatIsThereIsReplacedAfterAQuestion)
{
    AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"900"_s}, {u"LOADDATE"_s, u"01/05/2001"_s}});
    Slot(report.txtComp, 1, u"12 OAK st"_s); // another case of the same address
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(TransferComps(desk, false, 1, What::Data).replaced, 1);
    EXPECT_EQ(doubles.prompter.Last().text, u"Replace the data for 12 Oak St?"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_EQ(Keys(), QStringList(u"12 OAK ST"_s));
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"GLA"_s), u"1850"_s);
    EXPECT_NE(Value(u"12 OAK ST"_s, u"LOADDATE"_s), u"01/05/2001"_s);
}

TEST_F(Transfer, ABlankAtTheEndIsNoOtherAddress)
{
    AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"900"_s}});
    Slot(report.txtComp, 1, u"12 Oak St "_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(TransferComps(desk, false, 1, What::Data).replaced, 1);
    EXPECT_EQ(Keys(), QStringList(u"12 OAK ST"_s));
}

TEST_F(Transfer, RunsUnderTheHourglassAndKeepsTheProgramInFront)
{
    Slot(report.txtComp, 1, u"1 A"_s);
    Slot(report.txtComp, 2, u"2 A"_s);
    bool waiting = true;
    conduit.before = [this, &waiting](const QString& entry) {
        if (entry.startsWith(u"item SALE"_s))
            waiting = waiting && doubles.window.hourglass;
    };
    EXPECT_EQ(TransferComps(desk, true, 0, What::Data).added, 2);
    EXPECT_TRUE(waiting);
    EXPECT_FALSE(doubles.window.hourglass);
    EXPECT_EQ(doubles.window.activations, 1 + 2 * 2) << "at first, and about each comp that is read";
}

TEST_F(Transfer, NoKeepsTheRecordAndReadsNothing)
{
    AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"900"_s}});
    Slot(report.txtComp, 1, u"12 Oak St"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_EQ(TransferComps(desk, false, 1, What::Data).kept, 1);
    EXPECT_TRUE(Read().isEmpty());
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"GLA"_s), u"900"_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"1 was kept as it was."_s);
}

TEST_F(Transfer, AnotherSpellingIsAnotherRecord)
{
    AddComp(u"12 Oak St"_s);
    Slot(report.txtComp, 1, u"12 Oak St."_s);
    EXPECT_EQ(TransferComps(desk, false, 1, What::Data).added, 1);
    EXPECT_EQ(Keys(), (QStringList{u"12 OAK ST"_s, u"12 OAK ST."_s}));
}

TEST_F(Transfer, AllSkipsEmptySlotsAndPagesTheReportLacks)
{
    Slot(report.txtComp, 1, u"1 A"_s);
    Slot(report.txtComp, 3, u"  "_s);
    Slot(report.txtComp, 6, u"6 A"_s);
    Slot(report.txtComp, 7, u"7 A"_s);
    HandleTabCaption(report.TabComp, 1, {}, false);
    EXPECT_EQ(TransferComps(desk, true, 0, What::Data).stored, (QStringList{u"1 A"_s, u"7 A"_s}));
    EXPECT_EQ(Read(), (QStringList{u"SALE1|7|1"_s, u"SALE7|7|1"_s}));
}

TEST_F(Transfer, CompsOfOnePageAreReadByOneLookIntoTheMapping)
{
    for (int comp = 1; comp <= 9; ++comp)
        Slot(report.txtComp, comp, u"%1 A"_s.arg(comp));
    int asked = 0;
    QObject::connect(&sources.datComp2Kel_CURRENT, &store::DataSource::Refreshed, [&asked] { ++asked; });
    EXPECT_EQ(TransferComps(desk, true, 0, What::Data).added, 9);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(Read(),
              (QStringList{u"SALE1|7|1"_s, u"SALE1|7|2"_s, u"SALE1|7|3"_s, u"SALE4|7|1"_s, u"SALE4|7|2"_s,
                           u"SALE4|7|3"_s, u"SALE7|7|1"_s, u"SALE7|7|2"_s, u"SALE7|7|3"_s}));
    // The next transfer looks again: the mapping may be another one.
    Map({u"UA5"_s, u"SALE7"_s, u"BATH"_s, u"8"_s, u"1"_s, u"SALE"_s, u"7"_s, u"1"_s});
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(TransferComps(desk, false, 7, What::Data).replaced, 1);
    EXPECT_EQ(Read(), (QStringList{u"SALE7|7|1"_s, u"SALE7|8|1"_s}));
}

TEST_F(Transfer, EachGroupHasItsSlotsPagesRowsAndLetter)
{
    Slot(report.txtAltComp, 4, u"1 ALT"_s);
    Slot(report.txtListing, 6, u"1 LIST"_s);
    Slot(report.txtRental, 9, u"1 RENT"_s);
    EXPECT_EQ(TransferAltComps(desk, true, 0, What::Data).stored, QStringList(u"1 ALT"_s));
    EXPECT_EQ(Read(), QStringList(u"ALT4|7|1"_s));
    EXPECT_EQ(TransferListings(desk, true, 0, What::Data).stored, QStringList(u"1 LIST"_s));
    EXPECT_EQ(Read(), QStringList(u"LIST4|7|3"_s));
    EXPECT_EQ(TransferRentals(desk, true, 0, What::Data).stored, QStringList(u"1 RENT"_s));
    EXPECT_EQ(Read(), QStringList(u"RENT7|7|3"_s));
    EXPECT_EQ(Value(u"1 RENT"_s, u"APPRSLTYPE"_s), u"R"_s);
    HandleTabCaption(report.TabComp, 4, {}, false);
    HandleTabCaption(report.TabListing, 1, {}, false);
    HandleTabCaption(report.TabRental, 2, {}, false);
    EXPECT_EQ(TransferAltComps(desk, true, 0, What::Data).slots_, 0);
    EXPECT_EQ(TransferListings(desk, true, 0, What::Data).slots_, 0);
    EXPECT_EQ(TransferRentals(desk, true, 0, What::Data).slots_, 0);
    EXPECT_EQ(status.lblmsg.Caption(), u"The report has nothing to transfer here."_s);
}

TEST_F(Transfer, TheSubjectIsReadFromItsUnshiftedCells)
{
    report.txtSubject.SetText(u"1 Subject Way"_s);
    EXPECT_EQ(TransferSubject(desk, What::Data, 0).stored, QStringList(u"1 SUBJECT WAY"_s));
    EXPECT_EQ(Read(), QStringList(u"UA5|7|9"_s));
}

TEST_F(Transfer, AllDataGoesSubjectCompsAlternatesListingsRentals)
{
    report.txtSubject.SetText(u"S"_s);
    Slot(report.txtRental, 1, u"R"_s);
    Slot(report.txtListing, 1, u"L"_s);
    Slot(report.txtAltComp, 1, u"A"_s);
    Slot(report.txtComp, 9, u"C"_s);
    const TransferTally tally = TransferAllData(desk, What::Data);
    EXPECT_EQ(tally.stored, (QStringList{u"S"_s, u"C"_s, u"A"_s, u"L"_s, u"R"_s}));
    EXPECT_EQ(tally.Text(), u"5 records were added."_s);
}

TEST_F(Transfer, TheCityLineGoesToItsFieldsAndStaysInItsOwn)
{
    Map({u"UA5"_s, u"SALE1"_s, u"NEIGHBORHD"_s, u"8"_s, u"1"_s, u"SALE"_s, u"1"_s, u"1"_s});
    conduit.Answer(topic, u"SALE1|8|2"_s, u"Alder Creek, WI 54001"_s);
    Slot(report.txtComp, 2, u"12 Oak St"_s);
    EXPECT_EQ(TransferComps(desk, false, 2, What::Data).added, 1);
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"NEIGHBORHD"_s), u"Alder Creek, WI 54001"_s);
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"CITY"_s), u"Alder Creek"_s);
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"ST"_s), u"WI"_s);
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"ZIP"_s), u"54001"_s);
}

TEST_F(Transfer, TheCityLineDoesNotCostARecordItsNeighborhood)
{
    AddComp(u"12 Oak St"_s, {{u"NEIGHBORHD"_s, u"Oak Hill"_s}, {u"CITY"_s, u"Duluth"_s}});
    AddComp(u"14 Elm St"_s, {{u"NEIGHBORHD"_s, u"Duluth, MN 55803"_s}});
    sources.datDatabook.Refresh();
    Map({u"UA5"_s, u"SALE1"_s, u"NEIGHBORHD"_s, u"8"_s, u"1"_s, u"SALE"_s, u"1"_s, u"1"_s, {}, u"R"_s});
    Map({u"UA5"_s, u"SALE1"_s, u"CITYSTZIP"_s, u"8"_s, u"1"_s, u"SALE"_s, u"1"_s, u"1"_s});
    conduit.Answer(topic, u"SALE1|8|2"_s, u"Alder Creek, WI 54001"_s);
    conduit.Answer(topic, u"SALE1|8|3"_s, u"Alder Creek, WI 54001"_s);
    Slot(report.txtComp, 2, u"12 Oak St"_s);
    Slot(report.txtComp, 3, u"14 Elm St"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(TransferComps(desk, true, 0, What::Data).replaced, 2);
    EXPECT_EQ(conduit.log.count(u"item SALE1|8|2"_s), 1) << "the word that is only sent is not read";
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"NEIGHBORHD"_s), u"Oak Hill"_s);
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"CITY"_s), u"Alder Creek"_s);
    EXPECT_EQ(Value(u"14 ELM ST"_s, u"NEIGHBORHD"_s), u"Alder Creek, WI 54001"_s) << "that was no neighborhood";
    conduit.Answer(topic, u"SALE1|8|2"_s, u"Lakeside"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    TransferComps(desk, false, 2, What::Data);
    EXPECT_EQ(Value(u"12 OAK ST"_s, u"NEIGHBORHD"_s), u"Lakeside"_s) << "and that is one";
}

TEST_F(Transfer, ABlankAddressIsPassedOver)
{
    MappingPages pages;
    EXPECT_EQ(SaveDataToDatabook(desk, u"   "_s, {Group::Sales, 1}, pages), SaveOutcome::Blank);
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_TRUE(conduit.Take().isEmpty());
}

TEST_F(Transfer, WithoutACompNumberTheKeyAloneIsStored)
{
    MappingPages pages;
    EXPECT_EQ(SaveDataToDatabook(desk, u"12 Oak St"_s, {Group::Sales, kNoComp}, pages), SaveOutcome::Added);
    EXPECT_TRUE(conduit.Take().isEmpty());
    EXPECT_EQ(Keys(), QStringList(u"12 OAK ST"_s));
}

TEST_F(Transfer, AnAddressLongerThanTheKeyIsRefusedInWords)
{
    Slot(report.txtComp, 1, QString(36, u'x'));
    Slot(report.txtComp, 2, u"2 A"_s);
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_EQ(tally.failed, 1);
    EXPECT_EQ(tally.added, 1);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(
        u"has 36 characters; the Databook holds at most 35. Shorten it and try again."_s));
    EXPECT_EQ(Keys(), QStringList(u"2 A"_s));
    EXPECT_EQ(status.lblmsg.Caption(), u"1 record was added, 1 could not be stored."_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
}

TEST_F(Transfer, NobodyAtTheLinkIsSaidOnceAndNothingIsTouched)
{
    conduit.running = false;
    Slot(report.txtComp, 1, u"1 A"_s);
    Slot(report.txtComp, 2, u"2 A"_s);
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_TRUE(tally.notRunning);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList(u"The Appraisal Program is not running at this time."_s));
    EXPECT_EQ(doubles.prompter.Last().title, u"Appraisal Program Not Running"_s);
    EXPECT_TRUE(Keys().isEmpty());
}

TEST_F(Transfer, AReportThatIsNotNamedIsNeitherAbsentNorClosed)
{
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH"_s);
    const QString unnamed =
        u"The forms program lists its open reports as \"SMITH\", without a comma: which one is in front is not known"_s;
    TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_EQ(tally.Text(), unnamed + u", so nothing was transferred."_s);
    EXPECT_EQ(status.lblmsg.Caption(), tally.Text());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    Slot(report.txtComp, 1, u"1 A"_s);
    tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_FALSE(tally.notRunning);
    EXPECT_TRUE(tally.Failed());
    EXPECT_EQ(status.lblmsg.Caption(), unnamed + u", so nothing was transferred."_s);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList(unnamed));
    EXPECT_EQ(doubles.prompter.Last().title, globals.productName) << "it is running";
    EXPECT_TRUE(Keys().isEmpty());
}

TEST_F(Transfer, ThatIsCancelledAtItsFirstQuestionIsNotCalledAbsent)
{
    Talk talk;
    talk.Attach(status, desk.ports);
    desk.talk = &talk;
    conduit.before = [&talk](const QString& entry) {
        if (entry == "item ActiveReports"_L1)
            talk.Cancel();
        if (entry == "request"_L1) // the recording conduit knows no patience
            talk.BeforeExchange();
    };
    const TransferTally empty = TransferComps(desk, true, 0, What::Data);
    EXPECT_TRUE(empty.stopped);
    EXPECT_EQ(status.lblmsg.Caption(), u"Cancelled: nothing was stored."_s);
    Slot(report.txtComp, 1, u"1 A"_s);
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    desk.talk = nullptr;
    EXPECT_TRUE(tally.stopped);
    EXPECT_EQ(status.lblmsg.Caption(), u"Nothing was stored, the rest was left alone."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Transfer, ALinkThatBreaksLeavesThatCompAndTheRest)
{
    for (int i = 1; i <= 3; ++i)
        Slot(report.txtComp, i, u"%1 A"_s.arg(i));
    AddComp(u"2 A"_s, {{u"GLA"_s, u"900"_s}});
    doubles.prompter.Answer(forms::Answer::Yes);
    conduit.FailOnce(u"item SALE1|7|2"_s, error::kLinkPeerGone, u"The forms program closed the line"_s);
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_TRUE(tally.linkLost);
    EXPECT_EQ(tally.stored, QStringList(u"1 A"_s));
    EXPECT_EQ(Value(u"2 A"_s, u"GLA"_s), u"900"_s);
    EXPECT_EQ(Keys(), (QStringList{u"1 A"_s, u"2 A"_s}));
    EXPECT_TRUE(doubles.prompter.Last().text.contains(
        u"The forms program closed the line (reading GLA from SALE1|7|2 of SMITH). Nothing of this comp was "
        u"stored"_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(status.lblmsg.Caption(),
              u"1 record was added, 1 could not be stored, the rest was left alone."_s);
}

TEST_F(Transfer, ACompThatIsGivenUpLeavesTheRest)
{
    for (const int i : {1, 2, 3})
        Slot(report.txtComp, i, u"%1 Oak St"_s.arg(i));
    int comps = 0;
    conduit.before = [&comps](const QString& entry) { // as when Cancel is pressed while the second is read
        if (entry == "item SALE1|7|2"_L1 && ++comps == 1)
            throw RuntimeError(conduit::kUserInterrupt, u"Cancelled"_s);
    };
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_TRUE(tally.stopped);
    EXPECT_EQ(status.lblmsg.Caption(), u"1 record was added, the rest was left alone."_s);
    EXPECT_EQ(Keys(), QStringList{u"1 OAK ST"_s});
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Transfer, ARefusedCompDoesNotStopTheOthers)
{
    for (int i = 1; i <= 3; ++i)
        Slot(report.txtComp, i, u"%1 A"_s.arg(i));
    conduit.FailOnce(u"item SALE1|7|2"_s, error::kLinkBusy, u"No such cell"_s);
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_EQ(tally.stored, (QStringList{u"1 A"_s, u"3 A"_s}));
    EXPECT_EQ(tally.failed, 1);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

TEST_F(Transfer, TheGaugeTellsTheStepAndItsButtonStops)
{
    for (int i = 1; i <= 3; ++i)
        Slot(report.txtComp, i, u"%1 A"_s.arg(i));
    QStringList captions;
    QList<int> values;
    QObject::connect(&status.gauProgress, &forms::Control::Changed, [&] {
        if (!status.gauProgress.Caption().isEmpty() && !captions.contains(status.gauProgress.Caption())) {
            captions << status.gauProgress.Caption();
            values << status.gauProgress.Value();
            EXPECT_TRUE(status.cmdStop.Visible());
        }
        if (captions.size() == 2)
            Q_EMIT status.cmdStop.Clicked();
    });
    const TransferTally tally = TransferComps(desk, true, 0, What::Data);
    EXPECT_TRUE(tally.stopped);
    EXPECT_EQ(Keys(), QStringList(u"1 A"_s));
    EXPECT_EQ(captions, (QStringList{u"Transferring 1 A (1 of 3)"_s, u"Transferring 2 A (2 of 3)"_s}));
    EXPECT_EQ(values, (QList<int>{0, 1}));
    EXPECT_FALSE(status.cmdStop.Visible());
    EXPECT_TRUE(status.gauProgress.Caption().isEmpty());
    EXPECT_EQ(status.lblmsg.Caption(), u"1 record was added, the rest was left alone."_s);
}

TEST_F(Transfer, AnAddressIsTakenAsItStandsInWhatIsSaid)
{
    Slot(report.txtComp, 1, u"1%2 A%3"_s);
    QStringList captions;
    const auto connection = QObject::connect(&status.gauProgress, &forms::Control::Changed,
                                             [&] { captions << status.gauProgress.Caption(); });
    EXPECT_EQ(TransferComps(desk, true, 0, What::Data).added, 1);
    QObject::disconnect(connection);
    EXPECT_TRUE(captions.contains(u"Transferring 1%2 A%3 (1 of 1)"_s)) << captions.join(u'|').toStdString();
    Slot(report.txtComp, 1, u"%2 "_s + QString(40, u'N'));
    EXPECT_EQ(TransferComps(desk, true, 0, What::Data).failed, 1);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"%2 NNNN"_s));
    EXPECT_TRUE(
        doubles.prompter.Last().text.contains(u"has 43 characters; the Databook holds at most 35."_s));
}

TEST_F(Transfer, ASecondTransferAndARefreshWithinOneDoNothing)
{
    Slot(report.txtComp, 1, u"1 A"_s);
    int inner = 0;
    const auto connection = QObject::connect(&status.gauProgress, &forms::Control::Changed, [&] {
        if (inner++ > 0)
            return;
        EXPECT_TRUE(TransferComps(desk, true, 0, What::Data).busy);
        EXPECT_EQ(status.lblmsg.Caption(), u"A transfer is under way already."_s);
        RefreshAppraisal(desk);
    });
    EXPECT_EQ(TransferComps(desk, true, 0, What::Data).added, 1);
    EXPECT_GT(inner, 0);
    QObject::disconnect(connection);
    EXPECT_EQ(report.txtComp(1).Text(), u"1 A"_s);
}

TEST_F(Transfer, ARecordThatAppearsWhileTheCellsAreReadIsAskedAbout)
{
    Slot(report.txtComp, 1, u"1 A"_s);
    conduit.before = [this, done = false](const QString& entry) mutable {
        if (!done && entry == u"item SALE1|7|1"_s) {
            done = true;
            AddComp(u"1 A"_s, {{u"GLA"_s, u"900"_s}});
        }
    };
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_EQ(TransferComps(desk, false, 1, What::Data).kept, 1);
    EXPECT_EQ(Value(u"1 A"_s, u"GLA"_s), u"900"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

TEST_F(Transfer, ARecordThatGoesWhileTheCellsAreReadIsAddedAgain)
{
    AddComp(u"1 A"_s);
    Slot(report.txtComp, 1, u"1 A"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    conduit.before = [this, done = false](const QString& entry) mutable {
        if (!done && entry == u"item SALE1|7|1"_s) {
            done = true;
            engine.OpenDatabase(kDatabook)->Execute(u"DELETE FROM COMPS"_s);
        }
    };
    EXPECT_EQ(TransferComps(desk, false, 1, What::Data).added, 1);
    EXPECT_EQ(Keys(), QStringList(u"1 A"_s));
}

TEST_F(Transfer, SavingByItselfGoesByThePreference)
{
    Slot(report.txtComp, 1, u"1 A"_s);
    Slot(report.txtAltComp, 1, u"2 A"_s);
    Slot(report.txtListing, 1, u"3 A"_s);
    Slot(report.txtRental, 1, u"4 A"_s);
    report.txtSubject.SetText(u"5 A"_s);
    const auto saveAll = [this](int view) {
        SaveComp2Database(desk, 1);
        SaveAltComp2Database(desk, 1);
        SaveListing2Database(desk, 1);
        SaveRental2Database(desk, 1);
        SaveSubject2Database(desk, view);
    };
    globals.autoSave = 0;
    saveAll(1);
    EXPECT_TRUE(Keys().isEmpty());
    globals.autoSave = 1;
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    saveAll(2);
    EXPECT_EQ(Keys(), (QStringList{u"1 A"_s, u"2 A"_s, u"3 A"_s, u"4 A"_s}));
    saveAll(1);
    EXPECT_EQ(Keys().size(), 5);
}

} // namespace
} // namespace vasclip::link
