#include "link/link_state.h"

#include "link/kel_helpers.h"
#include "link/messages.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;
using Sees = LinkWatch::Sees;

namespace {

QString ReportWords(const ReportMirror& desk)
{
    const QString name = text::Trim(desk.addr.txtKelReport.Text());
    if (name.isEmpty())
        return {};
    QStringList parts{name};
    if (const QString file = text::Trim(desk.addr.txtKelFileNo.Text()); !file.isEmpty())
        parts.append(u"file %1"_s.arg(file));
    if (const QString subject = text::Trim(desk.addr.txtCompAddr(0).Text()); !subject.isEmpty())
        parts.append(subject);
    return parts.join(u", "_s);
}

LinkStanding OfReports(const LinkDesk& desk, const QString& reports)
{
    const QString& program = desk.globals.formsProgram;
    const QString active = text::Trim(KelFirstToken(reports));
    const QString mirrored = text::Trim(desk.addr.txtKelReport.Text());
    if (KelReportsUnnamed(reports))
        return {{}, messages::kLinkUnnamed.arg(program), forms::Colour::Red, LinkHelp::TryAgain, {}};
    if (active.isEmpty())
        return {{}, messages::kLinkNoReport.arg(program), forms::Colour::Blue,
                mirrored.isEmpty() ? LinkHelp::None : LinkHelp::Refresh, {}};
    if (mirrored.isEmpty())
        return {{}, messages::kLinkUnread.arg(active), forms::Colour::Blue, LinkHelp::Refresh, {}};
    if (text::Folded(active) != text::Folded(mirrored))
        return {{}, messages::kLinkAnother.arg(active), forms::Colour::Red, LinkHelp::Refresh, {}};
    return {{}, messages::kLinkLinked.arg(program), forms::Colour::Green, LinkHelp::None, {}};
}

QString OfferOf(const LinkStanding& standing, const QString& reports)
{
    const QString active = text::Trim(KelFirstToken(reports));
    switch (standing.help) {
    case LinkHelp::Refresh:
        return active.isEmpty() ? messages::kOfferRefresh : messages::kRefreshFrom.arg(active);
    case LinkHelp::StartFormsProgram:
        return messages::kOfferStart;
    case LinkHelp::TryAgain:
        return messages::kOfferAgain;
    case LinkHelp::None:
        break;
    }
    return {};
}

} // namespace

LinkStanding StandingOf(const LinkDesk& desk, Sees sees, const QString& words)
{
    const QString& program = desk.globals.formsProgram;
    LinkStanding standing;
    switch (sees) {
    case Sees::Nothing:
        standing.state = messages::kLinkLooking.arg(program);
        break;
    case Sees::NotRunning:
        standing = {{}, messages::kLinkNotRunning.arg(program), forms::Colour::Blue,
                    LinkHelp::StartFormsProgram, {}};
        break;
    case Sees::AnothersUser:
        standing = {{}, words.isEmpty() ? messages::kLinkAnothersUser.arg(program) : words, forms::Colour::Red,
                    LinkHelp::TryAgain, {}};
        break;
    case Sees::Silent:
        standing = {{}, messages::kLinkSilent.arg(program), forms::Colour::Red, LinkHelp::TryAgain, {}};
        break;
    case Sees::Reports:
        standing = OfReports(desk, words);
        break;
    }
    standing.report = ReportWords(desk);
    standing.offer = OfferOf(standing, words);
    return standing;
}

void ShowStanding(ReportControls& report, const LinkStanding& standing)
{
    report.lblReport.SetCaption(standing.report.isEmpty() ? messages::kNoReportShown : standing.report);
    report.lblReport.SetToolTipText(report.lblReport.Caption());
    report.lblLink.Show(standing.state, standing.colour);
    report.lblLink.SetToolTipText(standing.state);
    report.cmdLink.SetCaption(standing.offer);
    report.cmdLink.SetVisible(standing.help != LinkHelp::None);
}

} // namespace vasclip::link
