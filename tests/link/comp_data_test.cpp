#include "link/comp_data.h"

#include "desk_test.h"
#include "link/apprsl_type.h"
#include "platform/text/text.h"

namespace vasclip::link {
namespace {

class CompData : public DeskTest
{
protected:
    const QString topic = u"KEL|SMITH"_s;

    void SetUp() override
    {
        DeskTest::SetUp();
        globals.addressCase = 1;
    }
    /// A row of the sales page, its cell three to the comp at hand, and what the report holds for comp 5.
    void Field(const QString& field, const QString& row, const QString& text)
    {
        Map({u"UA5"_s, u"PAGE2"_s, field, row, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        conduit.Answer(topic, u"PAGE2|"_s + row + u"|5"_s, text);
    }
    bool ReadIntoRecord() { return GetCompData(desk, u"UA5"_s, u"SMITH"_s, 5, u"COMP"_s); }
    [[nodiscard]] QString Value(const QString& field)
    {
        StandOn(u"12 OAK ST"_s);
        return store::GetFieldData(sources.datDatabook, field);
    }
    [[nodiscard]] QStringList Asked()
    {
        QStringList items;
        for (const QString& entry : conduit.Take())
            if (entry.startsWith(u"item "_s))
                items << entry.mid(5);
        return items;
    }
};

TEST_F(CompData, EachRowIsAskedOnceInTheOrderOfTheTable)
{
    AddComp(u"12 Oak St"_s);
    Field(u"CENTRALKEY"_s, u"9"_s, u"not this"_s);
    Field(u"PROXIMITY"_s, u"8"_s, u"1.2 Mi. N"_s);
    Field(u"GLA"_s, u"7"_s, u"1,850"_s);
    StandOn(u"12 OAK ST"_s);
    EXPECT_TRUE(ReadIntoRecord());
    EXPECT_EQ(Asked(), (QStringList{u"PAGE2|9|5"_s, u"PAGE2|7|5"_s}));
    EXPECT_EQ(Value(u"GLA"_s), u"1,850"_s);
    EXPECT_EQ(Value(u"CENTRALKEY"_s), u"12 OAK ST"_s);
}

TEST_F(CompData, TheFormNameOfTheFirstRowStandsForAll)
{
    AddComp(u"12 Oak St"_s);
    Field(u"GLA"_s, u"7"_s, u"1"_s);
    Map({u"UA5"_s, u"OTHER"_s, u"SITE"_s, u"8"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
    StandOn(u"12 OAK ST"_s);
    EXPECT_TRUE(ReadIntoRecord());
    EXPECT_EQ(Asked(), (QStringList{u"PAGE2|7|5"_s, u"PAGE2|8|5"_s}));
}

TEST_F(CompData, TheAddressIsTheKeyInItsCaseAndNotTheReportsSpelling)
{
    AddComp(u"12 Oak St"_s);
    Field(u"ADDRESS"_s, u"1"_s, u"12 oak street, rear"_s);
    StandOn(u"12 OAK ST"_s);
    EXPECT_TRUE(ReadIntoRecord());
    EXPECT_EQ(Value(u"ADDRESS"_s), u"12 Oak St"_s);
}

TEST_F(CompData, BedroomsAndBathsAreTakenApartAndCut)
{
    for (const auto& [text, bedrooms, baths] :
         {std::tuple{u"3 / 2.5"_s, u"3"_s, u"2.5"_s}, {u"4"_s, u"4"_s, QString()}, {QString(), QString(), QString()},
          {u"1234567/89012345"_s, u"123456"_s, u"890123"_s}}) {
        SCOPED_TRACE(text.toStdString());
        const QList<CompCell> cells{{u"BEDBATH"_s, text}};
        AddComp(u"12 Oak St"_s + text);
        StandOn(u"12 OAK ST"_s + text);
        sources.datDatabook.Recordset().Edit();
        StoreCompData(desk, sources.datDatabook, u"12 OAK ST"_s, cells);
        sources.datDatabook.Recordset().Update();
        EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"BEDROOM"_s), bedrooms);
        EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"BATH"_s), baths);
    }
}

TEST_F(CompData, PricesDatesAndAgesGoToTheirTwins)
{
    AddComp(u"12 Oak St"_s, {{u"SELLINGPR"_s, u"1"_s}});
    Field(u"PRICEFLD"_s, u"1"_s, u"$189,500"_s);
    Field(u"SALEFLD"_s, u"2"_s, u"03/14/2024"_s);
    Field(u"YEARBUILT"_s, u"3"_s, u"1994"_s);
    Field(u"LEASEDATE"_s, u"4"_s, u"monthly"_s);
    StandOn(u"12 OAK ST"_s);
    EXPECT_TRUE(ReadIntoRecord());
    EXPECT_EQ(Value(u"PRICEFLD"_s), u"189500"_s);
    EXPECT_EQ(Value(u"SELLINGPR"_s), u"189500"_s);
    EXPECT_EQ(Value(u"SALEDATE"_s), u"03/14/2024"_s);
    EXPECT_EQ(Value(u"SALESERIAL"_s), u"45365"_s);
    EXPECT_EQ(Value(u"AGE"_s), u"30"_s);
    EXPECT_EQ(Value(u"LEASEDATE"_s), u"monthly"_s); // the cell's text overwrites what was made of it
}

TEST_F(CompData, ABlankCellOverwritesAndLongTextIsCut)
{
    AddComp(u"12 Oak St"_s, {{u"SITE"_s, u"9000 sf"_s}, {u"CONDITION"_s, u"Good"_s}});
    Field(u"SITE"_s, u"1"_s, QString());
    Field(u"CONDITION"_s, u"2"_s, QString(60, u'x'));
    StandOn(u"12 OAK ST"_s);
    EXPECT_TRUE(ReadIntoRecord());
    EXPECT_EQ(Value(u"SITE"_s), QString());
    EXPECT_EQ(Value(u"CONDITION"_s), QString(30, u'x'));
}

TEST_F(CompData, MemosAreLeftAlone)
{
    AddComp(u"12 Oak St"_s, {{u"PHOTOS"_s, u"FRONT VIEW|12345678\r\n"_s}});
    Field(u"PHOTOS"_s, u"1"_s, u"gone"_s);
    StandOn(u"12 OAK ST"_s);
    EXPECT_TRUE(ReadIntoRecord());
    StandOn(u"12 OAK ST"_s);
    EXPECT_EQ(sources.datDatabook.Recordset().Value(u"PHOTOS"_s).toString(), u"FRONT VIEW|12345678\r\n"_s);
}

TEST_F(CompData, NumberColumnsTakeTheNumberOfTheText)
{
    const QString path = u"C:\\DATABOOK\\OTHER.MDB"_s;
    const auto database = engine.CreateDatabase(path);
    const auto field = [](const QString& name, engine::FieldType type, int size) {
        engine::Field made;
        made.name = name;
        made.type = type;
        made.size = size;
        return made;
    };
    engine::TableDef table;
    table.name = u"COMPS"_s;
    table.fields = {field(u"CENTRALKEY"_s, engine::FieldType::Text, 35),
                    field(u"GLA"_s, engine::FieldType::Double, 8)};
    table.indexes = {{.name = u"CENTRALKEY"_s, .fields = {u"CENTRALKEY"_s}, .primary = true, .unique = true}};
    database->CreateTable(table);
    store::Connect2mdb(desk.ports, sources.datDatabook, path, u"COMPS"_s, store::SourceKind::Table);
    engine::Recordset& record = sources.datDatabook.Recordset();
    record.AddNew();
    record.SetValue(u"CENTRALKEY"_s, u"12 OAK ST"_s);
    StoreCompData(desk, sources.datDatabook, u"12 OAK ST"_s, {{u"GLA"_s, u" 1850 sf"_s}});
    record.Update();
    StandOn(u"12 OAK ST"_s);
    EXPECT_EQ(record.Value(u"GLA"_s).toDouble(), 1850.0);
}

TEST_F(CompData, AFieldThatTheDatabookLacksIsNamedAndNothingIsStored)
{
    AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"900"_s}});
    Field(u"GLA"_s, u"1"_s, u"1850"_s);
    Field(u"NOSUCH"_s, u"2"_s, u"x"_s);
    StandOn(u"12 OAK ST"_s);
    try {
        (void)ReadIntoRecord();
        ADD_FAILURE() << "it was taken";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kFieldUnknown);
        EXPECT_TRUE(failure.Description().contains(u"names a field NOSUCH that"_s));
    }
    EXPECT_EQ(Value(u"GLA"_s), u"900"_s);
}

