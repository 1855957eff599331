#include "upkeep/maintenance_home.h"

#include "support/error_number.h"
#include "upkeep/clean_texts.h"
#include "upkeep/recalculate.h"

#include <QSet>

namespace vasclip::upkeep {
namespace {

class Walks : public MaintenanceHome
{
protected:
    static constexpr int kMany = 350;
    void SetUp() override
    {
        MaintenanceHome::SetUp();
        QList<Values> rows;
        for (int i = 0; i < kMany; ++i)
            rows.append({{key, u"%1 MANY ST"_s.arg(i).leftJustified(35)}, {u"ANCHORED"_s, u"1"_s}});
        AddRows(rows);
        Open();
    }
    [[nodiscard]] qint64 Anchored() const
    {
        return store::ReadRows(source, u"SELECT CENTRALKEY FROM COMPS WHERE ANCHORED = '1'"_s).Count();
    }
};

TEST_F(Walks, ACancelInTheMiddleTakesEveryRecordBack)
{
    qint64 seen = -1;
    int turns = 0;
    doubles.pump.onTurn = [&] {
        if (++turns < 3)
            return;
        EXPECT_TRUE(screen->cmdStop.Visible());
        EXPECT_EQ(screen->gauWork.Caption(), u"Removing anchors."_s);
        EXPECT_GT(screen->gauWork.Value(), 0);
        seen = Anchored();
        Q_EMIT screen->cmdStop.Clicked();
    };
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_LT(seen, kMany) << "it was in the middle";
    EXPECT_GT(seen, 0);
    EXPECT_EQ(Anchored(), kMany);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Stopped. Every record is as it was."_s);
    EXPECT_TRUE(Lines().isEmpty());
    EXPECT_FALSE(screen->cmdStop.Visible());
    doubles.pump.onTurn = {};
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_EQ(Anchored(), 0) << "and it can be done again";
}

TEST_F(Walks, AWindowThatIsClosedStopsTheWalkAndStaysUntilThen)
{
    doubles.pump.onTurn = [&] {
        screen->Unload();
        EXPECT_TRUE(screen->IsOpen());
        EXPECT_FALSE(screen->cmdRecalc.Enabled());
        Click(screen->cmdRecalc);
    };
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_EQ(Anchored(), kMany);
    doubles.pump.onTurn = {};
    screen->Unload();
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << "no second repair began";
}

TEST_F(Walks, AnErrorInTheMiddleTakesEveryRecordBackAndSaysSo)
{
    Account account;
    Walk walk(source, account, u"%1"_s);
    int done = 0;
    const auto fail = [&](RowEdit& row) {
        if (++done == 200)
            throw RuntimeError(error::kDiskFull, u"The disk is full"_s);
        row.Set(u"ANCHORED"_s, u"0"_s);
    };
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(walk.Run([](qint64, qint64) { return true; }, fail)); }),
              error::kDiskFull);
    EXPECT_EQ(Anchored(), kMany);
    EXPECT_EQ(account.Count(), 0);
    EXPECT_EQ(account.Records(), 0);
}

TEST_F(Walks, ARecordThatAnotherUserHoldsLeavesAllAsTheyWere)
{
    engine.SetLockWait(50);
    engine::Engine other{disk, tests::SomeTime()};
    const auto database = other.OpenDatabase(path);
    database->BeginTrans();
    database->Execute(u"UPDATE COMPS SET CITY = 'Theirs' WHERE CENTRALKEY = '7 MANY ST'"_s);
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_TRUE(screen->lblmsg.Caption().startsWith(u"Nothing was changed, every record is as it was: "_s))
        << screen->lblmsg.Caption().toStdString();
    EXPECT_TRUE(screen->lblmsg.Caption().contains(u"locked"_s)) << screen->lblmsg.Caption().toStdString();
    database->CommitTrans();
    EXPECT_EQ(Anchored(), kMany);
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_EQ(Anchored(), 0);
    EXPECT_EQ(Field(u"7 MANY ST"_s, u"CITY"_s), u"Theirs"_s) << "what they stored meanwhile stands";
}

