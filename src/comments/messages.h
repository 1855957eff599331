#pragma once

#include <QString>

// The texts of the boxes, letter for letter.

namespace vasclip::comments {

using namespace Qt::StringLiterals;

// sharing
inline const QString kNoSharedFile =
    u"A comment file in which to share is not available.  Do you wish to share your comment "
    "file at this time."_s;
inline const QString kShareTheBest =
    u"Share the best comment file available among the other users and then try again."_s;
inline const QString kCopyTheShared =
    u"Copy the shared comments at this time (otherwise an empty comment file will be created)?"_s;
inline const QString kCopySuccessful = u"Copy successful"_s;
inline const QString kEmptyCreated = u"An empty comment was created."_s;

// keys and library
inline const QString kOverwriteKey = u"Overwrite '%1' with '%2' ... Are you sure?"_s;
inline const QString kOverwriteInList = u"Overwrite '%1'. Are you sure?"_s;
inline const QString kDeletePhrase = u"Delete '%1'.  Are you sure?'"_s;
inline const QString kAlreadyExists = u"%1 already exists."_s;

inline const QString kListFull =
    u"There is no room for more than %1 phrases of a field.  Delete one first."_s;
inline const QString kNoRoom = u"The comment file has no room for these phrases, which were not stored:"_s;
inline const QString kInUse = u"The comment file %1 is in use by another user at this moment."_s;
inline const QString kNoKeys = u"%1.  The function keys have no phrases until this is corrected."_s;
inline const QString kNotStored = u"%1.  The phrases were not stored; they stand in the dialog still."_s;
inline const QString kNotReached = u"The directory %1 of the comment file can not be reached"_s;

// an older comment file
inline const QString kUpdateShared =
    u"The shared 'comments' database needs to be updated.  Please have all users (using this "
    "program) exit this application at this time.  You should have a good backup of your data "
    "BEFORE using this option.  Are you ready at this time?"_s;
inline const QString kUpdateLocal =
    u"The local 'comments' database needs to be updated.  You should have a good backup of "
    "your data BEFORE using this option.  Are you ready at this time?"_s;

// What a step of a row is called; %1 its key.
inline const QString kPhraseWords = u"Phrases of row %1"_s;
inline const QString kRowWords = u"Add row %1"_s;

} // namespace vasclip::comments
