// vasctl on database files of both kinds: asks them, and makes one of the other.

#include "support/genuine_files.h"
#include "support/processes.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2;
const QString kBook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;

class VasctlConvert : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(home.Make()); }

    Ended Convert(const QString& from, const QString& to, const QString& kind) const
    {
        return home.Vasctl({u"convert"_s, from, to, u"--to"_s, kind});
    }
    QJsonArray Comps(const QString& file) const
    {
        return home.Vasctl({u"sql"_s, u"--file"_s, file, u"SELECT * FROM COMPS ORDER BY CENTRALKEY"_s}).Array();
    }
    QByteArray Bytes(const QString& name) const
    {
        QFile file(home.Path() + u"/drive_c/"_s + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    ProgramHome home;
};

TEST_F(VasctlConvert, ThereAndBackWithEveryField)
{
    const QByteArray before = Bytes(u"DATABOOK/DATABOOK.MDB"_s);
    const Ended there = Convert(kBook, u"C:\\MADE.MDB"_s, u"access"_s);
    ASSERT_EQ(there.code, kDone) << there.err.toStdString();
    EXPECT_EQ(there.Object()[u"records"_s].toInt(), 60);
    EXPECT_EQ(Bytes(u"DATABOOK/DATABOOK.MDB"_s), before);
    const Ended back = Convert(home.Path() + u"/drive_c/MADE.MDB"_s, u"C:\\BACK.MDB"_s, u"VASCLIP"_s);
    ASSERT_EQ(back.code, kDone) << back.err.toStdString();
    const QJsonArray comps = Comps(kBook);
    ASSERT_EQ(comps.size(), 60);
    EXPECT_EQ(Comps(u"C:\\MADE.MDB"_s), comps);
    EXPECT_EQ(Comps(u"C:\\BACK.MDB"_s), comps);
    const QJsonArray tables = home.Vasctl({u"sql"_s, u"--file"_s, u"C:\\MADE.MDB"_s}).Array();
    ASSERT_EQ(tables.size(), 1);
    EXPECT_EQ(tables[0].toObject()[u"records"_s].toInt(), 60);
}

TEST_F(VasctlConvert, AListOfTablesSaysThatTheFileIsDamaged)
{
    ASSERT_EQ(Convert(kBook, u"C:\\MADE.MDB"_s, u"access"_s).code, kDone);
    QFile file(home.Path() + u"/drive_c/MADE.MDB"_s);
    ASSERT_TRUE(file.resize(file.size() - 20'000));
    const Ended tables = home.Vasctl({u"sql"_s, u"--file"_s, u"C:\\MADE.MDB"_s});
    EXPECT_EQ(tables.code, kFailed);
    EXPECT_TRUE(tables.err.contains("is damaged, and not all of it could be read")) << tables.err.toStdString();
    ASSERT_TRUE(file.resize(50'000));
    for (const QStringList& query : {QStringList(), QStringList{u"SELECT CITY FROM COMPS"_s}}) {
        const Ended gone = home.Vasctl(QStringList{u"sql"_s, u"--file"_s, u"C:\\MADE.MDB"_s} + query);
        EXPECT_EQ(gone.code, kFailed);
        EXPECT_TRUE(gone.err.contains("damaged")) << gone.err.toStdString();
    }
    const Ended import = home.Vasctl({u"import"_s, u"C:\\MADE.MDB"_s});
    EXPECT_EQ(import.code, kFailed);
    EXPECT_TRUE(import.err.contains("damaged")) << import.err.toStdString();
}

TEST_F(VasctlConvert, APartOfADamagedFileComesInAndTheExitCodeTells)
{
    ASSERT_EQ(Convert(kBook, u"C:\\MADE.MDB"_s, u"access"_s).code, kDone);
    QFile file(home.Path() + u"/drive_c/MADE.MDB"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray whole = file.readAll();
    const qsizetype page = whole.indexOf("Marlow") / 4096 * 4096; // with rows of comps
    ASSERT_TRUE(page > 0 && file.seek(page + 14) && file.write("\x01\x00", 2) == 2);
    file.close();
    for (const QStringList& how : {QStringList{u"--rehearse"_s}, QStringList{u"--choose"_s, u"new=mine"_s}, QStringList{}}) {
        const Ended import = home.Vasctl(QStringList{u"--plain"_s, u"import"_s, u"C:\\MADE.MDB"_s} + how);
        EXPECT_EQ(import.code, kFailed) << how.join(u' ').toStdString();
        EXPECT_TRUE(import.err.contains("table COMPS, row 0 of page ")) << how.join(u' ').toStdString() << import.err.toStdString();
        EXPECT_FALSE(import.out.isEmpty()) << "and what was done all the same";
    }
    EXPECT_EQ(Comps(kBook).size(), 60);
}

TEST_F(VasctlConvert, WhatOnlyTheSourceHasIsSaidWithItsName)
{
    if (GenuineFiles().isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    ASSERT_TRUE(CopyGenuineFile(u"reservedWordLeave.mdb"_s, home.Path() + u"/drive_c/LEAVE.MDB"_s));
    const Ended run = home.Vasctl({u"--plain"_s, u"convert"_s, u"C:\\LEAVE.MDB"_s, u"C:\\NEW.MDB"_s, u"--to"_s, u"vasclip"_s});
    ASSERT_EQ(run.code, kDone) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains("\nOnly C:\\LEAVE.MDB has the saved query Without Leave.\n")) << run.out.toStdString();
}

TEST_F(VasctlConvert, AnAccessFileIsNoArchive)
{
    ASSERT_EQ(Convert(kBook, u"C:\\MADE.MDB"_s, u"access"_s).code, kDone);
    const QByteArray before = Bytes(u"MADE.MDB"_s);
    const Ended run = home.Vasctl({u"--yes"_s, u"archive"_s, u"--from"_s, u"01/01/1990"_s, u"--to"_s, u"12/31/2090"_s,
                                   u"--file"_s, u"C:\\MADE.MDB"_s});
    EXPECT_EQ(run.code, kFailed);
    EXPECT_TRUE(run.err.contains("is an Access database, which is read here and never written")) << run.err.toStdString();
    EXPECT_EQ(Bytes(u"MADE.MDB"_s), before);
    EXPECT_EQ(Comps(kBook).size(), 60);
}

TEST_F(VasctlConvert, WhatCanNotBeIsSaid)
{
    const auto expect = [](const Ended& run, int code, const char* words) {
        EXPECT_EQ(run.code, code);
        EXPECT_TRUE(run.err.contains(words)) << run.err.toStdString();
    };
    expect(Convert(u"C:\\GONE.MDB"_s, u"C:\\X.MDB"_s, u"access"_s), kFailed, "Could not find the file");
    expect(Convert(kBook, kBook, u"access"_s), kUsage, "a name of its own");
    expect(Convert(kBook, u"C:\\X.MDB"_s, u"paper"_s), kUsage, "Usage: vasctl convert");
    expect(Convert(kBook, u"C:\\NO\\SUCH\\X.MDB"_s, u"access"_s), kFailed, "directory");
    ASSERT_EQ(Convert(kBook, u"C:\\X.MDB"_s, u"access"_s).code, kDone);
    const QByteArray made = Bytes(u"X.MDB"_s);
    expect(Convert(kBook, u"C:\\X.MDB"_s, u"access"_s), kFailed, "already exists");
    EXPECT_EQ(Bytes(u"X.MDB"_s), made);
    expect(home.Vasctl({u"sql"_s, u"--file"_s, u"C:\\X.MDB"_s, u"SELECT * INTO Y FROM COMPS"_s}), kUsage, "");
    EXPECT_EQ(Bytes(u"X.MDB"_s), made);
}

TEST_F(VasctlConvert, ADatabookOfAccessIsReadAndRefusesToBeWritten)
{
    ASSERT_EQ(Convert(kBook, u"C:\\MADE.MDB"_s, u"access"_s).code, kDone);
    const QJsonArray before = home.Vasctl({u"records"_s, u"list"_s}).Array();
    const QString native = home.Path() + u"/drive_c/DATABOOK/DATABOOK.MDB"_s;
    ASSERT_TRUE(QFile::remove(native) && QFile::copy(home.Path() + u"/drive_c/MADE.MDB"_s, native));
    const QByteArray made = Bytes(u"DATABOOK/DATABOOK.MDB"_s);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array(), before);
    const Ended add = home.Vasctl({u"records"_s, u"add"_s, u"1 New Rd"_s});
    EXPECT_EQ(add.code, kFailed);
    EXPECT_TRUE(add.err.contains("is an Access database, which is read here and never written")) << add.err.toStdString();
    const Ended copy = home.Vasctl({u"databook"_s, u"copy"_s, u"SAVED.MDB"_s});
    EXPECT_EQ(copy.code, kDone) << copy.err.toStdString();
    EXPECT_EQ(Comps(u"C:\\DATABOOK\\SAVED.MDB"_s).size(), 60);
    EXPECT_EQ(Bytes(u"DATABOOK/DATABOOK.MDB"_s), made);
}

} // namespace
