#include "platform/engine/home.h"
#include "platform/engine/made_long.h"
#include "platform/engine/memory_back_end.h"

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kFile = u"C:\\DATABOOK.MDB"_s;

QList<Comp> FourComps()
{
    return {{u"12 OAK ST"_s, u"Salem"_s, u"100000"_s, u"01/02/2004"_s, u"900"_s},
            {u"7 ELM AVE"_s, u"SALEM"_s, u"95000"_s, u"12/31/1999"_s, u"1500"_s},
            {u"1 PINE CT"_s, u"Dover"_s, u"1250000"_s, u"01/01/1900"_s, u"2200"_s},
            {u"99 ASH LN"_s, QString(), u"250000"_s, u""_s, u""_s}};
}

/// The kinds of database that every rule of record sets holds on.
struct Kind
{
    const char* name;
    int rowsAhead; ///< of the server in memory; 0 for the native file
};

void PrintTo(const Kind& kind, std::ostream* stream)
{
    *stream << kind.name;
}

struct RecordsetTest : testing::TestWithParam<Kind>
{
    RecordsetTest()
    {
        if (GetParam().rowsAhead > 0)
            home.engine.AddBackEnd(std::make_unique<MemoryBackEnd>(u".MDB"_s, GetParam().rowsAhead));
        database = MakeComps(home.engine, kFile, FourComps());
        table = database->OpenRecordset(u"comps"_s, RecordsetType::Table);
    }

    std::unique_ptr<Recordset> Query(const QString& sql)
    {
        return database->OpenRecordset(sql, RecordsetType::Dynaset);
    }

    Home home;
    std::shared_ptr<Database> database;
    std::unique_ptr<Recordset> table;
};

const QStringList kStored = {u"12 OAK ST"_s, u"7 ELM AVE"_s, u"1 PINE CT"_s, u"99 ASH LN"_s};
const QStringList kByKey = {u"1 PINE CT"_s, u"12 OAK ST"_s, u"7 ELM AVE"_s, u"99 ASH LN"_s};

TEST_P(RecordsetTest, TableWalksInOrderOfInsertionAndOfItsIndex)
{
    EXPECT_EQ(Column(*table, u"CENTRALKEY"_s), kStored);
    table->SetIndex(u"CENTRALKEY"_s);
    EXPECT_EQ(Column(*table, u"centralkey"_s), kByKey);
    QStringList back;
    for (table->MoveLast(); !table->Bof(); table->MovePrevious())
        back.prepend(table->Value(u"CENTRALKEY"_s).toString());
    EXPECT_EQ(back, kByKey);
    EXPECT_EQ(table->RecordCount(), 4);
}

TEST_P(RecordsetTest, AWholeTableShowsItsRowsWithAndWithoutGapsInTheirNumbers)
{
    EXPECT_EQ(Column(*Query(u"SELECT * FROM COMPS"_s), u"CENTRALKEY"_s), kStored);
    const auto remove = [this](const QString& key) {
        table->SetIndex(u"CENTRALKEY"_s);
        table->Seek(u"="_s, key);
        ASSERT_FALSE(table->NoMatch());
        table->Delete();
    };
    remove(u"7 ELM AVE"_s);
    EXPECT_EQ(Column(*Query(u"SELECT * FROM COMPS"_s), u"CENTRALKEY"_s),
              (QStringList{kStored[0], kStored[2], kStored[3]}));
    EXPECT_EQ(Query(u"COMPS"_s)->RecordCount(), 3);
    remove(kStored[0]);
    EXPECT_EQ(Column(*Query(u"COMPS"_s), u"CENTRALKEY"_s), (QStringList{kStored[2], kStored[3]}))
        << "the first number is not 1";
    remove(kStored[2]);
    remove(kStored[3]);
    EXPECT_EQ(Query(u"SELECT * FROM COMPS"_s)->RecordCount(), 0);
}

