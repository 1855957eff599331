#pragma once

#include "platform/engine/types.h"

#include <QByteArray>
#include <QVariant>

#include <memory>
#include <vector>

namespace vasclip::engine {

class Database;

/// A cursor over a table or a query, with the operations that the record layer was written against.
///
/// Table kind: rows in the order of the current `Index` (of insertion without one); `Seek` works on it.
/// Dynaset kind: the row keys are read when it opens, the rows on demand, so a million rows open like a
/// hundred; rows that others delete meanwhile read as error 3167 and rows that others add do not appear until
/// `Requery`.
///
/// Values are QVariant: an invalid one is Null, else QString, qlonglong, double, bool, QDateTime or
/// QByteArray by the field's type. All failures are RuntimeError with the engine's number.
class Recordset
{
public:
    virtual ~Recordset() = default;

    [[nodiscard]] virtual RecordsetType Type() const = 0;
    [[nodiscard]] virtual bool Updatable() const = 0;

    // Position. Bof and Eof are both true for an empty set; MoveFirst and MoveLast do nothing on one.
    [[nodiscard]] virtual bool Bof() const = 0;
    [[nodiscard]] virtual bool Eof() const = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    virtual void MoveNext() = 0;     ///< @throws 3021 at the end
    virtual void MovePrevious() = 0; ///< @throws 3021 at the beginning
    /// Rows of the set: exact for both kinds.
    [[nodiscard]] virtual qint64 RecordCount() const = 0;
    /// 0-based place of the current record, -1 without one. Dynaset only for setting (@throws 3219 on a
    /// table).
    [[nodiscard]] virtual qint64 AbsolutePosition() const = 0;
    virtual void SetAbsolutePosition(qint64 position) = 0;
    [[nodiscard]] virtual Bookmark GetBookmark() const = 0; ///< @throws 3021
    virtual void SetBookmark(const Bookmark& bookmark) = 0; ///< @throws 3159 for one that is gone

    // Keyed look-up, table kind. @throws 3800 for an index that is not there (at SetIndex or Seek), 3219 on a
    // dynaset
    virtual void SetIndex(const QString& name) = 0;
    [[nodiscard]] virtual QString Index() const = 0;
    /// Comparison "=" on the current index, without regard to case and trailing blanks. On a miss there is no
    /// current record until a move or a bookmark. @throws 3219 for another comparison
    virtual void Seek(const QString& comparison, const QString& key) = 0;
    [[nodiscard]] virtual bool NoMatch() const = 0;

    // Changing. A move, a Seek or a Close drops an edit that was not updated.
    [[nodiscard]] virtual EditMode CurrentEditMode() const = 0;
    virtual void Edit() = 0;   ///< remembers the row; @throws 3021, 3027
    virtual void AddNew() = 0; ///< @throws 3027
    /// One transaction. After an AddNew the position is the one before it (seek the new row to stand on it).
    /// @throws 3020 without Edit or AddNew, 3022 duplicate key, 3197 somebody else changed the row since Edit
    /// (the edit stays open with the fresh row remembered, so a second Update overwrites), 3163 too long,
    /// 3218 locked by another user for longer than the engine waits, 61 disk full; the row is then untouched
    virtual void Update() = 0;
    virtual void CancelUpdate() = 0;
    virtual void Delete() = 0; ///< no current record until a move; @throws 3021, 3218

    // Fields, by name without regard to case.
    [[nodiscard]] virtual const FieldList& Fields() const = 0;
    [[nodiscard]] virtual int FieldIndex(const QString& name) const = 0; ///< -1 if there is none
    [[nodiscard]] virtual QVariant Value(int field) const = 0;           ///< @throws 3021, 3265
    [[nodiscard]] QVariant Value(const QString& name) const;             ///< @throws 3021, 3265
    virtual void SetValue(int field, const QVariant& value) = 0; ///< @throws 3020, 3163, 3421 wrong type
    void SetValue(const QString& name, const QVariant& value);

    // Memo and long binary in pieces; offsets and sizes are characters for memo, bytes for long binary.
    [[nodiscard]] virtual qint64 FieldSize(const QString& name) const = 0;
    [[nodiscard]] virtual QByteArray GetChunk(const QString& name, qint64 offset, qint64 bytes) const = 0;
    virtual void AppendChunk(const QString& name, const QByteArray& bytes) = 0; ///< within Edit or AddNew

    /// Reads a row of a dynaset without moving the current record; for grids. Fields not asked for are
    /// skipped.
    /// @return the values of `fields` in that order; empty if the row is gone
    [[nodiscard]] virtual QVariantList Peek(qint64 position, const QList<int>& fields) const = 0;
    /// Place of a row in a dynaset, -1 if it is not in it.
    [[nodiscard]] virtual qint64 PositionOf(const Bookmark& bookmark) const = 0;

    /// The bookmarks of a dynaset's rows in their order. @throws 3219 for another kind
    [[nodiscard]] virtual const std::vector<Bookmark>& Bookmarks() const;
    /// Places of many rows in a dynaset, -1 for one that is not in it. The first call after a change of the
    /// set looks at all of its rows, the others at those asked for. @throws 3219 for another kind
    [[nodiscard]] virtual std::vector<qint64> PositionsOf(const std::vector<Bookmark>& bookmarks) const;

    virtual void Requery() = 0;
    virtual void Close() = 0;
};

} // namespace vasclip::engine
