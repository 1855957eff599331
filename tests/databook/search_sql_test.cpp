#include "databook/search_sql.h"

#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <ostream>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kSelect =
    u"SELECT COMPS.FRONT,COMPS.CENTRALKEY,COMPS.ADDRESS, COMPS.PHOTOS, COMPS.CITY, COMPS.ST, COMPS.ZIP, "
    "COMPS.COUNTY, COMPS.NEIGHBORHD, COMPS.CENSUSTRCT, COMPS.TAXMAPNUM, COMPS.GLA, COMPS.SELLINGPR, "
    "COMPS.PRICEGLA, COMPS.BEDROOM, COMPS.BATH, COMPS.AGE, COMPS.APPRSLTYPE, COMPS.STRCODE, COMPS.CTSCODE, "
    "COMPS.LOADDATE, COMPS.SALEDATE, COMPS.PORCHPATI2, COMPS.BASEMENT, COMPS.PHOTOS, COMPS.LONGITUDE, "
    "COMPS.LATITUDE, COMPS.ANCHORED, Comps.DESIGNAPPL, COMPS.LANDSIZE, COMPS.NOTES FROM COMPS"_s;

struct FragmentRow
{
    const char* name;
    QString (*build)();
    QString text;
};
void PrintTo(const FragmentRow& row, std::ostream* out)
{
    *out << row.name;
}

class Fragments : public testing::TestWithParam<FragmentRow>
{};

TEST_P(Fragments, ReadAs)
{
    EXPECT_EQ(GetParam().build().toStdString(), GetParam().text.toStdString());
}

const FragmentRow kFragments[] = {
    {"EqualFirst", [] { return AddEqual({}, u"ST"_s, u" wa "_s); }, u"UCASE(ST) = 'WA'"_s},
    {"EqualSecond", [] { return AddEqual(u"X"_s, u"ST"_s, u"wa"_s); }, u"X AND UCASE(ST) = 'WA'"_s},
    {"EqualKeepsAnAsterisk", [] { return AddEqual({}, u"ST"_s, u"w*"_s); }, u"UCASE(ST) = 'W*'"_s},
    {"EqualBlank", [] { return AddEqual(u"X"_s, u"ST"_s, u"   "_s); }, u"X"_s},
    {"LikeFirst", [] { return AddLike({}, u"CITY"_s, u"Elm Grove "_s, true); },
     u"UCASE(CITY) LIKE '*ELM GROVE*'"_s},
    {"LikeSecond", [] { return AddLike(u"X"_s, u"CITY"_s, u"elm"_s, true); },
     u"X AND UCASE(CITY) LIKE '*ELM*'"_s},
    {"LikeWithoutWildcards", [] { return AddLike({}, u"CITY"_s, u"elm"_s, false); },
     u"UCASE(CITY) LIKE 'ELM'"_s},
    {"LikeDoesNotEscapeAQuote", [] { return AddLike({}, u"CITY"_s, u"o'fallon"_s, true); },
     u"UCASE(CITY) LIKE '*O'FALLON*'"_s},
    {"LikeEmpty", [] { return AddLike({}, u"CITY"_s, {}, true); }, {}},
    {"LikeAccents", [] { return AddLike({}, u"CITY"_s, u"cañon"_s, true); }, u"UCASE(CITY) LIKE '*CAÑON*'"_s},
    {"Range", [] { return AddNumericRange({}, u"SELLINGPR"_s, u"100000"_s, u"15000"_s); },
     u"SELLINGPR BETWEEN 85000 AND 115000"_s},
    {"RangeSecond", [] { return AddNumericRange(u"X"_s, u"GLA"_s, u"1500"_s, u"100"_s); },
     u"X AND GLA BETWEEN 1400 AND 1600"_s},
    {"RangeWithoutOne", [] { return AddNumericRange({}, u"AGE"_s, u"12"_s, {}); },
     u"AGE BETWEEN 12 AND 12"_s},
    {"RangeBelowZero", [] { return AddNumericRange({}, u"AGE"_s, u"2"_s, u"5"_s); },
     u"AGE BETWEEN -3 AND 7"_s},
    {"RangeFraction", [] { return AddNumericRange({}, u"PRICEGLA"_s, u".75"_s, u".5"_s); },
     u"PRICEGLA BETWEEN .25 AND 1.25"_s},
    {"RangeOfAPriceAsWritten", [] { return AddNumericRange({}, u"SELLINGPR"_s, u"$250,000"_s, u"1,000"_s); },
     u"SELLINGPR BETWEEN 249000 AND 251000"_s},
    {"RangeOfNoNumber", [] { return AddNumericRange({}, u"AGE"_s, u"new'"_s, {}); },
     u"AGE BETWEEN 0 AND 0"_s},
    {"RangeBlank", [] { return AddNumericRange(u"X"_s, u"AGE"_s, u"  "_s, u"5"_s); }, u"X"_s},
    {"LandSize", [] { return AddTextRange({}, u"LANDSIZE"_s, u"8000"_s, u"500"_s); },
     u"LANDSIZE BETWEEN VAL('7500') AND VAL('8500')"_s},
    {"LandSizeSecond", [] { return AddTextRange(u"X"_s, u"LANDSIZE"_s, u"1"_s, {}); },
     u"X AND LANDSIZE BETWEEN VAL('1') AND VAL('1')"_s},
    {"LandSizeBlank", [] { return AddTextRange({}, u"LANDSIZE"_s, {}, u"5"_s); }, {}},
    {"DateFirst", [] { return AddDate({}, u"SALEDATE"_s, u"3/7/2004"_s, u"On or Prior"_s); },
     u"COMPS.SALEDATE<=#3/7/2004#"_s},
    {"DateSecond", [] { return AddDate(u"X"_s, u"LOADDATE"_s, u"3/7/2004"_s, u"Equal To"_s); },
     u"X AND COMPS.LOADDATE=#3/7/2004#"_s},
    {"DateWithoutComparison", [] { return AddDate({}, u"SALEDATE"_s, u"3/7/2004"_s, u" "_s); },
     u"COMPS.SALEDATE>=#3/7/2004#"_s},
    {"DateEmpty", [] { return AddDate(u"X"_s, u"SALEDATE"_s, {}, u"Equal To"_s); }, u"X"_s},
};
INSTANTIATE_TEST_SUITE_P(Search, Fragments, testing::ValuesIn(kFragments),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SearchSql, ComparisonsGoByTheirWords)
{
    const std::pair<QString, QString> rows[] = {
        {u"On or Prior"_s, u"<="_s},
        {u"ON OR PRIOR TO"_s, u"<="_s},
        {u" on or prior "_s, u"<="_s},
        {u"Equal"_s, u"="_s},
        {u"Equal To"_s, u"="_s},
        {u"On or After"_s, u">="_s},
        {u"On Or After"_s, u">="_s},
        {u"on or after to"_s, u">="_s},
        {u"Before"_s, {}},
        {u""_s, {}},
    };
    for (const auto& [words, sign] : rows)
        EXPECT_EQ(DateComparison(words), sign) << words.toStdString();
}

