#include "transfer_home.h"

#include "databook/same_house.h"
#include "store/change.h"
#include "support/error_number.h"
#include "upkeep/address_twins.h"
#include "upkeep/rehearsal.h"

namespace vasclip::upkeep {
namespace {

const QByteArray kJpeg("\xFF\xD8\xFF the picture");

class Rehearsed : public TransferHome
{
protected:
    const QString file = u"C:\\EXPORT\\THEIRS.MDB"_s;

    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
        AddRow({{key, u"123 N OAK ST"_s.leftJustified(35)}, {u"ADDRESS"_s, u"123 N Oak St"_s}, {u"CITY"_s, u"ALDER"_s}});
        store::MakeDatabase(engine, file);
        const auto database = engine.OpenDatabase(file);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        const auto put = [&](const QString& comp, const QString& address, const QString& city, const QString& zip,
                             const QString& photos, const QVariant& picture) {
            rows->AddNew();
            rows->SetValue(key, comp.leftJustified(35));
            rows->SetValue(u"ADDRESS"_s, address);
            rows->SetValue(u"CITY"_s, city);
            rows->SetValue(u"ZIP"_s, zip);
            rows->SetValue(u"PHOTOS"_s, photos);
            rows->SetValue(u"FRONTPHOTO"_s, picture);
            rows->Update();
        };
        put(u"1 ASH ST"_s, u"1 ASH ST"_s, u"CEDAR"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
        put(u"14 OAK ST"_s, u"14 OAK ST"_s, u"OTHER"_s, u"97001"_s, u" "_s, {});
        put(u"9 ELM ST"_s, u"9 ELM ST"_s, u"ALDER"_s, {}, u"front view |00000003"_s, {});
        put(u"123 NORTH OAK STREET"_s, u"123 North Oak Street"_s, u"Alder"_s, u"97002"_s, u" "_s, {});
        rows->Close();
        database->Close();
    }
    void Put(const QString& comp, const QList<std::pair<QString, QVariant>>& values)
    {
        const auto database = engine.OpenDatabase(file);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(key, comp.leftJustified(35));
        for (const auto& [field, value] : values)
            rows->SetValue(field, value);
        rows->Update();
        rows->Close();
        database->Close();
    }
    /// By another program.
    void InDatabook(const QString& statement)
    {
        const auto database = engine.OpenDatabase(path);
        database->Execute(statement);
        database->Close();
    }
    std::unique_ptr<Rehearsal> Begin(bool pictures = true)
    {
        return std::make_unique<Rehearsal>(Desk(),
                                           ImportOrder{.source = file, .table = table, .pictures = pictures});
    }
    static RehearsedRow RowOf(const Rehearsal& rehearsal, const QString& comp)
    {
        for (const RehearsedRow& row : rehearsal.Rows())
            if (row.key == comp)
                return row;
        ADD_FAILURE() << "no row " << comp.toStdString();
        return {};
    }
    static qsizetype PlaceOf(const Rehearsal& rehearsal, const QString& comp)
    {
        return RowOf(rehearsal, comp).place;
    }
};

TEST(AddressTwins, AreOneHouseInTwoSpellings)
{
    EXPECT_EQ(databook::HouseOf(u"123 N Oak St"_s), databook::HouseOf(u"123 North Oak Street"_s));
    EXPECT_EQ(databook::HouseOf(u"5 Third Ave"_s), databook::HouseOf(u"5 3RD AVENUE"_s));
    EXPECT_NE(databook::HouseOf(u"123 N Oak St"_s), databook::HouseOf(u"123 S Oak St"_s));
    EXPECT_NE(databook::HouseOf(u"123 N Oak St Apt 1"_s), databook::HouseOf(u"123 N Oak St Apt 2"_s));
    EXPECT_EQ(databook::HouseOf(u"Oak St"_s), QString());
    EXPECT_EQ(databook::HouseOf(QString()), QString());
}

TEST_F(Rehearsed, TellsWhatEachRowIs)
{
    const auto rehearsal = Begin();
    ASSERT_EQ(rehearsal->Rows().size(), 4);
    EXPECT_EQ(RowOf(*rehearsal, u"1 ASH ST"_s).kind, RowKind::New);
    EXPECT_EQ(RowOf(*rehearsal, u"1 ASH ST"_s).choice, RowChoice::Add);
    EXPECT_EQ(RowOf(*rehearsal, u"1 ASH ST"_s).picture, RowPicture::Fresh);
    EXPECT_EQ(RowOf(*rehearsal, u"14 OAK ST"_s).kind, RowKind::Changed);
    EXPECT_EQ(RowOf(*rehearsal, u"14 OAK ST"_s).differences, 2);
    EXPECT_EQ(RowOf(*rehearsal, u"123 NORTH OAK STREET"_s).kind, RowKind::Twin);
    EXPECT_EQ(RowOf(*rehearsal, u"123 NORTH OAK STREET"_s).mine, u"123 N OAK ST"_s);
    EXPECT_EQ(rehearsal->Count(RowKind::New), 1);
    EXPECT_EQ(Keys(path, table).size(), 4) << "a look changes nothing";
}

TEST_F(Rehearsed, FindsNoTwinInAnotherTown)
{
    const auto database = engine.OpenDatabase(path);
    database->Execute(u"UPDATE [COMPS] SET CITY = 'FARAWAY' WHERE CENTRALKEY = '123 N OAK ST'"_s);
    database->Close();
    EXPECT_EQ(RowOf(*Begin(), u"123 NORTH OAK STREET"_s).kind, RowKind::New);
}

TEST_F(Rehearsed, ShowsFieldsSideBySide)
{
    const auto rehearsal = Begin();
    const QList<FieldPair> pairs = rehearsal->FieldsOf(RowOf(*rehearsal, u"14 OAK ST"_s));
    ASSERT_EQ(pairs.size(), 2);
    EXPECT_EQ(pairs[0].field, u"CITY"_s);
    EXPECT_EQ(pairs[0].mine, u"BIRCH"_s);
    EXPECT_EQ(pairs[0].theirs, u"OTHER"_s);
    EXPECT_EQ(pairs[1].field, u"ZIP"_s);
    EXPECT_GT(rehearsal->FieldsOf(RowOf(*rehearsal, u"14 OAK ST"_s), true).size(), 2);
}

TEST_F(Rehearsed, WithoutAChoiceAddsTheNewAlone)
{
    const RehearsalResult result = Begin()->Carry(Step());
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.added, 1);
    EXPECT_EQ(result.changed, 0);
    EXPECT_EQ(result.pictures.written, 1);
    EXPECT_EQ(Field(path, table, u"14 OAK ST"_s, u"CITY"_s).toString(), u"BIRCH"_s);
    EXPECT_EQ(Keys(path, table).size(), 5);
}

TEST_F(Rehearsed, TakesTheirsOrFillsBlanksAsChosen)
{
    const auto rehearsal = Begin();
    rehearsal->ChooseAll(RowKind::Changed, RowChoice::FillBlanks);
    rehearsal->Choose(PlaceOf(*rehearsal, u"123 NORTH OAK STREET"_s), RowChoice::TakeTheirs);
    rehearsal->Choose(PlaceOf(*rehearsal, u"1 ASH ST"_s), RowChoice::KeepMine);
    const RehearsalResult result = rehearsal->Carry(Step());
    EXPECT_EQ(result.added, 0);
    EXPECT_GE(result.changed, 2);
    EXPECT_EQ(Field(path, table, u"14 OAK ST"_s, u"CITY"_s).toString(), u"BIRCH"_s);
    EXPECT_EQ(Field(path, table, u"14 OAK ST"_s, u"ZIP"_s).toString(), u"97001"_s);
    EXPECT_EQ(Field(path, table, u"123 N OAK ST"_s, u"ZIP"_s).toString(), u"97002"_s);
    EXPECT_EQ(Field(path, table, u"123 N OAK ST"_s, u"ADDRESS"_s).toString(), u"123 North Oak Street"_s);
    EXPECT_EQ(Keys(path, table).size(), 4);
    EXPECT_EQ(disk.Dir(u"C:\\JPG\\*"_s).size(), 2) << "a row that stays out brings no picture";
}

TEST_F(Rehearsed, FillingBlanksLeavesMyPictureAsItIs)
{
    const auto database = engine.OpenDatabase(file);
    const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
    rows->AddNew();
    rows->SetValue(key, u"12 OAK ST"_s.leftJustified(35));
    rows->SetValue(u"ZIP"_s, u"97009"_s);
    rows->SetValue(u"PHOTOS"_s, u"FRONT VIEW|00000001\r\n"_s);
    rows->SetValue(u"FRONTPHOTO"_s, kJpeg);
    rows->Update();
    rows->Close();
    database->Close();
    const auto rehearsal = Begin();
    rehearsal->ChooseAll(RowKind::Changed, RowChoice::FillBlanks);
    EXPECT_TRUE(rehearsal->Carry(Step()).done);
    EXPECT_EQ(Field(path, table, u"12 OAK ST"_s, u"ZIP"_s).toString(), u"97009"_s);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s), QByteArray(70000, 'a'));
}

