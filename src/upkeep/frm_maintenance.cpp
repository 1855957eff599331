#include "upkeep/frm_maintenance.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "upkeep/file_names.h"
#include "upkeep/frm_del_date.h"
#include "upkeep/maintenance_messages.h"

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;
using namespace maintenance;

namespace {

constexpr int kGaugeParts = 1000;
constexpr qint64 kRecordsATurn = 100; ///< a turn of the queue for each would take longer than the work
constexpr int kLongest = 100;         ///< milliseconds between two turns, where the disk is slow

} // namespace

/// Long work: the buttons wait, the gauge and the button that stops are there, nothing shows the records.
class frm_Maintenance::Work
{
public:
    explicit Work(frm_Maintenance& screen)
        : m_screen(screen)
    {
        if (m_screen.m_desk.letGo)
            m_screen.m_desk.letGo(); // while a failure still finds the screen at rest
        m_screen.m_busy = true;
        m_screen.m_stop = false;
        m_screen.gauWork.SetRange(kGaugeParts);
        m_screen.gauWork.SetVisible(true);
        m_screen.cmdStop.SetEnabled(true);
        m_screen.cmdStop.SetVisible(true);
        m_screen.lstaccount.SetSource(nullptr);
        m_screen.cmdStop.SetFocus(); // before the others can't have it and hand it on, past all of the window
        m_screen.EnableButtons();
    }
    ~Work()
    {
        m_screen.m_busy = false;
        m_screen.gauWork.SetVisible(false);
        m_screen.gauWork.SetCaption({});
        m_screen.EnableButtons();
        m_screen.cmdExit.SetFocus();
        m_screen.cmdStop.SetVisible(false);
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

private:
    frm_Maintenance& m_screen;
};

frm_Maintenance::frm_Maintenance(const MaintenanceDesk& desk)
    : Screen(u"frm_Maintenance"_s)
    , cmdRecalc(controls, u"cmdRecalc"_s)
    , cmdclearAnchors(controls, u"cmdclearAnchors"_s)
    , cmdClear(controls, u"cmdClear"_s)
    , cmdLandSize(controls, u"cmdLandSize"_s)
    , cmdRemoveIllegal(controls, u"cmdRemoveIllegal"_s)
    , cmdRemoveIllegal2(controls, u"cmdRemoveIllegal2"_s)
    , cmdCorrectAddress(controls, u"cmdCorrectAddress"_s, 0, 2)
    , cmdDeleteByDate(controls, u"cmdDeleteByDate"_s)
    , cmddelloaddate(controls, u"cmddelloaddate"_s)
    , lblAccount(controls, u"lblAccount"_s)
    , lstaccount(controls, u"lstaccount"_s)
    , cmdSave(controls, u"cmdSave"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , gauWork(controls, u"gauWork"_s)
    , cmdStop(controls, u"cmdStop"_s)
    , cmdExit(controls, u"cmdExit"_s)
    , m_desk(desk)
{
    SetCaption(u"Data Maintenance"_s);
    const auto name = [](forms::Button& button, const QString& caption, const QString& tip) {
        button.SetCaption(caption);
        button.SetToolTipText(tip);
    };
    name(cmdRecalc, u"&Recalculate"_s, u"Recalculates number fields in database"_s);
    name(cmdclearAnchors, u"Clear Comp &Anchors"_s, u"Clears 'Anchored' status in database entries"_s);
    name(cmdClear, u"Clear All &Photos"_s, u"Takes all photos out of the records; the picture files stay"_s);
    name(cmdLandSize, u"Correct Land Si&zes"_s, u"Corrects Land Sizes in the database (LAND comps)"_s);
    name(cmdRemoveIllegal, u"Remove &Illegal Characters"_s,
         u"Removes Illegal Characters (,#'...etc) from the key field (CENTRALKEY) and Address field"_s);
    name(cmdRemoveIllegal2, u"Remove Illegal &Characters"_s,
         u"Removes Illegal Characters (,#'...etc) from the User Comments database"_s);
    const QString match = u"Matches Address field to Central Key field"_s;
    name(cmdCorrectAddress(0), u"&Match Address to Key"_s, match);
    name(cmdCorrectAddress(1), u"Pr&oper Case"_s, match);
    name(cmdCorrectAddress(2), u"&Upper Case"_s, match);
    name(cmdDeleteByDate, u"Erase Comps by &Sale Date"_s, u"Erases comp entries by Sale Date"_s);
    name(cmddelloaddate, u"Erase Comps by &Load Date"_s, u"Erases comp entries by Load Date"_s);
    name(cmdSave, u"Sa&ve Account..."_s, u"Keeps every line of it in a text file"_s);
    name(cmdStop, u"Cancel"_s, u"Stops, and leaves every record as it was (Esc)"_s);
    cmdExit.SetCaption(u"E&xit"_s);
    gauWork.SetVisible(false);
    cmdStop.SetVisible(false);
    for (const auto& [button, repair] : Buttons())
        connect(button, &forms::Control::Clicked, this, [this, repair] { Click(repair); });
    connect(&cmdSave, &forms::Control::Clicked, this, &frm_Maintenance::cmdSave_Click);
    connect(&cmdStop, &forms::Control::Clicked, this, [this] { m_stop = true; });
    connect(&cmdExit, &forms::Control::Clicked, this, &frm_Maintenance::Unload);
}

std::vector<std::pair<forms::Button*, Repair>> frm_Maintenance::Buttons()
{
    return {{&cmdRecalc, Repair::Recalc},
            {&cmdclearAnchors, Repair::ClearAnchors},
            {&cmdClear, Repair::ClearPhotos},
            {&cmdLandSize, Repair::LandSize},
            {&cmdRemoveIllegal, Repair::IllegalInKeys},
            {&cmdRemoveIllegal2, Repair::IllegalInComments},
            {&cmdCorrectAddress(0), Repair::MatchKey},
            {&cmdCorrectAddress(1), Repair::ProperCase},
            {&cmdCorrectAddress(2), Repair::UpperCase},
            {&cmdDeleteByDate, Repair::DeleteBySale},
            {&cmddelloaddate, Repair::DeleteByLoad}};
}

void frm_Maintenance::Form_Load()
{
    lblAccount.SetCaption(u"Nothing was done yet."_s);
    EnableButtons();
}

/// While a repair is at work, the first wish to close stops it.
bool frm_Maintenance::QueryUnload()
{
    m_stop = true;
    return !m_busy;
}

void frm_Maintenance::Form_Unload()
{
    lstaccount.SetSource(nullptr);
}

void frm_Maintenance::EnableButtons()
{
    for (const auto& [button, repair] : Buttons())
        button->SetEnabled(!m_busy);
    cmdSave.SetEnabled(!m_busy && m_account.Count() > 0);
    cmdExit.SetEnabled(!m_busy);
}

bool frm_Maintenance::Step(const QString& caption, qint64 done, qint64 of)
{
    const bool pictures = caption == kDeletingPictures; // a file can take longer than a hundred records
    if (done > 0 && !pictures && done < m_turned + kRecordsATurn && !m_sinceTurn.hasExpired(kLongest))
        return !m_stop;
    m_turned = done;
    gauWork.SetCaption(caption);
    gauWork.SetValue(of > 0 ? static_cast<int>(done * kGaugeParts / of) : 0);
    if (pictures)
        cmdStop.SetEnabled(false); // the records are gone already
    m_desk.repair.ports.pump.DoEvents();
    m_sinceTurn.start();
    return !m_stop;
}

std::optional<Deletion> frm_Maintenance::AskDate(Repair repair)
{
    const forms::Ports& ports = m_desk.repair.ports;
    gauWork.SetCaption(TextOf(repair).gauge);
    frm_DelDate screen(ports, TextOf(repair).gauge);
    ports.screens.ShowModal(screen);
    gauWork.SetCaption({});
    if (screen.Result() == u"CANCEL"_s)
        return std::nullopt;
    const auto deletion = Deletion::Of(screen.Result(), ports.clock.Today());
    if (!deletion)
        lblmsg.Show(kEnterDate, forms::Colour::Red);
    return deletion;
}

void frm_Maintenance::Click(Repair repair)
{
    const common::RoutineScope scope{"Maintenance"};
    if (m_busy)
        return;
    Deletion deletion;
    if (DeletesByDate(repair)) {
        const auto asked = AskDate(repair);
        if (!asked)
            return;
        deletion = *asked;
    }
    if (!AskRepair(m_desk.repair.ports.prompter, repair, deletion))
        return;
    lblmsg.Show({}, forms::Colour::Normal);
    RepairResult result;
    {
        const Work work(*this);
        result = Run(repair, deletion);
    }
    ShowAccount();
    if (!result.message.isEmpty())
        lblmsg.Show(result.message, result.end == RepairEnd::Done ? forms::Colour::Blue : forms::Colour::Red);
    ShowAgain();
}

/// Whoever holds the Databook just then takes none of the words about what was done.
void frm_Maintenance::ShowAgain()
{
    if (!m_desk.showAgain)
        return;
    try {
        m_desk.showAgain();
    } catch (const RuntimeError& failure) {
        common::ReportError(m_desk.repair.ports.prompter, failure);
        lblmsg.Show(text::Trim(lblmsg.Caption() + kNotShown.arg(failure.Description())), forms::Colour::Red);
    }
}

RepairResult frm_Maintenance::Run(Repair repair, const Deletion& deletion)
{
    m_turned = 0;
    const forms::Hourglass hourglass(m_desk.repair.ports.window);
    try {
        return RunRepair(m_desk.repair, repair, deletion, m_account,
                         [this](const QString& caption, qint64 done, qint64 of) { return Step(caption, done, of); });
    } catch (const RuntimeError& failure) {
        common::ReportError(m_desk.repair.ports.prompter, failure);
        return {RepairEnd::Stopped, kFailed.arg(failure.Description())};
    }
}

void frm_Maintenance::ShowAccount()
{
    lblAccount.SetCaption(m_account.Heading() + u"\n"_s + m_account.Summary());
    lstaccount.SetSource(&m_account);
    EnableButtons();
}

void frm_Maintenance::cmdSave_Click()
{
    const common::RoutineScope scope{"Maintenance Save"};
    const forms::Ports& ports = m_desk.repair.ports;
    const QString directory = common::CkRSlash(
        ports.prompter.ChooseDirectory(u"Directory of the account"_s, m_desk.repair.globals.G_UserDir));
    if (directory.isEmpty())
        return;
    const QString path =
        directory + StampFileName(true, u"Maintenance"_s, ports.clock.Now()).replace(u".MDB"_s, u".txt"_s);
    try {
        m_account.Save(m_desk.repair.disk, path);
        lblmsg.Show(u"The account is in %1"_s.arg(path), forms::Colour::Blue);
    } catch (const RuntimeError& failure) {
        common::ReportError(ports.prompter, failure);
    }
}

} // namespace vasclip::upkeep
