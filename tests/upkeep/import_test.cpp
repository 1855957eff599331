#include "transfer_home.h"

#include "store/change.h"
#include "support/error_number.h"
#include "support/exclusive_lock.h"
#include "support/killed_here.h"
#include "upkeep/export_table.h"
#include "upkeep/import_table.h"
#include "upkeep/rehearsal.h"

namespace vasclip::upkeep {
namespace {

const QByteArray kJpeg("\xFF\xD8\xFF the picture");

/// A file of another office beside the Databook of TransferHome.
class Import : public TransferHome
{
protected:
    const QString file = u"C:\\EXPORT\\THEIRS.MDB"_s;

    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
        store::MakeDatabase(engine, file);
    }
    void Put(const QString& name, const QList<std::pair<QString, QVariant>>& values)
    {
        const auto database = engine.OpenDatabase(file);
        const auto rows = database->OpenRecordset(name, engine::RecordsetType::Table);
        rows->AddNew();
        for (const auto& [field, value] : values)
            rows->SetValue(field, value);
        rows->Update();
        rows->Close();
        database->Close();
    }
    void PutComp(const QString& comp, const QString& city = u"Cedar"_s, const QString& photos = u" "_s,
                 const QVariant& picture = {})
    {
        Put(table, {{key, comp.leftJustified(35)}, {u"CITY"_s, city}, {u"PHOTOS"_s, photos}, {u"FRONTPHOTO"_s, picture}});
    }
    ImportResult Run(bool pictures = true, const QString& name = u"COMPS"_s)
    {
        return ImportTable(Desk(), {.source = file, .table = name, .pictures = pictures}, Step());
    }
    QStringList Pictures() { return disk.Dir(u"C:\\JPG\\*"_s); }
};

TEST_F(Import, AppendsNewRowsAndRefusesKeysThatAreThere)
{
    PutComp(u"1 ASH ST"_s);
    PutComp(u"12 OAK ST"_s, u"Elsewhere"_s);
    const ImportResult result = Run();
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.appended, 1);
    EXPECT_EQ(AccountOf(result), QStringList{u"COMPS row 2, 12 OAK ST: the Databook has a record of this key"_s});
    EXPECT_EQ(WordsOf(result), u"1 record of C:\\EXPORT\\THEIRS.MDB was added to the Databook. 1 stayed out, as the Databook has "
                                "its key."_s);
    EXPECT_EQ(Field(path, table, u"12 OAK ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"CITY"_s).toString(), u"Cedar"_s);
}

TEST_F(Import, LeavesItsSourceAsItWasToTheByte)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    const QByteArray before = disk.ReadWhole(file);
    disk.SetAttr(file, files::ReadOnly);
    EXPECT_EQ(Run().pictures.written, 1);
    disk.SetAttr(file, files::Normal);
    EXPECT_EQ(disk.ReadWhole(file), before);
    EXPECT_EQ(Run().pictures.same, 1);
    EXPECT_EQ(disk.ReadWhole(file), before);
    EXPECT_EQ(disk.Dir(u"C:\\EXPORT\\*"_s), QStringList{u"THEIRS.MDB"_s});
}

TEST_F(Import, PutsThePictureIntoThePhotoDirectoryAndNotIntoTheRow)
{
    const QByteArray large = kJpeg + QByteArray(32768 * 2, 'x');
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, large);
    PutComp(u"2 ASH ST"_s, {}, u"REAR VIEW|00000008\r\n"_s, kJpeg);
    const ImportResult result = Run();
    EXPECT_EQ(result.pictures.written, 1);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000009.jpg"_s), large);
    EXPECT_FALSE(Field(path, table, u"1 ASH ST"_s, u"FRONTPHOTO"_s).isValid());
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"PHOTOS"_s).toString(), u"FRONT VIEW|00000009\r\n"_s);
    EXPECT_EQ(Pictures(), (QStringList{u"00000001.jpg"_s, u"00000003.jpg"_s, u"00000009.jpg"_s}));
    EXPECT_TRUE(WordsOf(result).endsWith(u" Pictures: 1 written."_s));
}

TEST_F(Import, TakesOneFileThatTwoRecordsShowOnce)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    const ImportResult result = Run();
    EXPECT_EQ(result.pictures.written, 1);
    EXPECT_EQ(result.pictures.notSaved, QStringList());
    EXPECT_EQ(Pictures().size(), 3);
}

