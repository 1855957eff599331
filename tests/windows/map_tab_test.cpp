#include "windows/map_view.h"

#include "common/paths.h"
#include "map/messages.h"
#include "platform/street/draw/mark.h"
#include "platform/street/geodesy.h"
#include "report_windows.h"
#include "shell/map_parts.h"
#include "support/map_home.h"
#include "support/unix.h"
#include "windows/picture_view.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>

#include <algorithm>
#include <cmath>

namespace vasclip::windows {

namespace {

const QString kKey = u"12 OAK ST"_s;
constexpr qint32 kPoint = 2;
constexpr qint32 kArrowPoint = 3;

/// The main window with its map tab, and a house of the Databook on the made-up town's map.
class MapTab : public ReportWindows
{
protected:
    QList<QString> dragged;

    void Start()
    {
        StartProgram();
        MakeMainWindow();
        mainWindow->ShowMap(main.map);
        mainWindow->show();
    }
    void StartWithMaps()
    {
        Start();
        MakeMaps(home.disk.ToNative(common::CkRSlash(main.globals.cellData)));
        OpenTab();
        street::StreetMap& map = Map();
        map.SetScale(5280);
        map.SetLatitude(kHouse.latitude);
        map.SetLongitude(kHouse.longitude);
        map.DoAction(street::action::kSetCentre);
        map.SetID(kPoint);
        map.SetPicture(u"C:\\VAS2000\\arrows\\comp.bmp"_s);
        map.SetText(kKey);
        map.SetFlags(0x8C42 | 0x10);
        map.DoAction(street::action::kAddPoint);
        program.Map().Desk().state.g_MapPointCount = kPoint + 1;
        View().setFocus();
        QObject::disconnect(&View(), &MapView::DragWanted, nullptr, nullptr);
        QObject::connect(&View(), &MapView::DragWanted, mainWindow.get(), [this] { dragged.append(program.Map().tab.txtMapAddress.Text()); });
        QApplication::processEvents();
    }
    /// Comp 1's arrow, placed for an address.
    void AddArrow(const QString& address)
    {
        main.report.txtComp(1).SetText(address);
        street::StreetMap& map = Map();
        const street::Place place = street::Project(kHouse, 180, 800);
        map.SetID(kArrowPoint);
        map.SetLatitude(place.latitude);
        map.SetLongitude(place.longitude);
        map.SetPicture(u"C:\\VAS2000\\arrows\\ARROWBLUECOMP1LT.BMP"_s);
        map.SetText({});
        map.SetFlags(0x8C42 | 0x10);
        map.DoAction(street::action::kAddPoint);
        map::MapState& state = program.Map().Desk().state;
        state.g_MapPointCount = kArrowPoint + 1;
        state.placedFor.insert(kArrowPoint, address);
    }
    void OpenTab()
    {
        mainWindow->findChild<QTabWidget*>(u"tabSource"_s)->setCurrentIndex(1);
        QApplication::processEvents();
    }
    street::StreetMap& Map() { return main.map.Engine(); }
    MapView& View() { return *mainWindow->findChild<MapView*>(); }
    street::Place Where() { return Map().Points().at(kPoint).place; }
    QPoint OnPoint() { return Map().BoxOf(kPoint).center().toPoint(); }
    QString Field(const QString& name)
    {
        const auto record = store::ReadRecord(ports, main.sources.datDatabook, kKey);
        return record ? record->Text(name) : u"no record"_s;
    }
    int MissingBoxes() const
    {
        const auto& boxes = doubles.prompter.Boxes();
        return static_cast<int>(std::count_if(boxes.begin(), boxes.end(), [](const auto& box) {
            return box.title == map::messages::kMapFilesTitle;
        }));
    }
    void Pull(QPoint from, QPoint to)
    {
        QTest::mousePress(&View(), Qt::LeftButton, {}, from);
        for (int i = 1; i <= 10; ++i)
            QTest::mouseMove(&View(), from + (to - from) * i / 10);
    }

