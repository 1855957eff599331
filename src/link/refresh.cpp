#include "link/refresh.h"

#include "link/addresses.h"
#include "link/form_table.h"
#include "link/general_text.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/read_entries.h"
#include "link/reporter.h"
#include "link/slot_icons.h"
#include "link/slot_photos.h"
#include "link/tabs.h"
#include "link/talk.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

class Refreshing
{
public:
    explicit Refreshing(LinkDesk& desk)
        : m_desk(desk)
        , m_hourglass(desk.ports.window)
    {
        desk.state.refreshing = true;
    }
    ~Refreshing()
    {
        m_desk.state.refreshing = false;
        m_desk.status.gauProgress.SetCaption(QString());
    }
    Refreshing(const Refreshing&) = delete;
    Refreshing& operator=(const Refreshing&) = delete;

private:
    LinkDesk& m_desk;
    forms::Hourglass m_hourglass;
};

void FindReport(LinkDesk& desk)
{
    if (!ReportIsNamed(desk))
        return;
    KelQueryActiveReports(desk.txtDDE);
    desk.addr.txtKelReport.SetText(KelFirstToken(desk.txtDDE.Text()));
    OpenActiveReport(desk, desk.addr.txtKelReport.Text());
    SendScriptIfThere(desk, u"ADDPLUS.BAS"_s);
}

/// Half a report on the tabs would pass for the whole one.
void ShowNoReport(LinkDesk& desk)
{
    Reported(desk.ports.prompter, "RefreshAppraisal", [&] {
        ClearAllSlots(desk);
        ClearKelAddresses(desk.addr);
        desk.state.linkActive = desk.state.populateGate = false;
        TestOtherTabs(desk, QString(), true);
        SetKelAddresses(desk);
        TabPopulateGeneralText(desk);
    });
}

/// Why no report was found, from what was answered to the question for one.
QString AbsentWords(const LinkDesk& desk)
{
    if (const QString unnamed = UnnamedReportWords(desk); !unnamed.isEmpty())
        return unnamed + u", so the tabs show none."_s;
    const bool answered = !text::Trim(desk.txtDDE.Text()).isEmpty();
    return (answered ? messages::kRefreshNoneOpen : messages::kRefreshNotRunning).arg(desk.globals.formsProgram);
}

} // namespace

QString RefreshAppraisal(LinkDesk& desk)
{
    if (desk.state.refreshing || desk.state.transferring)
        return {};
    const Talking talking{desk, messages::kReadingReport};
    const Refreshing guard{desk};
    desk.state.linkActive = false;
    QString absent;
    const bool asked = Reported(desk.ports.prompter, "RefreshAppraisal", [&] { FindReport(desk); });
    if (!asked) {
        desk.state.linkActive = desk.state.populateGate = false;
        absent = messages::kRefreshNotRead;
    } else if (!desk.state.linkActive) {
        absent = AbsentWords(desk);
    }
    Reported(desk.ports.prompter, "RefreshAppraisal", [&] { ClearAllSlots(desk); });
    if (!desk.state.linkActive) {
        Reported(desk.ports.prompter, "TestOtherTabs", [&] { TestOtherTabs(desk, QString(), true); });
    } else {
        desk.status.gauProgress.SetCaption(messages::kPopulatingTabs);
        Test2PopulateTabs(desk);
        desk.ports.pump.DoEvents();
        desk.status.gauProgress.SetCaption(messages::kSettingAddresses);
        SetKelAddresses(desk);
    }
    desk.report.TabData.SetTab(0);
    AddKelEntries2VASP(desk);
    SetKelAddresses(desk);
    if (!asked || talking.Cancelled()) // a later step may have got its answer
        ShowNoReport(desk);
    RefreshAddendumIcons(desk);
    RefreshAllSlotIcons(desk);
    return talking.Cancelled() ? messages::kRefreshCancelled : absent;
}

void Test2PopulateTabs(LinkDesk& desk)
{
    bool active = false;
    Reported(desk.ports.prompter, "Test2PopulateTabs", [&] {
        KelReconnect(desk.txtDDE);
        if (!desk.txtDDE.Text().isEmpty())
            desk.addr.txtFormType.SetText(KelFirstToken(desk.txtDDE.Text()));
        active = ReportIsNamed(desk);
    });
    if (active)
        PopulateKelTabs(desk);
}

void PopulateKelTabs(LinkDesk& desk)
{
    Reported(desk.ports.prompter, "PopulateKelTabs", [&] {
        KelQueryActiveReports(desk.txtDDE);
        OpenActiveReport(desk, KelFirstToken(desk.txtDDE.Text()));
        TabDisable(desk, desk.addr.txtKelListForms.Text());
    });
}

void OpenActiveReport(LinkDesk& desk, const QString& report)
{
    const common::RoutineScope scope{"OpenActiveReport"};
    KelOpenReport(desk.txtDDE, report);
    KelListForms(desk.txtDDE, report);
    desk.addr.txtKelListForms.SetText(desk.txtDDE.Text());
    if (!text::Trim(desk.txtDDE.Text()).isEmpty() && KelFirstToken(desk.txtDDE.Text()).isEmpty())
        desk.status.lblmsg.Show(messages::kUnnamedForm.arg(desk.txtDDE.Text().left(80), report), forms::Colour::Red);
    if (!IsApprovedForm(KelFirstToken(desk.addr.txtKelListForms.Text()))) {
        desk.ports.prompter.Info(messages::kFormTypeTitle, messages::kFormType);
        throw forms::EndOfProgram{};
    }
    common::Globals& globals = desk.globals;
    globals.formsProgramVersion =
        TwoPartVersion(desk.fileVersion ? desk.fileVersion(FormsProgramFile(desk, u"Kel.exe"_s)) : QString());
    if (desk.versionServes && !desk.versionServes(globals.formsProgramVersion)) {
        desk.ports.prompter.Info(messages::kMismatchTitle.arg(globals.productName),
                                 messages::kMismatch.arg(globals.productName, desk.productVersion,
                                                         globals.formsProgram, globals.formsProgramVersion));
        throw forms::EndOfProgram{};
    }
    KelQueryGetImages(desk.txtDDE);
    desk.addr.txtKelimages.SetText(desk.txtDDE.Text());
}

} // namespace vasclip::link
