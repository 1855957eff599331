#include "platform/files/disk.h"

#include "platform/text/runtime_error.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

namespace vasclip::files {
namespace {

using tests::TempHome;

TEST(Disk, FindsNamesWithoutRegardToCase)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\VasSnap\\Photo One.JPG"));
    EXPECT_TRUE(home.disk.FileExists(QStringLiteral("c:/VASSNAP/photo one.jpg")));
    EXPECT_EQ(home.disk.Dir(QStringLiteral("c:\\vassnap\\*.jpg")),
              QStringList{QStringLiteral("Photo One.JPG")});
}

} // namespace
} // namespace vasclip::files
