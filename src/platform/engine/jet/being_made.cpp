#include "platform/engine/jet/being_made.h"

#include <QHash>

namespace vasclip::engine::jet {

namespace {

QHash<QString, std::weak_ptr<Database>>& All()
{
    static QHash<QString, std::weak_ptr<Database>> all;
    return all;
}

} // namespace

std::shared_ptr<Database> BeingMade(const QString& native)
{
    return All().value(native).lock();
}

void SetBeingMade(const QString& native, const std::shared_ptr<Database>& database)
{
    if (database)
        All().insert(native, database);
    else
        All().remove(native);
}

} // namespace vasclip::engine::jet
