#include "databook/comp_fields.h"

#include "databook/comp_types.h"
#include "support/databook_home.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

const QDate kToday(2024, 5, 17);

TEST(CompFields, PriceOverArea)
{
    struct Row
    {
        const char* name;
        QString price, area, result;
    };
    for (const Row& row : {
             Row{"plain", u"250000"_s, u"1999"_s, u"125.06"_s},
             Row{"the point of the picture always stands", u"200000"_s, u"2000"_s, u"100."_s},
             Row{"one decimal", u"100050"_s, u"100"_s, u"1000.5"_s},
             Row{"less than one", u"1"_s, u"4"_s, u".25"_s},
             Row{"no area", u"250000"_s, u"0"_s, u"0"_s},
             Row{"blank area", u"250000"_s, QString(), u"0"_s},
             Row{"no price", QString(), u"1999"_s, u"0"_s},
             Row{"a price with a comma is read up to it", u"250,000"_s, u"100"_s, u"2.5"_s},
             Row{"garbage", u"$1"_s, u"100"_s, u"0"_s},
         })
        EXPECT_EQ(databook::PriceGla(row.price, row.area), row.result) << row.name;
}

TEST(CompFields, Age)
{
    struct Row
    {
        const char* name;
        QString yearBuilt, saleDate, result;
    };
    for (const Row& row : {
             Row{"a year", u"1985"_s, u"3/7/2004"_s, u"19"_s},
             Row{"a pending sale has no age", u"1985"_s, u"01/01/1900"_s, QString()},
             Row{"built in the year of sale", u"2004"_s, u"3/7/2004"_s, QString()},
             Row{"one year", u"2003"_s, u"3/7/2004"_s, u"1"_s},
             Row{"built after the sale", u"2010"_s, u"3/7/2004"_s, QString()},
             Row{"two digits are an age", u"45"_s, u"3/7/2004"_s, u"45"_s},
             Row{"three digits are an age", u"120"_s, QString(), u"120"_s},
             Row{"words behind the year", u"1985 est."_s, u"3/7/2004"_s, u"19"_s},
             Row{"five digits are cut to four", u"19851"_s, u"3/7/2004"_s, u"19"_s},
             Row{"letters push digits out of the first four", u"ca1985"_s, u"3/7/2004"_s, u"19"_s},
             Row{"no digit", u"new"_s, u"3/7/2004"_s, QString()},
             Row{"a minus sign alone", u"-"_s, u"3/7/2004"_s, QString()},
             Row{"a minus sign is kept", u"-12"_s, u"3/7/2004"_s, u"-12"_s},
             Row{"blank", QString(), u"3/7/2004"_s, QString()},
             Row{"no sale date", u"1985"_s, QString(), QString()},
             Row{"no date", u"1985"_s, u"closing soon"_s, QString()},
             Row{"the last four characters are the year", u"1985"_s, u"3/7/04"_s, QString()},
         })
        EXPECT_EQ(databook::AgeText(row.yearBuilt, row.saleDate, kToday), row.result) << row.name;
}

TEST(CompFields, AddressHelpers)
{
    struct Row
    {
        QString text, stripped, letters;
    };
    for (const Row& row : {
             Row{u"1615 198th St"_s, u"198th St"_s, u"thSt"_s},
             Row{u"12A Main St"_s, u"12A Main St"_s, u"AMainSt"_s},
             Row{u"Main St"_s, u"Main St"_s, u"MainSt"_s},
             Row{u"1615"_s, u"1615"_s, QString()},
             Row{u" 12 Oak"_s, u" 12 Oak"_s, u"Oak"_s},
             Row{u"nan King Rd"_s, u"nan King Rd"_s, u"nanKingRd"_s},
             Row{u"inf St"_s, u"inf St"_s, u"infSt"_s},
             Row{u"12.5 Oak"_s, u"Oak"_s, u"Oak"_s},
             Row{QString(), QString(), QString()},
         }) {
        EXPECT_EQ(databook::Strip1stNums(row.text), row.stripped) << row.text.toStdString();
        EXPECT_EQ(databook::AlphaOnly(row.text), row.letters) << row.text.toStdString();
    }
}

TEST(CompFields, Serials)
{
    struct Row
    {
        QString date, serial;
    };
    for (const Row& row :
         {Row{u"01/01/1900"_s, u" 2"_s}, Row{u"3/7/2004"_s, u" 38053"_s}, Row{u"12/30/1899"_s, u" 0"_s},
          Row{u"soon"_s, QString()}, Row{QString(), QString()}})
        EXPECT_EQ(databook::SerialText(row.date, kToday), row.serial) << row.date.toStdString();
}

TEST(CompTypes, TheSixTypes)
{
    struct Row
    {
        QString text;
        QChar letter;
        QString form;
    };
    for (const Row& row : {
             Row{u"F=Single Family"_s, u'F', u"frm_CompMnt1"_s},
             Row{u"C=Condo"_s, u'C', u"frm_CompMntC"_s},
             Row{u"S=1-4 Unit Sale"_s, u'S', u"frm_CompMntS"_s},
             Row{u"R=1-4 Unit Rental"_s, u'R', u"frm_CompMntR"_s},
             Row{u"L=Land"_s, u'L', u"frm_CompMntL"_s},
             Row{u"M=Manufactured Housing"_s, u'M', u"frm_CompMntM"_s},
             Row{u"m=Mobile Home"_s, u'M', u"frm_CompMntM"_s},
             Row{u" "_s, u' ', u"frm_CompMnt1"_s},
             Row{QString(), QChar(), u"frm_CompMnt1"_s},
             Row{u"Z=Other"_s, QChar(), u"frm_CompMnt1"_s},
         }) {
        EXPECT_EQ(databook::CompTypeLetter(row.text), row.letter) << row.text.toStdString();
        EXPECT_EQ(QString(databook::EntryFormOf(row.text)), row.form) << row.text.toStdString();
    }
}

