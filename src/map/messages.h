#pragma once

#include "platform/text/counted.h"

#include <QString>

namespace vasclip::map::messages {

using namespace Qt::Literals::StringLiterals;

inline const QString kMapFilesTitle = u"Map files missing"_s;
inline const QString kMapFiles =
    u"The mapping files are missing (or partially missing) from %1 -  Please reinstall the mapping program."_s;
inline const QString kMapProblems = u"Missing on the map: %1. Import these counties again with Map Data"_s;
inline const QString kFailedWith = u"Failed with error %1"_s;

inline const QString kInsufficientTitle = u"Insufficient Address Data"_s;
inline const QString kSubjectCityAndState =
    u"Subject address - City and State - information is missing or incomplete. Unable to Place Subject arrow."_s;
inline const QString kSubjectRecordState =
    u"Subject address - State - information is missing or incomplete. Unable to Place Subject arrow."_s;
inline const QString kSubjectRecordCity =
    u"Subject address - City - information is missing or incomplete. Unable to Place Subject arrow."_s;
inline const QString kSubjectState =
    u"Subject address - STATE - information is missing or incomplete. Unable to Place Subject arrow."_s;
inline const QString kSubjectCity =
    u"Subject address - CITY - information is missing or incomplete. Unable to Place Subject arrow."_s;
inline const QString kUseBestAvailable =
    u"Incomplete Address - CITY/STATE - information is missing or incomplete. Use best available (Subject and/or "
    "non-saved comparable information)?. If you choose NO, arrow will be omitted from map"_s;
inline const QString kRecordOmitted =
    u"Incomplete Address - CITY and STATE - information is missing or incomplete. Arrow will be Omitted. "_s;
inline const QString kCompOmitted =
    u"Incomplete Address - CITY and/or STATE - information is missing or incomplete. Arrow will be Omitted. "_s;

inline const QString kNoSubjectTitle = u"Unable to generate Subject Map"_s;
inline const QString kNoSubject =
    u"There is no subject address listed. Please enter a subject address to generate a Subject Map."_s;
inline const QString kWithoutSubject =
    u"There is no subject address listed. Do you wish to generate map anyway?"_s;
inline const QString kPlacementTitle = u"unable to complete Arrow Placement"_s;
inline const QString kPlacement =
    u"Unable to complete arrow placement. Please verify addresses before re-trying"_s;
inline const QString kTooManyPoints = u"There are too many points on the map for more arrows: press Clear All first"_s;
inline const QString kAddedTitle = u"%1 comparables were added after initial arrow placement."_s;
inline const QString kAdded =
    u"%1 comparables were added after initial arrow placement. It is advisable to clear 'ALL' and recreate all "
    "arrows for accurate proximities"_s;

inline const QString kManyTitle = u"Comp locator exceeds recommended maximum (250)"_s;
inline const QString kMany =
    u"%1 records were found. Do you want to refine the SEARCH criteria to reduce matches?..."_s;
inline const QString kNoCompsTitle = u"No comps available"_s;
inline const QString kNoComps =
    u"No comps were avaiable from last Search query (count = 0). Expand your search criteria and retry"_s;

inline const QString kNoRowTitle = u"No Comparable Chosen"_s;
inline const QString kNoRow =
    u"Please choose text from the list box provided (click on) before placing arrow"_s;
inline const QString kRowChanged =
    u"The report has changed meanwhile, and %1 is not that address any more. Choose from the list again"_s;
inline const QString kNoStreet = u"Type a street address first"_s;
inline const QString kNoLabel = u"Choose a label first"_s;
inline const QString kAddressNotFound = u"%1 was not found. Leave the city or the ZIP out, or try the street alone"_s;
inline const QString kNotLookedIn = u". These maps can't be read, so it was not looked for there: %1"_s;
inline const QString kOnePlace = u"Not sure. This place may be meant; it has a pin on the map"_s;
inline const QString kRecordGone = u"%1 is not in the Databook any more"_s;
inline const QString kSeveralPlaces = u"%1 places may be meant. Choose one from the list"_s;
inline const QString kLabelNotFound = u"%1 is not on the map"_s;

// What the status line tells.
inline const QString kPlaced = u"On the map: %1"_s;
inline const QString kNotFound = u"Not found on the map: %1. Place by hand with Manual, or correct the address"_s;
inline const text::Counted kLocated{u"comp is on the map"_s, u"comps are on the map"_s};
inline const text::Counted kLocatedNotFound{u"was not found: "_s, u"were not found: "_s};
inline const text::Counted kLocatedSkipped{u"has no address, city or state"_s, u"have no address, city or state"_s};
inline const text::Counted kLocatedGone{u"was deleted meanwhile"_s, u"were deleted meanwhile"_s};
inline const QString kLocatedStopped = u"; stopped after %1 of %2"_s;
inline const QString kAtZero = u"Anchored where there is no place, at 0, 0: %1. Anchor anew"_s;
inline const QString kLocating = u"Comp %1 of %2"_s;

inline const QString kNoRadius = u"Type the miles of the circle"_s;
inline const QString kNoCircle = u"No circle: the subject is not on the map, and its address was not found"_s;

inline const QString kAnchored = u"%1 is anchored: it stays at this place"_s;
inline const QString kAnchoredHere =
    u"%1 has no record in the Databook: its place is kept on this map, and forgotten with it"_s;
inline const QString kAnchoredEmpty =
    u"%1 has no address in the report now: its place is kept on this map, and forgotten with it"_s;
inline const text::Counted kOfThemHere{u"has no record in the Databook, so its place is kept on this map alone"_s,
                                       u"have no record in the Databook, so their places are kept on this map alone"_s};
inline const QString kFreed = u"%1 is not anchored any more: placed again, its address is looked up"_s;
inline const QString kFreedAll = u"No point is anchored any more"_s;
inline const QString kCleared = u"The map is empty"_s;
inline const QString kPointCleared = u"%1 is not on the map any more"_s;
inline const QString kOtherAddress = u"%1: %2, now %3"_s;
inline const QString kNobody = u"nothing"_s;
inline const QString kOtherAddresses =
    u"These arrows were placed for other addresses than the report has there now: %1. Go on with the report's addresses?"_s;
inline const QString kOtherDistances =
    u"These arrows were placed for other addresses than the report has there now: %1. They are measured by the report's "
    "addresses, not by the arrows. Send the proximities?"_s;
inline const QString kPlaceAgain = u"Placed for another address than the report has there now: %1. Place the arrows again"_s;
inline const text::Counted kAnchoredAll{u"point is anchored"_s, u"points are anchored"_s};
inline const QString kForgetAll =
    u"The Databook forgets the places of %1 records that were put right by hand. Take the anchors off?"_s;
inline const QString kForgetOne =
    u"The Databook forgets the place of a record that was put right by hand. Take the anchor off?"_s;
inline const QString kMapSent = u"The map is in the report as its %1"_s;
inline const QString kMapNotSent = u"The map was not sent: the report did not take its %1"_s;
inline const QString kNotDrawn =
    u"The map could not be drawn into %1, so nothing was sent. Is there room on the disk, and may it be written?"_s;

inline const QString kProximityTitle = u"Proximities Not Transferred"_s;
inline const QString kProximityFailed =
    u"Unable to complete proximity transfers. Please verify comp locations"_s;
inline const QString kSendingProximity = u"Sending the proximities"_s;
inline const QString kProximitySent = u"In the report (%1): %2"_s;
inline const QString kProximityUnknown = u"Not on the map, so their cells are empty now: %1"_s;
inline const QString kProximityNoCell = u"The form has no cell for %1"_s;
inline const QString kProximityCancelled = u"Cancelled: comps that are not named keep what they had"_s;
inline const QString kNoArrows = u"No arrows of comps are on the map: place them first"_s;

inline const QString kNoAddresses =
    u"The report has no addresses for the arrows on the map, so nothing was sent. Refresh the report"_s;

inline const QString kImportBook = u"In Street Atlas USA, select File, Import Address Book, "_s;
inline const QString kImportFrom = u"Import Data From: "_s;
inline const QString kImportWizard = u"In MS Streets, select Data, Import Data Wizard, Access (*.mdb's) "_s;
inline const QString kImportData = u"In MS Streets, select File, Import Data, Access (*.mdb's) "_s;
inline const QString kImportFromStreets = u"Import Data from: "_s;
inline const QString kExportAborted = u"Export Aborted"_s;
inline const QString kNotExported =
    u"%1 could not be written: %2. Check the map export directory in the settings, and the room on the disk"_s;

inline const QString kArranged = u"Turned: %1. No arrow covers another or a house"_s;
inline const QString kArrangedAlready = u"No arrow covers another or a house; none was turned"_s;
inline const QString kCrowded =
    u"There is no room for all arrows at this scale: %1 still cover something or are covered, here or in the "
    "report's picture. Zoom in, or turn or move them by hand"_s;

inline const QString kMiles = u"%1 mi"_s;
inline const QString kJustOutside = u"Just outside: %1"_s;

inline const QString kSetByHand = u"set by hand"_s;
inline const QString kWithinFeet = u"%1, within %2 feet"_s;
inline const QString kNotKnown = u"not known"_s;
inline const QString kSureness = u"Subject: %1. Comp: %2"_s;

// What other maps make of the Databook.
inline const QString kMoves = u"%1: %2 feet, from %3 to %4"_s;
inline const QString kNotFoundAnyMore = u"%1: not found; it keeps %2"_s;
inline const text::Counted kMoveCount{u"record would move by more than 300 feet"_s,
                                      u"records would move by more than 300 feet"_s};
inline const text::Counted kGoneCount{u"is not found"_s, u"are not found"_s};
inline const text::Counted kStayCount{u"stays"_s, u"stay"_s};
inline const text::Counted kAnchoredCount{u"is anchored and never moves"_s, u"are anchored and never move"_s};
inline const text::Counted kUnplacedCount{u"has no place or no whole address"_s, u"have no place or no whole address"_s};
inline const QString kComparedPart = u"stopped after %1 of %2"_s;

// The words of changes of records.
inline const QString kPlaceWords = u"Place %1 on the map"_s;
inline const QString kAnchorWords = u"Anchor %1 on the map"_s;
inline const QString kForgetWords = u"Take the anchor off %1"_s;

inline const QString kExportWords = u"Export an address"_s;

} // namespace vasclip::map::messages
