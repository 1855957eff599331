#include "map/anchors.h"
#include "map/map_test.h"
#include "map/selection.h"
#include "map/sureness.h"

namespace vasclip::map {

namespace {

/// Knows what it is told, by the address in capitals.
class KnownPlaces : public street::Geocoder
{
public:
    QMap<QString, street::Candidate> places;
    std::vector<street::Candidate> Find(const QString& address, int) const override
    {
        const auto found = places.constFind(address.toUpper());
        return found == places.cend() ? std::vector<street::Candidate>{} : std::vector{*found};
    }
    std::vector<street::Candidate> Near(Place, double) const override { return {}; }
};

class Sureness : public MapTest
{
protected:
    KnownPlaces geocoder;
    static constexpr Place kElm{32'470'000, -86'470'000};
    void SetUp() override
    {
        MapTest::SetUp();
        globals.ignoreZipCodes = true;
        Subject(u"1 Main St"_s);
        report.txtComp(1).SetText(u"10 Oak St"_s);
        addr.txtCompCity(1).SetText(u"Prattville"_s);
        addr.txtCompState(1).SetText(u"AL"_s);
        desk.state.g_MapPointCount = 3;
        control.pins[1] = {kOak, 0x8C52, kArrows + u"ARROWBLUESUBJECTLT.BMP"_s, QString()};
        control.pins[2] = {kElm, 0x8C52, kArrows + u"ARROWBLUECOMP1LT.BMP"_s, QString()};
        desk.geocoder = &geocoder;
        geocoder.places[u"1 MAIN ST, PRATTVILLE,AL"_s] = {
            .place = kOak, .foundBy = street::FoundBy::Point, .uncertaintyFeet = 30, .address = {}};
        geocoder.places[u"10 OAK ST, PRATTVILLE, AL"_s] = {
            .place = kElm, .foundBy = street::FoundBy::Range, .uncertaintyFeet = 120.4, .address = {}};
        desk.state.g_MapSelectedID = 2;
    }
};

TEST_F(Sureness, OfBothPlaces)
{
    EXPECT_EQ(ProximitySureness(desk, u"10 OAK ST"_s), u"Subject: by its house, within 30 feet. Comp: by the street's house numbers, "
                                       "within 120 feet"_s);
    control.pins[1].flags = 0x60062;
    control.pins[2].place = Near(kElm, 0, 50); // not where its address is
    EXPECT_EQ(ProximitySureness(desk, u"10 OAK ST"_s), u"Subject: set by hand. Comp: not known"_s);
}

TEST_F(Sureness, ARecordIsAskedForByItsOwnCity)
{
    AddComp(u"10 Oak St"_s, {{u"CITY"_s, u"Millbrook"_s}, {u"ST"_s, u"AL"_s}});
    geocoder.places[u"10 OAK ST,MILLBROOK, AL"_s] = {
        .place = kElm, .foundBy = street::FoundBy::Street, .uncertaintyFeet = 900, .address = {}};
    EXPECT_TRUE(ProximitySureness(desk, u"10 OAK ST"_s).endsWith(u"Comp: by its street alone, within 900 feet"_s));
}

TEST_F(Sureness, NothingWithoutTwoPlaces)
{
    desk.state.g_MapSelectedID = 1;
    EXPECT_EQ(ProximitySureness(desk, u"10 OAK ST"_s), QString());
    desk.state.g_MapSelectedID = 0;
    EXPECT_EQ(ProximitySureness(desk, u"10 OAK ST"_s), QString());
    desk.state.g_MapSelectedID = 2;
    EXPECT_EQ(ProximitySureness(desk, u"11 OAK ST"_s), QString()); // another one's
    control.pins.erase(1);
    EXPECT_EQ(ProximitySureness(desk, u"10 OAK ST"_s), QString());
    desk.geocoder = nullptr;
    EXPECT_EQ(SurenessOf(desk, {.id = 2, .flags = 0x8C52, .picture = control.pins[2].picture}), QString());
}

TEST_F(Sureness, StandsBesideTheProximity)
{
    mapview_PointClick(desk, 2);
    EXPECT_EQ(tab.lblSureness.Caption(), u"Subject: by its house, within 30 feet. Comp: by the street's house numbers, "
                                         "within 120 feet"_s);
    MovePointTo(desk, 2, Near(kElm, 0, 50));
    EXPECT_EQ(tab.lblSureness.Caption(), u"Subject: by its house, within 30 feet. Comp: set by hand"_s);
    mapview_PointClick(desk, 1);
    EXPECT_EQ(tab.lblSureness.Caption(), QString());
    mapview_PointClick(desk, 2);
    cmdClearPoint_Click(desk);
    EXPECT_EQ(tab.lblSureness.Caption(), QString());
}

} // namespace

} // namespace vasclip::map
