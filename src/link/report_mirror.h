#pragma once

#include "link/report_desk.h"
#include "photos/slots.h"

#include <QImage>

#include <array>

namespace vasclip::link {

/// What the icons beside the slots show.
struct SlotIconPictures
{
    /// 0 not in the Databook, 1 without the slot's view, 2 with it, 3 with its front view.
    std::array<QImage, 4> imaTypeIcon;
    QImage imaSubjectAnchor; ///< the record has coordinates
};

/// The open report as the program has read and shows it.
struct ReportMirror
{
    ReportControls& report;
    frm_Addr& addr;
    LinkState& state;
    photos::SlotControls& slots;
    photos::SlotLoader& loader;
    SlotIconPictures icons = {};
};

} // namespace vasclip::link
