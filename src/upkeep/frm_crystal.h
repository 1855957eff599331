#pragma once

#include "forms/screen.h"
#include "store/data_source.h"
#include "upkeep/report_desk.h"

namespace vasclip::upkeep {

/// Report Print Options: in which length the records of the current search are printed.
class frm_Crystal : public forms::Screen
{
    Q_OBJECT
public:
    /// @param datsql     the records of the search
    /// @param statement  its SELECT
    /// @param narrowed   does the grid show fewer of them, by its quick find?
    frm_Crystal(const ReportDesk& desk, const store::DataSource& datsql, QString statement, bool narrowed);

    store::DataSource datReport; ///< bound while a report is printed
    forms::ControlArray<forms::CheckBox>
        optSelected;           ///< one of them is ticked, or none for a layout of the user's own
    forms::ComboBox cboLayout; ///< layouts of the user's own
    forms::Label lblRecordCount, lblmsg;
    forms::Button cmdPrint, cmdExit;

    void cmdPrint_Click();

protected:
    void Form_Load() override;

private:
    void optSelected_Click(int chosen);
    void cboLayout_Click();
    void ListOwnLayouts();
    [[nodiscard]] int Chosen() const; ///< of optSelected, -1 for none
    [[nodiscard]] QString LayoutName() const;
    void Release();

    ReportDesk m_desk;
    const store::DataSource& m_datsql;
    QString m_statement;
    bool m_narrowed;
    QStringList m_own; ///< names of the lines of cboLayout
};

} // namespace vasclip::upkeep
