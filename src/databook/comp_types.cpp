#include "databook/comp_types.h"

#include <array>

namespace vasclip::databook {

using Text = QLatin1StringView;

namespace {

constexpr std::array kTypes = {
    CompType{'F', Text("F=Single Family"), Text("F=Single Family"), Text("frm_CompMnt1")},
    CompType{'C', Text("C=Condo"), Text("C=Condo"), Text("frm_CompMntC")},
    CompType{'S', Text("S=1-4 Unit Sale"), Text("S=1-4 Unit Sale"), Text("frm_CompMntS")},
    CompType{'R', Text("R=1-4 Unit Rental"), Text("R=1-4 Unit Rental"), Text("frm_CompMntR")},
    CompType{'L', Text("L=Land"), Text("L=Land"), Text("frm_CompMntL")},
    CompType{'M', Text("M=Manufactured Housing"), Text("M=Mobile Home"), Text("frm_CompMntM")},
};

} // namespace

std::span<const CompType> CompTypes()
{
    return kTypes;
}

QChar CompTypeLetter(const QString& text)
{
    if (text.isEmpty())
        return {};
    const QChar letter = text.at(0).toUpper();
    if (letter == QLatin1Char(' '))
        return letter;
    for (const CompType& type : kTypes)
        if (letter == QLatin1Char(type.letter))
            return letter;
    return {};
}

QLatin1StringView EntryFormOf(const QString& apprslType)
{
    const QChar letter = CompTypeLetter(apprslType);
    for (const CompType& type : kTypes)
        if (letter == QLatin1Char(type.letter))
            return type.entryForm;
    return kTypes.front().entryForm;
}

} // namespace vasclip::databook
