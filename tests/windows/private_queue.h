#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLibrary>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

namespace vasclip::windows {

using namespace Qt::Literals::StringLiterals;

/// A print service of this process alone, with one printer that keeps what it gets in files.
class PrivateQueue
{
public:
    static constexpr const char* kName = "Kept";

    /// @return false where none can be had
    bool Start()
    {
        if (Tool(u"cupsd"_s).isEmpty() || Tool(u"lpadmin"_s).isEmpty() || !m_dir.isValid() || !m_cups.load())
            return false;
        for (const char* made : {"etc/ppd", "spool/tmp", "cache", "state/certs", "log", "bin/backend", "bin/filter", "kept"})
            QDir(m_dir.path()).mkpath(QString::fromLatin1(made));
        QFile::link(u"/usr/lib/cups/daemon"_s, File(u"bin/daemon"_s)); // which starts the backends
        const bool root = ::geteuid() == 0;
        Write(u"etc/cups-files.conf"_s,
              u"ServerRoot %1/etc\nServerBin %1/bin\nStateDir %1/state\nCacheDir %1/cache\nRequestRoot %1/spool\n"
              "TempDir %1/spool/tmp\nAccessLog %1/log/access\nErrorLog %1/log/error\nPageLog %1/log/page\n"_s.arg(m_dir.path()) +
                  (root ? u"SystemGroup root\nUser lp\nGroup lp\n"_s : QString()));
        Write(u"etc/cupsd.conf"_s, u"Listen %1\nBrowsing No\nDefaultAuthType None\nWebInterface No\n<Location />\nAllow all\n"
                                   "</Location>\n<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n"_s.arg(Socket()));
        // A backend of root's own runs as root: number, user, title, copies, options, file.
        Write(u"bin/backend/keep"_s, u"#!/bin/sh\n[ $# = 0 ] && exit 0\ncat ${6+\"$6\"} > %1/kept/part\n"
                                     "printf '%s\\n' \"$4\" \"$5\" > %1/kept/options\nmv %1/kept/part %1/kept/$1.pdf\n"_s.arg(m_dir.path()));
        QFile::setPermissions(File(u"bin/backend/keep"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        Write(u"kept.ppd"_s, Description());
        m_service.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); }); // never left behind
        m_service.setProcessChannelMode(QProcess::MergedChannels);
        m_service.start(Tool(u"cupsd"_s), {u"-f"_s, u"-c"_s, File(u"etc/cupsd.conf"_s), u"-s"_s, File(u"etc/cups-files.conf"_s)});
        if (!m_service.waitForStarted() || !WaitFor([this] { return QFile::exists(Socket()); }))
            return false;
        UseServer(Socket());
        return Add();
    }
    ~PrivateQueue()
    {
        UseServer({});
        m_service.terminate();
        if (!m_service.waitForFinished(5000))
            m_service.kill();
        m_service.waitForFinished();
    }

    bool Add() const
    {
        return Run(u"lpadmin"_s, {u"-p"_s, QString::fromLatin1(kName), u"-E"_s, u"-v"_s, u"keep:/"_s, u"-P"_s, File(u"kept.ppd"_s)}) &&
               Run(u"lpadmin"_s, {u"-d"_s, QString::fromLatin1(kName)});
    }
    void Remove() const { Run(u"lpadmin"_s, {u"-x"_s, QString::fromLatin1(kName)}); }
    void Stop() const { Run(u"cupsdisable"_s, {QString::fromLatin1(kName)}); }
    void Refuse() const { Run(u"cupsreject"_s, {QString::fromLatin1(kName)}); }

