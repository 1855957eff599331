#include "databook/frm_search_sql.h"

#include "databook/frm_calendar.h"
#include "databook/messages.h"
#include "forms/keys.h"
#include "platform/files/profile.h"
#include "support/databook_home.h"

#include <sqlite3.h>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

class SearchScreen : public tests::DatabookHome
{
protected:
    forms::ControlSet set;
    RecordDesk desk{set};
    common::Globals globals;
    store::DataSource datsql{engine, u"datsql"_s};
    GridRows rows{datsql};

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.productName = u"Vasclip"_s;
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        globals.sortGrid = 3;
        AddRows({
            {{key, u"114 OAK ST"_s},
             {u"ADDRESS"_s, u"114 Oak St"_s},
             {u"CITY"_s, u"Elm Grove"_s},
             {u"ST"_s, u"WA"_s},
             {u"GLA"_s, u"1500"_s},
             {u"SELLINGPR"_s, u"99000"_s},
             {u"LANDSIZE"_s, u"8000 sf"_s},
             {u"SALEDATE"_s, u"03/07/2004"_s}},
            {{key, u"22 FERRY RD"_s},
             {u"ADDRESS"_s, u"22 Ferry Rd"_s},
             {u"CITY"_s, u"Elmira"_s},
             {u"ST"_s, u"WAX"_s},
             {u"GLA"_s, u"2100"_s},
             {u"SELLINGPR"_s, u"115000"_s},
             {u"SALEDATE"_s, u"01/01/1900"_s}},
            {{key, u"9 ELM CT"_s},
             {u"ADDRESS"_s, u"9 Elm Ct"_s},
             {u"CITY"_s, u"Port Vale"_s},
             {u"ST"_s, u"wa"_s},
             {u"SELLINGPR"_s, u"115001"_s},
             {u"SALEDATE"_s, u"not yet"_s}},
        });
        store::Connect2mdb(ports, datsql, path, table, store::SourceKind::Query);
        DisplayAllRecords(ports, desk, datsql, rows, 1);
    }

    frm_SearchSQL::Base Base() { return {ports, disk, globals, desk, datsql, rows}; }

    [[nodiscard]] QStringList Shown() const
    {
        QStringList keys;
        for (qint64 row = 0; row < rows.RowCount(); ++row)
            keys.append(rows.Row(row).value(1).trimmed());
        return keys;
    }
    static void Press(forms::Button& button) { Q_EMIT button.Clicked(); }
};

TEST_F(SearchScreen, OpensAsTheSettingsSay)
{
    files::WritePrivateProfileString(disk, u"CITIES"_s, u"CITY1"_s, u"Elm Grove, WA  98001  King"_s,
                                     globals.applicationIni);
    globals.ignorePending = 1;
    frm_SearchSQL screen(Base());
    EXPECT_EQ(screen.TextOf(u"cboSaleRange"_s), u"On Or After"_s);
    EXPECT_EQ(screen.TextOf(u"cboLoadRange"_s), u"On Or After"_s);
    screen.Open();
    EXPECT_EQ(screen.Caption(), u"Vasclip - Database Search (by field)"_s);
    EXPECT_TRUE(screen.optSort(3).Value());
    EXPECT_TRUE(screen.ckbIgnorePending.Value());
    EXPECT_EQ(qobject_cast<forms::ComboBox*>(screen.Box(u"cboSaleRange"_s))->Items(),
              QStringList({u"On or Prior"_s, u"Equal To"_s, u"On or After"_s}));
    EXPECT_EQ(screen.cboCity.Items(), QStringList(u"Elm Grove, WA  98001  King"_s));
    EXPECT_EQ(screen.cboapprslType.ListCount(), 6);
    EXPECT_EQ(screen.Form().sort, 3);
}

TEST_F(SearchScreen, ASortOutsideTheSevenIsNone)
{
    for (const int sort : {-1, 7, 99}) {
        globals.sortGrid = sort;
        frm_SearchSQL screen(Base());
        screen.Open();
        EXPECT_TRUE(screen.optSort(0).Value()) << sort;
        EXPECT_EQ(screen.Form().sort, 0) << sort;
    }
}

