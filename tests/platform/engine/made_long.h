#pragma once

#include "platform/engine/long_source.h"

#include <algorithm>

namespace vasclip::engine {

/// A long value of any size that is nowhere: its bytes are made when they are asked for. It notes what is asked of it.
class MadeLong
{
public:
    explicit MadeLong(qint64 size)
        : m_size(size)
    {}

    qint64 endsAt = -1;                         ///< there are no bytes from here on
    std::function<void(qint64 offset)> asked{}; ///< before each piece
    qint64 most = 0;                            ///< bytes that were asked for at once
    int pieces = 0;

    [[nodiscard]] LongSource Source()
    {
        return {m_size, [this](qint64 offset, qint64 bytes) {
                    most = std::max(most, bytes);
                    ++pieces;
                    if (asked)
                        asked(offset);
                    return Bytes(offset, endsAt < 0 ? bytes : std::clamp<qint64>(endsAt - offset, 0, bytes));
                }};
    }
    [[nodiscard]] QVariant Value() { return LongValue(Source()); }
    [[nodiscard]] static QByteArray Bytes(qint64 offset, qint64 count)
    {
        QByteArray bytes(count, Qt::Uninitialized);
        for (qint64 i = 0; i < count; ++i)
            bytes[i] = static_cast<char>(((offset + i) * 31 + (offset + i) / 251) & 0xFF);
        return bytes;
    }

private:
    qint64 m_size;
};

} // namespace vasclip::engine