TEST_P(RecordsetTest, MovingPastTheEndsIsError3021)
{
    table->MoveLast();
    table->MoveNext();
    EXPECT_TRUE(table->Eof());
    EXPECT_EQ(ErrorOf([&] { table->MoveNext(); }), error::kNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(table->Value(0)); }), error::kNoCurrentRecord);
    table->MovePrevious();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"99 ASH LN"_s);
    table->MoveFirst();
    table->MovePrevious();
    EXPECT_TRUE(table->Bof());
    EXPECT_EQ(ErrorOf([&] { table->MovePrevious(); }), error::kNoCurrentRecord);
}

TEST_P(RecordsetTest, SeekFindsWithoutCaseAndTrailingBlanks)
{
    table->SetIndex(u"Centralkey"_s);
    for (const QString& key : {u"7 elm ave"_s, u"7 ELM AVE     "_s, u"7 Elm Ave"_s}) {
        table->Seek(u"="_s, key);
        ASSERT_FALSE(table->NoMatch()) << key.toStdString();
        EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"7 ELM AVE"_s);
    }
    table->MoveNext();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"99 ASH LN"_s);
    table->Seek(u"="_s, u"7 ELM"_s);
    EXPECT_TRUE(table->NoMatch());
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(table->Value(0)); }), error::kNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(table->GetBookmark()); }), error::kNoCurrentRecord);
}

TEST_P(RecordsetTest, BookmarkBringsThePositionBack)
{
    table->SetIndex(u"Centralkey"_s);
    table->Seek(u"="_s, u"12 OAK ST"_s);
    const Bookmark mark = table->GetBookmark();
    table->Seek(u"="_s, u"nowhere"_s);
    table->SetBookmark(mark);
    EXPECT_FALSE(table->NoMatch());
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"12 OAK ST"_s);
    table->Delete();
    EXPECT_EQ(ErrorOf([&] { table->SetBookmark(mark); }), error::kBadBookmark);
}

TEST_P(RecordsetTest, SeekRefusesWhatItCannotDo)
{
    EXPECT_EQ(ErrorOf([&] { table->Seek(u"="_s, u"x"_s); }), error::kNoSuchIndex);
    EXPECT_EQ(ErrorOf([&] { table->SetIndex(u"FILENUMBERUSER"_s); }), error::kNoSuchIndex);
    table->SetIndex(u"Centralkey"_s);
    EXPECT_EQ(ErrorOf([&] { table->Seek(u">="_s, u"x"_s); }), error::kInvalidOperation);
    const auto query = Query(u"COMPS"_s);
    EXPECT_EQ(ErrorOf([&] { query->Seek(u"="_s, u"x"_s); }), error::kInvalidOperation);
    EXPECT_EQ(ErrorOf([&] { query->SetIndex(u"Centralkey"_s); }), error::kInvalidOperation);
}

TEST_P(RecordsetTest, EditUpdateAndCancel)
{
    table->SetIndex(u"Centralkey"_s);
    table->Seek(u"="_s, u"12 OAK ST"_s);
    EXPECT_EQ(ErrorOf([&] { table->SetValue(u"CITY"_s, u"Bend"_s); }), error::kNoEdit);
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kNoEdit);
    table->Edit();
    EXPECT_EQ(table->CurrentEditMode(), EditMode::InProgress);
    table->SetValue(u"CITY"_s, u"Bend"_s);
    EXPECT_EQ(table->Value(u"CITY"_s), u"Bend"_s);
    table->CancelUpdate();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Salem"_s);
    table->Edit();
    table->SetValue(u"city"_s, u"Bend"_s);
    table->Update();
    EXPECT_EQ(table->CurrentEditMode(), EditMode::None);
    EXPECT_EQ(table->Value(u"CITY"_s), u"Bend"_s);
    table->Edit();
    table->SetValue(u"CITY"_s, u"Lost"_s);
    table->MoveNext();
    table->MovePrevious();
    EXPECT_EQ(table->Value(u"CITY"_s), u"Bend"_s);
}

TEST_P(RecordsetTest, AddNewKeepsThePosition)
{
    table->SetIndex(u"Centralkey"_s);
    table->Seek(u"="_s, u"12 OAK ST"_s);
    table->AddNew();
    EXPECT_EQ(table->CurrentEditMode(), EditMode::Add);
    EXPECT_FALSE(table->Value(u"CITY"_s).isValid());
    table->SetValue(u"CENTRALKEY"_s, u"13 NEW RD"_s);
    table->Update();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"12 OAK ST"_s);
    table->MoveNext();
    EXPECT_EQ(table->Value(u"CENTRALKEY"_s), u"13 NEW RD"_s);
}

