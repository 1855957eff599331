#include "keys.h"
#include "link/link_desk.h"
#include "link/talk.h"
#include "platform/conduit/socket_conduit.h"
#include "platform/engine/database.h"
#include "report_windows.h"
#include "slow_peer.h"
#include "support/wine.h"
#include "windows/window_pump.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QTabBar>
#include <QTabWidget>
#include <QWindow>

// The real window over the real link, with a forms program that takes its time for each answer.

namespace vasclip::windows {
namespace {

using namespace Qt::Literals::StringLiterals;

struct OwnWire
{
    WindowPump pump;
    link::Talk talk;
    std::unique_ptr<QTemporaryDir> directory = std::make_unique<QTemporaryDir>();
    QString path = directory->path() + u"/forms.sock"_s;
    std::unique_ptr<conduit::Conduit> wire =
        conduit::MakeSocketConduit({.socketPath = path, .timeLimitMs = 5000, .patience = &talk});
};

class SlowLink : protected OwnWire, public ReportWindows
{
protected:
    SlowLink()
        : ReportWindows(Own{nullptr, &pump, wire.get(), &talk})
    {}

    SlowPeer peer{conduit, path};
    forms::DropPort& drops{main.drags.Router()};
    int within = 0; ///< turns of the queue in which the conversation was still on

    void SetUp() override
    {
        ReportWindows::SetUp();
        for (const QString& mark : {u"Added"_s, u"Full"_s, u"Empty"_s}) {
            QImage lamp(8, 8, QImage::Format_RGB32);
            lamp.fill(Qt::red);
            ASSERT_TRUE(lamp.save(home.disk.ToNative(u"C:\\VAS2000\\Addendum_%1.bmp"_s.arg(mark))));
        }
        Add(shell::kDatabook, u"COMPS"_s,
            {{u"CENTRALKEY"_s, u"7 ELM ST"_s.leftJustified(35)},
             {u"ADDRESS"_s, u"7 Elm St"_s},
             {u"GLA"_s, u"990"_s}});
        StartProgram();
        ASSERT_TRUE(main.linkState.linkActive);
        ASSERT_EQ(main.addr.txtKelReport.Text(), u"SMITH"_s);
        talk.hold = [this](bool on) { pump.Hold(on); };
        pump.SetStop([this] { talk.Cancel(); });
        MakeMainWindow(drops);
        mainWindow->show();
        mainWindow->BuildAllPages();
        ASSERT_TRUE(Activate(*mainWindow));
    }

    /// Does `meanwhile` once the window shows that it waits, within the conversation that `work` leads.
    void During(const std::function<void()>& work, const std::function<void()>& meanwhile,
                const std::function<bool()>& when = [] { return true; })
    {
        bool done = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            if (!talk.On() || !Stop().isVisible() || !when())
                return;
            ++within;
            if (!std::exchange(done, true))
                meanwhile();
        });
        watch.start(5);
        work();
        EXPECT_TRUE(done) << "the window never showed that it waits";
    }
    QAbstractButton& Stop() { return *mainWindow->findChild<QAbstractButton*>(u"cmdStop"_s); }
    QProgressBar& Gauge() { return *mainWindow->findChild<QProgressBar*>(u"gauStatus"_s); }
    [[nodiscard]] QString Said() { return mainWindow->findChild<QLabel*>(u"lblmsg"_s)->text(); }
    void Refresh() { QTest::mouseClick(mainWindow->findChild<QAbstractButton*>(u"imaKel"_s), Qt::LeftButton); }
    /// By the menu of the slot.
    void Swap(int comp, int other)
    {
        ASSERT_NE(main.MenuOver(main.report.txtComp(comp)), nullptr);
        main.popUps.Swap(other);
    }
    void DropElmOnComp(int n)
    {
        int row = 0;
        while (row < 2 && !main.records.grddatabook.CurrentText(u"CENTRALKEY"_s).startsWith(u"7 ELM"_s))
            main.records.grddatabook.SetRow(row++);
        drops.Begin(main.records.grddatabook, 0);
        drops.Drop(main.records.grddatabook, main.report.txtComp(n));
    }
};

