#pragma once

#include "platform/engine/jet/system_tables.h"
#include "platform/engine/new_file.h"

namespace vasclip::engine::jet {

/// A new genuine file. It lies beside its name until it is finished, and goes away if it never is.
class FileWriter
{
public:
    /// @throws 61, 75, 76
    FileWriter(const QString& native, const QString& shown);

    /// A further table. @throws 3075, 3190, 3010
    TableWriter& AddTable(const TableDef& table);
    [[nodiscard]] TableWriter* Find(const QString& name);
    [[nodiscard]] const std::vector<std::unique_ptr<TableWriter>>& Tables() const { return m_tables; }
    /// Writes the rest and gives the file its name. @throws 61, 75
    void Finish(const QDateTime& now);
    /// Sentences about what the file could not take.
    [[nodiscard]] QStringList Notes() const;

private:
    NewFile m_file;
    PageWriter m_pages;
    MapWriter m_maps;
    SystemTables m_system;
    std::vector<std::unique_ptr<TableWriter>> m_tables;
};

} // namespace vasclip::engine::jet
