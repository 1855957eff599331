#include "common/settings.h"

#include "platform/files/profile.h"
#include "platform/text/runtime_error.h"
#include "support/own_drive.h"

#include <gtest/gtest.h>

#include <QMap>
#include <QSet>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

QString RowName(const SettingRow& row)
{
    return u"%1|%2|%3"_s.arg(static_cast<int>(row.file)).arg(row.section, row.key).toUpper();
}

IniReader Nothing()
{
    return [](IniFile, const QString&, const QString&, const QString& fallback) { return fallback; };
}

/// Reads everything from texts by key, in one file or another.
Globals ReadAll(const QMap<QString, QString>& values, bool vista = false)
{
    Globals globals;
    globals.isVista = vista;
    const IniReader reader = [&](IniFile, const QString&, const QString& key, const QString& fallback) {
        return values.value(key, fallback);
    };
    ReadNames(globals, reader);
    ReadGlobals(globals, reader);
    ReadiniSettings(globals, reader);
    ReadStreetPaths(globals, reader);
    return globals;
}

TEST(SettingsTable, NamesNoKeyTwice)
{
    QSet<QString> seen;
    for (const SettingRow& row : Settings()) {
        EXPECT_FALSE(seen.contains(RowName(row))) << RowName(row).toStdString();
        seen << RowName(row);
    }
    EXPECT_EQ(seen.size(), 68);
}

TEST(SettingsTable, EveryReadingRuleSuitsItsTarget)
{
    for (const SettingRow& row : Settings()) {
        const std::string name = RowName(row).toStdString();
        switch (row.rule) {
        case ReadRule::Integer:
        case ReadRule::Long:
            EXPECT_TRUE(std::holds_alternative<int Globals::*>(row.target)) << name;
            break;
        case ReadRule::Seconds:
            EXPECT_TRUE(std::holds_alternative<double Globals::*>(row.target)) << name;
            break;
        case ReadRule::OnIfOne:
        case ReadRule::OnIfNonZero:
            EXPECT_TRUE(std::holds_alternative<bool Globals::*>(row.target)) << name;
            break;
        default:
            EXPECT_TRUE(std::holds_alternative<QString Globals::*>(row.target)) << name;
        }
    }
}

TEST(SettingsTable, FillsNoGlobalTwice)
{
    const auto rows = Settings();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t j = i + 1; j < rows.size(); ++j)
            EXPECT_FALSE(rows[i].target == rows[j].target)
                << RowName(rows[i]).toStdString() << " and " << RowName(rows[j]).toStdString();
    }
}

QStringList KeysWrittenBy(WrittenBy writer)
{
    QStringList keys;
    for (const SettingRow& row : Settings()) {
        if (row.writtenBy & writer)
            keys << QString(row.key);
    }
    keys.sort();
    return keys;
}

TEST(SettingsTable, KnowsWhoWritesAKey)
{
    QStringList screen =
        u"APPDIR,USERDIR,CAPTUREDIR,PHOTODIR,DATADIR,ARCHIVEDIR,EXPORTDIR,IMPORTDIR,FLOPPY,ROM,READER,"
        "AUTOSAVE,WRITEPROTECTPHOTOS,TRASHCAN,AUTODELETE,IMAGEFILENAMES,IMAGELISTBOX,"
        "PREVIEWCOPYPICS,REDUX,RESOLX,RESOLY,QUALITY,PICDELAY,ADDRESSCASE,CAPS,SHARE,LOCKADDR,"
        "SORTGRID,IGNOREPENDING,IGNOREZIPCODES,TRANSPARENT,MAPQUALITY,MAPCASE,MAPDIR,MAPFILE,"
        "ARROWCOLOR,TABMASK,IMAGE TYPE,USESUBJCSZ,CONTRAST,BRIGHTNESS,MAPDETAIL"_s.split(u',');
    QStringList exit =
        u"IMAGEFILENAMES,IMAGELISTBOX,RADIUS,FREEZE,ARRANGE,LABELSTREETS,MAPDETAIL,PREVIEWCOPYPICS,SORTGRID,"
        "IGNOREPENDING,LASTCOPY,CAPTUREDIR"_s.split(u',');
    screen.sort();
    exit.sort();
    EXPECT_EQ(KeysWrittenBy(SettingsScreen), screen);
    EXPECT_EQ(KeysWrittenBy(AtExit), exit);
    EXPECT_EQ(KeysWrittenBy(AttachCity), QStringList{u"USESUBJCSZ"_s});
}

