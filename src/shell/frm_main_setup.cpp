// What the Setup, Database and Help menus lead to.

#include "common/error_block.h"
#include "common/settings.h"
#include "databook/grid.h"
#include "photos/capture_desk.h"
#include "platform/engine/errors.h"
#include "platform/text/text.h"
#include "shell/frm_change_db.h"
#include "shell/frm_config.h"
#include "shell/frm_main.h"
#include "shell/g_shell.h"
#include "shell/menus.h"
#include "store/messages.h"

#include <QFile>

static void InitChanges()
{
    Q_INIT_RESOURCE(changes);
}

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kHelpMenu = u"mnuHelpItem"_s;
const QString kTutorials = u"mnuHelpTut_M"_s;
constexpr int kCityListings = 3;

} // namespace

void frm_Main::ShowConfiguration()
{
    const common::RoutineScope scope{"ShowConfiguration"};
    const common::Globals before = globals;
    frm_Config config(m_base.engine, m_base.ports, globals);
    m_base.ports.screens.ShowModal(config);
    const bool moved = text::Folded(globals.G_DataDir + globals.G_DataFile) !=
                           text::Folded(before.G_DataDir + before.G_DataFile) ||
                       text::Folded(globals.G_Table) != text::Folded(before.G_Table);
    if (moved) {
        const QString wanted = globals.G_DataDir;
        globals.G_DataDir = before.G_DataDir;
        // A path without a Databook would not let the program start again: the old one stays in the ini too.
        if (!SwitchDatabook(wanted, globals.G_DataFile))
            common::WriteSetting(*common::FindSetting(&common::Globals::G_DataDir), before.G_DataDir, globals,
                                 m_base.disk);
    } else if (globals.sortGrid != before.sortGrid || globals.ignorePending != before.ignorePending) {
        DisplayAllRecords();
    }
    if (globals.G_CaptureDir != before.G_CaptureDir)
        m_capture->DisplayCamera();
    if (globals.imageListBox != before.imageListBox || globals.imageFileNames != before.imageFileNames) {
        m_capture->ViewFilCapture();
        m_capture->DisplayImageLabels();
    }
    LockAddresses();
    LoadMenu();
    Q_EMIT TabColoursChanged(globals.tabMask);
    if (config.ResetWanted())
        Q_EMIT ResetSizeWanted();
}

void frm_Main::ChangeDatabase()
{
    const common::RoutineScope scope{"ChangeDatabase"};
    QStringList offered;
    {
        const forms::Hourglass hourglass(m_base.ports.window);
        offered = store::OfferedDatabases(m_base.engine, globals.G_DataDir, globals.G_Table);
    }
    frm_ChangeDB choice(globals.G_DataDir, offered, globals.G_DataFile);
    m_base.ports.screens.ShowModal(choice);
    if (!choice.Chosen().isEmpty() && text::Folded(choice.Chosen()) != text::Folded(globals.G_DataFile))
        SwitchDatabook(globals.G_DataDir, choice.Chosen());
}

bool frm_Main::SwitchDatabook(const QString& directory, const QString& file)
{
    const common::RoutineScope scope{"SwitchDatabook"};
    auto& prompter = m_base.ports.prompter;
    const QString path = directory + file;
    const QString present = globals.G_DataDir + globals.G_DataFile;
    try {
        if (m_base.disk.Found(path, files::ReadOnly | files::Hidden))
            (void)m_base.engine.OpenDatabase(path, engine::OpenMode::ReadOnly)->Table(globals.G_Table);
    } catch (const RuntimeError& failure) {
        const bool taken = failure.Number() == error::kCouldNotReadLocked ||
                           failure.Number() == error::kExclusivelyLocked;
        if (taken) { // it is whole, but somebody has it
            prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
                            u"%1. The database %2 stays open."_s.arg(failure.Description(), present));
            return false;
        }
    }
    if (!store::Ismdb(m_base.engine, path, globals.G_Table)) {
        prompter.MsgBox(
            forms::Buttons::Ok, forms::Icon::Exclamation, store::kPlainTitle,
            u"%1 is missing, damaged, or holds no table %2 of comps. The database %3 stays open."_s.arg(
                path, globals.G_Table, present));
        return false;
    }
    tabSource.SetTab(0);
    lblChangingDB.SetVisible(true);
    records.grddatabook.Rebind(nullptr);
    m_base.ports.pump.DoEvents();
    bool opened = false;
    try {
        store::Connect2Databook(m_base.ports, sources, path, globals.G_Table);
        opened = text::Folded(sources.datsql.DatabaseName()) == text::Folded(path);
    } catch (const RuntimeError& failure) {
        common::ReportError(prompter, failure);
    }
    if (opened) {
        globals.G_DataDir = directory;
        globals.G_DataFile = file;
        ReadCaption();
    } else {
        store::Connect2Databook(m_base.ports, sources, present, globals.G_Table);
    }
    lblChangingDB.SetVisible(false);
    DisplayAllRecords();
    if (opened)
        CheckDatabook(engine::CheckDepth::Opening);
    return opened;
}

