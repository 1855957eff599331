// Pictures of tens of megabytes, out of the Databook and in again: in pieces, and whole or not at all.

#include "support/unix.h"
#include "transfer_home.h"

#include "support/counting_back_end.h"
#include "support/error_number.h"
#include "support/file_limit.h"
#include "upkeep/export_table.h"
#include "upkeep/import_table.h"

namespace vasclip::upkeep {
namespace {

constexpr qsizetype kLarge = 24 << 20;
const QString kLargeFile = u"C:\\JPG\\00000001.jpg"_s;
const QString kOak = u"12 OAK ST"_s;

QByteArray LargePicture()
{
    QByteArray picture("\xFF\xD8\xFF");
    picture.resize(kLarge);
    for (qsizetype i = 3; i < picture.size(); ++i)
        picture[i] = static_cast<char>((i * 31 + i / 251) & 0xFF);
    return picture;
}

class LargePictures : public TransferHome
{
protected:
    const QString mine = u"C:\\MINE.MDB"_s;
    const QByteArray picture = LargePicture();

    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
        disk.WriteWhole(kLargeFile, picture);
        disk.WriteWhole(u"C:\\JPG\\00000003.jpg"_s, "\xFF\xD8\xFF elm");
    }
    ExportResult Export(bool access = false, const WorkStep& step = [](qint64, qint64, const QString&) { return true; })
    {
        return ExportTable(Desk(), {.target = target, .table = table, .search = {}, .pictures = true, .access = access}, step);
    }
    ImportResult Import(const WorkStep& step = [](qint64, qint64, const QString&) { return true; })
    {
        return ImportTable(Desk(), {.source = target, .table = table, .pictures = true}, step);
    }
    /// Another office: an empty Databook, and no pictures.
    void GoElsewhere()
    {
        databook.Close();
        disk.Kill(u"C:\\JPG\\*.jpg"_s);
        store::MakeDatabase(engine, mine);
        databook.Open(mine, table, store::SourceKind::Table);
    }
    QStringList Out() { return disk.Dir(u"C:\\EXPORT\\*"_s); }
    QStringList Pictures() { return disk.Dir(u"C:\\JPG\\*"_s); }
};

class CountedPictures : public LargePictures
{
protected:
    tests::RowCounts counts;

