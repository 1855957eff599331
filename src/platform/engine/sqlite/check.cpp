#include "platform/engine/sqlite/check.h"

#include "platform/engine/sqlite/connection.h"
#include "platform/engine/errors.h"

#include <QStringDecoder>

#include <algorithm>
#include <sqlite3.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

/// Pages that are all looked at while a file is opened: about a millisecond.
constexpr qint64 kPagesAtOpening = 128;
constexpr qint64 kPagesInQuiet = 4096;
constexpr int kSamples = 16;
constexpr int kMostFindings = 20;
constexpr int kRowsAtOnce = 2000;

qint64 Number(Connection& connection, const QString& sql)
{
    Query query(connection, sql);
    return query.Step() ? query.Integer(0) : 0;
}

/// The engine's own check of pages, lists and indexes, in its words.
QStringList CheckPages(Connection& connection, const QString& pragma)
{
    QStringList found;
    Query query(connection, u"PRAGMA %1(%2)"_s.arg(pragma, QString::number(kMostFindings)));
    while (query.Step()) {
        for (const QString& line : query.Text(0).split(u'\n')) {
            if (line != u"ok"_s && !line.startsWith(u"***"_s) && found.size() < kMostFindings)
                found.append(line);
        }
    }
    return found;
}

const IndexDef* KeyOf(const TableDef& table)
{
    const auto key = std::find_if(table.indexes.begin(), table.indexes.end(), [](const IndexDef& index) {
        return index.primary && index.fields.size() == 1;
    });
    return key == table.indexes.end() ? nullptr : &*key;
}

/// The texts of a table's rows; long binaries are looked at by their length alone.
QString RowSql(const TableDef& table)
{
    QStringList columns{QString::fromUtf16(sql::kIdColumn)};
    for (const Field& field : table.fields)
        columns.append(field.type == FieldType::LongBinary ? u"length(%1)"_s.arg(QuoteName(field.name))
                                                           : QuoteName(field.name));
    return u"SELECT %1 FROM %2"_s.arg(columns.join(u", "_s), QuoteName(table.name));
}

/// Some records from the first to the last, each looked up again through its key.
QStringList CheckSamples(Connection& connection, const TableDef& table)
{
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString name = QuoteName(table.name);
    const qint64 first = Number(connection, u"SELECT min(%1) FROM %2"_s.arg(id, name));
    const qint64 last = Number(connection, u"SELECT max(%1) FROM %2"_s.arg(id, name));
    const IndexDef* key = KeyOf(table);
    int keyColumn = -1;
    for (int i = 0; key != nullptr && i < table.fields.size(); ++i)
        if (table.fields[i].name.compare(key->fields.first(), Qt::CaseInsensitive) == 0)
            keyColumn = i + 1;
    for (int i = 0; i < kSamples; ++i) {
        Query row(connection, RowSql(table) + u" WHERE %1 >= ?1 ORDER BY %1 LIMIT 1"_s.arg(id));
        row.Bind(1, first + (last - first) * i / (kSamples - 1));
        if (!row.Step())
            break; // somebody has just deleted them
        if (keyColumn < 0 || row.IsNull(keyColumn))
            continue;
        Query again(connection, u"SELECT %1 FROM %2 INDEXED BY %3 WHERE %4 = ?1"_s.arg(
                                    id, name, QuoteName(table.name + u'.' + key->name),
                                    QuoteName(key->fields.first())));
        again.Bind(1, QVariant(row.Text(keyColumn)));
        if (!again.Step() || again.Integer(0) != row.Integer(0))
            return {u"the record %1 is not found by its key"_s.arg(row.Text(keyColumn))};
    }
    return {};
}

