#include "shell/link_line.h"

#include "common/error_block.h"
#include "link/link_desk.h"
#include "link/messages.h"
#include "link/refresh.h"
#include "platform/desktop/desktop.h"
#include "platform/text/text.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "shell/window_wants.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

LinkLine::LinkLine(Program& program, RecordOnShow& shown, WindowWants& wants)
    : m_program(program)
    , m_shown(shown)
    , m_wants(wants)
{
    connect(&m_program.report.imaKel, &forms::Control::Clicked, this, [this] { RefreshAppraisal(); });
    connect(&m_program.report.cmdLink, &forms::Control::Clicked, this, &LinkLine::cmdLink_Click);
    for (forms::TextBox* told :
         {&m_program.addr.txtKelReport, &m_program.addr.txtKelFileNo, &m_program.addr.txtCompAddr(0)})
        connect(told, &forms::TextBox::TextChanged, this, &LinkLine::ShowLink);
    ShowLink();
}

void LinkLine::RefreshAppraisal()
{
    if (m_program.linkState.refreshing || m_program.linkState.transferring)
        return;
    const QString told = link::RefreshAppraisal(m_program.Link());
    if (m_program.linkState.linkActive)
        LinkSeen(Sees::Reports, m_program.addr.txtKelReport.Text() + u',');
    else if (told == link::messages::kRefreshNotRead)
        LinkSeen(Sees::Silent, {});
    else if (told == link::messages::kRefreshCancelled)
        LinkSeen(Sees::Nothing, {});
    else if (text::Trim(m_program.Link().txtDDE.Text()).isEmpty())
        LinkSeen(Sees::NotRunning, {});
    else // its answer, which names no report
        LinkSeen(Sees::Reports, m_program.Link().txtDDE.Text());
    m_shown.grddatabook_RowColChange();
    if (!told.isEmpty())
        m_program.status.lblmsg.Show(told, forms::Colour::Red);
    Q_EMIT m_wants.LinkLookWanted();
}

void LinkLine::LinkSeen(Sees sees, const QString& words)
{
    m_sees = sees;
    m_seenWords = words;
    ShowLink();
}

void LinkLine::ShowLink()
{
    const link::LinkStanding standing = link::StandingOf(m_program.Link(), m_sees, m_seenWords);
    m_help = standing.help;
    link::ShowStanding(m_program.report, standing);
}

void LinkLine::cmdLink_Click()
{
    const common::RoutineScope scope{"cmdLink"};
    if (m_help == link::LinkHelp::StartFormsProgram)
        LaunchAppraisalProgram();
    else if (m_help != link::LinkHelp::None)
        RefreshAppraisal();
    Q_EMIT m_wants.LinkLookWanted();
}

void LinkLine::LaunchAppraisalProgram()
{
    link::LaunchFormsProgram(m_program.Link(), [this](const QString& path) {
        return desktop::ShellOpen(m_program.Disk(), u"open"_s, path, {}, m_program.globals.kelAppDir) > 32;
    });
}

} // namespace vasclip::shell
