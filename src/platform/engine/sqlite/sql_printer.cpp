#include "platform/engine/sqlite/sql_printer.h"

#include "platform/engine/sqlite/expression_printer.h"

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

class StatementPrinter
{
public:
    StatementPrinter(const TypedStatement& statement,
                     const std::function<QString(const QString& database)>& schemaOf)
        : m_statement(statement)
        , m_schemaOf(schemaOf)
        , m_from(&statement.from.table)
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
            Target(m_statement.from);
            break;
        }
        return std::move(m_plan);
    }

private:
    QString TableSql(const TableRef& reference) const
    {
        return QuoteName(m_schemaOf(reference.database)) + u'.' + QuoteName(reference.table.name);
    }

    void Target(const TableRef& reference)
    {
        m_plan.table = reference.table;
        m_plan.tableSql = TableSql(reference);
        m_plan.targetSchema = m_schemaOf(reference.database);
    }

    QString Where(ExpressionPrinter& printer, const QStringList& further) const
    {
        QStringList terms;
        if (m_statement.where)
            terms.append(printer.Print(*m_statement.where));
        terms += further;
        return terms.isEmpty() ? QString() : u" WHERE "_s + terms.join(u" AND "_s);
    }

    QString Order(ExpressionPrinter& printer) const
    {
        QStringList terms;
        for (const TypedOrder& order : m_statement.order)
            terms.append(printer.Compared(*order.key, order.key->yield) +
                         (order.descending ? u" DESC"_s : QString()));
        return terms.isEmpty() ? QString() : u" ORDER BY "_s + terms.join(u", "_s);
    }

    QStringList Groups(ExpressionPrinter& printer) const
    {
        QStringList groups;
        for (const TypedColumn& column : m_statement.columns)
            groups.append(printer.Compared(*column.value, column.value->yield));
        return groups;
    }

    void Select()
    {
        Target(m_statement.from);
        m_plan.computed = m_statement.computed;
        m_plan.updatable = m_statement.updatable;
        m_plan.ordered = !m_statement.order.empty();
        m_plan.whole = !m_plan.computed && !m_plan.ordered && !m_statement.distinct && !m_statement.where;
        ExpressionPrinter shown = m_plan.computed ? ExpressionPrinter(m_from, m_plan.bindings, 1)
                                                  : ExpressionPrinter(m_from, m_plan.columnBindings, 2);
        QStringList list;
        for (const TypedColumn& column : m_statement.columns) {
            list.append(shown.Print(*column.value));
            m_plan.columns.append({column.field, column.source, list.back()});
        }
        if (m_plan.computed) {
            m_plan.sql = u"SELECT %1 FROM %2"_s.arg(list.join(u", "_s), m_plan.tableSql) + Where(shown, {});
            return;
        }
        // The groups need the literals of the columns too: in front of those of the condition.
        ExpressionPrinter printer(m_from, m_plan.bindings, 1);
        const QString groups =
            m_statement.distinct ? u" GROUP BY "_s + Groups(printer).join(u", "_s) : QString();
        const QString id = QString::fromUtf16(kIdColumn);
        m_plan.sql =
            u"SELECT %1 FROM %2"_s.arg(m_statement.distinct ? u"min(%1)"_s.arg(id) : id, m_plan.tableSql) +
            Where(printer, {}) + groups + Order(printer);
    }

    void SelectInto()
    {
        Target(m_statement.from);
        m_plan.targetSchema = m_schemaOf(m_statement.into.database);
        m_plan.newTable = m_statement.into.table;
        ExpressionPrinter printer(m_from, m_plan.bindings, 1);
        QStringList names;
        QStringList values;
        for (const TypedColumn& column : m_statement.columns) {
            names.append(QuoteName(column.field.name));
            values.append(printer.Print(*column.value));
        }
        m_plan.sql = u"INSERT INTO %1.%2(%3) SELECT %4%5 FROM %6"_s.arg(
                         QuoteName(m_plan.targetSchema), QuoteName(m_plan.newTable.name), names.join(u", "_s),
                         m_statement.distinct ? u"DISTINCT "_s : QString(), values.join(u", "_s),
                         m_plan.tableSql) +
                     Where(printer, {}) + Order(printer);
    }

    void Insert()
    {
        Target(m_statement.into);
        ExpressionPrinter printer(m_from, m_plan.bindings, 1);
        QStringList names;
        QStringList values;
        for (const TypedAssignment& assignment : m_statement.assignments) {
            names.append(QuoteName(m_plan.table.fields[assignment.field].name));
            values.append(printer.Print(*assignment.value));
        }
        if (m_statement.kind == Statement::Kind::InsertValues) {
            m_plan.sql = u"INSERT INTO %1(%2) VALUES (%3)"_s.arg(m_plan.tableSql, names.join(u", "_s),
                                                                 values.join(u", "_s));
            return;
        }
        QStringList filters;
        for (const TypedPtr& needed : m_statement.needed)
            filters.append(u"%1 IS NOT NULL"_s.arg(printer.Print(*needed)));
        m_plan.sql =
            u"INSERT OR IGNORE INTO %1(%2) SELECT %3%4 FROM %5"_s.arg(
                m_plan.tableSql, names.join(u", "_s), m_statement.distinct ? u"DISTINCT "_s : QString(),
                values.join(u", "_s), TableSql(m_statement.from)) +
            Where(printer, filters) + Order(printer);
    }

    void Update()
    {
        Target(m_statement.from);
        ExpressionPrinter printer(m_from, m_plan.bindings, 1);
        QStringList assignments;
        for (const TypedAssignment& assignment : m_statement.assignments)
            assignments.append(u"%1 = %2"_s.arg(QuoteName(m_plan.table.fields[assignment.field].name),
                                                printer.Print(*assignment.value)));
        m_plan.sql = u"UPDATE %1 SET %2, %3 = %3 + 1"_s.arg(m_plan.tableSql, assignments.join(u", "_s),
                                                            QString::fromUtf16(kVersionColumn)) +
                     Where(printer, {});
    }

    void Delete()
    {
        Target(m_statement.from);
        ExpressionPrinter printer(m_from, m_plan.bindings, 1);
        m_plan.sql = u"DELETE FROM %1"_s.arg(m_plan.tableSql) + Where(printer, {});
    }

    const TypedStatement& m_statement;
    const std::function<QString(const QString& database)>& m_schemaOf;
    const TableDef* m_from;
    Plan m_plan;
};

} // namespace

QString QuoteName(const QString& name)
{
    QString quoted = name;
    quoted.replace(u'"', u"\"\""_s);
    return u'"' + quoted + u'"';
}

Plan Print(const TypedStatement& statement, const std::function<QString(const QString& database)>& schemaOf)
{
    return StatementPrinter(statement, schemaOf).Run();
}

} // namespace vasclip::engine::sql