TEST(SettingsTable, EveryDefaultIsAValueThatCanBeSet)
{
    Globals globals;
    for (const SettingRow& row : Settings()) {
        if (row.file == IniFile::Application && row.readBy != ReadBy::Nothing) {
            EXPECT_EQ(SettingRefusal(row, row.fallback.Text(globals)).value_or(QString()).toStdString(), "");
        }
    }
}

struct DefaultRow
{
    const char* section;
    const char* key;
    const char* text; ///< as it would be written
};

TEST(ReadGlobals, AbsentKeysGiveTheDefaults)
{
    const DefaultRow rows[] = {
        {"DIRECTORIES", "APPDIR", "C:\\VAS2000\\"},
        {"DIRECTORIES", "USERDIR", "C:\\VAS2000\\"},
        {"DIRECTORIES", "PHOTODIR", "C:\\VASCLIPS\\JPG\\"},
        {"DIRECTORIES", "CAPTUREDIR", "C:\\VASSNAP\\"},
        {"DIRECTORIES", "DATADIR", "C:\\DATABOOK\\"},
        {"DIRECTORIES", "DATAFILE", "DATABOOK.MDB"},
        {"DIRECTORIES", "TABLE", "COMPS"},
        {"DIRECTORIES", "ARCHIVEDIR", "C:\\DATABOOK\\ARCHIVE\\"},
        {"DIRECTORIES", "ARCHIVEFILENAME", "ARCHIVE.MDB"},
        {"DIRECTORIES", "ARCHIVETABLE", "COMPS"},
        {"DIRECTORIES", "EXPORTDIR", "C:\\DATABOOK\\EXPORT\\"},
        {"DIRECTORIES", "EXPORTFILENAME", "EXPORT.MDB"},
        {"DIRECTORIES", "EXPORTTABLE", "COMPS"},
        {"DIRECTORIES", "IMPORTDIR", "C:\\DATABOOK\\IMPORT\\"},
        {"DIRECTORIES", "IMPORTFILENAME", "IMPORT.MDB"},
        {"DIRECTORIES", "IMPORTTABLE", "COMPS"},
        {"DIRECTORIES", "MAPDIR", "C:\\VAM\\"},
        {"DIRECTORIES", "MAPFILE", "APPRAISAL.MDB"},
        {"COPY DEVICE", "FLOPPY", "A:\\"},
        {"COPY DEVICE", "ROM", "D:\\"},
        {"COPY DEVICE", "READER", "C:\\"},
        {"COPY DEVICE", "LASTCOPY", "A:\\"},
        {"PREFERENCES", "PREVIEWCOPYPICS", "1"},
        {"PREFERENCES", "IMAGE TYPE", "JPG"},
        {"PREFERENCES", "TRASHCAN", "1"},
        {"PREFERENCES", "AUTOSAVE", "1"},
        {"PREFERENCES", "WRITEPROTECTPHOTOS", "1"},
        {"PREFERENCES", "COPYIMAGES", "1"},
        {"PREFERENCES", "AUTODELETE", "1"},
        {"PREFERENCES", "QUALITY", "90"},
        {"PREFERENCES", "CONTRAST", "0"},
        {"PREFERENCES", "BRIGHTNESS", "0"},
        {"PREFERENCES", "REDUX", "1"},
        {"PREFERENCES", "RESOLX", "800"},
        {"PREFERENCES", "RESOLY", "600"},
        {"PREFERENCES", "SHARE", "0"},
        {"PREFERENCES", "LOCKADDR", "1"},
        {"PREFERENCES", "CAPS", "1"},
        {"PREFERENCES", "ADDRESSCASE", "2"},
        {"PREFERENCES", "SORTGRID", "1"},
        {"PREFERENCES", "IGNOREPENDING", "0"},
        {"PREFERENCES", "USESUBJCSZ", "CS"},
        {"PREFERENCES", "PICDELAY", "0"},
        {"PREFERENCES", "TABMASK", "0"},
        {"PREFERENCES", "IGNOREZIPCODES", "1"},
        {"PREFERENCES", "MAPCASE", "0"},
        {"PREFERENCES", "MAPDETAIL", "3"},
        {"PREFERENCES", "MAPQUALITY", "100"},
        {"PREFERENCES", "ARROWCOLOR", "0"},
        {"PREFERENCES", "TRANSPARENT", "1"},
        {"PREFERENCES", "RADIUS", "0"},
        {"PREFERENCES", "FREEZE", "0"},
        {"PREFERENCES", "ARRANGE", "0"},
        {"PREFERENCES", "IMAGEFILENAMES", "ON"},
        {"PREFERENCES", "IMAGELISTBOX", "OFF"},
        {"PREFERENCES", "LABELSTREETS", "0"},
        {"PRODUCT INFO", "COMPANY NAME", "Ostrand Ltd."},
        {"PROGRAM ALIAS", "Vasclip", "Vasclip"},
        {"PROGRAM ALIAS", "Korvat Pointer", "Korvat Atlas"},
    };
    const Globals globals = ReadAll({});
    for (const DefaultRow& row : rows) {
        const SettingRow* setting =
            FindSetting(QString::fromLatin1(row.section), QString::fromLatin1(row.key));
        ASSERT_NE(setting, nullptr) << row.key;
        EXPECT_EQ(SettingText(*setting, globals).toStdString(), row.text) << row.key;
    }
    EXPECT_EQ(globals.formsProgram, u"Korvat Forms"_s);
    EXPECT_EQ(globals.kelDataDir + globals.kelPrivateDir + globals.kelAppDir, QString());
    EXPECT_EQ(globals.cellData, u"C:\\VAS2000\\maps"_s);
    EXPECT_EQ(globals.basePath, u"C:\\VAS2000\\maps"_s);
    EXPECT_EQ(globals.captureDirBeforeTrash, u"C:\\VASSNAP\\"_s);
    EXPECT_EQ(globals.arrowsDir, u"C:\\VAS2000\\arrows\\"_s);
}

