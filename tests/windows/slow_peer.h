#pragma once

#include "platform/conduit/link_server.h"
#include "support/recording_conduit.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <mutex>

namespace vasclip::windows {

using namespace Qt::StringLiterals;

/// A forms program on a socket and in a thread of its own that takes its time for each answer. It answers what a
/// recording conduit has been told to.
class SlowPeer final : public conduit::LinkHandler
{
public:
    SlowPeer(test::RecordingConduit& script, QString path)
        : m_script(script)
        , m_path(std::move(path))
    {
        m_thread.reset(QThread::create([this] {
            conduit::ServerOptions options;
            options.socketPath = m_path;
            options.program = u"slow"_s;
            conduit::LinkServer server(*this, options);
            server.Listen();
            m_listening = true;
            QEventLoop loop;
            QTimer watch;
            QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
                if (m_end)
                    loop.quit();
            });
            watch.start(20);
            loop.exec();
        }));
        m_thread->start();
        while (!m_listening)
            QThread::msleep(5);
    }
    ~SlowPeer() override
    {
        m_end = true;
        m_thread->wait();
    }
    SlowPeer(const SlowPeer&) = delete;
    SlowPeer& operator=(const SlowPeer&) = delete;

    std::atomic<int> delayMs = 0;
    std::atomic<int> exchanges = 0, pokesBegun = 0, pokes = 0;

    QString Request(const QString& topic, const QString& item) override
    {
        Take(topic);
        m_script.SetLinkItem(item);
        m_script.LinkRequest();
        return m_script.Text();
    }
    void Poke(const QString& topic, const QString& item, const QString& text) override
    {
        ++pokesBegun;
        Take(topic);
        m_script.SetLinkItem(item);
        m_script.SetText(text);
        m_script.LinkPoke();
        ++pokes;
    }
    void Execute(const QString& topic, const QString& command) override
    {
        Take(topic);
        m_script.LinkExecute(command);
    }

private:
    void Take(const QString& topic)
    {
        ++exchanges;
        QThread::msleep(static_cast<unsigned long>(delayMs));
        m_script.SetLinkMode(0);
        m_script.SetLinkTopic(topic);
        m_script.SetLinkMode(2);
    }

    test::RecordingConduit& m_script;
    QString m_path;
    std::unique_ptr<QThread> m_thread;
    std::atomic<bool> m_listening = false, m_end = false;
};

} // namespace vasclip::windows
