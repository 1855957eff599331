#include "databook/twin_watch.h"

#include "databook/same_house.h"
#include "platform/text/runtime_error.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

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
        Set(TwinOf(m_databook, m_table, typed->key, typed->address, typed->city));
    } catch (const RuntimeError&) {
        Set({}); // a Databook that can't be read just now is no reason to disturb who types
    }
}

QString TwinText(const QString& key)
{
    return u"Your record %1 stands at this address."_s.arg(key);
}

} // namespace vasclip::databook
