#pragma once

#include "platform/engine/types.h"
#include "platform/text/time_source.h"

#include <QVariant>

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace vasclip::engine {

/// What the rows of a store are made of.
struct RowShape
{
    TableDef table;           ///< that the rows belong to
    FieldList fields;         ///< that they show
    std::vector<int> sources; ///< of each of these the field of the table, -1 for a computed one
    bool computed = false;    ///< one row that no table holds (a count)
    bool updatable = true;    ///< the rows can be changed through what they show
};

struct StoredRow
{
    qint64 version = 0; ///< raised by every change, whoever makes it
    QVariantList values;
};

/// Values by field of the table.
using RowChanges = std::map<int, QVariant>;

/// A row's place in the order of an index: its key there (empty without an index) and itself.
struct Stand
{
    Bookmark id{};
    QVariantList key;
};

/// What a reading of rows gives of a long binary field.
enum class Longs { Sizes, Whole };

enum class UpdateOutcome { Done, Changed, Gone };

/// What a back end does for one record set: the rows of a table or of a query, by identity, and the walk along
/// a table. Cursor rules (where a set stands, what an edit is, what is fresh) lie above it and are the same for
/// every back end. All failures are RuntimeError with the engine's number.
class RowStore
{
public:
    virtual ~RowStore() = default;
    RowStore() = default;
    RowStore(const RowStore&) = delete;
    RowStore& operator=(const RowStore&) = delete;

    [[nodiscard]] virtual const RowShape& Shape() const = 0;
    [[nodiscard]] virtual bool IsOpen() const = 0; ///< false when the database was closed
    virtual void NeedOpen() const = 0;             ///< @throws 3420 then
    /// May this user change the table's rows, in this opening?
    [[nodiscard]] virtual bool Updatable() const = 0;
    /// Why not, and what to do: a sentence without its full stop.
    [[nodiscard]] virtual QString WhyReadOnly() const = 0;
    /// The engine's.
    [[nodiscard]] virtual const text::TimeSource& Time() const = 0;
    /// Raised by what may make rows read before stale without raising their version (a change through this
    /// opening, one taken back). Costs nothing to ask.
    [[nodiscard]] virtual quint64 Generation() const = 0;

    /// Hands out the rows' identities in their order, some at a time, until the sink answers false.
    virtual void ReadKeys(const std::function<bool(std::span<const Bookmark>)>& sink) = 0;
    /// The one row of a computed shape.
    [[nodiscard]] virtual QVariantList ReadComputed() = 0;
    /// Reads rows in one call.
    /// @param fields  of the shape; the values come in this order
    /// @return for each of `ids` its row; nothing for one that is gone
    [[nodiscard]] virtual std::vector<std::optional<StoredRow>> Read(std::span<const Bookmark> ids,
                                                                     const QList<int>& fields,
                                                                     Longs longs) = 0;
    /// @return nothing for a row that is gone
    [[nodiscard]] virtual std::optional<qint64> Version(Bookmark id) = 0;
    /// A long binary value as a whole. @throws 3167 for a row that is gone
    [[nodiscard]] virtual QVariant ReadLong(Bookmark id, int field) = 0;
    /// A piece of a long binary field of the table; empty beyond its end or for a row that is gone.
    [[nodiscard]] virtual QByteArray ReadPiece(Bookmark id, int source, qint64 offset, qint64 bytes) = 0;

    // Changes; each is one transaction, or part of the one under way, which an error does not end. A long binary value may be
    // a LongSource, which is read meanwhile; what it throws takes the change back and goes on to the caller.
    [[nodiscard]] virtual Bookmark Insert(const RowChanges& values) = 0; ///< @throws 3022, 3218, 61
    /// Stores values if the row is as it was read; the test and the change are one step.
    [[nodiscard]] virtual UpdateOutcome Update(Bookmark id, qint64 version, const RowChanges& values) = 0;
    [[nodiscard]] virtual bool Delete(Bookmark id) = 0; ///< false for a row that is gone

    // The table in the order of an index, of insertion without one (nullptr).
    [[nodiscard]] virtual qint64 CountRows() = 0;
    /// @return nothing for a row that is gone
    [[nodiscard]] virtual std::optional<Stand> StandOf(const IndexDef* index, Bookmark id) = 0;
    /// The rows beyond a stand, nearest first, or from the edge if `from` is null.
    /// @param most  no more than so many; a store for which a row costs as much as many gives several, the
    ///              others one
    /// @return empty at the end
    [[nodiscard]] virtual std::vector<Stand> Walk(const IndexDef* index, const Stand* from, bool back,
                                                  int most) = 0;
    [[nodiscard]] virtual qint64 CountBefore(const IndexDef* index, const Stand& stand) = 0;
    /// The first row with that value in the first field of the index.
    [[nodiscard]] virtual std::optional<Bookmark> Seek(const IndexDef& index, const QString& key) = 0;
};

} // namespace vasclip::engine
