#pragma once

#include "store/change.h"
#include "store/record.h"

#include <functional>

namespace vasclip::store {

/// Where a record is moved to: a table of another file.
struct MoveTarget
{
    QString file; ///< drive path, another one than the source's
    QString table;
    /// Of both tables, by the names that they have in the source.
    QStringList fields;
    /// What a record that gives way holds in fields of the target's own: its successor gets it.
    std::function<FieldValues()> kept = {};
};

/// What is done with a record of that key that the target has already.
enum class SameKey {
    Leave,   ///< both stay
    Replace, ///< it gives way
};

enum class Moved {
    Done,
    Replaced, ///< in the place of a record that was there
    Gone,     ///< somebody else has deleted it meanwhile
    Changed,  ///< somebody else has changed it meanwhile; nothing was done
    KeyTaken, ///< there is a record of its key in the target; nothing was done
    Refused,  ///< a required field or another index of the target keeps it out; nothing was done
};

/// Moves the record of a key in one transaction over both files: whatever happens, a kill too, it is in one of them
/// and not in the other.
/// @param seen   the record as it was read: another one that bears the key by now is not moved
/// @param fill   long binary values that the record gets on its way
/// @param words  of the step that deletes it here, %1 the key
/// @throws RuntimeError of the engine; both files are as they were then
[[nodiscard]] Moved MoveRecord(DataSource& source, const QString& key, const Record& seen, const MoveTarget& target,
                               SameKey same, const QMap<QString, QByteArray>& fill, const QString& words);

} // namespace vasclip::store
