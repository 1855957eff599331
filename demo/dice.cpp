#include "demo/dice.h"

namespace vasclip::demo {

int Dice::Below(int below)
{
    return static_cast<int>((static_cast<quint64>(Next()) * static_cast<quint64>(below)) >> 32);
}

double Dice::Real()
{
    return static_cast<double>(Next()) / 4294967296.0;
}

double Dice::Bell()
{
    double sum = 0;
    for (int i = 0; i < 12; ++i)
        sum += Real();
    return sum - 6;
}

} // namespace vasclip::demo
