#pragma once

#include "platform/text/runtime_error.h"

#include "forms/ports.h"

#include <exception>
#include <functional>
#include <utility>

namespace vasclip::windows {

using namespace Qt::StringLiterals;

/// The one gate through which the user's events enter. Whatever a handler throws ends here: nothing escapes
/// into the toolkit's event loop.
class EventGuard
{
public:
    /// @param prompter    shows what went wrong; outlives the guard
    /// @param endProgram  called with the exit code when a rule ends the program
    EventGuard(forms::Prompter& prompter, std::function<void(int exitCode)> endProgram);

    /// Runs a handler. @return false if it threw
    template <class Handler>
    bool Run(Handler&& handler)
    {
        try {
            std::forward<Handler>(handler)();
            return true;
        } catch (const forms::EndOfProgram& end) {
            End(end.exitCode);
        } catch (const RuntimeError& failure) {
            Report(failure);
        } catch (const std::exception& failure) {
            Report(RuntimeError(kInternal, QString::fromLocal8Bit(failure.what())));
        } catch (...) {
            Report(RuntimeError(kInternal, u"An unknown failure"_s));
        }
        return false;
    }

    /// Shows and logs a failure; for one that was caught where no box may be shown.
    void Report(const RuntimeError& failure);

private:
    static constexpr int kInternal = 51;
    void End(int exitCode);
    forms::Prompter& m_prompter;
    std::function<void(int)> m_endProgram;
};

} // namespace vasclip::windows
