#include "platform/engine/text_index.h"

#include "platform/engine/connection.h"
#include "platform/text/runtime_error.h"

#include <QElapsedTimer>

#include <algorithm>
#include <limits>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

constexpr int kGroup = 3; ///< letters that the index knows together
constexpr qint64 kAllRows = std::numeric_limits<qint64>::max();
/// Rows of one transaction while an index is made.
constexpr int kRowsAtOnce = 4000;
constexpr int kNotedAtOnce = 500;

QString IndexName(const QString& table)
{
    return u"vas_text_"_s + table;
}

QString NotedName(const QString& table)
{
    return u"vas_noted_"_s + table;
}

bool HasObject(Connection& connection, const QString& schema, const QString& type, const QString& name)
{
    Query query(connection,
                u"SELECT 1 FROM %1.sqlite_master WHERE type = ?1 AND name = ?2 COLLATE NOCASE"_s.arg(
                    QuoteName(schema)));
    query.Bind(1, type).Bind(2, name);
    return query.Step();
}

/// The groups of the words as the index asks for them; "" if every word is too short.
QString MatchOf(const QStringList& words)
{
    QStringList groups;
    for (const QString& word : words) {
        const QList<uint> letters = word.toUcs4();
        for (qsizetype at = 0; at + kGroup <= letters.size(); ++at) {
            QString group =
                QString::fromUcs4(reinterpret_cast<const char32_t*>(letters.constData()) + at, kGroup);
            group.replace(u'"', u"\"\""_s);
            groups.append(u'"' + group + u'"');
        }
    }
    groups.removeDuplicates();
    return groups.join(u" AND "_s);
}

} // namespace

TextIndex::TextIndex(Connection& connection, const TableDef& table, const QStringList& fields)
    : m_connection(connection)
    , m_table(table.name)
    , m_fields(fields)
    , m_index(IndexName(table.name))
    , m_noted(NotedName(table.name))
{}

QString TextIndex::Columns(const QString& prefix) const
{
    QStringList columns;
    for (const QString& field : m_fields)
        columns.append(prefix + QuoteName(field));
    return columns.join(u", "_s);
}

bool TextIndex::Stands()
{
    if (!HasObject(m_connection, u"main"_s, u"table"_s, u"vas_text"_s) ||
        !HasObject(m_connection, u"main"_s, u"table"_s, m_index) ||
        !HasObject(m_connection, u"main"_s, u"table"_s, m_noted))
        return false;
    for (const QString& part : {u"_added"_s, u"_changed"_s}) {
        if (!HasObject(m_connection, u"main"_s, u"trigger"_s, m_index + part))
            return false;
    }
    Query query(m_connection, u"SELECT fields FROM vas_text WHERE tbl = ?1"_s);
    query.Bind(1, m_table);
    return query.Step() && query.Text(0) == m_fields.join(u'\n');
}

bool TextIndex::Whole()
{
    if (!Stands())
        return false;
    Query query(m_connection, u"SELECT upto FROM vas_text WHERE tbl = ?1"_s);
    query.Bind(1, m_table);
    return query.Step() && query.Integer(0) == kAllRows;
}

void TextIndex::DropOf(Connection& connection, const QString& schema, const QString& table)
{
    const QString index = IndexName(table);
    const QString from = QuoteName(schema) + u'.';
    for (const QString& part : {u"_added"_s, u"_changed"_s})
        connection.Run(u"DROP TRIGGER IF EXISTS "_s + from + QuoteName(index + part));
    connection.Run(u"DROP TABLE IF EXISTS "_s + from + QuoteName(NotedName(table)));
    connection.Run(u"DROP TABLE IF EXISTS "_s + from + QuoteName(index));
    if (HasObject(connection, schema, u"table"_s, u"vas_text"_s)) {
        Query query(connection, u"DELETE FROM %1vas_text WHERE tbl = ?1"_s.arg(from));
        query.Bind(1, table).Run();
    }
}

void TextIndex::Drop()
{
    Writing writing(m_connection);
    DropOf(m_connection, u"main"_s, m_table);
    writing.Commit();
}

void TextIndex::Create()
{
    const QString table = QuoteName(m_table);
    const QString noted = QuoteName(m_noted);
    const QString id = QString::fromUtf16(sql::kIdColumn);
    QStringList differ;
    for (const QString& field : m_fields)
        differ.append(u"old.%1 IS NOT new.%1 COLLATE BINARY"_s.arg(QuoteName(field)));
    const QString note =
        u"INSERT INTO %1 SELECT new.%2 WHERE NOT EXISTS(SELECT 1 FROM %1 WHERE id = new.%2);"_s.arg(noted,
                                                                                                    id);
    DropOf(m_connection, u"main"_s, m_table);
    m_connection.Run(
        u"CREATE TABLE IF NOT EXISTS vas_text(tbl TEXT PRIMARY KEY COLLATE NOCASE, fields TEXT NOT "
        "NULL, upto INTEGER NOT NULL) WITHOUT ROWID"_s);
    // No texts, positions and lengths: they would make it many times as large, and the rows are looked at
    // anyway.
    m_connection.Run(
        u"CREATE VIRTUAL TABLE %1 USING fts5(%2, content='', tokenize=trigram, detail=none, columnsize=0)"_s
            .arg(QuoteName(m_index), Columns({})));
    m_connection.Run(u"CREATE TABLE %1(id INTEGER PRIMARY KEY)"_s.arg(noted));
    m_connection.Run(u"CREATE TRIGGER %1 AFTER INSERT ON %2 BEGIN %3 END"_s.arg(
        QuoteName(m_index + u"_added"_s), table, note));
    m_connection.Run(u"CREATE TRIGGER %1 AFTER UPDATE OF %2 ON %3 WHEN %4 BEGIN %5 END"_s.arg(
        QuoteName(m_index + u"_changed"_s), Columns({}), table, differ.join(u" OR "_s), note));
    Query query(m_connection, u"INSERT INTO vas_text VALUES(?1, ?2, 0)"_s);
    query.Bind(1, m_table).Bind(2, m_fields.join(u'\n')).Run();
}