    static constexpr street::Place kHouse{32'004'000, -85'996'000};
};

TEST_F(MapTab, WhatIsSentToTheReportIsInSightOnASmallScreen)
{
    StartWithMaps();
    mainWindow->resize(1366, 768 - 40); // what a desktop's own bar leaves
    QApplication::processEvents();
    const auto* last = mainWindow->findChild<QPushButton*>(u"cmdProx"_s);
    const auto* area = mainWindow->findChild<QScrollArea*>(u"mapPanel"_s);
    ASSERT_NE(area, nullptr);
    EXPECT_TRUE(area->viewport()->rect().contains(QRect(last->mapTo(area->viewport(), QPoint()), last->size())))
        << last->mapTo(area->viewport(), QPoint(0, last->height())).y() << " of " << area->viewport()->height();
}

TEST_F(MapTab, SaysOnceThatThereAreNoMapsAndAgainWhenOneIsAskedFor)
{
    Start();
    EXPECT_EQ(MissingBoxes(), 0) << "not at the start";
    OpenTab();
    EXPECT_EQ(MissingBoxes(), 1);
    EXPECT_FALSE(View().isVisible());
    EXPECT_TRUE(mainWindow->findChild<QWidget*>(u"atlasEmpty"_s)->isVisible());
    mainWindow->findChild<QTabWidget*>(u"tabSource"_s)->setCurrentIndex(0);
    OpenTab();
    EXPECT_EQ(MissingBoxes(), 1) << "the tab alone tells it once";
    Q_EMIT program.Map().tab.cmdSubjectOnly.Clicked();
    EXPECT_EQ(MissingBoxes(), 2);

    MakeMaps(home.disk.ToNative(common::CkRSlash(main.globals.cellData)));
    mainWindow->findChild<QTabWidget*>(u"tabSource"_s)->setCurrentIndex(0);
    OpenTab();
    EXPECT_TRUE(View().isVisible()) << "maps that were loaded meanwhile are there";
    EXPECT_FALSE(mainWindow->findChild<QWidget*>(u"atlasEmpty"_s)->isVisible());
}

TEST_F(MapTab, SaysWhyTheMapsThatAreThereCannotBeUsed)
{
    Start();
    const QString directory = home.disk.ToNative(common::CkRSlash(main.globals.cellData));
    MakeMaps(directory);
    QFile index(directory + u"/F1"_s);
    ASSERT_TRUE(index.open(QIODevice::WriteOnly | QIODevice::Truncate));
    index.write("something else altogether");
    index.close();
    OpenTab();
    EXPECT_EQ(MissingBoxes(), 1);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"F1: "_s)) << doubles.prompter.Last().text.toStdString();
    EXPECT_FALSE(program.Map().Desk().state.inUse);
    Q_EMIT program.Map().tab.cmdSubjectOnly.Clicked();
    EXPECT_EQ(MissingBoxes(), 2);
    EXPECT_FALSE(program.Map().Desk().state.inUse);
}

TEST_F(MapTab, ACountyThatCannotBeReadIsNamedUnderTheMap)
{
    VASCLIP_NEEDS_UNIX("a file that is replaced while it is open");
    Start();
    const QString directory = home.disk.ToNative(common::CkRSlash(main.globals.cellData));
    MakeMaps(directory);
    for (const QString& name : QDir(directory).entryList({u"*.cel"_s}))
        ASSERT_TRUE(QFile::remove(directory + u'/' + name));
    OpenTab();
    auto* note = mainWindow->findChild<QLabel*>(u"lblMapNote"_s);
    ASSERT_NE(note, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !note->text().isEmpty(); }, 5000));
    EXPECT_TRUE(note->text().startsWith(u"Missing on the map: 01001: "_s)) << note->text().toStdString();
    EXPECT_TRUE(program.Map().Desk().problems().value(0).startsWith(u"01001: "_s)) << "which Find tells of too";
    EXPECT_TRUE(note->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return note->height() >= note->heightForWidth(note->width()); }, 5000));
    MakeMaps(directory); // imported again
    Q_EMIT program.Map().tab.cmdRefreshMap.Clicked();
    EXPECT_EQ(note->text(), QString());
}

