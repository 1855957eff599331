#include "shell/win_version.h"

#include <algorithm>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kVista = 6;

QString Cleaned(QString servicePack)
{
    constexpr char16_t kFirst = 32;
    constexpr char16_t kEnd = 127;
    std::replace_if(
        servicePack.begin(), servicePack.end(),
        [](QChar c) { return c.unicode() < kFirst || c.unicode() >= kEnd; }, u' ');
    return servicePack;
}

} // namespace

WinVersionName GetWinVersionName(const desktop::SystemVersion& version)
{
    WinVersionName found;
    found.isVista = version.major == kVista;
    switch (version.major) {
    case 3:
        found.name = version.isNt ? u"Windows NT 3.x"_s : u"Windows 3.x"_s;
        break;
    case 4:
        found.name = version.isNt         ? u"Windows NT 4.0"_s
                     : version.minor == 0 ? u"Windows 95"_s
                                          : u"Windows 98/Windows ME"_s;
        break;
    case 5:
        if (version.minor <= 1)
            found.name =
                (version.minor == 0 ? u"Windows 2000 "_s : u"Windows XP "_s) + Cleaned(version.servicePack);
        break;
    case kVista:
        found.name = u"Windows Vista "_s + Cleaned(version.servicePack);
        break;
    default:
        found.name = u"Unknown Windows Version"_s;
    }
    return found;
}

} // namespace vasclip::shell
