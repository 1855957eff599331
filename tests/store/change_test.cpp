#include "store/change.h"

#include "store/record.h"
#include "store/store.h"
#include "store/transaction.h"
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

TEST_F(Changes, ARecordIsChangedByItsKeyBesideTheCursorAndItsChange)
{
    store::Change onShow(source, u"on show"_s);
    onShow.Set(u"CITY"_s, u"Bend"_s);
    {
        store::Change change(source, store::Change::OfKey{u" 7 oak ave "_s}, u"Move %1"_s);
        change.Set(u"CITY"_s, u"Astoria"_s);
        store::SetFieldData(change.Source(), u"OR"_s, u"ST"_s);
        change.Store();
    }
    EXPECT_EQ(Stored(u"7 OAK AVE"_s, u"CITY"_s), u"Astoria"_s);
    EXPECT_EQ(Stored(u"7 OAK AVE"_s, u"ST"_s), u"OR"_s);
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0].words, u"Move 7 OAK AVE"_s);
    EXPECT_EQ(steps[0].table, table);
    EXPECT_EQ(store::GetFieldData(source, key), u"12 MAIN ST"_s);
    onShow.Store();
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Bend"_s) << "the change under way went on";
    for (const QString& none : {u"9 NOWHERE"_s, u"  "_s})
        EXPECT_EQ(tests::NumberOf([&] { store::Change(source, store::Change::OfKey{none}, {}); }),
                  error::kNoCurrentRecord);
}

TEST_F(Changes, TheRecordOnShowReadsWhatWasStoredByItsKey)
{
    EXPECT_EQ(store::GetFieldData(source, u"CITY"_s), u"Salem"_s);
    store::Change change(source, store::Change::OfKey{u"12 MAIN ST"_s}, {});
    change.Set(u"CITY"_s, u"Bend"_s);
    change.Store();
    EXPECT_EQ(store::GetFieldData(source, u"CITY"_s), u"Bend"_s);
}

TEST_F(Changes, ARecordIsAddedAndDeletedByItsKeyBesideTheCursor)
{
    store::Change added(source, store::Change::NewKey{}, u"Add 1 NEW RD"_s);
    added.Set(key, u"1 NEW RD"_s);
    EXPECT_FALSE(store::Change::Open(source));
    added.Store();
    EXPECT_EQ(Stored(u"1 NEW RD"_s, key), u"1 NEW RD"_s);
    EXPECT_TRUE(store::Change::DeleteKey(source, u"1 new rd"_s, u"Delete 1 NEW RD"_s));
    EXPECT_FALSE(store::Change::DeleteKey(source, u"1 new rd"_s, u"Delete 1 NEW RD"_s));
    EXPECT_EQ(Stored(u"1 NEW RD"_s, key), u"(none)"_s);
    ASSERT_EQ(steps.size(), 2);
    EXPECT_EQ(steps[1].kind, Kind::Deleted);
    EXPECT_EQ(store::GetFieldData(source, key), u"12 MAIN ST"_s);
}

TEST_F(Changes, AChangeByKeyOutlivesTheTableItBeganOn)
{
    store::Change change(source, store::Change::OfKey{u"7 OAK AVE"_s}, {});
    change.Set(u"CITY"_s, u"Astoria"_s);
    source.Refresh(); // somebody switches while it is filled
    change.Store();
    EXPECT_EQ(Stored(u"7 OAK AVE"_s, u"CITY"_s), u"Astoria"_s);
}

/// What is heard of two changes within one transaction.
class ChangesTogether : public Changes
{
protected:
    int takenBack = 0;
    void SetUp() override
    {
        Changes::SetUp();
        source.Watch([this](const store::Step& step) { steps.append(step); }, [this] { ++takenBack; });
    }
    void Move(const QString& record, const QString& city)
    {
        store::Change change(source, store::Change::OfKey{record}, u"Move %1"_s);
        change.Set(u"CITY"_s, city);
        change.Store();
    }
    [[nodiscard]] QStringList Words() const
    {
        QStringList words;
        for (const store::Step& step : steps)
            words << step.words;
        return words;
    }
};

