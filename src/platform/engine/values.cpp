#include "platform/engine/values.h"

#include "platform/engine/collation.h"
#include "platform/engine/errors.h"
#include "platform/engine/long_source.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <cmath>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kDayMilliseconds = 86'400'000;

[[noreturn]] void ThrowConversion(const Field& field, const QVariant& value)
{
    throw RuntimeError(error::kConversion,
                       u"The value '%1' can not be stored in the field '%2', which holds %3"_s.arg(
                           value.toString().left(60), field.name, TypeName(field.type).toLower()));
}

double NumberFrom(const Field& field, const QVariant& value)
{
    if (value.typeId() == QMetaType::QString) {
        bool isNumber = false;
        const double number = value.toString().toDouble(&isNumber);
        if (!isNumber)
            ThrowConversion(field, value);
        return number;
    }
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? -1 : 0;
    if (value.typeId() == QMetaType::QDateTime || value.typeId() == QMetaType::QDate)
        return ToSerial(value.toDateTime());
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber)
        ThrowConversion(field, value);
    return number;
}

QVariant WholeNumber(const Field& field, const QVariant& value, double low, double high)
{
    const double number = std::nearbyint(NumberFrom(field, value));
    if (!(number >= low && number <= high))
        throw RuntimeError(error::kOverflow, u"The number %1 is too large for the field '%2'"_s.arg(
                                                 value.toString().left(60), field.name));
    return QVariant::fromValue(static_cast<qlonglong>(number));
}

QString TextFrom(const Field& field, const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString();
    case QMetaType::Bool:
        return value.toBool() ? u"-1"_s : u"0"_s;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return DateToText(value.toDateTime());
    case QMetaType::Double:
    case QMetaType::Float:
        return text::Trim(text::Str(value.toDouble()));
    case QMetaType::QByteArray:
        return QString::fromUtf8(value.toByteArray());
    default:
        if (!value.canConvert<QString>())
            ThrowConversion(field, value);
        return value.toString();
    }
}

} // namespace

double ToSerial(const QDateTime& value)
{
    return static_cast<double>(text::DateSerial(value.date())) +
           static_cast<double>(value.time().msecsSinceStartOfDay()) / static_cast<double>(kDayMilliseconds);
}

QDateTime FromSerial(double serial)
{
    if (!(std::abs(serial) < 4e6))
        return {};
    const double day = std::floor(serial);
    auto milliseconds =
        static_cast<qint64>(std::nearbyint((serial - day) * static_cast<double>(kDayMilliseconds)));
    qint64 extraDay = 0;
    if (milliseconds >= kDayMilliseconds) {
        milliseconds = 0;
        extraDay = 1;
    }
    return {text::SerialEpoch().addDays(static_cast<qint64>(day) + extraDay),
            QTime::fromMSecsSinceStartOfDay(static_cast<int>(milliseconds))};
}

QString DateToText(const QDateTime& value)
{
    const bool midnight = value.time().msecsSinceStartOfDay() == 0;
    return text::Format(value, midnight ? u"m/d/yyyy"_s : u"m/d/yyyy h:nn:ss AM/PM"_s);
}

QVariant FitToField(const Field& field, const QVariant& value, const text::TimeSource& time)
{
    if (!value.isValid() || value.isNull())
        return {};
    switch (field.type) {
    case FieldType::Text:
    case FieldType::Memo: {
        QString text = TextFrom(field, value);
        if (field.type == FieldType::Text && text.size() > field.size)
            throw RuntimeError(
                error::kFieldTooLong,
                u"The text '%1' has %2 characters, but the field '%3' holds at most %4"_s.arg(
                    text.left(60), QString::number(text.size()), field.name, QString::number(field.size)));
        if (text.isEmpty() && !field.allowZeroLength)
            throw RuntimeError(error::kZeroLength,
                               u"The field '%1' must not be an empty text"_s.arg(field.name));
        // An empty text that is not Null: QVariant tells them apart by isNull of the string.
        return text.isNull() ? QVariant(QString(u""_s)) : QVariant(std::move(text));
    }
    case FieldType::Boolean:
        return NumberFrom(field, value) != 0;
    case FieldType::Byte:
        return WholeNumber(field, value, 0, 255);
    case FieldType::Integer:
        return WholeNumber(field, value, -32768, 32767);
    case FieldType::Long:
        return WholeNumber(field, value, -2147483648.0, 2147483647.0);
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
        return NumberFrom(field, value);
    case FieldType::Date:
        if (value.typeId() == QMetaType::QDateTime || value.typeId() == QMetaType::QDate)
            return value.toDateTime();
        if (value.typeId() == QMetaType::QString) {
            const auto date = text::ReadDate(value.toString(), time.Today());
            if (!date)
                ThrowConversion(field, value);
            return *date;
        }
        return FromSerial(NumberFrom(field, value));
    case FieldType::Binary:
    case FieldType::LongBinary: {
        if (field.type == FieldType::LongBinary && LongSourceOf(value) != nullptr)
            return value;
        if (value.typeId() == QMetaType::QString)
            return value.toString().toUtf8();
        if (value.typeId() != QMetaType::QByteArray)
            ThrowConversion(field, value);
        const QByteArray bytes = value.toByteArray();
        if (field.type == FieldType::Binary && field.size > 0 && bytes.size() > field.size)
            throw RuntimeError(error::kFieldTooLong,
                               u"%1 bytes do not fit into the field '%2', which holds at most %3"_s.arg(
                                   QString::number(bytes.size()), field.name, QString::number(field.size)));
        return bytes;
    }
    }
    ThrowConversion(field, value);
}

void ThrowTooLong(const QString& field, int size)
{
    throw RuntimeError(
        error::kFieldTooLong,
        u"A text is too long for the field '%1', which holds at most %2 characters. Nothing was stored"_s.arg(
            field, QString::number(size)));
}

void ThrowNeeded(const QString& field)
{
    throw RuntimeError(error::kValueRequired,
                       u"The field '%1' needs a value. Nothing was stored"_s.arg(field));
}

void ThrowOpenSet()
{
    throw RuntimeError(error::kSyntax,
                       u"The statement cannot be carried out: %1"_s.arg(QLatin1StringView(kOpenSetWords)));
}

QString TypeName(FieldType type)
{
    switch (type) {
    case FieldType::Boolean:
        return u"Yes/No"_s;
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
        return u"Whole numbers"_s;
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
        return u"Numbers"_s;
    case FieldType::Date:
        return u"Dates"_s;
    case FieldType::Binary:
    case FieldType::LongBinary:
        return u"Binary data"_s;
    case FieldType::Text:
    case FieldType::Memo:
        break;
    }
    return u"Text"_s;
}

} // namespace vasclip::engine
