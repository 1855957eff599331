#include "shell/menus.h"

#include <QLatin1StringView>

#include <initializer_list>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

enum class Screen { Here, Missing };

struct Row
{
    int index;
    QLatin1StringView caption;
    Screen screen = Screen::Missing;
    QLatin1StringView shortcut = {};
};

constexpr auto kSeparator = "-"_L1;

QList<forms::MenuEntry> Entries(std::initializer_list<Row> rows)
{
    QList<forms::MenuEntry> entries;
    for (const Row& row : rows) {
        forms::MenuEntry entry;
        entry.index = row.index;
        entry.caption = row.caption;
        entry.enabled = row.screen == Screen::Here;
        entry.shortcut = row.shortcut;
        entries.append(entry);
    }
    return entries;
}

} // namespace

QList<forms::MenuEntry> FileEntries()
{
    auto entries = Entries({
        {0, "Launch Appraisal Program"_L1, Screen::Here, "Ctrl+L"_L1},
        {1, kSeparator},
        {2, "Copy Photos - From Floppy"_L1, Screen::Here},
        {3, "Copy Photos - From Reader"_L1, Screen::Here},
        {4, "Copy Photos - From ROM"_L1, Screen::Here},
        {5, kSeparator},
        {6, "Find Photos"_L1, Screen::Here},
        {7, kSeparator},
        {8, "Export Address/Comp Data"_L1},
        {9, "Print Comparable Report (from Database)"_L1},
        {10, kSeparator},
        {11, "Exit"_L1, Screen::Here, "Ctrl+Q"_L1},
    });
    entries[8].subName = u"mnuFileItemSubExport"_s;
    entries[8].subEntries = Entries({
        {0, "To Delorme (tm) Street Atlas (current)"_L1},
        {1, "To Delorme (tm) Street Atlas (2004 and prior)"_L1},
        {2, kSeparator},
        {3, "To Microsoft (tm) Streets (current)"_L1},
        {4, "To Microsoft (tm) Streets (2001 and prior)"_L1},
    });
    return entries;
}

QList<forms::MenuEntry> SetupEntries()
{
    return Entries({
        {0, "Configuration"_L1, Screen::Here, "Ctrl+,"_L1},
        {1, kSeparator},
        {2, "Grid Layout"_L1, Screen::Here},
        {3, "City Listings"_L1, Screen::Here},
        {4, kSeparator},
        {kImageNamesEntry, "View Capture Image Names"_L1, Screen::Here},
        {kImageListEntry, "View Image Filename Listing"_L1, Screen::Here},
        {7, kSeparator},
        {kManualEntry, "Hide Manual Comp Entry"_L1, Screen::Here},
        {9, kSeparator},
        {10, "General Views"_L1, Screen::Here},
    });
}

QList<forms::MenuEntry> MaintenanceEntries()
{
    return Entries({
        {0, "Data Correction"_L1},
        {1, kSeparator},
        {2, "Camera Views"_L1, Screen::Here},
        {3, "City Editing"_L1, Screen::Here},
        {4, "Trashcan Maintenance"_L1, Screen::Here},
    });
}

QList<forms::MenuEntry> TransferEntries()
{
    return Entries({
        {0, "Subject: Appraisal to Databook"_L1, Screen::Here},
        {1, kSeparator},
        {2, "Comps 1-9: Appraisal to Databook"_L1, Screen::Here},
        {3, "Alt Comps 1-6: Appraisal to Databook"_L1, Screen::Here},
        {4, "Listings 1-6: Appraisal to Databook"_L1, Screen::Here},
        {5, "Rentals 1-9: Appraisal to Databook"_L1, Screen::Here},
        {6, kSeparator},
        {7, "All Data: Appraisal to Databook"_L1, Screen::Here, "Ctrl+T"_L1},
    });
}