TEST_F(Walks, TheWatcherHearsOfEachRecordOnceAllAreStored)
{
    QList<store::Step> heard;
    source.Watch([&](const store::Step& step) { heard.append(step); });
    doubles.pump.onTurn = [&] { EXPECT_TRUE(heard.isEmpty()); };
    Yes();
    Click(screen->cmdclearAnchors);
    ASSERT_EQ(heard.size(), kMany);
    EXPECT_EQ(heard.first().words, u"Clear anchors: 0 MANY ST"_s);
    EXPECT_EQ(heard.first().before.value(u"ANCHORED"_s).toString(), u"1"_s);
    EXPECT_EQ(heard.first().table.toUpper(), u"COMPS"_s);
}

TEST_F(Walks, TheAccountIsKeptWholeInAFile)
{
    Yes();
    Click(screen->cmdclearAnchors);
    ASSERT_EQ(Lines().size(), kMany);
    EXPECT_EQ(Lines().at(349), u"349 MANY ST: ANCHORED \"1\" → \"0\""_s);
    EXPECT_EQ(Lines().at(3), u"3 MANY ST: ANCHORED \"1\" → \"0\""_s) << "backwards too";
    doubles.prompter.AnswerDialog(u"C:\\VAS2000"_s);
    Click(screen->cmdSave);
    const QString file = u"C:\\VAS2000\\Maintenance_05-17-24_103000.txt"_s;
    EXPECT_EQ(screen->lblmsg.Caption(), u"The account is in "_s + file);
    QFile saved(disk.ToNative(file));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = saved.readAll().split('\n');
    EXPECT_EQ(lines.value(0), "Clear anchors, 05/17/2024 10:30, C:\\DATABOOK.MDB");
    EXPECT_EQ(lines.value(1), "350 of 350 records changed: ANCHORED 350.");
    EXPECT_EQ(lines.value(3), "RECORD\tWHAT\tFIELD\tBEFORE\tAFTER");
    EXPECT_EQ(lines.value(4), "0 MANY ST\tchanged\tANCHORED\t1\t0");
    EXPECT_EQ(lines.size(), 4 + kMany + 1);
    doubles.prompter.AnswerDialog(u"C:\\NOWHERE"_s);
    Click(screen->cmdSave);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"Choose another directory"_s))
        << doubles.prompter.Last().text.toStdString();
}

TEST(FreeKey, NumbersNamesAndMakesRoom)
{
    QSet<QString> there;
    const KeyTest isThere = [&](const QString& key) { return there.contains(key); };
    EXPECT_EQ(FreeKey(u"12 OAK ST"_s, isThere), u"12 OAK ST"_s);
    there.insert(u"12 OAK ST"_s);
    EXPECT_EQ(FreeKey(u"12 OAK ST"_s, isThere), u"12 OAK ST(2)"_s);
    there.insert(u"12 OAK ST(2)"_s);
    EXPECT_EQ(FreeKey(u"12 OAK ST"_s, isThere), u"12 OAK ST(3)"_s);
    const QString longest = u"A23456789 B23456789 C23456789 D2345"_s;
    there.insert(longest);
    EXPECT_EQ(FreeKey(longest, isThere), u"A23456789 B23456789 C23456789 D2(2)"_s) << "its tail is lost";
    EXPECT_EQ(FreeKey({}, isThere), u"(2)"_s) << "a record without a key could not be found any more";
    QString name = longest;
    for (int i = 0; i < 200; ++i) {
        name = FreeKey(longest, isThere);
        ASSERT_FALSE(there.contains(name));
        ASSERT_LE(name.size(), 35);
        there.insert(name);
    }
}

class Routines : public MaintenanceHome
{
protected:
    /// Runs a routine on the one record. @return the field
    QString After(const QString& field, const std::function<void(RowEdit&)>& routine)
    {
        Account account;
        EXPECT_TRUE(Walk(source, account, u"%1"_s).Run([](qint64, qint64) { return true; }, routine));
        return Field(u"1 A ST"_s, field);
    }
    const QDate today{2024, 5, 17};
};

TEST_F(Routines, Y2KGivesYearsTheirCentury)
{
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"3/7/04"_s}, {u"LOADDATE"_s, u"no date"_s}});
    Bind(source);
    EXPECT_EQ(After(u"SALEDATE"_s, [&](RowEdit& row) { RecalcY2K(row, u"SALEDATE"_s, today); }), u"3/7/2004"_s);
    EXPECT_EQ(After(u"LOADDATE"_s, [&](RowEdit& row) { RecalcY2K(row, u"LOADDATE"_s, today); }), u"no date"_s);
    EXPECT_EQ(After(u"LEASEDATE"_s, [&](RowEdit& row) { RecalcY2K(row, u"LEASEDATE"_s, today); }), QString());
    const auto record = store::ReadRecord(source, u"1 A ST"_s);
    EXPECT_FALSE(record->Value(u"LEASEDATE"_s).isValid()) << "Null stays Null";
}

