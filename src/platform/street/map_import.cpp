#include "platform/street/map_import.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr int kDone = 0;
constexpr int kStopped = 4;
constexpr int kEndMs = 5000; ///< in which one that was stopped has ended

QStringList ArgumentsOf(const ImportOrder& order)
{
    QStringList arguments{u"import"_s, u"--stop-with-input"_s, u"--to"_s, order.directory};
    const std::pair<QString, QString> options[] = {{u"--county"_s, order.county},
                                                   {u"--state"_s, order.state},
                                                   {u"--source"_s, order.source},
                                                   {u"--date"_s, order.date},
                                                   {u"--account"_s, order.account}};
    for (const auto& [option, value] : options)
        if (!value.isEmpty())
            arguments += {option, value};
    if (order.placing == Placing::Beside)
        arguments.append(u"--beside"_s);
    // What follows is a file, whatever it is called.
    return arguments + QStringList{u"--"_s} + order.sources;
}

} // namespace

QString MapImport::Program()
{
    const QString ending = QFileInfo(QCoreApplication::applicationFilePath()).suffix();
    return QCoreApplication::applicationDirPath() + u"/vasclip-mapdata"_s +
           (ending.isEmpty() ? QString() : u'.' + ending);
}

MapImport::MapImport(const ImportOrder& order, Heard heard)
    : m_heard(std::move(heard))
{
    if (!QFileInfo(Program()).isExecutable()) {
        m_result.problem = u"The importer of street files is not installed: %1 is missing. Install Vasclip whole, with it."_s
                               .arg(Program());
        m_ended = true;
        return;
    }
    m_process.start(Program(), ArgumentsOf(order));
    m_started = m_process.waitForStarted();
    if (m_started)
        return;
    m_result.problem = u"%1 does not start: %2"_s.arg(Program(), m_process.errorString());
    m_ended = true;
}

MapImport::~MapImport()
{
    if (!m_started || m_ended)
        return;
    Stop();
    if (!m_process.waitForFinished(kEndMs))
        m_process.kill();
    m_process.waitForFinished();
}

void MapImport::Stop()
{
    if (!m_ended)
        m_process.closeWriteChannel();
}

bool MapImport::GoesOn(int milliseconds)
{
    if (m_ended)
        return false;
    if (m_process.state() != QProcess::NotRunning)
        m_process.waitForReadyRead(milliseconds);
    Read();
    if (m_process.state() == QProcess::NotRunning)
        End();
    return !m_ended;
}

void MapImport::Read()
{
    m_rest += m_process.readAllStandardOutput();
    for (qsizetype end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        Take(QString::fromUtf8(m_rest.left(end)));
        m_rest.remove(0, end + 1);
    }
}

void MapImport::Take(const QString& line)
{
    const QString head = line.section(u' ', 0, 0);
    const QString words = line.section(u' ', 1);
    if (head == u"progress") {
        if (m_heard)
            m_heard(words.section(u' ', 0, 0).toInt(), words.section(u' ', 1, 1).toInt(), words.section(u' ', 2));
    } else if (head == u"taken") {
        m_result.taken.append(words);
    } else if (head == u"remark") {
        m_result.remarks.append(words);
    } else if (head == u"left") {
        m_result.leftOut.append(words);
    } else if (head == u"note") {
        m_result.notes.append(words);
    }
}

void MapImport::End()
{
    using Ending = ImportResult::Ending;
    m_ended = true;
    if (m_process.exitStatus() != QProcess::NormalExit) {
        m_result.problem = u"The importer ended unexpectedly. The maps are as they were."_s;
        return;
    }
    const int code = m_process.exitCode();
    m_result.ending = code == kDone ? Ending::Done : code == kStopped ? Ending::Stopped : Ending::Failed;
    QString said = QString::fromUtf8(m_process.readAllStandardError()).trimmed();
    said.remove(u"vasclip-mapdata: "_s);
    if (code != kDone)
        m_result.problem = said.isEmpty() ? u"The importer ended with %1."_s.arg(code) : said;
    else if (!said.isEmpty())
        m_result.notes.append(said);
}

} // namespace vasclip::street
