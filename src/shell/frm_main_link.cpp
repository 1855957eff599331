// The report on show and the line that tells how it stands with the forms program.

#include "common/error_block.h"
#include "link/link_desk.h"
#include "link/messages.h"
#include "link/refresh.h"
#include "platform/desktop/desktop.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;
using Sees = link::LinkWatch::Sees;

void frm_Main::WireLink()
{
    connect(&report.imaKel, &forms::Control::Clicked, this, [this] { RefreshAppraisal(); });
    connect(&report.cmdLink, &forms::Control::Clicked, this, &frm_Main::cmdLink_Click);
    for (forms::TextBox* told : {&addr.txtKelReport, &addr.txtKelFileNo, &addr.txtCompAddr(0)})
        connect(told, &forms::TextBox::TextChanged, this, &frm_Main::ShowLink);
    ShowLink();
}

void frm_Main::RefreshAppraisal()
{
    if (linkState.refreshing || linkState.transferring)
        return;
    const QString told = link::RefreshAppraisal(*m_link);
    if (linkState.linkActive)
        LinkSeen(Sees::Reports, addr.txtKelReport.Text() + u',');
    else if (told == link::messages::kRefreshNotRead)
        LinkSeen(Sees::Silent, {});
    else if (told == link::messages::kRefreshCancelled)
        LinkSeen(Sees::Nothing, {});
    else if (told == link::messages::kRefreshNoneOpen.arg(globals.formsProgram))
        LinkSeen(Sees::Reports, u"none"_s);
    else
        LinkSeen(Sees::NotRunning, {});
    grddatabook_RowColChange();
    if (!told.isEmpty())
        status.lblmsg.Show(told, forms::Colour::Red);
    Q_EMIT LinkLookWanted();
}

void frm_Main::LinkSeen(Sees sees, const QString& words)
{
    m_sees = sees;
    m_seenWords = words;
    ShowLink();
}

void frm_Main::ShowLink()
{
    const link::LinkStanding standing = link::StandingOf(*m_link, m_sees, m_seenWords);
    m_linkHelp = standing.help;
    link::ShowStanding(report, standing);
}

void frm_Main::cmdLink_Click()
{
    const common::RoutineScope scope{"cmdLink"};
    if (m_linkHelp == link::LinkHelp::StartFormsProgram)
        LaunchAppraisalProgram();
    else if (m_linkHelp != link::LinkHelp::None)
        RefreshAppraisal();
    Q_EMIT LinkLookWanted();
}

void frm_Main::LaunchAppraisalProgram()
{
    link::LaunchFormsProgram(*m_link, [this](const QString& path) {
        return desktop::ShellOpen(m_base.disk, u"open"_s, path, {}, globals.kelAppDir) > 32;
    });
}

} // namespace vasclip::shell
