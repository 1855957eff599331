#include "platform/conduit/dde/letters.h"

#include <algorithm>

namespace vasclip::conduit::dde {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHigh(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLow(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

void Append(std::string& bytes, char32_t c)
{
    const auto tail = [&](int shift) { bytes += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        bytes += static_cast<char>(c);
    } else if (c < 0x800) {
        bytes += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        bytes += static_cast<char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

char16_t Lower(char16_t c)
{
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

} // namespace

std::size_t UnitsAt(std::u16string_view text, std::size_t at)
{
    return IsHigh(text[at]) && at + 1 < text.size() && IsLow(text[at + 1]) ? 2 : 1;
}

char32_t CharacterAt(std::u16string_view text, std::size_t at)
{
    const char32_t first = text[at];
    if (UnitsAt(text, at) == 1)
        return first;
    return 0x10000 + ((first - 0xD800) << 10) + (static_cast<char32_t>(text[at + 1]) - 0xDC00);
}

std::string Utf8(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); at += UnitsAt(text, at)) {
        const char32_t c = CharacterAt(text, at);
        Append(bytes, IsHigh(c) || IsLow(c) ? kReplacement : c);
    }
    return bytes;
}

std::optional<std::u16string> Utf16(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at++]);
        if (lead < 0x80) {
            text += static_cast<char16_t>(lead);
            continue;
        }
        const int tails = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 && lead < 0xF0 ? 2 : lead >= 0xC2 && lead < 0xE0 ? 1 : 0;
        if (tails == 0 || bytes.size() - at < static_cast<std::size_t>(tails))
            return std::nullopt;
        char32_t c = lead & (0x3F >> tails);
        for (int i = 0; i < tails; ++i) {
            const auto tail = static_cast<unsigned char>(bytes[at++]);
            if ((tail & 0xC0) != 0x80)
                return std::nullopt;
            c = (c << 6) | (tail & 0x3F);
        }
        constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
        if (c < kLeast[tails] || c > 0x10FFFF || IsHigh(c) || IsLow(c))
            return std::nullopt;
        if (c < 0x10000) {
            text += static_cast<char16_t>(c);
        } else {
            text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return text;
}

bool SameName(std::u16string_view one, std::u16string_view other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char16_t a, char16_t b) { return Lower(a) == Lower(b); });
}

} // namespace vasclip::conduit::dde
