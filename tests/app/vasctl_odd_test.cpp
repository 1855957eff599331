// vasctl given what nobody means: nothing is lost, the answer is clear and the exit code is right. What a query answers
// with --json.

#include "support/processes.h"
#include "support/unix.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2;

class VasctlOdd : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(home.Make()); }

    QByteArray Bytes(const QString& below) const
    {
        QFile file(home.Native(below));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QStringList Names(const QString& below) const
    {
        return QDir(home.Native(below)).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    }
    QJsonObject First(const QStringList& arguments) const
    {
        const Ended asked = home.Vasctl(QStringList{u"sql"_s} + arguments);
        EXPECT_EQ(asked.code, kDone) << asked.err.toStdString();
        return asked.Array().at(0).toObject();
    }
    /// Through a shell, which redirects.
    Ended Shell(const QString& arguments, const QString& to) const
    {
        QProcess process;
        process.setProcessEnvironment(home.environment);
        process.start(u"sh"_s, {u"-c"_s, u"exec '%1' --home '%2' %3 %4"_s.arg(ProgramHome::Program(u"vasctl"_s), home.Path(),
                                                                             arguments, to)});
        EXPECT_TRUE(process.waitForFinished(kPatienceMs));
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

    ProgramHome home;
};

TEST_F(VasctlOdd, AQueryAnswersEachKindOfValueAsJsonHasIt)
{
    const QJsonObject values = First({u"SELECT CITY = 'nowhere' AS NOT_SO, ISNULL(NULL) AS SO, NULL AS NOTHING, '' AS EMPTY, "
                                      u"'a ' AS A, 1.5 AS PART, 7 AS WHOLE, #3/7/2004# AS DAY, #3/7/2004 14:30:05# AS MOMENT "
                                      u"FROM COMPS"_s});
    EXPECT_EQ(values[u"NOT_SO"_s], false);
    EXPECT_EQ(values[u"SO"_s], true);
    EXPECT_TRUE(values[u"NOTHING"_s].isNull());
    EXPECT_EQ(values[u"EMPTY"_s], QString());
    EXPECT_TRUE(values[u"EMPTY"_s].isString());
    EXPECT_EQ(values[u"A"_s], u"a"_s);
    EXPECT_EQ(values[u"PART"_s], 1.5);
    EXPECT_EQ(values[u"WHOLE"_s], 7);
    EXPECT_EQ(values[u"DAY"_s], u"2004-03-07"_s);
    EXPECT_EQ(values[u"MOMENT"_s], u"2004-03-07T14:30:05"_s);
}

TEST_F(VasctlOdd, AQueryTellsTheBytesOfAPictureAndNullFromAnEmptyText)
{
    for (const QString& to : {u"vasclip"_s, u"access"_s}) {
        const QString file = u"C:\\OUT_%1.MDB"_s.arg(to);
        ASSERT_EQ(home.Vasctl({u"export"_s, u"--file"_s, file, u"--to"_s, to, u"--pictures"_s, u"--table"_s, u"T"_s}).code, kDone);
        const QJsonObject with =
            First({u"--file"_s, file, u"SELECT FRONTPHOTO, CITY FROM T WHERE PHOTOS LIKE 'FRONT VIEW|*'"_s});
        EXPECT_GT(with[u"FRONTPHOTO"_s][u"bytes"_s].toInt(), 1000) << to.toStdString();
        EXPECT_FALSE(with[u"CITY"_s].toString().isEmpty());
        const QJsonObject without =
            First({u"--file"_s, file, u"SELECT FRONTPHOTO FROM T WHERE NOT PHOTOS LIKE 'FRONT VIEW|*'"_s});
        EXPECT_TRUE(without[u"FRONTPHOTO"_s].isNull()) << to.toStdString();
        const Ended shown = home.Vasctl({u"--plain"_s, u"sql"_s, u"--file"_s, file, u"SELECT FRONTPHOTO, CITY FROM T"_s});
        EXPECT_TRUE(shown.out.contains(" bytes)")) << shown.out.toStdString();
    }
}

TEST_F(VasctlOdd, OptionsTwiceOrWithoutAValueAreRefusedBeforeAnythingIsDone)
{
    const QStringList before = Names(u"DATABOOK/EXPORT"_s);
    const auto refused = [&](const QStringList& arguments, const char* words) {
        const Ended run = home.Vasctl(QStringList{u"--plain"_s} + arguments);
        EXPECT_EQ(run.code, kUsage) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.err.contains(words)) << run.err.toStdString();
    };
    refused({u"export"_s, u"--file"_s, u"A"_s, u"--file"_s, u"B"_s}, "--file is given twice, as 'A' and 'B'");
    refused({u"export"_s, u"--file"_s, u"A"_s, u"--table"_s, u"X"_s, u"--table"_s, u"Y"_s}, "--table is given twice");
    refused({u"archive"_s, u"--from"_s, u"1/1/1990"_s, u"--from"_s, u"2/2/1990"_s, u"--to"_s, u"1/1/1991"_s}, "--from is given twice");
    refused({u"convert"_s, u"A"_s, u"B"_s, u"--to"_s, u"access"_s, u"--to"_s, u"vasclip"_s}, "--to is given twice");
    refused({u"export"_s, u"--file"_s, QString()}, "--file wants a value");
    refused({u"export"_s, u"--file"_s, u"  "_s}, "--file wants a value");
    refused({u"sql"_s, u"--file"_s, QString(), u"SELECT 1 FROM COMPS"_s}, "--file wants a value");
    refused({u"archive"_s, u"--from"_s, u"1/1/1990"_s, u"--to"_s, u"1/1/1991"_s, u"--file"_s, QString()}, "--file wants a value");
    refused({u"import"_s, u"HARBOR.MDB"_s, u"--rehearse"_s, u"--refused"_s, QString()}, "--refused wants a value");
    refused({u"--yes"_s, u"maintain"_s, u"recalc"_s, u"--account"_s, QString()}, "--account wants a value");
    refused({u"convert"_s, QString(), QString(), u"--to"_s, u"access"_s}, "Usage: vasctl convert");
    refused({u"import"_s, u" "_s}, "Usage: vasctl import");
    EXPECT_EQ(Names(u"DATABOOK/EXPORT"_s), before);
    EXPECT_EQ(home.Vasctl({u"--answer"_s, u"no"_s, u"--answer"_s, u"no"_s, u"maintain"_s, u"recalc"_s}).code, 4)
        << "some may be given several times";
}

