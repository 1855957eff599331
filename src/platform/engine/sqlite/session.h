#pragma once

#include "platform/engine/back_end.h"
#include "platform/engine/sqlite/connection.h"

#include <QHash>

#include <memory>
#include <vector>

namespace vasclip::engine {

class SqliteRowStore;

/// What the databases of one engine share: the disk and one connection a file.
struct Workspace
{
    const files::Disk* disk = nullptr;
    const text::TimeSource* time = nullptr;
    std::shared_ptr<Waits> waits = std::make_shared<Waits>(); ///< the engine gives its own
    QHash<QString, std::weak_ptr<Connection>> connections;
    OpenForeign openForeign; ///< of a database that a statement names
};

/// One opening of a database. Row stores hold it, so that it outlives the Database object that made it.
struct Session
{
    QString path;
    OpenMode mode = OpenMode::Shared;
    std::shared_ptr<Workspace> workspace;
    std::unique_ptr<Companion> companion;   ///< goes after the connection
    std::shared_ptr<Connection> connection; ///< null when closed
    std::vector<SqliteRowStore*> stores;

    [[nodiscard]] Connection& Open() const; ///< @throws 3420 when closed
    [[nodiscard]] QString WhyReadOnly() const; ///< a sentence without its full stop
    [[nodiscard]] bool Updatable() const
    {
        return connection && mode != OpenMode::ReadOnly && !connection->ReadOnly();
    }
};

} // namespace vasclip::engine
