#pragma once

#include "platform/engine/memory_server.h"
#include "platform/engine/row_store.h"
#include "platform/engine/sql_evaluator.h"

#include <memory>

namespace vasclip::engine {

using namespace Qt::StringLiterals;

/// One opening of a memory server, shared by its database and record sets.
struct MemoryOpening
{
    QString path;
    std::shared_ptr<MemoryServer> server;
    bool readOnly = false;
    bool open = true;
    int rowsAhead = 1;
    const text::TimeSource* time = nullptr;
    quint64 generation = 0; ///< raised by this opening's own changes
};

/// The rows of one statement over a memory server.
class MemoryRowStore final : public RowStore
{
public:
    MemoryRowStore(std::shared_ptr<MemoryOpening> opening, sql::TypedStatement select);

    [[nodiscard]] const RowShape& Shape() const override { return m_shape; }
    [[nodiscard]] bool IsOpen() const override { return m_opening->open; }
    void NeedOpen() const override;
    [[nodiscard]] bool Updatable() const override;
    [[nodiscard]] QString WhyReadOnly() const override
    {
        return u"You have no right to change %1"_s.arg(m_shape.table.name);
    }
    [[nodiscard]] const text::TimeSource& Time() const override { return *m_opening->time; }
    [[nodiscard]] quint64 Generation() const override { return m_opening->generation; }
    void ReadKeys(const std::function<bool(std::span<const Bookmark>)>& sink) override;
    [[nodiscard]] QVariantList ReadComputed() override;
    [[nodiscard]] std::vector<std::optional<StoredRow>> Read(std::span<const Bookmark> ids,
                                                             const QList<int>& fields, Longs longs) override;
    [[nodiscard]] std::optional<qint64> Version(Bookmark id) override;
    [[nodiscard]] QVariant ReadLong(Bookmark id, int field) override;
    [[nodiscard]] QByteArray ReadPiece(Bookmark id, int source, qint64 offset, qint64 bytes) override;
    [[nodiscard]] Bookmark Insert(const RowChanges& values) override;
    [[nodiscard]] UpdateOutcome Update(Bookmark id, qint64 version, const RowChanges& values) override;
    [[nodiscard]] bool Delete(Bookmark id) override;
    [[nodiscard]] qint64 CountRows() override;
    [[nodiscard]] std::optional<Stand> StandOf(const IndexDef* index, Bookmark id) override;
    [[nodiscard]] std::vector<Stand> Walk(const IndexDef* index, const Stand* from, bool back,
                                          int most) override;
    [[nodiscard]] qint64 CountBefore(const IndexDef* index, const Stand& stand) override;
    [[nodiscard]] std::optional<Bookmark> Seek(const IndexDef& index, const QString& key) override;

private:
    [[nodiscard]] MemoryTable& Table() const;
    [[nodiscard]] Stand StandAt(const IndexDef* index, qint64 id, const MemoryRow& row) const;
    [[nodiscard]] std::vector<Stand> InOrder(const IndexDef* index) const;
    /// One statement, which an error does not end the transaction with.
    void Change(const std::function<void(MemoryTable&)>& change);
    void CheckUnique(const MemoryTable& table, qint64 id) const;

    std::shared_ptr<MemoryOpening> m_opening;
    sql::TypedStatement m_select;
    RowShape m_shape;
};

} // namespace vasclip::engine
