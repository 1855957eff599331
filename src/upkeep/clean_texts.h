#pragma once

#include "store/data_source.h"
#include "upkeep/walk.h"

#include <functional>

namespace vasclip::upkeep {

/// Is there a record of this key?
using KeyTest = std::function<bool(const QString& key)>;

/// The key that a record gets in place of one that is there: "12 OAK ST(2)", and behind that "12 OAK ST(3)". A name is
/// cut to make room for its number.
[[nodiscard]] QString FreeKey(const QString& key, const KeyTest& isThere);

/// Takes the characters that the common filter knows out of CENTRALKEY and ADDRESS of the record under edit. A key that
/// another record has then, and one of which nothing is left, is made unique.
/// @return how many characters were taken out
qint64 CleanKeyAndAddress(RowEdit& row, const KeyTest& isThere);
/// The same of every text field of the record. @return how many characters were taken out
qint64 CleanTexts(RowEdit& row, const QStringList& textFields);

/// How a correction of addresses writes them.
enum class AddressFrom { Key, ProperCase, UpperCase };
/// Corrects ADDRESS, and with a case ADDRESS2, CITY and COUNTY; ST stays only if it is a state of the program's list. A
/// record without a key is deleted.
/// @param addressCase  the setting, for addresses taken from the key
void CorrectAddress(RowEdit& row, AddressFrom from, int addressCase);

} // namespace vasclip::upkeep
