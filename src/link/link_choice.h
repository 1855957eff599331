#pragma once

#include "platform/conduit/conduit.h"
#include "platform/conduit/patience.h"
#include "platform/files/disk.h"

#include <QString>

#include <memory>

namespace vasclip::link {

/// How KEL.INI, section [LINK], says that its forms program is spoken to.
struct LinkChoice
{
    bool exchange = false; ///< by the desktop's own data exchange; else over the local socket
    unsigned codePage = 0; ///< 0: the system's own
    /// Under Wine; native paths. "" finds them.
    QString bridge, wine, winePrefix;
    QString trouble; ///< why it can't be followed, "" if it can
};

/// Keys: Exchange (DDE, or Socket), CodePage, Bridge, Wine, WinePrefix. A file or a section that is not there names
/// nothing, which means the socket. Paths may be drive paths or the system's.
[[nodiscard]] LinkChoice ReadLinkChoice(const files::Disk& disk, const QString& kelIni);

/// The link field for a choice other than the socket; nullptr for that. One that can't be followed gives a field which
/// says so at each opening (error 298).
[[nodiscard]] std::unique_ptr<conduit::Conduit> MakeChosen(const LinkChoice& choice, int timeLimitMs,
                                                           conduit::Patience* patience);

} // namespace vasclip::link