TEST_F(MapTab, WhoseDataItIsStandsOnTheMapAndOnTheReportsPicture)
{
    Start();
    MakeMaps(home.disk.ToNative(common::CkRSlash(main.globals.cellData)), u"TIGER/Line 2021, OpenStreetMap of May"_s);
    OpenTab();
    Map().SetLatitude(kHouse.latitude);
    Map().SetLongitude(kHouse.longitude);
    Map().DoAction(street::action::kSetCentre);
    Map().SetScale(5280);
    const auto drawn = [this] {
        QImage image(View().size(), QImage::Format_RGB32);
        QPainter painter(&image);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Map().Paint(painter); }, 10'000));
        return image;
    };
    const QImage window = drawn();
    const QImage picture = Map().ReportPicture(1500, 1000);
    Map().SetCredit(u"TIGER/Line 2021, \u00a9 OpenStreetMap contributors"_s);
    EXPECT_EQ(drawn(), window) << "these words, letter for letter";
    EXPECT_EQ(Map().ReportPicture(1500, 1000), picture);
    for (const QString& other : {QString(), u"TIGER/Line 2021, OpenStreetMap"_s}) {
        Map().SetCredit(other);
        EXPECT_NE(drawn(), window) << other.toStdString();
        EXPECT_NE(Map().ReportPicture(1500, 1000), picture) << other.toStdString();
    }
}

TEST_F(MapTab, MapsThatGoWhileTheyAreOpenAreMissedInWords)
{
    VASCLIP_NEEDS_UNIX("a file that is removed while it is open");
    StartWithMaps();
    QDir directory(home.disk.ToNative(common::CkRSlash(main.globals.cellData)));
    ASSERT_TRUE(directory.removeRecursively());
    QTest::mouseClick(mainWindow->findChild<QPushButton*>(u"cmdRefreshMap"_s), Qt::LeftButton);
    EXPECT_EQ(MissingBoxes(), 1);
    EXPECT_FALSE(program.Map().Desk().state.inUse);
    OpenTab();
    QTest::keyClick(&View(), Qt::Key_Right);
    QTest::mouseClick(&View(), Qt::LeftButton, {}, QPoint(50, 50));
    QApplication::processEvents();
    MakeMaps(directory.path()); // imported again
    Q_EMIT program.Map().tab.cmdSubjectOnly.Clicked();
    EXPECT_TRUE(program.Map().Desk().state.inUse);
}

TEST_F(MapTab, TheButtonSaysWhatTheTabsShow)
{
    StartWithMaps();
    auto* button = mainWindow->findChild<QPushButton*>(u"cmdSubjectAnd"_s);
    EXPECT_EQ(button->text(), u"Su&bject/Comp"_s);
    EXPECT_EQ(button->toolTip(), u"Place the Subject and Comps on the map."_s);
    auto* data = mainWindow->findChild<QTabWidget*>(u"TabData"_s);
    auto* comps = mainWindow->findChild<QTabWidget*>(u"TabComp"_s);
    ASSERT_TRUE(data && comps);
    const auto says = [&](const QString& caption, const QString& whom) {
        EXPECT_EQ(button->text(), caption);
        EXPECT_EQ(button->toolTip(), u"Place the Subject and %1 on the map."_s.arg(whom));
    };
    data->setCurrentIndex(3);
    says(u"Su&bject/Listing"_s, u"Listings"_s);
    data->setCurrentIndex(4);
    says(u"Su&bject/Rent"_s, u"Rentals"_s);
    main.report.TabComp.SetTab(3); // a refresh turns the page behind it
    says(u"Su&bject/Rent"_s, u"Rentals"_s);
    data->setCurrentIndex(1);
    says(u"Su&bj/AltComp"_s, u"Alt Comps"_s);
    comps->setCurrentIndex(0);
    says(u"Su&bject/Comp"_s, u"Comps"_s);
    data->setCurrentIndex(0);
    says(u"Su&bject/Comp"_s, u"Comps"_s);
}

