#pragma once

#include <QString>

namespace vasclip::databook {

// Status line texts, letter for letter.
inline const QString kEnterAddress = QStringLiteral("Please Enter An Address");
inline const QString kSelectType = QStringLiteral("Please Select The Appraisal Type");
inline const QString kKeyMissing = QStringLiteral("CentralKey is null or missing");
inline const QString kWasFound = QStringLiteral(" was found in the comp file.");
inline const QString kWasNotFound = QStringLiteral(" was NOT found in the comp file.");
inline const QString kWasDeleted = QStringLiteral(" was deleted.");
inline const QString kRenamedToItself = QStringLiteral("Address cannot be renamed to itself.");
inline const QString kEnterValidAddress = QStringLiteral("Please enter a valid address.");
inline const QString kDeleteQuestion = QStringLiteral("Delete '%1'?");
inline const QString kAlreadyExists = QStringLiteral("The address %1 already exists.  Try again.");
inline const QString kNoCompsFound =
    QStringLiteral("No comps were found using the search fields above.  Check spelling or be less specific");
inline const QString kCompFound = QStringLiteral(" comp found.");
inline const QString kCompsFound = QStringLiteral(" comps found.");
inline const QString kNeedNeighborhood = QStringLiteral("You must have a neighborhood name.");
inline const QString kNoCityEntered = QStringLiteral(
    "No city, state, or zip information has been entered.  Are you sure you wish to replace all "
    "neighborhoods equal to %1 with blank information.");
inline const QString kDeleteCities = QStringLiteral("Delete selected cities?");

// Texts of our own.
inline const QString kCityAdded = QStringLiteral("%1 was added to the list.");
inline const QString kCityIsThere = QStringLiteral("%1 is in the list already.");
inline const QString kNeedCity = QStringLiteral("Enter a city first.");
inline const QString kCitiesNotSaved = QStringLiteral(
    "The list of cities could not be written to %1, which still holds the old one. Check that the "
    "file may be changed and that the disk has room.");
inline const QString kWasChanged = QStringLiteral("%1 was changed.");
inline const QString kRecordChanged = QStringLiteral("1 record of %1 was changed.");
inline const QString kRecordsChanged = QStringLiteral("%1 records of %2 were changed.");
inline const QString kNoRecordsToShow = QStringLiteral("No records to show");
inline const QString kRecordOf = QStringLiteral("Record %1 of %2");
inline const QString kGoneMeanwhile = QStringLiteral("The record was deleted by somebody else meanwhile.");
inline const QString kNoSuchAddress = QStringLiteral("The address %1 is not in the Databook.");
inline const QString kOpenExisting =
    QStringLiteral("The address %1 is in the Databook already.  Do you want to open its record?");
inline const QString kWasAdded = QStringLiteral("%1 was added.");
inline const QString kWasCopied = QStringLiteral("%1 was copied to %2.");
inline const QString kWasRenamed = QStringLiteral("%1 is %2 now.");
inline const QString kPicturesLeft = QStringLiteral("%1 was deleted, but these pictures of it could not be: "
                                                    "%2. Close what shows them and delete them by hand.");
inline const QString kAddressTooLong = QStringLiteral(
    "The address %1 has %2 characters; the Databook holds at most %3. Shorten it and try again.");
inline const QString kUnknownType =
    QStringLiteral("\"%1\" is no comp type. The types are F, C, S, R, L and M.");
inline const QString kNoDateRange =
    QStringLiteral("\"%1\" is no date range. Choose On or Prior, Equal To or On or After.");
// What a step of a record is called.
inline const QString kAddWords = QStringLiteral("Add %1");
inline const QString kDeleteWords = QStringLiteral("Delete %1");
inline const QString kCopyWords = QStringLiteral("Copy %1 to %2");
inline const QString kRenameWords = QStringLiteral("Rename %1 to %2");
inline const QString kEditWords = QStringLiteral("Edit %1");
inline const QString kCityWords = QStringLiteral("Set the city of %1");
inline const QString kCitiesWords = QStringLiteral("Set the city of the neighborhood %1");
inline const QString kNotAmongShown =
    QStringLiteral(" It is not among the records shown; close the conditions above the grid to see it.");
inline const QString kDeleteManyQuestion =
    QStringLiteral("Delete these %1 records and their photos?\n\n%2\n\nThis cannot be taken back.");
inline const QString kAndMoreRecords = QStringLiteral("and %1 more");
inline const QString kDeletingRecord = QStringLiteral("Deleting %1");
inline const QString kManyDeleted = QStringLiteral("%1 records were deleted.");
inline const QString kSomeDeleted = QStringLiteral("%1 of %2 records were deleted.");
inline const QString kDeletionStopped =
    QStringLiteral("Canceled: %1 of %2 records were deleted, the others are as they were.");
inline const QString kNotDeleted = QStringLiteral("These records could not be deleted:\n\n%1");
inline const QString kOtherDatabook =
    QStringLiteral("%1 of %2 records were deleted; then another Databook was opened.");
inline const QString kNothingChanged = QStringLiteral("Nothing was changed.");

inline const QString kIndexMissing =
    QStringLiteral("The index that makes finding quick is being made; until then finding takes longer.");
inline const QString kIndexDamaged = QStringLiteral(
    "The index that makes finding quick was damaged and is made anew; the records are not harmed.");
inline const QString kIndexOutOfStep = QStringLiteral(
    "The index that makes finding quick did not know all records and learns them; the records are not "
    "harmed.");

inline const QString kChangesLost = QStringLiteral("Changes will be lost.  Are you sure?");
inline const QString kSaved = QStringLiteral("The record was saved.");
inline const QString kNoPrice =
    QStringLiteral("\"%1\" is no price. Type digits, such as 250000 or 250,000.50.");
inline const QString kNoArea = QStringLiteral("\"%1\" is no area. Type digits, such as 1600 or 1,600.");
inline const QString kNothingStored = QStringLiteral("Nothing was stored: %1");
inline const QString kReadAs = QStringLiteral("\"%1\" is read as %2.");
inline const QString kNotADate = QStringLiteral("\"%1\" is not understood as a date; it counts as %2%3.");
inline const QString kTooEarly = QStringLiteral("%1 lies before 1900; it counts as %2%3.");
inline const QString kInTheFuture = QStringLiteral("%1 lies in a year to come; it counts as %2%3.");
inline const QString kAPendingSale = QStringLiteral(", a pending sale");
inline const QString kNoLeaseDate = QStringLiteral(", no lease date");
inline const QString kNoLoadDate =
    QStringLiteral("\"%1\" is not understood as a date; Exit makes it the day of today, %2.");
inline const QString kBringBack = QStringLiteral("Brings \"%1\" back into the field (Ctrl+Z there)");
inline const QString kDatesLost = QStringLiteral("%1\n\nDo you want to store that and leave?");
inline const QString kTheirsShown = QStringLiteral("This is the record as it was stored by somebody else.");
inline const QString kReadOnlyHere =
    QStringLiteral("This Databook is read-only: nothing can be changed here.");
inline const QString kNotStored = QStringLiteral("Nothing was stored. What you entered is still here.");
inline const QString kDeletedMeanwhile =
    QStringLiteral("The comp %1 was deleted by somebody else meanwhile. Nothing was stored; what you entered "
                   "is still on the screen. Add the comp again if you want to keep it.");
inline const QString kTheirsOrMine =
    QStringLiteral("Somebody else changed the comp %1 while you were editing it. Nothing is stored yet.\n%2"
                   "\n\nYes: store your changes over theirs; what only they changed stays.\nNo: drop your "
                   "changes and show theirs.\nCancel: go on editing.");
inline const QString kBothChanged = QStringLiteral("%1: \"%2\" is yours, \"%3\" is theirs");
inline const QString kNoneInBoth = QStringLiteral("No field was changed by both of you.");

} // namespace vasclip::databook
