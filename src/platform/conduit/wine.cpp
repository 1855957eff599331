#include "platform/conduit/wine.h"

#include "platform/conduit/no_way.h"
#include "platform/text/runtime_error.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace vasclip::conduit {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kBridge = u"vasclip-bridge.exe"_s;
const QString kWhy = u"KEL.INI says that the forms program speaks the desktop's data exchange, which needs Wine here"_s;
const QString kKeys = u"Wine in section [LINK] of KEL.INI can name another one"_s;

} // namespace

QString FindWine(const QString& asked)
{
    if (asked.contains(u'/'))
        return asked;
    const QStringList names = asked.isEmpty() ? QStringList{u"wine"_s, u"wine64"_s, u"wine-stable"_s} : QStringList{asked};
    for (const QString& name : names) {
        if (const QString found = QStandardPaths::findExecutable(name); !found.isEmpty())
            return found;
    }
    return names.constFirst();
}

void RequireWine(const QString& program, Patience* patience)
{
    constexpr int kPatienceMs = 5000;
    QProcess wine;
    wine.start(program, {u"--version"_s});
    if (!wine.waitForStarted(kPatienceMs))
        throw RuntimeError(kNoWay, u"%1, and %2 cannot be started: %3. Install Wine %4 or newer; %5"_s.arg(
                                                     kWhy, program, wine.errorString(), QString::number(kLeastWine), kKeys));
    for (const QDeadlineTimer deadline(kPatienceMs); wine.state() != QProcess::NotRunning;) {
        if (wine.waitForFinished(kNextWaitMs) || wine.state() == QProcess::NotRunning)
            break;
        if (deadline.hasExpired()) {
            wine.kill();
            wine.waitForFinished(kPatienceMs);
            throw RuntimeError(kNoWay, u"%1, and %2 does not say within %3 seconds which Wine it is; %4"_s.arg(
                                           kWhy, program, QString::number(kPatienceMs / 1000), kKeys));
        }
        if (patience)
            patience->Waiting();
    }
    static const QRegularExpression version(u"^wine-(\\d+)(\\.\\S*)?"_s);
    const QString said = QString::fromLocal8Bit(wine.readAllStandardOutput()).trimmed();
    const QRegularExpressionMatch match = version.match(said);
    if (!match.hasMatch())
        throw RuntimeError(kNoWay, u"%1, and %2 does not say which Wine it is (\"%3\"); %4"_s.arg(
                                                     kWhy, program, said.section(u'\n', 0, 0).left(80), kKeys));
    if (match.captured(1).toInt() < kLeastWine)
        throw RuntimeError(kNoWay, u"%1, and %2 is Wine %3, which is too old: %4 or newer is wanted; %5"_s.arg(
                                                     kWhy, program, match.captured(1) + match.captured(2),
                                                     QString::number(kLeastWine), kKeys));
}

QString FindBridge(const QString& asked)
{
    if (!asked.isEmpty())
        return asked;
    const QString own = QCoreApplication::applicationDirPath();
    for (const QString& place : {own + u'/' + kBridge, own + u"/../lib/vasclip/"_s + kBridge}) {
        if (QFileInfo::exists(place))
            return place;
    }
    return own + u'/' + kBridge;
}

void RequireBridge(const QString& path)
{
    if (!QFileInfo(path).isFile())
        throw RuntimeError(kNoWay,
                           u"%1 and a bridge, and %2 is not there. It comes with Vasclip where it was built with the cross "
                           "compiler; Bridge in section [LINK] of KEL.INI can name it"_s.arg(kWhy, path));
}

void RequirePrefix(const QString& prefix)
{
    if (!prefix.isEmpty() && !(QFileInfo(prefix).isAbsolute() && QFileInfo(prefix + u"/system.reg"_s).isFile()))
        throw RuntimeError(kNoWay, u"%1, and WinePrefix in section [LINK] of KEL.INI names %2, where no Wine was ever set up (it "
                                   "has no file system.reg)"_s.arg(kWhy, prefix));
}

QStringList WineEnvironment(const QString& prefix)
{
    QStringList variables;
    // Without a locale of letters Wine finds no file whose name has others than English ones.
    QByteArray locale;
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (locale.isEmpty())
            locale = qgetenv(name);
    }
    if (locale.isEmpty() || locale == "C" || locale == "POSIX")
        variables << u"LC_ALL="_s << u"LC_CTYPE=C.UTF-8"_s;
    if (qEnvironmentVariableIsEmpty("WINEDEBUG"))
        variables << u"WINEDEBUG=-all"_s;
    if (!prefix.isEmpty())
        variables << u"WINEPREFIX="_s + prefix;
    return variables;
}

} // namespace vasclip::conduit
