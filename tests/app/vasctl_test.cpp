// vasctl as a person or a script runs it: whole processes on a demo home, the forms program beside it.

#include "platform/conduit/link_server.h"
#include "support/processes.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>

#include <sqlite3.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotFound = 3, kDeclined = 4, kNoLink = 5;

class Vasctl : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(home.Make()); }

    QString FirstKey() const
    {
        return home.Vasctl({u"records"_s, u"list"_s, u"--limit"_s, u"1"_s})
            .Array()[0]
            .toObject()[u"CENTRALKEY"_s]
            .toString();
    }

    ProgramHome home;
};

TEST_F(Vasctl, ListsFindsAndShowsRecords)
{
    const auto list = home.Vasctl({u"records"_s, u"list"_s});
    EXPECT_EQ(list.code, kDone);
    EXPECT_EQ(list.Array().size(), 60);
    const QString key = list.Array()[0].toObject()[u"CENTRALKEY"_s].toString();
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, key.toLower()}).Object()[u"CENTRALKEY"_s].toString(),
              key);
    const auto shown = home.Vasctl({u"records"_s, u"show"_s, key}).Object();
    EXPECT_EQ(shown[u"CENTRALKEY"_s].toString(), key);
    EXPECT_FALSE(shown[u"ADDRESS"_s].toString().isEmpty());
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"1 NOWHERE LN"_s}).code, kNotFound);
}

TEST_F(Vasctl, SortsByValueAndFilters)
{
    const auto list = home.Vasctl(
        {u"records"_s, u"list"_s, u"--sort"_s, u"SELLINGPR DESC"_s, u"--where"_s, u"VAL(SELLINGPR) > 0"_s});
    ASSERT_EQ(list.code, kDone);
    double last = 1e12;
    for (const QJsonValue& value : list.Array()) {
        const double price = value.toObject()[u"SELLINGPR"_s].toDouble();
        EXPECT_LE(price, last);
        last = price;
    }
    EXPECT_LT(last, 1e12);
}

TEST_F(Vasctl, AddsEditsCopiesRenamesAndDeletes)
{
    EXPECT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"12 O'Brien Ct"_s, u"--type"_s, u"C"_s, u"--set"_s,
                           u"CITY=Marlow Falls"_s})
                  .code,
              kDone);
    auto shown = home.Vasctl({u"records"_s, u"show"_s, u"12 o'brien ct"_s}).Object();
    EXPECT_EQ(shown[u"CENTRALKEY"_s].toString(), u"12 O'BRIEN CT"_s);
    EXPECT_EQ(shown[u"APPRSLTYPE"_s].toString(), u"C"_s);
    EXPECT_EQ(shown[u"CITY"_s].toString(), u"Marlow Falls"_s);
    EXPECT_EQ(shown[u"SALEDATE"_s].toString(), u"1900-01-01"_s) << "a new comp is a pending sale";

    EXPECT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"12 O'BRIEN CT"_s}).code, kFailed) << "a key exists once";
    EXPECT_EQ(home.Vasctl({u"records"_s, u"edit"_s, u"12 O'Brien Ct"_s, u"--set"_s, u"GLA=1450"_s}).code,
              kDone);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"copy"_s, u"12 O'Brien Ct"_s, u"14 O'Brien Ct"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, u"14 O'Brien Ct"_s}).Object()[u"GLA"_s], 1450);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"rename"_s, u"14 O'Brien Ct"_s, u"16 O'Brien Ct"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"14 O'Brien Ct"_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"records"_s, u"delete"_s, u"16 O'Brien Ct"_s}).code, kDeclined);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"16 O'Brien Ct"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"records"_s, u"delete"_s, u"16 O'Brien Ct"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"16 O'Brien Ct"_s}).code, kNotFound);
}

TEST_F(Vasctl, ADeletedRecordTakesItsPictures)
{
    QString key, stem;
    for (const QJsonValue& value :
         home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, PHOTOS FROM COMPS"_s}).Array()) {
        const QString photos = value.toObject()[u"PHOTOS"_s].toString();
        if (!photos.contains(u'|'))
            continue;
        key = value.toObject()[u"CENTRALKEY"_s].toString().trimmed();
        stem = photos.section(u'|', 1, 1).section(u'\r', 0, 0);
        break;
    }
    ASSERT_FALSE(stem.isEmpty());
    const QString picture = home.Vasctl({u"settings"_s, u"get"_s, u"PHOTODIR"_s})
                                .Object()[u"value"_s]
                                .toString()
                                .mid(3)
                                .replace(u'\\', u'/') +
                            u'/' + stem + u".jpg"_s;
    ASSERT_TRUE(QFile::exists(home.Native(picture))) << picture.toStdString();
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"records"_s, u"delete"_s, key}).code, kDeclined);
    EXPECT_TRUE(QFile::exists(home.Native(picture)));
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"records"_s, u"delete"_s, key}).code, kDone);
    EXPECT_FALSE(QFile::exists(home.Native(picture)));
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, key}).code, kNotFound);
}

TEST_F(Vasctl, SearchesByEveryFieldOfTheScreen)
{
    const std::pair<QStringList, QString> rows[] = {
        {{u"--key"_s, u"oak"_s}, u"UCASE(CENTRALKEY) LIKE '*OAK*'"_s},
        {{u"--address"_s, u"oak"_s, u"--exact"_s}, u"UCASE(ADDRESS) LIKE 'OAK'"_s},
        {{u"--city"_s, u" marlow "_s}, u"UCASE(CITY) LIKE '*MARLOW*'"_s},
        {{u"--state"_s, u"wa"_s}, u"UCASE(ST) = 'WA'"_s},
        {{u"--zip"_s, u"982"_s}, u"UCASE(ZIP) LIKE '*982*'"_s},
        {{u"--county"_s, u"x"_s}, u"UCASE(COUNTY) LIKE '*X*'"_s},
        {{u"--neighborhood"_s, u"x"_s}, u"UCASE(NEIGHBORHD) LIKE '*X*'"_s},
        {{u"--bedrooms"_s, u"3"_s}, u"UCASE(BEDROOM) = '3'"_s},
        {{u"--baths"_s, u"2"_s}, u"UCASE(BATH) LIKE '*2*'"_s},
        {{u"--tax-map"_s, u"x"_s}, u"UCASE(TAXMAPNUM) LIKE '*X*'"_s},
        {{u"--census"_s, u"x"_s}, u"UCASE(CENSUSTRCT) LIKE '*X*'"_s},
        {{u"--stories"_s, u"x"_s}, u"UCASE(STRCODE) LIKE '*X*'"_s},
        {{u"--cts"_s, u"x"_s}, u"UCASE(CTSCODE) LIKE '*X*'"_s},
        {{u"--comp-type"_s, u"f"_s}, u"UCASE(APPRSLTYPE) LIKE '*F*'"_s},
        {{u"--porch"_s, u"x"_s}, u"UCASE(PORCHPATI2) LIKE '*X*'"_s},
        {{u"--notes"_s, u"x"_s}, u"UCASE(NOTES) LIKE '*X*'"_s},
        {{u"--design"_s, u"x"_s}, u"UCASE(DESIGNAPPL) LIKE '*X*'"_s},
        {{u"--sqft"_s, u"1999"_s, u"--sqft-range"_s, u"10%"_s}, u"GLA BETWEEN 1800 AND 2198"_s},
        {{u"--price"_s, u"$100,000"_s, u"--price-range"_s, u"15000"_s},
         u"SELLINGPR BETWEEN 85000 AND 115000"_s},
        {{u"--price"_s, u"100000"_s}, u"SELLINGPR BETWEEN 100000 AND 100000"_s},
        {{u"--price-from"_s, u"85,000"_s, u"--price-to"_s, u"115001"_s},
         u"SELLINGPR BETWEEN 85000 AND 115001"_s},
        {{u"--age-to"_s, u"10"_s}, u"AGE BETWEEN 0 AND 10"_s},
        {{u"--price-gla-from"_s, u"100"_s}, u"PRICEGLA BETWEEN 100 AND 999999999"_s},
        {{u"--land-size"_s, u"5000"_s, u"--land-size-range"_s, u"500"_s},
         u"LANDSIZE BETWEEN VAL('4500') AND VAL('5500')"_s},
        {{u"--sale-date"_s, u"06/30/2004"_s}, u"COMPS.SALEDATE>=#6/30/2004#"_s},
        {{u"--sale-date"_s, u"6/30/2004"_s, u"--sale-date-range"_s, u"prior"_s},
         u"COMPS.SALEDATE<=#6/30/2004#"_s},
        {{u"--load-date"_s, u"6/30/2004"_s, u"--load-date-range"_s, u"Equal To"_s},
         u"COMPS.LOADDATE=#6/30/2004#"_s},
        {{u"--state"_s, u"wa"_s, u"--city"_s, u"x"_s}, u"UCASE(CITY) LIKE '*X*' AND UCASE(ST) = 'WA'"_s},
    };
    for (const auto& [words, where] : rows) {
        const QStringList command =
            QStringList{u"search"_s, u"--sort"_s, u"0"_s, u"--with-pending"_s} + words;
        const QString sql = home.Vasctl(command + QStringList{u"--sql"_s}).Object()[u"sql"_s].toString();
        EXPECT_TRUE(sql.endsWith(u" FROM COMPS WHERE "_s + where)) << sql.toStdString();
        const auto found = home.Vasctl(command);
        const auto same = home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY FROM COMPS WHERE "_s + where});
        ASSERT_EQ(same.code, kDone) << same.err.toStdString();
        EXPECT_EQ(found.Array().size(), same.Array().size()) << where.toStdString();
        EXPECT_EQ(found.code, same.Array().isEmpty() ? kNotFound : kDone) << where.toStdString();
    }
}

