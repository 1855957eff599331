#pragma once

namespace vasclip::photos {

// How many slots the report has of each kind.
inline constexpr int kSubjectPhotos = 3, kComps = 9, kAltComps = 6, kGeneralPhotos = 36, kListings = 6, kRentals = 9;

} // namespace vasclip::photos
