// vasctl's commands about the capture directory and the trash, on a demo home.

#include "support/processes.h"

#include <gtest/gtest.h>

#include <QStandardPaths>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kUsage = 2, kNotFound = 3, kDeclined = 4;

class VasctlMedia : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(home.Make());
        const QString directory =
            home.Vasctl({u"settings"_s, u"get"_s, u"CAPTUREDIR"_s}).Object()[u"value"_s].toString();
        capture = home.Native(directory.mid(3).replace(u'\\', u'/'));
        while (capture.endsWith(u'/'))
            capture.chop(1);
        ASSERT_TRUE(QDir().mkpath(home.Native(u"CARD"_s)));
        ASSERT_TRUE(QDir().mkpath(capture));
        Put(home.Native(u"CARD/ZA.JPG"_s), "picture a");
        Put(home.Native(u"CARD/ZB.JPG"_s), "picture b");
    }
    static void Put(const QString& path, const QByteArray& content)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(content);
    }
    static QByteArray Read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    ProgramHome home;
    QString capture;
};

TEST_F(VasctlMedia, APersonAtATerminalSeesHowFarItIsAndAScriptDoesNot)
{
    if (QStandardPaths::findExecutable(u"script"_s).isEmpty())
        GTEST_SKIP() << "no 'script' here to make a terminal with";
    Put(home.Native(u"CARD/ZA.JPG"_s), QByteArray(3'000'000, 'a'));
    const QString command = u"'%1' --home '%2' capture copy 'C:\\CARD' ZA.JPG"_s.arg(
        ProgramHome::Program(u"vasctl"_s), home.Path());
    QProcess terminal;
    terminal.setProcessEnvironment(home.environment);
    terminal.start(u"script"_s, {u"-qec"_s, command, u"/dev/null"_s});
    ASSERT_TRUE(terminal.waitForFinished(kPatienceMs));
    const QByteArray seen = terminal.readAllStandardOutput();
    EXPECT_EQ(terminal.exitCode(), kDone) << seen.toStdString();
    EXPECT_TRUE(seen.contains("Looking at ZA.JPG")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("Copying ZA.JPG  34 %")) << seen.toStdString();
    EXPECT_TRUE(seen.contains("Copying ZA.JPG  100 %")) << seen.toStdString();
    const qsizetype last = seen.lastIndexOf("\x1b[K");
    EXPECT_TRUE(seen.mid(last).contains("Photos copied to")) << "the line goes before the result: " << seen.toStdString();
    // A name that would turn the line round.
    ASSERT_TRUE(QDir().mkpath(home.Native(u"CARD2"_s)));
    Put(home.Native(u"CARD2/Z\u202eC.JPG"_s), "picture c");
    QString other = command;
    terminal.start(u"script"_s, {u"-qec"_s, other.replace(u"'C:\\CARD' ZA.JPG"_s, u"'C:\\CARD2'"_s), u"/dev/null"_s});
    ASSERT_TRUE(terminal.waitForFinished(kPatienceMs));
    const QString odd = QString::fromUtf8(terminal.readAllStandardOutput());
    EXPECT_TRUE(odd.contains(u"Copying Z<U+202E>C.JPG"_s)) << odd.toStdString();
    EXPECT_FALSE(odd.contains(QChar(0x202e)));
    const auto piped = home.Vasctl({u"--plain"_s, u"capture"_s, u"copy"_s, u"C:\\CARD"_s, u"ZB.JPG"_s});
    EXPECT_EQ(piped.code, kDone);
    EXPECT_FALSE(piped.err.contains("Copying")) << piped.err.toStdString();
}