TEST_F(Vasctl, SearchesAreSortedFilteredLimitedAndCounted)
{
    const auto found = home.Vasctl(
        {u"search"_s, u"--price-from"_s, u"1"_s, u"--sort"_s, u"sellingpr"_s, u"--limit"_s, u"5"_s});
    ASSERT_EQ(found.code, kDone) << found.err.toStdString();
    ASSERT_EQ(found.Array().size(), 5);
    double last = 1e12;
    for (const QJsonValue& value : found.Array()) {
        const double price = value.toObject()[u"SELLINGPR"_s].toDouble();
        EXPECT_LE(price, last);
        last = price;
    }
    const auto sql = [&](const QStringList& words) {
        return home.Vasctl(QStringList{u"search"_s, u"--sql"_s} + words).Object()[u"sql"_s].toString();
    };
    EXPECT_TRUE(
        sql({u"--sort"_s, u"2"_s, u"--ignore-pending"_s})
            .endsWith(u" FROM COMPS WHERE ISDATE(COMPS.SALEDATE) AND COMPS.SALEDATE <> #01/01/1900# ORDER "
                      "BY COMPS.SALEDATE DESC"_s));
    const auto all = home.Vasctl({u"--plain"_s, u"search"_s, u"--with-pending"_s});
    EXPECT_TRUE(all.out.contains("60 comps found.")) << all.out.toStdString();
    const auto none = home.Vasctl({u"--plain"_s, u"search"_s, u"--city"_s, u"Nowhere"_s});
    EXPECT_EQ(none.code, kNotFound);
    EXPECT_TRUE(
        none.err.contains("No comps were found using the search fields above.  Check spelling or be less "
                          "specific"))
        << none.err.toStdString();
    home.Vasctl({u"settings"_s, u"set"_s, u"SORTGRID"_s, u"4"_s});
    EXPECT_TRUE(sql({}).endsWith(u" ORDER BY COMPS.GLA DESC"_s)) << "as the screen opens";
}

TEST_F(Vasctl, ASearchThatCannotBeIsRefusedInWords)
{
    const std::pair<QStringList, const char*> wrong[] = {
        {{u"oak"_s}, "'oak' belongs to no field; say --address 'oak', or use 'vasctl find'."},
        {{u"--city"_s, u"  "_s}, "--city has nothing to look for."},
        {{u"--price"_s, u"lots"_s}, "--price takes a number, not 'lots'."},
        {{u"--price"_s, u"nan"_s}, "--price takes a number, not 'nan'."},
        {{u"--price-from"_s, u"inf"_s}, "--price-from takes a number, not 'inf'."},
        {{u"--age"_s, u"1e400"_s}, "--age takes a number, not '1e400'."},
        {{u"--price"_s, u"1"_s, u"--price-range"_s, u"x%"_s},
         "--price-range takes a number or a percentage such as 10%, not 'x'."},
        {{u"--price-range"_s, u"5"_s}, "--price-range says how far from --price, which is missing."},
        {{u"--price-from"_s, u"5"_s, u"--price-to"_s, u"4"_s}, "--price-from 5 lies above --price-to 4."},
        {{u"--price-from"_s, u"5"_s, u"--price"_s, u"4"_s},
         "Give --price with --price-range, or --price-from and --price-to, not both."},
        {{u"--sale-date"_s, u"13/45/2004"_s},
         "--sale-date takes a date such as 6/30/2004, not '13/45/2004'."},
        {{u"--sale-date-range"_s, u"prior"_s},
         "--sale-date-range says on which side of --sale-date, which is missing."},
        {{u"--sale-date"_s, u"6/30/2004"_s, u"--sale-date-range"_s, u"about"_s},
         "--sale-date-range takes prior, equal or after, not 'about'."},
        {{u"--sort"_s, u"CITY"_s}, "A search is sorted by ADDRESS"},
        {{u"--sort"_s, u"7"_s}, "A search is sorted by ADDRESS"},
        {{u"--limit"_s, u"-1"_s}, "--limit takes a whole number of 0 or more, not '-1'."},
        {{u"--ignore-pending"_s, u"--with-pending"_s},
         "--ignore-pending and --with-pending exclude each other."},
        {{u"--colour"_s, u"red"_s}, "colour"},
    };
    for (const auto& [words, text] : wrong) {
        const auto ended = home.Vasctl(QStringList{u"--plain"_s, u"search"_s} + words);
        EXPECT_EQ(ended.code, kUsage) << words.join(u' ').toStdString();
        EXPECT_TRUE(ended.err.contains(text)) << ended.err.toStdString();
    }
    for (const QString& quoted : {u"O'Brien"_s, u"'"_s, u"x' OR '1'='1"_s}) {
        const auto ended = home.Vasctl({u"--plain"_s, u"search"_s, u"--address"_s, quoted});
        EXPECT_NE(ended.code, kDone) << "a quote ends the text of the statement";
        EXPECT_FALSE(ended.err.isEmpty());
    }
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 60);
}

TEST_F(Vasctl, FindsWordsInTheFieldsOfTheQuickFind)
{
    for (const QString& key : {u"7 Calle Peña"_s, u"12 O'Brien Ct"_s})
        ASSERT_EQ(
            home.Vasctl({u"records"_s, u"add"_s, key, u"--set"_s, u"NOTES=Zylophone \"100%\" attic"_s}).code,
            kDone);
    const auto keys = [&](const QStringList& words) {
        QStringList all;
        for (const QJsonValue& row : home.Vasctl(QStringList{u"find"_s} + words).Array())
            all.append(row.toObject()[u"CENTRALKEY"_s].toString());
        all.sort();
        return all;
    };
    const QStringList both{u"12 O'BRIEN CT"_s, u"7 CALLE PEÑA"_s};
    EXPECT_EQ(keys({u"zylophone"_s}), both);
    EXPECT_EQ(keys({u"ATTIC"_s, u"\"100%\""_s}), both);
    EXPECT_EQ(keys({u"zylophone peña"_s}), QStringList(u"7 CALLE PEÑA"_s));
    EXPECT_EQ(keys({u"o'b"_s, u"zy"_s}), QStringList(u"12 O'BRIEN CT"_s));
    EXPECT_EQ(home.Vasctl({u"find"_s, u"zylophone"_s, u"--limit"_s, u"1"_s}).Array().size(), 1);
    EXPECT_EQ(home.Vasctl({u"find"_s, u"nosuchword"_s}).code, kNotFound);
    for (const QStringList& words : {QStringList{}, QStringList{u"  "_s}}) {
        const auto ended = home.Vasctl(QStringList{u"--plain"_s, u"find"_s} + words);
        EXPECT_EQ(ended.code, kUsage);
        EXPECT_TRUE(ended.err.contains("Usage: vasctl find TEXT")) << ended.err.toStdString();
    }
}

