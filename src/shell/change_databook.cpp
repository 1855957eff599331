// Another Databook in place of the one that is open.

#include "shell/databook_in_use.h"

#include "common/error_block.h"
#include "databook/databook_upgrade.h"
#include "databook/switch_databook.h"
#include "platform/text/text.h"
#include "shell/convert_offer.h"
#include "shell/frm_change_db.h"
#include "shell/program.h"
#include "shell/record_on_show.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void DatabookInUse::ChangeDatabase()
{
    const common::RoutineScope scope{"ChangeDatabase"};
    QStringList offered;
    {
        const forms::Hourglass hourglass(m_program.Ports().window);
        offered = store::OfferedDatabases(m_program.Engine(), m_program.globals.G_DataDir,
                                          m_program.globals.G_Table);
    }
    frm_ChangeDB choice(m_program.globals.G_DataDir, offered, m_program.globals.G_DataFile);
    m_program.Ports().screens.ShowModal(choice);
    if (!choice.Chosen().isEmpty() &&
        text::Folded(choice.Chosen()) != text::Folded(m_program.globals.G_DataFile))
        SwitchDatabook(m_program.globals.G_DataDir, choice.Chosen());
}

/// A Databook of an older layout is asked about here as at the start. Reference files that can't be read end a start; a
/// change goes on with the fields that the file has.
void DatabookInUse::OfferUpgrade(const QString& path)
{
    if (m_program.life.readOnlyHome || !m_program.Disk().Found(path, files::ReadOnly | files::Hidden))
        return;
    store::DataSource none(m_program.Engine(), u"datDatabook"_s); // the present Databook stays open
    try {
        databook::CheckCompDBF2(m_program.Ports(), m_program.Engine(), m_program.globals, none, path,
                                m_program.globals.G_Table);
    } catch (const forms::EndOfProgram&) {
    }
}

bool DatabookInUse::SwitchDatabook(const QString& directory, const QString& file)
{
    OfferConversion(m_program, directory + file, m_program.globals.G_Table);
    OfferUpgrade(directory + file);
    bool letGo = false;
    const auto opening = [&] {
        letGo = true;
        m_place.tabSource.SetTab(0);
        m_place.lblChangingDB.SetVisible(true);
        m_program.records.grddatabook.Rebind(nullptr);
        m_program.Ports().pump.DoEvents();
    };
    const bool opened = databook::SwitchDatabook(m_program.Ports(), m_program.sources, m_program.globals, directory,
                                                 file, opening);
    if (!letGo)
        return false;
    if (opened)
        ReadCaption();
    m_place.lblChangingDB.SetVisible(false);
    m_shown.DisplayAllRecords();
    if (opened) {
        CheckDatabook(engine::CheckDepth::Opening);
        m_program.TellLocks();
        m_program.UndoKilledTransfers();
    }
    return opened;
}

} // namespace vasclip::shell