TEST_P(RecordsetTest, RefusedChanges)
{
    QString text;
    table->AddNew();
    table->SetValue(u"CENTRALKEY"_s, u"7 elm AVE "_s);
    EXPECT_EQ(ErrorOf([&] { table->Update(); }, &text), error::kDuplicateKey);
    EXPECT_EQ(table->CurrentEditMode(), EditMode::Add);
    EXPECT_EQ(ErrorOf([&] { table->SetValue(u"CENTRALKEY"_s, QString(36, u'x')); }, &text),
              error::kFieldTooLong);
    EXPECT_TRUE(text.contains(u"CENTRALKEY"_s) && text.contains(u"35"_s)) << text.toStdString();
    EXPECT_EQ(ErrorOf([&] { table->SetValue(u"NOWHERE"_s, u"x"_s); }), error::kFieldUnknown);
    table->CancelUpdate();
    table->AddNew();
    EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kKeyIsNull);
    EXPECT_EQ(table->RecordCount(), 4);
}

TEST_P(RecordsetTest, DeleteLeavesNoCurrentRecordUntilAMove)
{
    table->SetIndex(u"Centralkey"_s);
    table->Seek(u"="_s, u"12 OAK ST"_s);
    table->Delete();
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(table->Value(0)); }), error::kNoCurrentRecord);
    table->MoveNext();
    EXPECT_EQ(table->Value(0), u"7 ELM AVE"_s);

    const auto query = Query(u"SELECT * FROM COMPS ORDER BY CENTRALKEY"_s);
    query->MoveNext();
    query->Delete();
    EXPECT_EQ(query->RecordCount(), 2);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(query->Value(0)); }), error::kNoCurrentRecord);
    query->MoveNext();
    EXPECT_EQ(query->Value(0), u"99 ASH LN"_s);
}

TEST_P(RecordsetTest, DynasetSortsByValueAndPeeks)
{
    const auto query =
        Query(u"SELECT COMPS.CENTRALKEY,COMPS.PHOTOS, COMPS.SELLINGPR, COMPS.PHOTOS FROM COMPS ORDER BY "
              "COMPS.SELLINGPR DESC"_s);
    EXPECT_EQ(Column(*query, u"SELLINGPR"_s),
              QStringList({u"1250000"_s, u"250000"_s, u"100000"_s, u"95000"_s}));
    EXPECT_EQ(query->Fields().size(), 4);
    query->MoveFirst();
    EXPECT_EQ(query->Peek(2, {2, 0}), QVariantList({u"100000"_s, u"12 OAK ST"_s}));
    EXPECT_EQ(query->AbsolutePosition(), 0);
    query->SetAbsolutePosition(3);
    EXPECT_EQ(query->Value(0), u"7 ELM AVE"_s);
    EXPECT_EQ(query->PositionOf(query->GetBookmark()), 3);
}

TEST_P(RecordsetTest, PeeksAtComputedColumnsWithAndWithoutGapsInTheNumbers)
{
    const QString text = u"SELECT CENTRALKEY & ' in ' & CITY AS PLACE, CITY FROM COMPS"_s;
    const QList<int> both{1, 0};
    const auto whole = Query(text);
    const auto kept = Query(u"SELECT CENTRALKEY & ' in ' & CITY AS PLACE, CITY FROM COMPS "
                            "WHERE CENTRALKEY <> '7 ELM AVE'"_s);
    ASSERT_EQ(whole->RecordCount(), 4);
    ASSERT_EQ(kept->RecordCount(), 3);
    for (qint64 row = 0; row < 4; ++row) {
        const QVariantList values = whole->Peek(row, both);
        EXPECT_EQ(values[1], kStored[row] + u" in "_s + values[0].toString());
    }
    EXPECT_EQ(kept->Peek(1, both), whole->Peek(2, both));
    EXPECT_EQ(kept->Peek(2, {0}), whole->Peek(3, {0}));
}

