#include "map/place_arrows.h"

#include "common/error_block.h"
#include "map/arrange_arrows.h"
#include "map/at_zero.h"
#include "map/flags.h"
#include "map/map_addresses.h"
#include "map/map_ranges.h"
#include "map/messages.h"
#include "map/picture_names.h"
#include "map/radius.h"
#include "map/selection.h"
#include "map/view.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

constexpr qint32 kSubjectPoint = 1;
constexpr double kWholeViewFeet = 26400;
constexpr double kSubjectViewFeet = 25344;
constexpr int kMostArrows = 9;
const QString kSubjectType = u"SUBJECT"_s;

PointLook Look(const QString& text, const QString& picture, qint32 flag)
{
    return {.text = text, .picture = picture, .flag = flag};
}

/// One comp of the tab at its number. @return was it placed?
bool PlaceArrow(MapDesk& desk, qint32 id, const QString& address, const QString& cityState, const QString& caption,
                const QString& picture, QList<RecordLocation>& found)
{
    const std::optional<store::Record> record = FindComp(desk, address);
    if (record && IsAnchored(*record)) {
        return PlaceAnchoredPoint(desk, id, record->Text(fields::LATITUDE), record->Text(fields::LONGITUDE),
                                  Look(caption, picture, flag::kAnchored));
    }
    return MapPlaceAddrPoint(desk, id, address + u", "_s + cityState, Look(caption, picture, flag::kFree), found);
}

void PlaceRow(MapDesk& desk, const link::GroupRow& row, QList<RecordLocation>& found, ArrowTally& tally)
{
    const QString type = TypeWord(row.group);
    for (int n = 1; n <= std::min(row.slots, kMostArrows); ++n) {
        const QString address = AddressAt(desk, {row.group, n});
        if (address.isEmpty())
            continue;
        const QString cityState = ResolveCompCityState(desk, address, {row.group, n});
        if (cityState.isEmpty())
            continue;
        const qint32 id = desk.state.g_MapPointCount;
        const QString caption = type + u" #"_s + text::Dec(n);
        qint16& result = desk.state.g_MapResult(id); // an arrow that has none is not placed
        const bool ok = PlaceArrow(desk, id, address, cityState, caption, NewArrow(desk, type, n), found);
        result = ok ? 1 : 0;
        desk.state.turnedByHand.remove(id);
        ++desk.state.g_MapPointCount;
        if (ok)
            tally.placed.append(caption);
        else
            tally.notFound.append(caption + u" "_s + address);
    }
}

void Tell(MapDesk& desk, const QStringList& placed, const QStringList& notFound, const QStringList& crowded = {})
{
    QStringList words;
    if (!notFound.isEmpty())
        words.append(messages::kNotFound.arg(notFound.join(u"; "_s)));
    else if (!placed.isEmpty())
        words.append(messages::kPlaced.arg(placed.join(u", "_s)));
    if (!crowded.isEmpty())
        words.append(messages::kCrowded.arg(crowded.join(u", "_s)));
    const QString atZero = AtZeroWords(desk);
    if (!atZero.isEmpty())
        words.append(atZero);
    const bool bad = !notFound.isEmpty() || !crowded.isEmpty() || !atZero.isEmpty();
    if (!words.isEmpty())
        desk.status.lblmsg.Show(words.join(u". "_s), bad ? forms::Colour::Red : forms::Colour::Blue);
}

void TellMissing(MapDesk& desk, const QString& city, const QString& state, bool record)
{
    const QString& words = city.isEmpty() && state.isEmpty() ? messages::kSubjectCityAndState
                           : state.isEmpty() ? record ? messages::kSubjectRecordState : messages::kSubjectState
                                             : record ? messages::kSubjectRecordCity : messages::kSubjectCity;
    desk.ports.prompter.Info(messages::kInsufficientTitle, words);
}

} // namespace

QString NewArrow(const MapDesk& desk, const QString& type, int number)
{
    return ArrowName({.arrow = true,
                      .colour = ColourWord(desk.globals.arrowColor),
                      .type = type,
                      .number = number,
                      .direction = 1});
}

bool PlaceSubjectPoint(MapDesk& desk, const QString& picture, const QString& caption, QList<RecordLocation>& found)
{
    const QString address = AddressAt(desk, {});
    const std::optional<store::Record> record = FindComp(desk, address);
    if (record && IsAnchored(*record)) {
        const bool ok = PlaceAnchoredPoint(desk, kSubjectPoint, record->Text(fields::LATITUDE),
                                           record->Text(fields::LONGITUDE), Look(caption, picture, flag::kAnchored));
        desk.state.g_MapResult(kSubjectPoint) = ok ? 1 : 0;
        if (ok)
            static_cast<void>(NextPoint(desk));
        return ok;
    }
    const QString resolved = ResolveCompCityState(desk, address, {});
    const qsizetype comma = resolved.indexOf(u',');
    QString city = text::Trim(comma < 0 ? resolved : resolved.left(comma));
    QString state = comma < 0 ? QString() : text::Trim(resolved.mid(comma + 1));
    if (city.isEmpty())
        city = text::Trim(desk.addr.txtKelCity.Text());
    if (state.isEmpty())
        state = text::Trim(desk.addr.txtKelState.Text());
    if (city.isEmpty() || state.isEmpty()) {
        TellMissing(desk, city, state, record.has_value());
        return false;
    }
    const bool ok = MapPlaceAddrPoint(desk, kSubjectPoint, address + u", "_s + city + u", "_s + state,
                                      Look(caption, picture, flag::kFree), found);
    desk.state.g_MapResult(kSubjectPoint) = ok ? 1 : 0;
    if (ok)
        static_cast<void>(NextPoint(desk));
    return ok;
}

