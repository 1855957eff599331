#pragma once

#include "store/store.h"

#include <QStringList>

// A field's library is a column of table COMPS of the comment file, row by row in the order of the table: the
// phrases of F3 to F8 in the first six rows, behind them the free list. All routines work on a source that is
// bound to that table (table kind, no index) and throw RuntimeError 3265 for a column that the file has not.

namespace vasclip::comments {

inline constexpr int kKeys = 6;

/// Binds a source to the table of a comment file. A file with fewer than six rows gets them, and the later
/// rows lose their keys, unless the file is read-only. @throws as OpenDatabase
void OpenCommentSource(store::DataSource& data, const QString& path);

/// Adds six rows whose Centralkey is "1" to "6", in one transaction.
void Add6Records(store::DataSource& data);

/// Steps over the first six rows and blanks the CENTRALKEY of every later row to 20 blanks, in one
/// transaction. Rows that are blank already are not written.
void EnsureAtLeast6Records(store::DataSource& data);

/// Rows that the file has for the free list of a field; 0 for a file that ends with the keys.
[[nodiscard]] int ListCapacity(const store::DataSource& data);

enum class Capitals { Keep, Upper };

/// The phrase of a key, trimmed; "" for Null and for a row that is not there.
/// @param keyIndex  0 for F3 to 5 for F8
[[nodiscard]] QString ReturnComment(store::DataSource& data, int keyIndex, const QString& column,
                                    Capitals capitals);

enum class Stored { Yes, Declined };

/// Stores a text on a key. Another phrase that is there is asked for first; the question shows the new text
/// cleaned of illegal characters. The same text is written without a question.
///
/// Rule: sharing. What another user stored meanwhile on other fields of the row stays; on this field it is
/// asked for like any other phrase.
/// @throws RuntimeError 3163 too long for the column, 3027 file read-only, 3218 locked by another user for
/// longer than the engine waits; the row is then untouched
Stored SaveTheComment(const forms::Ports& ports, store::DataSource& data, int keyIndex, const QString& column,
                      const QString& text);

/// The six phrases, trimmed, "" for Null.
[[nodiscard]] QStringList KeyPhrases(store::DataSource& data, const QString& column);
/// The free list: the values from the seventh row on; the first empty one ends it.
[[nodiscard]] QStringList ListPhrases(store::DataSource& data, const QString& column);
/// Are there values behind the empty one that ends the free list?
[[nodiscard]] bool HasPhrasesBehindAGap(store::DataSource& data, const QString& column);

/// Empties the column in every row below the six keys. @return how many rows were written
int ClearAllFieldsBelow6(store::DataSource& data, const QString& column);

/// Writes a library back: the column below the keys is emptied, then the entries go to the rows from the
/// first on, the six keys leading. An empty entry leaves the value of its row and moves on; the end of the
/// table ends the writing. One transaction.
/// @return the entries that found no row, which are not stored
[[nodiscard]] QStringList SaveListControl(store::DataSource& data, const QString& column,
                                          const QStringList& entries);

/// A field's library: six keys, then the list.
struct Library
{
    QStringList keys;
    QStringList list;
    bool operator==(const Library&) const = default;
};

[[nodiscard]] Library ReadLibrary(store::DataSource& data, const QString& column);

/// What a user's library becomes when others changed the column since he opened it: his own changes, with a
/// key that he left alone as it stands now, and phrases that others added to the list behind his.
/// @param opened  what he saw, `mine` what he made of it, `now` what the file holds
[[nodiscard]] Library Merged(const Library& opened, const Library& mine, const Library& now);

/// Adds a phrase to the free list, in one transaction. @return false if it stands there already
/// @throws RuntimeError 5 for an empty phrase and for a list without room
bool AddPhrase(store::DataSource& data, const QString& column, const QString& text);
/// Takes a phrase out of the free list, later ones move up by one; in one transaction. @return false if it is
/// not there
bool DatDeleteRecord(store::DataSource& data, const QString& column, const QString& text);

} // namespace vasclip::comments
