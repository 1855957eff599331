#pragma once

#include <QString>

// The texts of the boxes, letter for letter.

namespace vasclip::comments {

// sharing
inline const QString kNoSharedFile =
    QStringLiteral("A comment file in which to share is not available.  Do you wish to share your comment "
                   "file at this time.");
inline const QString kShareTheBest =
    QStringLiteral("Share the best comment file available among the other users and then try again.");
inline const QString kCopyTheShared = QStringLiteral(
    "Copy the shared comments at this time (otherwise an empty comment file will be created)?");
inline const QString kCopySuccessful = QStringLiteral("Copy successful");
inline const QString kEmptyCreated = QStringLiteral("An empty comment was created.");

// keys and library
inline const QString kOverwriteKey = QStringLiteral("Overwrite '%1' with '%2' ... Are you sure?");
inline const QString kOverwriteInList = QStringLiteral("Overwrite '%1'. Are you sure?");
inline const QString kDeletePhrase = QStringLiteral("Delete '%1'.  Are you sure?'");
inline const QString kAlreadyExists = QStringLiteral("%1 already exists.");

inline const QString kListFull =
    QStringLiteral("There is no room for more than %1 phrases of a field.  Delete one first.");
inline const QString kNoRoom =
    QStringLiteral("The comment file has no room for these phrases, which were not stored:");
inline const QString kInUse = QStringLiteral("The comment file %1 is in use by another user at this moment.");
inline const QString kNoKeys =
    QStringLiteral("%1.  The function keys have no phrases until this is corrected.");
inline const QString kNotStored =
    QStringLiteral("%1.  The phrases were not stored; they stand in the dialog still.");
inline const QString kNotReached = QStringLiteral("The directory %1 of the comment file can not be reached");

// an older comment file
inline const QString kUpdateShared =
    QStringLiteral("The shared 'comments' database needs to be updated.  Please have all users (using this "
                   "program) exit this application at this time.  You should have a good backup of your data "
                   "BEFORE using this option.  Are you ready at this time?");
inline const QString kUpdateLocal =
    QStringLiteral("The local 'comments' database needs to be updated.  You should have a good backup of "
                   "your data BEFORE using this option.  Are you ready at this time?");
inline const QString kUpdated =
    QStringLiteral("The modifications to the database(s) were successful and the data is ready for use.");
inline const QString kTableInUse =
    QStringLiteral("The database engine could not lock table 'COMPS' because it is already in use by another "
                   "person or process. The update cannot continue.");
inline const QString kFileLocked =
    QStringLiteral("The file appears to be locked.  Please inform all network users to exit this application "
                   "so an update can take place.");
inline const QString kCountTitle = QStringLiteral("Error processing databook field count");
inline const QString kCountText =
    QStringLiteral("Unable to detect field count in databook.mdb (reference *new* files are missing or "
                   "corrupt). Reinstall the program and retry");

// What a step of a row is called; %1 its key.
inline const QString kPhraseWords = QStringLiteral("Phrases of row %1");
inline const QString kRowWords = QStringLiteral("Add row %1");

} // namespace vasclip::comments
