#include "upkeep/frm_import.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "upkeep/frm_list_columns.h"
#include "upkeep/frm_rehearse.h"
#include "upkeep/target_file.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QString kCaption = u"%1 - Database Export Utility"_s;
const QString kDashes = u"The file '%1' contains dashes (-) and must be renamed before it can be imported."_s;
const QString kMissingTitle = u"File Does Not Exist"_s;
const QString kMissing = u"File %1 does not exist."_s;
const QString kItselfTitle = u"Cannot Import"_s;
const QString kItself = u"Cannot Import %1 unto itself!"_s;
const QString kNeedTable = u"Choose a table first."_s;
const QString kRefused = u"Left out"_s;
const QString kCanceled = u"Canceled: nothing came in."_s;
const QString kMore = u"and %1 more"_s;
constexpr const char16_t* kLocations[] = {u"Import Location", u"Export Location", u"Archive Location"};

} // namespace

frm_Import::frm_Import(const TransferDesk& desk)
    : FileScreen(u"frm_Import"_s, desk)
    , optLocation(controls, u"optLocation"_s, ImportLocation, ArchiveLocation)
    , lblTargetDB(controls, u"lblTargetDB"_s)
    , cmdRehearse(controls, u"cmdRehearse"_s)
    , cmdImport(controls, u"cmdImport"_s)
{
    SetCaption(kCaption.arg(desk.globals.productName));
    SetTakesListedTable(true);
    SetTakesLists(true);
    cmdImport.SetCaption(u"&Import DB"_s);
    cmdRehearse.SetCaption(u"&Rehearse..."_s);
    cmdRehearse.SetToolTipText(u"Shows what each record would do before anything is done"_s);
    ckbCopy.SetToolTipText(u"Puts the pictures inside the rows into the photo directory"_s);
    for (int i = ImportLocation; i <= ArchiveLocation; ++i) {
        optLocation(i).SetCaption(QString::fromUtf16(kLocations[i]));
        connect(&optLocation(i), &forms::Control::Clicked, this, [this, i] { Choose(i); });
    }
    connect(&cmdRehearse, &forms::Control::Clicked, this, &frm_Import::cmdRehearse_Click);
    connect(&cmdImport, &forms::Control::Clicked, this, &frm_Import::cmdImport_Click);
}

void frm_Import::Form_Load()
{
    const common::RoutineScope scope{"frm_Import"};
    const common::Globals& globals = Desk().globals;
    txtFileName.SetText(globals.G_ImportFile);
    txtTable.SetText(globals.G_ImportTable);
    ckbCopy.SetValue(false);
    lblTargetDB.SetCaption(Desk().Databook());
    Choose(ImportLocation);
}

void frm_Import::Choose(int location)
{
    const common::RoutineScope scope{"optLocation"};
    for (int i = ImportLocation; i <= ArchiveLocation; ++i)
        optLocation(i).SetValue(i == location);
    const common::Globals& globals = Desk().globals;
    const QString directory = location == ImportLocation   ? globals.G_ImportDir
                              : location == ExportLocation ? globals.G_ExportDir
                                                           : globals.G_ArchiveDir;
    txtPath.SetText(QString(directory).replace(u"\\\\"_s, u"\\"_s));
    ListFiles();
    ListFileTables(txtTable.Text());
}

void frm_Import::EnableButtons(bool free)
{
    cmdImport.SetEnabled(free);
    cmdRehearse.SetEnabled(free);
    for (int i = ImportLocation; i <= ArchiveLocation; ++i)
        optLocation(i).SetEnabled(free);
}

bool frm_Import::RefusesMissing(const QString& file)
{
    if (IsThere(Desk().Disk(), file))
        return false;
    Prompter().Box(kMissingTitle, kMissing.arg(file));
    return true;
}

bool frm_Import::Refuses(const QString& source)
{
    const QString name = text::Trim(txtFileName.Text());
    if (name.contains(u'-')) {
        Tell(kDashes.arg(name), forms::Colour::Red);
        return true;
    }
    Tell({});
    if (IsGone(source))
        return true;
    if (text::Folded(source) == text::Folded(lblTargetDB.Caption())) {
        Prompter().Box(kItselfTitle, kItself.arg(name));
        return true;
    }
    if (NamesList() || !text::Trim(txtTable.Text()).isEmpty())
        return false;
    Tell(kNeedTable, forms::Colour::Red);
    return true;
}

