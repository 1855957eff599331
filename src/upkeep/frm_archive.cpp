#include "upkeep/frm_archive.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "common/paths.h"
#include "databook/frm_calendar.h"
#include "forms/new_file.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "upkeep/archive_pictures.h"
#include "upkeep/archive_target.h"
#include "upkeep/file_names.h"
#include "upkeep/tables.h"
#include "upkeep/target_file.h"

#include <QScopedValueRollback>

#include <utility>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kFilter = u"*.mdb|Access"_s;
const QString kOpenFile = u"Open %1?"_s;
const QString kCreateFile = u"Create %1?"_s;
const QString kDeleteFile = u"Delete %1.  Are you sure?"_s;
const QString kOnlyPending = u"Without dates only pending sales (01/01/1900) are archived."_s;
const QString kNoneYet = u"From %1 to %2 is no range of dates: no record is archived."_s;
const QString kFromTo = u"Records sold from %1 to %2 are archived, both days included."_s;
const QString kFromToAndPending =
    u"Records sold from %1 to %2 are archived, both days included, and all pending sales (01/01/1900)."_s;
const QString kPicturesStay = u"%1 was deleted. Its pictures are still in %2."_s;
const QString kMissing = u"File %1 does not exist."_s;

} // namespace

frm_Archive::frm_Archive(const TransferDesk& desk, std::function<void()> letGo, std::function<void()> showAgain)
    : Screen(u"frm_Archive"_s)
    , txtPath(controls, u"txtPath"_s)
    , txtFileName(controls, u"txtFileName"_s)
    , txtTable(controls, u"txtTable"_s)
    , fildatabases(controls, u"fildatabases"_s)
    , lstdatabases(controls, u"lstdatabases"_s)
    , lstTables(controls, u"lstTables"_s)
    , ckbDateStamp(controls, u"ckbDateStamp"_s)
    , optduplicates(controls, u"optduplicates"_s, 0, 1)
    , txtstartdate(controls, u"txtstartdate"_s)
    , txtenddate(controls, u"txtenddate"_s)
    , imastart(controls, u"imastart"_s)
    , imastop(controls, u"imastop"_s)
    , lblRange(controls, u"lblRange"_s)
    , cmdarchive(controls, u"cmdarchive"_s)
    , cmdcreate(controls, u"cmdcreate"_s)
    , cmddelete(controls, u"cmddelete"_s)
    , cmdBrowse(controls, u"cmdBrowse"_s)
    , lblCountMoved(controls, u"lblCountMoved"_s)
    , lblCountOverwritten(controls, u"lblCountOverwritten"_s)
    , lblAccount(controls, u"lblAccount"_s)
    , lstaccount(controls, u"lstaccount"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , gauWork(controls, u"gauWork"_s)
    , cmdStop(controls, u"cmdStop"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
    , m_letGo(std::move(letGo))
    , m_showAgain(std::move(showAgain))
{
    SetCaption(desk.globals.productName + u" - Database Archive Utility"_s);
    ckbDateStamp.SetCaption(u"Use Date Stamp"_s);
    optduplicates(0).SetCaption(u"Don't Prompt"_s);
    optduplicates(1).SetCaption(u"Prompt For Overwrite"_s);
    txtstartdate.SetToolTipText(u"Based on Sale Date"_s);
    txtenddate.SetToolTipText(u"Based On Sale Date"_s);
    imastart.SetToolTipText(u"Click to get a pop calendar"_s);
    imastop.SetToolTipText(u"Click to get a pop calendar"_s);
    cmdarchive.SetCaption(u"Create &Archive"_s);
    cmdcreate.SetCaption(u"&Create"_s);
    cmddelete.SetCaption(u"&Delete Database"_s);
    cmdBrowse.SetCaption(u"&Browse..."_s);
    cmdStop.SetCaption(u"Cancel"_s);
    cmdStop.SetToolTipText(u"Stops behind the record at work; what was moved stays moved (Esc)"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    fildatabases.SetVisible(false);
    gauWork.SetVisible(false);
    cmdStop.SetVisible(false);
    lstaccount.SetVisible(false);
    lblAccount.SetVisible(false);
    connect(&lstdatabases, &forms::ListBox::ListIndexChanged, this, &frm_Archive::TakeFile);
    connect(&lstTables, &forms::ListBox::ListIndexChanged, this, &frm_Archive::TakeTable);
    // A click on the line that is selected already counts too: something else may have been typed since.
    connect(&lstdatabases, &forms::Control::Clicked, this, [this] {
        if (lstdatabases.List(lstdatabases.ListIndex()) != txtFileName.Text())
            TakeFile();
    });
    connect(&lstTables, &forms::Control::Clicked, this, &frm_Archive::TakeTable);
    for (int i = 0; i <= 1; ++i)
        connect(&optduplicates(i), &forms::CheckBox::Toggled, this, [this, i] {
            optduplicates(1 - i).SetValue(!optduplicates(i).Value());
        });
    for (forms::TextBox* box : {&txtstartdate, &txtenddate})
        connect(box, &forms::TextBox::TextChanged, this, &frm_Archive::ShowRange);
    connect(&imastart, &forms::Control::Clicked, this,
            [this] { databook::GetCalandarDate(m_desk.ports, txtstartdate, u"Start Date"_s); });
    connect(&imastop, &forms::Control::Clicked, this,
            [this] { databook::GetCalandarDate(m_desk.ports, txtenddate, u"Stop Date"_s); });
    connect(&txtPath, &forms::Control::LostFocus, this, [this] {
        ListFiles();
        ListFileTables();
    });
    connect(&txtFileName, &forms::Control::LostFocus, this, &frm_Archive::ListFileTables);
    connect(&ckbDateStamp, &forms::CheckBox::Toggled, this, &frm_Archive::StampName);
    connect(&cmdarchive, &forms::Control::Clicked, this, &frm_Archive::cmdarchive_Click);
    connect(&cmdcreate, &forms::Control::Clicked, this, &frm_Archive::cmdcreate_Click);
    connect(&cmddelete, &forms::Control::Clicked, this, &frm_Archive::cmddelete_Click);
    connect(&cmdBrowse, &forms::Control::Clicked, this, &frm_Archive::cmdBrowse_Click);
    connect(&cmdStop, &forms::Control::Clicked, this, [this] { m_stop = true; });
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_Archive::Unload);
}

void frm_Archive::Form_Load()
{
    const common::Globals& globals = m_desk.globals;
    txtPath.SetText(globals.G_ArchiveDir);
    txtTable.SetText(globals.G_ArchiveTable);
    m_base = globals.G_ArchiveFile;
    m_stamped = StampFileName(false, m_base, m_desk.ports.clock.Now());
    txtFileName.SetText(m_stamped);
    optduplicates(0).SetValue(true);
    ShowRange();
    ShowCounts({});
    ListFiles();
    ListFileTables();
}

/// While records are moved, the first wish to close stops that behind the one at work.
bool frm_Archive::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

void frm_Archive::TakeFile()
{
    if (m_listing || lstdatabases.ListIndex() < 0)
        return;
    txtFileName.SetText(lstdatabases.List(lstdatabases.ListIndex()));
    ListFileTables();
}

void frm_Archive::TakeTable()
{
    if (!m_listing && lstTables.ListIndex() >= 0)
        txtTable.SetText(lstTables.List(lstTables.ListIndex()));
}

QString frm_Archive::File() const
{
    return common::CkRSlash(txtPath.Text()) + text::Trim(txtFileName.Text());
}

void frm_Archive::StampName()
{
    if (txtFileName.Text() != m_stamped)
        m_base = text::Trim(txtFileName.Text());
    m_stamped = StampFileName(ckbDateStamp.Value(), m_base, m_desk.ports.clock.Now());
    txtFileName.SetText(m_stamped);
    ListFileTables();
}

void frm_Archive::ListFiles()
{
    const QScopedValueRollback<bool> listing(m_listing, true);
    QStringList names;
    try {
        if (const QString path = common::CkRSlash(txtPath.Text()); path.size() >= 3)
            names = m_desk.Disk().Dir(path + u"*.mdb"_s, files::ReadOnly);
    } catch (const RuntimeError& failure) {
        TellOfListing(failure.Description() + u'.');
    }
    fildatabases.SetItems(names);
    lstdatabases.SetItems(names);
}

void frm_Archive::ListFileTables()
{
    const QScopedValueRollback<bool> listing(m_listing, true);
    ForgetOtherFile();
    if (const QString why = ListTheTables(m_desk.Engine(), File(), lstTables, txtTable.Text()); !why.isEmpty())
        TellOfListing(why + u'.');
}

void frm_Archive::Tell(const QString& words, forms::Colour colour)
{
    m_toldOf = text::Folded(File());
    lblmsg.Show(words, colour);
}

/// What was wrong with one file says nothing of the next.
void frm_Archive::ForgetOtherFile()
{
    if (!m_listsAgain && m_toldOf != text::Folded(File()) && lblmsg.Fore() == forms::Colour::Red)
        Tell({});
}

/// What can't be listed behind some work comes after the words about that, which it must not take away.
void frm_Archive::TellOfListing(const QString& words)
{
    const QString said = m_listsAgain ? lblmsg.Caption() : QString();
    if (said.isEmpty())
        Tell(words, forms::Colour::Red);
    else if (!said.contains(words))
        Tell(said + u' ' + words, forms::Colour::Red);
}

void frm_Archive::ListAgain()
{
    const QScopedValueRollback<bool> again(m_listsAgain, true);
    ListFiles();
    ListFileTables();
}

void frm_Archive::GoTo(const QString& path)
{
    const qsizetype slash = path.lastIndexOf(u'\\');
    txtPath.SetText(path.left(slash + 1));
    txtFileName.SetText(path.mid(slash + 1));
    ListFiles();
    ListFileTables();
}

void frm_Archive::ShowRange()
{
    const QDate today = m_desk.ports.clock.Today();
    const SaleRange range{txtstartdate.Text(), txtenddate.Text()};
    const auto isDate = [&](const QString& typed) { return common::IsDate(DateOf(typed), today); };
    if (text::Trim(range.start).isEmpty() && text::Trim(range.stop).isEmpty())
        lblRange.SetCaption(kOnlyPending);
    else if (!isDate(range.start) || !isDate(range.stop) || !InRange(DateOf(range.start), range, today))
        lblRange.SetCaption(kNoneYet.arg(DateOf(range.start), DateOf(range.stop)));
    else if (InRange(DateOf({}), range, today))
        lblRange.SetCaption(kFromToAndPending.arg(DateOf(range.start), DateOf(range.stop)));
    else
        lblRange.SetCaption(kFromTo.arg(DateOf(range.start), DateOf(range.stop)));
}

void frm_Archive::ShowCounts(const Archived& done)
{
    lblCountMoved.SetCaption(text::Dec(done.moved));
    lblCountOverwritten.SetCaption(text::Dec(done.overwritten));
}

void frm_Archive::EnableButtons()
{
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &txtPath, &txtFileName, &txtTable, &lstdatabases, &lstTables, &ckbDateStamp, &optduplicates(0),
             &optduplicates(1), &txtstartdate, &txtenddate, &imastart, &imastop, &cmdarchive, &cmdcreate, &cmddelete,
             &cmdBrowse, &cmdExit})
        control->SetEnabled(!m_busy);
}

