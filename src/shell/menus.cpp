#include "shell/menus.h"

#include "drops/slot_menus.h"
#include "link/messages.h"
#include "shell/city_screens.h"
#include "shell/data_exchange.h"
#include "shell/frm_main.h"
#include "shell/help.h"
#include "shell/maintenance.h"
#include "shell/map_exports.h"
#include "shell/map_maintenance.h"
#include "shell/media.h"
#include "shell/printing.h"
#include "shell/transfers.h"

#include <algorithm>
#include <span>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

using Action = void (*)(frm_Main&);

struct Row
{
    int index;
    QLatin1StringView caption;
    Action action = nullptr; ///< nullptr: the program does not have it yet
    QLatin1StringView shortcut = {};
    QLatin1StringView sub = {}; ///< its submenu, of the tables below
    QLatin1StringView toolTip = {};
};

constexpr auto kSeparator = "-"_L1;
constexpr auto kExports = "mnuFileItemSubExport"_L1;

template <typename Work>
void TransferBy(frm_Main& main, Work work)
{
    Transfer(main.program, main.shown, work);
}

template <drops::WithPhoto photo>
drops::Outcome Obtain(drops::DropDesk& desk, link::SlotRef slot)
{
    return drops::ObtainData(desk, slot, photo);
}

template <drops::WithPhoto photo>
drops::Outcome ObtainShown(drops::DropDesk& desk, link::SlotRef slot)
{
    return drops::ObtainShownData(desk, slot, photo);
}

drops::Outcome ObtainGeneral(drops::DropDesk& desk, link::SlotRef slot)
{
    return drops::ObtainGeneral(desk, slot.index);
}

constexpr Row kFile[] = {
    {0, "Launch Appraisal Program"_L1, [](frm_Main& m) { m.linkLine.LaunchAppraisalProgram(); }, "Ctrl+L"_L1},
    {1, kSeparator},
    {2, "Copy Photos - From Floppy"_L1, [](frm_Main& m) { CopyFromFloppy(m.program); }},
    {3, "Copy Photos - From Reader"_L1, [](frm_Main& m) { CopyFromReader(m.program); }},
    {4, "Copy Photos - From ROM"_L1, [](frm_Main& m) { CopyFromRom(m.program); }},
    {5, kSeparator},
    {6, "Find Photos"_L1, [](frm_Main& m) { FindPhotos(m.program); }},
    {7, kSeparator},
    {.index = 8, .caption = "Export Address/Comp Data"_L1, .sub = kExports},
    {9, "Print Comparable Report (from Database)"_L1, [](frm_Main& m) { PrintReport(m.program); }, "Ctrl+P"_L1},
    {10, kSeparator},
    {11, "Exit"_L1, [](frm_Main& m) { Q_EMIT m.UnloadWanted(); }, "Ctrl+Q"_L1},
};

constexpr Row kExport[] = {
    {0, "To Delorme (tm) Street Atlas (current)"_L1,
     [](frm_Main& m) { map::ExportDelorme2005(Exports(m.program)); }},
    {1, "To Delorme (tm) Street Atlas (2004 and prior)"_L1,
     [](frm_Main& m) { map::ExportDelorme(Exports(m.program)); }},
    {2, kSeparator},
    {3, "To Microsoft (tm) Streets (current)"_L1,
     [](frm_Main& m) { map::ExportMSStreets(Exports(m.program), true); }},
    {4, "To Microsoft (tm) Streets (2001 and prior)"_L1,
     [](frm_Main& m) { map::ExportMSStreets(Exports(m.program), false); }},
};

constexpr Row kSetup[] = {
    {0, "Configuration"_L1, [](frm_Main& m) { m.setup.ShowConfiguration(); }, "Ctrl+,"_L1},
    {1, kSeparator},
    {2, "Grid Layout"_L1, [](frm_Main& m) { m.rows.ShowGridLayout(); }},
    {3, "City Listings"_L1, [](frm_Main& m) { AttachCity(m.program, m.shown); }},
    {4, kSeparator},
    {kImageNamesEntry, "View Capture Image Names"_L1, [](frm_Main& m) { m.Capture().ToggleFileNames(); }},
    {kImageListEntry, "View Image Filename Listing"_L1, [](frm_Main& m) { m.Capture().ToggleListBox(); }},
    {7, kSeparator},
    {kManualEntry, "Hide Manual Comp Entry"_L1, [](frm_Main& m) { m.setup.ToggleManualEntry(); }},
    {9, kSeparator},
    {10, "General Views"_L1, [](frm_Main& m) { ShowGeneralViews(m.program); }},
};

