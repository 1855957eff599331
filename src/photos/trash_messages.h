#pragma once

#include <QString>

namespace vasclip::photos {

using namespace Qt::StringLiterals;

// Letter for letter.
inline const QString kEnterDate = u"Please enter a date."_s;
inline const QString kEraseSelected =
    u"This is a permanent unreverable procedure.  All selected photos will be erased.  Are "
    "you sure?"_s;
inline const QString kToTrashDirectory = u"Change the camera directory to the trashcan directory?"_s;
inline const QString kBackToCapture = u"Change back to the capture directory?"_s;
inline const QString kDeleteQuestion = u"Delete %1?"_s;
inline const QString kDeleteFromTrash =
    u"Delete the image named %1 from a TrashCan Directory is a permanant delete.  Are you "
    "sure?"_s;

// Texts of our own.
inline const QString kRestoreOver =
    u"Another picture named %1 is in %2. Restore this one? The other one goes to the trash."_s;
inline const QString kNothingSelected = u"Select one or more photos first."_s;
inline const QString kPhotosErased = u"Photos erased: %1"_s;
inline const QString kPhotosRestored = u"Photos restored to %1: %2"_s;
inline const QString kNotErased = u"Photos erased: %1. Could not be erased: %2"_s;
inline const QString kOtherNow = u" Left alone, since other pictures bear these names now: %1"_s;
inline const QString kPhotosIn = u"Photos here: %1, selected: %2"_s;

} // namespace vasclip::photos
