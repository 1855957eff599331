#pragma once

#include "app/vasctl/session.h"

namespace vasclip::vasctl {

/// Gives the fields of a record the values of --set FIELD=VALUE, as its entry screen would: all of them or
/// none, with serials, age, price per area and the date of the change. Each is checked before any is written.
/// @return an exit code; what is wrong was told
[[nodiscard]] int SetFields(Session& session, const Output& out, const QString& key,
                            const QStringList& settings);

} // namespace vasclip::vasctl
