#include "platform/files/letters.h"

#include <string>

#include <windows.h>

namespace vasclip::files {

namespace {

/// That of the system: a program whose manifest takes UTF-8 is told another one by GetACP.
UINT SystemPage()
{
    DWORD page = 0;
    const int size = sizeof(page) / sizeof(wchar_t);
    return GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                          reinterpret_cast<wchar_t*>(&page), size) == size
               ? page
               : 0;
}

QString Read(UINT page, const QByteArray& raw)
{
    const int size = MultiByteToWideChar(page, 0, raw.constData(), int(raw.size()), nullptr, 0);
    std::wstring text(std::size_t(qMax(size, 0)), L'\0');
    MultiByteToWideChar(page, 0, raw.constData(), int(raw.size()), text.data(), size);
    return QString::fromStdWString(text);
}

std::optional<QByteArray> Write(UINT page, const QString& text)
{
    const auto* units = reinterpret_cast<const wchar_t*>(text.utf16());
    BOOL replaced = FALSE;
    const int size = WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, units, int(text.size()), nullptr, 0, nullptr, &replaced);
    QByteArray raw(qMax(size, 0), '\0');
    WideCharToMultiByte(page, WC_NO_BEST_FIT_CHARS, units, int(text.size()), raw.data(), size, nullptr, &replaced);
    return replaced || (size <= 0 && !text.isEmpty()) ? std::nullopt : std::optional(raw);
}

} // namespace

Letters LettersOf(unsigned page)
{
    CPINFO info{};
    const bool plain = page != 0 && page < 50'000 && GetCPInfo(page, &info); // others have states, or are Unicode
    if (page == 1252 || !plain)
        return {Windows1252().read, Windows1252().write, plain};
    return {[page](const QByteArray& raw) { return Read(page, raw); },
            [page](const QString& text) { return Write(page, text); }, true};
}

const Letters& SystemLetters()
{
    static const Letters letters = LettersOf(SystemPage());
    return letters;
}

} // namespace vasclip::files
