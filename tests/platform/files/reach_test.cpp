#include "platform/files/reach.h"

#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vasclip::files {
namespace {

using namespace Qt::Literals::StringLiterals;
using std::chrono_literals::operator""ms;

class ReachTest : public testing::Test
{
protected:
    tests::TempHome home;
    int slow = 0, turns = 0;

    void Wait(const QString& path, std::chrono::milliseconds patience, const std::function<void()>& turn = {})
    {
        Reach(home.disk, path, patience, [this] { ++slow; },
              [&] {
                  ++turns;
                  if (turn)
                      turn();
              });
    }
};

TEST_F(ReachTest, WhatIsThereAtOnceIsNotWaitedFor)
{
    home.Put(u"C:\\A.TXT"_s, "a");
    for (const QString& path : {u"C:\\A.TXT"_s, u"C:\\"_s, u"C:\\NONE\\B.TXT"_s, u"Q:\\B.TXT"_s, QString()})
        Wait(path, 20'000ms);
    EXPECT_EQ(slow, 0);
    EXPECT_EQ(turns, 0);
}

TEST_F(ReachTest, ASlowDiskIsToldOnceAndTheCallerTurnsUntilItAnswers)
{
    // A pipe without a writer keeps who opens it standing, as a disk does that has to spin up.
    const QByteArray pipe = home.disk.ToNative(u"C:\\SLOW.MDB"_s).toLocal8Bit();
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    Wait(u"C:\\SLOW.MDB"_s, 1ms, [&] {
        EXPECT_EQ(slow, 1);
        if (turns == 2)
            close(open(pipe.constData(), O_WRONLY | O_NONBLOCK));
    });
    EXPECT_EQ(slow, 1);
    EXPECT_GE(turns, 2);
}

} // namespace
} // namespace vasclip::files