TEST_F(MapTab, ArrangeAfterPlacingIsRemembered)
{
    StartWithMaps();
    EXPECT_EQ(main.globals.arrangeArrows, 0);
    QTest::mouseClick(mainWindow->findChild<QCheckBox*>(u"ckbArrange"_s), Qt::LeftButton);
    EXPECT_EQ(main.globals.arrangeArrows, 1);
}

TEST_F(MapTab, ArrangeGoesByWhatIsDrawnOfAnArrow)
{
    StartWithMaps();
    home.MakeDirs(u"C:\\VAS2000\\arrows"_s);
    ASSERT_TRUE(street::draw::WriteMarks(home.disk.ToNative(main.globals.arrowsDir)).isEmpty());
    street::StreetMap& map = Map();
    map.DoAction(street::action::kClearPoints);
    const auto arrow = [&](qint32 id, QPointF pixels) {
        const street::Place place = map.PlaceAt(map.PixelOf(kHouse) + pixels);
        map.SetID(id);
        map.SetLatitude(place.latitude);
        map.SetLongitude(place.longitude);
        map.SetPicture(main.globals.arrowsDir + u"ARROWBLUECOMP%1LT.BMP"_s.arg(id - 1));
        map.SetText({});
        map.SetFlags(0x8C42 | 0x10);
        map.DoAction(street::action::kAddPoint);
        program.Map().Desk().state.g_MapPointCount = id + 1;
    };
    // On the report's picture the field of the second one lies above the first one's, beside its tip.
    arrow(2, {0, 0});
    arrow(3, {60, -32});
    mainWindow->findChild<QAbstractButton*>(u"cmdArrange"_s)->click();
    EXPECT_EQ(main.status.lblmsg.Caption(), u"No arrow covers another or a house; none was turned"_s);
    arrow(3, {60, -14});
    mainWindow->findChild<QAbstractButton*>(u"cmdArrange"_s)->click();
    EXPECT_TRUE(main.status.lblmsg.Caption().startsWith(u"Turned: "_s)) << main.status.lblmsg.Caption().toStdString();
}

TEST_F(MapTab, APointIsChosenByAClick)
{
    StartWithMaps();
    QTest::mouseClick(&View(), Qt::LeftButton, {}, OnPoint());
    EXPECT_EQ(program.Map().tab.txtMapAddress.Text(), kKey);
    EXPECT_EQ(Field(u"ANCHORED"_s), QString()) << "a click moves nothing";
}

TEST_F(MapTab, APointThatIsDraggedIsAnchoredWhereItIsLetGo)
{
    StartWithMaps();
    const street::Place before = Where();
    const QPoint from = OnPoint();
    Pull(from, from + QPoint(60, -40));
    EXPECT_NE(Where(), before) << "it follows the pointer";
    EXPECT_EQ(Field(u"ANCHORED"_s), QString()) << "and is stored when it is let go";
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, from + QPoint(60, -40));
    EXPECT_EQ(Field(u"ANCHORED"_s), u"1"_s);
    EXPECT_NEAR(street::DistanceFeet(before, Where()), Map().Scale() / Map().Width() * std::hypot(60, 40), 30);
    EXPECT_EQ(program.Map().tab.txtMapAddress.Text(), kKey);
    EXPECT_TRUE(dragged.isEmpty());
}

