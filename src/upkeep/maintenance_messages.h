#pragma once

#include "platform/text/counted.h"

#include <QString>

// The texts of the repairs, letter for letter.

namespace vasclip::upkeep::maintenance {

using namespace Qt::StringLiterals;

inline const QString kAskRecalc =
    u"This will recalculate the 'price per square foot' calculation and 'age' fields and modify date fields.  "
    "Please have all users (using this program) quit at this time.  You should have a good backup of your data "
    "BEFORE using this option.  Are you ready at this time?"_s;
inline const QString kGaugeRecalc =
    u"Recalculating the 'price per square foot' calculation and 'age' fields and modifying date fields."_s;
inline const QString kEndRecalc = u"Rebuild Complete"_s;

inline const QString kAskAnchors =
    u"This will remove the anchors for all records in the database.  Are you sure?"_s;
inline const QString kGaugeAnchors = u"Removing anchors."_s;
inline const QString kEndAnchors = u"Removal of anchors complete"_s;

inline const QString kAskPhotos = u"Clear all photos..... Are you Absolutely Sure?"_s;
inline const QString kGaugePhotos = u"Clearing photos."_s;

inline const QString kAskLandSize =
    u"This will correct the landsize (acres or sqft) field.  If the comp is of 'Land' type and LandSize if empty "
    "(or 0); the GLA field will be copied into LandSize.  Please have all users (using this program) quit at this "
    "time.  You should have a good backup of your data BEFORE using this option.  Are you ready at this time?"_s;
inline const QString kGaugeLandSize = u"Adjusting LandSize"_s;
inline const QString kEndLandSize = u"LandSize adjustment complete"_s;

inline const QString kAskIllegal =
    u"This will remove illegal characters (apostrophes, astericks, commas, pound symbols, tildes, etc) from the %1 "
    "fields.  Please have all users (using this program) quit at this time.  You should have a good backup of your "
    "data BEFORE using this option.  Are you ready at this time?"_s;
inline const QString kKeyAndAddress = u"CENTRALKEY and ADDRESS"_s;
inline const QString kComments = u"Comments"_s;
inline const QString kGaugeIllegal = u"Removing illegal characters."_s;
inline const QString kNoneIllegal = u"NO illegal characters were found... Process complete"_s;
inline const QString kNumberIllegal = u"Number of illegal characters found:%1"_s;
inline const QString kEndIllegal =
    u"%1 illegal characters were found... Removal of illegal characters is complete"_s;

inline const QString kAskMatchKey =
    u"This will correct syntax errors within the Address field by matching to the Central Key entry. Case "
    "sensitivity will depend upon current settings. Make sure no other user is currently in the system (You should "
    "have a recent backup before continuing). Are you sure you want to continue?"_s;
inline const QString kAskProperCase =
    u"This will correct Case Sensitivity to Proper Case (i.e. 101 West Main Street).  Make sure no other user is "
    "currently in the system (You should have a recent backup before continuing). Are you sure you want to "
    "continue?"_s;
inline const QString kAskUpperCase =
    u"This will correct Case Sensitivity to Upper Case (i.e. 101 WEST MAIN STREET).  Make sure no other user is "
    "currently in the system (You should have a recent backup before continuing). Are you sure you want to "
    "continue?"_s;
inline const QString kGaugeAddress = u"Correcting address."_s;
inline const QString kEndAddress = u"Resetting process Complete"_s;

// deletion by date; %1 the date
inline const QString kTitleSale = u"Delete By SALE date"_s;
inline const QString kAskAllPending =
    u"The date of '1/1/1900' will erase all pending sales.  Are you sure?"_s;
inline const QString kGaugePending =
    u"Deleting all PENDING SALES (Date='01/01/1900') from the Databook."_s;
inline const QString kAskSale =
    u"You should have a good backup of your data BEFORE using this option.  All comps saved on or before %1 will be "
    "deleted.  Are you sure?"_s;
inline const QString kGaugeSale = u"Deleting Sales from Comp Database on or before %1."_s;
inline const QString kEndSale = u"Process Complete.  Delete by Sale Date of %1."_s;

inline const QString kTitleLoad = u"Delete By LOAD date"_s;
inline const QString kAskAllLoads =
    u"The date of '1/1/1900' will erase all records with LOAD DATE.  Are you sure?"_s;
inline const QString kGaugeLoads =
    u"Deleting all PENDING RECORDS (Date='01/01/1900') from the Database."_s;
inline const QString kAskLoad =
    u"You should have a good backup of your data BEFORE using this option.  All records saved on or before (LOAD "
    "DATE) %1 will be deleted.  Are you sure?"_s;
inline const QString kGaugeLoad = u"Deleting Records from Comp Database on or before LOAD DATE of %1."_s;
inline const QString kEndLoad = u"Process Complete.  Delete by Load Date of %1."_s;
inline const QString kEnterDate = u"Please enter a date"_s;

// of our own
inline const QString kShortDate = u"%1 has more than ten letters. Enter the date as mm/dd/yyyy."_s;
inline const QString kStopped = u"Stopped. Every record is as it was."_s;
inline const QString kFailed = u"Nothing was changed, every record is as it was: %1."_s;
inline const text::Counted kRecordsCount{u"record"_s, u"records"_s};
inline const QString kCleared = u"The photos of %1 were cleared; the picture files are still there."_s;
inline const text::Counted kPicturesLeft{u"picture file could not be deleted; 'Find photos' in the guide says how to find it."_s,
                                         u"picture files could not be deleted; 'Find photos' in the guide says how to find them."_s};
inline const QString kNoPhotoDirectory =
    u"The photo directory %1 is not there, so the pictures of the records could not be deleted with them. Connect its "
    "disk, or name another one in the setup"_s;
inline const QString kNotShown =
    u" The records could not be shown again: %1. Press Shift+F5 when this window is closed."_s;
inline const QString kDeletingPictures = u"Deleting the pictures of the records that are gone."_s;
inline const QString kKeyTaken = u"the key \"%1\" was there already, so it became \"%2\""_s;
inline const QString kStateLost = u"\"%1\" is no state of the program's list and was taken out of ST"_s;
inline const QString kKeyless = u"a record without a key was deleted; its picture files are still there"_s;

} // namespace vasclip::upkeep::maintenance
