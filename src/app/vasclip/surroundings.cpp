#include "app/vasclip/surroundings.h"

#include "link/link_choice.h"
#include "platform/conduit/socket_conduit.h"
#include "platform/conduit/socket_path.h"

#include <QApplication>
#include <QDir>
#include <QFile>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What reached the top is kept where people who help can find it.
std::function<void(const QString&)> LogTo(const QString& file, const text::TimeSource& time)
{
    return [file, &time](const QString& line) {
        QFile log(file);
        if (log.open(QIODevice::Append | QIODevice::Text))
            log.write((time.Now().toString(Qt::ISODate) + u' ' + line + u'\n').toUtf8());
    };
}

} // namespace

Surroundings::Surroundings(QApplication& app, const files::Disk& disk, const SurroundingOptions& options,
                           const std::function<void(int code)>& end)
    : socket(options.socket.isEmpty() ? conduit::DefaultSocketPath(disk.Home()) : options.socket)
    , clock(options.today)
    , m_conduit(conduit::MakeSocketConduit(
          {.socketPath = socket, .timeLimitMs = options.linkTimeLimitMs, .patience = &talk}))
    , m_recorded(options.recorded)
    , m_socketAsked(!options.socket.isEmpty())
    , watch({.socketPath = socket, .timeLimitMs = options.linkTimeLimitMs})
    , recorder(m_conduit)
    , settings(QDir(disk.Home()).filePath(u"window.ini"_s), QSettings::IniFormat)
    , theme(app, &settings)
    , prompter(disk)
    , guard(prompter, end)
    , m_disk(disk)
    , m_linkTimeLimitMs(options.linkTimeLimitMs)
{
    m_pump.SetStop([this] { talk.Cancel(); });
    talk.hold = [this](bool on) { m_pump.Hold(on); };
    talk.offer = [this](const QString& action, const QString& title, const QString& text) {
        return prompter.Offer(action, title, text);
    };
    screens.SetGuard(&guard);
    app.installEventFilter(&m_guideKey);
    prompter.SetLog(LogTo(QDir(disk.Home()).filePath(u"vasclip.log"_s), clock));
}

shell::Surroundings Surroundings::Get()
{
    return {m_recorded ? static_cast<conduit::Conduit&>(recorder) : m_conduit,
            {prompter, m_pump, clock, m_random, desktop, screens},
            &talk,
            [this](const QString& kelIni) { ChooseLink(kelIni); }};
}

void Surroundings::ChooseLink(const QString& kelIni)
{
    if (m_socketAsked)
        return;
    if (auto chosen = link::MakeChosen(link::ReadLinkChoice(m_disk, kelIni), m_linkTimeLimitMs, &talk)) {
        m_conduit.Use(std::move(chosen));
        m_exchange = true;
    }
}

} // namespace vasclip::app
