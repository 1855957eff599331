// What the screens of export and import delete: a table, a database.

#include "upkeep/file_screen.h"

#include "platform/text/text.h"
#include "upkeep/tables.h"
#include "upkeep/target_file.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kNoTable = u"%1 has no tables that could be deleted here."_s;
const QString kDeleteTable = u"Delete the table %1?"_s;
const QString kDeleteFile = u"Delete %1.  Are you sure?"_s;
const QString kTableGone = u"There is no table %1 in %2."_s;
const QString kTableDeleted = u"The table %1 was deleted from %2."_s;
const QString kFileDeleted = u"%1 was deleted."_s;

} // namespace

/// What is told is told once: a list that goes on showing the file would ask for the next click.
bool FileScreen::IsGone(const QString& file)
{
    if (!RefusesMissing(file))
        return false;
    ListAgain();
    return true;
}

void FileScreen::cmdDelete_Click()
{
    if (m_busy)
        return;
    const QString file = File();
    const QString table = text::Trim(txtTable.Text());
    engine::Engine& engine = m_desk.Engine();
    Tell({});
    if (RefusesTarget(Prompter(), engine, kDelete, file, m_desk.Databook()) || IsGone(file))
        return;
    if (NamesList()) {
        Tell(kNoTable.arg(file), forms::Colour::Red);
        return;
    }
    if (lstTables.IndexOf(table) < 0) {
        Tell(kTableGone.arg(table, file), forms::Colour::Red);
        ListAgain();
        return;
    }
    if (!Prompter().YesNo({}, kDeleteTable.arg(table)))
        return;
    if (ReportedUnlessLocked(Prompter(), "cmdDelete", [&] { DeleteTable(engine, file, table); }))
        Tell(kTableDeleted.arg(table, file));
    ListAgain();
}

void FileScreen::cmdDeleteDatabase_Click()
{
    if (m_busy)
        return;
    const QString file = File();
    engine::Engine& engine = m_desk.Engine();
    Tell({});
    if (RefusesTarget(Prompter(), engine, kDelete, file, m_desk.Databook()) || IsGone(file))
        return;
    if (!Prompter().YesNo({}, kDeleteFile.arg(file)) || RefusesLocked(Prompter(), engine, kDelete, file))
        return;
    if (ReportedUnlessLocked(Prompter(), "cmdDeleteDatabase", [&] { m_desk.Disk().Kill(file); }))
        Tell(kFileDeleted.arg(file));
    ListAgain();
}

} // namespace vasclip::upkeep
