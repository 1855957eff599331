#include "store/change.h"

#include "store/record.h"
#include "store/store.h"
#include "support/databook_home.h"
#include "support/error_number.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

using Kind = store::Step::Kind;

class Changes : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    QList<store::Step> steps;

    void SetUp() override
    {
        DatabookHome::SetUp();
        AddRow({{key, u"12 MAIN ST"_s}, {u"CITY"_s, u"Salem"_s}, {u"GLA"_s, u"900"_s}});
        AddRow({{key, u"7 OAK AVE"_s}, {u"CITY"_s, u"Dover"_s}});
        Bind(source);
        source.Watch([this](const store::Step& step) { steps.append(step); });
        ASSERT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    }
    [[nodiscard]] QString Stored(const QString& record, const QString& field)
    {
        const auto read = store::ReadRecord(source, record);
        return read ? read->Text(field) : u"(none)"_s;
    }
};

TEST_F(Changes, AnEditTellsWhatItsFieldsHeldAndHold)
{
    {
        store::Change change(source, u"Move 12 MAIN ST"_s);
        change.Set(u"city"_s, u"Bend"_s);
        store::SetFieldData(source, u"Bend 2"_s, u"CITY"_s);
        change.Set(u"ST"_s, u"OR"_s);
        EXPECT_TRUE(steps.isEmpty()) << "nothing is stored yet";
        change.Store();
    }
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0].kind, Kind::Edited);
    EXPECT_EQ(steps[0].words, u"Move 12 MAIN ST"_s);
    EXPECT_EQ(steps[0].table, table);
    EXPECT_EQ(steps[0].key, u"12 MAIN ST"_s);
    EXPECT_EQ(steps[0].before, (store::FieldValues{{u"CITY"_s, u"Salem"_s}, {u"ST"_s, QVariant()}}));
    EXPECT_EQ(steps[0].after, (store::FieldValues{{u"CITY"_s, u"Bend 2"_s}, {u"ST"_s, u"OR"_s}}));
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Bend 2"_s);
}

TEST_F(Changes, WhatIsNotStoredIsDropped)
{
    {
        store::Change change(source, u"words"_s);
        change.Set(u"CITY"_s, u"Bend"_s);
    }
    EXPECT_FALSE(store::Change::Open(source));
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    EXPECT_TRUE(steps.isEmpty());
    EXPECT_EQ(tests::NumberOf([&] { store::Change::Set(source, u"CITY"_s, u"Bend"_s); }), error::kNoEdit);
}

TEST_F(Changes, OneThatTakesPartIsStoredWithTheOneThatBegan)
{
    store::Change whole(source, u"the whole"_s);
    {
        store::Change part(source, store::Change::TakePart{}, u"a part"_s);
        part.Set(u"CITY"_s, u"Bend"_s);
        part.Store();
        EXPECT_TRUE(steps.isEmpty());
        store::Change given(source, store::Change::TakePart{}, u"a part that gives up"_s);
    }
    EXPECT_TRUE(store::Change::Open(source));
    whole.Set(u"GLA"_s, u"950"_s);
    whole.Store();
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0].words, u"the whole"_s);
    EXPECT_EQ(steps[0].after.keys(), (QStringList{u"CITY"_s, u"GLA"_s}));
}

TEST_F(Changes, AFreshOneDropsWhatNobodyFinished)
{
    store::Change left(source, u"left open"_s);
    left.Set(u"CITY"_s, u"Bend"_s);
    store::Change fresh(source, u"fresh"_s);
    EXPECT_EQ(tests::NumberOf([&] { left.Store(); }), error::kNoEdit);
    fresh.Set(u"GLA"_s, u"950"_s);
    fresh.Store();
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0].after.keys(), QStringList{u"GLA"_s});
    store::Change alone(source, store::Change::TakePart{}, u"Move %1"_s);
    alone.Set(u"CITY"_s, u"Bend"_s);
    alone.Store();
    EXPECT_EQ(steps.last().words, u"Move 12 MAIN ST"_s) << "with none under way it is one of its own";
}

TEST_F(Changes, AWholeSetOfRecordsIsAStepEach)
{
    AddRow({{key, u"9 O'HARE CT"_s}, {u"CITY"_s, u"Salem"_s}});
    Bind(source);
    EXPECT_EQ(store::Change::Rows(source, {{u"ST"_s, u"O'R"_s}, {u"COUNTY"_s, u"Marion"_s}}, u"CITY = 'salem'"_s, u"words"_s),
              2);
    ASSERT_EQ(steps.size(), 2);
    EXPECT_EQ(steps[0].key, u"12 MAIN ST"_s);
    EXPECT_EQ(steps[1].key, u"9 O'HARE CT"_s);
    EXPECT_EQ(steps[1].before, (store::FieldValues{{u"COUNTY"_s, QVariant()}, {u"ST"_s, QVariant()}}));
    EXPECT_EQ(steps[1].after, (store::FieldValues{{u"COUNTY"_s, u"Marion"_s}, {u"ST"_s, u"O'R"_s}}));
    EXPECT_EQ(Stored(u"9 O'HARE CT"_s, u"ST"_s), u"O'R"_s);
    EXPECT_EQ(Stored(u"7 OAK AVE"_s, u"ST"_s), QString());
    source.Watch([](const store::Step&) { throw RuntimeError(error::kDiskFull, u"full"_s); });
    EXPECT_EQ(tests::NumberOf([&] { store::Change::Rows(source, {{u"ST"_s, u"WA"_s}}, u"CITY = 'Salem'"_s, {}); }),
              error::kDiskFull);
    EXPECT_EQ(Stored(u"9 O'HARE CT"_s, u"ST"_s), u"O'R"_s);
}