TEST_F(Vasctl, ADamagedIndexIsToldAndFindsTheSame)
{
    ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"1 Test Ln"_s, u"--set"_s, u"NOTES=zylophone"_s}).code,
              kDone);
    EXPECT_TRUE(home.Vasctl({u"find"_s, u"zylophone"_s}).err.contains("is being made"));
    EXPECT_TRUE(home.Vasctl({u"find"_s, u"zylophone"_s}).err.isEmpty());
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(home.Native(u"DATABOOK/DATABOOK.MDB"_s).toUtf8().constData(), &handle), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(handle, "DROP TABLE vas_noted_COMPS", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(handle);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"2 Test Ln"_s, u"--set"_s, u"NOTES=zylophone"_s}).code,
              kDone)
        << "records are stored whatever the index is like";
    const auto told = home.Vasctl({u"find"_s, u"zylophone"_s});
    EXPECT_EQ(told.Array().size(), 2);
    EXPECT_TRUE(told.err.contains("is being made")) << told.err.toStdString();
    EXPECT_TRUE(home.Vasctl({u"find"_s, u"zylophone"_s}).err.isEmpty());
}

TEST_F(Vasctl, TheCityListIsKept)
{
    const auto before = home.Vasctl({u"cities"_s, u"list"_s}).Array().size();
    const QStringList add{u"cities"_s, u"add"_s,   u"--city"_s, u"Port O'Ellis"_s, u"--state"_s,
                          u"WA"_s,     u"--zip"_s, u"98111"_s,  u"--county"_s,     u"Skagit"_s};
    EXPECT_EQ(home.Vasctl(add).code, kDone);
    EXPECT_EQ(home.Vasctl(add).code, kFailed) << "a line stands once";
    const auto list = home.Vasctl({u"cities"_s, u"list"_s}).Array();
    ASSERT_EQ(list.size(), before + 1);
    const QJsonObject line = list.last().toObject();
    EXPECT_EQ(line[u"LINE"_s].toString(), u"Port O'Ellis, WA  98111  Skagit"_s);
    EXPECT_EQ(line[u"COUNTY"_s].toString(), u"Skagit"_s);
    EXPECT_EQ(home.Vasctl({u"cities"_s, u"add"_s, u"--state"_s, u"WA"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"cities"_s, u"delete"_s, u"Nowhere"_s}).code, kNotFound);
    const QStringList remove{u"cities"_s, u"delete"_s, u"port o'ellis, WA  98111  Skagit"_s};
    EXPECT_EQ(home.Vasctl(QStringList{u"--no"_s} + remove).code, kDeclined);
    EXPECT_EQ(home.Vasctl(QStringList{u"--yes"_s} + remove).code, kDone);
    EXPECT_EQ(home.Vasctl({u"cities"_s, u"list"_s}).Array().size(), before);
}

TEST_F(Vasctl, ANeighborhoodGetsItsCity)
{
    for (const QString& key : {u"1 Test Ln"_s, u"2 Test Ln"_s})
        ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, key, u"--set"_s, u"NEIGHBORHD=Test's End"_s}).code,
                  kDone);
    const auto assigned = home.Vasctl({u"cities"_s, u"assign"_s, u"test's end"_s, u"--city"_s, u"Marlow"_s,
                                       u"--state"_s, u"WA"_s, u"--zip"_s, u"98210"_s});
    EXPECT_EQ(assigned.code, kDone) << assigned.err.toStdString();
    EXPECT_EQ(assigned.Object()[u"message"_s].toString(), u"2 records of test's end were changed."_s);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, u"2 Test Ln"_s}).Object()[u"CITY"_s].toString(),
              u"Marlow"_s);
    EXPECT_EQ(home.Vasctl({u"cities"_s, u"assign"_s, u"Nowhere"_s, u"--city"_s, u"Marlow"_s}).code,
              kNotFound);
    EXPECT_EQ(home.Vasctl({u"cities"_s, u"assign"_s, u" "_s, u"--city"_s, u"Marlow"_s}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"cities"_s, u"assign"_s, u"Test's End"_s}).code, kDeclined);
    EXPECT_EQ(home.Vasctl({u"cities"_s, u"assign"_s, u"Test's End"_s, u"--zip"_s, QString(40, u'9')}).code,
              kUsage);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, u"2 Test Ln"_s}).Object()[u"ZIP"_s].toString(),
              u"98210"_s);
}

TEST_F(Vasctl, AWrongFieldLeavesNoHalfRecord)
{
    const auto added = home.Vasctl({u"records"_s, u"add"_s, u"9 Half Rd"_s, u"--set"_s, u"NOFIELD=1"_s});
    EXPECT_EQ(added.code, kUsage);
    EXPECT_TRUE(added.err.contains("NOFIELD"));
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"9 Half Rd"_s}).code, kNotFound);
    const QString tooLong = u"CITY="_s + QString(300, u'x');
    EXPECT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"9 Half Rd"_s, u"--set"_s, tooLong}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"9 Half Rd"_s}).code, kNotFound);
}

TEST_F(Vasctl, AddressesOf300CharactersAndWithAccentsAreTold)
{
    const auto added = home.Vasctl({u"records"_s, u"add"_s, QString(300, u'A')});
    EXPECT_NE(added.code, kDone);
    EXPECT_FALSE(added.err.isEmpty());
    EXPECT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"7 Calle Peña"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"7 CALLE PEÑA"_s}).code, kDone);
}

TEST_F(Vasctl, SqlReadsAndNeverWrites)
{
    const auto rows =
        home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, GLA FROM COMPS WHERE GLA BETWEEN 1000 AND 2000"_s});
    ASSERT_EQ(rows.code, kDone) << rows.err.toStdString();
    EXPECT_FALSE(rows.Array().isEmpty());
    for (const QJsonValue& value : rows.Array()) {
        const double gla = value.toObject()[u"GLA"_s].toDouble();
        EXPECT_TRUE(gla >= 1000 && gla <= 2000) << gla;
    }
    EXPECT_EQ(home.Vasctl({u"sql"_s, u"DELETE FROM COMPS"_s}).code, kUsage);
    EXPECT_NE(home.Vasctl({u"sql"_s, u"SELECT * INTO [C:\\DATABOOK\\X.MDB].[T] FROM COMPS"_s}).code, kDone);
    const auto twice = home.Vasctl({u"sql"_s, u"SELECT * FROM COMPS; DROP TABLE COMPS"_s});
    EXPECT_EQ(twice.code, kUsage);
    EXPECT_TRUE(twice.err.contains("3075")) << twice.err.toStdString();
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 60);
}

TEST_F(Vasctl, SettingsAreListedReadAndChecked)
{
    const QJsonArray settings = home.Vasctl({u"settings"_s, u"list"_s}).Array();
    EXPECT_GT(settings.size(), 50);
    int labelled = 0;
    for (const QJsonValue& value : settings) {
        const QJsonObject row = value.toObject();
        labelled += row[u"label"_s].toString().isEmpty() ? 0 : 1;
        if (row[u"key"_s] == u"AUTOSAVE"_s) {
            EXPECT_EQ(row[u"label"_s].toString(), u"AutoSave Front Views to the Database"_s);
            EXPECT_EQ(row[u"page"_s].toString(), u"Pictures"_s);
        }
    }
    EXPECT_EQ(labelled, 45);
    EXPECT_EQ(home.Vasctl({u"settings"_s, u"set"_s, u"SORTGRID"_s, u"3"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"settings"_s, u"get"_s, u"SORTGRID"_s}).Object()[u"value"_s].toString(), u"3"_s);
    const auto refused = home.Vasctl({u"settings"_s, u"set"_s, u"QUALITY"_s, u"400"_s});
    EXPECT_EQ(refused.code, kFailed);
    EXPECT_FALSE(refused.err.isEmpty());
    EXPECT_EQ(home.Vasctl({u"settings"_s, u"get"_s, u"NOSUCHKEY"_s}).code, kNotFound);
    for (const QStringList& wrong :
         {QStringList{}, QStringList{u"get"_s}, QStringList{u"set"_s, u"QUALITY"_s},
          QStringList{u"list"_s, u"x"_s}, QStringList{u"set"_s, u"A"_s, u"B"_s, u"C"_s, u"D"_s}})
        EXPECT_EQ(home.Vasctl(QStringList{u"settings"_s} + wrong).code, kUsage)
            << wrong.join(u' ').toStdString();
    const std::pair<QStringList, int> rows[] = {
        {{u"NOSUCHKEY"_s, u"1"_s}, kNotFound},    {{u"NOSECTION"_s, u"QUALITY"_s, u"50"_s}, kNotFound},
        {{u"QUALITY"_s, u"high"_s}, kFailed},     {{u"QUALITY"_s, u""_s}, kFailed},
        {{u"PHOTODIR"_s, u"nowhere"_s}, kFailed}, {{u"TABLE"_s, u"A\nB"_s}, kFailed},
        {{u"USESUBJCSZ"_s, u"some"_s}, kFailed},
    };
    const QByteArray ini = home.Vasctl({u"settings"_s, u"list"_s}).out;
    for (const auto& [words, code] : rows) {
        const auto ended = home.Vasctl(QStringList{u"settings"_s, u"set"_s} + words);
        EXPECT_EQ(ended.code, code) << words.join(u' ').toStdString();
        EXPECT_FALSE(ended.err.isEmpty()) << words.join(u' ').toStdString();
    }
    EXPECT_EQ(home.Vasctl({u"settings"_s, u"list"_s}).out, ini);
}

