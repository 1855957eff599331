#pragma once

#include "platform/engine/row_walk.h"
#include "store/change.h"
#include "store/transaction.h"

namespace vasclip::store {

/// Every record of a source's table in turn, each of which may be changed or deleted: the writer of changes that go through
/// the whole table. They are one transaction of their own, and the watcher hears of each as of any other change. No cursor
/// takes part, neither the one that the user sees nor one beside it.
class ChangeWalk
{
public:
    /// The lock comes first: whoever changes a record between its reading and its writing would be overwritten.
    /// @param fields  that are read or set, and the key; those that the table lacks are left out. A walk that deletes
    ///                names all of them
    /// @param words   of the steps, a "%1" the key
    ChangeWalk(DataSource& source, const QStringList& fields, const QString& words);

    [[nodiscard]] qint64 Count() const { return m_rows.Count(); }
    [[nodiscard]] bool Next() { return m_rows.Next(); } ///< drops what was set and not stored. @return false at the end
    [[nodiscard]] int FieldIndex(const QString& name) const; ///< -1 if there is none
    [[nodiscard]] const engine::Field& FieldAt(int field) const { return m_rows.Fields().at(field); }
    [[nodiscard]] const QString& NameAt(int field) const { return m_names.at(field); } ///< in capitals
    [[nodiscard]] const QVariant& Value(int field) const { return m_rows.Value(field); }
    void Set(int field, const QVariant& value);
    void Store();                      ///< the record that it stands on
    void Delete(const QString& words); ///< likewise
    void Commit() { m_whole.Commit(); } ///< without it all is taken back

private:
    [[nodiscard]] Step StepOf(Step::Kind kind, const QString& words) const;

    Transaction m_whole;
    engine::RowWalk m_rows;
    QString m_table;
    QString m_words;
    QStringList m_names; ///< of the fields, in capitals
    QHash<QString, int> m_byName;
    int m_key = -1;
    std::optional<Step> m_step; ///< of the record that it stands on, while there is a watcher
};

} // namespace vasclip::store