TEST(ReadGlobals, ComputedDefaultsLookAtWhatWasJustRead)
{
    EXPECT_EQ(ReadAll({{u"FLOPPY"_s, u"E:\\"_s}}).lastCopy, u"E:\\"_s);
    EXPECT_EQ(ReadAll({{u"FLOPPY"_s, u"E:\\"_s}, {u"LASTCOPY"_s, u"F:\\"_s}}).lastCopy, u"F:\\"_s);
    EXPECT_TRUE(ReadAll({}, true).tabMask);
    EXPECT_FALSE(ReadAll({}, false).tabMask);
    EXPECT_FALSE(ReadAll({{u"TABMASK"_s, u"0"_s}}, true).tabMask);
    EXPECT_EQ(ReadAll({{u"APPDIR"_s, u"D:\\VC"_s}}).cellData, u"D:\\VC\\maps"_s);
    EXPECT_EQ(ReadAll({{u"APPDIR"_s, u"D:\\VC"_s}}).arrowsDir, u"D:\\VC\\arrows\\"_s);
}

struct RuleRow
{
    const char* key;
    const char* text;
    const char* read; ///< as it would be written
};

TEST(ReadGlobals, ReadsEveryValueByItsRule)
{
    const RuleRow rows[] = {
        {"PICDELAY", "10", "10"},
        {"PICDELAY", "10.5", "0"},
        {"PICDELAY", "-1", "0"},
        {"PICDELAY", ".25", ".25"},
        {"PICDELAY", "soon", "0"},
        {"REDUX", "2", "0"},
        {"REDUX", "1", "1"},
        {"REDUX", "-1", "0"},
        {"REDUX", "yes", "0"},
        {"WRITEPROTECTPHOTOS", "2", "1"},
        {"WRITEPROTECTPHOTOS", "-1", "1"},
        {"WRITEPROTECTPHOTOS", "0", "0"},
        {"WRITEPROTECTPHOTOS", "yes", "0"},
        {"TABMASK", "2", "0"},
        {"TABMASK", "1", "1"},
        {"IGNOREZIPCODES", "5", "1"},
        {"MAPCASE", "5", "1"},
        {"MAPCASE", "0", "0"},
        {"QUALITY", "75x", "75"},
        {"QUALITY", "x75", "0"},
        {"QUALITY", "40000", "0"},
        {"QUALITY", "250", "250"},
        {"RESOLX", "40000", "40000"},
        {"RESOLX", "3000000000", "0"},
        {"SORTGRID", "2.5", "2"},
        {"SORTGRID", "3.5", "4"},
        {"CAPS", "yes", "y"},
        {"TRANSPARENT", "10", "1"},
        {"APPDIR", " D:\\VC ", "D:\\VC\\"},
        {"DATADIR", "D:\\DB\\", "D:\\DB\\"},
        {"FLOPPY", "E:", "E:"},
        {"IMAGEFILENAMES", "off", "OFF"},
        {"IMAGEFILENAMES", " Off ", "OFF"},
        {"IMAGEFILENAMES", "1", "ON"},
        {"IMAGEFILENAMES", "no", "ON"},
        {"IMAGELISTBOX", "on", "ON"},
        {"IMAGELISTBOX", "1", "OFF"},
        {"IMAGELISTBOX", "yes", "OFF"},
        {"RADIUS", "1", "1"},
        {"FREEZE", "2", "2"},
        {"COMPANY NAME", " Ostrand ", "Ostrand"},
        {"Korvat Pointer", " Atlas ", " Atlas "},
        {"LABELSTREETS", "1", "0"},
    };
    for (const RuleRow& row : rows) {
        const QString key = QString::fromLatin1(row.key);
        const Globals globals = ReadAll({{key, QString::fromLatin1(row.text)}});
        for (const SettingRow& setting : Settings()) {
            if (setting.file == IniFile::Application && setting.key == key) {
                EXPECT_EQ(SettingText(setting, globals).toStdString(), row.read)
                    << row.key << "=" << row.text;
            }
        }
    }
}

