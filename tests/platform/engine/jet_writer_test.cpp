// Genuine files that the program writes: what goes in comes out again, for this program and for independent ones.

#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/engine/jet_samples.h"

#include <QProcess>
#include <QStandardPaths>

#include <cmath>

namespace vasclip::engine {
namespace {

const QString kFile = u"C:\\NEW.MDB"_s;

/// A field of every type.
TableDef EveryType()
{
    TableDef table;
    table.name = u"KINDS"_s;
    table.fields = {TextField(u"NAME"_s, 35),
                    TypedField(u"YES"_s, FieldType::Boolean),
                    TypedField(u"SMALL"_s, FieldType::Byte),
                    TypedField(u"MIDDLE"_s, FieldType::Integer),
                    TypedField(u"WHOLE"_s, FieldType::Long),
                    TypedField(u"MONEY"_s, FieldType::Currency),
                    TypedField(u"ROUGH"_s, FieldType::Single),
                    TypedField(u"FINE"_s, FieldType::Double),
                    TypedField(u"DAY"_s, FieldType::Date),
                    TextField(u"LONGEST"_s, 255),
                    TypedField(u"NOTES"_s, FieldType::Memo),
                    TypedField(u"PICTURE"_s, FieldType::LongBinary)};
    table.indexes = {{u"PrimaryKey"_s, {u"NAME"_s}, true, true},
                     {u"ByDay"_s, {u"DAY"_s, u"WHOLE"_s}, false, false}};
    return table;
}

QByteArray Picture(int bytes, int seed)
{
    QByteArray picture(bytes, Qt::Uninitialized);
    for (int i = 0; i < bytes; ++i)
        picture[i] = static_cast<char>((i * 31 + seed * 7 + i / 251) & 0xFF);
    return picture;
}

QDateTime Day(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return {QDate(year, month, day), QTime(hour, minute, second), Qt::UTC};
}

/// Rows with the edges of every type; the first one holds nothing but its key.
QList<QVariantList> Edges()
{
    QList<QVariantList> rows;
    rows.append({u"nothing"_s, false, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}});
    rows.append({u"zeros"_s, false, 0LL, 0LL, 0LL, 0.0, 0.0, 0.0, Day(1899, 12, 30), u""_s, u""_s, QByteArray("")});
    rows.append({u"least"_s, true, 0LL, -32768LL, -2147483648LL, -92233720368.4775, -1.5, -1e300,
                 Day(1753, 1, 1, 6), QString(255, u'z'), QString(32, u'm'), Picture(64, 1)});
    rows.append({u"most"_s, true, 255LL, 32767LL, 2147483647LL, 92233720368.4775, 3.25, 1e300,
                 Day(2199, 12, 31, 23, 59, 59), QString(255, u'\u0416'), QString(33, u'\u0416'), Picture(65, 2)});
    rows.append({u"O'Brien-Smith 12 Caf\u00E9"_s, true, 1LL, 1LL, 1LL, 0.0001, 0.5, 0.1, Day(2004, 2, 29, 2, 30),
                 u"tab\there"_s, QString(600, u'n'), Picture(4076, 3)});
    rows.append({u"with wide text"_s, false, 2LL, 2LL, 2LL, 2.0, 2.0, 2.0, Day(1899, 12, 29, 6),
                 u"\u4E2D\u6587 \U0001F3E0"_s, QString(5000, u'\u4E2D'), Picture(4077, 4)});
    rows.append({u"too long for one row"_s, false, {}, {}, {}, {}, {}, {}, {}, {}, QString(2045, u'\u4E2D'), Picture(4090, 7)});
    rows.append({u"large"_s, false, 3LL, 3LL, 3LL, 3.0, 3.0, 3.0, Day(2000, 1, 1), u"three"_s,
                 QString(300'000, u'L'), Picture(5 << 20, 5)});
    rows.append({u"chained to the byte"_s, false, 4LL, 4LL, 4LL, 4.0, 4.0, 4.0, Day(2000, 1, 2), u"\u0001\u00FFa"_s,
                 QString(2036, u'\u4E2D'), Picture(2 * 4072, 6)});
    return rows;
}

void Fill(Database& database, const TableDef& table, const QList<QVariantList>& rows)
{
    database.CreateTable(table);
    const auto set = database.OpenRecordset(table.name, RecordsetType::Table);
    for (const QVariantList& row : rows) {
        set->AddNew();
        for (int i = 0; i < row.size(); ++i) {
            if (row[i].isValid())
                set->SetValue(i, row[i]);
        }
        set->Update();
    }
}

void ExpectRows(Database& database, const TableDef& table, const QList<QVariantList>& rows)
{
    const TableDef read = database.Table(table.name);
    ASSERT_EQ(read.fields.size(), table.fields.size());
    for (qsizetype i = 0; i < read.fields.size(); ++i) {
        EXPECT_EQ(read.fields[i].name, table.fields[i].name);
        EXPECT_EQ(read.fields[i].type, table.fields[i].type);
        if (read.fields[i].type == FieldType::Text) {
            EXPECT_EQ(read.fields[i].size, table.fields[i].size);
        }
    }
    const auto set = database.OpenRecordset(table.name, RecordsetType::Table);
    ASSERT_EQ(set->RecordCount(), rows.size());
    for (const QVariantList& row : rows) {
        for (int i = 0; i < row.size(); ++i) {
            const QVariant value = set->Value(i);
            ASSERT_EQ(value.isValid(), row[i].isValid())
                << row[0].toString().toStdString() << ": " << table.fields[i].name.toStdString();
            ASSERT_EQ(value, row[i]) << row[0].toString().toStdString() << ": " << table.fields[i].name.toStdString();
        }
        set->MoveNext();
    }
}

/// Runs an independent reader; nothing if it is not installed.
std::optional<QByteArray> Output(const QString& program, const QStringList& arguments)
{
    const QString found = QStandardPaths::findExecutable(program);
    if (found.isEmpty())
        return std::nullopt;
    QProcess process;
    process.start(found, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

struct JetWriterTest : testing::Test
{
    Home home;
};

TEST_F(JetWriterTest, EveryTypeComesBackAsItWentIn)
{
    {
        GenuineFile file(home.engine, kFile);
        Fill(file.Content(), EveryType(), Edges());
        EXPECT_FALSE(QFile::exists(home.Native(u"NEW.MDB"_s))) << "it has its name only when it is whole";
        EXPECT_EQ(file.Finish(), QStringList());
    }
    EXPECT_EQ(QDir(home.directory.path() + u"/drive_c"_s).entryList(QDir::Files), QStringList{u"NEW.MDB"_s});
    const auto database = home.engine.OpenDatabase(kFile);
    EXPECT_TRUE(IsGenuine(*database));
    EXPECT_EQ(database->TableNames(), QStringList{u"KINDS"_s});
    ExpectRows(*database, EveryType(), Edges());
    EXPECT_EQ(CheckDatabase(*database, CheckDepth::Whole), QStringList());
    const TableDef read = database->Table(u"KINDS"_s);
    const auto rows = database->OpenRecordset(u"KINDS"_s, RecordsetType::Table);
    rows->SetIndex(u"PrimaryKey"_s);
    rows->Seek(u"="_s, u"LEAST  "_s);
    ASSERT_FALSE(rows->NoMatch()) << "neither case nor trailing blanks count";
    EXPECT_EQ(rows->Value(u"FINE"_s), -1e300);
    rows->MoveNext();
    EXPECT_EQ(rows->Value(u"NAME"_s), u"most"_s);
    rows->MovePrevious();
    rows->MovePrevious();
    EXPECT_EQ(rows->Value(u"NAME"_s), u"large"_s);
    EXPECT_EQ(rows->FieldSize(u"PICTURE"_s), 5 << 20);
    EXPECT_EQ(rows->GetChunk(u"PICTURE"_s, 5'000'000, 10), Picture(5 << 20, 5).mid(5'000'000, 10));
    rows->Seek(u"="_s, u"no such"_s);
    EXPECT_TRUE(rows->NoMatch());
    ASSERT_EQ(read.indexes.size(), 2);
    EXPECT_TRUE(read.indexes[0].name == u"ByDay" && read.indexes[0].fields == QStringList({u"DAY"_s, u"WHOLE"_s}));
    EXPECT_TRUE(read.indexes[1].primary && read.indexes[1].fields == QStringList{u"NAME"_s});
}

TEST_F(JetWriterTest, AnEmptyFileIsTheOneThatTheOldEngineMakes)
{
    const QString samples = JetSamples();
    if (samples.isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    {
        GenuineFile file(home.engine, kFile);
        file.Finish();
    }
    const QByteArray there = BytesOf(samples + u"/adox_jet4.mdb"_s);
    const QByteArray made = BytesOf(home.Native(u"NEW.MDB"_s));
    ASSERT_EQ(made.size(), there.size());
    constexpr int kPage = 4096;
    int differ = 0;
    for (int page = 0; page < made.size() / kPage; ++page) {
        if (page >= 2 && page <= 5)
            continue; // definitions hold filler
        for (int at = 0; at < kPage; ++at)
            differ += made[page * kPage + at] != there[page * kPage + at] ? 1 : 0;
        // Each of the eight objects has two dates of its own.
        if (page == 14)
            EXPECT_LE(differ, 8 * 2 * 8);
        else
            EXPECT_EQ(differ, 0) << "page " << page;
        differ = 0;
    }
    for (int page = 2; page <= 5; ++page) {
        for (int at = 0; at < kPage; ++at)
            differ += made[page * kPage + at] != there[page * kPage + at] ? 1 : 0;
        EXPECT_LE(differ, page == 3 ? 24 : 40) << "page " << page;
        differ = 0;
    }
}

TEST_F(JetWriterTest, AHundredThousandRowsAreSortedByTheirKeysOnSeveralLevels)
{
    constexpr int kRows = 100'000;
    TableDef table;
    table.name = u"MANY"_s;
    table.fields = {TextField(u"KEY"_s, 35), TypedField(u"N"_s, FieldType::Long), TypedField(u"MEMO"_s, FieldType::Memo)};
    table.indexes = {{u"PrimaryKey"_s, {u"KEY"_s}, true, true}, {u"ByN"_s, {u"N"_s}, false, false}};
    const auto key = [](int i) { return u"%1 OAK STREET, MARLOW"_s.arg((i * 7919) % kRows); };
    {
        GenuineFile file(home.engine, kFile);
        file.Content().CreateTable(table);
        const auto rows = file.Content().OpenRecordset(u"MANY"_s, RecordsetType::Table);
        for (int i = 0; i < kRows; ++i) {
            rows->AddNew();
            rows->SetValue(0, key(i));
            rows->SetValue(1, i % 1000);
            rows->SetValue(2, u"note %1 which is longer than sixty-four bytes are, and lies on a page of its own"_s.arg(i));
            rows->Update();
        }
        EXPECT_EQ(file.Finish(), QStringList());
    }
    const auto database = home.engine.OpenDatabase(kFile);
    const auto rows = database->OpenRecordset(u"MANY"_s, RecordsetType::Table);
    ASSERT_EQ(rows->RecordCount(), kRows);
    for (int i = 0; i < kRows; ++i, rows->MoveNext()) {
        ASSERT_EQ(rows->Value(0).toString(), key(i));
        ASSERT_EQ(rows->Value(1).toInt(), i % 1000);
    }
    EXPECT_EQ(CheckDatabase(*database, CheckDepth::Whole), QStringList());
}

TEST_F(JetWriterTest, IndependentReadersSeeTheSameValues)
{
    {
        GenuineFile file(home.engine, kFile);
        Fill(file.Content(), EveryType(), Edges());
        TableDef comps = SmallComps();
        Fill(file.Content(), comps, {{u"12 OAK ST"_s, u"Marlow"_s, u"250000"_s, u"3/7/2004"_s, u"1850"_s, u"a,b\nc \"d\""_s, {}},
                                     {u"14 OAK ST"_s, {}, u"9"_s, {}, {}, {}, QByteArray("\xFF\xD8picture")}});
        file.Finish();
    }
    const QString native = home.Native(u"NEW.MDB"_s);
    const auto tables = Output(u"mdb-tables"_s, {u"-1"_s, native});
    if (!tables)
        GTEST_SKIP() << "mdbtools is not installed";
    EXPECT_EQ(*tables, "KINDS\nCOMPS\n");
    EXPECT_EQ(Output(u"mdb-ver"_s, {native})->trimmed(), "JET4");
    EXPECT_EQ(Output(u"mdb-count"_s, {native, u"KINDS"_s})->trimmed(), "9");
    EXPECT_EQ(Output(u"mdb-export"_s, {u"-b"_s, u"hex"_s, native, u"COMPS"_s})->toStdString(),
              std::string("CENTRALKEY,CITY,SELLINGPR,SALEDATE,GLA,PHOTOS,FRONTPHOTO\n"
              "\"12 OAK ST\",\"Marlow\",\"250000\",\"3/7/2004\",\"1850\",\"a,b\nc \"\"d\"\"\",\n"
              "\"14 OAK ST\",,\"9\",,,,\"FFD870696374757265\"\n"));
    const QByteArray kinds = *Output(u"mdb-export"_s, {u"-b"_s, u"strip"_s, u"-T"_s, u"%Y-%m-%d %H:%M:%S"_s, native, u"KINDS"_s});
    for (const char* line : {"\"most\",1,255,32767,2147483647,92233720368.4775,3.25", "2199-12-31 23:59:59",
                             "\"least\",1,0,-32768,-2147483648,-92233720368.4775,-1.5", "\u4E2D\u6587"})
        EXPECT_TRUE(kinds.contains(line)) << line << " is not in " << kinds.left(3000).toStdString();
}

TEST_F(JetWriterTest, StatementsOfAVasclipDatabaseFillANewFile)
{
    const auto book = MakeComps(home.engine, u"C:\\BOOK.MDB"_s,
                                {{u"1 A ST"_s, u"Salem"_s, u"100"_s, {}, {}}, {u"2 B ST"_s, u"Bend"_s, u"200"_s, {}, {}}});
    {
        GenuineFile file(home.engine, kFile);
        EXPECT_EQ(book->Execute(u"SELECT * INTO [C:\\NEW.MDB].COMPS FROM COMPS WHERE CITY = 'Bend'"_s), 1);
        file.Content().CreateTable([] {
            TableDef second = SmallComps();
            second.name = u"SECOND"_s;
            return second;
        }());
        EXPECT_EQ(book->Execute(u"INSERT INTO [C:\\NEW.MDB].SECOND SELECT * FROM COMPS"_s), 2);
        file.Finish();
    }
    const auto made = home.engine.OpenDatabase(kFile);
    EXPECT_EQ(Column(*made->OpenRecordset(u"COMPS"_s, RecordsetType::Table), u"CENTRALKEY"_s), QStringList{u"2 B ST"_s});
    EXPECT_EQ(Column(*made->OpenRecordset(u"SELECT CENTRALKEY FROM SECOND ORDER BY CENTRALKEY DESC"_s, RecordsetType::Dynaset),
                     u"CENTRALKEY"_s),
              (QStringList{u"2 B ST"_s, u"1 A ST"_s}));
}

TEST_F(JetWriterTest, OneThatIsGivenUpLeavesNothingAndWhatWasThereStays)
{
    QFile there(home.Native(u"NEW.MDB"_s));
    QDir().mkpath(QFileInfo(there.fileName()).path());
    ASSERT_TRUE(there.open(QIODevice::WriteOnly));
    there.write("what was there");
    there.close();
    {
        GenuineFile file(home.engine, kFile);
        Fill(file.Content(), EveryType(), Edges());
    }
    EXPECT_EQ(BytesOf(there.fileName()), "what was there");
    EXPECT_EQ(QDir(QFileInfo(there.fileName()).path()).entryList(QDir::Files), QStringList{u"NEW.MDB"_s});
}

TEST_F(JetWriterTest, AnIndexOfTextsWithoutAKnownOrderIsLeftOutAndSaid)
{
    QStringList notes;
    {
        GenuineFile file(home.engine, kFile);
        Fill(file.Content(), SmallComps(), {{u"1 \u0416 ST"_s, {}, {}, {}, {}, {}, {}}, {u"2 B ST"_s, {}, {}, {}, {}, {}, {}}});
        notes = file.Finish();
    }
    ASSERT_EQ(notes.size(), 1);
    EXPECT_TRUE(notes[0].contains(u"COMPS is without its index Centralkey"_s)) << notes[0].toStdString();
    const auto made = home.engine.OpenDatabase(kFile);
    EXPECT_TRUE(made->Table(u"COMPS"_s).indexes.isEmpty());
    EXPECT_EQ(made->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 2);
    EXPECT_EQ(CheckDatabase(*made, CheckDepth::Whole), QStringList());
}

TEST_F(JetWriterTest, KeysThatAreOneThereAreToldAndNothingIsLost)
{
    QStringList notes;
    {
        GenuineFile file(home.engine, kFile);
        Fill(file.Content(), SmallComps(),
             {{u"STRASSE 1"_s, {}, {}, {}, {}, {}, {}}, {u"Stra\u00DFe 1"_s, {}, {}, {}, {}, {}, {}}});
        notes = file.Finish();
    }
    ASSERT_EQ(notes.size(), 1);
    EXPECT_TRUE(notes[0].contains(u"two records have one key"_s)) << notes[0].toStdString();
    const auto made = home.engine.OpenDatabase(kFile);
    EXPECT_EQ(made->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 2);
    EXPECT_EQ(CheckDatabase(*made, CheckDepth::Whole), QStringList());
}

TEST_F(JetWriterTest, ARecordThatIsTooLargeIsRefusedInWords)
{
    TableDef table;
    table.name = u"WIDE"_s;
    QVariantList row;
    for (int i = 0; i < 10; ++i) {
        table.fields.append(TextField(u"F%1"_s.arg(i), 255));
        row.append(QString(255, u'\u0416'));
    }
    QString text;
    EXPECT_EQ(ErrorOf(
                  [&] {
                      GenuineFile file(home.engine, kFile);
                      Fill(file.Content(), table, {row});
                  },
                  &text),
              error::kRecordTooLarge);
    EXPECT_TRUE(text.contains(u"too large for an Access database"_s)) << text.toStdString();
    EXPECT_FALSE(QFile::exists(home.Native(u"NEW.MDB"_s)));
}

} // namespace
} // namespace vasclip::engine
