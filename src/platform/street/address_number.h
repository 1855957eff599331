#pragma once

#include <QString>
#include <QStringList>

namespace vasclip::street {

/// A house number as streets count: what grows along the street, and what stands before and behind it.
/// "12-34" is 34 behind "12-", "N65W1234" is 1234 behind "N65W", "101B" and "12 1/2" are 101 and 12 with a rest.
struct HouseNumber
{
    QString prefix;
    int value = -1; ///< below 0: there is none
    QString suffix; ///< "1/2", "A"

    [[nodiscard]] bool IsEmpty() const { return value < 0; }
    [[nodiscard]] QString Text() const;
    friend bool operator==(const HouseNumber&, const HouseNumber&) = default;
};

/// The number at the front of `words`. @param count  how many words it takes, 0 for none
[[nodiscard]] HouseNumber NumberAt(const QStringList& words, qsizetype at, qsizetype& count);
/// A number as a source writes it; empty where the text is none.
[[nodiscard]] HouseNumber ParseHouseNumber(const QString& text);

} // namespace vasclip::street
