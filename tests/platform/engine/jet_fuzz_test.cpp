// Files that somebody or something has damaged: whatever stands in them, they are read in part or refused in words,
// soon, and stay as they are.

#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/engine/jet_samples.h"

#include <QDirIterator>
#include <QElapsedTimer>

#include <random>

namespace vasclip::engine {
namespace {

constexpr int kPage = 2048;

struct JetFuzzTest : testing::Test
{
    /// What this program writes: several tables, memos of all lengths, indexes of two levels.
    QByteArray Ours()
    {
        {
            GenuineFile file(home.engine, u"C:\\OURS.MDB"_s);
            file.Content().CreateTable(SmallComps());
            TableDef other = SmallComps();
            other.name = u"OTHER"_s;
            file.Content().CreateTable(other);
            for (const QString& table : {u"COMPS"_s, u"OTHER"_s}) {
                const auto rows = file.Content().OpenRecordset(table, RecordsetType::Table);
                for (int i = 0; i < 300; ++i) {
                    rows->AddNew();
                    rows->SetValue(0, u"%1 OAK ST"_s.arg(i));
                    rows->SetValue(1, u"Marlow"_s);
                    rows->SetValue(5, QString(i * 3, u'n'));
                    rows->SetValue(6, QByteArray(i % 40 == 0 ? 20'000 : i, 'p'));
                    rows->Update();
                }
            }
            file.Finish();
        }
        return BytesOf(home.Native(u"OURS.MDB"_s));
    }

    QByteArray Spoiled(QByteArray bytes)
    {
        const auto any = [this](qint64 below) {
            return std::uniform_int_distribution<qint64>(0, std::max<qint64>(below - 1, 0))(random);
        };
        switch (any(5)) {
        case 0:
            for (qint64 i = any(60) + 1; i > 0; --i) {
                const qint64 at = any(bytes.size());
                bytes[at] = static_cast<char>(bytes[at] ^ 1 << any(8));
            }
            return bytes;
        case 1:
            return bytes.left(any(bytes.size()));
        case 2: // a page of noise
            for (qint64 at = any(bytes.size() / kPage) * kPage, i = 0; i < kPage; ++i)
                bytes[at + i] = static_cast<char>(any(256));
            return bytes;
        case 3: // a page in the place of another
        {
            const qint64 from = any(bytes.size() / 4096) * 4096;
            return bytes.replace(any(bytes.size() / 4096) * 4096, 4096, bytes.mid(from, 4096));
        }
        default: // numbers that count and point
            for (qint64 i = any(20) + 1; i > 0; --i) {
                const qint64 page = any(bytes.size() / kPage) * kPage;
                bytes[page + any(64)] = static_cast<char>(any(2) == 0 ? 0xFF : any(256));
            }
            return bytes;
        }
    }

    /// Reads all of it by every road.
    void ReadAll()
    {
        const auto database = home.engine.OpenDatabase(u"C:\\X.MDB"_s);
        CheckDatabase(*database, CheckDepth::Whole);
        for (const QString& name : database->TableNames()) {
            try {
                const auto rows = database->OpenRecordset(name, RecordsetType::Table);
                for (const IndexDef& index : database->Table(name).indexes) {
                    rows->SetIndex(index.name);
                    rows->MoveLast();
                    rows->Seek(u"="_s, u"12 OAK ST"_s);
                }
                const auto all = database->OpenRecordset(u"SELECT DISTINCT * FROM [%1]"_s.arg(name), RecordsetType::Dynaset);
                values += all->RecordCount() * all->Fields().size();
            } catch (const RuntimeError&) {
                ++refused;
            }
        }
    }

    Home home;
    std::mt19937 random{20'040'307};
    qint64 values = 0;
    int refused = 0;
};

TEST_F(JetFuzzTest, NoDamageHangsCrashesOrIsWrittenTo)
{
    QList<QByteArray> files{Ours()};
    if (const QString samples = JetSamples(); !samples.isEmpty()) {
        for (QDirIterator there(samples, {u"*.mdb"_s}, QDir::Files); there.hasNext();) {
            const QByteArray bytes = BytesOf(there.next());
            if (bytes.size() < 300'000)
                files.append(bytes);
        }
    }
    bool number = false;
    const int seconds = qEnvironmentVariableIntValue("VASCLIP_FUZZ_SECONDS", &number);
    const qint64 most = (number ? seconds : 3) * 1000;
    QElapsedTimer whole;
    int made = 0;
    for (whole.start(); whole.elapsed() < most; ++made) {
        const QByteArray spoiled = Spoiled(files[made % files.size()]);
        QFile file(home.Native(u"X.MDB"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(spoiled) == spoiled.size());
        file.close();
        QElapsedTimer one;
        one.start();
        try {
            ReadAll();
        } catch (const RuntimeError& failure) {
            EXPECT_FALSE(failure.Description().isEmpty());
            ++refused;
        }
        ASSERT_LT(one.elapsed(), 5000) << "file " << made;
        ASSERT_EQ(BytesOf(file.fileName()), spoiled) << "file " << made;
    }
    EXPECT_GT(made, 20);
    EXPECT_GT(values, 0) << "what can be read is read";
    EXPECT_GT(refused, 0);
}

} // namespace
} // namespace vasclip::engine
