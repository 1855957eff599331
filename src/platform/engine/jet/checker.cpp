#include "platform/engine/jet/checker.h"

namespace vasclip::engine::jet {

void CheckValues(Opening& opening)
{
    for (const Catalogue::Entry& entry : std::as_const(opening.catalogue.tables)) {
        try {
            Table& table = opening.Need(entry.name).Rows();
            table.ForEach([&](const FoundRow& row) {
                for (int field = 0; field < table.Def().fields.size(); ++field)
                    static_cast<void>(table.Value(row, field));
                return true;
            });
        } catch (const RuntimeError&) {
            // a table whose definition is damaged is among the findings already
        }
    }
}

} // namespace vasclip::engine::jet
