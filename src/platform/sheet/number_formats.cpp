#include "platform/sheet/number_formats.h"

#include <QRegularExpression>

#include <algorithm>

namespace vasclip::sheet {

using namespace Qt::StringLiterals;

namespace {

/// "[h]:mm" is a span, which no day nor time of day is.
bool IsSpan(const QString& code)
{
    static const QRegularExpression kSpan(u"\\[(h+|m+|s+)\\]"_s, QRegularExpression::CaseInsensitiveOption);
    return kSpan.match(code).hasMatch();
}

/// The first section without what is printed as it stands: quoted texts, escaped letters, colours and conditions.
QString BareCode(const QString& code)
{
    QString bare;
    for (qsizetype i = 0; i < code.size() && code[i] != u';'; ++i) {
        if (code[i] == u'"') {
            i = code.indexOf(u'"', i + 1);
            if (i < 0)
                break;
        } else if (code[i] == u'\\' || code[i] == u'_' || code[i] == u'*') {
            ++i;
        } else if (code[i] == u'[') {
            const qsizetype end = code.indexOf(u']', i);
            if (end < 0)
                break;
            i = end;
        } else {
            bare += code[i].toLower();
        }
    }
    return bare;
}

} // namespace

Shown ShownByNumber(int format)
{
    if ((format >= 14 && format <= 17) || format == 22 || (format >= 27 && format <= 31) || format == 36 ||
        (format >= 50 && format <= 54) || (format >= 57 && format <= 58))
        return Shown::Date;
    return (format >= 18 && format <= 21) || (format >= 32 && format <= 35) ? Shown::Time : Shown::Number;
}

Shown ShownBy(const QString& code)
{
    const QString bare = BareCode(code);
    if (bare.contains("general"_L1) || IsSpan(code))
        return Shown::Number;
    const bool hours = bare.contains(u'h') || bare.contains(u's');
    if (bare.contains(u'y') || bare.contains(u'd') || (bare.contains(u'm') && !hours))
        return Shown::Date;
    return hours ? Shown::Time : Shown::Number;
}

int LeadingZeros(const QString& code)
{
    const bool zeros = std::all_of(code.cbegin(), code.cend(), [](QChar letter) { return letter == u'0'; });
    return zeros && code.size() > 1 && code.size() <= 15 ? static_cast<int>(code.size()) : 0;
}

} // namespace vasclip::sheet
