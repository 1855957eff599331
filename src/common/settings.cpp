#include "common/settings.h"

#include "common/paths.h"
#include "platform/files/profile.h"
#include "platform/text/call_errors.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {

namespace {

constexpr auto kDirectories = "DIRECTORIES"_L1;
constexpr auto kCopyDevice = "COPY DEVICE"_L1;
constexpr auto kPreferences = "PREFERENCES"_L1;
constexpr auto kProgramAlias = "PROGRAM ALIAS"_L1;

constexpr SettingRange kFlag{0, 1};
constexpr SettingRange kPercent{1, 100};
constexpr SettingRange kPixels{50, 1000};
constexpr unsigned kBoth = SettingsScreen | AtExit;

constexpr SettingDefault kFirstDevice{{}, [](const Globals& globals) { return globals.floppy; }};
constexpr SettingDefault kOneOnVista{
    {}, [](const Globals& globals) { return globals.isVista ? u"1"_s : u"0"_s; }};
constexpr SettingDefault kMaps{{}, [](const Globals& globals) { return globals.G_ProgramDir + "maps"_L1; }};

constexpr SettingDefault Text(QLatin1StringView text)
{
    return {text};
}

constexpr SettingRow Name(IniFile file, QLatin1StringView section, QLatin1StringView key,
                          QLatin1StringView fallback, ReadRule rule, QString Globals::*target)
{
    return {file, section, key, Text(fallback), rule, target, ReadBy::Names};
}

constexpr SettingRow Dir(QLatin1StringView key, QLatin1StringView fallback, QString Globals::*target,
                         unsigned writtenBy = SettingsScreen)
{
    return {IniFile::Application, kDirectories, key, Text(fallback), ReadRule::Directory, target,
            ReadBy::Globals,      writtenBy};
}

constexpr SettingRow File(QLatin1StringView key, QLatin1StringView fallback, QString Globals::*target,
                          unsigned writtenBy = NoWriter)
{
    return {IniFile::Application, kDirectories, key, Text(fallback), ReadRule::Text, target,
            ReadBy::Globals,      writtenBy};
}

constexpr SettingRow Device(QLatin1StringView key, SettingDefault fallback, QString Globals::*target,
                            unsigned writtenBy)
{
    return {IniFile::Application, kCopyDevice, key, fallback, ReadRule::Text, target,
            ReadBy::Globals,      writtenBy};
}

constexpr SettingRow Pref(QLatin1StringView key, SettingDefault fallback, ReadRule rule, SettingTarget target,
                          unsigned writtenBy, SettingRange range = {}, ReadBy readBy = ReadBy::Globals)
{
    return {IniFile::Application, kPreferences, key, fallback, rule, target, readBy, writtenBy, range};
}

constexpr SettingRow OneOf(QLatin1StringView key, SettingDefault fallback, QLatin1StringView words,
                           QString Globals::*target, unsigned writtenBy)
{
    SettingRow row = Pref(key, fallback, ReadRule::Text, target, writtenBy);
    row.words = words;
    return row;
}

constexpr SettingRow KelDir(QLatin1StringView key, QString Globals::*target)
{
    return {IniFile::Kel, kDirectories, key, Text(""_L1), ReadRule::Directory, target, ReadBy::Globals};
}

constexpr SettingRow Street(QLatin1StringView key, QString Globals::*target)
{
    return {IniFile::PwStreet, "V2BETA"_L1, key, kMaps, ReadRule::Text, target, ReadBy::Streets};
}

// clang-format off
constexpr SettingRow kSettings[] = {
    Name(IniFile::Application, "PRODUCT INFO"_L1, "COMPANY NAME"_L1, "Ostrand Ltd."_L1, ReadRule::TrimmedText, &Globals::companyName),
    Name(IniFile::Application, "PRODUCT INFO"_L1, "WEBSITE"_L1, ""_L1, ReadRule::TrimmedText, &Globals::website),
    Name(IniFile::Application, kProgramAlias, "Vasclip"_L1, "Vasclip"_L1, ReadRule::TrimmedText, &Globals::productName),
    Name(IniFile::Kel, "VENDOR"_L1, "ApplicationName"_L1, "Korvat Forms"_L1, ReadRule::TrimmedText, &Globals::formsProgram),
    Name(IniFile::Application, kProgramAlias, "Korvat Pointer"_L1, "Korvat Atlas"_L1, ReadRule::Text, &Globals::mapName),

    Dir("APPDIR"_L1, "C:\\VAS2000"_L1, &Globals::G_ProgramDir),
    Dir("USERDIR"_L1, "C:\\VAS2000"_L1, &Globals::G_UserDir),
    Dir("PHOTODIR"_L1, "C:\\VASCLIPS\\JPG"_L1, &Globals::G_PhotoDir),
    Dir("CAPTUREDIR"_L1, "C:\\VASSNAP"_L1, &Globals::G_CaptureDir, kBoth),
    Dir("DATADIR"_L1, "C:\\DATABOOK"_L1, &Globals::G_DataDir),
    File("DATAFILE"_L1, "DATABOOK.MDB"_L1, &Globals::G_DataFile),
    File("TABLE"_L1, "COMPS"_L1, &Globals::G_Table),
    Dir("ARCHIVEDIR"_L1, "C:\\DATABOOK\\ARCHIVE"_L1, &Globals::G_ArchiveDir),
    File("ARCHIVEFILENAME"_L1, "ARCHIVE.MDB"_L1, &Globals::G_ArchiveFile),
    File("ARCHIVETABLE"_L1, "COMPS"_L1, &Globals::G_ArchiveTable),
    Dir("EXPORTDIR"_L1, "C:\\DATABOOK\\EXPORT"_L1, &Globals::G_ExportDir),
    File("EXPORTFILENAME"_L1, "EXPORT.MDB"_L1, &Globals::G_ExportFile),
    File("EXPORTTABLE"_L1, "COMPS"_L1, &Globals::G_ExportTableS),
    Dir("IMPORTDIR"_L1, "C:\\DATABOOK\\IMPORT"_L1, &Globals::G_ImportDir),
    File("IMPORTFILENAME"_L1, "IMPORT.MDB"_L1, &Globals::G_ImportFile),
    File("IMPORTTABLE"_L1, "COMPS"_L1, &Globals::G_ImportTable),
    Dir("MAPDIR"_L1, "C:\\VAM"_L1, &Globals::mapExportDir),
    File("MAPFILE"_L1, "APPRAISAL.MDB"_L1, &Globals::mapExportFile, SettingsScreen),

    Device("FLOPPY"_L1, Text("A:\\"_L1), &Globals::floppy, SettingsScreen),
    Device("ROM"_L1, Text("D:\\"_L1), &Globals::rom, SettingsScreen),
    Device("READER"_L1, Text("C:\\"_L1), &Globals::reader, SettingsScreen),
    Device("LASTCOPY"_L1, kFirstDevice, &Globals::lastCopy, AtExit),

    Pref("PREVIEWCOPYPICS"_L1, Text("1"_L1), ReadRule::Integer, &Globals::previewCopyPics, kBoth, kFlag),
    Pref("IMAGE TYPE"_L1, Text("JPG"_L1), ReadRule::Text, &Globals::imageType, SettingsScreen),
    Pref("TRASHCAN"_L1, Text("1"_L1), ReadRule::Integer, &Globals::trashcan, SettingsScreen, kFlag),
    Pref("AUTOSAVE"_L1, Text("1"_L1), ReadRule::Integer, &Globals::autoSave, SettingsScreen, kFlag),
    Pref("WRITEPROTECTPHOTOS"_L1, Text("1"_L1), ReadRule::OnIfNonZero, &Globals::writeProtectPhotos, SettingsScreen),
    Pref("COPYIMAGES"_L1, Text("1"_L1), ReadRule::Integer, &Globals::copyImages, NoWriter, kFlag),
    Pref("AUTODELETE"_L1, Text("1"_L1), ReadRule::Integer, &Globals::autoDelete, SettingsScreen, kFlag),
    Pref("QUALITY"_L1, Text("90"_L1), ReadRule::Integer, &Globals::quality, SettingsScreen, kPercent),
    Pref("CONTRAST"_L1, Text("0"_L1), ReadRule::Integer, &Globals::contrast, SettingsScreen),
    Pref("BRIGHTNESS"_L1, Text("0"_L1), ReadRule::Integer, &Globals::brightness, SettingsScreen),
    Pref("REDUX"_L1, Text("1"_L1), ReadRule::OnIfOne, &Globals::redux, SettingsScreen),
    Pref("RESOLX"_L1, Text("800"_L1), ReadRule::Long, &Globals::resolX, SettingsScreen, kPixels),
    Pref("RESOLY"_L1, Text("600"_L1), ReadRule::Long, &Globals::resolY, SettingsScreen, kPixels),
    Pref("SHARE"_L1, Text("0"_L1), ReadRule::Integer, &Globals::share, SettingsScreen, kFlag),
    Pref("LOCKADDR"_L1, Text("1"_L1), ReadRule::Integer, &Globals::lockAddr, SettingsScreen, kFlag),
    Pref("CAPS"_L1, Text("1"_L1), ReadRule::OneCharacter, &Globals::caps, SettingsScreen),
    Pref("AUTOADVANCE"_L1, Text("1"_L1), ReadRule::Integer, &Globals::autoAdvance, CommentDialog, kFlag),
    Pref("SORTCOMMENTS"_L1, Text("0"_L1), ReadRule::Integer, &Globals::sortComments, CommentDialog, kFlag),
    Pref("ADDRESSCASE"_L1, Text("2"_L1), ReadRule::Integer, &Globals::addressCase, SettingsScreen, {0, 2}),
    Pref("SORTGRID"_L1, Text("1"_L1), ReadRule::Integer, &Globals::sortGrid, kBoth, {0, 6}),
    Pref("IGNOREPENDING"_L1, Text("0"_L1), ReadRule::Integer, &Globals::ignorePending, kBoth, kFlag),
    OneOf("USESUBJCSZ"_L1, Text("CS"_L1), "CS CSZ NONE"_L1, &Globals::useSubjCsz,
          SettingsScreen | AttachCity),
    Pref("PICDELAY"_L1, Text("0"_L1), ReadRule::Seconds, &Globals::picDelay, SettingsScreen, {0, 10}),
    Pref("TABMASK"_L1, kOneOnVista, ReadRule::OnIfOne, &Globals::tabMask, SettingsScreen),
    Pref("IGNOREZIPCODES"_L1, Text("1"_L1), ReadRule::OnIfNonZero, &Globals::ignoreZipCodes, SettingsScreen),
    Pref("MAPCASE"_L1, Text("0"_L1), ReadRule::OnIfNonZero, &Globals::mapCase, SettingsScreen),
    Pref("MAPDETAIL"_L1, Text("3"_L1), ReadRule::Integer, &Globals::mapDetail, kBoth),
    Pref("MAPQUALITY"_L1, Text("100"_L1), ReadRule::Integer, &Globals::mapQuality, SettingsScreen, kPercent),
    Pref("ARROWCOLOR"_L1, Text("0"_L1), ReadRule::Integer, &Globals::arrowColor, SettingsScreen, {0, 2}),
    Pref("TRANSPARENT"_L1, Text("1"_L1), ReadRule::OneCharacter, &Globals::transparent, SettingsScreen),
    Pref("RADIUS"_L1, Text("0"_L1), ReadRule::Integer, &Globals::radius, AtExit, kFlag, ReadBy::Screen),
    Pref("FREEZE"_L1, Text("0"_L1), ReadRule::Integer, &Globals::freeze, AtExit, kFlag, ReadBy::Screen),
    Pref("ARRANGE"_L1, Text("0"_L1), ReadRule::Integer, &Globals::arrangeArrows, AtExit, kFlag, ReadBy::Screen),
    Pref("IMAGEFILENAMES"_L1, Text("ON"_L1), ReadRule::OnUnlessOff, &Globals::imageFileNames, kBoth, {}, ReadBy::Screen),
    Pref("IMAGELISTBOX"_L1, Text("OFF"_L1), ReadRule::OffUnlessOn, &Globals::imageListBox, kBoth, {}, ReadBy::Screen),
    Pref("LABELSTREETS"_L1, Text(""_L1), ReadRule::OnIfOne, &Globals::labelStreets, AtExit, {}, ReadBy::Nothing),

    KelDir("DATADIR"_L1, &Globals::kelDataDir),
    KelDir("PRIVATEDIR"_L1, &Globals::kelPrivateDir),
    KelDir("APPDIR"_L1, &Globals::kelAppDir),

    Street("CellData"_L1, &Globals::cellData),
    Street("BasePath"_L1, &Globals::basePath),
};
// clang-format on

constexpr double kLongest = 2147483647.0;

/// Half to even, as every conversion to a whole number; 0 for what the kind of number cannot hold.
int WholeNumber(const QString& text, double lowest, double highest)
{
    const double value = std::nearbyint(text::Val(text));
    return value >= lowest && value <= highest ? static_cast<int>(value) : 0;
}

} // namespace

