#include "upkeep/pager_home.h"

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

TEST_F(Pager, AnEmptySearchIsOnePageThatSaysSo)
{
    Lay("column CITY\ntotal count\n");
    const auto pages = Pages(1);
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"No records were found."_s));
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"Page 1 of 1"_s));
}

TEST_F(Pager, EveryPageHasTheHeadingsAndItsNumber)
{
    Lay("title \"The title\"\nfooter \"{COMPANY}\"\ncolumn ADDRESS \"Where\"\ncolumn SELLINGPR \"Price\" as "
        "money\n");
    for (int i = 0; i < 300; ++i)
        records.append(
            {{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"SELLINGPR"_s, QString::number(1000 * i + 7)}});
    const auto pages = Pages(7);
    ASSERT_GT(pages.size(), 3);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        const QStringList texts = TextsOf(pages[i]);
        for (const QString& text : {u"The title"_s, u"Where"_s, u"Price"_s, u"Acme"_s, u"March 7, 2026"_s,
                                    u"Page %1 of 7"_s.arg(i + 1)})
            EXPECT_EQ(texts.count(text), 1) << text.toStdString() << " on page " << i + 1;
    }
    for (int i = 0; i < 300; ++i)
        EXPECT_GE(PageOf(pages, u"%1 Oak St"_s.arg(i)), 0) << i;
    ExpectTidy(pages);
}

TEST_F(Pager, NumbersOfAColumnEndInOneLine)
{
    Lay("column ADDRESS\ncolumn SELLINGPR as money\n");
    for (const QString& price : {u"9"_s, u"1250000"_s, u"178.25"_s})
        records.append({{u"ADDRESS"_s, u"A"_s}, {u"SELLINGPR"_s, price}});
    const auto pages = Pages();
    std::set<int> ends;
    for (const paper::TextItem& item : pages[0].texts)
        if (item.text.startsWith(u'$'))
            ends.insert(item.at.x() + item.width);
    EXPECT_EQ(ends.size(), 1U);
}

TEST_F(Pager, ARecordIsNeverTornFromItsFirstLine)
{
    Lay("text 9pt\nheading \"{ADDRESS}\"\nline \"{CITY}\"\nsection \"Sale\" columns 1\nfield GLA\nfield "
        "AGE\nfield SITE\nfield ZIP\nfield BATH\n");
    for (int i = 0; i < 80; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)},
                        {u"CITY"_s, u"City %1"_s.arg(i)},
                        {u"GLA"_s, u"area %1"_s.arg(i)},
                        {u"AGE"_s, u"age %1"_s.arg(i)},
                        {u"SITE"_s, i % 3 == 0 ? QString() : u"site %1"_s.arg(i)},
                        {u"ZIP"_s, i % 5 == 0 ? QString() : u"z"_s},
                        {u"BATH"_s, u"bath %1"_s.arg(i)}});
    const auto pages = Pages();
    ASSERT_GT(pages.size(), 3);
    int torn = 0;
    for (int i = 0; i < 80; ++i) {
        const qsizetype page = PageOf(pages, u"%1 Oak St"_s.arg(i));
        EXPECT_EQ(page, PageOf(pages, u"City %1"_s.arg(i))) << i;
        EXPECT_EQ(page, PageOf(pages, u"area %1"_s.arg(i))) << i;
        torn += page != PageOf(pages, u"bath %1"_s.arg(i)) ? 1 : 0;
    }
    EXPECT_GT(torn, 0) << "no record met the end of a page: the test shows nothing";
    ExpectTidy(pages);
}

TEST_F(Pager, ARecordThatGoesOnIsNamedOnTheNextPage)
{
    Lay("heading \"{ADDRESS}\"\nnotes NOTES \"Notes\"\n");
    records.append({{u"ADDRESS"_s, u"1 Oak St"_s},
                    {u"NOTES"_s, QString(u"A very long remark about the house. "_s).repeated(2000)}});
    const auto pages = Pages();
    ASSERT_GT(pages.size(), 5);
    EXPECT_FALSE(TextsOf(pages[0]).contains(u"1 Oak St (continued)"_s));
    for (qsizetype i = 1; i < pages.size(); ++i)
        EXPECT_TRUE(TextsOf(pages[i]).contains(u"1 Oak St (continued)"_s)) << i;
    ExpectTidy(pages);
}

