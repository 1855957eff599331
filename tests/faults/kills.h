#pragma once

#include <QtGlobal>

namespace vasclip::tests {

/// How often a test kills: VASCLIP_KILLS where it is set (1000 for the long run), else the few of an ordinary
/// run.
inline int Kills(int usually)
{
    const int wanted = qEnvironmentVariableIntValue("VASCLIP_KILLS");
    return wanted > 0 ? wanted : usually;
}

} // namespace vasclip::tests