/// Counts what it paints.
class PaintCount : public QObject
{
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(SlowLink, AClickOnAPageThatTheReportDoesNotHaveSnapsBack)
{
    main.report.TabData.SetTab(1);
    auto* book = mainWindow->findChild<QTabWidget*>(u"TabComp"_s);
    ASSERT_EQ(book->tabText(4), u"N/A"_s);
    for (const int there : {0, 3})
        for (const int missing : {1, 2, 4}) {
            QTest::mouseClick(book->tabBar(), Qt::LeftButton, {}, book->tabBar()->tabRect(there).center());
            ASSERT_EQ(book->currentIndex(), there);
            QTest::mouseClick(book->tabBar(), Qt::LeftButton, {}, book->tabBar()->tabRect(missing).center());
            EXPECT_EQ(book->currentIndex(), there) << missing;
            EXPECT_EQ(main.report.TabComp.Tab(), there) << missing;
        }
}

TEST_F(SlowLink, ARefreshPaintsShowsItsStepAndGoesToItsEnd)
{
    peer.delayMs = 100;
    QString step;
    PaintCount label;
    mainWindow->findChild<QLabel*>(u"recordCount"_s)->installEventFilter(&label);
    During([this] { Refresh(); },
           [&] {
               step = Gauge().format() + main.status.gauProgress.Caption();
               label.paints = 0;
               mainWindow->findChild<QLabel*>(u"recordCount"_s)->update();
           });
    EXPECT_FALSE(step.isEmpty());
    EXPECT_GE(label.paints, 1) << "the window is frozen";
    EXPECT_EQ(main.report.txtComp(1).Text(), u"12 Oak St"_s);
    EXPECT_FALSE(Stop().isVisible());
    EXPECT_EQ(main.status.gauProgress.Caption(), QString());
}

TEST_F(SlowLink, ACancelledRefreshEndsAtOnceAndShowsNoHalfReport)
{
    peer.delayMs = 100;
    int before = 0;
    During([this] { Refresh(); },
           [&] {
               before = peer.exchanges;
               QTest::mouseClick(&Stop(), Qt::LeftButton);
           },
           [this] { return !main.report.txtSubject.Text().isEmpty() || main.linkState.linkActive; });
    EXPECT_LE(peer.exchanges, before + 1) << "only the exchange at work may end";
    EXPECT_EQ(Said(), u"The refresh was cancelled. The tabs show no report until it is read again."_s);
    EXPECT_EQ(main.report.txtComp(1).Text(), QString());
    EXPECT_EQ(main.addr.txtKelReport.Text(), QString());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    peer.delayMs = 0;
    Refresh();
    EXPECT_EQ(main.report.txtComp(1).Text(), u"12 Oak St"_s);
}

TEST_F(SlowLink, ARefreshThatIsCancelledWhenItHasReadSomeAddressesShowsNoneOfThem)
{
    conduit.Answer(shell::kReport, u"CMP|1|1"_s, u"99 New St"_s);
    peer.delayMs = 100;
    During([this] { Refresh(); }, [this] { QTest::mouseClick(&Stop(), Qt::LeftButton); },
           [this] { return main.addr.txtCompAddr(1).Text() == u"99 New St"_s; });
    EXPECT_EQ(Said(), u"The refresh was cancelled. The tabs show no report until it is read again."_s);
    EXPECT_EQ(main.report.txtComp(1).Text(), QString());
    EXPECT_EQ(main.addr.txtCompAddr(1).Text(), QString());
    EXPECT_EQ(main.addr.txtKelReport.Text(), QString());
    EXPECT_FALSE(main.linkState.linkActive);
}

TEST_F(SlowLink, ManyAnswersThatAreEachALittleLateShowTheStepAndEndAtCancelToo)
{
    peer.delayMs = 40; // none of them is waited for long enough to turn the queue
    int before = 0;
    During([this] { Refresh(); },
           [&] {
               before = peer.exchanges;
               QTest::mouseClick(&Stop(), Qt::LeftButton);
           });
    EXPECT_EQ(peer.exchanges, before) << "nothing is sent behind the click";
    EXPECT_EQ(Said(), u"The refresh was cancelled. The tabs show no report until it is read again."_s);
}

TEST_F(SlowLink, EscCancelsASendWhichTellsHowFarItGot)
{
    peer.delayMs = 120;
    During([this] { DropElmOnComp(2); }, [this] { QTest::keyClick(&*mainWindow, Qt::Key_Escape); },
           [this] { return peer.pokesBegun >= 1; }); // the exchange at work still ends
    EXPECT_EQ(peer.pokes, conduit.pokes.size());
    EXPECT_EQ(conduit.pokes.size(), 1);
    EXPECT_EQ(Said(), u"Cancelled: fields of 7 ELM ST sent so far: 1 of 2. They stay in the report. Send it again to "
                      u"send them all."_s);
    EXPECT_EQ(main.report.txtComp(2).Text(), u"7 Elm St"_s) << "its address is in the report";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    peer.delayMs = 0;
    DropElmOnComp(2);
    EXPECT_EQ(Said(), u"7 Elm St is in the report now. It has no front view."_s);
}

TEST_F(SlowLink, NothingIsEnteredASecondTimeAndTheWindowClosesAfterwards)
{
    peer.delayMs = 100;
    bool unloaded = false, closedWithin = false;
    QObject::connect(&*mainWindow, &MainWindow::Unload, &*mainWindow, [&] {
        unloaded = true;
        closedWithin = talk.On();
    });
    During([this] { DropElmOnComp(2); },
           [&] {
               const int before = peer.exchanges;
               Refresh();
               QTest::keyClick(&*mainWindow, Qt::Key_Delete);
               EXPECT_LE(peer.exchanges, before + 1);
               QCloseEvent close;
               QCoreApplication::sendEvent(mainWindow->windowHandle(), &close);
               EXPECT_TRUE(mainWindow->isVisible());
           });
    EXPECT_EQ(conduit.pokes.size(), 2) << "the send went to its end";
    EXPECT_FALSE(main.linkState.refreshing);
    EXPECT_TRUE(QTest::qWaitFor([&] { return unloaded; })) << "the wish to close came back";
    EXPECT_FALSE(closedWithin);
}

TEST_F(SlowLink, AfterTheLimitItAsksWhetherToGoOn)
{
    peer.delayMs = 100;
    talk.SetLimit(300);
    doubles.prompter.Answer(forms::Answer::Yes);
    doubles.prompter.Answer(forms::Answer::No);
    Refresh();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U);
    EXPECT_EQ(doubles.prompter.Last().title, u"The forms program is slow"_s);
    EXPECT_EQ(Said(), u"The refresh was cancelled. The tabs show no report until it is read again."_s);
}