constexpr Row kMaintenance[] = {
    {0, "Data Correction"_L1, [](frm_Main& m) { ShowMaintenance(m.program, m.shown); }},
    {1, kSeparator},
    {2, "Camera Views"_L1, [](frm_Main& m) { m.captureEvents.ShowCameraDir(); }},
    {3, "City Editing"_L1, [](frm_Main& m) { MassCity(m.program, m.shown); }},
    {4, "Trashcan Maintenance"_L1, [](frm_Main& m) { ShowTrash(m.program); }},
    {5, kSeparator},
    {6, "Map Data"_L1, [](frm_Main& m) { ShowMapData(m.program, m.map); }},
};

constexpr Row kTransfer[] = {
    {0, "Subject: Appraisal to Databook"_L1,
     [](frm_Main& m) {
         TransferBy(m, [](auto& desk) { return link::TransferSubject(desk, link::What::Both, 0); });
     }},
    {1, kSeparator},
    {2, "Comps 1-9: Appraisal to Databook"_L1,
     [](frm_Main& m) {
         TransferBy(m, [](auto& desk) { return link::TransferComps(desk, true, 0, link::What::Both); });
     }},
    {3, "Alt Comps 1-6: Appraisal to Databook"_L1,
     [](frm_Main& m) {
         TransferBy(m, [](auto& desk) { return link::TransferAltComps(desk, true, 0, link::What::Both); });
     }},
    {4, "Listings 1-6: Appraisal to Databook"_L1,
     [](frm_Main& m) {
         TransferBy(m, [](auto& desk) { return link::TransferListings(desk, true, 0, link::What::Both); });
     }},
    {5, "Rentals 1-9: Appraisal to Databook"_L1,
     [](frm_Main& m) {
         TransferBy(m, [](auto& desk) { return link::TransferRentals(desk, true, 0, link::What::Both); });
     }},
    {6, kSeparator},
    {7, "All Data: Appraisal to Databook"_L1,
     [](frm_Main& m) {
         TransferBy(m, [](auto& desk) { return link::TransferAllData(desk, link::What::Both); });
     },
     "Ctrl+T"_L1},
};

constexpr Row kRefresh[] = {
    {0, "Appraisal Information"_L1, [](frm_Main& m) { m.linkLine.RefreshAppraisal(); }, "F5"_L1},
    {1, kSeparator},
    {2, "Database Grid (all records shown)"_L1, [](frm_Main& m) { m.rows.ShowAllRecords(); }, "Shift+F5"_L1},
};

constexpr Row kDatabase[] = {
    {0, "Import Data"_L1, [](frm_Main& m) { ShowImport(m.program, m.shown); }},
    {1, "Export Data"_L1, [](frm_Main& m) { ShowExport(m.program); }},
    {2, "Archive Data"_L1, [](frm_Main& m) { ShowArchive(m.program, m.shown); }},
    {3, kSeparator},
    {4, "Change Current Database"_L1, [](frm_Main& m) { m.databookInUse.ChangeDatabase(); }, "Ctrl+D"_L1},
};

constexpr Row kHelp[] = {
    {0, "Program Help"_L1, [](frm_Main& m) { OpenHelp(m.program, m); }},
    {.index = kTutorialsEntry, .caption = "Tutorials"_L1, .sub = kTutorials},
    {2, "What's New?"_L1, [](frm_Main& m) { Q_EMIT m.WhatsNewWanted(ChangesText(m.program)); }},
    {8, kSeparator},
    {kWebsiteEntry, "Connect to Website"_L1, [](frm_Main& m) { ConnectToWebsite(m.program); }},
    {11, kSeparator},
    {12, "About"_L1, [](frm_Main& m) { Q_EMIT m.AboutWanted(); }},
};

constexpr Row kGrid[] = {
    {0, "Refesh Grid"_L1, [](frm_Main& m) { Q_EMIT m.records.cmdRefresh.Clicked(); }},
    {1, kSeparator},
    {kSearchEntry, "Search"_L1, [](frm_Main& m) { Q_EMIT m.records.cmdSearch.Clicked(); }},
    {3, kSeparator},
    {4, "Refresh from Appraisal"_L1, [](frm_Main& m) { m.linkLine.RefreshAppraisal(); }},
    {5, "Addresses in Memory"_L1},
};

constexpr Row kPhoto[] = {
    {kRenameViewEntry, "Rename View"_L1,
     [](frm_Main& m) { m.recordPhotos.FromMenu(&RecordPhotos::CmdRenamePhotoView_Click); }},
    {kDeletePhotoEntry, "Delete Photo"_L1, [](frm_Main& m) { m.recordPhotos.FromMenu(&RecordPhotos::CmdDeletePhoto_Click); }},
};

