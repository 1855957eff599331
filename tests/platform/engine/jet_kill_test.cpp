// A conversion that is killed at any moment leaves the file as it was, or the new one in its place and the old one beside
// it. VASCLIP_KILLS sets how often; 1000 for the long run.

#include "faults/kills.h"
#include "platform/engine/convert.h"
#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/engine/jet_samples.h"
#include "support/killed_work.h"

namespace vasclip::engine {
namespace {

const QString kFile = u"C:\\BOOK.MDB"_s;
constexpr int kComps = 200;

struct JetKillTest : testing::Test
{
    JetKillTest()
    {
        QList<Comp> comps;
        for (int i = 0; i < kComps; ++i)
            comps.append({u"%1 OAK ST"_s.arg(i), u"Salem"_s, {}, {}, {}});
        MakeComps(home.engine, kFile, comps)->Close();
        EXPECT_TRUE(ConvertDatabase(home.engine, {.source = kFile, .target = u"C:\\MADE.MDB"_s, .to = DatabaseKind::Access}));
        home.disk.Kill(kFile);
        home.disk.Name(u"C:\\MADE.MDB"_s, kFile);
        before = BytesOf(home.Native(u"BOOK.MDB"_s));
    }
    void Convert() const
    {
        Engine own{home.disk, home.engine.Time()};
        static_cast<void>(ConvertDatabase(own, {.source = kFile, .target = kFile, .keepAs = u"C:\\KEPT.MDB"_s}));
    }
    void PutBack() const
    {
        for (const QString& name : {u"BOOK.MDB"_s, u"KEPT.MDB"_s})
            QFile::remove(home.Native(name));
        QFile file(home.Native(u"BOOK.MDB"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(before) == before.size());
    }

    Home home;
    QByteArray before;
    tests::KilledWork killed;
};

TEST_F(JetKillTest, LeavesTheOldFileOrTheNewOneWithTheOldBesideIt)
{
    int old = 0;
    int made = 0;
    for (int run = 0; tests::MoreKills(run, 14, {old, made}); ++run) {
        PutBack();
        killed.Run([this] { Convert(); });
        if (BytesOf(home.Native(u"BOOK.MDB"_s)) == before) {
            ++old;
            continue;
        }
        ++made;
        EXPECT_EQ(BytesOf(home.Native(u"KEPT.MDB"_s)), before) << run;
        const auto database = home.engine.OpenDatabase(kFile, OpenMode::ReadOnly);
        EXPECT_FALSE(IsGenuine(*database)) << run;
        EXPECT_EQ(CheckDatabase(*database, CheckDepth::Whole), QStringList()) << run;
        EXPECT_EQ(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), kComps) << run;
        database->Close();
    }
    EXPECT_GT(old, 0);
    EXPECT_GT(made, 0);
    PutBack();
    killed.Whole([this] { Convert(); });
    EXPECT_EQ(QDir(home.directory.path() + u"/drive_c"_s).entryList(QDir::Files),
              (QStringList{u"BOOK.MDB"_s, u"KEPT.MDB"_s}))
        << "what the killed ones left went with the next";
}

} // namespace
} // namespace vasclip::engine
