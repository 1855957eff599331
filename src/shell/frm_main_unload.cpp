// The stop of the main window, in its fixed order.

#include "common/error_block.h"
#include "common/settings.h"
#include "databook/layouts.h"
#include "forms/screen.h"
#include "shell/frm_main.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kFirstWait = 0.5; // seconds
constexpr double kWait = 0.2;
constexpr int kLastResortMs = 2000;

} // namespace

/// What cannot be done at the end is told, and the end goes on.
void frm_Main::AtEnd(const std::function<void()>& step)
{
    auto& prompter = m_base.ports.prompter;
    try {
        common::Guarded(prompter, step);
    } catch (const RuntimeError& failure) {
        common::ReportError(prompter, failure);
    }
}

void frm_Main::ClearTempFiles()
{
    const common::RoutineScope scope{"ClearTempFiles"};
    for (const QString& pattern : {u"tempdat_*"_s, u"Report_*"_s}) {
        QStringList names;
        AtEnd([&] { names = m_base.disk.Dir(globals.G_UserDir + pattern); });
        for (const QString& name : std::as_const(names))
            AtEnd([&] { m_base.disk.Kill(globals.G_UserDir + name); });
    }
}

void frm_Main::Form_Unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    const common::RoutineScope scope{"Form_Unload"};
    auto& clock = m_base.ports.clock;

    clock.Wait(kFirstWait);
    if (m_settingsRead && !m_readOnlyHome)
        common::SaveSettings(globals, m_base.disk);
    clock.Wait(kWait);
    if (m_gridReady)
        AtEnd([&] {
            databook::SaveGrid(m_base.disk, records.grddatabook,
                               globals.G_ProgramDir + databook::kUserLayouts, databook::kCurrentLayout);
        });
    records.grddatabook.Rebind(nullptr);
    sources.datsql.Close();
    sources.datDatabook.Close();
    sources.datComp2Kel_CURRENT.Close();
    clock.Wait(kWait);
    m_base.ports.screens.UnloadAllForms();
    clock.Wait(kWait);
    if (m_settingsRead && !m_readOnlyHome)
        ClearTempFiles();
    clock.Wait(kWait);
    Timer1.start(kLastResortMs);
}

} // namespace vasclip::shell
