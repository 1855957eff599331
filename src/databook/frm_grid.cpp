#include "databook/frm_grid.h"

#include "common/error_block.h"
#include "platform/text/text.h"

namespace vasclip::databook {

using common::RoutineScope;
using forms::Colour;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString kLineBreak = u"\r\n"_s;

} // namespace

frm_Grid::frm_Grid(const files::Disk& disk, const forms::Ports& ports, forms::Grid& grddatabook,
                   const QString& programDir)
    : Screen(u"frm_Grid"_s)
    , lstLayout(controls, u"lstLayout"_s)
    , txtLayout(controls, u"txtLayout"_s)
    , cmdUseSelected(controls, u"cmdUseSelected"_s)
    , cmdRefresh(controls, u"cmdRefresh"_s)
    , cmdRemoveAll(controls, u"cmdRemoveAll"_s)
    , cmdSave(controls, u"cmdSave"_s)
    , cmdDelete(controls, u"cmdDelete"_s)
    , cmddefault(controls, u"cmddefault"_s)
    , cmdOK(controls, u"cmdOK"_s)
    , grdLayout(controls, u"grdLayout"_s)
    , lblPreview(controls, u"lblPreview"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , m_disk(disk)
    , m_ports(ports)
    , m_grid(grddatabook)
    , m_work(disk, ports, grddatabook, programDir)
{
    SetCaption(u"Grid Layout"_s);
    cmdUseSelected.SetCaption(u"Use Selected"_s);
    cmdRefresh.SetCaption(u"Refresh List"_s);
    cmdRemoveAll.SetCaption(u"Remove All"_s);
    cmdSave.SetCaption(u"&Save Grid"_s);
    cmdDelete.SetCaption(u"&Delete Selected"_s);
    cmddefault.SetCaption(u"Use De&fault"_s);
    cmdOK.SetCaption(u"&Ok"_s);
    txtLayout.SetMaxLength(kLongestLayoutName);
    Wire();
}

void frm_Grid::Wire()
{
    connect(&lstLayout, &forms::ListBox::ListIndexChanged, this, &frm_Grid::lstLayout_Click);
    connect(&lstLayout, &forms::Control::Clicked, this, &frm_Grid::lstLayout_Click);
    connect(&lstLayout, &forms::Control::DoubleClicked, this, [this] { cmdUseSelected_Click(); });
    connect(&cmdUseSelected, &forms::Control::Clicked, this, [this] { cmdUseSelected_Click(); });
    connect(&cmdRefresh, &forms::Control::Clicked, this, [this] { ListAgain(); });
    connect(&cmdRemoveAll, &forms::Control::Clicked, this, [this] { cmdRemoveAll_Click(); });
    connect(&cmdSave, &forms::Control::Clicked, this, [this] { cmdSave_Click(); });
    connect(&cmdDelete, &forms::Control::Clicked, this, [this] { cmdDelete_Click(); });
    connect(&cmddefault, &forms::Control::Clicked, this, [this] { cmddefault_Click(); });
    connect(&cmdOK, &forms::Control::Clicked, this, [this] { Unload(); });
}

void frm_Grid::Form_Load()
{
    const RoutineScope scope{"Form_Load"};
    lblmsg.Show({}, Colour::Normal);
    PreviewGrid();
    grdLayout.Rebind(m_grid.Source());
    txtLayout.SetText(kDefaultLayout);
    try {
        ListAgain();
    } catch (const RuntimeError& failure) {
        // The screen opens all the same: "Remove All" is the way out of a file that can't be read.
        common::ReportError(m_ports.prompter, failure);
        lblmsg.Show(u"The saved layouts can't be read."_s, Colour::Red);
    }
    SelectTheText();
}

void frm_Grid::Form_Unload()
{
    grdLayout.Rebind(nullptr);
}

/// Shows what was done to the layouts, and why nothing was.
bool frm_Grid::Tell(const LayoutOutcome& outcome)
{
    if (outcome.listChanged)
        ListAgain(outcome.select);
    if (outcome.standard) {
        PreviewGrid();
        txtLayout.SetText(kDefaultLayout);
    }
    if (!outcome.said.isEmpty())
        lblmsg.Show(outcome.said, outcome.colour);
    if (!outcome.refused.isEmpty()) {
        m_ports.prompter.Box(outcome.refusedTitle, outcome.refused);
        SelectTheText();
    }
    return outcome.done;
}

void frm_Grid::SelectTheText()
{
    txtLayout.SetFocus();
    txtLayout.SelectAll();
}

bool frm_Grid::LayoutLoadLayout(forms::Grid& grid, const QString& file, const QString& layoutName)
{
    return m_work.LayoutLoadLayout(grid, file, layoutName);
}

void frm_Grid::LayoutListLayouts(const QString& file)
{
    const RoutineScope scope{"LayoutListLayouts"};
    lstLayout.Clear();
    for (const QString& name : LayoutNames(m_disk, file))
        lstLayout.AddItem(name);
}

void frm_Grid::LayoutSaveLayout(const QString& layoutName)
{
    m_work.LayoutSaveLayout(layoutName);
}

bool frm_Grid::LayoutDeleteLayout(const QString& layoutName)
{
    return m_work.LayoutDeleteLayout(layoutName);
}

/// Lists the user's layouts anew and stands on one of them, if it is there.
void frm_Grid::ListAgain(const QString& select)
{
    common::Guarded(m_ports.prompter, [this] { LayoutListLayouts(m_work.UserFile()); });
    const int index = select.isEmpty() ? -1 : lstLayout.IndexOf(select);
    if (index >= 0)
        lstLayout.SetListIndex(index);
}

void frm_Grid::lstLayout_Click()
{
    if (lstLayout.ListIndex() < 0)
        return;
    const RoutineScope scope{"lstLayout_Click"};
    const QString name = lstLayout.List(lstLayout.ListIndex());
    txtLayout.SetText(name);
    Preview(name);
}

void frm_Grid::Preview(const QString& layoutName)
{
    bool shown = false;
    if (!common::Guarded(m_ports.prompter, [&] { shown = LayoutLoadLayout(grdLayout, m_work.UserFile(), layoutName); }))
        return;
    if (shown)
        lblPreview.SetCaption(u"Preview of %1"_s.arg(layoutName));
    else
        lblmsg.Show(u"%1 is no longer in %2."_s.arg(layoutName, m_work.UserFile()), Colour::Red);
}

void frm_Grid::PreviewGrid()
{
    grdLayout.SetColumns(m_grid.Columns());
    lblPreview.SetCaption(u"The grid as it is now"_s);
}

bool frm_Grid::cmdSave_Click()
{
    const RoutineScope scope{"cmdSave_Click"};
    return Tell(m_work.Save(txtLayout.Text()));
}

bool frm_Grid::cmdDelete_Click()
{
    const RoutineScope scope{"cmdDelete_Click"};
    return Tell(m_work.Delete(txtLayout.Text()));
}

bool frm_Grid::cmdUseSelected_Click()
{
    const RoutineScope scope{"cmdUseSelected_Click"};
    const QString name = text::Trim(txtLayout.Text());
    if (lstLayout.IndexOf(name) >= 0)
        return Tell(m_work.Use(name));
    if (m_ports.prompter.YesNo(u"Grid Entry Not Found"_s,
                               u"The entry types appears to be new (not from list of choices). "_s +
                                   kLineBreak + u"Would you like to SAVE it first, then USE?"_s))
        return Tell(m_work.Save(name)) && Tell(m_work.Use(name));
    m_ports.prompter.Box(u"Save Aborted"_s, u"Reverting to 'Current (User)'"_s);
    return Tell(m_work.Use(kCurrentLayout));
}

bool frm_Grid::cmddefault_Click()
{
    const RoutineScope scope{"cmddefault_Click"};
    return Tell(m_work.UseDefault());
}

bool frm_Grid::cmdRemoveAll_Click()
{
    const RoutineScope scope{"cmdRemoveAll_Click"};
    try {
        return Tell(m_work.RemoveAll());
    } catch (const RuntimeError&) {
        ListAgain(); // the other layouts may be gone by now
        throw;
    }
}

} // namespace vasclip::databook
