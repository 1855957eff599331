#include "link/report_check.h"

#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/refresh.h"
#include "link/reporter.h"
#include "link/talk.h"
#include "platform/text/text.h"

using namespace Qt::StringLiterals;

namespace vasclip::link {

namespace {

QString Mirrored(const ReportMirror& desk)
{
    return text::Trim(desk.addr.txtKelReport.Text());
}

QString Active(const Conversation& desk)
{
    return text::Trim(KelFirstToken(desk.txtDDE.Text()));
}

bool Offer(const Conversation& desk, const QString& action, const QString& title, const QString& text)
{
    if (desk.talk && desk.talk->offer)
        return desk.talk->offer(action, title, text);
    return desk.ports.prompter.MsgBox(forms::Buttons::OkCancel, forms::Icon::Exclamation, title, text) ==
           forms::Answer::Ok;
}

/// @return what to tell afterwards
QString AskToRefresh(LinkDesk& desk)
{
    const QString mirrored = Mirrored(desk);
    const QString active = Active(desk);
    desk.ports.window.AppActivate();
    const bool refresh = Offer(
        desk, messages::kRefreshFrom.arg(active), messages::kAnotherReportTitle,
        mirrored.isEmpty() ? messages::kNotReadYet.arg(active) : messages::kAnotherReport.arg(active, mirrored));
    if (!refresh)
        return mirrored.isEmpty() ? messages::kNotSentUnread.arg(active)
                                  : messages::kNotSentAnother.arg(active, mirrored);
    if (const QString told = RefreshAppraisal(desk); !told.isEmpty())
        return told + u" Nothing was sent."_s;
    return messages::kNotSentRefreshed.arg(Mirrored(desk).isEmpty() ? active : Mirrored(desk));
}

} // namespace

ReportIs CompareReport(const LinkDesk& desk)
{
    const QString active = Active(desk);
    if (active.isEmpty())
        return ReportIs::NotOpen;
    return text::Folded(active) == text::Folded(Mirrored(desk)) ? ReportIs::Mirrored : ReportIs::Another;
}

ReportCheck CheckAnsweredReport(LinkDesk& desk)
{
    switch (CompareReport(desk)) {
    case ReportIs::Mirrored:
        return {};
    case ReportIs::NotOpen:
        return {ReportIs::NotOpen, NoReportWords(desk)};
    case ReportIs::Another:
        return {ReportIs::Another, AskToRefresh(desk)};
    }
    return {};
}

ReportCheck CheckReport(LinkDesk& desk)
{
    if (!Reported(desk.ports.prompter, "CheckReport", [&] { KelIsActive(desk.txtDDE, desk.state); }))
        return {ReportIs::NotOpen, Cancelled(desk) ? messages::kCancelledBefore : messages::kNotAnswered};
    return CheckAnsweredReport(desk);
}

QString NoReportWords(const LinkDesk& desk)
{
    if (const QString unnamed = UnnamedReportWords(desk); !unnamed.isEmpty())
        return unnamed + u", so nothing was sent."_s;
    return text::Trim(desk.txtDDE.Text()).isEmpty() ? messages::kNotRunningNothing.arg(desk.globals.formsProgram)
                                                    : messages::kNoneOpenNothing.arg(desk.globals.formsProgram);
}

} // namespace vasclip::link
