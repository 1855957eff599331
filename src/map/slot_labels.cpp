#include "map/slot_labels.h"

#include "platform/text/text.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

QString Word(Group group)
{
    return group == Group::Alternates ? u"ALT COMP #"_s : TypeWord(group) + u" #"_s;
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

} // namespace vasclip::map
