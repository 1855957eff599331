#pragma once

#include "forms/screen.h"
#include "upkeep/rehearsed_rows.h"

#include <memory>

namespace vasclip::upkeep {

/// An import that is looked at first: what each row would do, field by field, and the choice for it.
class frm_Rehearse : public forms::Screen
{
public:
    frm_Rehearse(const TransferDesk& desk, std::unique_ptr<Rehearsal> rehearsal);

    forms::Label lblSource, lblSummary;
    forms::Grid grdrows, grdfields;
    forms::ControlArray<forms::CheckBox> optChoice; ///< by RowChoice; one of them is on
    forms::CheckBox ckbKind;                        ///< a choice counts for all rows of the kind
    forms::Label lblmsg;
    forms::Gauge gauWork;
    forms::Button cmdRefused, cmdStop, cmdImport, cmdExit;

    void cmdImport_Click();
    void cmdRefused_Click();
    /// Records that were added or changed.
    [[nodiscard]] qint64 Done() const { return m_done; }
    /// What could not be read or did not come in, a line each.
    [[nodiscard]] const QStringList& LeftOut() const { return m_leftOut; }

protected:
    void Form_Load() override;
    bool QueryUnload() override;
    void Form_Unload() override;

private:
    [[nodiscard]] QString NewRefusedFile() const;
    void ShowChoices();
    void ShowRow();
    [[nodiscard]] RehearsalResult Carry();
    void Choose(int choice);
    void SetBusy(bool busy);
    [[nodiscard]] const RehearsedRow* Current() const;

    TransferDesk m_desk;
    std::unique_ptr<Rehearsal> m_rehearsal;
    RehearsedRows m_rows;
    FieldRows m_fields;
    qint64 m_done = 0;
    QStringList m_leftOut;
    bool m_over = false; ///< it was imported: nothing is left to choose
    bool m_busy = false;
    bool m_stop = false;
};

} // namespace vasclip::upkeep
