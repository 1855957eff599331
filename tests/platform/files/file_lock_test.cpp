#include "platform/files/file_lock.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <thread>

namespace vasclip::files {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(FileLock, HoldsAgainstAnotherAndTakesItsFileAlongWhenToldTo)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"A.LDB~"_s);
    FileLock first, second;
    ASSERT_TRUE(first.Take(path, 0, FileLock::After::Goes));
    EXPECT_FALSE(second.Take(path, 0, FileLock::After::Goes));
    EXPECT_TRUE(second.HeldByOther());
    EXPECT_FALSE(second.IsHeld());
    first.Release();
    EXPECT_FALSE(QFile::exists(path));
    ASSERT_TRUE(second.Take(path, 0));
    second.Release();
    EXPECT_TRUE(QFile::exists(path)) << "unless it stays";
}

/// Who waits has the old file open; once its holder has taken that away, a lock on it would hold against nobody.
TEST(FileLock, WhoWaitedHoldsTheFileThatIsThere)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"A.LDB~"_s);
    FileLock first, second, third;
    ASSERT_TRUE(first.Take(path, 0, FileLock::After::Goes));
    bool taken = false;
    constexpr int kLongMs = 10'000;
    std::thread waiter([&] { taken = second.Take(path, kLongMs, FileLock::After::Goes); });
    std::this_thread::sleep_for(std::chrono::milliseconds(300)); // time to stand in the queue
    first.Release();
    waiter.join();
    ASSERT_TRUE(taken);
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_FALSE(third.Take(path, 0, FileLock::After::Goes)) << "two hold the lock";
}

} // namespace
} // namespace vasclip::files
