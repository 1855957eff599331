#include "databook/quick_find.h"

#include "databook/grid.h"
#include "databook/messages.h"
#include "support/databook_home.h"
#include "support/standing_time.h"
#include "support/temp_home.h"

#include <sqlite3.h>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

class QuickFinding : public tests::DatabookHome
{
protected:
    forms::ControlSet set;
    RecordDesk desk{set};
    common::StatusDesk status{set};
    common::Globals globals;
    store::DataSource datsql{engine, u"datsql"_s};
    GridRows rows{datsql};
    std::unique_ptr<QuickFind> find;

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.G_Table = table;
        AddRows({
            {{key, u"114 OAK ST"_s}, {u"ADDRESS"_s, u"114 Oak St"_s}, {u"CITY"_s, u"Elm Grove"_s}},
            {{key, u"22 FERRY RD"_s},
             {u"ADDRESS"_s, u"22 Ferry Rd"_s},
             {u"CITY"_s, u"Port Vale"_s},
             {u"NOTES"_s, u"Oak floors"_s}},
            {{key, u"9 ELM CT"_s},
             {u"ADDRESS"_s, u"9 Elm Ct"_s},
             {u"CITY"_s, u"Port Vale"_s},
             {u"NEIGHBORHD"_s, u"Harbour"_s},
             {u"COUNTY"_s, u"Oakland"_s}},
        });
        store::Connect2mdb(ports, datsql, path, table, store::SourceKind::Query);
        find = std::make_unique<QuickFind>(ports, desk, datsql, rows, status, globals);
        DisplayAllRecords(ports, desk, datsql, rows, 1);
    }
    void Type(const QString& text)
    {
        desk.txtQuickFind.SetText(text);
        while (find->Searching())
            static_cast<void>(find->Work());
    }
    [[nodiscard]] QStringList Shown() const
    {
        QStringList keys;
        const forms::GridSource* source = desk.grddatabook.Source();
        for (qint64 row = 0; row < source->RowCount(); ++row)
            keys.append(source->Row(row).value(1).trimmed());
        return keys;
    }
};

TEST_F(QuickFinding, NarrowsAsOneTypesOverTheFiveFields)
{
    const std::pair<QString, QStringList> typed[] = {
        {u"o"_s, {u"114 OAK ST"_s, u"22 FERRY RD"_s, u"9 ELM CT"_s}},
        {u"oa"_s, {u"114 OAK ST"_s, u"22 FERRY RD"_s}},
        {u"oak"_s, {u"114 OAK ST"_s, u"22 FERRY RD"_s}}, // no county
        {u"oak vale"_s, {u"22 FERRY RD"_s}},
        {u"HARBOUR"_s, {u"9 ELM CT"_s}},
        {u"elm"_s, {u"114 OAK ST"_s, u"9 ELM CT"_s}},
        {u" 9  elm "_s, {u"9 ELM CT"_s}},
        {u"o'brien"_s, {}},
        {u"\""_s, {}},
        {u"maple"_s, {}},
    };
    for (const bool indexed : {false, true}) {
        if (indexed)
            while (find->Work()) {
            }
        for (const auto& [text, keys] : typed) {
            Type(text);
            EXPECT_EQ(Shown(), keys) << text.toStdString() << (indexed ? " with" : " without")
                                     << " the index";
        }
        Type({});
        EXPECT_EQ(Shown().size(), 3);
    }
}

TEST_F(QuickFinding, TakesEveryKindOfText)
{
    AddRow({{key, u"7 CALLE PE\u00d1A"_s},
            {u"ADDRESS"_s, u"7 Calle Pe\u00f1a"_s},
            {u"CITY"_s, u"\u05d7\u05d9\u05e4\u05d4"_s},
            {u"NOTES"_s, u"it's 100% \"x\" [a-z] * ? _ ; --"_s}});
    DisplayAllRecords(ports, desk, datsql, rows, 1);
    const QStringList found{u"7 CALLE PE\u00d1A"_s};
    const std::pair<QString, QStringList> typed[] = {
        {u"PE\u00d1A"_s, found},
        {u"pe\u00f1a"_s, found},
        {u"\u05d7\u05d9\u05e4\u05d4"_s, found},
        {u"it's"_s, found},
        {u"100%"_s, found},
        {u"\"x\""_s, found},
        {u"[a-z]"_s, found},
        {u"* ? _ ; --"_s, found},
        {u"NOT AND OR NEAR("_s, {}},
        {u"a\x01 b\t\r\n"_s, {}},
        {QString(5000, u'W'), {}},
        {QString(2000, u'\'').append(u" \" "_s), {}},
        {QString(QChar(0)), {u"114 OAK ST"_s, u"22 FERRY RD"_s, u"9 ELM CT"_s, found[0]}},
    };
    for (const bool indexed : {false, true}) {
        while (indexed && find->Work()) {
        }
        for (const auto& [text, keys] : typed) {
            Type({});
            Type(text);
            QStringList shown = Shown();
            shown.sort();
            QStringList wanted = keys;
            wanted.sort();
            EXPECT_EQ(shown, wanted) << text.left(20).toStdString() << (indexed ? " indexed" : "");
        }
    }
}

TEST_F(QuickFinding, LeavesTheSearchAlone)
{
    const GridState before = desk.state;
    const QString statement = datsql.RecordSource();
    Type(u"oak"_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"2 comps found."_s);
    EXPECT_EQ(desk.state.sqlText, before.sqlText);
    EXPECT_EQ(desk.state.searchOnDisplay, before.searchOnDisplay);
    EXPECT_EQ(datsql.RecordSource(), statement);
    EXPECT_EQ(datsql.Recordset().RecordCount(), 3);
}

