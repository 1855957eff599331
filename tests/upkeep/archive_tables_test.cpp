#include "upkeep/frm_archive_home.h"

#include "databook/frm_calendar.h"

#include <QSet>

namespace vasclip::upkeep {
namespace {

/// Archives whose table is not quite the Databook's.
class ArchiveTables : public ArchiveHome
{
protected:
    void Table(const std::function<void(engine::TableDef&)>& edit)
    {
        disk.Kill(archive);
        engine::TableDef made = store::CompsTable();
        edit(made);
        const auto database = engine.CreateDatabase(archive);
        database->CreateTable(made);
        database->Close();
    }
    void Only(const QString& field, const std::function<void(engine::Field&)>& edit)
    {
        Table([&](engine::TableDef& made) {
            for (engine::Field& one : made.fields)
                if (one.name == field)
                    edit(one);
        });
    }
    [[nodiscard]] QString Held(const QString& field)
    {
        const auto rows = engine.OpenDatabase(archive)->OpenRecordset(table, engine::RecordsetType::Table);
        return rows->Eof() ? u"<no record>"_s : rows->Value(field).toString().trimmed();
    }
};

TEST_F(ArchiveTables, EveryFieldOfTheRecordGoesAlsoWhereTheyStandInAnotherOrder)
{
    Table([](engine::TableDef& made) { std::ranges::reverse(made.fields); });
    Values values{{key, u"1 A ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/1995"_s}};
    int number = 0;
    for (const engine::Field& field : store::CompsTable().fields)
        if (const bool isText = field.type == engine::FieldType::Text || field.type == engine::FieldType::Memo;
            isText && field.name != key && field.name != u"SALEDATE"_s && field.name != u"PHOTOS"_s)
            values.append({field.name, QString::number(++number).left(field.size > 0 ? field.size : 9)});
    ASSERT_GT(number, 100);
    AddRow(values);
    EXPECT_EQ(Run().moved, 1);
    for (const auto& [field, value] : std::as_const(values))
        EXPECT_EQ(Held(field), value.trimmed()) << field.toStdString();
}

TEST_F(ArchiveTables, ATableWithoutAKeyTakesNothingAway)
{
    Table([&](engine::TableDef& made) {
        made.fields.removeIf([&](const engine::Field& field) { return field.name == key; });
        made.indexes.clear();
    });
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    try {
        const Archived done = Run();
        EXPECT_EQ(done.moved, 0) << WordsOf(done, archive).toStdString();
    } catch (const RuntimeError& refused) {
        EXPECT_TRUE(refused.Description().contains(key)) << refused.Description().toStdString();
    }
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
}

TEST_F(ArchiveTables, AValueThatItsKindOfFieldDoesNotTakeKeepsItsRecordHere)
{
    Only(u"GLA"_s, [](engine::Field& field) {
        field.type = engine::FieldType::Double;
        field.size = 0;
    });
    AddRow({{key, u"1 A ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/1995"_s}, {u"GLA"_s, u"2000"_s}});
    AddRow({{key, u"2 B ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/1995"_s}, {u"GLA"_s, u"2,000 sf"_s}});
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1) << WordsOf(done, archive).toStdString();
    ASSERT_EQ(done.left.size(), 1);
    EXPECT_EQ(done.left[0], u"2 B ST: the archive's field GLA is of a kind that does not take \"2,000 sf\"; the record stays"_s);
    EXPECT_EQ(Here(), QStringList{u"2 B ST"_s});
    EXPECT_EQ(Held(u"GLA"_s), u"2000"_s);
}

TEST_F(ArchiveTables, ADateForWhichTheArchiveHasADayAndNoTextStaysHere)
{
    Only(u"CONTRKDATE"_s, [](engine::Field& field) {
        field.type = engine::FieldType::Date;
        field.size = 0;
    });
    ASSERT_TRUE(std::ranges::any_of(store::CompsTable().fields, [](const engine::Field& field) { return field.name == u"CONTRKDATE"_s; }));
    AddRow({{key, u"1 A ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/1995"_s}, {u"CONTRKDATE"_s, u"04/04/1995"_s}});
    AddRow({{key, u"2 B ST"_s.leftJustified(35)}, {u"SALEDATE"_s, u"05/05/1995"_s}});
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1);
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_EQ(done.left.size(), 1);
}

TEST_F(ArchiveTables, ARecordWithoutAKeyIsPassedOver)
{
    AddRow({{key, u" "_s}, {u"SALEDATE"_s, u"05/05/1995"_s}});
    Comp(u"1 A ST"_s, u"05/05/1995"_s);
    const Archived done = Run();
    EXPECT_EQ(done.moved, 1);
    EXPECT_TRUE(done.left.isEmpty()) << done.left.join(u'|').toStdString();
    EXPECT_EQ(In(path).size(), 1);
}

