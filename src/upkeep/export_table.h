#pragma once

#include "upkeep/transfer_desk.h"

namespace vasclip::upkeep {

/// What is copied out of the Databook, and where to.
struct ExportOrder
{
    QString target; ///< drive path of the database file
    QString table;  ///< in it, trimmed and in capitals
    QString search; ///< as SearchTextOf has it; "" for all records
    bool pictures = false;
    bool access = false; ///< a new target is an Access file; one that is there stays of its kind in any case
};

struct ExportResult
{
    bool written = false; ///< false: the target is as it was
    bool stopped = false;
    bool declined = false; ///< the user keeps what the target would lose
    QString file = {}, table = {};
    qint64 records = 0;
    int pictures = 0;  ///< that are inside
    int without = 0;   ///< records that have no front view
    QStringList notIn = {}; ///< "KEY: why" of each picture that could not be read
    QStringList notes = {}; ///< a sentence each: what the written file has not, and that its kind stayed
    QStringList lost = {};  ///< what the file had before and has no more: "the saved query SALES"
};

/// Copies the records of a search into a table of another database, in place of one of that name. All of it is done in
/// a file beside the target, which takes the target's place in one step; what ends the work before leaves no trace. The
/// user is asked first where the target has something that can't be written again.
/// @return not written after a refusal (told) or a stop. @throws RuntimeError of disk and engine
ExportResult ExportTable(const TransferDesk& desk, const ExportOrder& order, const WorkStep& step);

/// The end message: how many records, how many pictures, and which are not inside.
[[nodiscard]] QString WordsOf(const ExportResult& result);

} // namespace vasclip::upkeep