TEST_F(Import, KeepsTheFirstOfTwoPicturesOfOneNameAlsoWhereItIsThereAlready)
{
    const QByteArray other = kJpeg + "of another house";
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, other);
    for (const bool there : {false, true}) {
        doubles.prompter.Answer(forms::Answer::Yes);
        const ImportResult result = Run();
        EXPECT_EQ(result.pictures.written, there ? 0 : 1);
        EXPECT_EQ(result.pictures.same, there ? 1 : 0);
        EXPECT_EQ(result.pictures.over, 0);
        EXPECT_EQ(result.pictures.notSaved,
                  QStringList{u"2 ASH ST: an earlier row has another picture of the name 00000009"_s});
        EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000009.jpg"_s), kJpeg);
    }
}

TEST_F(Import, ReadsAPhotoListWhoseLastLineHasNoEnd)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009"_s, kJpeg);
    EXPECT_EQ(Run().pictures.written, 1);
}

TEST_F(Import, LetsTheWatcherHearOfEachRecordOrTakesThemBack)
{
    PutComp(u"1 ASH ST"_s);
    PutComp(u"12 OAK ST"_s);
    QStringList heard;
    bool throws = true;
    databook.Watch([&](const store::Step& step) {
        heard.append(step.key.trimmed());
        if (throws)
            throw RuntimeError(error::kDiskFull, u"full"_s);
    });
    EXPECT_EQ(tests::NumberOf([&] { (void)Run(); }), error::kDiskFull);
    EXPECT_EQ(Keys(path, table).size(), 3);
    throws = false;
    EXPECT_EQ(Run().appended, 1);
    EXPECT_EQ(heard, (QStringList{u"1 ASH ST"_s, u"1 ASH ST"_s}));
}

TEST_F(Import, OfADatabookThatIsLockedMeanwhileLeavesThePhotosAsTheyWere)
{
    PutComp(u"1 ASH ST"_s, u"Cedar"_s, u"FRONT VIEW|00000009\r\n"_s, QByteArray("\xFF\xD8\xFF the picture"));
    engine.SetLockWait(20);
    const QStringList before = Pictures();
    std::optional<tests::ExclusiveLock> theirs;
    const WorkStep locks = [&](qint64, qint64, const QString&) {
        theirs.emplace(disk.ToNative(path));
        return true;
    };
    EXPECT_EQ(tests::NumberOf([&] {
                  (void)ImportTable(Desk(), {.source = file, .table = table, .pictures = true}, locks);
              }),
              error::kCouldNotUpdateLocked);
    theirs.reset();
    EXPECT_EQ(Pictures(), before);
    EXPECT_EQ(Keys(path, table).size(), 3);
}

TEST_F(Import, WithoutPicturesWritesNone)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    const ImportResult result = Run(false);
    EXPECT_EQ(result.appended, 1);
    EXPECT_TRUE(WordsOf(result).endsWith(
        u" 1 picture was left inside the file; import it again with its pictures to have them."_s));
    EXPECT_EQ(Pictures().size(), 2);
    EXPECT_FALSE(Field(path, table, u"1 ASH ST"_s, u"FRONTPHOTO"_s).isValid());
}

TEST_F(Import, AsksOnceBeforeItWritesOverOtherPictures)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000001\r\n"_s, kJpeg);
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|00000003\r\n"_s, kJpeg);
    const QByteArray ours = disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    ImportResult result = Run();
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"\n\n00000001.jpg\n00000003.jpg\n\n"_s));
    EXPECT_FALSE(result.done);
    EXPECT_EQ(result.appended, 0);
    EXPECT_EQ(Keys(path, table).size(), 3);
    doubles.prompter.Answer(forms::Answer::No);
    result = Run();
    EXPECT_EQ(result.pictures.kept, 2);
    EXPECT_EQ(result.appended, 2);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s), ours);
    doubles.prompter.Answer(forms::Answer::Yes);
    result = Run();
    EXPECT_EQ(result.appended, 0);
    EXPECT_EQ(result.pictures.over, 2);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s), kJpeg);
    result = Run();
    EXPECT_EQ(result.pictures.same, 2);
    EXPECT_EQ(Pictures().size(), 2);
}

