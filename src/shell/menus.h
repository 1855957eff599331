#pragma once

#include "forms/controls.h"

namespace vasclip::shell {

// Entries that the settings change.
inline constexpr int kImageNamesEntry = 5; ///< of Setup
inline constexpr int kImageListEntry = 6;  ///< of Setup
inline constexpr int kManualEntry = 8;     ///< of Setup
inline constexpr int kWebsiteEntry = 9;    ///< of Help

// The entries of each menu in stored order. An entry whose screen the program does not have yet is disabled.

[[nodiscard]] QList<forms::MenuEntry> FileEntries();
[[nodiscard]] QList<forms::MenuEntry> SetupEntries();
[[nodiscard]] QList<forms::MenuEntry> MaintenanceEntries();
[[nodiscard]] QList<forms::MenuEntry> TransferEntries();
[[nodiscard]] QList<forms::MenuEntry> RefreshEntries();
[[nodiscard]] QList<forms::MenuEntry> DatabaseEntries();
[[nodiscard]] QList<forms::MenuEntry> HelpEntries();
[[nodiscard]] QList<forms::MenuEntry> GridEntries();        ///< of the pop-up over the grid
[[nodiscard]] QList<forms::MenuEntry> PhotoEntries();       ///< over the record's photo and its views
[[nodiscard]] QList<forms::MenuEntry> ThumbEntries();       ///< over thumbnails and the capture list
[[nodiscard]] QList<forms::MenuEntry> PictureEntries();     ///< over photo slots
[[nodiscard]] QList<forms::MenuEntry> GeneralEntries();     ///< over general photo slots
[[nodiscard]] QList<forms::MenuEntry> TextDataEntries();    ///< over text slots
[[nodiscard]] QList<forms::MenuEntry> PicAndDataEntries();  ///< over data boxes
/// Of the menu over text slots: the submenu of the comps with which a sales comp can be swapped, by their number.
inline constexpr int kSwapEntry = 5;
inline constexpr QLatin1StringView kSwapEntries{"popTextData_MSubSwap"};
/// The second entry of the photo slots' menu, by whether it opens over the subject.
[[nodiscard]] QString PictureEntryCaption(bool subject);

} // namespace vasclip::shell
