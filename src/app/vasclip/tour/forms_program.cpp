#include "app/vasclip/tour/forms_program.h"

#include "app/vasclip/tour/tour.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QSaveFile>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kStartSeconds = 20;
constexpr int kStopSeconds = 10;

} // namespace

FormsProgram::FormsProgram(const QDir& directory, const QString& program)
    : m_directory(directory)
    , m_program(program)
{}

FormsProgram::~FormsProgram()
{
    if (m_process.state() != QProcess::NotRunning && !Stop())
        m_process.kill();
}

QString FormsProgram::Start(const files::Disk& disk, const QString& socketPath)
{
    const QString reports = u"C:\\KEL\\DATA\\"_s;
    qint64 size = 0;
    for (const QString& name : disk.Dir(reports + u"*.RPT"_s)) {
        if (const qint64 length = disk.FileLen(reports + name); length > size) {
            size = length;
            m_report = name;
        }
    }
    if (m_report.isEmpty())
        return u"There is no report in %1 to play the tour on."_s.arg(reports);
    // The demo's own report stays as it is: the tour works on a copy.
    const QString copy = m_directory.absoluteFilePath(u"report.json"_s);
    QFile file(copy);
    if (!file.open(QIODevice::WriteOnly) || file.write(disk.ReadWhole(reports + m_report)) < 0)
        return u"%1 could not be written: %2"_s.arg(copy, file.errorString());
    file.close();

    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
    m_process.start(m_program, {u"--home"_s, disk.Home(), u"--socket"_s, socketPath, u"--save-on-exit"_s,
                                u"--tour-dir"_s, m_directory.absolutePath(), copy});
    if (!m_process.waitForStarted(kStartSeconds * 1000))
        return u"The forms program %1 could not be started: %2"_s.arg(m_program, m_process.errorString());
    QElapsedTimer timer;
    timer.start();
    // Asked by a call, since a named pipe is no file.
    const auto listens = [&socketPath] {
        QLocalSocket socket;
        socket.connectToServer(socketPath);
        return socket.waitForConnected(50);
    };
    while (!listens()) {
        if (timer.hasExpired(kStartSeconds * 1000) || m_process.waitForFinished(20))
            return u"The forms program did not open its link within %1 seconds."_s.arg(kStartSeconds);
    }
    return {};
}

QString FormsProgram::TakePicture(const QString& page)
{
    // It takes a picture of its window when it finds a file "shoot" here, and takes that away.
    const auto taken = [this] {
        return m_directory.entryList({u"kelforms-*.png"_s}, QDir::Files, QDir::Name);
    };
    const qsizetype before = taken().size();
    QSaveFile request(m_directory.filePath(u"shoot"_s));
    if (request.open(QIODevice::WriteOnly)) {
        request.write(page.isEmpty() ? QByteArray() : "page=" + page.toUtf8() + '\n');
        request.commit();
    }
    QElapsedTimer timer;
    timer.start();
    while (taken().size() == before && !timer.hasExpired(kStopSeconds * 1000))
        Settle(50);
    Settle(200);
    const QStringList after = taken();
    return after.isEmpty() ? QString() : after.last();
}

bool FormsProgram::Stop()
{
    m_process.terminate();
    return m_process.waitForFinished(kStopSeconds * 1000);
}

QStringList FormsProgram::Differences(const LinkRecorder& sent) const
{
    QFile file(m_directory.filePath(u"report.json"_s));
    const QJsonObject saved =
        file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
    QStringList lines;
    const auto compare = [&](const QMap<QString, QString>& wanted, const QString& part, const QString& what) {
        const QJsonObject held = saved.value(part).toObject();
        for (auto it = wanted.cbegin(); it != wanted.cend(); ++it) {
            const QString there = held.value(it.key()).toString();
            if (there != it.value())
                lines.append(
                    u"%1 %2: sent '%3', the report holds '%4'."_s.arg(what, it.key(), it.value(), there));
        }
    };
    compare(sent.Cells(), u"cells"_s, u"Field"_s);
    compare(sent.Images(), u"images"_s, u"Picture"_s);
    return lines;
}

} // namespace vasclip::app
