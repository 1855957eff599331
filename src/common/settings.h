#pragma once

#include "common/globals.h"
#include "platform/files/disk.h"

#include <QLatin1StringView>
#include <QString>

#include <functional>
#include <optional>
#include <span>
#include <variant>

namespace vasclip::common {

/// The ini files that hold settings. Only the application's own, VAS2000.INI, is ever written.
enum class IniFile { Application, Kel, PwStreet };

/// How the text of an ini value becomes the value of its global.
enum class ReadRule {
    Text,         ///< as it stands
    TrimmedText,  ///< without blanks at its ends
    OneCharacter, ///< its first character
    Directory,    ///< CkRSlash: one backslash at the end
    Integer,      ///< 16 bit, by `Val`; what is no number, or does not fit, is 0
    Long,         ///< 32 bit, likewise
    Seconds,      ///< by `Val`; outside 0 to 10 inclusive it is 0
    OnIfOne,      ///< true for the value 1 exactly
    OnIfNonZero,  ///< true for any value but 0
    OnUnlessOff,  ///< "OFF" for "OFF" in any case, else "ON"
    OffUnlessOn,  ///< "ON" for "ON" in any case, else "OFF"
};

/// Which reading fills the global.
enum class ReadBy {
    Names,   ///< ReadNames, before anything else is known
    Globals, ///< ReadGlobals
    Screen,  ///< ReadiniSettings, which drives controls of the main window
    Streets, ///< ReadStreetPaths, once pwstreet.ini is found
    Nothing, ///< written at exit, read nowhere
};

/// Who writes the key in the course of the program; a sum of these.
enum WrittenBy : unsigned { NoWriter = 0, SettingsScreen = 1, AtExit = 2, AttachCity = 4, CommentDialog = 8 };

/// The text that stands for an absent key: fixed, or taken from what is read already.
struct SettingDefault
{
    QLatin1StringView text;
    QString (*compute)(const Globals&) = nullptr;

    [[nodiscard]] QString Text(const Globals& globals) const
    {
        return compute ? compute(globals) : QString(text);
    }
};

using SettingTarget = std::variant<QString Globals::*, int Globals::*, bool Globals::*, double Globals::*>;

/// What a number may be when a user sets it. Reading does not look at it: a value of the file is taken as it
/// is.
struct SettingRange
{
    double lowest = -32768;
    double highest = 32767;
};

/// One setting. Every key of every ini file stands in one row.
struct SettingRow
{
    IniFile file;
    QLatin1StringView section;
    QLatin1StringView key;
    SettingDefault fallback;
    ReadRule rule;
    SettingTarget target;
    ReadBy readBy;
    unsigned writtenBy = NoWriter;
    SettingRange range = {};
    QLatin1StringView words = {}; ///< that a text may be when a user sets it; "" for any
};

/// All settings in their reading order: a computed default only looks at rows above its own.
[[nodiscard]] std::span<const SettingRow> Settings();

/// Reads one ini value; `fallback` if it is absent.
using IniReader =
    std::function<QString(IniFile file, const QString& section, const QString& key, const QString& fallback)>;

/// Reads from the ini files that `globals` names (applicationIni, kelIni, pwStreetIni). Both must outlive it.
[[nodiscard]] IniReader ProfileReader(const files::Disk& disk, const Globals& globals);

/// The names that messages and captions show: company, program, forms program, map add-on.
void ReadNames(Globals& globals, const IniReader& reader);

/// All directories, devices and preferences. No value is an error: an absent key gives its default, a
/// malformed number 0. Also remembers the capture directory and computes the arrows directory. Never writes.
void ReadGlobals(Globals& globals, const IniReader& reader);

/// RADIUS, FREEZE, IMAGEFILENAMES, IMAGELISTBOX, which drive controls of the main window.
void ReadiniSettings(Globals& globals, const IniReader& reader);

/// CellData and BasePath of pwstreet.ini.
void ReadStreetPaths(Globals& globals, const IniReader& reader);

/// The text that is written for a row: "1" and "0" for truth values, "ON" for "ON" or "1" in memory, and for
/// CAPTUREDIR the remembered directory while the trash directory is on show.
[[nodiscard]] QString SettingText(const SettingRow& row, const Globals& globals);

/// The arrows directory of a program directory.
[[nodiscard]] QString ArrowsDirectory(const QString& programDir);

/// Writes the values of the run (the rows that are written at exit) to VAS2000.INI.
/// @return false if any of them could not be written; the others are written all the same
bool SaveSettings(const Globals& globals, const files::Disk& disk);

/// A row by section and key, without regard to case; nullptr if there is none.
[[nodiscard]] const SettingRow* FindSetting(const QString& section, const QString& key,
                                            IniFile file = IniFile::Application);

/// The row that fills a global; nullptr if none does.
[[nodiscard]] const SettingRow* FindSetting(const SettingTarget& target);

/// Reads a text into the row's global by its reading rule, as if it stood in the ini file.
void TakeSetting(const SettingRow& row, const QString& text, Globals& globals);

/// Why `text` cannot be the value of the row, as a sentence; nullopt if it can.
[[nodiscard]] std::optional<QString> SettingRefusal(const SettingRow& row, const QString& text);

/// Writes the globals of these rows to VAS2000.INI in one replacement of the file, in this order: all of them
/// or, on a failure, none. @throws RuntimeError 75 if the file cannot be written
void WriteSettings(std::span<const SettingTarget> rows, const Globals& globals, const files::Disk& disk);

/// Checks a text, writes it to VAS2000.INI and takes it into the globals.
/// @throws RuntimeError 5 with the refusal as its description (nothing is written), 75 if the file cannot be
/// written (the globals keep the old value)
void WriteSetting(const SettingRow& row, const QString& text, Globals& globals, const files::Disk& disk);

} // namespace vasclip::common
