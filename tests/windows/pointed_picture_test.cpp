#include "keys.h"

#include "databook/layouts.h"
#include "photos/capture_desk.h"
#include "platform/engine/database.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/standing_time.h"
#include "support/temp_home.h"
#include "windows/drag_desk.h"
#include "windows/guard.h"
#include "windows/main_window.h"
#include "windows/picture_view.h"
#include "windows/record_grid.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QWindow>

// Pictures come in while somebody presses, drags, chooses from a menu or is asked. What is done is done to the
// picture that was pointed at, or to none.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Something happens while the question stands.
class Asking : public tests::ScriptedPrompter
{
public:
    std::function<void()> meanwhile;
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title,
                         const QString& text) override
    {
        if (const auto happen = std::exchange(meanwhile, {}))
            happen();
        return ScriptedPrompter::MsgBox(buttons, icon, title, text);
    }
};

class PointedPicture : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    Asking prompter;
    WindowScreens screens;
    forms::Ports ports{prompter, doubles.pump, doubles.clock, doubles.random, doubles.window, screens};
    engine::Engine engine{home.disk, tests::SomeTime()};
    test::RecordingConduit conduit;
    EventGuard guard{prompter, {}};
    QSettings settings{home.Native(u"window.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};
    shell::frm_Splash splash{ports};
    shell::Program program{home.disk.Home(), {conduit, ports}};
    shell::frm_Main main{program};
    forms::DropPort& drops{main.drags.Router()};
    std::unique_ptr<MainWindow> window;
    static inline const QString kSnap = u"C:\\SNAP\\"_s;

    void SetUp() override
    {
        for (const QString& directory :
             {u"C:\\WINDOWS"_s, u"C:\\APPRAISE"_s, u"C:\\DATABOOK"_s, u"C:\\VAS2000"_s, u"C:\\USER"_s,
              u"C:\\JPG"_s, u"C:\\KEL"_s, u"C:\\SNAP"_s})
            home.MakeDirs(directory);
        home.Put(u"C:\\APPRAISE\\VAS2000.INI"_s,
                 "[DIRECTORIES]\r\nPHOTODIR=C:\\JPG\r\nCAPTUREDIR=C:\\SNAP\r\nUSERDIR=C:\\USER\r\n"
                 "[PREFERENCES]\r\nIMAGELISTBOX=OFF\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n");
        for (const QString& made : {u"C:\\USER\\Comp2Kel.mdb"_s, u"C:\\VAS2000\\NEWCMTS.MDB"_s,
                                    u"C:\\VAS2000\\NEWDATA.MDB"_s, u"C:\\DATABOOK\\DATABOOK.MDB"_s})
            store::MakeDatabase(engine, made);
        const auto rows = engine.OpenDatabase(u"C:\\DATABOOK\\DATABOOK.MDB"_s)
                              ->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(u"CENTRALKEY"_s, u"12 OAK ST"_s.leftJustified(35));
        rows->SetValue(u"ADDRESS"_s, u"12 Oak St"_s);
        rows->Update();
        rows->Close();
        conduit.running = false;
        for (const QString& name : {u"B.JPG"_s, u"C.JPG"_s, u"D.JPG"_s})
            Put(name);
        for (int i = 1; i <= 20; ++i) // one stem each
            doubles.random.sequence.push_back(i / 23.0);
        shell::StartUpOptions options{
            {}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false}, u"6.2.1"_s};
        ASSERT_TRUE(guard.Run([&] { main.Form_load(options, splash); }));
        screens.SetGuard(&guard);
        window = std::make_unique<MainWindow>(main.controls, drops, main, guard, theme, settings);
        screens.SetOwner(&*window);
        window->resize(1366, 768);
        window->show();
        window->BuildAllPages();
        main.ShowCapture();
        ASSERT_TRUE(Activate(*window));
        ASSERT_TRUE(QTest::qWaitFor([this] { return main.capture.filCapture.ListCount() == 3; }));
    }
    void Put(const QString& name, int width = 160)
    {
        QImage image(width, 120, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(static_cast<int>(qHash(name) % 360), 200, 200));
        ASSERT_TRUE(image.save(home.disk.ToNative(kSnap + name)));
    }
    /// The camera's next picture, which stands before all others: the page moves by one.
    void Arrive()
    {
        const int before = main.capture.filCapture.ListCount();
        Put(u"A.JPG"_s);
        ASSERT_TRUE(QTest::qWaitFor([&] { return main.capture.filCapture.ListCount() == before + 1; }));
        ASSERT_EQ(main.capture.filCapture.List(0), u"A.JPG"_s);
    }
    void Replace(const QString& name) { Put(name, 80); }
    template <class T = QWidget>
    T* Find(const QString& name)
    {
        auto* found = window->findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }
    PictureView* Thumb(int index) { return Find<PictureView>(u"geathumb_%1"_s.arg(index)); }
    [[nodiscard]] QString Status() { return Find<QLabel>(u"lblmsg"_s)->text(); }
    [[nodiscard]] QStringList Snaps() { return home.disk.Dir(kSnap + u"*.JPG"_s); }
    [[nodiscard]] QStringList Filed() { return home.disk.Dir(u"C:\\JPG\\*.jpg"_s); }

    void ShowList()
    {
        main.Capture().ToggleListBox();
        ASSERT_TRUE(Find<QListView>(u"filCapture"_s)->isVisible());
        QApplication::processEvents();
    }
    QPoint Row(int row)
    {
        auto* list = Find<QListView>(u"filCapture"_s);
        return list->visualRect(list->model()->index(row, 0)).center();
    }
    /// The right button, then what happens, then an entry by its letter.
    void Choose(QWidget& over, QPoint at, const QString& entry, const std::function<void()>& meanwhile = {})
    {
        bool open = false;
        QTimer::singleShot(0, window.get(), [&] {
            QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            open = true;
            if (meanwhile)
                meanwhile();
            ASSERT_FALSE(menu.isNull());
            for (const QAction* action : menu->actions())
                if (QString text = action->text(); text.remove(u'&') == entry)
                    return QTest::keyClick(menu, Qt::Key(action->text().at(action->text().indexOf(u'&') + 1)
                                                             .toUpper()
                                                             .unicode()));
            ADD_FAILURE() << entry.toStdString() << " is not there";
            menu->close();
        });
        QTest::mousePress(&over, Qt::RightButton, {}, at);
        QContextMenuEvent asked(QContextMenuEvent::Mouse, at, over.mapToGlobal(at));
        QApplication::sendEvent(&over, &asked);
        QTest::mouseRelease(&over, Qt::RightButton, {}, at);
        EXPECT_TRUE(open);
    }
    /// Presses and pulls until the drag begins.
    static void Pull(QWidget& widget, QPoint from, const std::function<void()>& meanwhile = {})
    {
        QTest::mouseMove(&widget, from);
        QTest::mousePress(&widget, Qt::LeftButton, {}, from);
        if (meanwhile)
            meanwhile();
        for (int step = 4; step <= 24; step += 4)
            QTest::mouseMove(&widget, from + QPoint(step, step / 4));
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, from + QPoint(24, 6));
    }
    /// As the toolkit ends a drag; the drag itself was begun by Pull.
    void DropOn(QWidget& target, const forms::Control& source)
    {
        const std::unique_ptr<QMimeData> data(DragDesk::Payload(source));
        const QPoint at(5, 5);
        QDragEnterEvent enter(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(at, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &drop);
        QApplication::processEvents();
    }
    void FileOnGrid(int thumb, const std::function<void()>& meanwhile = {})
    {
        OnScreen(
            *window, u"frm_GenView"_s,
            [&] { DropOn(*window->Databook().viewport(), main.capture.geathumb(thumb)); },
            [&](QWidget&) {
                if (meanwhile)
                    meanwhile();
                Keys(Qt::Key_Return);
            });
    }
};

