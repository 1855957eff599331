#pragma once

#include <QLatin1StringView>
#include <QString>

#include <span>

namespace vasclip::link {

/// The report forms that can be mapped, each "CODE=description", in table order.
[[nodiscard]] std::span<const QLatin1StringView> FormTable();

/// May a report of this main form be opened? The code is looked for in any case, and a tail of a code passes,
/// as does an empty one: the table guards against foreign forms only.
[[nodiscard]] bool IsApprovedForm(const QString& formCode);

/// A database name, with or without ".MDB", that export, import and archive must refuse.
[[nodiscard]] bool IsReservedName(const QString& name);

/// "SUBJECT_", "COMPARABLES_", "GENERAL_", "LISTINGS_", "RENTALS_" for 0 to 4; anything else "".
[[nodiscard]] QString ReturnPageType(int tabIndex);


} // namespace vasclip::link
