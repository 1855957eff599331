#include "windows/slot_groups.h"

#include "forms/controls.h"

namespace vasclip::windows {

namespace {

QByteArray Name(bool has, const char* kind, const link::GroupRow& row, const char* rest = "")
{
    return has ? QByteArray(kind) + QByteArray(row.controls.data(), row.controls.size()) + rest : QByteArray();
}

} // namespace

SlotGroup::SlotGroup(const link::GroupRow& table)
    : row(table)
    , text(Name(table.texts != nullptr, table.group == link::Group::General ? "cbo" : "txt", table))
    , photo(Name(true, "ima", table))
    , box(Name(table.boxes != nullptr, "gea", table))
    , icon(Name(true, "ima", table, "Icon"))
    , anchor(Name(table.anchors != nullptr, "ima", table, "Anchor"))
    , heading(Name(table.headings != nullptr, "lbl", table))
{}

const std::vector<SlotGroup>& SlotGroups()
{
    static const std::vector<SlotGroup> groups(link::GroupTable().begin(), link::GroupTable().end());
    return groups;
}

bool PageAvailable(const forms::ControlSet& controls, const SlotGroup& group, int page)
{
    const auto* tab = qobject_cast<const forms::TabControl*>(controls.Find(group.row.tab));
    const int at = group.row.firstPage + page;
    return tab != nullptr && at < tab->Tabs() && tab->Enabled() && tab->TabEnabled(at) &&
           tab->TabCaption(at) != link::kNotAvailable;
}

} // namespace vasclip::windows
