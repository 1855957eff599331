#include "app/vasctl/json_value.h"

#include "platform/text/text.h"
#include "store/schema.h"

#include <QDate>
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

} // namespace vasclip::vasctl