TEST_F(SearchScreen, OneSortAtATime)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.optSort(5).SetValue(true);
    EXPECT_FALSE(screen.optSort(3).Value());
    EXPECT_EQ(screen.Form().sort, 5);
}

TEST_F(SearchScreen, TheListsHoldTheKeysAndAddressesOfTheGrid)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    const auto* keys = qobject_cast<forms::ComboBox*>(screen.Box(u"cboSearchKey"_s));
    const auto* addresses = qobject_cast<forms::ComboBox*>(screen.Box(u"cboAddr"_s));
    ASSERT_EQ(keys->ListCount(), 3);
    EXPECT_EQ(keys->List(0), u"114 OAK ST"_s); // in the grid's order
    EXPECT_EQ(addresses->List(2), u"9 Elm Ct"_s);
    EXPECT_EQ(keys->List(3), QString());
    EXPECT_TRUE(keys->Items().isEmpty()) << "the list holds what it only shows";
    screen.SetText(u"txtState"_s, u"wa"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(keys->ListCount(), 2);
}

TEST_F(SearchScreen, ASearchReachesGridStatusAndState)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtCity"_s, u" elm "_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList({u"22 FERRY RD"_s, u"114 OAK ST"_s}));
    EXPECT_EQ(screen.lblmsg.Caption(), u"2 comps found."_s);
    EXPECT_EQ(screen.lblSQL.Caption(), u"SELECT "_s + SearchColumns() +
                                           u" FROM COMPS WHERE UCASE(CITY) LIKE '*ELM*'"
                                           " ORDER BY COMPS.SELLINGPR DESC"_s);
    EXPECT_EQ(desk.state.sqlText, screen.lblSQL.Caption());
    EXPECT_EQ(desk.state.orderByText, u" ORDER BY COMPS.SELLINGPR DESC"_s);
    EXPECT_TRUE(desk.state.searchOnDisplay);
    EXPECT_EQ(datsql.RecordSource(), screen.lblSQL.Caption());
    EXPECT_EQ(desk.txtcentralkey.Text(), u"22 FERRY RD"_s);

    DisplayAllRecords(ports, desk, datsql, rows, 1); // what refreshes the grid keeps the search
    EXPECT_EQ(Shown(), QStringList({u"22 FERRY RD"_s, u"114 OAK ST"_s}));
}

TEST_F(SearchScreen, OneAndNoneHaveTheirOwnWords)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"cboSearchKey"_s, u"oak"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(screen.lblmsg.Caption(), u"1 comp found."_s);
    screen.SetText(u"cboSearchKey"_s, u"maple"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(screen.lblmsg.Caption(),
              u"No comps were found using the search fields above.  Check spelling or be less specific"_s);
    EXPECT_EQ(screen.lblmsg.Fore(), forms::Colour::Red);
    EXPECT_EQ(desk.grddatabook.Row(), -1);
}

TEST_F(SearchScreen, TheStateIsNeverAPattern)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtState"_s, u"WA"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList({u"9 ELM CT"_s, u"114 OAK ST"_s})); // neither "WAX"
    screen.SetText(u"txtState"_s, u"W*"_s);
    Press(screen.cmdSearch);
    EXPECT_TRUE(Shown().isEmpty());
}

TEST_F(SearchScreen, ARangeBoxStandsBesideItsValueOnlyWhileThereIsOne)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    for (const SearchBox& box : screen.Boxes()) {
        if (!box.rangeLabel)
            continue;
        const QString name(box.row.control);
        EXPECT_FALSE(box.range->Visible()) << name.toStdString();
        EXPECT_FALSE(box.rangeLabel->Visible()) << name.toStdString();
        screen.SetText(name, u"10"_s);
        EXPECT_TRUE(box.range->Visible()) << name.toStdString();
        EXPECT_TRUE(box.rangeLabel->Visible()) << name.toStdString();
        screen.SetText(name, {});
        EXPECT_FALSE(box.range->Visible()) << name.toStdString();
    }
}

