#include "platform/engine/convert.h"

#include "platform/engine/errors.h"
#include "platform/engine/file_mark.h"
#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "platform/engine/long_source.h"
#include "platform/engine/new_file.h"
#include "platform/engine/row_store.h"
#include "platform/engine/rows_at_once.h"
#include "platform/engine/same_value.h"
#include "platform/engine/sql_typer.h"

#include <QFile>

#include <cmath>
#include <numeric>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Stopped
{};

/// The rows of one table, one after the other, with all that is in them; its large pictures are read when they are asked for.
class Reader
{
public:
    explicit Reader(Database& database, const TableDef& table)
        : m_rows(database.OpenRows(sql::WholeTable(table)))
        , m_all(table.fields.size())
    {
        std::iota(m_all.begin(), m_all.end(), 0);
        m_rows->ReadKeys([this](std::span<const Bookmark> some) {
            m_ids.insert(m_ids.end(), some.begin(), some.end());
            return true;
        });
    }

    [[nodiscard]] qint64 Count() const { return static_cast<qint64>(m_ids.size()); }
    /// @return nothing at the end
    std::optional<QVariantList> Next()
    {
        while (m_next < m_ids.size()) {
            if (m_next >= m_first + m_read.size()) {
                m_first = m_next;
                m_read.clear();
                m_read = m_rows->Read(
                    std::span(m_ids).subspan(m_first, std::min(m_atOnce.Next(), m_ids.size() - m_first)), m_all,
                    Longs::Sizes);
                m_atOnce.Saw(m_read);
            }
            const std::size_t at = m_next++;
            std::optional<StoredRow>& row = m_read[at - m_first];
            if (!row)
                continue;
            const FieldList& fields = m_rows->Shape().fields;
            for (int i = 0; i < fields.size(); ++i) {
                if (fields[i].type == FieldType::LongBinary)
                    row->values[i] = LongValueOf(*m_rows, m_ids[at], i, row->values[i]);
            }
            return std::move(row->values);
        }
        return std::nullopt;
    }

private:
    std::unique_ptr<RowStore> m_rows;
    QList<int> m_all;
    std::vector<Bookmark> m_ids;
    std::vector<std::optional<StoredRow>> m_read;
    RowsAtOnce m_atOnce;
    std::size_t m_first = 0;
    std::size_t m_next = 0;
};

/// A row by its first field, for people.
QString NameOf(const TableDef& table, qint64 number, const QVariantList& values)
{
    const QString first = values.value(0).toString().left(40);
    return u"table %1, record %2%3"_s.arg(table.name, QString::number(number + 1),
                                          first.isEmpty() ? QString() : u" (%1)"_s.arg(first));
}

/// What a field of the new database holds of a value of the old one.
QVariant AsKept(DatabaseKind to, const Field& field, const QVariant& value)
{
    const bool truth = to == DatabaseKind::Access && field.type == FieldType::Boolean;
    return truth && !value.isValid() ? QVariant(false) : value;
}

/// Has it more digits than a number of the engine keeps?
bool IsRounded(const Field& field, const QVariant& value)
{
    constexpr double kExact = 9007199254740992.0 / 10'000; // 2^53 of its smallest units
    return field.type == FieldType::Currency && std::abs(value.toDouble()) > kExact;
}

/// Can a row be left out for this, and the rest go on?
bool IsOfTheRow(const RuntimeError& failure)
{
    switch (failure.Number()) {
    case error::kDuplicateKey:
    case error::kKeyIsNull:
    case error::kValueRequired:
    case error::kFieldTooLong:
    case error::kRecordTooLarge:
    case error::kOverflow:
    case error::kZeroLength:
        return true;
    default:
        return false;
    }
}

class Work
{
public:
    Work(Engine& engine, const Conversion& conversion)
        : m_engine(engine)
        , m_conversion(conversion)
        , m_inPlace(conversion.source.compare(conversion.target, Qt::CaseInsensitive) == 0)
        , m_from(engine.OpenDatabase(conversion.source, OpenMode::ReadOnly))
        , m_before(FileMark::Of(engine.Disk().ToNative(conversion.source)))
    {
        const files::Disk& disk = engine.Disk();
        const QString& taken = m_inPlace ? conversion.keepAs : conversion.target;
        if (disk.Found(taken, files::ReadOnly | files::Hidden))
            throw RuntimeError(error::kDatabaseExists, u"The database %1 already exists"_s.arg(taken));
    }

    Converted Run()
    {
        const QString native = m_engine.Disk().ToNative(m_conversion.target);
        NewFile file(native, m_conversion.target);
        QFile::remove(file.Path()); // the kind makes its own there
        const QString beside = m_conversion.target + file.Path().mid(native.size());
        try {
            Make(beside);
        } catch (const RuntimeError& failure) {
            // The name of the file that is worked on tells nobody anything.
            throw RuntimeError(failure.Number(), QString(failure.Description())
                                                     .replace(beside, m_conversion.target, Qt::CaseInsensitive));
        }
        m_done.notTaken = NotTakenOver(*m_from);
        Compare(beside);
        m_done.missing += CheckDatabase(*m_from, CheckDepth::Quiet);
        if (!m_done.missing.isEmpty())
            Accept();
        NeedUnchanged();
        if (m_inPlace)
            m_engine.CopyDatabase(m_conversion.source, m_conversion.keepAs);
        m_from->Close();
        file.Finish();
        return m_done;
    }

private:
    void Step(const QString& doing, qint64 done, qint64 total) const
    {
        constexpr qint64 kOften = 64;
        if (m_conversion.step && (done % kOften == 0 || done == total) && !m_conversion.step(doing, done, total))
            throw Stopped();
    }

