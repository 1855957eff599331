#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "platform/files/disk.h"
#include "platform/text/runtime_error.h"
#include "store/data_source.h"

#include <functional>
#include <optional>

namespace vasclip::upkeep {

/// The sale dates of the records that are archived, both days included. An empty one is 01/01/1900, the day of a
/// pending sale.
struct SaleRange
{
    QString start, stop;
};

/// Is a record of this sale date in the range? One that has no date is in none.
[[nodiscard]] bool InRange(const QString& saleDate, const SaleRange& range, QDate today);

/// What is done with a record whose key the archive has.
enum class Duplicates { Overwrite, Ask };

/// What records are archived from and where to.
struct ArchiveWork
{
    forms::Ports ports;
    store::DataSource& databook; ///< table-type source of COMPS
    const common::Globals& globals;
    const files::Disk& disk;
    QString file; ///< the archive, which is there
    QString table;
    SaleRange range;
    Duplicates duplicates = Duplicates::Overwrite;
};

struct Archived
{
    qint64 moved = 0;
    qint64 overwritten = 0;
    QStringList left = {};     ///< "KEY: why" of each that is in range and stayed
    QStringList pictures = {}; ///< files that are in the archive and could not be deleted here
    QStringList missing = {};  ///< "KEY: which" of the pictures that a moved record lists and that are not there
    bool empty = false;        ///< the Databook has no records
    bool stopped = false;
    std::optional<RuntimeError> failure = {}; ///< what ended it before its end
    QString failedAt = {};                    ///< the key of the record that was at work then
};

/// Told before each record; false stops behind the one before it.
using ArchiveStep = std::function<bool(qint64 done, qint64 of, const Archived& soFar)>;

/// Moves every record in range into the archive, each with its pictures and in a transaction over both files: whatever
/// ends it, a record is in one of them, and where it is its pictures are. Its front picture goes into the row too, so
/// that an import brings it back.
/// What refuses one record leaves it here and goes on; what refuses them all (a lock, a full disk) ends it, and what was
/// moved until then stays moved and is told.
/// @throws RuntimeError, what the disk or the database refuse before the first record
[[nodiscard]] Archived CopyArchiveData(const ArchiveWork& work, const ArchiveStep& step);

/// What came of it, in a sentence.
[[nodiscard]] QString WordsOf(const Archived& done, const QString& file);

} // namespace vasclip::upkeep
