#pragma once

#include "platform/engine/row_store.h"

#include <algorithm>

namespace vasclip::engine {

/// How many rows a copy reads in one call: many of small ones, and one after another where their texts are long, so that no
/// more of them is held than is needed. Pictures do not count, since they are read one by one.
class RowsAtOnce
{
public:
    [[nodiscard]] std::size_t Next() const { return m_next; }
    /// What the last reading gave decides about the next one.
    void Saw(const std::vector<std::optional<StoredRow>>& rows)
    {
        constexpr qsizetype kMuch = 1 << 20;
        constexpr std::size_t kMost = 128;
        qsizetype letters = 0;
        for (const auto& row : rows) {
            if (!row)
                continue;
            for (const QVariant& value : row->values)
                letters += value.typeId() == QMetaType::QString ? value.toString().size() : 0;
        }
        m_next = letters > kMuch ? 1 : std::min(kMost, 2 * m_next);
    }

private:
    std::size_t m_next = 1;
};

} // namespace vasclip::engine
