#pragma once

#include "platform/engine/back_end.h"
#include "platform/engine/dynaset.h"
#include "platform/engine/sql_typer.h"
#include "platform/engine/table_recordset.h"

#include <algorithm>

namespace vasclip::tests {

/// What record sets asked of a Databook's rows.
struct RowCounts
{
    int seeks = 0;
    int records = 0;    ///< rows read with all their fields, the photo list among them
    int photoLists = 0; ///< photo lists read, with a record or by themselves
    int changes = 0;    ///< rows added, changed or deleted
    qint64 longest = 0; ///< bytes of a long binary value that went through at once
};

/// The rows of a store, which are counted where they have a photo list.
class CountingRows final : public engine::RowStore
{
public:
    CountingRows(std::unique_ptr<engine::RowStore> rows, RowCounts& counts)
        : m_rows(std::move(rows))
        , m_counts(counts)
        , m_comps(std::ranges::any_of(m_rows->Shape().fields, [](const engine::Field& field) {
            return field.name == QLatin1StringView("PHOTOS");
        }))
    {}

    [[nodiscard]] const engine::RowShape& Shape() const override { return m_rows->Shape(); }
    [[nodiscard]] bool IsOpen() const override { return m_rows->IsOpen(); }
    void NeedOpen() const override { m_rows->NeedOpen(); }
    [[nodiscard]] bool Updatable() const override { return m_rows->Updatable(); }
    [[nodiscard]] QString WhyReadOnly() const override { return m_rows->WhyReadOnly(); }
    [[nodiscard]] const text::TimeSource& Time() const override { return m_rows->Time(); }
    [[nodiscard]] quint64 Generation() const override { return m_rows->Generation(); }
    void ReadKeys(const std::function<bool(std::span<const engine::Bookmark>)>& sink) override
    {
        m_rows->ReadKeys(sink);
    }
    [[nodiscard]] QVariantList ReadComputed() override { return m_rows->ReadComputed(); }
    [[nodiscard]] std::vector<std::optional<engine::StoredRow>> Read(std::span<const engine::Bookmark> ids,
                                                                     const QList<int>& fields,
                                                                     engine::Longs longs) override
    {
        const int rows = m_comps ? static_cast<int>(ids.size()) : 0;
        if (fields.size() == Shape().fields.size())
            m_counts.records += rows;
        for (const int field : fields)
            if (Shape().fields[field].name == QLatin1StringView("PHOTOS"))
                m_counts.photoLists += rows;
        return m_rows->Read(ids, fields, longs);
    }
    [[nodiscard]] std::optional<qint64> Version(engine::Bookmark id) override { return m_rows->Version(id); }
    [[nodiscard]] QVariant ReadLong(engine::Bookmark id, int field) override
    {
        const QVariant value = m_rows->ReadLong(id, field);
        Note(value);
        return value;
    }
    [[nodiscard]] QByteArray ReadPiece(engine::Bookmark id, int source, qint64 offset, qint64 bytes) override
    {
        const QByteArray piece = m_rows->ReadPiece(id, source, offset, bytes);
        Note(piece);
        return piece;
    }
    [[nodiscard]] engine::Bookmark Insert(const engine::RowChanges& values) override
    {
        m_counts.changes += m_comps;
        for (const auto& [field, value] : values)
            Note(value);
        return m_rows->Insert(values);
    }
    [[nodiscard]] engine::UpdateOutcome Update(engine::Bookmark id, qint64 version,
                                               const engine::RowChanges& values) override
    {
        m_counts.changes += m_comps;
        for (const auto& [field, value] : values)
            Note(value);
        return m_rows->Update(id, version, values);
    }
    [[nodiscard]] bool Delete(engine::Bookmark id) override
    {
        m_counts.changes += m_comps;
        return m_rows->Delete(id);
    }
    [[nodiscard]] qint64 CountRows() override { return m_rows->CountRows(); }
    [[nodiscard]] std::optional<engine::Stand> StandOf(const engine::IndexDef* index, engine::Bookmark id) override
    {
        return m_rows->StandOf(index, id);
    }
    [[nodiscard]] std::vector<engine::Stand> Walk(const engine::IndexDef* index, const engine::Stand* from, bool back,
                                                  int most) override
    {
        return m_rows->Walk(index, from, back, most);
    }
    [[nodiscard]] qint64 CountBefore(const engine::IndexDef* index, const engine::Stand& stand) override
    {
        return m_rows->CountBefore(index, stand);
    }
    [[nodiscard]] std::optional<engine::Bookmark> Seek(const engine::IndexDef& index, const QString& key) override
    {
        m_counts.seeks += m_comps;
        return m_rows->Seek(index, key);
    }

private:
    void Note(const QVariant& value)
    {
        if (value.typeId() == QMetaType::QByteArray)
            m_counts.longest = std::max<qint64>(m_counts.longest, value.toByteArray().size());
    }

