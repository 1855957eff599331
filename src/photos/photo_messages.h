#pragma once

#include <QString>

namespace vasclip::photos {

// Letter for letter.
inline const QString kSourceGone = QStringLiteral("The source file does not exist: ");
inline const QString kUnableTitle = QStringLiteral("Unable to Copy Photo");
inline const QString kUnableText = QStringLiteral("Unable to Copy to the Photo DB Directory: \r\n%1.%2\r\n%3\r\n"
                                                  "Please check folder permissions and try again");
inline const QString kIncompleteTitle = QStringLiteral("Picture Compression Incomplete");
inline const QString kIncompleteText =
    QStringLiteral("Picture Compression Error: Retry? \r\nERROR = \r\n");
inline const QString kSamePaths =
    QStringLiteral("Cannot copy.  Source and destination paths cannot be the same.");
inline const QString kMakeDestination =
    QStringLiteral("Destination directory does not exist.  Do you wish to create it?");
inline const QString kNoCopy = QStringLiteral("Copy operation did not take place.");
inline const QString kBlankAddress = QStringLiteral("Blank address");
inline const QString kNoPicture = QStringLiteral("No associated picture");
inline const QString kDeletePhoto = QStringLiteral("Delete this photo?  Are you sure?");
inline const QString kNameInUseTitle = QStringLiteral("Name already in Use");
inline const QString kNameInUse =
    QStringLiteral("You already have a picture for this entry by that name");

// What a step of a record is called; %1 its key.
inline const QString kPhotosWords = QStringLiteral("Photos of %1");
inline const QString kAddForPhotoWords = QStringLiteral("Add %1 for a photo");
inline const QString kTakeBackWords = QStringLiteral("Take back %1");

inline const QString kFrontView = QStringLiteral("FRONT VIEW");

} // namespace vasclip::photos
