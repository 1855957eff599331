#include "link/form_table.h"

#include "common/globals.h"
#include "link/slot_table.h"
#include "platform/text/text.h"

#include <algorithm>
#include <array>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

// Room is kept for forms to come; only the codes are looked at.
constexpr std::array<QLatin1StringView, 101> kForms{{
    "2006=Land Appraisal Summary"_L1,
    "2045=Appraisal Summary (FNMA 2045)"_L1,
    "2055=Desktop Underwriter Qualitative Analysis (FNMA 2065  09/96)"_L1,
    "2065=Desktop Underwriter Qualitative Analysis (FNMA 2065  09/96)"_L1,
    "2075=Desktop Underwriter Property Inspection (FNMA 2075)"_L1,
    "2095=Cooperative Interest Exterior Inspection (FNMA 2095)"_L1,
    "704=Second Mortgage Property Value Analysis (FHLMC 704  01/86)"_L1,
    "704SUMRY=Second Mortgage Property Value Summary"_L1,
    "71A=Small Income Property, 5 and More Units (FHLMC 71A)"_L1,
    "71B=Small Income Property, Summary (FHLMC 71B)"_L1,
    "79=Operating Statement"_L1,
    "AUC3=Appraisal Update and/or Completion Report (FHLMC 442 / FNMA 1004D 03/05)"_L1,
    "ADR=Appraisal Desk Review"_L1,
    "ALAR=Agricultural Land Appraisal Report"_L1,
    "ANVL=Automated Value Check"_L1,
    "BAT=Lender Limited Appraisal"_L1,
    "BA2=Lender Limited Appraisal, Second Edition"_L1,
    "BMA=Lender Market Analysis"_L1,
    "BPO=Broker's Price Opinion"_L1,
    "CI2=Condominium 2-4 Unit Income Report"_L1,
    "CIA=Commercial and Industrial Appraisal"_L1,
    "CIB=Commercial and Industrial Brief"_L1,
    "CMR=Comparative Market Report"_L1,
    "CN2=Condominium Unit Report, Second Edition"_L1,
    "DAWI=Drive-by Appraisal without Interior"_L1,
    "DT2=Desktop Appraisal, Second Edition"_L1,
    "DT3=Desktop Appraisal, Third Edition"_L1,
    "DU2=Desktop Underwriter Report, Second Edition"_L1,
    "DUQ=Desktop Underwriter Quantitative Analysis"_L1,
    "DVA=Drive-by Value Analysis"_L1,
    "ECI=Exterior Condominium Inspection"_L1,
    "ECU=Exterior Condominium Unit Report"_L1,
    "EOI=Exterior Only Inspection"_L1,
    "ER5=ERC Summary Appraisal, Fifth Edition"_L1,
    "ER3=ERC Summary Appraisal, Third Edition"_L1,
    "ER4=ERC Summary Appraisal, Fourth Edition"_L1,
    "ERS=Old ERC Summary Appraisal (ERC Rev. 01/01)"_L1,
    "EVAL=Evaluation Report"_L1,
    "FA4=Farm Appraisal, Fourth Edition"_L1,
    "FR2=Field Review, Second Edition"_L1,
    "FR3=Field Review, Third Edition"_L1,
    "FR4=Field Review, Fourth Edition"_L1,
    "FRA=Field Review, Income Property"_L1,
    "FRR=Field Review, Residential"_L1,
    "FSE=Foreclosure and Sale Evaluation"_L1,
    "ICI=Individual Condominium Income Report"_L1,
    "ICU=Individual Condominium Unit Report"_L1,
    "LAR=Land Appraisal Report"_L1,
    "MOB=Mobile Home Appraisal"_L1,
    "MH2=Mobile Home Appraisal, Second Edition"_L1,
    "MFH=Manufactured Home Appraisal  (FHLMC 70B / FNMA 1004C 03/05)"_L1,
    "MUL=Small Residential Income Property, 2 to 4 Units"_L1,
    "NCU=New Construction Update"_L1,
    "NEO=New Exterior Only Report"_L1,
    "NRI=Narrative Residential Insert"_L1,
    "NUR=Narrative Uniform Report"_L1,
    "NVL=Narrative Vacant Land"_L1,
    "QAR=Quick Appraisal Report"_L1,
    "RECON=Reconsideration of Value"_L1,
    "RNF=Residential Narrative Form"_L1,
    "SAR=Single-Family Appraisal Review"_L1,
    "SRI=Small Residential Income Report"_L1,
    "UA2=Uniform Residential Report, Second Edition"_L1,
    "UA4=Uniform Residential Report, Fourth Edition"_L1,
    "UA5=Uniform Residential Report  (FHLMC 70 / FNMA 1004   03/05)"_L1,
    "UCIAR=Uniform Commercial and Industrial Appraisal Report"_L1,
}};

constexpr std::size_t kFilled = 66;
static_assert(!kForms[kFilled - 1].isEmpty() && kForms[kFilled].isEmpty());

} // namespace

std::span<const QLatin1StringView> FormTable()
{
    return std::span(kForms).first(kFilled);
}

bool IsApprovedForm(const QString& formCode)
{
    static const QString codes = [] {
        QString list;
        for (const QLatin1StringView row : FormTable())
            list += text::Trim(QString(row.left(row.indexOf('='_L1)))) + u',';
        return list;
    }();
    return codes.contains(formCode.toUpper() + u',');
}

bool IsReservedName(const QString& name)
{
    static constexpr QLatin1StringView kNames[] = {"DATABOOK"_L1,   "NEW"_L1,        "NEWDATA"_L1,
                                                   "COMP2KEL10"_L1, "COMP2KEL12"_L1, "COMP2KEL13"_L1,
                                                   "COMP2KEL15"_L1, "COMP2KEL"_L1,   "COMP2KEL2"_L1};
    const QString upper = name.toUpper();
    const auto is = [&upper](const QString& reserved) {
        return upper == reserved || upper == reserved + ".MDB"_L1;
    };
    return std::any_of(std::begin(kNames), std::end(kNames), [&is](QLatin1StringView n) { return is(n); }) ||
           is(QString::fromLatin1(common::Globals::kMappingTable).toUpper());
}

QString ReturnPageType(int tabIndex)
{
    for (const GroupRow& row : GroupTable())
        if (row.dataPage == tabIndex)
            return row.pageKey;
    return {};
}

} // namespace vasclip::link
