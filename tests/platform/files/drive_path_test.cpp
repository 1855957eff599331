#include "platform/files/drive_path.h"

#include "platform/text/runtime_error.h"
#include "support/error_number.h"

#include <gtest/gtest.h>

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
        {"plain", QStringLiteral("C:\\VASSNAP\\A.JPG"), QStringLiteral("C:\\VASSNAP\\A.JPG")},
        {"small drive letter", QStringLiteral("c:\\a"), QStringLiteral("C:\\a")},
        {"forward slashes", QStringLiteral("C:/a/b"), QStringLiteral("C:\\a\\b")},
        {"doubled separators", QStringLiteral("C:\\a\\\\b"), QStringLiteral("C:\\a\\b")},
        {"closed", QStringLiteral("C:\\a\\"), QStringLiteral("C:\\a\\")},
        {"the root", QStringLiteral("C:\\"), QStringLiteral("C:\\")},
        {"the drive alone", QStringLiteral("C:"), QStringLiteral("C:\\")},
        {"no separator behind the drive", QStringLiteral("C:a\\b"), QStringLiteral("C:\\a\\b")},
        {"dots", QStringLiteral("C:\\a\\.\\b\\..\\c"), QStringLiteral("C:\\a\\c")},
        {"up to the root", QStringLiteral("C:\\a\\.."), QStringLiteral("C:\\")},
        {"dots and blanks at the end of a name", QStringLiteral("C:\\a.\\b. ."), QStringLiteral("C:\\a\\b")},
        {"accents and apostrophes", QStringLiteral("C:\\Ren\u00E9's\\O'Neil.jpg"),
         QStringLiteral("C:\\Ren\u00E9's\\O'Neil.jpg")},
        {"a name like a device", QStringLiteral("C:\\console\\com10"), QStringLiteral("C:\\console\\com10")},
        {"255 characters", QStringLiteral("C:\\") + QString(255, u'x'),
         QStringLiteral("C:\\") + QString(255, u'x')},
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
        {"empty", QString(), 52, QStringLiteral("Bad file name or number: \"\" is no path, it is empty")},
        {"relative", QStringLiteral("photos\\a.jpg"), 52,
         QStringLiteral(
             "Bad file name or number: \"photos\\a.jpg\" does not begin with a drive, such as C:\\")},
        {"rooted without a drive", QStringLiteral("\\photos"), 52,
         QStringLiteral("Bad file name or number: \"\\photos\" does not begin with a drive, such as C:\\")},
        {"native", QStringLiteral("/tmp/a"), 52,
         QStringLiteral("Bad file name or number: \"/tmp/a\" does not begin with a drive, such as C:\\")},
        {"a machine", QStringLiteral("\\\\server\\share"), 52,
         QStringLiteral(
             "Bad file name or number: \"\\\\server\\share\" names a machine; give its share a drive letter "
             "in drives.ini")},
        {"a digit as drive", QStringLiteral("1:\\a"), 52,
         QStringLiteral("Bad file name or number: \"1:\\a\" does not begin with a drive, such as C:\\")},
        {"device", QStringLiteral("C:\\nul"), 52,
         QStringLiteral("Bad file name or number: \"C:\\nul\" holds the name of a device")},
        {"device with an extension", QStringLiteral("C:\\a\\Com1.txt"), 52,
         QStringLiteral("Bad file name or number: \"C:\\a\\Com1.txt\" holds the name of a device")},
        {"colon", QStringLiteral("C:\\a:b"), 52,
         QStringLiteral("Bad file name or number: \"C:\\a:b\" holds the character :")},
        {"quote", QStringLiteral("C:\\a\"b"), 52,
         QStringLiteral("Bad file name or number: \"C:\\a\"b\" holds the character \"")},
        {"line break", QStringLiteral("C:\\a\nb"), 52,
         QStringLiteral("Bad file name or number: \"C:\\a\nb\" holds a control character")},
        {"wildcard", QStringLiteral("C:\\*.jpg"), 52,
         QStringLiteral("Bad file name or number: \"C:\\*.jpg\" holds * or ?, and one name is wanted")},
        {"three dots", QStringLiteral("C:\\a\\..."), 52,
         QStringLiteral("Bad file name or number: \"C:\\a\\...\" holds a name of dots and blanks alone")},
        {"above the root", QStringLiteral("C:\\.."), 76,
         QStringLiteral("Path not found: \"C:\\..\" leaves its drive")},
        {"down and above the root", QStringLiteral("C:\\a\\..\\..\\etc"), 76,
         QStringLiteral("Path not found: \"C:\\a\\..\\..\\etc\" leaves its drive")},
        {"300 characters", QStringLiteral("C:\\") + QString(300, u'x'), 76,
         QStringLiteral(
             "Path not found: a name in \"C:\\%1...\" has 300 characters, and a disk holds 255 at most")
             .arg(QString(117, u'x'))},
    };
    for (const Refusal& row : rows) {
        const auto thrown = ThrownBy([&] { return ParseDrivePath(row.given, Wildcards::Refused).Text(); });
        EXPECT_EQ(thrown.number, row.number) << row.name;
        EXPECT_EQ(thrown.words, row.words) << row.name;
    }
}

TEST(DrivePath, TakesAPatternOnlyInTheLastPart)
{
    EXPECT_EQ(ParseDrivePath(QStringLiteral("C:\\a\\*.jp?"), Wildcards::InLastPart).parts.last(), u"*.jp?");
    const auto thrown =
        ThrownBy([] { return ParseDrivePath(QStringLiteral("C:\\a*\\b"), Wildcards::InLastPart).Text(); });
    EXPECT_EQ(thrown.number, error::kBadFileName);
    EXPECT_EQ(thrown.words,
              QStringLiteral("Bad file name or number: \"C:\\a*\\b\" holds * or ? in a directory's name"));
}

} // namespace
} // namespace vasclip::files
