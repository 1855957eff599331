// A Databook that is not what it should be: each command says so, with what, where and what to do.

#include "faults/fault_home.h"
#include "support/genuine_files.h"

namespace vasclip::tests {

using namespace Qt::Literals::StringLiterals;

namespace {

class DatabookFaults : public FaultHome
{
protected:
    /// The three roads to the Databook: bound to the window's source, changed, and opened for reading alone.
    void ExpectAllSay(const QString& words, const QString& fault)
    {
        for (const QStringList& command :
             {QStringList{u"records"_s, u"list"_s}, QStringList{u"records"_s, u"add"_s, u"1 New Rd"_s},
              QStringList{u"sql"_s, u"SELECT * FROM COMPS"_s}}) {
            const Timed run = Vasctl(command);
            EXPECT_EQ(run.code, kFailed) << fault.toStdString() << ": " << run.Story();
            EXPECT_TRUE(run.Says(words)) << fault.toStdString() << ": " << run.Story();
            EXPECT_TRUE(run.out.isEmpty()) << fault.toStdString() << ": " << run.Story();
        }
    }
    void ExpectDoctorFinds(const QString& words)
    {
        const Ended doctor = home.Vasctl({u"doctor"_s});
        EXPECT_EQ(doctor.code, kFailed);
        bool found = false;
        for (const QJsonValue& value : doctor.Array()) {
            const QJsonObject finding = value.toObject();
            found = found || (finding[u"subject"_s].toString() == u"Databook"_s &&
                              finding[u"state"_s].toString() == u"wrong"_s &&
                              finding[u"finding"_s].toString().contains(words));
        }
        EXPECT_TRUE(found) << doctor.out.toStdString();
    }
};

TEST_F(DatabookFaults, AMissingOneHasItsMessageAndNoneIsMadeInItsPlace)
{
    ASSERT_TRUE(QFile::remove(Databook()));
    Remember();
    const QString exact =
        u"The file C:\\DATABOOK\\DATABOOK.MDB was not found.  This file must be present for "
        u"this program to work properly.  Please correct and try again."_s;
    for (const QStringList& command :
         {QStringList{u"records"_s, u"list"_s}, QStringList{u"records"_s, u"add"_s, u"1 New Rd"_s}}) {
        const Timed run = Vasctl(command);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(exact)) << run.Story();
    }
    const Timed query = Vasctl({u"sql"_s, u"SELECT * FROM COMPS"_s});
    EXPECT_EQ(query.code, kFailed);
    EXPECT_TRUE(query.Says(u"C:\\DATABOOK\\DATABOOK.MDB"_s)) << query.Story();
    EXPECT_FALSE(QFile::exists(Databook()));
    ExpectWhole(u"asking for a missing Databook"_s);
}

TEST_F(DatabookFaults, WhatIsNoDatabookIsNamedAndLeftAsItIs)
{
    const QByteArray whole = Bytes(Databook());
    ASSERT_GT(whole.size(), 40000);
    QByteArray jetHeader("\0\1\0\0Standard Jet DB\0\1", 21);
    jetHeader.append(QByteArray(4096 - jetHeader.size(), '\0'));
    struct Row
    {
        QString fault;
        QByteArray bytes;
        QString words;
    };
    const Row rows[] = {
        {u"empty"_s, {}, u"The file C:\\DATABOOK\\DATABOOK.MDB is empty and not a database. Restore it"_s},
        {u"cut in a page"_s, whole.left(20001), u"is damaged: only 20001 of its"_s},
        {u"cut behind its header"_s, whole.left(4096), u"is damaged: only 4096 of its"_s},
        {u"cut in its header"_s, whole.left(60), u"C:\\DATABOOK\\DATABOOK.MDB"_s},
        {u"a text file"_s, "Dear diary, today I sold a house.\r\n", u"is a text file and not a database"_s},
        {u"of the old engine"_s, jetHeader,
         u"The Access database C:\\DATABOOK\\DATABOOK.MDB is damaged"_s},
    };
    for (const Row& row : rows) {
        ASSERT_TRUE(Write(Databook(), row.bytes));
        Remember();
        ExpectAllSay(row.words, row.fault);
        ExpectDoctorFinds(row.words);
        ExpectWhole(row.fault);
    }
}

TEST_F(DatabookFaults, AnAccessFileWithoutCompsIsNamedAndLeftAsItIs)
{
    const QDir genuine(GenuineFiles());
    if (GenuineFiles().isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    const QString files[] = {u"testV1997.mdb"_s, u"testV2000.mdb"_s};
    for (const QString& file : files) {
        ASSERT_TRUE(Write(Databook(), Bytes(genuine.filePath(file))));
        Remember();
        for (const QStringList& command :
             {QStringList{u"records"_s, u"list"_s}, QStringList{u"records"_s, u"add"_s, u"1 New Rd"_s},
              QStringList{u"sql"_s, u"SELECT * FROM COMPS"_s}}) {
            const Timed run = Vasctl(command);
            EXPECT_NE(run.code, kDone) << file.toStdString() << ": " << run.Story();
            EXPECT_TRUE(run.Says(u"There is no table 'COMPS' in C:\\DATABOOK\\DATABOOK.MDB"_s)) << run.Story();
            EXPECT_TRUE(run.out.isEmpty()) << file.toStdString() << ": " << run.Story();
        }
        ExpectWhole(file);
    }
}

TEST_F(DatabookFaults, AReadOnlyOneIsReadAndNotWritten)
{
    const QString key = FirstKey();
    ASSERT_TRUE(QFile::setPermissions(Databook(), QFile::ReadOwner));
    EXPECT_EQ(Vasctl({u"records"_s, u"show"_s, key}).code, kDone);
    EXPECT_EQ(Vasctl({u"sql"_s, u"SELECT COUNT(*) FROM COMPS"_s}).code, kDone);
    for (const QStringList& command :
         {QStringList{u"add"_s, u"1 New Rd"_s}, QStringList{u"edit"_s, key, u"--set"_s, u"CITY=Elsewhere"_s},
          QStringList{u"copy"_s, key, u"1 New Rd"_s}, QStringList{u"rename"_s, key, u"1 New Rd"_s},
          QStringList{u"delete"_s, key, u"--yes"_s}}) {
        const Timed run = Vasctl(QStringList{u"records"_s} + command);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(u"C:\\DATABOOK\\DATABOOK.MDB is read-only"_s)) << run.Story();
        EXPECT_TRUE(run.Says(u"rights"_s)) << run.Story();
    }
    ExpectWhole(u"writing to a read-only Databook"_s);
    ASSERT_TRUE(QFile::setPermissions(Databook(), QFile::ReadOwner | QFile::WriteOwner));
    EXPECT_EQ(Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s}).code, kDone);
}

