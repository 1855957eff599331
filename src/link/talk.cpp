#include "link/talk.h"

#include "link/link_desk.h"
#include "link/messages.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

namespace vasclip::link {

namespace {

constexpr qint64 kNsPerMs = 1'000'000;
constexpr qint64 kPaintEveryMs = 100; ///< where many answers come, each a little late

} // namespace

void Talk::Attach(common::StatusDesk& status, const forms::Ports& ports)
{
    m_status = &status;
    m_prompter = &ports.prompter;
    m_pump = &ports.pump;
}

void Talk::Hold(bool on) const
{
    if (hold)
        hold(on);
}

void Talk::Begin(const QString& what)
{
    if (m_depth++ > 0)
        return;
    m_what = what;
    m_spentNs = 0;
    m_nextLimitMs = m_limitMs;
    m_done = m_of = 0;
    m_cancelled = m_shown = m_ownsStop = m_ownsCaption = false;
    m_sinceTurn.start();
    Hold(true);
    if (m_status)
        m_wish = QObject::connect(&m_status->cmdStop, &forms::Control::Clicked, [this] { Cancel(); });
}

void Talk::End()
{
    if (--m_depth > 0)
        return;
    QObject::disconnect(m_wish);
    m_cancelled = false; // what comes after it is another matter
    if (m_ownsStop)
        m_status->cmdStop.SetVisible(false);
    if (m_shown) {
        common::InitGauge(m_status->gauProgress, 1);
        m_status->gauProgress.SetCaption({});
    }
    Hold(false);
}

void Talk::BeforeExchange()
{
    if (!m_cancelled && m_depth > 0 && m_spentNs / kNsPerMs >= m_nextLimitMs)
        AskWhetherToGoOn();
    if (m_cancelled)
        throw RuntimeError(conduit::kUserInterrupt, messages::kCancelled);
    if (m_depth > 0 && m_pump && m_spentNs / kNsPerMs >= kSlowMs && m_sinceTurn.elapsed() >= kPaintEveryMs) {
        Show();
        if (onSlow)
            onSlow();
        m_pump->DoEvents();
        m_sinceTurn.start();
        if (m_cancelled)
            throw RuntimeError(conduit::kUserInterrupt, messages::kCancelled);
    }
    m_exchange.start();
}

void Talk::AfterExchange()
{
    m_spentNs += m_exchange.nsecsElapsed();
}

void Talk::Waiting()
{
    if (!m_pump)
        return;
    // An exchange that belongs to no conversation lets the window paint all the same.
    const bool alone = m_depth == 0;
    if (alone)
        Hold(true);
    if (m_exchange.elapsed() + m_spentNs / kNsPerMs >= kSlowMs && !alone)
        Show();
    if (onSlow && m_exchange.elapsed() + m_spentNs / kNsPerMs >= kSlowMs)
        onSlow();
    m_pump->DoEvents();
    m_sinceTurn.start();
    if (alone)
        Hold(false);
}

/// The gauge with its step, and Cancel. A transfer shows its own; a refresh its captions.
void Talk::Show()
{
    if (!m_status)
        return;
    if (!m_shown) {
        m_shown = true;
        m_ownsStop = !m_status->cmdStop.Visible();
        m_ownsCaption = m_status->gauProgress.Caption().isEmpty();
        m_status->cmdStop.SetVisible(true);
    }
    if (m_ownsCaption && m_of > 0) {
        common::InitGauge(m_status->gauProgress, m_of);
        common::SetGaugeValue(m_status->gauProgress, m_done);
        m_status->gauProgress.SetCaption(
            messages::kStepOf.arg(m_what, text::Dec(m_done + 1), text::Dec(m_of)));
    } else if (m_status->gauProgress.Caption().isEmpty()) {
        m_status->gauProgress.SetCaption(m_what);
    }
}

void Talk::AskWhetherToGoOn()
{
    if (!m_prompter)
        return;
    const qint64 seconds = m_spentNs / kNsPerMs / 1000;
    const QString step = m_status && !m_status->gauProgress.Caption().isEmpty() ? m_status->gauProgress.Caption()
                                                                                : m_what;
    m_nextLimitMs = m_spentNs / kNsPerMs + m_limitMs;
    if (!m_prompter->YesNo(messages::kSlowTitle, messages::kSlow.arg(QString::number(seconds), step)))
        m_cancelled = true;
}

Talking::Talking(const Conversation& desk, const QString& what)
    : m_talk(desk.talk)
{
    if (m_talk)
        m_talk->Begin(what);
}

Talking::~Talking()
{
    if (m_talk)
        m_talk->End();
}

bool Talking::Cancelled() const
{
    return m_talk && m_talk->Cancelled();
}

bool Cancelled(const Conversation& desk)
{
    return desk.talk && desk.talk->Cancelled();
}

} // namespace vasclip::link
