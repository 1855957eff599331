#include "app/vasclip/tour/steps.h"

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
        // the Databook
        {"find by words"_L1, FindByWords},
        {"search by field"_L1, SearchByField},
        {"rename a record"_L1, RenameRecord},
        {"entry screens"_L1, EntryScreens},
        {"phrases of a field"_L1, PhrasesOfAField},
        {"calendar of a date"_L1, CalendarOfADate},
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

} // namespace vasclip::app