TEST_F(Vasctl, LayoutsAreListedSavedUsedAndDeleted)
{
    const auto run = [this](const QStringList& words) {
        return home.Vasctl(QStringList{u"layouts"_s} + words);
    };
    const QString file = home.Native(u"VAS2000/VAS2000.grx"_s);
    QFile::remove(file);
    EXPECT_EQ(run({u"list"_s}).Array().size(), 0);
    EXPECT_EQ(run({u"save"_s, u"Mine"_s}).code, kDone);
    EXPECT_EQ(run({u"list"_s}).Array()[0].toObject()[u"layout"_s].toString(), u"Mine"_s);
    EXPECT_EQ(run({u"show"_s, u"mine"_s}).Array().size(), 29);
    EXPECT_EQ(run({u"show"_s, u"Nobody's"_s}).code, kNotFound);
    EXPECT_EQ(run({u"use"_s, u"Nobody's"_s}).code, kNotFound);
    EXPECT_EQ(run({u"delete"_s, u"Nobody's"_s}).code, kNotFound);
    EXPECT_EQ(run({u"use"_s, u"Mine"_s}).code, kDone);
    EXPECT_EQ(run({u"list"_s}).Array().size(), 2) << "Current (User) stands beside it";
    const auto refused = run({u"save"_s, u"default"_s});
    EXPECT_EQ(refused.code, kFailed);
    EXPECT_TRUE(refused.err.contains("You cannot save over the 'default'"));
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"layouts"_s, u"save"_s, u"Mine"_s}).code, kDeclined);
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"layouts"_s, u"delete"_s, u"Mine"_s}).code, kDeclined);
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"layouts"_s, u"delete"_s, u"Mine"_s}).code, kDone);
    EXPECT_EQ(run({u"list"_s}).Array().size(), 1);
    QFile::remove(home.Native(u"VAS2000/default.grx"_s));
    EXPECT_EQ(home.Vasctl({u"--no"_s, u"layouts"_s, u"default"_s}).code, kDeclined);
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"layouts"_s, u"default"_s}).code, kDone);
    EXPECT_TRUE(QFile::exists(home.Native(u"VAS2000/default.grx"_s)));
    for (const QStringList& wrong :
         {QStringList{}, QStringList{u"fly"_s}, QStringList{u"use"_s}, QStringList{u"list"_s, u"all"_s},
          QStringList{u"default"_s, u"x"_s}, QStringList{u"save"_s, QString(61, u'x')},
          QStringList{u"save"_s, u"two\nlines"_s}})
        EXPECT_EQ(run(wrong).code, kUsage) << wrong.join(u' ').toStdString();
    EXPECT_EQ(run({u"save"_s, u" "_s}).code, kFailed);
    EXPECT_EQ(run({u"list"_s}).Array().size(), 2) << "as before";
    QFile bad(file);
    ASSERT_TRUE(bad.open(QFile::WriteOnly | QFile::Truncate));
    bad.write("another program's");
    bad.close();
    const auto ill = run({u"list"_s});
    EXPECT_EQ(ill.code, kFailed);
    EXPECT_TRUE(ill.err.contains("VAS2000.grx")) << ill.err.toStdString();
}

TEST_F(Vasctl, WithoutAFormsProgramTheLinkCommandsSaySo)
{
    for (const QStringList& command : {QStringList{u"refresh"_s}, QStringList{u"report"_s, u"pages"_s},
                                       QStringList{u"drop"_s, FirstKey(), u"--on"_s, u"txtComp:3"_s}}) {
        const auto ended = home.Vasctl(command);
        EXPECT_EQ(ended.code, kNoLink) << command.join(u' ').toStdString();
        EXPECT_TRUE(ended.err.contains("No report is open")) << ended.err.toStdString();
    }
}

TEST_F(Vasctl, DropsARecordOnASlotAndTheReportHoldsIt)
{
    ASSERT_TRUE(home.StartForms());
    const QString key = FirstKey();
    const auto record = home.Vasctl({u"records"_s, u"show"_s, key}).Object();
    const auto dropped = home.Vasctl({u"--no"_s, u"drop"_s, key, u"--on"_s, u"txtComp:3"_s});
    ASSERT_EQ(dropped.code, kDone) << dropped.err.toStdString();
    EXPECT_EQ(home.Cell(3, u"ADDRESS"_s), record[u"ADDRESS"_s].toString());
    EXPECT_EQ(home.Cell(3, u"GLA"_s), record[u"GLA"_s].toVariant().toString());

    const auto pages = home.Vasctl({u"report"_s, u"pages"_s});
    EXPECT_EQ(pages.code, kDone);
    EXPECT_TRUE(pages.out.contains(record[u"ADDRESS"_s].toString().toUtf8()));
}

TEST_F(Vasctl, ReplacingACompAsks)
{
    ASSERT_TRUE(home.StartForms());
    const QString before = home.Cell(1, u"ADDRESS"_s);
    ASSERT_FALSE(before.isEmpty());
    QString key;
    for (const QJsonValue& value : home.Vasctl({u"records"_s, u"list"_s}).Array()) {
        key = value.toObject()[u"CENTRALKEY"_s].toString();
        if (key.compare(before, Qt::CaseInsensitive) != 0)
            break;
    }
    const auto kept = home.Vasctl({u"--no"_s, u"drop"_s, key, u"--on"_s, u"txtComp:1"_s});
    EXPECT_EQ(kept.code, kDeclined);
    EXPECT_TRUE(
        kept.err.contains("Replace " + before.toUtf8() + " with " + key.toUtf8() + "!  Are you sure?"))
        << kept.err.toStdString();
    EXPECT_EQ(home.Cell(1, u"ADDRESS"_s), before);
    EXPECT_EQ(home.Vasctl({u"--answer"_s, u"yes"_s, u"drop"_s, key, u"--on"_s, u"txtComp:1"_s}).code, kDone);
    EXPECT_EQ(home.Cell(1, u"ADDRESS"_s).toUpper(), key);
}

TEST_F(Vasctl, TwoCompsOfTheReportChangePlacesWithTheirPictures)
{
    ASSERT_TRUE(home.StartForms());
    const auto image = [this](const QString& object) {
        for (const QJsonValue& row : home.Vasctl({u"report"_s, u"images"_s}).Array())
            if (row.toObject()[u"object"_s].toString() == object)
                return row.toObject()[u"file"_s].toString();
        return QString();
    };
    const QString one = home.Cell(1, u"ADDRESS"_s);
    const QString two = home.Cell(2, u"ADDRESS"_s);
    const QString place = home.Cell(1, u"PROXIMITY"_s);
    const QString picture = image(u"CMP_1_3X5"_s);
    ASSERT_NE(one, two);
    ASSERT_FALSE(picture.isEmpty());
    const auto swapped = home.Vasctl({u"swap"_s, u"1"_s, u"5"_s});
    ASSERT_EQ(swapped.code, kDone) << swapped.err.toStdString();
    EXPECT_EQ(swapped.Object()[u"message"_s].toString(), u"Swapped: comp 1 is empty now, comp 5 is %1."_s.arg(one));
    EXPECT_EQ(home.Cell(1, u"ADDRESS"_s), QString());
    EXPECT_EQ(home.Cell(5, u"ADDRESS"_s), one);
    EXPECT_EQ(home.Cell(5, u"PROXIMITY"_s), place);
    EXPECT_EQ(image(u"CMP_5_3X5"_s), picture);
    EXPECT_EQ(image(u"CMP_1_3X5"_s), QString());
    EXPECT_EQ(home.Cell(2, u"ADDRESS"_s), two);
    for (const QStringList& wrong : {QStringList{u"1"_s}, {u"1"_s, u"1"_s}, {u"0"_s, u"1"_s}, {u"1"_s, u"10"_s},
                                     {u"1"_s, u"x"_s}, {u"1"_s, u"2"_s, u"3"_s}})
        EXPECT_EQ(home.Vasctl(QStringList{u"swap"_s} + wrong).code, kUsage) << wrong.join(u' ').toStdString();
}

