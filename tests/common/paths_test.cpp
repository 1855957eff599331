#include "common/paths.h"

#include "platform/text/runtime_error.h"

#include "support/own_drive.h"
#include "support/scripted_ports.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

TEST(CkRSlash, EndsAPathInABackslash)
{
    EXPECT_EQ(CkRSlash(u"C:"_s), u"C:\\"_s);
    EXPECT_EQ(CkRSlash(u""_s), u""_s);
    EXPECT_EQ(CkRSlash(u"   "_s), u""_s);
    EXPECT_EQ(CkRSlash(u"C:\\VASSNAP"_s), u"C:\\VASSNAP\\"_s);
    EXPECT_EQ(CkRSlash(u" C:\\VASSNAP\\ "_s), u"C:\\VASSNAP\\"_s);
    EXPECT_EQ(CkRSlash(u"\\"_s), u"\\"_s);
}

TEST(SplitFilePath, TakesBracketsAndDotsOfDirectoriesAsLetters)
{
    struct Row
    {
        QString path;
        FileNameParts parts;
    };
    for (const Row& row : {Row{u"C:\\SNAP\\A]b.jpg"_s, {u"C:"_s, u"\\SNAP\\"_s, u"A]B"_s, u"JPG"_s}},
                           Row{u"C:\\SNAP\\A].JPG"_s, {u"C:"_s, u"\\SNAP\\"_s, u"A]"_s, u"JPG"_s}},
                           Row{u"C:\\MY.PHOTOS\\A.B.JPG"_s, {u"C:"_s, u"\\MY.PHOTOS\\"_s, u"A.B"_s, u"JPG"_s}},
                           Row{u"C:\\A.D\\NONE"_s, {u"C:"_s, u"\\A.D\\"_s, u"NONE"_s, {}}},
                           Row{u" a.jpg "_s, {{}, {}, u"A"_s, u"JPG"_s}}, Row{{}, {}}}) {
        EXPECT_EQ(SplitFilePath(row.path), row.parts) << row.path.toStdString();
        EXPECT_EQ(WholeFileName(row.path),
                  row.parts.name + (row.parts.extension.isEmpty() ? QString() : u'.' + row.parts.extension));
    }
}

TEST(StripRChar, TakesTheBackslashAndTrimsItsArgument)
{
    QString path = u"  C:\\VASSNAP\\ "_s;
    EXPECT_EQ(StripRChar(path), u"C:\\VASSNAP"_s);
    EXPECT_EQ(path, u"C:\\VASSNAP\\"_s);
    path = u" C:"_s;
    EXPECT_EQ(StripRChar(path), u"C:"_s);
    path = u"   "_s;
    EXPECT_EQ(StripRChar(path), u""_s);
    EXPECT_EQ(path, u""_s);
}

struct NameRow
{
    const char* name;
    QString path;
    FileNameParts parts;
};

class ParseFileNameTest : public testing::TestWithParam<NameRow>
{};

TEST_P(ParseFileNameTest, TakesApart)
{
    const FileNameParts parts = ParseFileName(GetParam().path);
    EXPECT_EQ(parts.drive.toStdString(), GetParam().parts.drive.toStdString());
    EXPECT_EQ(parts.directory.toStdString(), GetParam().parts.directory.toStdString());
    EXPECT_EQ(parts.name.toStdString(), GetParam().parts.name.toStdString());
    EXPECT_EQ(parts.extension.toStdString(), GetParam().parts.extension.toStdString());
}

