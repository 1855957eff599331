#include "platform/street/address_parser.h"

#include "platform/street/map_samples.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

struct StreetRow
{
    const char* name;
    const char* written;
    const char* text;
};

std::ostream& operator<<(std::ostream& out, const StreetRow& row)
{
    return out << row.name;
}

class AStreet : public testing::TestWithParam<StreetRow>
{};

TEST_P(AStreet, HasOneNameInEverySpelling)
{
    EXPECT_EQ(ParseStreet(QString::fromUtf8(GetParam().written)).Text().toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AStreet,
    testing::Values(
        StreetRow{"Plain", "Chestnut St", "CHESTNUT ST"}, StreetRow{"Whole", "North Chestnut Street", "N CHESTNUT ST"},
        StreetRow{"Dots", "N. Chestnut St.", "N CHESTNUT ST"}, StreetRow{"Behind", "Main Street Southwest", "MAIN ST SW"},
        StreetRow{"TwoLetters", "Main St S. W.", "MAIN ST SW"}, StreetRow{"DirectionIsName", "North St", "NORTH ST"},
        StreetRow{"DirectionIsNameWhole", "N Street", "NORTH ST"}, StreetRow{"Saint", "St Charles Rd", "SAINT CHARLES RD"},
        StreetRow{"SaintWhole", "Saint Charles Road", "SAINT CHARLES RD"},
        StreetRow{"SaintWithin", "Old St. Paul Ave", "OLD SAINT PAUL AVE"},
        StreetRow{"StreetWithin", "26th Street Dr", "26TH STREET DR"}, StreetRow{"Ordinal", "Third Ave", "3RD AVE"},
        StreetRow{"OrdinalOfTwo", "Twenty-Third St", "23RD ST"}, StreetRow{"OrdinalFigures", "3rd Avenue", "3RD AVE"},
        StreetRow{"TypeWithin", "Doster Road Cutoff", "DOSTER ROAD CUTOFF"},
        StreetRow{"TypeWithinShort", "Doster Rd Cutoff", "DOSTER ROAD CUTOFF"},
        StreetRow{"Mount", "Mt Vernon Hwy", "MOUNT VERNON HWY"}, StreetRow{"TypeFirst", "Avenue H", "AVENUE H"},
        StreetRow{"Us", "US Hwy 31", "US HWY 31"}, StreetRow{"UsHyphen", "US-31", "US HWY 31"},
        StreetRow{"UsDots", "U.S. Highway 31", "US HWY 31"}, StreetRow{"UsRoute", "U S Route 31", "US HWY 31"},
        StreetRow{"UsBare", "us 31", "US HWY 31"}, StreetRow{"UsBehind", "US Highway 71 North", "US HWY 71 N"},
        StreetRow{"StateRoute", "State Route 14", "STATE HWY 14"}, StreetRow{"StateRte", "State Rte 14 E", "STATE HWY 14 E"},
        StreetRow{"StateCode", "AL 14", "STATE HWY 14"}, StreetRow{"StateCodeHyphen", "AL-14", "STATE HWY 14"},
        StreetRow{"StateName", "Alabama Highway 14", "STATE HWY 14"}, StreetRow{"StateSr", "SR 14", "STATE HWY 14"},
        StreetRow{"StateRoad", "N. State Road 37", "N STATE HWY 37"}, StreetRow{"County", "County Road 4", "CO RD 4"},
        StreetRow{"CountyCo", "Co Rd 4", "CO RD 4"}, StreetRow{"CountyCr", "CR 4", "CO RD 4"},
        StreetRow{"CountyHighway", "County Hwy 4", "CO RD 4"}, StreetRow{"CountyLetters", "County Road ABC", "CO RD ABC"},
        StreetRow{"CountyNamed", "Autauga County 40", "CO RD 40"}, StreetRow{"CountyGrid", "E CO RD 1400N", "E CO RD 1400N"},
        StreetRow{"Interstate", "Interstate 65", "I 65"}, StreetRow{"InterstateHyphen", "I-65", "I 65"},
        StreetRow{"Highway", "Highway 69 North", "HWY 69 N"}, StreetRow{"FarmToMarket", "Farm to Market Road 1960", "FM 1960"},
        StreetRow{"FarmShort", "FM 1960", "FM 1960"}, StreetRow{"NoRoadNumber", "County Line Rd", "COUNTY LINE RD"},
        StreetRow{"CourtNumber", "Court 5", "COURT 5"}, StreetRow{"StateStreet", "State St", "STATE ST"},
        StreetRow{"Accents", "Ca\xc3\xb1on Blvd", "CANON BLVD"}, StreetRow{"Apostrophe", "O'Brien's Ln", "OBRIENS LN"},
        StreetRow{"Hyphen", "Winston-Salem Ave", "WINSTON SALEM AVE"}, StreetRow{"TypeAlone", "Broadway", "BROADWAY"},
        StreetRow{"GridStreet", "West 7800 South", "W 7800 S"}, StreetRow{"Empty", "", ""},
        StreetRow{"Commas", ",,,", ""}),
    [](const auto& row) { return std::string(row.param.name); });

struct NumberRow
{
    const char* written;
    const char* prefix;
    int value;
    const char* suffix;
};

class ANumber : public testing::TestWithParam<NumberRow>
{};

TEST_P(ANumber, IsTakenApart)
{
    const HouseNumber number = ParseHouseNumber(QString::fromUtf8(GetParam().written));
    EXPECT_EQ(number.prefix.toStdString(), GetParam().prefix);
    EXPECT_EQ(number.value, GetParam().value);
    EXPECT_EQ(number.suffix.toStdString(), GetParam().suffix);
}

INSTANTIATE_TEST_SUITE_P(Rows, ANumber,
                         testing::Values(NumberRow{"12", "", 12, ""}, NumberRow{"12 1/2", "", 12, "1/2"},
                                         NumberRow{"12\xc2\xbd", "", 12, "1/2"}, NumberRow{"12-34", "12-", 34, ""},
                                         NumberRow{"56-05", "56-", 5, ""}, NumberRow{"N65W1234", "N65W", 1234, ""},
                                         NumberRow{"W156 N8480", "W156N", 8480, ""}, NumberRow{"101A", "", 101, "A"}, NumberRow{"101-A", "", 101, "A"},
                                         NumberRow{"101 a", "", 101, "A"}, NumberRow{"3RD", "", -1, ""},
                                         NumberRow{"", "", -1, ""}, NumberRow{"ABC", "", -1, ""},
                                         NumberRow{"999999999999", "", -1, ""}, NumberRow{"-5", "", 5, ""},
                                         NumberRow{"0", "", 0, ""}));

TEST(AHouseNumber, IsWrittenAsItWasRead)
{
    for (const char* text : {"12", "12 1/2", "12-34", "56-05", "N65W1234", "101A"})
        EXPECT_EQ(ParseHouseNumber(QString::fromUtf8(text)).Text().toStdString(), text);
}

struct AddressRow
{
    const char* written;
    const char* text;
};

class AnAddress : public testing::TestWithParam<AddressRow>
{};

TEST_P(AnAddress, IsReadAsPeopleWriteIt)
{
    EXPECT_EQ(ParseAddress(QString::fromUtf8(GetParam().written)).Text().toStdString(), GetParam().text)
        << GetParam().written;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, AnAddress,
    testing::Values(
        AddressRow{"110 N Chestnut St, Prattville, AL 36067", "110 N CHESTNUT ST, PRATTVILLE, AL 36067"},
        AddressRow{"110 north chestnut street prattville alabama 36067-1234", "110 N CHESTNUT ST, PRATTVILLE, AL 36067"},
        AddressRow{"110 N CHESTNUT ST,PRATTVILLE,AL 36067", "110 N CHESTNUT ST, PRATTVILLE, AL 36067"},
        AddressRow{"110 N. Chestnut St. #4, Prattville, AL", "110 N CHESTNUT ST, PRATTVILLE, AL"},
        AddressRow{"110 N Chestnut St Apt 4B Prattville AL", "110 N CHESTNUT ST, PRATTVILLE, AL"},
        AddressRow{"110 N Chestnut St", "110 N CHESTNUT ST"},
        AddressRow{"110 N Chestnut St, 36067", "110 N CHESTNUT ST, 36067"},
        AddressRow{"Chestnut St, Prattville, AL", "CHESTNUT ST, PRATTVILLE, AL"},
        AddressRow{"Prattville, AL", "PRATTVILLE, AL"}, AddressRow{"36067", "36067"},
        AddressRow{"720 1/2 Clark Street, Evanston, IL 60201", "720 1/2 CLARK ST, EVANSTON, IL 60201"},
        AddressRow{"12-34 56th Ave, Flushing, NY 11364", "12-34 56TH AVE, FLUSHING, NY 11364"},
        AddressRow{"N65W1234 Maple Dr, Menomonee Falls, WI", "N65W1234 MAPLE DR, MENOMONEE FALLS, WI"},
        AddressRow{"Main St & 3rd Ave, Prattville, AL", "MAIN ST & 3RD AVE, PRATTVILLE, AL"},
        AddressRow{"main st and third avenue prattville al", "MAIN ST & 3RD AVE, PRATTVILLE, AL"},
        AddressRow{"Main St at 3rd Ave", "MAIN ST & 3RD AVE"},
        AddressRow{"corner of Main St and 3rd Ave, Prattville", "MAIN ST & 3RD AVE, PRATTVILLE"},
        AddressRow{"723-B South Broadway, Baltimore, MD", "723B S BROADWAY, BALTIMORE, MD"},
        AddressRow{"2022 US-82, Prattville, AL", "2022 US HWY 82, PRATTVILLE, AL"},
        AddressRow{"1803 State Rte 14 E, Prattville, AL", "1803 STATE HWY 14 E, PRATTVILLE, AL"},
        AddressRow{"5 Elm Ct, Hartford, CT", "5 ELM CT, HARTFORD, CT"}, AddressRow{"5 Elm Ct", "5 ELM CT"},
        AddressRow{"5 Elm Ct, 36067", "5 ELM CT, 36067"}, AddressRow{"5 Broadway Hartford CT 06103", "5 BROADWAY, HARTFORD, CT 06103"},
        AddressRow{"1610 Autauga County 19, 36067", "1610 CO RD 19, 36067"},
        AddressRow{"1180 Peachtree Street, NE", "1180 PEACHTREE ST NE"},
        AddressRow{"100 Main St\nSt. Louis, MO 63104", "100 MAIN ST, SAINT LOUIS, MO 63104"},
        AddressRow{"100 Main St, Autauga County, Prattville, AL", "100 MAIN ST, PRATTVILLE, AL"},
        AddressRow{"12 Main St'; DROP TABLE streets; --", "12 MAIN ST, DROP TABLE STREETS"}, AddressRow{"", ""},
        AddressRow{"   ", ""}, AddressRow{",,,;;;", ""}, AddressRow{"#", "#"}, AddressRow{"& & &", "& & &"}));

/// Words in one form and order-free, as the sample says addresses are to be compared.
QString Same(const QString& text)
{
    QStringList words = AddressWords(text);
    words.removeAll(u","_s);
    QStringList same;
    for (QString word : words) {
        if (const Direction direction = DirectionOf(word); direction != Direction::None)
            word = DirectionText(direction);
        else if (const StreetType type = TypeOf(word); type != 0)
            word = TypeText(type);
        else if (const QString ordinal = OrdinalOf(word); !ordinal.isEmpty())
            word = ordinal;
        else if (word == u"SAINT")
            word = u"ST"_s;
        same.append(word);
    }
    same.sort();
    return same.join(u' ');
}

TEST(TheAddressExamples, AreTakenApartAsTheirSourcesSay)
{
    const QString path = test::MapSample(u"address_examples.tsv"_s);
    if (path.isEmpty())
        GTEST_SKIP() << "the shared street data is not here";
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    int rows = 0;
    int right = 0;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).remove(u'\n');
        const QStringList cells = line.split(u'\t');
        if (line.startsWith(u'#') || cells.size() < 13 || cells.at(0) == u"id")
            continue;
        ++rows;
        const Address address = ParseAddress(cells.at(2));
        QString street = cells.at(9);
        QString road = street;
        if (street == u"-") {
            street = QStringList{cells.at(4), cells.at(5), cells.at(6), cells.at(7)}.join(u' ');
            road = QStringList{cells.at(4), cells.at(6), cells.at(5), cells.at(7)}.join(u' ');
        }
        qsizetype count = 0;
        const QString state = StateAt(AddressWords(cells.at(11)), 0, count);
        QStringList wrong;
        const auto compare = [&wrong](const char* what, const QString& is, const QString& wanted) {
            if (is != wanted)
                wrong.append(QString::fromLatin1(what) + u" '"_s + is + u"' for '"_s + wanted + u'\'');
        };
        compare("number", ParseHouseNumber(cells.at(3)) == address.number ? QString() : address.number.Text(), {});
        // A numbered road has its type in front.
        if (Same(address.street.Text()) != Same(street) && address.street.Text() != ParseStreet(road).Text())
            compare("street", address.street.Text(), ParseStreet(street).Text());
        compare("city", Same(address.city), Same(CityKey(cells.at(10))));
        if (cells.at(11) != u"-")
            compare("state", address.state, state);
        compare("zip", address.zip, cells.at(12).left(5));
        if (wrong.isEmpty())
            ++right;
        else
            std::cout << cells.at(0).toStdString() << ' ' << cells.at(2).toStdString() << ": "
                      << wrong.join(u"; "_s).toStdString() << '\n';
    }
    EXPECT_GT(rows, 200);
    // What stays different is a matter of taste ("Lassiter at North Hills Ave") or can't be known without a map.
    EXPECT_GE(right, rows * 95 / 100) << right << " of " << rows;
}

