#pragma once

#include <QtGlobal>

namespace vasclip::map::flag {

// Bits of a point.
inline constexpr qint32 kFree = 0x10;         ///< its address may be looked up again
inline constexpr qint32 kAnchored = 0x20;     ///< its place was set by hand
inline constexpr qint32 kTransparent = 0x1000;
inline constexpr qint32 kHotSpots = 0xF00;

// The combinations that points are written with, without the bits that are added to them.
inline constexpr qint32 kAtAddress = 0x8C42;
inline constexpr qint32 kStoredWithPicture = 0x8042;
inline constexpr qint32 kStoredWithoutPicture = 0x60C40;
inline constexpr qint32 kAnchoredRewrite = 0x60062;
inline constexpr qint32 kFreeRewrite = 0x60052;
inline constexpr qint32 kTurned = 0x8052;
inline constexpr qint32 kFoundPlace = 0x86C2; ///< a pin of one of several candidates

} // namespace vasclip::map::flag