TEST_F(Rehearsed, TakingTheirsLeavesMyOtherViews)
{
    Put(u"12 OAK ST"_s, {{u"ADDRESS"_s, u"12 OAK ST"_s},
                         {u"CITY"_s, u"ALDER"_s},
                         {u"PHOTOS"_s, u"Front View|00000008\r\n"_s},
                         {u"FRONTPHOTO"_s, kJpeg}});
    const auto rehearsal = Begin();
    EXPECT_EQ(RowOf(*rehearsal, u"12 OAK ST"_s).differences, 1);
    rehearsal->ChooseAll(RowKind::Changed, RowChoice::TakeTheirs);
    EXPECT_TRUE(rehearsal->Carry(Step()).done);
    EXPECT_EQ(Field(path, table, u"12 OAK ST"_s, u"PHOTOS"_s).toString(), u"FRONT VIEW|00000008\r\nREAR VIEW|00000002\r\n"_s);
    EXPECT_EQ(RowOf(*Begin(), u"12 OAK ST"_s).kind, RowKind::Same) << "nothing is left to take";
}

TEST_F(Rehearsed, AddsARowWhoseKeyBeginsWithABlank)
{
    Put(u" 7 FIR ST"_s, {{u"CITY"_s, u"CEDAR"_s}});
    const RehearsalResult result = Begin()->Carry(Step());
    EXPECT_EQ(result.added, 2);
    EXPECT_EQ(result.undone, QStringList());
    EXPECT_EQ(Keys(path, table).size(), 6);
}

