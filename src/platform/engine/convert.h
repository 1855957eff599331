#pragma once

#include "platform/engine/database.h"

#include <functional>
#include <optional>

namespace vasclip::engine {

enum class DatabaseKind {
    Vasclip,
    Access ///< a genuine file of the old engine
};

/// Makes a database of one kind of all that one of another kind holds.
struct Conversion
{
    QString source{};
    QString target{}; ///< the same one puts the new file in the place of the old one
    DatabaseKind to = DatabaseKind::Vasclip;
    QString keepAs{}; ///< where the old file is kept, byte for byte, when the new one takes its place
    /// What the file itself does not tell of its fields: how their texts sort.
    std::function<void(TableDef&)> complete{};
    /// Told how far it is, within a table; false stops, and nothing was made.
    std::function<bool(const QString& doing, qint64 done, qint64 total)> step{};
    /// Asked when something could not be read or stored; false stops. Without it that is an error.
    std::function<bool(const QStringList& missing)> accept{};
};

struct Converted
{
    QStringList tables;
    qint64 records = 0;
    QStringList missing; ///< by table and record: what could not be read or stored, and why
    QStringList notes;    ///< what the new file has not, a sentence each: an index
    QStringList notTaken; ///< what only the source has, as NotTakenOver names it
};

/// The new file lies beside its name until the number of its records and each of their values have been compared
/// with those of the source, which is only read.
/// @return nullopt if it was stopped
/// @throws 3204 the target is there, 3024 no source, 3001 what was stored is not what was read, as OpenDatabase
std::optional<Converted> ConvertDatabase(Engine& engine, const Conversion& conversion);

} // namespace vasclip::engine
