#pragma once

#include <QtGlobal>

namespace vasclip::engine::jet {

/// What differs between the two generations of the format.
struct Format
{
    bool jet4 = true;
    int pageSize = 4096;
    // data pages
    int rowCount = 12;
    int rowOffsets = 14;
    // table definitions
    int rows = 16;
    int lastNumber = 20;
    int kind = 40;
    int variableColumns = 43;
    int columns = 45;
    int logicalIndexes = 47;
    int realIndexes = 51;
    int ownedMap = 55;
    int variablePart = 63;
    int keyCounts = 12; ///< bytes per real index ahead of the columns
    int column = 25;
    int realIndex = 52;
    int logicalIndex = 28;
    // maps
    int bitmapHead = 4; ///< bytes of a bitmap page ahead of its bits
};

inline constexpr Format kJet4{};
inline constexpr Format kJet3{.jet4 = false,
                              .pageSize = 2048,
                              .rowCount = 8,
                              .rowOffsets = 10,
                              .rows = 12,
                              .lastNumber = 16,
                              .kind = 20,
                              .variableColumns = 23,
                              .columns = 25,
                              .logicalIndexes = 27,
                              .realIndexes = 31,
                              .ownedMap = 35,
                              .variablePart = 43,
                              .keyCounts = 8,
                              .column = 18,
                              .realIndex = 39,
                              .logicalIndex = 20,
                              .bitmapHead = 4};

// Page types.
inline constexpr quint8 kDataPage = 0x01;
inline constexpr quint8 kDefinitionPage = 0x02;
inline constexpr quint8 kNodePage = 0x03;
inline constexpr quint8 kLeafPage = 0x04;
inline constexpr quint8 kBitmapPage = 0x05;

// Marks of a row's offset.
inline constexpr quint16 kRowStart = 0x1FFF;
inline constexpr quint16 kRowMoved = 0x4000;
inline constexpr quint16 kRowDeleted = 0x8000;

/// The owner of pages of long values: the letters LVAL.
inline constexpr quint32 kLongValueOwner = 0x4C41564C;

/// The definition of the table that lists all others.
inline constexpr quint32 kObjectsPage = 2;

} // namespace vasclip::engine::jet
