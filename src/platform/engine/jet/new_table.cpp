#include "platform/engine/jet/new_table.h"

#include "platform/engine/errors.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMostColumns = 255;
constexpr int kMostIndexes = 32;
constexpr int kLongestName = 64;
constexpr int kLongestText = 255;
constexpr int kLongestBinary = 255;

void CheckName(const QString& name, const QString& what)
{
    const bool bad = name.isEmpty() || name.size() > kLongestName || name.startsWith(u' ') ||
                     std::any_of(name.begin(), name.end(), [](QChar character) {
                         return character.unicode() < 0x20 || u".![]`"_s.contains(character);
                     });
    const bool wide = what == u"table" && std::any_of(name.begin(), name.end(), [](QChar character) {
                          return character.unicode() > 0xFF;
                      });
    if (bad || wide)
        throw RuntimeError(error::kSyntax, u"'%1' can not be the name of a %2 in an Access database"_s.arg(
                                               name.left(kLongestName), what));
}

NewColumn ColumnOf(const Field& field)
{
    CheckName(field.name, u"field"_s);
    NewColumn column;
    column.name = field.name;
    column.type = static_cast<ColumnType>(field.type);
    switch (field.type) {
    case FieldType::Boolean:
    case FieldType::Byte:
        column.length = 1;
        break;
    case FieldType::Integer:
        column.length = 2;
        break;
    case FieldType::Long:
    case FieldType::Single:
        column.length = 4;
        break;
    case FieldType::Currency:
    case FieldType::Double:
    case FieldType::Date:
        column.length = 8;
        break;
    case FieldType::Binary:
        column.length = field.size > 0 ? field.size : kLongestBinary;
        if (column.length > kLongestBinary) {
            column.type = ColumnType::LongBinary;
            column.length = 0;
        }
        break;
    case FieldType::Text:
        column.compress = true;
        column.length = 2 * field.size;
        if (field.size > kLongestText || field.size <= 0) {
            column.type = ColumnType::Memo;
            column.length = 0;
        }
        break;
    case FieldType::Memo:
        column.compress = true;
        break;
    case FieldType::LongBinary:
        break;
    }
    return column;
}

} // namespace

bool NewColumn::Fixed() const
{
    return type != ColumnType::Binary && type != ColumnType::Text && !Long();
}

void NewTable::Arrange()
{
    int variable = 0;
    int offset = 0;
    for (NewColumn& column : columns) {
        column.variableIndex = variable;
        column.fixedOffset = 0;
        if (!column.Fixed()) {
            ++variable;
        } else if (column.type != ColumnType::Boolean) {
            column.fixedOffset = offset;
            offset += column.length;
        }
    }
}

int NewTable::VariableColumns() const
{
    return static_cast<int>(
        std::count_if(columns.begin(), columns.end(), [](const NewColumn& column) { return !column.Fixed(); }));
}

NewTable NewTableOf(const TableDef& table)
{
    CheckName(table.name, u"table"_s);
    if (table.fields.isEmpty() || table.fields.size() > kMostColumns)
        throw RuntimeError(error::kTooManyFields,
                           u"The table '%1' has %2 fields; a table of an Access database has 1 to 255"_s.arg(
                               table.name, QString::number(table.fields.size())));
    NewTable made;
    made.name = table.name;
    for (const Field& field : table.fields)
        made.columns.append(ColumnOf(field));
    made.Arrange();
    for (const IndexDef& index : table.indexes.mid(0, kMostIndexes)) {
        CheckName(index.name, u"index"_s);
        NewIndex column{index.name, {}, 0x80, index.primary};
        column.marks |= index.primary ? 0x09 : index.unique ? 0x01 : 0x00;
        for (const QString& name : index.fields) {
            const auto found = std::find_if(made.columns.begin(), made.columns.end(), [&](const NewColumn& one) {
                return one.name.compare(name, Qt::CaseInsensitive) == 0;
            });
            if (found == made.columns.end())
                throw RuntimeError(error::kFieldUnknown,
                                   u"There is no field '%1' to index in '%2'"_s.arg(name, table.name));
            column.columns.append(static_cast<int>(found - made.columns.begin()));
        }
        made.indexes.append(column);
    }
    return made;
}

} // namespace vasclip::engine::jet
