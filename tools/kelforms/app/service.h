#pragma once

#include "kelforms/app/exchange.h"
#include "kelforms/app/options.h"
#include "kelforms/core/forms_program.h"
#include "kelforms/core/reports.h"
#include "platform/conduit/link_server.h"
#include "platform/files/disk.h"

#include <QFile>

#include <functional>
#include <memory>

namespace kelforms {

/// The program without its window: the home, the open reports, the link, the log.
class Service
{
public:
    /// @throws RuntimeError 76 if the home is not there; as Report::Load; 75 if the log cannot be written
    explicit Service(const Options& options);
    ~Service();

    /// @throws RuntimeError as LinkServer::Listen
    void Listen();
    /// Saves if asked to, and gives the socket back.
    /// @throws RuntimeError of a report that could not be saved
    void End();

    [[nodiscard]] Reports& OpenReports() { return m_reports; }
    [[nodiscard]] const vasclip::files::Disk& Disk() const { return m_disk; }
    [[nodiscard]] const QString& SocketPath() const { return m_options.socketPath; }

    std::function<void(int clients)> onClients;
    std::function<void(const vasclip::conduit::LinkMessage&, const vasclip::conduit::LinkAnswer&)> onExchange;
    std::function<void(const QString&)> onRefused;

private:
    void Log(const vasclip::conduit::LinkMessage& message, const vasclip::conduit::LinkAnswer& answer);

    Options m_options;
    vasclip::files::Disk m_disk;
    Reports m_reports;
    FormsProgram m_program;
    QFile m_log;
    std::unique_ptr<vasclip::conduit::LinkServer> m_server;
    std::unique_ptr<Exchange> m_exchange;
};

} // namespace kelforms