/// A forms program whose other report comes to the front once the tabs have been read.
class TwoReports final : public conduit::LinkHandler
{
public:
    QStringList commands;
    int asked = 0, front = 1000;
    QString Request(const QString&, const QString& item) override
    {
        if (item == u"ActiveReports"_s)
            return ++asked < front ? u"OAKST114.RPT,FERRY22.RPT,"_s : u"FERRY22.RPT,OAKST114.RPT,"_s;
        return item == u"ListForms"_s ? u"UA5,COMP46,SUBPHOTO,COMPPH1,"_s : QString();
    }
    void Poke(const QString&, const QString&, const QString&) override {}
    void Execute(const QString&, const QString& command) override { commands.append(command); }
};

TEST_F(Vasctl, ASwapThatIsDeclinedForAnotherReportEndsWithItsCode)
{
    const QTemporaryDir own; // a socket's directory is its user's alone
    const QString path = own.filePath(u"two.sock"_s);
    TwoReports reports;
    conduit::ServerOptions options;
    options.socketPath = path;
    conduit::LinkServer server(reports, options);
    server.Listen();
    const auto run = [&](const QStringList& arguments) {
        QProcess vasctl;
        vasctl.setProcessEnvironment(home.environment);
        vasctl.start(ProgramHome::Program(u"vasctl"_s),
                     QStringList{u"--home"_s, home.Path(), u"--socket"_s, path} + arguments);
        vasctl.closeWriteChannel();
        QEventLoop loop; // the server answers in it
        QObject::connect(&vasctl, &QProcess::finished, &loop, &QEventLoop::quit);
        QTimer::singleShot(4 * kPatienceMs, &loop, &QEventLoop::quit);
        loop.exec();
        return std::pair(vasctl.exitCode(), vasctl.readAllStandardError());
    };
    ASSERT_EQ(run({u"refresh"_s}).first, kDone);
    const int read = reports.asked;
    reports.asked = 0;
    ASSERT_EQ(run({u"--no"_s, u"swap"_s, u"1"_s, u"2"_s}).first, kDone);
    ASSERT_EQ(reports.commands.filter(u"SWAPCOMPS"_s).size(), 1);
    reports.asked = 0;
    reports.front = read + 1; // the swap's own look
    const auto declined = run({u"--no"_s, u"swap"_s, u"1"_s, u"2"_s});
    EXPECT_EQ(declined.first, kDeclined) << declined.second.toStdString();
    EXPECT_TRUE(declined.second.contains("Nothing was sent: FERRY22.RPT is active")) << declined.second.toStdString();
    EXPECT_EQ(reports.commands.filter(u"SWAPCOMPS"_s).size(), 1);
}

TEST_F(Vasctl, AReportThatCannotBeReadRightEndsInNoZero)
{
    ASSERT_TRUE(home.StartForms());
    for (const QString& item : {QString(), u" "_s, u"|3|1"_s})
        EXPECT_EQ(home.Vasctl({u"report"_s, u"cells"_s, item}).code, kUsage) << item.toStdString();
    for (const QString& item : {u"12 OAK ST"_s, u"NOPAGE|1|2"_s, u"UA5|1"_s})
        EXPECT_EQ(home.Vasctl({u"report"_s, u"cells"_s, item}).code, kFailed) << item.toStdString();
    ASSERT_TRUE(QFile::remove(home.Native(u"APPRAISE/KEL.INI"_s)));
    for (const QStringList& line : {QStringList{u"refresh"_s}, {u"report"_s, u"status"_s}, {u"report"_s, u"pages"_s},
                                    {u"report"_s, u"images"_s}, {u"report"_s, u"cells"_s}}) {
        const auto ended = home.Vasctl(line);
        EXPECT_EQ(ended.code, kFailed) << line.join(u' ').toStdString();
        EXPECT_TRUE(ended.err.contains("The report's pages are not known without KEL.INI")) << ended.err.toStdString();
    }
}

TEST_F(Vasctl, ADropSendsTheCityAndNeverTheNeighborhoodAndNamesTheOldProximity)
{
    ASSERT_TRUE(home.StartForms());
    const QString before = home.Cell(1, u"ADDRESS"_s);
    const QString place = home.Cell(1, u"PROXIMITY"_s);
    ASSERT_FALSE(place.isEmpty());
    ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"7 Plain Rd"_s, u"--set"_s, u"NEIGHBORHD=Old Orchard"_s,
                           u"--set"_s, u"CITY=Calder"_s, u"--set"_s, u"ST=OR"_s})
                  .code,
              kDone);
    const auto dropped = home.Vasctl({u"--yes"_s, u"drop"_s, u"7 PLAIN RD"_s, u"--on"_s, u"txtComp:1"_s});
    ASSERT_EQ(dropped.code, kDone) << dropped.err.toStdString();
    EXPECT_TRUE(dropped.Object()[u"message"_s].toString().contains(
        u"is in the report now; proximity is still %1 of %2"_s.arg(place, before)))
        << dropped.out.toStdString();
    EXPECT_EQ(home.Cell(1, u"NEIGHBORHD"_s), u"Calder, OR"_s);
    EXPECT_EQ(home.Cell(1, u"PROXIMITY"_s), place);
    EXPECT_EQ(home.Cell(1, u"CITYSTZIP"_s), QString()) << "a cell is listed once";
}

/// What other forms programs have been seen to answer.
TEST_F(Vasctl, CopesWithTheHabitsOfOtherFormsPrograms)
{
    ASSERT_TRUE(home.StartForms({u"--no-value"_s, u"eral"_s, u"--bare-lists"_s}));
    const auto status = home.Vasctl({u"report"_s, u"status"_s}).Object();
    EXPECT_EQ(status[u"report"_s].toString(), u"OAKST114.RPT"_s);
    EXPECT_EQ(status[u"form"_s].toString(), u"UA5"_s);
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"drop"_s, FirstKey(), u"--on"_s, u"txtComp:3"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"report"_s, u"images"_s}).code, kDone);
    ProgramHome::Stop(home.forms);

    const auto start = [this](const QStringList& options) {
        home.forms.setProcessEnvironment(home.environment);
        home.forms.start(ProgramHome::Program(u"kelforms"_s),
                         QStringList{u"--home"_s, home.Path(), u"--headless"_s} + options);
        return home.forms.waitForStarted();
    };
    const auto refused = [this](const char* words) {
        Ended ended;
        WaitFor([&] { return (ended = home.Vasctl({u"refresh"_s})).err.contains(words); }, 20000);
        EXPECT_EQ(ended.code, kNoLink);
        return ended.err.contains(words);
    };
    ASSERT_TRUE(start({u"--bare-lists"_s, u"C:\\KEL\\DATA\\OAKST114.RPT"_s}));
    EXPECT_TRUE(refused("without a comma"));
    EXPECT_TRUE(home.Vasctl({u"swap"_s, u"1"_s, u"2"_s}).err.contains("without a comma"));
    ProgramHome::Stop(home.forms);
    ASSERT_TRUE(start({u"--blank-for-none"_s, u"--no-value"_s, u"null"_s}));
    EXPECT_TRUE(refused("No report is open"));
    ProgramHome::Stop(home.forms);
    ASSERT_TRUE(start({u"--no-value"_s, u"x"_s}));
    ASSERT_TRUE(home.forms.waitForFinished(10000));
    EXPECT_EQ(home.forms.exitCode(), 2);
}

