#include "bare_windows.h"
#include "databook/frm_mass_city.h"
#include "databook/frm_rename.h"
#include "databook/records.h"
#include "link/frm_attach_city.h"
#include "platform/engine/database.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "store/store.h"
#include "windows/main_window.h"
#include "windows/picture_view.h"
#include "windows/record_grid.h"
#include "windows/screens.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSet>
#include <QTest>

// The screens that work on records, and the keys of the grid.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

/// The Databook that the screens of records work on.
class RecordScreens : public BareWindows
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    common::Globals globals;
    void SetUp() override
    {
        const QString path = u"C:\\DATABOOK.MDB"_s;
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        store::MakeDatabase(engine, path);
        store::Connect2mdb(ports.Get(), source, path, u"COMPS"_s, store::SourceKind::Table);
        for (const QString& address : {u"12 Main St"_s, u"7 Oak Ave"_s})
            ASSERT_TRUE(databook::AddRecord(ports.Get(), source, address, u'F', 2));
    }
};

TEST_F(RecordScreens, TheRenameWindowShowsEveryControlAndAnswersToEnterAndEsc)
{
    databook::frm_Rename screen(ports.Get(), source, databook::RenameMode::Copy, u"12 MAIN ST"_s,
                                {u"5 Elm Ct"_s});
    screen.Open();
    ScreenWindow window(screen, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    EXPECT_EQ(window.windowTitle(), u"Copy Record"_s);
    window.show();
    auto* box = window.findChild<QComboBox*>(u"cboNewName"_s);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->currentText(), u"12 Main St"_s);
    QTest::keyClicks(box->lineEdit(), u"A"_s);
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(window.findChild<QLabel*>(u"lblmsg"_s)->text(), QString())
        << "the typed letter took the old text";
    EXPECT_FALSE(screen.IsOpen());
    EXPECT_EQ(screen.NewKey(), u"A"_s);

    databook::frm_Rename left(ports.Get(), source, databook::RenameMode::Rename, u"12 MAIN ST"_s, {});
    left.Open();
    ScreenWindow other(left, guard);
    other.show();
    QTest::keyClick(&other, Qt::Key_Escape);
    EXPECT_FALSE(left.IsOpen());
    EXPECT_EQ(left.NewKey(), QString());
}

TEST_F(RecordScreens, TheCityWindowShowsEveryControl)
{
    databook::frm_MassCity screen(ports.Get(), source, globals, home.disk);
    screen.Open();
    ScreenWindow window(screen, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    window.show();
    QTest::mouseClick(window.findChild<QPushButton*>(u"cmdnext"_s), Qt::LeftButton);
    EXPECT_EQ(window.findChild<QLabel*>(u"lblCentralKey"_s)->text(), u"7 OAK AVE"_s);
    QTest::keyClicks(window.findChild<QLineEdit*>(u"txtCity"_s), u"Marlow"_s);
    QTest::mouseClick(window.findChild<QPushButton*>(u"cmdAdd"_s), Qt::LeftButton);
    EXPECT_EQ(screen.lstcity.Items(), QStringList{u"Marlow,"_s});
    QSet<QChar> marks;
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        const qsizetype at = button->text().indexOf(u'&');
        if (at < 0)
            continue;
        const QChar mark = button->text().at(at + 1).toUpper();
        EXPECT_FALSE(marks.contains(mark)) << button->text().toStdString();
        marks.insert(mark);
    }
    for (const auto* label : window.findChildren<QLabel*>()) {
        const qsizetype at = label->buddy() == nullptr ? -1 : label->text().indexOf(u'&');
        if (at < 0)
            continue;
        const QChar mark = label->text().at(at + 1).toUpper();
        EXPECT_FALSE(marks.contains(mark)) << label->text().toStdString();
        marks.insert(mark);
    }
    EXPECT_GE(marks.size(), 9);
}

TEST_F(RecordScreens, SeveralCitiesAreSelectedAndDeletedAtOnce)
{
    home.Put(globals.applicationIni, "[CITIES]\r\nCITY1=Marlow, WA  98210  Skagit\r\nCITY2=Alder, WA\r\n"
                                     "CITY3=Ferndale, WA  98248  Whatcom\r\n");
    databook::frm_MassCity screen(ports.Get(), source, globals, home.disk);
    screen.Open();
    ScreenWindow window(screen, guard);
    window.show();
    auto* list = window.findChild<QListView*>(u"lstcity"_s);
    ASSERT_NE(list, nullptr);
    const auto click = [list](int line, Qt::KeyboardModifiers keys) {
        const QModelIndex index = list->model()->index(line, 0);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, list->visualRect(index).center());
    };
    click(0, Qt::NoModifier);
    EXPECT_EQ(window.findChild<QLineEdit*>(u"txtCity"_s)->text(), u"Marlow"_s);
    click(2, Qt::ControlModifier);
    EXPECT_EQ(window.findChild<QLineEdit*>(u"txtCounty"_s)->text(), u"Whatcom"_s) << "the line stood on";
    EXPECT_EQ(screen.lstcity.SelectedLines(), (QList<int>{0, 2}));
    ports.prompter.Answer(forms::Answer::Yes);
    QTest::mouseClick(window.findChild<QPushButton*>(u"cmdDelete"_s), Qt::LeftButton);
    EXPECT_EQ(screen.lstcity.Items(), QStringList{u"Alder, WA"_s});
    EXPECT_EQ(list->model()->rowCount(), 1);
    EXPECT_FALSE(list->selectionModel()->hasSelection());
}

