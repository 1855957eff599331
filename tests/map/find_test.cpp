#include "map/candidates.h"
#include "map/frm_manual.h"
#include "map/frm_street_find.h"
#include "map/map_test.h"
#include "map/radius.h"
#include "map/selection.h"
#include "map/slot_labels.h"

#include <QFile>

namespace vasclip::map {

namespace {

class Screens : public MapTest
{
protected:
    void Pin(qint32 id, Place place, const QString& text, const QString& picture)
    {
        control.pins[id] = {place, 0x8C52, kArrows + picture, text};
        desk.state.g_MapPointCount = std::max(desk.state.g_MapPointCount, id + 1);
    }
    void Bitmap(const QString& name, int width)
    {
        QImage image(width, 10, QImage::Format_RGB32);
        image.fill(Qt::blue);
        ASSERT_TRUE(image.save(home.disk.ToNative(kArrows + name), "BMP"));
    }
    /// Shows a screen and plays on it.
    template <class Screen>
    void Play(Screen& screen, const std::function<void()>& script)
    {
        doubles.screens.Play([&](forms::Screen&) { script(); });
        doubles.screens.ShowModal(screen);
    }
};

TEST(SlotLabels, ThereAndBack)
{
    EXPECT_EQ(LabelOf({Group::Sales, 9}), u"COMP #9"_s);
    EXPECT_EQ(LabelOf({Group::Alternates, 2}), u"ALT COMP #2"_s);
    EXPECT_EQ(SlotOfLabel(u" alt comp #2 "_s), (link::SlotRef{Group::Alternates, 2}));
    EXPECT_EQ(SlotOfLabel(u"RENTAL #9"_s), (link::SlotRef{Group::Rentals, 9}));
    EXPECT_EQ(SlotOfLabel(u"ALT COMP #7"_s), std::nullopt); // there are six
    EXPECT_EQ(SlotOfLabel(u"SUBJECT"_s), std::nullopt);
    EXPECT_EQ(kSeparatorRow.size(), 30);
}

// Placing by hand.

using Manual = Screens;

TEST_F(Manual, ListsTheActiveTypeFirst)
{
    report.txtComp(1).SetText(u"10 Oak St"_s);
    report.txtAltComp(2).SetText(u"20 Elm St"_s);
    report.txtRental(9).SetText(u"90 Ash St"_s);
    Subject(u"1 Main St"_s);
    ShowTab(Group::Rentals);
    frm_Manual screen(desk);
    Play(screen, [&] {
        EXPECT_EQ(screen.lstLabel.Items(), (QStringList{u"SUBJECT"_s, kSeparatorRow, u"RENTAL #9"_s, kSeparatorRow,
                                                        u"COMP #1"_s, kSeparatorRow, u"ALT COMP #2"_s}));
        EXPECT_EQ(screen.lstAssoc.Items(), (QStringList{u"1 Main St"_s, {}, u"90 Ash St"_s, {}, u"10 Oak St"_s, {},
                                                        u"20 Elm St"_s}));
        EXPECT_FALSE(screen.lstAssoc.Visible());
    });
}

TEST_F(Manual, ASeparatorCannotBeChosen)
{
    report.txtComp(1).SetText(u"10 Oak St"_s);
    frm_Manual screen(desk);
    Play(screen, [&] {
        screen.lstLabel.SetListIndex(2);
        EXPECT_EQ(screen.txtlabel.Text(), u"COMP #1"_s);
        screen.lstLabel.SetListIndex(1);
        EXPECT_EQ(screen.txtlabel.Text(), u"COMP #1"_s);
    });
    EXPECT_TRUE(control.pins.empty());
}

TEST_F(Manual, ADoubleClickOnASeparatorPlacesNothing)
{
    report.txtComp(1).SetText(u"10 Oak St"_s);
    frm_Manual screen(desk);
    Play(screen, [&] {
        screen.lstLabel.SetListIndex(2);
        screen.lstLabel.SetListIndex(1);
        Q_EMIT screen.lstLabel.DoubleClicked();
        EXPECT_TRUE(screen.IsOpen());
    });
    EXPECT_TRUE(control.pins.empty());
}

TEST_F(Manual, ACompThatIsAnotherOneMeanwhileIsNotPlaced)
{
    AddTown(u"10 Oak St"_s);
    report.txtComp(1).SetText(u"10 Oak St"_s);
    frm_Manual screen(desk);
    Play(screen, [&] {
        screen.lstLabel.SetListIndex(2);
        report.txtComp(1).SetText(u"11 Elm St"_s); // another report
        Q_EMIT screen.cmdOk.Clicked();
        EXPECT_EQ(doubles.prompter.Last().text, u"The report has changed meanwhile, and COMP #1 is not that address "
                                                "any more. Choose from the list again"_s);
        EXPECT_TRUE(screen.IsOpen());
        EXPECT_EQ(screen.txtlabel.Text(), QString());
        EXPECT_EQ(screen.lstAssoc.Items(), (QStringList{{}, {}, u"11 Elm St"_s}));
        EXPECT_TRUE(control.pins.empty());
        screen.lstLabel.SetListIndex(2);
        Q_EMIT screen.cmdOk.Clicked();
    });
    EXPECT_EQ(Pins(), QStringList{u"40 ARROWBLUECOMP1LT.BMP '' 8C52"_s});
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), QString());
}

