// How the pages of a file are shared out: each is the header's, one owner's, or free, and no map lists another's.

#include "platform/engine/genuine_file.h"
#include "platform/engine/jet/data_page.h"
#include "platform/engine/jet/definition.h"
#include "platform/engine/jet/table.h"
#include "platform/engine/jet/usage_map.h"
#include "platform/engine/jet_samples.h"

namespace vasclip::engine::jet {
namespace {

/// Who uses each page.
class Account
{
public:
    explicit Account(const QString& native)
        : m_file(std::make_shared<PageFile>(native, u"X"_s))
    {
        Use(0, u"header"_s);
        Use(1, u"free maps"_s);
        UseBits({1, 0}, u"free maps"_s);
        const auto findings = std::make_shared<Findings>();
        Table objects(m_file, findings, u"MSysObjects"_s, kObjectsPage);
        objects.ForEach([&](const FoundRow& row) {
            if (objects.Value(row, 3).toInt() == 1)
                Add(objects.Value(row, 2).toString(), static_cast<quint32>(objects.Value(row, 0).toInt()));
            return true;
        });
        EXPECT_TRUE(findings->Empty());
    }

    void ExpectWhole()
    {
        const auto free = ReadUsageMap(*m_file, {1, 0});
        for (const quint32 page : free)
            EXPECT_FALSE(m_users.contains(page)) << "page " << page << " is free, and of " << m_users.value(page).toStdString();
        EXPECT_EQ(m_users.size() + static_cast<qsizetype>(free.size()), m_file->Pages());
    }

private:
    void Use(quint32 page, const QString& user)
    {
        EXPECT_TRUE(!m_users.contains(page) || m_users.value(page) == user)
            << "page " << page << " is of " << user.toStdString() << " and of " << m_users.value(page).toStdString();
        m_users.insert(page, user);
    }
    void UseMap(RowPointer map, const QString& user)
    {
        Use(map.page, u"maps"_s);
        UseBits(map, u"bits of "_s + user);
        for (const quint32 page : ReadUsageMap(*m_file, map))
            Use(page, user);
    }
    /// The pages that a map goes on with.
    void UseBits(RowPointer map, const QString& user)
    {
        const RowBytes row = ReadRowAt(*m_file, map);
        for (qsizetype at = 1; row.bytes.U8(0) == 1 && at + 4 <= row.bytes.Size(); at += 4) {
            if (row.bytes.U32(at) != 0)
                Use(row.bytes.U32(at), user);
        }
    }
    void Add(const QString& name, quint32 page)
    {
        const Definition table = ReadDefinition(*m_file, page & 0xFFFFFF);
        for (const quint32 own : table.pages)
            Use(own, name);
        UseMap(table.owned, name + u" rows"_s);
        QSet<int> real;
        for (const Index& index : table.indexes) {
            if (!real.contains(index.real))
                UseMap(index.map, name + u" index %1"_s.arg(index.real));
            real.insert(index.real);
        }
        for (const LongMap& longs : table.longs)
            UseMap(longs.owned, name + u" longs %1"_s.arg(longs.column));
    }

    std::shared_ptr<PageFile> m_file;
    QHash<quint32, QString> m_users;
};

TEST(JetPages, OfFilesThatTheOldEngineMadeAreAllAccountedFor)
{
    const QString samples = JetSamples();
    if (samples.isEmpty())
        GTEST_SKIP() << "no genuine files beside the source";
    for (const QString& name : {u"adox_jet4.mdb"_s, u"emptyJet4.mdb"_s}) {
        SCOPED_TRACE(name.toStdString());
        Account(samples + u'/' + name).ExpectWhole();
    }
}

TEST(JetPages, OfOursAreAllAccountedForAlsoBeyondWhatAMapInARowHolds)
{
    Home home;
    for (const int pictures : {0, 3, 12}) { // 12 of 5 MB make more than 14,000 pages
        {
            GenuineFile file(home.engine, u"C:\\NEW.MDB"_s);
            TableDef table = SmallComps();
            for (int i = 0; i < 200; ++i) // a definition of several pages
                table.fields.append(TextField(u"A_FIELD_WITH_A_LONG_NAME_%1"_s.arg(i), 20));
            file.Content().CreateTable(table);
            const auto rows = file.Content().OpenRecordset(u"COMPS"_s, RecordsetType::Table);
            for (int i = 0; i < 1000; ++i) {
                rows->AddNew();
                rows->SetValue(0, u"%1 OAK ST"_s.arg(i));
                rows->SetValue(5, QString(i % 600, u'n'));
                if (i < pictures)
                    rows->SetValue(6, QByteArray(5 << 20, 'p'));
                rows->SetValue(206, u"last"_s);
                rows->Update();
            }
            rows->Close();
            // An index that can't be leaves its pages free.
            const std::pair<QString, QStringList> without[] = {{u"UNKNOWN"_s, {u"1 A ST"_s, u"\u0416"_s}},
                                                               {u"TWICE"_s, {u"STRASSE"_s, u"Stra\u00DFe"_s}}};
            for (const auto& [name, keys] : without) {
                TableDef one = SmallComps();
                one.name = name;
                file.Content().CreateTable(one);
                const auto more = file.Content().OpenRecordset(name, RecordsetType::Table);
                for (const QString& key : keys) {
                    more->AddNew();
                    more->SetValue(0, key);
                    more->Update();
                }
            }
            file.Finish();
        }
        Account(home.Native(u"NEW.MDB"_s)).ExpectWhole();
        const auto made = home.engine.OpenDatabase(u"C:\\NEW.MDB"_s);
        const auto rows = made->OpenRecordset(u"COMPS"_s, RecordsetType::Table);
        EXPECT_EQ(rows->RecordCount(), 1000);
        EXPECT_EQ(rows->Value(206), u"last"_s);
    }
}

} // namespace
} // namespace vasclip::engine::jet
