#pragma once

#include "platform/engine/database.h"

namespace vasclip::engine {

class Connection;

/// The full-text index of a table, kept in the database file.
///
/// It knows which rows held the three-letter groups of a word once; the rows themselves say whether they hold
/// the word, so nothing is ever taken out of it. Triggers note the rows that were added or changed, whoever
/// did it: a change costs one small row, and a search takes the noted rows in before it looks, or looks at
/// them one by one where the file cannot be written.
class TextIndex
{
public:
    TextIndex(Connection& connection, const TableDef& table, const QStringList& fields);

    /// Does the file have the index of these fields, with all that keeps it current, over all rows?
    [[nodiscard]] bool Whole();
    /// Makes the index, or goes on making it, for at most about `milliseconds`. One that is there for other
    /// fields, or without its triggers, is made anew. @return true when it is whole
    bool Make(int milliseconds);
    void Drop();

    [[nodiscard]] TextHits Find(const TextSearch& search);

    /// What goes with a table that is dropped.
    static void DropOf(Connection& connection, const QString& schema, const QString& table);

private:
    [[nodiscard]] bool Stands(); ///< with the right fields, whole or not
    void Create();
    [[nodiscard]] bool CatchUp(); ///< takes a few noted rows in; @return false when there were none
    [[nodiscard]] TextHits Walk(const TextSearch& search, const QString& match);
    [[nodiscard]] QString Columns(const QString& prefix) const;

    Connection& m_connection;
    QString m_table;
    QStringList m_fields;
    QString m_index; ///< its name
    QString m_noted; ///< of the table of rows that it does not know yet
};

} // namespace vasclip::engine
