#include "platform/engine/copier.h"

#include "platform/engine/database.h"
#include "platform/engine/errors.h"
#include "platform/engine/long_source.h"
#include "platform/engine/row_store.h"
#include "platform/engine/rows_at_once.h"
#include "platform/engine/sql_typer.h"

#include <algorithm>
#include <numeric>

namespace vasclip::engine {

namespace {

/// A column as the target's field stores it; a picture that is copied as it is can be read in pieces.
sql::TypedColumn ColumnOf(const TableDef& source, const Field& field, const sql::TypedPtr& value)
{
    const bool plain = field.type == FieldType::LongBinary && value->kind == sql::Typed::Kind::Column &&
                       source.fields[value->field].type == FieldType::LongBinary;
    return {field, plain ? value->field : -1, value};
}

/// What the source is asked for: the values as the target's fields store them.
sql::TypedStatement SelectOf(const sql::TypedStatement& statement, const TableDef& target)
{
    sql::TypedStatement select;
    select.from = statement.from;
    select.from.database.clear();
    select.distinct = statement.distinct;
    select.updatable = false;
    select.where = statement.where;
    select.order = statement.order;
    const TableDef& from = statement.from.table;
    if (statement.kind == sql::Statement::Kind::SelectInto) {
        for (std::size_t i = 0; i < statement.columns.size(); ++i)
            select.columns.push_back(ColumnOf(from, target.fields[static_cast<qsizetype>(i)], statement.columns[i].value));
        return select;
    }
    for (const sql::TypedAssignment& assignment : statement.assignments)
        select.columns.push_back(ColumnOf(from, target.fields[assignment.field], assignment.value));
    return select;
}

/// The field of the target behind each column that is read.
std::vector<int> Targets(const sql::TypedStatement& statement)
{
    std::vector<int> targets(statement.columns.size());
    std::iota(targets.begin(), targets.end(), 0);
    if (statement.kind == sql::Statement::Kind::InsertSelect) {
        targets.clear();
        for (const sql::TypedAssignment& assignment : statement.assignments)
            targets.push_back(assignment.field);
    }
    return targets;
}

bool LacksKey(const TableDef& table, const RowChanges& values)
{
    const auto isNull = [&](int field) {
        const auto found = values.find(field);
        return found == values.end() || !found->second.isValid();
    };
    for (int i = 0; i < table.fields.size(); ++i) {
        const Field& field = table.fields[i];
        const bool key = std::any_of(table.indexes.begin(), table.indexes.end(), [&](const IndexDef& index) {
            return index.primary && index.fields.contains(field.name, Qt::CaseInsensitive);
        });
        if ((key || field.required) && isNull(i))
            return true;
    }
    return false;
}

} // namespace

qint64 CopyRows(const sql::TypedStatement& statement, Database& source, Database& target)
{
    const bool makes = statement.kind == sql::Statement::Kind::SelectInto;
    Transaction together(target);
    if (makes)
        target.CreateTable(statement.into.table);
    const TableDef table = target.Table(statement.into.table.name);
    const auto rows = source.OpenRows(SelectOf(statement, table));
    const auto store = target.OpenRows(sql::WholeTable(table));
    const FieldList& fields = rows->Shape().fields;
    const std::vector<int> targets = Targets(statement);
    QList<int> all(fields.size());
    std::iota(all.begin(), all.end(), 0);
    std::vector<Bookmark> ids;
    rows->ReadKeys([&ids](std::span<const Bookmark> some) {
        ids.insert(ids.end(), some.begin(), some.end());
        return true;
    });
    qint64 stored = 0;
    RowsAtOnce atOnce;
    for (std::size_t first = 0; first < ids.size();) {
        const std::span some = std::span(ids).subspan(first, std::min(atOnce.Next(), ids.size() - first));
        first += some.size();
        const auto read = rows->Read(some, all, Longs::Sizes);
        atOnce.Saw(read);
        for (std::size_t i = 0; i < some.size(); ++i) {
            if (!read[i])
                continue; // somebody deleted it meanwhile
            RowChanges values;
            for (int place = 0; place < fields.size(); ++place) {
                QVariant value = read[i]->values[place];
                if (fields[place].type == FieldType::LongBinary)
                    value = LongValueOf(*rows, some[i], place, value);
                if (value.isValid())
                    values[targets[static_cast<std::size_t>(place)]] = std::move(value);
            }
            if (!makes && LacksKey(table, values))
                continue;
            try {
                static_cast<void>(store->Insert(values));
                ++stored;
            } catch (const RuntimeError& failure) {
                if (makes || failure.Number() != error::kDuplicateKey)
                    throw;
            }
        }
    }
    together.Commit();
    return stored;
}

} // namespace vasclip::engine
