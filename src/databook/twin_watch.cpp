#include "databook/twin_watch.h"

#include "databook/same_house.h"
#include "platform/engine/database.h"
#include "platform/engine/errors.h"
#include "platform/engine/waits.h"
#include "platform/text/runtime_error.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Somebody types: another user is not waited for.
engine::CallWait Briefly(engine::Engine& engine)
{
    engine::CallWait wait = engine.Waiting().Now();
    wait.deadline = std::chrono::milliseconds(20);
    return wait;
}

} // namespace

TwinWatch::TwinWatch(const store::DataSource& databook, const QString& table, Ask ask)
    : m_databook(databook)
    , m_table(table)
    , m_ask(std::move(ask))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(kPause);
    connect(&m_timer, &QTimer::timeout, this, &TwinWatch::Look);
}

void TwinWatch::Set(const QString& twin)
{
    if (m_twin == twin)
        return;
    m_twin = twin;
    Q_EMIT Changed();
}

void TwinWatch::Typed()
{
    Set({});
    m_timer.start();
}

void TwinWatch::Forget()
{
    m_timer.stop();
    Set({});
}

void TwinWatch::Look()
{
    const std::optional<TypedAddress> typed = m_databook.Bound() ? m_ask() : std::nullopt;
    if (!typed)
        return;
    try {
        const engine::WaitScope brief(m_databook.Engine(), Briefly(m_databook.Engine()));
        Set(TwinOf(m_databook, m_table, typed->key, typed->address, typed->city));
    } catch (const RuntimeError& failure) {
        Set({}); // a Databook that can't be read just now is no reason to disturb who types
        if (failure.Number() == error::kCouldNotReadLocked)
            m_timer.start(); // and is looked into again: who stores is done in a moment
    }
}

QString TwinText(const QString& key)
{
    return u"Your record %1 stands at this address."_s.arg(key);
}

} // namespace vasclip::databook
