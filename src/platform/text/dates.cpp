#include "platform/text/dates.h"

#include <QList>
#include <QTime>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::text {

namespace {

constexpr std::array<const char16_t*, 12> kMonths = {u"January",   u"February", u"March",    u"April",
                                                     u"May",       u"June",     u"July",     u"August",
                                                     u"September", u"October",  u"November", u"December"};
constexpr std::array<const char16_t*, 7> kWeekdays = {u"Monday", u"Tuesday",  u"Wednesday", u"Thursday",
                                                      u"Friday", u"Saturday", u"Sunday"};

/// 1 for the first name of the table; 0 if the word is neither a name nor its first three letters.
template <std::size_t Size>
int NameIndex(QStringView word, const std::array<const char16_t*, Size>& names)
{
    for (std::size_t index = 0; index < Size; ++index) {
        const QStringView name(names[index]);
        if (word.compare(name, Qt::CaseInsensitive) == 0 ||
            word.compare(name.left(3), Qt::CaseInsensitive) == 0)
            return int(index) + 1;
    }
    return 0;
}

struct Number
{
    int value = 0;
    qsizetype digits = 0;

    /// No day and no month can be written so.
    [[nodiscard]] bool IsYear() const { return digits > 2 || value > 31; }
};

int FullYear(const Number& number)
{
    if (number.value >= 100)
        return number.value;
    return number.value + (number.value < 30 ? 2000 : 1900);
}

std::optional<QDate> ValidDate(int year, int month, int day)
{
    const QDate date(year, month, day);
    if (year < 100 || year > 9999 || !date.isValid())
        return std::nullopt;
    return date;
}

std::optional<QDate> MonthFirst(int year, int first, int second)
{
    return first > 12 ? ValidDate(year, second, first) : ValidDate(year, first, second);
}

/// Month, day and year; where they are no such date year, month and day, and last day, month and year.
std::optional<QDate> ThreeNumbers(const Number& first, const Number& second, const Number& third)
{
    if (const auto date = ValidDate(FullYear(third), first.value, second.value))
        return date;
    if (const auto date = ValidDate(FullYear(first), second.value, third.value))
        return date;
    return ValidDate(FullYear(third), second.value, first.value);
}

class DateReader
{
public:
    explicit DateReader(const QString& text)
        : m_text(text.trimmed())
    {}

    std::optional<QDateTime> Read(const QDate& today)
    {
        if (m_text.isEmpty() || !Scan() || !m_separators.isEmpty())
            return std::nullopt;
        if (m_numbers.isEmpty() && m_month == 0) {
            if (!m_hasTime || m_hasWeekday)
                return std::nullopt;
            return Timed(SerialEpoch());
        }
        const std::optional<QDate> date = m_month > 0 ? NamedMonth(today) : NumericMonth(today);
        return date ? Timed(*date) : std::nullopt;
    }

private:
    QString m_text;
    qsizetype m_at = 0;
    QList<Number> m_numbers;
    QString m_separators; ///< what stood since the last part of the date, blanks left out
    int m_month = 0;
    bool m_hasWeekday = false;
    bool m_hasTime = false;
    bool m_hasHalf = false;
    int m_hour = 0;
    int m_minute = 0;
    int m_second = 0;

    [[nodiscard]] QChar Peek(qsizetype ahead = 0) const
    {
        return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : QChar();
    }

    static bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

    bool TakeNumber(Number& number)
    {
        number = Number();
        while (IsDigit(Peek())) {
            number.value = number.value * 10 + (Peek().unicode() - u'0');
            ++number.digits;
            ++m_at;
            if (number.digits > 4)
                return false;
        }
        return number.digits > 0;
    }

    bool Scan()
    {
        while (m_at < m_text.size()) {
            const QChar c = Peek();
            bool good = true;
            if (IsDigit(c))
                good = ScanNumber();
            else if (c.isLetter())
                good = ScanWord();
            else if (c == u' ' || c == u'\t')
                ++m_at;
            else
                good = ScanSeparator(c);
            if (!good)
                return false;
        }
        return true;
    }

    bool ScanSeparator(QChar c)
    {
        if (c != u'/' && c != u'-' && c != u',')
            return false;
        const bool startsDate = m_numbers.isEmpty() && m_month == 0 && !(c == u',' && m_hasWeekday);
        if (startsDate || !m_separators.isEmpty())
            return false;
        if (c == u',' && m_hasWeekday && m_numbers.isEmpty() && m_month == 0) {
            ++m_at;
            return true;
        }
        m_separators.append(c);
        ++m_at;
        return true;
    }

