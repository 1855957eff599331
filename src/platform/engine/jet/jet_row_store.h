#pragma once

#include "platform/engine/jet/opening.h"
#include "platform/engine/sql_evaluator.h"
#include "platform/engine/sql_typed.h"

namespace vasclip::engine::jet {

/// The rows of one SELECT over a genuine file.
class JetRowStore final : public RowStore
{
public:
    JetRowStore(std::shared_ptr<Opening> opening, sql::TypedStatement select);

    [[nodiscard]] const RowShape& Shape() const override { return m_shape; }
    [[nodiscard]] bool IsOpen() const override { return m_opening->file != nullptr; }
    void NeedOpen() const override { m_opening->NeedOpen(); }
    [[nodiscard]] bool Updatable() const override { return false; }
    [[nodiscard]] QString WhyReadOnly() const override { return m_opening->WhyReadOnly(); }
    [[nodiscard]] const text::TimeSource& Time() const override { return *m_opening->time; }
    [[nodiscard]] quint64 Generation() const override { return 0; }
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
    [[nodiscard]] TableRows& Rows() const; ///< @throws 3420
    [[nodiscard]] QVariant Shown(Table& table, const FoundRow& row, const sql::TypedColumn& column) const;
    void ReadMatching(const std::function<bool(Bookmark)>& sink);
    void ReadSorted(const std::function<bool(std::span<const Bookmark>)>& sink);

    /// The long value that pieces were asked of last: more of them will be.
    struct LongKept
    {
        Bookmark id{};
        int source = -1;
        std::unique_ptr<LongReader> value; ///< null for none
    };

    std::shared_ptr<Opening> m_opening;
    TableRows& m_rows;
    sql::TypedStatement m_select;
    RowShape m_shape;
    LongKept m_long;
};

} // namespace vasclip::engine::jet
