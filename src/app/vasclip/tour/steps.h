#pragma once

#include "app/vasclip/tour/tour.h"
#include "link/slot_table.h"

#include <QLatin1StringView>

#include <span>

namespace vasclip::app {

/// What a step of the tour plays on.
struct Stage
{
    Tour& tour;
    shell::frm_Main& main;
    QWidget& window; ///< the main window
    const LinkRecorder& recorder;

    /// Brings the page of a slot to the front.
    void Show(link::SlotRef slot) const;
};

struct TourStep
{
    QLatin1StringView name;
    bool (*play)(const Stage& stage); ///< @return false if it did not do what it should
};

/// All of them, in the order they are played: a row each in steps.cpp. A step leaves the home as it was,
/// since the next tour plays on it again, and closes what it opened.
[[nodiscard]] std::span<const TourStep> TourSteps();

/// Chooses a menu entry, takes a picture of the dialog that it opens, and closes it.
/// @param name  of the picture
/// @param more  what else is done on the dialog
bool LookAt(const Stage& stage, const QString& entry, const QString& name, const Tour::Visit& more = {});
/// Presses a button of a window by its name; nothing where there is none.
void Click(const QWidget& window, const QString& button);

// tour/report.cpp
bool Started(const Stage& stage);
bool RefreshReport(const Stage& stage);
bool DropComps(const Stage& stage);
bool TransferSubject(const Stage& stage);
bool DeleteTheSubject(const Stage& stage);

// tour/pictures.cpp
/// Waits until the pictures of the browser's page stand.
/// @param count  as many as there shall be; -1 for any
bool PicturesStand(const Stage& stage, int count = -1);
bool BrowsePictures(const Stage& stage);
bool FilePictureWithRecord(const Stage& stage);
bool FilePictureIntoReport(const Stage& stage);
bool FileGeneralView(const Stage& stage);
bool CameraFolder(const Stage& stage);

// tour/records.cpp
bool FindByWords(const Stage& stage);
bool SearchByField(const Stage& stage);
bool RenameRecord(const Stage& stage);
bool SendToSlot(const Stage& stage);
bool Columns(const Stage& stage);
bool EntryScreens(const Stage& stage);
bool PhrasesOfAField(const Stage& stage);
bool CalendarOfADate(const Stage& stage);

// tour/printing.cpp
bool PrintAReport(const Stage& stage);

// tour/photos.cpp
bool GeneralViews(const Stage& stage);
// tour/media.cpp
bool CopyAndFind(const Stage& stage);
bool AdjustPhoto(const Stage& stage);
bool TrashAndRestore(const Stage& stage);

// tour/map.cpp
bool Map(const Stage& stage);
bool MapData(const Stage& stage);

// tour/repairs.cpp
bool Repairs(const Stage& stage);
bool Archive(const Stage& stage);
// tour/exchange.cpp
bool ExportAndImport(const Stage& stage);
// tour/other_files.cpp
bool OtherOffice(const Stage& stage);
bool OlderDatabook(const Stage& stage);

// tour/settings.cpp
bool GridLayouts(const Stage& stage);
bool Settings(const Stage& stage);
bool Cities(const Stage& stage);
bool Databases(const Stage& stage);
bool Guide(const Stage& stage);
bool AboutAndNews(const Stage& stage);

} // namespace vasclip::app
