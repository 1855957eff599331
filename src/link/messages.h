#pragma once

#include "platform/text/counted.h"

#include <QString>

/// The fixed texts of the link, letter for letter, and the few of our own where no fixed text exists.
namespace vasclip::link::messages {

using namespace Qt::StringLiterals;

inline const QString kNotRunningTitle = u"Appraisal Program Not Running"_s;
inline const QString kNotRunning = u"The Appraisal Program is not running at this time."_s;

inline const QString kLaunchFailedTitle = u"Unable to Open Program"_s;
inline const QString kLaunchFailed = u"Unable to Launch the Appraisal Program. Check to verify "
                                     "the program is installed and functioning properly"_s;
/// %1 is the product's name.
inline const QString kLaunched = u"After launching the appraisal program\r\n"
                                 "To LINK the active report to %1\r\n"
                                 "REMEMBER: Click 'Refresh' (from Menu or 'HOUSE' icon)"_s;

inline const QString kFormTypeTitle = u"Software Does Not Match Appraisal Form Type"_s;
inline const QString kFormType =
    u"This software is out of date for this form.  Please contact your software vendor for an update."_s;

/// %1 product
inline const QString kMismatchTitle = u"%1 Software Mismatch"_s;
/// %1 product, %2 its version, %3 forms program, %4 its version
inline const QString kMismatch =
    u"The current %1 software ( version %2 ) is out of date for use with %3 ( version %4 ).  "
    "Please contact your software vendor for updating %1."_s;

inline const QString kNoMappingTitle = u"No Matches to Form Type Found"_s;
inline const QString kNoMapping = u"Reference Entries Not Found (Comp2Kel file incomplete)."_s;

inline const QString kOverwriteTitle = u"Overwrite a comp within the appraisal ..."_s;
/// %1 what stands in the slot, %2 what comes
inline const QString kOverwrite = u"Replace %1 with %2!  Are you sure?"_s;

// Another report is active than the one that the tabs mirror.
inline const QString kAnotherReportTitle = u"Another report is active"_s;
/// %1 active, %2 mirrored
inline const QString kAnotherReport =
    u"The forms program has %1 active now, but the tabs show %2. Nothing has been sent.\r\n\r\n"
    "Refresh the tabs from %1?"_s;
/// %1 active
inline const QString kNotReadYet =
    u"The forms program has %1 active, and the tabs have not been read from it. Nothing has been "
    "sent.\r\n\r\nRefresh the tabs from %1?"_s;
/// %1 active
inline const QString kRefreshFrom = u"Refresh from %1"_s;
inline const QString kNotSentAnother =
    u"Nothing was sent: %1 is active in the forms program, and the tabs show %2."_s;
inline const QString kNotSentUnread =
    u"Nothing was sent: the tabs have not been read from %1, which is active in the forms program."_s;
/// %1 what the tabs show now
inline const QString kNotSentRefreshed = u"The tabs show %1 now. Nothing was sent."_s;
/// %1 forms program
inline const QString kNotRunningNothing = u"%1 is not running, so nothing was sent."_s;
inline const QString kNoneOpenNothing = u"No report is open in %1, so nothing was sent."_s;
inline const QString kCancelledBefore = u"Cancelled: nothing was sent."_s;
inline const QString kNotAnswered = u"The forms program did not answer, so nothing was sent."_s;

// The state of the link. %1 is the forms program, or the report that is active in it.
inline const QString kLinkLooking = u"Looking for %1..."_s;
inline const QString kLinkNotRunning = u"%1 is not running"_s;
inline const QString kLinkAnothersUser = u"%1 is another user's"_s;
inline const QString kLinkSilent = u"%1 does not answer"_s;
inline const QString kLinkNoReport = u"No report is open in %1"_s;
inline const QString kLinkUnnamed = u"%1 does not tell which report is in front"_s;
inline const QString kLinkUnread = u"%1 is open; the tabs have not been read from it"_s;
inline const QString kLinkAnother = u"The forms program has %1 active"_s;
inline const QString kLinkLinked = u"Linked to %1"_s;
inline const QString kNoReportShown = u"No report"_s;
inline const QString kOfferRefresh = u"Refresh"_s;
inline const QString kOfferStart = u"Start it"_s;
inline const QString kOfferAgain = u"Try again"_s;

// Conversations that take long.
inline const QString kCancelled = u"Cancelled"_s;
/// %1 what is at work, %2 its step, %3 of how many
inline const QString kStepOf = u"%1 (%2 of %3)"_s;
inline const QString kSlowTitle = u"The forms program is slow"_s;
/// %1 seconds, %2 what is at work
inline const QString kSlow = u"The forms program has taken %1 seconds so far (%2). Go on waiting for "
                             u"it?\r\n\r\nNo stops after what has "
                             "been done up to now."_s;
inline const QString kReadingReport = u"Reading the report"_s;
/// %1 record or slot
inline const QString kSending = u"Sending %1"_s;
inline const QString kSendingSlots = u"Sending to the report"_s;
/// %1 and %2 comps
inline const QString kSwapping = u"Swapping comps %1 and %2"_s;
inline const QString kSavingSlot = u"Saving to the Databook"_s;
inline const QString kWaitingForForms = u"Waiting for the forms program"_s;
inline const QString kRefreshCancelled =
    u"The refresh was cancelled. The tabs show no report until it is read again."_s;
/// %1 record
inline const QString kNothingSent = u"Cancelled: nothing of %1 was sent."_s;
/// %1 record, %2 fields sent, %3 rows of the mapping
inline const QString kPartSent =
    u"Cancelled: fields of %1 sent so far: %2 of %3. They stay in the report. Send it again to send them all."_s;
/// %1 forms program
inline const QString kRefreshNotRunning = u"%1 is not running, so the tabs show no report."_s;
inline const QString kRefreshNoneOpen = u"No report is open in %1, so the tabs show none."_s;
inline const QString kRefreshNotRead =
    u"The forms program could not be asked for its report, so the tabs show none."_s;
inline const QString kTransferCancelled = u"Cancelled: nothing was stored."_s;
inline const QString kTransferNoneOpen = u"No report is open, so there is nothing to transfer."_s;

inline const QString kClearPhoto = u"Clear the photo.  Are you sure?"_s;
inline const QString kKelNotActive = u"KEL is not active"_s;

// Status texts of a refresh.
inline const QString kPopulatingTabs = u"Populating Tabs"_s;
inline const QString kSettingAddresses = u"Setting Appraisal Addresses"_s;
inline const QString kImporting = u"Importing Appraisal Information"_s;
inline const QString kVerifying = u"Verifying Addresses (City, ST, ZIP)"_s;

/// %1 cause, %2 field, %3 item, %4 fields sent, %5 rows of the mapping, %6 row it stopped at, %7 what became of the others
inline const QString kSendStopped =
    u"%1 (sending %2 to %3, row %6 of %5 in Comp2Kel). %4 in the report; %7. Send the comp again to send them all"_s;
inline const QString kThisOneWasNot = u"this one and those after it were not"_s;
inline const QString kThisOneIsUnsure = u"whether this one was is not known, those after it were not"_s;
inline const text::Counted kFieldsSent{u"field was sent and stays"_s, u"fields were sent and stay"_s};
/// %1 a field, %2 what its cell holds, %3 address of the comp before
inline const QString kStillOfOldComp = u"%1 is still %2 of %3"_s;
/// %1 a field, %2 address of the comp before
inline const QString kMayBeOfOldComp = u"%1 may still be that of %2"_s;
inline const QString kNoPlaceForView =
    u"The pages of this report have no line for the description of a general photo."_s;
/// %1 the answer
inline const QString kUnnamedReport =
    u"The forms program lists its open reports as \"%1\", without a comma: which one is in front is not known"_s;
/// %1 the answer, %2 the report
inline const QString kUnnamedForm =
    u"The forms program lists the forms of %2 as \"%1\", without a comma: its main form is not known"_s;
/// %1 the first refusal, %2 how many followed
inline const QString kMoreRefused = u"%1 (and %2 more fields of the report were refused)"_s;
/// %1 form, %2 group, %3 page base
inline const QString kNoRows =
    u"Comp2Kel has no rows for form '%1', group '%2', comp '%3'; nothing was sent"_s;
/// %1 the entry as far as it goes
inline const QString kImagesCutOff =
    u"The report's images list breaks off within the entry '%1'; its closing ';' is missing. Refresh again"_s;

// Transfers from the report to the Databook.
/// %1 the record's address
inline const QString kReplaceData = u"Replace the data for %1?"_s;
inline const QString kBlankAddress = u"Blank address"_s;
inline const QString kNoPicture = u"No associated picture"_s;
/// %1 cause, %2 field, %3 item, %4 report
inline const QString kReadStopped = u"%1 (reading %2 from %3 of %4). Nothing of this comp was stored"_s;
/// %1 column
inline const QString kNoSuchColumn =
    u"Comp2Kel names a field %1 that the Databook does not have; nothing of this comp was stored"_s;
inline const QString kRecordGone = u"The record %1 is not in the Databook any more"_s;
/// %1 what is at work, %2 its place, %3 of how many
inline const QString kTransferring = u"Transferring %1 (%2 of %3)"_s;
inline const QString kTransferBusy = u"A transfer is under way already."_s;
inline const QString kNothingToTransfer = u"The report has nothing to transfer here."_s;

// What a step of a record is called; %1 its key.
inline const QString kReadWords = u"Take %1 from the report"_s;
inline const QString kAddReadWords = u"Add %1 from the report"_s;
inline const QString kCityWords = u"Set the city of %1"_s;
inline const QString kAttachWords = u"City Listings of %1"_s;

// Attaching city, state and ZIP.
inline const QString kCityNotComplete = u"City and State information not complete"_s;
inline const QString kSkipCityAndState =
    u"Are you sure you want to skip assigning city and state fields to this comparable? "
    "Excluding this data may create inaccurate map locations."_s;
inline const QString kSkipAll =
    u"Are you sure you want to skip assigning ALL city, state, and zip fields to this "
    "comparable? Excluding this data may create inaccurate map locations."_s;
inline const QString kSkipCity =
    u"Are you sure you want to skip assigning city field to this comparable? Excluding this "
    "data may create inaccurate map locations."_s;
inline const QString kSkipState =
    u"Are you sure you want to skip assigning state field to this comparable? Excluding this "
    "data may create inaccurate map locations."_s;
inline const QString kPending = u"Pending sale"_s;
inline const QString kNoRecord =
    u"No record of the Databook is on show: the list of locations can be kept, nothing else."_s;
inline const QString kSettingNotSaved = u"USESUBJCSZ was not saved: %1"_s;

} // namespace vasclip::link::messages
