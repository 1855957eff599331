#pragma once

#include "platform/conduit/link_session.h"

#include <functional>
#include <memory>

namespace kelforms {

/// Answers on the desktop's own data exchange too, where the system has one; elsewhere it does nothing. A refusal has no
/// words there, so the observer alone hears them.
class Exchange
{
public:
    /// @param takes  whether there is anything to say about "service|topic"
    /// @throws RuntimeError 57 if the system gives no window for it
    Exchange(vasclip::conduit::LinkHandler& handler, std::function<bool(const QString& topic)> takes,
             vasclip::conduit::ExchangeObserver observer);
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace kelforms
