#pragma once

#include "platform/engine/database.h"

namespace vasclip::engine {

class Connection;
struct TextIndexCheck;

/// The full-text index of a table, kept in the database file.
///
/// It knows which rows held the three-letter groups of a word once; the rows themselves say whether they hold
/// the word, so nothing is ever taken out of it. Triggers note the rows that were added or changed, whoever
/// did it: a change costs one small row, and a search takes the noted rows in before it looks, or looks at
/// them one by one where the file cannot be written.
///
/// It is asked only after it was found right. Its own record of its segments stands beside it as it was left,
/// so that one that was emptied, swapped or written to by others is told from ours; and it has a sum of each
/// row's texts as it took them in, with which a row that was changed behind the triggers' back is found. The
/// sums are compared only when another program has written to the file since this was done last.
class TextIndex
{
public:
    TextIndex(Connection& connection, const TableDef& table, const QStringList& fields);

    /// Makes the index, goes on making it, or compares it with the rows, for at most about `milliseconds`.
    [[nodiscard]] TextIndexState Make(int milliseconds);
    /// Compares it with the rows and writes nothing: one that is wrong is not asked.
    [[nodiscard]] TextIndexState Check(int milliseconds);

    [[nodiscard]] TextHits Find(const TextSearch& search);

    /// Lets go of the damaged indexes of a file that was just opened: with a part missing, their triggers
    /// would keep records from being stored. KeepTextIndex makes them anew.
    static void Sweep(Connection& connection);
    /// What goes with a table that is dropped.
    static void DropOf(Connection& connection, const QString& schema, const QString& table);

private:
    enum class Standing { Missing, Damaged, Partial, Whole };
    [[nodiscard]] Standing Look();
    void Create();
    void Drop();
    void Anew(TextIndexTrouble trouble);        ///< lets it go and begins another
    void TakeIn(qint64 upto, int milliseconds); ///< the next rows behind `upto`, for about so long
    [[nodiscard]] bool CatchUp(); ///< takes a few noted rows in; @return false when there were none
    void Sign(); ///< keeps its record of its segments, within the transaction that changed them
    /// Compares the next rows with it, for so long. @return those that it does not know
    [[nodiscard]] std::vector<Bookmark> Compare(int milliseconds);
    void Note(const std::vector<Bookmark>& ids);
    void Stamp(); ///< lets the next who opens the file know that nothing has to be compared
    [[nodiscard]] TextIndexState MakeOn(int milliseconds);
    [[nodiscard]] TextHits Walk(const TextSearch& search, const QString& match);
    [[nodiscard]] QString Columns(const QString& prefix) const;
    [[nodiscard]] QString TriggerSql(const QString& part) const;
    [[nodiscard]] qint64 Upto();

    Connection& m_connection;
    TextIndexCheck& m_check;
    QString m_table;
    QStringList m_fields;
    QString m_index; ///< its name
    QString m_noted; ///< of the table of rows that it does not know yet
    QString m_known; ///< of the table of the sums of those that it knows
};

} // namespace vasclip::engine
