// Access files as what is imported, exported from and exported into.

#include "transfer_home.h"

#include "platform/engine/genuine_file.h"
#include "store/convert.h"
#include "support/error_number.h"
#include "support/genuine_files.h"
#include "upkeep/export_table.h"
#include "upkeep/import_table.h"
#include "upkeep/rehearsal.h"
#include "upkeep/tables.h"

namespace vasclip::upkeep {
namespace {

class AccessTransfer : public TransferHome
{
protected:
    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
    }
    ExportResult Out(bool access, const QString& name = u"COMPS"_s)
    {
        return ExportTable(Desk(), {.target = target, .table = name, .search = {}, .access = access}, Step());
    }
    void DeleteComp(const QString& comp)
    {
        const auto open = engine.OpenDatabase(path);
        open->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '%1'"_s.arg(comp));
        open->Close();
    }
    /// The Databook, as somebody has it who did not convert it.
    void BindAccessDatabook()
    {
        const QString old = u"C:\\OLD.MDB"_s;
        databook.Close();
        ASSERT_TRUE(store::ConvertDatabase(engine, {.source = path, .target = old, .to = engine::DatabaseKind::Access}));
        store::Connect2mdb(ports, databook, old, table, store::SourceKind::Table);
    }
    /// An Access file at the target with an amount that no field of ours keeps to its last digit.
    void MakeLargeAmount()
    {
        engine::GenuineFile file(engine, target);
        file.Content().CreateTable({.name = u"MONEY"_s,
                                    .fields = {{.name = u"NAME"_s, .type = engine::FieldType::Text, .size = 20},
                                               {.name = u"AMOUNT"_s, .type = engine::FieldType::Currency}},
                                    .indexes = {}});
        const auto rows = file.Content().OpenRecordset(u"MONEY"_s, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(u"NAME"_s, u"large"_s);
        rows->SetValue(u"AMOUNT"_s, 912'719'925'474.0);
        rows->Update();
        rows->Close();
        (void)file.Finish();
    }
};

TEST_F(AccessTransfer, ImportsTheRecordsThatAreMissing)
{
    ASSERT_TRUE(Out(true).written);
    DeleteComp(u"9 ELM ST"_s);
    const ImportResult result = ImportTable(Desk(), {.source = target, .table = table, .pictures = false}, Step());
    EXPECT_EQ(result.appended, 1);
    EXPECT_EQ(result.refused.size(), 2) << "their keys are there";
    EXPECT_EQ(Field(path, table, u"9 ELM ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
}

TEST_F(AccessTransfer, SaysThatAFileWhichWasCutShortWasNotReadWhole)
{
    for (int i = 0; i < 400; ++i)
        AddRow(Comp(u"%1 LONG RD"_s.arg(i), u"CEDAR"_s, u" "_s));
    ASSERT_TRUE(Out(true).written);
    QFile file(disk.ToNative(target));
    ASSERT_TRUE(file.resize(file.size() * 2 / 3));
    databook.Close();
    disk.Kill(path);
    store::MakeDatabase(engine, path);
    Bind(databook);
    Rehearsal rehearsal(Desk(), {.source = target, .table = table, .pictures = false});
    EXPECT_FALSE(rehearsal.Damage().isEmpty());
    EXPECT_TRUE(DamageWords(rehearsal.Damage()).startsWith(u" The file is damaged, and not all of it could be read: "_s));
    const ImportResult result = ImportTable(Desk(), {.source = target, .table = table, .pictures = false}, Step());
    EXPECT_GT(result.appended, 0);
    EXPECT_LT(result.appended, 403);
    ASSERT_FALSE(result.damage.isEmpty());
    EXPECT_TRUE(WordsOf(result).contains(u"The file is damaged, and not all of it could be read: "_s + result.damage.first()))
        << WordsOf(result).toStdString();
    EXPECT_TRUE(AccountOf(result).contains(result.damage.first()));
}

TEST_F(AccessTransfer, APictureThatDamageCutIsCalledSo)
{
    QByteArray jpeg("\xFF\xD8\xFF", 3);
    for (int i = 0; jpeg.size() < 70'000; ++i)
        jpeg += QByteArray::number(i) + " of this picture, ";
    disk.WriteWhole(u"C:\\JPG\\00000001.jpg"_s, jpeg);
    ASSERT_TRUE(ExportTable(Desk(), {.target = target, .table = table, .search = {}, .pictures = true, .access = true}, Step())
                    .written);
    QByteArray bytes = disk.ReadWhole(target);
    constexpr qsizetype kPage = 4096;
    const qsizetype inside = bytes.indexOf("1234 of this picture");
    ASSERT_GT(inside, kPage);
    bytes[inside / kPage * kPage] = '\x7F'; // a page of another kind, in the middle of the picture
    disk.WriteWhole(target, bytes);
    DeleteComp(u"12 OAK ST"_s);
    disk.Kill(u"C:\\JPG\\00000001.jpg"_s);
    const ImportResult result = ImportTable(Desk(), {.source = target, .table = table, .pictures = true}, Step());
    EXPECT_EQ(result.appended, 1);
    EXPECT_TRUE(result.pictures.notSaved.contains(
        u"12 OAK ST: the picture could not be read to its end, because the file is damaged there"_s))
        << result.pictures.notSaved.join(u'\n').toStdString();
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\00000001.jpg"_s));
    EXPECT_FALSE(result.damage.isEmpty());
}

TEST_F(AccessTransfer, ATableThatACutFileLostIsNotCalledMisspelled)
{
    ASSERT_TRUE(Out(true).written);
    QFile file(disk.ToNative(target));
    ASSERT_TRUE(file.resize(50'000)); // its list of tables is there, and the table that it leads to is not
    const auto failure = tests::ThrownBy(
        [&] { return ImportTable(Desk(), {.source = target, .table = table, .pictures = false}, Step()).rows; });
    EXPECT_TRUE(failure.words.contains(u"damaged"_s)) << failure.words.toStdString();
    forms::ControlSet controls;
    forms::ListBox list(controls, u"lstTables"_s);
    const QString why = ListTheTables(engine, target, list, table);
    EXPECT_TRUE(why.startsWith(target + u" is damaged, and not all of it can be read: "_s)) << why.toStdString();
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(AccessTransfer, ARehearsalAddsWhatIsChosen)
{
    ASSERT_TRUE(Out(true).written);
    DeleteComp(u"9 ELM ST"_s);
    Rehearsal rehearsal(Desk(), {.source = target, .table = table, .pictures = false});
    EXPECT_EQ(rehearsal.Count(RowKind::New), 1);
    rehearsal.ChooseAll(RowKind::New, RowChoice::Add);
    const RehearsalResult result = rehearsal.Carry(Step());
    EXPECT_EQ(result.added, 1);
    EXPECT_EQ(Keys(path, table).size(), 3);
}

TEST_F(AccessTransfer, AnAccessDatabookIsExportedIntoEitherKind)
{
    BindAccessDatabook();
    for (const bool access : {false, true}) {
        const ExportResult result = Out(access);
        EXPECT_TRUE(result.written);
        EXPECT_EQ(result.records, 3);
        EXPECT_EQ(engine::IsGenuineFile(disk, target), access);
        EXPECT_EQ(Field(target, table, u"9 ELM ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
        disk.Kill(target);
    }
}

TEST_F(AccessTransfer, AnAccessDatabookTakesNoImportAndSaysWhy)
{
    ASSERT_TRUE(Out(false).written);
    BindAccessDatabook();
    try {
        (void)ImportTable(Desk(), {.source = target, .table = table, .pictures = false}, Step());
        ADD_FAILURE() << "it was imported";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kFileIsReadOnly);
        EXPECT_TRUE(failure.Description().contains(u"is an Access database"_s)) << failure.Description().toStdString();
    }
}

TEST_F(AccessTransfer, AVasclipFileStaysOneWhateverIsAskedForANewOne)
{
    ASSERT_TRUE(Out(false, u"FIRST"_s).written);
    const ExportResult result = Out(true, u"SECOND"_s);
    EXPECT_TRUE(result.written);
    EXPECT_FALSE(engine::IsGenuineFile(disk, target));
    EXPECT_EQ(Keys(target, u"FIRST"_s).size(), 3);
    EXPECT_TRUE(WordsOf(result).contains(u"was a Vasclip database and stays one"_s)) << WordsOf(result).toStdString();
}

TEST_F(AccessTransfer, AsksBeforeAFileLosesWhatCanNotBeWrittenAgain)
{
    MakeLargeAmount();
    const QByteArray before = disk.ReadWhole(target);
    doubles.prompter.Answer(forms::Answer::No);
    const ExportResult kept = Out(false);
    EXPECT_FALSE(kept.written);
    EXPECT_TRUE(kept.declined);
    EXPECT_EQ(disk.ReadWhole(target), before);
    ASSERT_FALSE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"MONEY"_s)) << doubles.prompter.Last().text.toStdString();
    doubles.prompter.Answer(forms::Answer::Yes);
    const ExportResult lost = Out(false);
    EXPECT_TRUE(lost.written);
    EXPECT_EQ(WordsOf(lost).count(u"MONEY"_s), 1) << "what was lost is told again: " << WordsOf(lost).toStdString();
    EXPECT_EQ(Keys(target, table).size(), 3);
}

TEST_F(AccessTransfer, NamesWhatAFileLosesInTheQuestionAndAfterwards)
{
    if (tests::GenuineFiles().isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    const std::pair<QString, QStringList> files[] = {
        {u"reservedWordLeave.mdb"_s, {u"the saved query Without Leave"_s}},
        {u"indexTestV1997.mdb"_s,
         {u"the format of Access 97 (that of Access 2000 takes its place)"_s, u"the relation Table3Table1"_s, u"the relation Table2Table1"_s}},
        {u"compIndexTestV2000.mdb"_s, {}},
        {u"testIndexPropertiesV2003.mdb"_s, {}},
    };
    for (const auto& [name, things] : files) {
        doubles.prompter.Forget();
        if (disk.FileExists(target))
            disk.Kill(target);
        ASSERT_TRUE(tests::CopyGenuineFile(name, disk.ToNative(target)));
        if (!things.isEmpty())
            doubles.prompter.Answer(forms::Answer::Yes);
        const ExportResult result = Out(false, u"MAY"_s);
        EXPECT_TRUE(result.written) << name.toStdString();
        ASSERT_EQ(doubles.prompter.Boxes().size(), things.isEmpty() ? 0U : 1U)
            << name.toStdString() << ": " << doubles.prompter.Texts().join(u'\n').toStdString();
        if (things.isEmpty())
            continue;
        EXPECT_TRUE(doubles.prompter.Last().text.contains(u":\n\n"_s + things.join(u'\n') + u"\n\n"_s))
            << doubles.prompter.Last().text.toStdString();
        EXPECT_TRUE(WordsOf(result).contains(u"The file has no more: "_s + things.join(u", "_s) + u'.')) << WordsOf(result).toStdString();
    }
}

TEST_F(AccessTransfer, OfManyThingsTheFirstAreNamed)
{
    QStringList things;
    for (int i = 1; i <= 40; ++i)
        things.append(u"the saved query Q%1"_s.arg(i));
    EXPECT_EQ(store::Listed(things.mid(0, 2)), u"the saved query Q1, the saved query Q2"_s);
    EXPECT_TRUE(store::Listed(things, u"\n"_s).endsWith(u"\nthe saved query Q10\nand 30 more"_s));
    EXPECT_EQ(store::OnlyInOld({}, path), QString());
}

TEST_F(AccessTransfer, ALongFileIsStoppedWhileItIsRead)
{
    ASSERT_TRUE(Out(true).written);
    const QByteArray before = disk.ReadWhole(target);
    steps.clear();
    stopAt = 0;
    const ExportResult result = Out(true, u"MAY"_s);
    EXPECT_TRUE(result.stopped);
    EXPECT_EQ(steps.value(0), u"Reading what %1 holds"_s.arg(target));
    EXPECT_EQ(disk.ReadWhole(target), before);
}

} // namespace
} // namespace vasclip::upkeep