class ArchiveFiles : public FrmArchive
{
protected:
    void Archive()
    {
        Dates(u"1/1/1990"_s, u"12/31/1999"_s);
        doubles.prompter.Answer(forms::Answer::Yes);
        Click(screen->cmdarchive);
        EXPECT_TRUE(doubles.prompter.AllAnswered());
    }
    void ExpectNothingMoved()
    {
        EXPECT_TRUE(Says().endsWith(u" Nothing was moved."_s)) << Says().toStdString();
        EXPECT_EQ(doubles.prompter.Last().title, u"Error"_s);
        EXPECT_EQ(Here(), (QStringList{u"1 A ST"_s, u"2 B ST"_s}));
        EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
        EXPECT_FALSE(disk.DirExists(pictures));
        EXPECT_TRUE(screen->cmdarchive.Enabled());
        EXPECT_EQ(letGo, shown);
    }
};

TEST_F(ArchiveFiles, OneThatIsNoDatabaseStaysWhatItIs)
{
    disk.WriteWhole(archive, "a letter to the office");
    Archive();
    ExpectNothingMoved();
    EXPECT_EQ(disk.ReadWhole(archive), "a letter to the office");
}

TEST_F(ArchiveFiles, OneThatIsCutShortTakesNothing)
{
    QFile file(disk.ToNative(archive));
    ASSERT_TRUE(file.resize(file.size() / 2));
    Archive();
    ExpectNothingMoved();
}

TEST_F(ArchiveFiles, OneThatMayNotBeWrittenTakesNothing)
{
    disk.SetAttr(archive, files::ReadOnly);
    Archive();
    EXPECT_EQ(Here(), (QStringList{u"1 A ST"_s, u"2 B ST"_s})) << Says().toStdString();
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\A.jpg"_s));
    EXPECT_EQ(screen->lblmsg.Fore(), forms::Colour::Red) << Says().toStdString();
    EXPECT_TRUE(There().isEmpty());
    disk.SetAttr(archive, files::Normal);
}

TEST_F(ArchiveFiles, OneThatIsTakenAwayWhileItAsksTakesNothing)
{
    OpenScreen(hooked);
    Dates(u"1/1/1990"_s, u"12/31/1999"_s);
    asked.onBox = [&](const QString& text) {
        if (text.startsWith(u"Do you wish to append"_s))
            disk.Kill(archive);
    };
    asked.Answer(forms::Answer::Yes);
    Click(screen->cmdarchive);
    const bool made = disk.FileExists(archive);
    const QStringList there = made ? There() : QStringList();
    EXPECT_EQ((Here() + there).size(), 2) << Says().toStdString();
    EXPECT_FALSE(Says().isEmpty());
}

