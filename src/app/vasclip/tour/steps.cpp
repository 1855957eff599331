#include "app/vasclip/tour/steps.h"

#include <QAbstractButton>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

std::span<const TourStep> TourSteps()
{
    // clang-format off
    static constexpr TourStep kSteps[] = {
        // the report
        {"start"_L1, Started},
        {"refresh from the report"_L1, RefreshReport},
        {"drop comps on the report"_L1, DropComps},
        {"transfer the subject to the Databook"_L1, TransferSubject},
        // the camera
        {"browse the camera's pictures"_L1, BrowsePictures},
        {"file a picture with the record"_L1, FilePictureWithRecord},
        {"delete the subject's record"_L1, DeleteTheSubject},
        {"file a picture into the report"_L1, FilePictureIntoReport},
        {"file a general view"_L1, FileGeneralView},
        {"the camera's folder"_L1, CameraFolder},
        // the Databook
        {"find by words"_L1, FindByWords},
        {"search by field"_L1, SearchByField},
        {"rename a record"_L1, RenameRecord},
        {"send to a slot by keys"_L1, SendToSlot},
        {"columns of the grid"_L1, Columns},
        {"entry screens"_L1, EntryScreens},
        {"phrases of a field"_L1, PhrasesOfAField},
        {"calendar of a date"_L1, CalendarOfADate},
        {"print a report"_L1, PrintAReport},
        // photos
        {"general views"_L1, GeneralViews},
        {"copy and find photos"_L1, CopyAndFind},
        {"adjust a photo"_L1, AdjustPhoto},
        {"trash and restore"_L1, TrashAndRestore},
        // the map
        {"subject and comps on the map"_L1, Map},
        {"map data"_L1, MapData},
        {"repairs of the Databook"_L1, Repairs},
        {"an archive of old sales"_L1, Archive},
        // upkeep
        {"export and import"_L1, ExportAndImport},
        {"an Access file of another office"_L1, OtherOffice},
        {"a Databook of an older version"_L1, OlderDatabook},
        // setting up
        {"grid layouts"_L1, GridLayouts},
        {"settings"_L1, Settings},
        {"cities"_L1, Cities},
        {"databases"_L1, Databases},
        {"guide"_L1, Guide},
        {"about and news"_L1, AboutAndNews},
    };
    // clang-format on
    return kSteps;
}

bool LookAt(const Stage& stage, const QString& entry, const QString& name, const Tour::Visit& more)
{
    bool chosen = false;
    const bool shown = stage.tour.During(
        entry, [&] { chosen = stage.tour.Choose(stage.window, entry); },
        [&](QWidget& dialog) {
            stage.tour.Shoot(dialog, name);
            if (more)
                more(dialog);
        });
    stage.tour.Step(u"Looked at %1."_s.arg(entry));
    return chosen && shown;
}

void Click(const QWidget& window, const QString& button)
{
    if (auto* found = window.findChild<QAbstractButton*>(button))
        found->click();
}

} // namespace vasclip::app
