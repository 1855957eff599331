#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

namespace vasclip::tests {

using namespace Qt::StringLiterals;

inline constexpr int kPatienceMs = 60000;

template <class Condition>
bool WaitFor(Condition&& condition, int milliseconds = kPatienceMs)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(milliseconds))
            return false;
        QThread::msleep(20);
    }
    return true;
}

/// How a program of ours ended.
struct Ended
{
    int code = -1;
    QByteArray out;
    QByteArray err;

    [[nodiscard]] QJsonArray Array() const { return QJsonDocument::fromJson(out).array(); }
    [[nodiscard]] QJsonObject Object() const { return QJsonDocument::fromJson(out).object(); }
};

/// Copies what a directory holds, with times and rights.
inline bool CopyDirectory(const QString& from, const QString& to)
{
    QDirIterator at(from, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (at.hasNext()) {
        const QFileInfo source(at.next());
        const QString target = to + source.filePath().mid(from.size());
        if (source.isDir() ? !QDir().mkpath(target) : !QFile::copy(source.filePath(), target))
            return false;
        QFile file(target); // one that may not be written has its time set only where reading is enough for that
        if (source.isFile() && (file.open(QIODevice::ReadWrite) || file.open(QIODevice::ReadOnly)))
            file.setFileTime(source.lastModified(), QFileDevice::FileModificationTime);
    }
    return true;
}

/// The programs of this build beside the test, run on a small demo home that is made once for the test
/// program and copied for each test.
class ProgramHome
{
public:
    ProgramHome()
    {
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.remove(u"DISPLAY"_s);
    }

    ~ProgramHome() { Stop(forms); }

    /// @return false if the demo could not be made or copied
    bool Make()
    {
        // ctest makes the pattern once for all tests; a test run by hand makes its own.
        static const QTemporaryDir own;
        static const QString pattern = qEnvironmentVariable("VASCLIP_TEST_HOME", own.path());
        static const bool made =
            RunProgram(u"vasclip-demo"_s, {u"--home"_s, pattern, u"--comps"_s, u"60"_s}, environment).code ==
            0;
        if (!made || !m_directory.isValid())
            return false;
        return CopyDirectory(pattern, Path());
    }

    [[nodiscard]] QString Path() const { return m_directory.path(); }
    [[nodiscard]] QString Native(const QString& below) const { return Path() + u"/drive_c/"_s + below; }

    static QString Program(const QString& name)
    {
        return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
    }

    static Ended RunProgram(const QString& name, const QStringList& arguments,
                            const QProcessEnvironment& environment)
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(Program(name), arguments);
        process.closeWriteChannel();
        if (!process.waitForFinished(4 * kPatienceMs)) {
            const QByteArray why = process.errorString().toUtf8();
            std::fprintf(stderr, "%s %s did not end: %s\n", qPrintable(name), qPrintable(arguments.join(u' ')), why.constData());
            process.kill();
            process.waitForFinished();
            return {-1, {}, "no end: " + why};
        }
        const bool crashed = process.exitStatus() != QProcess::NormalExit;
        if (crashed) // a test that looks at the code alone would not tell
            std::fprintf(stderr, "%s %s crashed with %08x\n", qPrintable(name), qPrintable(arguments.join(u' ')),
                         static_cast<unsigned>(process.exitCode()));
        return {crashed ? -1 : process.exitCode(), Text(process.readAllStandardOutput()),
                Text(process.readAllStandardError()) + (crashed ? "crashed: " + QByteArray::number(process.exitCode()) : "")};
    }
    /// What a program writes, with lines that end as they do in its source.
    static QByteArray Text(QByteArray written)
    {
#ifdef Q_OS_WIN
        written.replace("\r\n", "\n");
#endif
        return written;
    }

    /// vasctl on this home; with --json unless `arguments` begin with "--plain".
    Ended Vasctl(QStringList arguments) const
    {
        const bool plain = !arguments.isEmpty() && arguments.first() == u"--plain"_s;
        if (plain)
            arguments.removeFirst();
        QStringList all{u"--home"_s, Path()};
        if (!plain)
            all.append(u"--json"_s);
        return RunProgram(u"vasctl"_s, all + arguments, environment);
    }

    /// The forms program without a window on a copy of the demo's reports; waits until it answers.
    bool StartForms(const QStringList& options = {})
    {
        forms.setProcessEnvironment(environment);
        forms.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        forms.start(Program(u"kelforms"_s),
                    QStringList{u"--home"_s, Path(), u"--headless"_s} + options +
                        QStringList{u"C:\\KEL\\DATA\\OAKST114.RPT"_s, u"C:\\KEL\\DATA\\FERRY22.RPT"_s});
        return forms.waitForStarted() && WaitFor(
                                             [this] {
                                                 return Vasctl({u"report"_s, u"status"_s}).code == 0;
                                             },
                                             20000);
    }

    static void Stop(QProcess& process)
    {
        if (process.state() == QProcess::NotRunning)
            return;
        process.terminate();
        if (!process.waitForFinished(10000)) {
            process.kill();
            process.waitForFinished(5000);
        }
    }

    /// Text of a mapped field of a sales comp, as the forms program holds it.
    [[nodiscard]] QString Cell(int comp, const QString& field) const
    {
        const QJsonArray cells = Vasctl({u"report"_s, u"cells"_s}).Array();
        for (const QJsonValue& value : cells) {
            const QJsonObject cell = value.toObject();
            if (cell[u"comp"_s].toString() == u"SALE %1"_s.arg(comp) && cell[u"field"_s].toString() == field)
                return cell[u"text"_s].toString();
        }
        return {};
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess forms;

private:
    QTemporaryDir m_directory;
};

} // namespace vasclip::tests
