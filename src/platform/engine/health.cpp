#include "platform/engine/health.h"

#include "platform/engine/check.h"
#include "platform/engine/errors.h"
#include "platform/engine/new_file.h"
#include "platform/engine/rescue.h"
#include "platform/engine/sqlite_database.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Every database that the engine hands out is of this kind.
Connection& ConnectionOf(const Database& database)
{
    return dynamic_cast<const SqliteDatabase&>(database).Open();
}

} // namespace

QString DamageOf(const Database& database)
{
    return ConnectionOf(database).Damage();
}

QStringList CheckDatabase(Database& database, CheckDepth depth)
{
    Connection& connection = ConnectionOf(database);
    const QStringList found = CheckFile(connection, depth);
    if (!found.isEmpty() && connection.Damage().isEmpty())
        connection.SetDamage(found.first());
    return found;
}

bool TextIndexReads(Database& database, const QString& table)
{
    return IndexReads(ConnectionOf(database), table);
}

std::optional<Rescued> CopyReadable(Engine& engine, const QString& source, const QString& target,
                                    const std::function<bool(qint64 records)>& step)
{
    const files::Disk& disk = engine.Disk();
    if (disk.Found(target, files::ReadOnly | files::Hidden))
        throw RuntimeError(error::kDatabaseExists, u"The database %1 already exists"_s.arg(target));
    const auto from = engine.OpenDatabase(source, OpenMode::ReadOnly);
    NewFile file(disk.ToNative(target));
    Touch(file.Path(), target);
    std::optional<Rescued> rescued;
    {
        Connection fresh({.nativePath = file.Path(), .shown = target, .fresh = true});
        rescued = CopyTables(ConnectionOf(*from), fresh, step);
    }
    if (!rescued)
        return std::nullopt;
    if (rescued->records == 0 && rescued->lost > 0)
        throw RuntimeError(
            error::kCorruptDatabase,
            u"No record of %1 can be read any more, so nothing was copied. Restore it from a backup"_s.arg(source));
    file.Finish(target);
    return rescued;
}

} // namespace vasclip::engine
