#include "link/transfer.h"

#include "common/error_block.h"
#include "common/progress.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/save_data.h"
#include "link/save_picture.h"
#include "link/slot_icons.h"
#include "link/talk.h"
#include "link/transfer_jobs.h"
#include "photos/view_name.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Wants
{
    bool data, pictures;
};

Wants WantsOf(What what)
{
    return {what != What::Pic, what != What::Data};
}

/// The slots of one transfer, one after the other. A second transfer that a turn of the queue lets in does
/// nothing.
class Run
{
public:
    explicit Run(LinkDesk& desk)
        : m_desk(desk)
        , m_hourglass(desk.ports.window)
    {
        desk.state.transferring = true;
    }
    ~Run()
    {
        m_desk.state.transferring = false;
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    TransferTally Do(const QList<TransferJob>& jobs, bool data)
    {
        m_desk.ports.window.AppActivate();
        m_tally.slots_ = static_cast<int>(jobs.size());
        m_tally.notRunning = data && !jobs.isEmpty() && !KelEnsureRunning(m_desk);
        if (m_tally.notRunning) {
            m_tally.stopped = Cancelled(m_desk);
            m_tally.words = UnnamedReportWords(m_desk);
            m_tally.noneOpen = !m_tally.stopped && !m_tally.words.isEmpty();
            m_tally.notRunning = !m_tally.stopped && !m_tally.noneOpen;
            return m_tally;
        }
        m_tally.otherReport = data && !jobs.isEmpty() && CompareReport(m_desk) != ReportIs::Mirrored;
        if (m_tally.otherReport)
            return m_tally;
        common::Progress progress(m_desk.status, m_desk.ports.pump, m_tally.slots_);
        int place = 0;
        for (const TransferJob& job : jobs) {
            const QString name = text::Trim(job.label->Text());
            if (!progress.Step(messages::kTransferring.arg(name, text::Dec(++place), text::Dec(jobs.size()))) ||
                !m_desk.sources.datDatabook.Bound()) {
                m_tally.stopped = true;
                break;
            }
            if (!One(job, progress))
                break;
        }
        return m_tally;
    }

private:
    /// @return false if the slots after it are not to be tried
    bool One(const TransferJob& job, const common::Progress& progress)
    {
        const QString key = text::Folded(job.label->Text());
        m_tally.blank += key.isEmpty() ? 1 : 0;
        if (job.data && !Data(key, {job.group, job.comp}, progress))
            return false;
        for (const auto& [slot, view] : job.pictures) {
            if (!m_desk.sources.datDatabook.Bound())
                return false;
            const PictureOutcome outcome = SavePictureToDatabook(m_desk, key, *slot, view, job.comp);
            if (outcome == PictureOutcome::Filed)
                ++m_tally.pictures;
            if (m_tally.note.isEmpty() && (outcome == PictureOutcome::Filed || outcome == PictureOutcome::IsThere))
                m_tally.note = photos::CleanedView(view);
        }
        return true;
    }

    bool Data(const QString& key, const ReportPlace& place, const common::Progress& progress)
    {
        const SaveOutcome outcome = SaveDataToDatabook(m_desk, key, place, m_pages,
                                                       [&progress] { return !progress.Stopped(); });
        switch (outcome) {
        case SaveOutcome::Added:
            ++m_tally.added;
            m_tally.stored.append(key);
            return true;
        case SaveOutcome::Replaced:
            ++m_tally.replaced;
            m_tally.stored.append(key);
            return true;
        case SaveOutcome::Kept:
            ++m_tally.kept;
            return true;
        case SaveOutcome::Blank:
            return true;
        case SaveOutcome::GivenUp:
            m_tally.stopped = true;
            return false;
        case SaveOutcome::NoMapping:
        case SaveOutcome::Failed:
            ++m_tally.failed;
            return true;
        case SaveOutcome::LinkLost:
            ++m_tally.failed;
            m_tally.linkLost = true;
            return false;
        }
        return true;
    }

    LinkDesk& m_desk;
    MappingPages m_pages;
    forms::Hourglass m_hourglass;
    TransferTally m_tally;
};

void Tell(Conversation& desk, const TransferTally& tally)
{
    if (!tally.Text().isEmpty())
        desk.status.lblmsg.Show(tally.Text(), tally.Failed() ? forms::Colour::Red : forms::Colour::Blue);
}

/// With nobody to ask the tabs are empty, which is not the report's doing.
void LookForReport(LinkDesk& desk, TransferTally& tally)
{
    if (KelIsActive(desk))
        return;
    tally.stopped = Cancelled(desk);
    if (tally.stopped)
        return;
    tally.notRunning = text::Trim(desk.txtDDE.Text()).isEmpty();
    tally.noneOpen = !tally.notRunning;
    tally.words = UnnamedReportWords(desk);
}

TransferTally Transfer(LinkDesk& desk, const QList<TransferJob>& jobs, What what)
{
    TransferTally tally;
    const Talking talking{desk, messages::kReadingReport};
    if (desk.state.transferring || desk.state.refreshing) {
        tally.busy = true;
        Tell(desk, tally);
        return tally;
    }
    {
        Run run(desk);
        tally = run.Do(jobs, WantsOf(what).data);
    }
    if (tally.Empty() && !tally.notRunning && !tally.stopped)
        LookForReport(desk, tally);
    if (tally.otherReport) // a transfer under way would keep the tabs from being read
        tally.words = CheckAnsweredReport(desk).words;
    // What single pictures had to say is part of the sum, unless there was but one of them.
    const bool onePicture = what == What::Pic && tally.slots_ == 1 && tally.pictures == 0;
    if (!onePicture)
        Tell(desk, tally);
    else if (!tally.note.isEmpty())
        desk.status.lblmsg.Show(tally.note, forms::Colour::Blue);
    return tally;
}

TransferTally TransferGroup(LinkDesk& desk, Group group, bool all, int index, What what)
{
    const common::RoutineScope scope{RowOf(group).transferRoutine};
    const Wants wants = WantsOf(what);
    const TransferTally tally = Transfer(desk, JobsOf(desk, group, all, index, wants.data, wants.pictures), what);
    RefreshIcons(desk, group);
    return tally;
}

/// "3 comps were added": a number with its noun, "" for none.
QString Counted(int count, const QString& one, const QString& many)
{
    return count == 0 ? QString() : count == 1 ? one : many.arg(count);
}

} // namespace