TEST_F(SearchScreen, EnteringAnEmptyRangeTakesFifteenPercent)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtPrice"_s, u"100000"_s);
    int selected = 0;
    auto* range = qobject_cast<forms::TextBox*>(screen.Box(u"txtPriceRange"_s));
    QObject::connect(range, &forms::TextBox::SelectAllWanted, range, [&] { ++selected; });
    Q_EMIT range->GotFocus();
    EXPECT_EQ(range->Text(), u"15000"_s);
    EXPECT_EQ(selected, 1);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList({u"22 FERRY RD"_s, u"114 OAK ST"_s}));
    range->SetText(u"15,002"_s);
    Q_EMIT range->GotFocus();
    EXPECT_EQ(range->Text(), u"15,002"_s);
    EXPECT_EQ(selected, 1);
}

TEST_F(SearchScreen, APercentageBecomesItsNumberWhenTheBoxIsLeftOrSearched)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtSQFt"_s, u"1999"_s);
    screen.SetText(u"txtSQftRange"_s, u"10%"_s);
    Q_EMIT screen.Box(u"txtSQftRange"_s)->LostFocus();
    EXPECT_EQ(screen.TextOf(u"txtSQftRange"_s), u"199"_s);
    screen.SetText(u"txtSQftRange"_s, u"10%"_s);
    Press(screen.cmdSearch);
    EXPECT_TRUE(screen.lblSQL.Caption().contains(u"GLA BETWEEN 1800 AND 2198"_s))
        << screen.lblSQL.Caption().toStdString();
    EXPECT_EQ(Shown(), QStringList(u"22 FERRY RD"_s));
}

TEST_F(SearchScreen, LandSizeComparesTheNumbersOfItsTexts)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtLandSize"_s, u"8000"_s);
    screen.SetText(u"txtLandSizeRange"_s, u"10"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList(u"114 OAK ST"_s));
}

TEST_F(SearchScreen, DatesAreFixedWhenTheBoxIsLeft)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    const std::pair<QString, QString> rows[] = {
        {u"03/07/04"_s, u"3/7/2004"_s},
        {u"tomorrow"_s, u"01/01/1900"_s},
        {u"13/13/2004"_s, u"01/01/1900"_s},
        {u""_s, u""_s},
        {u"3/7/2091"_s, u"01/01/1900"_s},
        {u"o'clock"_s, u"01/01/1900"_s},
        {u"2/30/2004"_s, u"01/01/1900"_s},
        {u"//"_s, u"01/01/1900"_s},
        {u"#3/7/2004#"_s, u"01/01/1900"_s},
        {u"3/7/2004' OR '1'='1"_s, u"01/01/1900"_s},
        {u"\u0663/\u0667/2004"_s, u"01/01/1900"_s},
        {u"3/7/2004\t\n;DROP"_s, u"01/01/1900"_s},
    };
    for (const QString& box : {u"txtSaleDate"_s, u"txtLoadDate"_s}) {
        for (const auto& [typed, fixed] : rows) {
            screen.SetText(box, typed);
            Q_EMIT screen.Box(box)->LostFocus();
            EXPECT_EQ(screen.TextOf(box), fixed) << typed.toStdString();
        }
    }
}

TEST_F(SearchScreen, TheCalendarFillsItsDate)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtSaleDate"_s, u"3/7/2004"_s);
    const auto choose = [](const QString& title) {
        return [title](forms::Screen& shown) {
            EXPECT_EQ(shown.Caption(), title);
            auto& calendar = dynamic_cast<frm_Calendar&>(shown);
            calendar.calCalendar.SetValue(calendar.calCalendar.Value().addDays(1));
            Q_EMIT calendar.cmdOk.Clicked();
        };
    };
    doubles.screens.Play(choose(u"Sale Date"_s));
    Q_EMIT screen.imaSaleCal.Clicked();
    EXPECT_EQ(screen.TextOf(u"txtSaleDate"_s), u"03/08/2004"_s);
    doubles.screens.Play(choose(u"Sale Date"_s));
    Q_EMIT screen.Box(u"txtSaleDate"_s)->DoubleClicked();
    EXPECT_EQ(screen.TextOf(u"txtSaleDate"_s), u"03/09/2004"_s);
    doubles.screens.Play(choose(u"Load Date"_s));
    Q_EMIT screen.imaLoadCal.Clicked();
    doubles.screens.Play(choose(u"Load Date"_s));
    Q_EMIT screen.Box(u"txtLoadDate"_s)->DoubleClicked();
    EXPECT_EQ(doubles.screens.Shown().size(), 4);
}