void TakeSetting(const SettingRow& row, const QString& text, Globals& globals)
{
    const auto store = [&](auto value) { globals.*std::get<decltype(value) Globals::*>(row.target) = value; };
    switch (row.rule) {
    case ReadRule::Text:
        return store(text);
    case ReadRule::TrimmedText:
        return store(text::Trim(text));
    case ReadRule::OneCharacter:
        return store(text.left(1));
    case ReadRule::Directory:
        return store(CkRSlash(text));
    case ReadRule::Integer:
        return store(WholeNumber(text, -32768, 32767));
    case ReadRule::Long:
        return store(WholeNumber(text, -kLongest - 1, kLongest));
    case ReadRule::Seconds: {
        const double seconds = text::Val(text);
        return store(seconds >= 0 && seconds <= 10 ? seconds : 0.0);
    }
    case ReadRule::OnIfOne:
        return store(text::Val(text) == 1);
    case ReadRule::OnIfNonZero:
        return store(text::Val(text) != 0);
    case ReadRule::OnUnlessOff:
        return store(text::Folded(text) == "OFF"_L1 ? u"OFF"_s : u"ON"_s);
    case ReadRule::OffUnlessOn:
        return store(text::Folded(text) == "ON"_L1 ? u"ON"_s : u"OFF"_s);
    }
}