// ---- the list ------------------------------------------------------------------------------------------

TEST_F(PointedPicture, AfterADragFromTheListTheMenuDeletesTheFileThatIsHighlighted)
{
    ShowList();
    auto* list = Find<QListView>(u"filCapture"_s);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, Row(0));
    ASSERT_EQ(list->currentIndex().row(), 0);
    Pull(*list->viewport(), Row(1));
    ASSERT_EQ(list->currentIndex().row(), 1) << "the press has highlighted it";
    EXPECT_EQ(Find<PictureView>(u"geaListBox"_s)->toolTip(), kSnap + u"C.JPG"_s) << "and the preview shows it";
    prompter.Answer(forms::Answer::Yes);
    Choose(*Find<PictureView>(u"geaListBox"_s), QPoint(8, 8), u"Delete Image"_s);
    EXPECT_EQ(prompter.Last().title, u"C.JPG"_s);
    EXPECT_EQ(Snaps(), (QStringList{u"B.JPG"_s, u"D.JPG"_s}));
}

TEST_F(PointedPicture, APressOnTheListThatIsLetGoElsewhereCountsForItsMenu)
{
    ShowList();
    auto* list = Find<QListView>(u"filCapture"_s);
    // By the window, so that the list knows the pointer is over it: the click comes with the release then, or never.
    QWindow* desk = window->windowHandle();
    const auto at = [&](QPoint place) { return list->viewport()->mapTo(window.get(), place); };
    QTest::mouseMove(desk, at(Row(0)));
    QTest::mouseClick(desk, Qt::LeftButton, {}, at(Row(0)));
    ASSERT_TRUE(list->underMouse());
    QTest::mousePress(desk, Qt::LeftButton, {}, at(Row(2)));
    ASSERT_EQ(list->currentIndex().row(), 2);
    EXPECT_EQ(Find<PictureView>(u"geaListBox"_s)->toolTip(), kSnap + u"D.JPG"_s) << "the preview follows the press";
    QTest::mouseRelease(desk, Qt::LeftButton, {}, at(QPoint(-40, -40)));
    prompter.Answer(forms::Answer::Yes);
    Choose(*Find<PictureView>(u"geaListBox"_s), QPoint(8, 8), u"Delete Image"_s);
    EXPECT_EQ(prompter.Last().title, u"D.JPG"_s);
    EXPECT_EQ(Snaps(), (QStringList{u"B.JPG"_s, u"C.JPG"_s}));
}

