#pragma once

#include <QString>

namespace vasclip::formsbook {

/// Where the forms program is installed, as drive paths.
struct KelPlaces
{
    QString dataDir = QStringLiteral("C:\\KEL\\DATA\\");
    QString privateDir = QStringLiteral("C:\\KEL\\PRIVATE\\");
    QString appDir = QStringLiteral("C:\\KEL\\");
    QString applicationName = QStringLiteral("Korvat Forms");
};

/// The whole of KEL.INI, with CR LF line ends.
///
/// Every page key has a value in each of the four page sections: a key without one would count as found in
/// the first section and lead to no page.
[[nodiscard]] QString KelIniText(const KelPlaces& places = {});

} // namespace vasclip::formsbook