TEST_F(SearchScreen, ADateWithoutAComparisonIsOnOrAfter)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtSaleDate"_s, u"1/1/2004"_s);
    screen.SetText(u"cboSaleRange"_s, {});
    Press(screen.cmdSearch);
    EXPECT_EQ(screen.TextOf(u"cboSaleRange"_s), u"On or After"_s);
    EXPECT_EQ(Shown(), QStringList(u"114 OAK ST"_s));
    screen.SetText(u"cboSaleRange"_s, u"On or Prior"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList(u"22 FERRY RD"_s)); // the pending one; "not yet" is no date
}

TEST_F(SearchScreen, PendingSalesCanBeLeftOut)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.optSort(2).SetValue(true);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList({u"114 OAK ST"_s, u"22 FERRY RD"_s}));
    screen.ckbIgnorePending.SetValue(true);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList(u"114 OAK ST"_s));
}

TEST_F(SearchScreen, ClearingEmptiesEveryFieldAndForgetsTheSearch)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    for (const SearchBox& box : screen.Boxes())
        screen.SetText(QString(box.row.control), u"1"_s);
    screen.SetText(u"txtSaleDate"_s, u"1/1/2004"_s);
    screen.SetText(u"txtLoadDate"_s, u"1/1/2004"_s);
    Press(screen.cmdSearch);
    EXPECT_TRUE(desk.state.searchOnDisplay);
    Press(screen.cmdClear);
    for (const SearchBox& box : screen.Boxes()) {
        EXPECT_EQ(screen.TextOf(QString(box.row.control)), QString()) << box.row.control.data();
        EXPECT_EQ(screen.TextOf(QString(box.row.rangeControl)), QString()) << box.row.control.data();
    }
    EXPECT_FALSE(desk.state.searchOnDisplay);
    EXPECT_TRUE(screen.optSort(3).Value()) << "the sort is no field";
}

TEST_F(SearchScreen, ClearingEmptiesTheListsToo)
{
    files::WritePrivateProfileString(disk, u"CITIES"_s, u"CITY1"_s, u"Elm Grove, WA  98001  King"_s,
                                     globals.applicationIni);
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.cboCity.SetListIndex(0);
    screen.cboapprslType.SetListIndex(2);
    Press(screen.cmdSearch);
    EXPECT_NE(screen.lblmsg.Caption(), QString());
    Press(screen.cmdClear);
    EXPECT_EQ(screen.cboCity.Text(), QString());
    EXPECT_EQ(screen.cboCity.ListIndex(), -1);
    EXPECT_EQ(screen.cboapprslType.Text(), QString());
    EXPECT_EQ(screen.TextOf(u"txtCity"_s), QString()) << "clearing the list fills nothing";
    EXPECT_EQ(screen.lblmsg.Caption(), QString());
    screen.cboCity.SetListIndex(0);
    EXPECT_EQ(screen.TextOf(u"txtCity"_s), u"Elm Grove"_s) << "the same line can be chosen again";
    Press(screen.cmdExit);
    EXPECT_FALSE(screen.IsOpen());
}

TEST_F(SearchScreen, TheLabelOfARangeClearsTheRange)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    int ranges = 0;
    for (const SearchBox& box : screen.Boxes()) {
        if (!box.rangeLabel)
            continue;
        ++ranges;
        screen.SetText(QString(box.row.control), u"10"_s);
        screen.SetText(QString(box.row.rangeControl), u"5"_s);
        Q_EMIT box.rangeLabel->Clicked();
        EXPECT_EQ(screen.TextOf(QString(box.row.rangeControl)), QString()) << box.row.control.data();
        EXPECT_EQ(screen.TextOf(QString(box.row.control)), u"10"_s) << box.row.control.data();
    }
    EXPECT_EQ(ranges, 5);
}

TEST_F(SearchScreen, ADateIsFixedBeforeASearchThatDidNotLeaveItsBox)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtSaleDate"_s, u"march 7, 2004"_s);
    screen.SetText(u"cboSaleRange"_s, u"Equal To"_s);
    Press(screen.cmdSearch);
    EXPECT_TRUE(screen.lblSQL.Caption().contains(u"COMPS.SALEDATE=#3/7/2004#"_s));
    EXPECT_EQ(Shown(), QStringList(u"114 OAK ST"_s));
    screen.SetText(u"txtSaleDate"_s, u"soon"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(screen.TextOf(u"txtSaleDate"_s), u"01/01/1900"_s);
    EXPECT_EQ(Shown(), QStringList(u"22 FERRY RD"_s)) << "what is no date is a pending sale";
}