TEST_F(Routines, AnAgeIsTakenAgainstTheSaleAndIsZeroWithoutOne)
{
    StoredDates known(today);
    Comp(u"1 A ST"_s, {{u"YEARBUILT"_s, u"1990"_s}, {u"SALEDATE"_s, u"6/1/2001"_s}});
    Bind(source);
    EXPECT_EQ(After(u"AGE"_s, [&](RowEdit& row) { RecalcAge(row, known); }), u"11"_s);
    EXPECT_EQ(After(u"AGE"_s,
                    [&](RowEdit& row) {
                        row.Set(u"SALEDATE"_s, u"n/a"_s);
                        RecalcAge(row, known);
                    }),
              u"0"_s);
    EXPECT_EQ(After(u"AGE"_s,
                    [&](RowEdit& row) {
                        row.Set(u"SALEDATE"_s, u"6/1/2001"_s);
                        row.Set(u"YEARBUILT"_s, u"45"_s);
                        RecalcAge(row, known);
                    }),
              u"45"_s)
        << "an age already";
}

TEST_F(Routines, ASaleAfterTodayBecomesPendingAndTheAccountHasItsDate)
{
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"03/07/2031"_s}, {u"SALEFLD"_s, u"s03/31"_s}});
    Open();
    Yes();
    Click(screen->cmdRecalc);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"SALEFLD"_s), u"PENDING"_s);
    EXPECT_TRUE(Lines().contains(u"1 A ST: SALEDATE \"03/07/2031\" → \"01/01/1900\""_s));
}

TEST_F(Routines, ARecordWithoutAKeyKeepsItsFrontFlag)
{
    AddRow({{key, u" "_s}, {u"FRONT"_s, u"1"_s}});
    Open();
    Yes();
    Click(screen->cmdRecalc);
    store::Rows rows = store::ReadRows(source, u"SELECT FRONT FROM COMPS"_s);
    EXPECT_EQ(rows.Next()->Text(u"FRONT"_s), u"1"_s);
}

TEST_F(Routines, WholeTablesAreCopiedIntoTheCentralOne)
{
    const QString old = u"C:\\OLD.MDB"_s;
    store::MakeDatabase(engine, old);
    {
        const auto database = engine.OpenDatabase(old);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        for (const QString& name : {u"1 A ST"_s, u"2 B ST"_s}) {
            rows->AddNew();
            rows->SetValue(key, name.leftJustified(35));
            rows->SetValue(u"CITY"_s, u"Alder"_s);
            rows->Update();
        }
    }
    Comp(u"1 A ST"_s, {{u"CITY"_s, u"Marlow"_s}, {u"ZIP"_s, u"97001"_s}});
    Open();
    store::DataSource data(engine, u"DATCOMPS"_s);
    data.Open(old, table, store::SourceKind::Table);
    EXPECT_FALSE(Comp2Central(data, source, screen->lblAccount, [](qint64 done, qint64) { return done < 1; }));
    EXPECT_EQ(Keys(), QStringList{u"1 A ST"_s}) << "stopped, nothing of it stands";
    EXPECT_EQ(Field(u"1 A ST"_s, u"CITY"_s), u"Marlow"_s);
    EXPECT_TRUE(Comp2Central(data, source, screen->lblAccount, [](qint64, qint64) { return true; }));
    EXPECT_EQ(screen->lblAccount.Caption(), u"Comp Database"_s);
    EXPECT_EQ(Keys(), (QStringList{u"1 A ST"_s, u"2 B ST"_s}));
    EXPECT_EQ(Field(u"1 A ST"_s, u"CITY"_s), u"Alder"_s);
    const auto record = store::ReadRecord(source, u"1 A ST"_s);
    EXPECT_TRUE(record->Value(u"ZIP"_s).isValid());
    EXPECT_EQ(record->Text(u"ZIP"_s), QString()) << "Null is copied as an empty text";
}

} // namespace
} // namespace vasclip::upkeep