TEST_F(QuickFinding, KeepsTheRecordOneStoodOn)
{
    desk.grddatabook.SetRow(1);
    Type(u"22"_s);
    EXPECT_EQ(desk.grddatabook.CurrentText(key).trimmed(), u"22 FERRY RD"_s);
    Type(u"o"_s);
    EXPECT_EQ(desk.grddatabook.CurrentText(key).trimmed(), u"22 FERRY RD"_s);
    find->Clear();
    EXPECT_EQ(desk.grddatabook.CurrentText(key).trimmed(), u"22 FERRY RD"_s);
    EXPECT_EQ(desk.grddatabook.Source(), &rows);
}

TEST_F(QuickFinding, LooksOnlyAmongTheRecordsOfASearch)
{
    desk.state.sqlText = SelectAllText() + u" WHERE CITY = 'Port Vale'"_s;
    desk.state.searchOnDisplay = true;
    DisplayAllRecords(ports, desk, datsql, rows, 1);
    Type(u"oak"_s);
    EXPECT_EQ(Shown(), QStringList(u"22 FERRY RD"_s));
}

TEST_F(QuickFinding, SeesWhatWasChangedMeanwhile)
{
    while (find->Work()) {
    }
    AddRow({{key, u"5 OAK LN"_s}, {u"ADDRESS"_s, u"5 Oak Ln"_s}});
    DisplayAllRecords(ports, desk, datsql, rows, 1);
    Type(u"oak ln"_s);
    EXPECT_EQ(Shown(), QStringList(u"5 OAK LN"_s));
}

TEST_F(QuickFinding, ARecordThatALaterSliceFindsIsNoLongerSaidToBeMissing)
{
    QStringList keys;
    for (int i = 0; i < 25000; ++i)
        keys.append(u"A%1"_s.arg(i));
    AddComps(keys);
    AddRow({{key, u"5 ELDER LN"_s}});
    Type(u"elder"_s);
    DisplayAllRecords(ports, desk, datsql, rows, 1);
    desk.grddatabook.SetRow(datsql.Recordset().RecordCount() - 1);
    for (qint64 row = desk.grddatabook.Row(); desk.grddatabook.CurrentText(key).trimmed() != u"5 ELDER LN"_s; --row) {
        ASSERT_GE(row, 0);
        desk.grddatabook.SetRow(row);
    }
    const QString said = u"4 ELDER LN is 5 ELDER LN now."_s;
    status.lblmsg.Show(said, forms::Colour::Blue);
    find->NarrowAgain();
    ASSERT_TRUE(find->Searching()) << "the records are too few for two slices";
    ASSERT_EQ(desk.grddatabook.Row(), -1);
    status.lblmsg.Show(said + kNotAmongShown, forms::Colour::Blue);
    while (find->Searching())
        static_cast<void>(find->Work());
    EXPECT_EQ(desk.grddatabook.CurrentText(key).trimmed(), u"5 ELDER LN"_s);
    EXPECT_EQ(status.lblmsg.Caption(), said);
}

TEST_F(QuickFinding, SaysThatADamagedIndexIsMadeAnewAndFindsAllTheSame)
{
    Type(u"oak"_s);
    while (find->Work()) {
    }
    EXPECT_EQ(status.lblmsg.Caption(), u"2 comps found."_s) << "one that was never made is no trouble";
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(disk.ToNative(path).toUtf8().constData(), &handle), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(handle, "DELETE FROM vas_text_COMPS_data WHERE id > 1", nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(handle);
    Type(u"oa"_s);
    Type(u"oak"_s);
    EXPECT_EQ(Shown(), QStringList({u"114 OAK ST"_s, u"22 FERRY RD"_s}));
    DisplayAllRecords(ports, desk, datsql, rows, 1);
    Type(u"oa"_s);
    Type(u"oak"_s);
    while (find->Work()) {
    }
    EXPECT_EQ(
        status.lblmsg.Caption(),
        u"2 comps found. The index that makes finding quick was damaged and is made anew; the records are "
        "not harmed."_s);
    EXPECT_EQ(Shown(), QStringList({u"114 OAK ST"_s, u"22 FERRY RD"_s}));
    EXPECT_EQ(
        IndexText(engine::TextIndexTrouble::OutOfStep),
        u"The index that makes finding quick did not know all records and learns them; the records are not "
        "harmed."_s);
    EXPECT_EQ(IndexText(engine::TextIndexTrouble::Missing),
              u"The index that makes finding quick is being made; until then finding takes longer."_s);
    EXPECT_EQ(IndexText(engine::TextIndexTrouble::None), QString());
}

TEST(FoundRowsTest, PlacesAndRowsAgreeOverManyWords)
{
    struct None
    {
        tests::TempHome home;
        engine::Engine engine{home.disk, tests::SomeTime()};
        store::DataSource source{engine, u"datsql"_s};
        GridRows rows{source};
    } none;
    FoundRows found(none.rows);
    found.Begin(1000);
    QList<qint64> places;
    for (qint64 place = 0; place < 1000; place += place % 7 + 1)
        places.append(place);
    for (const qint64 place : places)
        found.Add(place);
    found.Count();
    ASSERT_EQ(found.RowCount(), places.size());
    for (qsizetype row = 0; row < places.size(); ++row) {
        EXPECT_EQ(found.PositionOf(row), places[row]);
        EXPECT_EQ(found.RowOf(places[row]), row);
    }
    EXPECT_EQ(found.PositionOf(places.size()), -1);
    EXPECT_EQ(found.RowOf(1000), -1);
    EXPECT_EQ(found.RowOf(5000), -1);
}

} // namespace
} // namespace vasclip::databook
