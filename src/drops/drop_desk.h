#pragma once

#include "forms/grid.h"
#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "photos/photo_desk.h"

namespace vasclip::drops {

struct Outcome;

/// Who shows the records: what the drops ask of it.
class DropShow
{
public:
    virtual ~DropShow() = default;
    /// As forms::DropPort.
    virtual bool TakeRow(qint64 row, const QString& key) = 0;
    /// A drop is over: the status line tells of it, and a record that has changed comes on show.
    virtual void Told(const Outcome& outcome) = 0;
};

/// What the drops work on; all of it outlives the router.
struct DropDesk
{
    link::LinkDesk& link;
    photos::PhotoDesk& photos;
    photos::CaptureDesk& capture;
    const forms::Grid& grddatabook;
    const forms::TextBox& txtcentralkey; ///< key of the record on show, and the address box
    const forms::TextBox& txtMapAddress; ///< of the point selected on the map
    DropShow* show = nullptr;            ///< who shows records; none: outcomes are told to nobody
};

} // namespace vasclip::drops