TEST_F(VasctlMedia, CopiesFromACardAndKnowsWhatHasComeInBefore)
{
    auto copied = home.Vasctl({u"capture"_s, u"copy"_s, u"C:\\CARD"_s, u"ZA.JPG"_s});
    EXPECT_EQ(copied.code, kDone) << copied.err.toStdString();
    EXPECT_EQ(copied.Object()[u"copied"_s].toInt(), 1);
    EXPECT_EQ(Read(capture + u"/ZA.JPG"_s), "picture a");
    const auto listed = home.Vasctl({u"capture"_s, u"list"_s, u"C:\\CARD"_s}).Array();
    ASSERT_EQ(listed.size(), 2);
    EXPECT_TRUE(listed[0].toObject()[u"KNOWN"_s].toString().startsWith(u"here as "_s));
    EXPECT_EQ(listed[1].toObject()[u"KNOWN"_s].toString(), u"new"_s);
    copied = home.Vasctl({u"capture"_s, u"copy"_s, u"C:\\CARD"_s});
    EXPECT_EQ(copied.Object()[u"copied"_s].toInt(), 1);
    EXPECT_EQ(copied.Object()[u"there"_s].toInt(), 1);
    Put(home.Native(u"CARD/ZC.JPG"_s), "picture b");
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"copy"_s, u"C:\\CARD"_s, u"ZC.JPG"_s, u"--answer"_s, u"cancel"_s}).code,
              kDeclined);
    EXPECT_FALSE(QFile::exists(capture + u"/ZC.JPG"_s));
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"copy"_s, u"C:\\NOWHERE"_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"copy"_s, u"C:\\CARD"_s, u"NONE.JPG"_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"copy"_s}).code, kUsage);
    bool found = false;
    for (const QJsonValue& row : home.Vasctl({u"capture"_s, u"list"_s}).Array())
        found = found || row.toObject()[u"NAME"_s].toString() == u"ZA.JPG"_s;
    EXPECT_TRUE(found);
}

TEST_F(VasctlMedia, TakesPathsOfTheSystemAndSaysWhatItLeftOut)
{
    Put(home.Native(u"CARD/NOTES.TXT"_s), "words");
    ASSERT_TRUE(QDir().mkpath(home.Native(u"CARD/DCIM"_s)));
    const QString card = home.Native(u"CARD"_s);
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"list"_s, card}).Array().size(), 2);
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"list"_s, u"C:/CARD"_s}).Array().size(), 2) << "slashes lean either way";
    // As a shell makes it of card/*.JPG.
    const auto first = home.Vasctl({u"capture"_s, u"copy"_s, card + u"/ZA.JPG"_s, card + u"/ZB.JPG"_s});
    EXPECT_EQ(first.code, kDone) << first.err.toStdString();
    EXPECT_EQ(first.Object()[u"copied"_s].toInt(), 2);
    EXPECT_TRUE(first.Object()[u"left"_s].toArray().isEmpty());
    EXPECT_EQ(Read(capture + u"/ZB.JPG"_s), "picture b");

    Put(home.Native(u"CARD/ZC.JPG"_s), "picture c");
    Put(home.Native(u"CARD/ZD.JPG"_s), "picture b");
    const auto all = home.Vasctl({u"--plain"_s, u"--no"_s, u"capture"_s, u"copy"_s, card + u'/'});
    EXPECT_EQ(all.code, kDone) << all.err.toStdString();
    EXPECT_EQ(Read(capture + u"/ZC.JPG"_s), "picture c");
    for (const char* line : {"ZA.JPG is there already", "ZB.JPG is there already", "ZD.JPG is C:\\",
                             "NOTES.TXT is no picture (*.jpg;*.bmp)", "DCIM is a directory; name it to copy from it"})
        EXPECT_TRUE(all.out.contains(line)) << line << "\n" << all.out.toStdString();

    QStringList left;
    for (const QJsonValue& line : home.Vasctl({u"--no"_s, u"capture"_s, u"copy"_s, card}).Object()[u"left"_s].toArray())
        left.append(line.toString());
    EXPECT_TRUE(left.contains(u"NOTES.TXT is no picture (*.jpg;*.bmp)"_s)) << left.join(u"; "_s).toStdString();

    EXPECT_EQ(home.Vasctl({u"--no"_s, u"capture"_s, u"copy"_s, card, u"ZD.JPG"_s}).code, kDeclined)
        << "nothing was copied, and No is why";
    const auto words = home.Vasctl({u"capture"_s, u"copy"_s, card, u"NOTES.TXT"_s});
    EXPECT_EQ(words.code, kUsage);
    EXPECT_TRUE(words.err.contains("is no picture")) << words.err.toStdString();
    EXPECT_FALSE(QFile::exists(capture + u"/NOTES.TXT"_s));
    Put(home.Native(u"CARD/DCIM/INDEX.DAT"_s), "names");
    const auto empty = home.Vasctl({u"--plain"_s, u"capture"_s, u"copy"_s, card + u"/DCIM"_s});
    EXPECT_EQ(empty.code, kNotFound);
    EXPECT_TRUE(empty.err.contains("holds no pictures") && empty.err.contains("INDEX.DAT is no picture"))
        << empty.err.toStdString();
    const auto same = home.Vasctl({u"capture"_s, u"copy"_s, capture});
    EXPECT_EQ(same.code, kUsage);
    EXPECT_TRUE(same.err.contains("are the same")) << same.err.toStdString();
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"copy"_s, card + u"/NOWHERE"_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"capture"_s, u"copy"_s, card, capture + u"/ZA.JPG"_s}).code, kNotFound)
        << "of another directory";
}