TEST_F(Rehearsed, NamesATwinWithinTheFileToo)
{
    Put(u"70 N FIR ST"_s, {{u"ADDRESS"_s, u"70 N Fir St"_s}, {u"CITY"_s, u"CEDAR"_s}});
    Put(u"70 NORTH FIR STREET"_s, {{u"ADDRESS"_s, u"70 North Fir Street"_s}, {u"CITY"_s, u"Cedar"_s}});
    Put(u"70 N FIR"_s, {{u"ADDRESS"_s, u"70 North Fir Street"_s}, {u"CITY"_s, u"ELSEWHERE"_s}});
    const auto rehearsal = Begin();
    EXPECT_EQ(RowOf(*rehearsal, u"70 N FIR ST"_s).choice, RowChoice::Add);
    const RehearsedRow twin = RowOf(*rehearsal, u"70 NORTH FIR STREET"_s);
    EXPECT_EQ(twin.choice, RowChoice::KeepMine);
    EXPECT_EQ(twin.why, u"70 N FIR ST of the same file stands at the same address"_s);
    EXPECT_EQ(RowOf(*rehearsal, u"70 N FIR"_s).choice, RowChoice::Add) << "another town";
    rehearsal->Choose(twin.place, RowChoice::Add);
    EXPECT_EQ(rehearsal->Carry(Step()).added, 4);
}

