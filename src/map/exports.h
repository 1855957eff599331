#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "forms/ports.h"
#include "link/report_desk.h"
#include "platform/engine/convert.h"
#include "platform/files/disk.h"
#include "store/store.h"

namespace vasclip::map {

/// What the exports for outside map programs work on.
struct ExportDesk
{
    const link::frm_Addr& addr;
    store::Sources& sources; ///< datmap is bound to what is written
    const common::Globals& globals;
    forms::Ports ports;
    common::StatusDesk& status;
    const files::Disk& disk;
};

/// One address of the report as it is exported: filtered, in the case of the settings.
struct ExportEntry
{
    QString label, address, city, state, zip;
    QString county; ///< of the subject and the sales
    QString zipOrSubjects; ///< of the database, where a missing ZIP is the subject's as well
    QString key;    ///< the box's own text
};

/// "SUBJECT" and "COMP #1" for the boxes of the subject and the sales, "ALT COMP #", "RENTAL #", "LISTING #" for the
/// others, "USER COMP" for any other box.
[[nodiscard]] QString ExportLabel(const forms::Control& box);
/// Every address of the report, the subject first; empty boxes are left out.
[[nodiscard]] QList<ExportEntry> ExportEntries(const ExportDesk& desk);
/// One line of the text file without its end; "" for an empty address. City and state fall back to the subject's.
[[nodiscard]] QString ExportMapLabel(const ExportDesk& desk, const forms::TextBox& box, bool quoted,
                                     const QString& city, const QString& state, const QString& zip);
/// Where exports go, with its backslash: the settings' directory, or the user's own without one.
[[nodiscard]] QString FindExportDir(const common::Globals& globals);

/// What came of an export, for those who are not before a window; the window reads `lblmsg`.
struct ExportResult
{
    bool written = false;
    QString file; ///< drive path
    int entries = 0;
};

/// `appraisal.txt` with each value in double quotes.
ExportResult ExportDelorme(ExportDesk desk);
/// The same without them.
ExportResult ExportDelorme2005(ExportDesk desk);
/// The database of the settings' name, as an Access file unless another kind is wanted.
/// @param newWizard  which way of importing the message tells; no other program imports a file of ours
ExportResult ExportMSStreets(ExportDesk desk, bool newWizard,
                             engine::DatabaseKind kind = engine::DatabaseKind::Access);
/// Makes it. An old one stays until the new one is whole. Refused, with a box, for the open Databook, a database of
/// the program's own and a file that somebody has open.
ExportResult ExportToAppraisalmdb(ExportDesk desk, engine::DatabaseKind kind = engine::DatabaseKind::Access);

/// Adds the columns of the export to the table of a file; those that are there are passed over.
void errcreatemdb(engine::Engine& engine, const QString& file);
/// Deletes all records of a bound source.
void DeleteAllRecs(store::DataSource& data);

} // namespace vasclip::map
