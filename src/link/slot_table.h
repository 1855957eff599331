#pragma once

#include "link/report_desk.h"
#include "photos/slot_counts.h"
#include "photos/slots.h"

#include <QLatin1StringView>

#include <span>

namespace vasclip::link {

/// The groups of slots, in the order of their tabs.
enum class Group { Subject, Sales, Alternates, General, Listings, Rentals };

/// One slot of the report.
struct SlotRef
{
    Group group = Group::Subject;
    int index = 0; ///< 1 and up; of the subject, which has one text, the number of the photo
    bool operator==(const SlotRef&) const = default;
};

/// Slots that are on view together.
inline constexpr int kSlotsOnAPage = 3;
/// The subject's number among the comps of the mapping.
inline constexpr qint16 kSubjectComp = 10;
/// The caption of a page that the report does not have.
inline constexpr QLatin1StringView kNotAvailable{"N/A"};

/// All that differs from group to group. A new group is a row here and its controls.
struct GroupRow
{
    using Texts = forms::ControlArray<forms::TextBox>;
    using Pictures = forms::ControlArray<forms::PictureBox>;
    using Labels = forms::ControlArray<forms::Label>;

    Group group;
    QLatin1StringView controls; ///< what the names of its controls end in: "Comp" of imaComp, geaComp, txtComp
    QLatin1StringView letters;  ///< by which a control's name shows it to the report's image objects
    QLatin1StringView title = {};    ///< for people: "Alt comp"
    QLatin1StringView heading = {};  ///< above its pages: "Alt Comparables"; "" for none
    QLatin1StringView lamp = {};     ///< of a data box that has been clicked; "" for a group without data boxes

    QLatin1StringView wire = {};    ///< names its image objects, and a step of the refresh: "CMP"
    QLatin1StringView pageKey = {}; ///< its pages in KEL.INI are this and a number
    QLatin1StringView mapping = {}; ///< COMPTYPE of its rows in the mapping; "" for none
    QLatin1StringView storing = {}; ///< its word while a record is stored; "" for none

    int slots;
    QLatin1StringView tab; ///< name of the inner tab control
    int dataPage;          ///< page of TabData, above it
    int firstPage;         ///< its first page of the inner tab
    int pages;
    int gathered;            ///< its place when addresses are gathered; 0 for a group without addresses
    const char* iconRoutine;     ///< under which its icons report a failure
    const char* transferRoutine; ///< under which a transfer of its slots does

    // Where a group has none of a kind, the member is null.
    forms::TabControl ReportControls::*tabControl = nullptr;
    Texts ReportControls::*texts = nullptr;
    Labels ReportControls::*headings = nullptr;
    Pictures photos::SlotControls::*photos = nullptr;
    Pictures photos::SlotControls::*boxes = nullptr;
    Pictures photos::SlotControls::*icons = nullptr;
    Pictures photos::SlotControls::*anchors = nullptr;
    Texts frm_Addr::*addresses = nullptr;
    Texts frm_Addr::*cities = nullptr;
    Texts frm_Addr::*states = nullptr;
    Texts frm_Addr::*zips = nullptr;

    /// Is it one of the four groups of comps, which have data in the mapping?
    [[nodiscard]] constexpr bool Comps() const { return gathered > 0; }
};

/// Every group, in the order of the tabs.
[[nodiscard]] std::span<const GroupRow> GroupTable();
[[nodiscard]] const GroupRow& RowOf(Group group);
/// The groups of comps in the order in which their addresses are gathered.
[[nodiscard]] std::span<const GroupRow* const> GatheredGroups();

/// The group of a control's name, in any case: "imaComp", "txtComp" and "geaComp" are of the sales. nullptr for a
/// control of no slot.
[[nodiscard]] const GroupRow* GroupOf(const QString& controlName);
/// The same for names that hold a group's word anywhere, as "imaCompIcon" does.
[[nodiscard]] const GroupRow* GroupWithin(const QString& controlName);
/// The same by the letters that the image objects go by.
[[nodiscard]] const GroupRow* GroupOfLetters(const QString& controlName);
/// The group of comps of a word: its COMPTYPE, "ALTCOMP" or "ALTCOMPS"; nullptr for a word of none.
[[nodiscard]] const GroupRow* GroupOfWord(const QString& compType);

/// Which page of its inner tab a slot is on, from 0.
[[nodiscard]] constexpr int PageOf(const GroupRow& row, int index)
{
    return row.firstPage + (index - 1) / kSlotsOnAPage;
}
/// First of the slots that are on view together with this one.
[[nodiscard]] constexpr int FirstShown(int index)
{
    return (index - 1) / kSlotsOnAPage * kSlotsOnAPage + 1;
}

/// The text beside a slot: key of its record.
[[nodiscard]] forms::TextBox& TextOf(ReportControls& report, SlotRef slot);
/// Its picture. An index that the subject has not stands for its first photo.
[[nodiscard]] forms::PictureBox& PhotoOf(photos::SlotControls& slots, SlotRef slot);
/// Its data box; nullptr for a slot without one.
[[nodiscard]] forms::PictureBox* BoxOf(photos::SlotControls& slots, SlotRef slot);
/// Is the slot on a page that the report does not have?
[[nodiscard]] bool OnMissingPage(const ReportControls& report, SlotRef slot);

} // namespace vasclip::link