TEST_F(Rehearsed, TellsWhatSomebodyAddedOrDeletedMeanwhile)
{
    const auto rehearsal = Begin();
    rehearsal->ChooseAll(RowKind::Changed, RowChoice::TakeTheirs);
    InDatabook(u"INSERT INTO [COMPS] (CENTRALKEY, CITY) VALUES ('1 ASH ST', 'OURS')"_s);
    InDatabook(u"DELETE FROM [COMPS] WHERE CENTRALKEY = '14 OAK ST'"_s);
    const RehearsalResult result = rehearsal->Carry(Step());
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.added, 0);
    EXPECT_EQ(result.undone, (QStringList{u"1 ASH ST: a record of this key is in the Databook by now"_s,
                                          u"14 OAK ST: your record is not there any more"_s}));
    EXPECT_EQ(WordsOf(result), u"Records added: 0, changed: %1. Not done: 1 ASH ST: a record of this key is in the Databook "
                               u"by now; 14 OAK ST: your record is not there any more."_s.arg(result.changed));
    EXPECT_EQ(RowOf(*rehearsal, u"1 ASH ST"_s).why, u"a record of this key is in the Databook by now"_s);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"CITY"_s).toString(), u"OURS"_s);
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\00000009.jpg"_s)) << "the picture of a row that did not come in";
    EXPECT_EQ(disk.Dir(u"C:\\JPG\\*"_s).size(), 2);
}

TEST_F(Rehearsed, TakesMyRecordAsItIsByNow)
{
    const auto rehearsal = Begin();
    rehearsal->ChooseAll(RowKind::Changed, RowChoice::FillBlanks);
    InDatabook(u"UPDATE [COMPS] SET ZIP = '11111' WHERE CENTRALKEY = '14 OAK ST'"_s);
    EXPECT_EQ(rehearsal->Carry(Step()).undone, QStringList());
    EXPECT_EQ(Field(path, table, u"14 OAK ST"_s, u"ZIP"_s).toString(), u"11111"_s) << "no blank by now";
}

TEST_F(Rehearsed, TellsEachStepOfTheLookAndStopsAtAny)
{
    const auto looks = [&](int last) {
        steps.clear();
        stopAt = last;
        return std::make_unique<Rehearsal>(Desk(), ImportOrder{.source = file, .table = table, .pictures = true}, Step());
    };
    EXPECT_FALSE(looks(-1)->Stopped());
    EXPECT_EQ(steps, (QStringList{u"Reading the keys of the file"_s, u"Reading the records of the file"_s,
                                  u"Comparing with the Databook"_s, u"Looking for the same addresses"_s,
                                  u"Looking at the pictures"_s}));
    for (int last = 0; last < 5; ++last) {
        const auto stopped = looks(last);
        EXPECT_TRUE(stopped->Stopped()) << last;
        EXPECT_EQ(steps.size(), last + 1) << "a stop is not asked again";
        EXPECT_FALSE(stopped->Carry(Step()).done);
    }
    EXPECT_EQ(Keys(path, table).size(), 4);
}

TEST_F(Rehearsed, WritesRefusedRowsOverNoDatabase)
{
    const auto rehearsal = Begin();
    const QByteArray before = disk.ReadWhole(path);
    EXPECT_EQ(rehearsal->WriteRefused(path), 0) << "none was refused";
    EXPECT_EQ(disk.ReadWhole(path), before);
}

