#include "photos/capture_pages.h"

#include <gtest/gtest.h>

namespace vasclip::photos {
namespace {

struct FirstRow
{
    const char* name;
    PageTurn turn;
    int listIndex, last, first;
};
class FirstIndex : public testing::TestWithParam<FirstRow>
{};
TEST_P(FirstIndex, OfAPage)
{
    EXPECT_EQ(FirstOfPage(GetParam().turn, GetParam().listIndex, GetParam().last), GetParam().first);
}
INSTANTIATE_TEST_SUITE_P(Rows, FirstIndex,
                         testing::Values(FirstRow{"First", PageTurn::First, 30, 40, 0},
                                         FirstRow{"Up", PageTurn::Up, 3, 40, 3},
                                         FirstRow{"Down", PageTurn::Down, 1, 12, 1},
                                         FirstRow{"LastOfFew", PageTurn::Last, 5, 11, 0},
                                         FirstRow{"LastWithinAPage", PageTurn::Last, 1, 12, 1},
                                         FirstRow{"LastAPageAway", PageTurn::Last, 0, 12, 0},
                                         FirstRow{"NoneSelected", PageTurn::None, -1, 40, 0},
                                         FirstRow{"NoneNine", PageTurn::None, 9, 40, 0},
                                         FirstRow{"NoneTen", PageTurn::None, 10, 40, 10}),
                         [](const auto& row) { return row.param.name; });

struct TurnRow
{
    const char* name;
    PageTurn turn;
    int p, last, thumbs, list;
};
class Turns : public testing::TestWithParam<TurnRow>
{};
TEST_P(Turns, MoveByTwelve)
{
    EXPECT_EQ(ThumbTurn(GetParam().turn, GetParam().p, GetParam().last), GetParam().thumbs);
    EXPECT_EQ(ListTurn(GetParam().turn, GetParam().p, GetParam().last), GetParam().list);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, Turns,
    testing::Values(TurnRow{"DownOfThirteen", PageTurn::Down, 0, 12, 1, 12},
                    TurnRow{"DownWithinReach", PageTurn::Down, 3, 40, 15, 15},
                    TurnRow{"DownToTheLastPage", PageTurn::Down, 16, 40, 29, 28},
                    TurnRow{"DownJustShort", PageTurn::Down, 15, 40, 27, 27},
                    TurnRow{"DownOfFew", PageTurn::Down, 0, 4, 0, 4},
                    TurnRow{"Up", PageTurn::Up, 20, 40, 8, 8}, TurnRow{"UpToZero", PageTurn::Up, 12, 40, 0, 0},
                    TurnRow{"UpBelow", PageTurn::Up, 5, 40, 0, 0},
                    TurnRow{"First", PageTurn::First, 20, 40, 0, 0},
                    TurnRow{"Last", PageTurn::Last, 0, 40, 29, 40},
                    TurnRow{"LastOfFew", PageTurn::Last, 0, 4, 0, 4},
                    TurnRow{"None", PageTurn::None, 7, 40, 7, 7}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace vasclip::photos
