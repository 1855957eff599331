#include "link/link_desk.h"

#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/reporter.h"
#include "platform/conduit/no_way.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

QString FormsProgramFile(const BookSources& desk, const QString& name)
{
    const QString& directory = desk.globals.kelAppDir;
    if (directory.isEmpty() || directory.endsWith(u'\\'))
        return directory + name;
    return directory + u'\\' + name;
}

void SendScriptIfThere(LinkDesk& desk, const QString& name)
{
    if (!desk.globals.kelAppDir.isEmpty() && desk.disk.FileExists(FormsProgramFile(desk, name)))
        KelSendScript(desk.txtDDE, name);
}

bool ReportIsNamed(LinkDesk& desk)
{
    if (!KelIsActive(desk.txtDDE, desk.state))
        return false;
    const QString unnamed = UnnamedReportWords(desk);
    if (unnamed.isEmpty())
        return true;
    desk.state.linkActive = desk.state.populateGate = false;
    desk.status.lblmsg.Show(unnamed, forms::Colour::Red);
    return false;
}

QString UnnamedReportWords(const Conversation& desk)
{
    const QString answer = text::Trim(desk.txtDDE.Text());
    return KelReportsUnnamed(answer) ? messages::kUnnamedReport.arg(answer.left(80)) : QString();
}

bool KelIsActive(LinkDesk& desk)
{
    bool active = false;
    Reported(desk.ports.prompter, "KelIsActive", [&] { active = ReportIsNamed(desk); });
    return active;
}

bool KelEnsureRunning(LinkDesk& desk)
{
    bool running = false;
    const bool told = !Reported(desk.ports.prompter, "KelEnsureRunning", [&] {
        running = ReportIsNamed(desk);
        if (!running) {
            KelReconnect(desk.txtDDE);
            running = ReportIsNamed(desk);
        }
    });
    if (!running && !told) {
        const QString unnamed = UnnamedReportWords(desk);
        desk.ports.prompter.Box(unnamed.isEmpty() ? messages::kNotRunningTitle : desk.globals.productName,
                                unnamed.isEmpty() ? messages::kNotRunning : unnamed);
    }
    return running;
}

bool LinkIsDead(int number)
{
    return number == error::kLinkNoAnswer || number == error::kLinkTimeOut || number == error::kLinkPeerGone ||
           number == conduit::kNoWay;
}

bool TestKelLabel(const frm_Addr& addr)
{
    return text::Folded(addr.lblFileNo.Caption()) != "KEL NOT ACTIVE"_L1;
}

bool LaunchFormsProgram(LinkDesk& desk, const std::function<bool(const QString& drivePath)>& open)
{
    bool opened = false;
    Reported(desk.ports.prompter, "LaunchFormsProgram",
             [&] { opened = open(FormsProgramFile(desk, u"Kel.exe"_s)); });
    if (!opened) {
        desk.ports.prompter.Box(messages::kLaunchFailedTitle, messages::kLaunchFailed);
        return false;
    }
    desk.ports.prompter.Box(desk.globals.productName, messages::kLaunched.arg(desk.globals.productName));
    return true;
}

} // namespace vasclip::link
