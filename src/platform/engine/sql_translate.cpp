#include "platform/engine/sql_translate.h"

#include "platform/engine/errors.h"
#include "platform/engine/sql_expression.h"
#include "platform/engine/sql_lexer.h"
#include "platform/engine/sql_parser.h"
#include "platform/engine/values.h"

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

class Translator
{
public:
    Translator(const QString& text, Catalog& catalog, const QDateTime& now)
        : m_text(text)
        , m_catalog(catalog)
        , m_now(now)
        , m_statement(Parse(text))
    {}

    Plan Run()
    {
        using Kind = Statement::Kind;
        m_plan.kind = m_statement.kind;
        switch (m_statement.kind) {
        case Kind::Select:
            Select();
            break;
        case Kind::SelectInto:
            SelectInto();
            break;
        case Kind::InsertSelect:
        case Kind::InsertValues:
            Insert();
            break;
        case Kind::Update:
            Update();
            break;
        case Kind::Delete:
            Delete();
            break;
        case Kind::Drop:
            m_plan.target = m_statement.from;
            m_plan.targetSchema = m_catalog.Schema(m_statement.from.database);
            if (const TableDef* table = m_catalog.Find(m_statement.from.database, m_statement.from.table))
                m_plan.target.table = table->name;
            else
                throw RuntimeError(error::kTableNotFound,
                                   u"There is no table '%1'%2, so it can not be dropped"_s.arg(
                                       m_statement.from.table, In(m_statement.from)));
            break;
        }
        return std::move(m_plan);
    }

private:
    static QString In(const TableName& name)
    {
        return name.database.isEmpty() ? QString() : u" in %1"_s.arg(name.database);
    }

    const TableDef& FindTable(const TableName& name)
    {
        const TableDef* table = m_catalog.Find(name.database, name.table);
        if (!table)
            throw RuntimeError(
                error::kTableUnknown,
                u"There is no table '%1'%2. Make sure that its name is spelled correctly"_s.arg(name.table,
                                                                                                In(name)));
        return *table;
    }

    QString TableSql(const TableName& name, const TableDef& table)
    {
        return QuoteName(m_catalog.Schema(name.database)) + u'.' + QuoteName(table.name);
    }

    ExpressionTranslator Over(const TableDef* table)
    {
        QStringList names{m_statement.from.table};
        if (!m_statement.alias.isEmpty())
            names.append(m_statement.alias);
        return {m_text, table, names, m_now};
    }