TEST(SearchSql, TheTableNamesEveryFieldOnceInItsOrder)
{
    QStringList fields;
    QStringList controls;
    for (const SearchField& row : SearchFields()) {
        fields.append(row.field);
        controls.append(row.control);
        if (!row.rangeControl.isEmpty())
            controls.append(row.rangeControl);
    }
    EXPECT_EQ(controls.join(u' '),
              u"cboSearchKey cboAddr txtCity txtState txtZip txtCounty txtNeighbor txtBedRoom txtBath "
              "txtTaxMap txtCensus txtStories txtCTS txtType txtPorchPati2 txtNotes txtdesignappl txtSQFt "
              "txtSQftRange txtPrice txtPriceRange txtage txtAgeRange txtLandSize txtLandSizeRange "
              "txtSaleDate cboSaleRange txtLoadDate cboLoadRange txtPriceGLA txtPriceGLARange"_s);
    EXPECT_EQ(fields.join(u' '),
              u"CENTRALKEY ADDRESS CITY ST ZIP COUNTY NEIGHBORHD BEDROOM BATH TAXMAPNUM CENSUSTRCT STRCODE "
              "CTSCODE APPRSLTYPE PORCHPATI2 NOTES DESIGNAPPL GLA SELLINGPR AGE LANDSIZE SALEDATE LOADDATE "
              "PRICEGLA"_s);
}

TEST(SearchSql, NothingFilledIsThePlainList)
{
    const SearchStatement plain = BuildSearch({});
    EXPECT_EQ(plain.sql.toStdString(), kSelect.toStdString());
    EXPECT_EQ(plain.orderBy, QString());
}

TEST(SearchSql, SortsAndFiltersOfAnEmptyForm)
{
    const std::pair<int, QString> rows[] = {
        {0, {}},
        {1, u" ORDER BY COMPS.ADDRESS"_s},
        {2, u" WHERE ISDATE(COMPS.SALEDATE) ORDER BY COMPS.SALEDATE DESC"_s},
        {3, u" ORDER BY COMPS.SELLINGPR DESC"_s},
        {4, u" ORDER BY COMPS.GLA DESC"_s},
        {5, u" ORDER BY COMPS.PRICEGLA DESC"_s},
        {6, u" WHERE ISDATE(COMPS.LOADDATE) ORDER BY COMPS.LOADDATE DESC"_s},
    };
    for (const auto& [sort, tail] : rows) {
        SearchForm form;
        form.sort = sort;
        EXPECT_EQ(BuildSearch(form).sql.toStdString(), (kSelect + tail).toStdString());
    }
    SearchForm form;
    form.ignorePending = true;
    EXPECT_EQ(BuildSearch(form).sql, kSelect + u" WHERE COMPS.SALEDATE <> #01/01/1900#"_s);
    form.sort = 2;
    EXPECT_EQ(BuildSearch(form).sql, kSelect +
                                         u" WHERE ISDATE(COMPS.SALEDATE) AND COMPS.SALEDATE <> #01/01/1900#"
                                         " ORDER BY COMPS.SALEDATE DESC"_s);
    EXPECT_EQ(BuildSearch(form).orderBy, u" ORDER BY COMPS.SALEDATE DESC"_s);
}

