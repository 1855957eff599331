#include "platform/engine/collation.h"

#include <QChar>

#include <sqlite3.h>

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

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right)
{
    return CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                       {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
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
    const char* const patternEnd = pattern.data() + pattern.size();
    if (Matches(text.data(), text.data() + text.size(), pattern.data(), patternEnd))
        return true;
    const std::string_view shorter = WithoutTrailingBlanks(text);
    return shorter.size() != text.size() &&
           Matches(shorter.data(), shorter.data() + shorter.size(), pattern.data(), patternEnd);
}

void RegisterCollation(sqlite3* handle)
{
    sqlite3_create_collation_v2(handle, "VAS", SQLITE_UTF8, nullptr, &Collate, nullptr);
}

} // namespace vasclip::engine
