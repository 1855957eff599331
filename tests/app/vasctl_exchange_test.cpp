// Records out of the Databook and back in: whole processes on a demo home.

#include "support/genuine_files.h"
#include "support/killed_import.h"
#include "support/processes.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotFound = 3;

class VasctlExchange : public testing::Test
{
protected:
    ProgramHome home;
    void SetUp() override { ASSERT_TRUE(home.Make()); }

    qint64 Records() const { return home.Vasctl({u"records"_s, u"list"_s}).Array().size(); }
    static QByteArray Bytes(const QString& native)
    {
        QFile file(native);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(VasctlExchange, BringsBackWhatWasExportedWithItsPicture)
{
    const QString target = u"C:\\DATABOOK\\EXPORT\\MAY.MDB"_s;
    const Ended out = home.Vasctl({u"export"_s, u"--file"_s, target, u"--table"_s, u"may"_s, u"--pictures"_s});
    ASSERT_EQ(out.code, kDone) << out.err.toStdString();
    const qint64 records = Records();
    EXPECT_EQ(out.Object()[u"records"_s].toInteger(), records);
    EXPECT_GT(out.Object()[u"pictures"_s].toInt(), 0);

    QString key;
    QString stem;
    for (const QJsonValue& row :
         home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, PHOTOS FROM COMPS WHERE PHOTOS LIKE 'FRONT VIEW|*'"_s}).Array()) {
        key = row.toObject()[u"CENTRALKEY"_s].toString().trimmed();
        stem = row.toObject()[u"PHOTOS"_s].toString().section(u'|', 1).section(u'\r', 0, 0);
    }
    const QJsonArray photos = home.Vasctl({u"photos"_s, u"list"_s, key}).Array();
    ASSERT_FALSE(photos.isEmpty()) << key.toStdString();
    ASSERT_EQ(home.Vasctl({u"records"_s, u"delete"_s, key, u"--yes"_s}).code, kDone);
    ASSERT_EQ(Records(), records - 1);

    const QByteArray before = Bytes(home.Native(u"DATABOOK/EXPORT/MAY.MDB"_s));
    const Ended in = home.Vasctl({u"import"_s, target, u"--table"_s, u"MAY"_s, u"--pictures"_s});
    ASSERT_EQ(in.code, kDone) << in.err.toStdString();
    EXPECT_EQ(in.Object()[u"added"_s].toInt(), 1);
    EXPECT_EQ(in.Object()[u"refused"_s].toArray().size(), records - 1);
    EXPECT_EQ(in.Object()[u"pictures"_s].toObject()[u"written"_s].toInt(), 1);
    EXPECT_EQ(Records(), records);
    EXPECT_EQ(home.Vasctl({u"photos"_s, u"list"_s, key}).Array().at(0).toObject()[u"size"_s],
              photos.at(0).toObject()[u"size"_s]);
    EXPECT_EQ(Bytes(home.Native(u"DATABOOK/EXPORT/MAY.MDB"_s)), before);
}

TEST_F(VasctlExchange, WritesCsv)
{
    const Ended out = home.Vasctl({u"export"_s, u"--file"_s, u"C:\\DATABOOK\\LIST"_s, u"--to"_s, u"csv"_s, u"--where"_s,
                                   u"CITY IS NOT NULL"_s, u"--delimiter"_s, u"tab"_s});
    ASSERT_EQ(out.code, kDone) << out.err.toStdString();
    const QByteArray csv = Bytes(home.Native(u"DATABOOK/LIST.csv"_s));
    EXPECT_TRUE(csv.startsWith("FRONT\t") || csv.contains("\tCITY\t")) << csv.left(80).toStdString();
    EXPECT_GT(out.Object()[u"records"_s].toInteger(), 0);
    EXPECT_GE(csv.count("\r\n"), out.Object()[u"records"_s].toInteger() + 1);
}

TEST_F(VasctlExchange, RehearsesACsvFileAndImportsByChoice)
{
    const QString key = home.Vasctl({u"records"_s, u"list"_s}).Array().at(0).toObject()[u"CENTRALKEY"_s].toString().trimmed();
    QFile file(home.Native(u"VAS2000/LIST.CSV"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Address;Pool;Price\n9876 Test Ln;yes;\"$250,000\"\n" + key.toUtf8() + ";kidney;1\n7 Bad Rd;;250K\n");
    file.close();
    const QStringList import{u"import"_s, u"C:\\VAS2000\\LIST.CSV"_s, u"--map"_s, u"Pool=NOTES"_s};
    const qint64 records = Records();
    const Ended look = home.Vasctl(import + QStringList{u"--rehearse"_s});
    ASSERT_EQ(look.code, kDone) << look.err.toStdString();
    QStringList kinds;
    for (const QJsonValue& row : look.Array())
        kinds.append(row.toObject()[u"kind"_s].toString());
    EXPECT_EQ(kinds, (QStringList{u"new"_s, u"changed"_s, u"refused"_s}));
    EXPECT_EQ(Records(), records);
    const Ended done = home.Vasctl(import + QStringList{u"--choose"_s, u"changed=theirs"_s});
    ASSERT_EQ(done.code, kDone) << done.err.toStdString();
    EXPECT_EQ(done.Object()[u"added"_s].toInt(), 1);
    EXPECT_EQ(done.Object()[u"changed"_s].toInt(), 1);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, key}).Object()[u"NOTES"_s].toString(), u"kidney"_s);
    EXPECT_EQ(home.Vasctl(import + QStringList{u"--choose"_s, u"same=add"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"import"_s, u"C:\\VAS2000\\LIST.CSV"_s, u"--map"_s, u"Nothing=NOTES"_s}).code, kUsage);
}

