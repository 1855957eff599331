#pragma once

#include <QString>

namespace vasclip::photos {

using namespace Qt::StringLiterals;

// Letter for letter.
inline const QString kMediaNotReady = u"Media is not ready/readable. Try again?"_s;
inline const QString kMediaUnreadable =
    u"Media appears to be unreadable or not inserted properly.  Please try again."_s;
inline const QString kSameDirectories = u"The Source and target directories are the same.  Copy ignored."_s;
inline const QString kListFull = u"You've filled the listbox. Search being abandoned..."_s;

// Texts of our own.
inline const QString kNoRoomTitle = u"Not Enough Room"_s;
inline const QString kNoRoom =
    u"There is not enough room in %1: the photos need %2 MB, and %3 MB are free. Nothing was copied. Select "
    "fewer photos, or make room and try again."_s;
inline const QString kCopyAgain = u"%1 of %2 photos have come in before:\r\n\r\n%3\r\n\r\nCopy them again?"_s;
inline const QString kKnownHere = u"%1 is %2"_s;
inline const QString kKnownFiled = u"%1 is filed with %2"_s;
inline const QString kKnownTrash = u"%1 is in the trash as %2"_s;
inline const QString kThereLine = u"%1 is there already"_s;
inline const QString kAndMore = u"and %1 more"_s;
inline const QString kCopied = u"Photos copied to %1: %2"_s;
inline const QString kThereAlready = u", there already: %1"_s;
inline const QString kLeftOut = u", left out: %1"_s;
inline const QString kRenamed = u", renamed since no report can name a file with \"]\": %1"_s;
inline const QString kReplacedKept = u", replaced and kept in the trash: %1"_s;
inline const QString kNotCopied = u", not copied: %1"_s;
inline const QString kStopped = u"Stopped. "_s;
inline const QString kNoJpg = u"%1 holds no photos (*.jpg)."_s;
inline const QString kLookingAt = u"Looking at %1"_s;
inline const QString kCopyingFile = u"Copying %1"_s;

} // namespace vasclip::photos