TEST_F(SearchScreen, WithoutWildcardsATextIsTheWholeField)
{
    desk.state.wildcards = false;
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtCity"_s, u"elm"_s);
    Press(screen.cmdSearch);
    EXPECT_TRUE(screen.lblSQL.Caption().contains(u"UCASE(CITY) LIKE 'ELM'"_s));
    EXPECT_TRUE(Shown().isEmpty());
    screen.SetText(u"txtCity"_s, u"elmira"_s);
    Press(screen.cmdSearch);
    EXPECT_EQ(Shown(), QStringList(u"22 FERRY RD"_s));
}

TEST_F(SearchScreen, AQuoteInANumberOrADateIsNoPartOfTheStatement)
{
    for (const SearchField& field : SearchFields()) {
        if (field.kind == SearchKind::Like || field.kind == SearchKind::Equal)
            continue;
        for (const QString& typed : {u"'"_s, u"12' OR '1'='1"_s, u"#12#"_s, u"1e999"_s, u"nan"_s}) {
            frm_SearchSQL screen(Base());
            screen.Open();
            screen.SetText(QString(field.control), typed);
            if (field.kind != SearchKind::Date)
                screen.SetText(QString(field.rangeControl), typed);
            try {
                Press(screen.cmdSearch);
                EXPECT_FALSE(screen.lblSQL.Caption().contains(u"'1'='1'"_s));
            } catch (const RuntimeError& failure) {
                ADD_FAILURE() << field.control.data() << ' ' << typed.toStdString() << ": "
                              << failure.Description().toStdString();
            }
        }
    }
}

TEST_F(SearchScreen, ALabelClearsItsOwnField)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    for (const SearchBox& box : screen.Boxes())
        screen.SetText(QString(box.row.control), u"5"_s);
    for (const SearchBox& box : screen.Boxes()) {
        Q_EMIT box.label->Clicked();
        EXPECT_EQ(screen.TextOf(QString(box.row.control)), QString()) << box.row.control.data();
        const QString last = &box == &screen.Boxes().back() ? QString() : u"5"_s;
        EXPECT_EQ(screen.TextOf(u"txtPriceGLA"_s), last) << box.row.control.data();
    }
}

TEST_F(SearchScreen, ListsFillTheirFields)
{
    files::WritePrivateProfileString(disk, u"CITIES"_s, u"CITY1"_s, u"Elm Grove, WA  98001  King"_s,
                                     globals.applicationIni);
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.cboCity.SetListIndex(0);
    EXPECT_EQ(screen.TextOf(u"txtCity"_s), u"Elm Grove"_s);
    EXPECT_EQ(screen.TextOf(u"txtState"_s), u"WA"_s);
    EXPECT_EQ(screen.TextOf(u"txtZip"_s), u"98001"_s);
    EXPECT_EQ(screen.TextOf(u"txtCounty"_s), u"King"_s);
    screen.cboapprslType.SetListIndex(5);
    EXPECT_EQ(screen.TextOf(u"txtType"_s), u"M"_s);
}

TEST_F(SearchScreen, AQuoteIsASyntaxErrorAndLeavesTheGrid)
{
    for (const SearchField& field : SearchFields()) {
        if (field.kind != SearchKind::Like && field.kind != SearchKind::Equal)
            continue;
        frm_SearchSQL screen(Base());
        screen.Open();
        const QString statement = desk.state.sqlText;
        screen.SetText(QString(field.control), u"O'Fallon"_s);
        try {
            Press(screen.cmdSearch);
            ADD_FAILURE() << field.control.data() << ": taken";
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.Number(), error::kSyntax);
            EXPECT_TRUE(failure.Description().contains(u"position"_s) ||
                        failure.Description().contains(u"character"_s))
                << failure.Description().toStdString();
        }
        EXPECT_EQ(Shown().size(), 3);
        EXPECT_EQ(desk.state.sqlText, statement);
        EXPECT_FALSE(desk.state.searchOnDisplay);
        EXPECT_TRUE(screen.lblSQL.Caption().contains(u"O'FALLON"_s));
    }
}