TEST_F(Pager, KeepsARecordTogetherThatFitsOnAPage)
{
    Lay("record keep\nheading \"{ADDRESS}\"\nnotes NOTES \"\"\n");
    for (int i = 0; i < 30; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)},
                        {u"NOTES"_s, u"first %1\nb\nc\nd\ne\nf\ng\nh\ni\nlast %1"_s.arg(i)}});
    const auto pages = Pages();
    ASSERT_GT(pages.size(), 2);
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(PageOf(pages, u"%1 Oak St"_s.arg(i)), PageOf(pages, u"last %1"_s.arg(i))) << i;
        EXPECT_GE(PageOf(pages, u"last %1"_s.arg(i)), 0) << i;
    }
    ExpectTidy(pages);
}

TEST_F(Pager, AnOwnPageForEachRecord)
{
    Lay("record page\nheading \"{ADDRESS}\"\n");
    for (int i = 0; i < 5; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}});
    EXPECT_EQ(Pages().size(), 5);
}

TEST_F(Pager, GroupsHaveHeadingsAndTotalsOfTheirOwn)
{
    Lay("group CITY \"{CITY}\"\ncolumn ADDRESS\ntotal count \"Records\"\ntotal sum GLA \"Area\"\n");
    for (int i = 0; i < 5; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)},
                        {u"CITY"_s, i < 2 ? u"Marlow"_s : u"Tannery"_s},
                        {u"GLA"_s, u"100"_s}});
    const auto pages = Pages();
    ASSERT_EQ(pages.size(), 1);
    const QStringList texts = TextsOf(pages[0]);
    EXPECT_EQ(texts.count(u"Marlow"_s), 1);
    EXPECT_EQ(texts.count(u"Tannery"_s), 1);
    EXPECT_EQ(texts.count(u"Group totals"_s), 2);
    EXPECT_EQ(texts.count(u"Report totals"_s), 1);
    EXPECT_EQ(texts.count(u"200"_s), 1);
    EXPECT_EQ(texts.count(u"300"_s), 1);
    EXPECT_EQ(texts.count(u"500"_s), 1);
}

TEST_F(Pager, AGroupThatGoesOnIsNamedOnTheNextPage)
{
    Lay("group CITY \"{CITY}\"\ncolumn ADDRESS\n");
    for (int i = 0; i < 200; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"CITY"_s, u"Marlow"_s}});
    const auto pages = Pages();
    ASSERT_GT(pages.size(), 2);
    EXPECT_EQ(PageOf(pages, u"Marlow (continued)"_s), 1);
}

TEST_F(Pager, MakesAPageAgainFromWhereItBegan)
{
    Lay("group CITY \"{CITY}\"\nheading \"{ADDRESS}\"\nnotes NOTES \"Notes\"\ntotal sum GLA \"Area\"\n");
    for (int i = 0; i < 40; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)},
                        {u"CITY"_s, u"City %1"_s.arg(i / 7)},
                        {u"GLA"_s, QString::number(i)},
                        {u"NOTES"_s, QString(u"Remark %1. "_s.arg(i)).repeated(5 + 40 * (i % 4))}});
    ReportPager pager(layout, layout.sheet, facts, Feed(), setter);
    QList<ReportPager::Place> places;
    QList<QStringList> texts;
    for (ReportPager::Place place;;) {
        const ReportPager::Place began = place;
        const auto page = pager.Next(place, 0);
        if (!page)
            break;
        places.append(began);
        texts.append(TextsOf(*page));
    }
    ASSERT_GT(places.size(), 6);
    for (qsizetype i = places.size() - 1; i >= 0; --i) {
        ReportPager::Place place = places[i];
        EXPECT_EQ(TextsOf(*pager.Next(place, 0)), texts[i]) << "page " << i + 1;
    }
}

TEST_F(Pager, LeavesOutARecordThatIsGone)
{
    Lay("column ADDRESS\ntotal count \"Records\"\n");
    records = {{{u"ADDRESS"_s, u"1 Oak St"_s}}, {}, {{u"ADDRESS"_s, u"3 Oak St"_s}}};
    const auto pages = Pages();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"3 Oak St"_s));
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"2"_s));
}

} // namespace
} // namespace vasclip::upkeep
