#pragma once

#include <QString>

namespace vasclip::photos {

using namespace Qt::StringLiterals;

// Letter for letter.
inline const QString kSourceGone = u"The source file does not exist: "_s;
inline const QString kUnableTitle = u"Unable to Copy Photo"_s;
inline const QString kUnableText = u"Unable to Copy to the Photo DB Directory: \r\n%1.%2\r\n%3\r\n"
                                   "Please check folder permissions and try again"_s;
inline const QString kIncompleteTitle = u"Picture Compression Incomplete"_s;
inline const QString kIncompleteText = u"Picture Compression Error: Retry? \r\nERROR = \r\n"_s;
inline const QString kSamePaths = u"Cannot copy.  Source and destination paths cannot be the same."_s;
inline const QString kMakeDestination = u"Destination directory does not exist.  Do you wish to create it?"_s;
inline const QString kNoCopy = u"Copy operation did not take place."_s;
inline const QString kBlankAddress = u"Blank address"_s;
inline const QString kNoPicture = u"No associated picture"_s;
inline const QString kDeletePhoto = u"Delete this photo?  Are you sure?"_s;
inline const QString kNameInUseTitle = u"Name already in Use"_s;
inline const QString kNameInUse = u"You already have a picture for this entry by that name"_s;

// What a step of a record is called; %1 its key.
inline const QString kPhotosWords = u"Photos of %1"_s;
inline const QString kAddForPhotoWords = u"Add %1 for a photo"_s;
inline const QString kTakeBackWords = u"Take back %1"_s;

inline const QString kFrontView = u"FRONT VIEW"_s;

} // namespace vasclip::photos
