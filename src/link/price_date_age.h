#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

/// Reads a report's cell for one of the fields whose text becomes more than itself, and stores it in the
/// record that `datDatabook` stands on; the record is in edit mode afterwards. Other fields are not asked
/// for.
///
/// PRICEFLD of digits, blanks, commas and "$" goes to PRICEFLD and SELLINGPR as a number. SALEFLD that holds
/// a date gives SALEDATE and SALESERIAL too, LEASEDATE is stored as a date, YEARBUILT gives AGE.
/// @param field    name of the Databook field, in any case
/// @param item     form name, row and cell of the report, joined by "|"
/// @param handled  false if the caller is to store the text by its common rule (also for LEASEDATE, which the
///                 text then overwrites)
/// @return the cell's text, trimmed, so that the caller need not ask again
/// @throws RuntimeError of the exchange and of the record set
QString PriceDateAge(LinkDesk& desk, const QString& field, const QString& report, const QString& item,
                     bool& handled);

/// The same for a text that was read before.
/// @param today  decides what lies in the future
/// @return handled; see PriceDateAge
/// @throws RuntimeError of the record set
[[nodiscard]] bool StorePriceDateAge(store::DataSource& databook, QDate today, const QString& field,
                                     const QString& text);

} // namespace vasclip::link