QString TransferTally::Text() const
{
    if (busy)
        return messages::kTransferBusy;
    if (notRunning)
        return messages::kNotRunning;
    if (otherReport)
        return words;
    if (noneOpen)
        return words.isEmpty() ? messages::kTransferNoneOpen : words + u", so nothing was transferred."_s;
    if (stopped && stored.isEmpty() && pictures == 0 && Empty())
        return messages::kTransferCancelled;
    if (Empty())
        return messages::kNothingToTransfer;
    QStringList parts;
    for (const QString& part : {Counted(added, u"1 record was added"_s, u"%1 records were added"_s),
                                Counted(replaced, u"1 was replaced"_s, u"%1 were replaced"_s),
                                Counted(kept, u"1 was kept as it was"_s, u"%1 were kept as they were"_s),
                                Counted(pictures, u"1 picture was filed"_s, u"%1 pictures were filed"_s),
                                Counted(failed, u"1 could not be stored"_s, u"%1 could not be stored"_s)})
        if (!part.isEmpty())
            parts.append(part);
    if (parts.isEmpty())
        parts.append(u"Nothing was stored"_s);
    if (stopped || linkLost)
        parts.append(u"the rest was left alone"_s);
    return parts.join(u", "_s) + u'.' + (note.isEmpty() ? QString() : u' ' + note);
}

TransferTally TransferSubject(LinkDesk& desk, What what, int view)
{
    const common::RoutineScope scope{"TransferSubject"};
    const Wants wants = WantsOf(what);
    const TransferTally tally = Transfer(desk, SubjectJobs(desk, wants.data, wants.pictures, view), what);
    RefreshSubjectIcons(desk, 0);
    return tally;
}

TransferTally TransferComps(LinkDesk& desk, bool all, int index, What what)
{
    return TransferGroup(desk, Group::Sales, all, index, what);
}

TransferTally TransferAltComps(LinkDesk& desk, bool all, int index, What what)
{
    return TransferGroup(desk, Group::Alternates, all, index, what);
}

TransferTally TransferListings(LinkDesk& desk, bool all, int index, What what)
{
    return TransferGroup(desk, Group::Listings, all, index, what);
}

TransferTally TransferRentals(LinkDesk& desk, bool all, int index, What what)
{
    return TransferGroup(desk, Group::Rentals, all, index, what);
}

TransferTally TransferAllData(LinkDesk& desk, What what)
{
    const common::RoutineScope scope{"TransferAllData"};
    const Wants wants = WantsOf(what);
    QList<TransferJob> jobs = SubjectJobs(desk, wants.data, wants.pictures, 0);
    if (text::Trim(desk.report.txtSubject.Text()).isEmpty())
        jobs.clear();
    for (const GroupRow& row : GroupTable())
        if (row.Comps())
            jobs += JobsOf(desk, row.group, true, 0, wants.data, wants.pictures);
    const TransferTally tally = Transfer(desk, jobs, what);
    for (const GroupRow& row : GroupTable())
        if (row.group != Group::General)
            RefreshIcons(desk, row.group);
    return tally;
}

TransferTally TransferSlot(LinkDesk& desk, SlotRef slot, What what)
{
    const common::RoutineScope scope{"SaveSlot"};
    if (slot.group == Group::General)
        return TransferSubject(desk, What::Pic, kGeneralView + slot.index);
    if (slot.group == Group::Subject)
        return TransferSubject(desk, what, std::max(0, slot.index));
    return TransferGroup(desk, slot.group, false, slot.index, what);
}

void SaveSlot2Database(LinkDesk& desk, SlotRef slot)
{
    const bool saved = slot.group == Group::Subject ? slot.index == 1 : RowOf(slot.group).Comps();
    if (desk.globals.autoSave != 0 && saved)
        TransferSlot(desk, slot, What::Both);
}

void SaveSubject2Database(LinkDesk& desk, int view)
{
    SaveSlot2Database(desk, {Group::Subject, view});
}

void SaveComp2Database(LinkDesk& desk, int index)
{
    SaveSlot2Database(desk, {Group::Sales, index});
}

void SaveAltComp2Database(LinkDesk& desk, int index)
{
    SaveSlot2Database(desk, {Group::Alternates, index});
}

void SaveListing2Database(LinkDesk& desk, int index)
{
    SaveSlot2Database(desk, {Group::Listings, index});
}

void SaveRental2Database(LinkDesk& desk, int index)
{
    SaveSlot2Database(desk, {Group::Rentals, index});
}

} // namespace vasclip::link
