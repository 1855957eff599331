#include "kelforms/core/report.h"

#include "platform/text/runtime_error.h"
#include "sample_home.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <ctime>
#include <random>

using namespace Qt::Literals::StringLiterals;
using namespace kelforms;
using kelforms::test::SampleHome;
using vasclip::RuntimeError;

namespace {

struct ItemRow
{
    const char* name;
    QString item;
    QString key;   ///< "" for a page without a cell
    QString words; ///< part of the refusal
};

void PrintTo(const ItemRow& row, std::ostream* out)
{
    *out << row.name;
}

class Item : public testing::TestWithParam<ItemRow>
{};

TEST_P(Item, IsRead)
{
    const ItemRow& row = GetParam();
    try {
        const CellAddress address = ReadItem(row.item);
        EXPECT_TRUE(row.words.isEmpty()) << "taken";
        EXPECT_EQ(address.row == 0 ? QString() : address.Key(), row.key);
    } catch (const RuntimeError& refusal) {
        EXPECT_FALSE(row.words.isEmpty()) << refusal.what();
        EXPECT_TRUE(refusal.Description().contains(row.words)) << refusal.what();
        EXPECT_EQ(refusal.Number(), 285);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, Item,
                         testing::Values(ItemRow{"plain", u"UA5|14|2"_s, u"UA5|14|2"_s, {}},
                                         ItemRow{"lower", u"ua5|14|2"_s, u"UA5|14|2"_s, {}},
                                         ItemRow{"blanks", u" UA5 | 14 | 2 "_s, u"UA5|14|2"_s, {}},
                                         ItemRow{"doubled", u"UA5|UA5|6|1"_s, u"UA5|6|1"_s, {}},
                                         ItemRow{
                                             "doubledDiffers", u"UA5|UA4|6|1"_s, {}, u"two forms differ"_s},
                                         ItemRow{"endsInBar", u"GENPH07|"_s, {}, {}},
                                         ItemRow{"noForm", u"|5|3"_s, {}, u"FORM|ROW|CELL"_s},
                                         ItemRow{"word", u"Hello"_s, {}, u"FORM|ROW|CELL"_s},
                                         ItemRow{"empty", u""_s, {}, u"FORM|ROW|CELL"_s},
                                         ItemRow{"zero", u"UA5|0|1"_s, {}, u"whole numbers"_s},
                                         ItemRow{"negative", u"UA5|1|-1"_s, {}, u"whole numbers"_s},
                                         ItemRow{"letters", u"UA5|a|b"_s, {}, u"whole numbers"_s},
                                         ItemRow{"huge", u"UA5|99999999999|1"_s, {}, u"whole numbers"_s},
                                         ItemRow{"tooMany", u"UA5|UA5|1|1|1"_s, {}, u"whole numbers"_s}),
                         [](const auto& info) { return info.param.name; });

TEST(Report, ComesBackFromDiskAsItWas)
{
    const SampleHome home;
    Report report =
        Report::Load(home.MakeReport(u"smith"_s, u"UA5"_s, {{u"UA5|3|1"_s, u"12 Émile's \"Way\""_s}}));
    EXPECT_EQ(report.Name(), u"SMITH.RPT"_s);
    EXPECT_EQ(report.MainForm(), u"UA5"_s);
    EXPECT_FALSE(report.Modified());
    report.SetCell(u"UA5|44|3"_s, u"1.2 Mi. NW"_s);
    report.SetImage(u"CMP_1_3X5"_s, u"C:\\VASCLIPS\\JPG\\12345678.jpg"_s);
    EXPECT_TRUE(report.Modified());
    report.Save();
    EXPECT_FALSE(report.Modified());
    const Report again = Report::Load(report.Path());
    EXPECT_EQ(again.Cells(), report.Cells());
    EXPECT_EQ(again.Images(), report.Images());
    EXPECT_EQ(again.Forms(), report.Forms());
}

TEST(Report, WhatItDoesNotKnowIsKept)
{
    const Report report = Report::FromJson(
        R"({"name":"A.RPT","forms":["ua5"],"cells":{"zz|900|7":"odd"},"appraiser":{"licence":"CR 77"}})",
        u"a.json"_s);
    const QJsonObject json = QJsonDocument::fromJson(report.ToJson()).object();
    EXPECT_EQ(json.value("appraiser"_L1).toObject().value("licence"_L1).toString(), u"CR 77"_s);
    EXPECT_EQ(json.value("cells"_L1).toObject().value("ZZ|900|7"_L1).toString(), u"odd"_s);
}

struct BadRow
{
    const char* name;
    QByteArray json;
    QString words;
};

void PrintTo(const BadRow& row, std::ostream* out)
{
    *out << row.name;
}

class BadReport : public testing::TestWithParam<BadRow>
{};

TEST_P(BadReport, IsRefusedInWords)
{
    try {
        static_cast<void>(Report::FromJson(GetParam().json, u"/home/x/smith.json"_s));
        ADD_FAILURE() << "taken";
    } catch (const RuntimeError& refusal) {
        EXPECT_EQ(refusal.Number(), 321);
        EXPECT_TRUE(refusal.Description().startsWith(u"/home/x/smith.json is no report: "_s));
        EXPECT_TRUE(refusal.Description().contains(GetParam().words)) << refusal.what();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, BadReport,
    testing::Values(BadRow{"empty", "", u"at byte 0"_s}, BadRow{"text", "Dear Sir", u"at byte 1"_s},
                    BadRow{"truncated", R"({"name":"A.RPT","forms":["UA5)", u"at byte"_s},
                    BadRow{"list", "[]", u"no JSON object"_s},
                    BadRow{"noName", R"({"forms":["UA5"]})", u"\"name\""_s},
                    BadRow{"comma", R"({"name":"A,B","forms":["UA5"]})", u"\"name\""_s},
                    BadRow{"noForms", R"({"name":"A.RPT"})", u"\"forms\""_s},
                    BadRow{"emptyForms", R"({"name":"A.RPT","forms":[]})", u"no forms"_s},
                    BadRow{"formNumber", R"({"name":"A.RPT","forms":["UA5",7]})", u"form 2"_s},
                    BadRow{"formTwice", R"({"name":"A.RPT","forms":["UA5","ua5"]})", u"UA5 is there twice"_s},
                    BadRow{"cellsList", R"({"name":"A.RPT","forms":["UA5"],"cells":[]})",
                           u"\"cells\" is not an object"_s},
                    BadRow{"cellNumber", R"({"name":"A.RPT","forms":["UA5"],"cells":{"UA5|1|1":5}})",
                           u"\"UA5|1|1\" of \"cells\" is not a text"_s},
                    BadRow{"cellKey", R"({"name":"A.RPT","forms":["UA5"],"cells":{"UA5|1":"x"}})",
                           u"\"UA5|1\""_s}),
    [](const auto& info) { return info.param.name; });

TEST(Report, ADamagedFileIsReadOrRefusedInWords)
{
    const QByteArray whole = R"({"name":"SMITH.RPT","forms":["UA5","SUBPHOTO"],"cells":{"UA5|3|1":"7 Elm St"},)"
                             R"("images":{"SUB_1_3X5":"C:\\A.jpg"},"variables":{"City":"Dover"},"more":[1,{}]})";
    ASSERT_EQ(Report::FromJson(whole, u"x"_s).Cell(u"UA5|3|1"_s), u"7 Elm St"_s);
    std::mt19937 random(704);
    int refused = 0;
    for (int i = 0; i < 5000; ++i) {
        QByteArray bytes = whole;
        if (i % 5 == 0)
            bytes.truncate(static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size())));
        for (unsigned changes = 1 + random() % 3; changes > 0 && !bytes.isEmpty(); --changes)
            bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
                static_cast<char>(random());
        try {
            static_cast<void>(Report::FromJson(bytes, u"x"_s));
        } catch (const RuntimeError& refusal) {
            ASSERT_EQ(refusal.Number(), 321);
            ASSERT_TRUE(refusal.Description().startsWith(u"x is no report: "_s)) << refusal.what();
            ++refused;
        }
    }
    EXPECT_GT(refused, 2000);
}

TEST(Report, AFailedSaveLeavesTheFile)
{
    const SampleHome home;
    Report report = Report::Load(home.MakeReport(u"smith"_s, u"UA5"_s));
    const QByteArray before = home.Read(u"smith.json"_s);
    report.SetCell(u"UA5|3|1"_s, u"changed"_s);
    EXPECT_THROW(report.SaveAs(home.File(u"no/such/directory/x.json"_s)), RuntimeError);
    EXPECT_TRUE(report.Modified());
    EXPECT_EQ(home.Read(u"smith.json"_s), before);
}

/// Each form used to be looked for among all before it: 24 s for so many, built for speed.
TEST(Report, AGreatManyFormsAreReadInAMoment)
{
    QJsonArray forms{u"UA5"_s};
    for (int i = 0; i < 200'000; ++i)
        forms.append(u"F%1"_s.arg(i));
    const QByteArray json =
        QJsonDocument(QJsonObject{{u"name"_s, u"A.RPT"_s}, {u"forms"_s, forms}}).toJson(QJsonDocument::Compact);
    const std::clock_t before = std::clock(); // of this process alone, however busy the machine is
    const Report report = Report::FromJson(json, u"a.json"_s);
    EXPECT_TRUE(report.HasForm(u"f199999"_s));
    EXPECT_FALSE(report.HasForm(u"F200000"_s));
    EXPECT_TRUE(report.Objects().isEmpty());
    EXPECT_LT((std::clock() - before) / CLOCKS_PER_SEC, 12);
    forms.append(u"f7"_s);
    try {
        static_cast<void>(Report::FromJson(
            QJsonDocument(QJsonObject{{u"name"_s, u"A.RPT"_s}, {u"forms"_s, forms}}).toJson(), u"a.json"_s));
        ADD_FAILURE() << "the form is there twice";
    } catch (const RuntimeError& refusal) {
        EXPECT_TRUE(refusal.Description().contains(u"the form F7 is there twice"_s));
    }
}

TEST(Report, ObjectsAreThoseOfItsPages)
{
    const SampleHome home;
    const Report report =
        Report::Load(home.MakeReportOf(u"small"_s, {u"UA5"_s, u"SUBPHOTO"_s, u"COMPPH1"_s}, {}));
    EXPECT_EQ(report.Objects().join(u' '), u"SUB_1_3X5 SUB_2_3X5 SUB_3_3X5 CMP_1_3X5 CMP_2_3X5 CMP_3_3X5"_s);
    EXPECT_EQ(report.FindObject(u"cmp_2_3x5"_s), u"CMP_2_3X5"_s);
    EXPECT_EQ(report.FindObject(u"CMP_2_"_s), u""_s) << "an object has its size in its name";
    EXPECT_EQ(report.ObjectOf(u"CMP_2_"_s), u"CMP_2_3X5"_s);
    EXPECT_EQ(report.ObjectOf(u"CMP_4_"_s), u""_s);
    EXPECT_EQ(report.FindObject(u"CMP_4_3X5"_s), u""_s);
    EXPECT_EQ(report.FindObject(u"CMP_2"_s), u""_s);
    EXPECT_EQ(report.FindObject(u""_s), u""_s);
}

} // namespace