TEST_F(Manual, WithoutARowNothingIsPlaced)
{
    frm_Manual screen(desk);
    Play(screen, [&] {
        Q_EMIT screen.cmdOk.Clicked();
        EXPECT_EQ(doubles.prompter.Last().title, u"No Comparable Chosen"_s);
        EXPECT_EQ(doubles.prompter.Last().text,
                  u"Please choose text from the list box provided (click on) before placing arrow"_s);
        EXPECT_TRUE(screen.IsOpen());
        Q_EMIT screen.cmdCancel.Clicked();
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_EQ(control.log, QStringList());
}

TEST_F(Manual, AnArrowGoesToTheMiddleAndItsRecordFollows)
{
    AddTown(u"10 Oak St"_s);
    report.txtComp(3).SetText(u"10 Oak St"_s);
    control.centre = kOak;
    globals.arrowColor = 1;
    frm_Manual screen(desk);
    Play(screen, [&] {
        screen.lstLabel.SetListIndex(2);
        Q_EMIT screen.cmdOk.Clicked();
        EXPECT_FALSE(screen.IsOpen());
    });
    EXPECT_EQ(screen.Placed(), 40);
    EXPECT_EQ(Pins(), QStringList{u"40 ARROWREDCOMP3LT.BMP '' 8C62"_s});
    EXPECT_EQ(control.pins[40].place, kOak);
    EXPECT_EQ(desk.state.g_MapPointCount, 41);
    EXPECT_EQ(Location(u"10 OAK ST"_s), u"32.46 -86.47 1"_s);
    EXPECT_EQ(desk.state.g_MapSelectedID, 40); // to be moved to its house
    EXPECT_EQ(tab.txtMapAddress.Text(), u"10 Oak St"_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"10 Oak St is anchored: it stays at this place"_s) << "not that it is missing";
}

TEST_F(Manual, TheCircleFollowsASubjectThatIsPlaced)
{
    Subject(u"1 Nowhere St"_s);
    tab.txtradius.SetText(u"1"_s);
    tab.ckbRadius.SetValue(true);
    FollowCircle(desk);
    EXPECT_TRUE(control.lines.empty());
    control.centre = kOak;
    frm_Manual screen(desk);
    Play(screen, [&] {
        screen.lstLabel.SetListIndex(0);
        Q_EMIT screen.cmdOk.Clicked();
    });
    EXPECT_EQ(control.lines.size(), 1u);
    EXPECT_EQ(desk.state.radiusCentre, kOak);
    EXPECT_EQ(status.lblmsg.Caption(), u"On the map: SUBJECT"_s);
}

TEST_F(Manual, EachRowHasItsOwnArrow)
{
    Subject(u"1 Main St"_s);
    report.txtAltComp(2).SetText(u"20 Elm St"_s);
    report.txtListing(4).SetText(u"40 Ash St"_s);
    for (const auto& [row, arrow] : {std::pair{u"SUBJECT"_s, u"ARROWBLUESUBJECTLT.BMP"_s},
                                     std::pair{u"ALT COMP #2"_s, u"ARROWBLUEALTCOMP2LT.BMP"_s},
                                     std::pair{u"LISTING #4"_s, u"ARROWBLUELISTING4LT.BMP"_s}}) {
        frm_Manual screen(desk);
        Play(screen, [&] {
            screen.lstLabel.SetListIndex(screen.lstLabel.IndexOf(row));
            screen.optcolor_Click(2);
            Q_EMIT screen.lstLabel.DoubleClicked();
        });
        EXPECT_EQ(control.pins[screen.Placed()].picture, kArrows + arrow);
    }
    EXPECT_EQ(desk.state.g_MapPointCount, 43);
}

TEST_F(Manual, HousesAndDotsBearTheirLabel)
{
    AddTown(u"10 Oak St"_s);
    report.txtComp(1).SetText(u"10 Oak St"_s);
    for (int graphic : {0, 2}) {
        frm_Manual screen(desk);
        Play(screen, [&] {
            screen.lstLabel.SetListIndex(2);
            Q_EMIT screen.optwhichdot(graphic).Clicked();
            Q_EMIT screen.cmdOk.Clicked();
        });
    }
    // A second one for the same comp is a further point.
    EXPECT_EQ(Pins(), (QStringList{u"40 COMP.BMP 'COMP #1' 8C52"_s, u"41 REDDOT.BMP 'COMP #1' 8C62"_s}));
    EXPECT_EQ(tab.txtMapAddress.Text(), u"10 Oak St"_s); // what the label stands for
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"1"_s); // by the dot
}

TEST_F(Manual, NumbersGoOnAbove40)
{
    report.txtComp(1).SetText(u"10 Oak St"_s);
    desk.state.g_MapPointCount = 55;
    frm_Manual screen(desk);
    Play(screen, [&] {
        screen.lstLabel.SetListIndex(2);
        Q_EMIT screen.cmdOk.Clicked();
    });
    EXPECT_EQ(screen.Placed(), 55);
    EXPECT_EQ(control.pins[55].flags, 0x8C52); // no record to anchor
}

TEST_F(Manual, ADrawingOfOursHasNoGroundAndIsLargeEnoughForAnyScreen)
{
    for (const QString& name : {u"comp.bmp"_s, u"reddot.bmp"_s, u"ARROWBLUELT.BMP"_s}) {
        Bitmap(name, 10);
        QFile file(home.disk.ToNative(kArrows + name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(6) && file.write("VcMk") == 4); // as ours say so
    }
    frm_Manual screen(desk);
    Play(screen, [&] {
        for (int i = 0; i < 3; ++i) {
            const QImage icon = screen.imaicon(i).Picture();
            EXPECT_EQ(qAlpha(icon.pixel(icon.width() - 1, 0)), 0) << i;
            EXPECT_GE(icon.width(), 48) << i;
        }
    });
}

TEST_F(Manual, TheIconsFollowTheColour)
{
    Bitmap(u"comp.bmp"_s, 11);
    Bitmap(u"reddot.bmp"_s, 12);
    Bitmap(u"ARROWBLACKLT.BMP"_s, 13);
    Bitmap(u"ARROWREDLT.BMP"_s, 14);
    globals.arrowColor = 2;
    frm_Manual screen(desk);
    Play(screen, [&] {
        EXPECT_TRUE(screen.optcolor(0).Value()); // from the settings
        EXPECT_EQ(screen.imaicon(0).Picture().width(), 11);
        EXPECT_EQ(screen.imaicon(1).Picture().width(), 13);
        EXPECT_EQ(screen.imaicon(2).Picture().width(), 12);
        Q_EMIT screen.optcolor(1).Clicked();
        EXPECT_EQ(screen.imaicon(1).Picture().width(), 14);
        Q_EMIT screen.optcolor(2).Clicked(); // no such bitmap
        EXPECT_TRUE(screen.imaicon(1).Picture().isNull());
        EXPECT_FALSE(screen.optcolor(1).Value());
        Q_EMIT screen.optwhichdot(0).Clicked();
        EXPECT_FALSE(screen.optcolor(1).Enabled());
        EXPECT_FALSE(screen.optwhichdot(1).Value());
    });
}

// Finding.

class StreetFind : public Screens
{
protected:
    void SetUp() override
    {
        Screens::SetUp();
        AddTown(u"20 Elm St"_s, {{u"COUNTY"_s, u"Autauga"_s}});
        AddComp(u"10 Oak St"_s, {{u"CITY"_s, u"Millbrook"_s}});
    }
    void Type(frm_StreetFind& screen, const QString& street)
    {
        screen.txtStreet.SetText(street);
        screen.txtCity.SetText(u" Prattville "_s);
        screen.txtState.SetText(u"AL"_s);
        screen.txtZip.SetText(u"36067"_s);
    }
    static QString At(const QString& street) { return street + u",PRATTVILLE,AL 36067"_s; }
};

TEST_F(StreetFind, OpensWithTheDatabooksAddresses)
{
    report.txtComp(2).SetText(u"20 Elm St"_s);
    report.txtListing(1).SetText(u"5 Ash St"_s);
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        EXPECT_EQ(screen.lstaddress.Items(), (QStringList{u"10 OAK ST"_s, u"20 ELM ST"_s}));
        EXPECT_EQ(screen.lstCity.Items(), (QStringList{u"MILLBROOK"_s, u"PRATTVILLE"_s}));
        EXPECT_EQ(screen.lstLabel.Items(), (QStringList{u"SUBJECT"_s, u"COMP #2"_s, u"LISTING #1"_s}));
        EXPECT_TRUE(screen.optfind(0).Value());
        EXPECT_TRUE(screen.txtStreet.Visible());
        EXPECT_FALSE(screen.lstLabel.Visible());
        Q_EMIT screen.optfind(1).Clicked();
        EXPECT_FALSE(screen.optfind(0).Value());
        EXPECT_FALSE(screen.txtStreet.Visible());
        EXPECT_TRUE(screen.lstLabel.Visible());
        Q_EMIT screen.cmdCancel.Clicked();
        EXPECT_FALSE(screen.IsOpen());
    });
}

