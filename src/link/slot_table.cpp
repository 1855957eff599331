#include "link/slot_table.h"

#include "platform/text/text.h"

#include <algorithm>
#include <array>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

using R = ReportControls;
using S = photos::SlotControls;
using A = frm_Addr;

constexpr std::array kGroups{
    GroupRow{.group = Group::Subject, .controls = "Subject"_L1, .letters = "SUBJ"_L1, .title = "Subject"_L1,
             .wire = "SUB"_L1, .pageKey = "SUBJECT_"_L1, .mapping = "SALE"_L1, .storing = "SALE"_L1,
             .slots = photos::kSubjectPhotos, .tab = "TabSubject"_L1, .dataPage = 0, .firstPage = 0, .pages = 1,
             .gathered = 0, .iconRoutine = "RefreshSubjectIcons", .transferRoutine = "TransferSubject",
             .tabControl = &R::TabSubject,
             .photos = &S::imaSubject, .icons = &S::imaSubjectIcon, .anchors = &S::imaSubjectAnchor},
    GroupRow{.group = Group::Sales, .controls = "Comp"_L1, .letters = "COMP"_L1, .title = "Comp"_L1,
             .heading = "Comparables"_L1, .lamp = "compfull.jpg"_L1,
             .wire = "CMP"_L1, .pageKey = "COMPARABLES_"_L1, .mapping = "SALE"_L1, .storing = "COMP"_L1,
             .slots = photos::kComps, .tab = "TabComp"_L1, .dataPage = 1, .firstPage = 0, .pages = 3, .gathered = 1,
             .iconRoutine = "RefreshCompIcons", .transferRoutine = "TransferComps",
             .tabControl = &R::TabComp, .texts = &R::txtComp, .headings = &R::lblComp,
             .photos = &S::imaComp, .boxes = &S::geaComp, .icons = &S::imaCompIcon, .anchors = &S::imaCompAnchor,
             .addresses = &A::txtCompAddr, .cities = &A::txtCompCity, .states = &A::txtCompState,
             .zips = &A::txtCompZip},
    GroupRow{.group = Group::Alternates, .controls = "AltComp"_L1, .letters = "ALTCOMP"_L1, .title = "Alt comp"_L1,
             .heading = "Alt Comparables"_L1, .lamp = "compfull.jpg"_L1,
             .wire = "ALT"_L1, .pageKey = "ALTPH"_L1, .mapping = "ALT"_L1, .storing = "ALT"_L1,
             .slots = photos::kAltComps, .tab = "TabComp"_L1, .dataPage = 1, .firstPage = 3, .pages = 2, .gathered = 2,
             .iconRoutine = "RefreshAltCompIcons", .transferRoutine = "TransferAltComps",
             .tabControl = &R::TabComp, .texts = &R::txtAltComp,
             .headings = &R::lblAltComp,
             .photos = &S::imaAltComp, .boxes = &S::geaAltComp, .icons = &S::imaAltCompIcon,
             .anchors = &S::imaAltCompAnchor, .addresses = &A::txtAltCompAddr, .cities = &A::txtAltCompCity,
             .states = &A::txtAltCompState, .zips = &A::txtAltCompZip},
    GroupRow{.group = Group::General, .controls = "General"_L1, .letters = "GEN"_L1, .title = "General"_L1,
             .wire = "GN"_L1, .pageKey = "GENERAL_"_L1,
             .slots = photos::kGeneralPhotos, .tab = "TabGeneral"_L1, .dataPage = 2, .firstPage = 0, .pages = 12,
             .gathered = 0, .iconRoutine = "RefreshGeneralIcons", .transferRoutine = "TransferSubject",
             .tabControl = &R::TabGeneral, .texts = &R::txtgeneraladdr,
             .photos = &S::imaGeneral, .icons = &S::imaGeneralIcon},
    GroupRow{.group = Group::Listings, .controls = "Listing"_L1, .letters = "LIST"_L1, .title = "Listing"_L1,
             .heading = "Listings"_L1, .lamp = "LISTfull.jpg"_L1,
             .wire = "LCMP"_L1, .pageKey = "LISTINGS_"_L1, .mapping = "LIST"_L1, .storing = "LIST"_L1,
             .slots = photos::kListings, .tab = "TabListing"_L1, .dataPage = 3, .firstPage = 0, .pages = 2,
             .gathered = 4, .iconRoutine = "RefreshListingIcons", .transferRoutine = "TransferListings",
             .tabControl = &R::TabListing, .texts = &R::txtListing,
             .headings = &R::lblListing,
             .photos = &S::imaListing, .boxes = &S::geaListing, .icons = &S::imaListingIcon,
             .anchors = &S::imaListingAnchor, .addresses = &A::txtListingAddr, .cities = &A::txtListCity,
             .states = &A::txtListState, .zips = &A::txtListZip},
    GroupRow{.group = Group::Rentals, .controls = "Rental"_L1, .letters = "RENT"_L1, .title = "Rental"_L1,
             .heading = "Rentals"_L1, .lamp = "RENTfull.jpg"_L1,
             .wire = "RCMP"_L1, .pageKey = "RENTALS_"_L1, .mapping = "RENT"_L1, .storing = "RENT"_L1,
             .slots = photos::kRentals, .tab = "TabRental"_L1, .dataPage = 4, .firstPage = 0, .pages = 3, .gathered = 3,
             .iconRoutine = "RefreshRentalIcons", .transferRoutine = "TransferRentals",
             .tabControl = &R::TabRental, .texts = &R::txtRental,
             .headings = &R::lblRental,
             .photos = &S::imaRental, .boxes = &S::geaRental, .icons = &S::imaRentalIcon,
             .anchors = &S::imaRentalAnchor,
             .addresses = &A::txtRentalAddr, .cities = &A::txtRentCity, .states = &A::txtRentState,
             .zips = &A::txtRentZip},
};

