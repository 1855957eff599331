#pragma once

#include <QList>
#include <QString>

namespace vasclip::engine {

/// The numbers are the ones that rules compare with ("PHOTOS of type 12").
enum class FieldType {
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
    Memo = 12
};

enum class RecordsetType { Table = 0, Dynaset = 1 };
enum class EditMode { None = 0, InProgress = 1, Add = 2 };

/// How a text field sorts when a statement orders by it. Comparisons with numbers and dates always go by
/// value.
enum class SortsAs { Text = 0, Number = 1, Date = 2 };

/// Identity of a row, stable while the row exists. Opaque: two can be compared, nothing can be learnt from one.
enum class Bookmark : qint64 {};

struct Field
{
    QString name;
    FieldType type = FieldType::Text;
    int size = 0; ///< characters of a text field; 0 for memo and long binary; bytes for the rest
    bool required = false;
    bool allowZeroLength = true;
    SortsAs sortsAs = SortsAs::Text;
};
using FieldList = QList<Field>;

struct IndexDef
{
    QString name;
    QStringList fields;
    bool primary = false;
    bool unique = false;
};

struct TableDef
{
    QString name;
    FieldList fields;
    QList<IndexDef> indexes;
};

} // namespace vasclip::engine
