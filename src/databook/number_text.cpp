#include "databook/number_text.h"

#include "databook/messages.h"
#include "store/fields.h"

#include <QRegularExpression>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto kPrice = fields::SELLINGPR;
constexpr auto kArea = fields::GLA;

} // namespace

bool WantsNumber(const QString& field)
{
    return field == kPrice || field == kArea;
}

std::optional<QString> PlainNumber(const QString& text, const QString& field)
{
    static const QRegularExpression kUnit(u"\\s*(sf|sq\\.?\\s*ft\\.?|sq\\.?\\s*feet|square\\s*feet)$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression kNumber(u"^(-?)\\s*\\$?\\s*([0-9]*|[0-9]{1,3}(?:,[0-9]{3})+)(?:\\.([0-9]*))?$"_s);
    QString typed = text.trimmed();
    if (typed.isEmpty())
        return QString(u""_s);
    if (field != kPrice)
        typed.remove(kUnit);
    const QRegularExpressionMatch parts = kNumber.match(typed);
    const QString whole = parts.captured(2).remove(u',');
    const QString decimals = parts.captured(3);
    if (!parts.hasMatch() || (whole.isEmpty() && decimals.isEmpty()) || (field == kPrice && decimals.size() > 2))
        return std::nullopt;
    return parts.captured(1) + whole + (decimals.isEmpty() ? QString() : u'.' + decimals);
}

QString NoNumberText(const QString& text, const QString& field)
{
    return (field == kPrice ? kNoPrice : kNoArea).arg(text);
}

} // namespace vasclip::databook
