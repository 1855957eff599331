#include "upkeep/file_names.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

const QDateTime kNow({2026, 3, 7}, {9, 5, 2});

TEST(StampFileName, PutsTheTimeBetweenStemAndExtension)
{
    EXPECT_EQ(StampFileName(true, u"EXPORT.MDB"_s, kNow), u"EXPORT_03-07-26_090502.MDB"_s);
    EXPECT_EQ(StampFileName(true, u"old"_s, kNow), u"old_03-07-26_090502.MDB"_s);
}

TEST(StampFileName, WithoutAStampGivesStemAndExtension)
{
    EXPECT_EQ(StampFileName(false, u"EXPORT.MDB"_s, kNow), u"EXPORT.MDB"_s);
    EXPECT_EQ(StampFileName(false, u"export.mdb"_s, kNow), u"export.MDB"_s);
    EXPECT_EQ(StampFileName(false, u"EXPORT"_s, kNow), u"EXPORT.MDB"_s);
}

TEST(StampFileName, TakesDotsAndSlashesOut)
{
    EXPECT_EQ(StampFileName(false, u"a.b/c.txt"_s, kNow), u"abctxt.MDB"_s);
    EXPECT_EQ(StampFileName(true, u"a.b.mdb"_s, kNow), u"ab_03-07-26_090502.MDB"_s);
}

TEST(AddMDBExtension, LooksForCapitalsAlone)
{
    EXPECT_EQ(AddMDBExtension(u"A.MDB"_s), u"A.MDB"_s);
    EXPECT_EQ(AddMDBExtension(u"A.MDB.OLD"_s), u"A.MDB.OLD"_s);
    EXPECT_EQ(AddMDBExtension(u"a.mdb"_s), u"a.mdb.MDB"_s);
    EXPECT_EQ(AddMDBExtension(u"A"_s), u"A.MDB"_s);
}

TEST(DatabaseName, IsOneThatTheListsShow)
{
    EXPECT_EQ(DatabaseName(u"MAY.2026"_s), u"MAY.2026.MDB"_s);
    EXPECT_EQ(DatabaseName(u"may.mdb"_s), u"may.mdb"_s);
    EXPECT_EQ(DatabaseName(u" MAY "_s), u"MAY.MDB"_s);
    EXPECT_EQ(DatabaseName(u" "_s), QString());
}

TEST(DatabaseName, MakesNoneOfADirectory)
{
    for (const QString& directory : {u"C:\\OLD\\"_s, u"C:\\OLD/"_s, u"\\"_s})
        EXPECT_EQ(DatabaseName(directory), directory);
    EXPECT_EQ(DatabaseName(u".MDB"_s), QString());
    EXPECT_EQ(DatabaseName(u"C:\\OLD\\.mdb"_s), u"C:\\OLD\\"_s);
}

class Protected : public ::testing::TestWithParam<QString>
{};

TEST_P(Protected, IsKnownWithAndWithoutItsExtensionInAnyCase)
{
    EXPECT_TRUE(IsProtectedDatabase(GetParam()));
    EXPECT_TRUE(IsProtectedDatabase(GetParam() + u".MDB"_s));
    EXPECT_TRUE(IsProtectedDatabase(GetParam().toLower() + u".mdb"_s));
    EXPECT_FALSE(IsProtectedDatabase(u"MY"_s + GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Installed, Protected,
                         ::testing::Values(u"DATABOOK"_s, u"NEW"_s, u"NEWDATA"_s, u"COMP2KEL"_s,
                                           u"COMP2KEL2"_s, u"COMP2KEL10"_s, u"COMP2KEL12"_s, u"COMP2KEL13"_s,
                                           u"COMP2KEL15"_s, u"EMPTY"_s, u"OFFICE"_s, u"REPORT"_s,
                                           u"NEWOFFICE"_s, u"COMMENTS"_s, u"NEWCMTS"_s, u"VASCLIP"_s,
                                           u"VASCTL"_s, u"KELFORMS"_s, u"TEMPCOMP"_s, u"TEMPCMTS"_s,
                                           u"TEMPDAT"_s));

TEST(Protected, LeavesOtherNamesFree)
{
    EXPECT_FALSE(IsProtectedDatabase(u"EXPORT"_s));
    EXPECT_FALSE(IsProtectedDatabase(u""_s));
    EXPECT_FALSE(IsProtectedDatabase(u"ARCHIVE.MDB"_s));
}

} // namespace
} // namespace vasclip::upkeep
