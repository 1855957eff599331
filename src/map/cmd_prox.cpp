#include "map/cmd_prox.h"

#include "link/link_desk.h"
#include "link/report_check.h"
#include "link/send_proximity.h"
#include "link/talk.h"
#include "map/map_groups.h"
#include "map/messages.h"
#include "map/pinmap.h"
#include "map/placed_for.h"
#include "map/selection.h"
#include "platform/conduit/patience.h"
#include "platform/text/text.h"

#include <algorithm>
#include <utility>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

/// What came of a run.
struct Run
{
    QStringList sent; ///< "COMP #1 1.2 Mi. NW", "#2 .5 Mi. East", "RENTAL #1 3. Mi. SW"
    QStringList unknown, without;
    std::optional<Group> named; ///< by the last of these that were sent
    QString stopped; ///< why it ended before its end
    int arrows = 0;  ///< of comps, on the map
};

/// The arrow of a comp that was placed by hand, past the range; 0 for none.
qint32 PlacedByHand(MapDesk& desk, link::SlotRef slot, qint32 after)
{
    qint32 latest = 0;
    for (qint32 id = after; id <= desk.state.g_MapPointCount; ++id)
        if (const std::optional<MapPoint> point = LoadPoint(desk, id); point && SlotOf(*point) == slot)
            latest = id;
    return latest;
}

int NextFilled(const MapDesk& desk, Group group, int index)
{
    const int slots = link::RowOf(group).slots;
    while (index < slots && AddressAt(desk, {group, index}).isEmpty())
        ++index;
    return index;
}

QString Caption(link::SlotRef slot)
{
    return TypeWord(slot.group) + u" #"_s + text::Dec(slot.index);
}

/// Asks where arrows stand for other addresses than the report has there now.
bool MayMeasure(MapDesk& desk, const QString& ranges)
{
    QStringList others;
    const auto look = [&](qint32 id) {
        const std::optional<MapPoint> point = id >= 1 ? LoadPoint(desk, id) : std::nullopt;
        const bool sent = point && (IsSubjectPoint(desk, *point) || !PointAddress(desk, *point).isEmpty());
        if (sent && !StandsFor(desk, *point))
            others.append(OtherAddress(desk, *point));
    };
    std::vector<SlotPoint> comps;
    for (const link::GroupRow* row : link::GatheredGroups())
        if (const std::optional<MapRange> range = RangeOf(ranges, TypeWord(row->group)))
            for (const SlotPoint& comp : ComposeRange(desk, row->group, *range))
                comps.push_back(comp);
    // Where the report has no comps any more nothing is measured.
    if (std::ranges::none_of(comps, [&](const SlotPoint& comp) { return !AddressAt(desk, comp.slot).isEmpty(); }))
        return true;
    look(FindSubjectPoint(desk));
    for (const SlotPoint& comp : comps)
        look(comp.id);
    return others.isEmpty() || desk.ports.prompter.YesNo(desk.globals.productName,
                                                         messages::kOtherDistances.arg(others.join(u"; "_s)));
}

/// @return false if the run has to end
bool SendOne(MapDesk& desk, const SlotPoint& comp, Run& run)
{
    const QString address = AddressAt(desk, comp.slot);
    if (address.isEmpty())
        return true;
    desk.state.g_MapSelectedID = comp.id;
    ShowMapAddress(desk, address);
    const QString text = desk.tab.txtMapProximity.Text();
    switch (link::KelUpdateKelProximity(*desk.link, comp.slot, text)) {
    case link::ProximitySend::NoReport:
        run.stopped = link::NoReportWords(*desk.link);
        return false;
    case link::ProximitySend::OtherReport:
        run.stopped = desk.link->state.notSent;
        return false;
    case link::ProximitySend::NoCell:
        run.without.append(Caption(comp.slot));
        break;
    case link::ProximitySend::Sent:
        if (text.isEmpty())
            run.unknown.append(Caption(comp.slot));
        else
            run.sent.append((std::exchange(run.named, comp.slot.group) == comp.slot.group ? u'#' + text::Dec(comp.slot.index)
                                                                                          : Caption(comp.slot)) +
                            u' ' + text);
        break;
    }
    (desk.addr.*MapRowOf(comp.slot.group).proximities)(comp.slot.index).SetText(text);
    return true;
}

