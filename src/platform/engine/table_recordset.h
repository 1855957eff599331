#pragma once

#include "platform/engine/row_recordset.h"

namespace vasclip::engine {

/// Record set of table kind: walks the stored rows in the order of the current index.
class TableRecordset final : public RowRecordset
{
public:
    TableRecordset(std::shared_ptr<Session> session, sql::Plan plan);

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

    [[nodiscard]] std::optional<qint64> CurrentId() const override;
    void RowAdded(qint64) override {}
    void RowChanged(qint64 id) override;
    void RowDeleting(qint64 id) override;
    void RowDeleted(qint64) override { m_place = Place::Gone; }

    /// The row and its key: the place in the order.
    struct Stand
    {
        qint64 id = 0;
        QVariantList key;
    };

    [[nodiscard]] QString KeyColumns() const;
    [[nodiscard]] std::optional<Stand> ReadStand(qint64 id) const;
    [[nodiscard]] std::optional<Stand> Edge(bool last) const;
    [[nodiscard]] std::optional<Stand> Neighbour(const Stand& from, bool back) const;
    [[nodiscard]] qint64 RowsBefore(const Stand& stand) const;
    void Build();
    void Land(std::optional<Stand> stand, Place otherwise);
    void Step(bool back);

    QString m_index;
    bool m_unique = false;
    QStringList m_keys;       ///< quoted columns of the index
    QList<FieldType> m_types; ///< of the keys
    QString m_seekSql;
    Place m_place = Place::Nowhere;
    Stand m_stand;
    mutable bool m_keyKnown = false; ///< after a Seek the key is read only when a move needs it
    bool m_noMatch = false;
};

} // namespace vasclip::engine
