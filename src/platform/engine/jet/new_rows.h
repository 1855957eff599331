#pragma once

#include "platform/engine/jet/new_database.h"
#include "platform/engine/row_store.h"

namespace vasclip::engine::jet {

/// The rows of a table of a file that is being made: they are added, and that is all.
class NewRows final : public RowStore
{
public:
    NewRows(std::shared_ptr<Making> making, const sql::TypedStatement& select);

    [[nodiscard]] const RowShape& Shape() const override { return m_shape; }
    [[nodiscard]] bool IsOpen() const override { return m_making->writer != nullptr; }
    void NeedOpen() const override { static_cast<void>(m_making->Need()); }
    [[nodiscard]] bool Updatable() const override { return true; }
    [[nodiscard]] QString WhyReadOnly() const override;
    [[nodiscard]] const text::TimeSource& Time() const override { return *m_making->time; }
    [[nodiscard]] quint64 Generation() const override { return 0; }
    void ReadKeys(const std::function<bool(std::span<const Bookmark>)>&) override {}
    [[nodiscard]] QVariantList ReadComputed() override { return {}; }
    [[nodiscard]] std::vector<std::optional<StoredRow>> Read(std::span<const Bookmark> ids, const QList<int>&,
                                                             Longs) override
    {
        return std::vector<std::optional<StoredRow>>(ids.size());
    }
    [[nodiscard]] std::optional<qint64> Version(Bookmark) override { return std::nullopt; }
    [[nodiscard]] QVariant ReadLong(Bookmark, int) override { return {}; }
    [[nodiscard]] QByteArray ReadPiece(Bookmark, int, qint64, qint64) override { return {}; }
    [[nodiscard]] Bookmark Insert(const RowChanges& values) override;
    [[nodiscard]] UpdateOutcome Update(Bookmark, qint64, const RowChanges&) override { return UpdateOutcome::Gone; }
    [[nodiscard]] bool Delete(Bookmark) override { return false; }
    [[nodiscard]] qint64 CountRows() override { return m_added; }
    [[nodiscard]] std::optional<Stand> StandOf(const IndexDef*, Bookmark) override { return std::nullopt; }
    [[nodiscard]] std::vector<Stand> Walk(const IndexDef*, const Stand*, bool, int) override { return {}; }
    [[nodiscard]] qint64 CountBefore(const IndexDef*, const Stand&) override { return 0; }
    [[nodiscard]] std::optional<Bookmark> Seek(const IndexDef&, const QString&) override { return std::nullopt; }

private:
    std::shared_ptr<Making> m_making;
    RowShape m_shape;
    qint64 m_added = 0;
};

} // namespace vasclip::engine::jet
