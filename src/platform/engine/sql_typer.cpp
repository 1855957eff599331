#include "platform/engine/sql_typer.h"

#include "platform/engine/errors.h"
#include "platform/engine/sql_expression.h"
#include "platform/engine/sql_lexer.h"
#include "platform/engine/sql_parser.h"
#include "platform/engine/values.h"

#include <algorithm>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

QString In(const TableName& name)
{
    return name.database.isEmpty() ? QString() : u" in %1"_s.arg(name.database);
}

int FieldIndex(const FieldList& fields, const QString& name)
{
    for (int i = 0; i < fields.size(); ++i) {
        if (fields[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

bool IsKey(const TableDef& table, const Field& field)
{
    return std::any_of(table.indexes.begin(), table.indexes.end(), [&](const IndexDef& index) {
        return index.primary && index.fields.contains(field.name, Qt::CaseInsensitive);
    });
}

bool MayBeNull(const TableDef& table, const Field& field)
{
    return !field.required && !IsKey(table, field);
}

/// The field that a computed column shows itself as.
Field FieldOf(Yield yield, const QString& name)
{
    Field field;
    field.name = name;
    switch (yield) {
    case Yield::Number:
        field.type = FieldType::Double;
        field.size = 8;
        break;
    case Yield::Date:
        field.type = FieldType::Date;
        field.size = 8;
        break;
    case Yield::Truth:
        field.type = FieldType::Boolean;
        field.size = 1;
        break;
    case Yield::Binary:
        field.type = FieldType::LongBinary;
        break;
    case Yield::Text:
    case Yield::Null:
        field.type = FieldType::Memo;
        break;
    }
    return field;
}

[[noreturn]] void ThrowKind(const Field& field)
{
    throw RuntimeError(error::kConversion, u"The field '%1' holds %2 and can not take this value"_s.arg(
                                               field.name, TypeName(field.type).toLower()));
}

TypedPtr Checked(Typed::Kind kind, const TypedPtr& value, const Field& field)
{
    return std::make_shared<const Typed>(Typed{.kind = kind,
                                               .yield = value->yield,
                                               .size = field.size,
                                               .value = field.name,
                                               .arguments = {value}});
}

/// The value as a field stores it.
/// @param source  the table that a column comes from
TypedPtr ToField(const TypedPtr& value, const TableDef* source, const Field& field)
{
    if (value->yield == Yield::Null)
        return value;
    switch (YieldOf(field.type)) {
    case Yield::Text: {
        if (value->yield == Yield::Binary)
            ThrowKind(field);
        const TypedPtr text = AsText(value);
        const Field* from = value->field >= 0 && source ? &source->fields[value->field] : nullptr;
        const bool fits = from && from->type == FieldType::Text && from->size <= field.size;
        return field.type == FieldType::Text && !fits ? Checked(Typed::Kind::Fit, text, field) : text;
    }
    case Yield::Number: {
        const TypedPtr number = AsNumber(value);
        const bool whole = field.type == FieldType::Byte || field.type == FieldType::Integer ||
                           field.type == FieldType::Long;
        return whole ? Checked(Typed::Kind::Whole, number, field) : number;
    }
    case Yield::Date:
        return AsDate(value);
    case Yield::Truth:
        return AsTruth(value);
    default:
        if (value->yield != Yield::Binary)
            ThrowKind(field);
        return value;
    }
}

class Typer
{
public:
    Typer(const QString& text, Catalog& catalog, const text::TimeSource& time)
        : m_text(text)
        , m_catalog(catalog)
        , m_now(time.Now())
        , m_statement(Parse(text, time))
    {}

    TypedStatement Run()
    {
        using Kind = Statement::Kind;
        m_typed.kind = m_statement.kind;
        m_typed.distinct = m_statement.distinct;
        switch (m_statement.kind) {
        case Kind::Select:
            Select();
            break;
        case Kind::SelectInto:
            SelectInto();
            break;
        case Kind::InsertSelect:
            InsertSelect();
            break;
        case Kind::InsertValues:
            InsertValues();
            break;
        case Kind::Update:
            Update();
            break;
        case Kind::Delete:
            Delete();
            break;
        case Kind::Drop:
            Drop();
            break;
        }
        return std::move(m_typed);
    }

private:
    TableRef Find(const TableName& name)
    {
        const TableDef* table = m_catalog.Find(name.database, name.table);
        if (!table)
            throw RuntimeError(
                error::kTableUnknown,
                u"There is no table '%1'%2. Make sure that its name is spelled correctly"_s.arg(name.table,
                                                                                                In(name)));
        return {name.database, *table};
    }

    ExpressionTyper Over(const TableDef* table)
    {
        QStringList names{m_statement.from.table};
        if (!m_statement.alias.isEmpty())
            names.append(m_statement.alias);
        return {m_text, table, names, m_now};
    }

    void Columns(ExpressionTyper& typer)
    {
        const TableDef& table = m_typed.from.table;
        int unnamed = 0;
        for (const SelectItem& item : m_statement.items) {
            if (item.star) {
                for (int i = 0; i < table.fields.size(); ++i)
                    m_typed.columns.push_back({table.fields[i], i, typer.ColumnNode(i)});
                continue;
            }
            const TypedPtr value = typer.Type(*item.expression);
            TypedColumn column{{}, value->field, value};
            if (value->field >= 0) {
                column.field = table.fields[value->field];
                if (!item.alias.isEmpty())
                    column.field.name = item.alias;
            } else {
                column.field = FieldOf(value->yield, item.alias.isEmpty() ? u"Expr%1"_s.arg(1000 + unnamed)
                                                                          : item.alias);
                ++unnamed;
            }
            m_typed.columns.push_back(std::move(column));
        }
    }

    [[nodiscard]] bool Aggregates() const
    {
        return std::any_of(m_statement.items.begin(), m_statement.items.end(), [](const SelectItem& item) {
            return item.expression && ExpressionTyper::HasAggregate(*item.expression);
        });
    }

    void Where(ExpressionTyper& typer)
    {
        if (!m_statement.where)
            return;
        if (ExpressionTyper::HasAggregate(*m_statement.where))
            ThrowSyntax(m_text, m_statement.where->at, u"a count or sum can not stand in a condition"_s);
        m_typed.where = typer.Condition(*m_statement.where);
    }

    void Order(ExpressionTyper& typer)
    {
        for (const OrderItem& item : m_statement.order) {
            const Expression* expression = item.expression.get();
            if (expression->kind == Expression::Kind::Column && expression->table.isEmpty()) {
                for (const SelectItem& shown : m_statement.items) {
                    if (!shown.alias.isEmpty() && shown.expression &&
                        shown.alias.compare(expression->text, Qt::CaseInsensitive) == 0)
                        expression = shown.expression.get();
                }
            }
            m_typed.order.push_back({typer.SortKey(*expression), item.descending});
        }
    }

    void Select()
    {
        m_typed.from = Find(m_statement.from);
        ExpressionTyper typer = Over(&m_typed.from.table);
        m_typed.computed = Aggregates();
        m_typed.updatable = !m_typed.computed && !m_statement.distinct;
        Columns(typer);
        if (m_typed.computed) {
            const bool mixed = std::any_of(m_typed.columns.begin(), m_typed.columns.end(),
                                           [](const TypedColumn& column) { return column.source >= 0; });
            if (mixed)
                ThrowSyntax(m_text, 0, u"fields and counts can not be mixed in one list"_s);
            if (m_statement.distinct || !m_statement.order.empty())
                ThrowSyntax(m_text, 0, u"a count gives one row, which is neither sorted nor made distinct"_s);
        }
        Where(typer);
        Order(typer);
        typer.ThrowUnknownNames();
    }

    void SelectInto()
    {
        m_typed.from = Find(m_statement.from);
        m_typed.into.database = m_statement.into.database;
        if (m_catalog.Find(m_statement.into.database, m_statement.into.table))
            throw RuntimeError(error::kTableExists, u"The table '%1' already exists%2"_s.arg(
                                                        m_statement.into.table, In(m_statement.into)));
        ExpressionTyper typer = Over(&m_typed.from.table);
        if (Aggregates())
            ThrowSyntax(m_text, 0, u"a count can not be stored as a table"_s);
        TableDef& made = m_typed.into.table;
        made.name = m_statement.into.table;
        Columns(typer);
        for (const TypedColumn& column : m_typed.columns) {
            if (FieldIndex(made.fields, column.field.name) >= 0)
                throw RuntimeError(
                    error::kFieldDefinedTwice,
                    u"The new table would have two fields of the name '%1'"_s.arg(column.field.name));
            made.fields.append(column.field);
        }
        Where(typer);
        Order(typer);
        typer.ThrowUnknownNames();
    }

    /// Pairs the values with the fields of the target that take them.
    void Assign(const std::vector<TypedPtr>& values, const QStringList& wanted)
    {
        const bool selects = m_statement.kind == Statement::Kind::InsertSelect;
        const TableDef& target = m_typed.into.table;
        if (wanted.size() != static_cast<qsizetype>(values.size()))
            throw RuntimeError(error::kValueCount,
                               u"%1 values can not be stored in %2 fields"_s.arg(
                                   QString::number(values.size()), QString::number(wanted.size())));
        for (qsizetype i = 0; i < wanted.size(); ++i) {
            const int index = FieldIndex(target.fields, wanted[i]);
            if (index < 0)
                throw RuntimeError(error::kUnknownInsertField,
                                   u"The table '%1'%2 has no field '%3' to insert into"_s.arg(
                                       target.name, In(m_statement.into), wanted[i]));
            const Field& field = target.fields[index];
            const bool twice = std::any_of(m_typed.assignments.begin(), m_typed.assignments.end(),
                                           [&](const TypedAssignment& other) { return other.field == index; });
            if (twice)
                throw RuntimeError(error::kFieldDefinedTwice,
                                   u"The field '%1' is inserted into twice"_s.arg(field.name));
            const TypedPtr& value = values[static_cast<std::size_t>(i)];
            const bool needed = !MayBeNull(target, field);
            // A row of a SELECT without its key is left out like a duplicate; one that was written down is an
            // error.
            if (selects && needed)
                m_typed.needed.push_back(value);
            TypedPtr stored = ToField(value, selects ? &m_typed.from.table : nullptr, field);
            if (needed && !selects)
                stored = Checked(Typed::Kind::Need, stored, field);
            m_typed.assignments.push_back({index, std::move(stored)});
        }
    }

    [[nodiscard]] QStringList WantedColumns() const
    {
        QStringList wanted;
        for (const Assignment& column : m_statement.columns)
            wanted.append(column.column);
        return wanted;
    }

    void InsertSelect()
    {
        m_typed.into = Find(m_statement.into);
        m_typed.from = Find(m_statement.from);
        ExpressionTyper typer = Over(&m_typed.from.table);
        if (Aggregates())
            ThrowSyntax(m_text, 0, u"a count can not be inserted"_s);
        Columns(typer);
        QStringList given;
        std::vector<TypedPtr> values;
        for (const TypedColumn& column : m_typed.columns) {
            given.append(column.field.name);
            values.push_back(column.value);
        }
        const QStringList wanted = WantedColumns();
        Assign(values, wanted.isEmpty() ? given : wanted);
        Where(typer);
        Order(typer);
        typer.ThrowUnknownNames();
    }

    void InsertValues()
    {
        m_typed.into = Find(m_statement.into);
        ExpressionTyper typer = Over(nullptr);
        std::vector<TypedPtr> values;
        for (const auto& value : m_statement.values)
            values.push_back(typer.Type(*value));
        QStringList wanted = WantedColumns();
        if (wanted.isEmpty()) {
            for (const Field& field : m_typed.into.table.fields)
                wanted.append(field.name);
        }
        Assign(values, wanted);
        typer.ThrowUnknownNames();
    }

    void Update()
    {
        m_typed.from = Find(m_statement.from);
        const TableDef& table = m_typed.from.table;
        ExpressionTyper typer = Over(&table);
        for (const Assignment& assignment : m_statement.columns) {
            Expression column;
            column.kind = Expression::Kind::Column;
            column.text = assignment.column;
            column.at = assignment.at;
            const int index = typer.FindColumn(column);
            const TypedPtr value = typer.Type(*assignment.value);
            if (index < 0)
                continue;
            const Field& field = table.fields[index];
            TypedPtr stored = ToField(value, &table, field);
            if (!MayBeNull(table, field))
                stored = Checked(Typed::Kind::Need, stored, field);
            m_typed.assignments.push_back({index, std::move(stored)});
        }
        Where(typer);
        typer.ThrowUnknownNames();
    }

    void Delete()
    {
        m_typed.from = Find(m_statement.from);
        ExpressionTyper typer = Over(&m_typed.from.table);
        Where(typer);
        typer.ThrowUnknownNames();
    }

    void Drop()
    {
        const TableName& name = m_statement.from;
        const TableDef* table = m_catalog.Find(name.database, name.table);
        if (!table)
            throw RuntimeError(
                error::kTableNotFound,
                u"There is no table '%1'%2, so it can not be dropped"_s.arg(name.table, In(name)));
        m_typed.from = {name.database, *table};
    }

    QString m_text;
    Catalog& m_catalog;
    QDateTime m_now;
    Statement m_statement;
    TypedStatement m_typed;
};

} // namespace

TypedStatement Type(const QString& text, Catalog& catalog, const text::TimeSource& time)
{
    return Typer(text, catalog, time).Run();
}

TypedStatement WholeTable(const TableDef& table)
{
    TypedStatement whole;
    whole.from.table = table;
    const QString none;
    const ExpressionTyper typer(none, &table, {}, {});
    for (int i = 0; i < table.fields.size(); ++i)
        whole.columns.push_back({table.fields[i], i, typer.ColumnNode(i)});
    return whole;
}

} // namespace vasclip::engine::sql