TEST(ReadGlobals, LeavesTheRowsOfOtherReadingsAlone)
{
    QStringList asked;
    const IniReader reader = [&](IniFile, const QString&, const QString& key, const QString& fallback) {
        asked << key;
        return fallback;
    };
    Globals globals;
    ReadGlobals(globals, reader);
    for (const QString& key :
         {u"RADIUS"_s, u"FREEZE"_s, u"IMAGEFILENAMES"_s, u"IMAGELISTBOX"_s, u"LABELSTREETS"_s})
        EXPECT_FALSE(asked.contains(key)) << key.toStdString();
    const QStringList order =
        u"APPDIR,USERDIR,PHOTODIR,CAPTUREDIR,DATADIR,DATAFILE,TABLE,ARCHIVEDIR,ARCHIVEFILENAME,ARCHIVETABLE,"
        "EXPORTDIR,EXPORTFILENAME,EXPORTTABLE,IMPORTDIR,IMPORTFILENAME,IMPORTTABLE,MAPDIR,MAPFILE,FLOPPY,ROM,"
        "READER,LASTCOPY,PREVIEWCOPYPICS,IMAGE "
        "TYPE,TRASHCAN,AUTOSAVE,WRITEPROTECTPHOTOS,COPYIMAGES,AUTODELETE,"
        "QUALITY,CONTRAST,BRIGHTNESS,REDUX,RESOLX,RESOLY,SHARE,LOCKADDR,CAPS,AUTOADVANCE,"
        "SORTCOMMENTS,ADDRESSCASE,SORTGRID,"
        "IGNOREPENDING,USESUBJCSZ,PICDELAY,TABMASK,IGNOREZIPCODES,MAPCASE,MAPDETAIL,MAPQUALITY,ARROWCOLOR,"
        "TRANSPARENT,DATADIR,PRIVATEDIR,APPDIR"_s.split(u',');
    EXPECT_EQ(asked, order);
    asked.clear();
    ReadiniSettings(globals, reader);
    EXPECT_EQ(asked, (QStringList{u"RADIUS"_s, u"FREEZE"_s, u"ARRANGE"_s, u"IMAGEFILENAMES"_s, u"IMAGELISTBOX"_s}));
    asked.clear();
    ReadNames(globals, reader);
    EXPECT_EQ(asked, (QStringList{u"COMPANY NAME"_s, u"WEBSITE"_s, u"Vasclip"_s, u"ApplicationName"_s,
                                  u"Korvat Pointer"_s}));
}

