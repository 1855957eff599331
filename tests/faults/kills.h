#pragma once

#include "support/wine.h"

#include <QtGlobal>

#include <algorithm>
#include <initializer_list>

namespace vasclip::tests {

/// How often a test kills: VASCLIP_KILLS where it is set (1000 for the long run), else the few of an ordinary
/// run; still fewer under Wine, where a program takes ten times as long to start.
inline int Kills(int usually)
{
    const int wanted = qEnvironmentVariableIntValue("VASCLIP_KILLS");
    if (wanted > 0)
        return wanted;
    return UnderWine() ? std::max(6, usually / 4) : usually;
}

/// Goes on beyond them while no kill has come on some side: a busy machine moves the moments.
inline bool MoreKills(int run, int usually, std::initializer_list<int> sides)
{
    constexpr int kTimesMost = 20;
    return run < Kills(usually) || (run < kTimesMost * usually && std::min(sides) == 0);
}

} // namespace vasclip::tests
