#pragma once

#include "common/status.h"
#include "photos/pointed_file.h"

namespace vasclip::shell {

/// Over what the last pop-up menu opened: what is chosen in it is done to that and to nothing else.
struct MenuPoint
{
    QString control;
    int index = -1;
    photos::PointedFile file;
    QString photo; ///< record, view and file name of the photo on show
};

/// Says why a choice does nothing. @return true, unless there is nothing to say
[[nodiscard]] inline bool Refused(common::StatusDesk& status, const QString& why)
{
    if (!why.isEmpty())
        status.lblmsg.Show(why, forms::Colour::Red);
    return !why.isEmpty();
}

} // namespace vasclip::shell
