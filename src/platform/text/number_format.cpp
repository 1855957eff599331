#include "platform/text/text.h"

#include <QList>

#include <cmath>

namespace vasclip::text {

namespace {

/// A number as its decimal digits: 0.d1d2d3... times ten to the power of `point`. Fifteen digits are all that
/// the rules see of a double, so 2.675 rounds as it reads and not as it is stored.
struct Decimal
{
    QByteArray digits;
    qsizetype point = 0;

    explicit Decimal(double magnitude)
    {
        if (magnitude == 0)
            return;
        const QByteArray text = QByteArray::number(magnitude, 'e', 14);
        const qsizetype exponentAt = text.indexOf('e');
        digits = text.left(1) + text.mid(2, exponentAt - 2);
        point = text.mid(exponentAt + 1).toInt() + 1;
        while (digits.endsWith('0'))
            digits.chop(1);
    }

    /// Keeps `decimals` digits behind the point; a half goes away from zero.
    void Round(qsizetype decimals)
    {
        const qsizetype keep = point + decimals;
        if (keep >= digits.size())
            return;
        const bool up = keep >= 0 && digits[keep] >= '5';
        digits.truncate(keep < 0 ? 0 : keep);
        if (up) {
            qsizetype at = digits.size() - 1;
            while (at >= 0 && digits[at] == '9')
                digits[at--] = '0';
            if (at >= 0) {
                ++digits[at];
            } else {
                digits.prepend('1');
                ++point;
            }
        }
        while (digits.endsWith('0'))
            digits.chop(1);
        if (digits.isEmpty())
            point = 0;
    }

    /// The digit that stands for ten to the power of `power`.
    [[nodiscard]] QChar DigitAt(qsizetype power) const
    {
        const qsizetype at = point - 1 - power;
        return at >= 0 && at < digits.size() ? QLatin1Char(digits[at]) : QLatin1Char('0');
    }

    [[nodiscard]] bool IsZero() const { return digits.isEmpty(); }
};

enum class Kind { Literal, Zero, Hash, Point, Percent };

struct Token
{
    Kind kind;
    QChar literal;
};

struct Section
{
    QList<Token> tokens;
    qsizetype integerPlaces = 0;
    qsizetype decimalPlaces = 0;
    qsizetype percents = 0;
    qsizetype thousands = 0; ///< commas directly ahead of the point, each divides by 1000
    bool grouped = false;
    bool hasPoint = false;
};

/// The picture's sections; a quoted or escaped ";" divides nothing.
QList<Section> ParsePicture(const QString& picture)
{
    QList<Section> sections(1);
    qsizetype pendingCommas = 0;
    const auto settleCommas = [&](bool digitFollows) {
        Section& section = sections.last();
        if (pendingCommas > 0) {
            if (digitFollows)
                section.grouped = true;
            else
                section.thousands += pendingCommas;
        }
        pendingCommas = 0;
    };
    for (qsizetype at = 0; at < picture.size(); ++at) {
        const QChar c = picture[at];
        Section& section = sections.last();
        if (c == u'"') {
            for (++at; at < picture.size() && picture[at] != u'"'; ++at)
                section.tokens.append({Kind::Literal, picture[at]});
        } else if (c == u'\\') {
            if (++at < picture.size())
                section.tokens.append({Kind::Literal, picture[at]});
        } else if (c == u';') {
            settleCommas(false);
            if (sections.size() == 3)
                break;
            sections.append(Section());
        } else if (c == u'0' || c == u'#') {
            settleCommas(true);
            section.tokens.append({c == u'0' ? Kind::Zero : Kind::Hash, c});
            ++(section.hasPoint ? section.decimalPlaces : section.integerPlaces);
        } else if (c == u'.' && !section.hasPoint) {
            settleCommas(false);
            section.hasPoint = true;
            section.tokens.append({Kind::Point, c});
        } else if (c == u',' && section.integerPlaces > 0 && !section.hasPoint) {
            ++pendingCommas;
        } else if (c == u'%') {
            ++section.percents;
            section.tokens.append({Kind::Percent, c});
        } else {
            section.tokens.append({Kind::Literal, c});
        }
    }
    settleCommas(false);
    return sections;
}

/// Writes the digits that belong to one place of the integer side: the first place takes all that has no
/// place.
void AppendInteger(QString& out, const Decimal& number, const Section& section, qsizetype place, bool forced)
{
    const qsizetype lowest = section.integerPlaces - 1 - place;
    const qsizetype highest = place == 0 ? qMax(lowest, number.point - 1) : lowest;
    for (qsizetype power = highest; power >= lowest; --power) {
        const bool significant = power < number.point;
        if (!significant && !forced)
            continue;
        out.append(number.DigitAt(power));
        if (section.grouped && power > 0 && power % 3 == 0)
            out.append(u',');
    }
}

QString Print(const Section& section, double magnitude, bool negative)
{
    Decimal number(magnitude);
    if (!number.IsZero())
        number.point += 2 * section.percents - 3 * section.thousands;
    number.Round(section.decimalPlaces);

    // A decimal place prints if it or a place behind it is a "0" or holds a digit.
    qsizetype lastDecimal = number.digits.size() - number.point;
    qsizetype decimal = 0;
    bool behindPoint = false;
    for (const Token& token : section.tokens) {
        behindPoint = behindPoint || token.kind == Kind::Point;
        if (behindPoint && (token.kind == Kind::Zero || token.kind == Kind::Hash)) {
            ++decimal;
            if (token.kind == Kind::Zero)
                lastDecimal = qMax(lastDecimal, decimal);
        }
    }

    QString out;
    qsizetype place = 0;
    bool forced = false;
    decimal = 0;
    behindPoint = false;
    for (const Token& token : section.tokens) {
        switch (token.kind) {
        case Kind::Literal:
        case Kind::Percent:
            out.append(token.literal);
            break;
        case Kind::Point:
            if (section.integerPlaces == 0 && number.point > 0) {
                for (qsizetype power = number.point - 1; power >= 0; --power)
                    out.append(number.DigitAt(power));
            }
            out.append(u'.');
            behindPoint = true;
            break;
        case Kind::Zero:
        case Kind::Hash:
            if (behindPoint) {
                if (++decimal <= lastDecimal)
                    out.append(number.DigitAt(-decimal));
            } else {
                forced = forced || token.kind == Kind::Zero;
                AppendInteger(out, number, section, place++, forced);
            }
            break;
        }
    }
    if (negative && !number.IsZero())
        out.prepend(u'-');
    return out;
}

} // namespace

QString Format(double value, const QString& picture)
{
    if (!std::isfinite(value))
        return QString::number(value);
    if (picture.isEmpty())
        return value < 0 ? Str(value) : LTrim(Str(value));

    const QList<Section> sections = ParsePicture(picture);
    const auto has = [&](qsizetype index) {
        return index < sections.size() && !sections[index].tokens.isEmpty();
    };
    if (value < 0 && has(1))
        return Print(sections[1], -value, false);
    if (value == 0 && has(2))
        return Print(sections[2], 0, false);
    return Print(sections[0], std::fabs(value), value < 0);
}

} // namespace vasclip::text