TEST_F(CompData, AFormWithoutRowsIsSaid)
{
    AddComp(u"12 Oak St"_s);
    StandOn(u"12 OAK ST"_s);
    EXPECT_FALSE(ReadIntoRecord());
    EXPECT_EQ(doubles.prompter.Last().title, u"No Matches to Form Type Found"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Reference Entries Not Found (Comp2Kel file incomplete)."_s);
    EXPECT_TRUE(Asked().isEmpty());
}

TEST_F(CompData, ARefusedCellIsNamed)
{
    AddComp(u"12 Oak St"_s, {{u"GLA"_s, u"900"_s}});
    Field(u"GLA"_s, u"1"_s, u"1850"_s);
    Field(u"SITE"_s, u"2"_s, u"x"_s);
    conduit.FailOnce(u"item PAGE2|2|5"_s, error::kLinkBusy, u"No such cell"_s);
    StandOn(u"12 OAK ST"_s);
    try {
        (void)ReadIntoRecord();
        ADD_FAILURE() << "it was read";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Description(), u"No such cell (reading SITE from PAGE2|2|5 of SMITH). Nothing of "
                                         u"this comp was stored"_s);
    }
    EXPECT_EQ(Value(u"GLA"_s), u"900"_s);
}

TEST_F(CompData, GroupsAreReadFromTheirOwnRows)
{
    for (const QString& group : {u"SALE"_s, u"ALT"_s, u"RENT"_s, u"LIST"_s}) {
        Map({u"UA5"_s, group, u"GLA"_s, u"7"_s, u"3"_s, group, u"1"_s, u"2"_s});
    }
    for (const auto& [word, page] : {std::pair{u"COMP"_s, u"SALE"_s},
                                     {u"sale"_s, u"SALE"_s},
                                     {u"alt"_s, u"ALT"_s},
                                     {u"RENT"_s, u"RENT"_s},
                                     {u"LIST"_s, u"LIST"_s},
                                     {u"whatever"_s, u"SALE"_s}}) {
        MappingPages pages;
        (void)ReadCompData(desk, u"UA5"_s, u"SMITH"_s, 2, word, pages);
        EXPECT_EQ(Asked(), QStringList(page + u"|7|5"_s)) << word.toStdString();
    }
}

