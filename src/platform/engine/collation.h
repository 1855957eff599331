#pragma once

#include <QString>

#include <string_view>

namespace vasclip::engine {

/// Compares two UTF-8 texts as keys and values of the database are compared: without regard to case (simple
/// case folding) and to trailing blanks. @return below, equal to or above 0
[[nodiscard]] int CompareText(std::string_view left, std::string_view right) noexcept;

/// Two texts are equal for CompareText where these are.
[[nodiscard]] QString FoldedText(const QString& text);

/// One character, folded for comparison.
[[nodiscard]] char32_t FoldChar(char32_t character) noexcept;

/// Reads one character of UTF-8 text and moves past it; a broken sequence gives its first byte as U+FFFD.
[[nodiscard]] char32_t NextChar(const char*& at, const char* end) noexcept;

/// Does a text match a pattern of `*`, `?`, `#`, `[a-z]`, `[!a-z]`? Case does not count, nor do blanks that
/// end the text. `%` and `_` are plain characters. A `[` that is never closed matches nothing.
[[nodiscard]] bool MatchesPattern(std::string_view text, std::string_view pattern) noexcept;

/// Has a pattern a `[` that is never closed?
[[nodiscard]] bool HasOpenSet(std::string_view pattern) noexcept;
/// What is wrong with one, for people.
inline constexpr char kOpenSetWords[] =
    "a pattern of LIKE has a \"[\" that no \"]\" closes; write \"[[]\" to look for the bracket itself";

} // namespace vasclip::engine
