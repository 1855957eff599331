// Reports from the terminal: whole processes on a demo home.

#include "support/processes.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2;

class VasctlPrint : public testing::Test
{
protected:
    ProgramHome home;
    QTemporaryDir dir;
    const QString pdf = dir.filePath(u"out.pdf"_s);

    void SetUp() override { ASSERT_TRUE(home.Make()); }
    Ended Print(const QStringList& more) const { return home.Vasctl(QStringList{u"print"_s} + more); }
    [[nodiscard]] static QByteArray Content(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(VasctlPrint, MakesAPdfOfEachLength)
{
    for (const QString& name : {u"brief"_s, u"medium"_s, u"detail"_s}) {
        const Ended ended = Print({u"--layout"_s, name, u"--out"_s, pdf});
        EXPECT_EQ(ended.code, kDone) << ended.err.constData();
        const QJsonObject said = ended.Object();
        EXPECT_EQ(said[u"records"_s], 60);
        const QByteArray content = Content(pdf);
        EXPECT_TRUE(content.startsWith("%PDF-"));
        EXPECT_EQ(content.count("/Type /Page\n"), said[u"pages"_s].toInt()) << name.toStdString();
        EXPECT_GT(said[u"pages"_s].toInt(), 1);
    }
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{u"out.pdf"_s});
}

TEST_F(VasctlPrint, WritesTheSameColumnsAsText)
{
    const QString csv = dir.filePath(u"out.csv"_s);
    const Ended ended =
        Print({u"--layout"_s, u"brief"_s, u"--csv"_s, csv, u"--where"_s, u"VAL(SELLINGPR) > 300000"_s});
    EXPECT_EQ(ended.code, kDone) << ended.err.constData();
    const QList<QByteArray> lines = Content(csv).split('\n');
    EXPECT_TRUE(lines[0].contains("Address,City,St.,Neighborhood,Type,Sale date,Price,Living area"));
    EXPECT_EQ(lines.size() - 2, ended.Object()[u"records"_s].toInt());
    EXPECT_GT(lines.size(), 3);
    EXPECT_LT(lines.size(), 60);
}

TEST_F(VasctlPrint, SaysWhatIsWrong)
{
    EXPECT_EQ(Print({}).code, kUsage);
    EXPECT_EQ(Print({u"--layout"_s, u"brief"_s, u"--out"_s, dir.filePath(u"out.txt"_s)}).code, kUsage);
    EXPECT_EQ(Print({u"--layout"_s, u"brief"_s, u"--out"_s, pdf, u"--where"_s, u"CITY = 'Mar"_s}).code,
              kUsage);
    EXPECT_EQ(Print({u"--layout"_s, u"brief"_s, u"--out"_s, pdf, u"--paper"_s, u"papyrus"_s}).code, kUsage);
    const Ended none = Print({u"--layout"_s, u"none"_s, u"--out"_s, pdf});
    EXPECT_EQ(none.code, kFailed);
    EXPECT_TRUE(none.err.contains("brief, medium, detail")) << none.err.constData();
    const Ended nowhere = Print({u"--layout"_s, u"brief"_s, u"--out"_s, dir.filePath(u"gone/out.pdf"_s)});
    EXPECT_EQ(nowhere.code, kFailed);
    EXPECT_TRUE(nowhere.err.contains("gone/out.pdf is not there. Choose another directory")) << nowhere.err.constData();
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList());
}

TEST_F(VasctlPrint, PrintsACopiedLayoutByItsName)
{
    ASSERT_EQ(Print({u"--layout"_s, u"medium"_s, u"--copy"_s, u"mine"_s}).code, kDone);
    EXPECT_EQ(Print({u"--layout"_s, u"mine"_s, u"--out"_s, pdf}).code, kDone);
    EXPECT_EQ(Print({u"--layout"_s, u"medium"_s, u"--copy"_s, u"mine"_s}).code, kFailed)
        << "it is there already";
    EXPECT_EQ(Print({u"--list"_s}).code, kDone);
}

TEST_F(VasctlPrint, AnEmptySearchIsAPageThatSaysSo)
{
    const Ended ended =
        Print({u"--layout"_s, u"brief"_s, u"--out"_s, pdf, u"--where"_s, u"CITY = 'Nowhere'"_s});
    EXPECT_EQ(ended.code, kDone);
    EXPECT_EQ(ended.Object()[u"records"_s], 0);
    EXPECT_EQ(ended.Object()[u"pages"_s], 1);
}

} // namespace
