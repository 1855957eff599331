#pragma once

#include "platform/engine/row_store.h"
#include "platform/engine/sqlite/session.h"

namespace vasclip::engine {

/// The rows of one statement or table of a SQLite file.
///
/// No statement stays open between two calls, so no lock outlives a call outside of a transaction.
class SqliteRowStore final : public RowStore
{
public:
    SqliteRowStore(std::shared_ptr<Session> session, sql::Plan plan);
    ~SqliteRowStore() override;

    /// Lets go of the connection; every call then throws 3420.
    void Release();

    [[nodiscard]] const RowShape& Shape() const override { return m_shape; }
    [[nodiscard]] bool IsOpen() const override { return m_connection != nullptr; }
    void NeedOpen() const override { static_cast<void>(Open()); }
    [[nodiscard]] bool Updatable() const override { return m_connection && m_session->Updatable(); }
    [[nodiscard]] QString WhyReadOnly() const override { return m_session->WhyReadOnly(); }
    [[nodiscard]] const text::TimeSource& Time() const override { return *m_session->workspace->time; }
    [[nodiscard]] quint64 Generation() const override { return Open().Generation(); }
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
    /// The columns of an index, as its order is said.
    struct Keys
    {
        QString index; ///< its name
        QStringList columns; ///< quoted
        QList<FieldType> types;
        bool unique = false;
    };

    [[nodiscard]] Connection& Open() const; ///< @throws 3420 when closed
    [[nodiscard]] std::optional<std::pair<qint64, qint64>> RunWithoutGap() const;
    struct Select
    {
        QList<int> fields;
        Longs longs = Longs::Sizes;
        QString head; ///< up to the condition on the identity
        QString one;  ///< of one row
    };
    [[nodiscard]] const Select& SelectOf(const QList<int>& fields, Longs longs);
    [[nodiscard]] StoredRow RowOf(const Query& query, const Select& select) const;
    [[nodiscard]] const QString& UpdateOf(const RowChanges& values);
    void BindValues(Query& query, int first, const RowChanges& values) const;
    void WriteLarge(Bookmark id, const RowChanges& values);
    [[nodiscard]] const Keys& KeysOf(const IndexDef* index);
    [[nodiscard]] static Stand StandAt(const Query& query, const Keys& keys);
    [[nodiscard]] std::optional<Stand> Edge(const Keys& keys, bool last);
    [[nodiscard]] std::optional<Stand> Neighbour(const Keys& keys, const Stand& from, bool back);

    std::shared_ptr<Session> m_session;
    std::shared_ptr<Connection> m_connection; ///< null when closed
    sql::Plan m_plan;
    RowShape m_shape;
    Select m_row;  ///< reads every field
    Select m_some; ///< reads those that were asked for last
    Keys m_keys;   ///< of the index walked last
    QString m_versionSql;
    std::vector<int> m_updateFields; ///< that m_updateSql stores
    QString m_updateSql;
    QString m_seekIndex; ///< the index that m_seekSql seeks in
    QString m_seekSql;
};

} // namespace vasclip::engine