TEST_F(VasctlMedia, APictureThatCannotBeCopiedEndsInNoZero)
{
    ASSERT_TRUE(QDir().mkpath(capture + u"/ZA.JPG"_s)); // in the way
    for (const QString& answer : {u"ignore"_s, u"abort"_s}) {
        const auto ended = home.Vasctl({u"--answer"_s, answer, u"capture"_s, u"copy"_s, u"C:\\CARD"_s, u"ZA.JPG"_s});
        EXPECT_NE(ended.code, kDone) << answer.toStdString() << ended.out.toStdString();
        EXPECT_FALSE(ended.err.isEmpty());
    }
}

TEST_F(VasctlMedia, ListsRestoresAndEmptiesTheTrash)
{
    const QString trash = capture + u"/TRASHCAN"_s;
    ASSERT_TRUE(QDir().mkpath(trash));
    for (const QString& name : {u"ZT1.JPG"_s, u"ZT2.JPG"_s})
        Put(trash + u'/' + name, "trashed " + name.toUtf8());
    const qsizetype before = home.Vasctl({u"trash"_s, u"list"_s}).Array().size();
    EXPECT_GE(before, 2);
    EXPECT_EQ(home.Vasctl({u"trash"_s, u"restore"_s, u"zt1.jpg"_s}).code, kDone);
    EXPECT_EQ(Read(capture + u"/ZT1.JPG"_s), "trashed ZT1.JPG");
    EXPECT_EQ(home.Vasctl({u"trash"_s, u"restore"_s, u"ZT1.JPG"_s}).code, kNotFound);
    Put(capture + u"/ZT2.JPG"_s, "another");
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"trash"_s, u"restore"_s, u"ZT2.JPG"_s}).code, kDeclined);
    EXPECT_EQ(Read(capture + u"/ZT2.JPG"_s), "another");
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"trash"_s, u"empty"_s}).code, kDeclined);
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"trash"_s, u"empty"_s, u"--before"_s, u"1/2/1990"_s}).code, kDone);
    EXPECT_TRUE(QFile::exists(trash + u"/ZT2.JPG"_s)) << "it is younger";
    EXPECT_EQ(home.Vasctl({u"trash"_s, u"empty"_s, u"--before"_s, u"someday"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"trash"_s, u"empty"_s}).code, kDone);
    EXPECT_TRUE(home.Vasctl({u"trash"_s, u"list"_s}).Array().isEmpty());
    EXPECT_EQ(home.Vasctl({u"trash"_s, u"list"_s, u"--dir"_s, u"C:\\CARD"_s}).code, kUsage);
}

} // namespace
