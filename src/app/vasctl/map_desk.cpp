#include "app/vasctl/map_desk.h"

#include "app/vasctl/map.h"
#include "map/flags.h"
#include "map/map_ranges.h"
#include "map/map_start.h"
#include "map/place_arrows.h"
#include "map/selection.h"
#include "map/slot_labels.h"
#include "map/view.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double kWholeViewFeet = 26400;
const QString kSubject = u"SUBJECT"_s;

/// What a point stands for: "SUBJECT", "COMP #1".
QString LabelOf(const map::MapDesk& desk, const map::MapPoint& point)
{
    if (map::IsSubjectPoint(desk, point))
        return kSubject;
    const std::optional<link::SlotRef> slot = map::SlotOf(point);
    return slot ? map::LabelOf(*slot) : point.text;
}

/// Shows a group of comps as the tabs do.
void Choose(link::ReportControls& report, const link::GroupRow& row)
{
    report.TabData.SetTab(row.dataPage);
    if (row.tabControl)
        (report.*row.tabControl).SetTab(row.firstPage);
}

bool HasComps(const map::MapDesk& desk, const link::GroupRow& row)
{
    for (int n = 1; n <= row.slots; ++n)
        if (!map::AddressAt(desk, {row.group, n}).isEmpty())
            return true;
    return false;
}

} // namespace

shell::MapParts* OpenMap(Session& session, const Output& out)
{
    const QString directory = MapDirectory(session);
    shell::MapParts& map = session.WithDatabook().Map();
    if (!map.Open()) {
        out.Error(NoMaps(directory));
        return nullptr;
    }
    map::ConfigureMap(map.Desk());
    return &map;
}

Placement PlaceReport(map::MapDesk& desk, std::span<const link::Group> groups)
{
    Placement placement;
    map::ClearMap(desk);
    desk.map.SetScale(kWholeViewFeet);
    desk.state.arrows = true;
    desk.state.g_MapRanges.clear();
    const QString subject = map::AddressAt(desk, {});
    if (!subject.isEmpty()) {
        if (map::PlaceSubjectPoint(desk, map::NewArrow(desk, kSubject, 0), {}, placement.found))
            desk.state.g_MapRanges = map::RangeText(kSubject, {1, 1});
        else
            placement.notFound.append(kSubject + u' ' + subject);
    }
    static_cast<void>(map::NextPoint(desk));
    for (const link::Group group : groups) {
        const link::GroupRow& row = link::RowOf(group);
        if (!HasComps(desk, row))
            continue;
        Choose(desk.report, row);
        const map::ArrowTally tally = map::PlaceTypeArrows(desk, placement.found);
        placement.notFound += tally.notFound;
    }
    map::zoomtopoints(desk, 1, desk.state.g_MapPointCount - 1, true);
    map::ApplyMapDetail(desk);
    for (qint32 id = 1; id < desk.state.g_MapPointCount; ++id)
        if (const std::optional<map::MapPoint> point = map::LoadPoint(desk, id))
            placement.points.append({LabelOf(desk, *point), map::PointAddress(desk, *point), point->place,
                                     (point->flags & map::flag::kAnchored) != 0});
    return placement;
}

} // namespace vasclip::vasctl
