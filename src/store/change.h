#pragma once

#include "store/data_source.h"

#include <QMap>

namespace vasclip::store {

/// Values of columns by their names in capitals; an invalid one is Null.
using FieldValues = QMap<QString, QVariant>;

/// What one change has done to one record: what a history tells and takes back.
struct Step
{
    enum class Kind { Added, Edited, Deleted };
    Kind kind = Kind::Edited;
    QString words = {}; ///< for the user's eyes: "Rename 12 MAIN ST"
    QString table = {}; ///< that the record belongs to
    QString key = {};   ///< of the record before it, of a new one after it; "" where the table has no key
    FieldValues before = {}; ///< as stored: of an edit the fields that it set, of a deletion all; long binary ones are left out
    FieldValues after = {};  ///< the fields that it set
};

/// The one writer: every change of a record is begun, filled, stored and dropped here, so that its values before and
/// after and the words of the step are known where it is stored.
///
/// A source has at most one change under way. It is the record set's edit: a move or a look-up drops it. What the record
/// set refuses to store (a key that is there, a record that another user holds) stays under way, to be mended and stored
/// again or dropped. Once it has taken the change, the change is over: where the watcher or the commit fails after that,
/// the record is as it was, and who wants it changed begins anew. Within a store::Transaction neither is asked before
/// that one commits. All throw as the record set does.
class Change
{
public:
    struct NewRecord
    {};
    struct TakePart
    {};
    struct OfKey
    {
        QString key;
    };
    struct NewKey
    {};
    /// Begins to change the record on which the source stands, whose key takes the place of a "%1" in the words; a change
    /// under way is dropped.
    Change(DataSource& source, const QString& words);
    /// Begins a new record; a change under way is dropped.
    Change(DataSource& source, NewRecord record, const QString& words);
    /// Begins to change the record of a key, wherever the source stands: neither its cursor nor its change under way
    /// notices. Of these too there is at most one. @throws 3021 if there is none, as ReadRecord would tell
    Change(DataSource& source, const OfKey& record, const QString& words);
    /// Begins a new record in the same way.
    Change(DataSource& source, NewKey record, const QString& words);
    /// Takes part in the change under way, which its beginner stores, or begins one.
    Change(DataSource& source, TakePart part, const QString& words);
    ~Change(); ///< drops what was begun here and is under way
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

    /// What stands on the record that is being changed, for the routines that fill its fields.
    [[nodiscard]] DataSource& Source() const { return m_source; }

    void Set(const QString& field, const QVariant& value) { Set(m_source, field, value); }
    /// Stores in one transaction; not yet where it takes part in another's change. @throws 3020 if it was dropped
    void Store();

    // For a change that outlives the routine that begins it.
    static void Begin(DataSource& source, const QString& words); ///< or takes part in the one under way
    static void BeginNew(DataSource& source, const QString& words);
    static void Set(DataSource& source, const QString& field, const QVariant& value); ///< @throws 3020 without one
    static void StoreOpen(DataSource& source);
    static void Drop(DataSource& source); ///< nothing without one
    [[nodiscard]] static bool Open(const DataSource& source);

    /// Deletes the record on which the source stands.
    static void Delete(DataSource& source, const QString& words);
    /// Deletes the record of a key as Change(OfKey) would change it. @return false if there is none
    static bool DeleteKey(DataSource& source, const QString& key, const QString& words);

    /// Changes all records for which a condition of the fixed SQL text holds, in one transaction: a step for each.
    /// @param texts  what each of them gets
    /// @return how many. @throws RuntimeError as Database::Execute
    static qint64 Rows(DataSource& source, const QMap<QString, QString>& texts, const QString& condition,
                       const QString& words);

private:
    [[nodiscard]] static bool StandOn(DataSource& beside, const QString& key);
    static void Note(DataSource& source, Step::Kind kind, const QString& words);

    std::shared_ptr<DataSource> m_beside; ///< of a change by key
    DataSource& m_source;
    std::weak_ptr<Step> m_begun; ///< what was begun here, while it is under way
    bool m_mine = false;         ///< begun here and not stored by Store
};

} // namespace vasclip::store
