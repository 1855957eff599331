#include "store/store.h"
#include "support/databook_home.h"
#include "upkeep/tables.h"
#include "upkeep/target_file.h"

#include <QCoreApplication>

namespace vasclip::upkeep {
namespace {

using namespace Qt::StringLiterals;

class TargetFile : public tests::DatabookHome
{
protected:
    const QString target = u"C:\\EXPORT\\MINE.MDB"_s;

    void SetUp() override
    {
        DatabookHome::SetUp();
        disk.MkDir(u"C:\\EXPORT"_s);
    }
    bool Refuses(const FileVerb& verb, const QString& file)
    {
        doubles.prompter.Forget();
        return RefusesTarget(doubles.prompter, engine, verb, file, path);
    }
    tests::ShownBox Box(const QString& title, const QString& text)
    {
        return {forms::Buttons::Ok, forms::Icon::None, title, text};
    }
};

TEST_F(TargetFile, WithAProtectedNameIsRefusedInTheWordsOfEachDeed)
{
    const QString file = u"C:\\EXPORT\\Office.old.mdb"_s;
    EXPECT_TRUE(Refuses(kExportTo, file));
    EXPECT_EQ(doubles.prompter.Last(),
              Box(u"User not allowed to export"_s,
                  u"You cannot export to default (protected) installed database: Office "_s));
    EXPECT_TRUE(Refuses(kArchiveTo, file));
    EXPECT_EQ(doubles.prompter.Last(),
              Box(u"User not allowed to archive"_s,
                  u"You cannot archive to default (protected) installed database: Office "_s));
    EXPECT_TRUE(Refuses(kDelete, file));
    EXPECT_EQ(doubles.prompter.Last(),
              Box(u"User not allowed to delete database"_s,
                  u"You cannot delete default (protected) installed database: Office "_s));
}

TEST_F(TargetFile, ThatIsTheOpenDatabookIsRefusedInAnyCase)
{
    const QString open = u"C:\\MYBOOK.MDB"_s;
    EXPECT_TRUE(RefusesTarget(doubles.prompter, engine, kExportTo, u"c:\\mybook.mdb"_s, open));
    EXPECT_EQ(doubles.prompter.Last(), Box(u"User not allowed to export database"_s,
                                           u"You cannot export to currently open database (C:\\MYBOOK.MDB)!"_s));
    EXPECT_TRUE(RefusesTarget(doubles.prompter, engine, kDelete, open, open));
    EXPECT_EQ(doubles.prompter.Last(), Box(u"User not allowed to delete database"_s,
                                           u"You cannot delete currently open database (C:\\MYBOOK.MDB)!"_s));
}

TEST_F(TargetFile, ThatIsADirectoryOrAPatternIsRefused)
{
    engine.CreateDatabase(target)->Close();
    for (const QString& many : {u"C:\\EXPORT\\"_s, u"C:\\EXPORT\\*"_s, u"C:\\EXPORT\\MIN?.MDB"_s, u"C:\\"_s, u""_s}) {
        EXPECT_TRUE(Refuses(kDelete, many)) << many.toStdString();
        EXPECT_EQ(doubles.prompter.Last(), Box(u"User not allowed to delete database"_s,
                                               u"You cannot delete \"%1\", which is not the name of one file. Enter the "
                                               u"name of the database file."_s.arg(many)));
        EXPECT_FALSE(IsThere(disk, many)) << many.toStdString();
    }
    EXPECT_TRUE(IsThere(disk, target));
    EXPECT_FALSE(Refuses(kDelete, target));
}

TEST_F(TargetFile, OnADriveThatIsNotThereHasNoTablesAndSaysWhy)
{
    forms::ControlSet controls;
    forms::ListBox list(controls, u"lstTables"_s);
    EXPECT_FALSE(ListTheTables(engine, u"E:\\EXPORT\\MINE.MDB"_s, list).isEmpty());
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(ListTheTables(engine, u"C:\\EXPORT\\"_s, list), QString());
}

TEST_F(TargetFile, ThatSomebodyHasOpenIsRefused)
{
    EXPECT_FALSE(Refuses(kExportTo, target));
    const auto used = engine.CreateDatabase(target);
    EXPECT_TRUE(Refuses(kExportTo, target));
    EXPECT_EQ(doubles.prompter.Last(),
              Box(u"User not allowed to export database"_s,
                  u"The selected database is LOCKED (by you or another user). Make sure all users are not currenlty "
                  u"connected to C:\\EXPORT\\MINE.MDB before attempting to export to this database file!"_s));
    EXPECT_TRUE(Refuses(kDelete, target));
    EXPECT_TRUE(doubles.prompter.Last().text.endsWith(u"before attempting to delete this database file!"_s));
    used->Close();
    EXPECT_FALSE(Refuses(kExportTo, target));
}

TEST_F(TargetFile, WithACompanionOfAnotherProgramIsRefused)
{
    disk.WriteWhole(u"C:\\EXPORT\\MINE.LDB"_s, "HOST1");
    EXPECT_TRUE(Refuses(kExportTo, target));
}

TEST_F(TargetFile, WithWhatAKilledProcessLeftIsFree)
{
    engine.CreateDatabase(target)->Close();
    QByteArray entry;
    {
        const auto used = engine.OpenDatabase(target);
        entry = disk.ReadWhole(u"C:\\EXPORT\\MINE.LDB"_s);
    }
    const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
    ASSERT_TRUE(entry.contains(own));
    disk.WriteWhole(u"C:\\EXPORT\\MINE.LDB"_s, entry.replace(own, "999999999"));
    EXPECT_FALSE(Refuses(kExportTo, target));
}

TEST_F(TargetFile, IsMadeFromTheTemplateOnceAndNeverOverwritten)
{
    disk.MkDir(u"C:\\PROGRAM"_s);
    store::MakeDatabase(engine, u"C:\\PROGRAM\\NEWDATA.MDB"_s);
    {
        const auto given = engine.OpenDatabase(u"C:\\PROGRAM\\NEWDATA.MDB"_s);
        given->CreateTable({.name = u"MARK"_s, .fields = {{.name = u"A"_s, .size = 5}}, .indexes = {}});
        given->Close();
    }
    CopyFromNewData(engine, {u"C:\\DATA"_s, u"C:\\PROGRAM"_s}, target);
    EXPECT_EQ(TablesOf(engine, target), (QStringList{u"COMPS"_s, u"MARK"_s}));
    DeleteTable(engine, target, u"MARK"_s);
    CopyFromNewData(engine, {u"C:\\PROGRAM"_s}, target);
    EXPECT_EQ(TablesOf(engine, target), QStringList{u"COMPS"_s});
}

TEST_F(TargetFile, IsAnEmptyDatabaseWhereTheTemplateIsMissing)
{
    CopyFromNewData(engine, {u"C:\\DATA"_s}, target);
    EXPECT_EQ(TablesOf(engine, target), QStringList{u"COMPS"_s});
    EXPECT_EQ(CountOf(engine, target, u"COMPS"_s), 0);
}

TEST_F(TargetFile, ListsItsTablesAndSelectsOne)
{
    store::MakeDatabase(engine, target);
    const auto database = engine.OpenDatabase(target);
    for (const QString& name : {u"MSysThings"_s, u"OLD"_s})
        database->CreateTable({.name = name, .fields = {{.name = u"A"_s, .size = 5}}, .indexes = {}});
    database->Close();
    forms::ControlSet set;
    forms::ListBox list(set, u"lstTables"_s);
    EXPECT_EQ(ListTheTables(engine, target, list), QString());
    EXPECT_EQ(list.Items(), (QStringList{u"COMPS"_s, u"OLD"_s}));
    EXPECT_EQ(list.ListIndex(), 0);
    ListTheTables(engine, target, list, u"old"_s);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(ListTheTables(engine, u"C:\\EXPORT\\NONE.MDB"_s, list), QString());
    EXPECT_EQ(list.ListCount(), 0);
    disk.WriteWhole(u"C:\\EXPORT\\TEXT.MDB"_s, "this is no database at all");
    EXPECT_NE(ListTheTables(engine, u"C:\\EXPORT\\TEXT.MDB"_s, list), QString());
    EXPECT_FALSE(IsLocked(engine, target));
}

TEST_F(TargetFile, GetsItsKeyIndexOnce)
{
    store::MakeDatabase(engine, target);
    const auto database = engine.OpenDatabase(target);
    database->CreateTable({.name = u"BARE"_s, .fields = {{.name = u"CENTRALKEY"_s, .size = 35}}, .indexes = {}});
    database->CreateTable({.name = u"OTHER"_s, .fields = {{.name = u"A"_s, .size = 35}}, .indexes = {}});
    database->Close();
    for (const QString& name : {u"BARE"_s, u"BARE"_s, u"OTHER"_s, u"COMPS"_s})
        AddKeyIndex(engine, target, name);
    EXPECT_EQ(engine.OpenDatabase(target)->Table(u"BARE"_s).indexes.size(), 1);
    EXPECT_EQ(engine.OpenDatabase(target)->Table(u"OTHER"_s).indexes.size(), 0);
}

TEST_F(TargetFile, CopiesTheDatabookForTheExport)
{
    disk.MkDir(u"C:\\DATA"_s);
    disk.MkDir(u"C:\\DATA\\EXPORT"_s);
    store::MakeDatabase(engine, u"C:\\DATA\\DATABOOK.MDB"_s);
    Copy2Export(engine, u"C:\\DATA"_s);
    EXPECT_EQ(TablesOf(engine, u"C:\\DATA\\EXPORT\\TEMPDATA.MDB"_s), QStringList{u"COMPS"_s});
}

} // namespace
} // namespace vasclip::upkeep
