#include "forms/system_ports.h"

#include "support/scripted_ports.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <set>

using namespace Qt::StringLiterals;

namespace vasclip::forms {
namespace {

struct App
{
    int argc = 1;
    char name[5] = "test";
    char* argv[2] = {name, nullptr};
    QCoreApplication app{argc, argv};
};

TEST(SystemClock, WaitTurnsTheQueueUntilTheTimeHasPassed)
{
    App app;
    SystemClock clock;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(5);
    QElapsedTimer measured;
    measured.start();
    clock.Wait(0.08);
    EXPECT_GE(measured.elapsed(), 80);
    EXPECT_GE(ticks, 3);
}

TEST(SystemClock, WaitOfNothingReturnsAtOnce)
{
    SystemClock clock;
    QElapsedTimer measured;
    measured.start();
    clock.Wait(0);
    clock.Wait(-5);
    EXPECT_LT(measured.elapsed(), 1000);
}

TEST(SystemClock, WaitsWithoutAnApplicationToo)
{
    SystemClock clock;
    QElapsedTimer measured;
    measured.start();
    clock.Wait(0.02);
    EXPECT_GE(measured.elapsed(), 20);
}

TEST(SystemClock, TellsTheTime)
{
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = SystemClock().Now();
    EXPECT_LE(before, now);
    EXPECT_LT(before.secsTo(now), 60);
    EXPECT_EQ(SystemClock().Today().isValid(), true);
}

TEST(QtEventPump, DeliversWhatIsQueued)
{
    QtEventPump pump;
    pump.DoEvents();
    App app;
    bool delivered = false;
    QMetaObject::invokeMethod(
        &app.app, [&] { delivered = true; }, Qt::QueuedConnection);
    EXPECT_FALSE(delivered);
    pump.DoEvents();
    EXPECT_TRUE(delivered);
}

TEST(SystemRandom, DrawsFromZeroToBelowOneWithoutRepeating)
{
    SystemRandom random;
    std::set<double> seen;
    for (int i = 0; i < 1000; ++i) {
        const double drawn = random.Rnd();
        ASSERT_GE(drawn, 0.0);
        ASSERT_LT(drawn, 1.0);
        ASSERT_EQ(static_cast<double>(static_cast<float>(drawn)), drawn);
        seen.insert(drawn);
    }
    EXPECT_GT(seen.size(), 990U);
}

TEST(Hourglass, ComesBackOnEveryWayOut)
{
    tests::FakeWindow window;
    try {
        const Hourglass glass(window);
        EXPECT_TRUE(window.hourglass);
        throw EndOfProgram{};
    } catch (const EndOfProgram&) {
        EXPECT_FALSE(window.hourglass);
    }
}

TEST(Prompter, ShortFormsShowPlainBoxes)
{
    tests::TestPorts ports;
    ports.prompter.Box(u"T"_s, u"plain"_s);
    ports.prompter.Info(u"T"_s, u"info"_s);
    ports.prompter.Answer(Answer::Yes);
    EXPECT_TRUE(ports.prompter.YesNo(u"T"_s, u"sure?"_s));
    ports.prompter.Answer(Answer::No);
    EXPECT_FALSE(ports.prompter.YesNo(u"T"_s, u"sure?"_s));
    const std::vector<tests::ShownBox> wanted{{Buttons::Ok, Icon::None, u"T"_s, u"plain"_s},
                                              {Buttons::Ok, Icon::Information, u"T"_s, u"info"_s},
                                              {Buttons::YesNo, Icon::Question, u"T"_s, u"sure?"_s},
                                              {Buttons::YesNo, Icon::Question, u"T"_s, u"sure?"_s}};
    EXPECT_EQ(ports.prompter.Boxes(), wanted);
    EXPECT_TRUE(ports.prompter.AllAnswered());
}

} // namespace
} // namespace vasclip::forms
