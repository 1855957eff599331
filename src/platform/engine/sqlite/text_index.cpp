#include "platform/engine/sqlite/text_index.h"

#include "platform/engine/sqlite/check.h"
#include "platform/engine/sqlite/connection.h"
#include "platform/text/runtime_error.h"

#include <QElapsedTimer>
#include <QHash>

#include <algorithm>
#include <limits>
#include <sqlite3.h>
#include <utility>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

constexpr int kGroup = 3; ///< letters that the index knows together
constexpr qint64 kAllRows = std::numeric_limits<qint64>::max();
constexpr int kTotals = 1;    ///< the record in which an index counts its words
constexpr int kSegments = 10; ///< that in which it lists its segments
/// Rows of one transaction while an index is made: as many as its slice has time for.
constexpr int kFewestAtOnce = 200;
constexpr int kMostAtOnce = 4000;
constexpr int kNotedAtOnce = 200;

const QString kStates = u"vas_texts"_s; ///< the table of what there is

QString IndexName(const QString& table)
{
    return u"vas_text_"_s + table;
}

QString NotedName(const QString& table)
{
    return u"vas_noted_"_s + table;
}

QString KnownName(const QString& table)
{
    return u"vas_known_"_s + table;
}

const QStringList kTriggers{u"_added"_s, u"_changed"_s};

/// The statements that made the tables and triggers of a file, by folded name.
QHash<QString, QString> Objects(Connection& connection, const QString& schema)
{
    QHash<QString, QString> objects;
    Query query(connection,
                u"SELECT name, sql FROM %1.sqlite_master WHERE type IN ('table', 'trigger')"_s.arg(
                    QuoteName(schema)));
    while (query.Step())
        objects.insert(query.Text(0).toUpper(), query.Text(1));
    return objects;
}

/// Lets statements of the engine's own write the tables in which SQLite keeps an index.
class Undefended
{
public:
    explicit Undefended(Connection& connection)
        : m_handle(connection.Handle())
    {
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    }
    ~Undefended() { sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr); }
    Undefended(const Undefended&) = delete;
    Undefended& operator=(const Undefended&) = delete;

private:
    sqlite3* m_handle;
};

