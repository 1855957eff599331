// What vasctl gives the fields of a record, and what it refuses: whole processes on a demo home.

#include "support/processes.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotFound = 3;

class VasctlRecords : public testing::Test
{
protected:
    const QString key = u"9 Set Rd"_s;
    ProgramHome home;

    void SetUp() override
    {
        ASSERT_TRUE(home.Make());
        ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, key}).code, kDone);
    }
    Ended Edit(const QStringList& settings, const QString& verb = u"edit"_s) const
    {
        QStringList line{u"--plain"_s, u"records"_s, verb, key};
        for (const QString& setting : settings)
            line << u"--set"_s << setting;
        return home.Vasctl(line);
    }
    [[nodiscard]] QJsonObject Show() const { return home.Vasctl({u"records"_s, u"show"_s, key}).Object(); }
};

TEST_F(VasctlRecords, WhatHangsOnAFieldFollowsIt)
{
    ASSERT_EQ(Edit({u"SALEDATE=3/7/04"_s, u"YEARBUILT=1985"_s, u"SELLINGPR=250000"_s, u"GLA=1600"_s}).code,
              kDone);
    QJsonObject record = Show();
    EXPECT_EQ(record[u"SALEDATE"_s], u"2004-03-07"_s);
    EXPECT_EQ(record[u"SALESERIAL"_s], 38053);
    EXPECT_EQ(record[u"AGE"_s], 19);
    EXPECT_EQ(record[u"PRICEGLA"_s], 156.25);
    EXPECT_FALSE(record[u"MODIFIEDDATE"_s].toString().isEmpty());

    ASSERT_EQ(Edit({u"SALEDATE="_s, u"AGE=20"_s, u"LOADDATE=4/1/2004"_s, u"gla=1000"_s}).code, kDone);
    record = Show();
    EXPECT_EQ(record[u"SALEDATE"_s], u"1900-01-01"_s) << "without a date it is pending";
    EXPECT_EQ(record[u"SALESERIAL"_s], 2);
    EXPECT_EQ(record[u"AGE"_s], 20) << "as it was given";
    EXPECT_EQ(record[u"LOADSERIAL"_s], 38078);
    EXPECT_EQ(record[u"PRICEGLA"_s], 250);
    EXPECT_EQ(record[u"YEARBUILT"_s], 1985);

    ASSERT_EQ(Edit({u"APPRSLTYPE=r"_s, u"LEASEDATE=3/8/2004"_s}).code, kDone);
    record = Show();
    EXPECT_EQ(record[u"APPRSLTYPE"_s], u"R"_s);
    EXPECT_EQ(record[u"LEASEDATE"_s], u"2004-03-08"_s);
    EXPECT_EQ(record[u"SALESERIAL"_s], 38054) << "on a rental the lease date plays the sale date's part";
}

TEST_F(VasctlRecords, AnAgeWithoutAYearOutlivesANewSaleDate)
{
    ASSERT_EQ(Edit({u"AGE=45"_s}).code, kDone);
    ASSERT_EQ(Edit({u"SALEDATE=3/7/2004"_s}).code, kDone);
    EXPECT_EQ(Show()[u"AGE"_s], 45);
    ASSERT_EQ(Edit({u"YEARBUILT=1985"_s}).code, kDone);
    EXPECT_EQ(Show()[u"AGE"_s], 19);
    ASSERT_EQ(Edit({u"YEARBUILT="_s}).code, kDone);
    EXPECT_FALSE(Show().contains(u"AGE"_s)) << "the year was taken away";
}

TEST_F(VasctlRecords, AValueThatCannotBeChangesNothing)
{
    const QJsonObject before = Show();
    const std::pair<QString, const char*> wrong[] = {
        {u"SALEDATE=13/45/2004"_s, "SALEDATE takes a date up to today"},
        {u"SALEDATE=soon"_s, "SALEDATE takes a date up to today"},
        {u"SALEDATE=3/7/2099"_s, "SALEDATE takes a date up to today"},
        {u"LOADDATE=2/30/2004"_s, "LOADDATE takes a date up to today"},
        {u"LEASEDATE=//"_s, "LEASEDATE takes a date up to today"},
        {u"APPRSLTYPE=Z"_s, "\"Z\" is no comp type. The types are F, C, S, R, L and M."},
        {u"APPRSLTYPE="_s, "is no comp type"},
        {u"SELLINGPR=250K"_s, "SELLINGPR takes digits, not '250K'."},
        {u"GLA=1600 1700"_s, "GLA takes digits"},
        {u"AGE=old"_s, "AGE takes digits"},
        {u"AGE=12345"_s, "AGE takes at most 4 characters; the value has 5."},
        {u"PRICEGLA=1"_s, "PRICEGLA is computed from other fields; set those."},
        {u"SALESERIAL=1"_s, "SALESERIAL is computed"},
        {u"LOADSERIAL=1"_s, "LOADSERIAL is computed"},
        {u"MODIFIEDDATE=1/1/2004"_s, "MODIFIEDDATE is computed"},
        {u"PHOTOS=FRONT VIEW|12345678"_s, "which are kept with 'vasctl photos'"},
        {u"FRONTPHOTO=x"_s, "which are kept with 'vasctl photos'"},
        {u"CENTRALKEY=x"_s, "The key is changed with 'vasctl records rename'."},
        {u"CITY="_s + QString(26, u'x'), "CITY takes at most 25 characters; the value has 26."},
        {u"NOFIELD=1"_s, "'NOFIELD=1' is none."},
        {u"=1"_s, "'=1' is none."},
        {u"CITY"_s, "'CITY' is none."},
    };
    for (const auto& [setting, text] : wrong) {
        const Ended ended = Edit({u"NOTES=changed"_s, setting});
        EXPECT_EQ(ended.code, kUsage) << setting.toStdString();
        EXPECT_TRUE(ended.err.contains(text)) << ended.err.toStdString();
    }
    EXPECT_EQ(Edit({}).code, kUsage);
    EXPECT_EQ(Show(), before);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"edit"_s, u"1 NOWHERE LN"_s, u"--set"_s, u"CITY=x"_s}).code,
              kNotFound);
}

