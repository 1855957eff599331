#pragma once

#include "platform/conduit/dde/limits.h"

namespace vasclip::test {

/// The first 256 characters of Unicode, for limits that are looked at without a Windows.
class LatinPage final : public conduit::dde::CodePage
{
public:
    std::string Name() const override { return "code page 28591"; }
    std::optional<std::string> Encode(std::u16string_view text) const override
    {
        std::string bytes;
        for (const char16_t c : text) {
            if (c > 0xff)
                return std::nullopt;
            bytes += static_cast<char>(c);
        }
        return bytes;
    }
    std::optional<std::u16string> Decode(std::string_view bytes) const override
    {
        std::u16string text;
        for (const char c : bytes)
            text += static_cast<char16_t>(static_cast<unsigned char>(c));
        return text;
    }
};

} // namespace vasclip::test
