#include "platform/conduit/link_watch.h"

#include "platform/conduit/socket_path.h"
#include "platform/text/runtime_error.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QRandomGenerator>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

LinkWatch::LinkWatch(SocketOptions options, QObject* parent)
    : QObject(parent)
    , m_options(std::move(options))
{
    m_options.socketPath = WholeSocketPath(m_options.socketPath);
    m_silence.setSingleShot(true);
    connect(&m_every, &QTimer::timeout, this, &LinkWatch::Look);
    connect(&m_silence, &QTimer::timeout, this, [this] { Lose(Sees::Silent); });
}

LinkWatch::~LinkWatch()
{
    if (m_socket)
        m_socket->disconnect(this);
}

void LinkWatch::Start(int everyMs)
{
    m_every.start(everyMs);
    Look();
}

void LinkWatch::Look()
{
    if (!m_socket)
        Connect();
    else if (m_greeted && !m_asked)
        Ask();
}

void LinkWatch::Connect()
{
#ifdef Q_OS_UNIX
    if (!QFileInfo::exists(m_options.socketPath)) {
        Q_EMIT Seen(Sees::NotRunning, {});
        return;
    }
#endif
    try {
        RequireOwnSocket(m_options.socketPath);
    } catch (const RuntimeError& refusal) {
        Q_EMIT Seen(Sees::AnothersUser, refusal.Description());
        return;
    }
    m_socket = std::make_unique<QLocalSocket>();
    m_lines = {};
    m_greeted = m_asked = false;
    connect(m_socket.get(), &QLocalSocket::readyRead, this, &LinkWatch::Read);
    connect(m_socket.get(), &QLocalSocket::disconnected, this, [this] { Lose(Sees::NotRunning); });
    connect(m_socket.get(), &QLocalSocket::errorOccurred, this, [this](QLocalSocket::LocalSocketError error) {
        Lose(error == QLocalSocket::SocketTimeoutError ? Sees::Silent : Sees::NotRunning);
    });
    connect(m_socket.get(), &QLocalSocket::connected, this, [this] {
        try {
            RequireOwnUser(m_options.peerOf, m_socket->socketDescriptor(), SocketEnd::Client, error::kLinkNoAnswer);
        } catch (const RuntimeError& refusal) {
            Lose(Sees::AnothersUser, refusal.Description());
            return;
        }
        m_nonce = QString::number(QRandomGenerator::system()->generate64(), 16);
        m_socket->write(Encode(Hello{m_nonce, u"vasclip"_s, QCoreApplication::applicationPid()}));
        m_silence.start(m_options.timeLimitMs);
    });
    m_silence.start(m_options.timeLimitMs); // one that hangs takes nobody in once its backlog is full
    m_socket->connectToServer(m_options.socketPath);
}

void LinkWatch::Ask()
{
    m_asked = true;
    m_socket->write(Encode({++m_lastId, Verb::Request, u"KEL|Query"_s, u"ActiveReports"_s, {}}));
    m_silence.start(m_options.timeLimitMs);
}

void LinkWatch::Read()
{
    m_lines.Append(m_socket->readAll());
    QByteArray line;
    try {
        while (m_socket && m_lines.Next(line))
            Take(line);
    } catch (const RuntimeError&) {
        Lose(Sees::Silent); // what it says is no answer
    }
}

void LinkWatch::Take(const QByteArray& line)
{
    if (!m_greeted) {
        if (line.contains("\"error\":")) {
            Lose(Sees::AnothersUser, DecodeAnswer(line).text);
            return;
        }
        if (DecodeHello(line).nonce != m_nonce) {
            Lose(Sees::Silent);
            return;
        }
        m_greeted = true;
        Ask();
        return;
    }
    const LinkAnswer answer = DecodeAnswer(line);
    if (!m_asked || answer.id != m_lastId)
        return;
    m_asked = false;
    m_silence.stop();
    Q_EMIT Seen(Sees::Reports, answer.kind == LinkAnswer::Kind::Text ? answer.text : QString());
}

void LinkWatch::Lose(Sees what, const QString& words)
{
    if (!m_socket)
        return;
    m_silence.stop();
    m_socket->disconnect(this);
    m_socket.release()->deleteLater(); // one of its signals may have led here
    Q_EMIT Seen(what, words);
}

} // namespace vasclip::conduit