TEST_F(StreetFind, AChosenAddressFillsTheBoxes)
{
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        screen.lstaddress.SetListIndex(1);
        EXPECT_EQ((QStringList{screen.txtStreet.Text(), screen.txtCity.Text(), screen.txtState.Text(),
                               screen.txtZip.Text(), screen.txtCounty.Text()}),
                  (QStringList{u"20 ELM ST"_s, u"PRATTVILLE"_s, u"AL"_s, u"36067"_s, u"Autauga"_s}));
        screen.lstCity.SetListIndex(0);
        EXPECT_EQ(screen.txtCity.Text(), u"MILLBROOK"_s);
        Q_EMIT screen.lblCity.Clicked();
        EXPECT_EQ(screen.txtCity.Text(), QString());
        Q_EMIT screen.lstaddress.Clicked(); // on the row that is chosen
        EXPECT_EQ(screen.txtCity.Text(), u"PRATTVILLE"_s);
        screen.txtlabel.SetText(u"x"_s);
        Q_EMIT screen.lblMapLabel.Clicked();
        EXPECT_EQ(screen.txtlabel.Text(), QString());
    });
}

TEST_F(StreetFind, ARecordThatIsGoneMeanwhileFillsNothing)
{
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        screen.lstaddress.SetListIndex(1);
        engine.OpenDatabase(kDatabook)->Execute(u"DELETE FROM COMPS"_s);
        screen.lstaddress.SetListIndex(0);
        EXPECT_EQ(screen.txtStreet.Text(), u"10 OAK ST"_s);
        EXPECT_EQ(screen.txtCity.Text() + screen.txtState.Text() + screen.txtZip.Text() + screen.txtCounty.Text(),
                  QString()) << "not the town of the row before";
        EXPECT_EQ(screen.lblmsg.Caption(), u"10 OAK ST is not in the Databook any more"_s);
    });
}

