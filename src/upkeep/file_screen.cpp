#include "upkeep/file_screen.h"

#include "common/paths.h"
#include "link/reporter.h"
#include "platform/text/counted.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "upkeep/list_file.h"
#include "upkeep/tables.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kPattern = u"*.mdb"_s;
const QString kFilter = u"*.mdb|Access"_s;
const QString kListFilter = u"|%1|Text and spreadsheet files"_s;
const QString kCreate = u"The directory %1 does not exist.  Do you wish to create it at this time?"_s;
const QString kNoDirectory = u"There is no directory %1."_s;
const text::Counted kRecords{u"record"_s, u"records"_s};

} // namespace

FileScreen::FileScreen(const QString& name, const TransferDesk& desk)
    : Screen(name)
    , txtPath(controls, u"txtPath"_s)
    , txtFileName(controls, u"txtFileName"_s)
    , txtTable(controls, u"txtTable"_s)
    , filexport(controls, u"filexport"_s)
    , lstTables(controls, u"lstTables"_s)
    , lblRecordCount(controls, u"lblRecordCount"_s)
    , ckbCopy(controls, u"ckbCopy"_s)
    , cmdDelete(controls, u"cmdDelete"_s)
    , cmdDeleteDatabase(controls, u"cmdDeleteDatabase"_s)
    , cmdBrowse(controls, u"cmdBrowse"_s)
    , lblAccount(controls, u"lblAccount"_s)
    , lstaccount(controls, u"lstaccount"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , gauWork(controls, u"gauWork"_s)
    , cmdStop(controls, u"cmdStop"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
{
    ckbCopy.SetCaption(u"&Copy Images"_s);
    cmdDelete.SetCaption(u"Delete Table"_s);
    cmdDeleteDatabase.SetCaption(u"Delete Database"_s);
    cmdBrowse.SetCaption(u"Browse..."_s);
    cmdStop.SetCaption(u"Cancel"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    gauWork.SetVisible(false);
    cmdStop.SetVisible(false);
    ShowAccount({}, {});
    connect(&filexport, &forms::ListBox::ListIndexChanged, this, &FileScreen::TakeFile);
    connect(&lstTables, &forms::ListBox::ListIndexChanged, this, [this] {
        if (m_listing)
            return;
        TakeTable();
        if (!m_listed.isEmpty() && lblmsg.Caption() == m_listed)
            Tell(m_damage, forms::Colour::Red); // without what was wrong with the other table
        m_listed = ShowCount() && m_damage.isEmpty() ? QString() : lblmsg.Caption();
    });
    // A click on the line that is selected already counts too: something else may have been typed since.
    connect(&filexport, &forms::Control::Clicked, this, [this] {
        if (filexport.List(filexport.ListIndex()) != txtFileName.Text())
            TakeFile();
    });
    connect(&lstTables, &forms::Control::Clicked, this, &FileScreen::TakeTable);
    connect(&txtFileName, &forms::Control::LostFocus, this, [this] {
        const common::RoutineScope scope{"txtFileName"};
        ListFileTables(txtTable.Text());
    });
    connect(&txtPath, &forms::Control::LostFocus, this, &FileScreen::txtPath_LostFocus);
    connect(&cmdDelete, &forms::Control::Clicked, this, &FileScreen::cmdDelete_Click);
    connect(&cmdDeleteDatabase, &forms::Control::Clicked, this, &FileScreen::cmdDeleteDatabase_Click);
    connect(&cmdBrowse, &forms::Control::Clicked, this, &FileScreen::cmdBrowse_Click);
    connect(&cmdStop, &forms::Control::Clicked, this, [this] { m_stop = true; });
    connect(&cmdExit, &forms::Control::Clicked, this, &FileScreen::Unload);
}

void FileScreen::TakeFile()
{
    const common::RoutineScope scope{"filexport"};
    if (filexport.ListIndex() < 0)
        return;
    txtFileName.SetText(filexport.List(filexport.ListIndex()));
    ListFileTables(txtTable.Text());
}

void FileScreen::TakeTable()
{
    if (lstTables.ListIndex() >= 0)
        txtTable.SetText(lstTables.List(lstTables.ListIndex()));
}

QString FileScreen::File() const
{
    return common::CkRSlash(txtPath.Text()) + text::Trim(txtFileName.Text());
}

void FileScreen::ListFiles()
{
    QStringList names;
    const QString path = common::CkRSlash(txtPath.Text());
    try {
        if (path.size() >= 3) {
            names = m_desk.Disk().Dir(path + kPattern, files::ReadOnly);
            for (const QString& pattern : m_takesLists ? ListPatterns() : QStringList())
                names += m_desk.Disk().Dir(path + pattern, files::ReadOnly);
        }
    } catch (const RuntimeError& failure) {
        TellOfListing(failure.Description() + u'.'); // no box: path and Browse stay within reach
    }
    filexport.SetItems(names);
}

void FileScreen::ListFileTables(const QString& selected)
{
    QString why;
    ForgetOtherFile();
    {
        const QScopedValueRollback<bool> listing(m_listing, true);
        why = NamesList() ? ListTheSheets(m_desk.Disk(), File(), lstTables, selected)
                          : ListTheTables(m_desk.Engine(), File(), lstTables, selected);
    }
    if (m_takesListed && lstTables.ListIndex() >= 0)
        txtTable.SetText(lstTables.List(lstTables.ListIndex()));
    m_damage = why.isEmpty() ? QString() : why + u'.';
    if (!why.isEmpty())
        TellOfListing(m_damage);
    const bool counted = ShowCount();
    m_listed = why.isEmpty() && counted ? QString() : lblmsg.Caption();
}

bool FileScreen::NamesList() const
{
    return m_takesLists && IsListName(File());
}

/// @return false where the records can't be counted; told
bool FileScreen::ShowCount()
{
    QString words;
    bool counted = true;
    if (lstTables.ListIndex() >= 0 && !NamesList()) {
        try {
            QString damage;
            words = kRecords(CountOf(m_desk.Engine(), File(), lstTables.List(lstTables.ListIndex()), &damage));
            counted = damage.isEmpty();
            if (!counted) // where a file that was cut breaks off, only who goes through its rows finds
                TellOfListing(DamagedFileWords(File(), damage) + u'.');
        } catch (const RuntimeError& failure) {
            TellOfListing(failure.Description() + u'.');
            counted = false;
        }
    }
    lblRecordCount.SetCaption(words);
    return counted;
}

void FileScreen::GoTo(const QString& directory, const QString& fileName)
{
    txtPath.SetText(directory);
    txtFileName.SetText(fileName);
    ListFiles();
    ListFileTables(txtTable.Text());
}

void FileScreen::Tell(const QString& words, forms::Colour colour)
{
    m_toldOf = text::Folded(File());
    lblmsg.Show(words, colour);
}

/// Words about work that was done stand whatever file is chosen next.
void FileScreen::TellOutcome(bool done, const QString& words, forms::Colour colour)
{
    Tell(words, colour);
    if (done)
        m_toldOf.clear();
}

/// What was wrong with one file says nothing of the next; nor does it of this one when it is listed anew.
void FileScreen::ForgetOtherFile()
{
    const bool listedAlone = !m_listed.isEmpty() && lblmsg.Caption() == m_listed;
    const bool other = !m_toldOf.isEmpty() && m_toldOf != text::Folded(File()) && lblmsg.Fore() == forms::Colour::Red;
    if (m_listsAgain || (!other && !listedAlone))
        return;
    Tell({});
    if (other)
        ShowAccount({}, {});
}

/// What can't be listed behind some work comes after the words about that, which it must not take away.
void FileScreen::TellOfListing(const QString& words)
{
    const QString said = m_listsAgain ? lblmsg.Caption() : QString();
    if (said.isEmpty())
        Tell(words, forms::Colour::Red);
    else if (!said.contains(words))
        lblmsg.Show(said + u' ' + words, forms::Colour::Red);
}

void FileScreen::ListAgain(const QString& selected)
{
    const QScopedValueRollback<bool> again(m_listsAgain, true);
    ListFiles();
    ListFileTables(selected);
}

void FileScreen::ShowAccount(const QString& heading, const QStringList& lines)
{
    lblAccount.SetCaption(heading);
    lblAccount.SetVisible(!lines.isEmpty());
    lstaccount.SetItems(lines);
    lstaccount.SetVisible(!lines.isEmpty());
}

void FileScreen::MakeDirectories(const QString& path) const
{
    const files::Disk& disk = m_desk.Disk();
    const QString whole = common::CkRSlash(path);
    for (qsizetype slash = whole.indexOf(u'\\', 3); slash > 0; slash = whole.indexOf(u'\\', slash + 1))
        if (!disk.DirExists(whole.left(slash)))
            disk.MkDir(whole.left(slash));
}

bool ReportedUnlessLocked(forms::Prompter& prompter, const char* routine, const std::function<void()>& work)
{
    bool locked = false;
    const bool ended = link::Reported(prompter, routine, [&] {
        try {
            work();
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kCouldNotUpdateLocked)
                throw;
            locked = true;
            prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, u"Vasclip"_s, failure.Description() + u'.');
        }
    });
    return ended && !locked;
}

bool FileScreen::Run(const char* routine, const std::function<void(const WorkStep& step)>& work)
{
    SetBusy(true);
    const auto free = qScopeGuard([this] { SetBusy(false); });
    return ReportedUnlessLocked(Prompter(), routine, [&] {
        const WorkStep step = [this](qint64 done, qint64 of, const QString& words) {
            const int parts = static_cast<int>(std::clamp<qint64>(of, 1, 1000));
            if (gauWork.Max() != parts)
                gauWork.SetRange(parts);
            gauWork.SetValue(static_cast<int>(done * parts / std::max<qint64>(of, 1)));
            gauWork.SetCaption(words);
            m_desk.ports.pump.DoEvents();
            return !m_stop;
        };
        work(step);
    });
}

void FileScreen::SetBusy(bool busy)
{
    m_busy = busy;
    m_stop = false;
    gauWork.SetCaption({});
    gauWork.SetRange(1);
    gauWork.SetVisible(busy);
    cmdStop.SetVisible(busy);
    if (busy)
        cmdStop.SetFocus(); // before the others can't have it and hand it on, past all of the window
    for (forms::Control* control :
         std::initializer_list<forms::Control*>{&txtPath, &txtFileName, &txtTable, &filexport, &lstTables, &ckbCopy,
                                                &cmdDelete, &cmdDeleteDatabase, &cmdBrowse})
        control->SetEnabled(!busy);
    EnableButtons(!busy);
}

/// Work that is stopped ends first, and takes itself back.
bool FileScreen::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

void FileScreen::cmdBrowse_Click()
{
    if (m_busy)
        return;
    const QString filter = kFilter + (m_takesLists ? kListFilter.arg(ListPatterns().join(u';')) : QString());
    const QString chosen = Prompter().OpenDialog(filter, u"Browse"_s, common::CkRSlash(txtPath.Text()));
    if (chosen.isEmpty())
        return;
    const qsizetype slash = chosen.lastIndexOf(u'\\');
    const QString name = chosen.mid(slash + 1);
    GoTo(chosen.left(slash + 1), name.contains(u'.') ? name : name + u".mdb"_s);
}

void FileScreen::txtPath_LostFocus()
{
    if (m_busy || m_asking)
        return;
    const QScopedValueRollback<bool> asking(m_asking, true);
    const QString path = text::Trim(txtPath.Text());
    if (path != m_left)
        Tell({});
    m_left = path;
    const bool possible = link::Reported(Prompter(), "txtPath", [&] {
        if (path.size() <= 3 || m_desk.Disk().DirExists(path))
            return;
        (void)m_desk.Disk().ToNative(path); // no directory can be made on a drive that is not there
        if (Prompter().YesNo({}, kCreate.arg(path)))
            MakeDirectories(path);
    });
    if (!possible)
        Tell(kNoDirectory.arg(path), forms::Colour::Red);
    ListFiles();
    ListFileTables(txtTable.Text());
}

} // namespace vasclip::upkeep
