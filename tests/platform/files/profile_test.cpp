#include "platform/files/profile.h"

#include "support/error_number.h"
#include "support/temp_home.h"
#include "support/unix.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

using tests::TempHome;

const QString kFile = u"C:\\VAS2000.INI"_s;
const QString kAbsent = u"(absent)"_s;

QString Quoted(const char16_t* text)
{
    return QString::fromUtf16(text);
}

struct ReadRow
{
    const char* name;
    QByteArray content;
    const char16_t* section;
    const char16_t* key;
    const char16_t* wanted;
};

class ProfileRead : public testing::TestWithParam<ReadRow>
{};

TEST_P(ProfileRead, Gives)
{
    const ReadRow& row = GetParam();
    const TempHome home;
    home.disk.WriteWhole(kFile, row.content);
    EXPECT_EQ(GetPrivateProfileString(home.disk, Quoted(row.section), Quoted(row.key), kAbsent, kFile),
              Quoted(row.wanted))
        << row.name;
}

const ReadRow kReadRows[] = {
    {"plain", "[S]\r\nK=V\r\n", u"S", u"K", u"V"},
    {"without regard to case", "[Section One]\nsome KEY=V\n", u"SECTION one", u"Some key", u"V"},
    {"case of accents", "[S]\n\xC3\x89t\xC3\xA9=V\n", u"S", u"\u00E9T\u00C9", u"V"},
    {"blanks, tabs and vertical tabs go", "\t[ \vS\t ] \n \tK\v = \t V W \v\n", u"S", u"K", u"V W"},
    {"blanks of arguments go", "[S]\nK=V\n", u"  S ", u" K  ", u"V"},
    {"tabs of arguments stay", "[S]\nK=V\n", u"S", u"K\t", u"(absent)"},
    {"no section", "[S]\nK=V\n", u"T", u"K", u"(absent)"},
    {"no key", "[S]\nK=V\n", u"S", u"L", u"(absent)"},
    {"ahead of all sections", "K=V\n[S]\n", u"S", u"K", u"(absent)"},
    {"only the first section of a name", "[S]\nA=1\n[T]\n[s]\nB=2\n", u"S", u"B", u"(absent)"},
    {"the first of two keys", "[S]\nK=1\nk=2\n", u"S", u"K", u"1"},
    {"a header ends at the first bracket", "[S]]x]\nK=V\n", u"S", u"K", u"V"},
    {"text behind a header", "[S] ; note\nK=V\n", u"S", u"K", u"V"},
    {"a missing bracket", "[S\nK=V\n", u"S", u"K", u"V"},
    {"quotes go", "[S]\nK=\"V W \"\n", u"S", u"K", u"V W "},
    {"single quotes go", "[S]\nK=' V'\n", u"S", u"K", u" V"},
    {"one pair only", "[S]\nK=\"\"V\"\"\n", u"S", u"K", u"\"V\""},
    {"unequal quotes stay", "[S]\nK=\"V'\n", u"S", u"K", u"\"V'"},
    {"one quote stays", "[S]\nK=\"\n", u"S", u"K", u"\""},
    {"empty quotes", "[S]\nK=\"\"\n", u"S", u"K", u""},
    {"quotes of a key stay", "[S]\n\"K\"=V\n", u"S", u"K", u"(absent)"},
    {"quotes of a key are part of it", "[S]\n\"K\"=V\n", u"S", u"\"K\"", u"V"},
    {"a comment is no key", "[S]\n;K=1\n  ; K=2\nK=3\n", u"S", u"K", u"3"},
    {"a later semicolon is value", "[S]\nK=V ; note\n", u"S", u"K", u"V ; note"},
    {"a number sign is no comment", "[S]\n#K=V\n", u"S", u"#K", u"V"},
    {"a later equals sign is value", "[S]\nK=a=b\n", u"S", u"K", u"a=b"},
    {"empty value", "[S]\nK=\n", u"S", u"K", u""},
    {"a key without equals sign has no value", "[S]\nK\n", u"S", u"K", u"(absent)"},
    {"no final line end", "[S]\nK=V", u"S", u"K", u"V"},
    {"carriage returns alone", "[S]\rK=V\rL=W\r", u"S", u"K", u"V"},
    {"code page 1252", "[S]\nK=Caf\xE9 \x80\n", u"S", u"K", u"Caf\u00E9 \u20AC"},
    {"UTF-8", "[S]\nK=Caf\xC3\xA9\n", u"S", u"K", u"Caf\u00E9"},
    {"UTF-8 cut short is 1252", "[S]\nK=\xC3\xA9 \xC3", u"S", u"K", u"\u00C3\u00A9 \u00C3"},
    {"a UTF-8 mark spoils the first line", "\xEF\xBB\xBF[S]\nK=V\n", u"S", u"K", u"(absent)"},
    {"a UTF-8 mark spoils no other", "\xEF\xBB\xBF\n[S]\nK=V\n", u"S", u"K", u"V"},
    {"a directory", "[DIRECTORIES]\r\nDATADIR=C:\\DATABOOK\r\n", u"DIRECTORIES", u"DATADIR", u"C:\\DATABOOK"},
    {"empty file", "", u"S", u"K", u"(absent)"},
    {"zero bytes", QByteArray("[S]\n\0\0=\nK=V\n", 12), u"S", u"K", u"V"},
};

