#pragma once

#include "upkeep/list_file.h"

#include <QDate>

namespace vasclip::upkeep {

[[nodiscard]] bool IsDateField(const QString& field);
[[nodiscard]] bool IsNumberField(const QString& field); ///< a price, an area, latitude and longitude

/// A date of three numbers.
struct DateReading
{
    enum class Kind {
        Other, ///< not written so: words, or nothing
        Read,
        Impossible, ///< there is no such day in that order
    };
    Kind kind = Kind::Other;
    QString text = {}; ///< M/D/Y with the year as it is written
};
/// Four digits in front are a year in any order. A time behind the date does not count.
[[nodiscard]] DateReading ReadDate(const QString& written, DateOrder order);
/// A number that is written with a decimal sign, as it is with a point and without signs between thousands; "" for one that
/// is not written so.
[[nodiscard]] QString WithPoint(const QString& written, QChar decimal);

/// A line as the Databook stores it.
struct ReadLine
{
    QHash<QString, QString> values; ///< by field; dates and numbers as the Databook writes them
    QString fault;                  ///< why it can't be stored, with the column's heading; "" if it can
};

/// Makes records of lines: a blank key becomes the one of the address, and what hangs on a date follows it.
class LineMaker
{
public:
    LineMaker(const ListLook& look, bool text, QDate today); ///< @param text  of a text file, whose lines may be torn
    [[nodiscard]] ReadLine Make(const ListLine& line) const;

private:
    [[nodiscard]] QString Store(const ListCell& cell, const QString& field, QString& value) const;

    const ListLook& m_look;
    bool m_text;
    QDate m_today;
    int m_keySize;
};

} // namespace vasclip::upkeep
