// From one kind of database to the other and back, with a look at every value before the new one is kept.

#include "platform/engine/convert.h"
#include "platform/engine/genuine_file.h"
#include "platform/engine/jet_samples.h"
#include "platform/engine/rows_at_once.h"
#include "support/killed_here.h"

#include <QProcess>

namespace vasclip::engine {
namespace {

const QString kBook = u"C:\\BOOK.MDB"_s;
const QString kAccess = u"C:\\ACCESS.MDB"_s;
const QString kBack = u"C:\\BACK.MDB"_s;

struct JetConvertTest : testing::Test
{
    JetConvertTest()
    {
        QList<Comp> comps;
        for (int i = 0; i < 300; ++i)
            comps.append({u"%1 OAK ST"_s.arg(i), u"Salem"_s, QString::number(i * 1000), {}, {}});
        const auto book = MakeComps(home.engine, kBook, comps);
        const auto rows = book->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext()) {
            rows->Edit();
            rows->SetValue(5, QString(static_cast<int>(rows->AbsolutePosition() * 20), u'n'));
            rows->SetValue(6, QByteArray(static_cast<int>(rows->AbsolutePosition() * 100), '\xD8'));
            rows->Update();
        }
        book->Close();
    }

    std::optional<Converted> Convert(const QString& from, const QString& to, DatabaseKind kind)
    {
        conversion.source = from;
        conversion.target = to;
        conversion.to = kind;
        return ConvertDatabase(home.engine, conversion);
    }
    QStringList Files() const { return QDir(home.directory.path() + u"/drive_c"_s).entryList(QDir::Files); }

    Home home;
    Conversion conversion;
};

TEST_F(JetConvertTest, ThereAndBackEveryValueIsTheSame)
{
    const QByteArray before = BytesOf(home.Native(u"BOOK.MDB"_s));
    ASSERT_EQ(Convert(kBook, kAccess, DatabaseKind::Access)->records, 300);
    EXPECT_EQ(BytesOf(home.Native(u"BOOK.MDB"_s)), before);
    const QByteArray access = BytesOf(home.Native(u"ACCESS.MDB"_s));
    conversion.complete = [](TableDef& table) { table.fields[2].sortsAs = SortsAs::Number; };
    ASSERT_EQ(Convert(kAccess, kBack, DatabaseKind::Vasclip)->records, 300);
    EXPECT_EQ(BytesOf(home.Native(u"ACCESS.MDB"_s)), access);
    const auto first = home.engine.OpenDatabase(kBook);
    const auto last = home.engine.OpenDatabase(kBack);
    EXPECT_EQ(last->Table(u"COMPS"_s).fields[2].sortsAs, SortsAs::Number);
    EXPECT_TRUE(last->Table(u"COMPS"_s).indexes[0].primary);
    const auto one = first->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    const auto other = last->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    for (; !one->Eof(); one->MoveNext(), other->MoveNext()) {
        for (int i = 0; i < one->Fields().size(); ++i)
            ASSERT_EQ(one->Value(i), other->Value(i));
    }
    EXPECT_TRUE(other->Eof());
    first->Close();
    last->Close();
    EXPECT_EQ(Files(), (QStringList{u"ACCESS.MDB"_s, u"BACK.MDB"_s, u"BOOK.MDB"_s}));
}

TEST_F(JetConvertTest, ItTakesThePlaceOfTheOldOneWhichIsKept)
{
    static_cast<void>(Convert(kBook, kAccess, DatabaseKind::Access));
    const QByteArray access = BytesOf(home.Native(u"ACCESS.MDB"_s));
    conversion.keepAs = u"C:\\OLD.MDB"_s;
    ASSERT_TRUE(Convert(kAccess, kAccess, DatabaseKind::Vasclip));
    EXPECT_EQ(BytesOf(home.Native(u"OLD.MDB"_s)), access);
    const auto made = home.engine.OpenDatabase(kAccess);
    EXPECT_FALSE(IsGenuine(*made));
    EXPECT_EQ(made->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 300);
}

TEST_F(JetConvertTest, OneThatIsStoppedLeavesNothing)
{
    for (const QString& at : {u"Copying"_s, u"Comparing"_s}) {
        conversion.step = [&](const QString& doing, qint64 done, qint64) { return !doing.startsWith(at) || done < 128; };
        for (const auto kind : {DatabaseKind::Access, DatabaseKind::Vasclip})
            EXPECT_FALSE(Convert(kBook, kAccess, kind)) << at.toStdString();
        EXPECT_EQ(Files(), QStringList{u"BOOK.MDB"_s});
    }
}

TEST_F(JetConvertTest, OneThatDoesNotHoldWhatTheOldOneHasIsNotKept)
{
    bool changed = false;
    conversion.step = [&](const QString& doing, qint64, qint64) {
        if (doing.startsWith(u"Comparing"_s) && !std::exchange(changed, true))
            home.engine.OpenDatabase(kBook)->Execute(u"UPDATE COMPS SET CITY = 'Bend' WHERE CENTRALKEY = '250 OAK ST'"_s);
        return true;
    };
    QString text;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Convert(kBook, kAccess, DatabaseKind::Access)); }, &text),
              error::kInternalEngine);
    EXPECT_TRUE(text.contains(u"record 251 (250 OAK ST), field CITY"_s)) << text.toStdString();
    EXPECT_EQ(Files(), QStringList{u"BOOK.MDB"_s});
}

