#pragma once

#include "platform/engine/health.h"

namespace vasclip::engine {

class Connection;

/// Copies the tables of one file into an empty one, with their keys, as far as they can be read: whole records,
/// else the values of a record one by one. The text index is left to be made anew.
/// @param step  told the records so far; false stops
/// @return nullopt if it was stopped
[[nodiscard]] std::optional<Rescued> CopyTables(Connection& source, Connection& target,
                                                const std::function<bool(qint64 records)>& step);

} // namespace vasclip::engine