TEST_F(Import, WritesOverAWriteProtectedPictureAndProtectsItAgain)
{
    globals.writeProtectPhotos = true;
    disk.SetAttr(u"C:\\JPG\\00000001.jpg"_s, files::ReadOnly);
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000001\r\n"_s, kJpeg);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(Run().pictures.over, 1);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s), kJpeg);
    EXPECT_NE(disk.GetAttr(u"C:\\JPG\\00000001.jpg"_s) & files::ReadOnly, 0U);
}

TEST_F(Import, RefusesWhatIsNoPictureOrReachesElsewhere)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, QByteArray("BM no jpeg"));
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|..\\EXPORT\\X\r\n"_s, kJpeg);
    PutComp(u"3 ASH ST"_s, {}, u"FRONT VIEW|00000008\r\n"_s, kJpeg);
    PutComp(u"4 ASH ST"_s, {}, u"FRONT VIEW|00000008\r\n"_s, kJpeg + "other");
    const ImportResult result = Run();
    EXPECT_EQ(result.appended, 4);
    EXPECT_EQ(result.pictures.written, 1);
    EXPECT_EQ(AccountOf(result), (QStringList{u"1 ASH ST: what stands inside is no JPEG picture"_s,
                                              u"2 ASH ST: \"..\\EXPORT\\X\" is no name of a picture"_s,
                                              u"4 ASH ST: an earlier row has another picture of the name 00000008"_s}));
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000008.jpg"_s), kJpeg);
    EXPECT_EQ(disk.Dir(u"C:\\EXPORT\\*"_s), QStringList{u"THEIRS.MDB"_s});
}

TEST_F(Import, ThatIsStoppedLeavesDatabookAndPhotosAsTheyWere)
{
    for (int i = 0; i < 3; ++i)
        PutComp(u"%1 ASH ST"_s.arg(i), {}, u"FRONT VIEW|9000000%1\r\n"_s.arg(i), kJpeg);
    stopAt = 2;
    const ImportResult result = Run();
    EXPECT_TRUE(result.stopped);
    EXPECT_EQ(WordsOf(result), u"Canceled: nothing came in."_s);
    EXPECT_EQ(Keys(path, table).size(), 3);
    EXPECT_EQ(Pictures().size(), 2);
}

TEST_F(Import, PutsThePicturesBackWhenTheRowsAreNotStoredAfterAll)
{
    disk.WriteWhole(u"C:\\JPG\\00000001.jpg"_s, "mine");
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000001\r\n"_s, kJpeg);
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    const QStringList before = Pictures();
    engine.SetLockWait(50);
    sqlite3* reader = nullptr; // whoever reads lets others change rows, but not store them
    ASSERT_EQ(sqlite3_open(disk.ToNative(path).toUtf8().constData(), &reader), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(reader, "BEGIN; SELECT COUNT(*) FROM sqlite_master", nullptr, nullptr, nullptr), SQLITE_OK);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_NE(tests::NumberOf([&] { Run(); }), 0);
    sqlite3_close(reader);
    EXPECT_EQ(Keys(path, table).size(), 3);
    EXPECT_EQ(Pictures(), before);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s), "mine");
    doubles.prompter.Answer(forms::Answer::Yes);
    const ImportResult again = Run();
    EXPECT_EQ(again.appended, 2);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s), kJpeg);
    EXPECT_EQ(Pictures().size(), before.size() + 1) << "nothing is left beside them";
}

TEST_F(Import, SweepsWhatAKilledOneLeft)
{
    const QString left = u"C:\\JPG\\00000009.jpg.incoming"_s + tests::kKilledHere.Mark();
    const QString over = u"C:\\JPG\\00000009.jpg.incoming-over"_s + tests::kKilledHere.Mark();
    disk.WriteWhole(left, "half");
    disk.WriteWhole(over, "old");
    const QStringList before = Pictures();
    PutComp(u"1 ASH ST"_s);
    Run();
    EXPECT_FALSE(disk.FileExists(left));
    EXPECT_TRUE(disk.FileExists(over)) << "nobody knows whether the picture that it was copied from is still there";
    EXPECT_EQ(Pictures().size(), before.size() - 1);
}