struct SettingsFileTest : testing::Test
{
    QTemporaryDir home;
    files::Disk disk{tests::WithOwnDrive(home.path())};
    Globals globals;
    void SetUp() override
    {
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        globals.kelIni = u"C:\\KEL.INI"_s;
        globals.pwStreetIni = u"C:\\PWSTREET.INI"_s;
    }
    QString Stored(const QString& section, const QString& key) const
    {
        return files::GetPrivateProfileString(disk, section, key, u"(none)"_s, globals.applicationIni);
    }
};

TEST_F(SettingsFileTest, EachRowComesFromItsOwnFile)
{
    disk.WriteWhole(globals.applicationIni, "[directories]\r\ndatadir=D:\\BOOK\r\nAPPDIR=D:\\VC\r\n");
    disk.WriteWhole(globals.kelIni, "[DIRECTORIES]\r\nDATADIR=D:\\KEL\\DATA\r\nAPPDIR=D:\\KEL\r\n[VENDOR]\r\n"
                                    "ApplicationName = Forms \r\n");
    disk.WriteWhole(globals.pwStreetIni, "[V2BETA]\r\nCellData=D:\\CELLS\r\n");
    const IniReader reader = ProfileReader(disk, globals);
    ReadNames(globals, reader);
    ReadGlobals(globals, reader);
    ReadStreetPaths(globals, reader);
    EXPECT_EQ(globals.G_DataDir, u"D:\\BOOK\\"_s);
    EXPECT_EQ(globals.G_ProgramDir, u"D:\\VC\\"_s);
    EXPECT_EQ(globals.kelDataDir, u"D:\\KEL\\DATA\\"_s);
    EXPECT_EQ(globals.kelAppDir, u"D:\\KEL\\"_s);
    EXPECT_EQ(globals.kelPrivateDir, QString());
    EXPECT_EQ(globals.formsProgram, u"Forms"_s);
    EXPECT_EQ(globals.cellData, u"D:\\CELLS"_s);
    EXPECT_EQ(globals.basePath, u"D:\\VC\\maps"_s);
}

TEST_F(SettingsFileTest, MissingFilesGiveTheDefaults)
{
    ReadGlobals(globals, ProfileReader(disk, globals));
    EXPECT_EQ(globals.G_DataDir, u"C:\\DATABOOK\\"_s);
    EXPECT_EQ(globals.kelDataDir, QString());
}

