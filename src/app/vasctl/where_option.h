#pragma once

#include "app/vasctl/session.h"

namespace vasclip::vasctl {

/// --where: a condition, with a sort behind it or none; "" without the option.
/// @return nothing, told, for what is no condition of a record: a sort alone, a value, a second statement, a field that the
/// Databook has not
[[nodiscard]] std::optional<QString> WhereOf(Session& session, const Output& out, const QCommandLineParser& options);

} // namespace vasclip::vasctl