/// A report without a subject's photo page has no size for its picture objects, and takes no picture.
TEST_F(Vasctl, APictureWhoseObjectTheReportDoesNotHaveIsToldAndTheDataStay)
{
    QFile file(home.Native(u"KEL/DATA/OAKST114.RPT"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QJsonObject report = QJsonDocument::fromJson(file.readAll()).object();
    file.close();
    QJsonArray forms = report[u"forms"_s].toArray();
    for (qsizetype i = forms.size() - 1; i >= 0; --i)
        if (forms[i].toString() == u"SUBPHOTO"_s)
            forms.removeAt(i);
    report[u"forms"_s] = forms;
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(report).toJson());
    file.close();
    ASSERT_TRUE(home.StartForms());
    QString key;
    for (const QJsonValue& value : home.Vasctl({u"records"_s, u"list"_s}).Array())
        if (!value.toObject()[u"FRONT"_s].toString().isEmpty())
            key = value.toObject()[u"CENTRALKEY"_s].toString();
    ASSERT_FALSE(key.isEmpty());
    const auto dropped = home.Vasctl({u"drop"_s, key, u"--on"_s, u"txtComp:3"_s});
    EXPECT_EQ(dropped.code, kFailed);
    EXPECT_TRUE(dropped.err.contains("has no image object")) << dropped.err.toStdString();
    EXPECT_TRUE(dropped.err.contains("is in the report now, its photo is not.")) << dropped.err.toStdString();
    EXPECT_EQ(home.Cell(3, u"ADDRESS"_s).toUpper(), key);
}

TEST_F(Vasctl, ADropThatCannotBeIsExplained)
{
    ASSERT_TRUE(home.StartForms());
    EXPECT_EQ(home.Vasctl({u"drop"_s, FirstKey(), u"--on"_s, u"txtComp:10"_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"drop"_s, FirstKey(), u"--on"_s, u"lblmsg:1"_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"drop"_s, u"1 NOWHERE LN"_s, u"--on"_s, u"txtComp:3"_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"drop"_s, FirstKey()}).code, kUsage);
}

TEST_F(Vasctl, TheDoctorFindsAHomeSoundAndNamesWhatIsWrong)
{
    const auto sound = home.Vasctl({u"doctor"_s});
    EXPECT_EQ(sound.code, kDone) << sound.out.toStdString();
    ASSERT_TRUE(QFile::remove(home.Native(u"VAS2000/Comp2Kel.mdb"_s)));
    ASSERT_TRUE(QFile::resize(home.Native(u"DATABOOK/DATABOOK.MDB"_s), 0));
    const auto ill = home.Vasctl({u"doctor"_s});
    EXPECT_EQ(ill.code, kFailed);
    int wrong = 0;
    for (const QJsonValue& value : ill.Array()) {
        const QJsonObject finding = value.toObject();
        if (finding[u"state"_s].toString() != u"wrong"_s)
            continue;
        ++wrong;
        EXPECT_TRUE(finding[u"subject"_s].toString() == u"Databook"_s ||
                    finding[u"subject"_s].toString() == u"field mapping"_s)
            << finding[u"finding"_s].toString().toStdString();
    }
    EXPECT_EQ(wrong, 2);
}

TEST_F(Vasctl, KeepsPhrases)
{
    const auto phrases = [&](const QString& field) {
        QStringList all;
        for (const QJsonValue& row : home.Vasctl({u"comments"_s, u"list"_s, field}).Array())
            all.append(row.toObject()[u"KEY"_s].toString() + u'=' + row.toObject()[u"PHRASE"_s].toString());
        return all;
    };
    const auto run = [&](const QString& answer, const QStringList& rest) {
        return home.Vasctl(QStringList{answer, u"comments"_s} + rest).code;
    };
    const QString field = u"STORAGE"_s;
    ASSERT_EQ(phrases(field).size(), 6) << "the demo has no phrases for it";
    EXPECT_EQ(run(u"--no"_s, {u"key"_s, field, u"F4"_s}), kNotFound);
    EXPECT_EQ(run(u"--no"_s, {u"key"_s, field.toLower(), u"f4"_s, u"Shed"_s}), kDone);
    EXPECT_EQ(run(u"--no"_s, {u"key"_s, field, u"F4"_s, u"Barn"_s}), kDeclined);
    EXPECT_EQ(run(u"--yes"_s, {u"key"_s, field, u"F4"_s, u"Barn"_s}), kDone);
    EXPECT_EQ(home.Vasctl({u"comments"_s, u"key"_s, field, u"F4"_s}).Object()[u"PHRASE"_s].toString(),
              u"Barn"_s);
    EXPECT_EQ(run(u"--no"_s, {u"add"_s, field, u"Attic"_s}), kDone);
    EXPECT_EQ(run(u"--no"_s, {u"add"_s, field, u"Cellar"_s}), kDone);
    EXPECT_EQ(run(u"--no"_s, {u"add"_s, field, u"Attic"_s}), kFailed) << "a phrase stands there once";
    EXPECT_EQ(phrases(field), (QStringList{u"F3="_s, u"F4=Barn"_s, u"F5="_s, u"F6="_s, u"F7="_s, u"F8="_s,
                                           u"=Attic"_s, u"=Cellar"_s}));
    EXPECT_EQ(run(u"--no"_s, {u"delete"_s, field, u"Attic"_s}), kDeclined);
    EXPECT_EQ(run(u"--yes"_s, {u"delete"_s, field, u"Attic"_s}), kDone);
    EXPECT_EQ(run(u"--yes"_s, {u"delete"_s, field, u"Attic"_s}), kNotFound);
    EXPECT_EQ(phrases(field).mid(6), (QStringList{u"=Cellar"_s}));
    EXPECT_EQ(run(u"--yes"_s, {u"list"_s, u"NOSUCHFIELD"_s}), kUsage);
    EXPECT_EQ(run(u"--yes"_s, {u"key"_s, field, u"F9"_s}), kUsage);
    EXPECT_EQ(run(u"--yes"_s, {u"add"_s, field, QString(300, u'x')}), kFailed);
    home.Vasctl({u"settings"_s, u"set"_s, u"SHARE"_s, u"1"_s});
    const auto missing = home.Vasctl({u"comments"_s, u"list"_s, field});
    EXPECT_EQ(missing.code, kNotFound);
    EXPECT_TRUE(missing.err.contains("comments.mdb")) << missing.err.toStdString();
}

TEST_F(Vasctl, TwoUsersOfOneCommentFileLoseNothing)
{
    // Two processes at a time store different keys of the same row, and of the same field.
    const auto start = [&](QProcess& process, const QStringList& rest) {
        process.setProcessEnvironment(home.environment);
        process.start(ProgramHome::Program(u"vasctl"_s),
                      QStringList{u"--home"_s, home.Path(), u"--yes"_s, u"comments"_s} + rest);
    };
    const QString fields[] = {u"STORAGE"_s, u"RUNFT"_s};
    for (int round = 0; round < 6; ++round) {
        const QString key = u"F%1"_s.arg(3 + round);
        QProcess one, two, three;
        start(one, {u"key"_s, fields[0], key, u"one %1"_s.arg(round)});
        start(two, {u"key"_s, fields[1], key, u"two %1"_s.arg(round)});
        start(three, {u"add"_s, fields[0], u"phrase %1"_s.arg(round)});
        for (QProcess* process : {&one, &two, &three}) {
            ASSERT_TRUE(process->waitForFinished(kPatienceMs));
            EXPECT_EQ(process->exitCode(), kDone) << process->readAllStandardError().toStdString();
        }
    }
    for (int user = 0; user < 2; ++user) {
        const QJsonArray rows = home.Vasctl({u"comments"_s, u"list"_s, fields[user]}).Array();
        EXPECT_EQ(rows.size(), user == 0 ? 12 : 6);
        for (int round = 0; round < 6; ++round) {
            EXPECT_EQ(rows[round].toObject()[u"PHRASE"_s].toString(),
                      u"%1 %2"_s.arg(user == 0 ? u"one"_s : u"two"_s).arg(round));
            if (user == 0) {
                EXPECT_EQ(rows[6 + round].toObject()[u"PHRASE"_s].toString(), u"phrase %1"_s.arg(round));
            }
        }
    }
}

TEST_F(Vasctl, JsonHasNumbersAndDatesAsSuch)
{
    ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"1 Typed Rd"_s, u"--set"_s, u"SELLINGPR=250500"_s, u"--set"_s,
                           u"GLA=1000"_s, u"--set"_s, u"SALEDATE=3/7/2004"_s, u"--set"_s, u"ZIP=01234"_s, u"--set"_s,
                           u"MONTHRENT=call us"_s, u"--set"_s, u"LEASEDATE="_s})
                  .code,
              kDone);
    ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"2 Typed Rd"_s, u"--set"_s, u"MONTHRENT=1E999"_s}).code, kDone);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, u"2 Typed Rd"_s}).Object()[u"MONTHRENT"_s], u"1E999"_s)
        << "no number of JSON is that large";
    const QString sql =
        u"SELECT SELLINGPR, GLA, PRICEGLA, SALEDATE, ZIP, AGE, MONTHRENT, LEASEDATE FROM COMPS WHERE CENTRALKEY = '1 TYPED RD'"_s;
    const QJsonObject row = home.Vasctl({u"sql"_s, sql}).Array()[0].toObject();
    EXPECT_EQ(row[u"SELLINGPR"_s], 250500);
    EXPECT_EQ(row[u"GLA"_s], 1000);
    EXPECT_EQ(row[u"PRICEGLA"_s], 250.5);
    EXPECT_EQ(row[u"SALEDATE"_s], u"2004-03-07"_s);
    EXPECT_EQ(row[u"ZIP"_s], u"01234"_s) << "a text of digits stays a text";
    EXPECT_TRUE(row[u"AGE"_s].isNull());
    EXPECT_EQ(row[u"MONTHRENT"_s], u"call us"_s) << "what is no number is not lost";
    EXPECT_TRUE(row[u"LEASEDATE"_s].isNull());
    EXPECT_EQ(home.Vasctl({u"sql"_s, u"SELECT COUNT(*) AS N FROM COMPS"_s}).Array()[0].toObject()[u"N"_s], 62);
    const QJsonObject found = home.Vasctl({u"find"_s, u"typed"_s}).Array()[0].toObject();
    EXPECT_EQ(found[u"SELLINGPR"_s], 250500);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, u"1 typed rd"_s}).Object()[u"GLA"_s], 1000);
    for (const QJsonValue& photo : home.Vasctl({u"capture"_s, u"list"_s}).Array())
        EXPECT_TRUE(photo.toObject()[u"BYTES"_s].isDouble());
}