TEST(SearchSql, EveryFieldOfAFullForm)
{
    SearchForm form;
    for (const SearchField& row : SearchFields()) {
        form.texts[row.control] = row.kind == SearchKind::Date ? u"3/7/2004"_s
                                  : row.kind == SearchKind::Like || row.kind == SearchKind::Equal ? u"a"_s
                                                                                                  : u"10"_s;
        if (!row.rangeControl.isEmpty())
            form.texts[row.rangeControl] = row.kind == SearchKind::Date ? u"Equal To"_s : u"2"_s;
    }
    form.sort = 6;
    form.ignorePending = true;
    EXPECT_EQ(
        BuildSearch(form).sql.mid(kSelect.size()).toStdString(),
        " WHERE UCASE(CENTRALKEY) LIKE '*A*' AND UCASE(ADDRESS) LIKE '*A*' AND UCASE(CITY) LIKE '*A*' AND "
        "UCASE(ST) = 'A' AND UCASE(ZIP) LIKE '*A*' AND UCASE(COUNTY) LIKE '*A*' AND UCASE(NEIGHBORHD) LIKE "
        "'*A*' AND UCASE(BEDROOM) = 'A' AND UCASE(BATH) LIKE '*A*' AND UCASE(TAXMAPNUM) LIKE '*A*' AND "
        "UCASE(CENSUSTRCT) LIKE '*A*' AND UCASE(STRCODE) LIKE '*A*' AND UCASE(CTSCODE) LIKE '*A*' AND "
        "UCASE(APPRSLTYPE) LIKE '*A*' AND UCASE(PORCHPATI2) LIKE '*A*' AND UCASE(NOTES) LIKE '*A*' AND "
        "UCASE(DESIGNAPPL) LIKE '*A*' AND GLA BETWEEN 8 AND 12 AND SELLINGPR BETWEEN 8 AND 12 AND AGE "
        "BETWEEN 8 AND 12 AND LANDSIZE BETWEEN VAL('8') AND VAL('12') AND COMPS.SALEDATE=#3/7/2004# AND "
        "COMPS.LOADDATE=#3/7/2004# AND PRICEGLA BETWEEN 8 AND 12 AND ISDATE(COMPS.LOADDATE) AND "
        "COMPS.SALEDATE <> #01/01/1900# ORDER BY COMPS.LOADDATE DESC");
}

TEST(SearchSql, ARangeOfDatesThatIsNoneIsRefusedInWords)
{
    SearchForm form;
    form.texts["txtSaleDate"_L1] = u"3/7/2004"_s;
    form.texts["cboSaleRange"_L1] = u"Before"_s;
    try {
        static_cast<void>(BuildSearch(form));
        FAIL() << "taken";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Description(),
                  u"\"Before\" is no date range. Choose On or Prior, Equal To or On or After."_s);
    }
}

TEST(SearchSql, Percentages)
{
    EXPECT_EQ(Look4Percent(u"1999"_s, u"10%"_s), u"199"_s);
    EXPECT_EQ(Look4Percent(u"-1999"_s, u"10%"_s), u"-199"_s);
    EXPECT_EQ(Look4Percent(u"200"_s, u" 12.5 % "_s), u"25"_s);
    EXPECT_EQ(Look4Percent(u"200"_s, u"%"_s), u"0"_s);
    EXPECT_EQ(Look4Percent(u"200"_s, u"10"_s), u"10"_s);
    EXPECT_EQ(Look4Percent({}, u"10%"_s), u"0"_s);

    EXPECT_EQ(AdjustPercent(u"100000"_s, {}, 15), u"15000"_s);
    EXPECT_EQ(AdjustPercent(u"100000"_s, u"0"_s, 15), u"15000"_s);
    EXPECT_EQ(AdjustPercent(u"1999"_s, u"  "_s, 15), u"299.85"_s);
    EXPECT_EQ(AdjustPercent(u"100000"_s, u"1"_s, 15), std::nullopt);
}

TEST(SearchSql, CountsAreWords)
{
    EXPECT_EQ(FoundText(0), u"No comps were found using the search fields above.  Check spelling or be less "
                            "specific"_s);
    EXPECT_EQ(FoundText(1), u"1 comp found."_s);
    EXPECT_EQ(FoundText(1234), u"1234 comps found."_s);
}

} // namespace
} // namespace vasclip::databook
