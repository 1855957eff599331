#pragma once

#include "photos/pointed_file.h"
#include "photos/trash.h"

namespace vasclip::photos {

/// What a drop on the trash icon has done.
enum class TrashDrop {
    Nothing, ///< no thumbnail, no file, or the user said No
    Another, ///< the file is no longer the one that was dragged; nothing was done
    // The thumbnail is to be cleared and hidden, whatever became of its file:
    Stayed,  ///< nothing went to the trash
    Copied,  ///< to the trash; the file itself stayed
    Moved,   ///< into the trash
    Deleted, ///< out of a trash directory, for good
};

/// A drop on `imaTrashcan`: asks, and sends a capture picture to the trash, or deletes one of a trash
/// directory for good.
/// @param source  name of the dragged control; only GEATHUMB acts
/// @param picture the one dragged, as it was then
/// @param saved   as the last save left it: with Unsaved the source stays
TrashDrop geatrashcan_DragDrop(const TrashDesk& desk, PictureIs saved, const QString& source,
                               const PointedFile& picture);

/// A click on `imaTrashcan` switches the capture directory into its trash directory and back.
/// @return the capture directory to show now, with a backslash at its end; "" if nothing changes. Into the
/// trash it goes only where `captureDir` ends in a backslash and has a trash directory.
[[nodiscard]] QString imaTrashcan_Click(forms::Prompter& prompter, const files::Disk& disk,
                                        const QString& captureDir);

} // namespace vasclip::photos
