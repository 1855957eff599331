#include "platform/engine/sqlite/rescue.h"

#include "platform/engine/sqlite/connection.h"
#include "platform/engine/sqlite/schema_tables.h"
#include "platform/text/runtime_error.h"

#include <algorithm>
#include <sqlite3.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;
using sql::QuoteName;

namespace {

constexpr int kMostNames = 100;
constexpr qint64 kStepRows = 256;

bool IsUnreadable(const RuntimeError& failure)
{
    return failure.Number() == error::kCorruptDatabase || failure.Number() == error::kDeviceIo;
}

const QString& IdName()
{
    static const QString name = QString::fromUtf16(sql::kIdColumn);
    return name;
}

/// One table on its way.
class TableCopy
{
public:
    TableCopy(Connection& source, Connection& target, const TableDef& table, Rescued& rescued,
              const std::function<bool(qint64)>& step)
        : m_source(source)
        , m_target(target)
        , m_table(table)
        , m_rescued(rescued)
        , m_step(step)
    {
        QStringList names{IdName()};
        QStringList places{u"?1"_s};
        for (const Field& field : table.fields) {
            names.append(QuoteName(field.name));
            places.append(u'?' + QString::number(places.size() + 1));
        }
        m_columns = names.join(u", "_s);
        m_insert = u"INSERT INTO %1(%2) VALUES(%3)"_s.arg(QuoteName(table.name), m_columns, places.join(u", "_s));
    }

    /// @return false if it was stopped
    bool Run()
    {
        const qint64 last = LastId();
        for (qint64 at = 0; at < last;) {
            try {
                if (!CopyRun(at))
                    return false;
                break;
            } catch (const RuntimeError& failure) {
                if (!IsUnreadable(failure))
                    throw;
            }
            // The rows behind the break are asked for one by one until one can be read again.
            for (bool bad = true; bad && at < last;) {
                bad = !CopyOne(++at);
                if (!GoOn())
                    return false;
            }
        }
        NameTheLost();
        return true;
    }

private:
    bool GoOn() { return ++m_looked % kStepRows != 0 || !m_step || m_step(m_rescued.records); }

    [[nodiscard]] qint64 LastId()
    {
        qint64 last = 0;
        const QString of[] = {
            u"SELECT max(%1) FROM %2"_s.arg(IdName(), QuoteName(m_table.name)),
            u"SELECT seq FROM sqlite_sequence WHERE name = '%1'"_s.arg(QString(m_table.name).replace(u'\'', u"''"_s))};
        for (const QString& sql : of) {
            try {
                Query query(m_source, sql);
                if (query.Step())
                    last = std::max(last, query.Integer(0));
            } catch (const RuntimeError& failure) {
                if (!IsUnreadable(failure))
                    throw;
            }
        }
        return last;
    }

    /// Whole rows in their order; `at` is the last one that was looked at.
    bool CopyRun(qint64& at)
    {
        Query row(m_source, u"SELECT %1 FROM %2 WHERE %3 > ?1 ORDER BY %3"_s.arg(
                                m_columns, QuoteName(m_table.name), IdName()));
        row.Bind(1, at);
        while (row.Step()) {
            at = row.Integer(0);
            Store(row, {});
            if (!GoOn())
                return false;
        }
        return true;
    }

    /// @return can rows be read here? True also for a row that is not there
    bool CopyOne(qint64 id)
    {
        const QString from = u" FROM %1 WHERE %2 = ?1"_s.arg(QuoteName(m_table.name), IdName());
        try {
            Query row(m_source, u"SELECT "_s + m_columns + from);
            row.Bind(1, id);
            if (row.Step())
                Store(row, {});
            return true;
        } catch (const RuntimeError& failure) {
            if (!IsUnreadable(failure))
                throw;
        }
        CopyPieces(id, from);
        return false;
    }

    /// What can be read of a row whose values do not all read.
    void CopyPieces(qint64 id, const QString& from)
    {
        QStringList columns{u"?1"_s};
        QStringList missing;
        for (const Field& field : m_table.fields) {
            const QString column = QuoteName(field.name);
            try {
                Query value(m_source, u"SELECT "_s + column + from);
                value.Bind(1, id);
                if (!value.Step())
                    return; // it is not there at all
                columns.append(column);
            } catch (const RuntimeError& failure) {
                if (!IsUnreadable(failure))
                    throw;
                columns.append(u"NULL"_s);
                missing.append(field.name);
            }
        }
        if (missing.size() == m_table.fields.size()) {
            ++m_rescued.lost;
            return;
        }
        Query row(m_source, u"SELECT "_s + columns.join(u", "_s) + from);
        row.Bind(1, id);
        if (row.Step())
            Store(row, missing);
    }

    void Store(const Query& row, const QStringList& missing)
    {
        Query insert(m_target, m_insert);
        for (int column = 0; column <= m_table.fields.size(); ++column)
            m_target.Check(
                sqlite3_bind_value(insert.Statement(), column + 1, sqlite3_column_value(row.Statement(), column)));
        const QString name = m_table.fields.isEmpty() ? QString() : row.Text(1).trimmed();
        try {
            insert.Run();
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kDuplicateKey)
                throw;
            ++m_rescued.lost;
            Name(u"%1: a second record of this key"_s.arg(name));
            return;
        }
        ++m_rescued.records;
        if (missing.isEmpty())
            return;
        ++m_rescued.incomplete;
        Name(u"%1: without %2"_s.arg(name.isEmpty() ? u"record number %1"_s.arg(row.Integer(0)) : name,
                                     missing.join(u", "_s)));
    }

    /// The key's index may still know the names of the records that are gone.
    void NameTheLost()
    {
        if (m_rescued.lost == 0)
            return;
        const auto key = std::find_if(m_table.indexes.begin(), m_table.indexes.end(),
                                      [](const IndexDef& index) { return index.primary; });
        if (key == m_table.indexes.end() || key->fields.size() != 1)
            return;
        try {
            Query named(m_source, u"SELECT %1, %2 FROM %3 INDEXED BY %4 ORDER BY %2"_s.arg(
                                      IdName(), QuoteName(key->fields.first()), QuoteName(m_table.name),
                                      QuoteName(m_table.name + u'.' + key->name)));
            while (named.Step()) {
                Query there(m_target,
                            u"SELECT 1 FROM %1 WHERE %2 = ?1"_s.arg(QuoteName(m_table.name), IdName()));
                there.Bind(1, named.Integer(0));
                if (!there.Step())
                    Name(u"%1: lost"_s.arg(named.Text(1).trimmed()));
            }
        } catch (const RuntimeError& failure) {
            if (!IsUnreadable(failure))
                throw;
        }
    }

    void Name(const QString& words)
    {
        if (m_rescued.names.size() < kMostNames)
            m_rescued.names.append(words);
    }

    Connection& m_source;
    Connection& m_target;
    const TableDef& m_table;
    Rescued& m_rescued;
    const std::function<bool(qint64)>& m_step;
    QString m_columns;
    QString m_insert;
    qint64 m_looked = 0;
};

} // namespace

std::optional<Rescued> CopyTables(Connection& source, Connection& target,
                                  const std::function<bool(qint64 records)>& step)
{
    Rescued rescued;
    const QList<TableDef> tables = source.Tables();
    Writing writing(target);
    for (const TableDef& table : tables) {
        StoreTable(target, u"main"_s, table);
        if (!TableCopy(source, target, table, rescued, step).Run())
            return std::nullopt;
    }
    writing.Commit();
    return rescued;
}

} // namespace vasclip::engine
