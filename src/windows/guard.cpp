#include "windows/guard.h"

#include "common/error_block.h"

namespace vasclip::windows {

EventGuard::EventGuard(forms::Prompter& prompter, std::function<void(int exitCode)> endProgram)
    : m_prompter(prompter)
    , m_endProgram(std::move(endProgram))
{}

void EventGuard::Report(const RuntimeError& failure)
{
    try {
        common::ReportError(m_prompter, failure);
    } catch (const forms::EndOfProgram& end) {
        End(end.exitCode);
    } catch (const std::exception& second) {
        qCritical("%s (while reporting: %s)", second.what(), failure.what());
    }
}

void EventGuard::End(int exitCode)
{
    if (m_endProgram)
        m_endProgram(exitCode);
}

} // namespace vasclip::windows
