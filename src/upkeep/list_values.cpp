#include "upkeep/list_values.h"

#include "common/dates.h"
#include "databook/comp_fields.h"
#include "databook/number_text.h"
#include "databook/records.h"
#include "platform/text/counted.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/schema.h"

#include <QRegularExpression>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPlaces = 6; ///< of a degree: a hand's breadth
const QString kNoDate = u"\"%1\" is no date"_s;
const QString kNoDateIn = u"\"%1\" is no date with the %2 first"_s;
const QString kNoPlace = u"\"%1\" is no latitude or longitude"_s;
const QString kTorn = u"it has %1 where the headings are %2: a value that holds the delimiter lacks its quotes"_s;
const text::Counted kValues{u"value"_s, u"values"_s};

QString WordOf(DateOrder order)
{
    return order == DateOrder::MonthFirst ? u"month"_s : order == DateOrder::DayFirst ? u"day"_s : u"year"_s;
}

bool IsPlaceField(const QString& field)
{
    return field == fields::LATITUDE || field == fields::LONGITUDE;
}

/// Degrees in as many digits as the field takes.
QString Degrees(double degrees)
{
    QString text = QString::number(degrees, 'f', kPlaces);
    while (text.endsWith(u'0'))
        text.chop(1);
    return text.endsWith(u'.') ? text.chopped(1) : text;
}

} // namespace

bool IsDateField(const QString& field)
{
    return field == fields::SALEDATE || field == fields::LOADDATE || field == fields::LEASEDATE;
}

bool IsNumberField(const QString& field)
{
    return databook::WantsNumber(field) || IsPlaceField(field);
}

DateReading ReadDate(const QString& written, DateOrder order)
{
    static const QRegularExpression kParts(
        u"^\\s*([0-9]{1,4})\\s*([-./])\\s*([0-9]{1,2})\\s*\\2\\s*([0-9]{1,4})\\.?(?:[ T]\\s*[0-9]{1,2}:.*)?\\s*$"_s);
    const QRegularExpressionMatch match = kParts.match(written);
    if (!match.hasMatch())
        return {};
    const QString first = match.captured(1);
    const QString second = match.captured(3);
    const QString third = match.captured(4);
    const bool yearFirst = first.size() > 2;
    if (!yearFirst && order == DateOrder::YearFirst && third.size() > 2)
        return {DateReading::Kind::Impossible};
    const bool dayFirst = !yearFirst && order == DateOrder::DayFirst;
    const bool ends = !yearFirst && order != DateOrder::YearFirst; // with the year
    const QString year = ends ? third : first;
    const QString month = ends && !dayFirst ? first : second;
    const QString day = dayFirst ? first : ends ? second : third;
    const int whole = year.toInt() < 100 ? 2000 + year.toInt() : year.toInt(); // 2000 has a leap day, as each fourth has
    if (!QDate(whole, month.toInt(), day.toInt()).isValid())
        return {DateReading::Kind::Impossible};
    return {DateReading::Kind::Read, u"%1/%2/%3"_s.arg(month.toInt()).arg(day.toInt()).arg(year)};
}

QString WithPoint(const QString& written, QChar decimal)
{
    if (decimal == u'.')
        return written;
    static const QRegularExpression kNumber(
        u"^(-?)\\s*\\$?\\s*([0-9]{1,3}(?:([. '\\x{00A0}\\x{202F}])[0-9]{3}(?:\\3[0-9]{3})*)?|[0-9]*)(?:,([0-9]*))?(\\D*)$"_s);
    const QRegularExpressionMatch match = kNumber.match(written.trimmed());
    if (!match.hasMatch())
        return {};
    QString whole = match.captured(2);
    whole.removeIf([](QChar letter) { return !letter.isDigit(); });
    const QString tail = match.captured(4).isEmpty() ? QString() : u'.' + match.captured(4);
    return match.captured(1) + whole + tail + QString(match.captured(5)).remove(u'$');
}

LineMaker::LineMaker(const ListLook& look, bool text, QDate today)
    : m_look(look)
    , m_text(text)
    , m_today(today)
    , m_keySize(store::FindCompsColumn(fields::CENTRALKEY)->size)
{}

/// @return why the value can't be stored, "" if it can
QString LineMaker::Store(const ListCell& cell, const QString& field, QString& value) const
{
    value = text::Trim(cell.text);
    if (!cell.fault.isEmpty())
        return cell.fault;
    if (value.isEmpty())
        return {};
    if (IsDateField(field)) {
        const DateReading read = ReadDate(value, m_look.dates);
        if (read.kind == DateReading::Kind::Impossible)
            return kNoDateIn.arg(value, WordOf(m_look.dates));
        const QString date = read.kind == DateReading::Kind::Read ? read.text : value;
        if (!common::IsDate(date, m_today))
            return kNoDate.arg(value);
        value = common::FixDate(date, m_today);
    } else if (IsNumberField(field)) {
        const QString pointed = cell.exact ? value : WithPoint(value, m_look.decimal);
        if (IsPlaceField(field)) {
            bool good = false;
            const double degrees = pointed.toDouble(&good);
            if (!good)
                return kNoPlace.arg(value);
            value = Degrees(degrees);
            return {};
        }
        const auto plain = pointed.isEmpty() ? std::nullopt : databook::PlainNumber(pointed, field);
        if (!plain)
            return databook::NoNumberText(value, field);
        value = *plain;
    }
    return {};
}

ReadLine LineMaker::Make(const ListLine& line) const
{
    ReadLine made;
    for (qsizetype i = 0; i < std::min(line.cells.size(), m_look.columns.size()); ++i) {
        const ListColumn& column = m_look.columns.at(i);
        if (column.field.isEmpty())
            continue;
        const QString why = Store(line.cells.at(i), column.field, made.values[column.field]);
        if (made.fault.isEmpty() && !why.isEmpty())
            made.fault = column.heading + u": "_s + why;
    }
    const QString given = text::Trim(made.values.value(fields::CENTRALKEY));
    const QString key = databook::KeyOf(given.isEmpty() ? made.values.value(fields::ADDRESS) : given);
    made.values.insert(fields::CENTRALKEY, key.isEmpty() ? key : key.leftJustified(m_keySize));
    if (m_text && made.fault.isEmpty())
        for (qsizetype i = m_look.columns.size(); i < line.cells.size(); ++i)
            if (!text::Trim(line.cells.at(i).text).isEmpty())
                made.fault = kTorn.arg(kValues(line.cells.size())).arg(m_look.columns.size());
    if (!made.fault.isEmpty())
        return made;
    const auto twin = [&](const QString& date, const QString& serial) {
        if (const QString written = made.values.value(date); !written.isEmpty())
            made.values.insert(serial, databook::SerialText(written, m_today));
    };
    twin(fields::SALEDATE, fields::SALESERIAL);
    twin(fields::LOADDATE, fields::LOADSERIAL);
    return made;
}

} // namespace vasclip::upkeep
