#pragma once

#include <QString>
#include <QStringList>

namespace vasclip::street {

/// The shield of a numbered road: "I 65", "US 31", "AL 14", "CR 4"; "" where no name of it has a number.
/// @param names  the road's names, the first counts most: "US Hwy 31", "State Route 14", "I- 65", "US 31;AL 14"
/// @param state  two letters for a state road that does not name its state; without them it is "SR 14"
[[nodiscard]] QString ShieldOf(const QStringList& names, const QString& state);

} // namespace vasclip::street