TEST_F(Import, LeavesWhatAnotherMachineIsImportingIntoTheSameDirectory)
{
    const auto put = [this](const engine::FileOwner& owner, int days) {
        const QString name = u"C:\\JPG\\%1.jpg.incoming"_s.arg(days) + owner.Mark();
        disk.WriteWhole(name, "half");
        QFile file(disk.ToNative(name));
        EXPECT_TRUE(file.open(QIODevice::ReadWrite));
        EXPECT_TRUE(file.setFileTime(ports.clock.Now().addDays(-days), QFileDevice::FileModificationTime));
        return name;
    };
    const engine::FileOwner elsewhere{tests::kKilledHere.process, u"0123abcd"_s};
    const engine::FileOwner nobodyKnows{tests::kKilledHere.process, {}}; // as older versions name them
    const QString theirs = put(elsewhere, 1);
    const QString earlier = put(nobodyKnows, 2);
    const QString theirOld = put(elsewhere, 8);
    const QString old = put(nobodyKnows, 9);
    PutComp(u"1 ASH ST"_s);
    Run();
    EXPECT_TRUE(disk.FileExists(theirs)) << "its number says nothing here";
    EXPECT_TRUE(disk.FileExists(earlier));
    EXPECT_FALSE(disk.FileExists(theirOld));
    EXPECT_FALSE(disk.FileExists(old));
}

TEST_F(Import, TakesATableOfOtherFieldsInAnotherOrder)
{
    const auto database = engine.OpenDatabase(file);
    database->CreateTable({.name = u"ODD"_s,
                           .fields = {{.name = u"City"_s, .size = 100},
                                      {.name = u"GLA"_s, .type = engine::FieldType::Long},
                                      {.name = u"POOL"_s, .size = 9},
                                      {.name = u"centralkey"_s, .size = 80}},
                           .indexes = {}});
    database->Close();
    const QString name = u"ODD"_s;
    Put(name, {{u"centralkey"_s, u"1 ASH ST"_s}, {u"City"_s, u"Cedar"_s}, {u"GLA"_s, 1500}, {u"POOL"_s, u"yes"_s}});
    Put(name, {{u"centralkey"_s, u"1 ash st  "_s}});
    Put(name, {{u"centralkey"_s, u" "_s}, {u"City"_s, u"nowhere"_s}});
    Put(name, {{u"City"_s, u"nowhere"_s}});
    Put(name, {{u"centralkey"_s, u"2 ASH ST"_s}, {u"City"_s, QString(90, u'x')}});
    Put(name, {{u"centralkey"_s, QString(60, u'1')}});
    const ImportResult result = Run(true, name);
    EXPECT_EQ(result.appended, 1);
    EXPECT_EQ(result.rows, 6);
    EXPECT_EQ(result.leftBehind, QStringList{u"POOL"_s});
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"GLA"_s).toString(), u"1500"_s);
    ASSERT_EQ(result.refused.size(), 5);
    EXPECT_EQ(AccountOf(result).value(0), u"ODD row 2, 1 ash st: an earlier row of the file has the same key"_s);
    EXPECT_EQ(AccountOf(result).value(1), u"ODD row 3: it has no key"_s);
    EXPECT_EQ(result.refused[0].why, u"an earlier row of the file has the same key"_s);
    EXPECT_EQ(result.refused[1].why, u"it has no key"_s);
    EXPECT_EQ(result.refused[2].why, u"it has no key"_s);
    EXPECT_TRUE(result.refused[3].why.startsWith(u"CITY holds 90 characters, the Databook takes "_s));
    EXPECT_TRUE(result.refused[4].why.startsWith(u"CENTRALKEY holds 60 characters"_s));
    EXPECT_EQ(Keys(path, table).size(), 4);
}