bool TextIndex::CatchUp()
{
    const QString noted = QuoteName(m_noted);
    {
        Query any(m_connection, u"SELECT 1 FROM %1"_s.arg(noted));
        if (!any.Step())
            return false;
    }
    const QString some =
        u"(SELECT id FROM %1 ORDER BY id LIMIT %2)"_s.arg(noted, QString::number(kNotedAtOnce));
    Writing writing(m_connection);
    m_connection.Run(u"INSERT INTO %1(rowid, %2) SELECT %3, %2 FROM %4 WHERE %3 IN %5"_s.arg(
        QuoteName(m_index), Columns({}), QString::fromUtf16(sql::kIdColumn), QuoteName(m_table), some));
    m_connection.Run(u"DELETE FROM %1 WHERE id IN %2"_s.arg(noted, some));
    writing.Commit();
    return true;
}

bool TextIndex::Make(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    if (!Stands()) {
        Writing writing(m_connection);
        if (!Stands()) // another user may have been quicker
            Create();
        writing.Commit();
    }
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString add = u"INSERT INTO %1(rowid, %2) SELECT %3, %2 FROM %4 WHERE %3 > ?1 AND %3 <= ?2"_s.arg(
        QuoteName(m_index), Columns({}), id, QuoteName(m_table));
    do {
        qint64 upto = 0;
        {
            Query query(m_connection, u"SELECT upto FROM vas_text WHERE tbl = ?1"_s);
            query.Bind(1, m_table);
            if (!query.Step())
                return false;
            upto = query.Integer(0);
        }
        if (upto == kAllRows) {
            if (!CatchUp())
                return true;
            continue;
        }
        Writing writing(m_connection);
        qint64 last = kAllRows;
        {
            Query query(m_connection,
                        u"SELECT max(%1) FROM (SELECT %1 FROM %2 WHERE %1 > ?1 ORDER BY %1 LIMIT %3)"_s.arg(
                            id, QuoteName(m_table), QString::number(kRowsAtOnce)));
            query.Bind(1, upto);
            if (query.Step() && !query.IsNull(0))
                last = query.Integer(0);
        }
        if (last != kAllRows) {
            Query query(m_connection, add);
            query.Bind(1, upto).Bind(2, last).Run();
        }
        {
            Query query(m_connection, u"UPDATE vas_text SET upto = ?2 WHERE tbl = ?1 AND upto < ?2"_s);
            query.Bind(1, m_table).Bind(2, last).Run();
        }
        writing.Commit();
    } while (timer.elapsed() < milliseconds);
    return false;
}

TextHits TextIndex::Walk(const TextSearch& search, const QString& match)
{
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString table = QuoteName(m_table);
    const QString index = QuoteName(m_index);
    const QString noted = QuoteName(m_noted);
    const QString columns = Columns(u"c."_s);
    QElapsedTimer timer;
    timer.start();
    TextHits hits;
    hits.lastId = search.afterId;
    const auto look = [&](Query& query) {
        for (qint64 seen = 0; query.Step(); ++seen) {
            const qint64 row = query.Integer(0);
            bool all = true;
            for (const QString& word : search.words) {
                bool found = false;
                for (int column = 1; column <= m_fields.size() && !found; ++column)
                    found = query.Text(column).contains(word, Qt::CaseInsensitive);
                all = all && found;
            }
            if (all)
                hits.ids.push_back(row);
            hits.lastId = row;
            if (seen % 16 == 15 && timer.elapsed() >= search.milliseconds)
                return false;
        }
        return true;
    };
    if (match.isEmpty()) {
        Query query(m_connection,
                    u"SELECT %1, %2 FROM %3 c WHERE %1 > ?1 ORDER BY %1"_s.arg(id, columns, table));
        query.Bind(1, search.afterId);
        hits.done = look(query);
        return hits;
    }
    // Rows that the index does not know yet stand in their place among those that it does.
    Query query(
        m_connection,
        u"SELECT c.%1, %2 FROM (SELECT rowid AS id FROM %3 WHERE %3 MATCH ?2 AND rowid > ?1 UNION ALL "
        "SELECT n.id FROM %4 n WHERE n.id > ?1 ORDER BY 1) f CROSS JOIN %5 c ON c.%1 = f.id"_s.arg(
            id, columns, index, noted, table));
    query.Bind(1, search.afterId).Bind(2, match);
    hits.done = look(query);
    // A row may be in both.
    hits.ids.erase(std::unique(hits.ids.begin(), hits.ids.end()), hits.ids.end());
    return hits;
}

TextHits TextIndex::Find(const TextSearch& search)
{
    const QString match = MatchOf(search.words);
    if (match.isEmpty() || !Whole())
        return Walk(search, {});
    try {
        return Walk(search, match);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kCorruptDatabase)
            throw;
    }
    // The index can be made again; the records themselves tell what is wrong with them.
    try {
        if (!m_connection.ReadOnly())
            Drop();
    } catch (const RuntimeError&) {
        return Walk(search, {}); // what is damaged that much stays where it is
    }
    return Walk(search, {});
}

} // namespace vasclip::engine
