// Going through a whole table: rows are read in pieces, and what is stored meanwhile is not overwritten.

#include "platform/engine/home.h"
#include "platform/engine/row_walk.h"

namespace vasclip::engine {
namespace {

struct RowWalkTest : testing::Test
{
    RowWalkTest()
    {
        QList<Comp> comps;
        for (int i = 0; i < 300; ++i)
            comps.append({u"%1 OAK ST"_s.arg(i), u"Salem"_s, {}, {}, {}});
        database = MakeComps(home.engine, u"C:\\BOOK.MDB"_s, comps);
    }
    ~RowWalkTest() override { database->Close(); }
    [[nodiscard]] qint64 In(const QString& city) const
    {
        return database->OpenRecordset(u"SELECT CITY FROM COMPS WHERE CITY = '%1'"_s.arg(city), RecordsetType::Dynaset)
            ->RecordCount();
    }

    Home home;
    std::shared_ptr<Database> database;
};

TEST_F(RowWalkTest, ChangesAndDeletesEachRowInTurn)
{
    RowWalk walk(*database, u"COMPS"_s, {u"CENTRALKEY"_s, u"city"_s});
    EXPECT_EQ(walk.Count(), 300);
    Transaction whole(*database);
    int at = 0;
    for (; walk.Next(); ++at) {
        EXPECT_EQ(walk.Value(0).toString().trimmed(), u"%1 OAK ST"_s.arg(at));
        if (at % 3 == 0) {
            walk.Delete();
            continue;
        }
        walk.Set(1, u"Bend"_s);
        EXPECT_EQ(walk.Value(1), u"Bend"_s);
        if (at % 3 == 1)
            walk.Update(); // what is not stored is dropped with the next row
    }
    EXPECT_EQ(at, 300);
    whole.Commit();
    EXPECT_EQ(In(u"Bend"_s), 100);
    EXPECT_EQ(In(u"Salem"_s), 100);
}

TEST_F(RowWalkTest, ReadsAnewWhatThisEngineStoresMeanwhile)
{
    RowWalk walk(*database, u"COMPS"_s, {u"CENTRALKEY"_s, u"CITY"_s});
    Transaction whole(*database);
    int seen = 0;
    for (int at = 0; walk.Next(); ++at, ++seen) {
        if (at == 200) {
            database->Execute(u"UPDATE COMPS SET CITY = 'Theirs' WHERE CENTRALKEY = '201 OAK ST'"_s);
            database->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '202 OAK ST'"_s);
        }
        walk.Set(1, walk.Value(1).toString() + u" 2"_s);
        walk.Update();
    }
    whole.Commit();
    EXPECT_EQ(seen, 299);
    EXPECT_EQ(In(u"Theirs 2"_s), 1);
    EXPECT_EQ(In(u"Salem 2"_s), 298);
}

TEST_F(RowWalkTest, ARowThatWasChangedSinceItWasReadIsNotWrittenOver)
{
    RowWalk walk(*database, u"COMPS"_s, {u"CITY"_s});
    Transaction whole(*database);
    ASSERT_TRUE(walk.Next());
    database->Execute(u"UPDATE COMPS SET CITY = 'Theirs' WHERE CENTRALKEY = '0 OAK ST'"_s);
    walk.Set(0, u"Mine"_s);
    EXPECT_EQ(ErrorOf([&] { walk.Update(); }), error::kDataChanged);
    database->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '0 OAK ST'"_s);
    EXPECT_EQ(ErrorOf([&] { walk.Update(); }), error::kRecordDeleted);
    EXPECT_EQ(ErrorOf([&] { walk.Delete(); }), error::kRecordDeleted);
}

TEST_F(RowWalkTest, AChangeThatIsRefusedLeavesTheTransactionAsItWas)
{
    RowWalk walk(*database, u"COMPS"_s, {u"CENTRALKEY"_s, u"CITY"_s});
    Transaction whole(*database);
    ASSERT_TRUE(walk.Next());
    walk.Set(1, u"Bend"_s);
    walk.Update();
    ASSERT_TRUE(walk.Next());
    walk.Set(0, u"7 OAK ST"_s);
    walk.Set(1, u"Bend"_s);
    EXPECT_EQ(ErrorOf([&] { walk.Update(); }), error::kDuplicateKey);
    ASSERT_TRUE(walk.Next());
    walk.Set(0, QVariant());
    EXPECT_EQ(ErrorOf([&] { walk.Update(); }), error::kKeyIsNull);
    EXPECT_EQ(ErrorOf([&] { walk.Set(1, QString(1000, u'x')); }), error::kFieldTooLong);
    ASSERT_TRUE(walk.Next());
    walk.Set(1, u"Bend"_s);
    walk.Update();
    whole.Commit();
    EXPECT_EQ(In(u"Bend"_s), 2);
    EXPECT_EQ(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 300);
}

TEST_F(RowWalkTest, RefusesAFieldThatIsNotThere)
{
    EXPECT_EQ(ErrorOf([&] { RowWalk(*database, u"COMPS"_s, {u"NONE"_s}); }), error::kFieldUnknown);
}

} // namespace
} // namespace vasclip::engine
