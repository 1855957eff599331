#pragma once

#include "platform/engine/recordset.h"
#include "platform/engine/row_store.h"

#include <QHash>

#include <map>
#include <optional>

namespace vasclip::engine {

/// What both kinds of record set share, on every back end: the fields of the current row, and changing it.
///
/// A row is read when its first value is asked for and kept until the position is set anew; long binary
/// values are read one by one. Where the position is, the kinds know.
class RowRecordset : public Recordset
{
public:
    explicit RowRecordset(std::unique_ptr<RowStore> store);

    [[nodiscard]] bool Updatable() const override;
    [[nodiscard]] EditMode CurrentEditMode() const override
    {
        return m_store && m_store->IsOpen() ? m_mode : EditMode::None;
    }
    void Edit() override;
    void AddNew() override;
    void Update() override;
    void CancelUpdate() override;
    void Delete() override;
    [[nodiscard]] const FieldList& Fields() const override { return m_fields; }
    [[nodiscard]] int FieldIndex(const QString& name) const override;
    using Recordset::SetValue;
    using Recordset::Value;
    [[nodiscard]] QVariant Value(int field) const override;
    void SetValue(int field, const QVariant& value) override;
    [[nodiscard]] qint64 FieldSize(const QString& name) const override;
    [[nodiscard]] QByteArray GetChunk(const QString& name, qint64 offset, qint64 bytes) const override;
    void AppendChunk(const QString& name, const QByteArray& bytes) override;
    [[nodiscard]] Bookmark GetBookmark() const override { return NeedId(); }
    void Close() override;

protected:
    [[nodiscard]] RowStore& Store() const;           ///< @throws 3420 when closed
    [[nodiscard]] const RowShape& Shape() const { return Store().Shape(); }
    [[nodiscard]] const TableDef& Table() const { return Shape().table; }
    [[nodiscard]] Bookmark NeedId() const; ///< the current row; @throws 3021 without one
    void Moved();                          ///< drops an edit; the row is looked at anew
    /// Shows a row that no table holds (a count).
    void ShowComputed(const QVariantList& values);

    [[nodiscard]] virtual std::optional<Bookmark> CurrentId() const = 0;
    virtual void RowAdded(Bookmark id) = 0;
    virtual void RowChanged(Bookmark id) = 0;
    virtual void RowDeleting(Bookmark id) = 0; ///< while it can still be read
    virtual void RowDeleted(Bookmark id) = 0;

private:
    struct Row
    {
        Bookmark id{};
        quint64 generation = 0; ///< of the store when it was read
        StoredRow stored;
    };

    /// What was read beyond the piece that was asked for, since each reading walks the value from its begin.
    struct Window
    {
        Bookmark id{};
        int source = -1;
        std::optional<qint64> version; ///< of the row before it was read
        quint64 generation = 0;
        qint64 offset = 0;
        QByteArray bytes;
    };

    [[nodiscard]] QByteArray ReadPiece(Bookmark id, int source, qint64 offset, qint64 bytes) const;
    [[nodiscard]] std::optional<Row> ReadRow(Bookmark id) const;
    [[nodiscard]] bool Unchanged(Bookmark id) const; ///< is m_row the row, as the store holds it now?
    [[nodiscard]] bool ReadNow(Bookmark id) const;   ///< into m_row; false if the row is gone
    [[nodiscard]] const Row& NeedRow() const;        ///< @throws 3021, 3167
    [[nodiscard]] int NeedField(int field) const;
    [[nodiscard]] int NeedField(const QString& name) const;
    [[nodiscard]] int NeedSource(int field) const;
    [[nodiscard]] int SourceOf(int field) const { return Shape().sources[static_cast<std::size_t>(field)]; }
    [[nodiscard]] const QVariant* Changed(int field) const;
    void NeedUpdatable() const;
    void CheckRequired(bool adding) const;
    [[nodiscard]] bool ReadFresh();
    void StoreChanges();

    std::unique_ptr<RowStore> m_store;
    FieldList m_fields;
    QHash<QString, int> m_byName;
    QList<int> m_all; ///< every field, in order
    mutable std::optional<Row> m_row;
    mutable Window m_window;
    mutable bool m_current = false; ///< m_row was read, or found unchanged, since the last move
    EditMode m_mode = EditMode::None;
    RowChanges m_changes;
    std::map<int, QByteArray> m_chunks; ///< appended so far, by field of the table
};

} // namespace vasclip::engine
