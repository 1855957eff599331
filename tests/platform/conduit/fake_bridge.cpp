// Stands where Wine and the bridge stand: the bridge's own lines over standard input and output, a played partner behind
// them. The first argument is its manner.

#include "memo_partner.h"

#include "platform/conduit/dde/bridge.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

int main(int argc, char** argv)
{
    const std::string manner = argc > 1 ? argv[1] : "";
    vasclip::test::MemoPartner partner;
    // What it was started with is kept where the tests can ask for it.
    std::u16string arguments;
    for (int i = 2; i < argc; ++i)
        arguments += (i > 2 ? u" " : u"") + vasclip::conduit::dde::Utf16(argv[i]).value_or(u"?");
    partner.kept[u"ARGUMENTS"] = arguments;
    for (const char* name : {"WINEPREFIX", "WINEDEBUG", "LC_ALL", "LC_CTYPE", "LANG"})
        partner.kept[vasclip::conduit::dde::Utf16(name).value()] =
            vasclip::conduit::dde::Utf16(std::getenv(name) ? std::getenv(name) : "").value();
    vasclip::conduit::dde::Bridge bridge(partner, 4711);
    if (manner == "ends") {
        std::fputs("something before it\nvasclip-bridge: The system gives no window for the exchange\n", stderr);
        return 3;
    }
    if (manner == "slow") { // until it is told to go on
        while (!std::filesystem::exists(std::string(argv[2]) + ".go"))
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    bool greeted = false;
    for (std::string line; std::getline(std::cin, line);) {
        const std::string answer = bridge.Answer(line);
        if (greeted && manner == "silent")
            continue;
        if (greeted && manner == "dies")
            return 5;
        std::cout << (greeted && manner == "garbage" ? "what?\n" : answer) << std::flush;
        greeted = true;
    }
    return 0;
}