TEST_F(StreetFind, AnAddressBecomesAPoint)
{
    control.addresses[At(u"20 ELM ST"_s)] = kOak;
    control.addresses[At(u"22 ELM ST"_s)] = Near(kOak, 0, 500);
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Type(screen, u" 20 Elm St "_s);
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(control.centre, kOak);
        EXPECT_EQ(screen.lblmsg.Caption(), u"On the map: 20 ELM ST"_s);
        Type(screen, u"22 Elm St"_s);
        screen.txtlabel.SetText(u"School"_s);
        Q_EMIT screen.optwhichdot(1).Clicked();
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_TRUE(screen.IsOpen());
    });
    EXPECT_EQ(Pins(), (QStringList{u"2 comp.bmp '20 ELM ST' 8C52"_s, u"3 reddot.bmp 'School' 8C52"_s}));
    EXPECT_EQ(desk.state.g_MapPointCount, 4);
    EXPECT_EQ(Location(u"20 ELM ST"_s), u"32.46 -86.47 0"_s);
}

TEST_F(StreetFind, AnAnchorIsNotMovedByIt)
{
    AddTown(u"30 Pine St"_s, Anchor(u"33"_s, u"-87"_s));
    control.addresses[At(u"30 PINE ST"_s)] = kOak;
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Type(screen, u"30 Pine St"_s);
        Q_EMIT screen.cmdFind.Clicked();
    });
    EXPECT_EQ(Location(u"30 PINE ST"_s), u"33 -87 1"_s);
}

