#include "kelforms/window/main_window.h"

#include "kelforms/core/comps.h"
#include "kelforms/window/tour.h"
#include "platform/text/runtime_error.h"
#include "sample_home.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace kelforms;
using kelforms::test::SampleHome;

namespace {

class Window : public testing::Test
{
protected:
    SampleHome m_home;
    QTemporaryDir m_place;

    [[nodiscard]] Options Line(const QStringList& reports) const
    {
        Options options;
        options.home = m_home.Path();
        options.socketPath = m_place.filePath(u"kel.sock"_s);
        options.reports = reports;
        return options;
    }

    static void Turn(int ms = 30)
    {
        QElapsedTimer clock;
        clock.start();
        do {
            QApplication::processEvents(QEventLoop::AllEvents, 10);
        } while (clock.elapsed() < ms);
    }
};

TEST_F(Window, ShowsTheActiveReportsMainForm)
{
    Service service(Line({m_home.MakeReport(u"smith"_s, u"UA5"_s), m_home.MakeReport(u"jones"_s, u"CN2"_s)}));
    const MainWindow window(service, false, false);
    EXPECT_EQ(window.ShownReport(), u"SMITH.RPT"_s);
    EXPECT_EQ(window.ShownPage(), u"UA5"_s);
    EXPECT_EQ(window.windowTitle(), u"SMITH.RPT[*] - kelforms"_s);
}

TEST_F(Window, FollowsWhatIsWritten)
{
    Service service(Line({m_home.MakeReport(u"smith"_s, u"UA5"_s)}));
    MainWindow window(service, false, false);
    window.show();
    Reports& reports = service.OpenReports();
    reports.SetCell(*reports.Active(), u"COMP46|5|5"_s, u"44 Elm St"_s);
    Turn();
    EXPECT_EQ(window.ShownPage(), u"COMP46"_s);
    EXPECT_TRUE(window.isWindowModified());
    reports.SetImage(*reports.Active(), u"CMP_5_3X5"_s, u"C:\\VASCLIPS\\JPG\\Other.jpg"_s);
    EXPECT_EQ(window.ShownPage(), u"COMP46"_s) << "the picture is shown beside the page";
    reports.SetImage(*reports.Active(), u"GN_8_3X5"_s, u"C:\\VASCLIPS\\JPG\\Other.jpg"_s);
    EXPECT_EQ(window.ShownPage(), u"GENPH03"_s);
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->text() == u"&Follow the link"_s) {
            action->setChecked(false);
        }
    }
    reports.SetCell(*reports.Active(), u"UA5|3|1"_s, u"7 Elm St"_s);
    EXPECT_EQ(window.ShownPage(), u"GENPH03"_s);
    Turn();
}

TEST_F(Window, AChangedCellIsPaintedInAnotherColourAndFades)
{
    Service service(Line({m_home.MakeReport(u"smith"_s, u"UA5"_s)}));
    MainWindow window(service, false, false);
    window.resize(1366, 768);
    window.show();
    Turn(60);
    const QImage before = window.grab().toImage();
    Reports& reports = service.OpenReports();
    reports.SetCell(*reports.Active(), u"UA5|3|1"_s, u"7 Elm St"_s);
    Turn(60);
    const QImage during = window.grab().toImage();
    const auto count = [](const QImage& image, QRgb colour) {
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                pixels += (image.pixel(x, y) & 0xffffff) == (colour & 0xffffff);
        }
        return pixels;
    };
    const QRgb flash = LightTheme().flash.rgb();
    EXPECT_LT(count(before, flash), 50);
    EXPECT_GT(count(during, flash), 2000);
    Turn(2700);
    EXPECT_LT(count(window.grab().toImage(), flash), 50);
    window.KeepGlow();
    reports.SetCell(*reports.Active(), u"UA5|3|1"_s, u"9 Elm St"_s);
    Turn(2700);
    EXPECT_GT(count(window.grab().toImage(), flash), 2000);
}

TEST_F(Window, ClosingAReportLetsItGo)
{
    Service service(Line({m_home.MakeReport(u"smith"_s, u"UA5"_s), m_home.MakeReport(u"jones"_s, u"CN2"_s)}));
    MainWindow window(service, true, false);
    window.show();
    service.OpenReports().Close(u"SMITH.RPT"_s);
    Turn();
    EXPECT_EQ(window.ShownReport(), u"JONES.RPT"_s);
    service.OpenReports().Close(u"JONES.RPT"_s);
    Turn();
    EXPECT_EQ(window.ShownReport(), u""_s);
    EXPECT_FALSE(window.grab().isNull());
}

