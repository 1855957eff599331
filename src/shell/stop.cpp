#include "shell/stop.h"

#include "common/error_block.h"
#include "common/settings.h"
#include "databook/layouts.h"
#include "forms/screen.h"
#include "platform/engine/process.h"
#include "shell/program.h"
#include "shell/window_wants.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kFirstWait = 0.5; // seconds
constexpr double kWait = 0.2;
constexpr int kLastResortMs = 2000;

/// Of what is named like a report's database: files of other kinds are people's own, and one that bears the number of a
/// process is in use as long as that runs.
bool IsKept(const QString& name)
{
    const QLatin1StringView mark = "REPORT_"_L1;
    if (!name.startsWith(mark, Qt::CaseInsensitive))
        return false;
    const QString kind = name.section(u'.', 1).toLower();
    if (!kind.startsWith("mdb"_L1) && !kind.startsWith("ldb"_L1))
        return true;
    const qint64 process = name.mid(mark.size()).section(u'.', 0, 0).toLongLong();
    return process > 0 && process != engine::OwnProcess() && engine::IsAlive(process, {});
}

} // namespace

Stop::Stop(Program& program, WindowWants& wants)
    : m_program(program)
{
    Timer1.setParent(&wants);
    Timer1.setObjectName(u"Timer1"_s);
    Timer1.setSingleShot(true);
    QObject::connect(&Timer1, &QTimer::timeout, &wants, &WindowWants::EndWanted);
}

/// What cannot be done at the end is told, and the end goes on.
void Stop::AtEnd(const std::function<void()>& step)
{
    auto& prompter = m_program.Prompter();
    try {
        common::Guarded(prompter, step);
    } catch (const RuntimeError& failure) {
        common::ReportError(prompter, failure);
    }
}

void Stop::ClearTempFiles()
{
    const common::RoutineScope scope{"ClearTempFiles"};
    for (const QString& pattern : {u"tempdat_*"_s, u"Report_*"_s}) {
        QStringList names;
        AtEnd([&] { names = m_program.Disk().Dir(m_program.globals.G_UserDir + pattern); });
        names.removeIf(IsKept);
        for (const QString& name : std::as_const(names))
            AtEnd([&] { m_program.Disk().Kill(m_program.globals.G_UserDir + name); });
    }
}

void Stop::Form_Unload()
{
    if (m_program.life.unloaded)
        return;
    m_program.life.unloaded = true;
    const common::RoutineScope scope{"Form_Unload"};
    auto& clock = m_program.Ports().clock;

    clock.Wait(kFirstWait);
    if (m_program.life.settingsRead && !m_program.life.readOnlyHome)
        common::SaveSettings(m_program.globals, m_program.Disk());
    clock.Wait(kWait);
    if (m_program.life.gridReady)
        AtEnd([&] {
            databook::SaveGrid(m_program.Disk(), m_program.records.grddatabook,
                               m_program.globals.G_ProgramDir + databook::kUserLayouts,
                               databook::kCurrentLayout);
        });
    m_program.records.grddatabook.Rebind(nullptr);
    m_program.sources.datsql.Close();
    m_program.sources.datDatabook.Close();
    m_program.sources.datComp2Kel_CURRENT.Close();
    clock.Wait(kWait);
    m_program.Ports().screens.UnloadAllForms();
    clock.Wait(kWait);
    if (m_program.life.settingsRead && !m_program.life.readOnlyHome)
        ClearTempFiles();
    clock.Wait(kWait);
    Timer1.start(kLastResortMs);
}

} // namespace vasclip::shell
