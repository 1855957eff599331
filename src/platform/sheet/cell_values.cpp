#include "platform/sheet/cell_values.h"

#include <QDate>
#include <QTime>

#include <cmath>

namespace vasclip::sheet {

using namespace Qt::StringLiterals;

namespace {

constexpr double kLastDay = 2958466; ///< the one behind 12/31/9999, from 1900
constexpr int kSecondsOfDay = 86400;
constexpr int kDigits = 15; ///< that spreadsheets keep
const QString kNoNumber = u"\"%1\" stands for a number and is none"_s;
const QString kNoDay = u"%1 is shown as a date and is none"_s;

QString TimeOf(int seconds)
{
    const QTime time = QTime(0, 0).addSecs(seconds);
    return time.toString(time.second() == 0 ? u"hh:mm"_s : u"hh:mm:ss"_s);
}

QString Plain(double number)
{
    const QString short15 = QString::number(number, 'g', kDigits);
    return short15.contains(u'e') && std::abs(number) < 1e15
               ? QString::number(short15.toDouble(), 'f', std::abs(number) < 1 ? 15 : 0)
               : short15;
}

} // namespace

QString DateOfDays(double days, DaySystem system)
{
    const double shift = system == DaySystem::From1904 ? 1462 : 0;
    if (!(days >= 0) || days + shift >= kLastDay)
        return {};
    auto whole = static_cast<qint64>(std::floor(days));
    auto seconds = static_cast<int>(std::lround((days - std::floor(days)) * kSecondsOfDay));
    if (seconds == kSecondsOfDay) {
        ++whole;
        seconds = 0;
    }
    QDate date;
    if (system == DaySystem::From1904)
        date = QDate(1904, 1, 1).addDays(whole);
    else if (whole >= 1 && whole != 60)
        date = QDate(1899, 12, whole < 60 ? 31 : 30).addDays(whole);
    if (!date.isValid() || date.year() > 9999)
        return {};
    return date.toString(Qt::ISODate) + (seconds == 0 ? QString() : u' ' + TimeOf(seconds));
}

Cell NumberCell(const QString& written, const NumberStyle& style, DaySystem days)
{
    bool good = false;
    const double number = written.trimmed().toDouble(&good);
    if (!good || !std::isfinite(number))
        return {Cell::Kind::Error, kNoNumber.arg(written.left(40))};
    if (style.shown == Shown::Time && number >= 0 && number < 1)
        return {Cell::Kind::Value, TimeOf(static_cast<int>(std::lround(number * kSecondsOfDay)) % kSecondsOfDay)};
    if (style.shown != Shown::Number) {
        const QString date = DateOfDays(number, days);
        return date.isEmpty() ? Cell{Cell::Kind::Error, kNoDay.arg(Plain(number))} : Cell{Cell::Kind::Value, date};
    }
    const QString plain = Plain(number);
    return {Cell::Kind::Value, number >= 0 && !plain.contains(u'.') ? plain.rightJustified(style.zeros, u'0') : plain};
}

} // namespace vasclip::sheet
