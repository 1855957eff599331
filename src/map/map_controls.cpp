#include "map/map_controls.h"

#include <utility>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

frm_MapTab::frm_MapTab(forms::ControlSet& set)
    : mapview(set, u"mapview"_s)
    , lblMapNote(set, u"lblMapNote"_s)
    , cmdSubjectOnly(set, u"cmdSubjectOnly"_s)
    , cmdGeoComp(set, u"cmdGeoComp"_s)
    , cmdin(set, u"cmdin"_s)
    , cmdout(set, u"cmdout"_s)
    , cmdDetail(set, u"cmdDetail"_s)
    , cmdRefreshMap(set, u"cmdRefreshMap"_s)
    , ckbFreeze(set, u"ckbFreeze"_s)
    , ckbLabelStreets(set, u"ckbLabelStreets"_s)
    , ckbRadius(set, u"ckbRadius"_s)
    , spnradius(set, u"spnradius"_s)
    , txtradius(set, u"txtradius"_s)
    , lstaddresses(set, u"lstaddresses"_s)
    , lstids(set, u"lstids"_s)
    , lblJustOutside(set, u"lblJustOutside"_s)
    , spnFontSize(set, u"spnFontSize"_s)
    , spnWidth(set, u"spnWidth"_s)
    , txtfontsize(set, u"txtfontsize"_s)
    , txtwidth(set, u"txtwidth"_s)
    , cmdClear(set, u"cmdClear"_s)
    , cmdClearPoint(set, u"cmdClearPoint"_s)
    , cmdAnchor(set, u"cmdAnchor"_s)
    , cmdAnchorOne(set, u"cmdAnchorOne"_s)
    , cmdRotate(set, u"cmdRotate"_s)
    , cmdArrange(set, u"cmdArrange"_s)
    , ckbArrange(set, u"ckbArrange"_s)
    , cmdCopyMap(set, u"cmdCopyMap"_s)
    , cmdPreviewMap(set, u"cmdPreviewMap"_s)
    , optMapAddendum(set, u"optMapAddendum"_s, 0, 2)
    , mapPic(set, u"mapPic"_s)
    , geatemp(set, u"geatemp"_s)
    , txtMapAddress(set, u"txtMapAddress"_s)
    , txtMapProximity(set, u"txtMapProximity"_s)
    , imaanchor(set, u"imaanchor"_s)
    , lblMapID(set, u"lblMapID"_s)
    , lblProximity(set, u"lblProximity"_s)
    , lblSureness(set, u"lblSureness"_s)
    , txtGLA(set, u"txtGLA"_s)
    , txtSellingPr(set, u"txtSellingPr"_s)
    , txtSaleDate(set, u"txtSaleDate"_s)
    , geaMapPhoto(set, u"geaMapPhoto"_s)
    , cmdProx(set, u"cmdProx"_s)
    , cmdLabelPosition(set, u"cmdLabelPosition"_s)
    , cmdmanual(set, u"cmdmanual"_s)
{
    struct Words
    {
        forms::Button& button;
        QLatin1StringView caption, tip;
    };
    const Words words[] = {
        {cmdSubjectOnly, "Subject Only"_L1, "Place the Subject on the map."_L1},
        {cmdGeoComp, "Comp Locator"_L1, "Locates Comp Arrows/Pushpins by Street Address"_L1},
        {cmdin, "Zoom In"_L1, {}},
        {cmdout, "&Out"_L1, "Zoom Out"_L1},
        {cmdRefreshMap, "Refresh Map"_L1, {}},
        {ckbFreeze, "Freeze Arrows"_L1, "Keep the icons you have on this map."_L1},
        {ckbLabelStreets, "Enable Street Clicking"_L1,
         "On the map, click on the street to display the street name"_L1},
        {ckbRadius, "Draw Radius Circle"_L1, "Toggles the Subject Circle On/Off"_L1},
        {cmdClear, "Clear All"_L1, "Clears all Arrows/Pushpins from the map"_L1},
        {cmdClearPoint, "Cl&ear Selected"_L1, "Clears current arrow/pushpin from the map"_L1},
        {cmdAnchor, "Anchor All"_L1, "Anchors all arrows/pushpins on map"_L1},
        {cmdAnchorOne, "Anchor Entry"_L1, "Toggles anchor status on last selected arrow/house on map"_L1},
        {cmdRotate, "Rotate Selected"_L1, "Rotates last selected map arrow."_L1},
        {cmdArrange, "Arrange"_L1, "Turns the arrows so that none covers another (Ctrl+G)"_L1},
        {ckbArrange, "Arrange after placing"_L1, "Arranges the arrows each time they are placed"_L1},
        {cmdCopyMap, "&Generate Map"_L1, "Copies the current map to selected map addenda in Appraisals."_L1},
        {cmdPreviewMap, "Preview"_L1, "Shows the picture as it goes into the report"_L1},
        {optMapAddendum(0), "Location Map"_L1, {}},
        {optMapAddendum(1), "General Map"_L1, {}},
        {optMapAddendum(2), "Fax / Scan"_L1, {}},
        {cmdProx, "Proximity"_L1, "Sends Proximity for All Comps/Listings/Rentals"_L1},
        {cmdLabelPosition, "&Find"_L1, "Find a street address or a label/caption for a pushpin"_L1},
        {cmdmanual, "Manual"_L1, "Manually locate arrow/pushpin"_L1},
    };
    for (const Words& row : words) {
        row.button.SetCaption(row.caption);
        row.button.SetToolTipText(row.tip);
    }
    cmdDetail.SetToolTipText(u"How much of the map is drawn: 1, 2 or 3"_s);
    spnradius.SetToolTipText(u"Increases/Decreases the map circle on a map"_s);
    lstaddresses.SetToolTipText(
        u"Indicates all comps that fall inside the radius drawn around a circle.  Select a comp here to have "
        "MapPoint highlight the comps location."_s);
    imaanchor.SetToolTipText(u"Its place was set by hand and is kept: no address look-up moves it."_s);
    spnFontSize.SetToolTipText(u"FontSize="_s);
    spnWidth.SetToolTipText(u"Street Width="_s);
    txtfontsize.SetText(u"8"_s);
    txtwidth.SetText(u"1"_s);
    optMapAddendum(0).SetValue(true);
    for (forms::Control* hidden :
         {static_cast<forms::Control*>(&lstids), static_cast<forms::Control*>(&mapPic),
          static_cast<forms::Control*>(&geatemp), static_cast<forms::Control*>(&lblMapID),
          static_cast<forms::Control*>(&imaanchor)})
        hidden->SetVisible(false);
}

} // namespace vasclip::map
