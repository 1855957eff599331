#include "link/transfer_jobs.h"

#include "link/slot_icons.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

QList<TransferJob> JobsOf(ReportMirror& desk, Group group, bool all, int index, bool data, bool pictures)
{
    QList<TransferJob> jobs;
    const GroupRow& row = RowOf(group);
    const GroupRow::Texts& labels = desk.report.*row.texts;
    const auto add = [&](int n) {
        TransferJob job{group, static_cast<qint16>(n), &labels(n), data, {}};
        if (pictures)
            job.pictures.append({&(desk.slots.*row.photos)(n), SubjectView(1)});
        jobs.append(job);
    };
    if (!all) {
        add(index);
        return jobs;
    }
    for (int n = 1; n <= row.slots; ++n)
        if (!OnMissingPage(desk.report, {group, n}) && !text::Trim(labels(n).Text()).isEmpty())
            add(n);
    return jobs;
}

QList<TransferJob> SubjectJobs(ReportMirror& desk, bool data, bool pictures, int view)
{
    TransferJob job{Group::Subject, kSubjectComp, &desk.report.txtSubject, data, {}};
    const bool one = !data && view != 0;
    if (one && view > kGeneralView && view <= kGeneralView + photos::kGeneralPhotos) {
        const int slot = view - kGeneralView;
        if (desk.slots.imaGeneral(slot).Picture().isNull())
            return {};
        job.pictures.append({&desk.slots.imaGeneral(slot), text::Trim(desk.report.cboGeneral(slot).Text())});
        return {job};
    }
    if (one && (view < 1 || view > photos::kSubjectPhotos))
        return {};
    for (int i = 1; pictures && i <= photos::kSubjectPhotos; ++i)
        if (!one || view == i)
            job.pictures.append({&desk.slots.imaSubject(i), SubjectView(i)});
    return {job};
}

} // namespace vasclip::link
