#include "platform/street/shields.h"

#include <gtest/gtest.h>

namespace vasclip::street {
namespace {

struct Row
{
    const char* names; ///< "|" between them
    const char* state;
    const char* shield;
};

class Shields : public testing::TestWithParam<Row>
{};

TEST_P(Shields, AreTheNumberOfTheRoad)
{
    const Row& row = GetParam();
    EXPECT_EQ(ShieldOf(QString::fromUtf8(row.names).split(u'|'), QString::fromUtf8(row.state)).toStdString(),
              row.shield)
        << row.names;
}

INSTANTIATE_TEST_SUITE_P(Names, Shields,
                         testing::Values(Row{"I- 65", "AL", "I 65"}, Row{"I-65", "AL", "I 65"},
                                         Row{"Interstate 65", "AL", "I 65"}, Row{"I 35E", "TX", "I 35E"},
                                         Row{"US Hwy 31", "AL", "US 31"}, Row{"US Highway 31 N", "AL", "US 31"},
                                         Row{"U.S. Route 7", "VT", "US 7"}, Row{"US 82", "AL", "US 82"},
                                         Row{"State Hwy 360", "MT", "MT 360"}, Row{"State Rte 14", "AL", "AL 14"},
                                         Row{"SR 14", "AL", "AL 14"}, Row{"State Route 14", "", "SR 14"},
                                         Row{"AL 14", "", "AL 14"}, Row{"Co Rd 4", "AL", "CR 4"},
                                         Row{"County Road 40 W", "AL", "CR 40"},
                                         Row{"Memorial Dr|US 31;AL 14", "AL", "US 31"},
                                         Row{"Main St", "AL", ""}, Row{"", "AL", ""}, Row{"14th St", "AL", ""},
                                         Row{"State Hwy", "AL", ""}, Row{"Interstate Park 7 Dr", "AL", ""},
                                         Row{"Hwy 360", "MT", ""}, Row{"OK 4 Kids Ln", "OK", ""},
                                         Row{"US Hwy 123456789", "AL", ""}));

} // namespace
} // namespace vasclip::street
