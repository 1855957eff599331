#pragma once

#include "kelforms/core/reports.h"

#include <QString>

namespace kelforms {

/// The cell in which a comp's address stands: the subject's for comp 0.
/// @return "" if the main form is unknown or has no such comp
[[nodiscard]] QString AddressCell(const Report& report, vasclip::formsbook::Group group, int comp);

/// The cell of a comp's column that holds a field ("PRICEFLD"). @return "" if its grid has no such line
[[nodiscard]] QString CompCell(const Report& report, vasclip::formsbook::Group group, int comp,
                               QLatin1StringView field);

/// Exchanges two comparable sales: every cell of their columns and their pictures.
/// @param a, b  comps 1 to 9
/// @throws RuntimeError 285 if the report has no page for one of them; nothing is then changed
void SwapComps(Reports& reports, Report& report, int a, int b);

/// Fills the lines below every grid of the report, for each comp that has a price:
/// net adjustment = the sum of its adjustments ("+4,500"), adjusted price = price + net adjustment
/// ("$189,500"), and that by its living area with two places. A comp without a price has these lines empty.
void Recalculate(Reports& reports, Report& report);

} // namespace kelforms