TEST_F(CompData, AReadingCanBeGivenUp)
{
    for (int row = 1; row <= 40; ++row)
        Field(u"GLA"_s, text::Dec(row), u"1"_s);
    int turns = 0;
    MappingPages pages;
    const auto cells =
        ReadCompData(desk, u"UA5"_s, u"SMITH"_s, 5, u"SALE"_s, pages, [&turns] { return ++turns < 2; });
    EXPECT_FALSE(cells.has_value());
    EXPECT_EQ(turns, 2);
    EXPECT_LT(Asked().size(), 40);
}

struct LetterRow
{
    const char* group;
    const char* form;
    const char* letter;
};

TEST(ApprslType, TheFirstRuleThatMatchesDecides)
{
    for (const LetterRow& row : {
             LetterRow{"RENT", "UA5", "R"},  {"RENT", "71A", "R"},  {"RENT", "LAR", "R"},
             {"COMP", "71A", "S"},           {"SALE", "71B", "S"},  {"ALT", "71A", "F"},
             {"LIST", "71B", "L"},           {"COMP", "CN2", "C"},  {"LIST", "ICU", "C"},
             {"ALT", "ICI", "C"},            {"COMP", "FA4", "S"},  {"SALE", "FA4", "S"},
             {"ALT", "FA4", "F"},            {"LIST", "FA4", "F"},  {"COMP", "SRI", "S"},
             {"SALE", "SRI", "S"},           {"ALT", "SRI", "S"},   {"LIST", "SRI", "F"},
             {"COMP", "LAR", "L"},           {"LIST", "ALAR", "L"}, {"ALT", "LAR", "F"},
             {"ALT", "ALAR", "F"},           {"COMP", "MOB", "M"},  {"LIST", "MH2", "M"},
             {"COMP", "MUL", "S"},           {"ALT", "CIB", "S"},   {"LIST", "CI2", "S"},
             {"COMP", "UA5", "F"},           {"COMP", "", "F"},     {"", "UA5", "F"},
             {" comp ", " sri ", "S"},       {"COMP", "7", "F"},    {"COMP", "MFH", "F"},
         })
        EXPECT_EQ(ApprslTypeLetter(QString::fromLatin1(row.group), QString::fromLatin1(row.form)),
                  QString::fromLatin1(row.letter))
            << row.group << ' ' << row.form;
}

} // namespace
} // namespace vasclip::link
