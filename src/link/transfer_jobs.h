#pragma once

#include "link/link_desk.h"

#include <QList>

namespace vasclip::link {

/// One slot that is to be transferred.
struct TransferJob
{
    QLatin1StringView groupWord; ///< COMP, ALT, LIST, RENT, or SALE for the subject
    qint16 comp = 0;             ///< 1 to 9, 10 the subject
    forms::TextBox* label = nullptr;
    bool data = false;
    QList<std::pair<forms::PictureBox*, QString>> pictures; ///< with their views
};

/// A group of slots: its word, its controls, the tab page that its first slots are on.
struct TransferGroup
{
    QLatin1StringView word;
    const forms::ControlArray<forms::TextBox>& labels;
    const forms::ControlArray<forms::PictureBox>& pictures;
    const forms::TabControl& tab;
    int firstPage;
    void (*refreshIcons)(LinkDesk& desk);
};

/// COMP, ALT, LIST, RENT: the order of a transfer of all data.
[[nodiscard]] QList<TransferGroup> TransferGroups(LinkDesk& desk);

/// The jobs of one slot, or of every slot that has a text and is not on a page "N/A".
[[nodiscard]] QList<TransferJob> JobsOf(const TransferGroup& group, bool all, int index, bool data,
                                        bool pictures);
/// The job of the subject; see TransferSubject for `view`. None for a view that is none, and for a general
/// slot without a picture.
[[nodiscard]] QList<TransferJob> SubjectJobs(LinkDesk& desk, bool data, bool pictures, int view);

} // namespace vasclip::link
