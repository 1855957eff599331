#include "shell/help.h"

#include "shell/g_shell.h"
#include "shell/menus.h"
#include "shell/program.h"
#include "shell/window_wants.h"

#include <QFile>

static void InitChanges()
{
    Q_INIT_RESOURCE(changes);
}

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The help file that was put into the program directory, "" if there is none.
QString HelpFile(const Program& program)
{
    const bool maker = program.globals.companyName.contains(u"Ostrand"_s, Qt::CaseInsensitive);
    const QString path = program.globals.G_ProgramDir + (maker ? u"vasphelp.chm"_s : u"dalmohelp.chm"_s);
    return program.Disk().FileExists(path) ? path : QString();
}

QStringList Tutorials(const Program& program)
{
    QStringList names;
    for (const QString& pattern : u"*.exe*;*.del*;*.cls*"_s.split(u';'))
        names += program.Disk().Dir(program.globals.G_ProgramDir + pattern);
    names.removeDuplicates();
    return names;
}

} // namespace

void LoadHelpMenu(const Program& program, forms::Menu& mnuHelpItem)
{
    const QStringList tutorials = Tutorials(program);
    QList<forms::MenuEntry> entries = mnuHelpItem.Entries();
    for (forms::MenuEntry& entry : entries) {
        if (entry.subName != kTutorials)
            continue;
        entry.enabled = !tutorials.isEmpty();
        entry.subEntries.clear();
        for (const QString& name : tutorials)
            entry.subEntries.append({.index = static_cast<int>(entry.subEntries.size()), .caption = name});
    }
    mnuHelpItem.SetEntries(entries);
}

void StartTutorial(const Program& program, const forms::Menu& mnuHelpItem, int index)
{
    const forms::MenuEntry* entry = mnuHelpItem.Entry(kTutorials, index);
    if (entry != nullptr)
        GShell(program.Disk(), program.Prompter(), u"open"_s, program.globals.G_ProgramDir + entry->caption,
               {}, program.globals.G_ProgramDir);
}

void OpenHelp(const Program& program, WindowWants& wants)
{
    const QString file = HelpFile(program);
    if (file.isEmpty())
        Q_EMIT wants.GuideWanted();
    else
        GShell(program.Disk(), program.Prompter(), u"open"_s, file, {}, program.globals.G_ProgramDir);
}

QString ChangesText(const Program& program)
{
    const QString path = program.globals.G_ProgramDir + u"changes.txt"_s;
    if (program.Disk().FileExists(path))
        return QString::fromUtf8(program.Disk().ReadWhole(path));
    InitChanges();
    QFile own(u":/text/changes.txt"_s);
    return own.open(QIODevice::ReadOnly) ? QString::fromUtf8(own.readAll()) : QString();
}

void ConnectToWebsite(const Program& program)
{
    const QString& page = program.globals.website;
    if (page.startsWith(u"https://"_s, Qt::CaseInsensitive) ||
        page.startsWith(u"http://"_s, Qt::CaseInsensitive)) {
        GShell(program.Disk(), program.Prompter(), u"open"_s, page, {}, {});
        return;
    }
    program.Prompter().Info(
        u"Connect to Website"_s,
        u"'%1' is not the address of a web page. Correct WEBSITE in the section PRODUCT INFO of %2; an "
        u"address begins with https:// or http://."_s.arg(page, program.globals.applicationIni));
}

} // namespace vasclip::shell
