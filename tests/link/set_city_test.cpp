#include "link/set_city.h"

#include "desk_test.h"
#include "link/slot_table.h"

namespace vasclip::link {
namespace {

struct Parts
{
    QString city, state, zip;
    bool operator==(const Parts&) const = default;
};
void PrintTo(const Parts& parts, std::ostream* out)
{
    *out << parts.city.toStdString() << '|' << parts.state.toStdString() << '|' << parts.zip.toStdString();
}

class SetCity : public DeskTest
{
protected:
    void SetUp() override
    {
        DeskTest::SetUp();
        addr.txtCompAddr(0).SetText(u"1 Subject Way"_s);
        addr.txtKelCity.SetText(u"Marlow Falls"_s);
        addr.txtKelState.SetText(u"MN"_s);
        addr.txtKelZip.SetText(u"55012"_s);
        globals.useSubjCsz = u"CS"_s;
    }
    void InReport(int comp, const QString& address, const Parts& parts)
    {
        addr.txtCompAddr(comp).SetText(address);
        addr.txtCompCity(comp).SetText(parts.city);
        addr.txtCompState(comp).SetText(parts.state);
        addr.txtCompZip(comp).SetText(parts.zip);
    }
    Parts Set(const QString& key, CityRule rule = CityRule::Replace, qint16 comp = kNoComp)
    {
        SetCityOf(desk, key, rule, comp);
        const store::Record record = Read(key);
        return {record.Text(u"CITY"_s), record.Text(u"ST"_s), record.Text(u"ZIP"_s)};
    }
};

TEST_F(SetCity, TheSlotThatBearsTheKeyTells)
{
    InReport(3, u"12 oak st "_s, {u"Alder"_s, u"WI"_s, u"54001"_s});
    AddComp(u"12 Oak St"_s);
    EXPECT_EQ(Set(u"12 OAK ST"_s), (Parts{u"Alder"_s, u"WI"_s, u"54001"_s}));
}

TEST_F(SetCity, EveryGroupIsLookedThrough)
{
    addr.txtAltCompAddr(6).SetText(u"2 Alt"_s);
    addr.txtAltCompCity(6).SetText(u"A"_s);
    addr.txtRentalAddr(9).SetText(u"3 Rent"_s);
    addr.txtRentCity(9).SetText(u"R"_s);
    addr.txtListingAddr(1).SetText(u"4 List"_s);
    addr.txtListCity(1).SetText(u"L"_s);
    for (const auto& [address, city] : {std::pair{u"2 Alt"_s, u"A"_s},
                                        {u"3 Rent"_s, u"R"_s},
                                        {u"4 List"_s, u"L"_s},
                                        {u"1 Subject Way"_s, u"Marlow Falls"_s}}) {
        AddComp(address);
        EXPECT_EQ(Set(address.toUpper()).city, city);
    }
}

TEST_F(SetCity, ASecondAddressLineJustReadComesFirst)
{
    InReport(3, u"12 Oak St"_s, {u"Old Town"_s, u"MN"_s, u"55000"_s});
    AddComp(u"12 Oak St"_s, {{u"NEIGHBORHD"_s, u"Alder, WI 54001-1234"_s}});
    EXPECT_EQ(Set(u"12 OAK ST"_s, CityRule::Replace, 3), (Parts{u"Alder"_s, u"WI"_s, u"54001"_s}));
}

TEST_F(SetCity, TheSubjectsNeighborhoodIsNoAddressLine)
{
    AddComp(u"1 Subject Way"_s, {{u"NEIGHBORHD"_s, u"Oak Hill, MN 55999"_s}});
    EXPECT_EQ(Set(u"1 SUBJECT WAY"_s, CityRule::Replace, kSubjectComp), (Parts{u"Marlow Falls"_s, u"MN"_s, u"55012"_s}));
}

TEST_F(SetCity, WhatTheReportTellsReplacesOrFills)
{
    InReport(3, u"12 Oak St"_s, {u"Alder"_s, u"WI"_s, u"54001"_s});
    AddComp(u"12 Oak St"_s, {{u"CITY"_s, u"Mine"_s}, {u"ST"_s, u"IA"_s}});
    EXPECT_EQ(Set(u"12 OAK ST"_s, CityRule::Fill), (Parts{u"Mine"_s, u"IA"_s, u"54001"_s}));
    EXPECT_EQ(Set(u"12 OAK ST"_s, CityRule::Replace), (Parts{u"Alder"_s, u"WI"_s, u"54001"_s}));
}

TEST_F(SetCity, ARecordThatIsInNoSlotInheritsByTheSetting)
{
    for (const auto& [setting, wanted] :
         {std::pair{u"CS"_s, Parts{u"Marlow Falls"_s, u"MN"_s, QString()}},
          {u"csz"_s, Parts{u"Marlow Falls"_s, u"MN"_s, u"55012"_s}},
          {u"NONE"_s, Parts{}}}) {
        globals.useSubjCsz = setting;
        AddComp(u"9 Elm "_s + setting);
        EXPECT_EQ(Set(u"9 ELM "_s + setting.toUpper()), wanted) << setting.toStdString();
    }
}

TEST_F(SetCity, ARecordWithACityOrAStateInheritsNothing)
{
    globals.useSubjCsz = u"CSZ"_s;
    AddComp(u"9 Elm"_s, {{u"CITY"_s, u"Alder"_s}});
    EXPECT_EQ(Set(u"9 ELM"_s), (Parts{u"Alder"_s, QString(), QString()}));
    AddComp(u"10 Elm"_s, {{u"ST"_s, u"WI"_s}});
    EXPECT_EQ(Set(u"10 ELM"_s), (Parts{QString(), u"WI"_s, QString()}));
}

TEST_F(SetCity, AZipOfItsOwnIsKept)
{
    globals.useSubjCsz = u"CSZ"_s;
    AddComp(u"9 Elm"_s, {{u"ZIP"_s, u"54001"_s}});
    EXPECT_EQ(Set(u"9 ELM"_s), (Parts{u"Marlow Falls"_s, u"MN"_s, u"54001"_s}));
}

TEST_F(SetCity, LongNamesAreCutToTheirFields)
{
    InReport(1, u"9 Elm"_s, {QString(60, u'c'), u"MINN"_s, u"55012"_s});
    AddComp(u"9 Elm"_s);
    EXPECT_EQ(Set(u"9 ELM"_s), (Parts{QString(25, u'c'), u"MINN"_s, u"55012"_s}));
}

TEST_F(SetCity, AnEditUnderWayGoesOn)
{
    AddComp(u"9 Elm"_s);
    StandOn(u"9 ELM"_s);
    engine::Recordset& record = sources.datDatabook.Recordset();
    record.Edit();
    record.SetValue(u"SITE"_s, u"5 acres"_s);
    ErrDatabookSetCity(desk, sources.datDatabook, CityRule::Replace);
    EXPECT_EQ(record.CurrentEditMode(), engine::EditMode::InProgress);
    record.Update();
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"SITE"_s), u"5 acres"_s);
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"CITY"_s), u"Marlow Falls"_s);
}