    void SetUp() override
    {
        engine.AddBackEnd(std::make_unique<tests::CountingBackEnd>(disk, counts));
        LargePictures::SetUp();
    }
};

TEST_F(CountedPictures, GoOutAndComeInWithoutEverBeingHeldWhole)
{
    constexpr qint64 kMost = 4 << 20;
    counts = {};
    EXPECT_EQ(Export().pictures, 2);
    EXPECT_LE(counts.longest, kMost);
    GoElsewhere();
    counts = {};
    const ImportResult result = Import();
    EXPECT_EQ(result.pictures.written, 2);
    EXPECT_GT(counts.longest, 0);
    EXPECT_LE(counts.longest, kMost);
    EXPECT_TRUE(disk.ReadWhole(kLargeFile) == picture);
    counts = {};
    EXPECT_EQ(Import().pictures.same, 2) << "compared in pieces as well";
    EXPECT_LE(counts.longest, kMost);
}

TEST_F(LargePictures, GoOutAndComeInThroughAnAccessFile)
{
    ASSERT_EQ(Export(true).pictures, 2);
    GoElsewhere();
    EXPECT_EQ(Import().pictures.written, 2);
    EXPECT_TRUE(disk.ReadWhole(kLargeFile) == picture);
}

TEST_F(LargePictures, OneThatIsCutWhileItIsReadIsLeftOutAndListed)
{
    int steps = 0;
    const ExportResult result = Export(false, [&](qint64, qint64, const QString& words) {
        if (words == u"Picture of 12 OAK ST" && ++steps == 3) {
            EXPECT_TRUE(QFile::resize(disk.ToNative(kLargeFile), kLarge / 2));
        }
        return true;
    });
    EXPECT_GT(steps, 3);
    EXPECT_TRUE(result.written);
    EXPECT_EQ(result.pictures, 1);
    EXPECT_EQ(result.notIn, QStringList{u"12 OAK ST: the file C:\\JPG\\00000001.jpg could not be read to its end"_s});
    EXPECT_FALSE(Field(target, table, kOak, u"FRONTPHOTO"_s).isValid());
    EXPECT_EQ(Field(target, table, kOak, u"PHOTOS"_s).toString(), u"FRONT VIEW|00000001\r\nREAR VIEW|00000002\r\n"_s);
    EXPECT_EQ(Field(target, table, u"9 ELM ST"_s, u"FRONTPHOTO"_s).toByteArray(), QByteArray("\xFF\xD8\xFF elm"));
}

TEST_F(LargePictures, AnExportThatIsStoppedWithinOneLeavesTheTargetAsItWas)
{
    ASSERT_TRUE(ExportTable(Desk(), {.target = target, .table = table, .search = {}}, Step()).written);
    const QByteArray before = disk.ReadWhole(target);
    for (const int stop : {2, 5, 11}) {
        int steps = 0;
        const ExportResult result = Export(false, [&](qint64, qint64, const QString&) { return ++steps < stop; });
        EXPECT_TRUE(result.stopped) << stop;
        EXPECT_EQ(result.pictures, 0);
        EXPECT_TRUE(disk.ReadWhole(target) == before);
        EXPECT_EQ(Out(), QStringList{u"OUT.MDB"_s});
    }
}

TEST_F(LargePictures, AnExportOntoADiskThatFillsLeavesTheTargetAsItWas)
{
    VASCLIP_NEEDS_UNIX("a limit on what a file holds");
    ASSERT_TRUE(ExportTable(Desk(), {.target = target, .table = table, .search = {}}, Step()).written);
    const QByteArray before = disk.ReadWhole(target);
    for (const bool access : {false, true}) {
        if (access)
            disk.Kill(target);
        tests::FileLimit full(8 << 20);
        const int number = tests::NumberOf([&] { (void)Export(access); });
        full.Lift();
        EXPECT_TRUE(number == error::kDiskFull || number == error::kDeviceIo) << number;
        if (access) {
            EXPECT_EQ(Out(), QStringList());
        } else {
            EXPECT_TRUE(disk.ReadWhole(target) == before);
        }
    }
}

TEST_F(LargePictures, AnImportOntoADiskThatFillsLeavesDatabookAndPhotosAsTheyWere)
{
    VASCLIP_NEEDS_UNIX("a limit on what a file holds");
    ASSERT_EQ(Export().pictures, 2);
    GoElsewhere();
    tests::FileLimit full(8 << 20);
    const int number = tests::NumberOf([&] { (void)Import(); });
    full.Lift();
    EXPECT_EQ(number, error::kDiskFull);
    EXPECT_EQ(Pictures(), QStringList());
    EXPECT_EQ(Keys(mine, table), QStringList());
    EXPECT_EQ(Import().pictures.written, 2);
    EXPECT_TRUE(disk.ReadWhole(kLargeFile) == picture);
}

TEST_F(LargePictures, AnImportThatIsStoppedWithinOneOrBehindItLeavesDatabookAndPhotosAsTheyWere)
{
    ASSERT_EQ(Export().pictures, 2);
    GoElsewhere();
    int within = 0;
    for (const auto& step : QList<WorkStep>{
             [&](qint64, qint64, const QString& words) { return words != u"Picture of 12 OAK ST" || ++within < 4; },
             [](qint64, qint64, const QString& words) { return words != u"Picture of 9 ELM ST"; }}) {
        const ImportResult result = Import(step);
        EXPECT_TRUE(result.stopped);
        EXPECT_EQ(Pictures(), QStringList());
        EXPECT_EQ(Keys(mine, table), QStringList());
    }
    EXPECT_EQ(within, 4);
}

} // namespace
} // namespace vasclip::upkeep
