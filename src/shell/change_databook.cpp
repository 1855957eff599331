// Another Databook in place of the one that is open.

#include "shell/databook_in_use.h"

#include "common/error_block.h"
#include "databook/grid.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "shell/frm_change_db.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "store/messages.h"

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

bool DatabookInUse::SwitchDatabook(const QString& directory, const QString& file)
{
    const common::RoutineScope scope{"SwitchDatabook"};
    auto& prompter = m_program.Prompter();
    const QString path = directory + file;
    const QString present = m_program.DatabookPath();
    try {
        if (m_program.Disk().Found(path, files::ReadOnly | files::Hidden))
            (void)m_program.Engine()
                .OpenDatabase(path, engine::OpenMode::ReadOnly)
                ->Table(m_program.globals.G_Table);
    } catch (const RuntimeError& failure) {
        const bool taken =
            failure.Number() == error::kCouldNotReadLocked || failure.Number() == error::kExclusivelyLocked;
        if (taken) { // it is whole, but somebody has it
            prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
                            u"%1. The database %2 stays open."_s.arg(failure.Description(), present));
            return false;
        }
    }
    if (!store::Ismdb(m_program.Engine(), path, m_program.globals.G_Table)) {
        prompter.MsgBox(
            forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
            u"%1 is missing, damaged, or holds no table %2 of comps. The database %3 stays open."_s.arg(
                path, m_program.globals.G_Table, present));
        return false;
    }
    m_place.tabSource.SetTab(0);
    m_place.lblChangingDB.SetVisible(true);
    m_program.records.grddatabook.Rebind(nullptr);
    m_program.Ports().pump.DoEvents();
    bool opened = false;
    try {
        store::Connect2Databook(m_program.Ports(), m_program.sources, path, m_program.globals.G_Table);
        opened = text::Folded(m_program.sources.datsql.DatabaseName()) == text::Folded(path);
    } catch (const RuntimeError& failure) {
        common::ReportError(prompter, failure);
    }
    if (opened) {
        m_program.globals.G_DataDir = directory;
        m_program.globals.G_DataFile = file;
        ReadCaption();
    } else {
        store::Connect2Databook(m_program.Ports(), m_program.sources, present, m_program.globals.G_Table);
    }
    m_place.lblChangingDB.SetVisible(false);
    m_shown.DisplayAllRecords();
    if (opened)
        CheckDatabook(engine::CheckDepth::Opening);
    return opened;
}

} // namespace vasclip::shell
