#pragma once

#include <QDate>
#include <QHash>
#include <QString>

namespace vasclip::upkeep {

/// What a line of a CSV file stores: values by field. Dates and numbers become what the Databook writes, a blank key the
/// one of the address, and what hangs on a date follows it.
/// @return why the line can't be stored; "" if it can
[[nodiscard]] QString MakeStorable(QHash<QString, QString>& values, int keySize, QDate today);

} // namespace vasclip::upkeep
