#pragma once

#include "platform/engine/jet/data_page.h"
#include "platform/engine/jet/findings.h"
#include "platform/engine/jet/long_value.h"
#include "platform/engine/jet/row.h"
#include "platform/engine/types.h"

#include <QVariant>

#include <functional>
#include <memory>

namespace vasclip::engine::jet {

/// A row of a table as it was found.
struct FoundRow
{
    RowPointer home;
    QByteArray page; ///< that `row` looks into
    Row row;
};

/// One table of a genuine file.
class Table
{
public:
    /// @throws Damaged if its definition can not be read
    Table(std::shared_ptr<PageFile> file, std::shared_ptr<Findings> findings, const QString& name, quint32 page);

    [[nodiscard]] const TableDef& Def() const { return m_def; }
    [[nodiscard]] const Definition& Stored() const { return m_definition; }
    /// The column behind a field.
    [[nodiscard]] const Column& ColumnOf(int field) const
    {
        return m_definition.columns[m_columns[static_cast<std::size_t>(field)]];
    }

    /// All rows in the order in which they lie, until the sink answers false. What can't be read is left out and
    /// found.
    void ForEach(const std::function<bool(const FoundRow&)>& sink);
    /// @return nothing for one that is not there or can't be read, which is found
    [[nodiscard]] std::optional<FoundRow> Find(RowPointer home);
    /// A value; Null for one that can't be read, which is found.
    [[nodiscard]] QVariant Value(const FoundRow& row, int field);
    /// Bytes of a long binary value, which is not read; Null for none.
    [[nodiscard]] QVariant SizeOf(const FoundRow& row, int field);
    /// A long binary value, all of which is there; null for none, and for one of which a part is missing, which is found.
    /// @return it does not outlive the table
    [[nodiscard]] std::unique_ptr<LongReader> LongOf(const FoundRow& row, int field);

private:
    [[nodiscard]] std::vector<quint32> Pages();
    [[nodiscard]] bool OwnsPage(quint32 page);
    [[nodiscard]] bool ForEachOn(quint32 page, const std::function<bool(const FoundRow&)>& sink);

    std::shared_ptr<PageFile> m_file;
    std::shared_ptr<Findings> m_findings;
    Definition m_definition;
    TableDef m_def;
    std::vector<qsizetype> m_columns; ///< place among the columns of each field
};

} // namespace vasclip::engine::jet
