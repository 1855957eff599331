#pragma once

#include "link/slot_table.h"

#include <QByteArray>

#include <vector>

namespace vasclip::forms {
class ControlSet;
}

namespace vasclip::windows {

using link::kSlotsOnAPage;

/// The names of a group's controls, by the one table of slots. A name that is empty is a control that the group does
/// not have.
struct SlotGroup
{
    explicit SlotGroup(const link::GroupRow& row);

    const link::GroupRow& row;
    QByteArray text; ///< key of the record in the slot; of a general one its description
    QByteArray photo;
    QByteArray box; ///< data box
    QByteArray icon;
    QByteArray anchor;
    QByteArray heading; ///< label above the page, 0-based
    [[nodiscard]] bool Subject() const { return row.group == link::Group::Subject; }
};

[[nodiscard]] const std::vector<SlotGroup>& SlotGroups();

/// The controls' tab says whether the report has this page: enabled and not kNotAvailable.
[[nodiscard]] bool PageAvailable(const forms::ControlSet& controls, const SlotGroup& group, int page);

} // namespace vasclip::windows
