#include "link/form_table.h"

#include <gtest/gtest.h>

#include <QSet>

namespace vasclip::link {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(FormTableRows, StandInTheirOrder)
{
    const QString codes =
        u"2006,2045,2055,2065,2075,2095,704,704SUMRY,71A,71B,79,AUC3,ADR,ALAR,ANVL,BAT,BA2,BMA,BPO,"
        "CI2,CIA,CIB,CMR,CN2,DAWI,DT2,DT3,DU2,DUQ,DVA,ECI,ECU,EOI,ER5,ER3,ER4,ERS,EVAL,FA4,FR2,FR3,"
        "FR4,FRA,FRR,FSE,ICI,ICU,LAR,MOB,MH2,MFH,MUL,NCU,NEO,NRI,NUR,NVL,QAR,RECON,RNF,SAR,SRI,UA2,"
        "UA4,UA5,UCIAR"_s;
    QStringList found;
    for (const QLatin1StringView row : FormTable())
        found << QString(row).section(u'=', 0, 0);
    EXPECT_EQ(found, codes.split(u','));
    EXPECT_EQ(found.size(), 66);
}

TEST(FormTableRows, AreDescribed)
{
    const auto rows = FormTable();
    EXPECT_EQ(QString(rows[64]), u"UA5=Uniform Residential Report  (FHLMC 70 / FNMA 1004   03/05)"_s);
    EXPECT_EQ(QString(rows[2]).section(u'=', 1), QString(rows[3]).section(u'=', 1));
    for (const QLatin1StringView row : rows)
        EXPECT_FALSE(QString(row).section(u'=', 1).isEmpty()) << row.data();
}

struct CodeRow
{
    const char* name;
    QString code;
    bool answer;
};
class Approved : public testing::TestWithParam<CodeRow>
{};
TEST_P(Approved, IsALooseLookUp)
{
    EXPECT_EQ(IsApprovedForm(GetParam().code), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(Rows, Approved,
                         testing::Values(CodeRow{"Empty", u""_s, true}, CodeRow{"AnyCase", u"uA5"_s, true},
                                         CodeRow{"TailOfACode", u"A5"_s, true},
                                         CodeRow{"Unknown", u"XYZ"_s, false},
                                         CodeRow{"HeadOfACode", u"UA"_s, false},
                                         CodeRow{"First", u"2006"_s, true}, CodeRow{"Last", u"UCIAR"_s, true},
                                         CodeRow{"Two", u"ER4,ERS"_s, true}, CodeRow{"Blank", u" "_s, false}),
                         [](const auto& row) { return row.param.name; });

class Reserved : public testing::TestWithParam<CodeRow>
{};
TEST_P(Reserved, Names)
{
    EXPECT_EQ(IsReservedName(GetParam().code), GetParam().answer);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, Reserved,
    testing::Values(CodeRow{"Databook", u"Databook"_s, true},
                    CodeRow{"WithExtension", u"newdata.mdb"_s, true}, CodeRow{"Mapping", u"Comp2Kel"_s, true},
                    CodeRow{"Mapping15", u"COMP2KEL15.MDB"_s, true},
                    CodeRow{"Mapping14", u"COMP2KEL14"_s, false}, CodeRow{"Archive", u"ARCHIVE"_s, false},
                    CodeRow{"OtherExtension", u"NEW.TXT"_s, false}, CodeRow{"Empty", u""_s, false}),
    [](const auto& row) { return row.param.name; });

TEST(PageType, OfTheFiveTabs)
{
    QStringList types;
    for (int i = -1; i <= 5; ++i)
        types << ReturnPageType(i);
    EXPECT_EQ(types, (QStringList{u""_s, u"SUBJECT_"_s, u"COMPARABLES_"_s, u"GENERAL_"_s, u"LISTINGS_"_s,
                                  u"RENTALS_"_s, u""_s}));
}

} // namespace
} // namespace vasclip::link
