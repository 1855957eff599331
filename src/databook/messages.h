#pragma once

#include <QString>

namespace vasclip::databook {

using namespace Qt::StringLiterals;

// Status line texts, letter for letter.
inline const QString kEnterAddress = u"Please Enter An Address"_s;
inline const QString kSelectType = u"Please Select The Appraisal Type"_s;
inline const QString kKeyMissing = u"CentralKey is null or missing"_s;
inline const QString kWasFound = u" was found in the comp file."_s;
inline const QString kWasNotFound = u" was NOT found in the comp file."_s;
inline const QString kWasDeleted = u" was deleted."_s;
inline const QString kRenamedToItself = u"Address cannot be renamed to itself."_s;
inline const QString kEnterValidAddress = u"Please enter a valid address."_s;
inline const QString kDeleteQuestion = u"Delete '%1'?"_s;
inline const QString kAlreadyExists = u"The address %1 already exists.  Try again."_s;
inline const QString kNoCompsFound =
    u"No comps were found using the search fields above.  Check spelling or be less specific"_s;
inline const QString kCompFound = u" comp found."_s;
inline const QString kCompsFound = u" comps found."_s;
inline const QString kNeedNeighborhood = u"You must have a neighborhood name."_s;
inline const QString kNoCityEntered =
    u"No city, state, or zip information has been entered.  Are you sure you wish to replace all "
    "neighborhoods equal to %1 with blank information."_s;
inline const QString kDeleteCities = u"Delete selected cities?"_s;

// Texts of our own.
inline const QString kCityAdded = u"%1 was added to the list."_s;
inline const QString kCityIsThere = u"%1 is in the list already."_s;
inline const QString kNeedCity = u"Enter a city first."_s;
inline const QString kCitiesNotSaved =
    u"The list of cities could not be written to %1, which still holds the old one. Check that the "
    "file may be changed and that the disk has room."_s;
inline const QString kWasChanged = u"%1 was changed."_s;
inline const QString kRecordChanged = u"1 record of %1 was changed."_s;
inline const QString kRecordsChanged = u"%1 records of %2 were changed."_s;
inline const QString kNoRecordsToShow = u"No records to show"_s;
inline const QString kRecordOf = u"Record %1 of %2"_s;
inline const QString kGoneMeanwhile = u"The record was deleted by somebody else meanwhile."_s;
inline const QString kNoSuchAddress = u"The address %1 is not in the Databook."_s;
inline const QString kOpenExisting =
    u"The address %1 is in the Databook already.  Do you want to open its record?"_s;
inline const QString kWasAdded = u"%1 was added."_s;
inline const QString kWasCopied = u"%1 was copied to %2."_s;
inline const QString kWasRenamed = u"%1 is %2 now."_s;
inline const QString kPicturesLeft = u"%1 was deleted, but these pictures of it could not be: "
                                     "%2. Close what shows them and delete them by hand."_s;
inline const QString kAddressTooLong =
    u"The address %1 has %2 characters; the Databook holds at most %3. Shorten it and try again."_s;
inline const QString kUnknownType = u"\"%1\" is no comp type. The types are F, C, S, R, L and M."_s;
inline const QString kNoDateRange =
    u"\"%1\" is no date range. Choose On or Prior, Equal To or On or After."_s;
// What a step of a record is called.
inline const QString kAddWords = u"Add %1"_s;
inline const QString kDeleteWords = u"Delete %1"_s;
inline const QString kCopyWords = u"Copy %1 to %2"_s;
inline const QString kRenameWords = u"Rename %1 to %2"_s;
inline const QString kEditWords = u"Edit %1"_s;
inline const QString kCityWords = u"Set the city of %1"_s;
inline const QString kCitiesWords = u"Set the city of the neighborhood %1"_s;
inline const QString kNotAmongShown =
    u" It is not among the records shown; close the conditions above the grid to see it."_s;
inline const QString kDeleteManyQuestion =
    u"Delete these %1 records and their photos?\n\n%2\n\nThis cannot be taken back."_s;
inline const QString kAndMoreRecords = u"and %1 more"_s;
inline const QString kDeletingRecord = u"Deleting %1"_s;
inline const QString kOneDeleted = u"1 record was deleted."_s;
inline const QString kManyDeleted = u"%1 records were deleted."_s;
inline const QString kSomeDeleted = u"%1 of %2 records were deleted."_s;
inline const QString kDeletionStopped =
    u"Canceled: %1 of %2 records were deleted, the others are as they were."_s;
inline const QString kNotDeleted = u"These records could not be deleted:\n\n%1"_s;
inline const QString kOtherDatabook = u"%1 of %2 records were deleted; then another Databook was opened."_s;
inline const QString kNothingChanged = u"Nothing was changed."_s;

inline const QString kIndexMissing =
    u"The index that makes finding quick is being made; until then finding takes longer."_s;
inline const QString kIndexDamaged =
    u"The index that makes finding quick was damaged and is made anew; the records are not harmed."_s;
inline const QString kIndexOutOfStep =
    u"The index that makes finding quick did not know all records and learns them; the records are not "
    "harmed."_s;

inline const QString kChangesLost = u"Changes will be lost.  Are you sure?"_s;
inline const QString kSaved = u"The record was saved."_s;
inline const QString kNoPrice = u"\"%1\" is no price. Type digits, such as 250000 or 250,000.50."_s;
inline const QString kNoArea = u"\"%1\" is no area. Type digits, such as 1600 or 1,600."_s;
inline const QString kNothingStored = u"Nothing was stored: %1"_s;
inline const QString kReadAs = u"\"%1\" is read as %2."_s;
inline const QString kNotADate = u"\"%1\" is not understood as a date; it counts as %2%3."_s;
inline const QString kTooEarly = u"%1 lies before 1900; it counts as %2%3."_s;
inline const QString kInTheFuture = u"%1 lies in a year to come; it counts as %2%3."_s;
inline const QString kAPendingSale = u", a pending sale"_s;
inline const QString kNoLeaseDate = u", no lease date"_s;
inline const QString kNoLoadDate =
    u"\"%1\" is not understood as a date; Exit makes it the day of today, %2."_s;
inline const QString kBringBack = u"Brings \"%1\" back into the field (Ctrl+Z there)"_s;
inline const QString kDatesLost = u"%1\n\nDo you want to store that and leave?"_s;
inline const QString kTheirsShown = u"This is the record as it was stored by somebody else."_s;
inline const QString kReadOnlyHere = u"This Databook is read-only: nothing can be changed here."_s;
inline const QString kNotStored = u"Nothing was stored. What you entered is still here."_s;
inline const QString kDeletedMeanwhile =
    u"The comp %1 was deleted by somebody else meanwhile. Nothing was stored; what you entered "
    "is still on the screen. Add the comp again if you want to keep it."_s;
inline const QString kTheirsOrMine =
    u"Somebody else changed the comp %1 while you were editing it. Nothing is stored yet.\n%2"
    "\n\nYes: store your changes over theirs; what only they changed stays.\nNo: drop your "
    "changes and show theirs.\nCancel: go on editing."_s;
inline const QString kBothChanged = u"%1: \"%2\" is yours, \"%3\" is theirs"_s;
inline const QString kNoneInBoth = u"No field was changed by both of you."_s;

} // namespace vasclip::databook