QString Sentences(const QStringList& words)
{
    QString all;
    for (const QString& one : words)
        all += (all.isEmpty() ? u""_s : all.endsWith(u'.') ? u" "_s : u". "_s) + one;
    return all;
}

/// What is amiss comes first and the count before the values: a line that is too long loses its end, which a tip shows.
void Tell(MapDesk& desk, const Run& run)
{
    QStringList words;
    if (!run.stopped.isEmpty())
        words << run.stopped;
    if (!run.unknown.isEmpty())
        words << messages::kProximityUnknown.arg(run.unknown.join(u", "_s));
    if (!run.without.isEmpty())
        words << messages::kProximityNoCell.arg(run.without.join(u", "_s));
    if (!run.sent.isEmpty())
        words << messages::kProximitySent.arg(run.sent.size()).arg(run.sent.join(u", "_s));
    if (words.isEmpty())
        words << (run.arrows > 0 ? messages::kNoAddresses : messages::kNoArrows);
    const bool whole = run.unknown.isEmpty() && run.without.isEmpty() && run.stopped.isEmpty() && !run.sent.isEmpty();
    desk.status.lblmsg.Show(Sentences(words), whole ? forms::Colour::Blue : forms::Colour::Red);
}

} // namespace

std::vector<SlotPoint> ComposeRange(MapDesk& desk, Group group, MapRange range)
{
    std::vector<SlotPoint> comps;
    int before = 0;
    for (qint32 id = range.first; id < range.first + range.count; ++id) {
        const std::optional<MapPoint> point = LoadPoint(desk, id);
        const std::optional<link::SlotRef> told = point ? SlotOf(*point) : std::nullopt;
        if (told && told->group == group) {
            comps.push_back({*told, id});
        } else {
            const link::SlotRef slot{group, NextFilled(desk, group, before + 1)};
            const qint32 byHand = PlacedByHand(desk, slot, range.first + range.count);
            comps.push_back({slot, byHand > 0 ? byHand : id});
        }
        before = comps.back().slot.index;
    }
    return comps;
}

void cmdProx_Click(MapDesk& desk)
{
    if (desk.state.working || !desk.link)
        return;
    const Working working{desk.state};
    const QString ranges = desk.state.g_MapRanges.toUpper();
    if (!MayMeasure(desk, ranges))
        return;
    const link::Talking talking{*desk.link, messages::kSendingProximity};
    if (LoadPoint(desk, 1))
        desk.state.g_MapSelectedID = 1;
    Run run;
    try {
        bool goes = true;
        bool first = true;
        for (const link::GroupRow* row : link::GatheredGroups()) {
            const std::optional<MapRange> range = RangeOf(ranges, TypeWord(row->group));
            if (!range || !goes)
                continue;
            if (std::exchange(first, false))
                ShowMapAddress(desk, AddressAt(desk, {Group::Sales, 1}));
            for (const SlotPoint& comp : ComposeRange(desk, row->group, *range)) {
                ++run.arrows;
                goes = goes && SendOne(desk, comp, run);
                if (!goes)
                    break;
            }
        }
    } catch (const RuntimeError& failure) {
        run.stopped = failure.Number() == conduit::kUserInterrupt ? messages::kProximityCancelled : failure.Description();
        if (failure.Number() != conduit::kUserInterrupt)
            desk.ports.prompter.Info(messages::kProximityTitle, messages::kProximityFailed);
    }
    Tell(desk, run);
}

} // namespace vasclip::map
