#include "platform/conduit/dde/code_page.h"

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/letters.h"

#include <windows.h>

#include <algorithm>

namespace vasclip::conduit::dde {

namespace {

const wchar_t* Wide(std::u16string_view text)
{
    return reinterpret_cast<const wchar_t*>(text.data());
}

class SystemPage final : public CodePage
{
public:
    explicit SystemPage(UINT number)
        : m_number(number)
    {}

    std::string Name() const override { return "code page " + std::to_string(m_number); }

    std::optional<std::string> Encode(std::u16string_view text) const override
    {
        if (std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; }))
            return std::string(text.begin(), text.end());
        if (m_number == CP_UTF8)
            return EncodeUtf8(text);
        BOOL replaced = FALSE;
        const int units = static_cast<int>(text.size());
        const int size = WideCharToMultiByte(m_number, WC_NO_BEST_FIT_CHARS, Wide(text), units, nullptr, 0, nullptr, &replaced);
        if (size <= 0 || replaced)
            return std::nullopt;
        std::string bytes(static_cast<std::size_t>(size), '\0');
        WideCharToMultiByte(m_number, WC_NO_BEST_FIT_CHARS, Wide(text), units, bytes.data(), size, nullptr, &replaced);
        return replaced ? std::nullopt : std::optional(std::move(bytes));
    }

    std::optional<std::u16string> Decode(std::string_view bytes) const override
    {
        if (m_number == CP_UTF8)
            return Utf16(bytes);
        if (bytes.empty())
            return std::u16string();
        const int length = static_cast<int>(bytes.size());
        const int size = MultiByteToWideChar(m_number, MB_ERR_INVALID_CHARS, bytes.data(), length, nullptr, 0);
        if (size <= 0)
            return std::nullopt;
        std::u16string text(static_cast<std::size_t>(size), u'\0');
        MultiByteToWideChar(m_number, MB_ERR_INVALID_CHARS, bytes.data(), length,
                            reinterpret_cast<wchar_t*>(text.data()), size);
        return text;
    }

private:
    static std::optional<std::string> EncodeUtf8(std::u16string_view text)
    {
        std::string bytes = Utf8(text);
        return Utf16(bytes) == text ? std::optional(std::move(bytes)) : std::nullopt; // half a pair
    }

    UINT m_number;
};

/// The partner's, which is the system's; a program whose manifest takes UTF-8 is told another by GetACP.
UINT OfTheSystem()
{
    DWORD number = 0;
    const int size = sizeof(number) / sizeof(wchar_t);
    if (GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                       reinterpret_cast<wchar_t*>(&number), size) != size || number == 0)
        return GetACP();
    return number;
}

} // namespace

std::shared_ptr<const CodePage> SystemCodePage(unsigned number)
{
    const UINT asked = number == 0 ? OfTheSystem() : number;
    CPINFO info{};
    // Those with shifts and states (50220, 54936 and their like) are no plain bytes, and the calls refuse their checks.
    const bool plain = asked < 50000 || asked == CP_UTF8;
    if (!plain || !GetCPInfo(asked, &info))
        throw Failure(Why::Refused, "The system can't exchange text in code page " + std::to_string(asked) +
                                        "; CodePage in section [LINK] of KEL.INI names the one that is used");
    auto page = std::make_shared<SystemPage>(asked);
    if (page->Decode("A|1") != u"A|1") // EBCDIC and its like, in which no field's name could be written
        throw Failure(Why::Refused, page->Name() + " has other places for plain letters, and the exchange can't use it; CodePage "
                                                   "in section [LINK] of KEL.INI names the one that is used");
    return page;
}

} // namespace vasclip::conduit::dde