ArrowTally PlaceTypeArrows(MapDesk& desk, QList<RecordLocation>& found)
{
    const common::RoutineScope scope{"PlaceTypeArrows"};
    MapState& state = desk.state;
    const link::GroupRow& row = link::RowOf(ActiveGroup(desk.report));
    const QString type = TypeWord(row.group);
    const qint32 before = NextPoint(desk);
    const std::optional<MapRange> old = RangeOf(state.g_MapRanges, type);
    if (old)
        state.g_MapPointCount = old->first;
    const qint32 first = state.g_MapPointCount;
    ArrowTally tally;
    try {
        PlaceRow(desk, row, found, tally);
    } catch (const RuntimeError&) {
        desk.ports.prompter.Info(messages::kPlacementTitle, messages::kPlacement);
        tally.failed = true;
    }
    const qint32 count = state.g_MapPointCount - first;
    if (old)
        state.g_MapPointCount = std::max(state.g_MapPointCount, before);
    else
        state.g_MapRanges += RangeText(type, {first, count});
    if (old && old->count != count && !tally.failed)
        desk.ports.prompter.Info(messages::kAddedTitle.arg(count), messages::kAdded.arg(count));
    return tally;
}

void cmdSubjectOnly_Click(MapDesk& desk)
{
    if (desk.state.working)
        return;
    if (AddressAt(desk, {}).isEmpty()) {
        desk.ports.prompter.Info(messages::kNoSubjectTitle, messages::kNoSubject);
        return;
    }
    ClearMap(desk);
    ClearDetails(desk);
    desk.map.SetScale(kWholeViewFeet);
    desk.state.arrows = true;
    desk.state.g_MapRanges.clear();
    QList<RecordLocation> found;
    if (PlaceSubjectPoint(desk, NewArrow(desk, kSubjectType, 0), {}, found)) {
        desk.state.g_MapRanges = RangeText(kSubjectType, {kSubjectPoint, 1});
        CentreOnPoint(desk, kSubjectPoint);
        desk.map.SetScale(kSubjectViewFeet);
        Tell(desk, {kSubjectType}, {});
    } else {
        Tell(desk, {}, {kSubjectType + u' ' + AddressAt(desk, {})});
    }
    SaveLocations(desk, found);
    FollowCircle(desk);
    desk.map.Refresh();
}

void cmdSubjectAnd_Click(MapDesk& desk)
{
    MapState& state = desk.state;
    if (state.working)
        return;
    const QString subject = AddressAt(desk, {});
    if (subject.isEmpty() && !desk.ports.prompter.YesNo(messages::kNoSubjectTitle, messages::kWithoutSubject))
        return;
    const bool frozen = desk.tab.ckbFreeze.Value();
    if (!frozen) {
        ClearMap(desk);
        ClearDetails(desk);
        desk.map.SetScale(kWholeViewFeet);
    }
    if (state.g_MapPointCount == 0)
        state.g_MapRanges.clear();
    state.arrows = true;
    QList<RecordLocation> found;
    QStringList placed, notFound;
    if (!subject.isEmpty() && !RangeOf(state.g_MapRanges, kSubjectType)) {
        if (PlaceSubjectPoint(desk, NewArrow(desk, kSubjectType, 0), {}, found)) {
            // The number of the frozen way is read by nobody.
            state.g_MapRanges += RangeText(kSubjectType, {frozen ? 0 : kSubjectPoint, 1});
            placed.append(kSubjectType);
        } else {
            notFound.append(kSubjectType + u' ' + subject);
        }
    }
    static_cast<void>(NextPoint(desk));
    const ArrowTally tally = PlaceTypeArrows(desk, found);
    SaveLocations(desk, found);
    zoomtopoints(desk, kSubjectPoint, state.g_MapPointCount - 1, true);
    ApplyMapDetail(desk);
    const ArrangeTally arranged = desk.tab.ckbArrange.Value() ? ArrangeArrows(desk) : ArrangeTally();
    FollowCircle(desk);
    desk.map.Refresh();
    // The box names the addresses, which are not to blame here.
    if (tally.failed && !MapResults::Has(state.g_MapPointCount))
        desk.status.lblmsg.Show(messages::kTooManyPoints, forms::Colour::Red);
    else
        Tell(desk, placed + tally.placed, notFound + tally.notFound, arranged.crowded);
}

} // namespace vasclip::map
