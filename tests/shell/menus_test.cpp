#include "shell/menus.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

QStringList Captions(const QList<forms::MenuEntry>& entries)
{
    QStringList lines;
    for (const forms::MenuEntry& entry : entries)
        lines.append(QString::number(entry.index) + u' ' + entry.caption);
    return lines;
}

struct MenusTest : testing::Test
{
    forms::ControlSet controls;
    shell::Menus menus{controls};
};

TEST_F(MenusTest, FileEntriesInStoredOrder)
{
    const auto entries = menus.mnuFileItem.Entries();
    EXPECT_EQ(Captions(entries),
              (QStringList{u"0 Launch Appraisal Program"_s, u"1 -"_s, u"2 Copy Photos - From Floppy"_s,
                           u"3 Copy Photos - From Reader"_s, u"4 Copy Photos - From ROM"_s, u"5 -"_s,
                           u"6 Find Photos"_s, u"7 -"_s, u"8 Export Address/Comp Data"_s,
                           u"9 Print Comparable Report (from Database)"_s, u"10 -"_s, u"11 Exit"_s}));
    EXPECT_EQ(Captions(entries[8].subEntries),
              (QStringList{u"0 To Delorme (tm) Street Atlas (current)"_s,
                           u"1 To Delorme (tm) Street Atlas (2004 and prior)"_s, u"2 -"_s,
                           u"3 To Microsoft (tm) Streets (current)"_s,
                           u"4 To Microsoft (tm) Streets (2001 and prior)"_s}));
}

TEST_F(MenusTest, TransferEntriesSubjectFirst)
{
    EXPECT_EQ(
        Captions(menus.mnuTransferItem.Entries()),
        (QStringList{u"0 Subject: Appraisal to Databook"_s, u"1 -"_s, u"2 Comps 1-9: Appraisal to Databook"_s,
                     u"3 Alt Comps 1-6: Appraisal to Databook"_s, u"4 Listings 1-6: Appraisal to Databook"_s,
                     u"5 Rentals 1-9: Appraisal to Databook"_s, u"6 -"_s,
                     u"7 All Data: Appraisal to Databook"_s}));
}

TEST_F(MenusTest, OtherMenusInStoredOrder)
{
    EXPECT_EQ(Captions(menus.mnuSetupItem.Entries()),
              (QStringList{u"0 Configuration"_s, u"1 -"_s, u"2 Grid Layout"_s, u"3 City Listings"_s, u"4 -"_s,
                           u"5 View Capture Image Names"_s, u"6 View Image Filename Listing"_s, u"7 -"_s,
                           u"8 Hide Manual Comp Entry"_s, u"9 -"_s, u"10 General Views"_s}));
    EXPECT_EQ(Captions(menus.mnuMaintItem.Entries()),
              (QStringList{u"0 Data Correction"_s, u"1 -"_s, u"2 Camera Views"_s, u"3 City Editing"_s,
                           u"4 Trashcan Maintenance"_s, u"5 -"_s, u"6 Map Data"_s}));
    EXPECT_EQ(Captions(menus.mnuRefreshItem.Entries()), (QStringList{u"0 Appraisal Information"_s, u"1 -"_s,
                                                              u"2 Database Grid (all records shown)"_s}));
    EXPECT_EQ(Captions(menus.mnuDBItem.Entries()),
              (QStringList{u"0 Import Data"_s, u"1 Export Data"_s, u"2 Archive Data"_s, u"3 -"_s,
                           u"4 Change Current Database"_s}));
    EXPECT_EQ(Captions(menus.mnuHelpItem.Entries()),
              (QStringList{u"0 Program Help"_s, u"1 Tutorials"_s, u"2 What's New?"_s, u"8 -"_s,
                           u"9 Connect to Website"_s, u"11 -"_s, u"12 About"_s}));
}

TEST_F(MenusTest, EachNumberStandsOnceInAMenu)
{
    const auto check = [](const QString& array, const QList<forms::MenuEntry>& entries, const auto& again) -> void {
        QSet<int> numbers;
        for (const forms::MenuEntry& entry : entries) {
            EXPECT_FALSE(numbers.contains(entry.index)) << array.toStdString() << " has " << entry.index << " twice";
            numbers.insert(entry.index);
            again(entry.subName, entry.subEntries, again);
        }
    };
    for (const forms::Menu* menu : menus.All()) {
        EXPECT_FALSE(menu->Entries().isEmpty()) << menu->Name().toStdString() << " has no table";
        check(menu->Name(), menu->Entries(), check);
    }
}

TEST_F(MenusTest, AnEntryWithoutAScreenIsDisabled)
{
    for (const auto& entry : menus.mnuFileItem.Entries())
        EXPECT_EQ(entry.enabled, QList<int>({0, 2, 3, 4, 6, 8, 9, 11}).contains(entry.index)) << entry.caption.toStdString();
    for (const auto& entry : menus.mnuMaintItem.Entries())
        EXPECT_EQ(entry.enabled, QList<int>({0, 2, 3, 4, 6}).contains(entry.index)) << entry.caption.toStdString();
}

} // namespace
