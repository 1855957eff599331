#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "databook/record_desk.h"
#include "platform/files/disk.h"

#include <functional>

namespace vasclip::databook {

/// What the buttons of the "Add a comp" area work with.
struct RecordWork
{
    const forms::Ports& ports;
    RecordDesk& desk;
    common::StatusDesk& status;
    store::DataSource& databook; ///< table-type source of COMPS
    const common::Globals& globals;
    const files::Disk& disk;
    /// Opens the entry screen of the record on a key; true if something was stored there. Empty: there is
    /// none.
    std::function<bool(const QString& key)> loadCompForm = {};
    /// Shows the records anew and stands on the row of a key, or on the row as before if the grid has none.
    std::function<void(const QString& key)> showRecord = {};
    /// Addresses that a comp may get in frm_Rename, those of the open report.
    QStringList newNames = {};
};

// Each looks at the guards first and says in `lblmsg` what is missing, in blue; what was refused, in red.
// @throws RuntimeError for what the central error block does not handle

/// Adds the comp of the entry area and opens its entry screen. An address that is in the Databook already,
/// also one that another user added a moment ago, asks whether to open its record instead.
void CompAddRecord(const RecordWork& work);
/// Opens the entry screen of the record.
void CompEditRecord(const RecordWork& work);
/// Asks, deletes the record, then its picture files; the grid stays where it is.
void CompDeleteRecord(const RecordWork& work);
/// Opens frm_Rename to copy, or to rename, the record.
void CompCopyRecord(const RecordWork& work);
void CompRenameRecord(const RecordWork& work);

} // namespace vasclip::databook
