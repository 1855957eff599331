#pragma once

#include "store/data_source.h"

namespace vasclip::link {

/// The letter of APPRSLTYPE for a comp of a report.
/// @param group  COMP, SALE, ALT, LIST or RENT; @param formType  main form's code; both in any case
/// @return R, S, F, L, C or M; the first rule that matches, F for a form without one
[[nodiscard]] QString ApprslTypeLetter(const QString& group, const QString& formType);

/// Stores it in the record that the source is editing or adding; the caller updates.
void SetApprslType(store::DataSource& databook, const QString& group, const QString& formType);

} // namespace vasclip::link
