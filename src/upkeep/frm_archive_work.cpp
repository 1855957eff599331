// Moving the records, and what is asked before.

#include "common/dates.h"
#include "common/error_block.h"
#include "platform/engine/new_file.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/messages.h"
#include "upkeep/archive_pictures.h"
#include "upkeep/archive_target.h"
#include "upkeep/frm_archive.h"
#include "upkeep/tables.h"
#include "upkeep/target_file.h"

#include <QFileInfo>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kGaugeParts = 1000;
const QString kExistsTitle = u"Archive File Already Exists"_s;
const QString kAppend = u"Do you wish to append into existing file %1 ) ?"_s;
const QString kBeginAnew = u"Delete %1 of %2 and begin it anew?"_s;
const QString kOtherNow = u"Somebody has changed %1 meanwhile: it had %2. "_s;
const QString kPicturesStay = u" Its pictures in %1 stay."_s;
const QString kNotShown = u" The records of the Databook could not be shown again: %1. Press Shift+F5 when this window is closed."_s;
const QString kItselfTitle = u"Source and Target Files the Same"_s;
const QString kItself = u"You cannot archive records to itself.  Please select another database."_s;
const QString kNoDate = u"'%1' is no date. Enter it as mm/dd/yyyy, or leave it empty."_s;
const QString kBackwards = u"The stop date lies before the start date: no record is in that range."_s;
const QString kNeedName = u"Enter the name of the archive and of its table first."_s;
const QString kFailed = u"%1. Nothing was moved."_s;

} // namespace

