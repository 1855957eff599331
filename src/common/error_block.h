#pragma once

#include "forms/ports.h"
#include "platform/text/runtime_error.h"

#include <utility>

namespace vasclip::common {

/// The name of the routine at work, fixed text of 20 characters: longer is cut, shorter padded with blanks.
/// Names the routine for its scope and gives the caller's name back after it. When an error leaves the scope,
/// the error boxes name the innermost routine that it came from.
class RoutineScope
{
public:
    explicit RoutineScope(const char* name); ///< must outlive the scope
    ~RoutineScope();
    RoutineScope(const RoutineScope&) = delete;
    RoutineScope& operator=(const RoutineScope&) = delete;

    [[nodiscard]] static QString Current(); ///< 20 characters

private:
    const char* m_previous;
    int m_unwinding;
};

enum class ErrorAction { Retry = 0, Skip = 1, Abandon = 2, Raise = 3 };

/// The central error block's classifier: 3218 ends the program with its message, 57, 61, 68 and 71 ask
/// Abort/Retry/Ignore, everything else is raised.
/// @throws forms::EndOfProgram after the message of 3218
[[nodiscard]] ErrorAction FileErrors(forms::Prompter& prompter, const RuntimeError& failure);

/// Runs one step under the central error block.
/// @return false when the routine has to leave; an error that is not handled is thrown again
template <class Step>
bool Guarded(forms::Prompter& prompter, Step&& step)
{
    for (;;) {
        try {
            std::forward<Step>(step)();
            return true;
        } catch (const RuntimeError& failure) {
            switch (FileErrors(prompter, failure)) {
            case ErrorAction::Retry:
                continue;
            case ErrorAction::Skip:
                return true;
            case ErrorAction::Abandon:
                return false;
            case ErrorAction::Raise:
                throw;
            }
        }
    }
}

/// What reaches the top is shown with its routine and logged by the prompter, never forgotten.
void ReportError(forms::Prompter& prompter, const RuntimeError& failure);

} // namespace vasclip::common
