#include "support/unix.h"
#include "upkeep/maintenance_home.h"

#include "comments/comment_file.h"

#include <QDir>
#include <QSet>

namespace vasclip::upkeep {
namespace {

class MaintenanceEdges : public MaintenanceHome
{
protected:
    [[nodiscard]] QString Says() const { return screen->lblmsg.Caption(); }
    void Photo(const QString& stem) { disk.WriteWhole(u"C:\\JPG\\%1.jpg"_s.arg(stem), "x"); }
};

TEST_F(MaintenanceEdges, ALandSizeInWordsStands)
{
    const std::pair<QString, QString> sizes[] = {{u"IRREGULAR"_s, u"IRREGULAR"_s}, {u"0.25 AC"_s, u"0.25 AC"_s},
                                                 {u"0 AC"_s, u"0 AC"_s},           {u"0"_s, u"5000"_s},
                                                 {u"0.00"_s, u"5000"_s},           {QString(), u"5000"_s}};
    for (const auto& [held, after] : sizes)
        Comp(u"1 %1 ST"_s.arg(held), {{u"APPRSLTYPE"_s, u"L"_s}, {u"GLA"_s, u"5000"_s}, {u"LANDSIZE"_s, held}});
    Open();
    Yes();
    Click(screen->cmdLandSize);
    for (const auto& [held, after] : sizes)
        EXPECT_EQ(Field(u"1 %1 ST"_s.arg(held), u"LANDSIZE"_s), after) << held.toStdString();
}

TEST_F(MaintenanceEdges, SaysWhatItDidAlsoWhereTheRecordsCanNotBeShownAgain)
{
    Comp(u"1 A ST"_s, {{u"LATITUDE"_s, u"45"_s}});
    Bind(source);
    screen = std::make_unique<frm_Maintenance>(MaintenanceDesk{.repair = Desk(), .showAgain = [] {
        throw RuntimeError(3187, u"Could not read; currently locked by another user"_s);
    }});
    screen->Open();
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_TRUE(Says().startsWith(u"Removal of anchors complete The records could not be shown again: Could not read"_s))
        << Says().toStdString();
    EXPECT_EQ(Field(u"1 A ST"_s, u"LATITUDE"_s), QString());
    EXPECT_FALSE(Lines().isEmpty());
}

TEST_F(MaintenanceEdges, AFailureBeforeItBeginsLeavesTheScreenAtRest)
{
    Comp(u"1 A ST"_s, {{u"LATITUDE"_s, u"45"_s}});
    Bind(source);
    screen = std::make_unique<frm_Maintenance>(MaintenanceDesk{.repair = Desk(), .letGo = [] {
        throw RuntimeError(3187, u"Could not read; currently locked by another user"_s);
    }});
    screen->Open();
    Yes();
    EXPECT_THROW(Click(screen->cmdclearAnchors), RuntimeError) << "which the window shows";
    EXPECT_EQ(Field(u"1 A ST"_s, u"LATITUDE"_s), u"45"_s);
    EXPECT_TRUE(screen->cmdclearAnchors.Enabled());
    screen->Unload();
    EXPECT_FALSE(screen->IsOpen()) << "it can be closed";
}

TEST_F(MaintenanceEdges, TheWindowIsPaintedAtEachPictureThatIsDeleted)
{
    for (int i = 0; i < 5; ++i) {
        Photo(u"P%1"_s.arg(i));
        Comp(u"%1 A ST"_s.arg(i), {{u"SALEDATE"_s, u"05/05/1999"_s}, {u"PHOTOS"_s, u"FRONT VIEW|P%1\r\n"_s.arg(i)}});
    }
    Open();
    Yes();
    QSet<int> seen; // on a slow disk each takes long
    doubles.pump.onTurn = [&] {
        if (screen->gauWork.Caption().startsWith(u"Deleting the pictures"_s))
            seen.insert(screen->gauWork.Value());
    };
    Erase(screen->cmdDeleteByDate, u"12/31/1999"_s);
    EXPECT_EQ(seen.size(), 5) << doubles.prompter.Texts().join(u'|').toStdString();
}

TEST_F(MaintenanceEdges, AnAccountThatCanNotBeKeptIsMetBeforeAnyRecordGoes)
{
    VASCLIP_NEEDS_UNIX("a directory that takes no file");
    Photo(u"P1"_s);
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"05/05/1999"_s}, {u"PHOTOS"_s, u"FRONT VIEW|P1\r\n"_s}});
    Open();
    Yes();
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // which takes no file
    Erase(screen->cmdDeleteByDate, u"12/31/1999"_s);
    qputenv("TMPDIR", before);
    EXPECT_TRUE(Says().startsWith(u"Nothing was changed, every record is as it was: "_s)) << Says().toStdString();
    EXPECT_EQ(Keys(), QStringList{u"1 A ST"_s});
    EXPECT_TRUE(HasFile(u"C:\\JPG\\P1.jpg"_s));
}