TEST_F(MapTab, APointThatIsPulledOutStaysAndIsCarried)
{
    StartWithMaps();
    const street::Place before = Where();
    Pull(OnPoint(), QPoint(View().width() + 80, OnPoint().y()));
    EXPECT_EQ(Where(), before);
    EXPECT_EQ(dragged, QStringList{kKey}) << "once";
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, QPoint(View().width() + 80, 10));
    EXPECT_EQ(Where(), before);
    EXPECT_EQ(Field(u"ANCHORED"_s), QString());
}

TEST_F(MapTab, APointThatWasNotChosenIsNotCarried)
{
    StartWithMaps();
    AddArrow(u"99 Elm St"_s);
    QTest::mouseClick(&View(), Qt::LeftButton, {}, OnPoint());
    ASSERT_EQ(program.Map().tab.txtMapAddress.Text(), kKey);
    QTest::keyPress(&View(), Qt::Key_CapsLock); // the selection is held
    const QPoint arrow = Map().BoxOf(kArrowPoint).center().toPoint();
    Pull(arrow, QPoint(View().width() + 80, arrow.y()));
    EXPECT_TRUE(dragged.isEmpty()) << "the address on show is the other point's";
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, QPoint(View().width() + 80, arrow.y()));
    QTest::keyRelease(&View(), Qt::Key_CapsLock);
    Pull(arrow, QPoint(View().width() + 80, arrow.y()));
    EXPECT_EQ(dragged, QStringList{u"99 Elm St"_s});
}

TEST_F(MapTab, AnArrowWhoseCompIsAnotherByNowAsksWhenItIsLetGo)
{
    StartWithMaps();
    AddArrow(u"99 Elm St"_s);
    const street::Place before = Map().Points().at(kArrowPoint).place;
    const QPoint from = Map().BoxOf(kArrowPoint).center().toPoint();
    Pull(from, from + QPoint(60, 40));
    main.report.txtComp(1).SetText(kKey); // the report is read, or two comps are swapped, while it is held
    doubles.prompter.Answer(forms::Answer::No);
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, from + QPoint(60, 40));
    EXPECT_EQ(Map().Points().at(kArrowPoint).place, before);
    EXPECT_EQ(Field(u"ANCHORED"_s), QString());
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"COMP #1: 99 Elm St, now 12 OAK ST"_s))
        << doubles.prompter.Last().text.toStdString();
    Pull(from, from + QPoint(60, 40));
    doubles.prompter.Answer(forms::Answer::Yes);
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, from + QPoint(60, 40));
    EXPECT_EQ(Field(u"ANCHORED"_s), u"1"_s);
}

TEST_F(MapTab, AnotherSubjectEmptiesWhatWasMeasured)
{
    StartWithMaps();
    QTest::mouseClick(&View(), Qt::LeftButton, {}, OnPoint());
    program.Map().tab.txtMapProximity.SetText(u"1.2 Mi. NW"_s);
    main.report.txtSubject.SetText(u"5 New St"_s);
    EXPECT_EQ(program.Map().tab.txtMapAddress.Text(), QString());
    EXPECT_EQ(program.Map().tab.txtMapProximity.Text(), QString()) << "a drop would send it";
}