TEST_F(PointedPicture, APictureThatIsReplacedAfterItsMenuWasClosedIsShownAnewByAClick)
{
    ShowList();
    auto* list = Find<QListView>(u"filCapture"_s);
    const auto ratio = [this] {
        const QSize shown = Find<PictureView>(u"geaListBox"_s)->Picture().size();
        return shown.isEmpty() ? 0 : 12 * shown.width() / shown.height();
    };
    QTimer::singleShot(0, window.get(), [] {
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    });
    QTest::mousePress(list->viewport(), Qt::RightButton, {}, Row(1));
    QContextMenuEvent asked(QContextMenuEvent::Mouse, Row(1), list->viewport()->mapToGlobal(Row(1)));
    QApplication::sendEvent(list->viewport(), &asked);
    QTest::mouseRelease(list->viewport(), Qt::RightButton, {}, Row(1));
    ASSERT_EQ(list->currentIndex().row(), 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return ratio() == 16; }));
    Replace(u"C.JPG"_s);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, Row(1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ratio() == 8; })) << ratio();
}

TEST_F(PointedPicture, AFileThatGoesWhileItsMenuIsOpenTakesNoOtherWithIt)
{
    ShowList();
    auto* list = Find<QListView>(u"filCapture"_s);
    Choose(*list->viewport(), Row(1), u"Delete Image"_s, [this] {
        home.disk.Kill(kSnap + u"C.JPG"_s);
        ASSERT_TRUE(QTest::qWaitFor([this] { return main.capture.filCapture.ListCount() == 2; }));
    });
    EXPECT_TRUE(prompter.Boxes().empty());
    EXPECT_EQ(Status(), u"C.JPG is no longer there. Nothing was done."_s);
    EXPECT_EQ(Snaps(), (QStringList{u"B.JPG"_s, u"D.JPG"_s}));
}