TEST_F(SettingsFileTest, SaveWritesTheValuesOfTheRunAndNothingElse)
{
    disk.WriteWhole(globals.applicationIni, "; kept\r\n[PREFERENCES]\r\nQUALITY=55\r\n");
    ReadGlobals(globals, Nothing());
    ReadiniSettings(globals, Nothing());
    globals.imageFileNames = u"1"_s;
    globals.imageListBox = u"1"_s;
    globals.radius = 1;
    globals.freeze = 0;
    globals.arrangeArrows = 1;
    globals.labelStreets = true;
    globals.previewCopyPics = 0;
    globals.sortGrid = 4;
    globals.ignorePending = 1;
    globals.lastCopy = u"E:\\"_s;
    globals.G_CaptureDir = u"C:\\CAM\\"_s;
    EXPECT_TRUE(SaveSettings(globals, disk));
    const QString wanted = u"; kept\r\n[PREFERENCES]\r\nQUALITY=55\r\n"_s;
    EXPECT_TRUE(QString::fromLatin1(disk.ReadWhole(globals.applicationIni)).startsWith(wanted));
    EXPECT_EQ(files::ProfileKeys(disk, u"PREFERENCES"_s, globals.applicationIni).size(), 11);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"IMAGEFILENAMES"_s), u"ON"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"IMAGELISTBOX"_s), u"ON"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"RADIUS"_s), u"1"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"FREEZE"_s), u"0"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"ARRANGE"_s), u"1"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"LABELSTREETS"_s), u"1"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"MAPDETAIL"_s), u"3"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"PREVIEWCOPYPICS"_s), u"0"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"SORTGRID"_s), u"4"_s);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"IGNOREPENDING"_s), u"1"_s);
    EXPECT_EQ(files::ProfileKeys(disk, u"COPY DEVICE"_s, globals.applicationIni), QStringList{u"LASTCOPY"_s});
    EXPECT_EQ(Stored(u"COPY DEVICE"_s, u"LASTCOPY"_s), u"E:\\"_s);
    EXPECT_EQ(files::ProfileKeys(disk, u"DIRECTORIES"_s, globals.applicationIni),
              QStringList{u"CAPTUREDIR"_s});
    EXPECT_EQ(Stored(u"DIRECTORIES"_s, u"CAPTUREDIR"_s), u"C:\\CAM\\"_s);
    globals.imageFileNames = u"OFF"_s;
    EXPECT_TRUE(SaveSettings(globals, disk));
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"IMAGEFILENAMES"_s), u"OFF"_s);
}

TEST_F(SettingsFileTest, ATrashDirectoryOnShowIsNotSaved)
{
    ReadGlobals(globals, Nothing());
    globals.captureDirBeforeTrash = u"C:\\CAM\\"_s;
    globals.G_CaptureDir = u"C:\\CAM\\Trashcan\\"_s;
    EXPECT_TRUE(SaveSettings(globals, disk));
    EXPECT_EQ(Stored(u"DIRECTORIES"_s, u"CAPTUREDIR"_s), u"C:\\CAM\\"_s);
}

TEST_F(SettingsFileTest, SavingToADriveThatIsNotThereSaysSo)
{
    globals.applicationIni = u"Q:\\VAS2000.INI"_s;
    EXPECT_FALSE(SaveSettings(globals, disk));
}

TEST_F(SettingsFileTest, OneSettingCanBeFoundCheckedAndWritten)
{
    ReadGlobals(globals, Nothing());
    const SettingRow* quality = FindSetting(u"preferences"_s, u"quality"_s);
    ASSERT_NE(quality, nullptr);
    WriteSetting(*quality, u"75"_s, globals, disk);
    EXPECT_EQ(globals.quality, 75);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"QUALITY"_s), u"75"_s);
    const SettingRow* appDir = FindSetting(u"DIRECTORIES"_s, u"APPDIR"_s);
    WriteSetting(*appDir, u"D:\\VC"_s, globals, disk);
    EXPECT_EQ(Stored(u"DIRECTORIES"_s, u"APPDIR"_s), u"D:\\VC\\"_s);
    EXPECT_EQ(globals.arrowsDir, u"D:\\VC\\arrows\\"_s);
    WriteSetting(*FindSetting(u"PREFERENCES"_s, u"PICDELAY"_s), u"0.5"_s, globals, disk);
    EXPECT_EQ(globals.picDelay, 0.5);
    EXPECT_EQ(Stored(u"PREFERENCES"_s, u"PICDELAY"_s), u".5"_s);
    WriteSetting(*FindSetting(u"PREFERENCES"_s, u"IMAGELISTBOX"_s), u"on"_s, globals, disk);
    EXPECT_EQ(globals.imageListBox, u"ON"_s);
    EXPECT_EQ(FindSetting(u"PREFERENCES"_s, u"NOSUCH"_s), nullptr);
    EXPECT_NE(FindSetting(u"DIRECTORIES"_s, u"DATADIR"_s),
              FindSetting(u"DIRECTORIES"_s, u"DATADIR"_s, IniFile::Kel));
}