constexpr Row kThumb[] = {
    {kDeleteImageEntry, "Delete Image"_L1, [](frm_Main& m) { m.captureEvents.DeleteImage(); }},
    {1, kSeparator},
    {kThumbNamesEntry, "View Image Name"_L1, [](frm_Main& m) { m.Capture().ToggleFileNames(); }},
    {3, "Compress Image"_L1, [](frm_Main& m) { m.captureEvents.CompressImage(); }},
    {4, kSeparator},
    {kThumbListEntry, "View Image Listbox"_L1, [](frm_Main& m) { m.Capture().ToggleListBox(); }},
};

constexpr Row kPicture[] = {
    {0, "Obtain Selected Photo (from databook)"_L1,
     [](frm_Main& m) { m.popUps.OnPhoto("popPicture_M", drops::ObtainPhoto); }},
    {kAllPhotosEntry, ""_L1, // by what the menu opens over
     [](frm_Main& m) { m.popUps.OnPhoto("popPicture_M", drops::ObtainShownPhotos); }},
    {2, kSeparator},
    {3, "Clear Selected Photo from Appraisal"_L1,
     [](frm_Main& m) { m.popUps.OnPhoto("popPicture_M", drops::ClearPhoto); }},
};

constexpr Row kGeneral[] = {
    {.index = 0,
     .caption = "Obtain Selected Photo (from databook)"_L1,
     .action = [](frm_Main& m) { m.popUps.OnPhoto("popGeneral_M", ObtainGeneral); },
     .toolTip = "General Photos Come from the shown above"_L1},
    {1, kSeparator},
    {2, "Clear Selected Photo from Appraisal"_L1,
     [](frm_Main& m) { m.popUps.OnPhoto("popGeneral_M", drops::ClearPhoto); }},
};

constexpr Row kTextData[] = {
    {kObtainDataEntry, "Obtain Data (from databook)"_L1,
     [](frm_Main& m) { m.popUps.OnSlot("popTextData_M", Obtain<drops::WithPhoto::No>); }},
    {kObtainShownEntry, "Obtain Data: ALL 3 shown (from databook)"_L1,
     [](frm_Main& m) { m.popUps.OnSlot("popTextData_M", ObtainShown<drops::WithPhoto::No>); }},
    {2, kSeparator},
    {3, "Save Selected Data to Database"_L1,
     [](frm_Main& m) { m.popUps.OnSlot("popTextData_M", drops::SaveDataOfSlot, link::messages::kSavingSlot); }},
    {4, kSeparator},
    {.index = kSwapEntry, .caption = "Swap in the Appraisal with"_L1, .sub = kSwapEntries},
};

constexpr Row kPicAndData[] = {
    {0, "Obtain Both Photo and Data (from databook)"_L1,
     [](frm_Main& m) { m.popUps.OnSlot("popPicAndData_M", Obtain<drops::WithPhoto::Yes>); }},
    {1, "Obtain Both Photo and Data: ALL 3 shown (from databook)"_L1,
     [](frm_Main& m) { m.popUps.OnSlot("popPicAndData_M", ObtainShown<drops::WithPhoto::Yes>); }},
};

/// The entries of a menu or a submenu, in stored order.
struct Table
{
    QLatin1StringView array;
    std::span<const Row> rows;
};

constexpr Table kTables[] = {
    {"mnuFileItem"_L1, kFile},
    {kExports, kExport},
    {"mnuSetupItem"_L1, kSetup},
    {"mnuMaintItem"_L1, kMaintenance},
    {"mnuTransferItem"_L1, kTransfer},
    {"mnuRefreshItem"_L1, kRefresh},
    {"mnuDBItem"_L1, kDatabase},
    {"mnuHelpItem"_L1, kHelp},
    {"popGrid_M"_L1, kGrid},
    {"popPhoto_M"_L1, kPhoto},
    {"popThumb_M"_L1, kThumb},
    {"popPicture_M"_L1, kPicture},
    {"popGeneral_M"_L1, kGeneral},
    {"popTextData_M"_L1, kTextData},
    {"popPicAndData_M"_L1, kPicAndData},
};

/// Submenus whose entries the program makes while it runs: one action, with the index that was chosen.
struct Made
{
    QLatin1StringView array;
    void (*action)(frm_Main&, int index);
};

constexpr Made kMade[] = {
    {kTutorials, [](frm_Main& m, int index) { StartTutorial(m.program, m.mnuHelpItem, index); }},
    {kSwapEntries, [](frm_Main& m, int index) { m.popUps.Swap(index); }},
};

