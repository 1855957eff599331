#include "platform/files/letters.h"

#include <algorithm>
#include <array>

namespace vasclip::files {

namespace {

/// 0x80 to 0x9F of Windows 1252; the five codes that it leaves open stand for themselves.
constexpr std::array<char16_t, 32> kHighCodes = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<QByteArray> ToWindows1252(const QString& text)
{
    QByteArray raw;
    raw.reserve(text.size());
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        if (code < 0x80 || (code > 0x9F && code <= 0xFF)) {
            raw.append(char(code));
            continue;
        }
        const auto* const high = std::find(kHighCodes.begin(), kHighCodes.end(), code);
        if (high == kHighCodes.end())
            return std::nullopt;
        raw.append(char(0x80 + (high - kHighCodes.begin())));
    }
    return raw;
}

} // namespace

QString FromWindows1252(const QByteArray& raw)
{
    QString text = QString::fromLatin1(raw);
    for (QChar& c : text) {
        if (c.unicode() >= 0x80 && c.unicode() <= 0x9F)
            c = QChar(kHighCodes[std::size_t(c.unicode() - 0x80)]);
    }
    return text;
}

const Letters& Windows1252()
{
    static const Letters letters{FromWindows1252, ToWindows1252};
    return letters;
}

} // namespace vasclip::files
