#include "platform/desktop/desktop.h"
#include "platform/desktop/version_beside.h"

#include "platform/text/runtime_error.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

extern char** environ;

namespace vasclip::desktop {

namespace {

/// How long an opener may take to say that it has nothing for a file. A viewer that stays in front takes
/// longer and counts as opened.
constexpr int kOpenerPatienceMs = 1500;

/// Runs an opener and gives its exit code; 0 if it is still at work.
int RunOpener(const QString& program, const QStringList& arguments)
{
    std::vector<std::string> texts{program.toStdString()};
    for (const QString& argument : arguments)
        texts.push_back(argument.toStdString());
    std::vector<char*> line;
    for (std::string& text : texts)
        line.push_back(text.data());
    line.push_back(nullptr);

    pid_t child = 0;
    if (posix_spawn(&child, texts.front().c_str(), nullptr, nullptr, line.data(), environ) != 0)
        return -1;
    constexpr int kStepMs = 10;
    for (int waited = 0; waited < kOpenerPatienceMs; waited += kStepMs) {
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child)
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        usleep(kStepMs * 1000);
    }
    return 0;
}

int OpenWithAssociation(const QString& target)
{
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s);
    if (opener.isEmpty())
        return kShellNoAssociation;
    constexpr int kOpenerFoundNoFile = 2;
    switch (RunOpener(opener, {target})) {
    case 0:
        return kShellDone;
    case kOpenerFoundNoFile:
        return kShellFileNotFound;
    default:
        return kShellNoAssociation;
    }
}

int Print(const QString& target)
{
    const QString spooler = QStandardPaths::findExecutable(u"lp"_s);
    if (spooler.isEmpty())
        return kShellNoAssociation;
    return RunOpener(spooler, {u"--"_s, target}) == 0 ? kShellDone : kShellNoAssociation;
}

/// An address has a scheme of at least two letters; one letter is a drive.
bool IsAddress(const QString& file)
{
    const qsizetype colon = file.indexOf(u':');
    if (colon < 2)
        return false;
    for (qsizetype at = 0; at < colon; ++at) {
        if (!file[at].isLetterOrNumber() || file[at].unicode() > 127)
            return false;
    }
    return true;
}

int ResultOf(const RuntimeError& failure)
{
    switch (failure.Number()) {
    case error::kPermissionDenied:
    case error::kPathFileAccess:
        return kShellAccessDenied;
    case error::kFileNotFound:
    case error::kBadFileName:
        return kShellFileNotFound;
    default:
        return kShellPathNotFound;
    }
}

} // namespace

int ShellOpen(const files::Disk& disk, const QString& verb, const QString& file, const QString& parameters,
              const QString& directory)
{
    const QString action = verb.toLower();
    const bool opens = action.isEmpty() || action == u"open" || action == u"explore";
    if (!opens && action != u"print")
        return kShellNoAssociation;
    if (IsAddress(file))
        return opens ? OpenWithAssociation(file) : int(kShellNoAssociation);
    try {
        const QFileInfo target(disk.ToNative(file));
        if (!target.exists())
            return QFileInfo(target.path()).isDir() ? kShellFileNotFound : kShellPathNotFound;
        if (!directory.isEmpty() && !disk.DirExists(directory))
            return kShellPathNotFound;
        if (!target.isReadable())
            return kShellAccessDenied;
        if (action == u"print")
            return target.isDir() ? int(kShellNoAssociation) : Print(target.filePath());
        if (target.isDir() || !target.isExecutable())
            return OpenWithAssociation(target.filePath());
        const QString start = directory.isEmpty() ? target.path() : disk.ToNative(directory);
        return StartProgram(target.filePath(), QProcess::splitCommand(parameters), start) ? kShellDone
                                                                                          : kShellBadProgram;
    } catch (const RuntimeError& failure) {
        return ResultOf(failure);
    }
}

bool StartProgram(const QString& program, const QStringList& arguments, const QString& directory)
{
    return QProcess::startDetached(program, arguments, directory);
}

QString FileVersion(const QString& nativePath)
{
    return VersionBeside(nativePath);
}

QString SystemDirectory()
{
    return u"C:\\WINDOWS\\SYSTEM32"_s;
}

QString WindowsDirectory()
{
    return u"C:\\WINDOWS"_s;
}

SystemVersion ReadSystemVersion(const SystemVersion& elsewhere)
{
    return elsewhere;
}

QString FindWindowCaption(const QString& /*windowClass*/)
{
    return {};
}

bool CanShowWindows()
{
#ifdef Q_OS_MACOS
    return true;
#else
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    }
    return false;
#endif
}

SystemColours::SystemColours() = default;
SystemColours::~SystemColours() = default;

} // namespace vasclip::desktop
