#pragma once

#include "platform/engine/jet/definition.h"

#include <optional>

namespace vasclip::engine::jet {

/// One stored row, taken apart on demand.
class Row
{
public:
    /// @throws Damaged if its parts do not fit into it
    Row(const Format& format, const Definition& table, const Bytes& bytes);

    [[nodiscard]] bool IsNull(const Column& column) const;
    /// The bytes of a value; nothing for Null, none for a Yes/No column. @throws Damaged
    [[nodiscard]] std::optional<Bytes> Value(const Column& column) const;

private:
    [[nodiscard]] int Offset(int index) const; ///< where the value of variable length with that index begins

    const Format& m_format;
    Bytes m_bytes;
    int m_columns = 0;   ///< that it was written with
    int m_variable = 0;  ///< values of variable length
    int m_jumps = 0;     ///< bytes of the jump table
    qsizetype m_mask = 0;
    qsizetype m_offsets = 0; ///< behind the table of offsets, which grows downwards
};

} // namespace vasclip::engine::jet
