#include "link/apprsl_type.h"

#include "platform/text/text.h"
#include "store/fields.h"
#include "store/store.h"

#include <algorithm>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

struct LetterRule
{
    QLatin1StringView groups; ///< words between blanks; "" is every group
    QLatin1StringView forms;  ///< likewise
    QLatin1StringView letter;
};

constexpr LetterRule kRules[] = {
    {" RENT "_L1, {}, "R"_L1},
    {" COMP SALE "_L1, " 71A 71B "_L1, "S"_L1},
    {" ALT "_L1, " 71A 71B "_L1, "F"_L1},
    {{}, " 71A 71B "_L1, "L"_L1},
    {{}, " CN2 ICU ICI "_L1, "C"_L1},
    {" COMP SALE "_L1, " FA4 "_L1, "S"_L1},
    {{}, " FA4 "_L1, "F"_L1},
    {" COMP SALE ALT "_L1, " SRI "_L1, "S"_L1},
    {{}, " SRI "_L1, "F"_L1},
    {" ALT "_L1, " LAR ALAR "_L1, "F"_L1},
    {{}, " LAR ALAR "_L1, "L"_L1},
    {{}, " MOB MH2 "_L1, "M"_L1},
    {{}, " MUL CIB CI2 "_L1, "S"_L1},
};

bool Names(QLatin1StringView words, const QString& word)
{
    return words.isEmpty() || words.contains(u' ' + word + u' ');
}

} // namespace

QString ApprslTypeLetter(const QString& group, const QString& formType)
{
    const QString word = text::Folded(group);
    const QString form = text::Folded(formType);
    const auto rule =
        std::find_if(std::begin(kRules), std::end(kRules), [&](const LetterRule& row) {
            return Names(row.groups, word) && Names(row.forms, form);
        });
    return rule == std::end(kRules) ? u"F"_s : QString(rule->letter);
}

void SetApprslType(store::DataSource& databook, const QString& group, const QString& formType)
{
    store::SetFieldData(databook, ApprslTypeLetter(group, formType), fields::APPRSLTYPE);
}

} // namespace vasclip::link