INSTANTIATE_TEST_SUITE_P(Rows, ProfileRead, testing::ValuesIn(kReadRows),
                         [](const auto& row) { return "row_" + std::to_string(row.index); });

TEST(ProfileReads, Utf16)
{
    const TempHome home;
    QByteArray content("\xFF\xFE");
    for (const QChar c : u"[S]\r\nK=\u0160\u4E2D\r\n"_s) {
        content.append(char(c.cell()));
        content.append(char(c.row()));
    }
    home.disk.WriteWhole(kFile, content);
    EXPECT_EQ(GetPrivateProfileString(home.disk, u"s"_s, u"k"_s, kAbsent, kFile), u"\u0160\u4E2D"_s);
    ASSERT_TRUE(WritePrivateProfileString(home.disk, u"S"_s, u"L"_s, u"\u4E2E"_s, kFile));
    const QByteArray added("L\0=\0\x2E\x4E\r\0\n\0", 10);
    EXPECT_EQ(home.disk.ReadWhole(kFile), content + added);
}

TEST(ProfileReads, FallsBack)
{
    const TempHome home;
    const auto read = [&](const char16_t* fallback, const char16_t* file) {
        return GetPrivateProfileString(home.disk, u"S"_s, u"K"_s, Quoted(fallback), Quoted(file));
    };
    EXPECT_EQ(read(u"C:\\VASCLIPS  ", u"C:\\none.ini"), u"C:\\VASCLIPS"_s) << "trailing blanks go";
    EXPECT_EQ(read(u"  x", u"C:\\none.ini"), u"  x"_s);
    EXPECT_EQ(read(u"x", u"none.ini"), u"x"_s);
    EXPECT_EQ(read(u"x", u"A:\\none.ini"), u"x"_s);
    EXPECT_EQ(read(u"x", u""), u"x"_s);
    EXPECT_EQ(read(u"x", u"C:\\"), u"x"_s);
}

TEST(ProfileReads, ListsKeys)
{
    const TempHome home;
    home.disk.WriteWhole(kFile, "[One]\n b =2\n;c=3\nA=1\nbare\n\n[Two]\nX=\n[one]\nD=4\n");
    EXPECT_EQ(ProfileKeys(home.disk, u"ONE"_s, kFile).join(u','), u"b,A,bare"_s);
    EXPECT_TRUE(ProfileKeys(home.disk, u"none"_s, kFile).isEmpty());
}

TEST(ProfileReads, SeeTheLatestContent)
{
    const TempHome home;
    const QString native = home.Native(u"drive_c/VAS2000.INI"_s);
    for (int round = 0; round < 300; ++round) {
        QFile file(native); // in place, with the same length: the hardest change to notice
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.write("[S]\nK=" + QByteArray::number(1000 + round) + "\n");
        file.close();
        ASSERT_EQ(GetPrivateProfileString(home.disk, u"S"_s, u"K"_s, kAbsent, kFile),
                  QString::number(1000 + round));
    }
}

struct WriteRow
{
    const char* name;
    QByteArray before;
    const char16_t* section;
    const char16_t* key;   ///< nullptr deletes the section
    const char16_t* value; ///< nullptr deletes the key
    QByteArray after;
};

class ProfileWrite : public testing::TestWithParam<WriteRow>
{};

TEST_P(ProfileWrite, Leaves)
{
    const WriteRow& row = GetParam();
    const TempHome home;
    home.disk.WriteWhole(kFile, row.before);
    const QString key = row.key ? Quoted(row.key) : QString();
    const QString value = row.value ? (*row.value ? Quoted(row.value) : u""_s) : QString();
    EXPECT_TRUE(WritePrivateProfileString(home.disk, Quoted(row.section), key, value, kFile)) << row.name;
    EXPECT_EQ(home.disk.ReadWhole(kFile).toStdString(), row.after.toStdString()) << row.name;
}