const NameRow kNames[] = {
    {"blank", u"   "_s, {}},
    {"empty", u""_s, {}},
    {"full", u" c:\\VasSnap\\dsc1.jpg "_s, {u"C:"_s, u"\\VASSNAP\\"_s, u"DSC1"_s, u"JPG"_s}},
    {"no_drive", u"\\vassnap\\dsc1.jpg"_s, {u""_s, u"\\VASSNAP\\"_s, u"DSC1"_s, u"JPG"_s}},
    {"name_only", u"dsc1.jpg"_s, {u""_s, u""_s, u"DSC1"_s, u"JPG"_s}},
    {"no_extension", u"c:\\data\\readme"_s, {u"C:"_s, u"\\DATA\\"_s, u"README"_s, u""_s}},
    {"dot_at_the_end", u"c:\\data\\readme."_s, {u"C:"_s, u"\\DATA\\"_s, u"README"_s, u""_s}},
    {"two_dots", u"c:\\a.b.jpg"_s, {u"C:"_s, u"\\"_s, u"A"_s, u"B.JPG"_s}},
    {"dot_in_the_directory", u"c:\\my.dir\\a.jpg"_s, {u"C:"_s, u"\\"_s, u"MY"_s, u"DIR\\A.JPG"_s}},
    {"bracket", u"c:[vol]a.jpg"_s, {u"C:"_s, u""_s, u"A"_s, u"JPG"_s}},
    {"first_bracket_only", u"[a]b]c.jpg"_s, {u""_s, u""_s, u"B]C"_s, u"JPG"_s}},
    {"directory_only", u"c:\\vassnap\\"_s, {u"C:"_s, u"\\VASSNAP\\"_s, u""_s, u""_s}},
    {"drive_only", u"c:"_s, {u"C:"_s, u""_s, u""_s, u""_s}},
    {"hidden", u".jpg"_s, {u""_s, u""_s, u""_s, u"JPG"_s}},
    {"lone_dot", u"."_s, {}},
    {"colon_elsewhere", u"abc:d.txt"_s, {u""_s, u""_s, u"ABC:D"_s, u"TXT"_s}},
};

INSTANTIATE_TEST_SUITE_P(Rows, ParseFileNameTest, testing::ValuesIn(kNames),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ParseFileName, HelpersGiveOnePart)
{
    const QString path = u"c:\\VasSnap\\dsc1.jpg"_s;
    EXPECT_EQ(FileNameOnly(path), u"DSC1"_s);
    EXPECT_EQ(FileExtension(path), u"JPG"_s);
}

TEST(IsTrashDirectory, LooksAtTheEndOfTheDirectory)
{
    EXPECT_TRUE(IsTrashDirectory(u"C:\\VASSNAP\\trashcan\\"_s));
    EXPECT_TRUE(IsTrashDirectory(u"C:\\VASSNAP\\TRASHCAN\\dsc1.jpg"_s));
    EXPECT_TRUE(IsTrashDirectory(u"TRASHCAN\\"_s));
    EXPECT_FALSE(IsTrashDirectory(u"C:\\VASSNAP\\TRASHCAN"_s));
    EXPECT_FALSE(IsTrashDirectory(u"C:\\TRASHCAN\\MORE\\"_s));
    EXPECT_FALSE(IsTrashDirectory(u""_s));
}

struct MakeDirectoryTest : testing::Test
{
    QTemporaryDir home;
    files::Disk disk{tests::WithOwnDrive(home.path())};
    tests::TestPorts ports;
};

TEST_F(MakeDirectoryTest, SaysWhatItMakes)
{
    MakeDirectory(disk, ports.prompter, u"C:\\VASSNAP\\"_s);
    EXPECT_TRUE(disk.DirExists(u"C:\\VASSNAP"_s));
    const tests::ShownBox wanted{forms::Buttons::Ok, forms::Icon::None, u"Creating Directory"_s,
                                 u"Creating directory C:\\VASSNAP."_s};
    ASSERT_EQ(ports.prompter.Boxes().size(), 1U);
    EXPECT_EQ(ports.prompter.Boxes()[0], wanted);
    MakeDirectory(disk, ports.prompter, u"c:\\vassnap"_s);
    EXPECT_EQ(ports.prompter.Boxes().size(), 1U);
}

TEST_F(MakeDirectoryTest, MakesTheDirectoriesAbove)
{
    MakeDirectory(disk, ports.prompter, u"C:\\DATABOOK\\ARCHIVE\\OLD"_s);
    EXPECT_TRUE(disk.DirExists(u"C:\\DATABOOK\\ARCHIVE\\OLD"_s));
    EXPECT_EQ(ports.prompter.Texts(), QStringList{u"Creating directory C:\\DATABOOK\\ARCHIVE\\OLD."_s});
}

TEST_F(MakeDirectoryTest, ADriveIsThere)
{
    MakeDirectory(disk, ports.prompter, u"C:"_s);
    MakeDirectory(disk, ports.prompter, u"C:\\"_s);
    MakeDirectory(disk, ports.prompter, u"  "_s);
    EXPECT_TRUE(ports.prompter.Boxes().empty());
}

TEST_F(MakeDirectoryTest, AFileInTheWayIsAnError)
{
    disk.WriteWhole(u"C:\\PHOTOS"_s, "x");
    EXPECT_THROW(MakeDirectory(disk, ports.prompter, u"C:\\PHOTOS\\NEW"_s), RuntimeError);
}

} // namespace
} // namespace vasclip::common
