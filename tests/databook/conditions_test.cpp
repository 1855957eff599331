#include "databook/conditions.h"

#include "databook/search_sql.h"

#include <gtest/gtest.h>

namespace vasclip::databook {
namespace {

using namespace Qt::Literals::StringLiterals;

class ConditionChips : public testing::Test
{
protected:
    forms::ControlSet set;
    RecordDesk desk{set};
    void Search(const SearchForm& form)
    {
        const SearchStatement statement = BuildSearch(form);
        desk.state = {.sqlText = statement.sql,
                      .orderByText = statement.orderBy,
                      .searchOnDisplay = true,
                      .search = form};
    }
    [[nodiscard]] QStringList Words() const
    {
        QStringList words;
        for (const forms::Chip& chip : Conditions(desk))
            words.append(chip.words);
        return words;
    }
};

TEST_F(ConditionChips, SpeakAsAnAppraiserDoes)
{
    Search({.texts = {{"cboAddr"_L1, u" oak "_s},
                      {"txtState"_L1, u"wa"_s},
                      {"txtType"_L1, u"f"_s},
                      {"txtSQFt"_L1, u"1,800"_s},
                      {"txtSQftRange"_L1, u"200"_s},
                      {"txtPrice"_L1, u"$100000"_s},
                      {"txtPriceRange"_L1, u"15000"_s},
                      {"txtage"_L1, u"12"_s},
                      {"txtSaleDate"_L1, u"1/1/2024"_s},
                      {"cboSaleRange"_L1, u"On or After"_s},
                      {"txtLoadDate"_L1, u"3/7/2004"_s},
                      {"cboLoadRange"_L1, u"On or Prior"_s}},
            .sort = 2,
            .ignorePending = true});
    EXPECT_EQ(Words(), (QStringList{u"Address contains \"oak\""_s, u"State is \"wa\""_s,
                                    u"Type: Single Family"_s, u"1,600 to 2,000 sq. ft."_s,
                                    u"Price 85,000 to 115,000"_s, u"Age 12"_s,
                                    u"Sold on or after 1/1/2024"_s, u"Loaded on or before 3/7/2004"_s,
                                    u"With a sale date"_s, u"Without pending sales"_s}));
}

TEST_F(ConditionChips, EveryFieldOfASearchHasWordsOfItsOwn)
{
    QStringList all;
    for (const SearchField& field : SearchFields()) {
        Search({.texts = {{field.control, u"7"_s}}});
        const QStringList words = Words();
        ASSERT_EQ(words.size(), 1) << field.control.data();
        EXPECT_GT(words.first().size(), 4) << words.first().toStdString();
        EXPECT_FALSE(all.contains(words.first())) << words.first().toStdString();
        all += words;
    }
}

TEST_F(ConditionChips, TheQuickFindIsOneToo)
{
    EXPECT_TRUE(Words().isEmpty());
    desk.txtQuickFind.SetText(u"  oak   vale "_s);
    EXPECT_EQ(Conditions(desk), (QList<forms::Chip>{{kQuickFindChip, u"Quick find: oak vale"_s}}));
    desk.txtQuickFind.SetText(u"  "_s);
    EXPECT_TRUE(Words().isEmpty());
}

TEST_F(ConditionChips, ClosingTheOneAboutPendingSalesBringsThemBack)
{
    Search({.texts = {{"txtCity"_L1, u"Marlow"_s}}, .ignorePending = true});
    ASSERT_EQ(Words(), (QStringList{u"City contains \"Marlow\""_s, u"Without pending sales"_s}));
    const QString chip = Conditions(desk).last().id;
    Relax(desk.state, chip);
    EXPECT_EQ(desk.state.sqlText, BuildSearch({.texts = {{"txtCity"_L1, u"Marlow"_s}}}).sql);
    EXPECT_EQ(Words(), QStringList{u"City contains \"Marlow\""_s});
    Search({.texts = {}, .ignorePending = true});
    Relax(desk.state, chip);
    EXPECT_FALSE(desk.state.searchOnDisplay) << "it was the only one";
}

TEST_F(ConditionChips, ClosingOneSearchesWithoutItInTheOrderOfNow)
{
    const SearchForm form{.texts = {{"txtCity"_L1, u"Marlow"_s},
                                    {"txtPrice"_L1, u"100"_s},
                                    {"txtPriceRange"_L1, u"10"_s}},
                          .sort = 2};
    Search(form);
    int sortGrid = 2;
    ASSERT_TRUE(SortBy(desk.state, sortGrid, u"ADDRESS"_s));
    Relax(desk.state, u"txtPrice"_s);
    SearchForm left{.texts = {{"txtCity"_L1, u"Marlow"_s}}, .sort = 2};
    SearchStatement wanted = BuildSearch(left);
    wanted.sql.chop(wanted.orderBy.size());
    EXPECT_EQ(desk.state.sqlText, wanted.sql + u" ORDER BY COMPS.ADDRESS"_s);
    EXPECT_EQ(Words(), (QStringList{u"City contains \"Marlow\""_s, u"With a sale date"_s}));
    Relax(desk.state, u"optSort"_s);
    EXPECT_FALSE(desk.state.sqlText.contains(u"ISDATE"_s)) << desk.state.sqlText.toStdString();
    EXPECT_TRUE(desk.state.sqlText.endsWith(u" ORDER BY COMPS.ADDRESS"_s));
    ASSERT_TRUE(desk.state.searchOnDisplay);
    Relax(desk.state, u"txtCity"_s);
    EXPECT_FALSE(desk.state.searchOnDisplay) << "the last one is closed";
}

} // namespace
} // namespace vasclip::databook