const WriteRow kWriteRows[] = {
    {"into nothing", "", u"S", u"K", u"V", "[S]\r\nK=V\r\n"},
    {"a key's value", "[S]\r\nK=1\r\nL=2\r\n", u"s", u"k", u"9", "[S]\r\nK=9\r\nL=2\r\n"},
    {"the line end of the line stays", "[S]\nK=1\nL=2\n", u"S", u"K", u"9", "[S]\nK=9\nL=2\n"},
    {"a new key has CR LF", "[S]\nK=1\n", u"S", u"L", u"2", "[S]\nK=1\nL=2\r\n"},
    {"behind the last real key", "[S]\r\nK=1\r\n; note\r\n\r\n[T]\r\n", u"S", u"L", u"2",
     "[S]\r\nK=1\r\nL=2\r\n; note\r\n\r\n[T]\r\n"},
    {"behind the header", "[S]\r\n; note\r\n[T]\r\n", u"S", u"L", u"2", "[S]\r\nL=2\r\n; note\r\n[T]\r\n"},
    {"a missing line end is supplied", "[S]\r\nK=1", u"S", u"L", u"2", "[S]\r\nK=1\r\nL=2\r\n"},
    {"a missing line end behind a header", "[S]", u"S", u"L", u"2", "[S]\r\nL=2\r\n"},
    {"a missing line end behind a comment", "[S]\r\nK=1\r\n; end", u"S", u"L", u"2",
     "[S]\r\nK=1\r\nL=2\r\n; end\r\n"},
    {"a new section", "[S]\r\nK=1", u"T", u"L", u"2", "[S]\r\nK=1\r\n[T]\r\nL=2\r\n"},
    {"the last line without an end is rewritten", "[S]\r\nK=1", u"S", u"K", u"2", "[S]\r\nK=2\r\n"},
    {"order, case and comments", "; top\n[sEcT]\nzz=1\n#x\n aA = 2 ; c\n", u"SECT", u"AA", u"3",
     "; top\n[sEcT]\nzz=1\n#x\n aA =3\n"},
    {"the first of two keys", "[S]\nK=1\nK=2\n", u"S", u"K", u"9", "[S]\nK=9\nK=2\n"},
    {"the first section of a name", "[S]\nA=1\n[S]\nB=2\n", u"S", u"B", u"9", "[S]\nA=1\nB=9\r\n[S]\nB=2\n"},
    {"blanks of arguments go", "[S]\n", u" S ", u" K ", u" V ", "[S]\nK=V\r\n"},
    {"an empty value", "[S]\nK=1\n", u"S", u"K", u"", "[S]\nK=\n"},
    {"quotes are written as given", "[S]\n", u"S", u"K", u"\" V \"", "[S]\nK=\" V \"\r\n"},
    {"a key without equals sign gains one", "[S]\nK\n", u"S", u"K", u"V", "[S]\nK=V\n"},
    {"delete a key", "[S]\nK=1\nL=2\n", u"S", u"k", nullptr, "[S]\nL=2\n"},
    {"delete the last key", "[S]\nK=1\n[T]\n", u"S", u"K", nullptr, "[S]\n[T]\n"},
    {"delete the first of two keys", "[S]\nK=1\nK=2\n", u"S", u"K", nullptr, "[S]\nK=2\n"},
    {"delete no key", "[S]\nK=1\n", u"S", u"X", nullptr, "[S]\nK=1\n"},
    {"delete a section", "a\n[S]\nK=1\n; note\n[T]\nL=2\n", u"s", nullptr, nullptr, "a\n[T]\nL=2\n"},
    {"delete no section", "[S]\nK=1\n", u"T", nullptr, nullptr, "[S]\nK=1\n"},
    {"bytes of 1252 stay", "[S]\nA=\x80\xE9\x81\nK=1\n", u"S", u"K", u"\u00FC\u0160",
     "[S]\nA=\x80\xE9\x81\nK=\xFC\x8A\n"},
    {"UTF-8 stays", "[S]\nA=\xC3\xA9\nK=1\n", u"S", u"K", u"\u00FC", "[S]\nA=\xC3\xA9\nK=\xC3\xBC\n"},
    {"what 1252 cannot hold turns it to UTF-8", "[S]\nA=\xE9\nK=1\n", u"S", u"K", u"\u4E2D",
     "[S]\nA=\xC3\xA9\nK=\xE4\xB8\xAD\n"},
    {"the mark of UTF-8 stays", "\xEF\xBB\xBF; top\n[S]\nK=1\n", u"S", u"K", u"2",
     "\xEF\xBB\xBF; top\n[S]\nK=2\n"},
    {"a spoiled header is no section", "\xEF\xBB\xBF[S]\nK=1\n", u"S", u"K", u"2",
     "\xEF\xBB\xBF[S]\nK=1\n[S]\r\nK=2\r\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, ProfileWrite, testing::ValuesIn(kWriteRows),
                         [](const auto& row) { return "row_" + std::to_string(row.index); });

TEST(ProfileWrites, RefuseWhatCouldNotBeReadBack)
{
    const TempHome home;
    home.disk.WriteWhole(kFile, "[S]\nK=1\n");
    const auto write = [&](const char16_t* section, const char16_t* key, const char16_t* value,
                           const QString& file = kFile) {
        return WritePrivateProfileString(home.disk, Quoted(section), Quoted(key), Quoted(value), file);
    };
    EXPECT_FALSE(write(u"S", u"K", u"1\r\n[T]"));
    EXPECT_FALSE(write(u"S", u"K\nL", u"1"));
    EXPECT_FALSE(write(u"S", u"K=L", u"1"));
    EXPECT_FALSE(write(u"S", u";K", u"1"));
    EXPECT_FALSE(write(u"S", u"[K", u"1"));
    EXPECT_FALSE(write(u"S", u" ", u"1"));
    EXPECT_FALSE(write(u"S]T", u"K", u"1"));
    EXPECT_FALSE(write(u"S", u"K", u"1", u"C:\\none\\a.ini"_s));
    EXPECT_FALSE(write(u"S", u"K", u"1", u"a.ini"_s));
    EXPECT_FALSE(write(u"S", u"K", u"1", u"C:\\"_s));
    EXPECT_EQ(home.disk.ReadWhole(kFile), "[S]\nK=1\n");
    home.disk.SetAttr(kFile, ReadOnly);
    EXPECT_FALSE(write(u"S", u"K", u"2"));
    EXPECT_TRUE(write(u"S", u"K", u"1")) << "nothing to write";
    home.disk.SetAttr(kFile, Normal);
}

TEST(ProfileWrites, HoldLongValues)
{
    const TempHome home;
    const QString value = QString(200'000, u'v') + u"\u00E9nd"_s;
    ASSERT_TRUE(WritePrivateProfileString(home.disk, u"S"_s, u"K"_s, value, kFile));
    EXPECT_EQ(GetPrivateProfileString(home.disk, u"S"_s, u"K"_s, kAbsent, kFile), value);
}

TEST(ProfileWrites, ManyKeysAreOneReplacement)
{
    const TempHome home;
    home.disk.WriteWhole(kFile, "[A]\r\nold=1\r\ngone=2\r\n[B]\r\nx=1\r\n");
    ASSERT_TRUE(WriteProfileKeys(home.disk, kFile,
                                 {{u"A"_s, u"old"_s, u"9"_s},
                                  {u"A"_s, u"gone"_s, QString()},
                                  {u"C"_s, u"new"_s, u"3"_s},
                                  {u"C"_s, u"newer"_s, u"4"_s},
                                  {u"B"_s, QString(), QString()}}));
    EXPECT_EQ(home.disk.ReadWhole(kFile), "[A]\r\nold=9\r\n[C]\r\nnew=3\r\nnewer=4\r\n");
    EXPECT_FALSE(
        WriteProfileKeys(home.disk, kFile, {{u"A"_s, u"old"_s, u"10"_s}, {u"A"_s, u"b=d"_s, u"1"_s}}));
    EXPECT_EQ(home.disk.ReadWhole(kFile), "[A]\r\nold=9\r\n[C]\r\nnew=3\r\nnewer=4\r\n") << "all or none";
}

TEST(ProfileWrites, OfTwoProcessesAreAllKept)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    const TempHome home;
    constexpr int kProcesses = 3;
    constexpr int kKeys = 60;
    QList<pid_t> children;
    for (int process = 0; process < kProcesses; ++process) {
        const pid_t child = fork();
        if (child == 0) {
            bool good = true;
            for (int key = 0; key < kKeys; ++key) {
                // Each spells the file in its own way.
                const QString file = process == 0 ? u"C:\\shared.ini"_s : u"c:/SHARED.INI"_s;
                good = good && WritePrivateProfileString(home.disk, u"S"_s, u"P%1K%2"_s.arg(process).arg(key),
                                                         QString::number(key), file);
            }
            _exit(good ? 0 : 1);
        }
        children.append(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    EXPECT_EQ(home.disk.Dir(u"C:\\*.ini"_s).size(), 1);
    EXPECT_EQ(ProfileKeys(home.disk, u"S"_s, u"C:\\shared.ini"_s).size(), kProcesses * kKeys);
}

} // namespace
} // namespace vasclip::files
