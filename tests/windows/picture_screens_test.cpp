#include "photos/frm_gen_view.h"
#include "photos/frm_trash.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"
#include "windows/guard.h"
#include "windows/picture_view.h"
#include "windows/screens.h"
#include "windows/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTest>

// The windows about the trash, copying, finding and adjusting pictures.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class PictureScreens : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts ports;
    EventGuard guard{ports.prompter, {}};
    Theme theme{*qApp, nullptr};
    common::Globals globals;
    photos::SlotTable table;
    photos::SlotLoader loader{home.disk, ports.Get(), table};

    void SetUp() override
    {
        globals.G_CaptureDir = u"C:\\VASSNAP\\"_s;
        globals.applicationIni = u"C:\\APPRAISE\\VAS2000.INI"_s;
        home.Put(globals.applicationIni, "[GENERAL VIEWS]\r\nGENERALVIEW1=KITCHEN\r\nGENERALVIEW2=GARAGE\r\n"
                                         "GENERALVIEW3=WATER DAMAGE, BASEMENT\r\n");
    }
    void PutPicture(const QString& path, int hue, const QSize& size = {1200, 900}) const
    {
        QImage image(size, QImage::Format_RGB32);
        QPainter painter(&image);
        QLinearGradient sky(0, 0, 0, size.height());
        sky.setColorAt(0, QColor::fromHsv(hue, 90, 235));
        sky.setColorAt(1, QColor::fromHsv((hue + 60) % 360, 140, 130));
        painter.fillRect(image.rect(), sky);
        painter.setBrush(QColor::fromHsv((hue + 180) % 360, 120, 200));
        painter.drawRect(size.width() / 4, size.height() / 3, size.width() / 2, size.height() / 2);
        painter.end();
        home.Put(path);
        ASSERT_TRUE(image.save(home.disk.ToNative(path)));
    }
    /// With VASCLIP_SHOTS a picture of the window in both themes, for eyes.
    void Shoot(QWidget& window, const QString& name)
    {
        const QString wish = qEnvironmentVariable("VASCLIP_SHOTS");
        if (wish.isEmpty())
            return;
        const QString out = wish.contains(u'/') ? wish : u"out/shots"_s;
        ASSERT_TRUE(QDir().mkpath(out));
        const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR").isEmpty() ? QString() : u"-scaled"_s;
        window.show();
        for (const auto& [choice, look] :
             {std::pair{ThemeChoice::Light, u"light"_s}, {ThemeChoice::Dark, u"dark"_s}}) {
            theme.Choose(choice);
            QTest::qWait(30);
            EXPECT_TRUE(window.grab().save(u"%1/%2-%3%4.png"_s.arg(out, name, look, scale)));
        }
        theme.Choose(ThemeChoice::System);
    }
    /// No control without a widget, and the window fits a small screen.
    void Check(ScreenWindow& window)
    {
        EXPECT_TRUE(window.Leftovers().isEmpty()) << window.Leftovers().join(u'\n').toStdString();
        window.show();
        EXPECT_LE(window.width(), 1366);
        EXPECT_LE(window.height(), 768 - 40);
        EXPECT_LE(window.minimumSizeHint().width(), 1024);
    }
    template <class W>
    W* Get(QWidget& window, const QString& name)
    {
        auto* widget = window.findChild<W*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
};

TEST_F(PictureScreens, TheTrashShowsEveryControlAndWorksByKeys)
{
    const QString trash = u"C:\\VASSNAP\\TRASHCAN\\"_s;
    for (int i = 0; i < 12; ++i)
        PutPicture(trash + u"DSC_%1.JPG"_s.arg(4100 + i), 30 * i);
    photos::frm_Trash screen({ports.Get(), home.disk, globals}, loader, {});
    screen.Open();
    ScreenWindow window(screen, guard);
    Check(window);
    auto* list = Get<QListView>(window, u"lstfiles"_s);
    list->setFocus();
    EXPECT_TRUE(Get<QListView>(window, u"filFilename"_s)->isHidden());
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(screen.lstfiles.SelectedLines(), (QList<int>{0, 1, 2}));
    EXPECT_EQ(screen.lstfiles.ListIndex(), 2);
    EXPECT_FALSE(Get<PictureView>(window, u"geatrashcan"_s)->Picture().isNull());
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(screen.lstfiles.SelCount(), 12);
    Get<QPushButton>(window, u"cmdClearAll"_s)->click();
    EXPECT_TRUE(list->selectionModel()->selectedRows().isEmpty());
    screen.txtDeleteDate.SetText(u"01/01/2100"_s);
    Get<QPushButton>(window, u"cmdSelectDate"_s)->click();
    EXPECT_EQ(list->selectionModel()->selectedRows().size(), 12) << "what a rule selects is shown";
    screen.lstfiles.Select({1, 2, 3, 7});
    EXPECT_EQ(list->selectionModel()->selectedRows().size(), 4);
    auto* folders = Get<QListView>(window, u"dirCapture"_s);
    Shoot(window, u"trash"_s);
    folders->setFocus();
    QTest::keyClick(folders, Qt::Key_Up);
    QTest::keyClick(folders, Qt::Key_Return);
    EXPECT_EQ(screen.lstfiles.ListCount(), 0) << "the directory above has no photos";
    EXPECT_EQ(Get<QComboBox>(window, u"DrvCapture"_s)->currentText(), u"C:"_s);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(screen.IsOpen());
    screen.End();
}

TEST_F(PictureScreens, TheViewDialogShowsEveryControlAndWorksByKeys)
{
    PutPicture(u"C:\\VASSNAP\\A.JPG"_s, 200);
    photos::frm_GenView screen(ports.Get(), home.disk, globals, loader, u"C:\\VASSNAP\\A.JPG"_s, u"FRONT VIEW"_s);
    screen.Open();
    ScreenWindow window(screen, guard);
    Check(window);
    Shoot(window, u"view"_s);
    auto* name = Get<QLineEdit>(window, u"txtView"_s);
    name->setFocus();
    name->selectAll();
    QTest::keyClicks(name, u"attic"_s);
    EXPECT_EQ(name->text(), u"ATTIC"_s);
    Get<QPushButton>(window, u"cmdAddView"_s)->click();
    auto* list = Get<QListView>(window, u"lstViews"_s);
    EXPECT_EQ(list->model()->rowCount(), 4);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    EXPECT_EQ(name->text(), u"KITCHEN"_s);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_FALSE(screen.IsOpen()) << "Return on a line takes it";
    EXPECT_EQ(screen.View(), u"KITCHEN"_s);
    screen.End();
}

TEST_F(PictureScreens, TheViewDialogWithoutAPictureIsNarrow)
{
    photos::frm_GenView screen(ports.Get(), home.disk, globals, loader, {}, {});
    screen.Open();
    ScreenWindow window(screen, guard);
    Check(window);
    Shoot(window, u"views-list"_s);
    EXPECT_LT(window.width(), 700);
    EXPECT_FALSE(Get<PictureView>(window, u"geaPreview"_s)->isVisible());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(screen.IsOpen());
    screen.End();
}

} // namespace
} // namespace vasclip::windows
