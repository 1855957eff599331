#include "photos/frm_copy_pics.h"
#include "photos/frm_double.h"
#include "photos/frm_gen_view.h"
#include "photos/frm_search_pics.h"
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
#include <QRadioButton>
#include <QScreen>
#include <QSlider>
#include <QStyledItemDelegate>
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
    const auto* cells = qobject_cast<QStyledItemDelegate*>(list->itemDelegate());
    ASSERT_NE(cells, nullptr);
    EXPECT_EQ(cells->displayText(u"A.JPG|3/7/2004 9:05:00 AM"_s, {}), u"A.JPG"_s) << "the time stands in its own column";
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

TEST_F(PictureScreens, TheCopyWindowShowsEveryControlAndWorksByKeys)
{
    for (int i = 0; i < 14; ++i)
        PutPicture(u"C:\\CARD\\DSC_%1.JPG"_s.arg(4200 + i), 25 * i);
    home.MakeDirs(u"C:\\VASSNAP"_s);
    globals.lastCopy = u"C:\\CARD\\"_s;
    photos::frm_CopyPics screen({.ports = ports.Get(), .disk = home.disk, .globals = globals}, globals, loader,
                                u"READER"_s, u"Copy from Removal Media to C:\\VASSNAP\\"_s);
    screen.Open();
    ScreenWindow window(screen, guard);
    Check(window);
    auto* list = Get<QListView>(window, u"filListBox"_s);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Home);
    QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(screen.filListBox.SelectedLines(), (QList<int>{0, 1}));
    EXPECT_FALSE(Get<PictureView>(window, u"geaPreview"_s)->Picture().isNull());
    screen.gauCopy.SetRange(1000);
    screen.gauCopy.SetValue(420);
    screen.gauCopy.SetCaption(u"Copying DSC_4205.JPG"_s);
    Shoot(window, u"copy"_s);
    screen.gauCopy.SetCaption({});
    Get<QPushButton>(window, u"cmdCopy"_s)->click();
    EXPECT_EQ(home.disk.Dir(u"C:\\VASSNAP\\*"_s), (QStringList{u"DSC_4200.JPG"_s, u"DSC_4201.JPG"_s}));
    EXPECT_FALSE(screen.IsOpen());
    screen.End();
}

TEST_F(PictureScreens, TheSearchWindowShowsEveryControlAndWorksByKeys)
{
    for (const QString& directory : {u"C:\\PICS\\2024\\"_s, u"C:\\PICS\\OAK ST\\"_s, u"C:\\PICS\\"_s})
        home.Put(directory + u"A.JPG"_s);
    globals.G_CaptureDir = u"C:\\PICS\\"_s;
    photos::frm_SearchPics screen(ports.Get(), home.disk, globals,
                                  [](const std::function<bool()>&) { return QStringList(); });
    screen.Open();
    ScreenWindow window(screen, guard);
    Check(window);
    Get<QRadioButton>(window, u"optSearch_3"_s)->click();
    EXPECT_FALSE(Get<QRadioButton>(window, u"optSearch_2"_s)->isChecked());
    Get<QPushButton>(window, u"cmdSearch"_s)->click();
    auto* found = Get<QListView>(window, u"lstdirectory2"_s);
    EXPECT_EQ(found->model()->rowCount(), 3);
    found->setFocus();
    QTest::keyClick(found, Qt::Key_Down);
    Shoot(window, u"find"_s);
    const QString chosen = screen.Chosen();
    EXPECT_FALSE(chosen.isEmpty());
    QTest::keyClick(found, Qt::Key_Return);
    EXPECT_FALSE(screen.IsOpen());
    EXPECT_EQ(screen.Chosen(), chosen);
    screen.End();
}

TEST_F(PictureScreens, TheAdjustWindowShowsEveryControlAndWorksByKeys)
{
    globals.G_UserDir = u"C:\\VAS2000\\"_s;
    home.MakeDirs(u"C:\\VAS2000"_s);
    PutPicture(u"C:\\VASSNAP\\A.JPG"_s, 200);
    photos::frm_Double screen({ports.Get(), home.disk, globals, loader}, u"C:\\VASSNAP\\A.JPG"_s);
    screen.Open();
    ScreenWindow window(screen, guard);
    Check(window);
    auto* quality = Get<QSlider>(window, u"hsbquality"_s);
    quality->setFocus();
    QTest::keyClick(quality, Qt::Key_PageDown);
    EXPECT_EQ(screen.hsbquality.Value(), 80);
    EXPECT_EQ(Get<QLabel>(window, u"lblQuality"_s)->text(), u"80"_s);
    Get<QSlider>(window, u"hsbcapturebrightness"_s)->setValue(35);
    EXPECT_FALSE(Get<PictureView>(window, u"bmpDouble2"_s)->Picture().isNull()) << "the preview is live";
    QTest::mouseClick(Get<QLabel>(window, u"lblQualityCaption"_s), Qt::LeftButton);
    EXPECT_EQ(quality->value(), 70);
    Get<QPushButton>(window, u"cmdCompress"_s)->click();
    Shoot(window, u"adjust"_s);
    EXPECT_EQ(Get<QLabel>(window, u"lblPending"_s)->text(), u"Pending Changes*"_s);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(screen.IsOpen());
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
