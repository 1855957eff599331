#include "map/slot_labels.h"

#include "map/pinmap.h"
#include "map/selection.h"
#include "platform/text/text.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

QString Word(Group group)
{
    return QString(link::RowOf(group).title).toUpper() + u" #"_s;
}

} // namespace

QString LabelOf(link::SlotRef slot)
{
    return Word(slot.group) + text::Dec(slot.index);
}

std::optional<link::SlotRef> SlotOfLabel(const QString& label)
{
    const QString wanted = text::Folded(label);
    for (const Group group : kMapGroups)
        for (int n = 1; n <= link::RowOf(group).slots; ++n)
            if (wanted == LabelOf({group, n}))
                return link::SlotRef{group, n};
    return std::nullopt;
}

qint32 PointOfLabel(MapDesk& desk, const QString& label)
{
    if (text::Folded(label) == "SUBJECT"_L1)
        return FindSubjectPoint(desk);
    if (const qint32 id = FindMapPoint(desk, FindBy::Caption, label); id >= 1)
        return id;
    const std::optional<link::SlotRef> slot = SlotOfLabel(label);
    if (!slot)
        return -1;
    for (qint32 id = 1; id <= desk.state.g_MapPointCount; ++id)
        if (const std::optional<MapPoint> point = LoadPoint(desk, id); point && SlotOf(*point) == slot)
            return id;
    const QString address = AddressAt(desk, *slot);
    return address.isEmpty() ? -1 : FindMapPoint(desk, FindBy::Caption, address);
}

} // namespace vasclip::map
