#include "map/selection.h"

#include "link/reporter.h"
#include "map/flags.h"
#include "map/messages.h"
#include "map/picture_names.h"
#include "map/placed_for.h"
#include "map/proximity.h"
#include "map/radius.h"
#include "map/slot_labels.h"
#include "map/sureness.h"
#include "map/view.h"
#include "photos/photo_list.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

constexpr auto kSubject = "SUBJECT"_L1;
const QString kFrontView = u"FRONT VIEW"_s;

bool IsSubjectAddress(const MapDesk& desk, const QString& address)
{
    return !address.isEmpty() && text::Folded(address) == text::Folded(AddressAt(desk, {}));
}

/// A sale date for people; a record without one counts as pending.
QString DateShown(const QString& saleDate, const QDate& today)
{
    constexpr qint64 kFirstShown = 2;
    const QString date = saleDate.isEmpty() ? u"01/01/1900"_s : saleDate;
    const std::optional<QDateTime> read = text::ReadDate(date, today);
    return read && text::DateSerial(read->date()) < kFirstShown ? QString() : date;
}

QString PriceShown(const QString& price)
{
    if (price.isEmpty())
        return {};
    QString number = price;
    number.remove(u'$').remove(u',');
    return u"Price = "_s + text::Format(text::Val(number), u"$#,###,##0.00"_s);
}

void ShowPhoto(MapDesk& desk, const std::optional<store::Record>& record)
{
    const QString stem = record ? photos::PhotoList(*record).StemOf(kFrontView) : QString();
    const QString path = stem.isEmpty() ? QString() : desk.globals.G_PhotoDir + stem + u".jpg"_s;
    if (!path.isEmpty() && desk.disk.FileExists(path))
        desk.loader.ErrLoadPict(desk.tab.geaMapPhoto, path);
    else
        desk.loader.ErrClearPict(desk.tab.geaMapPhoto);
}

void ShowRecord(MapDesk& desk, const std::optional<store::Record>& record)
{
    const auto field = [&](const QString& name) { return record ? record->Text(name) : QString(); };
    const QString gla = field(fields::GLA);
    desk.tab.txtGLA.SetText(gla.isEmpty() ? QString() : u"GLA = "_s + gla);
    desk.tab.txtSellingPr.SetText(PriceShown(field(fields::SELLINGPR)));
    desk.tab.txtSaleDate.SetText(record ? DateShown(field(fields::SALEDATE), desk.ports.clock.Today())
                                        : QString());
}

} // namespace

std::optional<link::SlotRef> SlotOf(const MapPoint& point)
{
    const PictureName name = ParsePicture(point.picture);
    const link::GroupRow* row = name.arrow ? GroupOfType(name.type) : nullptr;
    if (!row)
        return std::nullopt;
    const int last = point.text.isEmpty() ? 0 : point.text.back().digitValue();
    const int number = last >= 1 ? last : name.number;
    if (number < 1 || number > row->slots)
        return std::nullopt;
    return link::SlotRef{row->group, number};
}

bool IsSubjectPoint(const MapDesk& desk, const MapPoint& point)
{
    const PictureName name = ParsePicture(point.picture);
    return name.type == kSubject || text::Trim(point.text) == kSubject ||
           (!name.arrow && IsSubjectAddress(desk, text::Trim(point.text)));
}

QString PointAddress(const MapDesk& desk, const MapPoint& point)
{
    if (IsSubjectPoint(desk, point))
        return AddressAt(desk, {});
    const bool arrow = ParsePicture(point.picture).arrow;
    // A house or dot that was set by hand bears the label of its comp.
    const std::optional<link::SlotRef> slot = arrow ? SlotOf(point) : SlotOfLabel(point.text);
    if (!arrow && !slot)
        return text::Trim(point.text);
    return slot ? AddressAt(desk, *slot) : QString();
}

