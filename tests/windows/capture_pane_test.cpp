#include "windows/capture_pane.h"

#include "sample_screen.h"
#include "support/scripted_ports.h"
#include "windows/guard.h"
#include "windows/main_window.h"
#include "windows/picture_view.h"
#include "windows/record_grid.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Thumbnails and the grid are sources; everything takes them. Files and menus are written down.
class CapturePort : public tests::SamplePort
{
public:
    QStringList files;
    forms::Menu* menu = nullptr;
    [[nodiscard]] bool IsSource(const forms::Control& source) const override
    {
        return source.Name() == u"geathumb"_s || source.Name() == u"txtComp"_s ||
               source.Name() == u"filCapture"_s || SamplePort::IsSource(source);
    }
    void Begin(const forms::Control& source, int) override { log += u"begin "_s + source.ObjectName(); }
    [[nodiscard]] bool Accepts(const QString& source, const forms::Control& target) const override
    {
        static const QStringList taken{u"imaComp"_s, u"fraPics"_s, u"imaTrashcan"_s, u"grddatabook"_s,
                                       u"imaSubject"_s};
        return source == u"geathumb"_s ? taken.contains(target.Name()) : SamplePort::Accepts(source, target);
    }
    [[nodiscard]] QString FileOf(const forms::Control& source) const override
    {
        return source.Name() == u"geathumb"_s ? u"/tmp/picture.jpg"_s : QString();
    }
    [[nodiscard]] bool AcceptsFiles(const forms::Control& target) const override
    {
        return target.Name() == u"fraPics"_s;
    }
    void DropFiles(const QStringList& dropped, forms::Control& target) override
    {
        files = dropped;
        log += u"files "_s + target.ObjectName();
    }
    void DeleteKeyOn(const forms::Control& thumb) override { log += u"delete "_s + thumb.ObjectName(); }
    forms::Menu* MenuOver(const forms::Control& control) override
    {
        log += u"menu "_s + control.ObjectName();
        return menu;
    }
};

class CaptureWindowTest : public testing::Test
{
protected:
    QTemporaryDir dir;
    QSettings settings{dir.filePath(u"view.ini"_s), QSettings::IniFormat};
    Theme theme{*qApp, &settings};
    tests::ScriptedPrompter prompter;
    EventGuard guard{prompter, {}};
    tests::SampleRows rows;
    tests::SampleScreen screen;
    CapturePort port;
    std::unique_ptr<MainWindow> window;