TEST_F(SlowLink, WhoHasCancelledIsNotAskedWhetherToGoOn)
{
    peer.delayMs = 400;
    talk.SetLimit(200); // over when the exchange at work is
    doubles.prompter.AnswerAlways(forms::Answer::No);
    During([this] { Refresh(); }, [this] { QTest::mouseClick(&Stop(), Qt::LeftButton); });
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Said(), u"The refresh was cancelled. The tabs show no report until it is read again."_s);
}

TEST_F(SlowLink, ASwapAndASaveSayWhatTheyAreInTheGauge)
{
    peer.delayMs = 100;
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    QStringList told;
    const auto note = [&] { told.append(main.status.gauProgress.Caption()); };
    main.report.TabData.SetTab(1);
    During([this] { Swap(1, 2); }, [&] {
        note();
        QTest::mouseClick(&Stop(), Qt::LeftButton);
    });
    EXPECT_EQ(told.value(0), u"Swapping comps 1 and 2"_s);
    EXPECT_EQ(Said(), u"Cancelled: nothing was sent."_s);
    EXPECT_TRUE(conduit.commands.filter(u"SWAPCOMPS"_s).isEmpty());
    During(
        [this] {
            drops.Begin(main.report.txtComp(1), 0);
            drops.Drop(main.report.txtComp(1), main.records.grddatabook);
        },
        note);
    EXPECT_FALSE(told.value(1).contains(u"Sending"_s)) << told.value(1).toStdString();
    EXPECT_FALSE(told.value(1).isEmpty());
}

TEST_F(SlowLink, AFastOneShowsNoGaugeAndTurnsNothing)
{
    bool seen = false;
    QObject::connect(&main.status.cmdStop, &forms::Control::Changed, &main, [&] {
        seen = seen || main.status.cmdStop.Visible();
    });
    QElapsedTimer took;
    took.start();
    DropElmOnComp(3);
    EXPECT_EQ(Said(), u"7 Elm St is in the report now. It has no front view."_s);
    if (tests::UnderWine() && took.hasExpired(link::Talk::kSlowMs))
        GTEST_SKIP() << "the exchanges under Wine were no fast ones";
    EXPECT_FALSE(seen);
}

TEST_F(SlowLink, ATransferIsCancelledBetweenTwoExchanges)
{
    peer.delayMs = 100;
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    During([this] { main.mnuTransferItem.Choose(u"mnuTransferItem"_s, 3); },
           [this] { QTest::mouseClick(&Stop(), Qt::LeftButton); });
    EXPECT_EQ(Said(), u"Nothing was stored, the rest was left alone."_s);
    EXPECT_FALSE(Records().contains(u"3 ALT ST"_s));
}

} // namespace
} // namespace vasclip::windows
