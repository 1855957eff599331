// vasctl transfer: a real forms program, a report of the demo, and what the Databook holds afterwards.

#include "support/processes.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip::tests;

namespace {

const QString kPending = u"3 Pending Way"_s;

constexpr int kDone = 0, kFailed = 1, kUsage = 2, kNotFound = 3, kDeclined = 4, kNoLink = 5;

/// 1/2/2024 and 01/02/2024 are one day, 231,000 and 231000 one price; a number's blank is read as 0.
QString Plain(const QString& field, const QString& value)
{
    if (value == u"0"_s)
        return {};
    if (field == u"PRICEFLD"_s)
        return QString(value).remove(u',');
    if (field != u"SALEDATE"_s)
        return value;
    QStringList parts = value.split(u'/');
    for (QString& part : parts)
        part = part.rightJustified(2, u'0');
    return parts.join(u'/');
}

class VasctlTransfer : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(home.Make());
        ASSERT_TRUE(home.StartForms());
        // The small demo has no pending sale.
        ASSERT_EQ(home.Vasctl({u"records"_s, u"add"_s, kPending, u"--set"_s, u"SALEFLD=Pending"_s, u"--set"_s,
                               u"YEARBUILT=1998"_s, u"--set"_s, u"SELLINGPR=250000"_s, u"--set"_s,
                               u"PRICEFLD=250000"_s, u"--set"_s, u"CITY=Marlow Falls"_s, u"--set"_s,
                               u"ST=OR"_s, u"--set"_s, u"ZIP=97991"_s, u"--set"_s, u"GLA=1600"_s})
                      .code,
                  kDone);
    }
    [[nodiscard]] QJsonObject Record(const QString& key) const
    {
        return home.Vasctl({u"records"_s, u"show"_s, key}).Object();
    }
    [[nodiscard]] Ended Transfer(const QStringList& words, const QString& answer = u"--yes"_s) const
    {
        return home.Vasctl(QStringList{answer, u"transfer"_s} + words);
    }
    [[nodiscard]] QStringList Views(const QString& key) const
    {
        QStringList views;
        for (const QJsonValue& row : home.Vasctl({u"photos"_s, u"list"_s, key}).Array())
            views << row.toObject()[u"VIEW"_s].toString();
        return views;
    }
    /// One record of each type, once closed and once pending where there is such a one.
    [[nodiscard]] QStringList Samples() const
    {
        QMap<QString, QString> keys;
        for (const QJsonValue& value :
             home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY, APPRSLTYPE, SALEFLD FROM COMPS"_s}).Array()) {
            const QJsonObject row = value.toObject();
            const bool pending = row[u"SALEFLD"_s].toString() == u"Pending"_s;
            keys.insert(row[u"APPRSLTYPE"_s].toString() + (pending ? u"P"_s : QString()),
                        row[u"CENTRALKEY"_s].toString().trimmed());
        }
        return keys.values();
    }
    /// Every field but those that a transfer is to change: the address as the key has it, the type by form
    /// and group, the day of loading and of change.
    static void ExpectSame(const QJsonObject& before, const QJsonObject& after, const QString& which)
    {
        static const QStringList kMayChange{u"CENTRALKEY"_s, u"ADDRESS"_s,    u"APPRSLTYPE"_s,
                                            u"LOADDATE"_s,   u"LOADSERIAL"_s, u"MODIFIEDDATE"_s,
                                            u"PHOTOS"_s,     u"FRONT"_s};
        ASSERT_GT(before.size(), 10);
        QStringList fields = before.keys() + after.keys();
        fields.removeDuplicates();
        for (const QString& field : fields) {
            if (kMayChange.contains(field))
                continue;
            EXPECT_EQ(Plain(field, after[field].toVariant().toString()), Plain(field, before[field].toVariant().toString()))
                << which.toStdString() << ": " << field.toStdString();
        }
    }

    ProgramHome home;
};

