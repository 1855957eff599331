#pragma once

#include "memo_handler.h"

#include "platform/conduit/link_server.h"
#include "platform/conduit/socket_conduit.h"
#include "support/error_number.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QThread>

#include <atomic>
#include <functional>
#include <future>
#include <memory>

namespace vasclip::test {

using tests::Thrown;
using tests::ThrownBy;

using namespace Qt::StringLiterals;

/// A LinkServer with its own event loop in a thread; stops with the object.
class ServerThread
{
public:
    explicit ServerThread(conduit::ServerOptions options)
    {
        std::promise<void> up;
        auto ready = up.get_future();
        m_thread.reset(QThread::create([this, options = std::move(options), up = std::move(up)]() mutable {
            QEventLoop loop;
            conduit::LinkServer server(handler, std::move(options));
            try {
                server.Listen();
                m_loop = &loop;
                up.set_value();
            } catch (...) {
                up.set_exception(std::current_exception());
                return;
            }
            loop.exec();
        }));
        m_thread->start();
        try {
            ready.get();
        } catch (...) {
            m_thread->wait();
            throw;
        }
    }

    ~ServerThread() { Stop(); }

    void Stop()
    {
        if (!m_thread->isRunning())
            return;
        QMetaObject::invokeMethod(m_loop, &QEventLoop::quit, Qt::QueuedConnection);
        m_thread->wait();
    }

    MemoHandler handler;

private:
    std::unique_ptr<QThread> m_thread;
    QEventLoop* m_loop = nullptr;
};

/// A server that follows a script byte by byte: it takes one client after the other and hands each to
/// `script`.
class ScriptedServer
{
public:
    using Script = std::function<void(QLocalSocket&, int client)>;

    ScriptedServer(const QString& path, Script script)
    {
        std::promise<void> up;
        auto ready = up.get_future();
        m_thread.reset(
            QThread::create([this, path, script = std::move(script), up = std::move(up)]() mutable {
                QLocalServer server;
                server.listen(path);
                up.set_value();
                for (int client = 0; !m_stop; ++client) {
                    while (!m_stop && !server.waitForNewConnection(20)) {
                    }
                    if (const std::unique_ptr<QLocalSocket> socket{server.nextPendingConnection()})
                        script(*socket, client);
                }
            }));
        m_thread->start();
        ready.get();
    }

    ~ScriptedServer()
    {
        m_stop = true;
        m_thread->wait();
    }

    /// Waits for a line.
    static QByteArray ReadLine(QLocalSocket& socket)
    {
        while (!socket.canReadLine() && socket.waitForReadyRead(2000)) {
        }
        return socket.readLine().chopped(1);
    }

    static void Write(QLocalSocket& socket, const QByteArray& bytes)
    {
        socket.write(bytes);
        socket.waitForBytesWritten(2000);
    }

    static void Greet(QLocalSocket& socket)
    {
        const conduit::Hello hello = conduit::DecodeHello(ReadLine(socket));
        Write(socket, conduit::Encode(conduit::Hello{hello.nonce, u"script"_s, 1}));
    }

private:
    std::unique_ptr<QThread> m_thread;
    std::atomic<bool> m_stop = false;
};

} // namespace vasclip::test
