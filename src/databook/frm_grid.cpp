#include "databook/frm_grid.h"

#include "common/error_block.h"
#include "databook/grid.h"
#include "platform/text/text.h"

namespace vasclip::databook {

using common::RoutineScope;
using forms::Colour;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLongestName = 60;
const QString kLineBreak = u"\r\n"_s;

const QString kCannotSave = u"Cannot Save"_s;
const QString kCannotDelete = u"Cannot Delete"_s;
const QString kBlankName = u"You cannot use a blank name'"_s;
const QString kSaveLayout = u"Save Grid Layout"_s;
const QString kDeleteLayout = u"Delete Grid Layout"_s;

const QString kFoldedDefault = u"DEFAULT"_s;
const QString kFoldedCurrent = u"CURRENT (USER)"_s;

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
    , m_userFile(programDir + kUserLayouts)
    , m_programFile(programDir + kProgramLayouts)
{
    SetCaption(u"Grid Layout"_s);
    cmdUseSelected.SetCaption(u"Use Selected"_s);
    cmdRefresh.SetCaption(u"Refresh List"_s);
    cmdRemoveAll.SetCaption(u"Remove All"_s);
    cmdSave.SetCaption(u"&Save Grid"_s);
    cmdDelete.SetCaption(u"&Delete Selected"_s);
    cmddefault.SetCaption(u"Use De&fault"_s);
    cmdOK.SetCaption(u"&Ok"_s);
    txtLayout.SetMaxLength(kLongestName);
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

bool frm_Grid::Step(const std::function<void()>& step)
{
    return common::Guarded(m_ports.prompter, step);
}

bool frm_Grid::Refused(const QString& title, const QString& text)
{
    m_ports.prompter.Box(title, text);
    SelectTheText();
    return false;
}

void frm_Grid::SelectTheText()
{
    txtLayout.SetFocus();
    txtLayout.SelectAll();
}

bool frm_Grid::LayoutLoadLayout(forms::Grid& grid, const QString& file, const QString& layoutName)
{
    const RoutineScope scope{"LayoutLoadLayout"};
    return LoadGrid(m_disk, grid, file, layoutName);
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
    const RoutineScope scope{"LayoutSaveLayout"};
    SaveGrid(m_disk, m_grid, m_userFile, layoutName);
}

bool frm_Grid::LayoutDeleteLayout(const QString& layoutName)
{
    const RoutineScope scope{"LayoutDeleteLayout"};
    return RemoveLayout(m_disk, m_userFile, layoutName);
}

/// Lists the user's layouts anew and stands on one of them, if it is there.
void frm_Grid::ListAgain(const QString& select)
{
    Step([this] { LayoutListLayouts(m_userFile); });
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
    if (!Step([&] { shown = LayoutLoadLayout(grdLayout, m_userFile, layoutName); }))
        return;
    if (shown)
        lblPreview.SetCaption(u"Preview of %1"_s.arg(layoutName));
    else
        lblmsg.Show(u"%1 is no longer in %2."_s.arg(layoutName, m_userFile), Colour::Red);
}

void frm_Grid::PreviewGrid()
{
    grdLayout.SetColumns(m_grid.Columns());
    lblPreview.SetCaption(u"The grid as it is now"_s);
}

bool frm_Grid::cmdSave_Click()
{
    const RoutineScope scope{"cmdSave_Click"};
    return SaveUnder(txtLayout.Text());
}

bool frm_Grid::SaveUnder(const QString& typed)
{
    const QString name = text::Trim(typed);
    const QString folded = text::Folded(typed);
    if (folded == kFoldedDefault)
        return Refused(kCannotSave, u"You cannot save over the 'default'"_s);
    if (folded == kFoldedCurrent)
        return Refused(kCannotSave, u"Choose a unique grid layout name - cannot save as 'Current (User)'"_s);
    if (name.isEmpty())
        return Refused(kCannotSave, kBlankName);
    bool exists = false;
    if (!Step([&] { exists = LayoutFile::ReadOrNew(m_disk, m_userFile).Find(name) != nullptr; }))
        return false;
    if (exists && !m_ports.prompter.YesNo(kSaveLayout, u"Replace "_s + name + u"?"_s))
        return false;
    if (!Step([&] { LayoutSaveLayout(name); }))
        return false;
    ListAgain(name);
    lblmsg.Show(u"%1 was saved."_s.arg(name), Colour::Blue);
    return true;
}

bool frm_Grid::cmdDelete_Click()
{
    const RoutineScope scope{"cmdDelete_Click"};
    const QString name = text::Trim(txtLayout.Text());
    const QString folded = text::Folded(name);
    if (folded == kFoldedDefault)
        return Refused(kCannotDelete, u"You cannot delete the 'default'"_s);
    if (name.isEmpty())
        return Refused(kCannotDelete, kBlankName);
    if (folded == kFoldedCurrent)
        return RevertCurrent();
    if (!m_ports.prompter.YesNo(kDeleteLayout, u"Delete "_s + name + u"?"_s))
        return false;
    bool removed = false;
    if (!Step([&] { removed = LayoutDeleteLayout(name); }))
        return false;
    ListAgain();
    if (!removed)
        return Refused(kCannotDelete, u"There is no grid layout %1 in %2."_s.arg(name, m_userFile));
    PreviewGrid();
    txtLayout.SetText(kDefaultLayout);
    lblmsg.Show(u"%1 was deleted."_s.arg(name), Colour::Blue);
    return true;
}

/// "Current (User)" becomes what "Default" is, in the file and on the grid, which would otherwise write its
/// own layout there at exit.
bool frm_Grid::RevertCurrent()
{
    if (!m_ports.prompter.YesNo(kDeleteLayout,
                                u"Current (user) layout will revert back to default: Proceed ?"_s))
        return false;
    bool found = false;
    const bool done = Step([&] {
        LayoutFile layouts = LayoutFile::ReadOrNew(m_disk, m_userFile);
        const Layout* standard = layouts.Find(kDefaultLayout);
        found = standard != nullptr;
        if (!found)
            return;
        Layout current = *standard;
        current.name = kCurrentLayout;
        layouts.Add(current);
        layouts.Write(m_disk, m_userFile);
        LayoutLoadLayout(m_grid, m_userFile, kCurrentLayout);
    });
    if (!done)
        return false;
    if (!found)
        return Refused(kCannotDelete, u"There is no layout Default in %1. \"Use Default\" takes the "
                                      u"program's own."_s.arg(m_userFile));
    ListAgain(kCurrentLayout);
    lblmsg.Show(u"Current (User) is the default now."_s, Colour::Blue);
    return true;
}

bool frm_Grid::cmdUseSelected_Click()
{
    const RoutineScope scope{"cmdUseSelected_Click"};
    const QString name = text::Trim(txtLayout.Text());
    if (lstLayout.IndexOf(name) >= 0)
        return Use(name);
    if (m_ports.prompter.YesNo(u"Grid Entry Not Found"_s,
                               u"The entry types appears to be new (not from list of choices). "_s +
                                   kLineBreak + u"Would you like to SAVE it first, then USE?"_s))
        return SaveUnder(name) && Use(name);
    m_ports.prompter.Box(u"Save Aborted"_s, u"Reverting to 'Current (User)'"_s);
    return Use(kCurrentLayout);
}

bool frm_Grid::Use(const QString& layoutName)
{
    bool loaded = false;
    if (!Step([&] { loaded = LayoutLoadLayout(m_grid, m_userFile, layoutName); }))
        return false;
    if (!loaded) {
        ListAgain();
        lblmsg.Show(u"%1 is not in %2; the grid stays as it is."_s.arg(layoutName, m_userFile), Colour::Red);
        return false;
    }
    const bool kept = Step([this] { LayoutSaveLayout(kCurrentLayout); });
    ListAgain(layoutName);
    lblmsg.Show(u"The grid uses %1 now."_s.arg(layoutName), Colour::Blue);
    return kept;
}

/// A default.grx that can't be read is told here and counts as missing.
bool frm_Grid::HasDefault()
{
    bool there = false;
    Step([&] {
        try {
            there = LayoutFile::ReadOrNew(m_disk, m_programFile).Find(kDefaultLayout) != nullptr;
        } catch (const RuntimeError& failure) {
            if (failure.Number() != kInvalidLayoutFile)
                throw;
            common::ReportError(m_ports.prompter, failure);
        }
    });
    return there;
}

bool frm_Grid::cmddefault_Click()
{
    const RoutineScope scope{"cmddefault_Click"};
    if (!HasDefault())
        return RebuildDefault();
    if (!Step([this] { LayoutLoadLayout(m_grid, m_programFile, kDefaultLayout); }))
        return false;
    txtLayout.SetText(kDefaultLayout);
    PreviewGrid();
    lblmsg.Show(u"The grid uses Default now."_s, Colour::Blue);
    return true;
}

bool frm_Grid::RebuildDefault()
{
    if (!m_ports.prompter.YesNo(
            u"Unable to load default grid"_s,
            u"The default could not be found: Remove ALL other grids and Rebuild NEW default?"_s))
        return false;
    const RoutineScope scope{"SetGridSettings"};
    const QList<forms::GridColumn> before = m_grid.Columns();
    const bool done = Step([&] {
        SetGridSettings(m_grid, kFoldedDefault);
        try {
            RebuildLayoutFile(m_disk, m_grid, m_programFile, kDefaultLayout);
            RebuildLayoutFile(m_disk, m_grid, m_userFile, kDefaultLayout);
        } catch (const RuntimeError&) {
            m_grid.SetColumns(before);
            throw;
        }
    });
    ListAgain();
    PreviewGrid();
    txtLayout.SetText(kDefaultLayout);
    if (done)
        lblmsg.Show(u"The default grid was rebuilt."_s, Colour::Blue);
    return done;
}

bool frm_Grid::cmdRemoveAll_Click()
{
    const RoutineScope scope{"cmdRemoveAll_Click"};
    if (!m_ports.prompter.YesNo(
            u"Restore Grid Utility"_s,
            u"This utility restores the grid to program defaults (and erases all previous layouts)."_s +
                kLineBreak + u"The 'Current (User)' grid will revert to program default."_s + kLineBreak +
                u"Proceed ?"_s))
        return false;
    const bool hasDefault = HasDefault();
    if (!hasDefault && !RebuildDefault()) // before anything is deleted
        return false;
    const bool done = Step([&] {
        if (hasDefault)
            ReplaceLayoutFile(m_disk, m_programFile, m_userFile);
        LayoutLoadLayout(m_grid, m_userFile, kDefaultLayout);
        LayoutSaveLayout(kCurrentLayout);
    });
    ListAgain();
    PreviewGrid();
    txtLayout.SetText(kDefaultLayout);
    if (done)
        lblmsg.Show(u"The grid is as the program made it; all other layouts are gone."_s, Colour::Blue);
    return done;
}

} // namespace vasclip::databook
