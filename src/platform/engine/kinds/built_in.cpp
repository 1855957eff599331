// The one place that knows every kind of database; the engine itself knows none.

#include "platform/engine/jet/back_end.h"
#include "platform/engine/sqlite/back_end.h"

namespace vasclip::engine {

std::vector<std::unique_ptr<BackEnd>> BuiltInBackEnds(const files::Disk& disk, OpenForeign openForeign)
{
    std::vector<std::unique_ptr<BackEnd>> backEnds;
    backEnds.push_back(std::make_unique<jet::JetBackEnd>(
        disk, [](const QString& native) { return Connection::HasOpen(native); }));
    backEnds.push_back(std::make_unique<SqliteBackEnd>(disk, std::move(openForeign)));
    return backEnds;
}

} // namespace vasclip::engine
