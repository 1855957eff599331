#include "upkeep/layout_parser.h"
#include "upkeep/report_pager.h"

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace vasclip::upkeep {
namespace {

using Fields = QList<std::pair<QString, QString>>;

store::Record RecordOf(const Fields& fields)
{
    auto names = std::make_shared<store::Record::Names>();
    QVariantList values;
    for (const auto& [name, value] : fields) {
        names->insert(name, static_cast<int>(values.size()));
        values.append(value);
    }
    return {names, values};
}

/// A report of made-up records.
class Pager : public testing::Test
{
protected:
    paper::Typesetter setter;
    ReportFacts facts{.now = QDateTime({2026, 3, 7}, {9, 0}), .count = 0, .databook = {}, .search = {}, .company = u"Acme"_s};
    QList<Fields> records;
    ReportLayout layout;
    int asked = 0;

    void Lay(const QByteArray& text) { layout = ParseLayout(text); }
    [[nodiscard]] RecordFeed Feed()
    {
        return {records.size(), [this](qint64 place) -> std::optional<store::Record> {
                    ++asked;
                    if (records[place].isEmpty())
                        return std::nullopt;
                    return RecordOf(records[place]);
                }};
    }
    QList<paper::Page> Pages(int total = 0)
    {
        ReportPager pager(layout, layout.sheet, facts, Feed(), setter);
        ReportPager::Place place;
        QList<paper::Page> pages;
        while (const auto page = pager.Next(place, total)) {
            pages.append(*page);
            if (pages.size() > 5000) {
                ADD_FAILURE() << "no end";
                break;
            }
        }
        return pages;
    }
    static QStringList TextsOf(const paper::Page& page)
    {
        QStringList texts;
        for (const paper::TextItem& item : page.texts)
            texts.append(item.text);
        return texts;
    }
    static qsizetype PageOf(const QList<paper::Page>& pages, const QString& text)
    {
        for (qsizetype i = 0; i < pages.size(); ++i)
            if (TextsOf(pages[i]).contains(text))
                return i;
        return -1;
    }
    /// Everything stands within the margins, and no two texts one on the other.
    void ExpectTidy(const QList<paper::Page>& pages) const
    {
        const QRect inside = layout.sheet.Inside();
        for (const paper::Page& page : pages) {
            std::set<std::pair<int, int>> places;
            for (const paper::TextItem& item : page.texts) {
                EXPECT_GE(item.at.x(), inside.left()) << item.text.toStdString();
                EXPECT_LE(item.at.x() + item.width, inside.right() + 2) << item.text.toStdString();
                EXPECT_GE(item.at.y(), inside.top());
                EXPECT_LE(item.at.y(), inside.bottom());
                EXPECT_TRUE(places.insert({item.at.x(), item.at.y()}).second) << item.text.toStdString();
            }
            for (const paper::PictureItem& item : page.pictures)
                EXPECT_TRUE(inside.contains(item.box)) << item.name.toStdString();
        }
    }
};

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
    Lay("title \"The title\"\nfooter \"{COMPANY}\"\ncolumn ADDRESS \"Where\"\ncolumn SELLINGPR \"Price\" as money\n");
    for (int i = 0; i < 300; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"SELLINGPR"_s, QString::number(1000 * i + 7)}});
    const auto pages = Pages(7);
    ASSERT_GT(pages.size(), 3);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        const QStringList texts = TextsOf(pages[i]);
        for (const QString& text : {u"The title"_s, u"Where"_s, u"Price"_s, u"Acme"_s, u"March 7, 2026"_s, u"Page %1 of 7"_s.arg(i + 1)})
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
    Lay("text 9pt\nheading \"{ADDRESS}\"\nline \"{CITY}\"\nsection \"Sale\" columns 1\nfield GLA\nfield AGE\nfield SITE\nfield ZIP\nfield BATH\n");
    for (int i = 0; i < 80; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"CITY"_s, u"City %1"_s.arg(i)}, {u"GLA"_s, u"area %1"_s.arg(i)},
                        {u"AGE"_s, u"age %1"_s.arg(i)}, {u"SITE"_s, i % 3 == 0 ? QString() : u"site %1"_s.arg(i)},
                        {u"ZIP"_s, i % 5 == 0 ? QString() : u"z"_s}, {u"BATH"_s, u"bath %1"_s.arg(i)}});
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
    records.append({{u"ADDRESS"_s, u"1 Oak St"_s}, {u"NOTES"_s, QString(u"A very long remark about the house. "_s).repeated(2000)}});
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
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"CITY"_s, i < 2 ? u"Marlow"_s : u"Tannery"_s}, {u"GLA"_s, u"100"_s}});
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
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"CITY"_s, u"City %1"_s.arg(i / 7)}, {u"GLA"_s, QString::number(i)},
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

TEST_F(Pager, PhotosHaveCaptionsAndStayWithinTheirRecord)
{
    Lay("record keep\nheading \"{ADDRESS}\"\nphotos front beside high 1.5in captions\nsection \"\" columns 1\nfield GLA\nphotos all across 3 high 1.5in captions\n");
    for (int i = 0; i < 12; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}, {u"GLA"_s, u"100"_s},
                        {u"PHOTOS"_s, i == 0 ? u" "_s : u"FRONT VIEW|f%1\r\nStreet|s%1\r\n"_s.arg(i)}});
    const auto pages = Pages();
    ExpectTidy(pages);
    int pictures = 0;
    for (const paper::Page& page : pages) {
        pictures += static_cast<int>(page.pictures.size());
        for (const paper::PictureItem& one : page.pictures)
            for (const paper::PictureItem& other : page.pictures)
                EXPECT_TRUE(&one == &other || !one.box.intersects(other.box));
        for (const paper::TextItem& text : page.texts)
            for (const paper::PictureItem& picture : page.pictures)
                EXPECT_FALSE(picture.box.adjusted(20, 20, -20, -20).contains(text.at)) << text.text.toStdString();
    }
    EXPECT_EQ(pictures, 11 * 3);
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"Front View"_s));
    EXPECT_TRUE(TextsOf(pages[0]).contains(u"Street"_s));
}

TEST_F(Pager, TakesScriptsOfEveryDirection)
{
    Lay("column ADDRESS\ncolumn CITY lines 3\n");
    for (const QString& text : {u"שלום 12 עולם"_s, u"🏠🏠🏠 Main"_s, QString(QChar(0xd800)), QString(2000, u'ש'), QString(2000, u'W')})
        records.append({{u"ADDRESS"_s, text}, {u"CITY"_s, text}});
    ExpectTidy(Pages());
}

TEST_F(Pager, HoldsNoMoreThanOneRecord)
{
    Lay("column ADDRESS\n");
    for (int i = 0; i < 500; ++i)
        records.append({{u"ADDRESS"_s, u"%1 Oak St"_s.arg(i)}});
    static_cast<void>(Pages());
    EXPECT_LE(asked, 520) << "each is read once, and once more where a page begins";
}

} // namespace
} // namespace vasclip::upkeep
