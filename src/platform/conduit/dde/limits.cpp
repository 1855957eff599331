#include "platform/conduit/dde/limits.h"

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/letters.h"

#include <algorithm>
#include <cstdio>

namespace vasclip::conduit::dde {

namespace {

[[noreturn]] void Unfit(const std::string& words)
{
    throw Failure(Why::Refused, words + "; nothing was sent");
}

std::string Number(std::size_t number)
{
    return std::to_string(number);
}

/// The first character that the code page has not, with its place, counted from 1.
[[noreturn]] void RefuseCharacter(const CodePage& page, const std::string& what, std::u16string_view text)
{
    std::size_t place = 1;
    for (std::size_t at = 0; at < text.size(); at += UnitsAt(text, at), ++place) {
        const std::u16string_view one = text.substr(at, UnitsAt(text, at));
        if (page.Encode(one))
            continue;
        char code[16];
        std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(CharacterAt(text, at)));
        Unfit(what + " holds \"" + Utf8(one) + "\" (" + code + ") at place " + Number(place) + ", which " + page.Name() +
              " does not have");
    }
    Unfit(what + " does not go into " + page.Name());
}

std::string Encoded(const CodePage& page, const std::string& what, std::u16string_view text)
{
    if (const std::size_t zero = text.find(u'\0'); zero != text.npos)
        Unfit(what + " holds a zero character at place " + Number(zero + 1) + ", where the exchange would end it");
    std::optional<std::string> bytes = page.Encode(text);
    if (!bytes)
        RefuseCharacter(page, what, text);
    return *std::move(bytes);
}

void RequireName(const CodePage& page, const std::string& kind, std::u16string_view name)
{
    if (name.empty())
        Unfit("No " + kind + " is named, and the exchange wants one");
    const std::string what = "The " + kind + ' ' + Quoted(name);
    const std::size_t length = std::max(name.size(), Encoded(page, what, name).size());
    if (length > kLongestName)
        Unfit(what + " has " + Number(length) + " characters, and the exchange takes at most " + Number(kLongestName));
}

} // namespace

std::string Quoted(std::u16string_view text)
{
    constexpr std::size_t kShown = 60;
    if (text.size() <= kShown)
        return '"' + Utf8(text) + '"';
    return '"' + Utf8(text.substr(0, kShown)) + "...\"";
}

Topic RequireTopic(const CodePage& page, std::u16string_view whole)
{
    const std::size_t bar = whole.find(u'|');
    if (bar == whole.npos)
        Unfit(Quoted(whole) + " is no topic: a service, \"|\" and a topic are wanted");
    Topic topic{std::u16string(whole.substr(0, bar)), std::u16string(whole.substr(bar + 1))};
    if (topic.topic.find(u'|') != topic.topic.npos)
        Unfit("The topic " + Quoted(topic.topic) + " holds a bar (\"|\"), which the exchange keeps for itself");
    RequireName(page, "service", topic.service);
    RequireName(page, "topic", topic.topic);
    return topic;
}

void RequireItem(const CodePage& page, std::u16string_view item)
{
    RequireName(page, "item", item);
}

std::string RequireText(const CodePage& page, const std::string& what, std::u16string_view text)
{
    std::string bytes = Encoded(page, what, text);
    if (bytes.size() > kLongestText)
        Unfit(what + " has " + Number(bytes.size()) + " bytes, and the exchange takes at most " + Number(kLongestText));
    return bytes;
}

} // namespace vasclip::conduit::dde