void frm_Import::cmdImport_Click()
{
    if (Busy())
        return;
    ShowAccount({}, {});
    const QString source = File();
    if (Refuses(source))
        return;
    if (NamesList()) {
        ImportList(source);
        return;
    }
    const bool ended = Run("cmdImport", [&](const WorkStep& step) { Import(source, step); });
    if (!ended)
        Tell(WordsOf(ImportResult()), forms::Colour::Red);
    ListAgain(txtTable.Text());
}

void frm_Import::Import(const QString& source, const WorkStep& step)
{
    const forms::Hourglass hourglass(Desk().ports.window);
    const ImportResult result = ImportTable(
        Desk(), {.source = source, .table = text::Trim(txtTable.Text()), .pictures = ckbCopy.Value()}, step);
    m_changed = m_changed || result.appended > 0;
    const QStringList lines = AccountOf(result);
    TellOutcome(result.done, WordsOf(result), result.done && lines.isEmpty() ? forms::Colour::Blue : forms::Colour::Red);
    ShowLeftOut(lines);
}

void frm_Import::ShowLeftOut(QStringList lines)
{
    if (lines.size() > kShownLines) {
        const qsizetype more = lines.size() - kShownLines;
        lines.resize(kShownLines);
        lines.append(kMore.arg(more));
    }
    ShowAccount(kRefused, lines);
}

void frm_Import::cmdRehearse_Click()
{
    if (Busy())
        return;
    ShowAccount({}, {});
    const QString source = File();
    if (Refuses(source))
        return;
    if (NamesList())
        ImportList(source);
    else
        Rehearse({.source = source, .table = text::Trim(txtTable.Text()), .pictures = ckbCopy.Value()});
}

void frm_Import::Rehearse(const ImportOrder& order)
{
    std::unique_ptr<Rehearsal> rehearsal;
    const bool read = Run("cmdRehearse", [&](const WorkStep& step) {
        const forms::Hourglass hourglass(Desk().ports.window);
        rehearsal = std::make_unique<Rehearsal>(Desk(), order, step);
    });
    if (!read || !rehearsal)
        return;
    if (rehearsal->Stopped()) {
        Tell(kCanceled, forms::Colour::Red);
        return;
    }
    frm_Rehearse screen(Desk(), std::move(rehearsal));
    Desk().ports.screens.ShowModal(screen);
    m_changed = m_changed || screen.Done() > 0;
    TellOutcome(screen.Done() > 0, screen.lblmsg.Caption(), screen.lblmsg.Fore());
    ShowLeftOut(screen.LeftOut());
}

/// Nobody knows what a list holds before it was looked at: it comes in through its columns and the rehearsal alone.
void frm_Import::ImportList(const QString& source)
{
    std::shared_ptr<const ListFile> file;
    std::shared_ptr<const ListSource> list;
    try {
        const forms::Hourglass hourglass(Desk().ports.window);
        file = std::make_shared<const ListFile>(Desk().Disk(), source);
    } catch (const RuntimeError& failure) {
        Tell(failure.Description() + u'.', forms::Colour::Red);
        return;
    }
    frm_ListColumns columns(Desk(), file, file->IsWorkbook() ? text::Trim(txtTable.Text()) : QString());
    Desk().ports.screens.ShowModal(columns);
    if (!columns.Accepted())
        return;
    QString why;
    const bool read = Run("cmdRehearse", [&](const WorkStep& step) {
        try {
            list = std::make_shared<const ListSource>(Desk(), file, columns.Look(), step);
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kUnrecognisedDatabase)
                throw;
            why = failure.Description() + u'.';
        }
    });
    if (!why.isEmpty())
        Tell(why, forms::Colour::Red);
    else if (read && list->Stopped())
        Tell(kCanceled, forms::Colour::Red);
    else if (read)
        Rehearse(OrderOf(list));
}

} // namespace vasclip::upkeep
