#include "platform/desktop/desktop.h"

#include "support/temp_home.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::desktop {
namespace {

using tests::TempHome;

TEST(FileVersions, StandBesideAFileThatCarriesNone)
{
    const TempHome home;
    home.Put(u"C:\\KEL\\Kel.exe"_s);
    const QString native = home.disk.ToNative(u"C:\\KEL\\KEL.EXE"_s);
    EXPECT_EQ(FileVersion(native), QString());
    home.Put(u"C:\\KEL\\Kel.exe.version"_s, "7.1.0.3\r\nmore\n");
    EXPECT_EQ(FileVersion(native), u"7.1.0.3"_s);
    home.disk.Kill(u"C:\\KEL\\Kel.exe"_s);
    EXPECT_EQ(FileVersion(native), QString()) << "without the file there is no version";
}

} // namespace
} // namespace vasclip::desktop