TEST_F(SetCity, TheRecordOnShowAndItsEditStayAndARecordThatIsGoneGetsNone)
{
    AddComp(u"9 Elm"_s);
    AddComp(u"10 Elm"_s);
    StandOn(u"10 ELM"_s);
    sources.datDatabook.Recordset().Edit();
    SetCityOf(desk, u"9 ELM"_s, CityRule::Replace);
    SetCityOf(desk, u"11 ELM"_s, CityRule::Replace);
    EXPECT_EQ(Read(u"9 ELM"_s).Text(u"CITY"_s), u"Marlow Falls"_s);
    EXPECT_EQ(sources.datDatabook.Recordset().CurrentEditMode(), engine::EditMode::InProgress);
    EXPECT_EQ(store::GetFieldData(sources.datDatabook, u"CENTRALKEY"_s), u"10 ELM"_s);
}

TEST_F(SetCity, WithoutAReportNothingIsKnownAndNothingIsWritten)
{
    addr.txtKelCity.SetText(QString());
    addr.txtKelState.SetText(QString());
    AddComp(u"9 Elm"_s);
    StandOn(u"9 ELM"_s);
    sources.datDatabook.Recordset().Edit();
    sources.datDatabook.Recordset().CancelUpdate();
    EXPECT_EQ(Set(u"9 ELM"_s), Parts{});
}

} // namespace
} // namespace vasclip::link
