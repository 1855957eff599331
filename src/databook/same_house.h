#pragma once

#include "store/data_source.h"

namespace vasclip::street {
struct Address;
}

namespace vasclip::databook {

/// One house as its address is written: "123 N Oak St" and "123 North Oak Street" give the same; "" where the text has no
/// number or no street. The town does not count, since a key has none.
[[nodiscard]] QString HouseOf(const QString& address);
[[nodiscard]] QString HouseOf(const street::Address& address);
/// Towns that differ are two; one that is not told may be any.
[[nodiscard]] bool SameTown(const QString& one, const QString& other);

/// The record that stands at an address under another key than its own; "" for none. It is looked for among the keys that
/// begin with the same number, by their index: what an address is typed into asks for each pause.
/// @param key  of the record whose address it is, in any case; "" while it has none
/// @throws RuntimeError of the engine
[[nodiscard]] QString TwinOf(const store::DataSource& databook, const QString& table, const QString& key, const QString& address,
                             const QString& city);

/// What people look at to tell one record from another: a line for each of some fields that hold something.
[[nodiscard]] QString InShort(const store::DataSource& databook, const QString& key);

} // namespace vasclip::databook
