#pragma once

#include "platform/engine/jet/table.h"

namespace vasclip::engine::jet {

/// What a file holds, by its own list.
struct Catalogue
{
    struct Entry
    {
        QString name;
        quint32 page = 0;   ///< of a table's definition
        QString elsewhere;  ///< where a linked table lies
    };

    QList<Entry> tables;
    QList<Entry> linked;
    QStringList queries;   ///< names of saved ones
    QStringList relations; ///< between tables
    QStringList designs;   ///< "form SALES": what only the old program shows or runs
};

/// @throws Damaged if the list itself can not be read
[[nodiscard]] Catalogue ReadCatalogue(const std::shared_ptr<PageFile>& file,
                                      const std::shared_ptr<Findings>& findings);

} // namespace vasclip::engine::jet
