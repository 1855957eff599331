#include "link/price_date_age.h"

#include "desk_test.h"
#include "platform/text/text.h"

namespace vasclip::link {
namespace {

class PriceDateAgeTest : public DeskTest
{
protected:
    const QString report = u"OAKST114"_s;
    const QString item = u"URAR|14|2"_s;

    void SetUp() override
    {
        DeskTest::SetUp();
        AddComp(u"12 Main St"_s, {{u"SALEDATE"_s, u"06/15/2015"_s},
                                  {u"SALESERIAL"_s, u" 42170"_s},
                                  {u"SALEFLD"_s, u"old"_s},
                                  {u"AGE"_s, u"7"_s},
                                  {u"SELLINGPR"_s, u"100"_s}});
        StandOn(u"12 MAIN ST"_s);
    }
    bool Read(const QString& field, const QString& text)
    {
        conduit.Answer(u"KEL|"_s + report, item, text);
        bool handled = true;
        read = PriceDateAge(desk, field, report, item, handled);
        return handled;
    }
    [[nodiscard]] QString Value(const QString& field) const
    {
        return text::Trim(sources.datDatabook.Recordset().Value(field).toString());
    }
    QString read;
};

struct PriceRow
{
    const char* name;
    QString text;
    bool handled;
    QString price, selling;
};

TEST_F(PriceDateAgeTest, APriceGoesToBothFields)
{
    for (const PriceRow& row : {PriceRow{"plain", u"250000"_s, true, u"250000"_s, u"250000"_s},
                                PriceRow{"money", u" $250,500 "_s, true, u"250500"_s, u"250500"_s},
                                PriceRow{"blank", u"  "_s, true, u"0"_s, u"0"_s},
                                PriceRow{"cents", u"250000.50"_s, false, u"0"_s, u"100"_s},
                                PriceRow{"words", u"N/A"_s, false, u"0"_s, u"100"_s}}) {
        StandOn(u"12 MAIN ST"_s);
        EXPECT_EQ(Read(u"pricefld"_s, row.text), row.handled) << row.name;
        EXPECT_EQ(Value(u"PRICEFLD"_s), row.price) << row.name;
        EXPECT_EQ(Value(u"SELLINGPR"_s), row.selling) << row.name;
    }
}

TEST_F(PriceDateAgeTest, ASaleDateBringsItsSerial)
{
    EXPECT_TRUE(Read(u"SALEFLD"_s, u" 3/9/2021 "_s));
    EXPECT_EQ(Value(u"SALEDATE"_s), u"03/09/2021"_s);
    EXPECT_EQ(Value(u"SALESERIAL"_s), u"44264"_s);
    EXPECT_EQ(Value(u"SALEFLD"_s), u"3/9/2021"_s);
    const auto& rows = sources.datDatabook.Recordset();
    EXPECT_EQ(rows.Value(u"SALEFLD"_s).toString().size(),
              rows.Fields().at(rows.FieldIndex(u"SALEFLD"_s)).size);
}

TEST_F(PriceDateAgeTest, ASaleTextThatIsNoDateIsLeftToTheCaller)
{
    for (const QString& text : {u"Pending"_s, u"12/30/1899"_s, u"5/5"_s, QString()}) {
        StandOn(u"12 MAIN ST"_s);
        EXPECT_FALSE(Read(u"SALEFLD"_s, text)) << text.toStdString();
        EXPECT_EQ(Value(u"SALEDATE"_s), u"06/15/2015"_s);
        EXPECT_EQ(Value(u"SALESERIAL"_s), u"42170"_s);
        EXPECT_EQ(Value(u"SALEFLD"_s), u"old"_s);
        EXPECT_EQ(read, text);
    }
}

TEST_F(PriceDateAgeTest, AFutureSaleIsPending)
{
    EXPECT_TRUE(Read(u"SALEFLD"_s, u"3/9/2028"_s));
    EXPECT_EQ(Value(u"SALEDATE"_s), u"01/01/1900"_s);
    EXPECT_EQ(Value(u"SALESERIAL"_s), u"2"_s);
    EXPECT_EQ(Value(u"SALEFLD"_s), u"3/9/2028"_s);
}

TEST_F(PriceDateAgeTest, ALeaseDateIsStoredAndLeftToTheCallerToo)
{
    EXPECT_FALSE(Read(u"LEASEDATE"_s, u"3/9/2021"_s));
    EXPECT_EQ(Value(u"LEASEDATE"_s), u"03/09/2021"_s);
    for (const QString& text : {u"month to month"_s, QString()}) {
        EXPECT_FALSE(Read(u"LEASEDATE"_s, text));
        EXPECT_EQ(Value(u"LEASEDATE"_s), u"1/1/1900"_s) << text.toStdString();
    }
}

TEST_F(PriceDateAgeTest, AYearGivesTheAgeAtTheSale)
{
    struct Row
    {
        const char* name;
        QString text, age;
    };
    for (const Row& row : {Row{"year", u"1985"_s, u"30"_s}, Row{"age", u"45"_s, u"45"_s},
                           Row{"built after the sale", u"2020"_s, {}}, Row{"no digit", u"unknown"_s, {}},
                           Row{"with words", u"1985 est"_s, u"30"_s}}) {
        StandOn(u"12 MAIN ST"_s);
        EXPECT_TRUE(Read(u"YEARBUILT"_s, row.text)) << row.name;
        EXPECT_EQ(Value(u"YEARBUILT"_s), row.text.left(Value(u"YEARBUILT"_s).size())) << row.name;
        EXPECT_FALSE(Value(u"YEARBUILT"_s).isEmpty()) << row.name;
        EXPECT_EQ(Value(u"AGE"_s), row.age) << row.name;
    }
    StandOn(u"12 MAIN ST"_s);
    sources.datDatabook.Recordset().Edit();
    store::SetFieldData(sources.datDatabook, u"01/01/1900"_s, u"SALEDATE"_s);
    EXPECT_TRUE(Read(u"YEARBUILT"_s, u"1985"_s));
    EXPECT_EQ(Value(u"AGE"_s), QString()) << "a pending sale has no age";
}

TEST_F(PriceDateAgeTest, OtherFieldsAreOnlyRead)
{
    EXPECT_FALSE(Read(u"GLA"_s, u" 1500 "_s));
    EXPECT_EQ(read, u"1500"_s);
    EXPECT_EQ(sources.datDatabook.Recordset().CurrentEditMode(), engine::EditMode::None);
}

} // namespace
} // namespace vasclip::link
