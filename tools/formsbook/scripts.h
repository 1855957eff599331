#pragma once

#include <QList>
#include <QString>

namespace vasclip::formsbook {

/// A script file of the forms program's directory.
struct ScriptFile
{
    QString name;
    QString text; ///< CR LF line ends
};

/// ADDPLUS.BAS, recalc.bas, refresh.bas and CITYPLUS.BAS, in the words that `kelforms` runs.
[[nodiscard]] QList<ScriptFile> Scripts();

} // namespace vasclip::formsbook
