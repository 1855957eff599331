#pragma once

#include <QString>

namespace vasclip::photos {

// Letter for letter.
inline const QString kEnterDate = QStringLiteral("Please enter a date.");
inline const QString kEraseSelected =
    QStringLiteral("This is a permanent unreverable procedure.  All selected photos will be erased.  Are "
                   "you sure?");
inline const QString kToTrashDirectory =
    QStringLiteral("Change the camera directory to the trashcan directory?");
inline const QString kBackToCapture = QStringLiteral("Change back to the capture directory?");
inline const QString kDeleteQuestion = QStringLiteral("Delete %1?");
inline const QString kDeleteFromTrash =
    QStringLiteral("Delete the image named %1 from a TrashCan Directory is a permanant delete.  Are you "
                   "sure?");

// Texts of our own.
inline const QString kRestoreOver =
    QStringLiteral("Another picture named %1 is in %2. Restore this one? The other one goes to the trash.");
inline const QString kNothingSelected = QStringLiteral("Select one or more photos first.");
inline const QString kPhotosErased = QStringLiteral("Photos erased: %1");
inline const QString kPhotosRestored = QStringLiteral("Photos restored to %1: %2");
inline const QString kNotErased = QStringLiteral("Photos erased: %1. Could not be erased: %2");
inline const QString kOtherNow =
    QStringLiteral(" Left alone, since other pictures bear these names now: %1");
inline const QString kPhotosIn = QStringLiteral("Photos here: %1, selected: %2");

} // namespace vasclip::photos