TEST_F(Changes, ANewRecordAndADeletedOneAreToldWhole)
{
    store::Change added(source, store::Change::NewRecord{}, u"Add 1 NEW RD"_s);
    added.Set(key, u"1 NEW RD"_s);
    added.Set(u"CITY"_s, u"Bend"_s);
    added.Store();
    ASSERT_TRUE(store::FindRecord(ports, source, u"1 NEW RD"_s, key));
    store::Change::Delete(source, u"Delete 1 NEW RD"_s);
    ASSERT_EQ(steps.size(), 2);
    EXPECT_EQ(steps[0].kind, Kind::Added);
    EXPECT_EQ(steps[0].key, u"1 NEW RD"_s);
    EXPECT_TRUE(steps[0].before.isEmpty());
    EXPECT_EQ(steps[1].kind, Kind::Deleted);
    EXPECT_EQ(steps[1].words, u"Delete 1 NEW RD"_s);
    EXPECT_EQ(steps[1].key, u"1 NEW RD"_s);
    EXPECT_EQ(steps[1].before.value(u"CITY"_s), u"Bend"_s);
    EXPECT_EQ(Stored(u"1 NEW RD"_s, u"CITY"_s), u"(none)"_s);
}

TEST_F(Changes, WhatIsHeardOfAStepIsStoredWithItOrNeitherIs)
{
    source.Watch([](const store::Step&) { throw RuntimeError(error::kDiskFull, u"no room for the history"_s); });
    const auto edit = [this] {
        store::Change change(source, u"words"_s);
        change.Set(u"CITY"_s, u"Bend"_s);
        change.Store();
    };
    EXPECT_EQ(tests::NumberOf(edit), error::kDiskFull);
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    EXPECT_EQ(tests::NumberOf([&] { store::Change::Delete(source, u"words"_s); }), error::kDiskFull);
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    source.Watch({});
    ASSERT_TRUE(store::FindRecord(ports, source, u"12 MAIN ST"_s, key));
    edit();
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Bend"_s);
}

TEST_F(Changes, AStepBeginsAnewAfterALookUpDroppedTheLast)
{
    store::Change::Begin(source, u"dropped"_s);
    store::Change::Set(source, u"CITY"_s, u"Bend"_s);
    ASSERT_TRUE(store::FindRecord(ports, source, u"7 OAK AVE"_s, key));
    store::Change::Begin(source, u"kept"_s);
    store::Change::Set(source, u"GLA"_s, u"1"_s);
    store::Updateandfind(ports, source, u"7 OAK AVE"_s);
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0].words, u"kept"_s);
    EXPECT_EQ(steps[0].key, u"7 OAK AVE"_s);
    EXPECT_EQ(steps[0].before.keys(), QStringList{u"GLA"_s});
}

TEST_F(Changes, AChangeThatIsRefusedStaysUnderWay)
{
    store::Change change(source, u"Rename"_s);
    change.Set(key, u"7 OAK AVE"_s);
    EXPECT_EQ(tests::NumberOf([&] { change.Store(); }), error::kDuplicateKey);
    EXPECT_TRUE(steps.isEmpty());
    change.Set(key, u"8 OAK AVE"_s);
    change.Store();
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0].key, u"12 MAIN ST"_s);
    EXPECT_EQ(steps[0].after.value(key), u"8 OAK AVE"_s);
}

TEST_F(Changes, ARecordIsReadAsAValueBesideTheCursorAndItsChange)
{
    store::Change change(source, u"words"_s);
    change.Set(u"CITY"_s, u"Bend"_s);
    const int turns = doubles.pump.turns;
    const auto read = store::ReadRecord(source, u" 7 oak ave "_s);
    ASSERT_TRUE(read);
    EXPECT_EQ(doubles.pump.turns, turns);
    EXPECT_EQ(read->Text(u"city"_s), u"Dover"_s);
    EXPECT_FALSE(read->Value(u"GLA"_s).isValid());
    EXPECT_EQ(read->Text(u"GLA"_s), QString());
    EXPECT_TRUE(read->Has(u"photos"_s));
    EXPECT_FALSE(read->Has(u"NONE"_s));
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(read->Value(u"NONE"_s)); }), error::kFieldUnknown);
    EXPECT_FALSE(store::ReadRecord(source, u"9 NOWHERE"_s));
    EXPECT_FALSE(store::ReadRecord(source, u"  "_s));
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s) << "what is stored, not what is being changed";
    change.Store();
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Bend"_s);
    EXPECT_EQ(store::GetFieldData(source, key), u"12 MAIN ST"_s);
    EXPECT_EQ(read->Text(u"city"_s), u"Dover"_s);
    source.Close();
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(store::ReadRecord(source, u"7 OAK AVE"_s)); }), error::kNoObject);
    Bind(source);
    EXPECT_EQ(Stored(u"7 OAK AVE"_s, u"CITY"_s), u"Dover"_s);
}

} // namespace
