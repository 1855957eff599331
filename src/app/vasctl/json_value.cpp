#include "app/vasctl/json_value.h"

#include "platform/text/text.h"
#include "store/schema.h"

#include <QDateTime>
#include <QJsonObject>
#include <QRegularExpression>

#include <cmath>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

QJsonValue Number(const QString& text)
{
    static const QRegularExpression kPlain(u"^[+-]?(\\d+\\.?\\d*|\\.\\d+)(e[+-]?\\d+)?$"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    const double number = text.toDouble();
    return kPlain.match(text).hasMatch() && std::isfinite(number) ? QJsonValue(number) : QJsonValue(text);
}

QJsonValue Date(const QString& text)
{
    static const QRegularExpression kWhole(u"^(\\d{1,2})/(\\d{1,2})/(\\d{4})$"_s);
    const auto parts = kWhole.match(text);
    const QDate day(parts.captured(3).toInt(), parts.captured(1).toInt(), parts.captured(2).toInt());
    return parts.hasMatch() && day.isValid() ? day.toString(Qt::ISODate) : text;
}

} // namespace

Kind KindOf(const QString& column)
{
    const store::CompsColumn* known = store::FindCompsColumn(column);
    if (known == nullptr)
        return Kind::Text;
    switch (known->sorts) {
    case engine::SortsAs::Number:
        return Kind::Number;
    case engine::SortsAs::Date:
        return Kind::Date;
    case engine::SortsAs::Text:
        break;
    }
    return Kind::Text;
}

QJsonValue AsJson(Kind kind, const QString& text)
{
    if (kind == Kind::Text)
        return text;
    const QString plain = text::Trim(text);
    if (plain.isEmpty())
        return QJsonValue::Null;
    return kind == Kind::Number ? Number(plain) : Date(plain);
}

QJsonValue AsJson(const engine::Field& field, const QVariant& value, const QString& text, Kind kind)
{
    if (!value.isValid())
        return QJsonValue::Null;
    switch (field.type) {
    case engine::FieldType::Boolean:
        return value.toBool();
    case engine::FieldType::Date: {
        const QDateTime date = value.toDateTime();
        return date.time() == QTime(0, 0) ? date.date().toString(Qt::ISODate) : date.toString(u"yyyy-MM-ddTHH:mm:ss"_s);
    }
    case engine::FieldType::Binary:
    case engine::FieldType::LongBinary:
        return QJsonObject{{u"bytes"_s, value.toByteArray().size()}};
    case engine::FieldType::Text:
    case engine::FieldType::Memo:
        return AsJson(kind, text);
    default:
        return AsJson(Kind::Number, text);
    }
}

} // namespace vasclip::vasctl