// ---- the thumbnails' menu, keys and clicks -------------------------------------------------------------

TEST_F(PointedPicture, TheMenuOfAThumbnailHoldsItsFileWhileThePageMoves)
{
    prompter.Answer(forms::Answer::Yes);
    Choose(*Thumb(1), QPoint(8, 8), u"Delete Image"_s, [this] { Arrive(); });
    EXPECT_EQ(prompter.Last().title, u"C.JPG"_s) << "the question names it";
    EXPECT_EQ(Snaps(), (QStringList{u"A.JPG"_s, u"B.JPG"_s, u"D.JPG"_s}));
    EXPECT_EQ(Status(), u"C.JPG is deleted."_s);
}

TEST_F(PointedPicture, APictureThatIsReplacedUnderItsOpenMenuStays)
{
    for (const QString& entry : {u"Delete Image"_s, u"Compress Image"_s}) {
        Choose(*Thumb(1), QPoint(8, 8), entry, [&] { Put(u"C.JPG"_s, 60 + static_cast<int>(entry.size())); });
        EXPECT_EQ(Status(), u"C.JPG is another picture now than the one you chose. Nothing was done."_s);
    }
    EXPECT_TRUE(prompter.Boxes().empty());
    EXPECT_EQ(Snaps().size(), 3);
}

TEST_F(PointedPicture, TheAdjustWindowOpensThePictureOverWhichItsMenuOpened)
{
    OnScreen(
        *window, u"frm_Double"_s,
        [this] { Choose(*Thumb(1), QPoint(8, 8), u"Compress Image"_s, [this] { Arrive(); }); },
        [](QWidget& screen) {
            EXPECT_EQ(screen.findChild<QLabel*>(u"lblFilename_0"_s)->text(), u"C.JPG"_s);
            screen.close();
        });
}

TEST_F(PointedPicture, TheQuestionHoldsTheFile)
{
    Thumb(1)->setFocus(Qt::TabFocusReason);
    prompter.meanwhile = [this] { Arrive(); };
    prompter.Answer(forms::Answer::Yes);
    Keys(Qt::Key_Delete);
    EXPECT_EQ(Snaps(), (QStringList{u"A.JPG"_s, u"B.JPG"_s, u"D.JPG"_s}));

    prompter.meanwhile = [this] { Replace(u"D.JPG"_s); };
    prompter.Answer(forms::Answer::Yes);
    Choose(*Thumb(2), QPoint(8, 8), u"Delete Image"_s);
    EXPECT_EQ(Status(), u"D.JPG is another picture now than the one you chose. Nothing was done."_s);
    EXPECT_TRUE(home.disk.FileExists(kSnap + u"D.JPG"_s));
}

TEST_F(PointedPicture, DelOnAPageThatHasMovedSinceTheFocusCameSaysSoFirst)
{
    Thumb(1)->setFocus(Qt::TabFocusReason);
    Arrive();
    Keys(Qt::Key_Delete);
    EXPECT_TRUE(prompter.Boxes().empty());
    EXPECT_EQ(Status(), u"The pictures have moved: B.JPG stands here now, no longer C.JPG. Nothing was done."_s);
    prompter.Answer(forms::Answer::No);
    Keys(Qt::Key_Delete);
    EXPECT_EQ(prompter.Last().title, u"B.JPG"_s) << "the second time it is what the user has read";
    EXPECT_EQ(Snaps().size(), 4);
}

TEST_F(PointedPicture, ADoubleClickOpensNoOtherPictureThanTheOneFirstClicked)
{
    QTest::mouseClick(Thumb(1), Qt::LeftButton);
    Arrive();
    QTest::mouseDClick(Thumb(1), Qt::LeftButton);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PointedPicture, AThumbnailTurnsToItsOwnFileAfterTheAdjustWindowThoughThePageHasMoved)
{
    OnScreen(
        *window, u"frm_Double"_s, [this] { QTest::mouseDClick(Thumb(1), Qt::LeftButton); },
        [this](QWidget& screen) {
            Arrive();
            screen.close();
        });
    for (int i = 0; i < 4; ++i) {
        const QString name = main.capture.filCapture.List(i);
        EXPECT_EQ(Find<QLabel>(u"lbltag_%1"_s.arg(i))->text(), name);
        EXPECT_EQ(main.Capture().FileOfThumb(i), kSnap + name);
    }
}

