#pragma once

#include "platform/engine/sqlite/session.h"
#include "platform/engine/sqlite/text_index.h"

namespace vasclip::engine {

/// The database that the engine hands out.
class SqliteDatabase final : public Database
{
public:
    explicit SqliteDatabase(std::shared_ptr<Session> session)
        : m_session(std::move(session))
    {}
    ~SqliteDatabase() override;

    [[nodiscard]] QString Path() const override { return m_session->path; }
    [[nodiscard]] OpenMode Mode() const override { return m_session->mode; }
    [[nodiscard]] std::unique_ptr<Recordset> OpenRecordset(const QString& source,
                                                           RecordsetType type) override;
    [[nodiscard]] std::unique_ptr<RowStore> OpenRows(const sql::TypedStatement& select) override;
    qint64 Execute(const QString& sql) override;
    [[nodiscard]] QStringList TableNames() const override;
    [[nodiscard]] TableDef Table(const QString& name) const override;
    void CreateTable(const TableDef& table) override;
    void AppendField(const QString& table, const Field& field) override;
    void AppendIndex(const QString& table, const IndexDef& index) override;
    TextIndexState KeepTextIndex(const QString& table, const QStringList& fields, int milliseconds) override;
    [[nodiscard]] TextHits FindText(const TextSearch& search) override;
    void BeginTrans() override;
    void CommitTrans() override;
    void Rollback() override;
    void Close() override;

    [[nodiscard]] Connection& Open() const { return m_session->Open(); }
    [[nodiscard]] bool LocksHold() const { return !m_session->companion || m_session->companion->LocksHold(); }

private:
    qint64 CopyBetween(const sql::TypedStatement& statement, Database* from, Database* into, bool third);
    [[nodiscard]] const TableDef& NeedTable(const QString& name) const;
    [[nodiscard]] TextIndex IndexOf(const QString& table, const QStringList& fields) const;
    void NeedUpdatable() const;
    void NeedUnused(const QString& table) const;
    qint64 Work(const sql::Plan& plan);

    std::shared_ptr<Session> m_session;
    int m_begun = 0; ///< transactions of this database object that are open
};

} // namespace vasclip::engine