TEST_F(DatabookFaults, OneOpenedExclusivelyNamesItsUser)
{
    Helper other;
    ASSERT_TRUE(other.Start(u"" VASCLIP_ENGINE_USER ""_s,
                            {home.Path(), u"C:\\DATABOOK\\DATABOOK.MDB"_s, u"hold"_s, u"exclusive"_s}));
    ExpectAllSay(u"The file C:\\DATABOOK\\DATABOOK.MDB is opened exclusively by"_s, u"opened exclusively"_s);
    ExpectWhole(u"asking for a Databook that is opened exclusively"_s);
    other.End();
    EXPECT_EQ(Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s}).code, kDone)
        << "a killed user locks nobody out";
}

TEST_F(DatabookFaults, OneThatCanNotBeReadForALockIsGivenUpAndCalledWhole)
{
    Helper other;
    ASSERT_TRUE(other.Start(QCoreApplication::applicationFilePath(), {u"--hold-lock"_s, Databook()}));
    for (const QStringList& command : {QStringList{u"records"_s, u"add"_s, u"1 New Rd"_s},
                                       QStringList{u"records"_s, u"list"_s}, QStringList{u"find"_s, u"oak"_s}}) {
        const Timed run = Vasctl(command);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(u"Could not read; currently locked by another user"_s)) << run.Story();
        EXPECT_TRUE(run.Says(u"Try again when the other user is done with C:\\DATABOOK\\DATABOOK.MDB"_s))
            << run.Story();
        EXPECT_FALSE(run.Says(u"corrupt"_s)) << run.Story();
        EXPECT_LT(run.seconds, 20) << run.Story();
    }
    ExpectWhole(u"asking for a locked Databook"_s);
    other.End();
    EXPECT_EQ(Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s}).code, kDone);
}

TEST_F(DatabookFaults, ALockThatEndsIsWaitedFor)
{
    struct Row
    {
        const char* held;
        QStringList command;
        int code;
    };
    for (const Row& row : {Row{"2", {u"records"_s, u"list"_s}, kDone},
                           Row{"2", {u"records"_s, u"add"_s, u"1 New Rd"_s}, kDone},
                           Row{"7", {u"--answer"_s, u"retry"_s, u"records"_s, u"list"_s}, kDone},
                           Row{"60", {u"records"_s, u"list"_s}, kFailed}}) {
        Helper other;
        ASSERT_TRUE(other.Start(QCoreApplication::applicationFilePath(),
                                {u"--hold-lock"_s, Databook(), QString::fromLatin1(row.held)}));
        const Timed run = Vasctl(row.command);
        EXPECT_EQ(run.code, row.code) << row.held << ": " << run.Story();
        EXPECT_GT(run.seconds, 1) << row.held << ": " << run.Story();
    }
}