/// The tables in which SQLite keeps a full-text index, as of an empty one: without them, or with nonsense in
/// them, it could not even be dropped.
void MakeShadows(Connection& connection, const QString& from, const QString& index)
{
    const Undefended undefended(connection);
    const QString create = u"CREATE TABLE IF NOT EXISTS "_s + from;
    connection.Run(create + QuoteName(index + u"_data"_s) + u"(id INTEGER PRIMARY KEY, block BLOB)"_s);
    connection.Run(create + QuoteName(index + u"_idx"_s) +
                   u"(segid, term, pgno, PRIMARY KEY(segid, term)) WITHOUT ROWID"_s);
    connection.Run(create + QuoteName(index + u"_config"_s) + u"(k PRIMARY KEY, v) WITHOUT ROWID"_s);
    const QString replace = u"INSERT OR REPLACE INTO "_s + from;
    connection.Run(replace + QuoteName(index + u"_config"_s) + u" VALUES('version', 4)"_s);
    connection.Run(
        replace + QuoteName(index + u"_data"_s) +
        u" VALUES(%1, x''), (%2, zeroblob(7))"_s.arg(QString::number(kTotals), QString::number(kSegments)));
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
    , m_check(connection.CheckOf(table.name))
    , m_table(table.name)
    , m_fields(fields)
    , m_index(IndexName(table.name))
    , m_noted(NotedName(table.name))
    , m_known(KnownName(table.name))
{}

QString TextIndex::Columns(const QString& prefix) const
{
    QStringList columns;
    for (const QString& field : m_fields)
        columns.append(prefix + QuoteName(field));
    return columns.join(u", "_s);
}

QString TextIndex::TriggerSql(const QString& part) const
{
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString note =
        u"INSERT INTO %1 SELECT new.%2 WHERE NOT EXISTS(SELECT 1 FROM %1 WHERE id = new.%2);"_s.arg(
            QuoteName(m_noted), id);
    const QString create = u"CREATE TRIGGER "_s + QuoteName(m_index + part);
    if (part == kTriggers[0])
        return create + u" AFTER INSERT ON %1 BEGIN %2 END"_s.arg(QuoteName(m_table), note);
    QStringList differ;
    for (const QString& field : m_fields)
        differ.append(u"old.%1 IS NOT new.%1 COLLATE BINARY"_s.arg(QuoteName(field)));
    return create + u" AFTER UPDATE OF %1 ON %2 WHEN %3 BEGIN %4 END"_s.arg(Columns({}), QuoteName(m_table),
                                                                            differ.join(u" OR "_s), note);
}

TextIndex::Standing TextIndex::Look()
{
    const QHash<QString, QString> objects = Objects(m_connection, u"main"_s);
    if (!objects.contains(kStates.toUpper()))
        return Standing::Missing;
    bool parts = true;
    for (const QString& name :
         {m_index, m_index + u"_data"_s, m_index + u"_idx"_s, m_index + u"_config"_s, m_noted, m_known})
        parts = parts && objects.contains(name.toUpper());
    for (const QString& trigger : kTriggers)
        parts = parts && objects.value((m_index + trigger).toUpper()) == TriggerSql(trigger);
    // One statement, so that what another user writes between two of them can not look like damage.
    Query query(m_connection,
                parts ? u"SELECT fields, upto, stamp IS (SELECT block FROM %1 WHERE id = %2) FROM %3 WHERE "
                        "tbl = ?1"_s.arg(QuoteName(m_index + u"_data"_s), QString::number(kSegments), kStates)
                      : u"SELECT fields, upto, 0 FROM %1 WHERE tbl = ?1"_s.arg(kStates));
    query.Bind(1, m_table);
    if (!query.Step() || query.Text(0) != m_fields.join(u'\n'))
        return Standing::Missing;
    if (query.Integer(2) == 0)
        return Standing::Damaged;
    return query.Integer(1) == kAllRows ? Standing::Whole : Standing::Partial;
}

void TextIndex::DropOf(Connection& connection, const QString& schema, const QString& table)
{
    const QString index = IndexName(table);
    const QString from = QuoteName(schema) + u'.';
    const QHash<QString, QString> objects = Objects(connection, schema);
    for (const QString& part : kTriggers)
        connection.Run(u"DROP TRIGGER IF EXISTS "_s + from + QuoteName(index + part));
    for (const QString& name : {NotedName(table), KnownName(table)})
        connection.Run(u"DROP TABLE IF EXISTS "_s + from + QuoteName(name));
    if (objects.contains(index.toUpper())) {
        MakeShadows(connection, from, index);
        connection.Run(u"DROP TABLE "_s + from + QuoteName(index));
    } else {
        const Undefended undefended(connection);
        for (const QString& part : {u"_data"_s, u"_idx"_s, u"_config"_s})
            connection.Run(u"DROP TABLE IF EXISTS "_s + from + QuoteName(index + part));
    }
    if (objects.contains(kStates.toUpper())) {
        Query query(connection, u"DELETE FROM %1%2 WHERE tbl = ?1"_s.arg(from, kStates));
        query.Bind(1, table).Run();
    }
}

void TextIndex::Sweep(Connection& connection)
{
    try {
        const QHash<QString, QString> objects = Objects(connection, u"main"_s);
        std::vector<std::pair<QString, QString>> stated;
        if (objects.contains(kStates.toUpper())) {
            Query query(connection, u"SELECT tbl, fields FROM "_s + kStates);
            while (query.Step())
                stated.emplace_back(query.Text(0), query.Text(1));
        }
        for (const auto& [name, fields] : stated) {
            const TableDef* table = connection.FindTable(name);
            if (table == nullptr)
                continue;
            TextIndex index(connection, *table, fields.split(u'\n'));
            if (index.Look() != Standing::Damaged || !CheckFile(connection, CheckDepth::Opening).isEmpty())
                continue; // a file that is damaged elsewhere is not written any more
            index.Drop();
            index.m_check.trouble = TextIndexTrouble::Damaged;
        }
        const QList<TableDef> tables = connection.Tables(); // read again when one is dropped
        for (const TableDef& table : tables) {
            const bool known = std::any_of(stated.begin(), stated.end(), [&](const auto& state) {
                return state.first.compare(table.name, Qt::CaseInsensitive) == 0;
            });
            const bool left = std::any_of(kTriggers.begin(), kTriggers.end(), [&](const QString& part) {
                return objects.contains((IndexName(table.name) + part).toUpper());
            });
            if (left && !known)
                TextIndex(connection, table, {}).Drop();
        }
    } catch (const RuntimeError&) {
        return; // in use by others, or damaged beyond its indexes: whoever reads or writes it is told
    }
}

void TextIndex::Drop()
{
    Writing writing(m_connection);
    DropOf(m_connection, u"main"_s, m_table);
    writing.Commit();
}

void TextIndex::Anew(TextIndexTrouble trouble)
{
    Writing writing(m_connection);
    const Standing now = Look();
    if (now == Standing::Missing || now == Standing::Damaged) // another user may have been quicker
        Create();
    writing.Commit();
    m_check = {};
    m_check.trouble = trouble;
}

void TextIndex::Create()
{
    DropOf(m_connection, u"main"_s, m_table);
    m_connection.Run(u"CREATE TABLE IF NOT EXISTS %1(tbl TEXT PRIMARY KEY COLLATE NOCASE, fields TEXT NOT "
                     "NULL, upto INTEGER NOT NULL, stamp BLOB) WITHOUT ROWID"_s.arg(kStates));
    // No texts, positions and lengths: they would make it many times as large, and the rows are looked at
    // anyway.
    m_connection.Run(
        u"CREATE VIRTUAL TABLE %1 USING fts5(%2, content='', tokenize=trigram, detail=none, columnsize=0)"_s
            .arg(QuoteName(m_index), Columns({})));
    m_connection.Run(u"CREATE TABLE %1(id INTEGER PRIMARY KEY)"_s.arg(QuoteName(m_noted)));
    m_connection.Run(
        u"CREATE TABLE %1(id INTEGER PRIMARY KEY, sum INTEGER NOT NULL)"_s.arg(QuoteName(m_known)));
    for (const QString& part : kTriggers)
        m_connection.Run(TriggerSql(part));
    {
        Query query(m_connection, u"INSERT INTO %1 VALUES(?1, ?2, 0, NULL)"_s.arg(kStates));
        query.Bind(1, m_table).Bind(2, m_fields.join(u'\n')).Run();
    }
    Sign();
}

void TextIndex::Sign()
{
    // A savepoint makes the index write what it holds back in memory.
    m_connection.Run(u"SAVEPOINT vas_written"_s);
    m_connection.Run(u"RELEASE vas_written"_s);
    Query query(m_connection,
                u"UPDATE %1 SET stamp = (SELECT block FROM %2 WHERE id = %3) WHERE tbl = ?1"_s.arg(
                    kStates, QuoteName(m_index + u"_data"_s), QString::number(kSegments)));
    query.Bind(1, m_table).Run();
}

bool TextIndex::CatchUp()
{
    const QString noted = QuoteName(m_noted);
    {
        Query any(m_connection, u"SELECT 1 FROM %1"_s.arg(noted));
        if (!any.Step())
            return false;
    }
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString some =
        u"(SELECT id FROM %1 ORDER BY id LIMIT %2)"_s.arg(noted, QString::number(kNotedAtOnce));
    Writing writing(m_connection);
    m_connection.Run(u"INSERT INTO %1(rowid, %2) SELECT %3, %2 FROM %4 WHERE %3 IN %5"_s.arg(
        QuoteName(m_index), Columns({}), id, QuoteName(m_table), some));
    m_connection.Run(u"INSERT OR REPLACE INTO %1 SELECT %3, vas_textsum(%2) FROM %4 WHERE %3 IN %5"_s.arg(
        QuoteName(m_known), Columns({}), id, QuoteName(m_table), some));
    m_connection.Run(u"DELETE FROM %1 WHERE id IN %2"_s.arg(noted, some));
    Sign();
    writing.Commit();
    return true;
}

qint64 TextIndex::Upto()
{
    Query query(m_connection, u"SELECT upto FROM %1 WHERE tbl = ?1"_s.arg(kStates));
    query.Bind(1, m_table);
    return query.Step() ? query.Integer(0) : kAllRows;
}

void TextIndex::TakeIn(qint64 upto, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    const QString id = QString::fromUtf16(sql::kIdColumn);
    const QString table = QuoteName(m_table);
    Writing writing(m_connection);
    qint64 last = kAllRows;
    {
        Query query(m_connection,
                    u"SELECT max(%1) FROM (SELECT %1 FROM %2 WHERE %1 > ?1 ORDER BY %1 LIMIT %3)"_s.arg(
                        id, table, QString::number(m_check.rowsAtOnce)));
        query.Bind(1, upto);
        if (query.Step() && !query.IsNull(0))
            last = query.Integer(0);
    }
    if (last != kAllRows) {
        const QString rows = u"FROM %2 WHERE %1 > ?1 AND %1 <= ?2"_s.arg(id, table);
        Query add(m_connection,
                  u"INSERT INTO %1(rowid, %2) SELECT %3, %2 "_s.arg(QuoteName(m_index), Columns({}), id) +
                      rows);
        add.Bind(1, upto).Bind(2, last).Run();
        Query know(m_connection, u"INSERT OR REPLACE INTO %1 SELECT %2, vas_textsum(%3) "_s.arg(
                                     QuoteName(m_known), id, Columns({})) +
                                     rows);
        know.Bind(1, upto).Bind(2, last).Run();
    }
    {
        Query query(m_connection, u"UPDATE %1 SET upto = ?2 WHERE tbl = ?1 AND upto < ?2"_s.arg(kStates));
        query.Bind(1, m_table).Bind(2, last).Run();
    }
    Sign();
    writing.Commit();
    const qint64 fitting =
        qint64{m_check.rowsAtOnce} * std::max(milliseconds, 1) / std::max<qint64>(timer.elapsed(), 1);
    m_check.rowsAtOnce = static_cast<int>(
        std::clamp<qint64>(fitting, kFewestAtOnce, std::min(kMostAtOnce, 2 * m_check.rowsAtOnce)));
}

std::vector<Bookmark> TextIndex::Compare(int milliseconds)
{
    const QString id = QString::fromUtf16(sql::kIdColumn);
    QElapsedTimer timer;
    timer.start();
    const Reading together(m_connection);
    if (m_check.since < 0)
        m_check.since = m_connection.ChangeNumber();
    std::vector<Bookmark> strange;
    Query query(m_connection,
                u"SELECT c.%1, k.sum IS vas_textsum(%2) OR EXISTS(SELECT 1 FROM %5 n WHERE n.id = c.%1) FROM "
                "%3 c LEFT JOIN %4 k ON k.id = c.%1 WHERE c.%1 > ?1 ORDER BY c.%1"_s.arg(
                    id, Columns(u"c."_s), QuoteName(m_table), QuoteName(m_known), QuoteName(m_noted)));
    query.Bind(1, m_check.upto);
    for (qint64 seen = 0; query.Step(); ++seen) {
        m_check.upto = query.Integer(0);
        if (query.Integer(1) == 0)
            strange.push_back(Bookmark{m_check.upto});
        if (seen % 64 == 63 && timer.elapsed() >= milliseconds)
            return strange;
    }
    m_check.compared = true;
    return strange;
}

void TextIndex::Note(const std::vector<Bookmark>& ids)
{
    if (ids.empty())
        return;
    m_check.trouble = TextIndexTrouble::OutOfStep;
    Writing writing(m_connection);
    for (const Bookmark id : ids) {
        Query query(m_connection, u"INSERT OR IGNORE INTO %1 VALUES(?1)"_s.arg(QuoteName(m_noted)));
        query.Bind(1, id).Run();
    }
    writing.Commit();
}

void TextIndex::Stamp()
{
    if (std::exchange(m_check.stamped, true))
        return;
    try {
        {
            // The stamp speaks for the whole file, and the others were not compared.
            Query query(m_connection, u"SELECT count(*) FROM "_s + kStates);
            if (!query.Step() || query.Integer(0) != 1)
                return;
        }
        Writing writing(m_connection);
        if (m_connection.ChangeNumber() == m_check.since)
            m_connection.Stamp();
        writing.Commit();
    } catch (const RuntimeError&) {
        return; // in use by others: the next who opens the file compares it again
    }
}

TextIndexState TextIndex::MakeOn(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        switch (Look()) {
        case Standing::Missing:
            // One that could not be read was let go: that is why there is none.
            Anew(m_check.trouble == TextIndexTrouble::None ? TextIndexTrouble::Missing : m_check.trouble);
            break;
        case Standing::Damaged:
            Anew(TextIndexTrouble::Damaged);
            break;
        case Standing::Partial:
            TakeIn(Upto(), milliseconds);
            break;
        case Standing::Whole:
            if (CatchUp())
                break;
            if (!m_check.compared && m_connection.InStep())
                m_check.compared = m_check.stamped = true;
            if (m_check.compared) {
                Stamp();
                return {true, m_check.trouble};
            }
            Note(Compare(milliseconds));
            break;
        }
    } while (timer.elapsed() < milliseconds);
    return {false, m_check.trouble};
}

