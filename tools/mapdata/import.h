#pragma once

#include "mapdata/account.h"

#include <QString>
#include <QStringList>

namespace vasclip::mapdata {

struct ImportOptions
{
    QStringList sources;
    QString directory;
    QString county; ///< for sources whose names tell none
    QString state; ///< two letters, for such a county
    QString source; ///< words for where the data are from, "" for our own
    QString date; ///< of the data, "" for what the sources tell
    bool beside = false; ///< not in use yet: see street::MapChange::CommitBeside
};

enum class Outcome { Done, Failed, Stopped };

/// Makes the counties of all sources anew and puts them into the directory at once, at the end, or beside its maps.
/// @param problem  why nothing was changed
[[nodiscard]] Outcome Import(const ImportOptions& options, Account& account, QString& problem);

} // namespace vasclip::mapdata