TEST_F(JetConvertTest, OneThatHasMoreThanTheOldOneIsNotKept)
{
    bool deleted = false;
    conversion.step = [&](const QString& doing, qint64, qint64) {
        if (doing.startsWith(u"Comparing"_s) && !std::exchange(deleted, true))
            home.engine.OpenDatabase(kBook)->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '299 OAK ST'"_s);
        return true;
    };
    QString text;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Convert(kBook, kAccess, DatabaseKind::Access)); }, &text), error::kInternalEngine);
    EXPECT_TRUE(text.contains(u"table COMPS has records that the old one has not"_s)) << text.toStdString();
    EXPECT_EQ(Files(), QStringList{u"BOOK.MDB"_s});
}

TEST_F(JetConvertTest, OneThatSomebodyStoresIntoMeanwhileKeepsItsName)
{
    static_cast<void>(Convert(kBook, kAccess, DatabaseKind::Access));
    const QByteArray theirs = BytesOf(home.Native(u"ACCESS.MDB"_s)) + QByteArray(4096, '\0'); // a page more, as they leave it
    conversion.keepAs = u"C:\\OLD.MDB"_s;
    conversion.step = [&](const QString& doing, qint64, qint64) {
        QFile file(home.Native(u"ACCESS.MDB"_s));
        if (doing.startsWith(u"Comparing"_s) && file.size() < theirs.size()) {
            EXPECT_TRUE(file.open(QIODevice::Append) && file.write(QByteArray(4096, '\0')) == 4096);
        }
        return true;
    };
    QString text;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Convert(kAccess, kAccess, DatabaseKind::Vasclip)); }, &text), error::kInternalEngine);
    EXPECT_TRUE(text.startsWith(u"Somebody stored into C:\\ACCESS.MDB while it was converted"_s)) << text.toStdString();
    EXPECT_EQ(BytesOf(home.Native(u"ACCESS.MDB"_s)), theirs);
    EXPECT_EQ(Files(), (QStringList{u"ACCESS.MDB"_s, u"BOOK.MDB"_s}));
}

