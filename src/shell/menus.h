#pragma once

#include "forms/controls.h"

namespace vasclip::shell {

class frm_Main;

// Entries that change while the program runs.
inline constexpr int kImageNamesEntry = 5;  ///< of Setup
inline constexpr int kImageListEntry = 6;   ///< of Setup
inline constexpr int kManualEntry = 8;      ///< of Setup
inline constexpr int kTutorialsEntry = 1;   ///< of Help
inline constexpr int kWebsiteEntry = 9;     ///< of Help
inline constexpr int kSearchEntry = 2;      ///< over the grid
inline constexpr int kThumbNamesEntry = 2;  ///< over thumbnails
inline constexpr int kThumbListEntry = 5;   ///< over thumbnails
inline constexpr int kDeleteImageEntry = 0; ///< over thumbnails
inline constexpr int kAllPhotosEntry = 1;   ///< over photo slots
inline constexpr int kSwapEntry = 5;        ///< over text slots
inline constexpr int kRenameViewEntry = 0;  ///< over the record's photo
inline constexpr int kDeletePhotoEntry = 1; ///< over the record's photo
inline constexpr int kObtainDataEntry = 0;  ///< over text slots
inline constexpr int kObtainShownEntry = 1; ///< over text slots
/// The submenu of the tutorials, by their place in the program directory.
inline constexpr QLatin1StringView kTutorials{"mnuHelpTut_M"};
/// The submenu of the comps with which a sales comp can be swapped, by their number.
inline constexpr QLatin1StringView kSwapEntries{"popTextData_MSubSwap"};

/// The menus of the main screen, each with its entries in stored order. An entry that has neither an
/// action nor a submenu made while the program runs is disabled.
struct Menus
{
    explicit Menus(forms::ControlSet& controls);

    forms::Menu mnuFileItem, mnuSetupItem, mnuMaintItem, mnuTransferItem, mnuRefreshItem, mnuDBItem,
        mnuHelpItem;
    forms::Menu popGrid_M;       ///< of the grid, by the right button
    forms::Menu popPhoto_M;      ///< of the record's photo and its views
    forms::Menu popThumb_M;      ///< over thumbnails and the capture list
    forms::Menu popPicture_M;    ///< over photo slots
    forms::Menu popGeneral_M;    ///< over general photo slots
    forms::Menu popTextData_M;   ///< over text slots
    forms::Menu popPicAndData_M; ///< over data boxes

    [[nodiscard]] QList<forms::Menu*> All();
};

/// The second entry of the photo slots' menu, by whether it opens over the subject.
[[nodiscard]] QString PictureEntryCaption(bool subject);

/// Does what a menu entry leads to.
/// @param array  name of the menu or of its submenu
void Choose(frm_Main& main, const QString& array, int index);

} // namespace vasclip::shell
