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
inline const QString kAlreadyExists = QStringLiteral("The address %1 already exists.  Try again.");
inline const QString kNoCompsFound =
    QStringLiteral("No comps were found using the search fields above.  Check spelling or be less specific");
inline const QString kCompFound = QStringLiteral(" comp found.");
inline const QString kCompsFound = QStringLiteral(" comps found.");

// Texts of our own.
inline const QString kNoSuchAddress = QStringLiteral("The address %1 is not in the Databook.");
inline const QString kAddressTooLong = QStringLiteral(
    "The address %1 has %2 characters; the Databook holds at most %3. Shorten it and try again.");
inline const QString kUnknownType =
    QStringLiteral("\"%1\" is no comp type. The types are F, C, S, R, L and M.");
inline const QString kNoDateRange =
    QStringLiteral("\"%1\" is no date range. Choose On or Prior, Equal To or On or After.");
inline const QString kNothingChanged = QStringLiteral("Nothing was changed.");

inline const QString kChangesLost = QStringLiteral("Changes will be lost.  Are you sure?");
inline const QString kSaved = QStringLiteral("The record was saved.");
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