TEST_F(MaintenanceEdges, APhotoDirectoryThatGoesMeanwhileIsToldOf)
{
    Photo(u"P1"_s);
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"05/05/1999"_s}, {u"PHOTOS"_s, u"FRONT VIEW|P1\r\n"_s}});
    Open();
    Yes();
    const QString photos = disk.ToNative(u"C:\\JPG"_s);
    doubles.pump.onTurn = [&] { QDir().rename(photos, photos + u"_GONE"_s); };
    Erase(screen->cmdDeleteByDate, u"12/31/1999"_s);
    doubles.pump.onTurn = {};
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_TRUE(Says().startsWith(u"Process Complete.  Delete by Sale Date of 12/31/1999. 1 picture file could not be deleted"_s))
        << Says().toStdString();
}

TEST_F(MaintenanceEdges, DeletesNoRecordWhosePicturesAreOutOfReach)
{
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"05/05/1995"_s}, {u"PHOTOS"_s, u"FRONT VIEW|A1\r\n"_s}});
    globals.G_PhotoDir = u"C:\\AWAY\\"_s;
    Open();
    Yes();
    Erase(screen->cmdDeleteByDate, u"12/31/1999"_s);
    EXPECT_TRUE(Says().contains(u"The photo directory C:\\AWAY\\ is not there"_s)) << Says().toStdString();
    EXPECT_EQ(Keys(), QStringList{u"1 A ST"_s});
    globals.G_PhotoDir = u"C:\\JPG\\"_s;
    Yes();
    Erase(screen->cmdDeleteByDate, u"12/31/1999"_s);
    EXPECT_TRUE(Keys().isEmpty());
}

TEST_F(MaintenanceEdges, WithoutAnyPictureNoDirectoryIsNeeded)
{
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"05/05/1995"_s}});
    globals.G_PhotoDir = u"C:\\AWAY\\"_s;
    Open();
    Yes();
    Erase(screen->cmdDeleteByDate, u"12/31/1999"_s);
    EXPECT_TRUE(Keys().isEmpty());
}

TEST_F(MaintenanceEdges, ByLoadDateThoseWithoutOneGoAndOnlyThey)
{
    Comp(u"1 A ST"_s, {{u"LOADDATE"_s, u"01/01/1900"_s}, {u"SALEDATE"_s, u"05/05/1995"_s}});
    Comp(u"2 B ST"_s, {{u"LOADDATE"_s, QString()}});
    Comp(u"3 C ST"_s, {{u"LOADDATE"_s, u"1/1/1900"_s}});
    Comp(u"4 D ST"_s, {{u"LOADDATE"_s, u"05/05/1995"_s}, {u"SALEDATE"_s, u"01/01/1900"_s}});
    Open();
    Yes();
    Erase(screen->cmddelloaddate, u"1/1/1900"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The date of '1/1/1900' will erase all records with LOAD DATE.  Are you sure?"_s);
    EXPECT_EQ(Keys(), QStringList{u"4 D ST"_s});
    EXPECT_EQ(Says(), u"Process Complete.  Delete by Load Date of 1/1/1900."_s);
}

TEST_F(MaintenanceEdges, ASaleBefore1900GoesWithTheOlderOnesAndIsNotPending)
{
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"06/15/1899"_s}});
    Comp(u"2 B ST"_s, {{u"SALEDATE"_s, u"01/01/1900"_s}});
    Comp(u"3 C ST"_s, {{u"SALEDATE"_s, u"05/05/1995"_s}});
    Open();
    Yes();
    Erase(screen->cmdDeleteByDate, u"12/31/1990"_s);
    EXPECT_EQ(Keys(), (QStringList{u"2 B ST"_s, u"3 C ST"_s}));
    Yes();
    Erase(screen->cmdDeleteByDate, u"01/01/1900"_s);
    EXPECT_EQ(Keys(), QStringList{u"3 C ST"_s});
}