constexpr bool InOrder()
{
    for (std::size_t i = 0; i < kGroups.size(); ++i)
        if (kGroups[i].group != static_cast<Group>(i))
            return false;
    return true;
}
static_assert(InOrder(), "RowOf counts on it");

/// Of the groups whose word the name holds, the one of the longest: "ALTCOMP" holds "COMP" as well.
template <class Word>
const GroupRow* LongestWithin(const QString& name, Word&& word)
{
    const GroupRow* found = nullptr;
    for (const GroupRow& row : kGroups)
        if (name.contains(word(row), Qt::CaseInsensitive) && (!found || word(row).size() > word(*found).size()))
            found = &row;
    return found;
}

} // namespace

std::span<const GroupRow> GroupTable()
{
    return kGroups;
}

const GroupRow& RowOf(Group group)
{
    return kGroups[static_cast<std::size_t>(group)];
}

std::span<const GroupRow* const> GatheredGroups()
{
    static const QList<const GroupRow*> order = [] {
        QList<const GroupRow*> rows;
        for (const GroupRow& row : kGroups)
            if (row.Comps())
                rows.append(&row);
        std::sort(rows.begin(), rows.end(),
                  [](const GroupRow* a, const GroupRow* b) { return a->gathered < b->gathered; });
        return rows;
    }();
    return {order.constData(), static_cast<std::size_t>(order.size())};
}

const GroupRow* GroupOf(const QString& controlName)
{
    constexpr qsizetype kPrefix = 3; // ima, gea, txt, cbo
    const QString name = text::Trim(controlName).mid(kPrefix);
    const auto found = std::find_if(kGroups.begin(), kGroups.end(), [&](const GroupRow& row) {
        return name.compare(row.controls, Qt::CaseInsensitive) == 0;
    });
    return found == kGroups.end() ? nullptr : &*found;
}

const GroupRow* GroupWithin(const QString& controlName)
{
    return LongestWithin(controlName, [](const GroupRow& row) { return row.controls; });
}

const GroupRow* GroupOfLetters(const QString& controlName)
{
    return LongestWithin(controlName, [](const GroupRow& row) { return row.letters; });
}

const GroupRow* GroupOfWord(const QString& compType)
{
    const QString word = text::Folded(compType);
    const auto found = std::find_if(kGroups.begin(), kGroups.end(), [&](const GroupRow& row) {
        const QString name = QString(row.controls).toUpper();
        return row.Comps() && (word == row.mapping || word == name || word == name + u'S');
    });
    return found == kGroups.end() ? nullptr : &*found;
}

forms::TextBox& TextOf(ReportControls& report, SlotRef slot)
{
    const auto texts = RowOf(slot.group).texts;
    return texts ? (report.*texts)(slot.index) : report.txtSubject;
}

forms::PictureBox& PhotoOf(photos::SlotControls& slots, SlotRef slot)
{
    const GroupRow& row = RowOf(slot.group);
    return (slots.*row.photos)(row.texts ? slot.index : std::clamp(slot.index, 1, row.slots));
}

forms::PictureBox* BoxOf(photos::SlotControls& slots, SlotRef slot)
{
    const auto boxes = RowOf(slot.group).boxes;
    return boxes ? &(slots.*boxes)(slot.index) : nullptr;
}

bool OnMissingPage(const ReportControls& report, SlotRef slot)
{
    const GroupRow& row = RowOf(slot.group);
    const forms::TabControl& tab = report.*row.tabControl;
    const int page = PageOf(row, slot.index);
    return row.texts && slot.index >= 1 && page < tab.Tabs() && tab.TabCaption(page) == kNotAvailable;
}

} // namespace vasclip::link