    void Accept() const
    {
        if (!m_conversion.accept)
            throw RuntimeError(error::kCorruptDatabase,
                               u"Not all of %1 can be converted, so nothing was made: %2"_s.arg(
                                   m_conversion.source, m_done.missing.first()));
        if (!m_conversion.accept(m_done.missing))
            throw Stopped();
    }

    /// What somebody stores meanwhile would be in neither the rows that were read nor, where the new file takes the name, ours.
    void NeedUnchanged() const
    {
        if (FileMark::Of(m_engine.Disk().ToNative(m_conversion.source)) != m_before)
            throw RuntimeError(error::kInternalEngine,
                               u"Somebody stored into %1 while it was converted, so the new database was not kept. The old one is as "
                               "they left it; convert it again when nobody has it open"_s.arg(m_conversion.source));
    }

    void Make(const QString& beside)
    {
        if (m_conversion.to == DatabaseKind::Access) {
            GenuineFile made(m_engine, beside);
            Fill(made.Content());
            m_done.notes += made.Finish();
            return;
        }
        const auto made = m_engine.CreateDatabase(beside);
        Transaction together(*made);
        Fill(*made);
        together.Commit();
        made->Close();
    }

    void Fill(Database& to)
    {
        for (const QString& name : m_from->TableNames()) {
            TableDef table;
            try {
                table = m_from->Table(name);
            } catch (const RuntimeError& failure) {
                if (failure.Number() != error::kCorruptDatabase)
                    throw;
                continue; // it is among what the source's check lists
            }
            if (m_conversion.complete)
                m_conversion.complete(table);
            to.CreateTable(table);
            m_tables.append(table);
            m_done.tables.append(name);
            CopyTable(table, to);
        }
    }

    void CopyTable(const TableDef& table, Database& to)
    {
        Reader rows(*m_from, table);
        const auto store = to.OpenRows(sql::WholeTable(table));
        QSet<qint64>& left = m_left[table.name];
        qint64 number = 0;
        qint64 rounded = 0;
        for (auto row = rows.Next(); row; row = rows.Next(), ++number) {
            Step(u"Copying %1"_s.arg(table.name), number, rows.Count());
            RowChanges values;
            for (int i = 0; i < row->size(); ++i) {
                if ((*row)[i].isValid())
                    values[i] = (*row)[i];
                rounded += IsRounded(table.fields[i], (*row)[i]) ? 1 : 0;
            }
            try {
                static_cast<void>(store->Insert(values));
                ++m_done.records;
            } catch (const RuntimeError& failure) {
                if (!IsOfTheRow(failure))
                    throw;
                left.insert(number);
                m_done.missing.append(u"%1: %2"_s.arg(NameOf(table, number, *row), failure.Description()));
            }
        }
        if (rounded > 0)
            m_done.notes.append(u"The table %1 has %2 amounts beyond 900,719,925,474.0992, of which the first fifteen "
                                "digits are kept"_s.arg(table.name, QString::number(rounded)));
    }

    /// Both are read once more, value by value.
    void Compare(const QString& made) const
    {
        const auto to = m_engine.OpenDatabase(made, OpenMode::ReadOnly);
        for (const TableDef& table : m_tables) {
            Reader there(*m_from, table);
            Reader here(*to, to->Table(table.name));
            const QSet<qint64> left = m_left.value(table.name);
            qint64 number = 0;
            for (auto row = there.Next(); row; row = there.Next(), ++number) {
                Step(u"Comparing %1"_s.arg(table.name), number, there.Count());
                if (left.contains(number))
                    continue;
                const auto other = here.Next();
                for (int i = 0; i < table.fields.size(); ++i) {
                    if (!other || !SameValue(table.fields[i], AsKept(m_conversion.to, table.fields[i], (*row)[i]), (*other)[i]))
                        Differs(NameOf(table, number, *row) + u", field "_s + table.fields[i].name);
                }
            }
            if (here.Next())
                Differs(u"table %1 has records that the old one has not"_s.arg(table.name));
        }
        to->Close();
    }

    [[noreturn]] void Differs(const QString& where) const
    {
        throw RuntimeError(error::kInternalEngine,
                           u"The new database did not hold what was read from %1 (%2), so it was not kept. The old "
                           "one is as it was"_s.arg(m_conversion.source, where));
    }

    Engine& m_engine;
    const Conversion& m_conversion;
    bool m_inPlace;
    std::shared_ptr<Database> m_from;
    FileMark m_before;
    QList<TableDef> m_tables;
    QHash<QString, QSet<qint64>> m_left; ///< rows that could not be stored
    Converted m_done;
};

} // namespace

std::optional<Converted> ConvertDatabase(Engine& engine, const Conversion& conversion)
{
    try {
        return Work(engine, conversion).Run();
    } catch (const Stopped&) {
        return std::nullopt;
    }
}

} // namespace vasclip::engine