TEST_F(VasctlTransfer, WhatWasSentComesBackWhole)
{
    const QStringList keys = Samples();
    ASSERT_EQ(keys.size(), 7) << "every type, and a pending sale";
    for (const QString& key : keys) {
        const QJsonObject before = Record(key);
        for (const auto& [slot, group] : {std::pair{u"txtComp:4"_s, u"comps"_s},
                                          {u"txtAltComp:4"_s, u"alternates"_s},
                                          {u"txtListing:4"_s, u"listings"_s},
                                          {u"txtRental:4"_s, u"rentals"_s}}) {
            ASSERT_EQ(home.Vasctl({u"--yes"_s, u"drop"_s, key, u"--on"_s, slot}).code, kDone)
                << key.toStdString();
            const Ended run = Transfer({group, u"4"_s});
            EXPECT_EQ(run.code, kDone) << run.err.toStdString();
            EXPECT_EQ(run.Object()[u"keys"_s].toArray(), QJsonArray{key});
            EXPECT_TRUE(run.err.contains("Replace the data for ")) << run.err.toStdString();
            const QJsonObject after = Record(key);
            ExpectSame(before, after, key + u" as one of the "_s + group);
            EXPECT_EQ(after[u"PHOTOS"_s].toString(), before[u"PHOTOS"_s].toString())
                << "it has its own picture";
            EXPECT_EQ(after[u"APPRSLTYPE"_s].toString(), group == u"rentals"_s ? u"R"_s : u"F"_s);
        }
    }
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 61);
}

TEST_F(VasctlTransfer, ANewRecordHoldsTheReportsColumnAndPicture)
{
    QString key;
    for (const QJsonValue& row :
         home.Vasctl({u"sql"_s, u"SELECT CENTRALKEY FROM COMPS WHERE FRONT = '1' AND APPRSLTYPE = 'F'"_s})
             .Array())
        key = row.toObject()[u"CENTRALKEY"_s].toString().trimmed();
    ASSERT_FALSE(key.isEmpty());
    ASSERT_EQ(home.Vasctl({u"--yes"_s, u"drop"_s, key, u"--on"_s, u"txtComp:3"_s}).code, kDone);
    const QString old = u"1 Other Way"_s;
    ASSERT_EQ(home.Vasctl({u"records"_s, u"rename"_s, key, old}).code, kDone);
    const auto stored = home.Vasctl({u"photos"_s, u"list"_s, old}).Array()[0].toObject();

    const Ended run = Transfer({u"comps"_s, u"3"_s});
    ASSERT_EQ(run.code, kDone) << run.err.toStdString();
    EXPECT_EQ(run.Object()[u"message"_s].toString(), u"1 record was added, 1 picture was filed."_s);
    EXPECT_EQ(Views(key), QStringList{u"FRONT VIEW"_s});
    const auto copy = home.Vasctl({u"photos"_s, u"list"_s, key}).Array()[0].toObject();
    EXPECT_NE(copy[u"STEM"_s].toString(), stored[u"STEM"_s].toString()) << "a picture belongs to one record";
    EXPECT_EQ(copy[u"SIZE"_s].toString(), u"800 x 600"_s) << "brought to the size of the setting";
    const QJsonObject before = Record(old);
    const QJsonObject after = Record(key);
    for (const QString& field : {u"GLA"_s, u"SELLINGPR"_s, u"SALEFLD"_s, u"SALESERIAL"_s, u"YEARBUILT"_s,
                                 u"AGE"_s, u"BEDROOM"_s, u"BATH"_s, u"SITE"_s, u"CONDITION"_s})
        EXPECT_EQ(after[field], before[field]) << field.toStdString();
    EXPECT_EQ(after[u"CITY"_s], before[u"CITY"_s]) << "the city line tells it";
    EXPECT_FALSE(after[u"LOADDATE"_s].toString().isEmpty());
    EXPECT_EQ(home.Vasctl({u"photos"_s, u"verify"_s}).code, kDone);
}

TEST_F(VasctlTransfer, DataAndPicturesGoApartOrTogether)
{
    const QString subject = u"114 OAK ST"_s;
    EXPECT_EQ(Transfer({u"subject"_s, u"--data"_s}).code, kDone);
    EXPECT_EQ(Record(subject)[u"CITY"_s].toString(), u"Marlow Falls"_s);
    EXPECT_TRUE(Views(subject).isEmpty());
    const Ended pictures = Transfer({u"subject"_s, u"--pictures"_s});
    EXPECT_EQ(pictures.Object()[u"message"_s].toString(), u"3 pictures were filed."_s);
    EXPECT_EQ(Views(subject), (QStringList{u"FRONT VIEW"_s, u"REAR VIEW"_s, u"STREET SCENE"_s}));
    EXPECT_TRUE(QFile::exists(home.Native(u"KEL/DATA/OAKST114_1.JPG"_s))) << "the report keeps its picture";
    const Ended both = Transfer({u"subject"_s, u"--data"_s, u"--pictures"_s});
    EXPECT_EQ(both.Object()[u"message"_s].toString(), u"1 was replaced, 3 pictures were filed."_s);
    EXPECT_EQ(Views(subject).size(), 3);

    const auto before = home.Vasctl({u"records"_s, u"list"_s}).Array().size();
    const Ended all = Transfer({u"all"_s, u"--data"_s});
    EXPECT_EQ(all.code, kDone) << all.err.toStdString();
    EXPECT_EQ(all.Object()[u"replaced"_s].toInt(), 3) << "the subject and two comps";
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), before);
}