TEST_F(Rehearsed, AddsATwinOnlyWhereThatIsChosen)
{
    const auto rehearsal = Begin();
    rehearsal->ChooseAll(RowKind::Twin, RowChoice::Add);
    EXPECT_EQ(rehearsal->Carry(Step()).added, 2);
    EXPECT_EQ(Keys(path, table).size(), 6);
}

TEST_F(Rehearsed, RefusesChoicesThatDoNotFit)
{
    const auto rehearsal = Begin();
    rehearsal->Choose(PlaceOf(*rehearsal, u"14 OAK ST"_s), RowChoice::Add);
    EXPECT_EQ(RowOf(*rehearsal, u"14 OAK ST"_s).choice, RowChoice::KeepMine);
    rehearsal->Choose(99, RowChoice::Add);
    rehearsal->ChooseAll(RowKind::New, RowChoice::TakeTheirs);
    EXPECT_EQ(RowOf(*rehearsal, u"1 ASH ST"_s).choice, RowChoice::Add);
}

TEST_F(Rehearsed, ThatFailsInTheMiddleLeavesTheDatabookAsItWas)
{
    const auto rehearsal = Begin();
    rehearsal->ChooseAll(RowKind::Changed, RowChoice::TakeTheirs);
    int heard = 0;
    databook.Watch([&heard](const store::Step&) {
        if (++heard == 2)
            throw RuntimeError(error::kDiskFull, u"full"_s);
    });
    EXPECT_EQ(tests::NumberOf([&] { (void)rehearsal->Carry(Step()); }), error::kDiskFull);
    EXPECT_EQ(heard, 2);
    EXPECT_EQ(Keys(path, table).size(), 4);
    EXPECT_EQ(Field(path, table, u"14 OAK ST"_s, u"CITY"_s).toString(), u"BIRCH"_s);
}

TEST_F(Rehearsed, WritesRefusedRowsWithTheReason)
{
    const auto database = engine.OpenDatabase(file);
    database->CreateTable({.name = u"ODD"_s,
                           .fields = {{.name = key, .size = 80}, {.name = u"CITY"_s, .size = 99}},
                           .indexes = {}});
    const auto rows = database->OpenRecordset(u"ODD"_s, engine::RecordsetType::Table);
    for (const QString& comp : {u"2 ASH ST"_s, u"2 ash st"_s, QString()}) {
        rows->AddNew();
        rows->SetValue(key, comp);
        rows->SetValue(u"CITY"_s, u"a, \"b\"\nc"_s);
        rows->Update();
    }
    rows->Close();
    database->Close();
    const Rehearsal rehearsal(Desk(), {.source = file, .table = u"ODD"_s, .pictures = true});
    EXPECT_EQ(rehearsal.Count(RowKind::Refused), 2);
    EXPECT_EQ(rehearsal.Rows().value(1).key, u"ODD row 2, 2 ash st"_s);
    EXPECT_EQ(rehearsal.Rows().value(2).key, u"ODD row 3"_s);
    EXPECT_EQ(tests::NumberOf([&] { (void)rehearsal.WriteRefused(file); }), error::kPathFileAccess) << "its source";
    const QByteArray comps = disk.ReadWhole(path);
    EXPECT_EQ(tests::NumberOf([&] { (void)rehearsal.WriteRefused(path); }), error::kPathFileAccess) << "a database";
    EXPECT_EQ(disk.ReadWhole(path), comps);
    EXPECT_EQ(rehearsal.WriteRefused(u"C:\\EXPORT\\REFUSED.CSV"_s), 2);
    EXPECT_EQ(disk.ReadWhole(u"C:\\EXPORT\\REFUSED.CSV"_s),
              "CENTRALKEY,CITY,REASON\r\n"
              "2 ash st,\"a, \"\"b\"\"\nc\",an earlier row of the file has the same key\r\n"
              ",\"a, \"\"b\"\"\nc\",it has no key\r\n");
}

} // namespace
} // namespace vasclip::upkeep
