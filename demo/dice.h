#pragma once

#include <QList>
#include <QtGlobal>

#include <random>

namespace vasclip::demo {

/// Random numbers that are the same on every machine: the generator is fixed by the language's standard, its
/// distributions are not, so they are our own.
///
/// Two throws never stand among the arguments or operands of one expression, whose order is the compiler's;
/// they stand in statements of their own or in braces.
class Dice
{
public:
    explicit Dice(quint32 seed)
        : m_engine(seed)
    {}

    [[nodiscard]] quint32 Next() { return static_cast<quint32>(m_engine()); }
    /// 0 to below - 1; `below` is 1 or more
    [[nodiscard]] int Below(int below);
    [[nodiscard]] int Between(int first, int last) { return first + Below(last - first + 1); }
    /// 0 up to, never reaching, 1
    [[nodiscard]] double Real();
    [[nodiscard]] double Real(double low, double high) { return low + (high - low) * Real(); }
    [[nodiscard]] bool Chance(double probability) { return Real() < probability; }
    /// A bell around 0 with deviation 1, never beyond 6.
    [[nodiscard]] double Bell();

    template <class T>
    [[nodiscard]] const T& Pick(const QList<T>& from)
    {
        return from.at(Below(static_cast<int>(from.size())));
    }

private:
    std::mt19937 m_engine;
};

} // namespace vasclip::demo
