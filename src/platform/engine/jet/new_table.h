#pragma once

#include "platform/engine/jet/definition.h"
#include "platform/engine/types.h"

namespace vasclip::engine::jet {

// A table that is to be written.

struct NewColumn
{
    QString name;
    ColumnType type = ColumnType::Text;
    int length = 0; ///< as stored
    bool compress = false;
    quint8 marks = 0; ///< besides those that follow from the type
    int variableIndex = 0;
    int fixedOffset = 0;

    [[nodiscard]] bool Fixed() const;
    [[nodiscard]] bool Long() const { return type == ColumnType::LongBinary || type == ColumnType::Memo; }
};

constexpr quint8 kUniqueIndex = 0x01;
constexpr quint8 kIgnoresNulls = 0x02;

struct NewIndex
{
    QString name;
    QList<int> columns;
    quint8 marks = 0;
    bool primary = false;

    [[nodiscard]] bool Unique() const { return (marks & kUniqueIndex) != 0; }
    [[nodiscard]] bool IgnoresNulls() const { return (marks & kIgnoresNulls) != 0; }
};

struct NewTable
{
    QString name;
    bool system = false;
    QList<NewColumn> columns;
    QList<NewIndex> indexes;

    /// Gives each column its place in a row.
    void Arrange();
    [[nodiscard]] int VariableColumns() const;
};

/// A table of the engine as such a file can hold it. @throws 3075 a name that it can't hold, 3190 too many fields
[[nodiscard]] NewTable NewTableOf(const TableDef& table);

/// What the definition of a table needs besides its columns.
struct DefinitionFacts
{
    struct IndexFacts
    {
        quint32 keys = 0; ///< distinct ones
        RowPointer map;
        quint32 root = 0;
    };
    struct LongFacts
    {
        RowPointer owned;
        RowPointer withRoom;
    };
    quint32 rows = 0;
    RowPointer owned;
    RowPointer withRoom;
    QList<IndexFacts> indexes; ///< one for each
    QList<LongFacts> longs;    ///< of the long columns, by their number
};

/// The definition in one piece, for PagesOfDefinition to cut.
[[nodiscard]] QByteArray DefinitionBlock(const NewTable& table, const DefinitionFacts& facts);
/// @param pages  that it may use, the first one being the table's
/// @return as many pages as it needs
[[nodiscard]] QList<QByteArray> PagesOfDefinition(const QByteArray& block, const QList<quint32>& pages);
/// Pages that a definition of that many bytes needs.
[[nodiscard]] int PageCountOf(qsizetype block);

} // namespace vasclip::engine::jet