namespace {

void ReadRows(ReadBy readBy, Globals& globals, const IniReader& reader)
{
    for (const SettingRow& row : kSettings) {
        if (row.readBy == readBy)
            TakeSetting(row,
                        reader(row.file, QString(row.section), QString(row.key), row.fallback.Text(globals)),
                        globals);
    }
}

QString NumberRefusal(const SettingRow& row, const QString& text, bool whole)
{
    bool readable = false;
    const double value = text::Trim(text).toDouble(&readable);
    if (!readable || !std::isfinite(value) || (whole && value != std::floor(value)))
        return u"%1 must be a %2, not '%3'"_s.arg(row.key, whole ? "whole number"_L1 : "number"_L1, text);
    if (value < row.range.lowest || value > row.range.highest)
        return u"%1 must be from %2 to %3, not '%4'"_s.arg(row.key)
            .arg(row.range.lowest)
            .arg(row.range.highest)
            .arg(text);
    return {};
}

QString Refusal(const SettingRow& row, const QString& text)
{
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 32; }))
        return u"%1 must be one line of plain text"_s.arg(row.key);
    const QString folded = text::Folded(text);
    switch (row.rule) {
    case ReadRule::Text:
    case ReadRule::TrimmedText:
        return row.words.isEmpty() || QString(row.words).split(u' ').contains(folded)
                   ? QString()
                   : u"%1 must be one of %2, not '%3'"_s.arg(row.key, row.words, text);
    case ReadRule::OneCharacter:
        return text::Trim(text).size() == 1 ? QString()
                                            : u"%1 must be one character, not '%2'"_s.arg(row.key, text);
    case ReadRule::Directory: {
        static const QRegularExpression drivePath(u"^[A-Z]:(\\\\|$)"_s);
        return drivePath.match(folded).hasMatch()
                   ? QString()
                   : u"%1 must be a directory with its drive, such as C:\\DATABOOK, not '%2'"_s.arg(row.key,
                                                                                                    text);
    }
    case ReadRule::Integer:
    case ReadRule::Long:
        return NumberRefusal(row, text, true);
    case ReadRule::Seconds:
        return NumberRefusal(row, text, false);
    case ReadRule::OnIfOne:
    case ReadRule::OnIfNonZero:
        return folded == "0"_L1 || folded == "1"_L1
                   ? QString()
                   : u"%1 must be 1 (on) or 0 (off), not '%2'"_s.arg(row.key, text);
    case ReadRule::OnUnlessOff:
    case ReadRule::OffUnlessOn:
        return folded == "ON"_L1 || folded == "OFF"_L1
                   ? QString()
                   : u"%1 must be ON or OFF, not '%2'"_s.arg(row.key, text);
    }
    return {};
}

} // namespace

