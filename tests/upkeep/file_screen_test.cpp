// The line at the bottom of the screens that choose a file.

#include "transfer_home.h"

#include "upkeep/export_table.h"
#include "upkeep/frm_archive.h"
#include "upkeep/frm_import.h"

namespace vasclip::upkeep {
namespace {

class ChosenFile : public TransferHome
{
protected:
    const QString damaged = u"C:\\EXPORT\\CUT.MDB"_s;
    const QString words = u"C:\\EXPORT\\CUT.MDB is damaged, and not all of it can be read: "_s;

    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
        globals.G_ImportDir = u"C:\\EXPORT\\"_s;
        globals.G_ArchiveDir = u"C:\\EXPORT\\"_s;
        globals.G_ImportTable = globals.G_ArchiveTable = table;
        ASSERT_TRUE(ExportTable(Desk(), {.target = damaged, .table = table, .search = {}, .access = true}, Step()).written);
        QFile file(disk.ToNative(damaged));
        ASSERT_TRUE(file.resize(50'000));
        store::MakeDatabase(engine, u"C:\\EXPORT\\SOUND.MDB"_s);
    }
    static void Choose(forms::ListBox& list, const QString& name)
    {
        for (int i = 0; i < list.ListCount(); ++i)
            if (list.List(i) == name)
                list.SetListIndex(i);
    }
};

TEST_F(ChosenFile, WhatWasWrongWithTheOneBeforeGoes)
{
    frm_Import screen(Desk());
    screen.Open();
    EXPECT_EQ(screen.lblmsg.Caption(), QString());
    for (int round = 0; round < 2; ++round) {
        Choose(screen.filexport, u"CUT.MDB"_s);
        EXPECT_TRUE(screen.lblmsg.Caption().startsWith(words)) << screen.lblmsg.Caption().toStdString();
        EXPECT_EQ(screen.lblmsg.Fore(), forms::Colour::Red);
        Choose(screen.filexport, u"SOUND.MDB"_s);
        EXPECT_EQ(screen.lblmsg.Caption(), QString());
    }
    disk.Kill(damaged);
    store::MakeDatabase(engine, damaged);
    Choose(screen.filexport, u"CUT.MDB"_s);
    EXPECT_EQ(screen.lblmsg.Caption(), QString()) << "it was put right meanwhile";
}

TEST_F(ChosenFile, WhatAnImportDidStaysAndWhyItCouldNotGoes)
{
    frm_Import screen(Desk());
    screen.Open();
    Choose(screen.filexport, u"SOUND.MDB"_s);
    screen.cmdImport_Click();
    const QString done = u"0 records of C:\\EXPORT\\SOUND.MDB were added to the Databook."_s;
    EXPECT_EQ(screen.lblmsg.Caption(), done);
    screen.txtFileName.SetText(u"OTHER.MDB"_s);
    Q_EMIT screen.txtFileName.LostFocus();
    EXPECT_NE(screen.lblmsg.Fore(), forms::Colour::Red);
    screen.txtFileName.SetText(u"A-B.MDB"_s);
    screen.cmdImport_Click();
    EXPECT_TRUE(screen.lblmsg.Caption().contains(u"contains dashes"_s));
    Choose(screen.filexport, u"SOUND.MDB"_s);
    Q_EMIT screen.filexport.Clicked();
    EXPECT_EQ(screen.lblmsg.Caption(), QString());
}

TEST_F(ChosenFile, OfTheArchivesScreenToo)
{
    frm_Archive screen(Desk(), [] {}, [] {});
    screen.Open();
    Choose(screen.lstdatabases, u"CUT.MDB"_s);
    EXPECT_TRUE(screen.lblmsg.Caption().startsWith(words)) << screen.lblmsg.Caption().toStdString();
    Choose(screen.lstdatabases, u"SOUND.MDB"_s);
    EXPECT_EQ(screen.lblmsg.Caption(), QString());
}

} // namespace
} // namespace vasclip::upkeep