bool Fits(sqlite3_stmt* row, int column, FieldType type)
{
    const int stored = sqlite3_column_type(row, column);
    if (stored == SQLITE_NULL)
        return true;
    switch (type) {
    case FieldType::Text:
    case FieldType::Memo: {
        if (stored != SQLITE_TEXT)
            return false;
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = decoder(QByteArrayView(bytes, sqlite3_column_bytes(row, column)));
        return !decoder.hasError();
    }
    case FieldType::Binary:
    case FieldType::LongBinary:
        return stored == SQLITE_BLOB && (sqlite3_column_bytes(row, column) == 0 ||
                                         sqlite3_column_blob(row, column) != nullptr);
    default:
        return stored == SQLITE_INTEGER || stored == SQLITE_FLOAT;
    }
}

/// Every value of every record is read.
QStringList CheckValues(Connection& connection, const TableDef& table)
{
    QStringList found;
    QStringList columns{QString::fromUtf16(sql::kIdColumn)};
    for (const Field& field : table.fields)
        columns.append(QuoteName(field.name));
    // In pieces, so that other users can store between two of them.
    const QString sql = u"SELECT %1 FROM %2 WHERE %3 > ?1 ORDER BY %3 LIMIT %4"_s.arg(
        columns.join(u", "_s), QuoteName(table.name), columns.first(), QString::number(kRowsAtOnce));
    qint64 last = 0;
    for (int rows = kRowsAtOnce; rows == kRowsAtOnce && found.size() < kMostFindings;) {
        Query row(connection, sql);
        row.Bind(1, last);
        for (rows = 0; row.Step(); ++rows) {
            last = row.Integer(0);
            for (int i = 0; i < table.fields.size(); ++i) {
                if (!Fits(row.Statement(), i + 1, table.fields[i].type))
                    found.append(u"%1 of record number %2 in %3 holds what it can not hold"_s.arg(
                        table.fields[i].name, QString::number(last), table.name));
            }
        }
    }
    return found;
}

QStringList Look(Connection& connection, CheckDepth depth)
{
    const qint64 pages = Number(connection, u"PRAGMA page_count"_s);
    const qint64 unused = Number(connection, u"PRAGMA freelist_count"_s);
    if (unused < 0 || unused >= pages)
        return {u"its list of unused pages is longer than the file"_s};
    QStringList found;
    if (depth == CheckDepth::Whole) {
        found = CheckPages(connection, u"integrity_check"_s);
        for (const TableDef& table : QList<TableDef>(connection.Tables()))
            found += CheckValues(connection, table);
        return found;
    }
    const bool small = pages <= (depth == CheckDepth::Quiet ? kPagesInQuiet : kPagesAtOpening);
    if (small)
        return CheckPages(connection, u"quick_check"_s);
    if (depth == CheckDepth::Opening)
        for (const TableDef& table : QList<TableDef>(connection.Tables()))
            found += CheckSamples(connection, table);
    return found;
}

} // namespace

QStringList CheckFile(Connection& connection, CheckDepth depth)
{
    try {
        return Look(connection, depth);
    } catch (const RuntimeError& failure) {
        switch (failure.Number()) {
        case error::kCouldNotReadLocked:
        case error::kDeviceIo:
            throw;
        case error::kCorruptDatabase:
            return {u"not all of its pages can be read"_s};
        default:
            return {failure.Description()};
        }
    }
}

bool IndexReads(Connection& connection, const QString& table)
{
    const QString index = u"vas_text_"_s + table;
    {
        Query query(connection, u"SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?1"_s);
        query.Bind(1, QVariant(index));
        if (!query.Step())
            return true;
    }
    const QString before = connection.Damage();
    bool reads = false;
    try {
        connection.Run(u"CREATE VIRTUAL TABLE temp.vas_words USING fts5vocab('main', '%1', 'row')"_s.arg(
            QString(index).replace(u'\'', u"''"_s)));
        static_cast<void>(Number(connection, u"SELECT count(*) FROM temp.vas_words"_s));
        reads = true;
    } catch (const RuntimeError& failure) {
        if (failure.Number() == error::kCouldNotReadLocked)
            throw;
        connection.SetDamage(before); // it can be made again
    }
    sqlite3_exec(connection.Handle(), "DROP TABLE IF EXISTS temp.vas_words", nullptr, nullptr, nullptr);
    return reads;
}

} // namespace vasclip::engine