/// A page of the Databook in which records stand is overwritten.
class DamagedDatabook : public DatabookFaults
{
protected:
    void SetUp() override
    {
        DatabookFaults::SetUp();
        key = FirstKey();
        QByteArray bytes = Bytes(Databook());
        const qsizetype page = bytes.lastIndexOf(home.Vasctl({u"records"_s, u"list"_s})
                                                     .Array()
                                                     .last()
                                                     .toObject()[u"CENTRALKEY"_s]
                                                     .toString()
                                                     .toUtf8()) /
                               4096 * 4096;
        ASSERT_GT(page, 4096);
        bytes.replace(page, 4096, QByteArray(4096, '\x5A'));
        ASSERT_TRUE(Write(Databook(), bytes));
        Remember();
    }
    QString key;
};

TEST_F(DamagedDatabook, IsToldByDoctorAndNotWritten)
{
    ExpectDoctorFinds(u"C:\\DATABOOK\\DATABOOK.MDB is damaged: "_s);
    ExpectDoctorFinds(u"'vasctl databook copy FILE'"_s);
    for (const QStringList& command :
         {QStringList{u"add"_s, u"1 New Rd"_s}, QStringList{u"edit"_s, key, u"--set"_s, u"CITY=Elsewhere"_s},
          QStringList{u"delete"_s, key, u"--yes"_s}}) {
        const Timed run = Vasctl(QStringList{u"records"_s} + command);
        EXPECT_EQ(run.code, kFailed) << run.Story();
        EXPECT_TRUE(run.Says(u"C:\\DATABOOK\\DATABOOK.MDB is damaged"_s)) << run.Story();
        EXPECT_TRUE(run.Says(u"vasctl databook copy FILE"_s)) << run.Story();
    }
    ExpectWhole(u"writing to a damaged Databook"_s);
}

TEST_F(DamagedDatabook, IsCopiedAsFarAsItCanBeRead)
{
    const Timed run = Vasctl({u"databook"_s, u"copy"_s, u"SAVED.MDB"_s});
    EXPECT_EQ(run.code, kFailed) << "not all of it: " << run.Story();
    EXPECT_TRUE(run.out.contains("of C:\\DATABOOK\\DATABOOK.MDB were copied to C:\\DATABOOK\\SAVED.MDB."))
        << run.Story();
    EXPECT_TRUE(run.out.contains(" could not be read.")) << run.Story();
    ExpectWhole(u"copying a damaged Databook"_s);
    EXPECT_EQ(Vasctl({u"databook"_s, u"copy"_s, u"SAVED.MDB"_s}).code, kFailed) << "it is there already";
    EXPECT_EQ(Vasctl({u"databook"_s, u"copy"_s}).code, kUsage);
    EXPECT_TRUE(run.out.contains("'vasctl settings set DIRECTORIES DATAFILE \"SAVED.MDB\"' lets the program open it."))
        << run.Story();
    const Timed elsewhere = Vasctl({u"databook"_s, u"copy"_s, u"C:\\VASSNAP\\SAVED.MDB"_s});
    EXPECT_TRUE(elsewhere.out.contains("'vasctl settings set DIRECTORIES DATADIR \"C:\\VASSNAP\\\"' and 'vasctl settings set "
                                       "DIRECTORIES DATAFILE \"SAVED.MDB\"' let the program open it."))
        << elsewhere.Story();
    ASSERT_EQ(Vasctl({u"settings"_s, u"set"_s, u"DIRECTORIES"_s, u"DATAFILE"_s, u"SAVED.MDB"_s}).code, kDone);
    EXPECT_EQ(Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s}).code, kDone);
    EXPECT_GT(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 30);
    const Timed doctor = Vasctl({u"doctor"_s});
    EXPECT_FALSE(doctor.out.contains("damaged")) << doctor.Story();
}

TEST_F(DatabookFaults, AnotherUsersHalfDoneChangeIsWaitedForAndTold)
{
    Helper other;
    ASSERT_TRUE(other.Start(u"" VASCLIP_ENGINE_USER ""_s,
                            {home.Path(), u"C:\\DATABOOK\\DATABOOK.MDB"_s, u"hold"_s, u"locked"_s}));
    EXPECT_EQ(Vasctl({u"records"_s, u"list"_s}).code, kDone) << "reading goes on";
    const Timed run = Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s});
    EXPECT_EQ(run.code, kFailed) << run.Story();
    EXPECT_TRUE(run.Says(u"currently locked by another user (process "_s)) << run.Story();
    EXPECT_TRUE(run.Says(u"Try again when the other user is done with C:\\DATABOOK\\DATABOOK.MDB"_s))
        << run.Story();
    EXPECT_LT(run.seconds, 20) << run.Story();
    other.End();
    EXPECT_TRUE(home.Vasctl({u"records"_s, u"list"_s, u"--where"_s, u"CITY = 'HELD'"_s}).Array().isEmpty())
        << "a change whose user was killed is taken back";
    EXPECT_EQ(Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s}).code, kDone);
}

} // namespace
} // namespace vasclip::tests
