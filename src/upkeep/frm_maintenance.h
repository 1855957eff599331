#pragma once

#include "forms/screen.h"
#include "upkeep/repairs.h"

#include <QElapsedTimer>

namespace vasclip::upkeep {

/// What the screen of the repairs works on.
struct MaintenanceDesk
{
    RepairDesk repair;
    /// Lets go of the records that are on show, and shows them again. Empty: none are.
    std::function<void()> letGo = {};
    std::function<void()> showAgain = {};
};

/// Repairs of whole tables: each button asks, walks the table and tells what it changed.
class frm_Maintenance : public forms::Screen
{
public:
    explicit frm_Maintenance(const MaintenanceDesk& desk);

    forms::Button cmdRecalc, cmdclearAnchors, cmdClear, cmdLandSize, cmdRemoveIllegal, cmdRemoveIllegal2;
    forms::ControlArray<forms::Button> cmdCorrectAddress; ///< by the key, proper case, upper case
    forms::Button cmdDeleteByDate, cmddelloaddate;
    forms::Label lblAccount; ///< what the last one changed
    forms::ListBox lstaccount;
    forms::Button cmdSave; ///< the account, into a directory
    forms::Label lblmsg;
    forms::Gauge gauWork;
    forms::Button cmdStop, cmdExit;

    void Click(Repair repair);
    void cmdSave_Click();

protected:
    void Form_Load() override;
    bool QueryUnload() override;
    void Form_Unload() override;

private:
    class Work;

    [[nodiscard]] std::optional<Deletion> AskDate(Repair repair);
    [[nodiscard]] bool Step(const QString& caption, qint64 done, qint64 of);
    [[nodiscard]] RepairResult Run(Repair repair, const Deletion& deletion);
    void ShowAccount();
    void ShowAgain();
    void EnableButtons();
    [[nodiscard]] std::vector<std::pair<forms::Button*, Repair>> Buttons();

    MaintenanceDesk m_desk;
    Account m_account;
    bool m_busy = false;
    bool m_stop = false;
    qint64 m_turned = 0;       ///< records done when the queue was turned last
    QElapsedTimer m_sinceTurn; ///< then
};

} // namespace vasclip::upkeep