TEST_F(SearchScreen, EveryFieldTakesEveryKindOfText)
{
    const QString samples[] = {QString(5000, u'W'),
                               u"Caf\u00e9 \u00d1u\u00f1ez"_s,
                               u"\u05e8\u05d7\u05d5\u05d1 12"_s,
                               u"a\tb\x01 c\r\n"_s,
                               u"100% \"x\" _ ; --"_s,
                               u"zz*?#[!a-z]"_s,
                               u"[n]ever closed"_s,
                               u"   "_s};
    for (const SearchField& field : SearchFields()) {
        for (const QString& sample : samples) {
            SCOPED_TRACE(field.control.data() + std::string(" ") + sample.left(20).toStdString());
            DisplayAllRecords(ports, desk, datsql, rows, 1);
            frm_SearchSQL screen(Base());
            screen.Open();
            screen.SetText(QString(field.control), sample);
            if (!field.rangeControl.isEmpty() && field.kind != SearchKind::Date)
                screen.SetText(QString(field.rangeControl), sample);
            EXPECT_NO_THROW(Press(screen.cmdSearch));
            EXPECT_EQ(screen.lblSQL.Caption(), desk.state.sqlText);
            EXPECT_TRUE(screen.lblmsg.Caption() == kNoCompsFound ||
                        screen.lblmsg.Caption() == FoundText(Shown().size()))
                << screen.lblmsg.Caption().toStdString();
            const bool text = field.kind == SearchKind::Like || field.kind == SearchKind::Equal;
            if (text && !sample.trimmed().isEmpty()) {
                EXPECT_TRUE(Shown().isEmpty()) << "no record holds it";
            }
            Press(screen.cmdClear);
        }
    }
}

TEST_F(SearchScreen, ALetterBeyondAsciiIsFoundInEitherCase)
{
    AddRow({{key, u"7 CALLE PE\u00d1A"_s}, {u"ADDRESS"_s, u"7 Calle Pe\u00f1a"_s}});
    for (const QString& typed : {u"pe\u00f1a"_s, u"PE\u00d1A"_s, u"calle"_s}) {
        for (const QString& box : {u"cboSearchKey"_s, u"cboAddr"_s}) {
            frm_SearchSQL screen(Base());
            screen.Open();
            screen.SetText(box, typed);
            Press(screen.cmdSearch);
            EXPECT_EQ(Shown(), QStringList(u"7 CALLE PE\u00d1A"_s)) << typed.toStdString();
        }
    }
}

TEST_F(SearchScreen, TheListsReadALineWhenItIsShownAndKeepNone)
{
    {
        engine::Transaction all(datsql.Database());
        for (int i = 0; i < 3000; ++i)
            datsql.Database().Execute(
                u"INSERT INTO COMPS(CENTRALKEY, ADDRESS) VALUES('%1 ASH ST', '%1 Ash St')"_s.arg(i));
        all.Commit();
    }
    DisplayAllRecords(ports, desk, datsql, rows, 0);
    const qint64 reads = sqlite3_memory_used();
    frm_SearchSQL screen(Base());
    screen.Open();
    for (const QString& box : {u"cboSearchKey"_s, u"cboAddr"_s}) {
        auto* list = qobject_cast<forms::ComboBox*>(screen.Box(box));
        EXPECT_EQ(list->ListCount(), 3003) << "all can be reached";
        EXPECT_FALSE(list->List(3002).isEmpty());
        EXPECT_TRUE(list->Items().isEmpty()) << "and none is held";
    }
    EXPECT_LT(sqlite3_memory_used() - reads, 1'000'000) << "nor kept by the store";
}

TEST_F(SearchScreen, AFailedSearchKeepsTheOneBefore)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtCity"_s, u"elm"_s);
    Press(screen.cmdSearch);
    const QString statement = desk.state.sqlText;
    screen.SetText(u"txtNotes"_s, u"it's"_s);
    EXPECT_THROW(Press(screen.cmdSearch), RuntimeError);
    EXPECT_EQ(desk.state.sqlText, statement);
    EXPECT_TRUE(desk.state.searchOnDisplay);
    EXPECT_EQ(Shown(), QStringList({u"22 FERRY RD"_s, u"114 OAK ST"_s}));
}

