#include "platform/engine/collation.h"

#include <QChar>

#include <cstdint>
#include <cstring>
#include <optional>

namespace vasclip::engine {

namespace {

constexpr unsigned char Fold(unsigned char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + 32) : c;
}

std::string_view WithoutTrailingBlanks(std::string_view text) noexcept
{
    auto size = text.size();
    while (size > 0 && text[size - 1] == ' ')
        --size;
    return text.substr(0, size);
}

int CompareUnicode(const char* left, const char* leftEnd, const char* right, const char* rightEnd) noexcept
{
    while (left < leftEnd && right < rightEnd) {
        const char32_t l = FoldChar(NextChar(left, leftEnd));
        const char32_t r = FoldChar(NextChar(right, rightEnd));
        if (l != r)
            return l < r ? -1 : 1;
    }
    return left < leftEnd ? 1 : right < rightEnd ? -1 : 0;
}

/// Matches one `[...]` at `at` (behind the bracket) and moves past it. @return false as well for an open
/// bracket
bool MatchesSet(const char*& at, const char* end, char32_t wanted, bool& closed) noexcept
{
    bool negated = false;
    if (at < end && *at == '!') {
        negated = true;
        ++at;
    }
    bool found = false;
    closed = false;
    for (bool first = true; at < end; first = false) {
        if (*at == ']' && !first) {
            ++at;
            closed = true;
            break;
        }
        const char32_t low = FoldChar(NextChar(at, end));
        char32_t high = low;
        if (at + 1 < end && *at == '-' && at[1] != ']') {
            ++at;
            high = FoldChar(NextChar(at, end));
        }
        if (wanted >= low && wanted <= high)
            found = true;
    }
    return closed && found != negated;
}

bool Matches(const char* text, const char* textEnd, const char* pattern, const char* patternEnd) noexcept
{
    // On a mismatch only the last star has to take one more character: earlier ones need not be tried again.
    const char* starPattern = nullptr;
    const char* starText = nullptr;
    for (;;) {
        bool matched = false;
        const char* next = pattern;
        if (pattern < patternEnd) {
            const char kind = *pattern;
            if (kind == '*') {
                starPattern = ++pattern;
                starText = text;
                continue;
            }
            if (text < textEnd) {
                const char* textNext = text;
                const char32_t c = NextChar(textNext, textEnd);
                bool closed = true;
                if (kind == '?') {
                    matched = true;
                    ++next;
                } else if (kind == '#') {
                    matched = c >= U'0' && c <= U'9';
                    ++next;
                } else if (kind == '[') {
                    ++next;
                    matched = MatchesSet(next, patternEnd, FoldChar(c), closed);
                    if (!closed)
                        return false;
                } else {
                    matched = FoldChar(NextChar(next, patternEnd)) == FoldChar(c);
                }
                if (matched) {
                    text = textNext;
                    pattern = next;
                    continue;
                }
            }
        } else if (text == textEnd) {
            return true;
        }
        if (!starPattern || starText >= textEnd)
            return false;
        static_cast<void>(NextChar(starText, textEnd));
        text = starText;
        pattern = starPattern;
    }
}

bool IsAscii(std::string_view text) noexcept
{
    const char* at = text.data();
    const char* const end = at + text.size();
    std::uint64_t seen = 0;
    for (; end - at >= 8; at += 8) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, at, sizeof eight);
        seen |= eight;
    }
    for (; at < end; ++at)
        seen |= static_cast<unsigned char>(*at);
    return (seen & 0x8080808080808080ULL) == 0;
}

/// The letters between two stars, nullopt for any other pattern.
std::optional<std::string_view> BetweenStars(std::string_view pattern) noexcept
{
    if (pattern.size() < 3 || pattern.front() != '*' || pattern.back() != '*')
        return std::nullopt;
    const std::string_view letters = pattern.substr(1, pattern.size() - 2);
    if (letters.find_first_of("*?#[") != std::string_view::npos)
        return std::nullopt;
    return letters;
}

