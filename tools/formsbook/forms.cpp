#include "formsbook/forms.h"

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::formsbook {

namespace {

using enum Family;

constexpr std::array kForms{
    Form{"2006"_L1, "Condominium Rider for Lenders"_L1, Condo, 24},
    Form{"2045"_L1, "Short Form Appraisal Summary"_L1, Short, 18},
    Form{"2055"_L1, "Desktop Underwriter Qualitative Analysis (FNMA 2065  09/96)"_L1, Short, 21},
    Form{"2065"_L1, "Desktop Underwriter Qualitative Analysis (FNMA 2065  09/96)"_L1, Short, 21},
    Form{"2075"_L1, "Exterior Property Inspection"_L1, Short, 16},
    Form{"2095"_L1, "Cooperative Interest, Exterior Inspection"_L1, Condo, 30},
    Form{"704"_L1, "Second Mortgage Property Value Analysis (FHLMC 704  01/86)"_L1, Short, 20},
    Form{"704SUMRY"_L1, "Second Mortgage Property Value Summary"_L1, Short, 22},
    Form{"71A"_L1, "Apartment Building Appraisal, Part A"_L1, Income, 40},
    Form{"71B"_L1, "Apartment Building Appraisal, Part B"_L1, Income, 44},
    Form{"79"_L1, "Income Property Rent Schedule"_L1, Income, 26},
    Form{"AUC3"_L1, "Appraisal Update and/or Completion Report (FHLMC 442 / FNMA 1004D 03/05)"_L1, Short, 14},
    Form{"ADR"_L1, "Administrative Desk Review"_L1, Short, 19},
    Form{"ALAR"_L1, "Agricultural Land Appraisal"_L1, Land, 17},
    Form{"ANVL"_L1, "Automated Value Review, Long"_L1, Short, 23},
    Form{"BAT"_L1, "Two-Family Appraisal"_L1, Income, 36},
    Form{"BA2"_L1, "Two-Family Appraisal, Second Edition"_L1, Income, 38},
    Form{"BMA"_L1, "Broker's Market Analysis"_L1, House, 25},
    Form{"BPO"_L1, "Broker's Price Opinion"_L1, House, 22},
    Form{"CI2"_L1, "Commercial and Income Property, Second Edition"_L1, Income, 42},
    Form{"CIA"_L1, "Complete Income Appraisal, Part A"_L1, Income, 33},
    Form{"CIB"_L1, "Complete Income Appraisal, Part B"_L1, Income, 35},
    Form{"CMR"_L1, "Competitive Market Report"_L1, House, 20},
    Form{"CN2"_L1, "Individual Condominium Unit Appraisal, Second Edition"_L1, Condo, 34},
    Form{"DAWI"_L1, "Drive-by Appraisal with Interior Notes"_L1, Short, 24},
    Form{"DT2"_L1, "Desktop Analysis, Second Edition"_L1, Short, 20},
    Form{"DT3"_L1, "Desktop Analysis, Four Comparables"_L1, Short, 26},
    Form{"DU2"_L1, "Desktop Quantitative Analysis"_L1, Short, 28},
    Form{"DUQ"_L1, "Desktop Qualitative Analysis"_L1, Short, 27},
    Form{"DVA"_L1, "Driveway Value Analysis"_L1, Short, 18},
    Form{"ECI"_L1, "Exterior Condominium Inspection"_L1, Condo, 29},
    Form{"ECU"_L1, "Exterior Condominium Unit Appraisal"_L1, Condo, 32},
    Form{"EOI"_L1, "Exterior-Only Inspection"_L1, House, 31},
    Form{"ER5"_L1, "Relocation Appraisal, Fifth Edition"_L1, House, 45},
    Form{"ER3"_L1, "Relocation Appraisal, Third Edition"_L1, House, 41},
    Form{"ER4"_L1, "Relocation Appraisal, Fourth Edition"_L1, House, 43},
    Form{"ERS"_L1, "Old ERC Summary Appraisal (ERC Rev. 01/01)"_L1, House, 30},
    Form{"EVAL"_L1, "Property Evaluation"_L1, Short, 15},
    Form{"FA4"_L1, "Farm Appraisal with Four-Unit Schedule"_L1, Income, 37},
    Form{"FR2"_L1, "Field Review, Two Pages"_L1, House, 33},
    Form{"FR3"_L1, "Field Review, Three Pages"_L1, House, 35},
    Form{"FR4"_L1, "Field Review, One to Four Units"_L1, Income, 39},
    Form{"FRA"_L1, "Field Review, Addendum Edition"_L1, House, 29},
    Form{"FRR"_L1, "Field Review Report"_L1, House, 34},
    Form{"FSE"_L1, "Full Summary Evaluation"_L1, House, 26},
    Form{"ICI"_L1, "Interior Condominium Inspection"_L1, Condo, 31},
    Form{"ICU"_L1, "Interior Condominium Unit Appraisal"_L1, Condo, 36},
    Form{"LAR"_L1, "Land Appraisal Report"_L1, Land, 20},
    Form{"MOB"_L1, "Mobile Home Appraisal"_L1, Mobile, 28},
    Form{"MH2"_L1, "Mobile Home Appraisal, Second Edition"_L1, Mobile, 32},
    Form{"MFH"_L1, "Manufactured Home Appraisal  (FHLMC 70B / FNMA 1004C 03/05)"_L1, Mobile, 46},
    Form{"MUL"_L1, "Multi-Unit Residential Appraisal"_L1, Income, 48},
    Form{"NCU"_L1, "New Construction, Condominium Unit"_L1, Condo, 27},
    Form{"NEO"_L1, "New Exterior-Only Inspection"_L1, House, 28},
    Form{"NRI"_L1, "New Residence Inspection"_L1, House, 24},
    Form{"NUR"_L1, "New Uniform Residential Report"_L1, House, 37},
    Form{"NVL"_L1, "Narrative Vacant Land Report"_L1, Land, 22},
    Form{"QAR"_L1, "Quarterly Assessment Review"_L1, Short, 17},
    Form{"RECON"_L1, "Reconciliation Report"_L1, House, 12},
    Form{"RNF"_L1, "Restricted Narrative Form"_L1, House, 19},
    Form{"SAR"_L1, "Summary Appraisal Report"_L1, House, 27},
    Form{"SRI"_L1, "Small Residential Income Property"_L1, Income, 50},
    Form{"UA2"_L1, "Uniform Residential Appraisal, Second Edition"_L1, House, 36},
    Form{"UA4"_L1, "Uniform Residential Appraisal, Fourth Edition"_L1, House, 38},
    Form{"UA5"_L1, "Uniform Residential Report  (FHLMC 70 / FNMA 1004   03/05)"_L1, House, 42},
    Form{"UCIAR"_L1, "Uniform Commercial and Industrial Report"_L1, Income, 46},
};
static_assert(kForms.size() == 66);

} // namespace

std::span<const Form> Forms()
{
    return kForms;
}

const Form* FindForm(const QString& code)
{
    const auto found = std::ranges::find_if(
        kForms, [&code](const Form& form) { return code.compare(form.code, Qt::CaseInsensitive) == 0; });
    return found == kForms.end() ? nullptr : &*found;
}

} // namespace vasclip::formsbook
