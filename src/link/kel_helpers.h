#pragma once

#include <QString>

namespace vasclip::link {

/// The text before the first comma; "" if there is no comma at all.
[[nodiscard]] QString KelFirstToken(const QString& text);
/// Does a list of reports name none although there is one? It lacks its comma then.
[[nodiscard]] bool KelReportsUnnamed(const QString& reports);

/// The caption of a comp as the forms program answers it, fit to be shown.
/// @return "" for what it echoes when a variable has no value, and for any character below 32 or above 126
[[nodiscard]] QString KelCleanCaption(const QString& text);

/// The number between the first two underscores of an image object's name: CMP_3_3X5 gives 3.
/// @return -1 without two underscores, or for a number beyond 16 bits
[[nodiscard]] qint16 GetIndexValue(const QString& name);

[[nodiscard]] QString KelDoubleBackslash(const QString& path);
/// The same, by scanning for each backslash.
[[nodiscard]] QString DoubleSlash(const QString& path);

/// First comp of the comp's page: 1, 4 or 7; 10 is the subject; anything else gives 0.
[[nodiscard]] qint16 KelPageBase(qint16 comp);

/// The cell of a comp, from the cell of the first comp of its page.
/// @param rowCell  row and cell joined by "|"
/// @param offset   decimal step from one comp to the next
/// @return for the second comp of a page one step on, for the third two; unchanged for the first (trimmed for
/// comps 1 and 4 only) and for the subject (10); "" for a comp outside 1 to 10
[[nodiscard]] QString KelShiftCell(const QString& rowCell, const QString& offset, qint16 comp);

/// The photo size that a form name or a forms list stands for: "3X5", "4X6" or "".
[[nodiscard]] QString KelPhotoSizeOfPage(const QString& name);

/// The file version of the forms program as it is kept for the About box: "5.3.1" gives "5.03".
/// The second part has two digits: "00" if blank, a leading "0" for one, cut to two if longer.
[[nodiscard]] QString TwoPartVersion(const QString& fileVersion);

} // namespace vasclip::link
