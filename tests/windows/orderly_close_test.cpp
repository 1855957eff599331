#include "windows/orderly_close.h"

#include "databook/entry_screen.h"
#include "databook/load_comp_form.h"
#include "databook/messages.h"
#include "store/record.h"
#include "support/databook_home.h"
#include "upkeep/frm_maintenance.h"
#include "upkeep/frm_report_preview.h"
#include "upkeep/report_table.h"
#include "windows/guard.h"
#include "windows/screens.h"
#include "windows/window_desktop.h"
#include "windows/window_prompter.h"
#include "windows/window_pump.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

// The system wishes that the program ends while something stands in front of its window.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

class Closing : public tests::DatabookHome
{
protected:
    class Window : public QWidget
    {
    public:
        int closed = 0;

    protected:
        void closeEvent(QCloseEvent*) override { ++closed; }
    };

    WindowPrompter prompter{disk};
    EventGuard guard{prompter, {}};
    WindowScreens screens;
    forms::Ports real{prompter, doubles.pump, doubles.clock, doubles.random, doubles.window, screens};
    databook::EntryDesk desk{real, engine, path, table, {}, nullptr};
    Window main;
    OrderlyClose close{main};

    void SetUp() override
    {
        DatabookHome::SetUp();
        AddComps({u"101 OAK ST"_s});
        screens.SetGuard(&guard);
        screens.SetOwner(&main);
        prompter.SetOwner(&main);
        main.show();
    }
    /// Runs in whatever loop is at work by then.
    void Later(int milliseconds, const std::function<void()>& step)
    {
        QTimer::singleShot(milliseconds, &main, step);
    }
    static QMessageBox* Box() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }
    static void TypeACity()
    {
        auto* city = QApplication::activeModalWidget()->findChild<QLineEdit*>(u"txtCity"_s);
        ASSERT_NE(city, nullptr);
        city->setFocus();
        QTest::keyClicks(city, u"Bend"_s);
    }
    static void Press(QMessageBox::StandardButton button)
    {
        ASSERT_NE(Box(), nullptr);
        EXPECT_EQ(Box()->text(), databook::kChangesLost);
        QTest::mouseClick(Box()->button(button), Qt::LeftButton);
    }
    QString City()
    {
        const auto rows = engine.OpenDatabase(path)->OpenRecordset(table, engine::RecordsetType::Table);
        rows->SetIndex(key);
        rows->Seek(u"="_s, u"101 OAK ST"_s);
        return rows->Value(u"CITY"_s).toString();
    }
};

TEST_F(Closing, NothingInFrontClosesTheWindow)
{
    close.Start();
    EXPECT_EQ(main.closed, 1);
}

TEST_F(Closing, AnOpenBoxIsAnsweredAsItsCrossAnswersIt)
{
    Later(50, [&] { close.Start(); });
    EXPECT_EQ(prompter.MsgBox(forms::Buttons::YesNo, forms::Icon::Question, u"Delete"_s, u"For good?"_s),
              forms::Answer::No);
    QTest::qWait(50);
    EXPECT_EQ(main.closed, 1);
}

TEST_F(Closing, AnEntryScreenWithoutChangesGoesUnasked)
{
    Later(100, [&] { close.Start(); });
    databook::LoadCompForm(desk, u"101 OAK ST"_s, u"F"_s);
    QTest::qWait(50);
    EXPECT_EQ(main.closed, 1);
}

TEST_F(Closing, TypedTextIsAskedAboutAndStaysOnNo)
{
    Later(100, [&] {
        TypeACity();
        Later(100, [&] {
            QPointer<QMessageBox> question;
            Later(25, [&] { question = Box(); });
            Later(50, [&] { close.Start(); }); // a second wish while the question stands is none
            Later(150, [&] {
                EXPECT_FALSE(question.isNull()) << "it was not asked twice";
                Press(QMessageBox::No);
            });
            close.Start();
            EXPECT_EQ(main.closed, 0);
            auto* screen = QApplication::activeModalWidget();
            ASSERT_NE(screen, nullptr) << "the screen stays";
            bool again = false;
            Later(30, [&] {
                again = Box() != nullptr;
                if (again)
                    Press(QMessageBox::Yes);
            });
            QTest::qWait(60);
            ASSERT_FALSE(again) << "No is an answer";
            EXPECT_EQ(screen->findChild<QLineEdit*>(u"txtCity"_s)->text(), u"Bend"_s);
            QTest::mouseClick(screen->findChild<QPushButton*>(u"cmdSave"_s), Qt::LeftButton);
            Later(50, [&] { close.Start(); }); // stored now: nothing to ask
        });
    });
    EXPECT_TRUE(databook::LoadCompForm(desk, u"101 OAK ST"_s, u"F"_s));
    QTest::qWait(50);
    EXPECT_EQ(main.closed, 1);
    EXPECT_EQ(City(), u"Bend"_s);
}