TEST_F(MapTab, TheCirclesListTellsDistancesAndWhoIsJustOutside)
{
    StartWithMaps();
    street::StreetMap& map = Map();
    const auto house = [&](qint32 id, const QString& text, double feet) {
        const street::Place place = street::Project(kHouse, 90, feet);
        map.SetID(id);
        map.SetLatitude(place.latitude);
        map.SetLongitude(place.longitude);
        map.SetText(text);
        map.DoAction(street::action::kAddPoint);
    };
    house(1, u"SUBJECT"_s, 0);
    house(2, kKey, 2640);
    house(3, u"14 OAK ST"_s, 6336);
    program.Map().Desk().state.g_MapPointCount = 4;
    mainWindow->findChild<QAbstractButton*>(u"ckbRadius"_s)->click();
    auto* miles = mainWindow->findChild<QLineEdit*>(u"txtradius"_s);
    miles->selectAll();
    QTest::keyClicks(miles, u"1"_s);
    auto* list = mainWindow->findChild<QListWidget*>(u"lstaddresses"_s);
    ASSERT_EQ(list->count(), 1);
    EXPECT_EQ(list->item(0)->text(), kKey);
    EXPECT_EQ(main.map.DistanceOfLine(0), u"0.50 mi"_s);
    auto* outside = mainWindow->findChild<QLabel*>(u"lblJustOutside"_s);
    EXPECT_EQ(outside->text(), u"Just outside: 14 OAK ST 1.20 mi"_s);
    mainWindow->findChild<QAbstractButton*>(u"ckbRadius"_s)->click();
    EXPECT_EQ(outside->text(), QString());
}

TEST_F(MapTab, ThePreviewIsTheFileThatIsSentPixelByPixel)
{
    StartWithMaps();
    doubles.screens.Play([&](forms::Screen& screen) {
        ScreenWindow preview(screen, guard);
        preview.show();
        auto* view = preview.findChild<PictureView*>(u"mapPreview"_s);
        const QImage file(home.disk.ToNative(u"C:\\VAS2000\\VAS2000.JPG"_s));
        ASSERT_EQ(file.size(), QSize(1500, 1000));
        auto* whole = preview.findChild<QCheckBox*>(u"wholePicture"_s);
        ASSERT_TRUE(whole->isChecked()) << "the screen is smaller";
        QCoreApplication::processEvents();
        EXPECT_LT(view->width(), 1500);
        QTest::mouseClick(whole, Qt::LeftButton, {}, {8, whole->height() / 2});
        const QImage seen = view->grab().toImage().convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(seen.copy(1, 1, 1500, 1000), file.convertToFormat(QImage::Format_RGB32));
    });
    mainWindow->findChild<QAbstractButton*>(u"cmdPreviewMap"_s)->click();
    EXPECT_EQ(doubles.screens.Shown(), QStringList{u"frm_MapPreview"_s});
}

TEST_F(MapTab, APointThatGoesWhileItIsHeldIsLetGo)
{
    StartWithMaps();
    const QPoint from = OnPoint();
    QTest::mousePress(&View(), Qt::LeftButton, {}, from);
    QTest::mouseMove(&View(), from + QPoint(30, 0));
    Q_EMIT program.Map().tab.cmdClear.Clicked();
    QTest::mouseMove(&View(), from + QPoint(60, 0));
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, from + QPoint(60, 0));
    EXPECT_TRUE(Map().Points().empty());
    EXPECT_EQ(Field(u"ANCHORED"_s), QString());
}

TEST_F(MapTab, APointThatIsHeldWhileTheTabIsLeftGoesBack)
{
    StartWithMaps();
    const street::Place before = Where();
    const QPoint from = OnPoint();
    Pull(from, from + QPoint(60, 40));
    ASSERT_NE(Where(), before);
    mainWindow->findChild<QTabWidget*>(u"tabSource"_s)->setCurrentIndex(0);
    EXPECT_EQ(Where(), before) << "it would go into the report from there, and its record has another place";
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, from + QPoint(60, 40));
    EXPECT_EQ(Where(), before);
    EXPECT_EQ(Field(u"ANCHORED"_s), QString());
}

TEST_F(MapTab, ABoxThatComesUpWhileAPointIsHeldPutsItBack)
{
    StartWithMaps();
    const street::Place before = Where();
    const QPoint from = OnPoint();
    Pull(from, from + QPoint(60, 40));
    ASSERT_NE(Where(), before);
    QDialog box(mainWindow.get()); // it gets the release
    box.setModal(true);
    box.show();
    QApplication::processEvents();
    EXPECT_EQ(Where(), before);
    box.close();
    QTest::mouseMove(&View(), from + QPoint(80, 40));
    EXPECT_EQ(Where(), before);
}

