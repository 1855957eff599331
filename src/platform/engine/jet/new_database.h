#pragma once

#include "platform/engine/back_end.h"
#include "platform/engine/jet/file_writer.h"

namespace vasclip::engine::jet {

/// What a new file is while it is being made.
struct Making
{
    QString path;
    const text::TimeSource* time = nullptr;
    std::unique_ptr<FileWriter> writer; ///< null when the file is finished or given up
    QStringList notes;
    std::map<QString, TableDef> tables;

    [[nodiscard]] FileWriter& Need() const; ///< @throws 3420
};

/// A new genuine file while it is being made: tables and records are added, nothing is changed or read again.
/// It appears under its name when it is closed, whole; before that, or if anything failed, nothing is there.
class NewDatabase final : public Database
{
public:
    explicit NewDatabase(std::shared_ptr<Making> making)
        : m_making(std::move(making))
    {}
    ~NewDatabase() override = default;

    [[nodiscard]] QString Path() const override { return m_making->path; }
    [[nodiscard]] OpenMode Mode() const override { return OpenMode::Exclusive; }
    [[nodiscard]] std::unique_ptr<Recordset> OpenRecordset(const QString& source, RecordsetType type) override;
    [[nodiscard]] std::unique_ptr<RowStore> OpenRows(const sql::TypedStatement& select) override;
    qint64 Execute(const QString& sql) override;
    [[nodiscard]] QStringList TableNames() const override;
    [[nodiscard]] TableDef Table(const QString& name) const override;
    void CreateTable(const TableDef& table) override;
    void AppendField(const QString& table, const Field& field) override;
    void AppendIndex(const QString& table, const IndexDef& index) override;
    void BeginTrans() override { ++m_begun; }
    void CommitTrans() override { --m_begun; }
    void Rollback() override; ///< what was written can not be taken out again: the file is given up
    void Close() override;

private:
    std::shared_ptr<Making> m_making;
    int m_begun = 0;
};

} // namespace vasclip::engine::jet