TEST_F(Import, LeavesAColumnOfAnotherKindAndBringsTheRowsIn)
{
    using engine::FieldType;
    const auto database = engine.OpenDatabase(file);
    database->CreateTable({.name = u"ODD"_s,
                           .fields = {{.name = key, .size = 40},
                                      {.name = u"NOTES"_s, .type = FieldType::LongBinary},
                                      {.name = u"CITY"_s, .type = FieldType::Binary, .size = 9},
                                      {.name = u"FRONTPHOTO"_s, .type = FieldType::Memo},
                                      {.name = u"PHOTOS"_s, .type = FieldType::Memo},
                                      {.name = u"SALEDATE"_s, .type = FieldType::Date},
                                      {.name = u"ST"_s, .type = FieldType::Long}},
                           .indexes = {}});
    database->Close();
    const QDateTime sold(QDate(2004, 3, 7), QTime(0, 0));
    Put(u"ODD"_s, {{key, u"1 ASH ST"_s}, {u"NOTES"_s, kJpeg}, {u"CITY"_s, QByteArray("abc")},
                   {u"FRONTPHOTO"_s, u"no picture"_s}, {u"PHOTOS"_s, u"FRONT VIEW|00000009\r\n"_s},
                   {u"SALEDATE"_s, sold}, {u"ST"_s, 41}});
    Put(u"ODD"_s, {{key, u"2 ASH ST"_s}, {u"ST"_s, 123456789}});
    const ImportResult result = Run(true, u"ODD"_s);
    EXPECT_EQ(result.appended, 1);
    EXPECT_EQ(result.otherKind, (QStringList{u"NOTES"_s, u"CITY"_s, u"FRONTPHOTO"_s}));
    EXPECT_TRUE(WordsOf(result).contains(u"What NOTES, CITY, FRONTPHOTO holds is of another kind"_s));
    EXPECT_EQ(AccountOf(result), QStringList{u"ODD row 2, 2 ASH ST: ST holds 9 characters, the Databook takes 4"_s});
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"SALEDATE"_s).toString(), u"3/7/2004"_s);
    EXPECT_EQ(Field(path, table, u"1 ASH ST"_s, u"ST"_s).toString(), u"41"_s);
    EXPECT_EQ(Pictures().size(), 2) << "text is no picture";
}

TEST_F(Import, RefusesANameThatNoPictureFileCanHaveAndBringsTheOthersIn)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|CON\r\n"_s, kJpeg);
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|"_s + QString(300, u'9') + u"\r\n"_s, kJpeg);
    PutComp(u"3 ASH ST"_s, {}, u"FRONT VIEW|a<b\r\n"_s, kJpeg);
    PutComp(u"4 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    const ImportResult result = Run();
    EXPECT_EQ(result.appended, 4);
    EXPECT_EQ(result.pictures.written, 1);
    ASSERT_EQ(result.pictures.notSaved.size(), 3);
    EXPECT_EQ(result.pictures.notSaved[0], u"1 ASH ST: \"CON\" is no name of a picture"_s);
    EXPECT_TRUE(result.pictures.notSaved[1].startsWith(u"2 ASH ST: \"999"_s));
    EXPECT_EQ(Bytes(u"C:\\JPG\\00000009.jpg"_s), kJpeg);
}

TEST_F(Import, EndsAListOfPhotosThatLacksItsEndSoThatTheRecordShowsItsPicture)
{
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009"_s, kJpeg);
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|00000008\r\nREAR VIEW|00000007"_s);
    PutComp(u"3 ASH ST"_s, {}, u"FRONT VIEW|00000006\r\n"_s);
    PutComp(u"4 ASH ST"_s, {}, u" "_s);
    PutComp(u"5 ASH ST"_s, {}, u"no list"_s);
    EXPECT_EQ(Run().pictures.written, 1);
    const auto photos = [&](const QString& comp) { return Field(path, table, comp, u"PHOTOS"_s).toString(); };
    EXPECT_EQ(photos(u"1 ASH ST"_s), u"FRONT VIEW|00000009\r\n"_s);
    EXPECT_EQ(photos(u"2 ASH ST"_s), u"FRONT VIEW|00000008\r\nREAR VIEW|00000007\r\n"_s);
    EXPECT_EQ(photos(u"3 ASH ST"_s), u"FRONT VIEW|00000006\r\n"_s);
    EXPECT_EQ(photos(u"4 ASH ST"_s), u" "_s);
    EXPECT_EQ(photos(u"5 ASH ST"_s), u"no list"_s);
}

