#pragma once

#include <QString>

namespace vasclip::common {

struct CityStateZip
{
    QString city, state, zip;
    bool operator==(const CityStateZip&) const = default;
};

/// Takes "City, ST ZIP" apart; the blanks around its parts don't count. Without a comma all three are empty,
/// and so is a state that IsValidStateCode refuses.
[[nodiscard]] CityStateZip ParseCityStateZip(const QString& text);

/// "City, ST ZIP", the line that ParseCityStateZip takes apart. What is blank leaves no comma and no blank behind:
/// "Alder", "Alder, WI", "Alder, 54001", "WI 54001", and "" for three blanks.
[[nodiscard]] QString CityStateZipLine(const CityStateZip& parts);

/// Does a comp's second address line tell where it stands, and not the name of its neighborhood? A state that is in no
/// list leaves the ZIP to tell; "Hill, North-West" has neither.
[[nodiscard]] bool IsCityLine(const CityStateZip& line);

/// True for two capitals that stand in the program's list of states. The list has no NV.
[[nodiscard]] bool IsValidStateCode(const QString& code);

/// The first five characters as a number of five digits; "" for fewer than five characters, for
/// zero and for a number that five digits cannot hold ("1E300").
[[nodiscard]] QString NormalizeZip(const QString& zip);

} // namespace vasclip::common
