#include "databook/layout_work.h"

#include "common/error_block.h"
#include "databook/grid.h"
#include "platform/text/text.h"

namespace vasclip::databook {

using common::RoutineScope;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString kLineBreak = u"\r\n"_s;

const QString kCannotSave = u"Cannot Save"_s;
const QString kCannotDelete = u"Cannot Delete"_s;
const QString kBlankName = u"You cannot use a blank name'"_s;
const QString kSaveLayout = u"Save Grid Layout"_s;
const QString kDeleteLayout = u"Delete Grid Layout"_s;

const QString kFoldedDefault = u"DEFAULT"_s;
const QString kFoldedCurrent = u"CURRENT (USER)"_s;

LayoutOutcome Refused(const QString& title, const QString& text)
{
    return {.refusedTitle = title, .refused = text};
}

} // namespace

LayoutWork::LayoutWork(const files::Disk& disk, const forms::Ports& ports, forms::Grid& grddatabook,
                       const QString& programDir)
    : m_disk(disk)
    , m_ports(ports)
    , m_grid(grddatabook)
    , m_userFile(programDir + kUserLayouts)
    , m_programFile(programDir + kProgramLayouts)
{}

bool LayoutWork::Step(const std::function<void()>& step) const
{
    return common::Guarded(m_ports.prompter, step);
}

bool LayoutWork::LayoutLoadLayout(forms::Grid& grid, const QString& file, const QString& layoutName) const
{
    const RoutineScope scope{"LayoutLoadLayout"};
    return LoadGrid(m_disk, grid, file, layoutName);
}

void LayoutWork::LayoutSaveLayout(const QString& layoutName) const
{
    const RoutineScope scope{"LayoutSaveLayout"};
    SaveGrid(m_disk, m_grid, m_userFile, layoutName);
}

bool LayoutWork::LayoutDeleteLayout(const QString& layoutName) const
{
    const RoutineScope scope{"LayoutDeleteLayout"};
    return RemoveLayout(m_disk, m_userFile, layoutName);
}

LayoutOutcome LayoutWork::Save(const QString& typed)
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
        return {};
    if (exists && !m_ports.prompter.YesNo(kSaveLayout, u"Replace "_s + name + u"?"_s))
        return {};
    if (!Step([&] { LayoutSaveLayout(name); }))
        return {};
    return {.done = true, .said = u"%1 was saved."_s.arg(name), .listChanged = true, .select = name};
}

LayoutOutcome LayoutWork::Delete(const QString& typed)
{
    const QString name = text::Trim(typed);
    const QString folded = text::Folded(name);
    if (folded == kFoldedDefault)
        return Refused(kCannotDelete, u"You cannot delete the 'default'"_s);
    if (name.isEmpty())
        return Refused(kCannotDelete, kBlankName);
    if (folded == kFoldedCurrent)
        return RevertCurrent();
    if (!m_ports.prompter.YesNo(kDeleteLayout, u"Delete "_s + name + u"?"_s))
        return {};
    bool removed = false;
    if (!Step([&] { removed = LayoutDeleteLayout(name); }))
        return {};
    if (!removed) {
        LayoutOutcome missing =
            Refused(kCannotDelete, u"There is no grid layout %1 in %2."_s.arg(name, m_userFile));
        missing.listChanged = true;
        return missing;
    }
    return {.done = true, .said = u"%1 was deleted."_s.arg(name), .listChanged = true, .standard = true};
}

/// "Current (User)" becomes what "Default" is, in the file and on the grid, which would otherwise write its
/// own layout there at exit.
LayoutOutcome LayoutWork::RevertCurrent()
{
    if (!m_ports.prompter.YesNo(kDeleteLayout,
                                u"Current (user) layout will revert back to default: Proceed ?"_s))
        return {};
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
        return {};
    if (!found)
        return Refused(kCannotDelete, u"There is no layout Default in %1. \"Use Default\" takes the "
                                      u"program's own."_s.arg(m_userFile));
    return {.done = true,
            .said = u"Current (User) is the default now."_s,
            .listChanged = true,
            .select = kCurrentLayout};
}

LayoutOutcome LayoutWork::Use(const QString& layoutName)
{
    bool loaded = false;
    if (!Step([&] { loaded = LayoutLoadLayout(m_grid, m_userFile, layoutName); }))
        return {};
    if (!loaded)
        return {.said = u"%1 is not in %2; the grid stays as it is."_s.arg(layoutName, m_userFile),
                .colour = forms::Colour::Red,
                .listChanged = true};
    const bool kept = Step([this] { LayoutSaveLayout(kCurrentLayout); });
    return {.done = kept,
            .said = u"The grid uses %1 now."_s.arg(layoutName),
            .listChanged = true,
            .select = layoutName};
}

/// A default.grx that can't be read is told here and counts as missing.
bool LayoutWork::HasDefault() const
{
    bool there = false;
    common::Guarded(m_ports.prompter, [&] {
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

LayoutOutcome LayoutWork::UseDefault()
{
    if (!HasDefault())
        return RebuildDefault();
    if (!Step([this] { LayoutLoadLayout(m_grid, m_programFile, kDefaultLayout); }))
        return {};
    return {.done = true, .said = u"The grid uses Default now."_s, .standard = true};
}

LayoutOutcome LayoutWork::RebuildDefault()
{
    if (!m_ports.prompter.YesNo(
            u"Unable to load default grid"_s,
            u"The default could not be found: Remove ALL other grids and Rebuild NEW default?"_s))
        return {};
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
    return {.done = done,
            .said = done ? u"The default grid was rebuilt."_s : QString(),
            .listChanged = true,
            .standard = true};
}

LayoutOutcome LayoutWork::RemoveAll()
{
    if (!m_ports.prompter.YesNo(
            u"Restore Grid Utility"_s,
            u"This utility restores the grid to program defaults (and erases all previous layouts)."_s +
                kLineBreak + u"The 'Current (User)' grid will revert to program default."_s + kLineBreak +
                u"Proceed ?"_s))
        return {};
    const bool hasDefault = HasDefault();
    LayoutOutcome outcome{.listChanged = true, .standard = true};
    if (!hasDefault) { // before anything is deleted
        outcome = RebuildDefault();
        if (!outcome.done)
            return outcome;
    }
    outcome.done = Step([&] {
        if (hasDefault)
            ReplaceLayoutFile(m_disk, m_programFile, m_userFile);
        LayoutLoadLayout(m_grid, m_userFile, kDefaultLayout);
        LayoutSaveLayout(kCurrentLayout);
    });
    if (outcome.done)
        outcome.said = u"The grid is as the program made it; all other layouts are gone."_s;
    return outcome;
}

} // namespace vasclip::databook