TEST_F(Import, PutsPicturesIntoThePhotoDirectoryForADatabookOfAnOlderLayoutToo)
{
    databook.Close();
    disk.Kill(path);
    const auto database = engine.CreateDatabase(path);
    engine::TableDef old = store::CompsTable();
    old.fields.removeIf([](const engine::Field& field) { return field.name == u"FRONTPHOTO"_s; });
    database->CreateTable(old);
    database->Close();
    Bind(databook);
    PutComp(u"1 ASH ST"_s, {}, u"FRONT VIEW|00000009\r\n"_s, kJpeg);
    const ImportResult without = Run(false);
    EXPECT_EQ(without.picturesLeft, 1);
    EXPECT_EQ(without.leftBehind, QStringList());
    PutComp(u"2 ASH ST"_s, {}, u"FRONT VIEW|00000008\r\n"_s, kJpeg + "8");
    EXPECT_EQ(Run().pictures.written, 2);
    EXPECT_EQ(Bytes(u"C:\\JPG\\00000008.jpg"_s), kJpeg + "8");
}

TEST_F(Import, TellsOfAKeyThatBeginsWithABlank)
{
    PutComp(u"  1 ASH ST"_s);
    const Rehearsal rehearsal(Desk(), {.source = file, .table = table});
    ASSERT_EQ(rehearsal.Count(RowKind::New), 1);
    EXPECT_EQ(rehearsal.Rows().first().why, u"its key begins with a blank: no look-up finds such a record"_s);
    EXPECT_EQ(WordsOf(Run()), u"1 record of C:\\EXPORT\\THEIRS.MDB was added to the Databook. 1 key begins with a blank: no look-up "
                              u"finds such a record."_s);
}

TEST_F(Import, RefusesATableWithoutKeys)
{
    const auto database = engine.OpenDatabase(file);
    database->CreateTable({.name = u"BARE"_s, .fields = {{.name = u"CITY"_s, .size = 9}}, .indexes = {}});
    database->Close();
    const auto failure = tests::ThrownBy([&] { return Run(true, u"BARE"_s).rows; });
    EXPECT_TRUE(failure.words.contains(u"has no field CENTRALKEY"_s)) << failure.words.toStdString();
    EXPECT_EQ(tests::NumberOf([&] { (void)Run(true, u"NONE"_s); }), error::kTableUnknown);
}

TEST_F(Import, BringsBackWhatAnExportTookOut)
{
    disk.WriteWhole(u"C:\\JPG\\00000001.jpg"_s, kJpeg);
    disk.WriteWhole(u"C:\\JPG\\00000003.jpg"_s, kJpeg + "elm");
    ASSERT_TRUE(ExportTable(Desk(), {.target = target, .table = table, .search = {}, .pictures = true}, Step()).written);
    databook.Close();
    disk.Kill(path);
    disk.Kill(u"C:\\JPG\\*.jpg"_s);
    store::MakeDatabase(engine, path);
    Bind(databook);
    const ImportResult result = ImportTable(Desk(), {.source = target, .table = table, .pictures = true}, Step());
    EXPECT_EQ(result.appended, 3);
    EXPECT_EQ(result.pictures.written, 2);
    EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000003.jpg"_s), kJpeg + "elm");
    EXPECT_EQ(Field(path, table, u"9 ELM ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
}

TEST_F(Import, BringsBackWhatAFileOfEitherKindWithBracketsInItsNameHolds)
{
    disk.WriteWhole(u"C:\\JPG\\00000001.jpg"_s, kJpeg);
    disk.MkDir(u"C:\\EXPORT\\[OLD] BOOKS"_s);
    const QString odd = u"C:\\EXPORT\\[OLD] BOOKS\\OUT [2].MDB"_s;
    for (const bool access : {false, true}) {
        ASSERT_TRUE(
            ExportTable(Desk(), {.target = odd, .table = table, .search = {}, .pictures = true, .access = access}, Step())
                .written);
        databook.Close();
        disk.Kill(path);
        store::MakeDatabase(engine, path);
        Bind(databook);
        disk.Kill(u"C:\\JPG\\00000001.jpg"_s);
        const ImportResult result = ImportTable(Desk(), {.source = odd, .table = table, .pictures = true}, Step());
        EXPECT_EQ(result.appended, 3) << access;
        EXPECT_EQ(disk.ReadWhole(u"C:\\JPG\\00000001.jpg"_s), kJpeg) << access;
    }
}

} // namespace
} // namespace vasclip::upkeep