    bool ScanNumber()
    {
        Number number;
        if (!TakeNumber(number))
            return false;
        if (Peek() == u':' || Peek() == u'.')
            return ScanTime(number);
        if (HalfFollows()) {
            if (number.digits > 2)
                return false;
            return TakeTime(number, Number(), Number());
        }
        m_numbers.append(number);
        m_separators.clear();
        return m_numbers.size() <= 3;
    }

    bool ScanTime(const Number& hour)
    {
        Number minute;
        Number second;
        ++m_at;
        if (!TakeNumber(minute))
            return false;
        if (Peek() == u':' || Peek() == u'.') {
            ++m_at;
            if (!TakeNumber(second))
                return false;
        }
        return TakeTime(hour, minute, second);
    }

    bool TakeTime(const Number& hour, const Number& minute, const Number& second)
    {
        const bool comma = m_separators.isEmpty() || m_separators == u",";
        if (m_hasTime || !comma || hour.digits > 2 || minute.digits > 2 || second.digits > 2 ||
            hour.value > 23 || minute.value > 59 || second.value > 59)
            return false;
        m_separators.clear();
        m_hasTime = true;
        m_hour = hour.value;
        m_minute = minute.value;
        m_second = second.value;
        return true;
    }

    [[nodiscard]] qsizetype WordEnd(qsizetype from) const
    {
        while (from < m_text.size() && m_text[from].isLetter())
            ++from;
        return from;
    }

    static int HalfOf(QStringView word) ///< 1 for AM, 2 for PM, 0 for anything else
    {
        for (int half = 1; half <= 2; ++half) {
            const QStringView full(half == 1 ? u"AM" : u"PM");
            if (word.compare(full, Qt::CaseInsensitive) == 0 ||
                word.compare(full.left(1), Qt::CaseInsensitive) == 0)
                return half;
        }
        return 0;
    }

    [[nodiscard]] bool HalfFollows() const
    {
        qsizetype from = m_at;
        while (from < m_text.size() && m_text[from] == u' ')
            ++from;
        return HalfOf(QStringView(m_text).mid(from, WordEnd(from) - from)) > 0;
    }

    bool ScanWord()
    {
        const qsizetype end = WordEnd(m_at);
        const QStringView word = QStringView(m_text).mid(m_at, end - m_at);
        m_at = end;
        if (const int half = HalfOf(word); half > 0)
            return TakeHalf(half == 2);
        if (const int month = NameIndex(word, kMonths); month > 0 && m_month == 0 && m_numbers.size() < 3) {
            m_month = month;
            m_separators.clear();
            return true;
        }
        if (NameIndex(word, kWeekdays) > 0 && !m_hasWeekday && m_separators.isEmpty()) {
            m_hasWeekday = true;
            return true;
        }
        // The "T" between an ISO date and its time.
        return word == u"T" && m_numbers.size() == 3 && !m_hasTime && m_separators.isEmpty() &&
               IsDigit(Peek());
    }

    bool TakeHalf(bool afternoon)
    {
        if (!m_hasTime || m_hasHalf || (m_hour > 12 && !afternoon))
            return false;
        m_hasHalf = true;
        if (afternoon && m_hour < 12)
            m_hour += 12;
        else if (!afternoon && m_hour == 12)
            m_hour = 0;
        return true;
    }

    [[nodiscard]] std::optional<QDate> NumericMonth(const QDate& today) const
    {
        if (m_numbers.size() == 3) {
            const Number& first = m_numbers[0];
            if (first.IsYear())
                return MonthFirst(FullYear(first), m_numbers[1].value, m_numbers[2].value);
            return ThreeNumbers(first, m_numbers[1], m_numbers[2]);
        }
        if (m_numbers.size() != 2)
            return std::nullopt;
        const Number& first = m_numbers[0];
        const Number& second = m_numbers[1];
        if (first.IsYear())
            return ValidDate(FullYear(first), second.value, 1);
        if (second.IsYear())
            return ValidDate(FullYear(second), first.value, 1);
        if (const auto date = MonthFirst(today.year(), first.value, second.value))
            return date;
        // No day of a month: February has no 30th, so "2/30" is of 1930.
        if (const auto date = ValidDate(FullYear(second), first.value, 1))
            return date;
        return ValidDate(FullYear(first), second.value, 1);
    }

    [[nodiscard]] std::optional<QDate> NamedMonth(const QDate& today) const
    {
        if (m_numbers.size() == 1) {
            const Number& only = m_numbers[0];
            if (only.IsYear())
                return ValidDate(FullYear(only), m_month, 1);
            const auto day = ValidDate(today.year(), m_month, only.value);
            return day ? day : ValidDate(FullYear(only), m_month, 1);
        }
        if (m_numbers.size() != 2)
            return std::nullopt;
        const bool yearFirst = m_numbers[0].IsYear();
        const Number& year = m_numbers[yearFirst ? 0 : 1];
        const Number& day = m_numbers[yearFirst ? 1 : 0];
        return ValidDate(FullYear(year), m_month, day.value);
    }

