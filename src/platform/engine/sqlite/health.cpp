#include "platform/engine/health.h"

#include "platform/engine/sqlite/check.h"
#include "platform/engine/errors.h"
#include "platform/engine/new_file.h"
#include "platform/engine/sqlite/rescue.h"
#include "platform/engine/sqlite/sqlite_database.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Null for a database of another kind, which looks after its own health.
Connection* ConnectionOf(const Database& database)
{
    const auto* native = dynamic_cast<const SqliteDatabase*>(&database);
    return native ? &native->Open() : nullptr;
}

} // namespace

QString DamageOf(const Database& database)
{
    if (const auto* own = dynamic_cast<const SelfChecked*>(&database))
        return own->Damage();
    const Connection* connection = ConnectionOf(database);
    return connection ? connection->Damage() : QString();
}

bool LocksHold(const Database& database)
{
    const auto* native = dynamic_cast<const SqliteDatabase*>(&database);
    return !native || native->LocksHold();
}

QStringList CheckDatabase(Database& database, CheckDepth depth)
{
    if (auto* own = dynamic_cast<SelfChecked*>(&database))
        return own->Check(depth);
    Connection* connection = ConnectionOf(database);
    if (!connection)
        return {};
    const QStringList found = CheckFile(*connection, depth);
    if (!found.isEmpty() && connection->Damage().isEmpty())
        connection->SetDamage(found.first());
    return found;
}

bool TextIndexReads(Database& database, const QString& table)
{
    Connection* connection = ConnectionOf(database);
    return !connection || IndexReads(*connection, table);
}

std::optional<Rescued> CopyReadable(Engine& engine, const QString& source, const QString& target,
                                    const std::function<bool(qint64 records)>& step)
{
    const files::Disk& disk = engine.Disk();
    if (disk.Found(target, files::ReadOnly | files::Hidden))
        throw RuntimeError(error::kDatabaseExists, u"The database %1 already exists"_s.arg(target));
    const auto from = engine.OpenDatabase(source, OpenMode::ReadOnly);
    Connection* connection = ConnectionOf(*from);
    if (!connection)
        throw RuntimeError(error::kInvalidOperation,
                           u"%1 is a database of another kind, which is not copied in this way"_s.arg(source));
    NewFile file(disk.ToNative(target), target);
    std::optional<Rescued> rescued;
    {
        Connection fresh(
            {.nativePath = file.Path(), .shown = target, .time = engine.Time(), .fresh = true});
        rescued = CopyTables(*connection, fresh, step);
    }
    if (!rescued)
        return std::nullopt;
    if (rescued->records == 0 && rescued->lost > 0)
        throw RuntimeError(
            error::kCorruptDatabase,
            u"No record of %1 can be read any more, so nothing was copied. Restore it from a backup"_s.arg(source));
    file.Finish();
    return rescued;
}

} // namespace vasclip::engine
