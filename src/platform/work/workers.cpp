#include "platform/work/workers.h"

#include <condition_variable>
#include <mutex>

namespace vasclip::work {

struct CancelToken::State
{
    std::mutex mutex;
    std::condition_variable ended;
    int running = 0;
    bool cancelled = false;
};

CancelToken::CancelToken()
    : m_state(std::make_shared<State>())
{}

void CancelToken::Cancel() const
{
    const std::lock_guard lock(m_state->mutex);
    m_state->cancelled = true;
}

bool CancelToken::Cancelled() const
{
    const std::lock_guard lock(m_state->mutex);
    return m_state->cancelled;
}

void CancelToken::Wait() const
{
    std::unique_lock lock(m_state->mutex);
    m_state->ended.wait(lock, [this] { return m_state->running == 0; });
}

Running::Running(const CancelToken& token)
{
    const std::lock_guard lock(token.m_state->mutex);
    if (token.m_state->cancelled)
        return;
    ++token.m_state->running;
    m_state = token.m_state;
}

Running::~Running()
{
    if (!m_state)
        return;
    const std::lock_guard lock(m_state->mutex);
    if (--m_state->running == 0)
        m_state->ended.notify_all();
}

} // namespace vasclip::work
