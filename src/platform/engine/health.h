#pragma once

#include "platform/engine/database.h"

#include <functional>
#include <optional>

namespace vasclip::engine {

/// How much of a file is looked at: what costs a start a millisecond, what nobody notices who is not waiting, or
/// every page, index and value.
enum class CheckDepth { Opening, Quiet, Whole };

/// A database of a kind that looks after its own health.
class SelfChecked
{
public:
    virtual ~SelfChecked() = default;
    [[nodiscard]] virtual QString Damage() const = 0;      ///< as DamageOf
    virtual QStringList Check(CheckDepth depth) = 0; ///< as CheckDatabase
};

/// What is wrong with the file, as far as a check or a read that failed has shown; "" when nothing is known.
/// A damaged file is open for reading only from then on.
[[nodiscard]] QString DamageOf(const Database& database);

/// Does the disk that the file is on keep locks, as far as was seen when it was opened? Without them two users who write at once
/// spoil the file for each other. True for kinds that need none.
[[nodiscard]] bool LocksHold(const Database& database);

/// Looks whether the file is whole; what is found is its damage. @return findings, the first one first
/// @throws 3187 locked by another user, 57 the disk failed
QStringList CheckDatabase(Database& database, CheckDepth depth);

/// Can the full-text index of a table be read to its end? One that can't is made anew by KeepTextIndex.
[[nodiscard]] bool TextIndexReads(Database& database, const QString& table);

/// What came over from a database that is damaged.
struct Rescued
{
    qint64 records = 0;    ///< that the new file has
    qint64 lost = 0;       ///< that could not be read
    qint64 incomplete = 0; ///< among the records: not all of their values could be read
    QStringList names;     ///< keys of some that are lost or incomplete, with what is missing
};

/// Makes a new database of all that can still be read of one that may be damaged. It appears whole or not at all,
/// and the source is only read.
/// @param step  told the records so far; false stops, and nothing was made
/// @return nullopt if it was stopped. @throws 3204 target is there, 3049 nothing can be read, as OpenDatabase
std::optional<Rescued> CopyReadable(Engine& engine, const QString& source, const QString& target,
                                    const std::function<bool(qint64 records)>& step = {});

} // namespace vasclip::engine
