#include "platform/conduit/dde/invitation_win.h"

#include <algorithm>
#include <vector>

namespace vasclip::conduit::dde {

namespace {

constexpr DWORD kAskMs = 500; // for one window among hundreds
constexpr DWORD kLookMs = 30;

BOOL CALLBACK Collect(HWND window, LPARAM into)
{
    reinterpret_cast<std::vector<HWND>*>(into)->push_back(window);
    return TRUE;
}

bool MayAnswer(HWND window)
{
    return IsWindow(window) && !IsHungAppWindow(window);
}

} // namespace

Invitation Invite(Conversation& conversation, const Topic& topic, HWND first, const Deadline& deadline,
                  const Waiting& waiting)
{
    const Atom service(topic.service), name(topic.topic); // as long as somebody may read them
    std::vector<HWND> others, silent;
    const auto takes = [&](HWND window) {
        bool hung = false;
        if (deadline.Left() == 0)
            return false;
        if (conversation.Ask(window, service, name, std::min(deadline.Left(), kAskMs), hung))
            return true;
        if (!hung)
            return false;
        silent.push_back(window);
        if (waiting)
            waiting();
        return conversation.Taken();
    };
    if (first && IsWindow(first) && takes(first))
        return {first, 0};
    EnumWindows(Collect, reinterpret_cast<LPARAM>(&others));
    for (const HWND window : others) {
        if (window != first && takes(window))
            return {window, silent.size()};
    }
    while (!conversation.Taken() && deadline.Left() > 0 && std::any_of(silent.begin(), silent.end(), MayAnswer)) {
        Conversation::Rest(std::min(deadline.Left(), kLookMs));
        if (waiting)
            waiting();
    }
    return {nullptr, silent.size()};
}

} // namespace vasclip::conduit::dde