std::span<const SettingRow> Settings()
{
    return kSettings;
}

IniReader ProfileReader(const files::Disk& disk, const Globals& globals)
{
    return
        [&disk, &globals](IniFile file, const QString& section, const QString& key, const QString& fallback) {
            const QString& path = file == IniFile::Kel        ? globals.kelIni
                                  : file == IniFile::PwStreet ? globals.pwStreetIni
                                                              : globals.applicationIni;
            return files::GetPrivateProfileString(disk, section, key, fallback, path);
        };
}

void ReadNames(Globals& globals, const IniReader& reader)
{
    ReadRows(ReadBy::Names, globals, reader);
}

void ReadGlobals(Globals& globals, const IniReader& reader)
{
    ReadRows(ReadBy::Globals, globals, reader);
    globals.captureDirBeforeTrash = globals.G_CaptureDir;
    globals.arrowsDir = ArrowsDirectory(globals.G_ProgramDir);
}

void ReadiniSettings(Globals& globals, const IniReader& reader)
{
    ReadRows(ReadBy::Screen, globals, reader);
}

void ReadStreetPaths(Globals& globals, const IniReader& reader)
{
    ReadRows(ReadBy::Streets, globals, reader);
}

QString SettingText(const SettingRow& row, const Globals& globals)
{
    if (row.rule == ReadRule::OnUnlessOff || row.rule == ReadRule::OffUnlessOn) {
        const QString& value = globals.*std::get<QString Globals::*>(row.target);
        return value == "ON"_L1 || value == "1"_L1 ? u"ON"_s : u"OFF"_s;
    }
    if (const auto* text = std::get_if<QString Globals::*>(&row.target)) {
        const bool showsTrash = *text == &Globals::G_CaptureDir && IsTrashDirectory(globals.G_CaptureDir);
        return showsTrash ? globals.captureDirBeforeTrash : globals.*(*text);
    }
    if (const auto* number = std::get_if<int Globals::*>(&row.target))
        return text::Dec(globals.*(*number));
    if (const auto* truth = std::get_if<bool Globals::*>(&row.target))
        return globals.*(*truth) ? u"1"_s : u"0"_s;
    return text::Trim(text::Str(globals.*std::get<double Globals::*>(row.target)));
}