struct RefusalRow
{
    const char* key;
    const char* text;
    const char* refusal;
};

TEST_F(SettingsFileTest, BadValuesAreRefusedInWords)
{
    const RefusalRow rows[] = {
        {"QUALITY", "0", "QUALITY must be from 1 to 100, not '0'"},
        {"QUALITY", "101", "QUALITY must be from 1 to 100, not '101'"},
        {"QUALITY", "high", "QUALITY must be a whole number, not 'high'"},
        {"QUALITY", "7.5", "QUALITY must be a whole number, not '7.5'"},
        {"RESOLX", "49", "RESOLX must be from 50 to 1000, not '49'"},
        {"PICDELAY", "10.5", "PICDELAY must be from 0 to 10, not '10.5'"},
        {"PICDELAY", "", "PICDELAY must be a number, not ''"},
        {"PICDELAY", "nan", "PICDELAY must be a number, not 'nan'"},
        {"USESUBJCSZ", "ZIP", "USESUBJCSZ must be one of CS CSZ NONE, not 'ZIP'"},
        {"USESUBJCSZ", "", "USESUBJCSZ must be one of CS CSZ NONE, not ''"},
        {"SORTGRID", "7", "SORTGRID must be from 0 to 6, not '7'"},
        {"REDUX", "2", "REDUX must be 1 (on) or 0 (off), not '2'"},
        {"IMAGELISTBOX", "1", "IMAGELISTBOX must be ON or OFF, not '1'"},
        {"CAPS", "10", "CAPS must be one character, not '10'"},
        {"DATADIR", "databook",
         "DATADIR must be a directory with its drive, such as C:\\DATABOOK, not 'databook'"},
        {"TABLE", "A\nB", "TABLE must be one line of plain text"},
    };
    ReadGlobals(globals, Nothing());
    for (const RefusalRow& row : rows) {
        for (const SettingRow& setting : Settings()) {
            if (setting.file != IniFile::Application || setting.key != QLatin1StringView(row.key))
                continue;
            const QString before = SettingText(setting, globals);
            try {
                WriteSetting(setting, QString::fromLatin1(row.text), globals, disk);
                ADD_FAILURE() << row.key << " took " << row.text;
            } catch (const RuntimeError& failure) {
                EXPECT_EQ(failure.Description().toStdString(), row.refusal);
                EXPECT_EQ(SettingText(setting, globals), before);
            }
        }
    }
    EXPECT_FALSE(disk.FileExists(globals.applicationIni));
}

TEST_F(SettingsFileTest, AnotherProgramsIniIsNeverWritten)
{
    const SettingRow* row = FindSetting(u"DIRECTORIES"_s, u"DATADIR"_s, IniFile::Kel);
    ASSERT_NE(row, nullptr);
    EXPECT_THROW(WriteSetting(*row, u"D:\\X"_s, globals, disk), RuntimeError);
    EXPECT_FALSE(disk.FileExists(globals.kelIni));
}

TEST_F(SettingsFileTest, AFailedWriteLeavesTheGlobal)
{
    globals.applicationIni = u"Q:\\VAS2000.INI"_s;
    try {
        WriteSetting(*FindSetting(u"PREFERENCES"_s, u"QUALITY"_s), u"75"_s, globals, disk);
        ADD_FAILURE() << "written to a drive that is not there";
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kPathFileAccess);
        EXPECT_TRUE(failure.Description().contains(u"Q:\\VAS2000.INI"_s));
    }
    EXPECT_EQ(globals.quality, 90);
}

} // namespace
} // namespace vasclip::common