void frm_Archive::cmdcreate_Click()
{
    const common::RoutineScope scope{"cmdcreate"};
    if (m_busy)
        return;
    QString chosen = forms::ChooseNewFile(Prompter(), kFilter, u"Create"_s, common::CkRSlash(txtPath.Text()));
    if (chosen.isEmpty())
        return;
    const files::Disk& disk = m_desk.Disk();
    if (!disk.Found(chosen, files::ReadOnly | files::Hidden))
        chosen = ArchiveName(chosen);
    const bool there = disk.Found(chosen, files::ReadOnly | files::Hidden);
    if (!Prompter().YesNo({}, (there ? kOpenFile : kCreateFile).arg(chosen)))
        return;
    try {
        CopyFromNewData(m_desk.Engine(), m_desk.Templates(), chosen);
        GoTo(chosen);
    } catch (const RuntimeError& failure) {
        common::ReportError(Prompter(), failure);
    }
}

void frm_Archive::cmddelete_Click()
{
    const common::RoutineScope scope{"cmddelete"};
    if (m_busy)
        return;
    const QString file = File();
    if (RefusesTarget(Prompter(), m_desk.Engine(), kDelete, file, m_desk.Databook()))
        return;
    if (!IsThere(m_desk.Disk(), file)) {
        Tell(kMissing.arg(file), forms::Colour::Red);
        return;
    }
    if (!Prompter().YesNo({}, kDeleteFile.arg(file)) ||
        RefusesLocked(Prompter(), m_desk.Engine(), kDelete, file))
        return;
    try {
        m_desk.Disk().Kill(file);
        const QString pictures = ArchivePictures(file);
        Tell(m_desk.Disk().DirExists(pictures) ? kPicturesStay.arg(file, pictures) : u"%1 was deleted."_s.arg(file));
    } catch (const RuntimeError& failure) {
        common::ReportError(Prompter(), failure);
    }
    ListAgain();
}

void frm_Archive::cmdBrowse_Click()
{
    if (m_busy)
        return;
    if (const QString chosen = Prompter().OpenDialog(kFilter, u"Browse"_s, common::CkRSlash(txtPath.Text()));
        !chosen.isEmpty())
        GoTo(chosen);
}

} // namespace vasclip::upkeep