/// Long work: the buttons wait, the gauge and the button that stops are there, nothing shows the records.
class frm_Archive::Work
{
public:
    explicit Work(frm_Archive& screen)
        : m_screen(screen)
    {
        m_screen.m_letGo(); // while a failure still finds the screen at rest
        m_screen.m_busy = true;
        m_screen.m_stop = false;
        m_screen.gauWork.SetRange(kGaugeParts);
        m_screen.gauWork.SetVisible(true);
        m_screen.cmdStop.SetVisible(true);
        m_screen.cmdStop.SetFocus(); // before the others can't have it and hand it on, past all of the window
        m_screen.EnableButtons();
    }
    ~Work()
    {
        m_screen.m_busy = false;
        m_screen.gauWork.SetVisible(false);
        m_screen.gauWork.SetCaption({});
        m_screen.EnableButtons();
        m_screen.cmdExit.SetFocus();
        m_screen.cmdStop.SetVisible(false);
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

private:
    frm_Archive& m_screen;
};

QString frm_Archive::DateOf(const QString& typed)
{
    const QString date = text::Trim(typed);
    return date.isEmpty() ? u"01/01/1900"_s : date;
}

bool frm_Archive::DatesAreGood()
{
    const QDate today = m_desk.ports.clock.Today();
    for (forms::TextBox* box : {&txtstartdate, &txtenddate}) {
        if (const QString typed = text::Trim(box->Text()); !typed.isEmpty() && !common::IsDate(typed, today)) {
            Tell(kNoDate.arg(typed), forms::Colour::Red);
            box->SetFocus();
            return false;
        }
    }
    if (!InRange(DateOf(txtstartdate.Text()), {txtstartdate.Text(), txtenddate.Text()}, today)) {
        Tell(kBackwards, forms::Colour::Red);
        txtenddate.SetFocus();
        return false;
    }
    return true;
}

/// What "No" at the question of appending takes away, an archive of years perhaps, is asked about once more, and looked
/// at again just before it goes: others may have begun to archive into it while the questions stood.
/// @return false if it stays
bool frm_Archive::BeginAnew(const QString& target)
{
    const files::Disk& disk = m_desk.Disk();
    const auto records = [&] {
        try {
            const qint64 count = CountOf(m_desk.Engine(), target, text::Trim(txtTable.Text()));
            return count == 1 ? u"the one record"_s : u"the %1 records"_s.arg(count);
        } catch (const RuntimeError&) {
            return u"all records"_s; // there is no such table: nothing is known of what goes
        }
    };
    const QString pictures = ArchivePictures(target);
    const QString stay = disk.DirExists(pictures) ? kPicturesStay.arg(pictures) : QString();
    QString before;
    for (QString now = records(); now != before; now = records()) {
        const QString changed = before.isEmpty() ? QString() : kOtherNow.arg(target, before);
        if (!Prompter().YesNo(kExistsTitle, changed + kBeginAnew.arg(now, target) + stay) ||
            RefusesLocked(Prompter(), m_desk.Engine(), kArchiveTo, target))
            return false;
        before = now;
    }
    // The new one takes the old one's place whole: a damaged template or a full disk costs no archive.
    NeedWritable(disk, target);
    engine::NewFile fresh(disk.ToNative(target), target);
    const QString empty = target.left(target.lastIndexOf(u'\\') + 1) + QFileInfo(fresh.Path()).fileName();
    disk.Kill(empty); // a database is made where nothing is
    CopyFromNewData(m_desk.Engine(), m_desk.Templates(), empty);
    fresh.Finish();
    return true;
}

/// @return false if the user does not go on
bool frm_Archive::PrepareTarget(const QString& target)
{
    const files::Disk& disk = m_desk.Disk();
    MakeDirectoriesOf(disk, target);
    if (disk.Found(target, files::ReadOnly | files::Hidden)) {
        // A warning stands on Cancel, the one answer that changes no file.
        switch (Prompter().MsgBox(forms::Buttons::YesNoCancel, forms::Icon::Exclamation, kExistsTitle,
                                  kAppend.arg(target))) {
        case forms::Answer::Yes:
            return !RefusesLocked(Prompter(), m_desk.Engine(), kArchiveTo, target);
        case forms::Answer::No:
            if (IsSameFile(disk, target, m_desk.Databook()))
                return true; // refused with its words behind this
            if (!BeginAnew(target))
                return false;
            break;
        default:
            return false;
        }
    }
    CopyFromNewData(m_desk.Engine(), m_desk.Templates(), target);
    return true;
}

void frm_Archive::cmdarchive_Click()
{
    const common::RoutineScope scope{"cmdarchive"};
    if (m_busy)
        return;
    Tell({});
    ShowCounts({});
    lstaccount.SetVisible(false);
    lblAccount.SetVisible(false);
    const QString name = text::Trim(txtFileName.Text());
    const QString table = text::Folded(txtTable.Text());
    if (name.isEmpty() || table.isEmpty()) {
        Tell(kNeedName, forms::Colour::Red);
        return;
    }
    txtFileName.SetText(ArchiveName(name));
    const QString target = File();
    if (!DatesAreGood() ||
        RefusesTarget(Prompter(), m_desk.Engine(), kArchiveTo, target, m_desk.Databook()))
        return;
    try {
        if (!PrepareTarget(target))
            return;
        if (IsSameFile(m_desk.Disk(), target, m_desk.Databook())) {
            Prompter().Box(kItselfTitle, kItself);
            return;
        }
        if (RefusesAccess(Prompter(), m_desk.Disk(), target))
            return;
        Archive(target, table);
    } catch (const RuntimeError& failure) {
        common::ReportError(Prompter(), failure);
        Tell(kFailed.arg(failure.Description()), forms::Colour::Red);
    }
    ListAgain();
}

/// Whoever holds the Databook just then takes none of the words about what was done.
void frm_Archive::ShowAgain()
{
    try {
        m_showAgain();
    } catch (const RuntimeError& failure) {
        common::ReportError(Prompter(), failure);
        Tell(lblmsg.Caption() + kNotShown.arg(failure.Description()), forms::Colour::Red);
    }
}

void frm_Archive::Archive(const QString& target, const QString& table)
{
    Archived done;
    try {
        const Work work(*this);
        const forms::Hourglass hourglass(m_desk.ports.window);
        done = CopyArchiveData({m_desk.ports, m_desk.databook, m_desk.globals, m_desk.Disk(), target, table,
                                {txtstartdate.Text(), txtenddate.Text()},
                                optduplicates(0).Value() ? Duplicates::Overwrite : Duplicates::Ask},
                               [this](qint64 at, qint64 all, const Archived& soFar) {
                                   gauWork.SetCaption(u"Record %1 of %2"_s.arg(at + 1).arg(all));
                                   gauWork.SetValue(static_cast<int>(at * kGaugeParts / all));
                                   ShowCounts(soFar);
                                   m_desk.ports.pump.DoEvents();
                                   return !m_stop;
                               });
    } catch (const RuntimeError& failure) {
        common::ReportError(Prompter(), failure);
        Tell(kFailed.arg(failure.Description()), forms::Colour::Red);
        ShowAgain();
        return;
    }
    ShowCounts(done);
    lblAccount.SetCaption(done.missing.isEmpty() ? u"Records that stay"_s
                                                 : u"Records that stay, and pictures that were not there"_s);
    lstaccount.SetItems(done.left + done.pictures + done.missing);
    lblAccount.SetVisible(lstaccount.ListCount() > 0);
    lstaccount.SetVisible(lstaccount.ListCount() > 0);
    Tell(WordsOf(done, target), done.stopped || done.empty || done.failure ? forms::Colour::Red : forms::Colour::Blue);
    if (done.empty)
        Prompter().Box(Caption(), WordsOf(done, target));
    if (done.failure)
        common::ReportError(Prompter(), *done.failure);
    ShowAgain();
}

} // namespace vasclip::upkeep
