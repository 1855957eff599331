#pragma once

namespace vasclip::photos {

/// What a click on a page button asks for; None at any other time.
enum class PageTurn { None, First, Up, Down, Last };

inline constexpr int kPageStep = 12;

/// Index of the first thumbnail's file.
/// @param listIndex  -1 without a selection; @param last  index of the last file
[[nodiscard]] int FirstOfPage(PageTurn turn, int listIndex, int last);

/// The list's new index after a page button, on view the thumbnails. @param p  the present one, 0 or more
[[nodiscard]] int ThumbTurn(PageTurn turn, int p, int last);
/// The list's first visible row after a page button, on view the list.
[[nodiscard]] int ListTurn(PageTurn turn, int p, int last);

} // namespace vasclip::photos