TEST_F(VasctlOdd, ADirectoryIsNoFile)
{
    ASSERT_TRUE(QDir().mkpath(home.Native(u"PLACE"_s)));
    const QString place = home.Native(u"PLACE"_s);
    const QStringList before = Names(QString());
    const auto refused = [&](const QStringList& arguments) {
        const Ended run = home.Vasctl(QStringList{u"--plain"_s} + arguments);
        EXPECT_EQ(run.code, kUsage) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.err.contains("is a directory. Name the ")) << run.err.toStdString();
    };
    for (const QString& given : {place, QString(place + u'/'), u"C:\\PLACE"_s, u"C:\\PLACE\\"_s}) {
        refused({u"export"_s, u"--file"_s, given});
        refused({u"export"_s, u"--file"_s, given, u"--to"_s, u"csv"_s});
        refused({u"archive"_s, u"--from"_s, u"1/1/1990"_s, u"--to"_s, u"1/1/1991"_s, u"--file"_s, given});
        refused({u"import"_s, given});
    }
    refused({u"convert"_s, u"C:\\DATABOOK\\DATABOOK.MDB"_s, place, u"--to"_s, u"access"_s});
    EXPECT_EQ(Names(QString()), before) << "and nothing is made beside it";
    EXPECT_EQ(Names(u"PLACE"_s), QStringList());
}

TEST_F(VasctlOdd, AnAccountTakesThePlaceOfNoDatabase)
{
    const QString databook = u"DATABOOK/DATABOOK.MDB"_s;
    const QByteArray before = Bytes(databook);
    for (const QString& file : {home.Native(databook), u"C:\\databook\\databook.mdb"_s}) {
        const Ended run = home.Vasctl({u"--plain"_s, u"--yes"_s, u"maintain"_s, u"upper-case"_s, u"--account"_s, file});
        EXPECT_EQ(run.code, kFailed);
        EXPECT_TRUE(run.err.contains("The account can't be written as ")) << run.err.toStdString();
        EXPECT_TRUE(run.err.contains("nothing was changed")) << run.err.toStdString();
        EXPECT_EQ(Bytes(databook), before);
    }
    QFile houses(home.Native(u"HOUSES.CSV"_s));
    ASSERT_TRUE(houses.open(QIODevice::WriteOnly));
    houses.write("number,street\n");
    houses.close();
    EXPECT_NE(home.Vasctl({u"mapdata"_s, u"import"_s, houses.fileName(), u"--county"_s, u"X"_s, u"--state"_s, u"OR"_s,
                           u"--account"_s, home.Native(databook)})
                  .code,
              kDone);
    EXPECT_EQ(Bytes(databook), before);
}