TEST_F(ArchiveFiles, TheGaugeGoesOnAndTheCountsAreShownMeanwhile)
{
    for (int i = 3; i <= 6; ++i)
        Comp(u"%1 C ST"_s.arg(i), u"05/05/1996"_s);
    QSet<int> seen;
    QStringList counts;
    doubles.pump.onTurn = [&] {
        EXPECT_TRUE(screen->gauWork.Visible());
        EXPECT_TRUE(screen->gauWork.Caption().startsWith(u"Record "_s));
        seen.insert(screen->gauWork.Value());
        counts.append(screen->lblCountMoved.Caption());
    };
    Archive();
    doubles.pump.onTurn = {};
    EXPECT_EQ(seen.size(), 6);
    counts.removeDuplicates();
    EXPECT_EQ(counts, (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    EXPECT_FALSE(screen->gauWork.Visible());
}

TEST_F(ArchiveFiles, AnErrorInTheMiddleIsReported)
{
    engine.SetLockWait(50);
    engine::Engine other{disk, tests::SomeTime()};
    std::shared_ptr<engine::Database> theirs;
    doubles.pump.onTurn = [&] {
        if (theirs)
            return;
        theirs = other.OpenDatabase(path);
        theirs->BeginTrans();
        theirs->Execute(u"UPDATE COMPS SET CITY = 'Theirs' WHERE CENTRALKEY = '2 B ST'"_s);
    };
    Archive();
    doubles.pump.onTurn = {};
    ASSERT_NE(theirs, nullptr);
    theirs->Rollback();
    theirs->Close();
    EXPECT_EQ(doubles.prompter.Last().title, u"Error"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"in module "_s)) << doubles.prompter.Last().text.toStdString();
    EXPECT_TRUE(Says().startsWith(u"It ended at 1 A ST: "_s)) << Says().toStdString();
    EXPECT_EQ(Here().size(), 2);
}

TEST_F(ArchiveFiles, TheCalendarsFillTheirOwnBox)
{
    for (const auto& [button, box, title] : {std::tuple{&screen->imastart, &screen->txtstartdate, u"Start Date"_s},
                                             {&screen->imastop, &screen->txtenddate, u"Stop Date"_s}}) {
        doubles.screens.Play([&, title = title](forms::Screen& shown) {
            auto& calendar = dynamic_cast<databook::frm_Calendar&>(shown);
            EXPECT_EQ(calendar.Caption(), title);
            calendar.calCalendar.SetValue(QDate(1994, 3, 7));
            Q_EMIT calendar.cmdOk.Clicked();
        });
        Q_EMIT button->Clicked();
        EXPECT_EQ(box->Text(), u"03/07/1994"_s) << title.toStdString();
        box->SetText({});
    }
}

TEST_F(ArchiveFiles, TheNameOfTheSettingsGetsItsEndingWhenTheWindowOpens)
{
    for (const auto& [set, shown] : {std::pair{u"YEARS"_s, u"YEARS.MDB"_s}, {u"Y.1990"_s, u"Y1990.MDB"_s}}) {
        globals.G_ArchiveFile = set;
        OpenScreen(ports);
        EXPECT_EQ(screen->txtFileName.Text(), shown);
        EXPECT_FALSE(screen->ckbDateStamp.Value());
    }
}

TEST_F(ArchiveFiles, DeleteRefusesWhatAnExportsDeleteRefuses)
{
    const auto refusal = [&] {
        Click(screen->cmddelete);
        return doubles.prompter.Last().title + u'|' + doubles.prompter.Last().text;
    };
    engine::Engine other{disk, tests::SomeTime()};
    const auto theirs = other.OpenDatabase(archive);
    EXPECT_EQ(refusal(), u"User not allowed to delete database|The selected database is LOCKED (by you or another user). Make "
                         "sure all users are not currenlty connected to C:\\ARCHIVE\\OLD.MDB before attempting to delete this "
                         "database file!"_s);
    theirs->Close();
    disk.FileCopy(path, u"C:\\ARCHIVE\\MINE.MDB"_s);
    source.Open(u"C:\\ARCHIVE\\MINE.MDB"_s, table, store::SourceKind::Table);
    screen->txtFileName.SetText(u"mine.mdb"_s);
    EXPECT_EQ(refusal(), u"User not allowed to delete database|You cannot delete currently open database "
                         "(C:\\ARCHIVE\\MINE.MDB)!"_s);
    EXPECT_TRUE(disk.FileExists(archive));
    EXPECT_TRUE(disk.FileExists(u"C:\\ARCHIVE\\MINE.MDB"_s));
}

TEST_F(ArchiveFiles, OneThatIsOpenedWhileItsDeletionIsAskedAboutStays)
{
    OpenScreen(hooked);
    engine::Engine other{disk, tests::SomeTime()};
    std::shared_ptr<engine::Database> theirs;
    asked.onBox = [&](const QString& text) {
        if (text.startsWith(u"Delete "_s))
            theirs = other.OpenDatabase(archive);
    };
    asked.Answer(forms::Answer::Yes);
    Click(screen->cmddelete);
    ASSERT_NE(theirs, nullptr);
    EXPECT_TRUE(asked.Last().text.startsWith(u"The selected database is LOCKED"_s));
    EXPECT_TRUE(disk.FileExists(archive));
    theirs->Close();
}

TEST_F(ArchiveFiles, CreateListsTheTablesOfTheNewFile)
{
    {
        engine::TableDef older = store::CompsTable();
        older.name = u"OLDER"_s;
        const auto database = engine.CreateDatabase(u"C:\\ARCHIVE\\SIXTIES.MDB"_s);
        database->CreateTable(older);
        database->Close();
    }
    screen->txtFileName.SetText(u"SIXTIES.MDB"_s);
    Q_EMIT screen->txtFileName.LostFocus();
    EXPECT_EQ(screen->lstTables.Items(), QStringList{u"OLDER"_s});
    doubles.prompter.AnswerDialog(u"C:\\ARCHIVE\\SEVENTIES"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdcreate);
    EXPECT_EQ(screen->lstTables.Items(), QStringList{table});
    EXPECT_EQ(screen->lstdatabases.Items(), (QStringList{u"OLD.MDB"_s, u"SEVENTIES.MDB"_s, u"SIXTIES.MDB"_s}));
}

} // namespace
} // namespace vasclip::upkeep
