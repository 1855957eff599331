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
/// A source has at most one change under way. It is the record set's edit: a move or a look-up drops it, and what the
/// record set refuses stays under way. A step whose watcher fails is taken back and over. All throw as the record set does.
class Change
{
public:
    struct NewRecord
    {};
    struct TakePart
    {};
    /// Begins to change the record on which the source stands, whose key takes the place of a "%1" in the words; a change
    /// under way is dropped.
    Change(DataSource& source, const QString& words);
    /// Begins a new record; a change under way is dropped.
    Change(DataSource& source, NewRecord record, const QString& words);
    /// Takes part in the change under way, which its beginner stores, or begins one.
    Change(DataSource& source, TakePart part, const QString& words);
    ~Change(); ///< drops what was begun here and is under way
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

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

    /// Changes all records for which a condition of the fixed SQL text holds, in one transaction: a step for each.
    /// @param texts  what each of them gets
    /// @return how many. @throws RuntimeError as Database::Execute
    static qint64 Rows(DataSource& source, const QMap<QString, QString>& texts, const QString& condition,
                       const QString& words);

private:
    static void Note(DataSource& source, Step::Kind kind, const QString& words);

    DataSource& m_source;
    std::weak_ptr<Step> m_begun; ///< what was begun here, while it is under way
    bool m_mine = false;         ///< begun here and not stored by Store
};

} // namespace vasclip::store