TEST_F(Window, EveryPageOfEveryKindOfFormIsPainted)
{
    for (const QString& form : {u"UA5"_s, u"CN2"_s, u"MUL"_s, u"LAR"_s, u"MFH"_s, u"2055"_s, u"ERS"_s}) {
        const QString path = m_home.MakeReport(u"r"_s + form, form);
        Service service(Line({path}));
        MainWindow window(service, false, false);
        window.resize(1366, 768);
        const Report* report = service.OpenReports().Active();
        for (const QString& page : report->Forms()) {
            window.ShowPage(page);
            EXPECT_EQ(window.ShownPage(), page);
            const PageBoxes boxes = LayOut(*report, page, 800);
            QSet<QString> drawn;
            for (const Box& box : boxes.boxes) {
                EXPECT_GE(box.rect.left(), 0);
                EXPECT_LE(box.rect.right(), 800) << page.toStdString();
                EXPECT_LE(box.rect.bottom(), boxes.height);
                if (!box.key.isEmpty() && box.kind != Box::Kind::Picture && box.key.startsWith(page + u'|')) {
                    const CellAddress address = ReadItem(box.key);
                    EXPECT_TRUE(report->Layout(page)->HasCell(address.row, address.cell))
                        << box.key.toStdString();
                    drawn.insert(box.key);
                }
            }
            EXPECT_GT(boxes.boxes.size(), 1) << page.toStdString();
            for (int row = 1; row < 400; ++row) {
                for (int cell = 1; cell < 20; ++cell) {
                    const QString key = CellAddress{page, row, cell}.Key();
                    const bool caption = page.startsWith(u"GENPH"_s);
                    EXPECT_TRUE(caption || report->Layout(page)->HasCell(row, cell) == drawn.contains(key))
                        << key.toStdString();
                }
            }
        }
        EXPECT_FALSE(window.grab().isNull());
    }
}

TEST_F(Window, ACompsPhotoHasItsColumnBesideIt)
{
    Service service(Line({m_home.MakeReport(u"smith"_s, u"UA5"_s)}));
    const auto beside = [&service](const QString& page) {
        QStringList labels;
        for (const Box& box : LayOut(*service.OpenReports().Active(), page, 800).boxes) {
            if (box.kind == Box::Kind::Field)
                labels.append(box.text);
        }
        return labels.mid(0, labels.size() / 3);
    };
    EXPECT_EQ(beside(u"COMPPH1"_s), (QStringList{u"Address"_s, u"City, state, ZIP"_s, u"Proximity to subject"_s,
                                                 u"Sale price"_s, u"Gross living area"_s}));
    EXPECT_EQ(beside(u"LISTPH2"_s).value(3), u"List price"_s);
    EXPECT_EQ(beside(u"RENTPH1"_s).value(3), u"Monthly rent"_s);
    EXPECT_EQ(beside(u"GENPH04"_s), (QStringList{u"Description"_s, u"Address"_s}));
}

TEST_F(Window, AReportOfAnUnknownFormIsShownAsItsCells)
{
    Service service(Line({m_home.MakeReportOf(u"odd"_s, {u"ZZTOP"_s}, {{u"ZZTOP|9|9"_s, u"x"_s}})}));
    MainWindow window(service, false, false);
    EXPECT_EQ(window.ShownPage(), u"ZZTOP"_s);
    EXPECT_FALSE(LayOut(*service.OpenReports().Active(), u"ZZTOP"_s, 700).boxes.isEmpty());
    EXPECT_FALSE(window.grab().isNull());
}

TEST_F(Window, SaysWhoIsLinked)
{
    Service service(Line({}));
    service.Listen();
    const MainWindow window(service, false, false);
    EXPECT_TRUE(window.LinkWords().contains(u"Waiting for a program"_s));
    service.onClients(1);
    EXPECT_TRUE(window.LinkWords().contains(u"Linked to 1 program"_s));
    service.onClients(3);
    EXPECT_TRUE(window.LinkWords().contains(u"Linked to 3 programs"_s));
}

TEST_F(Window, TakesPicturesOnOrder)
{
    Service service(Line({m_home.MakeReport(u"smith"_s, u"UA5"_s)}));
    MainWindow window(service, false, false);
    window.show();
    Tour tour(window, m_place.path(), [&window](const QString& page) { window.ShowPage(page); });
    const auto order = [this](const QByteArray& text) {
        QFile file(m_place.filePath(u"order"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        ASSERT_TRUE(QFile::rename(file.fileName(), m_place.filePath(u"shoot"_s)));
        for (int i = 0; i < 100 && QFile::exists(m_place.filePath(u"shoot"_s)); ++i)
            Turn(20);
    };
    order("");
    EXPECT_EQ(QImage(m_place.filePath(u"kelforms-1.png"_s)).size(), window.size());
    order("page=COMP46\nname=../after drop\n");
    EXPECT_EQ(window.ShownPage(), u"COMP46"_s);
    EXPECT_TRUE(QFileInfo::exists(m_place.filePath(u"kelforms-afterdrop.png"_s)));
    tour.Shoot();
    EXPECT_TRUE(QFileInfo::exists(m_place.filePath(u"kelforms-2.png"_s)));
    EXPECT_THROW(SavePicture(window, u"/no/such/directory/x.png"_s), vasclip::RuntimeError);
}

} // namespace
