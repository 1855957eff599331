#include "platform/engine/waits.h"

#include "platform/engine/database.h"
#include "platform/engine/errors.h"

#include <QScopedValueRollback>

#include <utility>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

bool Waits::GoOn(std::chrono::milliseconds waited)
{
    m_givenUp = false;
    if (waited >= m_wait.deadline)
        return false;
    if (!m_wait.hook)
        return true;
    const QScopedValueRollback<bool> within(m_within, true);
    m_givenUp = !m_wait.hook(waited);
    return !m_givenUp;
}

bool Waits::TakeGivenUp()
{
    return std::exchange(m_givenUp, false);
}

void Waits::NeedFree() const
{
    if (m_within)
        throw RuntimeError(error::kInternalEngine,
                           u"The database is waiting for another user; nothing else was read or written meanwhile"_s);
}

WaitScope::WaitScope(Engine& engine, CallWait wait)
    : m_waits(engine.Waiting())
    , m_before(m_waits.Now())
{
    m_waits.Set(std::move(wait));
}

WaitScope::~WaitScope()
{
    m_waits.Set(std::move(m_before));
}

} // namespace vasclip::engine
