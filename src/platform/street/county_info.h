#pragma once

#include "platform/street/types.h"

#include <QByteArray>
#include <QString>

namespace vasclip::street {

/// What a map says of itself.
struct CountyInfo
{
    QString county; ///< five digits of its FIPS code, or the name that its importer gave it
    QString state; ///< two letters, "" where it isn't known
    QString source; ///< in words: "TIGER/Line 2021"
    QString date; ///< of the source, YYYY-MM-DD or as much as is known of it
    Extent extent; ///< of all that is drawn or found, places on a neighbour's ground excepted
    qint64 edges = 0;
    qint64 houses = 0;
    qint64 areas = 0;
    friend bool operator==(const CountyInfo&, const CountyInfo&) = default;
};

/// A map as the index of a directory keeps it.
struct CountyRecord
{
    quint32 number = 0; ///< in the index, from 1 on
    CountyInfo info;
    QString file; ///< its name in the directory
    qint64 bytes = 0;
    QByteArray checksum; ///< BLAKE2b-256 of the file
};

} // namespace vasclip::street
