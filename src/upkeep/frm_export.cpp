#include "upkeep/frm_export.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/text.h"
#include "upkeep/export_statement.h"
#include "upkeep/file_names.h"
#include "upkeep/tables.h"
#include "upkeep/target_file.h"

#include <utility>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kCaption = u"%1 - Database Export Utility"_s;
const QString kAll = u"All records are copied: no search is on display."_s;
const QString kSearch = u"The records of the search on display are copied."_s;
const QString kNeedName = u"Enter the name of the database file first."_s;
const QString kSystemTable = u"Tables whose names begin with MSYS are the system's own and no list shows them. Enter another name."_s;
const QString kMissing = u"File %1 does not exist."_s;
const QString kNotInside = u"Pictures that are not inside"_s;

} // namespace

frm_Export::frm_Export(const TransferDesk& desk, std::function<QString()> search)
    : FileScreen(u"frm_Export"_s, desk)
    , lblSourceDB(controls, u"lblSourceDB"_s)
    , lblSearch(controls, u"lblSearch"_s)
    , ckbDateStamp(controls, u"ckbDateStamp"_s)
    , ckbAccess(controls, u"ckbAccess"_s)
    , cmdExport(controls, u"cmdExport"_s)
    , m_search(std::move(search))
{
    SetCaption(kCaption.arg(desk.globals.productName));
    cmdExport.SetCaption(u"&Export DB"_s);
    ckbCopy.SetToolTipText(u"Puts the front picture of each record into its row, so that the file can go elsewhere"_s);
    ckbDateStamp.SetCaption(u"Use Date Stamp"_s);
    ckbDateStamp.SetToolTipText(u"A stamped name has dashes: the file is renamed before it can be imported"_s);
    ckbAccess.SetCaption(u"Access Database"_s);
    ckbAccess.SetToolTipText(u"Writes a file that Access and other programs open; one that is there stays of its kind"_s);
    connect(&ckbDateStamp, &forms::CheckBox::Toggled, this, &frm_Export::StampName);
    connect(&cmdExport, &forms::Control::Clicked, this, &frm_Export::cmdExport_Click);
}

void frm_Export::Form_Load()
{
    const common::RoutineScope scope{"frm_Export"};
    const common::Globals& globals = Desk().globals;
    txtPath.SetText(QString(globals.G_ExportDir).replace(u"\\\\"_s, u"\\"_s));
    txtTable.SetText(globals.G_ExportTableS);
    ckbCopy.SetValue(false);
    ckbDateStamp.SetValue(false);
    ckbAccess.SetValue(false);
    m_base = globals.G_ExportFile;
    m_stamped = StampFileName(false, m_base, Desk().ports.clock.Now());
    txtFileName.SetText(m_stamped);
    lblSourceDB.SetCaption(Desk().Databook());
    lblSearch.SetCaption(Narrows(SearchTextOf(m_search())) ? kSearch : kAll);
    ListFiles();
    ListFileTables(globals.G_ExportTableS);
}

void frm_Export::EnableButtons(bool free)
{
    cmdExport.SetEnabled(free);
    ckbDateStamp.SetEnabled(free);
    ckbAccess.SetEnabled(free);
}

bool frm_Export::RefusesMissing(const QString& file)
{
    if (IsThere(Desk().Disk(), file))
        return false;
    Tell(kMissing.arg(file), forms::Colour::Red);
    return true;
}

/// A name that was typed since the last stamp is what is stamped next.
void frm_Export::StampName()
{
    if (txtFileName.Text() != m_stamped)
        m_base = text::Trim(txtFileName.Text());
    m_stamped = StampFileName(ckbDateStamp.Value(), m_base, Desk().ports.clock.Now());
    txtFileName.SetText(m_stamped);
    ListFileTables(txtTable.Text());
}

void frm_Export::cmdExport_Click()
{
    if (Busy())
        return;
    Tell({});
    ShowAccount({}, {});
    const QString name = DatabaseName(txtFileName.Text());
    const QString table = text::Folded(txtTable.Text());
    if (name.isEmpty() || !IsTableName(table)) {
        Tell(name.isEmpty() ? kNeedName : QString::fromUtf16(kTableNameWords), forms::Colour::Red);
        (name.isEmpty() ? txtFileName : txtTable).SetFocus();
        return;
    }
    if (IsSystemTable(table)) {
        Tell(kSystemTable, forms::Colour::Red);
        txtTable.SetFocus();
        return;
    }
    const QString target = common::CkRSlash(txtPath.Text()) + name;
    if (RefusesTarget(Prompter(), Desk().Engine(), kExportTo, target, Desk().Databook()))
        return;
    txtFileName.SetText(name);
    const bool ended = Run("cmdExport", [&](const WorkStep& step) { Export(target, table, step); });
    if (!ended)
        Tell(WordsOf(ExportResult{.file = target, .table = table}),
             forms::Colour::Red);
    ListAgain(table);
}

void frm_Export::Export(const QString& target, const QString& table, const WorkStep& step)
{
    const forms::Hourglass hourglass(Desk().ports.window);
    const QString path = common::CkRSlash(txtPath.Text());
    if (path.size() > 3 && !Desk().Disk().DirExists(path))
        MakeDirectories(path);
    const ExportResult result = ExportTable(
        Desk(), {.target = target, .table = table, .search = SearchTextOf(m_search()), .pictures = ckbCopy.Value(), .access = ckbAccess.Value()},
        step);
    TellOutcome(result.written, WordsOf(result),
                result.written && result.notIn.isEmpty() ? forms::Colour::Blue : forms::Colour::Red);
    ShowAccount(kNotInside, result.notIn);
}

} // namespace vasclip::upkeep
