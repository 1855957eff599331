#include "platform/street/shields.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

struct ShieldRule
{
    const char16_t* pattern; ///< of a whole name in upper case; its last group is the number
    const char16_t* prefix; ///< "" for the state's letters, "*" for the pattern's first group
};

/// The number, which may have a letter, and what may stand behind it.
#define NUMBER u"[ -]*(\\d{1,4}[A-Z]?)(?: (?:N|S|E|W|NORTH|SOUTH|EAST|WEST|BUS|BYP|ALT))?$"

constexpr ShieldRule kRules[] = {
    {u"^(?:I|INTERSTATE|INTERSTATE HIGHWAY)" NUMBER, u"I"},
    {u"^U\\.? ?S\\.?(?: HWY| HIGHWAY| RTE| ROUTE)?" NUMBER, u"US"},
    {u"^(?:STATE|ST)(?: HWY| HIGHWAY| RTE| ROUTE| RD| ROAD)" NUMBER, u""},
    {u"^(?:SR|SH)" NUMBER, u""},
    {u"^(A[LKZR]|C[AOT]|D[CE]|FL|GA|HI|I[DLNA]|K[SY]|LA|M[EDAINSOT]|N[EVHJMYCD]|O[HKR]|PA|RI|S[CD]|T[NX]|UT"
     u"|V[TA]|W[AVIY])(?: HWY| HIGHWAY| RTE| ROUTE)?" NUMBER,
     u"*"},
    {u"^(?:CO|COUNTY)(?: HWY| HIGHWAY| RTE| ROUTE| RD| ROAD)" NUMBER, u"CR"},
    {u"^CR" NUMBER, u"CR"},
};

#undef NUMBER

} // namespace

QString ShieldOf(const QStringList& names, const QString& state)
{
    static const std::vector<QRegularExpression> patterns = [] {
        std::vector<QRegularExpression> made;
        for (const ShieldRule& rule : kRules)
            made.emplace_back(QString::fromUtf16(rule.pattern));
        return made;
    }();
    const auto hasDigit = [](const QString& text) {
        return std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.isDigit(); });
    };
    for (const QString& several : names) {
        // Most names have no figure in them, and none of those is a numbered road.
        if (!hasDigit(several))
            continue;
        for (const QString& one : several.split(u';')) {
            const QString name = one.simplified().toUpper();
            if (!hasDigit(name))
                continue;
            for (std::size_t at = 0; at < patterns.size(); ++at) {
                const QRegularExpressionMatch match = patterns[at].match(name);
                if (!match.hasMatch())
                    continue;
                QString prefix = QString::fromUtf16(kRules[at].prefix);
                if (prefix == u"*"_s)
                    prefix = match.captured(1);
                else if (prefix.isEmpty())
                    prefix = state.isEmpty() ? u"SR"_s : state;
                return prefix + u' ' + match.captured(match.lastCapturedIndex());
            }
        }
    }
    return {};
}

} // namespace vasclip::street
