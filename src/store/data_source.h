#pragma once

#include "forms/ports.h"
#include "platform/engine/database.h"

#include <QObject>

#include <functional>

namespace vasclip::store {

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
    [[nodiscard]] engine::RecordsetType RecordsetType() const { return m_type; }
    void SetDatabaseName(const QString& path) { m_databaseName = path; }
    void SetRecordSource(const QString& tableOrSql) { m_recordSource = tableOrSql; }
    void SetRecordsetType(engine::RecordsetType type) { m_type = type; }

    /// (Re)opens the record set of RecordSource and stands on its first record. The database stays open if
    /// its path has not changed. On failure the old record set stays bound. @throws as OpenDatabase,
    /// OpenRecordset
    void Refresh();
    /// Works on the database that another source has open: the next Refresh opens none if the path is the
    /// same. Both have one watcher from now on, whichever of them is given it.
    void ShareDatabase(const DataSource& other);
    void Close(); ///< record set and database

    [[nodiscard]] bool Bound() const { return m_recordset != nullptr; }
    [[nodiscard]] engine::Recordset& Recordset() const; ///< @throws RuntimeError 91 when unbound
    [[nodiscard]] engine::Database& Database() const;   ///< @throws RuntimeError 91 when unbound
    [[nodiscard]] engine::Engine& Engine() const { return m_engine; }

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
    engine::RecordsetType m_type = engine::RecordsetType::Table;
    std::shared_ptr<engine::Database> m_database;
    std::unique_ptr<engine::Recordset> m_recordset;
    std::shared_ptr<Step> m_step; ///< the change under way, the last one that was dropped, or none
    std::shared_ptr<Watcher> m_watcher; ///< of all sources that share the database
    std::shared_ptr<DataSource> m_beside; ///< made for the first change by key
    mutable std::unique_ptr<RecordReader> m_reader; ///< made for the first record that is read beside the cursor
};

} // namespace vasclip::store
