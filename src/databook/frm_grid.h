#pragma once

#include "databook/layout_work.h"
#include "forms/screen.h"

namespace vasclip::databook {

/// The saved layouts of the record grid: look at one, use it, save the grid's own under a name, delete.
class frm_Grid : public forms::Screen
{
public:
    /// All outlive the screen.
    /// @param grddatabook  the grid whose layouts these are
    /// @param programDir   where VAS2000.grx and default.grx stand, with its backslash
    frm_Grid(const files::Disk& disk, const forms::Ports& ports, forms::Grid& grddatabook,
             const QString& programDir);

    forms::ListBox lstLayout;
    forms::TextBox txtLayout;
    forms::Button cmdUseSelected, cmdRefresh, cmdRemoveAll, cmdSave, cmdDelete, cmddefault, cmdOK;
    forms::Grid grdLayout;   ///< the preview: the record grid's rows in the layout chosen
    forms::Label lblPreview; ///< what the preview shows
    forms::Label lblmsg;

    // Each handler returns false if it was refused, answered with No or given up. What the central error
    // block does not handle is thrown; files and grid are then as they were, unless said otherwise.
    bool cmdSave_Click();
    bool cmdDelete_Click();
    /// The grid has the layout even if it can't be written as "Current (User)" afterwards.
    bool cmdUseSelected_Click();
    bool cmddefault_Click();
    bool cmdRemoveAll_Click();
    void lstLayout_Click();

    /// Gives `grid` a layout of a file. @return false if file or layout is not there
    bool LayoutLoadLayout(forms::Grid& grid, const QString& file, const QString& layoutName);
    void LayoutListLayouts(const QString& file);        ///< fills `lstLayout`; a missing file has none
    void LayoutSaveLayout(const QString& layoutName);   ///< of the record grid, in the user's file
    bool LayoutDeleteLayout(const QString& layoutName); ///< @return false if it is not there
    void SelectTheText();                               ///< all of `txtLayout`, ready to type over

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void Wire();
    bool Tell(const LayoutOutcome& outcome);
    void Preview(const QString& layoutName);
    void PreviewGrid();
    void ListAgain(const QString& select = {});

    const files::Disk& m_disk;
    forms::Ports m_ports;
    forms::Grid& m_grid;
    LayoutWork m_work;
};

} // namespace vasclip::databook
