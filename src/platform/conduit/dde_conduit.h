#pragma once

#include "platform/conduit/conduit.h"
#include "platform/conduit/patience.h"

#include <QString>

#include <memory>

namespace vasclip::conduit {

struct DdeOptions
{
    unsigned codePage = 0; ///< of the forms program; 0: its system's own
    int timeLimitMs = 5000;
    Patience* patience = nullptr; ///< outlives the conduit
    /// Where the system has no such exchange, these carry it; "" finds them.
    QString bridge;     ///< vasclip-bridge.exe, which else lies beside the program
    QString wine;       ///< Wine's loader, by path or name
    QString winePrefix; ///< the directory of the Wine that the forms program lives in; "": the user's usual one
};

/// The link field over the desktop's own data exchange. On Windows it is spoken by this process; elsewhere the forms
/// program lives under Wine, and a bridge there speaks it. What the exchange can't hold is error 285, and says so before
/// anything is sent. No Wine, an old one, a bridge that is not there and a code page that the system has
/// not are error 298, which nobody takes for a forms program that is merely not started.
[[nodiscard]] std::unique_ptr<Conduit> MakeDdeConduit(DdeOptions options);

} // namespace vasclip::conduit
