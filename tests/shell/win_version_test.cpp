#include "shell/win_version.h"

#include <gtest/gtest.h>

namespace vasclip::shell {
namespace {

using namespace Qt::Literals::StringLiterals;

struct VersionRow
{
    const char* name;
    desktop::SystemVersion version;
    QString shown;
    bool vista;
};

class WinVersion : public testing::TestWithParam<VersionRow>
{};

TEST_P(WinVersion, HasItsName)
{
    const WinVersionName found = GetWinVersionName(GetParam().version);
    EXPECT_EQ(found.name, GetParam().shown);
    EXPECT_EQ(found.isVista, GetParam().vista);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WinVersion,
    testing::Values(VersionRow{"nt3", {3, 51, 0, true, {}}, u"Windows NT 3.x"_s, false},
                    VersionRow{"three", {3, 1, 0, false, {}}, u"Windows 3.x"_s, false},
                    VersionRow{"nt4", {4, 0, 0, true, {}}, u"Windows NT 4.0"_s, false},
                    VersionRow{"w95", {4, 0, 0, false, {}}, u"Windows 95"_s, false},
                    VersionRow{"w98", {4, 10, 0, false, {}}, u"Windows 98/Windows ME"_s, false},
                    VersionRow{"w2000", {5, 0, 0, true, u"SP\t4"_s}, u"Windows 2000 SP 4"_s, false},
                    VersionRow{"xp", {5, 1, 0, true, u"Caf\u00e9\x7f"_s}, u"Windows XP Caf  "_s, false},
                    VersionRow{"server", {5, 2, 0, true, u"SP1"_s}, QString(), false},
                    VersionRow{"vista", {6, 0, 0, true, {}}, u"Windows Vista "_s, true},
                    VersionRow{"seven", {6, 1, 0, true, {}}, u"Windows Vista "_s, true},
                    VersionRow{"ten", {10, 0, 0, true, {}}, u"Unknown Windows Version"_s, false},
                    VersionRow{"none", {}, u"Unknown Windows Version"_s, false}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace vasclip::shell