TEST_F(VasctlOdd, ClosedOutputsGetIntoNoFileAndAreTold)
{
    VASCLIP_NEEDS_UNIX("a shell that closes outputs");
    ASSERT_EQ(home.Vasctl({u"export"_s, u"--to"_s, u"csv"_s, u"--file"_s, u"C:\\WHOLE.csv"_s}).code, kDone);
    const QByteArray whole = Bytes(u"WHOLE.csv"_s);
    ASSERT_GT(whole.size(), 10'000);
    for (const QString& closed : {u">&-"_s, u"<&- >&- 2>&-"_s, u">/dev/full"_s}) {
        const QString file = u"'%1'"_s.arg(home.Native(u"OUT.csv"_s));
        const Ended run = Shell(u"export --to csv --file "_s + file, closed);
        EXPECT_EQ(run.code, kFailed) << closed.toStdString();
        if (!closed.contains(u"2>"_s)) {
            EXPECT_TRUE(run.err.contains("The answer could not be written: ") &&
                        run.err.contains("The command itself was carried out.") &&
                        run.err.contains("the output is closed") == closed.contains(u">&-"_s))
                << run.err.toStdString();
        }
        const QByteArray written = Bytes(u"OUT.csv"_s);
        EXPECT_TRUE(written == whole) << closed.toStdString();
        EXPECT_EQ(Shell(u"--help"_s, closed).code, kFailed) << closed.toStdString();
    }
    const Ended head = Shell(u"sql 'SELECT CENTRALKEY FROM COMPS'"_s, u"| head -n 1"_s);
    EXPECT_EQ(head.code, kDone);
    EXPECT_EQ(head.out, "CENTRALKEY\n");
    EXPECT_EQ(head.err, "");
}

TEST_F(VasctlOdd, OneOfAKindIsCountedAsOne)
{
    const QString key = First({u"SELECT CENTRALKEY FROM COMPS"_s})[u"CENTRALKEY"_s].toString();
    const QString one = u"CENTRALKEY = '%1'"_s.arg(key);
    const auto says = [&](const QStringList& arguments, const QByteArray& words) {
        const Ended run = home.Vasctl(QStringList{u"--plain"_s} + arguments);
        EXPECT_TRUE((run.out + run.err).contains(words)) << (run.out + run.err).toStdString();
    };
    says({u"export"_s, u"--file"_s, u"C:\\ONE.CSV"_s, u"--to"_s, u"csv"_s, u"--where"_s, one}, "1 record was written to C:\\ONE.CSV.");
    says({u"print"_s, u"--layout"_s, u"brief"_s, u"--out"_s, home.Native(u"ONE.pdf"_s), u"--where"_s, one}, "1 record on 1 page in ");
    says({u"print"_s, u"--layout"_s, u"brief"_s, u"--csv"_s, home.Native(u"ONE2.csv"_s), u"--where"_s, one}, "1 record in ");
    says({u"export"_s, u"--file"_s, u"C:\\ONE.MDB"_s, u"--table"_s, u"COMPS"_s, u"--where"_s, one}, "1 record was exported to ");
    says({u"convert"_s, u"C:\\ONE.MDB"_s, u"C:\\TWO.MDB"_s, u"--to"_s, u"access"_s}, "1 record in 1 table of C:\\ONE.MDB was converted");
    says({u"import"_s, u"C:\\ONE.MDB"_s, u"--table"_s, u"COMPS"_s, u"--rehearse"_s}, key.toUtf8());
    QFile list(home.Native(u"LIST.CSV"_s));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write("Address,City\n,Nowhere\n");
    list.close();
    says({u"import"_s, u"C:\\LIST.CSV"_s, u"--rehearse"_s, u"--refused"_s, u"C:\\BAD.CSV"_s}, "1 refused row is in C:\\BAD.CSV.");
    says({u"import"_s, u"C:\\LIST.CSV"_s}, "Line 2: Address: it has no key");
}

} // namespace
