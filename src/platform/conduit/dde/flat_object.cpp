#include "platform/conduit/dde/flat_object.h"

#include "platform/conduit/dde/letters.h"

#include <utility>

namespace vasclip::conduit::dde {

namespace {

/// Walks over a line; each step is true if what it looked for stood there.
class Walker
{
public:
    explicit Walker(std::string_view line)
        : m_line(line)
    {}

    void Blanks()
    {
        while (m_at < m_line.size() && (m_line[m_at] == ' ' || m_line[m_at] == '\t' || m_line[m_at] == '\r'))
            ++m_at;
    }
    bool Take(char wanted)
    {
        Blanks();
        if (m_at == m_line.size() || m_line[m_at] != wanted)
            return false;
        ++m_at;
        return true;
    }
    bool TakeWord(std::string_view word)
    {
        Blanks();
        if (m_line.substr(m_at, word.size()) != word)
            return false;
        m_at += word.size();
        return true;
    }
    bool TakeNumber(std::int64_t& number)
    {
        Blanks();
        constexpr std::size_t kMostDigits = 15;
        const std::size_t begin = m_at;
        number = 0;
        for (; m_at < m_line.size() && m_line[m_at] >= '0' && m_line[m_at] <= '9' && m_at - begin < kMostDigits; ++m_at)
            number = number * 10 + (m_line[m_at] - '0');
        return m_at != begin && (m_line[begin] != '0' || m_at - begin == 1);
    }
    bool TakeText(std::u16string& text)
    {
        if (!Take('"'))
            return false;
        text.clear();
        std::size_t run = m_at;
        for (; m_at < m_line.size(); ++m_at) {
            const char c = m_line[m_at];
            if (static_cast<unsigned char>(c) < 0x20)
                return false;
            if (c != '"' && c != '\\')
                continue;
            const std::optional<std::u16string> piece = Utf16(m_line.substr(run, m_at - run));
            if (!piece)
                return false;
            text += *piece;
            ++m_at;
            if (c == '"')
                return true;
            if (!TakeEscape(text))
                return false;
            run = m_at--;
        }
        return false;
    }
    [[nodiscard]] bool AtEnd()
    {
        Blanks();
        return m_at == m_line.size();
    }

private:
    bool TakeEscape(std::u16string& text)
    {
        if (m_at == m_line.size())
            return false;
        const char c = m_line[m_at++];
        if (c == 'u')
            return TakeHex(text);
        constexpr std::string_view kNames = "\"\\/bfnrt";
        constexpr std::u16string_view kMeant = u"\"\\/\b\f\n\r\t";
        const std::size_t which = kNames.find(c);
        if (which == kNames.npos)
            return false;
        text += kMeant[which];
        return true;
    }
    bool TakeHex(std::u16string& text)
    {
        unsigned value = 0;
        for (int i = 0; i < 4; ++i, ++m_at) {
            if (m_at == m_line.size())
                return false;
            const char c = m_line[m_at];
            const int digit = c >= '0' && c <= '9'   ? c - '0'
                              : c >= 'a' && c <= 'f' ? c - 'a' + 10
                              : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                     : -1;
            if (digit < 0)
                return false;
            value = value * 16 + static_cast<unsigned>(digit);
        }
        text += static_cast<char16_t>(value);
        return true;
    }

    std::string_view m_line;
    std::size_t m_at = 0;
};

} // namespace

std::optional<FlatObject> FlatObject::Read(std::string_view line)
{
    FlatObject object;
    Walker walker(line);
    if (!walker.Take('{'))
        return std::nullopt;
    do {
        Member member;
        std::u16string text;
        std::int64_t number = 0;
        if (!walker.TakeText(member.name) || !walker.Take(':') || object.Find(Utf8(member.name)))
            return std::nullopt;
        if (walker.TakeText(text))
            member.text = std::move(text);
        else if (walker.TakeNumber(number))
            member.number = number;
        else if (!walker.TakeWord("true"))
            return std::nullopt;
        object.m_members.push_back(std::move(member));
    } while (walker.Take(','));
    if (!walker.Take('}') || !walker.AtEnd())
        return std::nullopt;
    return object;
}

const FlatObject::Member* FlatObject::Find(std::string_view name) const
{
    for (const Member& member : m_members) {
        if (Utf8(member.name) == name)
            return &member;
    }
    return nullptr;
}

const std::u16string* FlatObject::Text(std::string_view name) const
{
    const Member* member = Find(name);
    return member && member->text ? &*member->text : nullptr;
}

std::optional<std::int64_t> FlatObject::Number(std::string_view name) const
{
    const Member* member = Find(name);
    return member ? member->number : std::nullopt;
}

std::string JsonText(std::u16string_view text)
{
    static constexpr char kHex[] = "0123456789abcdef";
    std::string json = "\"";
    for (const char c : Utf8(text)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (byte < 0x20) {
            json += "\\u00";
            json += kHex[byte >> 4];
            json += kHex[byte & 15];
        } else {
            json += c;
        }
    }
    return json + '"';
}

} // namespace vasclip::conduit::dde
