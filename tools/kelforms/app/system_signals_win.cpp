#include "kelforms/app/system_signals.h"

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/shared_win.h"

#include <cstdlib>
#include <utility>

namespace kelforms {

// A Windows program is asked to end through its windows, and has no signal for a picture. One without a window in sight gets one
// to be asked through: the task manager and those who started it close all that a process has.

struct SystemSignals::Private
{
    explicit Private(std::function<void()> end)
        : onEnd(std::move(end))
    {
        try {
            window = vasclip::conduit::dde::MakeWindow("KelformsEnd", Procedure, nullptr, this);
        } catch (const vasclip::conduit::dde::Failure&) { // no desktop: it can only be stopped by force
        }
    }
    ~Private()
    {
        if (window != nullptr)
            DestroyWindow(window);
    }
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM along)
    {
        auto* self = reinterpret_cast<Private*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (self == nullptr || (message != WM_CLOSE && !(message == WM_ENDSESSION && wide != FALSE)))
            return DefWindowProcA(window, message, wide, along);
        self->onEnd();
        return 0;
    }

    std::function<void()> onEnd;
    HWND window = nullptr;
};

SystemSignals::SystemSignals(std::function<void()> onEnd, std::function<void()>)
    : d(std::make_unique<Private>(std::move(onEnd)))
{}

SystemSignals::~SystemSignals() = default;

void DieNow()
{
    std::_Exit(70);
}

} // namespace kelforms
