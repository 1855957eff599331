#include "databook/city_list.h"

#include "platform/files/profile.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using databook::CityEntry;

namespace {

std::string Shown(const CityEntry& entry)
{
    return QStringList{entry.city, entry.state, entry.zip, entry.county}.join(u'|').toStdString();
}

struct LineRow
{
    const char* name;
    QString line;
    CityEntry entry;
};

class SplitCity : public testing::TestWithParam<LineRow>
{};

TEST_P(SplitCity, TakesALineApart)
{
    const CityEntry entry = databook::SplitCity(GetParam().line);
    EXPECT_TRUE(entry == GetParam().entry) << Shown(entry);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SplitCity,
    testing::Values(
        LineRow{"whole",
                u"Elm Grove, WI  53122  Waukesha"_s,
                {u"Elm Grove"_s, u"WI"_s, u"53122"_s, u"Waukesha"_s}},
        LineRow{"no_county", u"Elm Grove, WI  53122"_s, {u"Elm Grove"_s, u"WI"_s, u"53122"_s, {}}},
        LineRow{"no_zip", u"Elm Grove, WI    Waukesha"_s, {u"Elm Grove"_s, u"WI"_s, {}, u"Waukesha"_s}},
        LineRow{
            "no_state", u"Elm Grove,   53122  Waukesha"_s, {u"Elm Grove"_s, {}, u"53122"_s, u"Waukesha"_s}},
        LineRow{"city_alone", u"Elm Grove,"_s, {u"Elm Grove"_s, {}, {}, {}}},
        LineRow{"without_a_comma", u"Elm Grove"_s, {u"Elm Grove"_s, {}, {}, {}}},
        LineRow{"two_commas", u"Elm, Grove, WI  53122"_s, {u"Elm"_s, u"Grove, WI"_s, u"53122"_s, {}}},
        LineRow{"double_blank_in_the_city",
                u"Elm  Grove, WI  53122  Waukesha"_s,
                {u"Elm"_s, {}, u"Grove, WI"_s, u"53122  Waukesha"_s}},
        LineRow{"county_of_two_words",
                u"Elm, WI  53122  St. Croix"_s,
                {u"Elm"_s, u"WI"_s, u"53122"_s, u"St. Croix"_s}},
        LineRow{"accents", u"Cañon, CO  81212  Frémont"_s, {u"Cañon"_s, u"CO"_s, u"81212"_s, u"Frémont"_s}},
        LineRow{"empty", {}, {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CityText, JoinsWithACommaAndTwoBlanks)
{
    EXPECT_EQ(databook::CityText({u" Elm Grove "_s, u"WI"_s, u"53122"_s, u"Waukesha "_s}),
              u"Elm Grove, WI  53122  Waukesha"_s);
    EXPECT_EQ(databook::CityText({u"Elm Grove"_s, u"WI"_s, {}, u"Waukesha"_s}),
              u"Elm Grove, WI    Waukesha"_s);
    EXPECT_EQ(databook::CityText({u"Elm Grove"_s, u"WI"_s, {}, {}}), u"Elm Grove, WI"_s);
    EXPECT_EQ(databook::CityText({u"Elm\r\nGrove"_s, u"W\tI"_s, {}, {}}), u"Elm  Grove, W I"_s);
}

TEST(CityText, WhatIsJoinedSplitsAgain)
{
    for (const CityEntry& entry : {CityEntry{u"Elm Grove"_s, u"WI"_s, u"53122"_s, u"Waukesha"_s},
                                   {u"Elm Grove"_s, {}, {}, u"Waukesha"_s},
                                   {u"Elm Grove"_s, {}, u"53122"_s, {}},
                                   {u"Elm Grove"_s, u"WI"_s, {}, u"St. Croix"_s},
                                   {u"O'Fallon \"East\""_s, u"MO"_s, u"63366-1234"_s, u"St. Charles"_s}})
        EXPECT_TRUE(databook::SplitCity(databook::CityText(entry)) == entry)
            << databook::CityText(entry).toStdString() << " gives "
            << Shown(databook::SplitCity(databook::CityText(entry)));
}

class CityList : public testing::Test
{
protected:
    tests::TempHome home;
    common::Globals globals;
    forms::ControlSet set;
    forms::ListBox list{set, u"lstcity"_s};
    void SetUp() override { globals.applicationIni = u"C:\\VAS2000.INI"_s; }
    [[nodiscard]] QString Stored(int number) const
    {
        return files::GetPrivateProfileString(home.disk, u"CITIES"_s, u"CITY%1"_s.arg(number), {},
                                              globals.applicationIni);
    }
};

TEST_F(CityList, IsReadUntilTheFirstEmptyValueInItsOrder)
{
    home.Put(globals.applicationIni,
             "[CITIES]\r\nCITY1=Oak, WI  2\r\nCITY2=Elm, WI  1\r\nCITY3=\r\nCITY4=Ash, WI  3\r\n");
    databook::LoadCities(list, home.disk, globals);
    EXPECT_EQ(list.Items(), (QStringList{u"Oak, WI  2"_s, u"Elm, WI  1"_s}));
}

TEST_F(CityList, TakesALineOnce)
{
    EXPECT_EQ(databook::AddCity(list, {u"Oak"_s, u"WI"_s, u"53122"_s, {}}), databook::CityAdded::Yes);
    EXPECT_EQ(databook::AddCity(list, {u" oak"_s, u"wi "_s, u"53122"_s, {}}), databook::CityAdded::IsThere);
    EXPECT_EQ(databook::AddCity(list, {u"Oak"_s, u"WI"_s, u"53123"_s, {}}), databook::CityAdded::Yes);
    EXPECT_EQ(databook::AddCity(list, {u" \t"_s, u"WI"_s, u"53123"_s, {}}), databook::CityAdded::NoCity);
    EXPECT_EQ(list.Items(), (QStringList{u"Oak, WI  53122"_s, u"Oak, WI  53123"_s}));
}

TEST_F(CityList, IsWrittenBackAsAWhole)
{
    home.Put(globals.applicationIni, "; mine\r\n[CITIES]\r\nCITY1=Oak, WI  2\r\nCITY2=Elm, WI  1\r\n"
                                     "CITY3=Ash, WI  3\r\n[OTHER]\r\nCITY3=stays\r\n");
    databook::LoadCities(list, home.disk, globals);
    list.RemoveItem(0);
    ASSERT_TRUE(databook::SaveCities(list, home.disk, globals));
    EXPECT_EQ(home.disk.ReadWhole(globals.applicationIni),
              "; mine\r\n[CITIES]\r\nCITY1=Elm, WI  1\r\nCITY2=Ash, WI  3\r\n[OTHER]\r\nCITY3=stays\r\n");
    list.Clear();
    ASSERT_TRUE(databook::SaveCities(list, home.disk, globals));
    EXPECT_EQ(Stored(1), QString());
}

TEST_F(CityList, AFileThatCannotBeWrittenIsToldAndStaysWhole)
{
    const QByteArray before = "[CITIES]\r\nCITY1=Oak, WI  2\r\n";
    home.Put(globals.applicationIni, before);
    databook::LoadCities(list, home.disk, globals);
    list.SetItem(0, u"Ash, WI  3"_s);
    list.AddItem(u"line\r\nbreak"_s);
    EXPECT_FALSE(databook::SaveCities(list, home.disk, globals));
    EXPECT_EQ(home.disk.ReadWhole(globals.applicationIni), before);
}

} // namespace
