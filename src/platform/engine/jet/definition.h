#pragma once

#include "platform/engine/jet/page_file.h"

#include <QList>
#include <QString>

namespace vasclip::engine::jet {

/// The types of columns, as they are stored.
enum class ColumnType : quint8 {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    LongBinary = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16
};

struct Column
{
    QString name;
    ColumnType type = ColumnType::Text;
    int number = 0;        ///< its place in a row's mask of Nulls
    int variableIndex = 0; ///< its place among the values of variable length
    bool fixed = false;
    int fixedOffset = 0;
    int length = 0;
    quint32 sorting = 0; ///< language, then version of its order
    int precision = 0;
    int scale = 0;
};

struct KeyColumn
{
    int number = 0;
    bool descending = false;
};

struct Index
{
    QString name;
    QList<KeyColumn> columns;
    bool primary = false;
    bool relation = false;
    bool unique = false;
    bool ignoresNulls = false;
    int real = 0; ///< several may share a stored one
    quint32 root = 0;
    RowPointer map;
};

/// The pages of one column of long values.
struct LongMap
{
    int column = 0;
    RowPointer owned;
};

/// What a table is made of.
struct Definition
{
    quint32 page = 0;
    QList<quint32> pages; ///< that it lies on
    quint32 rows = 0;     ///< as it says; wrong after a crash
    int variableColumns = 0;
    QList<Column> columns; ///< by their number
    QList<Index> indexes;
    RowPointer owned;
    QList<LongMap> longs;

    [[nodiscard]] const Column* ColumnOf(int number) const;
};

/// @throws Damaged
[[nodiscard]] Definition ReadDefinition(PageFile& file, quint32 page);

} // namespace vasclip::engine::jet
