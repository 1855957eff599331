#include "common/addresses.h"

#include "common/text_filters.h"
#include "platform/text/text.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {

namespace {

constexpr auto kStates =
    "AL,AK,AZ,AR,CA,CO,CT,DE,DC,FL,GA,HI,ID,IL,IN,IA,KS,KY,LA,MD,MA,MI,MN,MS,MO,MT,NC,NE,NH,NJ,NM,NY,NC,ND,OH,OK,OR,PA,RI,SC,SD,TN,TX,UT,VT,VA,WA,WV,WI,WY,"_L1;

QString WithoutDots(const QString& text)
{
    return text::Trim(ReplaceChar(text, u"."_s, QString()));
}

} // namespace

CityStateZip ParseCityStateZip(const QString& text)
{
    CityStateZip parts;
    const qsizetype comma = text.indexOf(u',');
    if (comma < 0)
        return parts;
    parts.city = text::Trim(text.left(comma));
    const QString rest = text::Trim(text.mid(comma + 1));
    qsizetype split = rest.indexOf(u',');
    if (split < 0)
        split = rest.indexOf(u' ');
    if (split >= 0) {
        parts.state = WithoutDots(rest.left(split));
        parts.zip = NormalizeZip(text::Trim(rest.mid(split + 1)));
    } else {
        const QString single = WithoutDots(rest);
        if (single.size() == 2)
            parts.state = single;
        else if (single.size() == 5 || single.contains(u'-'))
            parts.zip = single;
    }
    if (!IsValidStateCode(parts.state))
        parts.state.clear();
    return parts;
}

QString CityStateZipLine(const CityStateZip& parts)
{
    const QString city = text::Trim(parts.city);
    const QString rest = text::Trim(text::Trim(parts.state) + u' ' + text::Trim(parts.zip));
    return city.isEmpty() || rest.isEmpty() ? city + rest : city + u", "_s + rest;
}

bool IsCityLine(const CityStateZip& line)
{
    const bool zip = !line.zip.isEmpty() && line.zip.front().isDigit();
    return !line.city.isEmpty() && (!line.state.isEmpty() || zip);
}

bool IsValidStateCode(const QString& code)
{
    return code.size() == 2 && kStates.contains(code + u',');
}

QString NormalizeZip(const QString& zip)
{
    if (zip.size() < 5)
        return {};
    constexpr double kBeyond = 100'000; // "1E300" is a number too
    const double number = text::Val(zip.left(5));
    if (number >= kBeyond || number <= -kBeyond)
        return {};
    const QString digits = text::Dec(static_cast<qint64>(number));
    return digits == "0"_L1 ? QString() : digits.rightJustified(5, u'0');
}

} // namespace vasclip::common