TEST_F(RecordScreens, TheAttachCityWindowShowsEveryControlAndAnswersToItsKeys)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    main.globals.applicationIni = globals.applicationIni;
    main.sources.datDatabook.SetDatabaseName(u"C:\\DATABOOK.MDB"_s);
    main.sources.datDatabook.SetRecordSource(u"COMPS"_s);
    main.sources.datDatabook.Refresh();
    link::frm_AttachCity screen(main.Link(), u"MANUAL"_s, u"12 MAIN ST"_s);
    screen.Open();
    ScreenWindow window(screen, guard);
    EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
    EXPECT_EQ(window.windowTitle(), u"MANUAL Transfer Option"_s);
    window.show();
    EXPECT_TRUE(window.findChild<QLineEdit*>(u"txtAddress"_s)->isReadOnly());
    QTest::keyClicks(window.findChild<QLineEdit*>(u"txtCity"_s), u"Marlow"_s);
    QTest::keyClicks(window.findChild<QLineEdit*>(u"txtState"_s), u"WA"_s);
    QTest::keyClick(window.findChild<QLineEdit*>(u"txtState"_s), Qt::Key_Return);
    EXPECT_FALSE(screen.IsOpen()) << "Enter is Ok";
    EXPECT_TRUE(screen.HasChanged());

    link::frm_AttachCity left(main.Link(), u"MANUAL"_s, u"12 MAIN ST"_s);
    left.Open();
    ScreenWindow other(left, guard);
    other.show();
    EXPECT_EQ(other.findChild<QLineEdit*>(u"txtCity"_s)->text(), u"Marlow"_s);
    QTest::keyClick(&other, Qt::Key_Escape);
    EXPECT_FALSE(left.IsOpen());
    EXPECT_FALSE(left.HasChanged());
}

TEST_F(RecordScreens, TheKeysOfTheGridDoWhatItsButtonsDo)
{
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.ShowMap(main.map);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QStringList clicked;
    for (forms::Button* button : {&main.records.cmdAdd, &main.records.cmdEdit, &main.records.cmdCopy,
                                  &main.records.cmdRename, &main.records.cmdDelete}) {
        button->disconnect(&main.entry);
        QObject::connect(button, &forms::Control::Clicked,
                         [&clicked, button] { clicked.append(button->Name()); });
        button->SetEnabled(true);
    }
    auto& grid = window.Databook();
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_Delete);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&grid, Qt::Key_R, Qt::ControlModifier);
    QTest::keyClick(&grid, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(clicked, (QStringList{u"cmdDelete"_s, u"cmdCopy"_s, u"cmdRename"_s, u"cmdEdit"_s}));
    for (const QString& name : {u"cmdDelete"_s, u"cmdCopy"_s, u"cmdRename"_s, u"cmdEdit"_s})
        EXPECT_TRUE(window.findChild<QAbstractButton*>(name)->toolTip().contains(u'(')) << name.toStdString();
    clicked.clear();
    main.records.cmdDelete.SetEnabled(false);
    QTest::keyClick(&grid, Qt::Key_Delete);
    EXPECT_TRUE(clicked.isEmpty()) << "nothing is there to delete";

    auto* address = window.findChild<QLineEdit*>(u"txtcentralkey"_s);
    QTest::keyClick(&grid, Qt::Key_Insert);
    EXPECT_TRUE(address->hasFocus());
    QTest::keyClick(address, Qt::Key_Return);
    main.records.cmdAdd.SetEnabled(false);
    QTest::keyClick(address, Qt::Key_Return);
    QTest::keyClick(address, Qt::Key_Delete);
    EXPECT_EQ(clicked, (QStringList{u"cmdAdd"_s, u"cmdEdit"_s})) << "Del in the address deletes letters";
}

