#include "platform/desktop/one_copy.h"

#include "support/temp_home.h"
#include "support/unix.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace vasclip::desktop {
namespace {

using tests::TempHome;

TEST(OneCopy, IsOneOnItsHome)
{
    const TempHome home;
    const TempHome elsewhere;
    auto first = std::make_unique<OneCopy>(home.disk.Home());
    EXPECT_TRUE(first->IsFirst());
    EXPECT_EQ(first->OtherProcess(), 0);
    {
        const OneCopy second(home.disk.Home());
        EXPECT_FALSE(second.IsFirst());
        EXPECT_EQ(second.OtherProcess(), QCoreApplication::applicationPid());
    }
    EXPECT_FALSE(OneCopy(home.disk.Home()).IsFirst()) << "a second one that went away takes nothing with it";
    EXPECT_TRUE(OneCopy(elsewhere.disk.Home()).IsFirst());
    first.reset();
    EXPECT_TRUE(OneCopy(home.disk.Home()).IsFirst());
}

TEST(OneCopy, AKilledCopyStandsNoMore)
{
    VASCLIP_NEEDS_UNIX("a process that divides in two");
    const TempHome home;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const OneCopy copy(home.disk.Home());
        const char answer = copy.IsFirst() ? 'y' : 'n';
        if (write(ready[1], &answer, 1) != 1)
            _exit(1);
        for (;;)
            pause();
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    const OneCopy meanwhile(home.disk.Home());
    EXPECT_FALSE(meanwhile.IsFirst());
    EXPECT_EQ(meanwhile.OtherProcess(), child);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(OneCopy(home.disk.Home()).IsFirst());
    close(ready[0]);
    close(ready[1]);
}

TEST(OneCopy, AHomeThatTakesNoMarkKeepsNobodyOut)
{
    const TempHome home;
    const OneCopy copy(home.Native(u"none"_s));
    EXPECT_TRUE(copy.IsFirst());
    EXPECT_EQ(copy.OtherProcess(), 0);
}

} // namespace
} // namespace vasclip::desktop
