#pragma once

#include "forms/controls.h"
#include "forms/ports.h"
#include "store/data_source.h"

#include <QDate>

#include <functional>

namespace vasclip::databook {

using namespace Qt::StringLiterals;

/// The sale date of a pending sale, as it is stored.
inline const QString kPendingDate = u"01/01/1900"_s;

/// Price per living area: "0" if either `Val` is 0, else the quotient in the picture "###.##" (so 100 is
/// "100.").
[[nodiscard]] QString PriceGla(const QString& sellingPrice, const QString& gla);

/// Age of a house at its sale.
/// @param yearBuilt  the digits and minus signs of its first four characters count: four digits are a year,
/// one to
///                   three an age already, none gives ""
/// @param saleDate   its last four characters are the year of sale; a text that is no date gives ""
/// @return years as text; "" for less than 1
[[nodiscard]] QString AgeText(const QString& yearBuilt, const QString& saleDate, QDate today);
/// Likewise. @param isDate  whether saleDate is one; asked only where its year is needed
[[nodiscard]] QString AgeText(const QString& yearBuilt, const QString& saleDate, const std::function<bool()>& isDate);

/// The letters of a text.
[[nodiscard]] QString AlphaOnly(const QString& text);
/// An address without its house number: what stands behind the first blank, if the part before it is numeric.
[[nodiscard]] QString Strip1stNums(const QString& address);

/// The serial twin of a stored date: days from 30 December 1899 as the language writes a number, " 2" for the
/// pending date.
[[nodiscard]] QString SerialText(const QString& date, QDate today);

// The routines below put the current record into edit mode and leave it there, unless it is said otherwise;
// the caller updates.

/// LOADDATE and LOADSERIAL become today if LOADDATE is Null or blank.
void SetLoadDate2Today(const forms::Ports& ports, store::DataSource& source);
/// The same without looking, for a comp that is read again from the report.
void ForceLoadDate2Today(const forms::Ports& ports, store::DataSource& source);
/// The same only if LOADDATE is neither blank nor a date.
void RepairLoadDate(const forms::Ports& ports, store::DataSource& source);

/// SALEDATE and SALESERIAL from a text; one that is no date means a pending sale, and the text becomes
/// "01/01/1900" itself. A pending sale is stored as that text however its day was written.
void ErrSetSaleDate(const forms::Ports& ports, store::DataSource& source, QString& dateText);

/// The same from a box, whose text becomes "01/01/1900" if it is no date; then updates and finds the record
/// again.
void ErrSaveSaleDate(const forms::Ports& ports, store::DataSource& source, forms::TextBox& box);

} // namespace vasclip::databook