TEST_F(ChangesTogether, AreHeardOfWhenTheOutermostCommits)
{
    store::Transaction outer(source);
    {
        store::Transaction inner(source);
        Move(u"12 MAIN ST"_s, u"Bend"_s);
        inner.Commit();
    }
    Move(u"7 OAK AVE"_s, u"Astoria"_s);
    EXPECT_TRUE(steps.isEmpty()) << "they may still be taken back";
    outer.Commit();
    EXPECT_EQ(Words(), (QStringList{u"Move 12 MAIN ST"_s, u"Move 7 OAK AVE"_s}));
    EXPECT_EQ(takenBack, 0);
    Move(u"7 OAK AVE"_s, u"Dover"_s);
    EXPECT_EQ(steps.size(), 3) << "and once";
}

TEST_F(ChangesTogether, OfOneThatIsRolledBackNothingIsHeard)
{
    {
        store::Transaction outer(source);
        Move(u"12 MAIN ST"_s, u"Bend"_s);
    }
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    store::Transaction outer(source);
    {
        store::Transaction inner(source);
        Move(u"12 MAIN ST"_s, u"Bend"_s);
    }
    Move(u"7 OAK AVE"_s, u"Astoria"_s);
    outer.Commit();
    EXPECT_EQ(Words(), QStringList{u"Move 7 OAK AVE"_s});
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    EXPECT_EQ(takenBack, 0) << "nothing had been heard";
}

TEST_F(ChangesTogether, ACommitThatFailsTakesBackWhatWasHeard)
{
    constexpr int kNoTransaction = 3034;
    {
        store::Transaction outer(source);
        Move(u"12 MAIN ST"_s, u"Bend"_s);
        source.Database().Rollback(); // as after an error of the disk: there is nothing to commit any more
        EXPECT_EQ(tests::NumberOf([&] { outer.Commit(); }), kNoTransaction);
    }
    EXPECT_EQ(Words(), QStringList{u"Move 12 MAIN ST"_s});
    EXPECT_EQ(takenBack, 1);
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    Move(u"7 OAK AVE"_s, u"Astoria"_s);
    EXPECT_EQ(Words(), (QStringList{u"Move 12 MAIN ST"_s, u"Move 7 OAK AVE"_s})) << "the lost step is not told again";
}

TEST_F(ChangesTogether, AWatcherThatRefusesTakesAllOfThemBack)
{
    source.Watch(
        [this](const store::Step& step) {
            if (!steps.isEmpty())
                throw RuntimeError(error::kDiskFull, u"no room for the history"_s);
            steps.append(step);
        },
        [this] { ++takenBack; });
    {
        store::Transaction outer(source);
        Move(u"12 MAIN ST"_s, u"Bend"_s);
        Move(u"7 OAK AVE"_s, u"Astoria"_s);
        EXPECT_EQ(tests::NumberOf([&] { outer.Commit(); }), error::kDiskFull);
    }
    EXPECT_EQ(takenBack, 1);
    EXPECT_EQ(Stored(u"12 MAIN ST"_s, u"CITY"_s), u"Salem"_s);
    EXPECT_EQ(Stored(u"7 OAK AVE"_s, u"CITY"_s), u"Dover"_s);
}

TEST_F(ChangesTogether, SourcesThatShareADatabaseHaveOneWatcherWheneverItIsGiven)
{
    store::DataSource other(engine, u"datOther"_s);
    other.ShareDatabase(source);
    Bind(other);
    ASSERT_TRUE(store::FindRecord(ports, other, u"7 OAK AVE"_s, key));
    int heard = 0;
    source.Watch([&](const store::Step&) { ++heard; });
    store::Change change(other, u"words"_s);
    change.Set(u"CITY"_s, u"Astoria"_s);
    change.Store();
    EXPECT_EQ(heard, 1);
    EXPECT_TRUE(steps.isEmpty());
}

} // namespace