    void SetUp() override
    {
        window = std::make_unique<MainWindow>(screen.controls, port, port, guard, theme, settings);
        screen.Fill(rows);
        window->resize(1366, 768);
        window->show();
        window->activateWindow();
        QTest::qWait(20);
        window->ResetLayout();
        window->BuildCapture();
        QTest::qWait(20);
    }
    template <class Widget>
    Widget* Find(const QString& name)
    {
        auto* widget = window->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    PictureView* Thumb(int index) { return Find<PictureView>(u"geathumb_%1"_s.arg(index)); }
};

TEST(ThumbGrid, TakesTheColumnsThatMakeThePicturesLargest)
{
    const std::tuple<QSize, int> rows[] = {{{430, 280}, 4}, {{280, 430}, 3}, {{1300, 90}, 12},
                                           {{900, 220}, 6}, {{120, 900}, 1}, {{620, 520}, 4}};
    for (const auto& [room, columns] : rows) {
        const ThumbGrid::Shape shape = ThumbGrid::ShapeFor(room, 18);
        EXPECT_EQ(shape.columns, columns) << room.width();
        const int lines = 12 / shape.columns;
        EXPECT_LE(shape.picture.width() * shape.columns, room.width());
        EXPECT_LE((shape.picture.height() + 18) * lines, room.height());
    }
}

TEST_F(CaptureWindowTest, IsBuiltAfterTheFirstPaintAndBindsEveryControl)
{
    MainWindow fresh(screen.controls, port, port, guard, theme, settings);
    EXPECT_EQ(fresh.findChild<QWidget*>(u"fraPics"_s), nullptr);
    EXPECT_TRUE(window->Leftovers().isEmpty()) << window->Leftovers().join(u'\n').toStdString();
}

TEST_F(CaptureWindowTest, TwelveThumbnailsAndTheirLabelsAreVisibleAtEverySize)
{
    for (const QSize& size : {QSize(1366, 768), QSize(1920, 1080), QSize(2732, 1536), QSize(1000, 620)}) {
        window->resize(size);
        QTest::qWait(20);
        const auto* ground = Find<QFrame>(u"fraPics"_s);
        QRegion taken;
        for (int i = 0; i < 12; ++i) {
            const auto* label = Find<QLabel>(u"lbltag_%1"_s.arg(i));
            EXPECT_TRUE(Thumb(i)->isVisible() && label->isVisible());
            EXPECT_TRUE(ground->rect().contains(Thumb(i)->geometry())) << i;
            EXPECT_TRUE(ground->rect().contains(label->geometry())) << i;
            EXPECT_GE(Thumb(i)->width(), 40);
            EXPECT_GE(Thumb(i)->height(), 30);
            EXPECT_FALSE(taken.intersects(Thumb(i)->geometry()));
            taken += Thumb(i)->geometry();
            EXPECT_FALSE(taken.intersects(label->geometry()));
            taken += label->geometry();
        }
    }
}

TEST_F(CaptureWindowTest, WithoutNamesThePicturesTakeTheirRoom)
{
    const int before = Thumb(0)->height();
    for (int i = 0; i < 12; ++i)
        screen.capture.lbltag(i).SetVisible(false);
    QTest::qWait(10);
    EXPECT_GT(Thumb(0)->height(), before);
    screen.capture.geathumb(5).SetVisible(false);
    EXPECT_FALSE(Thumb(5)->isVisible());
}

TEST_F(CaptureWindowTest, AYellowLabelIsYellowAndABrokenPictureHasItsMark)
{
    auto* label = Find<QLabel>(u"lbltag_0"_s);
    EXPECT_TRUE(label->property("yellow").toBool());
    const QImage shot = label->grab().toImage();
    int yellow = 0; // all but what the letters take, wherever they stand
    for (int y = 0; y < shot.height(); ++y)
        for (int x = 0; x < shot.width(); ++x)
            yellow += shot.pixelColor(x, y) == QColor(255, 255, 128) ? 1 : 0;
    EXPECT_GT(yellow, shot.width() * shot.height() / 2);
    EXPECT_FALSE(Find<QLabel>(u"lbltag_1"_s)->property("yellow").toBool());
    EXPECT_NE(Thumb(7)->grab().toImage(), Thumb(11)->grab().toImage()) << "broken and waiting look apart";
}

TEST_F(CaptureWindowTest, TheListShowsTheLinesOfItsSourceAndScrolls)
{
    struct Names : forms::ListSource
    {
        int count = 50'000;
        [[nodiscard]] int Count() const override { return count; }
        [[nodiscard]] QString Line(int index) const override { return u"P%1.JPG"_s.arg(index); }
    } names;
    screen.capture.fraCapture.SetVisible(true);
    screen.capture.filCapture.SetVisible(true);
    screen.capture.filCapture.SetSource(&names);
    QTest::qWait(20);
    auto* list = Find<QListView>(u"filCapture"_s);
    EXPECT_EQ(list->model()->rowCount(), 50'000);
    screen.capture.filCapture.SetTopIndex(30'000);
    EXPECT_EQ(list->indexAt(QPoint(5, 5)).row(), 30'000);
    int clicked = 0;
    QObject::connect(&screen.capture.filCapture, &forms::Control::Clicked, list, [&] { ++clicked; });
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(30'002, 0)).center());
    EXPECT_EQ(screen.capture.filCapture.ListIndex(), 30'002);
    EXPECT_GE(clicked, 1);
    names.count = 10;
    screen.capture.filCapture.SourceChanged(3);
    EXPECT_EQ(list->model()->rowCount(), 10);
    EXPECT_EQ(list->currentIndex().row(), 3);
    screen.capture.filCapture.SetSource(nullptr);
}

TEST_F(CaptureWindowTest, PressingAndPointingReachTheControl)
{
    QStringList seen;
    forms::PictureBox& thumb = screen.capture.geathumb(4);
    QObject::connect(&thumb, &forms::Control::Pressed, &thumb, [&] { seen << u"pressed"_s; });
    QObject::connect(&thumb, &forms::Control::Clicked, &thumb, [&] { seen << u"clicked"_s; });
    QTest::mouseClick(Thumb(4), Qt::LeftButton);
    EXPECT_EQ(seen, (QStringList{u"pressed"_s, u"clicked"_s}));
}

TEST_F(CaptureWindowTest, TheArrowsGoFromPictureToPictureAndThePageKeysTurn)
{
    QList<int> pressed;
    for (int i = 0; i < 12; ++i)
        QObject::connect(&screen.capture.geathumb(i), &forms::Control::Pressed, window.get(),
                         [&pressed, i] { pressed << i; });
    QList<int> turned;
    for (int i = 0; i < 4; ++i)
        QObject::connect(&screen.capture.imaScroll(i), &forms::Control::Clicked, window.get(),
                         [&turned, i] { turned << i; });
    Thumb(0)->setFocus();
    QTest::keyClick(Thumb(0), Qt::Key_Right);
    EXPECT_TRUE(Thumb(1)->hasFocus());
    QTest::keyClick(Thumb(1), Qt::Key_Down);
    EXPECT_EQ(pressed.size(), 2);
    EXPECT_EQ(pressed.value(0), 1);
    for (const int key : {Qt::Key_Home, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_End})
        QTest::keyClick(window->focusWidget(), static_cast<Qt::Key>(key));
    EXPECT_EQ(turned, (QList<int>{0, 1, 2, 3}));
}

TEST_F(CaptureWindowTest, DelOnAPictureReachesThePort)
{
    Thumb(3)->setFocus();
    QTest::keyClick(Thumb(3), Qt::Key_Delete);
    EXPECT_EQ(port.log, QStringList{u"delete geathumb_3"_s});
}

TEST_F(CaptureWindowTest, TheRightButtonOpensTheMenuOfTheControl)
{
    port.menu = &screen.Get<forms::Menu>(u"popPicture_M"_s);
    screen.Get<forms::TabControl>(u"TabData"_s).SetTab(1);
    QTest::qWait(10);
    for (const QString& name : {u"imaComp_1"_s, u"txtComp_1"_s, u"geathumb_2"_s}) {
        QStringList entries;
        QTimer::singleShot(0, window.get(), [&] {
            if (auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                for (const QAction* action : popup->actions())
                    entries << action->text();
                popup->close();
            }
        });
        auto* widget = Find<QWidget>(name);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), widget->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(widget, &event);
        EXPECT_EQ(QString(entries.value(0)).remove(u'&'), u"First of popPicture_M"_s) << name.toStdString();
        if (name.startsWith(u"txt"_s)) {
            EXPECT_GT(entries.size(), 5) << "what a field can do stays";
        }
    }
    EXPECT_EQ(port.log, (QStringList{u"menu imaComp_1"_s, u"menu txtComp_1"_s, u"menu geathumb_2"_s}));
}

TEST_F(CaptureWindowTest, APictureIsPickedUpAndDroppedByKeys)
{
    screen.Get<forms::TabControl>(u"TabData"_s).SetTab(1);
    QTest::qWait(10);
    Thumb(2)->setFocus();
    window->PickUpOrDrop();
    ASSERT_EQ(window->Drags().Held(), &screen.capture.geathumb(2));
    EXPECT_TRUE(Find<QWidget>(u"imaComp_1"_s)->property("dropWanted").toBool());
    auto* slot = Find<PictureView>(u"imaComp_2"_s);
    slot->setFocus();
    EXPECT_EQ(port.log.last(), u"over geathumb imaComp"_s);
    window->PickUpOrDrop();
    EXPECT_EQ(window->Drags().Held(), nullptr);
    EXPECT_EQ(port.log.first(), u"begin geathumb_2"_s);
    EXPECT_EQ(port.log.last(), u"drop geathumb_2 imaComp_2"_s);
    EXPECT_FALSE(slot->property("dropWanted").toBool());
}

TEST_F(CaptureWindowTest, WhatIsHeldIsPutBackByEscAndNotDroppedWhereItIsNotTaken)
{
    Thumb(2)->setFocus();
    window->PickUpOrDrop();
    Find<QLineEdit>(u"txtQuickFind"_s)->setFocus();
    window->PickUpOrDrop();
    EXPECT_NE(window->Drags().Held(), nullptr);
    Thumb(3)->setFocus();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(window->Drags().Held(), nullptr);
    EXPECT_TRUE(port.log.filter(u"drop"_s).isEmpty());
    Find<QLineEdit>(u"txtQuickFind"_s)->setFocus();
    window->PickUpOrDrop();
    EXPECT_EQ(window->Drags().Held(), nullptr) << "no source";
}

TEST_F(CaptureWindowTest, FilesOfAnotherProgramAreTakenWhereThePortTakesThem)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(u"/tmp/a.jpg"_s), QUrl(u"https://example.com/b.jpg"_s)});
    const auto enter = [&](QWidget& target) {
        QDragEnterEvent event(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &event);
        return event.isAccepted();
    };
    auto* pictures = Find<QFrame>(u"fraPics"_s);
    EXPECT_TRUE(enter(*pictures));
    EXPECT_EQ(port.log.last(), u"over FILES fraPics"_s);
    EXPECT_FALSE(enter(*Find<QLabel>(u"lblTab"_s)));
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(pictures, &drop);
    EXPECT_TRUE(port.files.isEmpty()) << "not within the toolkit's own event";
    QApplication::processEvents();
    EXPECT_EQ(port.files, QStringList{u"/tmp/a.jpg"_s});
    EXPECT_EQ(port.log.last(), u"files fraPics"_s);
}

TEST_F(CaptureWindowTest, TheTrashcanButtonTakesADrop)
{
    const std::unique_ptr<QMimeData> data(DragDesk::Payload(screen.capture.geathumb(1)));
    auto* trash = Find<QToolButton>(u"imaTrashcan"_s);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(trash, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(trash, &drop);
    QTest::qWait(30);
    EXPECT_EQ(port.log.value(port.log.size() - 1), u"drop geathumb_1 imaTrashcan"_s);
}

TEST(ShortenedName, KeepsTheNumberOfAPicture)
{
    const QFontMetrics letters{QApplication::font()};
    const auto shown = [&](const QString& name, const QString& room) {
        return ShortenedName(name, letters, letters.horizontalAdvance(room));
    };
    EXPECT_EQ(shown(u"DSCN1004.JPG"_s, u"DSCN1004.JPG"_s), u"DSCN1004.JPG"_s);
    EXPECT_EQ(shown(u"DSCN1004.JPG"_s, u"DSCN1004.JP"_s), u"DSCN1004\u2026"_s);
    EXPECT_EQ(shown(u"DSCN1004.JPG"_s, u"DSCN1004\u2026"_s), u"DSCN1004\u2026"_s);
    const QString stamped = shown(u"PXL_20260630_094112345.jpg"_s, u"PXL_20260630_0941"_s);
    EXPECT_TRUE(stamped.startsWith(u"PXL_"_s) && stamped.endsWith(u"345.jpg"_s)) << stamped.toStdString();
    EXPECT_TRUE(shown(u"NOKIND0000000001"_s, u"NOKIND000"_s).endsWith(u"01"_s));
}

TEST_F(CaptureWindowTest, ATagThatIsTooNarrowShowsTheShortenedName)
{
    auto* tag = Find<QLabel>(u"lbltag_0"_s);
    const auto shown = [&](const QString& name) {
        tag->setText(name);
        return tag->grab().toImage();
    };
    const QString name = u"PXL_20260630_094112345.jpg"_s;
    const int room = tag->fontMetrics().horizontalAdvance(name) / 2;
    tag->resize(room, tag->fontMetrics().height() + 4);
    EXPECT_EQ(shown(name), shown(ShortenedName(name, tag->fontMetrics(), room)));
    EXPECT_NE(shown(name), shown(tag->fontMetrics().elidedText(name, Qt::ElideRight, room)));
}

TEST_F(CaptureWindowTest, InANarrowPaneTheButtonsDoWithoutWords)
{
    const auto* copy = Find<QToolButton>(u"cmdCopy"_s);
    EXPECT_EQ(copy->toolButtonStyle(), Qt::ToolButtonIconOnly);
    window->resize(2400, 900);
    QTest::qWait(20);
    EXPECT_EQ(copy->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
}

} // namespace
} // namespace vasclip::windows
