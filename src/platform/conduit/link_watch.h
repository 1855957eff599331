#pragma once

#include "platform/conduit/protocol.h"
#include "platform/conduit/socket_conduit.h"

#include <QLocalSocket>
#include <QObject>
#include <QTimer>

#include <memory>

namespace vasclip::conduit {

/// Looks, beside the conversation and without ever blocking, how the forms program is doing.
///
/// It has a way of its own, so that a forms program that is gone is noticed at once, one that has another report
/// in front at the next look, and one that is silent when the time limit has passed.
class LinkWatch : public QObject
{
    Q_OBJECT
public:
    enum class Sees {
        Nothing,     ///< not looked yet
        NotRunning,  ///< nobody listens
        AnothersUser, ///< it is not this user's; the words say whose
        Silent,      ///< it is there and does not answer
        Reports,     ///< it answers; the words are its active reports
    };
    Q_ENUM(Sees)

    explicit LinkWatch(SocketOptions options, QObject* parent = nullptr);
    ~LinkWatch() override;

    /// Looks now and then again and again.
    void Start(int everyMs);
    void Look();

Q_SIGNALS:
    void Seen(vasclip::conduit::LinkWatch::Sees what, const QString& words);

private:
    void Connect();
    void Ask();
    void Read();
    void Take(const QByteArray& line);
    void Lose(Sees what, const QString& words = {});

    SocketOptions m_options;
    QTimer m_every;
    QTimer m_silence;
    std::unique_ptr<QLocalSocket> m_socket;
    LineCutter m_lines;
    QString m_nonce;
    bool m_greeted = false;
    bool m_asked = false;
    qint64 m_lastId = 0;
};

} // namespace vasclip::conduit