TEST_P(RecordsetTest, PeeksAtLongValuesWholeWithAndWithoutGapsInTheNumbers)
{
    table->SetIndex(u"CENTRALKEY"_s);
    table->Seek(u"="_s, kStored[2]);
    table->Edit();
    table->SetValue(u"FRONTPHOTO"_s, QByteArray("\0picture", 8));
    table->Update();
    const QVariantList wanted{kStored[2], QByteArray("\0picture", 8)};
    for (const QString& but : {QString(), u" WHERE CENTRALKEY <> '%1'"_s.arg(kStored[1])}) {
        const auto query = Query(u"SELECT CENTRALKEY, FRONTPHOTO FROM COMPS"_s + but);
        const qint64 row = but.isEmpty() ? 2 : 1;
        EXPECT_EQ(query->Peek(row, {0, 1}), wanted);
        EXPECT_FALSE(query->Peek(row - 1, {0, 1}).back().isValid());
        query->SetAbsolutePosition(row);
        EXPECT_EQ(query->FieldSize(u"FRONTPHOTO"_s), 8) << "the cursor reads sizes all the same";
        query->Requery();
        EXPECT_EQ(query->Peek(row, {0, 1}), wanted);
    }
}

TEST_P(RecordsetTest, LongValuesInPieces)
{
    QByteArray picture;
    for (int i = 0; i < 100000; ++i)
        picture.append(static_cast<char>(i * 7));
    table->MoveFirst();
    table->Edit();
    for (int at = 0; at < picture.size(); at += 32768)
        table->AppendChunk(u"FRONTPHOTO"_s, picture.mid(at, 32768));
    table->AppendChunk(u"PHOTOS"_s, "FRONT VIEW|ABCDEFGH\r\n");
    table->Update();
    EXPECT_EQ(table->FieldSize(u"FRONTPHOTO"_s), picture.size());
    QByteArray read;
    for (qint64 at = 0;; at += 32768) {
        const QByteArray chunk = table->GetChunk(u"FRONTPHOTO"_s, at, 32768);
        if (chunk.isEmpty())
            break;
        read += chunk;
    }
    EXPECT_EQ(read, picture);
    EXPECT_EQ(table->Value(u"FRONTPHOTO"_s).toByteArray(), picture);
    EXPECT_EQ(table->Value(u"PHOTOS"_s), u"FRONT VIEW|ABCDEFGH\r\n"_s);
    table->Edit();
    table->SetValue(u"FRONTPHOTO"_s, QVariant());
    table->Update();
    EXPECT_EQ(table->FieldSize(u"FRONTPHOTO"_s), 0);
    EXPECT_FALSE(table->Value(u"FRONTPHOTO"_s).isValid());
}

TEST_P(RecordsetTest, PiecesOfAValueThatSomebodyElseChangesAreTheNewOnes)
{
    table->MoveFirst();
    table->Edit();
    table->SetValue(u"FRONTPHOTO"_s, QByteArray(100000, 'a'));
    table->Update();
    EXPECT_EQ(table->GetChunk(u"FRONTPHOTO"_s, 32768, 10), QByteArray(10, 'a'));
    const auto other = home.engine.OpenDatabase(kFile);
    const auto theirs = other->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    theirs->MoveFirst();
    theirs->Edit();
    theirs->SetValue(u"FRONTPHOTO"_s, QByteArray(100000, 'b'));
    theirs->Update();
    EXPECT_EQ(table->GetChunk(u"FRONTPHOTO"_s, 32778, 10), QByteArray(10, 'b'));
}

