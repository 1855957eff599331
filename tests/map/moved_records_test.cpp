#include "map/moved_records.h"

#include "map/map_test.h"

namespace vasclip::map {

namespace {

/// Finds what it is told; a place that is not sure is one that may be meant.
class KnownPlaces : public street::Geocoder
{
public:
    KnownPlaces(std::initializer_list<std::pair<QString, Place>> places)
        : m_places(places)
    {}
    bool sure = true;

    [[nodiscard]] std::vector<street::Candidate> Find(const QString& address, int) const override
    {
        for (const auto& [key, place] : m_places) {
            street::Candidate found;
            found.place = place;
            found.sure = sure;
            if (address.startsWith(key))
                return {found};
        }
        return {};
    }
    [[nodiscard]] std::vector<street::Candidate> Near(Place, double) const override { return {}; }

private:
    QList<std::pair<QString, Place>> m_places;
};

/// 0.001 degrees from south to north are 364 feet.
constexpr Place kHere{32'460'000, -86'470'000};
constexpr Place kNear{32'460'800, -86'470'000};
constexpr Place kFar{32'461'000, -86'470'000};
constexpr Place kFarther{32'462'000, -86'470'000};

Fields At(const QString& latitude)
{
    return {{u"LATITUDE"_s, latitude}, {u"LONGITUDE"_s, u"-86.47"_s}};
}

class MovedRecords : public MapTest
{
protected:
    static QStringList Lines(const MoveTally& tally)
    {
        QStringList lines;
        for (const MovedRecord& record : tally.moved)
            lines.append(WordsOf(record));
        return lines;
    }
};

TEST_F(MovedRecords, StandMoreThan300FeetFromTheirStoredPlace)
{
    AddTown(u"1 Oak St"_s, At(u"32.46"_s));
    AddTown(u"2 Oak St"_s, At(u"32.46"_s));
    AddTown(u"3 Oak St"_s, At(u"32.46"_s));
    AddTown(u"4 Oak St"_s, Anchor(u"32.46"_s, u"-86.47"_s));
    AddTown(u"5 Oak St"_s);
    AddComp(u"6 Oak St"_s, At(u"32.46"_s));
    const KnownPlaces maps{{u"1 OAK ST"_s, kNear}, {u"2 OAK ST"_s, kFar},  {u"3 OAK ST"_s, kFarther},
                           {u"4 OAK ST"_s, kFar},  {u"5 OAK ST"_s, kFar}, {u"6 OAK ST"_s, kFar}};
    const MoveTally tally = CompareMaps(desk, nullptr, maps);
    EXPECT_EQ(Lines(tally), (QStringList{u"3 OAK ST: 728 feet, from 32.46 -86.47 to 32.462 -86.47"_s,
                                         u"2 OAK ST: 364 feet, from 32.46 -86.47 to 32.461 -86.47"_s}));
    EXPECT_EQ(WordsOf(tally), u"2 records would move by more than 300 feet; 1 stays, 1 is anchored and never moves; 2 "
                              "have no place or no whole address"_s);
}

TEST_F(MovedRecords, WithoutAStoredPlaceStandWhereTheMapsInUseHaveThem)
{
    AddTown(u"1 Oak St"_s);
    AddTown(u"2 Oak St"_s);
    AddTown(u"3 Oak St"_s);
    const KnownPlaces before{{u"1 OAK ST"_s, kHere}, {u"2 OAK ST"_s, kHere}};
    const KnownPlaces after{{u"1 OAK ST"_s, kFar}, {u"2 OAK ST"_s, kHere}, {u"3 OAK ST"_s, kFar}};
    const MoveTally tally = CompareMaps(desk, &before, after);
    EXPECT_EQ(Lines(tally), QStringList{u"1 OAK ST: 364 feet, from 32.46 -86.47 to 32.461 -86.47"_s});
    EXPECT_EQ(tally.stay, 1);
    EXPECT_EQ(tally.unplaced, 1);
}

TEST_F(MovedRecords, ThatAreNotFoundAnyMoreAreNamed)
{
    AddTown(u"1 Oak St"_s, At(u"32.46"_s));
    AddTown(u"2 Oak St"_s, At(u"32.46"_s));
    KnownPlaces before{{u"1 OAK ST"_s, kHere}};
    KnownPlaces after{{u"1 OAK ST"_s, kHere}};
    after.sure = false;
    const MoveTally tally = CompareMaps(desk, &before, after);
    EXPECT_EQ(Lines(tally), QStringList{u"1 OAK ST: not found; it keeps 32.46 -86.47"_s});
    EXPECT_EQ(tally.stay, 1) << "neither of the maps has it, so nothing is taken from it";
    EXPECT_TRUE(WordsOf(tally).contains(u"1 is not found"_s)) << WordsOf(tally).toStdString();
}

TEST_F(MovedRecords, AreLookedForUntilAStop)
{
    for (int n = 1; n <= 5; ++n)
        AddTown(u"%1 Oak St"_s.arg(n), At(u"32.46"_s));
    const KnownPlaces maps{{u"1 OAK ST"_s, kFar}, {u"2 OAK ST"_s, kFar}, {u"3 OAK ST"_s, kFar}};
    QList<std::pair<qint64, qint64>> told;
    const MoveTally tally = CompareMaps(desk, nullptr, maps, [&told](qint64 seen, qint64 of) {
        told.append({seen, of});
        return seen < 2;
    });
    EXPECT_EQ(told, (QList<std::pair<qint64, qint64>>{{0, 5}, {1, 5}, {2, 5}}));
    EXPECT_EQ(tally.moved.size(), 2);
    EXPECT_TRUE(WordsOf(tally).endsWith(u"stopped after 2 of 5"_s)) << WordsOf(tally).toStdString();
}

} // namespace

} // namespace vasclip::map