// ---- drags ---------------------------------------------------------------------------------------------

TEST_F(PointedPicture, WhatADragHasBegunWithIsFiledThoughThePageMoves)
{
    Pull(*Thumb(1), QPoint(10, 10));
    Arrive();
    FileOnGrid(1);
    EXPECT_EQ(Snaps(), (QStringList{u"A.JPG"_s, u"B.JPG"_s, u"D.JPG"_s})) << Status().toStdString();
    EXPECT_EQ(home.disk.Dir(kSnap + u"TRASHCAN\\*"_s), QStringList{u"C.JPG"_s});
    EXPECT_EQ(Filed().size(), 1);
}

TEST_F(PointedPicture, ADragWhosePageMovedBeforeItBeganDoesNothingAndSaysSo)
{
    Pull(*Thumb(1), QPoint(10, 10), [this] { Arrive(); });
    DropOn(*window->Databook().viewport(), main.capture.geathumb(1));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(Status(), u"The pictures have moved: B.JPG stands here now, no longer C.JPG. Nothing was done."_s);
    EXPECT_EQ(Snaps().size(), 4);
    EXPECT_TRUE(Filed().isEmpty());
}

TEST_F(PointedPicture, APictureThatIsReplacedWhileItsViewIsAskedIsNeitherFiledNorTrashed)
{
    Pull(*Thumb(1), QPoint(10, 10));
    FileOnGrid(1, [this] { Replace(u"C.JPG"_s); });
    EXPECT_EQ(Status(), u"C.JPG is another picture now than the one you chose. Nothing was done."_s);
    EXPECT_EQ(Snaps().size(), 3);
    EXPECT_TRUE(Filed().isEmpty());
    EXPECT_FALSE(home.disk.DirExists(kSnap + u"TRASHCAN"_s));
}

TEST_F(PointedPicture, TheTrashIconTakesThePictureThatWasDraggedOrNone)
{
    Pull(*Thumb(1), QPoint(10, 10));
    prompter.meanwhile = [this] { Replace(u"C.JPG"_s); };
    prompter.Answer(forms::Answer::Yes);
    DropOn(*Find(u"imaTrashcan"_s), main.capture.geathumb(1));
    EXPECT_EQ(prompter.Last().text, u"Delete C:\\SNAP\\C.JPG?"_s);
    EXPECT_EQ(Status(), u"C.JPG is another picture now than the one you chose. Nothing was done."_s);
    EXPECT_FALSE(home.disk.DirExists(kSnap + u"TRASHCAN"_s));
    EXPECT_EQ(Snaps().size(), 3);
}

TEST_F(PointedPicture, SendToSlotSendsThePictureThatHadTheFocusWhenItsListOpened)
{
    Thumb(1)->setFocus(Qt::TabFocusReason);
    bool asked = false;
    QTimer views; // the view is asked once the place is chosen
    QObject::connect(&views, &QTimer::timeout, &views, [&] {
        QWidget* shown = QApplication::activeModalWidget();
        if (shown == nullptr || shown->objectName() != u"frm_GenView"_s)
            return;
        views.stop();
        asked = true;
        QTest::keyClick(shown->findChild<QLineEdit*>(u"txtView"_s), Qt::Key_Return);
    });
    views.start(20);
    OnScreen(
        *window, u"sendToSlot"_s, [] { Keys(Qt::Key_Return, Qt::ControlModifier); },
        [this](QWidget&) {
            Arrive();
            Type(u"highlighted record"_s);
            Keys(Qt::Key_Return);
        });
    EXPECT_TRUE(asked);
    EXPECT_EQ(Snaps(), (QStringList{u"A.JPG"_s, u"B.JPG"_s, u"D.JPG"_s})) << Status().toStdString();
    EXPECT_EQ(Filed().size(), 1);
}

} // namespace
} // namespace vasclip::windows
