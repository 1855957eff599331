#include "databook/comp_fields.h"
#include "databook/records.h"
#include "demo/databook_file.h"
#include "demo/dice.h"
#include "demo/market.h"
#include "platform/text/dates.h"
#include "store/schema.h"

#include <QSet>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

const QList<Comp>& Market()
{
    static const QList<Comp> market = MakeMarket(520);
    return market;
}

QString Field(const Comp& comp, const QString& name)
{
    return comp.fields.value(name);
}

TEST(Dice, IsTheGeneratorOfTheStandard)
{
    Dice dice(5489);
    quint32 number = 0;
    for (int i = 0; i < 10000; ++i)
        number = dice.Next();
    EXPECT_EQ(number, 4123659995u); // the value that the standard gives for this seed
}

TEST(Dice, StaysInItsBounds)
{
    Dice dice(1);
    QSet<int> seen;
    for (int i = 0; i < 2000; ++i) {
        seen.insert(dice.Between(-2, 3));
        const double real = dice.Real();
        ASSERT_GE(real, 0);
        ASSERT_LT(real, 1);
        ASSERT_LE(std::fabs(dice.Bell()), 6);
    }
    EXPECT_EQ(seen, (QSet<int>{-2, -1, 0, 1, 2, 3}));
}

TEST(Market, IsTheSameEveryTime)
{
    const QList<Comp> again = MakeMarket(520);
    ASSERT_EQ(again.size(), Market().size());
    for (qsizetype i = 0; i < again.size(); ++i) {
        ASSERT_EQ(again[i].key, Market()[i].key);
        ASSERT_EQ(again[i].fields, Market()[i].fields);
        ASSERT_EQ(PhotosText(again[i].photos), PhotosText(Market()[i].photos));
    }
}

TEST(Market, HasEveryTypeEvenWhenSmall)
{
    for (const int count : {6, 520}) {
        QSet<QChar> types;
        for (const Comp& comp : MakeMarket(count))
            types.insert(comp.type);
        EXPECT_EQ(types, (QSet<QChar>{u'F', u'C', u'S', u'R', u'L', u'M'})) << count;
    }
}

TEST(Market, GivesEachAddressOnce)
{
    QSet<QString> keys;
    int longest = 0;
    int accented = 0;
    for (const Comp& comp : Market()) {
        keys.insert(comp.key);
        EXPECT_EQ(comp.key, Field(comp, u"ADDRESS"_s).toUpper());
        EXPECT_LE(comp.key.size(), 35);
        longest += comp.key.size() == 35 ? 1 : 0;
        accented +=
            std::any_of(comp.key.begin(), comp.key.end(), [](QChar c) { return c.unicode() > 127; }) ? 1 : 0;
        EXPECT_FALSE(comp.key.contains(u'\'')) << comp.key.toStdString();
    }
    EXPECT_EQ(keys.size(), Market().size());
    EXPECT_GT(longest, 0);
    EXPECT_GT(accented, 5);
    for (const Subject subject : kSubjects)
        EXPECT_FALSE(keys.contains(SubjectAddress(subject).toUpper()));
}

TEST(Market, FitsItsFields)
{
    for (const Comp& comp : Market()) {
        for (auto field = comp.fields.cbegin(); field != comp.fields.cend(); ++field) {
            const store::CompsColumn* column = store::FindCompsColumn(field.key());
            ASSERT_NE(column, nullptr) << field.key().toStdString();
            EXPECT_LE(field.value().size(), column->size)
                << field.key().toStdString() << " " << comp.key.toStdString();
        }
    }
}

