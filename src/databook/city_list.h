#pragma once

#include "common/globals.h"
#include "forms/controls.h"
#include "forms/multi_list.h"
#include "platform/files/disk.h"

namespace vasclip::databook {

/// A place that comps lie in, as a line of the city list holds it.
struct CityEntry
{
    QString city, state, zip, county;
    bool operator==(const CityEntry&) const = default;
};

/// One line: city, ", ", state, two blanks, ZIP, two blanks, county; each part trimmed, blanks at the end of
/// the line taken off. Control characters become blanks: the line lives in an ini file.
[[nodiscard]] QString CityText(const CityEntry& entry);

/// Takes a line apart at ", " and two blanks. What follows the second two blanks is the county.
/// Rule: city list. Two blanks end a part wherever they stand, so a city with two blanks in it is cut there
/// and the rest goes to the parts behind; a line without ", " is a city alone, up to its first two blanks.
[[nodiscard]] CityEntry SplitCity(const QString& line);

/// Adds the lines of VAS2000.INI, section "CITIES", up to the first empty one, behind what the list holds.
void LoadCities(forms::ListBox& list, const files::Disk& disk, const common::Globals& globals);
/// Writes the list back as a whole. @return false if the file could not be written; it is then untouched
[[nodiscard]] bool SaveCities(const forms::ListBox& list, const files::Disk& disk,
                              const common::Globals& globals);

enum class CityAdded { Yes, IsThere, NoCity };
/// Adds a line at the end, unless the list has it (in any case) or the city is blank.
CityAdded AddCity(forms::ListBox& list, const CityEntry& entry);
/// Takes the selected lines off; the others stay in their order.
void RemoveSelectedCities(forms::MultiListBox& list);

} // namespace vasclip::databook
