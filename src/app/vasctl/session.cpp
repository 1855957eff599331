#include "app/vasctl/session.h"

#include "app/places.h"
#include "link/link_choice.h"
#include "link/link_desk.h"
#include "link/refresh.h"
#include "platform/conduit/socket_conduit.h"
#include "platform/conduit/socket_path.h"
#include "shell/ini_location.h"

#include <QDir>
#include <QFileInfo>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Opening a home makes what it lacks, so a mistyped one has to be told before.
QString ExistingHome(const QString& home)
{
    const QFileInfo directory(home);
    if (!directory.isDir())
        throw RuntimeError(error::kPathNotFound, u"There is no home %1; choose another with --home"_s.arg(
                                                     directory.absoluteFilePath()));
    if (!directory.isReadable() || !directory.isExecutable())
        throw RuntimeError(
            error::kPathFileAccess,
            u"The home %1 can't be read; get the rights to it, or choose another with --home"_s.arg(
                directory.absoluteFilePath()));
    return home;
}

} // namespace

Session::Session(const QString& home, const QString& socketPath, int linkTimeLimitMs,
                 TerminalPrompter& prompter)
    : m_prompter(prompter)
    , m_program(ExistingHome(home),
                [&](const files::Disk& disk) { return Surround(disk, socketPath, linkTimeLimitMs); })
{}

shell::Surroundings Session::Surround(const files::Disk& disk, const QString& socketPath, int linkTimeLimitMs)
{
    m_socketPath = socketPath.isEmpty() ? conduit::DefaultSocketPath(disk.Home()) : socketPath;
    m_conduit.emplace(conduit::MakeSocketConduit({.socketPath = m_socketPath, .timeLimitMs = linkTimeLimitMs}));
    shell::Surroundings around{*m_conduit, {m_prompter, m_pump, m_clock, m_random, m_window, m_screens}};
    // A socket on the command line outdoes what KEL.INI says.
    if (socketPath.isEmpty())
        around.chooseLink = [this, &disk, linkTimeLimitMs](const QString& kelIni) {
            auto chosen = link::MakeChosen(link::ReadLinkChoice(disk, kelIni), linkTimeLimitMs, nullptr);
            if (!chosen)
                return;
            m_conduit->Use(std::move(chosen));
            m_socketPath = u"the desktop's data exchange"_s;
        };
    return around;
}

shell::Program& Session::Home()
{
    if (m_home)
        return m_program;
    m_program.LocateInis(app::Places(Disk()), shell::Silence::Silent);
    if (!Disk().FileExists(m_program.globals.applicationIni))
        throw RuntimeError(
            error::kFileNotFound,
            u"%1 is not there, so this is no home of the program; choose another with --home"_s.arg(
                m_program.globals.applicationIni));
    m_program.ReadSettings();
    m_home = true;
    return m_program;
}

bool Session::ReportIsOpen(const Output& out, const QString& otherwise)
{
    auto& program = Home();
    if (link::ReportIsNamed(program.Link()))
        return true;
    const QString why = program.status.lblmsg.Caption();
    out.Error(why.isEmpty() ? otherwise : why);
    return false;
}

shell::Program& Session::WithDatabook()
{
    auto& program = Home();
    if (!m_databook) {
        program.ConnectDatabook();
        m_databook = true;
    }
    return program;
}

shell::Program& Session::WithReport()
{
    auto& program = WithDatabook();
    if (!m_report) {
        if (!Disk().FileExists(program.globals.kelIni))
            m_prompter.Info(
                u"Configuration File Missing"_s,
                u"%1 is not there, so the pages of the report are not known and nothing can be sent to "
                u"them; the file comes with the forms program."_s.arg(program.globals.kelIni));
        program.ConnectMapping();
        program.records.LoadCompType();
        link::RefreshAppraisal(program.Link());
        m_report = true;
    }
    return program;
}

bool IsDirectory(const files::Disk& disk, const QString& given, const QString& path)
{
    const bool bare = !given.contains(u'/') && !given.contains(u'\\') && !given.contains(u':');
    return !bare && (given.endsWith(u'/') || given.endsWith(u'\\') || disk.DirExists(path));
}

QString DrivePathOf(const files::Disk& disk, const QString& given)
{
    if (given.size() >= 2 && given[1] == u':' && given[0].isLetter()) {
        // The system's own paths may begin with a letter too, and their slashes lean either way.
        const auto own = disk.ToDrivePath(QDir::fromNativeSeparators(given));
        QString path = own.value_or(QString(given).replace(u'/', u'\\'));
        if (own && (given.endsWith(u'/') || given.endsWith(u'\\')) && !path.endsWith(u'\\'))
            path += u'\\';
        return path;
    }
    return disk.ToDrivePath(QFileInfo(given).absoluteFilePath()).value_or(QString());
}

} // namespace vasclip::vasctl
