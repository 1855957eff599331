#include "platform/engine/text_values.h"

#include "platform/engine/values.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <QDate>
#include <QString>

namespace vasclip::engine {

namespace {

/// Days from 30 December 1899 to a day of the proleptic Gregorian calendar.
constexpr qint64 Days(int year, unsigned month, unsigned day)
{
    const int y = month <= 2 ? year - 1 : year;
    const int era = (y >= 0 ? y : y - 399) / 400;
    const auto yearOfEra = static_cast<unsigned>(y - era * 400);
    const unsigned dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const unsigned dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    constexpr qint64 kEpoch = 693'899; // 30 December 1899, counted from 1 March of year 0
    return qint64{era} * 146'097 + dayOfEra - kEpoch;
}
static_assert(Days(1899, 12, 30) == 0 && Days(1900, 1, 1) == 2 && Days(2000, 3, 1) == 36586);

/// Reads "M/D/YYYY" with nothing behind it but blanks; everything else is left to the full reader.
bool PlainDate(std::string_view text, double& serial)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto number = [&](int most, int& digits) {
        unsigned value = 0;
        for (digits = 0; at < end && *at >= '0' && *at <= '9' && digits < most; ++at, ++digits)
            value = value * 10 + static_cast<unsigned>(*at - '0');
        return value;
    };
    int digits = 0;
    const unsigned month = number(2, digits);
    if (digits == 0 || at == end || *at != '/')
        return false;
    ++at;
    const unsigned day = number(2, digits);
    if (digits == 0 || at == end || *at != '/')
        return false;
    ++at;
    const unsigned year = number(4, digits);
    if (digits != 4 || year < 100)
        return false;
    while (at < end && *at == ' ')
        ++at;
    constexpr unsigned kMonthDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (at != end || month < 1 || month > 12 || day < 1 || day > kMonthDays[month - 1])
        return false;
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    if (month == 2 && day == 29 && !leap)
        return false;
    serial = static_cast<double>(Days(static_cast<int>(year), month, day));
    return true;
}

} // namespace

double NumberOf(std::string_view text)
{
    // Plain digits with a point, blanks around them: what the fields hold. The rest goes the long way.
    const char* at = text.data();
    const char* end = at + text.size();
    while (end > at && end[-1] == ' ')
        --end;
    while (at < end && *at == ' ')
        ++at;
    if (at == end)
        return 0;
    const bool negative = *at == '-';
    if (negative)
        ++at;
    qint64 whole = 0;
    int digits = 0;
    int decimals = 0;
    bool point = false;
    for (; at < end; ++at) {
        if (*at >= '0' && *at <= '9' && digits < 15) {
            whole = whole * 10 + (*at - '0');
            ++digits;
            decimals += point ? 1 : 0;
        } else if (*at == '.' && !point) {
            point = true;
        } else {
            return text::Val(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
        }
    }
    static constexpr double kPowers[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const double value = static_cast<double>(whole) / kPowers[decimals];
    return negative ? -value : value;
}

bool SerialOf(std::string_view text, const text::TimeSource& time, double& serial)
{
    if (PlainDate(text, serial))
        return true;
    const QString whole = text::Trim(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    if (whole.isEmpty())
        return false;
    const auto date = text::ReadDate(whole, time.Today());
    if (!date)
        return false;
    serial = ToSerial(*date);
    return true;
}

} // namespace vasclip::engine