QString ArrowsDirectory(const QString& programDir)
{
    return CkRSlash(programDir) + "arrows\\"_L1;
}

bool SaveSettings(const Globals& globals, const files::Disk& disk)
{
    bool all = true;
    for (const SettingRow& row : kSettings) {
        if (row.writtenBy & AtExit)
            all = files::WritePrivateProfileString(disk, QString(row.section), QString(row.key),
                                                   SettingText(row, globals), globals.applicationIni) &&
                  all;
    }
    return all;
}

const SettingRow* FindSetting(const QString& section, const QString& key, IniFile file)
{
    for (const SettingRow& row : kSettings) {
        if (row.file == file && section.compare(row.section, Qt::CaseInsensitive) == 0 &&
            key.compare(row.key, Qt::CaseInsensitive) == 0)
            return &row;
    }
    return nullptr;
}

const SettingRow* FindSetting(const SettingTarget& target)
{
    for (const SettingRow& row : kSettings) {
        if (row.target == target)
            return &row;
    }
    return nullptr;
}

std::optional<QString> SettingRefusal(const SettingRow& row, const QString& text)
{
    if (row.file != IniFile::Application)
        return u"%1 belongs to another program's ini file, which is only read"_s.arg(row.key);
    const QString refusal = Refusal(row, text);
    return refusal.isEmpty() ? std::nullopt : std::optional(refusal);
}

void WriteSettings(std::span<const SettingTarget> rows, const Globals& globals, const files::Disk& disk)
{
    QList<files::ProfileKey> keys;
    for (const SettingTarget& target : rows) {
        const SettingRow* row = FindSetting(target);
        Q_ASSERT(row != nullptr && row->file == IniFile::Application);
        keys.append({QString(row->section), QString(row->key), SettingText(*row, globals)});
    }
    if (!files::WriteProfileKeys(disk, globals.applicationIni, keys))
        throw RuntimeError(
            error::kPathFileAccess,
            u"The settings could not be written to %1. Check that the file is not write-protected"_s.arg(
                globals.applicationIni));
}

void WriteSetting(const SettingRow& row, const QString& text, Globals& globals, const files::Disk& disk)
{
    if (const auto refusal = SettingRefusal(row, text))
        throw RuntimeError(error::kInvalidCall, *refusal);
    Globals changed = globals;
    TakeSetting(row, text, changed);
    changed.arrowsDir = ArrowsDirectory(changed.G_ProgramDir);
    // The text as it was given: while the trash directory is on show, SettingText would write another one.
    const bool number = !std::holds_alternative<QString Globals::*>(row.target);
    const QString written = row.rule == ReadRule::Directory ? CkRSlash(text)
                            : number                        ? SettingText(row, changed)
                                                            : text::Trim(text);
    if (!files::WritePrivateProfileString(disk, QString(row.section), QString(row.key), written,
                                          globals.applicationIni))
        throw RuntimeError(
            error::kPathFileAccess,
            u"%1 could not be written to %2 and stays as it was. Make room on its disk, or get the "
            u"rights to its directory, and try again"_s.arg(row.key, globals.applicationIni));
    globals = changed;
}

} // namespace vasclip::common
