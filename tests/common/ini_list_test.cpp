#include "common/ini_list.h"

#include "platform/files/profile.h"
#include "support/own_drive.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

struct IniListTest : testing::Test
{
    QTemporaryDir home;
    files::Disk disk{tests::WithOwnDrive(home.path())};
    IniListPlace place = [] {
        Globals globals;
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        return GeneralViews(globals);
    }();
    forms::ControlSet set;
    forms::ListBox list{set, u"lstGenViews"_s};
    QStringList Keys() const { return files::ProfileKeys(disk, place.section, place.file); }
};

TEST_F(IniListTest, LoadsUntilTheFirstEmptyValue)
{
    disk.WriteWhole(place.file,
                    "[GENERAL VIEWS]\r\nGENERALVIEW1=KITCHEN\r\ngeneralview2=BATH\r\nGENERALVIEW3=\r\n"
                    "GENERALVIEW4=PORCH\r\n");
    LoadList(list, disk, place);
    EXPECT_EQ(list.Items(), (QStringList{u"KITCHEN"_s, u"BATH"_s}));
}

TEST_F(IniListTest, LoadsACountWithItsGaps)
{
    disk.WriteWhole(place.file,
                    "[GENERAL VIEWS]\r\nGENERALVIEW1=KITCHEN\r\nGENERALVIEW3=PORCH\r\nGENERALVIEW4=X\r\n");
    LoadList(list, disk, place, 3);
    EXPECT_EQ(list.Items(), (QStringList{u"KITCHEN"_s, u""_s, u"PORCH"_s}));
    list.Clear();
    LoadList(list, disk, place, 0);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(IniListTest, AMissingFileIsAnEmptyList)
{
    LoadList(list, disk, place);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(IniListTest, WritesBackAndForgetsWhatWasRemoved)
{
    disk.WriteWhole(place.file, "; mine\r\n[GENERAL VIEWS]\r\nGENERALVIEW1=KITCHEN\r\nGENERALVIEW2=BATH\r\n"
                                "GENERALVIEW3=PORCH\r\nLAST=7\r\n[OTHER]\r\nGENERALVIEW3=stays\r\n");
    LoadList(list, disk, place);
    EXPECT_TRUE(RemoveFromList(list, u"bath"_s, Case::Ignored));
    EXPECT_TRUE(SaveList(list, disk, place));
    EXPECT_EQ(Keys(), (QStringList{u"GENERALVIEW1"_s, u"GENERALVIEW2"_s, u"LAST"_s}));
    EXPECT_EQ(files::GetPrivateProfileString(disk, u"OTHER"_s, u"GENERALVIEW3"_s, {}, place.file),
              u"stays"_s);
    forms::ListBox again(set, u"lstAgain"_s);
    LoadList(again, disk, place);
    EXPECT_EQ(again.Items(), (QStringList{u"KITCHEN"_s, u"PORCH"_s}));
}

TEST_F(IniListTest, ComparesTrimmedText)
{
    list.AddItem(u" Kitchen "_s);
    EXPECT_EQ(FindInList(list, u"Kitchen"_s, Case::Matters), 0);
    EXPECT_EQ(FindInList(list, u"KITCHEN"_s, Case::Matters), -1);
    EXPECT_EQ(FindInList(list, u" KITCHEN"_s, Case::Ignored), 0);
    EXPECT_FALSE(AddUnlessPresent(list, u"KITCHEN"_s, Case::Ignored));
    EXPECT_TRUE(AddUnlessPresent(list, u" KITCHEN "_s, Case::Matters));
    EXPECT_EQ(list.Items(), (QStringList{u" Kitchen "_s, u"KITCHEN"_s}));
    EXPECT_FALSE(RemoveFromList(list, u"PORCH"_s, Case::Ignored));
    EXPECT_EQ(list.ListCount(), 2);
}

} // namespace
} // namespace vasclip::common