class CompDates : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    void SetUp() override
    {
        DatabookHome::SetUp();
        AddComps({u"12 MAIN ST"_s});
        Bind(source);
        doubles.clock.now = QDateTime(kToday, QTime(9, 0));
    }
    void Put(const QString& field, const QString& value)
    {
        source.Recordset().Edit();
        store::SetFieldData(source, value, field);
        source.Recordset().Update();
    }
    /// Stored date and serial, the serial as it is, blanks and all.
    [[nodiscard]] QStringList Stored(const QString& stem)
    {
        if (source.Recordset().CurrentEditMode() != engine::EditMode::None)
            store::Updateandfind(ports, source, u"12 MAIN ST"_s);
        return {source.Recordset().Value(stem + u"DATE"_s).toString(),
                source.Recordset().Value(stem + u"SERIAL"_s).toString()};
    }
    const QStringList today{u"5/17/2024"_s, u" 45429"_s};
};

TEST_F(CompDates, LoadDateIsSetOnceOnly)
{
    databook::SetLoadDate2Today(ports, source);
    EXPECT_EQ(Stored(u"LOAD"_s), today);
    doubles.clock.now = doubles.clock.now.addDays(3);
    databook::SetLoadDate2Today(ports, source);
    EXPECT_EQ(Stored(u"LOAD"_s), today);
}

TEST_F(CompDates, LoadDateOfBlanksCountsAsNone)
{
    Put(u"LOADDATE"_s, u"   "_s);
    databook::SetLoadDate2Today(ports, source);
    EXPECT_EQ(Stored(u"LOAD"_s), today);
}

TEST_F(CompDates, LoadDateIsForcedOrRepaired)
{
    Put(u"LOADDATE"_s, u"1/2/2003"_s);
    databook::RepairLoadDate(ports, source);
    EXPECT_EQ(Stored(u"LOAD"_s).first(), u"1/2/2003"_s) << "a date stays";
    databook::ForceLoadDate2Today(ports, source);
    EXPECT_EQ(Stored(u"LOAD"_s), today);
    Put(u"LOADDATE"_s, u"sometime"_s);
    databook::RepairLoadDate(ports, source);
    EXPECT_EQ(Stored(u"LOAD"_s), today);
    Put(u"LOADDATE"_s, QString());
    databook::RepairLoadDate(ports, source);
    EXPECT_EQ(Stored(u"LOAD"_s).first(), QString()) << "a blank one stays";
}

TEST_F(CompDates, SaleDateRows)
{
    struct Row
    {
        const char* name;
        QString typed, text, date, serial;
    };
    for (const Row& row : {
             Row{"a date", u"03/07/2004"_s, u"03/07/2004"_s, u"3/7/2004"_s, u" 38053"_s},
             Row{"words for a month", u"March 7, 2004"_s, u"March 7, 2004"_s, u"3/7/2004"_s, u" 38053"_s},
             Row{"blank", QString(), u"01/01/1900"_s, u"01/01/1900"_s, u" 2"_s},
             Row{"no date", u"pending"_s, u"01/01/1900"_s, u"01/01/1900"_s, u" 2"_s},
             Row{"too short", u"3/7/4"_s, u"01/01/1900"_s, u"01/01/1900"_s, u" 2"_s},
             Row{"pending", u"01/01/1900"_s, u"01/01/1900"_s, u"01/01/1900"_s, u" 2"_s},
             Row{"pending as a left box has it", u"1/1/1900"_s, u"1/1/1900"_s, u"01/01/1900"_s, u" 2"_s},
             Row{"pending in words", u"January 1, 1900"_s, u"January 1, 1900"_s, u"01/01/1900"_s, u" 2"_s},
             Row{"in the future", u"3/7/2099"_s, u"3/7/2099"_s, u"01/01/1900"_s, u" 2"_s},
         }) {
        QString text = row.typed;
        databook::ErrSetSaleDate(ports, source, text);
        EXPECT_EQ(text, row.text) << row.name;
        EXPECT_EQ(Stored(u"SALE"_s), (QStringList{row.date, row.serial})) << row.name;
    }
}

TEST_F(CompDates, OneEditCarriesBothDates)
{
    databook::SetLoadDate2Today(ports, source);
    QString none;
    databook::ErrSetSaleDate(ports, source, none);
    source.Recordset().Update();
    EXPECT_EQ(Stored(u"LOAD"_s), today);
    EXPECT_EQ(Stored(u"SALE"_s), (QStringList{u"01/01/1900"_s, u" 2"_s}));
}

TEST_F(CompDates, ABoxIsSavedAndTheRecordFoundAgain)
{
    forms::ControlSet set;
    forms::TextBox box(set, u"txtSaleDate"_s);
    box.SetText(u"3/7/2004"_s);
    databook::ErrSaveSaleDate(ports, source, box);
    EXPECT_EQ(source.Recordset().CurrentEditMode(), engine::EditMode::None);
    EXPECT_EQ(Stored(u"SALE"_s), (QStringList{u"3/7/2004"_s, u" 38053"_s}));
    box.SetText(u"soon"_s);
    databook::ErrSaveSaleDate(ports, source, box);
    EXPECT_EQ(box.Text(), u"01/01/1900"_s);
    EXPECT_EQ(Stored(u"SALE"_s), (QStringList{u"01/01/1900"_s, u" 2"_s}));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

} // namespace
