#pragma once

#include "forms/ports.h"
#include "platform/engine/database.h"

#include <QObject>

#include <functional>
#include <vector>

namespace vasclip::store {

/// What a data source shows.
enum class SourceKind {
    Table, ///< a table in the order of its index, in which keys are looked up
    Query, ///< the rows of a table or of a SELECT, each at its place
};

class Change;
class RecordReader;
class Transaction;
class Watcher;
struct Step;

/// A data control: one open table or query, under the control's fixed name ("datDatabook").
///
/// Using it unbound throws RuntimeError 91.
class DataSource : public QObject
{
    Q_OBJECT
public:
    DataSource(engine::Engine& engine, const QString& name);
    ~DataSource() override;

    [[nodiscard]] const QString& Name() const { return m_name; }
    [[nodiscard]] const QString& DatabaseName() const { return m_databaseName; } ///< drive path, "" unbound
    [[nodiscard]] const QString& RecordSource() const { return m_recordSource; } ///< table name or SQL text
    [[nodiscard]] SourceKind Kind() const { return m_kind; }
    void SetDatabaseName(const QString& path) { m_databaseName = path; }
    void SetRecordSource(const QString& tableOrSql) { m_recordSource = tableOrSql; }

    /// (Re)opens the record set of RecordSource and stands on its first record. The database stays open if
    /// its path has not changed. On failure the old record set stays bound. @throws as OpenDatabase,
    /// OpenRecordset
    void Refresh();
    /// Refresh under other names. @throws as Refresh; the names then keep telling what is bound
    void Open(QString path, QString tableOrSql, SourceKind kind);
    void Select(const QString& tableOrSql) { Open(m_databaseName, tableOrSql, SourceKind::Query); }
    /// Works on the database that another source has open: the next Refresh opens none if the path is the
    /// same. Both have one watcher from now on, whichever of them is given it.
    void ShareDatabase(const DataSource& other);
    void Close(); ///< record set and database

    [[nodiscard]] bool Bound() const { return m_recordset != nullptr; }
    /// For store itself. @throws RuntimeError 91 when unbound
    [[nodiscard]] engine::Recordset& Recordset() const;
    [[nodiscard]] engine::Database& Database() const;   ///< @throws RuntimeError 91 when unbound
    [[nodiscard]] engine::Engine& Engine() const { return m_engine; }

    // What is bound. These and the ones below throw RuntimeError 91 when unbound.
    [[nodiscard]] bool Updatable() const;
    [[nodiscard]] qint64 Count() const; ///< of its records
    [[nodiscard]] const engine::FieldList& Fields() const;
    [[nodiscard]] int FieldIndex(const QString& field) const; ///< among Fields, -1 if there is none

    // The record on which it stands.
    [[nodiscard]] QVariant Value(const QString& field) const; ///< as stored. @throws RuntimeError 3021, 3167, 3265
    [[nodiscard]] bool AtEnd() const;                         ///< behind the last one
    void MoveFirst();
    void MoveNext(); ///< @throws RuntimeError 3021 at the end
    void MoveLast();

    // The records of a Query by their places from 0; where it stands stays.
    /// Fields by their indexes, none for a record that is gone meanwhile.
    [[nodiscard]] QVariantList ValuesAt(qint64 place, const QList<int>& fields) const;
    [[nodiscard]] qint64 PlaceOf(const DataSource& other) const; ///< of the record on which another stands, or -1
    [[nodiscard]] std::vector<qint64> PlacesOf(const std::vector<engine::Bookmark>& records) const; ///< each or -1

    /// Who hears of every change that is stored through this source: at the end of the outermost store::Transaction and
    /// within it, so that what he throws takes all of it back.
    /// @param takenBack  told that nothing became of what was heard since the last commit: it failed, or `watch` threw
    void Watch(std::function<void(const Step&)> watch, std::function<void()> takenBack = {});

Q_SIGNALS:
    void Refreshed(); ///< the record set is another one now

private:
    friend class Change;
    friend class RecordReader;
    friend class Transaction;
    /// The same table with a cursor that nobody sees. @throws as Refresh
    [[nodiscard]] std::shared_ptr<DataSource> Beside();

    engine::Engine& m_engine;
    QString m_name;
    QString m_databaseName;
    QString m_recordSource;
    SourceKind m_kind = SourceKind::Table;
    std::shared_ptr<engine::Database> m_database;
    std::unique_ptr<engine::Recordset> m_recordset;
    std::shared_ptr<Step> m_step; ///< the change under way, the last one that was dropped, or none
    std::shared_ptr<Watcher> m_watcher; ///< of all sources that share the database
    std::shared_ptr<DataSource> m_beside; ///< made for the first change by key
    mutable std::unique_ptr<RecordReader> m_reader; ///< made for the first record that is read beside the cursor
};

} // namespace vasclip::store