TEST_F(MaintenanceEdges, NeitherCancelNorAWishToCloseStopsTheDeletionOfPictures)
{
    for (const QString& stem : {u"A1"_s, u"B1"_s}) {
        Comp(u"1 %1 ST"_s.arg(stem), {{u"SALEDATE"_s, u"05/05/1995"_s}, {u"PHOTOS"_s, u"FRONT VIEW|%1\r\n"_s.arg(stem)}});
        Photo(stem);
    }
    Open();
    bool wished = false;
    doubles.pump.onTurn = [&] {
        if (!screen->gauWork.Caption().startsWith(u"Deleting the pictures"_s))
            return;
        wished = true;
        EXPECT_FALSE(screen->cmdStop.Enabled());
        Click(screen->cmdStop);
        screen->Unload();
        EXPECT_TRUE(screen->IsOpen());
    };
    Yes();
    Erase(screen->cmdDeleteByDate, u"12/31/1999"_s);
    doubles.pump.onTurn = {};
    EXPECT_TRUE(wished);
    EXPECT_TRUE(Keys().isEmpty());
    EXPECT_FALSE(HasFile(u"C:\\JPG\\A1.jpg"_s));
    EXPECT_FALSE(HasFile(u"C:\\JPG\\B1.jpg"_s));
    EXPECT_EQ(Says(), u"Process Complete.  Delete by Sale Date of 12/31/1999."_s);
}

TEST_F(MaintenanceEdges, AnAddressIsCutTo35CharactersWhenItIsCleaned)
{
    disk.Kill(path); // for a table that other hands have made wider
    {
        engine::TableDef wide = store::CompsTable();
        for (engine::Field& field : wide.fields)
            if (field.name == u"ADDRESS"_s)
                field.size = 60;
        const auto database = engine.CreateDatabase(path);
        database->CreateTable(wide);
        database->Close();
    }
    const QString longAddress = u"#12345 SOUTH MOUNTAIN VIEW BOULEVARD NORTH"_s;
    Comp(u"1 A ST"_s, {{u"ADDRESS"_s, longAddress}});
    Open();
    Yes();
    Click(screen->cmdRemoveIllegal);
    const QString after = Field(u"1 A ST"_s, u"ADDRESS"_s);
    EXPECT_EQ(after, u"12345 SOUTH MOUNTAIN VIEW BOULEVARD"_s);
    EXPECT_EQ(after.size(), 35);
}

TEST_F(MaintenanceEdges, WordsInParenthesesCountAsNoNumber)
{
    Comp(u"12 OAK ST (REAR)"_s);
    Comp(u"12 OAK ST #(REAR)"_s);
    Open();
    Yes();
    Click(screen->cmdRemoveIllegal);
    EXPECT_EQ(Keys(), (QStringList{u"12 OAK ST (REAR)"_s, u"12 OAK ST (1)"_s}));
}

TEST_F(MaintenanceEdges, CleansTheCommentFileThatIsShared)
{
    globals.share = 1;
    globals.G_DataDir = u"C:\\"_s;
    globals.G_ProgramDir = u"C:\\VAS2000\\"_s;
    const QString shared = u"C:\\comments.mdb"_s;
    comments::CreateCommentFile(engine, globals, shared);
    {
        const auto rows = engine.OpenDatabase(shared)->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(u"SITE"_s, u"Bob's #1"_s);
        rows->Update();
    }
    Comp(u"1 A ST"_s, {{u"SITE"_s, u"Bob's #1"_s}});
    Open();
    Yes();
    Click(screen->cmdRemoveIllegal2);
    EXPECT_EQ(Says(), u"2 illegal characters were found... Removal of illegal characters is complete"_s);
    const auto rows = engine.OpenDatabase(shared)->OpenRecordset(table, engine::RecordsetType::Table);
    QStringList phrases;
    for (; !rows->Eof(); rows->MoveNext())
        phrases.append(rows->Value(u"SITE"_s).toString().trimmed());
    EXPECT_TRUE(phrases.contains(u"Bobs 1"_s)) << phrases.join(u'|').toStdString();
    EXPECT_EQ(Field(u"1 A ST"_s, u"SITE"_s), u"Bob's #1"_s);
}

TEST_F(MaintenanceEdges, CountsTheRecordsWhosePhotosWereCleared)
{
    Comp(u"1 A ST"_s, {{u"PHOTOS"_s, u"FRONT VIEW|A1\r\n"_s}, {u"FRONT"_s, u"1"_s}});
    Comp(u"2 B ST"_s, {{u"FRONT"_s, u"1"_s}});
    Open();
    Yes();
    Click(screen->cmdClear);
    EXPECT_EQ(Says(), u"The photos of 1 record were cleared; the picture files are still there."_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"FRONT"_s), QString());
}

