#include "platform/street/address_parser.h"
#include "platform/street/geocode.h"
#include "platform/street/geocode_line.h"

#include "platform/street/map_samples.h"
#include "platform/street/sample_pack.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr double kFortyMetres = 131.2;

std::vector<QStringList> Rows(const QString& name)
{
    std::vector<QStringList> rows;
    QFile file(test::MapSample(name));
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).remove(u'\n');
        if (!line.startsWith(u'#') && !line.startsWith(u"id\t"))
            rows.push_back(line.split(u'\t'));
    }
    return rows;
}

Place At(const QString& latitude, const QString& longitude)
{
    return {static_cast<qint32>(std::lround(latitude.toDouble() * 1e6)),
            static_cast<qint32>(std::lround(longitude.toDouble() * 1e6))};
}

const test::SamplePack* Prattville()
{
    static const std::unique_ptr<test::SamplePack> pack = [] {
        const QString path = test::MapSample(u"prattville_al/prattville_addrfeat.shp"_s);
        return path.isEmpty() ? nullptr
                              : test::MakePack(u"01001"_s, u"AL"_s, test::ReadAddrFeat(path.chopped(4)), {},
                                               {{u"Prattville"_s, PlaceKind::City, 33960, {32464000, -86459700}, {}},
                                                {u"Autaugaville"_s, PlaceKind::Town, 870, {32433800, -86654700}, {}}});
    }();
    return pack.get();
}

TEST(TheSampleOfPrattville, IsFoundWhereItIs)
{
    if (Prattville() == nullptr)
        GTEST_SKIP() << "the shared street data is not here";
    const MapGeocoder geocoder(*Prattville()->maps);
    struct Tally
    {
        int asked = 0;
        int hit = 0;
        int sure = 0;
        std::vector<double> feet;
    };
    std::map<QString, Tally> tallies;
    for (const QStringList& row : Rows(u"prattville_al/geocode_examples.tsv"_s)) {
        Tally& tally = tallies[row.at(1)];
        ++tally.asked;
        const std::vector<Candidate> found = geocoder.Find(row.at(2));
        if (row.at(1) == u"outofrange") {
            if (found.empty())
                ++tally.hit;
            else
                std::cout << row.at(2).toStdString() << ": " << found[0].address.toStdString() << '\n';
            continue;
        }
        const double feet = found.empty() ? 1e9 : PlaneFeet(found[0].place, At(row.at(8), row.at(9)));
        if (feet <= kFortyMetres) {
            ++tally.hit;
            tally.feet.push_back(feet);
        } else {
            std::cout << row.at(2).toStdString() << ": "
                      << (found.empty() ? "nothing" : found[0].address.toStdString() + ", feet " + std::to_string(feet))
                      << '\n';
        }
        if (!found.empty() && found[0].sure)
            ++tally.sure;
    }
    for (auto& [kind, tally] : tallies) {
        std::sort(tally.feet.begin(), tally.feet.end());
        const double median = tally.feet.empty() ? 0 : tally.feet[tally.feet.size() / 2];
        std::cout << kind.toStdString() << ": " << tally.hit << " of " << tally.asked << ", sure " << tally.sure
                  << ", median " << median << " feet, worst " << (tally.feet.empty() ? 0 : tally.feet.back()) << '\n';
        EXPECT_EQ(tally.hit, tally.asked) << kind.toStdString();
        EXPECT_LT(median, 50) << kind.toStdString();
    }
}

TEST(TheSampleOfPrattville, IsKnownFromItsPlaces)
{
    if (Prattville() == nullptr)
        GTEST_SKIP() << "the shared street data is not here";
    const MapGeocoder geocoder(*Prattville()->maps);
    for (const QStringList& row : Rows(u"prattville_al/reverse_examples.tsv"_s)) {
        const std::vector<Candidate> found = geocoder.Near(At(row.at(1), row.at(2)));
        ASSERT_FALSE(found.empty()) << row.join(u' ').toStdString();
        const Address address = ParseAddress(found[0].address);
        const int number = row.at(4).toInt();
        EXPECT_EQ(address.street.Text(), ParseStreet(row.at(3)).Text()) << row.join(u' ').toStdString();
        EXPECT_LE(std::abs(address.number.value - number), 2 + row.at(5).toInt() * 0.3) << row.join(u' ').toStdString();
        if (row.at(6) != u"all") {
            EXPECT_EQ(address.number.value % 2, row.at(6) == u"odd" ? 1 : 0) << row.join(u' ').toStdString();
        }
        EXPECT_EQ(address.zip, row.at(8)) << row.join(u' ').toStdString();
        EXPECT_EQ(address.city, u"PRATTVILLE"_s);
        EXPECT_EQ(found.back().foundBy, FoundBy::Street);
    }
}

} // namespace

} // namespace vasclip::street