TextIndexState TextIndex::Make(int milliseconds)
{
    const QString before = m_connection.Damage();
    try {
        return MakeOn(milliseconds);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kCorruptDatabase || m_check.trouble == TextIndexTrouble::Damaged)
            throw;
    }
    // The index can be made again; if it is the records that are damaged, the next round tells.
    m_connection.SetDamage(before);
    Drop();
    m_check = {};
    m_check.trouble = TextIndexTrouble::Damaged;
    return {false, m_check.trouble};
}

TextIndexState TextIndex::Check(int milliseconds)
{
    if (m_check.compared || m_check.unfit)
        return {true, m_check.trouble};
    const Standing now = Look();
    if (now != Standing::Whole) {
        m_check.unfit = true;
        m_check.trouble = now == Standing::Damaged ? TextIndexTrouble::Damaged : TextIndexTrouble::Missing;
    } else if (m_connection.InStep()) {
        m_check.compared = true;
    } else if (!Compare(milliseconds).empty()) {
        m_check.unfit = true;
        m_check.trouble = TextIndexTrouble::OutOfStep;
    }
    return {m_check.compared || m_check.unfit, m_check.trouble};
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
            const Bookmark row{query.Integer(0)};
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
    if (match.isEmpty() || !m_check.compared || m_check.unfit || Look() != Standing::Whole)
        return Walk(search, {});
    const QString before = m_connection.Damage();
    try {
        return Walk(search, match);
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kCorruptDatabase)
            throw;
    }
    m_connection.SetDamage(before);
    m_check = {};
    m_check.trouble = TextIndexTrouble::Damaged;
    m_check.unfit = m_connection.ReadOnly();
    // The index can be made again; the records themselves tell what is wrong with them.
    try {
        if (!m_connection.ReadOnly())
            Drop();
    } catch (const RuntimeError&) {
        m_check.unfit = true; // what is damaged that much stays where it is
    }
    return Walk(search, {});
}

} // namespace vasclip::engine
