#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "platform/engine/database.h"

namespace vasclip::comments {

enum class Upgrade {
    NotNeeded,
    Done,
    Declined,   ///< the user is not ready; the old table goes on working
    Locked,     ///< somebody has the file open; told
    Failed,     ///< the fields could not be appended; told, and the old table goes on working
    NoTemplate, ///< there is nothing to compare with; told, and the old table goes on working
};

/// Compares the comment file with the template newdata.mdb (of G_UserDir, else of G_ProgramDir) by the number
/// of fields. If they differ it asks, by SHARE, and on Yes appends the fields that older files lack, all or
/// none, with the file to itself. Nobody may have the file open, this program included.
///
/// The test is on equality: a file with one field more asks too, at each opening. One of Access, or one that can't be
/// written, is not asked about.
/// @throws RuntimeError when the comment file can't be read
Upgrade CheckCommentsDBF(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals,
                         const QString& path);

} // namespace vasclip::comments
