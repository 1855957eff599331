#pragma once

#include <QString>

/// The fixed texts of the link, letter for letter, and the few of our own where no fixed text exists.
namespace vasclip::link::messages {

inline const QString kNotRunningTitle = QStringLiteral("Appraisal Program Not Running");
inline const QString kNotRunning = QStringLiteral("The Appraisal Program is not running at this time.");

inline const QString kLaunchFailedTitle = QStringLiteral("Unable to Open Program");
inline const QString kLaunchFailed = QStringLiteral("Unable to Launch the Appraisal Program. Check to verify "
                                                    "the program is installed and functioning properly");
/// %1 is the product's name.
inline const QString kLaunched = QStringLiteral("After launching the appraisal program\r\n"
                                                "To LINK the active report to %1\r\n"
                                                "REMEMBER: Click 'Refresh' (from Menu or 'HOUSE' icon)");

inline const QString kFormTypeTitle = QStringLiteral("Software Does Not Match Appraisal Form Type");
inline const QString kFormType = QStringLiteral(
    "This software is out of date for this form.  Please contact your software vendor for an update.");

/// %1 product
inline const QString kMismatchTitle = QStringLiteral("%1 Software Mismatch");
/// %1 product, %2 its version, %3 forms program, %4 its version
inline const QString kMismatch =
    QStringLiteral("The current %1 software ( version %2 ) is out of date for use with %3 ( version %4 ).  "
                   "Please contact your software vendor for updating %1.");

inline const QString kNoMappingTitle = QStringLiteral("No Matches to Form Type Found");
inline const QString kNoMapping = QStringLiteral("Reference Entries Not Found (Comp2Kel file incomplete).");

inline const QString kOverwriteTitle = QStringLiteral("Overwrite a comp within the appraisal ...");
/// %1 what stands in the slot, %2 what comes
inline const QString kOverwrite = QStringLiteral("Replace %1 with %2!  Are you sure?");

// Another report is active than the one that the tabs mirror.
inline const QString kAnotherReportTitle = QStringLiteral("Another report is active");
/// %1 active, %2 mirrored
inline const QString kAnotherReport =
    QStringLiteral("The forms program has %1 active now, but the tabs show %2. Nothing has been sent.\r\n\r\n"
                   "Refresh the tabs from %1?");
/// %1 active
inline const QString kNotReadYet =
    QStringLiteral("The forms program has %1 active, and the tabs have not been read from it. Nothing has been "
                   "sent.\r\n\r\nRefresh the tabs from %1?");
/// %1 active
inline const QString kRefreshFrom = QStringLiteral("Refresh from %1");
inline const QString kNotSentAnother =
    QStringLiteral("Nothing was sent: %1 is active in the forms program, and the tabs show %2.");
inline const QString kNotSentUnread =
    QStringLiteral("Nothing was sent: the tabs have not been read from %1, which is active in the forms program.");
/// %1 what the tabs show now
inline const QString kNotSentRefreshed = QStringLiteral("The tabs show %1 now. Nothing was sent.");
/// %1 forms program
inline const QString kNotRunningNothing = QStringLiteral("%1 is not running, so nothing was sent.");
inline const QString kNoneOpenNothing = QStringLiteral("No report is open in %1, so nothing was sent.");
inline const QString kCancelledBefore = QStringLiteral("Cancelled: nothing was sent.");
inline const QString kNotAnswered = QStringLiteral("The forms program did not answer, so nothing was sent.");

// The state of the link. %1 is the forms program, or the report that is active in it.
inline const QString kLinkLooking = QStringLiteral("Looking for %1...");
inline const QString kLinkNotRunning = QStringLiteral("%1 is not running");
inline const QString kLinkAnothersUser = QStringLiteral("%1 is another user's");
inline const QString kLinkSilent = QStringLiteral("%1 does not answer");
inline const QString kLinkNoReport = QStringLiteral("No report is open in %1");
inline const QString kLinkUnnamed = QStringLiteral("%1 does not tell which report is in front");
inline const QString kLinkUnread = QStringLiteral("%1 is open; the tabs have not been read from it");
inline const QString kLinkAnother = QStringLiteral("The forms program has %1 active");
inline const QString kLinkLinked = QStringLiteral("Linked to %1");
inline const QString kNoReportShown = QStringLiteral("No report");
inline const QString kOfferRefresh = QStringLiteral("Refresh");
inline const QString kOfferStart = QStringLiteral("Start it");
inline const QString kOfferAgain = QStringLiteral("Try again");

// Conversations that take long.
inline const QString kCancelled = QStringLiteral("Cancelled");
/// %1 what is at work, %2 its step, %3 of how many
inline const QString kStepOf = QStringLiteral("%1 (%2 of %3)");
inline const QString kSlowTitle = QStringLiteral("The forms program is slow");
/// %1 seconds, %2 what is at work
inline const QString kSlow = QStringLiteral(
    "The forms program has taken %1 seconds so far (%2). Go on waiting for it?\r\n\r\nNo stops after what has "
    "been done up to now.");
inline const QString kReadingReport = QStringLiteral("Reading the report");
/// %1 record or slot
inline const QString kSending = QStringLiteral("Sending %1");
inline const QString kSendingSlots = QStringLiteral("Sending to the report");
/// %1 and %2 comps
inline const QString kSwapping = QStringLiteral("Swapping comps %1 and %2");
inline const QString kSavingSlot = QStringLiteral("Saving to the Databook");
inline const QString kWaitingForForms = QStringLiteral("Waiting for the forms program");
inline const QString kRefreshCancelled =
    QStringLiteral("The refresh was cancelled. The tabs show no report until it is read again.");
/// %1 record
inline const QString kNothingSent = QStringLiteral("Cancelled: nothing of %1 was sent.");
/// %1 record, %2 fields sent, %3 rows of the mapping
inline const QString kPartSent = QStringLiteral(
    "Cancelled: fields of %1 sent so far: %2 of %3. They stay in the report. Send it again to send them all.");
/// %1 forms program
inline const QString kRefreshNotRunning = QStringLiteral("%1 is not running, so the tabs show no report.");
inline const QString kRefreshNoneOpen = QStringLiteral("No report is open in %1, so the tabs show none.");
inline const QString kRefreshNotRead =
    QStringLiteral("The forms program could not be asked for its report, so the tabs show none.");
inline const QString kTransferCancelled = QStringLiteral("Cancelled: nothing was stored.");
inline const QString kTransferNoneOpen = QStringLiteral("No report is open, so there is nothing to transfer.");

inline const QString kClearPhoto = QStringLiteral("Clear the photo.  Are you sure?");
inline const QString kKelNotActive = QStringLiteral("KEL is not active");

// Status texts of a refresh.
inline const QString kPopulatingTabs = QStringLiteral("Populating Tabs");
inline const QString kSettingAddresses = QStringLiteral("Setting Appraisal Addresses");
inline const QString kImporting = QStringLiteral("Importing Appraisal Information");
inline const QString kVerifying = QStringLiteral("Verifying Addresses (City, ST, ZIP)");

/// %1 cause, %2 field, %3 item, %4 fields sent, %5 rows of the mapping, %6 row it stopped at
inline const QString kSendStopped =
    QStringLiteral("%1 (sending %2 to %3, row %6 of %5 in Comp2Kel). %4 fields were sent and stay in the "
                   "report; this one and "
                   "those after it were not. Send the comp again to send them all");
/// %1 a field, %2 what its cell holds, %3 address of the comp before
inline const QString kStillOfOldComp = QStringLiteral("%1 is still %2 of %3");
/// %1 a field, %2 address of the comp before
inline const QString kMayBeOfOldComp = QStringLiteral("%1 may still be that of %2");
inline const QString kNoPlaceForView =
    QStringLiteral("The pages of this report have no line for the description of a general photo.");
/// %1 the answer
inline const QString kUnnamedReport = QStringLiteral(
    "The forms program lists its open reports as \"%1\", without a comma: which one is in front is not known");
/// %1 the answer, %2 the report
inline const QString kUnnamedForm = QStringLiteral(
    "The forms program lists the forms of %2 as \"%1\", without a comma: its main form is not known");
/// %1 the first refusal, %2 how many followed
inline const QString kMoreRefused = QStringLiteral("%1 (and %2 more fields of the report were refused)");
/// %1 form, %2 group, %3 page base
inline const QString kNoRows =
    QStringLiteral("Comp2Kel has no rows for form '%1', group '%2', comp '%3'; nothing was sent");
/// %1 the entry as far as it goes
inline const QString kImagesCutOff = QStringLiteral(
    "The report's images list breaks off within the entry '%1'; its closing ';' is missing. Refresh again");


// Transfers from the report to the Databook.
/// %1 the record's address
inline const QString kReplaceData = QStringLiteral("Replace the data for %1?");
inline const QString kBlankAddress = QStringLiteral("Blank address");
inline const QString kNoPicture = QStringLiteral("No associated picture");
/// %1 cause, %2 field, %3 item, %4 report
inline const QString kReadStopped =
    QStringLiteral("%1 (reading %2 from %3 of %4). Nothing of this comp was stored");
/// %1 column
inline const QString kNoSuchColumn =
    QStringLiteral("Comp2Kel names a field %1 that the Databook does not have; nothing of this comp was stored");
inline const QString kRecordGone = QStringLiteral("The record %1 is not in the Databook any more");
/// %1 what is at work, %2 its place, %3 of how many
inline const QString kTransferring = QStringLiteral("Transferring %1 (%2 of %3)");
inline const QString kTransferBusy = QStringLiteral("A transfer is under way already.");
inline const QString kNothingToTransfer = QStringLiteral("The report has nothing to transfer here.");


// What a step of a record is called; %1 its key.
inline const QString kReadWords = QStringLiteral("Take %1 from the report");
inline const QString kAddReadWords = QStringLiteral("Add %1 from the report");
inline const QString kCityWords = QStringLiteral("Set the city of %1");
inline const QString kAttachWords = QStringLiteral("City Listings of %1");

// Attaching city, state and ZIP.
inline const QString kCityNotComplete = QStringLiteral("City and State information not complete");
inline const QString kSkipCityAndState =
    QStringLiteral("Are you sure you want to skip assigning city and state fields to this comparable? "
                   "Excluding this data may create inaccurate map locations.");
inline const QString kSkipAll =
    QStringLiteral("Are you sure you want to skip assigning ALL city, state, and zip fields to this "
                   "comparable? Excluding this data may create inaccurate map locations.");
inline const QString kSkipCity =
    QStringLiteral("Are you sure you want to skip assigning city field to this comparable? Excluding this "
                   "data may create inaccurate map locations.");
inline const QString kSkipState =
    QStringLiteral("Are you sure you want to skip assigning state field to this comparable? Excluding this "
                   "data may create inaccurate map locations.");
inline const QString kPending = QStringLiteral("Pending sale");
inline const QString kNoRecord =
    QStringLiteral("No record of the Databook is on show: the list of locations can be kept, nothing else.");
inline const QString kSettingNotSaved = QStringLiteral("USESUBJCSZ was not saved: %1");

} // namespace vasclip::link::messages
