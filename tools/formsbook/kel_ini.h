#pragma once

#include <QString>

namespace vasclip::formsbook {

using namespace Qt::StringLiterals;

/// Where the forms program is installed, as drive paths.
struct KelPlaces
{
    QString dataDir = u"C:\\KEL\\DATA\\"_s;
    QString privateDir = u"C:\\KEL\\PRIVATE\\"_s;
    QString appDir = u"C:\\KEL\\"_s;
    QString applicationName = u"Korvat Forms"_s;
};

/// The whole of KEL.INI, with CR LF line ends.
///
/// Every page key has a value in each of the four page sections: a key without one would count as found in
/// the first section and lead to no page.
[[nodiscard]] QString KelIniText(const KelPlaces& places = {});

} // namespace vasclip::formsbook
