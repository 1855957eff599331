#pragma once

#include "common/error_block.h"
#include "platform/conduit/patience.h"

#include <utility>

namespace vasclip::link {

/// Runs a routine's steps under the common error reporter, in the routine's name.
///
/// A failure that the error block does not settle is shown and logged once, under the name of the innermost
/// routine that it left, and this routine is left too. What the user has cancelled raises no box.
/// @return false if the steps did not run to their end
template <class Steps>
bool Reported(forms::Prompter& prompter, const char* routine, Steps&& steps)
{
    const common::RoutineScope scope{routine};
    try {
        return common::Guarded(prompter, std::forward<Steps>(steps));
    } catch (const RuntimeError& failure) {
        if (failure.Number() != conduit::kUserInterrupt)
            common::ReportError(prompter, failure);
    }
    return false;
}

} // namespace vasclip::link