TEST_F(VasctlRecords, TextsOfAllKindsAreStoredAsTheyAre)
{
    for (const QString& text : {u"Caf\u00e9 \u00d1u\u00f1ez"_s, u"\u05e8\u05d7\u05d5\u05d1 12"_s,
                                u"a\tb\x01"_s, u"O'B \"x\" %s; --"_s, u"a=b=c"_s, QString()}) {
        ASSERT_EQ(Edit({u"CITY="_s + text, u"NOTES="_s + text}).code, kDone) << text.toStdString();
        const QJsonObject record = Show();
        EXPECT_EQ(record[u"CITY"_s].toString(), text);
        EXPECT_EQ(record[u"NOTES"_s].toString(), text);
    }
}

TEST_F(VasctlRecords, AnAddressThatCannotBeAKeyIsRefused)
{
    const qsizetype before = home.Vasctl({u"records"_s, u"list"_s}).Array().size();
    const std::pair<QString, const char*> wrong[] = {
        {QString(), "Please Enter An Address"},
        {u"  #-' "_s, "Please Enter An Address"},
        {u"9 Set Rd\t"_s, "Please enter a valid address."},
        {u"9 Set\nRd"_s, "Please enter a valid address."},
        {QString(36, u'x'), "Shorten it and try again."},
    };
    for (const auto& [address, text] : wrong) {
        const Ended added = home.Vasctl({u"--plain"_s, u"records"_s, u"add"_s, address});
        EXPECT_EQ(added.code, kUsage) << address.toStdString();
        EXPECT_TRUE(added.err.contains(text)) << added.err.toStdString();
        for (const QString& verb : {u"copy"_s, u"rename"_s})
            EXPECT_EQ(home.Vasctl({u"records"_s, verb, key, address}).code, kUsage) << address.toStdString();
    }
    for (const QString& verb : {u"copy"_s, u"rename"_s}) {
        EXPECT_EQ(home.Vasctl({u"records"_s, verb, key, key.toUpper()}).code, kFailed) << "itself";
        EXPECT_EQ(home.Vasctl({u"records"_s, verb, u"1 NOWHERE LN"_s, u"2 NOWHERE LN"_s}).code, kNotFound);
        EXPECT_EQ(home.Vasctl({u"records"_s, verb, key}).code, kUsage);
    }
    for (const QString& type : {u"Z"_s, u""_s, u"Fx"_s})
        EXPECT_EQ(home.Vasctl({u"records"_s, u"add"_s, u"10 Set Rd"_s, u"--type"_s, type}).code, kUsage);
    EXPECT_EQ(home.Vasctl({u"--yes"_s, u"records"_s, u"delete"_s, u""_s}).code, kNotFound);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), before);
}

TEST_F(VasctlRecords, ALineOfTheCityListFitsTheFields)
{
    const QJsonArray before = home.Vasctl({u"cities"_s, u"list"_s}).Array();
    const std::pair<QStringList, const char*> wrong[] = {
        {{u"--city"_s, QString(26, u'x')}, "CITY takes at most 25 characters; the value has 26."},
        {{u"--city"_s, u"Elm"_s, u"--state"_s, u"Wisconsin"_s}, "ST takes at most 4 characters"},
        {{u"--city"_s, u"Elm"_s, u"--zip"_s, u"53122-12345"_s}, "ZIP takes at most 10 characters"},
        {{u"--city"_s, u"Elm"_s, u"--county"_s, QString(26, u'x')}, "COUNTY takes at most 25 characters"},
        {{u"--city"_s, u" \t"_s}, "Name the city with --city."},
    };
    for (const auto& [words, text] : wrong) {
        const Ended ended = home.Vasctl(QStringList{u"--plain"_s, u"cities"_s, u"add"_s} + words);
        EXPECT_EQ(ended.code, kUsage) << words.join(u' ').toStdString();
        EXPECT_TRUE(ended.err.contains(text)) << ended.err.toStdString();
    }
    for (const QString& line : {u"0"_s, u"99"_s, u""_s})
        EXPECT_EQ(home.Vasctl({u"--yes"_s, u"cities"_s, u"delete"_s, line}).code, kNotFound)
            << line.toStdString();
    for (const QStringList& words : {QStringList{}, QStringList{u"fly"_s}, QStringList{u"delete"_s},
                                     QStringList{u"assign"_s}, QStringList{u"list"_s, u"all"_s}})
        EXPECT_EQ(home.Vasctl(QStringList{u"cities"_s} + words).code, kUsage)
            << words.join(u' ').toStdString();
    EXPECT_EQ(home.Vasctl({u"cities"_s, u"list"_s}).Array(), before);
}

} // namespace