TEST_F(VasctlTransfer, NoKeepsTheRecord)
{
    const Ended added = Transfer({u"subject"_s, u"--data"_s});
    ASSERT_EQ(added.code, kDone);
    ASSERT_EQ(home.Vasctl({u"records"_s, u"edit"_s, u"114 Oak St"_s, u"--set"_s, u"GLA=999"_s}).code, kDone);
    const Ended kept = Transfer({u"subject"_s, u"--data"_s}, u"--no"_s);
    EXPECT_EQ(kept.code, kDeclined) << kept.err.toStdString();
    EXPECT_TRUE(kept.err.contains("Replace the data for 114 OAK ST?")) << kept.err.toStdString();
    EXPECT_EQ(kept.Object()[u"kept"_s].toInt(), 1);
    EXPECT_EQ(Record(u"114 OAK ST"_s)[u"GLA"_s], 999);
    const Ended filed = Transfer({u"subject"_s}, u"--no"_s);
    EXPECT_EQ(filed.code, kDone) << "the pictures go there all the same";
    EXPECT_EQ(filed.Object()[u"pictures"_s].toInt(), 3);
    EXPECT_EQ(Record(u"114 OAK ST"_s)[u"GLA"_s], 999);
}

TEST_F(VasctlTransfer, WhatCannotBeIsRefusedInWords)
{
    const std::pair<QStringList, const char*> wrong[] = {
        {{}, "'vasctl transfer' wants to know what to do: subject, comps"},
        {{u"photos"_s}, "'vasctl transfer' can't 'photos'; it knows subject"},
        {{u"subject"_s, u"1"_s}, "Usage: vasctl transfer subject"},
        {{u"all"_s, u"2"_s}, "Usage: vasctl transfer subject"},
        {{u"comps"_s, u"1"_s, u"2"_s}, "Usage: vasctl transfer subject"},
        {{u"comps"_s, u"0"_s}, "'0' is no slot; comps have 1 to 9."},
        {{u"comps"_s, u"10"_s}, "'10' is no slot; comps have 1 to 9."},
        {{u"rentals"_s, u"-1"_s}, ""},
        {{u"listings"_s, u"7"_s}, "'7' is no slot; listings have 1 to 6."},
        {{u"alternates"_s, u"two"_s}, "'two' is no slot; alternates have 1 to 6."},
    };
    for (const auto& [words, text] : wrong) {
        const Ended run = Transfer(words);
        EXPECT_EQ(run.code, kUsage) << words.join(u' ').toStdString();
        EXPECT_TRUE(run.err.contains(text)) << run.err.toStdString();
    }
    for (const QStringList& empty : {QStringList{u"comps"_s, u"9"_s}, QStringList{u"rentals"_s},
                                     QStringList{u"listings"_s, u"1"_s, u"--pictures"_s}}) {
        const Ended run = Transfer(empty);
        EXPECT_EQ(run.code, kNotFound) << empty.join(u' ').toStdString();
        EXPECT_TRUE(run.err.contains("The report has nothing to transfer here.")) << run.err.toStdString();
    }
    ASSERT_TRUE(QFile::remove(home.Native(u"VAS2000/Comp2Kel.mdb"_s)));
    const Ended unmapped = Transfer({u"comps"_s});
    EXPECT_EQ(unmapped.code, kFailed) << unmapped.err.toStdString();
    EXPECT_TRUE(unmapped.err.contains("Comp2Kel.mdb")) << unmapped.err.toStdString();
    ProgramHome::Stop(home.forms);
    EXPECT_EQ(Transfer({u"all"_s}).code, kNoLink);
    EXPECT_EQ(home.Vasctl({u"records"_s, u"list"_s}).Array().size(), 61);
}

} // namespace