TEST(AnAddressOfAnyKind, IsReadAtOnce)
{
    QStringList texts{QString(10000, u'A'), QString(10000, u' '), QString(10000, u','), QString(10000, u'#')};
    texts += {u"1 "_s.repeated(5000), u"St "_s.repeated(3500), u"N "_s.repeated(5000), u"and "_s.repeated(2500)};
    texts += {QString::fromUtf8("\xf0\x9f\x8f\xa0").repeated(2500), QString::fromUtf8("12 \xf0\x9f\x8f\xa0 St, \xf0\x9f\x98\x80, AL")};
    texts += {QString(1, QChar(0xd800)), QString(3, QChar(u'\0')), u"New "_s.repeated(3000), u"US Hwy "_s.repeated(1500)};
    QElapsedTimer clock;
    clock.start();
    for (const QString& text : std::as_const(texts)) {
        const Address address = ParseAddress(text, [](const QString& name) { return name.size() % 2 == 0; });
        EXPECT_LE(address.Text().size(), 4000);
        static_cast<void>(ParseStreet(text));
        static_cast<void>(ParseHouseNumber(text));
    }
    EXPECT_LT(clock.elapsed(), 2000);
}

TEST(AnAddressWithNoComma, IsPartedByAKnownPlace)
{
    const IsPlace isPlace = [](const QString& name) { return name == u"PRATTVILLE" || name == u"LITTLE ROCK"; };
    const auto Parsed = [&](const QString& text) { return ParseAddress(text, isPlace).Text().toStdString(); };
    EXPECT_EQ(Parsed(u"610 east main prattville"_s), "610 E MAIN, PRATTVILLE");
    EXPECT_EQ(Parsed(u"1217 valridge n prattville al"_s), "1217 VALRIDGE N, PRATTVILLE, AL");
    EXPECT_EQ(Parsed(u"12 camp rd n little rock ar"_s), "12 CAMP RD N, LITTLE ROCK, AR");
}

} // namespace

} // namespace vasclip::street