TEST_F(Vasctl, NumbersOfEveryListAreNumbers)
{
    ASSERT_EQ(home.Vasctl({u"layouts"_s, u"save"_s, u"Mine"_s}).code, kDone);
    ASSERT_TRUE(QDir().mkpath(home.Native(u"OLD/TRASHCAN"_s)));
    QFile trashed(home.Native(u"OLD/TRASHCAN/A.JPG"_s));
    ASSERT_TRUE(trashed.open(QIODevice::WriteOnly) && trashed.write("a picture") > 0);
    trashed.close();
    QString filed; // a record with photos
    for (const QJsonValue& row : home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, PHOTOS FROM COMPS"_s}).Array())
        if (row.toObject()[u"PHOTOS"_s].toString().contains(u'|'))
            filed = row.toObject()[u"CENTRALKEY"_s].toString().trimmed();
    ASSERT_TRUE(home.StartForms());
    const std::pair<QStringList, QStringList> lists[] = {
        {{u"layouts"_s, u"list"_s}, {u"visible"_s, u"columns"_s}},
        {{u"layouts"_s, u"show"_s, u"Mine"_s}, {u"width"_s}},
        {{u"cities"_s, u"list"_s}, {u"NUMBER"_s}},
        {{u"trash"_s, u"list"_s, u"--dir"_s, u"C:\\OLD\\TRASHCAN"_s}, {u"BYTES"_s}},
        {{u"photos"_s, u"list"_s, filed}, {u"BYTES"_s}},
        {{u"report"_s, u"pages"_s}, {u"page"_s}}};
    for (const auto& [command, columns] : lists) {
        const QJsonObject row = home.Vasctl(command).Array()[0].toObject();
        for (const QString& column : columns)
            EXPECT_TRUE(row[column].isDouble()) << command.join(u' ').toStdString() << ": " << column.toStdString();
    }
}

TEST_F(Vasctl, WhatATerminalWouldObeyIsShown)
{
    const QString evil = u"\u001b[2Jred\u009b31m\u007f\u202eback\u200f\u2067"_s;
    ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"1 Evil Rd"_s, u"--set"_s, u"NOTES="_s + evil}).code, kDone);
    ASSERT_EQ(home.Vasctl({u"cities"_s, u"add"_s, u"--city"_s, evil}).code, kDone);
    const QString city = QString::number(home.Vasctl({u"cities"_s, u"list"_s}).Array().size());
    const QStringList commands[] = {
        {u"--no"_s, u"cities"_s, u"delete"_s, city}, // the question names it
        {u"records"_s, u"show"_s, u"1 Evil Rd"_s},
        {u"sql"_s, u"SELECT NOTES, CENTRALKEY FROM COMPS WHERE CENTRALKEY = '1 EVIL RD'"_s},
        {u"records"_s, u"find"_s, evil},
        {u"settings"_s, u"get"_s, evil},
        {evil},
        {u"capture"_s, u"list"_s, u"/nowhere/"_s + evil},
        {u"--no"_s, u"cities"_s, u"delete"_s, evil},
        {u"--answer"_s, evil, u"records"_s, u"delete"_s, u"1 Evil Rd"_s},
    };
    for (const QStringList& command : commands) {
        for (const bool plain : {true, false}) {
            const auto run = home.Vasctl(plain ? QStringList{u"--plain"_s} + command : command);
            const QString all = QString::fromUtf8(run.out + run.err);
            EXPECT_FALSE(all.isEmpty());
            for (const QChar letter :
                 {QChar(0x1b), QChar(0x9b), QChar(0x7f), QChar(0x202e), QChar(0x200f), QChar(0x2067)})
                EXPECT_FALSE(all.contains(letter))
                    << command.join(u' ').toUtf8().toPercentEncoding(" ").toStdString() << ": U+" << std::hex
                    << int(letter.unicode());
        }
    }
    const auto shown = home.Vasctl({u"--plain"_s, u"records"_s, u"show"_s, u"1 Evil Rd"_s});
    EXPECT_TRUE(QString::fromUtf8(shown.out).contains(u"\u241b[2Jred<U+009B>31m\u2421<U+202E>back<U+200F><U+2067>"_s))
        << shown.out.toStdString();
    EXPECT_EQ(home.Vasctl({u"records"_s, u"show"_s, u"1 Evil Rd"_s}).Object()[u"NOTES"_s].toString(), evil)
        << "a reader of JSON gets every character back";
    // What is shown for a sign takes its own room in a table.
    const QStringList lines =
        QString::fromUtf8(home.Vasctl({u"--plain"_s, u"sql"_s, u"SELECT NOTES, CENTRALKEY FROM COMPS"_s}).out).split(u'\n');
    const qsizetype column = lines[0].indexOf(u"CENTRALKEY"_s);
    const QStringList own = lines.filter(u"1 EVIL RD"_s);
    ASSERT_EQ(own.size(), 1);
    EXPECT_EQ(own[0].indexOf(u"1 EVIL RD"_s), column) << own[0].toStdString();
    // An end of line is none of them.
    ASSERT_EQ(home.Vasctl({u"records"_s, u"edit"_s, u"1 Evil Rd"_s, u"--set"_s, u"NOTES=one\r\ntwo"_s}).code, kDone);
    EXPECT_TRUE(home.Vasctl({u"--plain"_s, u"records"_s, u"show"_s, u"1 Evil Rd"_s}).out.contains("one\ntwo"));
}

TEST_F(Vasctl, WhatIsUnknownEndsWithTwo)
{
    const QStringList lines[] = {
        {u"fly"_s},
        {u"records"_s, u"fly"_s},
        {u"cities"_s, u"fly"_s},
        {u"trash"_s},
        {u"transfer"_s, u"everything"_s},
        {u"sql"_s, u"SELECT NOSUCH FROM COMPS"_s},
        {u"sql"_s, u"SELECT CENTRALKEY FROM NOSUCH"_s},
        {u"sql"_s, u"SELECT CENTRALKEY FORM COMPS"_s},
        {u"records"_s, u"list"_s, u"--where"_s, u"NOSUCH = '1'"_s},
        {u"records"_s, u"list"_s, u"--sort"_s, u"NOSUCH"_s},
        {u"refresh"_s, u"all"_s},
        {u"doctor"_s, u"fly"_s},
        {u"records"_s, u"edit"_s, FirstKey(), u"--set"_s, u"NOSUCH=1"_s},
        {u"comments"_s, u"list"_s, u"NOSUCH"_s},
        {u"search"_s, u"--nosuch"_s, u"1"_s},
    };
    for (const QStringList& line : lines) {
        const auto ended = home.Vasctl(line);
        EXPECT_EQ(ended.code, kUsage) << line.join(u' ').toStdString() << ": " << ended.err.toStdString();
        EXPECT_FALSE(ended.err.isEmpty()) << line.join(u' ').toStdString();
    }
    for (const QStringList& line : {QStringList{u"fly"_s}, QStringList{u"cities"_s, u"fly"_s}})
        EXPECT_EQ(ProgramHome::RunProgram(u"vasctl"_s, QStringList{u"--home"_s, u"/nowhere"_s} + line, home.environment)
                      .code,
                  kUsage)
            << "whatever home";
}

