#include "kelforms/app/service.h"

#include "kelforms/app/system_signals.h"
#include "platform/text/runtime_error.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace error = vasclip::error;
namespace conduit = vasclip::conduit;
using vasclip::RuntimeError;

namespace {

/// The program makes no homes: a wrong name would leave an empty one behind.
const QString& RequireHome(const QString& home)
{
    if (!QDir(home).exists())
        throw RuntimeError(error::kPathNotFound, u"There is no home %1"_s.arg(home));
    return home;
}

QString FindIni(const vasclip::files::Disk& disk, const QString& asked)
{
    if (!asked.isEmpty())
        return asked;
    for (const QString& place : {u"C:\\APPRAISE\\KEL.INI"_s, u"C:\\WINDOWS\\KEL.INI"_s}) {
        if (disk.FileExists(place))
            return place;
    }
    return u"C:\\APPRAISE\\KEL.INI"_s;
}

/// "C:\\KEL\\DATA\\OAKST114.RPT", as opposed to a path of the system.
bool IsDrivePath(const QString& path)
{
    return path.size() > 2 && path[0].isLetter() && path[1] == u':' && path[2] == u'\\';
}

} // namespace

Service::Service(const Options& options)
    : m_options(options)
    , m_disk(RequireHome(options.home))
    , m_program(m_reports, m_disk, FindIni(m_disk, options.iniFile), options.habits)
{
    if (!options.logFile.isEmpty()) {
        m_log.setFileName(options.logFile);
        if (!m_log.open(QIODevice::WriteOnly | QIODevice::Append))
            throw RuntimeError(error::kPathFileAccess, u"The log %1 cannot be written: %2"_s.arg(
                                                           options.logFile, m_log.errorString()));
    }
    // Each report opened becomes the active one, so the first of the line comes last.
    QStringList reports = options.reports;
    std::reverse(reports.begin(), reports.end());
    for (const QString& report : reports)
        m_reports.Open(IsDrivePath(report) ? m_disk.ToNative(report) : report);
}

Service::~Service() = default;

void Service::Listen()
{
    conduit::ServerOptions server;
    server.socketPath = m_options.socketPath;
    server.program = u"kelforms"_s;
    server.faults = m_options.faults;
    server.faults.die = [] { DieNow(); };
    server.onExchange = [this](const conduit::LinkMessage& message, const conduit::LinkAnswer& answer) {
        Log(message, answer);
        if (onExchange)
            onExchange(message, answer);
    };
    server.onClients = [this](int clients) {
        if (onClients)
            onClients(clients);
    };
    server.onRefused = [this](const QString& words) {
        if (onRefused)
            onRefused(words);
    };
    m_server = std::make_unique<conduit::LinkServer>(m_program, std::move(server));
    m_server->Listen();
    m_exchange = std::make_unique<Exchange>(
        m_program, [this](const QString& topic) { return m_program.Takes(topic); },
        [this](const conduit::LinkMessage& message, const conduit::LinkAnswer& answer) {
            Log(message, answer);
            if (onExchange)
                onExchange(message, answer);
        });
}

void Service::End()
{
    onClients = {};
    m_exchange.reset();
    m_server.reset();
    if (m_options.saveOnExit)
        m_reports.SaveAll();
}

void Service::Log(const conduit::LinkMessage& message, const conduit::LinkAnswer& answer)
{
    if (!m_log.isOpen())
        return;
    constexpr QLatin1StringView kVerbs[] = {"request"_L1, "poke"_L1, "execute"_L1};
    QJsonObject line{{u"do"_s, QString(kVerbs[static_cast<size_t>(message.verb)])},
                     {u"topic"_s, message.topic}};
    if (message.verb != conduit::Verb::Execute)
        line.insert("item"_L1, message.item);
    if (message.verb != conduit::Verb::Request)
        line.insert(message.verb == conduit::Verb::Poke ? "text"_L1 : "command"_L1, message.text);
    if (answer.kind == conduit::LinkAnswer::Kind::Text)
        line.insert("answer"_L1, answer.text);
    if (answer.kind == conduit::LinkAnswer::Kind::Error)
        line.insert("refused"_L1, answer.text);
    m_log.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    m_log.flush();
}

} // namespace kelforms
