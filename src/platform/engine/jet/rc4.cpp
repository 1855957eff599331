#include "platform/engine/jet/rc4.h"

#include <array>
#include <numeric>
#include <utility>

namespace vasclip::engine::jet {

void Mask(char* data, qsizetype size, const QByteArray& key)
{
    std::array<quint8, 256> state;
    std::iota(state.begin(), state.end(), quint8(0));
    quint8 other = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        other = static_cast<quint8>(other + state[i] +
                                    static_cast<quint8>(key[static_cast<qsizetype>(i) % key.size()]));
        std::swap(state[i], state[other]);
    }
    quint8 first = 0;
    quint8 second = 0;
    for (qsizetype i = 0; i < size; ++i) {
        ++first;
        second = static_cast<quint8>(second + state[first]);
        std::swap(state[first], state[second]);
        data[i] = static_cast<char>(static_cast<quint8>(data[i]) ^
                                    state[static_cast<quint8>(state[first] + state[second])]);
    }
}

} // namespace vasclip::engine::jet