TEST_F(Vasctl, NothingThatFailedEndsWithNought)
{
    QProcess full;
    full.setProcessEnvironment(home.environment);
    full.setStandardOutputFile(u"/dev/full"_s);
    full.start(ProgramHome::Program(u"vasctl"_s), {u"--home"_s, home.Path(), u"records"_s, u"list"_s});
    ASSERT_TRUE(full.waitForFinished(kPatienceMs));
    EXPECT_EQ(full.exitCode(), kFailed) << "what was found reached nobody";
    EXPECT_TRUE(full.readAllStandardError().contains("could not be written"));
    for (const QString& verb : {u"list"_s, u"empty"_s})
        EXPECT_EQ(home.Vasctl({u"--yes"_s, u"trash"_s, verb, u"--dir"_s, u"C:\\NOWHERE\\TRASHCAN"_s}).code, kNotFound);
    // Without the forms program each command that needs it says so.
    for (const QStringList& line : {QStringList{u"refresh"_s}, {u"report"_s, u"status"_s}, {u"report"_s, u"pages"_s},
                                    {u"report"_s, u"images"_s}, {u"report"_s, u"cells"_s}, {u"transfer"_s, u"all"_s},
                                    {u"drop"_s, FirstKey(), u"--on"_s, u"txtComp:1"_s}}) {
        const auto ended = home.Vasctl(line);
        EXPECT_EQ(ended.code, kNoLink) << line.join(u' ').toStdString();
        EXPECT_FALSE(ended.err.isEmpty()) << line.join(u' ').toStdString();
    }
    // A Databook that is not there, and one that is none.
    const QString key = FirstKey();
    const QStringList reads[] = {{u"records"_s, u"list"_s},
                                 {u"records"_s, u"show"_s, key},
                                 {u"records"_s, u"add"_s, u"1 New Rd"_s},
                                 {u"records"_s, u"copy"_s, key, u"2 New Rd"_s},
                                 {u"search"_s, u"--city"_s, u"Marlow"_s},
                                 {u"find"_s, u"oak"_s},
                                 {u"cities"_s, u"assign"_s, u"Old Town"_s, u"--city"_s, u"X"_s},
                                 {u"sql"_s, u"SELECT CENTRALKEY FROM COMPS"_s},
                                 {u"capture"_s, u"list"_s},
                                 {u"photos"_s, u"list"_s, key},
                                 {u"photos"_s, u"orphans"_s},
                                 {u"photos"_s, u"verify"_s},
                                 {u"doctor"_s}};
    const QString databook = home.Native(u"DATABOOK/DATABOOK.MDB"_s);
    for (const bool there : {false, true}) {
        ASSERT_TRUE(QFile::remove(databook));
        if (there) {
            QFile none(databook);
            ASSERT_TRUE(none.open(QIODevice::WriteOnly) && none.write("no database") > 0);
        }
        for (const QStringList& line : reads) {
            const auto ended = home.Vasctl(QStringList{u"--no"_s} + line);
            EXPECT_NE(ended.code, kDone) << line.join(u' ').toStdString() << (there ? " of none" : " of a missing one");
        }
        if (!there) {
            QFile made(databook);
            ASSERT_TRUE(made.open(QIODevice::WriteOnly));
        }
    }
}

TEST_F(Vasctl, WrongCommandLinesAreToldWithTheirCode)
{
    for (const QStringList& line : {QStringList{}, QStringList{u"fly"_s}, QStringList{u"records"_s},
                                    QStringList{u"records"_s, u"show"_s}, QStringList{u"--bogus"_s},
                                    QStringList{u"--yes"_s, u"--no"_s, u"doctor"_s},
                                    QStringList{u"--time-limit"_s, u"0"_s, u"doctor"_s}}) {
        const auto ended = home.Vasctl(line);
        EXPECT_EQ(ended.code, kUsage) << line.join(u' ').toStdString();
        EXPECT_FALSE(ended.err.isEmpty());
    }
    const QStringList strange[] = {
        {u"records"_s, u"add"_s, u"1 Odd Rd"_s, u"--city"_s, u"Marlow"_s},
        {u"records"_s, u"list"_s, u"--price"_s, u"5"_s},
        {u"records"_s, u"show"_s, u"x"_s, u"--set"_s, u"CITY=x"_s},
        {u"records"_s, u"edit"_s, u"x"_s, u"--set"_s, u"CITY=x"_s, u"--type"_s, u"C"_s},
        {u"records"_s, u"delete"_s, u"x"_s, u"--where"_s, u"1=1"_s},
        {u"search"_s, u"--where"_s, u"CITY='x'"_s},
        {u"search"_s, u"--type"_s, u"F"_s},
        {u"find"_s, u"oak"_s, u"--sort"_s, u"GLA"_s},
        {u"cities"_s, u"list"_s, u"--city"_s, u"x"_s},
        {u"trash"_s, u"list"_s, u"--before"_s, u"1/2/2004"_s},
        {u"photos"_s, u"verify"_s, u"--limit"_s, u"5"_s},
        {u"layouts"_s, u"list"_s, u"--limit"_s, u"1"_s},
        {u"settings"_s, u"list"_s, u"--sort"_s, u"key"_s},
        {u"comments"_s, u"list"_s, u"SITE"_s, u"--limit"_s, u"1"_s},
        {u"doctor"_s, u"--data"_s},
    };
    for (const QStringList& line : strange) {
        const auto ended = home.Vasctl(QStringList{u"--plain"_s} + line);
        EXPECT_EQ(ended.code, kUsage) << line.join(u' ').toStdString();
        EXPECT_TRUE(ended.err.contains("means nothing to 'vasctl " + line[0].toUtf8()))
            << ended.err.toStdString();
    }
    EXPECT_EQ(home.Vasctl({u"records"_s, u"find"_s, u"1 Odd Rd"_s}).code, kNotFound);
    const auto help = home.Vasctl({u"--plain"_s, u"--help"_s});
    EXPECT_EQ(help.code, kDone);
    for (const char* word : {"records list", "search", "find TEXT", "--price-from", "--land-size-range",
                             "--sql", "sql", "report status", "refresh", "drop KEY", "settings",
                             "comments list", "doctor", "Exit codes", "--answer", "--json"})
        EXPECT_TRUE(help.out.contains(word)) << word;
    const auto version = home.Vasctl({u"--plain"_s, u"--version"_s});
    EXPECT_EQ(version.code, kDone);
    EXPECT_TRUE(version.out.startsWith("vasctl 1.")) << version.out.toStdString();
    EXPECT_EQ(version.out.count('\n'), 1);
}

TEST_F(Vasctl, TheGuideNamesCommandsAndOptionsThatAreThere)
{
    QFile page(u"" VASCLIP_GUIDE_DIR "/vasctl.md"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const QString help = QString::fromUtf8(home.Vasctl({u"--plain"_s, u"--help"_s}).out);
    int commands = 0;
    static const QRegularExpression kExample(u"`vasctl ([a-z]+(?: [a-z][a-z-]*)?)([^`]*)`"_s);
    for (auto found = kExample.globalMatch(text); found.hasNext();) {
        const auto example = found.next();
        ++commands;
        const QString command = example.captured(1);
        EXPECT_TRUE(help.contains(u"\n  "_s + command) || help.contains(u", "_s + command))
            << command.toStdString();
        static const QRegularExpression kOption(u"--[a-z-]+"_s);
        for (auto option = kOption.globalMatch(example.captured(2)); option.hasNext();) {
            const QString name = option.next().captured();
            EXPECT_TRUE(help.contains(name)) << name.toStdString();
        }
    }
    EXPECT_GE(commands, 12);
}

TEST_F(Vasctl, TheGuideLeavesNoCommandOut)
{
    QFile page(u"" VASCLIP_GUIDE_DIR "/vasctl.md"_s);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    QString help = QString::fromUtf8(home.Vasctl({u"--plain"_s, u"--help"_s}).out);
    help = help.section(u"\nCommands:\n"_s, 1).section(u"\nExit codes:"_s, 0, 0);
    // Two on a line stand behind each other with a comma: "comments add ..., comments delete ...".
    static const QRegularExpression kCommand(u"(?:^  |, )([a-z]+(?: [a-z][a-z-]+)?)(?= |$)"_s,
                                             QRegularExpression::MultilineOption);
    QStringList commands;
    for (auto found = kCommand.globalMatch(help); found.hasNext();) {
        const QString command = found.next().captured(1);
        const QString first = command.section(u' ', 0, 0);
        // What follows a comma in an explanation is no command.
        if (help.contains(u"\n  "_s + first + u' ') || help.startsWith(u"  "_s + first + u' '))
            commands.append(command);
    }
    commands.removeDuplicates();
    EXPECT_GE(commands.size(), 48) << commands.join(u", "_s).toStdString();
    for (const QString& command : std::as_const(commands)) {
        const QRegularExpression named(u"`vasctl %1[ `]"_s.arg(command));
        EXPECT_TRUE(named.match(text).hasMatch()) << command.toStdString();
    }
}

} // namespace

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
