#pragma once

#include "platform/engine/recordset.h"
#include "platform/engine/session.h"

#include <map>
#include <optional>

namespace vasclip::engine {

/// What both kinds of record set share: the fields of the current row, and changing it.
///
/// A row is read when its first value is asked for and kept until the position is set anew; long binary
/// values are read one by one. Where the position is, the kinds know.
class RowRecordset : public Recordset
{
public:
    RowRecordset(std::shared_ptr<Session> session, sql::Plan plan);
    ~RowRecordset() override;

    [[nodiscard]] bool Updatable() const override;
    [[nodiscard]] EditMode CurrentEditMode() const override { return m_mode; }
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
    [[nodiscard]] Connection& Open() const; ///< @throws 3420 when closed
    [[nodiscard]] const sql::Plan& Plan() const { return m_plan; }
    [[nodiscard]] const TableDef& Table() const { return m_plan.table; }
    [[nodiscard]] qint64 NeedId() const; ///< the current row; @throws 3021 without one
    void Moved();                        ///< drops an edit; the row is looked at anew
    /// Shows a row that no table holds (a count).
    void ShowComputed(const QVariantList& values);

    [[nodiscard]] virtual std::optional<qint64> CurrentId() const = 0;
    virtual void RowAdded(qint64 id) = 0;
    virtual void RowChanged(qint64 id) = 0;
    virtual void RowDeleting(qint64 id) = 0; ///< while it can still be read
    virtual void RowDeleted(qint64 id) = 0;

private:
    struct Row
    {
        qint64 id = 0;
        qint64 version = 0;
        quint64 generation = 0; ///< of the connection when it was read
        QVariantList values;    ///< of a long binary field its size
    };

    [[nodiscard]] std::optional<Row> ReadRow(qint64 id) const;
    [[nodiscard]] bool Unchanged(qint64 id) const; ///< is m_row the row, as the file holds it now?
    [[nodiscard]] bool ReadNow(qint64 id) const;   ///< into m_row; false if the row is gone
    [[nodiscard]] const Row& NeedRow() const;      ///< @throws 3021, 3167
    [[nodiscard]] int NeedField(int field) const;
    [[nodiscard]] int NeedField(const QString& name) const;
    [[nodiscard]] int NeedSource(int field) const;
    [[nodiscard]] QVariant LongValue(int field) const;
    [[nodiscard]] const QVariant* Changed(int field) const;
    void NeedUpdatable() const;
    void CheckRequired(bool adding) const;
    [[nodiscard]] qint64 Insert();
    void Store();

    std::shared_ptr<Session> m_session;
    sql::Plan m_plan;
    FieldList m_fields;
    QHash<QString, int> m_byName;
    QString m_rowSql;
    QString m_versionSql;
    mutable std::optional<Row> m_row;
    mutable bool m_current = false; ///< m_row was read, or found unchanged, since the last move
    EditMode m_mode = EditMode::None;
    std::map<int, QVariant> m_changes;  ///< by field of the table
    std::map<int, QByteArray> m_chunks; ///< appended so far, by field of the table
};

} // namespace vasclip::engine
