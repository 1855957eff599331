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

} // namespace vasclip::databook
