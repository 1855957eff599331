#include "platform/engine/sqlite/schema_tables.h"

#include "platform/engine/sqlite/connection.h"
#include "platform/engine/file_kind.h"
#include "platform/engine/sqlite/text_index.h"

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

QString ColumnSql(const Field& field)
{
    const QString name = QuoteName(field.name);
    switch (field.type) {
    case FieldType::Text:
    case FieldType::Memo:
        return name + u" TEXT COLLATE VAS"_s;
    case FieldType::Boolean:
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
        return name + u" INTEGER"_s;
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
    case FieldType::Date:
        return name + u" REAL"_s;
    case FieldType::Binary:
    case FieldType::LongBinary:
        break;
    }
    return name + u" BLOB"_s;
}

void DescribeField(Connection& connection, const QString& schema, const QString& table, qint64 place,
                   const Field& field)
{
    Query query(connection,
                u"INSERT INTO %1.vas_fields VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"_s.arg(QuoteName(schema)));
    query.Bind(1, table)
        .Bind(2, place)
        .Bind(3, field.name)
        .Bind(4, qint64{static_cast<int>(field.type)})
        .Bind(5, qint64{field.size})
        .Bind(6, qint64{field.required})
        .Bind(7, qint64{field.allowZeroLength})
        .Bind(8, qint64{static_cast<int>(field.sortsAs)})
        .Run();
}

TableDef* Find(QList<TableDef>& tables, const QString& name)
{
    for (TableDef& table : tables) {
        if (table.name == name)
            return &table;
    }
    return nullptr;
}

} // namespace

void MakeSchema(Connection& connection)
{
    connection.Run(
        u"PRAGMA application_id=%1; PRAGMA user_version=1;"
        "CREATE TABLE vas_tables(place INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL UNIQUE COLLATE "
        "NOCASE);"
        "CREATE TABLE vas_fields(tbl TEXT NOT NULL, place INTEGER NOT NULL, name TEXT NOT NULL,"
        " type INTEGER NOT NULL, size INTEGER NOT NULL, required INTEGER NOT NULL,"
        " zero_length INTEGER NOT NULL, sorts_as INTEGER NOT NULL, PRIMARY KEY(tbl, place)) WITHOUT ROWID;"
        "CREATE TABLE vas_indexes(tbl TEXT NOT NULL, place INTEGER NOT NULL, name TEXT NOT NULL,"
        " fields TEXT NOT NULL, is_primary INTEGER NOT NULL, is_unique INTEGER NOT NULL,"
        " PRIMARY KEY(tbl, place)) WITHOUT ROWID"_s.arg(kApplicationId));
}

QList<TableDef> ReadSchema(Connection& connection, const QString& schema)
{
    const QString from = QuoteName(schema);
    QList<TableDef> tables;
    {
        Query query(connection, u"SELECT name FROM %1.vas_tables ORDER BY place"_s.arg(from));
        while (query.Step()) {
            TableDef table;
            table.name = query.Text(0);
            tables.append(table);
        }
    }
    {
        Query query(connection,
                    u"SELECT tbl, name, type, size, required, zero_length, sorts_as FROM %1.vas_fields "
                    "ORDER BY tbl, place"_s.arg(from));
        while (query.Step()) {
            if (TableDef* table = Find(tables, query.Text(0))) {
                Field field;
                field.name = query.Text(1);
                field.type = static_cast<FieldType>(query.Integer(2));
                field.size = static_cast<int>(query.Integer(3));
                field.required = query.Integer(4) != 0;
                field.allowZeroLength = query.Integer(5) != 0;
                field.sortsAs = static_cast<SortsAs>(query.Integer(6));
                table->fields.append(field);
            }
        }
    }
    Query query(
        connection,
        u"SELECT tbl, name, fields, is_primary, is_unique FROM %1.vas_indexes ORDER BY tbl, place"_s.arg(
            from));
    while (query.Step()) {
        if (TableDef* table = Find(tables, query.Text(0)))
            table->indexes.append(IndexDef{query.Text(1), query.Text(2).split(u'\n'), query.Integer(3) != 0,
                                           query.Integer(4) != 0});
    }
    return tables;
}

void StoreTable(Connection& connection, const QString& schema, const TableDef& table)
{
    QStringList columns{u"%1 INTEGER PRIMARY KEY AUTOINCREMENT"_s.arg(QString::fromUtf16(sql::kIdColumn)),
                        u"%1 INTEGER NOT NULL DEFAULT 0"_s.arg(QString::fromUtf16(sql::kVersionColumn))};
    // Long binary ones come last, wherever the fields stand: zeros at the end of a row take no memory while it is written.
    for (const bool last : {false, true}) {
        for (const Field& field : table.fields) {
            if ((field.type == FieldType::LongBinary) == last)
                columns.append(ColumnSql(field));
        }
    }
    connection.Run(
        u"CREATE TABLE %1.%2(%3)"_s.arg(QuoteName(schema), QuoteName(table.name), columns.join(u", "_s)));
    {
        Query query(connection, u"INSERT INTO %1.vas_tables(name) VALUES(?1)"_s.arg(QuoteName(schema)));
        query.Bind(1, table.name).Run();
    }
    for (qsizetype i = 0; i < table.fields.size(); ++i)
        DescribeField(connection, schema, table.name, i, table.fields[i]);
    TableDef bare = table;
    bare.indexes.clear();
    for (const IndexDef& index : table.indexes) {
        StoreIndex(connection, schema, bare, index);
        bare.indexes.append(index);
    }
}

void StoreField(Connection& connection, const QString& schema, const TableDef& table, const Field& field)
{
    connection.Run(
        u"ALTER TABLE %1.%2 ADD COLUMN %3"_s.arg(QuoteName(schema), QuoteName(table.name), ColumnSql(field)));
    DescribeField(connection, schema, table.name, table.fields.size(), field);
}

void StoreIndex(Connection& connection, const QString& schema, const TableDef& table, const IndexDef& index)
{
    QStringList columns;
    for (const QString& name : index.fields)
        columns.append(QuoteName(name));
    connection.Run(u"CREATE %1INDEX %2.%3 ON %4(%5)"_s.arg(
        index.primary || index.unique ? u"UNIQUE "_s : QString(), QuoteName(schema),
        QuoteName(table.name + u'.' + index.name), QuoteName(table.name), columns.join(u", "_s)));
    Query query(connection,
                u"INSERT INTO %1.vas_indexes VALUES(?1, ?2, ?3, ?4, ?5, ?6)"_s.arg(QuoteName(schema)));
    query.Bind(1, table.name)
        .Bind(2, qint64{table.indexes.size()})
        .Bind(3, index.name)
        .Bind(4, index.fields.join(u'\n'))
        .Bind(5, qint64{index.primary})
        .Bind(6, qint64{index.primary || index.unique})
        .Run();
}

void DropTable(Connection& connection, const QString& schema, const QString& table)
{
    TextIndex::DropOf(connection, schema, table);
    connection.Run(u"DROP TABLE %1.%2"_s.arg(QuoteName(schema), QuoteName(table)));
    for (const QString& own :
         {u"vas_tables WHERE name"_s, u"vas_fields WHERE tbl"_s, u"vas_indexes WHERE tbl"_s}) {
        Query query(connection, u"DELETE FROM %1.%2 = ?1"_s.arg(QuoteName(schema), own));
        query.Bind(1, table).Run();
    }
}

} // namespace vasclip::engine