    static Field FieldOf(const Piece& piece, const QString& name)
    {
        Field field;
        field.name = name;
        switch (piece.yield) {
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

    /// The columns of the SELECT list; their literals go where `translator` collects at the moment.
    std::vector<std::pair<OutputColumn, Piece>> Columns(ExpressionTranslator& translator,
                                                        const TableDef& table)
    {
        std::vector<std::pair<OutputColumn, Piece>> columns;
        int unnamed = 0;
        for (const SelectItem& item : m_statement.items) {
            if (item.star) {
                for (int i = 0; i < table.fields.size(); ++i) {
                    const Field& field = table.fields[i];
                    columns.push_back(
                        {{field, i, QuoteName(field.name)}, {QuoteName(field.name), YieldOf(field.type), i}});
                }
                continue;
            }
            Piece piece = translator.Translate(*item.expression);
            OutputColumn column;
            column.source = piece.field;
            column.sql = piece.yield == Yield::Null ? u"NULL"_s : piece.sql;
            if (piece.field >= 0) {
                column.field = table.fields[piece.field];
                if (!item.alias.isEmpty())
                    column.field.name = item.alias;
            } else {
                column.field =
                    FieldOf(piece, item.alias.isEmpty() ? u"Expr%1"_s.arg(1000 + unnamed) : item.alias);
                ++unnamed;
            }
            columns.push_back({std::move(column), std::move(piece)});
        }
        return columns;
    }

    bool Aggregates(const ExpressionTranslator& translator) const
    {
        bool any = false;
        for (const SelectItem& item : m_statement.items)
            any = any || (item.expression && translator.HasAggregate(*item.expression));
        return any;
    }

    QString Where(ExpressionTranslator& translator) const
    {
        if (!m_statement.where)
            return {};
        if (translator.HasAggregate(*m_statement.where))
            ThrowSyntax(m_text, m_statement.where->at, u"a count or sum can not stand in a condition"_s);
        return u" WHERE "_s + translator.Condition(*m_statement.where);
    }

    QString Order(ExpressionTranslator& translator) const
    {
        QStringList terms;
        for (const OrderItem& item : m_statement.order) {
            const Expression* expression = item.expression.get();
            if (expression->kind == Expression::Kind::Column && expression->table.isEmpty()) {
                for (const SelectItem& shown : m_statement.items) {
                    if (!shown.alias.isEmpty() && shown.expression &&
                        shown.alias.compare(expression->text, Qt::CaseInsensitive) == 0)
                        expression = shown.expression.get();
                }
            }
            terms.append(translator.SortKey(*expression) + (item.descending ? u" DESC"_s : QString()));
        }
        return terms.isEmpty() ? QString() : u" ORDER BY "_s + terms.join(u", "_s);
    }

    void Select()
    {
        const TableDef& table = FindTable(m_statement.from);
        m_plan.table = table;
        m_plan.tableSql = TableSql(m_statement.from, table);
        ExpressionTranslator translator = Over(&table);
        m_plan.computed = Aggregates(translator);
        if (m_plan.computed) {
            translator.CollectInto(m_plan.bindings, 1);
        } else {
            translator.CollectInto(m_plan.columnBindings, 2);
        }
        QStringList shown;
        QStringList groups;
        for (auto& [column, piece] : Columns(translator, table)) {
            if (m_plan.computed && column.source >= 0)
                ThrowSyntax(m_text, 0, u"fields and counts can not be mixed in one list"_s);
            shown.append(column.sql);
            groups.append(column.sql + (piece.yield == Yield::Text ? u" COLLATE VAS"_s : QString()));
            m_plan.columns.append(std::move(column));
        }
        m_plan.updatable = !m_plan.computed && !m_statement.distinct;
        m_plan.ordered = !m_statement.order.empty();
        if (m_plan.computed) {
            if (m_statement.distinct || m_plan.ordered)
                ThrowSyntax(m_text, 0, u"a count gives one row, which is neither sorted nor made distinct"_s);
            m_plan.sql = u"SELECT %1 FROM %2"_s.arg(shown.join(u", "_s), m_plan.tableSql) + Where(translator);
            translator.ThrowUnknownNames();
            return;
        }
        if (m_statement.distinct && !m_plan.columnBindings.isEmpty()) {
            // The groups need the same literals: collect them again, in front of those of the condition.
            translator.CollectInto(m_plan.bindings, 1);
            groups.clear();
            for (const auto& [column, piece] : Columns(translator, table))
                groups.append(column.sql + (piece.yield == Yield::Text ? u" COLLATE VAS"_s : QString()));
        } else {
            translator.CollectInto(m_plan.bindings, 1);
        }
        const QString where = Where(translator);
        const QString order = Order(translator);
        translator.ThrowUnknownNames();
        const QString id = QString::fromUtf16(kIdColumn);
        m_plan.sql =
            u"SELECT %1 FROM %2"_s.arg(m_statement.distinct ? u"min(%1)"_s.arg(id) : id, m_plan.tableSql) +
            where + (m_statement.distinct ? u" GROUP BY "_s + groups.join(u", "_s) : QString()) + order;
    }

    /// The value of a piece as a field stores it.
    QString ToField(ExpressionTranslator& translator, const Piece& piece, const TableDef* source,
                    const Field& field, bool mayBeNull)
    {
        QString sql = piece.sql;
        if (piece.yield != Yield::Null) {
            switch (YieldOf(field.type)) {
            case Yield::Text: {
                if (piece.yield == Yield::Binary)
                    ThrowKind(field);
                sql = AsText(piece);
                const Field* from = piece.field >= 0 && source ? &source->fields[piece.field] : nullptr;
                const bool fits = from && from->type == FieldType::Text && from->size <= field.size;
                if (field.type == FieldType::Text && !fits)
                    sql = u"vas_fit(%1, %2, %3)"_s.arg(sql, QString::number(field.size),
                                                       translator.Bind(field.name));
                break;
            }
            case Yield::Number:
                sql = AsNumber(piece);
                if (field.type == FieldType::Byte || field.type == FieldType::Integer ||
                    field.type == FieldType::Long)
                    sql = u"CAST(round(%1) AS INTEGER)"_s.arg(sql);
                break;
            case Yield::Date:
                sql = AsDate(piece);
                break;
            case Yield::Truth:
                sql = AsTruth(piece);
                break;
            default:
                if (piece.yield != Yield::Binary)
                    ThrowKind(field);
                break;
            }
        }
        return mayBeNull ? sql : u"vas_need(%1, %2)"_s.arg(sql, translator.Bind(field.name));
    }

    [[noreturn]] static void ThrowKind(const Field& field)
    {
        throw RuntimeError(error::kConversion, u"The field '%1' holds %2 and can not take this value"_s.arg(
                                                   field.name, TypeName(field.type).toLower()));
    }

    static bool IsKey(const TableDef& table, const Field& field)
    {
        for (const IndexDef& index : table.indexes) {
            if (index.primary && index.fields.contains(field.name, Qt::CaseInsensitive))
                return true;
        }
        return false;
    }

    static int FieldIndex(const TableDef& table, const QString& name)
    {
        for (int i = 0; i < table.fields.size(); ++i) {
            if (table.fields[i].name.compare(name, Qt::CaseInsensitive) == 0)
                return i;
        }
        return -1;
    }

    void SelectInto()
    {
        const TableDef& table = FindTable(m_statement.from);
        m_plan.target = m_statement.into;
        m_plan.targetSchema = m_catalog.Schema(m_statement.into.database);
        if (m_catalog.Find(m_statement.into.database, m_statement.into.table))
            throw RuntimeError(error::kTableExists, u"The table '%1' already exists%2"_s.arg(
                                                        m_statement.into.table, In(m_statement.into)));
        ExpressionTranslator translator = Over(&table);
        if (Aggregates(translator))
            ThrowSyntax(m_text, 0, u"a count can not be stored as a table"_s);
        translator.CollectInto(m_plan.bindings, 1);
        m_plan.newTable.name = m_statement.into.table;
        QStringList names;
        QStringList values;
        for (const auto& [column, piece] : Columns(translator, table)) {
            if (FieldIndex(m_plan.newTable, column.field.name) >= 0)
                throw RuntimeError(
                    error::kFieldDefinedTwice,
                    u"The new table would have two fields of the name '%1'"_s.arg(column.field.name));
            m_plan.newTable.fields.append(column.field);
            names.append(QuoteName(column.field.name));
            values.append(column.sql);
        }
        const QString where = Where(translator);
        const QString order = Order(translator);
        translator.ThrowUnknownNames();
        m_plan.sql = u"INSERT INTO %1.%2(%3) SELECT %4%5 FROM %6"_s.arg(
                         QuoteName(m_plan.targetSchema), QuoteName(m_plan.newTable.name), names.join(u", "_s),
                         m_statement.distinct ? u"DISTINCT "_s : QString(), values.join(u", "_s),
                         TableSql(m_statement.from, table)) +
                     where + order;
    }

    void Insert()
    {
        const bool selects = m_statement.kind == Statement::Kind::InsertSelect;
        m_plan.target = m_statement.into;
        const TableDef& target = FindTable(m_statement.into);
        m_plan.table = target;
        m_plan.tableSql = TableSql(m_statement.into, target);
        const TableDef* source = selects ? &FindTable(m_statement.from) : nullptr;
        ExpressionTranslator translator = Over(source);
        translator.CollectInto(m_plan.bindings, 1);

        std::vector<Piece> pieces;
        QStringList given;
        if (selects) {
            if (Aggregates(translator))
                ThrowSyntax(m_text, 0, u"a count can not be inserted"_s);
            for (auto& [column, piece] : Columns(translator, *source)) {
                given.append(column.field.name);
                pieces.push_back(std::move(piece));
            }
        } else {
            for (const auto& value : m_statement.values)
                pieces.push_back(translator.Translate(*value));
        }
        QStringList wanted;
        for (const Assignment& column : m_statement.columns)
            wanted.append(column.column);
        if (wanted.isEmpty()) {
            wanted = given;
            if (!selects) {
                for (const Field& field : target.fields)
                    wanted.append(field.name);
            }
        }
        if (wanted.size() != static_cast<qsizetype>(pieces.size()))
            throw RuntimeError(error::kValueCount,
                               u"%1 values can not be stored in %2 fields"_s.arg(
                                   QString::number(pieces.size()), QString::number(wanted.size())));
        QStringList names;
        QStringList values;
        QStringList filters;
        for (qsizetype i = 0; i < wanted.size(); ++i) {
            const int index = FieldIndex(target, wanted[i]);
            if (index < 0)
                throw RuntimeError(error::kUnknownInsertField,
                                   u"The table '%1'%2 has no field '%3' to insert into"_s.arg(
                                       target.name, In(m_statement.into), wanted[i]));
            const Field& field = target.fields[index];
            if (names.contains(QuoteName(field.name)))
                throw RuntimeError(error::kFieldDefinedTwice,
                                   u"The field '%1' is inserted into twice"_s.arg(field.name));
            const bool mayBeNull = !field.required && !IsKey(target, field);
            names.append(QuoteName(field.name));
            // A row of a SELECT without its key is left out like a duplicate; one that was written down is an
            // error.
            if (selects && !mayBeNull)
                filters.append(u"%1 IS NOT NULL"_s.arg(pieces[static_cast<std::size_t>(i)].sql));
            values.append(ToField(translator, pieces[static_cast<std::size_t>(i)], source, field,
                                  mayBeNull || selects));
        }
        if (!selects) {
            translator.ThrowUnknownNames();
            m_plan.sql = u"INSERT INTO %1(%2) VALUES (%3)"_s.arg(m_plan.tableSql, names.join(u", "_s),
                                                                 values.join(u", "_s));
            return;
        }
        QString where = Where(translator);
        const QString order = Order(translator);
        translator.ThrowUnknownNames();
        if (!filters.isEmpty())
            where += (where.isEmpty() ? u" WHERE "_s : u" AND "_s) + filters.join(u" AND "_s);
        m_plan.sql =
            u"INSERT OR IGNORE INTO %1(%2) SELECT %3%4 FROM %5"_s.arg(
                m_plan.tableSql, names.join(u", "_s), m_statement.distinct ? u"DISTINCT "_s : QString(),
                values.join(u", "_s), TableSql(m_statement.from, *source)) +
            where + order;
    }

    void Update()
    {
        const TableDef& table = FindTable(m_statement.from);
        m_plan.target = m_statement.from;
        m_plan.table = table;
        m_plan.tableSql = TableSql(m_statement.from, table);
        ExpressionTranslator translator = Over(&table);
        translator.CollectInto(m_plan.bindings, 1);
        QStringList assignments;
        for (const Assignment& assignment : m_statement.columns) {
            Expression column;
            column.kind = Expression::Kind::Column;
            column.text = assignment.column;
            column.at = assignment.at;
            const int index = translator.FindColumn(column);
            const Piece value = translator.Translate(*assignment.value);
            if (index < 0)
                continue;
            const Field& field = table.fields[index];
            assignments.append(
                u"%1 = %2"_s.arg(QuoteName(field.name), ToField(translator, value, &table, field,
                                                                !field.required && !IsKey(table, field))));
        }
        const QString where = Where(translator);
        translator.ThrowUnknownNames();
        const QString version = QString::fromUtf16(kVersionColumn);
        m_plan.sql =
            u"UPDATE %1 SET %2, %3 = %3 + 1"_s.arg(m_plan.tableSql, assignments.join(u", "_s), version) +
            where;
    }

    void Delete()
    {
        const TableDef& table = FindTable(m_statement.from);
        m_plan.target = m_statement.from;
        m_plan.table = table;
        m_plan.tableSql = TableSql(m_statement.from, table);
        ExpressionTranslator translator = Over(&table);
        translator.CollectInto(m_plan.bindings, 1);
        const QString where = Where(translator);
        translator.ThrowUnknownNames();
        m_plan.sql = u"DELETE FROM %1"_s.arg(m_plan.tableSql) + where;
    }

    QString m_text;
    Catalog& m_catalog;
    QDateTime m_now;
    Statement m_statement;
    Plan m_plan;
};

} // namespace

QString QuoteName(const QString& name)
{
    QString quoted = name;
    quoted.replace(u'"', u"\"\""_s);
    return u'"' + quoted + u'"';
}

Plan Translate(const QString& text, Catalog& catalog, const QDateTime& now)
{
    return Translator(text, catalog, now).Run();
}

} // namespace vasclip::engine::sql
