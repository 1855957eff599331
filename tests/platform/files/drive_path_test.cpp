#include "platform/files/drive_path.h"

#include "platform/text/runtime_error.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

using tests::ThrownBy;

struct Row
{
    const char* name;
    QString given;
    QString wanted;
};

TEST(DrivePath, IsTakenApartByItsText)
{
    const Row rows[] = {
        {"plain", u"C:\\VASSNAP\\A.JPG"_s, u"C:\\VASSNAP\\A.JPG"_s},
        {"small drive letter", u"c:\\a"_s, u"C:\\a"_s},
        {"forward slashes", u"C:/a/b"_s, u"C:\\a\\b"_s},
        {"doubled separators", u"C:\\a\\\\b"_s, u"C:\\a\\b"_s},
        {"closed", u"C:\\a\\"_s, u"C:\\a\\"_s},
        {"the root", u"C:\\"_s, u"C:\\"_s},
        {"the drive alone", u"C:"_s, u"C:\\"_s},
        {"no separator behind the drive", u"C:a\\b"_s, u"C:\\a\\b"_s},
        {"dots", u"C:\\a\\.\\b\\..\\c"_s, u"C:\\a\\c"_s},
        {"up to the root", u"C:\\a\\.."_s, u"C:\\"_s},
        {"dots and blanks at the end of a name", u"C:\\a.\\b. ."_s, u"C:\\a\\b"_s},
        {"accents and apostrophes", u"C:\\Ren\u00E9's\\O'Neil.jpg"_s, u"C:\\Ren\u00E9's\\O'Neil.jpg"_s},
        {"a name like a device", u"C:\\console\\com10"_s, u"C:\\console\\com10"_s},
        {"255 characters", u"C:\\"_s + QString(255, u'x'), u"C:\\"_s + QString(255, u'x')},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ParseDrivePath(row.given, Wildcards::Refused).Text(), row.wanted) << row.name;
}

TEST(DrivePath, RefusesWhatNoDriveCanHold)
{
    struct Refusal
    {
        const char* name;
        QString given;
        int number;
        QString words;
    };
    const Refusal rows[] = {
        {"empty", QString(), 52, u"Bad file name or number: \"\" is no path, it is empty"_s},
        {"relative", u"photos\\a.jpg"_s, 52,
         u"Bad file name or number: \"photos\\a.jpg\" does not begin with a drive, such as C:\\"_s},
        {"rooted without a drive", u"\\photos"_s, 52,
         u"Bad file name or number: \"\\photos\" does not begin with a drive, such as C:\\"_s},
        {"native", u"/tmp/a"_s, 52,
         u"Bad file name or number: \"/tmp/a\" does not begin with a drive, such as C:\\"_s},
        {"a machine", u"\\\\server\\share"_s, 52,
         u"Bad file name or number: \"\\\\server\\share\" names a machine; give its share a drive letter "
         "in drives.ini"_s},
        {"a digit as drive", u"1:\\a"_s, 52,
         u"Bad file name or number: \"1:\\a\" does not begin with a drive, such as C:\\"_s},
        {"device", u"C:\\nul"_s, 52, u"Bad file name or number: \"C:\\nul\" holds the name of a device"_s},
        {"device with an extension", u"C:\\a\\Com1.txt"_s, 52,
         u"Bad file name or number: \"C:\\a\\Com1.txt\" holds the name of a device"_s},
        {"colon", u"C:\\a:b"_s, 52, u"Bad file name or number: \"C:\\a:b\" holds the character :"_s},
        {"quote", u"C:\\a\"b"_s, 52, u"Bad file name or number: \"C:\\a\"b\" holds the character \""_s},
        {"line break", u"C:\\a\nb"_s, 52,
         u"Bad file name or number: \"C:\\a\nb\" holds a control character"_s},
        {"wildcard", u"C:\\*.jpg"_s, 52,
         u"Bad file name or number: \"C:\\*.jpg\" holds * or ?, and one name is wanted"_s},
        {"three dots", u"C:\\a\\..."_s, 52,
         u"Bad file name or number: \"C:\\a\\...\" holds a name of dots and blanks alone"_s},
        {"above the root", u"C:\\.."_s, 76, u"Path not found: \"C:\\..\" leaves its drive"_s},
        {"down and above the root", u"C:\\a\\..\\..\\etc"_s, 76,
         u"Path not found: \"C:\\a\\..\\..\\etc\" leaves its drive"_s},
        {"300 characters", u"C:\\"_s + QString(300, u'x'), 76,
         u"Path not found: a name in \"C:\\%1...\" has 300 characters, and a disk holds 255 at most"_s.arg(
             QString(117, u'x'))},
    };
    for (const Refusal& row : rows) {
        const auto thrown = ThrownBy([&] { return ParseDrivePath(row.given, Wildcards::Refused).Text(); });
        EXPECT_EQ(thrown.number, row.number) << row.name;
        EXPECT_EQ(thrown.words, row.words) << row.name;
    }
}

TEST(DrivePath, TakesAPatternOnlyInTheLastPart)
{
    EXPECT_EQ(ParseDrivePath(u"C:\\a\\*.jp?"_s, Wildcards::InLastPart).parts.last(), u"*.jp?");
    const auto thrown = ThrownBy([] { return ParseDrivePath(u"C:\\a*\\b"_s, Wildcards::InLastPart).Text(); });
    EXPECT_EQ(thrown.number, error::kBadFileName);
    EXPECT_EQ(thrown.words, u"Bad file name or number: \"C:\\a*\\b\" holds * or ? in a directory's name"_s);
}

} // namespace
} // namespace vasclip::files
