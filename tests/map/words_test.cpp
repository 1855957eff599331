#include "map/frm_manual.h"
#include "map/frm_street_find.h"
#include "map/map_test.h"

namespace vasclip::map {

namespace {

struct Words
{
    const forms::Button& button;
    QString caption, tip;
};

class MapWords : public MapTest
{
protected:
    static void Expect(const std::vector<Words>& table)
    {
        for (const Words& row : table) {
            EXPECT_EQ(row.button.Caption(), row.caption);
            EXPECT_EQ(row.button.ToolTipText(), row.tip) << row.caption.toStdString();
        }
    }
};

TEST_F(MapWords, OfTheTab)
{
    Expect({
        {tab.cmdSubjectOnly, u"Subject Only"_s, u"Place the Subject on the map."_s},
        {tab.cmdGeoComp, u"Comp Locator"_s, u"Locates Comp Arrows/Pushpins by Street Address"_s},
        {tab.cmdin, u"Zoom In"_s, {}},
        {tab.cmdout, u"&Out"_s, u"Zoom Out"_s},
        {tab.ckbFreeze, u"Freeze Arrows"_s, u"Keep the icons you have on this map."_s},
        {tab.ckbLabelStreets, u"Enable Street Clicking"_s,
         u"On the map, click on the street to display the street name"_s},
        {tab.ckbRadius, u"Draw Radius Circle"_s, u"Toggles the Subject Circle On/Off"_s},
        {tab.cmdClear, u"Clear All"_s, u"Clears all Arrows/Pushpins from the map"_s},
        {tab.cmdClearPoint, u"Cl&ear Selected"_s, u"Clears current arrow/pushpin from the map"_s},
        {tab.cmdAnchor, u"Anchor All"_s, u"Anchors all arrows/pushpins on map"_s},
        {tab.cmdAnchorOne, u"Anchor Entry"_s, u"Toggles anchor status on last selected arrow/house on map"_s},
        {tab.cmdRotate, u"Rotate Selected"_s, u"Rotates last selected map arrow."_s},
        {tab.cmdCopyMap, u"&Generate Map"_s, u"Copies the current map to selected map addenda in Appraisals."_s},
        {tab.optMapAddendum(0), u"Location Map"_s, {}},
        {tab.optMapAddendum(1), u"General Map"_s, {}},
        {tab.optMapAddendum(2), u"Fax / Scan"_s, {}},
        {tab.cmdProx, u"Proximity"_s, u"Sends Proximity for All Comps/Listings/Rentals"_s},
        {tab.cmdLabelPosition, u"&Find"_s, u"Find a street address or a label/caption for a pushpin"_s},
        {tab.cmdmanual, u"Manual"_s, u"Manually locate arrow/pushpin"_s},
    });
    EXPECT_EQ(tab.spnradius.ToolTipText(), u"Increases/Decreases the map circle on a map"_s);
    EXPECT_EQ(tab.lstaddresses.ToolTipText(),
              u"Indicates all comps that fall inside the radius drawn around a circle.  Select a comp here to have "
              "MapPoint highlight the comps location."_s);
    EXPECT_TRUE(tab.imaanchor.ToolTipText().contains(u"place was set by hand"_s));
    EXPECT_TRUE(tab.optMapAddendum(0).Value());
    for (const forms::Control* hidden : {static_cast<const forms::Control*>(&tab.lstids),
                                         static_cast<const forms::Control*>(&tab.mapPic),
                                         static_cast<const forms::Control*>(&tab.lblMapID),
                                         static_cast<const forms::Control*>(&tab.imaanchor)})
        EXPECT_FALSE(hidden->Visible()) << hidden->Name().toStdString();
}

TEST_F(MapWords, OfFind)
{
    const frm_StreetFind screen(desk);
    Expect({{screen.optfind(0), u"&Find Address"_s, {}},
            {screen.optfind(1), u"&Locate Pushpin Label"_s, {}},
            {screen.cmdFind, u"&Find"_s, u"Draw a map centered on the specified address"_s},
            {screen.cmdCancel, u"&Cancel"_s, {}}});
    EXPECT_EQ((QStringList{screen.txtStreet.ToolTipText(), screen.txtCity.ToolTipText(), screen.txtState.ToolTipText(),
                           screen.txtZip.ToolTipText()}),
              (QStringList{u"Enter a street address or intersection."_s, u"City"_s, u"State"_s, u"5 digit ZIP Code"_s}));
    EXPECT_EQ((QStringList{screen.lbladdress.Caption(), screen.lblCity.Caption(), screen.lblstate.Caption(),
                           screen.lblcounty.Caption(), screen.lblMapLabel.Caption()}),
              (QStringList{u"Address"_s, u"City"_s, u"State"_s, u"County"_s, u"Pushpin Label"_s}));
}

TEST_F(MapWords, OfManual)
{
    const frm_Manual screen(desk);
    Expect({{screen.optcolor(0), u"Blac&k"_s, {}},
            {screen.optcolor(1), u"&Red"_s, {}},
            {screen.optcolor(2), u"&Blue"_s, {}}});
    EXPECT_EQ(screen.lblMapLabel.Caption(), u"Pushpin Label"_s);
    EXPECT_EQ(screen.lblGraphic.Caption(), u"Graphic Type"_s);
}

} // namespace

} // namespace vasclip::map
