#pragma once

#include "platform/engine/places.h"
#include "platform/engine/row_recordset.h"

#include <chrono>
#include <optional>
#include <vector>

namespace vasclip::engine {

/// Record set of dynaset kind: the row identities are read when it opens, the rows when they are asked for.
class Dynaset final : public RowRecordset
{
public:
    explicit Dynaset(std::unique_ptr<RowStore> store);

    [[nodiscard]] RecordsetType Type() const override { return RecordsetType::Dynaset; }
    [[nodiscard]] bool Bof() const override { return m_ids.empty() || m_at < 0; }
    [[nodiscard]] bool Eof() const override { return m_ids.empty() || (m_at >= Count() && !m_gone); }
    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;
    [[nodiscard]] qint64 RecordCount() const override { return Count(); }
    [[nodiscard]] qint64 AbsolutePosition() const override;
    void SetAbsolutePosition(qint64 position) override;
    void SetBookmark(const Bookmark& bookmark) override;
    void SetIndex(const QString& name) override;
    [[nodiscard]] QString Index() const override { return {}; }
    void Seek(const QString& comparison, const QString& key) override;
    [[nodiscard]] bool NoMatch() const override { return false; }
    [[nodiscard]] QVariantList Peek(qint64 position, const QList<int>& fields) const override;
    [[nodiscard]] qint64 PositionOf(const Bookmark& bookmark) const override;
    [[nodiscard]] const std::vector<Bookmark>& Bookmarks() const override { return m_ids; }
    [[nodiscard]] std::vector<qint64> PositionsOf(const std::vector<Bookmark>& bookmarks) const override;
    void Requery() override;

private:
    using Clock = std::chrono::steady_clock;

    /// Rows around the one that was peeked at last: a grid asks for its neighbours next.
    struct Page
    {
        qint64 first = 0;
        QList<int> fields;
        QList<QVariantList> rows;
        quint64 generation = 0;
        Clock::time_point read;
    };

    [[nodiscard]] std::optional<Bookmark> CurrentId() const override;
    void RowAdded(Bookmark id) override;
    void RowChanged(Bookmark) override {}
    void RowDeleting(Bookmark) override {}
    void RowDeleted(Bookmark id) override;

    [[nodiscard]] qint64 Count() const { return static_cast<qint64>(m_ids.size()); }
    void Stand(qint64 at);
    void ReadKeys();
    void ReadPage(qint64 first, const QList<int>& fields) const;

    std::vector<Bookmark> m_ids;
    qint64 m_at = -1;
    bool m_gone = false; ///< the record that was at m_at is deleted; the next one has moved up
    mutable Page m_page;
    mutable std::optional<Places> m_places; ///< made when many places are asked for
};

} // namespace vasclip::engine