TEST_F(MaintenanceEdges, AWalkThatWasTakenBackCountsNothing)
{
    for (int i = 0; i < 3; ++i)
        Comp(u"%1 A ST"_s.arg(i), {{u"LATITUDE"_s, u"45"_s}});
    Open();
    doubles.pump.onTurn = [&] { Click(screen->cmdStop); };
    Yes();
    Click(screen->cmdclearAnchors);
    doubles.pump.onTurn = {};
    EXPECT_EQ(Says(), u"Stopped. Every record is as it was."_s);
    EXPECT_TRUE(screen->lblAccount.Caption().endsWith(u"\nNo record was changed."_s))
        << screen->lblAccount.Caption().toStdString();
}

TEST_F(MaintenanceEdges, ADatabookThatIsMovedAwayWhileItAsksIsSaidToBe)
{
    VASCLIP_NEEDS_UNIX("a file that is renamed while it is open");
    Comp(u"1 A ST"_s, {{u"LATITUDE"_s, u"45"_s}});
    Open();
    ASSERT_TRUE(QFile::rename(disk.ToNative(path), disk.ToNative(path) + u".away"_s));
    Yes();
    Click(screen->cmdclearAnchors);
    EXPECT_TRUE(Says().contains(u"was moved, renamed or deleted while it was open"_s)) << Says().toStdString();
    EXPECT_FALSE(Says().contains(u"read-only"_s));
}

TEST_F(MaintenanceEdges, EachRepairSaysOnItsGaugeWhatItDoes)
{
    store::MakeDatabase(engine, u"C:\\VAS2000\\comments.mdb"_s);
    Comp(u"1 A ST"_s, {{u"SALEDATE"_s, u"05/05/2005"_s}, {u"LOADDATE"_s, u"05/05/2005"_s}});
    Open();
    QStringList seen;
    doubles.pump.onTurn = [&] { seen.append(screen->gauWork.Caption()); };
    const auto said = [&](const std::function<void()>& work) {
        seen.clear();
        Yes();
        work();
        return seen.value(0);
    };
    EXPECT_EQ(said([&] { Click(screen->cmdRecalc); }),
              u"Recalculating the 'price per square foot' calculation and 'age' fields and modifying date fields."_s);
    EXPECT_EQ(said([&] { Click(screen->cmdclearAnchors); }), u"Removing anchors."_s);
    EXPECT_EQ(said([&] { Click(screen->cmdLandSize); }), u"Adjusting LandSize"_s);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(said([&] { Click(screen->cmdCorrectAddress(i)); }), u"Correcting address."_s);
    EXPECT_EQ(said([&] { Erase(screen->cmdDeleteByDate, u"12/31/1999"_s); }),
              u"Deleting Sales from Comp Database on or before 12/31/1999."_s);
    EXPECT_EQ(said([&] { Erase(screen->cmddelloaddate, u"12/31/1999"_s); }),
              u"Deleting Records from Comp Database on or before LOAD DATE of 12/31/1999."_s);
    EXPECT_EQ(said([&] { Erase(screen->cmddelloaddate, u"01/01/1900"_s); }),
              u"Deleting all PENDING RECORDS (Date='01/01/1900') from the Database."_s);
}

TEST_F(MaintenanceEdges, TheGaugeBearsTheTitleWhileTheDateIsAskedFor)
{
    Open();
    for (const auto& [button, title] : {std::pair{&screen->cmdDeleteByDate, u"Delete By SALE date"_s},
                                        {&screen->cmddelloaddate, u"Delete By LOAD date"_s}}) {
        doubles.screens.Play([&, title = title](forms::Screen& asks) {
            EXPECT_EQ(screen->gauWork.Caption(), title);
            EXPECT_EQ(asks.Caption(), title);
        });
        Click(*button);
        EXPECT_EQ(screen->gauWork.Caption(), QString());
    }
}

TEST_F(MaintenanceEdges, AnErrorOfAWalkIsReported)
{
    engine.SetLockWait(50);
    Comp(u"1 A ST"_s, {{u"LATITUDE"_s, u"45"_s}});
    Open();
    engine::Engine other{disk, tests::SomeTime()};
    const auto theirs = other.OpenDatabase(path);
    theirs->BeginTrans();
    theirs->Execute(u"UPDATE COMPS SET CITY = 'Theirs'"_s);
    Yes();
    Click(screen->cmdclearAnchors);
    theirs->Rollback();
    EXPECT_EQ(doubles.prompter.Last().title, u"Error"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"in module Maintenance"_s)) << doubles.prompter.Last().text.toStdString();
    EXPECT_TRUE(screen->cmdclearAnchors.Enabled());
}

} // namespace
} // namespace vasclip::upkeep
