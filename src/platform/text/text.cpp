#include "platform/text/text.h"

#include "platform/text/runtime_error.h"

#include <cmath>
#include <cstdint>
#include <optional>

using namespace Qt::StringLiterals;

namespace vasclip::text {

namespace {

constexpr QChar kBlank(u' ');

/// The characters that `Val` does not see at all.
bool IsSkipped(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r' || c == u'\u3000';
}

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

int DigitValue(QChar c)
{
    if (IsDigit(c))
        return c.unicode() - u'0';
    const char16_t upper = c.toUpper().unicode();
    return upper >= u'A' && upper <= u'F' ? upper - u'A' + 10 : 99;
}

/// "&HFFFF" is a 16-bit number and so -1; a closing "&" makes it a 32-bit one.
double RadixValue(const QString& digits, qsizetype at, int base)
{
    std::uint64_t value = 0;
    constexpr std::uint64_t kLimit = std::uint64_t(1) << 52;
    for (; at < digits.size() && DigitValue(digits[at]) < base && value < kLimit; ++at)
        value = value * std::uint64_t(base) + std::uint64_t(DigitValue(digits[at]));
    const bool isLong = at < digits.size() && digits[at] == u'&';
    if (value <= 0xFFFF && !isLong)
        return static_cast<std::int16_t>(value);
    if (value <= 0xFFFFFFFF)
        return static_cast<std::int32_t>(value);
    return static_cast<double>(value);
}

/// What most texts are, a few digits, needs no copy; nullopt for anything else.
std::optional<double> FewDigits(const QString& text)
{
    constexpr qsizetype kExact = 15; // so many digits fit a double whole
    if (text.isEmpty() || text.size() > kExact)
        return std::nullopt;
    std::int64_t value = 0;
    for (const QChar c : text) {
        if (!IsDigit(c))
            return std::nullopt;
        value = value * 10 + (c.unicode() - u'0');
    }
    return static_cast<double>(value);
}

double HalfToEven(double value)
{
    const double low = std::floor(value);
    const double rest = value - low;
    if (rest != 0.5)
        return rest < 0.5 ? low : low + 1;
    return std::fmod(low, 2.0) == 0 ? low : low + 1;
}

double Whole(double value, double lowest, double highest)
{
    const double whole = HalfToEven(value);
    if (!(whole >= lowest && whole <= highest))
        throw RuntimeError(error::kOverflow,
                           u"Overflow: %1 does not fit between %2 and %3"_s.arg(
                               QString::number(value, 'g', 15), QString::number(lowest, 'f', 0),
                               QString::number(highest, 'f', 0)));
    return whole;
}

} // namespace

QString LTrim(const QString& text)
{
    qsizetype from = 0;
    while (from < text.size() && text[from] == kBlank)
        ++from;
    return from == 0 ? text : text.mid(from);
}

QString RTrim(const QString& text)
{
    qsizetype size = text.size();
    while (size > 0 && text[size - 1] == kBlank)
        --size;
    return text.left(size);
}

QString Trim(const QString& text)
{
    return LTrim(RTrim(text));
}

QString Folded(const QString& text)
{
    return Trim(text).toUpper();
}

double Val(const QString& text)
{
    if (const std::optional<double> few = FewDigits(text))
        return *few;
    QString seen;
    seen.reserve(text.size());
    for (const QChar c : text) {
        if (!IsSkipped(c))
            seen.append(c);
    }

    if (seen.startsWith(u'&')) {
        const QChar kind = seen.size() > 1 ? seen[1].toUpper() : QChar();
        if (kind == u'H')
            return RadixValue(seen, 2, 16);
        return RadixValue(seen, kind == u'O' ? 2 : 1, 8);
    }

    qsizetype at = 0;
    QByteArray number;
    if (at < seen.size() && (seen[at] == u'-' || seen[at] == u'+'))
        number.append(char(seen[at++].unicode()));
    bool hasDigit = false;
    bool hasPoint = false;
    for (; at < seen.size(); ++at) {
        if (IsDigit(seen[at]))
            hasDigit = true;
        else if (seen[at] == u'.' && !hasPoint)
            hasPoint = true;
        else
            break;
        number.append(char(seen[at].unicode()));
    }
    if (!hasDigit)
        return 0;

    if (at < seen.size() && QStringView(u"EeDd").contains(seen[at])) {
        QByteArray exponent("e");
        qsizetype next = at + 1;
        if (next < seen.size() && (seen[next] == u'-' || seen[next] == u'+'))
            exponent.append(char(seen[next++].unicode()));
        const qsizetype firstDigit = next;
        while (next < seen.size() && IsDigit(seen[next]))
            exponent.append(char(seen[next++].unicode()));
        if (next > firstDigit)
            number.append(exponent);
    }
    bool readable = false;
    const double value = number.toDouble(&readable);
    return readable && std::isfinite(value) ? value : 0;
}

QString Str(double value)
{
    QString digits = QString::number(std::fabs(value), 'G', 15);
    if (digits.startsWith(u"0."_s))
        digits.remove(0, 1);
    return (value < 0 ? u'-' : u' ') + digits;
}

QString Dec(qint64 value)
{
    return QString::number(value);
}

qint16 ToInt16(double value)
{
    return static_cast<qint16>(Whole(value, -32768.0, 32767.0));
}

qint32 ToInt32(double value)
{
    return static_cast<qint32>(Whole(value, -2147483648.0, 2147483647.0));
}

} // namespace vasclip::text
