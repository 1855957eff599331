// An import that is killed at any moment: the Databook is as before or as after, the source as it was, no record is
// without its pictures, and when the Databook is opened again the photo directory is as before or as after too.
// VASCLIP_KILLS sets how often.

#include "transfer_home.h"

#include "faults/kills.h"
#include "support/killed_work.h"
#include "upkeep/export_table.h"
#include "upkeep/import_table.h"
#include "upkeep/picture_journal.h"
#include "upkeep/rehearsal.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace vasclip::upkeep {
namespace {

class ImportKill : public TransferHome
{
protected:
    static constexpr int kComps = 30;
    static constexpr int kMine = 10; ///< of them, with other texts
    static constexpr int kHeld = 5;  ///< pictures from here to kFree stand in the photo directory, each another one
    static constexpr int kFree = 14;
    using Photos = QMap<QString, QByteArray>; ///< by name
    tests::KilledWork killed;

    static QString Name(int i) { return u"%1 OAK ST"_s.arg(100 + i); }
    static QByteArray Picture(int i) { return "\xFF\xD8\xFF" + QByteArray(7000 + i, 'p'); }
    static QByteArray Held(int i) { return "\xFF\xD8\xFF mine " + QByteArray::number(i); }
    static QString File(int i) { return u"C:\\JPG\\P%1.jpg"_s.arg(i); }

