#include "databook/databook_upgrade.h"

#include "common/error_block.h"
#include "common/given_up.h"
#include "platform/text/runtime_error.h"
#include "store/messages.h"
#include "store/schema.h"
#include "store/upgrade.h"

#include <optional>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

const QString kUpdateQuestion =
    u"The 'databook' database needs to be updated.  Please have all users (using this program) exit this application at "
    "this time.  You should have a good backup of your data BEFORE using this option.  Are you ready at this time?"_s;
const QString kUnableTitle = u"Unable to Connect to Database"_s;
const QString kUnable =
    u"Unable to Connect to %1.  Please very connectivity to the correct database location before opening %2."_s;
const QString kScratch = u"tempdat.mdb"_s;
const QString kReference = u"newdata.mdb"_s;
const QStringList kReferences{kReference, u"newcmts.mdb"_s, u"appraisal.mbk"_s};

bool HasTemplate(const files::Disk& disk, const common::Globals& globals)
{
    return disk.FileExists(globals.G_UserDir + kReference) || disk.FileExists(globals.G_ProgramDir + kReference);
}

} // namespace

void CopyFromNewFiles(const files::Disk& disk, const common::Globals& globals)
{
    // Each replaces the one before, so that only the last one is worth its copy.
    QString last;
    for (const QString& reference : kReferences)
        if (disk.FileExists(globals.G_ProgramDir + reference))
            last = globals.G_ProgramDir + reference;
    const QString scratch = globals.G_UserDir + kScratch;
    if (last.isEmpty() || (disk.FileExists(scratch) && disk.FileLen(scratch) == disk.FileLen(last) &&
                           disk.FileDateTime(scratch) >= disk.FileDateTime(last)))
        return;
    disk.FileCopy(last, scratch);
}

void Copy2Temp(engine::Engine& engine, const common::Globals& globals)
{
    engine.CopyDatabase(globals.G_ProgramDir + u"NEWDATA.MDB"_s, globals.G_DataDir + u"TEMPCOMP.MDB"_s);
    engine.CopyDatabase(globals.G_ProgramDir + u"NEWCMTS.MDB"_s, globals.G_UserDir + u"TEMPCMTS.MDB"_s);
}

bool HasAllFields(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals,
                  const QString& path, const QString& table)
{
    try {
        CopyFromNewFiles(engine.Disk(), globals);
    } catch (const RuntimeError&) {
        // The comparison reads the reference itself; a home that can't be written has no use for the scratch file.
    }
    qsizetype wanted = store::CompsTable().fields.size();
    if (HasTemplate(engine.Disk(), globals)) {
        const std::optional<qsizetype> counted = store::ReferenceCount(ports, engine, globals);
        if (!counted)
            throw forms::EndOfProgram{1};
        wanted = *counted;
    }
    return store::FieldCount(engine, path, table) == wanted;
}

void CheckCompDBF2(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals,
                   store::DataSource& datDatabook, const QString& path, const QString& table)
{
    const RoutineScope scope{"CheckCompDBF2"};
    try {
        // One that can't be written is not asked about: Yes would come to nothing.
        if (HasAllFields(ports, engine, globals, path, table) || !store::TakesFields(engine, path))
            return;
    } catch (const RuntimeError&) {
        common::TakeGivenUp();
        return; // the next step opens it, says what is wrong and offers ways out
    }
    if (ports.prompter.MsgBox(forms::Buttons::YesNo, forms::Icon::Exclamation, store::kPlainTitle, kUpdateQuestion) !=
        forms::Answer::Yes)
        return;
    datDatabook.Close();
    try {
        common::Guarded(ports.prompter, [&] {
            try {
                static_cast<void>(store::AppendAlone(ports, engine, path, table));
            } catch (const RuntimeError& failure) {
                if (failure.Number() != error::kBadFileName)
                    throw;
                ports.prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Critical, kUnableTitle,
                                      kUnable.arg(path, globals.productName));
            }
        });
    } catch (const RuntimeError& failure) {
        common::ReportError(ports.prompter, failure); // and the start goes on with the old table
    }
}

} // namespace vasclip::databook
