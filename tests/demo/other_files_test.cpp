#include "demo/other_files.h"

#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "store/schema.h"
#include "store/upgrade.h"
#include "support/own_drive.h"
#include "support/standing_time.h"

#include <QImage>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

class OtherFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const QString& directory : {u"C:\\DATABOOK"_s, u"C:\\DATABOOK\\IMPORT"_s, u"C:\\DATABOOK\\ARCHIVE"_s})
            disk.MkDir(directory);
        comps = MakeMarket(kFew);
        MakeOtherFiles(disk, comps, MakeMarket(kFew + kStrangers).mid(kFew));
    }
    [[nodiscard]] std::unique_ptr<engine::Recordset> Comps(const QString& file)
    {
        const auto database = engine.OpenDatabase(file, engine::OpenMode::ReadOnly);
        EXPECT_EQ(engine::CheckDatabase(*database, engine::CheckDepth::Whole), QStringList());
        return database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    }

    static constexpr int kFew = 12;
    const QTemporaryDir place;
    const files::Disk disk{tests::WithOwnDrive(place.path())};
    engine::Engine engine{disk, tests::SomeTime()};
    QList<Comp> comps;
};

TEST_F(OtherFiles, TheOtherOfficeHasAnAccessFileWithDuplicatesAndFaults)
{
    const QString file = u"C:\\DATABOOK\\IMPORT\\HARBOR.MDB"_s;
    EXPECT_TRUE(engine::IsGenuineFile(disk, file));
    QSet<QString> ours;
    for (const Comp& comp : comps)
        ours.insert(comp.key);
    int pictures = 0, same = 0, nameless = 0, again = 0;
    QSet<QString> keys;
    const auto rows = Comps(file);
    EXPECT_EQ(rows->RecordCount(), 60);
    for (; !rows->Eof(); rows->MoveNext()) {
        const QString key = rows->Value(u"CENTRALKEY"_s).toString().trimmed();
        nameless += key.isEmpty() ? 1 : 0;
        same += ours.contains(key) ? 1 : 0;
        again += !key.isEmpty() && keys.contains(key) ? 1 : 0;
        keys.insert(key);
        const QByteArray picture = rows->Value(u"FRONTPHOTO"_s).toByteArray();
        pictures += !QImage::fromData(picture).isNull() ? 1 : 0;
    }
    EXPECT_EQ(pictures, 8);
    EXPECT_EQ(same, 6);
    EXPECT_EQ(nameless, 1);
    EXPECT_EQ(again, 1);
    EXPECT_TRUE(keys.contains(u"3 HARBOR PT"_s));
}

TEST_F(OtherFiles, TheOlderDatabookLacksWhatAnUpgradeAdds)
{
    const QString file = u"C:\\DATABOOK\\OLDBOOK.MDB"_s;
    EXPECT_EQ(Comps(file)->RecordCount(), 24);
    EXPECT_EQ(store::FieldCount(engine, file), store::CompsTable().fields.size() - 11);
    const auto database = engine.OpenDatabase(file, engine::OpenMode::Exclusive);
    store::AppendMissing(*database);
    database->Close();
    EXPECT_EQ(store::FieldCount(engine, file), store::CompsTable().fields.size());
}

TEST_F(OtherFiles, TheArchiveHasSalesOfLongAgo)
{
    const auto rows = Comps(u"C:\\DATABOOK\\ARCHIVE\\ARCHIVE.MDB"_s);
    EXPECT_EQ(rows->RecordCount(), 22);
    for (; !rows->Eof(); rows->MoveNext()) {
        const int year = rows->Value(u"SALEDATE"_s).toString().trimmed().right(4).toInt();
        EXPECT_GT(year, 1990);
        EXPECT_LT(year, 2000);
    }
}

} // namespace
} // namespace vasclip::demo
