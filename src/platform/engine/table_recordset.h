#pragma once

#include "platform/engine/row_recordset.h"

namespace vasclip::engine {

/// Record set of table kind: walks the stored rows in the order of the current index.
class TableRecordset final : public RowRecordset
{
public:
    explicit TableRecordset(std::unique_ptr<RowStore> store);

    [[nodiscard]] RecordsetType Type() const override { return RecordsetType::Table; }
    [[nodiscard]] bool Bof() const override { return m_place == Place::Before || m_place == Place::Nowhere; }
    [[nodiscard]] bool Eof() const override { return m_place == Place::Behind || m_place == Place::Nowhere; }
    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    void MovePrevious() override;
    [[nodiscard]] qint64 RecordCount() const override;
    [[nodiscard]] qint64 AbsolutePosition() const override;
    void SetAbsolutePosition(qint64 position) override;
    void SetBookmark(const Bookmark& bookmark) override;
    void SetIndex(const QString& name) override;
    [[nodiscard]] QString Index() const override { return m_index; }
    void Seek(const QString& comparison, const QString& key) override;
    [[nodiscard]] bool NoMatch() const override { return m_noMatch; }
    [[nodiscard]] QVariantList Peek(qint64 position, const QList<int>& fields) const override;
    [[nodiscard]] qint64 PositionOf(const Bookmark& bookmark) const override;
    void Requery() override;

private:
    /// Nowhere: an empty set. Missed: a seek failed. Gone: the row was deleted, its neighbours can be
    /// reached.
    enum class Place { Row, Before, Behind, Nowhere, Missed, Gone };

    [[nodiscard]] std::optional<Bookmark> CurrentId() const override;
    void RowAdded(Bookmark) override {}
    void RowChanged(Bookmark id) override;
    void RowDeleting(Bookmark id) override;
    void RowDeleted(Bookmark) override { m_place = Place::Gone; }

    /// Rows that lie ahead of the one it stands on, as a store that reads several at once gave them.
    struct Ahead
    {
        std::vector<Stand> stands;
        std::size_t next = 0;
        bool back = false;
        quint64 generation = 0;
    };

    [[nodiscard]] const IndexDef* Order() const; ///< the current index; nullptr without one
    [[nodiscard]] std::optional<Stand> Edge(bool last);
    [[nodiscard]] std::optional<Stand> Neighbour(bool back);
    void Land(std::optional<Stand> stand, Place otherwise);
    void Step(bool back);

    QString m_index;
    Place m_place = Place::Nowhere;
    Stand m_stand;
    Ahead m_ahead;
    mutable bool m_keyKnown = false; ///< after a Seek the key is read only when a move needs it
    bool m_noMatch = false;
};

} // namespace vasclip::engine
