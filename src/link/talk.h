#pragma once

#include "common/status.h"
#include "forms/ports.h"
#include "platform/conduit/patience.h"

#include <QElapsedTimer>
#include <QMetaObject>
#include <QString>

#include <functional>

namespace vasclip::link {

struct Conversation;

/// Whole conversations with the forms program: a refresh, a send, a transfer.
///
/// While an answer is late the queue is turned so that the window paints, the gauge shows the step at work, and
/// Cancel works: no exchange begins after it, the conversation ends with error 18, and whoever was at work tells how
/// far it got. Of what the user does meanwhile nothing else gets through (`hold`), so nothing is entered
/// a second time. After a limit for the exchanges together the user is asked whether to go on.
class Talk final : public conduit::Patience
{
public:
    static constexpr qint64 kSlowMs = 150;    ///< of the exchanges of one conversation, then the gauge comes
    static constexpr qint64 kLimitMs = 30000; ///< likewise, then the question, and after each further limit

    /// Outlive the talk.
    void Attach(common::StatusDesk& status, const forms::Ports& ports);
    void SetLimit(qint64 milliseconds) { m_limitMs = milliseconds; }

    [[nodiscard]] bool On() const { return m_depth > 0; }
    [[nodiscard]] bool Cancelled() const { return m_cancelled; }
    void Cancel() { m_cancelled = m_depth > 0; }
    /// How far the conversation is; shown when it is slow.
    void SetStep(int done, int of)
    {
        m_done = done;
        m_of = of;
    }

    /// While it is on, a turn of the queue paints, and takes Cancel alone of what the user does; nests.
    std::function<void(bool on)> hold;
    /// A question whose one button says what it does, beside Cancel. None: OK and Cancel.
    std::function<bool(const QString& action, const QString& title, const QString& text)> offer;
    /// Called as long as an answer is late, before the queue is turned.
    std::function<void()> onSlow;

    void BeforeExchange() override;
    void AfterExchange() override;
    void Waiting() override;

private:
    friend class Talking;
    void Begin(const QString& what);
    void End();
    void Show();
    void AskWhetherToGoOn();
    void Hold(bool on) const;

    common::StatusDesk* m_status = nullptr;
    forms::Prompter* m_prompter = nullptr;
    forms::EventPump* m_pump = nullptr;
    QMetaObject::Connection m_wish;
    QString m_what;
    QElapsedTimer m_exchange, m_sinceTurn;
    qint64 m_spentNs = 0;
    qint64 m_limitMs = kLimitMs, m_nextLimitMs = kLimitMs;
    int m_depth = 0, m_done = 0, m_of = 0;
    bool m_cancelled = false, m_shown = false, m_ownsStop = false, m_ownsCaption = false;
};

/// One conversation, for a scope; those within it are a part of it.
class Talking
{
public:
    /// @param what  what the gauge says of it where nothing else is said
    Talking(const Conversation& desk, const QString& what);
    ~Talking();
    Talking(const Talking&) = delete;
    Talking& operator=(const Talking&) = delete;
    [[nodiscard]] bool Cancelled() const;

private:
    Talk* m_talk;
};

/// Has the user cancelled the conversation at work?
[[nodiscard]] bool Cancelled(const Conversation& desk);

} // namespace vasclip::link