TEST(Market, ObeysTheRulesOfCalculatedFields)
{
    for (const Comp& comp : Market()) {
        const std::string key = comp.key.toStdString();
        const QString sale = Field(comp, u"SALEDATE"_s);
        EXPECT_EQ(Field(comp, u"PRICEGLA"_s),
                  databook::PriceGla(Field(comp, u"SELLINGPR"_s), Field(comp, u"GLA"_s)))
            << key;
        EXPECT_EQ(Field(comp, u"AGE"_s), databook::AgeText(Field(comp, u"YEARBUILT"_s), sale, DemoToday()))
            << key;
        EXPECT_EQ(Field(comp, u"SALESERIAL"_s), databook::SerialText(sale, DemoToday())) << key;
        EXPECT_EQ(Field(comp, u"LOADSERIAL"_s), databook::SerialText(Field(comp, u"LOADDATE"_s), DemoToday()))
            << key;
        const auto loaded = text::ReadDate(Field(comp, u"LOADDATE"_s), DemoToday());
        ASSERT_TRUE(loaded) << key;
        EXPECT_LE(loaded->date(), DemoToday()) << key;
    }
}

TEST(Market, HasPendingSalesAndLocatedRecords)
{
    int pending = 0;
    int located = 0;
    for (const Comp& comp : Market()) {
        if (comp.type != u'R' && Field(comp, u"SALEDATE"_s) == databook::kPendingDate) {
            ++pending;
            EXPECT_EQ(Field(comp, u"SALEFLD"_s), u"Pending"_s);
        }
        if (!Field(comp, u"LATITUDE"_s).isEmpty()) {
            ++located;
            EXPECT_NEAR(Field(comp, u"LATITUDE"_s).toDouble(), 44.82, 0.15);
            EXPECT_NEAR(Field(comp, u"LONGITUDE"_s).toDouble(), -120.95, 0.15);
        }
    }
    EXPECT_GT(pending, 10);
    EXPECT_LT(pending, 80);
    EXPECT_NEAR(located, 260, 60);
}

TEST(Market, PaysMoreForMore)
{
    // the mean price of large houses against small ones, of a dear neighbourhood against a cheap one
    const auto mean = [](const auto& wanted) {
        double sum = 0;
        int count = 0;
        for (const Comp& comp : Market()) {
            if (comp.type != u'F' || !wanted(comp))
                continue;
            sum += Field(comp, u"SELLINGPR"_s).toDouble();
            ++count;
        }
        return sum / count;
    };
    const auto gla = [](const Comp& comp) { return Field(comp, u"GLA"_s).toInt(); };
    EXPECT_GT(mean([&](const Comp& c) { return gla(c) > 2000; }),
              1.3 * mean([&](const Comp& c) { return gla(c) < 1400; }));
    EXPECT_GT(mean([](const Comp& c) { return Field(c, u"NEIGHBORHD"_s) == "Whispering Falls Estates"_L1; }),
              1.5 * mean([](const Comp& c) { return Field(c, u"NEIGHBORHD"_s) == "Foundry District"_L1; }));
}

TEST(Market, PicturesAThird)
{
    int fronts = 0;
    int others = 0;
    QSet<QString> stems;
    for (const Comp& comp : Market()) {
        for (const Photo& photo : comp.photos) {
            EXPECT_EQ(photo.stem.size(), 8);
            EXPECT_TRUE(
                std::all_of(photo.stem.begin(), photo.stem.end(), [](QChar c) { return c.isDigit(); }));
            stems.insert(photo.stem);
            (photo.view == "FRONT VIEW"_L1 ? fronts : others) += 1;
        }
    }
    EXPECT_EQ(fronts, 174);
    EXPECT_GE(others, 36);
    EXPECT_EQ(stems.size(), fronts + others);
}

TEST(Photos, AreLinesOfViewAndStem)
{
    EXPECT_EQ(PhotosText({}), u" "_s);
    EXPECT_EQ(PhotosText({{u"FRONT VIEW"_s, u"01234567"_s}, {u"REAR VIEW"_s, u"89012345"_s}}),
              u"FRONT VIEW|01234567\r\nREAR VIEW|89012345\r\n"_s);
}

} // namespace
} // namespace vasclip::demo