TEST_F(SearchScreen, WhatADateIsTakenForIsSaidBesideItAndCanBeBroughtBack)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    struct Row
    {
        QString typed, fixed, words;
    };
    const QString none = u"; it counts as 01/01/1900"_s;
    for (const Row& row :
         {Row{u"13/45/2026"_s, u"01/01/1900"_s, u"\"13/45/2026\" is not understood as a date"_s + none},
          Row{u"soon"_s, u"01/01/1900"_s, u"\"soon\" is not understood as a date"_s + none},
          Row{u"2/30"_s, u"2/1/1930"_s, u"\"2/30\" is read as 2/1/1930"_s},
          Row{u"13/2/4"_s, u"2/4/2013"_s, u"\"13/2/4\" is read as 2/4/2013"_s},
          Row{u"3/7/2099"_s, u"01/01/1900"_s, u"3/7/2099 lies in a year to come"_s + none},
          Row{u"03/07/2004"_s, u"3/7/2004"_s, QString()}, Row{QString(), QString(), QString()}})
        for (const SearchBox& box : screen.Boxes()) {
            if (box.row.kind != SearchKind::Date)
                continue;
            auto& value = dynamic_cast<forms::TextBox&>(*box.value);
            const QString means =
                row.words.endsWith(none) && box.row.field == "SALEDATE"_L1 ? u", a pending sale"_s : QString();
            const QString words = row.words.isEmpty() ? QString() : row.words + means + u'.';
            for (const bool key : {false, true}) {
                value.SetText(row.typed);
                Q_EMIT value.LostFocus();
                Q_EMIT value.LostFocus(); // passing through once more
                EXPECT_EQ(value.Text(), row.fixed);
                EXPECT_EQ(box.note->label.Caption(), words);
                EXPECT_EQ(box.note->label.Visible(), !words.isEmpty());
                EXPECT_EQ(box.note->back.Visible(), !words.isEmpty());
                int focus = 0;
                const auto counting =
                    QObject::connect(&value, &forms::Control::FocusWanted, &value, [&focus] { ++focus; });
                bool handled = false;
                if (key)
                    Q_EMIT value.KeyPressed(forms::kKeyZ, forms::kCtrlMask, handled);
                else if (!words.isEmpty())
                    Q_EMIT box.note->back.Clicked();
                EXPECT_EQ(handled, key && !words.isEmpty());
                EXPECT_EQ(value.Text(), words.isEmpty() ? row.fixed : row.typed);
                EXPECT_FALSE(box.note->label.Visible());
                EXPECT_EQ(focus, words.isEmpty() ? 0 : 1);
                QObject::disconnect(counting);
            }
        }
}

TEST_F(SearchScreen, EnterInADateSaysTheSame)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"txtSaleDate"_s, u"13/45/2026"_s);
    Press(screen.cmdSearch);
    EXPECT_TRUE(screen.lblSQL.Caption().contains(u">=#01/01/1900#"_s));
    const auto* note = dynamic_cast<forms::Label*>(screen.controls.Find(u"lblSaleDateNote"_s));
    ASSERT_NE(note, nullptr);
    EXPECT_TRUE(note->Caption().startsWith(u"\"13/45/2026\" is not understood"_s));
    Press(screen.cmdClear);
    EXPECT_FALSE(note->Visible());
}

TEST_F(SearchScreen, AnOpenBracketIsSaidAndNotAnEmptyAnswer)
{
    frm_SearchSQL screen(Base());
    screen.Open();
    screen.SetText(u"cboAddr"_s, u"[oak"_s);
    try {
        Press(screen.cmdSearch);
        ADD_FAILURE() << "taken";
    } catch (const RuntimeError& failure) { // the window's guard tells it
        EXPECT_EQ(failure.Number(), error::kSyntax);
        EXPECT_TRUE(failure.Description().contains(u"a \"[\" that no \"]\" closes"_s))
            << failure.Description().toStdString();
    }
    EXPECT_EQ(Shown().size(), 3) << "the grid stays";
}

} // namespace
} // namespace vasclip::databook
