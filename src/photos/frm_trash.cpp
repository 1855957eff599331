#include "photos/frm_trash.h"

#include "common/dates.h"
#include "common/error_block.h"
#include "common/paths.h"
#include "photos/content.h"
#include "photos/trash_messages.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <QScopedValueRollback>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

const QString kFileTime = u"m/d/yyyy h:nn:ss AM/PM"_s;

QString RowOf(const TrashedFile& file)
{
    return file.name + u'|' + text::Format(file.modified, kFileTime);
}

} // namespace

frm_Trash::frm_Trash(const TrashDesk& desk, SlotLoader& loader, Calendar calendar)
    : Screen(u"frm_Trash"_s)
    , folders(desk.disk, controls, u"DrvCapture"_s, u"dirCapture"_s)
    , filFilename(controls, u"filFilename"_s)
    , lstfiles(controls, u"lstfiles"_s)
    , geatrashcan(controls, u"geatrashcan"_s)
    , lblDeleteDate(controls, u"lblDeleteDate"_s)
    , txtDeleteDate(controls, u"txtDeleteDate"_s)
    , imaDeleteCal(controls, u"imaDeleteCal"_s)
    , cmdClearAll(controls, u"cmdClearAll"_s)
    , cmdSelectDate(controls, u"cmdSelectDate"_s)
    , cmdSelectAll(controls, u"cmdSelectAll"_s)
    , cmdDelete(controls, u"cmdDelete"_s)
    , cmdRestore(controls, u"cmdRestore"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , gauTrash(controls, u"gauTrash"_s)
    , lblCount(controls, u"lblCount"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , m_desk(desk)
    , m_loader(loader)
    , m_calendar(std::move(calendar))
{
    SetCaption(u"Trashcan Maintenance"_s);
    filFilename.SetVisible(false);
    lblDeleteDate.SetCaption(u"Select On or Before Date:"_s);
    imaDeleteCal.SetToolTipText(u"Click to get a pop calendar"_s);
    cmdClearAll.SetCaption(u"&Clear All"_s);
    cmdSelectDate.SetCaption(u"Se&lect by Date"_s);
    cmdSelectAll.SetCaption(u"&Select All"_s);
    cmdDelete.SetCaption(u"&Delete Selected"_s);
    cmdRestore.SetCaption(u"&Restore Selected"_s);
    cmdRestore.SetToolTipText(u"Puts the selected photos back into the directory they came from"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    connect(&lstfiles, &forms::ListBox::ListIndexChanged, this, &frm_Trash::lstfiles_Click);
    connect(&lstfiles, &forms::MultiListBox::SelectionChanged, this, &frm_Trash::ShowCount);
    connect(&imaDeleteCal, &forms::Control::Clicked, this, [this] {
        if (m_calendar)
            m_calendar(txtDeleteDate, u"Delete Date"_s);
    });
    connect(&cmdClearAll, &forms::Control::Clicked, this, [this] { lstfiles.SelectNone(); });
    connect(&cmdSelectAll, &forms::Control::Clicked, this, [this] { lstfiles.SelectAllLines(); });
    connect(&cmdSelectDate, &forms::Control::Clicked, this, &frm_Trash::cmdSelectDate_Click);
    connect(&cmdDelete, &forms::Control::Clicked, this, &frm_Trash::cmdDelete_Click);
    connect(&cmdRestore, &forms::Control::Clicked, this, &frm_Trash::cmdRestore_Click);
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_Trash::Unload);
    connect(&folders, &DirLists::PathChanged, this, [this] {
        if (text::Folded(folders.Path()) == m_shown)
            return;
        lblmsg.Show({}, forms::Colour::Normal);
        Reload();
    });
}

void frm_Trash::Form_Load()
{
    const RoutineScope scope{"frm_Trash"};
    const QString capture = common::CkRSlash(m_desk.globals.G_CaptureDir);
    QStringList places{TrashDirectory(capture)};
    if (IsInTrashCan(capture))
        places.append(capture);
    places << m_desk.globals.captureDirBeforeTrash << capture.left(2) + u'\\';
    (void)folders.GoToFirst(places);
    lstfiles.SetFocus();
}

/// While photos are being deleted, the first wish to close stops that.
bool frm_Trash::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

void frm_Trash::Form_Unload()
{
    m_loader.ErrClearPict(geatrashcan);
}

/// Reads the directory on show; nothing is selected then.
void frm_Trash::Reload()
{
    const RoutineScope scope{"frm_Trash"};
    const forms::Hourglass hourglass(m_desk.ports.window);
    m_shown = text::Folded(folders.Path());
    m_files.clear();
    common::Guarded(m_desk.ports.prompter, [&] { m_files = TrashedFiles(m_desk.disk, folders.Path()); });
    QStringList names, rows;
    for (const TrashedFile& file : m_files) {
        names.append(file.name);
        rows.append(RowOf(file));
    }
    filFilename.SetItems(names);
    lstfiles.SetItems(rows);
    m_loader.ErrClearPict(geatrashcan);
    ShowCount();
}

void frm_Trash::ShowCount()
{
    lblCount.SetCaption(kPhotosIn.arg(lstfiles.ListCount()).arg(lstfiles.SelCount()));
    cmdDelete.SetEnabled(lstfiles.SelCount() > 0);
    cmdRestore.SetEnabled(lstfiles.SelCount() > 0 && IsInTrashCan(folders.Path()));
}

void frm_Trash::lstfiles_Click()
{
    if (m_busy || lstfiles.ListIndex() < 0)
        return;
    m_loader.ErrLoadPict(geatrashcan, folders.Path() + m_files.at(lstfiles.ListIndex()).name);
}

/// As they were listed.
QList<TrashedFile> frm_Trash::SelectedPictures() const
{
    QList<TrashedFile> pictures;
    for (const int line : lstfiles.SelectedLines())
        pictures.append(m_files.at(line));
    return pictures;
}

void frm_Trash::cmdSelectDate_Click()
{
    const RoutineScope scope{"frm_Trash"};
    const QDate today = m_desk.ports.clock.Today();
    if (!common::IsDate(txtDeleteDate.Text(), today)) {
        m_desk.ports.prompter.Box({}, kEnterDate);
        txtDeleteDate.SetFocus();
        return;
    }
    const qint64 wantedDays = text::ReadDate(txtDeleteDate.Text(), today)->date().daysTo(today);
    QSet<int> old;
    for (int line = 0; line < m_files.size(); ++line) {
        if (m_files[line].modified.date().daysTo(today) >= wantedDays)
            old.insert(line);
    }
    lstfiles.Select(old);
}

void frm_Trash::cmdDelete_Click()
{
    const RoutineScope scope{"frm_Trash"};
    if (m_busy)
        return;
    const QList<TrashedFile> pictures = SelectedPictures();
    if (pictures.isEmpty()) {
        lblmsg.Show(kNothingSelected, forms::Colour::Red);
        return;
    }
    if (!m_desk.ports.prompter.YesNo({}, kEraseSelected))
        return;
    Emptied done;
    {
        const QScopedValueRollback<bool> busy(m_busy, true);
        m_stop = false;
        gauTrash.SetRange(static_cast<int>(pictures.size()));
        gauTrash.SetCaption(u"Erasing photos"_s);
        done = EmptyTrash(m_desk, folders.Path(), pictures, [this](int count) {
            gauTrash.SetValue(count);
            return !m_stop;
        });
        gauTrash.SetCaption({});
    }
    Reload();
    const bool all = done.left.isEmpty() && done.changed.isEmpty();
    QString said = done.left.isEmpty() ? kPhotosErased.arg(done.deleted.size())
                                       : kNotErased.arg(done.deleted.size()).arg(done.left.join(u", "_s));
    if (!done.changed.isEmpty())
        said += (done.left.isEmpty() ? u"."_s : QString()) + kOtherNow.arg(done.changed.join(u", "_s));
    lblmsg.Show(said, all ? forms::Colour::Blue : forms::Colour::Red);
}

void frm_Trash::cmdRestore_Click()
{
    const RoutineScope scope{"frm_Trash"};
    if (m_busy || !IsInTrashCan(folders.Path()))
        return;
    const QList<TrashedFile> pictures = SelectedPictures();
    if (pictures.isEmpty()) {
        lblmsg.Show(kNothingSelected, forms::Colour::Red);
        return;
    }
    int restored = 0;
    QStringList changed;
    {
        const QScopedValueRollback<bool> busy(m_busy, true);
        try {
            for (const TrashedFile& picture : pictures) {
                const bool another = !WhyAnother(m_desk.disk, folders.Path(), picture).isEmpty();
                const Restored done =
                    another ? Restored::Another : RestoreFromTrash(m_desk, folders.Path(), picture.name);
                if (done == Restored::Yes)
                    ++restored;
                else if (done == Restored::Another)
                    changed.append(picture.name);
            }
        } catch (const RuntimeError& failure) {
            common::ReportError(m_desk.ports.prompter, failure);
        }
    }
    Reload();
    const QString said = kPhotosRestored.arg(TrashParentDir(folders.Path())).arg(restored);
    if (changed.isEmpty())
        lblmsg.Show(said, forms::Colour::Blue);
    else
        lblmsg.Show(said + u'.' + kOtherNow.arg(changed.join(u", "_s)), forms::Colour::Red);
}

} // namespace vasclip::photos
