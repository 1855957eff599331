#pragma once

#include "forms/ports.h"
#include "platform/engine/database.h"

#include <QStringList>

namespace vasclip::comments {
class CommentPort;
}

namespace vasclip::store {
class DataSource;
}

namespace vasclip::databook {

/// What an entry screen works with.
struct EntryDesk
{
    forms::Ports ports;
    engine::Engine& engine;
    QString databook; ///< drive path of the Databook
    QString table;
    QStringList cities = {};                   ///< lines of the city list, "Marlow, WA  98210  Skagit"
    comments::CommentPort* comments = nullptr; ///< without it the phrase keys do nothing
    /// A source that has the Databook open: spares opening it again.
    const store::DataSource* opened = nullptr;
};

/// Shows the entry screen of a comp's type, modally, on the record of its key, and returns when the user has
/// left it.
/// @param apprslType  the type's letter; a blank and every unknown one opens frm_CompMnt1
/// @return true if something was stored, so that whoever shows the record reads it again
bool LoadCompForm(const EntryDesk& desk, const QString& centralKey, const QString& apprslType);

} // namespace vasclip::databook