TEST_F(JetConvertTest, AnEmptyYesOrNoBecomesNoAndIsCounted)
{
    const auto book = home.engine.OpenDatabase(kBook);
    TableDef table;
    table.name = u"MARKS"_s;
    table.fields = {TextField(u"NAME"_s, 10), TypedField(u"CHECKED"_s, FieldType::Boolean)};
    book->CreateTable(table);
    const auto rows = book->OpenRecordset(u"MARKS"_s, RecordsetType::Table);
    for (const QVariant& checked : {QVariant(), QVariant(true), QVariant(), QVariant(false)}) {
        rows->AddNew();
        rows->SetValue(0, u"x"_s);
        if (checked.isValid())
            rows->SetValue(1, checked);
        rows->Update();
    }
    book->Close();
    const auto made = Convert(kBook, kAccess, DatabaseKind::Access);
    ASSERT_EQ(made->notes.size(), 1);
    EXPECT_EQ(made->notes[0], u"The table MARKS has No where 2 empty Yes/No values were: an Access database knows no empty one"_s);
    const auto read = home.engine.OpenDatabase(kAccess)->OpenRecordset(u"MARKS"_s, RecordsetType::Table);
    QVariantList marks;
    for (; !read->Eof(); read->MoveNext())
        marks.append(read->Value(1));
    EXPECT_EQ(marks, (QVariantList{false, true, false, false}));
}

TEST_F(JetConvertTest, AmountsOfMoreDigitsThanANumberKeepsAreCounted)
{
    const auto book = home.engine.OpenDatabase(kBook);
    TableDef table;
    table.name = u"PRICES"_s;
    table.fields = {TypedField(u"MONEY"_s, FieldType::Currency)};
    book->CreateTable(table);
    const auto rows = book->OpenRecordset(u"PRICES"_s, RecordsetType::Table);
    for (const double money : {900719925474.0, 900719925475.0, -922337203685477.5}) {
        rows->AddNew();
        rows->SetValue(0, money);
        rows->Update();
    }
    book->Close();
    const auto made = Convert(kBook, kAccess, DatabaseKind::Access);
    ASSERT_EQ(made->notes.size(), 1);
    EXPECT_TRUE(made->notes[0].startsWith(u"The table PRICES has 2 amounts beyond"_s)) << made->notes[0].toStdString();
}

TEST_F(JetConvertTest, WhatAKilledOneLeftGoesWithTheNext)
{
    const auto leave = [&](const QString& name) {
        QFile file(home.Native(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("left") == 4);
    };
    const QString gone = tests::kKilledHere.Mark();
    QProcess other; // which waits until its input closes
    home.disk.MkDir(u"C:\\OTHER"_s);
    const QString held = u"C:\\OTHER\\HELD.MDB"_s;
    MakeComps(home.engine, held, {})->Close();
    other.start(u"" VASCLIP_ENGINE_USER ""_s, {home.directory.path(), held, u"hold"_s, u"shared"_s});
    ASSERT_TRUE(other.waitForReadyRead());
    const QString alive = FileOwner{other.processId(), tests::kKilledHere.machine}.Mark();
    for (const QString& name : {u"ACCESS.MDB.new"_s + gone, u"ACCESS.MDB.new"_s + gone + u"-journal"_s,
                                u"ACCESS.MDB.new%1.new%1.sortAbCdEf"_s.arg(gone)})
        leave(name);
    const QStringList stay{u"ACCESS.MDB.new"_s, u"ACCESS.MDB.new"_s + alive, u"ACCESS.MDB.newest"_s,
                           u"ACCESS.MDB2.new"_s + gone};
    for (const QString& name : stay)
        leave(name);
    ASSERT_TRUE(Convert(kBook, kAccess, DatabaseKind::Access));
    EXPECT_EQ(Files(), QStringList{u"ACCESS.MDB"_s} + stay + QStringList{u"BOOK.MDB"_s});
    other.closeWriteChannel();
    EXPECT_TRUE(other.waitForFinished());
}

TEST(RowsAtOnce, LongTextsAreReadOneAfterAnother)
{
    const auto rows = [](std::size_t count, qsizetype letters) {
        std::vector<std::optional<StoredRow>> some(count);
        for (auto& row : some)
            row = StoredRow{1, {QString(letters, u'n')}};
        some.emplace_back(); // one that is gone meanwhile
        return some;
    };
    RowsAtOnce atOnce;
    EXPECT_EQ(atOnce.Next(), 1U);
    for (int i = 0; i < 10; ++i)
        atOnce.Saw(rows(atOnce.Next(), 100));
    EXPECT_EQ(atOnce.Next(), 128U);
    atOnce.Saw(rows(128, 10'000));
    EXPECT_EQ(atOnce.Next(), 1U);
    atOnce.Saw(rows(1, 2 << 20));
    EXPECT_EQ(atOnce.Next(), 1U);
    atOnce.Saw(rows(1, 100));
    EXPECT_EQ(atOnce.Next(), 2U);
}

TEST_F(JetConvertTest, WhatIsThereIsNotWrittenOver)
{
    static_cast<void>(home.engine.CreateDatabase(kAccess));
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Convert(kBook, kAccess, DatabaseKind::Access)); }), error::kDatabaseExists);
}

