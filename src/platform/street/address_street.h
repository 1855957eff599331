#pragma once

#include "platform/street/address_words.h"

#include <QString>
#include <QStringList>

namespace vasclip::street {

/// A street's name in its parts. Two spellings of one name have the same `base`: its words stand whole, ordinals
/// as figures ("3RD"), numbered roads under one name ("US HWY 31", "STATE HWY 14", "CO RD 4", "I 65", "HWY 9"
/// where it isn't said which).
struct StreetName
{
    Direction before = Direction::None;
    QString base;
    StreetType type = 0;
    Direction behind = Direction::None;
    bool typeFirst = false; ///< "AVENUE H", not "H AVENUE"

    [[nodiscard]] bool IsEmpty() const { return base.isEmpty(); }
    /// "N CHESTNUT ST"
    [[nodiscard]] QString Text() const;
    friend bool operator==(const StreetName&, const StreetName&) = default;
};

/// A name that is nothing but a street's, as a source writes it.
[[nodiscard]] StreetName ParseStreet(const QString& name);
/// The same of words that are split already.
[[nodiscard]] StreetName ParseStreetWords(const QStringList& words);

/// How many of `words` from `at` name a numbered road ("STATE ROUTE 14"), 0 for none; its name goes to `base`.
[[nodiscard]] qsizetype RoadNumberAt(const QStringList& words, qsizetype at, QString& base);
/// Other names under which a source may have a street of that base: a numbered road that isn't said to be whose,
/// "103" beside "103RD".
[[nodiscard]] QStringList OtherBases(const QString& base);

} // namespace vasclip::street
