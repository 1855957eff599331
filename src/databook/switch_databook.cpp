#include "databook/switch_databook.h"

#include "common/error_block.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "store/messages.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Is the file there, whole, and with a table of comps? If not, says so.
bool MayBeOpened(forms::Prompter& prompter, engine::Engine& engine, const QString& path, const QString& table,
                 const QString& present)
{
    try {
        if (engine.Disk().Found(path, files::ReadOnly | files::Hidden))
            (void)engine.OpenDatabase(path, engine::OpenMode::ReadOnly)->Table(table);
    } catch (const RuntimeError& failure) {
        const bool taken =
            failure.Number() == error::kCouldNotReadLocked || failure.Number() == error::kExclusivelyLocked;
        if (taken) { // it is whole, but somebody has it
            prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
                            u"%1. The database %2 stays open."_s.arg(failure.Description(), present));
            return false;
        }
    }
    if (store::Ismdb(engine, path, table))
        return true;
    prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
                    u"%1 is missing, damaged, or holds no table %2 of comps. The database %3 stays open."_s.arg(
                        path, table, present));
    return false;
}

} // namespace

bool SwitchDatabook(const forms::Ports& ports, store::Sources& sources, common::Globals& globals,
                    const QString& directory, const QString& file, const std::function<void()>& opening)
{
    const common::RoutineScope scope{"SwitchDatabook"};
    const QString path = directory + file;
    const QString present = globals.G_DataDir + globals.G_DataFile;
    if (!MayBeOpened(ports.prompter, sources.datsql.Engine(), path, globals.G_Table, present))
        return false;
    opening();
    bool opened = false;
    try {
        store::Connect2Databook(ports, sources, path, globals.G_Table);
        opened = text::Folded(sources.datsql.DatabaseName()) == text::Folded(path);
    } catch (const RuntimeError& failure) {
        common::ReportError(ports.prompter, failure);
    }
    if (opened) {
        globals.G_DataDir = directory;
        globals.G_DataFile = file;
    } else {
        store::Connect2Databook(ports, sources, present, globals.G_Table);
    }
    return opened;
}

} // namespace vasclip::databook
