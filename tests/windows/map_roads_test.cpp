#include "keys.h"
#include "report_windows.h"

#include "common/paths.h"
#include "link/slot_table.h"
#include "map/messages.h"
#include "shell/map_parts.h"
#include "support/map_home.h"
#include "windows/map_view.h"
#include "windows/record_grid.h"

#include <QGroupBox>
#include <QPainter>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>
#include <QWindow>

// Subject and nine comps onto the map, one of them put right, picture and proximities into the report: once by keys
// alone, once by the mouse alone.

namespace vasclip::windows {
namespace {

constexpr int kComps = 9;
constexpr qint32 kFirstComp = 2;
constexpr int kPutRight = 3; ///< the comp whose place is corrected

class MapRoads : public ReportWindows
{
protected:
    static QString Address(int n) { return u"%1 Row %2 St"_s.arg(n * 100 + 50).arg(n); }

    void SetUp() override
    {
        ReportHome::SetUp();
        QImage stock(15, 10, QImage::Format_RGB32);
        stock.fill(Qt::gray);
        ASSERT_TRUE(stock.save(home.disk.ToNative(u"C:\\VAS2000\\vas2000.jpg"_s)));
        for (int n = 1; n <= kComps; ++n)
            Add(shell::kDatabook, u"COMPS"_s,
                {{u"CENTRALKEY"_s, Address(n).toUpper()}, {u"ADDRESS"_s, Address(n)}, {u"CITY"_s, u"Elmsford"_s},
                 {u"ST"_s, u"AL"_s}, {u"ZIP"_s, u"36067"_s}});
        for (const int base : {1, 4, 7})
            Add(shell::kMapping, u"Comp2Kel"_s,
                {{u"FORMTYPE"_s, u"UA5"_s}, {u"FORMNAME"_s, u"CMP"_s}, {u"FIELDNAME"_s, u"PROXIMITY"_s},
                 {u"ROW"_s, QString::number(20 + base)}, {u"CELL"_s, u"1"_s}, {u"COMPTYPE"_s, u"SALE"_s},
                 {u"COMP"_s, QString::number(base)}, {u"OFFSET"_s, u"1"_s}});
        StartProgram();
        ASSERT_TRUE(main.linkState.linkActive);
        main.report.txtSubject.SetText(u"110 Row 1 St"_s);
        main.addr.txtKelCity.SetText(u"Elmsford"_s);
        main.addr.txtKelState.SetText(u"AL"_s);
        for (int n = 1; n <= kComps; ++n)
            main.report.txtComp(n).SetText(Address(n));
        MakeMaps(home.disk.ToNative(common::CkRSlash(main.globals.cellData)));
        MakeMainWindow();
        mainWindow->ShowMap(main.map);
        mainWindow->show();
        ASSERT_TRUE(Activate(*mainWindow));
        conduit.pokes.clear();
        conduit.commands.clear();
    }
    [[nodiscard]] street::StreetMap& Map() { return main.map.Engine(); }
    [[nodiscard]] MapView& View() { return *mainWindow->findChild<MapView*>(); }
    [[nodiscard]] street::Place PlaceOf(int comp) { return Map().Points().at(kFirstComp + comp - 1).place; }
    [[nodiscard]] QString Told() { return mainWindow->findChild<QLabel*>(u"lblmsg"_s)->text(); }
    [[nodiscard]] QString Field(int comp, const QString& name)
    {
        const auto record = store::ReadRecord(ports, main.sources.datDatabook, Address(comp).toUpper());
        return record ? record->Text(name) : u"no record"_s;
    }
    void ExpectAllPlaced()
    {
        ASSERT_EQ(Map().Points().size(), kComps + 1U) << Told().toStdString();
        EXPECT_TRUE(Told().startsWith(u"On the map: SUBJECT, COMP #1, "_s)) << Told().toStdString();
        EXPECT_EQ(Field(kPutRight, u"ANCHORED"_s), u"0"_s);
    }
    void ExpectPutRight(street::Place before)
    {
        EXPECT_GT(PlaceOf(kPutRight).longitude, before.longitude);
        EXPECT_EQ(Field(kPutRight, u"ANCHORED"_s), u"1"_s);
        EXPECT_EQ(Field(kPutRight, u"LONGITUDE"_s), map::DegreesText(PlaceOf(kPutRight).longitude));
        EXPECT_EQ(Field(kPutRight - 1, u"ANCHORED"_s), u"0"_s) << "nobody else's";
        EXPECT_EQ(program.Map().tab.txtMapAddress.Text(), Address(kPutRight));
    }
    void ExpectPictureSent()
    {
        const QStringList images = conduit.commands.filter(u"MAP_LOCATION"_s);
        EXPECT_EQ(images.size(), 1) << conduit.commands.join(u'\n').toStdString();
        EXPECT_EQ(QImage(home.disk.ToNative(u"C:\\VAS2000\\VAS2000.JPG"_s)).size(), QSize(1500, 1000));
        EXPECT_EQ(Told(), u"The map is in the report as its location map"_s);
    }
    void ExpectProximitiesSent()
    {
        QStringList cells;
        for (const QStringList& poke : conduit.pokes)
            if (poke.value(2).contains(u" Mi"_s))
                cells << poke.value(1);
        EXPECT_EQ(cells.size(), kComps) << cells.join(u' ').toStdString();
        EXPECT_TRUE(Told().startsWith(u"In the report (9): COMP #1 "_s)) << Told().toStdString();
        EXPECT_TRUE(Told().contains(u", #9 "_s)) << Told().toStdString();
        for (int n = 1; n <= kComps; ++n)
            EXPECT_TRUE(main.addr.txtProximity(n).Text().contains(u" Mi"_s)) << n;
        EXPECT_TRUE(doubles.prompter.Boxes().empty());
    }
};

// ---- bad input -------------------------------------------------------------------------------------------

TEST_F(MapRoads, TextsThatAreNoAddressesLeaveTheWindowAsItIs)
{
    mainWindow->findChild<QTabWidget*>(u"tabSource"_s)->setCurrentIndex(1);
    const int before = mainWindow->minimumSizeHint().width();
    const QString texts[] = {QString(10'000, u'x'), u"'; DROP TABLE COMPS; --"_s, u"\U0001F3E0 \U0001F3E0"_s};
    for (int n = 1; n <= 3; ++n)
        main.report.txtComp(n).SetText(texts[n - 1]);
    mainWindow->findChild<QPushButton*>(u"cmdSubjectAnd"_s)->click();
    QApplication::processEvents();
    EXPECT_TRUE(Told().startsWith(u"Not found on the map: COMP #1 xxx"_s)) << Told().left(60).toStdString();
    EXPECT_EQ(Map().Points().size(), kComps + 1U - 3U);
    EXPECT_EQ(Field(4, u"ANCHORED"_s), u"0"_s) << "the others are placed and stored";
    EXPECT_EQ(mainWindow->size(), QSize(1366, 768));
    EXPECT_EQ(mainWindow->minimumSizeHint().width(), before);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(MapRoads, RecordsOnBothSidesOfTheDateLineAreShownAndMeasured)
{
    const auto database = engine.OpenDatabase(shell::kDatabook);
    for (const auto& [n, longitude] : {std::pair{1, u"179.999"_s}, std::pair{2, u"-179.999"_s}})
        database->Execute(u"UPDATE COMPS SET ANCHORED = '1', LATITUDE = '52', LONGITUDE = '%1' WHERE CENTRALKEY LIKE '%2*'"_s
                              .arg(longitude, Address(n).toUpper()));
    database->Close();
    mainWindow->findChild<QTabWidget*>(u"tabSource"_s)->setCurrentIndex(1);
    for (int n = 3; n <= kComps; ++n)
        main.report.txtComp(n).SetText({});
    mainWindow->findChild<QPushButton*>(u"cmdSubjectAnd"_s)->click();
    ASSERT_EQ(Map().Points().size(), 3U) << Told().toStdString();
    QImage image(View().size(), QImage::Format_RGB32);
    QPainter painter(&image);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Map().Paint(painter); }, 10'000)) << "a view as wide as the earth";
    EXPECT_EQ(Map().ReportPicture(1500, 1000).size(), QSize(1500, 1000));
    const street::Place east = PlaceOf(1);
    const street::Place west = PlaceOf(2);
    Map().SetLatitude(east.latitude);
    Map().SetLongitude(east.longitude);
    Map().DoAction(street::action::kSetOrigin);
    Map().SetLatitude(west.latitude);
    Map().SetLongitude(west.longitude);
    Map().DoAction(street::action::kDistance);
    EXPECT_NEAR(Map().Value(), 451, 10) << "the short way";
}

// ---- keys ------------------------------------------------------------------------------------------------

class MapByKeys : public MapRoads
{
protected:
    [[nodiscard]] static QWidget* Focus() { return QApplication::focusWidget(); }
    void PressUntil(int key, const QWidget* there, int most)
    {
        for (int i = 0; i < most && Focus() != there; ++i)
            Keys(key);
        ASSERT_EQ(Focus(), there) << there->objectName().toStdString();
    }
    /// A button's own letter, which shows it pressed for a moment. What it does has a word in the status line.
    void Letter(Qt::Key key)
    {
        const QString before = Told();
        Keys(key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Told() != before; }));
    }
    QWidget* Button(const QString& name) { return mainWindow->findChild<QWidget*>(name); }
};

TEST_F(MapByKeys, AllOfItWithoutAMouse)
{
    auto* tabs = mainWindow->findChild<QTabWidget*>(u"tabSource"_s);
    mainWindow->Databook().setFocus();
    PressUntil(Qt::Key_F6, tabs->tabBar(), 8);
    Keys(Qt::Key_Right);
    ASSERT_EQ(tabs->currentIndex(), 1);
    ASSERT_TRUE(View().isVisible());
    PressUntil(Qt::Key_F6, &View(), 8);

    Letter(Qt::Key_B); // Su&bject/Comp
    ExpectAllPlaced();
    ASSERT_EQ(Focus(), &View()) << "the map keeps the keys";

    const street::Place before = PlaceOf(kPutRight);
    for (int i = 0; i <= kComps && main.program.Map().Desk().state.g_MapSelectedID != kFirstComp + kPutRight - 1; ++i)
        Keys(Qt::Key_PageDown);
    Keys(Qt::Key_Right, Qt::ControlModifier);
    Keys(Qt::Key_Right, Qt::ControlModifier);
    ExpectPutRight(before);

    Letter(Qt::Key_G); // &Generate Map
    ExpectPictureSent();
    PressUntil(Qt::Key_Tab, Button(u"cmdProx"_s), 60);
    Keys(Qt::Key_Space);
    ExpectProximitiesSent();
}

TEST_F(MapByKeys, TheLetterStaysWhateverTheDataTabsShow)
{
    main.report.txtAltComp(1).SetText(Address(2));
    main.report.txtListing(1).SetText(Address(3));
    main.report.txtRental(1).SetText(Address(4));
    auto* tabs = mainWindow->findChild<QTabWidget*>(u"tabSource"_s);
    tabs->setCurrentIndex(1);
    auto* data = mainWindow->findChild<QTabWidget*>(u"TabData"_s);
    auto* comps = mainWindow->findChild<QTabWidget*>(u"TabComp"_s);
    const auto places = [&](QTabWidget& of, int page, const QString& whom) {
        of.setCurrentIndex(page);
        ASSERT_EQ(of.currentIndex(), page);
        View().setFocus();
        main.program.status.lblmsg.Show({}, forms::Colour::Normal);
        Letter(Qt::Key_B);
        EXPECT_TRUE(Told().startsWith(u"On the map: SUBJECT, "_s + whom)) << Told().toStdString();
        EXPECT_EQ(Focus(), &View());
    };
    const auto row = [](link::Group group) { return link::RowOf(group); };
    places(*data, row(link::Group::Listings).dataPage, u"LISTING #1"_s);
    places(*data, row(link::Group::Rentals).dataPage, u"RENTAL #1"_s);
    places(*data, row(link::Group::Alternates).dataPage, u"COMP #1"_s);
    places(*comps, row(link::Group::Alternates).firstPage, u"ALTCOMP #1"_s);
    places(*comps, 0, u"COMP #1"_s);
}

// ---- the mouse -------------------------------------------------------------------------------------------

class MapByMouse : public MapRoads
{
protected:
    /// What lies under the pointer gets the press, whatever was meant.
    [[nodiscard]] QPoint InWindow(const QWidget& widget, QPoint at) const { return widget.mapTo(mainWindow.get(), at); }
    void Click(QPoint at) { QTest::mouseClick(mainWindow->windowHandle(), Qt::LeftButton, {}, at); }
    void Click(const QString& name)
    {
        auto* button = mainWindow->findChild<QWidget*>(name);
        ASSERT_NE(button, nullptr) << name.toStdString();
        auto* area = AreaOf(*button);
        for (int turns = 0; area != nullptr && turns < 60 && !Seen(*button, *area); ++turns)
            Wheel(*area);
        ASSERT_TRUE(area == nullptr || Seen(*button, *area)) << name.toStdString();
        Click(InWindow(*button, button->rect().center()));
        QApplication::processEvents();
    }
    static QScrollArea* AreaOf(const QWidget& widget)
    {
        for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget())
            if (auto* area = qobject_cast<QScrollArea*>(parent))
                return area;
        return nullptr;
    }
    static bool Seen(const QWidget& button, const QScrollArea& area)
    {
        const QRect at(button.mapTo(area.viewport(), QPoint(0, 0)), button.size());
        return area.viewport()->rect().contains(at);
    }
    static void Wheel(const QScrollArea& area)
    {
        const QPointF middle = area.viewport()->rect().center();
        QWheelEvent turn(middle, area.viewport()->mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(area.viewport(), &turn);
    }
    void Drag(QPoint from, QPoint to)
    {
        QWindow* surface = mainWindow->windowHandle();
        QTest::mousePress(surface, Qt::LeftButton, {}, from);
        constexpr int kSteps = 8;
        for (int i = 1; i <= kSteps; ++i)
            QTest::mouseMove(surface, from + (to - from) * i / kSteps);
        QTest::mouseRelease(surface, Qt::LeftButton, {}, to);
        QApplication::processEvents();
    }
};

TEST_F(MapByMouse, AllOfItWithoutAKey)
{
    auto* tabs = mainWindow->findChild<QTabWidget*>(u"tabSource"_s);
    Click(InWindow(*tabs->tabBar(), tabs->tabBar()->tabRect(1).center()));
    ASSERT_EQ(tabs->currentIndex(), 1);
    QApplication::processEvents();
    Click(u"cmdSubjectAnd"_s);
    ExpectAllPlaced();

    const street::Place before = PlaceOf(kPutRight);
    const QPoint from = InWindow(View(), Map().BoxOf(kFirstComp + kPutRight - 1).center().toPoint());
    Drag(from, from + QPoint(45, 20));
    ExpectPutRight(before);

    Click(u"optMapAddendum_0"_s);
    Click(u"cmdCopyMap"_s);
    ExpectPictureSent();
    Click(u"cmdProx"_s);
    ExpectProximitiesSent();
}

TEST_F(MapByMouse, TheGroupsOfTheTabBearTheirNames)
{
    auto* tabs = mainWindow->findChild<QTabWidget*>(u"tabSource"_s);
    Click(InWindow(*tabs->tabBar(), tabs->tabBar()->tabRect(1).center()));
    QStringList titles;
    for (const auto* group : View().parentWidget()->findChildren<QGroupBox*>())
        titles << group->title();
    for (const QString& title : {u"Map Configuration"_s, u"Draw Circle"_s, u"Map Font Sizes"_s, u"Send Map To:"_s})
        EXPECT_TRUE(titles.contains(title)) << title.toStdString();
}

} // namespace
} // namespace vasclip::windows