TEST_F(MapTab, KeysLeaveAPointAloneThatIsHeld)
{
    StartWithMaps();
    AddArrow(u"99 Elm St"_s);
    const street::Place arrow = Map().Points().at(kArrowPoint).place;
    const street::Place before = Where();
    QTest::mouseClick(&View(), Qt::LeftButton, {}, OnPoint()); // it is the selected one
    const QPoint from = OnPoint();
    Pull(from, from + QPoint(60, 40));
    const street::Place held = Where();
    QTest::keyClick(&View(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Field(u"ANCHORED"_s), QString()) << "it has not been let go there";
    QTest::keyClick(&View(), Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(Where(), held);
    QTest::keyClick(&View(), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(Map().Points().contains(kPoint));
    QTest::keyClick(&View(), Qt::Key_PageDown);
    QTest::keyClick(&View(), Qt::Key_Escape);
    EXPECT_EQ(Where(), before);
    EXPECT_EQ(Map().Points().at(kArrowPoint).place, arrow) << "nor is the next point taken for it";
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, from + QPoint(60, 40));
    EXPECT_EQ(Field(u"ANCHORED"_s), QString());
}

TEST_F(MapTab, APointThatIsPlacedAnewWhileItIsHeldIsLetGo)
{
    StartWithMaps();
    const QPoint from = OnPoint();
    Pull(from, from + QPoint(60, 40));
    street::StreetMap& map = Map();
    const street::Place there = street::Project(kHouse, 45, 1500);
    map.SetID(kPoint);
    map.DoAction(street::action::kLoadPoint);
    map.SetLatitude(there.latitude);
    map.SetLongitude(there.longitude);
    map.DoAction(street::action::kAddPoint);
    QTest::mouseMove(&View(), from + QPoint(80, 40));
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, from + QPoint(80, 40));
    EXPECT_EQ(Where(), there) << "neither where it is let go nor where the old one stood";
    EXPECT_EQ(Field(u"ANCHORED"_s), QString());
}

TEST_F(MapTab, NoScreenOpensWhileASearchIsPlaced)
{
    StartWithMaps();
    {
        const map::Working working{program.Map().Desk().state};
        for (const QString& name : {u"cmdLabelPosition"_s, u"cmdmanual"_s})
            mainWindow->findChild<QAbstractButton*>(name)->click();
    }
    EXPECT_EQ(doubles.screens.Shown(), QStringList());
}

TEST_F(MapTab, TheGroundIsPulledAlong)
{
    StartWithMaps();
    const street::Place at = Map().PlaceAt({300, 300});
    Pull({300, 300}, {200, 250});
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, {200, 250});
    EXPECT_LT(street::DistanceFeet(Map().PlaceAt({200, 250}), at), 20) << "the place stays under the pointer";
}

TEST_F(MapTab, KeysChooseMoveAndAnchorAPoint)
{
    StartWithMaps();
    const street::Place before = Where();
    QTest::keyClick(&View(), Qt::Key_PageDown);
    EXPECT_EQ(program.Map().tab.txtMapAddress.Text(), kKey);
    QTest::keyClick(&View(), Qt::Key_Right, Qt::ControlModifier);
    EXPECT_GT(Where().longitude, before.longitude);
    EXPECT_EQ(Where().latitude, before.latitude);
    EXPECT_EQ(Field(u"ANCHORED"_s), u"1"_s);
    const street::Place middle = Map().PlaceAt({500, 300});
    QTest::keyClick(&View(), Qt::Key_Right);
    EXPECT_GT(Map().PlaceAt({500, 300}).longitude, middle.longitude) << "an arrow alone moves the map";
    const double feet = Map().Scale();
    QTest::keyClick(&View(), Qt::Key_Plus);
    EXPECT_LT(Map().Scale(), feet);
}

} // namespace

} // namespace vasclip::windows
