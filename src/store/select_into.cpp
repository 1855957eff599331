#include "store/select_into.h"

namespace vasclip::store {

qint64 SelectInto(engine::Engine& engine, const QString& database, const QString& statement)
{
    const std::shared_ptr<engine::Database> open = engine.OpenDatabase(database);
    const qint64 rows = open->Execute(statement);
    open->Close();
    return rows;
}

} // namespace vasclip::store