TEST_P(RecordsetTest, ALongValueComesFromItsSourceWhenItIsStored)
{
    for (const qint64 size : {qint64{0}, qint64{70'000}, kHeldWhole, 3 * kHeldWhole + 5}) {
        MadeLong made(size);
        table->MoveFirst();
        table->Edit();
        table->SetValue(u"FRONTPHOTO"_s, made.Value());
        table->SetValue(u"CITY"_s, QString::number(size));
        EXPECT_EQ(made.pieces, 0) << "nothing is read before";
        EXPECT_EQ(table->FieldSize(u"FRONTPHOTO"_s), size);
        table->Update();
        const QVariant stored = table->Value(u"FRONTPHOTO"_s);
        EXPECT_TRUE(stored.isValid());
        EXPECT_TRUE(stored.toByteArray() == MadeLong::Bytes(0, size)) << size;
        EXPECT_EQ(table->Value(u"CITY"_s), QString::number(size));
        MadeLong next(size);
        table->AddNew();
        table->SetValue(u"CENTRALKEY"_s, u"N %1"_s.arg(size));
        table->SetValue(u"FRONTPHOTO"_s, next.Value());
        EXPECT_TRUE(table->Value(u"FRONTPHOTO"_s).toByteArray() == MadeLong::Bytes(0, size)) << "as set";
        table->Update();
        const auto query = Query(u"SELECT FRONTPHOTO FROM COMPS WHERE CENTRALKEY = 'N %1'"_s.arg(size));
        EXPECT_TRUE(query->Value(0).toByteArray() == MadeLong::Bytes(0, size)) << size;
    }
}

TEST_P(RecordsetTest, ALongValueWhoseSourceFailsLeavesTheRecordAsItWas)
{
    struct Stopped
    {};
    for (const qint64 size : {qint64{70'000}, 3 * kHeldWhole}) {
        for (const bool within : {false, true}) {
            table->MoveFirst();
            const QString city = table->Value(u"CITY"_s).toString();
            const qint64 count = table->RecordCount();
            std::optional<Transaction> together;
            if (within)
                together.emplace(*database);
            const auto set = [&](MadeLong& made) {
                table->SetValue(u"CENTRALKEY"_s, u"HALF"_s);
                table->SetValue(u"CITY"_s, u"Half"_s);
                table->SetValue(u"FRONTPHOTO"_s, made.Value());
            };
            MadeLong cut(size);
            cut.endsAt = size - 1;
            table->Edit();
            set(cut);
            EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDeviceIo);
            table->AddNew();
            set(cut);
            EXPECT_EQ(ErrorOf([&] { table->Update(); }), error::kDeviceIo);
            MadeLong stopped(size);
            stopped.asked = [&](qint64 offset) {
                if (offset > size / 2 || stopped.most == size)
                    throw Stopped();
            };
            table->Edit();
            set(stopped);
            EXPECT_THROW(table->Update(), Stopped);
            table->CancelUpdate();
            EXPECT_EQ(table->Value(u"CITY"_s), city);
            EXPECT_EQ(table->FieldSize(u"FRONTPHOTO"_s), 0);
            EXPECT_EQ(table->RecordCount(), count);
            if (!within)
                continue;
            table->Edit();
            table->SetValue(u"GLA"_s, QString::number(size));
            table->Update();
            together->Commit();
            EXPECT_EQ(Column(*Query(u"SELECT GLA FROM COMPS"_s), u"GLA"_s).first(), QString::number(size))
                << "the rest of the transaction stands";
            EXPECT_EQ(Query(u"SELECT * FROM COMPS WHERE CITY = 'Half'"_s)->RecordCount(), 0);
        }
    }
}

TEST_P(RecordsetTest, ClosedSetsAndDatabases)
{
    database->Close();
    EXPECT_EQ(ErrorOf([&] { table->MoveFirst(); }), error::kClosed);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(database->TableNames()); }), error::kClosed);
    EXPECT_TRUE(home.engine.Users(kFile).isEmpty());
}

TEST_P(RecordsetTest, EmptySetHasNeitherBeginningNorEnd)
{
    const auto query = Query(u"SELECT * FROM COMPS WHERE CITY = 'Nowhere'"_s);
    EXPECT_TRUE(query->Bof());
    EXPECT_TRUE(query->Eof());
    query->MoveLast();
    EXPECT_EQ(query->RecordCount(), 0);
    EXPECT_EQ(query->AbsolutePosition(), -1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RecordsetTest,
                         testing::Values(Kind{"Native", 0}, Kind{"ServerRowByRow", 1},
                                         Kind{"ServerAhead", 64}),
                         [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace vasclip::engine
