#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "platform/files/disk.h"
#include "store/data_source.h"
#include "upkeep/account.h"
#include "upkeep/delete_by_date.h"

#include <functional>
#include <span>

namespace vasclip::upkeep {

/// The repairs of whole tables.
enum class Repair {
    Recalc,
    ClearAnchors,
    ClearPhotos,
    LandSize,
    IllegalInKeys,
    IllegalInComments,
    MatchKey,
    ProperCase,
    UpperCase,
    DeleteBySale,
    DeleteByLoad,
};

/// What a repair is called and what it asks.
struct RepairText
{
    Repair repair;
    QLatin1StringView word; ///< for the terminal
    QString what;           ///< heading of its account
    QString question;       ///< "" for a deletion, which asks by its date
    forms::Icon icon;
    QString gauge;
    QString end;
};
[[nodiscard]] std::span<const RepairText> RepairTexts();
[[nodiscard]] const RepairText& TextOf(Repair repair);
[[nodiscard]] bool DeletesByDate(Repair repair);

/// What the repairs work on.
struct RepairDesk
{
    forms::Ports ports;
    store::DataSource& databook; ///< table-type source of COMPS
    const common::Globals& globals;
    const files::Disk& disk;
};

/// What became of a repair. Stopped: every record is as it was.
enum class RepairEnd { Done, Declined, Stopped };

struct RepairResult
{
    RepairEnd end = RepairEnd::Done;
    QString message = {}; ///< for the status label
};

/// Told how far a repair is; false stops it, as long as it can be taken back.
using RepairStep = std::function<bool(const QString& caption, qint64 done, qint64 of)>;

/// Asks the repair's question; a deletion's by its date.
[[nodiscard]] bool AskRepair(forms::Prompter& prompter, Repair repair, const Deletion& deletion = {});

/// Does it, in one transaction, and tells the account. Pictures of records that are deleted by date
/// go when that has been written.
/// @param deletion  of a deletion by date
/// @throws RuntimeError, what the disk or the database refuse; every record is as it was then
[[nodiscard]] RepairResult RunRepair(const RepairDesk& desk, Repair repair, const Deletion& deletion,
                                     Account& account, const RepairStep& step);

} // namespace vasclip::upkeep
