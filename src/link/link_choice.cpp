#include "link/link_choice.h"

#include "platform/conduit/channel_conduit.h"
#include "platform/conduit/dde_conduit.h"
#include "platform/conduit/no_way.h"
#include "platform/files/profile.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <QDir>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kSection = u"LINK"_s;

/// A path of the file as the system knows it: "C:\WINE" by the home's drives, "~/wine" in the user's directory, anything
/// else as it stands.
QString Native(const files::Disk& disk, const QString& path)
{
    const bool onDrive = path.size() > 2 && path[0].isLetter() && path[1] == u':' && path[2] == u'\\';
    return onDrive ? disk.ToNative(path) : path.startsWith("~/"_L1) ? QDir::homePath() + path.sliced(1) : path;
}

} // namespace

LinkChoice ReadLinkChoice(const files::Disk& disk, const QString& kelIni)
{
    const auto value = [&](const QString& key) {
        return text::Trim(files::GetPrivateProfileString(disk, kSection, key, {}, kelIni));
    };
    LinkChoice choice;
    const QString exchange = value(u"Exchange"_s);
    if (exchange.isEmpty() || text::Folded(exchange) == text::Folded(u"Socket"_s))
        return choice;
    choice.exchange = true;
    if (text::Folded(exchange) != u"DDE"_s) {
        choice.trouble = u"Exchange in section [LINK] of %1 is \"%2\"; DDE or Socket is wanted"_s.arg(kelIni, exchange);
        return choice;
    }
    const QString page = value(u"CodePage"_s);
    bool number = true;
    choice.codePage = page.isEmpty() ? 0 : page.toUInt(&number);
    if (!number || choice.codePage > 65535) {
        choice.trouble = u"CodePage in section [LINK] of %1 is \"%2\"; a number such as 1252 is wanted"_s.arg(kelIni, page);
        return choice;
    }
    try {
        choice.bridge = Native(disk, value(u"Bridge"_s));
        choice.wine = Native(disk, value(u"Wine"_s));
        choice.winePrefix = Native(disk, value(u"WinePrefix"_s));
    } catch (const RuntimeError& failure) {
        choice.trouble = u"A path in section [LINK] of %1 can't be followed: %2"_s.arg(kelIni, failure.Description());
    }
    return choice;
}

std::unique_ptr<conduit::Conduit> MakeChosen(const LinkChoice& choice, int timeLimitMs, conduit::Patience* patience)
{
    if (!choice.exchange)
        return nullptr;
    if (!choice.trouble.isEmpty())
        return std::make_unique<conduit::ChannelConduit>(
            [words = choice.trouble](const QDeadlineTimer&) -> std::unique_ptr<conduit::LinkWay> {
                throw RuntimeError(conduit::kNoWay, words);
            },
            timeLimitMs, patience);
    conduit::DdeOptions options;
    options.codePage = choice.codePage;
    options.timeLimitMs = timeLimitMs;
    options.patience = patience;
    options.bridge = choice.bridge;
    options.wine = choice.wine;
    options.winePrefix = choice.winePrefix;
    return conduit::MakeDdeConduit(std::move(options));
}

} // namespace vasclip::link