    std::unique_ptr<engine::RowStore> m_rows;
    RowCounts& m_counts;
    bool m_comps;
};

/// A database of the native kind whose record sets are counted.
class CountingDatabase final : public engine::Database
{
public:
    CountingDatabase(std::shared_ptr<engine::Database> database, RowCounts& counts, const text::TimeSource& time)
        : m_database(std::move(database))
        , m_counts(counts)
        , m_time(time)
    {}

    [[nodiscard]] QString Path() const override { return m_database->Path(); }
    [[nodiscard]] engine::OpenMode Mode() const override { return m_database->Mode(); }
    [[nodiscard]] std::unique_ptr<engine::Recordset> OpenRecordset(const QString& source,
                                                                   engine::RecordsetType type) override
    {
        if (source.trimmed().startsWith(QLatin1StringView("SELECT"), Qt::CaseInsensitive)) {
            OwnTables tables(*m_database);
            return std::make_unique<engine::Dynaset>(OpenRows(engine::sql::Type(source, tables, m_time)));
        }
        auto rows = OpenRows(engine::sql::WholeTable(Table(source)));
        if (type == engine::RecordsetType::Table)
            return std::make_unique<engine::TableRecordset>(std::move(rows));
        return std::make_unique<engine::Dynaset>(std::move(rows));
    }
    [[nodiscard]] std::unique_ptr<engine::RowStore> OpenRows(const engine::sql::TypedStatement& select) override
    {
        return std::make_unique<CountingRows>(m_database->OpenRows(select), m_counts);
    }
    qint64 Execute(const QString& sql) override { return m_database->Execute(sql); }
    [[nodiscard]] QStringList TableNames() const override { return m_database->TableNames(); }
    [[nodiscard]] engine::TableDef Table(const QString& name) const override { return m_database->Table(name); }
    void CreateTable(const engine::TableDef& table) override { m_database->CreateTable(table); }
    void AppendField(const QString& table, const engine::Field& field) override
    {
        m_database->AppendField(table, field);
    }
    void AppendIndex(const QString& table, const engine::IndexDef& index) override
    {
        m_database->AppendIndex(table, index);
    }
    engine::TextIndexState KeepTextIndex(const QString& table, const QStringList& fields, int milliseconds) override
    {
        return m_database->KeepTextIndex(table, fields, milliseconds);
    }
    [[nodiscard]] engine::TextHits FindText(const engine::TextSearch& search) override
    {
        return m_database->FindText(search);
    }
    void BeginTrans() override { m_database->BeginTrans(); }
    void CommitTrans() override { m_database->CommitTrans(); }
    void Rollback() override { m_database->Rollback(); }
    void Close() override { m_database->Close(); }

private:
    class OwnTables final : public engine::sql::Catalog
    {
    public:
        explicit OwnTables(engine::Database& database)
            : m_database(database)
        {}
        const engine::TableDef* Find(const QString&, const QString& table) override
        {
            m_found.push_back(std::make_unique<engine::TableDef>(m_database.Table(table)));
            return m_found.back().get();
        }

    private:
        engine::Database& m_database;
        std::vector<std::unique_ptr<engine::TableDef>> m_found;
    };

    std::shared_ptr<engine::Database> m_database;
    RowCounts& m_counts;
    const text::TimeSource& m_time;
};

/// Owns every path, and leaves all but the counting to the kinds that an engine comes with.
class CountingBackEnd final : public engine::BackEnd
{
public:
    CountingBackEnd(const files::Disk& disk, RowCounts& counts)
        : m_own(std::move(engine::BuiltInBackEnds(disk, NoOther()).back()))
        , m_counts(counts)
    {}

    [[nodiscard]] bool Owns(const QString& path) const override { return m_own->Owns(path); }
    [[nodiscard]] std::shared_ptr<engine::Database> Open(const QString& path, engine::OpenMode mode) override
    {
        return std::make_shared<CountingDatabase>(m_own->Open(path, mode), m_counts, *m_time);
    }
    void Create(const QString& path) override { m_own->Create(path); }
    void Copy(const QString& source, const QString& target) override { m_own->Copy(source, target); }
    [[nodiscard]] QList<engine::User> Users(const QString& path) const override { return m_own->Users(path); }
    void SetWaits(std::shared_ptr<engine::Waits> waits) override { m_own->SetWaits(std::move(waits)); }
    void SetTime(const text::TimeSource& time) override
    {
        m_time = &time;
        m_own->SetTime(time);
    }

private:
    /// A statement that names another file finds it of the same kind.
    [[nodiscard]] static engine::OpenForeign NoOther()
    {
        return [](const QString&) { return std::shared_ptr<engine::Database>(); };
    }

    std::unique_ptr<engine::BackEnd> m_own;
    RowCounts& m_counts;
    const text::TimeSource* m_time = nullptr;
};

} // namespace vasclip::tests