/// The area in which a comp is added by hand.
void frm_Main::ToggleManualEntry()
{
    const bool show = !records.txtcentralkey.Visible();
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &records.lblAddingaComp, &records.txtcentralkey, &records.cboapprslType, &records.cmdAdd,
             &records.cmdCopy, &records.cmdRename, &records.cmdEdit, &records.cmdDelete,
             &records.cmdAddManual})
        control->SetVisible(show);
    mnuSetupItem.SetEntryCaption(kManualEntry, show ? u"Hide Manual Detail"_s : u"Show Manual Detail"_s);
}

/// The help file that was put into the program directory, "" if there is none.
QString frm_Main::HelpFile() const
{
    const bool maker = globals.companyName.contains(u"Ostrand"_s, Qt::CaseInsensitive);
    const QString path = globals.G_ProgramDir + (maker ? u"vasphelp.chm"_s : u"dalmohelp.chm"_s);
    return m_base.disk.FileExists(path) ? path : QString();
}

QStringList frm_Main::Tutorials() const
{
    QStringList names;
    for (const QString& pattern : u"*.exe*;*.del*;*.cls*"_s.split(u';'))
        names += m_base.disk.Dir(globals.G_ProgramDir + pattern);
    names.removeDuplicates();
    return names;
}

/// The tutorials are there as far as their files are.
void frm_Main::LoadHelpMenu()
{
    const QStringList tutorials = Tutorials();
    QList<forms::MenuEntry> entries = mnuHelpItem.Entries();
    for (forms::MenuEntry& entry : entries) {
        if (entry.index != 1)
            continue;
        entry.enabled = !tutorials.isEmpty();
        entry.subName = kTutorials;
        entry.subEntries.clear();
        for (const QString& name : tutorials)
            entry.subEntries.append({.index = static_cast<int>(entry.subEntries.size()), .caption = name});
    }
    mnuHelpItem.SetEntries(entries);
}

void frm_Main::StartTutorial(int index)
{
    const forms::MenuEntry* entry = mnuHelpItem.Entry(kTutorials, index);
    if (entry != nullptr)
        GShell(m_base.disk, m_base.ports.prompter, u"open"_s, globals.G_ProgramDir + entry->caption, {},
               globals.G_ProgramDir);
}

void frm_Main::OpenHelp()
{
    const QString file = HelpFile();
    if (file.isEmpty())
        Q_EMIT GuideWanted();
    else
        GShell(m_base.disk, m_base.ports.prompter, u"open"_s, file, {}, globals.G_ProgramDir);
}

/// The text of the program directory, else the one that the program carries.
QString frm_Main::ChangesText() const
{
    const QString path = globals.G_ProgramDir + u"changes.txt"_s;
    if (m_base.disk.FileExists(path))
        return QString::fromUtf8(m_base.disk.ReadWhole(path));
    InitChanges();
    QFile own(u":/text/changes.txt"_s);
    return own.open(QIODevice::ReadOnly) ? QString::fromUtf8(own.readAll()) : QString();
}

/// The page is the deployment's; what is no address of the web is not opened.
void frm_Main::ConnectToWebsite()
{
    const QString& page = globals.website;
    if (page.startsWith(u"https://"_s, Qt::CaseInsensitive) ||
        page.startsWith(u"http://"_s, Qt::CaseInsensitive)) {
        GShell(m_base.disk, m_base.ports.prompter, u"open"_s, page, {}, {});
        return;
    }
    m_base.ports.prompter.Info(
        u"Connect to Website"_s,
        u"'%1' is not the address of a web page. Correct WEBSITE in the section PRODUCT INFO of %2; an "
        u"address begins with https:// or http://."_s.arg(page, globals.applicationIni));
}

void frm_Main::SetupChosen(int index)
{
    if (index == 0)
        ShowConfiguration();
    else if (index == kCityListings)
        AttachCity();
    else if (index == kManualEntry)
        ToggleManualEntry();
}

void frm_Main::HelpChosen(const QString& array, int index)
{
    if (array == kTutorials)
        StartTutorial(index);
    else if (index == 0)
        OpenHelp();
    else if (index == 2)
        Q_EMIT WhatsNewWanted(ChangesText());
    else if (index == kWebsiteEntry)
        ConnectToWebsite();
    else if (index == 12)
        Q_EMIT AboutWanted();
}

} // namespace vasclip::shell