    void SetUp() override
    {
        TransferHome::SetUp();
        QList<Values> theirs;
        for (int i = 0; i < kComps; ++i) {
            theirs.append(Comp(Name(i), u"THEIRS"_s, u"FRONT VIEW|P%1\r\n"_s.arg(i)));
            disk.WriteWhole(File(i), Picture(i));
        }
        AddRows(theirs);
        Bind(databook);
        ASSERT_TRUE(ExportTable(Desk(), {.target = target, .table = table, .search = {}, .pictures = true}, Step()).written);
        databook.Close();
        m_source = disk.ReadWhole(target);
        EXPECT_TRUE(Directory() == After());
        disk.Kill(path);
        store::MakeDatabase(engine, path);
        QList<Values> mine;
        for (int i = 0; i < kMine; ++i)
            mine.append(Comp(Name(i), u"MINE"_s, u" "_s));
        AddRows(mine);
        m_databook = disk.ReadWhole(path);
    }
    /// Everything as before.
    void PutBack()
    {
        disk.WriteWhole(path, m_databook);
        QDir(disk.ToNative(u"C:\\JPG"_s)).removeRecursively();
        disk.MkDir(u"C:\\JPG"_s);
        for (int i = kHeld; i < kFree; ++i)
            disk.WriteWhole(File(i), Held(i));
    }
    std::function<void()> InItsProcess(const std::function<void(const TransferDesk&)>& work)
    {
        return [this, work] {
            engine::Engine own{disk, tests::SomeTime()};
            store::DataSource theirs{own, u"datDatabook"_s};
            theirs.Open(path, table, store::SourceKind::Table);
            doubles.prompter.Answer(forms::Answer::Yes); // to other pictures of the names
            work({.databook = theirs, .globals = globals, .ports = ports});
        };
    }
    void RunAndKill(const std::function<void(const TransferDesk&)>& work)
    {
        PutBack();
        killed.Run(InItsProcess(work));
    }
    /// Kills it when the pictures have their names and the rows are not stored.
    void KillBeforeTheCommit(const std::function<void(const TransferDesk&)>& work)
    {
        PutBack();
        const pid_t child = fork();
        if (child == 0) {
            try {
                InItsProcess([&](const TransferDesk& desk) {
                    desk.databook.Watch([](const store::Step&) { raise(SIGKILL); });
                    work(desk);
                })();
            } catch (...) {
            }
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it came to its end";
    }
    /// What an opening of the Databook does about it.
    void OpenAgain()
    {
        Bind(databook);
        PictureJournal::Replay(Desk());
        databook.Close();
    }
    Photos Directory(const QString& pattern = u"*"_s)
    {
        Photos found;
        for (const QString& name : QDir(disk.ToNative(u"C:\\JPG"_s)).entryList({pattern}, QDir::Files))
            found.insert(name, disk.ReadWhole(u"C:\\JPG\\"_s + name));
        return found;
    }
    static QString NameOf(int i) { return File(i).mid(7); }
    static Photos Before()
    {
        Photos photos;
        for (int i = kHeld; i < kFree; ++i)
            photos.insert(NameOf(i), Held(i));
        return photos;
    }
    static Photos After()
    {
        Photos photos;
        for (int i = 0; i < kComps; ++i)
            photos.insert(NameOf(i), Picture(i));
        return photos;
    }
    /// What is still on its way waits for the next import.
    void ExpectDirectory(const Photos& wanted, int run)
    {
        OpenAgain();
        EXPECT_TRUE(Directory(u"*.jpg"_s) == wanted) << Directory(u"*.jpg"_s).size() << " pictures in run " << run;
        EXPECT_EQ(Directory(u"*.incoming-over*"_s).size(), 0) << run;
        EXPECT_EQ(Journals(), QStringList()) << run;
    }
    QStringList Journals() { return disk.Dir(u"C:\\*.placing*"_s); }
    /// Gives the pictures the times that a list says.
    static void Redate(const QByteArray& list)
    {
        for (const QJsonValue& one : QJsonDocument::fromJson(list)[u"pictures"_s].toArray()) {
            QFile file(one[u"file"_s].toString());
            ASSERT_TRUE(file.open(QIODevice::ReadWrite));
            ASSERT_TRUE(file.setFileTime(QDateTime::fromMSecsSinceEpoch(one[u"changed"_s].toInteger()),
                                         QFileDevice::FileModificationTime));
        }
    }
    void SetInJournal(const QString& name, const QJsonValue& value)
    {
        const QString file = u"C:\\"_s + Journals().value(0);
        QJsonObject journal = QJsonDocument::fromJson(disk.ReadWhole(file)).object();
        journal[name] = value;
        disk.WriteWhole(file, QJsonDocument(journal).toJson());
    }
    /// CITY by key.
    QMap<QString, QString> Towns()
    {
        QMap<QString, QString> towns;
        const auto open = engine.OpenDatabase(path);
        store::Rows rows(*open, u"SELECT CENTRALKEY, CITY FROM COMPS"_s);
        while (const auto row = rows.Next())
            towns.insert(row->Text(key), row->Text(u"CITY"_s));
        return towns;
    }
    void ExpectSourceAsItWas(int run) { EXPECT_TRUE(disk.ReadWhole(target) == m_source) << "in run " << run; }
    void Account(int before, int after)
    {
        EXPECT_GT(before, 0);
        EXPECT_GT(after, 0);
        RecordProperty("before", before);
        RecordProperty("after", after);
    }

private:
    QByteArray m_source, m_databook;
};

void Import(const TransferDesk& desk, const QString& source, const QString& table)
{
    (void)ImportTable(desk, {.source = source, .table = table, .pictures = true}, NeverStops);
}

void Rehearse(const TransferDesk& desk, const QString& source, const QString& table, RowChoice ofNew)
{
    Rehearsal rehearsal(desk, {.source = source, .table = table, .pictures = true}, NeverStops);
    rehearsal.ChooseAll(RowKind::New, ofNew);
    rehearsal.ChooseAll(RowKind::Changed, RowChoice::TakeTheirs);
    (void)rehearsal.Carry(NeverStops);
}

TEST_F(ImportKill, BringsAllRowsInWithTheirPicturesOrNone)
{
    const auto work = [&](const TransferDesk& desk) { Import(desk, target, table); };
    int before = 0;
    int after = 0;
    for (int run = 0; tests::MoreKills(run, 14, {before, after}); ++run) {
        RunAndKill(work);
        const qsizetype rows = Towns().size();
        EXPECT_TRUE(rows == kMine || rows == kComps) << rows << " in run " << run;
        EXPECT_EQ(Towns().values().count(u"MINE"_s), kMine) << run;
        ExpectDirectory(rows == kComps ? After() : Before(), run);
        ExpectSourceAsItWas(run);
        ++(rows == kMine ? before : after);
        if (rows == kComps)
            continue;
        // Whoever imports again has everything.
        Bind(databook);
        doubles.prompter.Answer(forms::Answer::Yes);
        const ImportResult again = ImportTable(Desk(), {.source = target, .table = table, .pictures = true}, Step());
        databook.Close();
        EXPECT_EQ(again.appended, kComps - kMine) << run;
        EXPECT_TRUE(Directory() == After()) << run;
    }
    Account(before, after);
}

TEST_F(ImportKill, OfARehearsalEveryChoiceIsDoneOrNone)
{
    const auto work = [&](const TransferDesk& desk) { Rehearse(desk, target, table, RowChoice::Add); };
    int before = 0;
    int after = 0;
    for (int run = 0; tests::MoreKills(run, 14, {before, after}); ++run) {
        RunAndKill(work);
        const auto towns = Towns();
        const auto theirs = towns.values().count(u"THEIRS"_s);
        EXPECT_TRUE((theirs == 0 && towns.size() == kMine) || (theirs == kComps && towns.size() == kComps))
            << theirs << " of " << towns.size() << " in run " << run;
        ExpectDirectory(theirs == kComps ? After() : Before(), run);
        ExpectSourceAsItWas(run);
        ++(theirs == 0 ? before : after);
    }
    Account(before, after);
}

TEST_F(ImportKill, BeforeItsCommitIsTakenBackWithItsPictures)
{
    KillBeforeTheCommit([&](const TransferDesk& desk) { Import(desk, target, table); });
    EXPECT_TRUE(Directory(u"*.jpg"_s) == After()) << "the kill came too early";
    EXPECT_EQ(Towns().size(), kMine);
    ExpectDirectory(Before(), 0);
    EXPECT_TRUE(Directory() == Before()) << "nothing is beside them";
}

TEST_F(ImportKill, OfARehearsalThatOnlyChangesIsTakenBackBeforeItsCommit)
{
    KillBeforeTheCommit([&](const TransferDesk& desk) { Rehearse(desk, target, table, RowChoice::KeepMine); });
    EXPECT_EQ(Directory(u"P%1.jpg"_s.arg(kHeld)).value(NameOf(kHeld)), Picture(kHeld)) << "the kill came too early";
    ExpectDirectory(Before(), 0);
}

/// The rows are stored, and the list of pictures is still there.
TEST_F(ImportKill, BehindItsCommitIsLeftAsItIs)
{
    for (const bool rehearsal : {false, true}) {
        const auto work = [&](const TransferDesk& desk) {
            rehearsal ? Rehearse(desk, target, table, RowChoice::KeepMine) : Import(desk, target, table);
        };
        KillBeforeTheCommit(work);
        const QString journal = u"C:\\"_s + Journals().value(0);
        const QByteArray list = disk.ReadWhole(journal);
        const Photos kept = Directory(u"*.incoming-over*"_s);
        ASSERT_GT(kept.size(), 0);
        disk.Kill(journal);
        PutBack();
        killed.Whole(InItsProcess(work));
        const Photos whole = Directory();
        disk.WriteWhole(journal, list);
        Redate(list);
        for (auto one = kept.cbegin(); one != kept.cend(); ++one)
            disk.WriteWhole(u"C:\\JPG\\"_s + one.key(), *one);
        ExpectDirectory(whole, rehearsal);
    }
}

TEST_F(ImportKill, WhatWasPutUnderTheNamesSinceStays)
{
    KillBeforeTheCommit([&](const TransferDesk& desk) { Import(desk, target, table); });
    disk.WriteWhole(File(kHeld), "a better one");
    disk.WriteWhole(File(kFree), "one of my own");
    AddRow(Comp(u"1 ELM ST"_s, u"MINE"_s, u"FRONT VIEW|p%1\r\n"_s.arg(kFree + 1)));
    Photos wanted = Before();
    wanted[NameOf(kHeld)] = "a better one";
    wanted[NameOf(kFree)] = "one of my own";
    wanted[NameOf(kFree + 1)] = Picture(kFree + 1); // a record names it
    ExpectDirectory(wanted, 0);
}

TEST_F(ImportKill, APictureThatIsWriteProtectedIsTakenBackToo)
{
    globals.writeProtectPhotos = true;
    KillBeforeTheCommit([&](const TransferDesk& desk) { Import(desk, target, table); });
    EXPECT_NE(disk.GetAttr(File(kFree)) & files::ReadOnly, 0U);
    ExpectDirectory(Before(), 0);
}

TEST_F(ImportKill, IsNoneWhereItsProcessStillRunsOrIsAnotherMachines)
{
    KillBeforeTheCommit([&](const TransferDesk& desk) { Import(desk, target, table); });
    SetInJournal(u"started"_s, QString());
    SetInJournal(u"process"_s, static_cast<qint64>(getppid()));
    OpenAgain();
    EXPECT_TRUE(Directory(u"*.jpg"_s) == After());
    SetInJournal(u"process"_s, 999999999);
    SetInJournal(u"host"_s, u"another"_s);
    OpenAgain();
    EXPECT_TRUE(Directory(u"*.jpg"_s) == After());
    SetInJournal(u"host"_s, QSysInfo::machineHostName());
    ExpectDirectory(Before(), 0);
}

/// A Databook that can't be read tells nothing; nor does a file that only has the name of a list.
TEST_F(ImportKill, WaitsWhereNothingCanBeTold)
{
    KillBeforeTheCommit([&](const TransferDesk& desk) { Import(desk, target, table); });
    Bind(databook);
    globals.G_Table = u"NOTHING"_s;
    PictureJournal::Replay(Desk());
    globals.G_Table = table;
    databook.Close();
    EXPECT_TRUE(Directory(u"*.jpg"_s) == After());
    const QString journal = u"C:\\"_s + Journals().value(0);
    const QByteArray list = disk.ReadWhole(journal);
    disk.WriteWhole(journal, "my notes");
    OpenAgain();
    EXPECT_EQ(disk.ReadWhole(journal), "my notes");
    disk.WriteWhole(u"C:\\notes.txt"_s, "mine");
    const QString victim = disk.ToNative(u"C:\\notes.txt"_s);
    const FileMark mark = FileMark::Of(victim);
    disk.WriteWhole(journal, list);
    SetInJournal(u"pictures"_s, QJsonArray{QJsonObject{{u"file"_s, victim},
                                                      {u"waiting"_s, QString(victim + u".incoming1"_s)},
                                                      {u"kept"_s, QString()},
                                                      {u"bytes"_s, mark.bytes},
                                                      {u"changed"_s, mark.changed}}});
    OpenAgain();
    EXPECT_TRUE(disk.FileExists(u"C:\\notes.txt"_s)) << "it is no picture";
    disk.WriteWhole(journal, list);
    ExpectDirectory(Before(), 0);
}

} // namespace
} // namespace vasclip::upkeep
