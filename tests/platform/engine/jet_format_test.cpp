// The pieces of the format, each by itself: texts, numbers, dates, rows of the older generation, keys, maps.

#include "platform/engine/genuine_file.h"
#include "platform/engine/jet/column_value.h"
#include "platform/engine/jet/entry_sorter.h"
#include "platform/engine/jet/index_key.h"
#include "platform/engine/jet/jet_text.h"
#include "platform/engine/jet/map_writer.h"
#include "platform/engine/jet/rc4.h"
#include "platform/engine/jet/row.h"
#include "platform/engine/jet/usage_map.h"
#include "platform/engine/jet_samples.h"

namespace vasclip::engine::jet {
namespace {

QString Read(const QByteArray& bytes)
{
    return UnicodeText(Bytes(bytes));
}

TEST(JetFormat, CompressedTextsSwitchToPairsAndBack)
{
    EXPECT_EQ(Read(QByteArray("\xFF\xFE" "abc", 5)), u"abc");
    EXPECT_EQ(Read(QByteArray("\xFF\xFE" "a\0\x16\x04\x17\x04\0z\xE9", 11)), u"a\u0416\u0417z\u00E9");
    EXPECT_EQ(Read(QByteArray("a\0\x16\x04", 4)), u"a\u0416");
    EXPECT_EQ(Read(QByteArray("\xFF\xFE" "a\0\x16", 5)), u"a") << "half a pair is none";
    EXPECT_EQ(Read({}), u"");
}

TEST(JetFormat, TextsAreCompressedWhereThatIsReadAlike)
{
    for (const QString& text : {u"ab"_s, u"abc"_s, u"caf\u00E9 au lait"_s, u"\u0416\u0416\u0416"_s, u"a\u0000c"_s, QString(600, u'x')})
        EXPECT_EQ(Read(StoredText(text, true)), text);
    EXPECT_EQ(StoredText(u"abc"_s, true).size(), 5);
    EXPECT_EQ(StoredText(u"abc"_s, false).size(), 6);
    EXPECT_EQ(StoredText(u"ab"_s, true).size(), 4);
    EXPECT_EQ(StoredText(QString(600, u'x'), true).size(), 1200);
    EXPECT_EQ(Read(StoredText(u"\uFEFFabc"_s, true)), u"abc") << "a mark at the front would say that it is compressed";
}

TEST(JetFormat, CodePagesOfTheOlderGeneration)
{
    const QByteArray bytes("caf\xE9 \x80\x93", 7);
    EXPECT_EQ(CodePageText(Bytes(bytes), 1252), u"caf\u00E9 \u20AC\u201C");
    EXPECT_EQ(CodePageText(Bytes(QByteArray("abc")), 12345), u"abc") << "what every code page has alike needs none";
    EXPECT_THROW(static_cast<void>(CodePageText(Bytes(bytes), 12345)), Damaged);
}

TEST(JetFormat, DatesBeforeTheFirstDayCountTheirHoursForward)
{
    const std::pair<double, QDateTime> rows[] = {
        {0.0, {QDate(1899, 12, 30), QTime(0, 0), Qt::UTC}},   {-1.25, {QDate(1899, 12, 29), QTime(6, 0), Qt::UTC}},
        {1.75, {QDate(1899, 12, 31), QTime(18, 0), Qt::UTC}}, {38053.0, {QDate(2004, 3, 7), QTime(0, 0), Qt::UTC}}};
    for (const auto& [serial, date] : rows) {
        EXPECT_EQ(DateOf(serial), date);
        EXPECT_EQ(SerialOf(date), serial);
    }
    EXPECT_THROW(static_cast<void>(DateOf(1e300)), Damaged);
    EXPECT_THROW(static_cast<void>(DateOf(std::numeric_limits<double>::quiet_NaN())), Damaged);
}

/// A value of a column as it comes out of a file.
QVariant ValueIn(ColumnType type, const QByteArray& bytes, int scale = 0)
{
    const QString samples = JetSamples();
    PageFile file(samples + u"/testV2000.mdb"_s, u"X"_s);
    Column column;
    column.type = type;
    column.scale = scale;
    return ValueOf(file, column, Bytes(bytes));
}

TEST(JetFormat, IdentifiersAndLongNumbersAreShownWhole)
{
    if (JetSamples().isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    EXPECT_EQ(ValueIn(ColumnType::Guid, QByteArray::fromHex("33221100554477668899AABBCCDDEEFF")),
              u"{00112233-4455-6677-8899-AABBCCDDEEFF}"_s);
    const auto decimal = [](const char* hex, int scale) {
        return ValueIn(ColumnType::Decimal, QByteArray::fromHex(hex), scale).toString();
    };
    EXPECT_EQ(decimal("00" "00000000" "00000000" "00000000" "D2040000", 2), u"12.34");
    EXPECT_EQ(decimal("80" "00000000" "00000000" "00000000" "05000000", 3), u"-0.005");
    EXPECT_EQ(decimal("80" "00000000" "00000000" "00000000" "00000000", 1), u"0.0");
    EXPECT_EQ(decimal("00" "00000000" "00000000" "01000000" "00000000", 0), u"4294967296");
    EXPECT_EQ(decimal("00" "FFFFFFFF" "FFFFFFFF" "FFFFFFFF" "FFFFFFFF", 0), u"340282366920938463463374607431768211455");
}

TEST(JetFormat, RowsOfTheOlderGenerationJumpOver256Bytes)
{
    // Three texts of 100, 200 and 50 characters behind one another: the offsets of the third and of the end need 256.
    Definition table;
    table.variableColumns = 3;
    for (int i = 0; i < 3; ++i) {
        Column column;
        column.number = column.variableIndex = i;
        table.columns.append(column);
    }
    QByteArray row("\x03", 1);
    row += QByteArray(100, 'a') + QByteArray(200, 'b') + QByteArray(50, 'c');
    row += QByteArray("\x5F\x2D\x65\x01", 4); // end 351, starts 301, 101 and 1, without their 256
    row += '\x02';                            // from the offset with the number 2 on
    row += '\x03';
    row += '\x07';
    ASSERT_EQ(row.size(), 358);
    const Row read(kJet3, table, Bytes(row));
    const char* const letters = "abc";
    const int sizes[] = {100, 200, 50};
    for (int i = 0; i < 3; ++i) {
        const auto value = read.Value(table.columns[i]);
        ASSERT_TRUE(value);
        EXPECT_EQ(value->Copy(), QByteArray(sizes[i], letters[i]));
    }
}

TEST(JetFormat, ARowThatIsTooShortForWhatItSaysIsDamaged)
{
    Definition table;
    table.variableColumns = 1;
    for (const char* hex : {"0500", "FFFF00", "010000000000FF00FF", "0100FFFF0200010001"}) {
        const QByteArray bytes = QByteArray::fromHex(hex);
        Column column;
        EXPECT_THROW(
            {
                const Row row(kJet4, table, Bytes(bytes));
                static_cast<void>(row.Value(column));
            },
            Damaged)
            << hex;
    }
}

TEST(JetFormat, KeysOfTexts)
{
    const auto key = [](const QString& text) { return TextKey(text)->toHex().toUpper(); };
    EXPECT_EQ(key(u"Databases"_s), "4F4A6D4A4C4A6B516B0100");
    EXPECT_EQ(key(u"databases  "_s), key(u"DATABASES"_s)) << "neither case nor trailing blanks count";
    EXPECT_EQ(key(u"caf\u00E9"_s), "4D4A5351010202020E00");
    EXPECT_EQ(key(u"a-b"_s), "4A4C0101010180" "0B" "068200") << "a hyphen is told behind the letters";
    EXPECT_EQ(key(u"_-"_s), "2B03010101" "01" "800B" "0682" "00") << "places count characters, not bytes";
    EXPECT_EQ(key(u"12 Oak"_s), "383A07644A5C0100");
    EXPECT_FALSE(TextKey(u"\u0416"_s));
    QByteArray last;
    for (const QString& text : {u""_s, u" a"_s, u"!"_s, u"1"_s, u"12"_s, u"2"_s, u"a"_s, u"\u00E1"_s, u"ab"_s, u"b"_s, u"\u00DF"_s}) {
        EXPECT_LT(last, *TextKey(text)) << text.toStdString();
        last = *TextKey(text);
    }
}

TEST(JetFormat, KeysOfNumbersSortAsTheNumbersDo)
{
    const auto ascending = [](ColumnType type, const QVariantList& values) {
        QByteArray last;
        for (const QVariant& value : values) {
            const QByteArray key = *IndexKey(type, value);
            EXPECT_LT(last, key) << static_cast<int>(type) << ": " << value.toString().toStdString();
            last = key;
        }
    };
    ascending(ColumnType::Long, {{}, -2147483648LL, -1LL, 0LL, 1LL, 2147483647LL});
    ascending(ColumnType::Integer, {{}, -32768LL, -1LL, 0LL, 32767LL});
    ascending(ColumnType::Byte, {{}, 0LL, 1LL, 255LL});
    ascending(ColumnType::Double, {{}, -1e300, -1.0, 0.0, 1e-300, 1.0, 1e300});
    ascending(ColumnType::Currency, {{}, -5.5, -0.0001, 0.0, 0.0001, 5.5});
    ascending(ColumnType::Binary, {{}, QByteArray("a"), QByteArray("aaaaaaaa"), QByteArray("aaaaaaaab"), QByteArray("b")});
}

TEST(JetFormat, EntriesThatMemoryDoesNotHoldAreSortedOnTheDisk)
{
    const QTemporaryDir directory;
    // Well mixed, as they come from most tables, and all small ones first.
    for (const auto& [most, step] : {std::pair<qsizetype, int>{1000, 7919}, {1000, 1}, {EntrySorter::kMost, 7919}}) {
        EntrySorter sorter(directory.filePath(u"x"_s), most);
        constexpr int kEntries = 5000;
        for (int i = 0; i < kEntries; ++i)
            sorter.Add(QByteArray::number((i * step) % kEntries + 10'000) + QByteArray(i % 50, '\0'));
        sorter.Sort();
        QByteArray entry;
        int got = 0;
        for (; sorter.Next(entry); ++got)
            ASSERT_EQ(entry.left(5), QByteArray::number(got + 10'000));
        EXPECT_EQ(got, kEntries);
    }
    EXPECT_TRUE(QDir(directory.path()).entryList(QDir::Files).isEmpty());
}

TEST(JetFormat, MapsListWhatTheyWereGiven)
{
    const QString samples = JetSamples();
    if (samples.isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    const QTemporaryDir directory;
    const QString name = directory.filePath(u"x.mdb"_s);
    const std::vector<std::vector<quint32>> lists = {
        {}, {3}, {16, 511}, {16, 512}, {1000, 1007, 1511}, {1000, 1512}, {16, 32'735, 32'736, 40'000}};
    std::vector<RowPointer> places;
    {
        ASSERT_TRUE(QFile::copy(samples + u"/adox_jet4.mdb"_s, name));
        PageWriter pages(name, u"X"_s);
        pages.Reserve(40'001);
        MapWriter maps(pages, 6);
        places = maps.Take(static_cast<int>(lists.size()));
        for (std::size_t i = 0; i < lists.size(); ++i) {
            PageSet set;
            for (const quint32 page : lists[i])
                set.Add(page);
            maps.Set(places[i], set);
        }
        maps.Finish();
        pages.Close();
    }
    PageFile file(name, u"X"_s);
    for (std::size_t i = 0; i < lists.size(); ++i)
        EXPECT_EQ(ReadUsageMap(file, places[i]), lists[i]) << i;
}

TEST(JetFormat, PagesThatAreMaskedWithAKeyAreReadThroughIt)
{
    const QString samples = JetSamples();
    if (samples.isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    Home home;
    QByteArray bytes = BytesOf(samples + u"/node-adodb.mdb"_s);
    constexpr quint32 kKey = 0x1234ABCD;
    const QByteArray header("\xC7\xDA\x39\x6B", 4);
    Mask(bytes.data() + 0x18, 128, header);
    qToLittleEndian(kKey, bytes.data() + 0x3E);
    bytes.replace(0x42, 40, QByteArray(40, 'p')); // a password, which hides nothing
    Mask(bytes.data() + 0x18, 128, header);
    for (quint32 page = 1; page < bytes.size() / 4096; ++page) {
        QByteArray key(4, '\0');
        qToLittleEndian(kKey ^ page, key.data());
        Mask(bytes.data() + page * 4096, 4096, key);
    }
    QDir().mkpath(home.directory.path() + u"/drive_c"_s);
    QFile file(home.Native(u"X.MDB"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    const auto rows = home.engine.OpenDatabase(u"C:\\X.MDB"_s)->OpenRecordset(u"Users"_s, RecordsetType::Table);
    EXPECT_EQ(rows->RecordCount(), 3);
    EXPECT_EQ(rows->Value(u"UserName"_s), u"Nuintun"_s);
}

TEST(JetFormat, OneThatIsEncryptedIsNotCalledDamaged)
{
    Home home;
    {
        GenuineFile file(home.engine, u"C:\\X.MDB"_s);
        TableDef table;
        table.name = u"COMPS"_s;
        table.fields = {TextField(u"CENTRALKEY"_s, 35)};
        file.Content().CreateTable(table);
        static_cast<void>(file.Finish());
    }
    QByteArray bytes = BytesOf(home.Native(u"X.MDB"_s));
    const QByteArray header("\xC7\xDA\x39\x6B", 4);
    Mask(bytes.data() + 0x18, 128, header);
    qToLittleEndian<quint32>(0x1234ABCD, bytes.data() + 0x3E);
    Mask(bytes.data() + 0x18, 128, header);
    // The pages are masked with a key that comes of a password.
    for (qsizetype page = 4096; page < bytes.size(); page += 4096)
        Mask(bytes.data() + page, 4096, "secret");
    QFile file(home.Native(u"X.MDB"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    QString text;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(home.engine.OpenDatabase(u"C:\\X.MDB"_s)); }, &text),
              error::kNotValidPassword);
    EXPECT_TRUE(text.contains(u"C:\\X.MDB is encrypted"_s)) << text.toStdString();
}

} // namespace
} // namespace vasclip::engine::jet