bool mapview_PointClick(MapDesk& desk, qint32 id)
{
    if (desk.state.selectionLocked)
        return false;
    const std::optional<MapPoint> point = LoadPoint(desk, id);
    if (!point)
        return false;
    desk.state.g_MapSelectedID = id;
    const bool known = IsSubjectPoint(desk, *point) || !ParsePicture(point->picture).arrow || SlotOf(*point);
    const QString address = known ? PointAddress(desk, *point) : text::Trim(desk.tab.txtMapAddress.Text());
    const bool subject = IsSubjectPoint(desk, *point) || IsSubjectAddress(desk, address);
    desk.tab.lblProximity.SetCaption(subject ? u"Subject Address"_s : u"Proximity to Subject"_s);
    ShowMapAddress(desk, address);
    if (subject)
        desk.tab.txtMapProximity.SetText(QString());
    const std::optional<store::Record> record = FindComp(desk, address);
    desk.tab.imaanchor.SetVisible(record && record->Text(fields::ANCHORED) == "1"_L1);
    if (!StandsFor(desk, *point))
        desk.status.lblmsg.Show(messages::kPlaceAgain.arg(OtherAddress(desk, *point)), forms::Colour::Red);
    const qint16 result = MapResults::Has(id) ? desk.state.g_MapResult(id) : qint16{0};
    desk.tab.lblMapID.SetCaption(text::Dec(id) + u'|' + text::Dec(result));
    return known;
}

void ClearDetails(MapDesk& desk)
{
    ShowMapAddress(desk, QString());
    desk.loader.ErrClearPict(desk.tab.geaMapPhoto);
    desk.tab.imaanchor.SetVisible(false);
}

void ShowMapAddress(MapDesk& desk, const QString& address)
{
    desk.state.addressGate = true;
    desk.tab.txtMapAddress.SetText(address);
    desk.state.addressGate = false;
    txtMapAddress_Change(desk);
}

void txtMapAddress_Change(MapDesk& desk)
{
    if (desk.state.addressGate || !desk.state.inUse)
        return;
    link::Reported(desk.ports.prompter, "txtMapAddress_Change", [&] {
        const QString address = text::Trim(desk.tab.txtMapAddress.Text());
        forms::TextBox& proximity = desk.tab.txtMapProximity;
        if (address.isEmpty()) {
            for (forms::TextBox* box : {&desk.tab.txtGLA, &desk.tab.txtSellingPr, &desk.tab.txtSaleDate, &proximity})
                box->SetText(QString());
            desk.tab.lblSureness.SetCaption(QString());
            return;
        }
        const std::optional<store::Record> record = FindComp(desk, address);
        ShowPhoto(desk, record);
        ShowRecord(desk, record);
        const qint32 selected = desk.state.g_MapSelectedID;
        const std::optional<MapPoint> point = selected > 0 ? LoadPoint(desk, selected) : std::nullopt;
        const bool subject = IsSubjectAddress(desk, address) || (point && IsSubjectPoint(desk, *point));
        proximity.SetText(subject ? QString() : ProximityText(desk, address));
        // While proximities are sent nobody reads it, and it costs two look-ups.
        const bool sure = !subject && !desk.state.working && !proximity.Text().isEmpty();
        desk.tab.lblSureness.SetCaption(sure ? ProximitySureness(desk, address) : QString());
        if (selected > 0) {
            const std::optional<MapPoint> again = LoadPoint(desk, selected);
            desk.tab.imaanchor.SetVisible(again && again->flags & flag::kAnchored);
        }
    });
}

void cmdClearPoint_Click(MapDesk& desk)
{
    const qint32 selected = desk.state.g_MapSelectedID;
    if (desk.state.working || selected == 0)
        return;
    const std::optional<MapPoint> point = LoadPoint(desk, selected);
    const QString words = point ? PointWords(desk, *point) : QString();
    if (point && IsSubjectPoint(desk, *point))
        desk.state.g_MapResult(0) = 0;
    if (MapResults::Has(selected)) // it is on the map no more: nothing may be measured from it
        desk.state.g_MapResult(selected) = 0;
    desk.map.SetID(selected);
    desk.map.DoAction(street::action::kDeletePoint);
    desk.state.g_MapSelectedID = 0;
    ClearDetails(desk);
    FollowCircle(desk);
    if (point)
        desk.status.lblmsg.Show(messages::kPointCleared.arg(words), forms::Colour::Blue);
    desk.map.Refresh();
}

void cmdClear_Click(MapDesk& desk)
{
    if (desk.state.working)
        return;
    ClearMap(desk);
    ClearDetails(desk);
    desk.state.g_MapRanges.clear();
    FollowCircle(desk);
    desk.status.lblmsg.Show(messages::kCleared, forms::Colour::Blue);
    desk.map.Refresh();
}

} // namespace vasclip::map
