#include "demo/home.h"

#include "common/settings.h"
#include "demo/databook_file.h"
#include "demo/home_marker.h"
#include "demo/map_files.h"
#include "formsbook/mapping.h"
#include "platform/files/profile.h"
#include "platform/street/map_data.h"
#include "platform/text/runtime_error.h"
#include "platform/street/draw/mark.h"
#include "store/store.h"
#include "support/own_drive.h"
#include "support/standing_time.h"
#include "support/unix.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImageReader>
#include <QSet>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::demo {
namespace {

constexpr int kFew = 12;

void Quiet(const QString&) {}

QByteArray Content(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void Write(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// Every file of a tree with its content.
QMap<QString, QByteArray> Tree(const QString& root)
{
    QMap<QString, QByteArray> files;
    QDirIterator walk(root, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        files.insert(QDir(root).relativeFilePath(path),
                     walk.fileInfo().isDir() ? QByteArray("dir") : Content(path));
    }
    return files;
}

void ExpectSameTree(const QString& a, const QString& b)
{
    const QMap<QString, QByteArray> first = Tree(a);
    const QMap<QString, QByteArray> second = Tree(b);
    EXPECT_EQ(first.keys(), second.keys());
    for (auto file = first.cbegin(); file != first.cend(); ++file)
        EXPECT_TRUE(second.value(file.key()) == file.value()) << file.key().toStdString() << " differs";
}

int ErrorOf(const HomeOptions& options)
{
    try {
        MakeHome(options, Quiet);
    } catch (const RuntimeError& error) {
        EXPECT_FALSE(error.Description().isEmpty());
        return error.Number();
    }
    return 0;
}

/// A run whose result another is compared with, an interrupted one made anew, and one by force.
TEST(Home, IsTheSameByteForByteHoweverItCameAbout)
{
    const QTemporaryDir place;
    const QString first = place.filePath(u"first"_s);
    const QString second = place.filePath(u"second"_s);
    ASSERT_EQ(MakeHome({first, kFew, false}, Quiet), HomeOutcome::Made);

    // what a run leaves that was killed in the middle of the Databook and the pictures
    MarkHome(second, HomeState::Unfinished, kFew);
    Write(second + u"/drive_c/DATABOOK/DATABOOK.MDB"_s, "SQLite format 3, half of it");
    Write(second + u"/drive_c/VASCLIPS/JPG/00000000.jpg"_s, "half a picture");
    QStringList said;
    ASSERT_EQ(MakeHome({second, kFew, false}, [&](const QString& line) { said.append(line); }),
              HomeOutcome::Made);
    EXPECT_EQ(said.first(), u"An earlier run did not finish; its files are made anew."_s);
    ExpectSameTree(first, second);

    Write(second + u"/drive_c/APPRAISE/VAS2000.INI"_s, "changed");
    ASSERT_EQ(MakeHome({second, kFew, true}, Quiet), HomeOutcome::Made);
    ExpectSameTree(first, second);
}

TEST(Home, IsLeftAloneWhenComplete)
{
    const QTemporaryDir place;
    MarkHome(place.path(), HomeState::Complete, kFew);
    Write(place.filePath(u"drive_c/DATABOOK/DATABOOK.MDB"_s), "the user's work");
    const QMap<QString, QByteArray> before = Tree(place.path());
    QStringList said;
    EXPECT_EQ(MakeHome({place.path(), 40, false}, [&](const QString& line) { said.append(line); }),
              HomeOutcome::WasComplete);
    EXPECT_EQ(said, QStringList{place.path() + u" is complete; nothing to do. (--force makes it anew.)"_s});
    EXPECT_EQ(Tree(place.path()), before);
}

TEST(Home, OfAnotherVersionIsKeptAsideAndMadeAnew)
{
    const QTemporaryDir place;
    Write(place.filePath(u"demo-home.txt"_s), "Vasclip demo home\n12 comps\ncomplete\n");
    Write(place.filePath(u"drive_c/DATABOOK/NOTES.TXT"_s), "the user's work");
    QStringList said;
    ASSERT_EQ(MakeHome({place.path(), kFew, false}, [&](const QString& line) { said.append(line); }),
              HomeOutcome::Made);
    const QString kept = place.filePath(u"drive_c.older-1"_s);
    EXPECT_EQ(said.first(),
              u"The home is of another version; it is made anew. What it held is kept in %1."_s.arg(kept));
    QFile notes(kept + u"/DATABOOK/NOTES.TXT"_s);
    ASSERT_TRUE(notes.open(QIODevice::ReadOnly));
    EXPECT_EQ(notes.readAll(), "the user's work");
    EXPECT_FALSE(QFile::exists(place.filePath(u"drive_c/DATABOOK/NOTES.TXT"_s)));
    EXPECT_EQ(MakeHome({place.path(), kFew, false}, Quiet), HomeOutcome::WasComplete);
}

TEST(Home, LeavesForeignFilesAlone)
{
    for (const bool force : {false, true}) {
        const QTemporaryDir place;
        Write(place.filePath(u"drive_c/DATABOOK/DATABOOK.MDB"_s), "somebody's Databook");
        const QMap<QString, QByteArray> before = Tree(place.path());
        EXPECT_EQ(ErrorOf({place.path(), kFew, force}), error::kFileExists);
        EXPECT_EQ(Tree(place.path()), before);
    }
}

TEST(Home, LeavesAloneWhatALinkedDriveLeadsTo)
{
    VASCLIP_NEEDS_UNIX("links that are made without a right");
    const QTemporaryDir real;
    Write(real.filePath(u"DATABOOK/DATABOOK.MDB"_s), "somebody's Databook");
    const QMap<QString, QByteArray> before = Tree(real.path());
    for (const HomeState state : {HomeState::Complete, HomeState::Unfinished}) {
        for (const bool force : {false, true}) {
            const QTemporaryDir place;
            MarkHome(place.path(), state, 6);
            ASSERT_TRUE(QFile::link(real.path(), place.filePath(u"drive_c"_s)));
            EXPECT_EQ(ErrorOf({place.path(), kFew, force}), error::kPathFileAccess);
            EXPECT_EQ(Tree(real.path()), before);
            EXPECT_EQ(StateOfHome(place.path()), state);
        }
    }
}

TEST(Home, IsNotRemadeUnderAProgramThatWorksOnIt)
{
    const QTemporaryDir place;
    const QString databook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
    const files::Disk disk(tests::WithOwnDrive(place.path()));
    disk.MkDir(u"C:\\DATABOOK"_s);
    engine::Engine engine(disk, tests::SomeTime());
    MakeDatabook(engine, databook, MakeMarket(6));
    MarkHome(place.path(), HomeState::Complete, 6);
    const auto open = engine.OpenDatabase(databook);
    EXPECT_EQ(ErrorOf({place.path(), kFew, true}), error::kPermissionDenied);
    EXPECT_EQ(open->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table)->RecordCount(), 6);
    EXPECT_EQ(StateOfHome(place.path()), HomeState::Complete);
    open->Close();
}

TEST(Home, IsRefusedWhereAFileStands)
{
    const QTemporaryDir place;
    Write(place.filePath(u"home"_s), "a file where the home should be");
    EXPECT_EQ(ErrorOf({place.filePath(u"home"_s), kFew, false}), error::kPathFileAccess);
    EXPECT_EQ(Content(place.filePath(u"home"_s)), "a file where the home should be");
}

TEST(Home, HoldsWhatTheProgramsLookFor)
{
    const QTemporaryDir place;
    ASSERT_EQ(MakeHome({place.path(), kFew, false}, Quiet), HomeOutcome::Made);
    const files::Disk disk(place.path());
    engine::Engine engine(disk, tests::SomeTime());

    // settings: every key stands in the file with its default
    common::Globals defaults;
    common::ReadGlobals(defaults, [](common::IniFile, const QString&, const QString&,
                                     const QString& fallback) { return fallback; });
    common::Globals globals;
    globals.applicationIni = u"C:\\APPRAISE\\VAS2000.INI"_s;
    globals.kelIni = u"C:\\APPRAISE\\KEL.INI"_s;
    common::ReadGlobals(globals, common::ProfileReader(disk, globals));
    for (const QString& name : street::draw::MarkNames())
        EXPECT_TRUE(disk.FileExists(globals.arrowsDir + name)) << name.toStdString();
    for (const common::SettingRow& row : common::Settings()) {
        if (row.file != common::IniFile::Application || row.readBy == common::ReadBy::Nothing)
            continue;
        EXPECT_NE(
            files::GetPrivateProfileString(disk, row.section, row.key, u"absent"_s, globals.applicationIni),
            u"absent"_s)
            << row.key.data();
        if (row.readBy == common::ReadBy::Globals) {
            EXPECT_EQ(common::SettingText(row, globals), common::SettingText(row, defaults))
                << row.key.data();
        }
    }
    EXPECT_EQ(globals.kelAppDir, u"C:\\KEL\\"_s);
    EXPECT_EQ(
        files::GetPrivateProfileString(disk, u"CITIES"_s, u"CITY1"_s, QString(), globals.applicationIni),
        u"Marlow Falls, OR  97991  Calder"_s);
    for (const QString& directory :
         {globals.G_ArchiveDir, globals.G_ExportDir, globals.G_ImportDir, globals.mapExportDir,
          globals.arrowsDir, globals.kelDataDir, globals.kelPrivateDir})
        EXPECT_TRUE(disk.DirExists(directory)) << directory.toStdString();
    for (const auto name :
         {"Addendum_Added.bmp"_L1, "Addendum_Full.bmp"_L1, "Addendum_Empty.bmp"_L1, "compfull.jpg"_L1,
          "LISTfull.jpg"_L1, "RENTfull.jpg"_L1, "HandPict.Ico"_L1, "DropPict.Ico"_L1})
        EXPECT_FALSE(QImageReader(disk.ToNative(globals.G_ProgramDir + name)).read().isNull()) << name.data();
    for (const auto name :
         {"recalc.bas"_L1, "refresh.bas"_L1, "ADDPLUS.BAS"_L1, "CITYPLUS.BAS"_L1, "Kel.exe"_L1})
        EXPECT_TRUE(disk.FileExists(globals.kelAppDir + name)) << name.data();
    EXPECT_EQ(disk.ReadWhole(globals.kelAppDir + u"Kel.exe.version"_s), "7.21.0.0\r\n");

    // the street map
    globals.pwStreetIni = u"C:\\APPRAISE\\pwstreet.ini"_s;
    common::ReadStreetPaths(globals, common::ProfileReader(disk, globals));
    EXPECT_EQ(street::MapData(disk.ToNative(globals.cellData)).IsOpen(), HasMapImporter() || QFileInfo::exists(ReadyMap())) << globals.cellData.toStdString();

    // templates and data
    for (const auto name : {"NEWDATA.MDB"_L1, "Report_Brief.mdb"_L1, "Report_Medium.mdb"_L1,
                            "Report_Detail.mdb"_L1, "Report_NonDesc.mdb"_L1})
        EXPECT_TRUE(store::Ismdb(engine, globals.G_ProgramDir + name, u"COMPS"_s)) << name.data();
    EXPECT_TRUE(disk.FileExists(globals.G_ProgramDir + u"appraisal.mbk"_s));
    EXPECT_TRUE(disk.FileExists(globals.G_ProgramDir + u"NEWCMTS.MDB"_s));
    const auto mapping = engine.OpenDatabase(globals.G_UserDir + u"Comp2Kel.mdb"_s);
    EXPECT_EQ(mapping->OpenRecordset(u"Comp2Kel"_s, engine::RecordsetType::Table)->RecordCount(),
              formsbook::MappingRows().size());
    const auto comments = engine.OpenDatabase(globals.G_UserDir + u"comments.mdb"_s);
    const auto phrases = comments->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    phrases->MoveFirst();
    EXPECT_EQ(phrases->Value(u"CONDITION"_s).toString(), u"Average"_s);
    EXPECT_GE(comments->OpenRecordset(u"CITIES"_s, engine::RecordsetType::Table)->RecordCount(), 6);

    // the records and their pictures, each a different one
    const auto databook = engine.OpenDatabase(globals.G_DataDir + globals.G_DataFile);
    const auto table = databook->OpenRecordset(globals.G_Table, engine::RecordsetType::Table);
    table->SetIndex(u"Centralkey"_s);
    EXPECT_EQ(table->RecordCount(), kFew);
    QSet<QByteArray> pictures;
    int photos = 0;
    for (const Comp& comp : MakeMarket(kFew)) {
        table->Seek(u"="_s, comp.key);
        ASSERT_FALSE(table->NoMatch()) << comp.key.toStdString();
        EXPECT_EQ(table->Value(u"CENTRALKEY"_s).toString().size(), 35);
        EXPECT_EQ(table->Value(u"PHOTOS"_s).toString(), PhotosText(comp.photos));
        EXPECT_EQ(table->Value(u"FRONT"_s).toString(), comp.photos.isEmpty() ? QString() : u"1"_s);
        for (const Photo& photo : comp.photos) {
            const QString path = disk.ToNative(globals.G_PhotoDir + photo.stem + u".jpg"_s);
            EXPECT_EQ(QImageReader(path).size(), QSize(1600, 1200)) << path.toStdString();
            pictures.insert(Content(path));
            ++photos;
        }
    }
    EXPECT_EQ(pictures.size(), photos);
    EXPECT_EQ(disk.Dir(globals.G_PhotoDir + u"*.jpg"_s).size(), photos);
    EXPECT_EQ(disk.Dir(globals.G_CaptureDir + u"*.jpg"_s).size(), 24);
    EXPECT_EQ(disk.Dir(globals.kelDataDir + u"*.RPT"_s), (QStringList{u"FERRY22.RPT"_s, u"LAUREL.RPT"_s, u"OAKST114.RPT"_s}));
}

} // namespace
} // namespace vasclip::demo
