#pragma once

#include <QString>
#include <QStringList>

namespace vasclip::demo {

/// VAS2000.INI of the demo: every setting with its default, the city list and a few saved general views.
/// Lines end in CR LF.
[[nodiscard]] QString ApplicationIniText();

/// pwstreet.ini of the demo: where its street maps are.
[[nodiscard]] QString StreetIniText();

/// Where the street map is, a drive path with a trailing backslash.
[[nodiscard]] QString MapDirectory();

/// The directories that the settings speak of, as drive paths with a trailing backslash.
[[nodiscard]] QStringList SettingsDirectories();

} // namespace vasclip::demo