TEST_F(StreetFind, APointThatIsThereTakesTheLabel)
{
    Pin(2, kOak, u"20 ELM ST"_s, u"comp.bmp"_s);
    Pin(3, Near(kOak, 0, 500), u"22 ELM ST"_s, u"comp.bmp"_s);
    control.addresses[At(u"20 ELM ST"_s)] = kOak;
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Type(screen, u"20 Elm St"_s);
        screen.txtlabel.SetText(u"The subject"_s);
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_TRUE(control.log.contains(u"Action 2"_s));
        EXPECT_EQ(control.centre, kOak);
        Type(screen, u"22 Elm St"_s);
        screen.txtlabel.SetText(QString());
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(control.centre, control.pins[3].place) << "the map does not know it, but its point is there";
    });
    EXPECT_EQ(Pins(), (QStringList{u"2 comp.bmp 'The subject' 8C52"_s, u"3 comp.bmp '22 ELM ST' 8C52"_s}));
}

TEST_F(StreetFind, WhatIsNotFoundIsTold)
{
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(screen.lblmsg.Caption(), u"Type a street address first"_s);
        Type(screen, u"1 Nowhere"_s);
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(screen.lblmsg.Caption(), u"1 Nowhere,Prattville,AL 36067 was not found. Leave the city or the ZIP "
                                           "out, or try the street alone"_s);
    });
    EXPECT_TRUE(control.pins.empty());
}

