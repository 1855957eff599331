#include "link/transfer_jobs.h"

#include "link/slot_icons.h"
#include "link/tabs.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint16 kSubject = 10;
constexpr int kFirstGeneral = 101;
constexpr int kLastGeneral = 136;

} // namespace

QList<TransferGroup> TransferGroups(LinkDesk& desk)
{
    ReportControls& r = desk.report;
    photos::SlotControls& s = desk.slots;
    return {{"COMP"_L1, r.txtComp, s.imaComp, r.TabComp, 0, RefreshCompIcons},
            {"ALT"_L1, r.txtAltComp, s.imaAltComp, r.TabComp, 3, RefreshAltCompIcons},
            {"LIST"_L1, r.txtListing, s.imaListing, r.TabListing, 0, RefreshListingIcons},
            {"RENT"_L1, r.txtRental, s.imaRental, r.TabRental, 0, RefreshRentalIcons}};
}

QList<TransferJob> JobsOf(const TransferGroup& group, bool all, int index, bool data, bool pictures)
{
    QList<TransferJob> jobs;
    const auto add = [&](int n) {
        TransferJob job{group.word, static_cast<qint16>(n), &group.labels(n), data, {}};
        if (pictures)
            job.pictures.append({&group.pictures(n), SubjectView(1)});
        jobs.append(job);
    };
    if (!all) {
        add(index);
        return jobs;
    }
    for (int n = 1; n <= group.labels.Last(); ++n) {
        const int page = group.firstPage + (n - 1) / 3;
        if (group.tab.TabCaption(page) != kNotAvailable && !text::Trim(group.labels(n).Text()).isEmpty())
            add(n);
    }
    return jobs;
}

QList<TransferJob> SubjectJobs(LinkDesk& desk, bool data, bool pictures, int view)
{
    TransferJob job{"SALE"_L1, kSubject, &desk.report.txtSubject, data, {}};
    const bool one = !data && view != 0;
    if (one && view >= kFirstGeneral && view <= kLastGeneral) {
        const int slot = view - 100;
        if (desk.slots.imaGeneral(slot).Picture().isNull())
            return {};
        job.pictures.append({&desk.slots.imaGeneral(slot), text::Trim(desk.report.cboGeneral(slot).Text())});
        return {job};
    }
    if (one && (view < 1 || view > 3))
        return {};
    for (int i = 1; pictures && i <= 3; ++i)
        if (!one || view == i)
            job.pictures.append({&desk.slots.imaSubject(i), SubjectView(i)});
    return {job};
}

} // namespace vasclip::link
