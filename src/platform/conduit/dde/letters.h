#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vasclip::conduit::dde {

/// UTF-16 as UTF-8; half a pair becomes the replacement character.
[[nodiscard]] std::string Utf8(std::u16string_view text);
/// nullopt if the bytes are no UTF-8, in its shortest form and without surrogates.
[[nodiscard]] std::optional<std::u16string> Utf16(std::string_view bytes);

/// How many units the character at `at` takes: 2 for a whole pair.
[[nodiscard]] std::size_t UnitsAt(std::u16string_view text, std::size_t at);
/// Its number in Unicode; of half a pair that of the half.
[[nodiscard]] char32_t CharacterAt(std::u16string_view text, std::size_t at);

/// Letters of the Latin alphabet without regard to case, as names of the exchange are compared.
[[nodiscard]] bool SameName(std::u16string_view one, std::u16string_view other);

} // namespace vasclip::conduit::dde