TEST_F(StreetFind, CountiesThatNobodyCouldLookInAreNamed)
{
    QStringList problems{u"Autauga: the file is missing"_s};
    desk.problems = [&] { return problems; };
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Type(screen, u"1 Nowhere"_s);
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_TRUE(screen.lblmsg.Caption().endsWith(u"try the street alone. These maps can't be read, so it was not looked "
                                                     "for there: Autauga: the file is missing"_s))
            << screen.lblmsg.Caption().toStdString();
        problems += {u"B: x"_s, u"C: x"_s, u"D: x"_s};
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_TRUE(screen.lblmsg.Caption().endsWith(u"; B: x; C: x; ..."_s)) << screen.lblmsg.Caption().toStdString();
    });
}

TEST_F(StreetFind, TextsThatAreNoAddressesAreToldShortly)
{
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        for (const QString& text : {QString(10'000, u'x'), u"'; DROP TABLE COMPS; --"_s, u"\U0001F3E0\U0001F3E0"_s}) {
            Type(screen, text);
            Q_EMIT screen.cmdFind.Clicked();
            EXPECT_TRUE(screen.lblmsg.Caption().startsWith(text.left(20))) << text.left(20).toStdString();
            EXPECT_TRUE(screen.lblmsg.Caption().contains(u"was not found"_s));
            EXPECT_LT(screen.lblmsg.Caption().size(), 200);
        }
    });
    EXPECT_TRUE(control.pins.empty());
    EXPECT_EQ(Field(u"20 ELM ST"_s, u"CITY"_s), u"PRATTVILLE"_s) << "the Databook is as it was";
}

TEST_F(StreetFind, LooksUpWithoutPlacing)
{
    control.addresses[u"SOUTH,"_s] = {-33'000'000, 18'000'000};
    control.addresses[u"NORTH,"_s] = kOak;
    EXPECT_EQ(MapFindAddress(desk, u"North,"_s), kOak);
    EXPECT_EQ(MapFindAddress(desk, u"South,"_s), std::nullopt);
    EXPECT_EQ(MapFindAddress(desk, u"None,"_s), std::nullopt);
    control.lookUps = 0;
    EXPECT_EQ(MapFindAddress(desk, u" ,PRATTVILLE"_s), std::nullopt);
    EXPECT_EQ(control.lookUps, 0);
}

TEST_F(StreetFind, WhatIsFoundButNotPlacedIsShown)
{
    int lookUps = 0;
    control.onGeocode = [&] {
        if (++lookUps == 2) // the first one was to place it
            control.addresses[At(u"20 ELM ST"_s)] = kOak;
    };
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Type(screen, u"20 Elm St"_s);
        Q_EMIT screen.cmdFind.Clicked();
    });
    EXPECT_EQ(control.centre, kOak);
    EXPECT_TRUE(control.pins.empty());
}

TEST_F(StreetFind, GoesToALabel)
{
    Subject(u"1 Main St"_s);
    report.txtComp(1).SetText(u"10 Oak St"_s);
    report.txtComp(2).SetText(u"20 Elm St"_s);
    report.txtComp(3).SetText(u"30 Ash St"_s);
    const Place places[] = {Near(kOak, 0, 100), Near(kOak, 0, 200), Near(kOak, 0, 300), Near(kOak, 0, 400)};
    Pin(1, places[0], {}, u"ARROWBLUESUBJECTLT.BMP"_s);
    Pin(2, places[1], {}, u"ARROWBLUECOMP1LT.BMP"_s);
    Pin(3, places[2], u"20 ELM ST"_s, u"comp.bmp"_s); // a house of the locator
    Pin(40, places[3], u"COMP #3"_s, u"REDDOT.BMP"_s);
    control.SetScale(1234);
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Q_EMIT screen.optfind(1).Clicked();
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(screen.lblmsg.Caption(), u"Choose a label first"_s);
        for (int row = 0; row < 4; ++row) {
            screen.lstLabel.SetListIndex(row);
            Q_EMIT screen.cmdFind.Clicked();
            EXPECT_EQ(control.centre, places[row]) << row;
        }
        EXPECT_EQ(control.Scale(), 1234);
        screen.txtlabel.SetText(u"COMP #9"_s);
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(screen.lblmsg.Caption(), u"COMP #9 is not on the map"_s);
    });
}