    /// What the printer got, once it has it; empty if nothing comes.
    [[nodiscard]] QByteArray Printed() const
    {
        QByteArray bytes;
        WaitFor([&] {
            const QStringList jobs = Kept().entryList({u"*.pdf"_s}, QDir::Files);
            QFile file(Kept().filePath(jobs.value(0)));
            if (jobs.isEmpty() || !file.open(QIODevice::ReadOnly))
                return false;
            bytes = file.readAll();
            return true;
        });
        return bytes;
    }
    [[nodiscard]] bool HasNothing() const { return Kept().isEmpty(); }
    [[nodiscard]] QStringList Options() const ///< copies, and the others
    {
        QFile file(Kept().filePath(u"options"_s));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).split(u'\n') : QStringList();
    }

private:
    [[nodiscard]] QString File(const QString& name) const { return m_dir.filePath(name); }
    [[nodiscard]] QString Socket() const { return File(u"sock"_s); }
    [[nodiscard]] QDir Kept() const { return QDir(File(u"kept"_s)); }
    static QString Tool(const QString& name)
    {
        const QString found = QStandardPaths::findExecutable(name);
        return found.isEmpty() ? QStandardPaths::findExecutable(name, {u"/usr/sbin"_s, u"/usr/bin"_s}) : found;
    }
    void Write(const QString& name, const QString& text) const
    {
        QFile file(File(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(text.toUtf8());
    }
    bool Run(const QString& tool, const QStringList& arguments) const
    {
        QProcess process;
        process.start(Tool(tool), QStringList{u"-h"_s, Socket()} + arguments);
        return process.waitForFinished() && process.exitCode() == 0;
    }
    template <typename Condition> static bool WaitFor(const Condition& condition)
    {
        QElapsedTimer timer;
        for (timer.start(); !timer.hasExpired(5000); QThread::msleep(20))
            if (condition())
                return true;
        return false;
    }
    /// For the toolkit, which speaks to the service by this library.
    void UseServer(const QString& server)
    {
        if (const auto use = reinterpret_cast<void (*)(const char*)>(m_cups.resolve("cupsSetServer")))
            use(server.isEmpty() ? nullptr : server.toUtf8().constData());
    }
    /// A printer of three papers that can't print up to the edge, and is given the document as it is.
    static QString Description()
    {
        QString ppd = u"*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
                      "*LanguageEncoding: ISOLatin1\n*PCFileName: \"KEPT.PPD\"\n*Product: \"(Kept)\"\n*Manufacturer: \"Kept\"\n"
                      "*ModelName: \"Kept\"\n*ShortNickName: \"Kept\"\n*NickName: \"Kept\"\n*PSVersion: \"(3010.000) 0\"\n"
                      "*LanguageLevel: \"3\"\n*ColorDevice: True\n*DefaultColorSpace: RGB\n*FileSystem: False\n"
                      "*cupsFilter: \"application/pdf 0 -\"\n*OpenUI *PageSize: PickOne\n*DefaultPageSize: Letter\n"_s;
        const std::tuple<QString, int, int> papers[] = {{u"Letter"_s, 612, 792}, {u"Legal"_s, 612, 1008}, {u"A4"_s, 595, 842}};
        for (const auto& [name, width, height] : papers)
            ppd += u"*PageSize %1/%1: \"\"\n"_s.arg(name);
        ppd += u"*CloseUI: *PageSize\n*OpenUI *PageRegion: PickOne\n*DefaultPageRegion: Letter\n"_s;
        for (const auto& [name, width, height] : papers)
            ppd += u"*PageRegion %1/%1: \"\"\n"_s.arg(name);
        ppd += u"*CloseUI: *PageRegion\n*DefaultImageableArea: Letter\n*DefaultPaperDimension: Letter\n"_s;
        for (const auto& [name, width, height] : papers)
            ppd += u"*ImageableArea %1/%1: \"18 36 %2 %3\"\n*PaperDimension %1/%1: \"%4 %5\"\n"_s.arg(name)
                       .arg(width - 18).arg(height - 36).arg(width).arg(height);
        return ppd;
    }

    QTemporaryDir m_dir;
    QProcess m_service;
    QLibrary m_cups{u"cups"_s, 2};
};

} // namespace vasclip::windows
