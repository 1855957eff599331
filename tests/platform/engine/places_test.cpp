#include "platform/engine/places.h"

#include <gtest/gtest.h>

#include <limits>

namespace vasclip::engine {
namespace {

void Expect(const std::vector<Bookmark>& bookmarks)
{
    const Places places(bookmarks);
    for (std::size_t i = 0; i < bookmarks.size(); ++i)
        EXPECT_EQ(places.Of(bookmarks[i]), static_cast<qint64>(i));
    for (const qint64 strange : {qint64{-77}, qint64{5}, std::numeric_limits<qint64>::max() - 1})
        EXPECT_EQ(places.Of(Bookmark{strange}), -1) << strange;
}

TEST(Places, OfNumbersCloseTogetherFarApartAndHuge)
{
    Expect({});
    Expect({Bookmark{3}, Bookmark{1}, Bookmark{2}});
    Expect({Bookmark{-3}, Bookmark{-1}, Bookmark{-2}});
    Expect({Bookmark{900}, Bookmark{7}, Bookmark{123'456'789'012}});
    // Nothing of the size of the numbers is allocated.
    Expect({Bookmark{std::numeric_limits<qint64>::max()}, Bookmark{std::numeric_limits<qint64>::min()},
            Bookmark{0}});
}

} // namespace
} // namespace vasclip::engine