TEST_F(StreetFind, SeveralCandidatesArePinned)
{
    frm_StreetFind screen(desk);
    bool hidden = false;
    Play(screen, [&] {
        screen.lstcandidates.SetItems({u"32.46 -86.47 110 N CHESTNUT ST"_s, u"32.47 -86.48 110 S CHESTNUT ST"_s});
        screen.lstcandidates.SetVisible(true);
        QObject::connect(&screen.lstcandidates, &forms::ListBox::ListIndexChanged,
                         [&] { hidden = hidden || !screen.lstcandidates.Visible(); });
        globals.transparent = u"1"_s;
        ShowCandidates(desk, screen.lstcandidates, false);
        EXPECT_EQ(screen.lstcandidates.ListIndex(), 0);
        EXPECT_TRUE(screen.lstcandidates.Visible());
    });
    EXPECT_TRUE(hidden);
    EXPECT_EQ(Pins(), (QStringList{u"2 pingreen.bmp '32.46 -86.47 110 N CHESTNUT ST' 96C2"_s,
                                   u"3 pingreen.bmp '32.47 -86.48 110 S CHESTNUT ST' 96C2"_s}));
    EXPECT_EQ(control.pins[2].picture, kArrows + u"pingreen.bmp"_s); // one backslash
    EXPECT_EQ(control.pins[3].place, (Place{32'470'000, -86'480'000}));
    forms::ListBox none(set, u"lstNone"_s);
    ShowCandidates(desk, none, true);
    EXPECT_FALSE(none.Visible());
}

/// Answers with two places for every address.
class TwoPlaces : public street::Geocoder
{
public:
    std::vector<street::Candidate> places{{.place = {32'460'000, -86'470'000}, .address = u"1 N NOWHERE"_s},
                                          {.place = {32'480'000, -86'470'000}, .address = u"1 S NOWHERE"_s}};
    std::vector<street::Candidate> Find(const QString&, int) const override { return places; }
    std::vector<street::Candidate> Near(Place, double) const override { return {}; }
};

TEST_F(StreetFind, AnUnsureAddressOffersItsCandidates)
{
    TwoPlaces geocoder;
    desk.geocoder = &geocoder;
    frm_StreetFind screen(desk);
    Play(screen, [&] {
        Type(screen, u"1 Nowhere"_s);
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(screen.lstcandidates.Items(),
                  (QStringList{u"32.46 -86.47 1 N NOWHERE"_s, u"32.48 -86.47 1 S NOWHERE"_s}));
        EXPECT_EQ(control.centre, kOak); // the likeliest
        screen.lstcandidates.SetListIndex(1);
        Q_EMIT screen.lstcandidates.Clicked();
        EXPECT_EQ(control.centre, (Place{32'480'000, -86'470'000}));
        EXPECT_EQ(screen.lblmsg.Caption(), u"2 places may be meant. Choose one from the list"_s);
        Type(screen, u"2 Nowhere"_s);
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(Pins(), (QStringList{u"4 pinred.bmp '32.46 -86.47 1 N NOWHERE' 86C2"_s,
                                       u"5 pinred.bmp '32.48 -86.47 1 S NOWHERE' 86C2"_s}))
            << "the pins of the question before are gone";
        Q_EMIT screen.optfind(1).Clicked();
        EXPECT_FALSE(screen.lstcandidates.Visible());
        geocoder.places.pop_back();
        Q_EMIT screen.optfind(0).Clicked();
        Q_EMIT screen.cmdFind.Clicked();
        EXPECT_EQ(screen.lblmsg.Caption(), u"Not sure. This place may be meant; it has a pin on the map"_s);
    });
    EXPECT_EQ(control.pins[6].picture, kArrows + u"pinred.bmp"_s);
}

} // namespace

} // namespace vasclip::map