TEST_F(RecordScreens, ThePhotoBesideTheGridIsThatOfItsRow)
{
    for (const QString& directory :
         {u"C:\\WINDOWS"_s, u"C:\\APPRAISE"_s, u"C:\\VAS2000"_s, u"C:\\JPG"_s, u"C:\\SNAP"_s})
        home.MakeDirs(directory);
    home.Put(u"C:\\APPRAISE\\VAS2000.INI"_s,
             "[DIRECTORIES]\r\nAPPDIR=C:\\VAS2000\r\nUSERDIR=C:\\VAS2000\r\nPHOTODIR=C:\\JPG\r\n"
             "DATADIR=C:\\\r\nCAPTUREDIR=C:\\SNAP\r\n[PREFERENCES]\r\nSORTGRID=1\r\n");
    home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[VENDOR]\r\nApplicationName=Made Up Forms\r\n");
    store::MakeDatabase(engine, u"C:\\VAS2000\\Comp2Kel.mdb"_s);
    QImage image(16, 12, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    ASSERT_TRUE(image.save(home.disk.ToNative(u"C:\\JPG\\OAK.jpg"_s)));
    ASSERT_TRUE(store::FindRecord(ports.Get(), source, u"7 OAK AVE"_s, u"CENTRALKEY"_s));
    source.Recordset().Edit();
    store::SetFieldData(source, u"FRONT VIEW|OAK\r\n"_s, u"PHOTOS"_s);
    source.Recordset().Update();
    conduit.running = false;

    shell::frm_Splash splash{ports.Get()};
    shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
    shell::frm_Main main{program};
    main.Form_load(
        {{}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false}, u"6.2.1"_s},
        splash);
    MainWindow window(main.controls, port, port, guard, theme, settings);
    window.ShowMap(main.map);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* photo = window.findChild<PictureView*>(u"geamaintain"_s);
    auto* address = window.findChild<QLineEdit*>(u"txtcentralkey"_s);
    ASSERT_TRUE(photo && address);
    auto& grid = window.Databook();
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_End);
    EXPECT_EQ(address->text(), u"7 OAK AVE"_s);
    EXPECT_EQ(photo->Picture().size(), QSize(16, 12));
    EXPECT_TRUE(photo->isVisibleTo(&window) && photo->IsShown());
    QTest::keyClick(&grid, Qt::Key_Up);
    EXPECT_EQ(address->text(), u"12 MAIN ST"_s);
    EXPECT_TRUE(photo->Picture().isNull()) << "this one has none";

    auto* find = window.findChild<QLineEdit*>(u"txtQuickFind"_s);
    ASSERT_NE(find, nullptr);
    find->setFocus();
    QTest::keyClicks(find, u"oak"_s);
    QTest::qWait(50);
    EXPECT_EQ(grid.model()->rowCount(), 1);
    EXPECT_EQ(address->text(), u"7 OAK AVE"_s) << "the record that is left is the current one";
    EXPECT_FALSE(photo->Picture().isNull());
    QTest::keyClick(find, Qt::Key_Escape);
    EXPECT_EQ(grid.model()->rowCount(), 2);
    EXPECT_EQ(address->text(), u"7 OAK AVE"_s) << "and stays it";
}

TEST_F(RecordScreens, PicturesOfBothInBothThemes)
{
    const QString wish = qEnvironmentVariable("VASCLIP_SHOTS");
    if (wish.isEmpty())
        GTEST_SKIP() << "set VASCLIP_SHOTS to write the pictures";
    const QString out = wish.contains(u'/') ? wish : u"out/shots"_s;
    ASSERT_TRUE(QDir().mkpath(out));
    home.Put(globals.applicationIni,
             "[CITIES]\r\nCITY1=Marlow, WA  98210  Skagit\r\n"
             "CITY2=Ferndale, WA  98248  Whatcom\r\nCITY3=Port Ellis, WA  98111  Skagit\r\n");
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR").isEmpty() ? QString() : u"-scaled"_s;
    for (const auto& [choice, name] :
         {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
        theme.Choose(choice);
        const auto save = [&](forms::Screen& screen) {
            ScreenWindow window(screen, guard);
            window.show();
            QTest::qWait(30);
            EXPECT_TRUE(window.grab().save(u"%1/%2-%3%4.png"_s.arg(out, screen.Name(), name, scale)));
        };
        databook::frm_Rename rename(ports.Get(), source, databook::RenameMode::Rename, u"12 MAIN ST"_s, {});
        rename.Open();
        rename.cmdRename_Click();
        save(rename);
        databook::frm_MassCity cities(ports.Get(), source, globals, home.disk);
        cities.Open();
        cities.txtneighborhood.SetText(u"Eastside"_s);
        cities.lstcity.SetListIndex(1);
        cities.cmdOk_Click();
        save(cities);
        shell::Program program{home.disk.Home(), {conduit, ports.Get()}};
        shell::frm_Main main{program};
        main.globals.applicationIni = globals.applicationIni;
        main.sources.datDatabook.SetDatabaseName(u"C:\\DATABOOK.MDB"_s);
        main.sources.datDatabook.SetRecordSource(u"COMPS"_s);
        main.sources.datDatabook.Refresh();
        link::frm_AttachCity attach(main.Link(), u"COMP"_s, u"12 MAIN ST"_s);
        attach.Open();
        attach.lstcity.SetListIndex(1);
        attach.cmdAdd_Click();
        save(attach);
    }
    theme.Choose(ThemeChoice::System);
}

} // namespace
} // namespace vasclip::windows