TEST_F(VasctlExchange, RefusesInWords)
{
    EXPECT_EQ(home.Vasctl({u"export"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"export"_s, u"--file"_s, u"X"_s, u"--to"_s, u"paper"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"export"_s, u"--file"_s, u"X"_s, u"--to"_s, u"csv"_s, u"--pictures"_s}).code, kUsage);
    const Ended protectedName = home.Vasctl({u"--plain"_s, u"export"_s, u"--file"_s, u"NEWDATA"_s});
    EXPECT_EQ(protectedName.code, kFailed);
    EXPECT_TRUE((protectedName.out + protectedName.err)
                    .contains("You cannot export to default (protected) installed database: NEWDATA "));
    EXPECT_EQ(home.Vasctl({u"export"_s, u"--file"_s, u"X"_s, u"--table"_s, u"msysobjects"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"export"_s, u"--file"_s, u"*"_s}).code, kFailed);
    EXPECT_EQ(home.Vasctl({u"import"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"import"_s, u"NONE.MDB"_s}).code, kNotFound);
    const Ended dashes = home.Vasctl({u"--plain"_s, u"import"_s, u"NO-NE.MDB"_s});
    EXPECT_EQ(dashes.code, kUsage) << "the name is looked at before the file";
    EXPECT_TRUE((dashes.out + dashes.err).contains("The file 'NO-NE.MDB' contains dashes (-)"));
    EXPECT_EQ(home.Vasctl({u"import"_s, u"C:\\DATABOOK\\DATABOOK.MDB"_s}).code, kUsage);
}

