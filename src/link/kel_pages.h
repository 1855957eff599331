#pragma once

#include "platform/files/disk.h"

#include <functional>

namespace vasclip::link {

/// Reads one key of KEL.INI; "" for a key that is not there. Sections and keys without regard to case.
using IniReader = std::function<QString(const QString& section, const QString& key)>;

/// A reader of the file; a blank key or path is "".
[[nodiscard]] IniReader ReadsKelIni(const files::Disk& disk, const QString& kelIni);

/// Is the form that `section` names for a page key among the report's forms?
/// A key without a value in the section counts as found, so that it falls into the first section tried; a
/// value also matches a longer code that begins with it.
[[nodiscard]] bool KelFormOnList(const IniReader& ini, const QString& key, const QString& section,
                                 const QString& forms);
/// The section that describes the page for this report, "" if none does.
[[nodiscard]] QString KelPageSection(const IniReader& ini, const QString& key, const QString& forms);
/// The form code that is the page; "" if the report has no such page.
[[nodiscard]] QString KelReturnPage(const IniReader& ini, const QString& key, const QString& forms);
[[nodiscard]] QString KelPageOfSection(const IniReader& ini, const QString& key, const QString& section);
[[nodiscard]] QString KelDescriptionOf(const IniReader& ini, const QString& key);

} // namespace vasclip::link
