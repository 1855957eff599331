#pragma once

#include "platform/engine/health.h"
#include "platform/engine/jet/opening.h"

namespace vasclip::engine::jet {

/// A genuine file, open for reading in place.
class JetDatabase final : public Database, public SelfChecked
{
public:
    explicit JetDatabase(std::shared_ptr<Opening> opening)
        : m_opening(std::move(opening))
    {}
    ~JetDatabase() override = default;

    [[nodiscard]] QString Path() const override { return m_opening->path; }
    [[nodiscard]] OpenMode Mode() const override { return m_opening->mode; }
    [[nodiscard]] std::unique_ptr<Recordset> OpenRecordset(const QString& source, RecordsetType type) override;
    [[nodiscard]] std::unique_ptr<RowStore> OpenRows(const sql::TypedStatement& select) override;
    qint64 Execute(const QString& sql) override;
    [[nodiscard]] QStringList TableNames() const override;
    [[nodiscard]] TableDef Table(const QString& name) const override;
    void CreateTable(const TableDef& table) override;
    void AppendField(const QString& table, const Field& field) override;
    void AppendIndex(const QString& table, const IndexDef& index) override;
    void BeginTrans() override { ++m_begun; }
    void CommitTrans() override { EndTrans(); }
    void Rollback() override { EndTrans(); }
    void Close() override { m_opening->Close(); }

    [[nodiscard]] QString Damage() const override;
    QStringList Check(CheckDepth depth) override;
    [[nodiscard]] const Catalogue& Contents() const { return m_opening->catalogue; }
    [[nodiscard]] bool IsJet3() const { return !m_opening->file->Shape().jet4; }

private:
    void EndTrans(); ///< @throws 3034
    [[noreturn]] void Refuse() const; ///< @throws 3027

    std::shared_ptr<Opening> m_opening;
    int m_begun = 0;
};

} // namespace vasclip::engine::jet
