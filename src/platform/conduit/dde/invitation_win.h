#pragma once

#include "platform/conduit/dde/conversation_win.h"
#include "platform/conduit/dde/limits.h"

#include <cstddef>

namespace vasclip::conduit::dde {

struct Invitation
{
    HWND taker = nullptr;   ///< the window that took the conversation, if it did so when it was asked
    std::size_t silent = 0; ///< windows that did not answer in the time they had
};

/// Asks the windows of the desktop in turn whether one takes the conversation. One that was at work when it was asked is
/// waited for until the deadline; one that hangs is not.
/// @param first  is asked before all others; may be null, or have gone
[[nodiscard]] Invitation Invite(Conversation& conversation, const Topic& topic, HWND first, const Deadline& deadline,
                                const Waiting& waiting);

} // namespace vasclip::conduit::dde