TEST_F(JetConvertTest, OfADamagedOneWhatCanBeReadIsKeptOnlyWhenThatIsWanted)
{
    static_cast<void>(Convert(kBook, kAccess, DatabaseKind::Access));
    QByteArray bytes = BytesOf(home.Native(u"ACCESS.MDB"_s));
    constexpr int kPage = 4096;
    int spoiled = 0;
    for (int page = 16; page < bytes.size() / kPage && spoiled < 2; ++page) {
        if (bytes[page * kPage] == 1 && bytes.mid(page * kPage + 4, 4) == "LVAL") {
            bytes.replace(page * kPage, kPage, QByteArray(kPage, '\0'));
            ++spoiled;
        }
    }
    QFile file(home.Native(u"ACCESS.MDB"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    file.close();
    QString text;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(Convert(kAccess, kBack, DatabaseKind::Vasclip)); }, &text),
              error::kCorruptDatabase);
    EXPECT_TRUE(text.contains(u"table COMPS, row"_s)) << text.toStdString();
    EXPECT_FALSE(QFile::exists(home.Native(u"BACK.MDB"_s)));
    QStringList told;
    conversion.accept = [&](const QStringList& missing) {
        told = missing;
        return true;
    };
    const auto made = Convert(kAccess, kBack, DatabaseKind::Vasclip);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->records, 300);
    EXPECT_FALSE(told.isEmpty());
    EXPECT_EQ(told, made->missing);
    EXPECT_TRUE(told[0].contains(u"field "_s)) << told[0].toStdString();
}

TEST_F(JetConvertTest, ARecordThatAnAccessFileCanNotHoldIsNamed)
{
    const auto book = home.engine.OpenDatabase(kBook);
    TableDef wide;
    wide.name = u"WIDE"_s;
    for (int i = 0; i < 10; ++i)
        wide.fields.append(TextField(u"F%1"_s.arg(i), 255));
    book->CreateTable(wide);
    const auto rows = book->OpenRecordset(u"WIDE"_s, RecordsetType::Table);
    for (const QChar letter : {u'a', u'\u0416'}) {
        rows->AddNew();
        for (int i = 0; i < 10; ++i)
            rows->SetValue(i, QString(255, letter));
        rows->Update();
    }
    book->Close();
    QStringList told;
    conversion.accept = [&](const QStringList& missing) {
        told = missing;
        return true;
    };
    ASSERT_EQ(Convert(kBook, kAccess, DatabaseKind::Access)->records, 301);
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].startsWith(u"table WIDE, record 2"_s)) << told[0].toStdString();
    EXPECT_TRUE(told[0].contains(u"too large"_s)) << told[0].toStdString();
}

} // namespace
} // namespace vasclip::engine
