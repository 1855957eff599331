#pragma once

#include "support/hooked_prompter.h"
#include "upkeep/archive_home.h"
#include "upkeep/frm_archive.h"

namespace vasclip::upkeep {

class FrmArchive : public ArchiveHome
{
protected:
    std::unique_ptr<frm_Archive> screen;
    int letGo = 0;
    bool showFails = false, letGoFails = false;
    int shown = 0;
    tests::HookedPrompter asked; ///< whose boxes others may come between
    forms::Ports hooked{asked, ports.pump, ports.clock, ports.random, ports.window, ports.screens};

    void SetUp() override
    {
        ArchiveHome::SetUp();
        globals.productName = u"Vasclip"_s;
        globals.G_DataDir = u"C:\\"_s;
        globals.G_ProgramDir = u"C:\\VAS2000\\"_s;
        globals.G_Table = table;
        globals.G_ArchiveDir = u"C:\\ARCHIVE\\"_s;
        globals.G_ArchiveFile = u"OLD.MDB"_s;
        globals.G_ArchiveTable = table;
        disk.MkDir(u"C:\\VAS2000"_s);
        Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s, u"new"_s);
        Comp(u"2 B ST"_s, u"05/05/2005"_s);
        Bind(source);
        OpenScreen(ports);
    }
    void OpenScreen(const forms::Ports& over)
    {
        screen = std::make_unique<frm_Archive>(TransferDesk{source, globals, over}, [this] {
            ++letGo;
            if (letGoFails)
                throw RuntimeError(3187, u"Could not read; currently locked by another user"_s);
        }, [this] {
            ++shown;
            if (showFails)
                throw RuntimeError(3187, u"Could not read; currently locked by another user"_s);
        });
        screen->Open();
    }
    void Dates(const QString& start, const QString& stop)
    {
        screen->txtstartdate.SetText(start);
        screen->txtenddate.SetText(stop);
    }
    void Click(forms::Button& button) { Q_EMIT button.Clicked(); }
    [[nodiscard]] QString Says() const { return screen->lblmsg.Caption(); }
};

} // namespace vasclip::upkeep
