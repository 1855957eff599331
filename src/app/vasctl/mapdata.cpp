#include "app/vasctl/map.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The importer beside this program; it alone knows the formats of public street files.
QString Importer()
{
    const QString ending = QFileInfo(QCoreApplication::applicationFilePath()).suffix();
    return QCoreApplication::applicationDirPath() + u"/vasclip-mapdata"_s + (ending.isEmpty() ? QString() : u'.' + ending);
}

/// A file of one of the program's drives, or as the system writes it.
QString Native(const Session& session, const QString& given)
{
    const bool drive = given.size() >= 2 && given[1] == u':' && given[0].isLetter();
    return drive ? session.Disk().ToNative(given) : given;
}

} // namespace

int RunMapdata(Session& session, const Output& out, const QStringList& arguments, const QCommandLineParser& options)
{
    const QString verb = arguments.value(0);
    const QStringList words = arguments.mid(1);
    const bool fits = verb == u"import"_s   ? !words.isEmpty()
                      : verb == u"remove"_s ? words.size() == 1
                                            : words.isEmpty();
    if (!fits) {
        out.Error(u"Usage: vasctl mapdata import SOURCE... [--county NAME] [--state ST] [--source WORDS] [--date DATE] "
                  u"[--account FILE] | list | verify | remove COUNTY"_s);
        return kUsage;
    }
    const QString directory = MapDirectory(session);
    QStringList call{verb};
    if (verb == u"import"_s) {
        for (const QString& source : words)
            call.append(Native(session, source));
        call += {u"--to"_s, directory};
        for (const QString& option : {u"county"_s, u"state"_s, u"source"_s, u"date"_s})
            if (options.isSet(option))
                call += {u"--"_s + option, options.value(option)};
        if (options.isSet(u"account"_s))
            call += {u"--account"_s, Native(session, options.value(u"account"_s))};
    } else {
        call += QStringList{directory} + words;
        if (verb == u"list"_s && out.Json())
            call.append(u"--json"_s);
    }
    if (!QFileInfo(Importer()).isExecutable()) {
        out.Error(u"The importer of street files is not installed: %1 is missing. Install Vasclip whole, with it."_s.arg(
            Importer()));
        return kFailed;
    }
    QProcess importer;
    importer.setProcessChannelMode(QProcess::ForwardedChannels);
    importer.setInputChannelMode(QProcess::ForwardedInputChannel);
    importer.start(Importer(), call);
    if (!importer.waitForStarted() || !importer.waitForFinished(-1)) {
        out.Error(u"%1: %2"_s.arg(Importer(), importer.errorString()));
        return kFailed;
    }
    if (importer.exitStatus() == QProcess::NormalExit)
        return importer.exitCode();
    out.Error(u"The importer ended unexpectedly. The maps are as they were."_s);
    return kFailed;
}

} // namespace vasclip::vasctl