/// Does an ASCII text hold ASCII letters, without regard to case?
bool Holds(std::string_view text, std::string_view letters) noexcept
{
    if (letters.size() > text.size())
        return false;
    const unsigned char first = Fold(static_cast<unsigned char>(letters.front()));
    const char* const last = text.data() + (text.size() - letters.size());
    for (const char* at = text.data(); at <= last; ++at) {
        if (Fold(static_cast<unsigned char>(*at)) != first)
            continue;
        std::size_t same = 1;
        while (same < letters.size() &&
               Fold(static_cast<unsigned char>(at[same])) == Fold(static_cast<unsigned char>(letters[same])))
            ++same;
        if (same == letters.size())
            return true;
    }
    return false;
}

} // namespace

char32_t FoldChar(char32_t character) noexcept
{
    if (character < 0x80)
        return Fold(static_cast<unsigned char>(character));
    return QChar::toCaseFolded(character);
}

char32_t NextChar(const char*& at, const char* end) noexcept
{
    const auto first = static_cast<unsigned char>(*at++);
    if (first < 0x80)
        return first;
    int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
    if (more == 0 || end - at < more)
        return 0xFFFD;
    char32_t value = first & (0x3F >> more);
    const char* rest = at;
    for (; more > 0; --more, ++rest) {
        const auto byte = static_cast<unsigned char>(*rest);
        if ((byte & 0xC0) != 0x80)
            return 0xFFFD;
        value = value << 6 | (byte & 0x3F);
    }
    at = rest;
    return value;
}

int CompareText(std::string_view left, std::string_view right) noexcept
{
    left = WithoutTrailingBlanks(left);
    right = WithoutTrailingBlanks(right);
    const std::size_t common = left.size() < right.size() ? left.size() : right.size();
    const char* l = left.data();
    const char* r = right.data();
    for (std::size_t i = 0; i < common; ++i) {
        const auto a = static_cast<unsigned char>(l[i]);
        const auto b = static_cast<unsigned char>(r[i]);
        // Up to here both were plain ASCII, so this is the start of a character in each.
        if ((a | b) & 0x80)
            return CompareUnicode(l + i, l + left.size(), r + i, r + right.size());
        if (a != b) {
            const int difference = int{Fold(a)} - int{Fold(b)};
            if (difference != 0)
                return difference;
        }
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

bool MatchesPattern(std::string_view text, std::string_view pattern) noexcept
{
    // Most searches look for letters anywhere in a padded text. A text beyond ASCII goes the long way: it may
    // hold a letter that folds to one of ASCII.
    if (const auto letters = BetweenStars(pattern); letters && IsAscii(text) && IsAscii(*letters))
        return Holds(text, *letters);
    const char* const patternEnd = pattern.data() + pattern.size();
    if (Matches(text.data(), text.data() + text.size(), pattern.data(), patternEnd))
        return true;
    if (!pattern.empty() && pattern.back() == '*')
        return false; // a star at the end has taken the blanks as well
    const std::string_view shorter = WithoutTrailingBlanks(text);
    return shorter.size() != text.size() &&
           Matches(shorter.data(), shorter.data() + shorter.size(), pattern.data(), patternEnd);
}

bool HasOpenSet(std::string_view pattern) noexcept
{
    const char* const end = pattern.data() + pattern.size();
    for (const char* at = pattern.data(); at < end;) {
        if (*at++ != '[')
            continue;
        bool closed = true;
        static_cast<void>(MatchesSet(at, end, U' ', closed));
        if (!closed)
            return true;
    }
    return false;
}

QString FoldedText(const QString& text)
{
    qsizetype size = text.size();
    while (size > 0 && text[size - 1] == u' ')
        --size;
    QString folded;
    folded.reserve(size);
    for (const char32_t character : QStringView(text).first(size).toUcs4())
        folded += QChar::fromUcs4(FoldChar(character));
    return folded;
}

} // namespace vasclip::engine
