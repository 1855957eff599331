#include "map/placed_for.h"

#include "map/messages.h"
#include "map/picture_names.h"
#include "map/selection.h"
#include "map/slot_labels.h"
#include "platform/text/text.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

/// "" for a house, which bears its address itself.
QString BoxLabel(const MapDesk& desk, const MapPoint& point)
{
    if (IsSubjectPoint(desk, point))
        return u"SUBJECT"_s;
    const bool arrow = ParsePicture(point.picture).arrow;
    const std::optional<link::SlotRef> slot = arrow ? SlotOf(point) : SlotOfLabel(point.text);
    return slot ? LabelOf(*slot) : QString();
}

} // namespace

void KeepPlacedFor(MapDesk& desk, qint32 id)
{
    const MapPoint point{.id = id, .picture = desk.map.Picture(), .text = desk.map.Text()};
    if (BoxLabel(desk, point).isEmpty())
        desk.state.placedFor.remove(id);
    else
        desk.state.placedFor.insert(id, PointAddress(desk, point));
}

bool StandsFor(const MapDesk& desk, const MapPoint& point)
{
    const auto known = desk.state.placedFor.constFind(point.id);
    return known == desk.state.placedFor.cend() || BoxLabel(desk, point).isEmpty() ||
           text::Folded(*known) == text::Folded(PointAddress(desk, point));
}

QString OtherAddress(const MapDesk& desk, const MapPoint& point)
{
    const QString now = PointAddress(desk, point);
    return messages::kOtherAddress.arg(BoxLabel(desk, point), desk.state.placedFor.value(point.id),
                                       now.isEmpty() ? messages::kNobody : now);
}

QString PointWords(const MapDesk& desk, const MapPoint& point)
{
    const QString address = PointAddress(desk, point);
    const QString label = BoxLabel(desk, point);
    if (!address.isEmpty() || label.isEmpty())
        return address.isEmpty() ? text::Trim(point.text) : address;
    const QString before = desk.state.placedFor.value(point.id);
    return before.isEmpty() ? label : u"%1 (%2)"_s.arg(label, before);
}

bool MayStand(const MapDesk& desk, const std::vector<MapPoint>& points)
{
    QStringList others;
    for (const MapPoint& point : points)
        if (!StandsFor(desk, point) && !PointAddress(desk, point).isEmpty())
            others.append(OtherAddress(desk, point));
    return others.isEmpty() ||
           desk.ports.prompter.YesNo(desk.globals.productName, messages::kOtherAddresses.arg(others.join(u"; "_s)));
}

} // namespace vasclip::map
