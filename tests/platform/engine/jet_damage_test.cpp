// Each look that a reader or a check takes at an Access file, and the one damage that it is there for.

#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/engine/jet/catalogue.h"
#include "platform/engine/jet/index_writer.h"
#include "platform/engine/jet/long_value.h"
#include "platform/engine/jet/table.h"
#include "platform/engine/jet_samples.h"

namespace vasclip::engine::jet {
namespace {

constexpr int kRows = 300;
constexpr qsizetype kPage = kJet4.pageSize;

class JetDamageTest : public testing::Test
{
protected:
    void SetUp() override
    {
        {
            GenuineFile file(home.engine, kBook);
            TableDef other = SmallComps();
            other.name = u"OTHER"_s;
            for (const TableDef& table : {SmallComps(), other}) {
                file.Content().CreateTable(table);
                const auto rows = file.Content().OpenRecordset(table.name, RecordsetType::Table);
                for (int i = 0; i < kRows; ++i) {
                    rows->AddNew();
                    rows->SetValue(0, u"%1 OAK ST"_s.arg(i));
                    rows->SetValue(1, u"Marlow"_s);
                    if (i % 100 == 50)
                        rows->SetValue(6, QByteArray(20'000, 'p'));
                    rows->Update();
                }
            }
            file.Finish();
        }
        bytes = BytesOf(home.Native(u"BOOK.MDB"_s));
        file = std::make_shared<PageFile>(home.Native(u"BOOK.MDB"_s), kBook);
        comps = Open(u"COMPS"_s);
        other = Open(u"OTHER"_s);
        comps->ForEach([this](const FoundRow& row) {
            rows.push_back(row);
            return true;
        });
        ASSERT_EQ(rows.size(), kRows);
    }
    std::unique_ptr<Table> Open(const QString& name)
    {
        const auto findings = std::make_shared<Findings>();
        for (const Catalogue::Entry& entry : ReadCatalogue(file, findings).tables)
            if (entry.name == name)
                return std::make_unique<Table>(file, findings, name, entry.page);
        return nullptr;
    }

    /// Where a row's offset stands in the file, and the row itself.
    static qsizetype EntryOf(RowPointer row) { return row.page * kPage + kJet4.rowOffsets + 2 * row.row; }
    qsizetype StartOf(RowPointer row) const { return row.page * kPage + (Get<quint16>(EntryOf(row)) & kRowStart); }
    /// Where the bytes of a field stand.
    static qsizetype PlaceOf(const Table& table, const FoundRow& row, int field)
    {
        return row.home.page * kPage + (row.row.Value(table.ColumnOf(field))->Data() - row.page.constData());
    }
    template <class T>
    [[nodiscard]] T Get(qsizetype at) const { return qFromLittleEndian<T>(bytes.constData() + at); }
    template <class T>
    void Put(qsizetype at, T value) { qToLittleEndian(value, bytes.data() + at); }
    /// The leaf of the primary key without a page before or behind it.
    qsizetype Leaf(int neighbor) const
    {
        for (qsizetype page = 0; page < bytes.size(); page += kPage)
            if (bytes.at(page) == kLeafPage && Get<quint32>(page + 4) == comps->Stored().page && Get<quint32>(page + neighbor) == 0 &&
                Get<quint32>(page + (neighbor == kNext ? kPrevious : kNext)) != 0)
                return page;
        ADD_FAILURE() << "no such leaf";
        return 0;
    }
    /// Where each entry of an index page ends, from the first one on.
    QList<int> EndsOn(qsizetype page) const
    {
        QList<int> ends;
        for (int end = 1; end < (kIndexEntries - kIndexBitmap) * 8; ++end)
            if ((bytes.at(page + kIndexBitmap + end / 8) >> end % 8 & 1) != 0)
                ends.append(end);
        return ends;
    }

    /// What the whole check says of the file as it stands in memory now.
    QString Said()
    {
        QFile spoiled(home.Native(u"SPOILED.MDB"_s));
        EXPECT_TRUE(spoiled.open(QIODevice::WriteOnly) && spoiled.write(bytes) == bytes.size());
        spoiled.close();
        try {
            const auto database = home.engine.OpenDatabase(u"C:\\SPOILED.MDB"_s);
            return CheckDatabase(*database, CheckDepth::Whole).join(u'\n');
        } catch (const RuntimeError& failure) {
            return failure.Description();
        }
    }
    void ExpectSaid(const QString& words)
    {
        const QString said = Said();
        EXPECT_TRUE(said.contains(words)) << said.toStdString();
    }

    static constexpr int kPrevious = 12, kNext = 16;
    const QString kBook = u"C:\\BOOK.MDB"_s;
    Home home;
    QByteArray bytes;
    std::shared_ptr<PageFile> file;
    std::unique_ptr<Table> comps, other;
    std::vector<FoundRow> rows;
};

TEST_F(JetDamageTest, AWholeFileHasNone)
{
    EXPECT_EQ(Said(), QString());
}

TEST_F(JetDamageTest, AFileIsCutInItsHeaderOrWithinAPage)
{
    bytes.chop(1000);
    ExpectSaid(u"the file breaks off in the middle of a page"_s);
    bytes.truncate(1000);
    ExpectSaid(u"it breaks off in its first 1000 bytes"_s);
}

TEST_F(JetDamageTest, AMapThatCanNotBeReadCostsNoRow)
{
    bytes[StartOf(comps->Stored().owned)] = 7;
    ExpectSaid(u"the map of its pages can not be read (a map of pages is of an unknown kind), so all pages were looked at"_s);
    const auto database = home.engine.OpenDatabase(u"C:\\SPOILED.MDB"_s);
    EXPECT_EQ(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), kRows);
}

TEST_F(JetDamageTest, APageIsAnotherTables)
{
    Put<quint32>(rows.front().home.page * kPage + 4, other->Stored().page);
    ExpectSaid(u"the page is not one of this table any more"_s);
}

TEST_F(JetDamageTest, ARowWasMovedToAnotherTableOrInACircle)
{
    const RowPointer row = rows.front().home;
    RowPointer elsewhere;
    other->ForEach([&](const FoundRow& found) {
        elsewhere = found.home;
        return false;
    });
    const qsizetype at = StartOf(row);
    Put<quint16>(EntryOf(row), Get<quint16>(EntryOf(row)) | kRowMoved);
    Put<quint32>(at, elsewhere.Stored());
    ExpectSaid(u"page %1 belongs to another table"_s.arg(elsewhere.page));
    Put<quint32>(at, row.Stored());
    ExpectSaid(u"a row was moved in a circle"_s);
}

TEST_F(JetDamageTest, APageClaimsMoreRowsThanItHolds)
{
    Put<quint16>(rows.front().home.page * kPage + kJet4.rowCount, 3000);
    ExpectSaid(u"claims 3000 rows"_s);
}

TEST_F(JetDamageTest, ARowBeginsWithinTheHeadOfItsPage)
{
    Put<quint16>(EntryOf(rows.front().home), 10);
    ExpectSaid(u"row 0 of page %1: the bounds of a row are wrong"_s.arg(rows.front().home.page));
}

TEST_F(JetDamageTest, ALongValueLeadsInACircleOrClaimsMoreThanTheFile)
{
    const qsizetype head = PlaceOf(*comps, rows.at(50), 6);
    const auto size = Get<quint32>(head);
    ASSERT_EQ(size & kLongSize, 20'000U);
    ASSERT_EQ(size & (kLongInline | kLongOneRow), 0U) << "a chain";
    const auto first = RowPointer::Of(Get<quint32>(head + 4));
    const qsizetype link = StartOf(first);
    const auto next = Get<quint32>(link);
    Put<quint32>(link, first.Stored());
    ExpectSaid(u" of 20000 bytes of a long value are there"_s);
    Put<quint32>(link, next);
    EXPECT_EQ(Said(), QString());
    Put<quint32>(head, 0x00FFFFFF);
    (void)Said();
    const auto database = home.engine.OpenDatabase(u"C:\\SPOILED.MDB"_s);
    const auto read = database->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
    for (read->MoveFirst(); !read->Eof(); read->MoveNext())
        (void)read->Value(6);
    EXPECT_EQ(CheckDatabase(*database, CheckDepth::Quiet),
              QStringList{u"table COMPS, row %1 of page %2, field %3: a long value claims 16777215 bytes, more than the file has"_s.arg(
                  QString::number(rows.at(50).home.row), QString::number(rows.at(50).home.page), comps->Def().fields.at(6).name)});
}

TEST_F(JetDamageTest, LongValuesClaimTheSameBytes)
{
    for (const int row : {50, 150, 250})
        Put<quint32>(PlaceOf(*comps, rows.at(row), 6), static_cast<quint32>(bytes.size() - 10));
    ExpectSaid(u"its memos and pictures claim more bytes than the file has"_s);
}

TEST_F(JetDamageTest, ADefinitionClaimsWhatNoTableHas)
{
    const qsizetype definition = comps->Stored().page * kPage;
    Put<quint32>(definition + kJet4.rows, 999);
    ExpectSaid(u"has 300 records, and claims 999"_s);
    Put<quint16>(definition + kJet4.columns, 400);
    ExpectSaid(u"claims 400 columns"_s);
    Put<quint32>(definition + 4, comps->Stored().page);
    ExpectSaid(u"the definition of a table does not end"_s);
}

TEST_F(JetDamageTest, TwoTablesAreDefinedOnOnePage)
{
    const auto findings = std::make_shared<Findings>();
    Table objects(file, findings, u"MSysObjects"_s, kObjectsPage);
    objects.ForEach([&](const FoundRow& row) {
        if (objects.Value(row, 2).toString() == u"OTHER"_s)
            Put<quint32>(PlaceOf(objects, row, 0), comps->Stored().page);
        return true;
    });
    ExpectSaid(u"is the same as another table"_s);
}

TEST_F(JetDamageTest, APageMiscountsItsRoom)
{
    const qsizetype room = rows.front().home.page * kPage + 2;
    Put<quint16>(room, Get<quint16>(room) + 3);
    ExpectSaid(u"bytes are free on it, and it claims "_s + QString::number(Get<quint16>(room)));
}

TEST_F(JetDamageTest, AnIndexLeadsToARowThatIsGone)
{
    const RowPointer row = rows.front().home;
    Put<quint16>(EntryOf(row), Get<quint16>(EntryOf(row)) | kRowDeleted);
    ExpectSaid(u"an entry leads to row 0 of page %1, which is not there"_s.arg(row.page));
}

TEST_F(JetDamageTest, AnIndexHasAnotherKeyThanTheRow)
{
    const qsizetype key = bytes.indexOf("250 OAK ST");
    ASSERT_GT(key, 0);
    bytes[key] = '9';
    ExpectSaid(u"has another key there"_s);
}

TEST_F(JetDamageTest, AnIndexLacksAnEntry)
{
    const qsizetype last = Leaf(kNext);
    const int end = EndsOn(last).last();
    char& bits = *(bytes.data() + last + kIndexBitmap + end / 8);
    bits = static_cast<char>(bits & ~(1 << end % 8));
    ExpectSaid(u"has 299 entries for 300 records"_s);
}

TEST_F(JetDamageTest, AnIndexIsOutOfOrder)
{
    const qsizetype leaf = Leaf(kPrevious);
    const QList<int> ends = EndsOn(leaf);
    int at = 2;
    while (ends.at(at) - ends.at(at - 1) != ends.at(at + 1) - ends.at(at))
        ++at;
    const int size = ends.at(at) - ends.at(at - 1);
    const qsizetype one = leaf + kIndexEntries + ends.at(at - 1);
    const QByteArray kept = bytes.mid(one, size);
    bytes.replace(one, size, bytes.mid(one + size, size));
    bytes.replace(one + size, size, kept);
    ExpectSaid(u"its entries are out of order"_s);
}

TEST_F(JetDamageTest, AnIndexLeadsInACircleOrSkipsALeaf)
{
    const qsizetype last = Leaf(kNext);
    Put<quint32>(last + kPrevious, static_cast<quint32>(last / kPage));
    ExpectSaid(u"page %1 does not follow page "_s.arg(last / kPage));
    for (qsizetype page = 0; page < bytes.size(); page += kPage)
        if (bytes.at(page) == kNodePage && Get<quint32>(page + 4) == comps->Stored().page)
            Put<quint32>(page + 20, static_cast<quint32>(page / kPage));
    ExpectSaid(u"its pages lead in a circle"_s);
}

TEST(JetFindings, EndWhereNobodyReadsOn)
{
    Findings findings;
    for (quint32 page = 1; page <= 1500; ++page)
        findings.Add(u"COMPS"_s, {page, 0}, {}, u"is damaged"_s);
    findings.Add(u"COMPS"_s, {1, 0}, {}, u"is damaged"_s);
    EXPECT_EQ(findings.Lines().size(), 1001);
    EXPECT_EQ(findings.Lines().last(), u"there is more damage than is listed here"_s);
}

} // namespace
} // namespace vasclip::engine::jet
