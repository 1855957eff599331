#pragma once

#include "link/link_desk.h"
#include "link/slot_table.h"

#include <QList>

namespace vasclip::link {

/// Views of the subject above this are its general photos: 101 is that of general slot 1.
inline constexpr int kGeneralView = 100;

/// One slot that is to be transferred.
struct TransferJob
{
    Group group = Group::Subject;
    qint16 comp = 0; ///< 1 to 9, or kSubjectComp
    forms::TextBox* label = nullptr;
    bool data = false;
    QList<std::pair<forms::PictureBox*, QString>> pictures; ///< with their views
};

/// The jobs of one slot, or of every slot that has a text and is not on a page "N/A".
[[nodiscard]] QList<TransferJob> JobsOf(ReportMirror& desk, Group group, bool all, int index, bool data,
                                        bool pictures);
/// The job of the subject; see TransferSubject for `view`. None for a view that is none, and for a general
/// slot without a picture.
[[nodiscard]] QList<TransferJob> SubjectJobs(ReportMirror& desk, bool data, bool pictures, int view);

} // namespace vasclip::link