TEST_F(VasctlExchange, AConditionThatIsNoneIsToldAndNothingIsWritten)
{
    struct Row
    {
        QString where;
        QByteArray words;
    };
    const Row rows[] = {
        {u""_s, "--where wants a condition"},
        {u"  "_s, "--where wants a condition"},
        {u"ORDER BY CITY"_s, "'ORDER BY CITY' only sorts, which leaves no record out"},
        {u" order  by NOSUCH"_s, "only sorts, which leaves no record out"},
        {u"1=1; DROP TABLE COMPS"_s, "Syntax error at position 4, near \"; DROP TABLE COMPS\": the condition should end here"},
        {u"1=1;"_s, "Syntax error at position 4"},
        {u"1=1) OR (1=1"_s, "Syntax error at position 4, near \") OR (1=1\": the condition should end here"},
        {u"(CITY = 'Marlow'"_s, "')' is missing"},
        {u"CITY = 'Mar"_s, "Syntax error at position 8, near \"'Mar\": the text that begins with this quote does not end"},
        {u"NOSUCH = 1"_s, "The table 'COMPS' has no field 'NOSUCH' (error 3061)"},
        {u"CITY = 'x' ORDER BY NOSUCH"_s, "The table 'COMPS' has no field 'NOSUCH' (error 3061)"},
        {u"CITY"_s, "'CITY' is no condition for --where: compare it with something"},
        {u"'Marlow'"_s, "''Marlow'' is no condition for --where: compare it with something"},
        {u"GLA + 1"_s, "compare it with something"},
        {u"COUNT(*) > 1"_s, "a count or sum can not stand in a condition"},
        {u"WHERE CITY = 'x'"_s, "Syntax error at position 1"},
        {u"1=1 UNION SELECT * FROM COMPS"_s, "Syntax error at position 5"},
        {u"CITY IN (SELECT CITY FROM COMPS)"_s, "Syntax error"},
    };
    const QStringList before = QDir(home.Native(u"DATABOOK"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    const QString out = home.Native(u"OUT.pdf"_s);
    for (const Row& row : rows)
        for (const QStringList& command :
             {QStringList{u"export"_s, u"--file"_s, u"C:\\NEW\\X.MDB"_s}, QStringList{u"export"_s, u"--file"_s, u"C:\\NEW\\X.CSV"_s, u"--to"_s, u"csv"_s},
              QStringList{u"print"_s, u"--layout"_s, u"brief"_s, u"--out"_s, out}, QStringList{u"records"_s, u"list"_s}}) {
            const Ended ended = home.Vasctl(QStringList{u"--plain"_s} + command + QStringList{u"--where"_s, row.where});
            EXPECT_EQ(ended.code, kUsage) << command[0].toStdString() << ' ' << row.where.toStdString();
            EXPECT_TRUE(ended.err.contains(row.words)) << row.where.toStdString() << ": " << ended.err.toStdString();
            EXPECT_TRUE(ended.out.isEmpty());
        }
    EXPECT_FALSE(QFile::exists(home.Native(u"NEW"_s)));
    EXPECT_FALSE(QFile::exists(out));
    EXPECT_EQ(QDir(home.Native(u"DATABOOK"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
    EXPECT_EQ(Records(), 60);
}

TEST_F(VasctlExchange, AConditionMayBeFollowedByASort)
{
    const QString file = u"C:\\DATABOOK\\SORTED.csv"_s;
    const Ended ended = home.Vasctl({u"export"_s, u"--file"_s, file, u"--to"_s, u"csv"_s, u"--where"_s,
                                     u"CENTRALKEY <> '' ORDER BY CENTRALKEY DESC"_s});
    ASSERT_EQ(ended.code, kDone) << ended.err.toStdString();
    EXPECT_EQ(ended.Object()[u"records"_s].toInt(), 60);
    const Ended printed = home.Vasctl({u"print"_s, u"--layout"_s, u"brief"_s, u"--csv"_s, home.Native(u"P.csv"_s), u"--where"_s,
                                       u"TRUE ORDER BY CITY"_s});
    EXPECT_EQ(printed.code, kDone) << printed.err.toStdString();
    EXPECT_EQ(printed.Object()[u"records"_s].toInt(), 60);
}

TEST_F(VasctlExchange, AnAccessFileLosesItsSavedQueriesOnlyWithAYes)
{
    if (GenuineFiles().isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    const QString native = home.Native(u"DATABOOK/EXPORT/QUERIES.MDB"_s);
    QDir().mkpath(home.Native(u"DATABOOK/EXPORT"_s));
    ASSERT_TRUE(CopyGenuineFile(u"queryTestV2003.mdb"_s, native));
    const QByteArray before = Bytes(native);
    const QStringList command{u"export"_s, u"--file"_s, u"QUERIES.MDB"_s, u"--table"_s, u"MAY"_s};
    const Ended kept = home.Vasctl(QStringList{u"--plain"_s} + command);
    EXPECT_EQ(kept.code, 4) << kept.err.toStdString();
    EXPECT_TRUE(kept.err.contains("not all that is in it can be written again")) << kept.err.toStdString();
    EXPECT_EQ(kept.err.count("the saved query "), 9) << kept.err.toStdString();
    EXPECT_FALSE(kept.err.contains("old file")) << kept.err.toStdString();
    EXPECT_EQ(Bytes(native), before);
    const Ended lost = home.Vasctl(QStringList{u"--plain"_s, u"--yes"_s} + command);
    ASSERT_EQ(lost.code, kDone) << lost.err.toStdString();
    EXPECT_TRUE(lost.out.contains("60 records were exported to table MAY of C:\\DATABOOK\\EXPORT\\QUERIES.MDB.")) << lost.out.toStdString();
    EXPECT_TRUE(lost.out.contains(" The file has no more: the saved query ")) << lost.out.toStdString();
    EXPECT_FALSE((lost.out + lost.err).contains("old file")) << lost.out.toStdString();
    const Ended tables = home.Vasctl({u"sql"_s, u"--file"_s, u"C:\\DATABOOK\\EXPORT\\QUERIES.MDB"_s});
    EXPECT_EQ(tables.Array().size(), 4) << tables.out.toStdString();
}

/// Ends a process at some moment of its work. @return false if it was done before that
bool KilledIn(const ProgramHome& home, const QStringList& arguments, int milliseconds)
{
    QProcess process;
    process.setProcessEnvironment(home.environment);
    process.start(ProgramHome::Program(u"vasctl"_s), QStringList{u"--home"_s, home.Path()} + arguments);
    process.closeWriteChannel();
    if (!process.waitForStarted())
        return false;
    const bool done = process.waitForFinished(milliseconds);
    process.kill();
    process.waitForFinished();
    return !done;
}

int Kills()
{
    const int asked = qEnvironmentVariableIntValue("VASCLIP_KILLS");
    return asked > 0 ? asked : 12;
}

/// In milliseconds: dense where a fast machine is at work, and later for a slow one. The first comes before anything is done.
int MomentOf(int round)
{
    return 5 + round * (round + 7) % 450;
}

TEST_F(VasctlExchange, LeavesTheTargetAsItWasOrWholeWhenKilledInAnExport)
{
    const QString target = u"C:\\DATABOOK\\EXPORT\\KILL.MDB"_s;
    ASSERT_EQ(home.Vasctl({u"export"_s, u"--file"_s, target, u"--where"_s, u"CENTRALKEY < 'A'"_s}).code, kDone);
    const QByteArray before = Bytes(home.Native(u"DATABOOK/EXPORT/KILL.MDB"_s));
    int killed = 0;
    for (int round = 0; round < Kills(); ++round) {
        killed += KilledIn(home, {u"export"_s, u"--file"_s, target, u"--pictures"_s}, MomentOf(round));
        const QByteArray after = Bytes(home.Native(u"DATABOOK/EXPORT/KILL.MDB"_s));
        if (after == before)
            continue;
        const Ended whole = home.Vasctl({u"import"_s, target, u"--rehearse"_s});
        ASSERT_EQ(whole.code, kDone) << whole.err.toStdString();
        EXPECT_EQ(whole.Array().size(), Records());
        break; // it was done: the next kill would find another file before it
    }
    EXPECT_GT(killed, 0);
    ASSERT_EQ(home.Vasctl({u"export"_s, u"--file"_s, target}).code, kDone);
    EXPECT_EQ(QDir(home.Native(u"DATABOOK/EXPORT"_s)).entryList({u"KILL*"_s}, QDir::Files), QStringList{u"KILL.MDB"_s});
}

TEST_F(VasctlExchange, BringsAllRowsOrNoneWhenKilledInAnImport)
{
    const QString target = u"C:\\DATABOOK\\EXPORT\\KILL.MDB"_s;
    ASSERT_EQ(home.Vasctl({u"export"_s, u"--file"_s, target, u"--pictures"_s}).code, kDone);
    const qint64 all = Records();
    int keep = 0;
    for (const QJsonValue& row : home.Vasctl({u"records"_s, u"list"_s}).Array())
        if (++keep > 20)
            (void)home.Vasctl({u"records"_s, u"delete"_s, row.toObject()[u"CENTRALKEY"_s].toString().trimmed(), u"--yes"_s});
    const qint64 few = Records();
    ASSERT_LT(few, all);
    const QByteArray source = Bytes(home.Native(u"DATABOOK/EXPORT/KILL.MDB"_s));
    int killed = 0;
    for (int round = 0; round < Kills() && Records() == few; ++round) {
        killed += KilledIn(home, {u"import"_s, target, u"--pictures"_s, u"--yes"_s}, MomentOf(round));
        const qint64 now = Records();
        EXPECT_TRUE(now == few || now == all) << now;
        EXPECT_EQ(Bytes(home.Native(u"DATABOOK/EXPORT/KILL.MDB"_s)), source);
    }
    EXPECT_GT(killed, 0);
    ASSERT_EQ(home.Vasctl({u"import"_s, target, u"--pictures"_s, u"--yes"_s}).code, kDone);
    EXPECT_EQ(Records(), all);
    EXPECT_EQ(QDir(home.Native(u"VASCLIPS/JPG"_s)).entryList({u"*.incoming*"_s}, QDir::Files), QStringList());
}

TEST_F(VasctlExchange, WhatAKilledImportLeftIsUndoneWhereTheDatabookIsOpened)
{
    const KilledImport left(home.Native(u"DATABOOK/DATABOOK.MDB"_s), home.Native(u"VASCLIPS/JPG"_s));
    ASSERT_EQ(home.Vasctl({u"settings"_s, u"list"_s}).code, kDone);
    ASSERT_TRUE(left.IsThere());
    EXPECT_GT(Records(), 0);
    EXPECT_TRUE(left.IsUndone());
}

} // namespace
