#pragma once

#include <QString>

namespace vasclip::photos {

// Letter for letter.
inline const QString kMediaNotReady = QStringLiteral("Media is not ready/readable. Try again?");
inline const QString kMediaUnreadable =
    QStringLiteral("Media appears to be unreadable or not inserted properly.  Please try again.");
inline const QString kSameDirectories =
    QStringLiteral("The Source and target directories are the same.  Copy ignored.");
inline const QString kListFull = QStringLiteral("You've filled the listbox. Search being abandoned...");

// Texts of our own.
inline const QString kNoRoomTitle = QStringLiteral("Not Enough Room");
inline const QString kNoRoom = QStringLiteral(
    "There is not enough room in %1: the photos need %2 MB, and %3 MB are free. Nothing was copied. Select "
    "fewer photos, or make room and try again.");
inline const QString kCopyAgain = QStringLiteral(
    "%1 of %2 photos have come in before:\r\n\r\n%3\r\n\r\nCopy them again?");
inline const QString kKnownHere = QStringLiteral("%1 is %2");
inline const QString kKnownFiled = QStringLiteral("%1 is filed with %2");
inline const QString kKnownTrash = QStringLiteral("%1 is in the trash as %2");
inline const QString kThereLine = QStringLiteral("%1 is there already");
inline const QString kAndMore = QStringLiteral("and %1 more");
inline const QString kCopied = QStringLiteral("Photos copied to %1: %2");
inline const QString kThereAlready = QStringLiteral(", there already: %1");
inline const QString kLeftOut = QStringLiteral(", left out: %1");
inline const QString kRenamed = QStringLiteral(", renamed since no report can name a file with \"]\": %1");
inline const QString kReplacedKept = QStringLiteral(", replaced and kept in the trash: %1");
inline const QString kNotCopied = QStringLiteral(", not copied: %1");
inline const QString kStopped = QStringLiteral("Stopped. ");
inline const QString kNoJpg = QStringLiteral("%1 holds no photos (*.jpg).");
inline const QString kLookingAt = QStringLiteral("Looking at %1");
inline const QString kCopyingFile = QStringLiteral("Copying %1");

} // namespace vasclip::photos