template <typename Tables>
const auto* TableOf(const Tables& tables, const QString& array)
{
    const auto found = std::find_if(std::begin(tables), std::end(tables),
                                    [&](const auto& table) { return table.array == array; });
    return found == std::end(tables) ? nullptr : found;
}

QList<forms::MenuEntry> EntriesOf(const QString& array)
{
    QList<forms::MenuEntry> entries;
    const Table* table = TableOf(kTables, array);
    if (table == nullptr)
        return entries;
    for (const Row& row : table->rows) {
        const QList<forms::MenuEntry> below = EntriesOf(row.sub);
        const bool leads = std::any_of(below.begin(), below.end(), [](const auto& entry) { return entry.enabled; });
        entries.append({.index = row.index,
                        .caption = row.caption,
                        .enabled = row.action != nullptr || TableOf(kMade, row.sub) != nullptr || leads,
                        .shortcut = row.shortcut,
                        .subEntries = below,
                        .subName = row.sub,
                        .toolTip = row.toolTip});
    }
    return entries;
}

} // namespace

Menus::Menus(forms::ControlSet& controls)
    : mnuFileItem(controls, u"mnuFileItem"_s, u"&File"_s, EntriesOf(u"mnuFileItem"_s))
    , mnuSetupItem(controls, u"mnuSetupItem"_s, u"&Setup"_s, EntriesOf(u"mnuSetupItem"_s))
    , mnuMaintItem(controls, u"mnuMaintItem"_s, u"&Maintenance"_s, EntriesOf(u"mnuMaintItem"_s))
    , mnuTransferItem(controls, u"mnuTransferItem"_s, u"&Transfer"_s, EntriesOf(u"mnuTransferItem"_s))
    , mnuRefreshItem(controls, u"mnuRefreshItem"_s, u"&Refresh"_s, EntriesOf(u"mnuRefreshItem"_s))
    , mnuDBItem(controls, u"mnuDBItem"_s, u"&Database"_s, EntriesOf(u"mnuDBItem"_s))
    , mnuHelpItem(controls, u"mnuHelpItem"_s, u"&Help"_s, EntriesOf(u"mnuHelpItem"_s))
    , popGrid_M(controls, u"popGrid_M"_s, {}, EntriesOf(u"popGrid_M"_s))
    , popPhoto_M(controls, u"popPhoto_M"_s, {}, EntriesOf(u"popPhoto_M"_s))
    , popThumb_M(controls, u"popThumb_M"_s, {}, EntriesOf(u"popThumb_M"_s))
    , popPicture_M(controls, u"popPicture_M"_s, {}, EntriesOf(u"popPicture_M"_s))
    , popGeneral_M(controls, u"popGeneral_M"_s, {}, EntriesOf(u"popGeneral_M"_s))
    , popTextData_M(controls, u"popTextData_M"_s, {}, EntriesOf(u"popTextData_M"_s))
    , popPicAndData_M(controls, u"popPicAndData_M"_s, {}, EntriesOf(u"popPicAndData_M"_s))
{
    QList<forms::MenuEntry> entries = popTextData_M.Entries();
    for (int comp = 1; comp <= photos::kComps; ++comp)
        entries.last().subEntries.append({.index = comp, .caption = u"Comp &%1"_s.arg(comp)});
    popTextData_M.SetEntries(entries);
    popPicture_M.SetEntryCaption(kAllPhotosEntry, PictureEntryCaption(false));
    // Until the settings name a page, and the program directory holds tutorials.
    mnuHelpItem.SetEntryEnabled(kWebsiteEntry, false);
    mnuHelpItem.SetEntryEnabled(kTutorialsEntry, false);
}

QList<forms::Menu*> Menus::All()
{
    return {&mnuFileItem,  &mnuSetupItem, &mnuMaintItem,  &mnuTransferItem, &mnuRefreshItem,
            &mnuDBItem,    &mnuHelpItem,  &popGrid_M,     &popPhoto_M,      &popThumb_M,
            &popPicture_M, &popGeneral_M, &popTextData_M, &popPicAndData_M};
}

QString PictureEntryCaption(bool subject)
{
    return subject ? u"Obtain ALL 3 Subject Views(from databook)"_s
                   : u"Obtain 3 Shown Front Views (from databook)"_s;
}

void Choose(frm_Main& main, const QString& array, int index)
{
    if (const Made* made = TableOf(kMade, array)) {
        made->action(main, index);
    } else if (const Table* table = TableOf(kTables, array)) {
        const auto row = std::find_if(table->rows.begin(), table->rows.end(),
                                      [index](const Row& candidate) { return candidate.index == index; });
        if (row != table->rows.end() && row->action != nullptr)
            row->action(main);
    }
}

} // namespace vasclip::shell
