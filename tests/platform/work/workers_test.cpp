#include "platform/work/inline_workers.h"
#include "platform/work/thread_workers.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>

namespace vasclip::work {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSoon = 10'000;

/// Turns the queue until it is so, or ten seconds are over.
bool Until(const std::function<bool()>& holds)
{
    for (const QDeadlineTimer end(kSoon); !holds();) {
        if (end.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(1);
    }
    return true;
}

class WorkersTest : public testing::Test
{
protected:
    int noArguments = 0;
    QCoreApplication app{noArguments, nullptr};
    ThreadWorkers workers{1};
    CancelToken token;
};

TEST_F(WorkersTest, AJobRunsBesideAndIsDoneHere)
{
    Qt::HANDLE worked = nullptr;
    Qt::HANDLE told = nullptr;
    workers.Run([&](const CancelToken&) { worked = QThread::currentThreadId(); },
                [&] { told = QThread::currentThreadId(); }, token);
    ASSERT_TRUE(Until([&] { return told != nullptr; }));
    EXPECT_EQ(told, QThread::currentThreadId());
    EXPECT_NE(worked, told);
}

TEST_F(WorkersTest, NewsComeInTheirOrderAndBeforeTheEnd)
{
    QStringList news;
    workers.Run(
        [&](const CancelToken& own) {
            for (const QString& piece : {QString(u'a'), QString(u'b')})
                workers.Tell([&news, piece] { news.append(piece); }, own);
        },
        [&] { news.append(QString(u'z')); }, token);
    ASSERT_TRUE(Until([&] { return news.contains(u'z'); }));
    EXPECT_EQ(news.join(u' '), u"a b z"_s);
}

TEST_F(WorkersTest, JobsBeginInTheOrderOfAsking)
{
    QString begun;
    int done = 0;
    for (const QChar name : {u'1', u'2', u'3'})
        workers.Run([&begun, name](const CancelToken&) { begun += name; }, [&] { ++done; }, token);
    ASSERT_TRUE(Until([&] { return done == 3; }));
    EXPECT_EQ(begun, u"123"_s);
}

TEST_F(WorkersTest, ACancelledJobIsAskedToEndAndTellsNothingMore)
{
    QSemaphore begun;
    bool told = false;
    bool secondBegan = false;
    workers.Run(
        [&](const CancelToken& own) {
            workers.Tell([&] { told = true; }, own);
            begun.release();
            while (!own.Cancelled())
                QThread::msleep(1);
        },
        [&] { told = true; }, token);
    workers.Run([&](const CancelToken&) { secondBegan = true; }, [&] { told = true; }, token);
    ASSERT_TRUE(begun.tryAcquire(1, kSoon));
    token.Cancel();
    token.Wait();
    // What comes after it shows that the queue went on.
    bool after = false;
    workers.Run([](const CancelToken&) {}, [&] { after = true; }, CancelToken());
    ASSERT_TRUE(Until([&] { return after; }));
    EXPECT_FALSE(secondBegan);
    EXPECT_FALSE(told);
}

TEST_F(WorkersTest, WaitReturnsWhenTheLastJobOfTheTokenHasEnded)
{
    ThreadWorkers two(2);
    QSemaphore begun;
    std::atomic<int> ended = 0;
    for (int i = 0; i < 2; ++i)
        two.Run(
            [&](const CancelToken&) {
                begun.release();
                QThread::msleep(50);
                ++ended;
            },
            {}, token);
    ASSERT_TRUE(begun.tryAcquire(2, kSoon));
    token.Wait();
    EXPECT_EQ(ended, 2);
}

TEST_F(WorkersTest, WorkersThatGoWaitForWhatRunsAndForgetTheRest)
{
    std::atomic<int> ended = 0;
    bool told = false;
    {
        ThreadWorkers going(1);
        QSemaphore begun;
        const auto job = [&](const CancelToken&) {
            begun.release();
            QThread::msleep(30);
            ++ended;
        };
        for (int i = 0; i < 3; ++i)
            going.Run(job, [&] { told = true; }, token);
        ASSERT_TRUE(begun.tryAcquire(1, kSoon));
    }
    EXPECT_EQ(ended, 1);
    QCoreApplication::processEvents();
    EXPECT_FALSE(told);
}

TEST(InlineWorkersTest, EverythingIsDoneOnReturn)
{
    InlineWorkers workers;
    const CancelToken token;
    QString said;
    workers.Run(
        [&](const CancelToken& own) {
            said += u'a';
            workers.Tell([&] { said += u'b'; }, own);
        },
        [&] { said += u'c'; }, token);
    EXPECT_EQ(said, u"abc"_s);
    workers.Run([&](const CancelToken& own) { own.Cancel(); }, [&] { said += u'd'; }, token);
    workers.Run([&](const CancelToken&) { said += u'e'; }, {}, token);
    EXPECT_EQ(said, u"abc"_s);
}

} // namespace
} // namespace vasclip::work