    [[nodiscard]] std::optional<QDateTime> Timed(const QDate& date) const
    {
        return QDateTime(date, QTime(m_hour, m_minute, m_second), Qt::UTC);
    }
};

QString Padded(int value, qsizetype width)
{
    return QString::number(value).rightJustified(width, u'0');
}

/// The pictures that have a name.
QString NamedPicture(const QString& picture)
{
    struct Row
    {
        const char16_t* name;
        const char16_t* picture;
    };
    static constexpr Row kRows[] = {
        {u"Short Date", u"m/d/yyyy"}, {u"Medium Date", u"dd-mmm-yy"},   {u"Long Date", u"dddd, mmmm d, yyyy"},
        {u"Short Time", u"hh:nn"},    {u"Long Time", u"h:nn:ss AM/PM"}, {u"Medium Time", u"hh:nn AM/PM"},
    };
    for (const Row& row : kRows) {
        if (picture.compare(QStringView(row.name), Qt::CaseInsensitive) == 0)
            return QString::fromUtf16(row.picture);
    }
    return picture;
}

} // namespace

QDate SerialEpoch()
{
    return QDate(1899, 12, 30);
}

qint64 DateSerial(const QDate& date)
{
    return SerialEpoch().daysTo(date);
}

QDate FromSerial(double serial)
{
    return SerialEpoch().addDays(qint64(std::trunc(serial)));
}

std::optional<QDateTime> ReadDate(const QString& text, const QDate& today)
{
    return DateReader(text).Read(today);
}

QString Format(const QDateTime& value, const QString& givenPicture)
{
    const QString picture = NamedPicture(givenPicture);
    const QDate date = value.date();
    const QTime time = value.time();
    const bool twelveHours = picture.contains(u"AM/PM"_s, Qt::CaseInsensitive);
    const int hour = twelveHours ? (time.hour() + 11) % 12 + 1 : time.hour();

    QString out;
    bool afterHour = false;
    for (qsizetype at = 0; at < picture.size();) {
        const QChar c = picture[at];
        if (c == u'"') {
            for (++at; at < picture.size() && picture[at] != u'"'; ++at)
                out.append(picture[at]);
            ++at;
            continue;
        }
        if (c == u'\\') {
            if (++at < picture.size())
                out.append(picture[at++]);
            continue;
        }
        if (QStringView(picture).mid(at, 5).compare(u"AM/PM", Qt::CaseInsensitive) == 0) {
            const QString half = time.hour() < 12 ? u"AM"_s : u"PM"_s;
            out.append(c.isLower() ? half.toLower() : half);
            at += 5;
            continue;
        }
        const QChar kind = c.toLower();
        qsizetype run = 1;
        while (at + run < picture.size() && picture[at + run].toLower() == kind)
            ++run;
        const auto taken = [&](qsizetype most) { return run < most ? run : most; };
        qsizetype used = 1;
        switch (kind.unicode()) {
        case u'd':
            used = taken(4);
            if (used <= 2)
                out.append(Padded(date.day(), used));
            else
                out.append(QString::fromUtf16(kWeekdays[std::size_t(date.dayOfWeek() - 1)])
                               .left(used == 3 ? 3 : 99));
            break;
        case u'm':
            used = taken(afterHour ? 2 : 4);
            if (afterHour)
                out.append(Padded(time.minute(), used));
            else if (used <= 2)
                out.append(Padded(date.month(), used));
            else
                out.append(
                    QString::fromUtf16(kMonths[std::size_t(date.month() - 1)]).left(used == 3 ? 3 : 99));
            break;
        case u'y':
            used = run >= 4 ? 4 : run >= 2 ? 2 : 1;
            if (used == 1)
                out.append(c);
            else
                out.append(used == 2 ? Padded(date.year() % 100, 2) : Padded(date.year(), 4));
            break;
        case u'h':
            used = taken(2);
            out.append(Padded(hour, used));
            break;
        case u'n':
            used = taken(2);
            out.append(Padded(time.minute(), used));
            break;
        case u's':
            used = taken(2);
            out.append(Padded(time.second(), used));
            break;
        default:
            out.append(c);
            break;
        }
        if (kind == u'h')
            afterHour = true;
        else if (kind.isLetter())
            afterHour = false;
        at += used;
    }
    return out;
}

} // namespace vasclip::text