QList<forms::MenuEntry> RefreshEntries()
{
    return Entries({
        {0, "Appraisal Information"_L1, Screen::Here, "F5"_L1},
        {1, kSeparator},
        {2, "Database Grid (all records shown)"_L1, Screen::Here, "Shift+F5"_L1},
    });
}

QList<forms::MenuEntry> DatabaseEntries()
{
    return Entries({
        {0, "Import Data"_L1},
        {1, "Export Data"_L1},
        {2, "Archive Data"_L1},
        {3, kSeparator},
        {4, "Change Current Database"_L1, Screen::Here, "Ctrl+D"_L1},
    });
}

QList<forms::MenuEntry> HelpEntries()
{
    return Entries({
        {0, "Program Help"_L1, Screen::Here},
        {1, "Tutorials"_L1},
        {2, "What's New?"_L1, Screen::Here},
        {8, kSeparator},
        {kWebsiteEntry, "Connect to Website"_L1},
        {11, kSeparator},
        {12, "About"_L1, Screen::Here},
    });
}

QList<forms::MenuEntry> GridEntries()
{
    return Entries({
        {0, "Refesh Grid"_L1, Screen::Here},
        {1, kSeparator},
        {2, "Search"_L1},
        {3, kSeparator},
        {4, "Refresh from Appraisal"_L1, Screen::Here},
        {5, "Addresses in Memory"_L1},
    });
}

QList<forms::MenuEntry> PhotoEntries()
{
    return Entries({
        {0, "Rename View"_L1, Screen::Here},
        {1, "Delete Photo"_L1, Screen::Here},
    });
}

QList<forms::MenuEntry> ThumbEntries()
{
    return Entries({
        {0, "Delete Image"_L1, Screen::Here},
        {1, kSeparator},
        {2, "View Image Name"_L1, Screen::Here},
        {3, "Compress Image"_L1, Screen::Here},
        {4, kSeparator},
        {5, "View Image Listbox"_L1, Screen::Here},
    });
}

QList<forms::MenuEntry> PictureEntries()
{
    auto entries = Entries({
        {0, "Obtain Selected Photo (from databook)"_L1, Screen::Here},
        {1, ""_L1, Screen::Here},
        {2, kSeparator},
        {3, "Clear Selected Photo from Appraisal"_L1, Screen::Here},
    });
    entries[1].caption = PictureEntryCaption(false);
    return entries;
}

QString PictureEntryCaption(bool subject)
{
    return subject ? u"Obtain ALL 3 Subject Views(from databook)"_s
                   : u"Obtain 3 Shown Front Views (from databook)"_s;
}

QList<forms::MenuEntry> GeneralEntries()
{
    auto entries = Entries({
        {0, "Obtain Selected Photo (from databook)"_L1, Screen::Here},
        {1, kSeparator},
        {2, "Clear Selected Photo from Appraisal"_L1, Screen::Here},
    });
    entries[0].toolTip = u"General Photos Come from the shown above"_s;
    return entries;
}

QList<forms::MenuEntry> TextDataEntries()
{
    auto entries = Entries({
        {0, "Obtain Data (from databook)"_L1, Screen::Here},
        {1, "Obtain Data: ALL 3 shown (from databook)"_L1, Screen::Here},
        {2, kSeparator},
        {3, "Save Selected Data to Database"_L1, Screen::Here},
        {4, kSeparator},
        {kSwapEntry, "Swap in the Appraisal with"_L1, Screen::Here},
    });
    entries[kSwapEntry].subName = kSwapEntries;
    for (int comp = 1; comp <= 9; ++comp)
        entries[kSwapEntry].subEntries.append({.index = comp, .caption = u"Comp &%1"_s.arg(comp)});
    return entries;
}

QList<forms::MenuEntry> PicAndDataEntries()
{
    return Entries({
        {0, "Obtain Both Photo and Data (from databook)"_L1, Screen::Here},
        {1, "Obtain Both Photo and Data: ALL 3 shown (from databook)"_L1, Screen::Here},
    });
}

} // namespace vasclip::shell