TEST_F(Closing, ChangesThatMayGoEndTheProgram)
{
    Later(100, [&] {
        TypeACity();
        Later(100, [&] { Press(QMessageBox::Yes); });
        close.Start();
    });
    EXPECT_FALSE(databook::LoadCompForm(desk, u"101 OAK ST"_s, u"F"_s));
    QTest::qWait(50);
    EXPECT_EQ(main.closed, 1);
    EXPECT_EQ(City(), QString());
}

/// Turns the real queue, in which the system wishes the program's end at the second turn.
class WishingPump : public WindowPump
{
public:
    std::function<void()> wish;
    int turns = 0;

    void DoEvents() override
    {
        if (++turns == 2 && wish)
            wish();
        WindowPump::DoEvents();
    }
};

TEST_F(Closing, WorkInTheMiddleIsStoppedAndTheProgramEndsBehindIt)
{
    QStringList many;
    for (int i = 1000; i < 1400; ++i)
        many.append(u"%1 MANY ST"_s.arg(i));
    AddComps(many);
    store::DataSource source{engine, u"datDatabook"_s};
    Bind(source);
    source.Database().Execute(u"UPDATE COMPS SET LATITUDE = '45'"_s);
    WishingPump pump;
    WindowDesktop desktop;
    common::Globals globals;
    const forms::Ports work{prompter, pump, doubles.clock, doubles.random, desktop, screens};
    upkeep::frm_Maintenance screen({.repair = {work, source, globals, disk}});
    bool stood = false;
    pump.wish = [&] {
        close.Start();
        stood = screen.IsOpen() && QApplication::activeModalWidget() != nullptr;
    };
    Later(100, [&] {
        Later(100, [&] {
            ASSERT_NE(Box(), nullptr);
            QTest::mouseClick(Box()->button(QMessageBox::Yes), Qt::LeftButton);
        });
        QTest::mouseClick(QApplication::activeModalWidget()->findChild<QPushButton*>(u"cmdclearAnchors"_s),
                          Qt::LeftButton);
        EXPECT_EQ(screen.lblmsg.Caption(), u"Stopped. Every record is as it was."_s);
        Later(10000, [] { // what would wait for ever
            if (QWidget* left = QApplication::activeModalWidget())
                left->close();
        });
    });
    QElapsedTimer waited;
    waited.start();
    screens.ShowModal(screen);
    EXPECT_LT(waited.elapsed(), 10000) << "it went by itself";
    EXPECT_TRUE(stood) << "as long as the walk had not ended";
    QTest::qWait(100);
    EXPECT_EQ(main.closed, 1);
    EXPECT_EQ(store::ReadRecord(source, u"1399 MANY ST"_s)->Text(u"LATITUDE"_s), u"45"_s);
}

TEST_F(Closing, AReportThatIsSavedIsStoppedAndTheProgramEndsBehindIt)
{
    QStringList many;
    for (int i = 1000; i < 9000; ++i)
        many.append(u"%1 MANY ST"_s.arg(i));
    AddComps(many);
    common::Globals globals;
    globals.G_UserDir = u"C:\\"_s;
    globals.applicationIni = u"C:\\VAS2000.INI"_s;
    const QString report = u"C:\\Report_Brief.mdb"_s;
    const QString pdf = disk.ToNative(u"C:\\r.pdf"_s);
    static_cast<void>(upkeep::FillReport(engine, report, path, table, {}));
    WishingPump pump;
    WindowDesktop desktop;
    const forms::Ports work{prompter, pump, doubles.clock, doubles.random, desktop, screens};
    upkeep::frm_ReportPreview preview({work, engine, disk, globals, path}, report, u"brief"_s, u"SELECT * FROM COMPS"_s);
    bool stood = false;
    pump.wish = [&] {
        close.Start();
        stood = preview.IsOpen() && QApplication::activeModalWidget() != nullptr;
    };
    Later(100, [&] {
        preview.SavePdf(pdf);
        EXPECT_EQ(preview.lblmsg.Caption(), u"Stopped. Nothing was stored."_s);
        Later(5000, [] { // what would wait for ever
            if (QWidget* left = QApplication::activeModalWidget())
                left->close();
        });
    });
    QElapsedTimer waited;
    waited.start();
    screens.ShowModal(preview);
    EXPECT_LT(waited.elapsed(), 5000) << "it went by itself";
    EXPECT_TRUE(stood) << "as long as the work had not ended";
    QTest::qWait(100);
    EXPECT_EQ(main.closed, 1);
    EXPECT_FALSE(QFile::exists(pdf));
}

} // namespace
} // namespace vasclip::windows
