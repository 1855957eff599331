#include "link/slot_icons.h"

#include "link/coordinate_miles.h"
#include "link/reporter.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kFrontView = u"FRONT VIEW"_s;
const QString kMilesAway = u"About %1 miles from the subject, by the places that the Databook has"_s;
const QString kHasPlace = u"Its record has a place on the map"_s;
constexpr char kCoordinates[] = "coordinates"; ///< of an anchor: longitude and latitude of its record, joined by "|"

bool HasCoordinates(const store::Record& record)
{
    const auto known = [&record](const QString& field) { return record.Has(field) && !record.Text(field).isEmpty(); };
    return known(fields::LONGITUDE) && known(fields::LATITUDE);
}

using Found = std::optional<store::Record>;

Found RecordOf(LinkDesk& desk, const QString& label)
{
    return text::Trim(label).isEmpty() ? std::nullopt
                                       : store::ReadRecord(desk.ports, desk.sources.datDatabook, label);
}

/// @param record  of the label; none is not in the Databook
void Show(ReportMirror& desk, const QString& label, const Found& record, forms::PictureBox& icon,
          forms::PictureBox* anchor, const QString& view)
{
    if (anchor)
        anchor->setProperty(kCoordinates, record && HasCoordinates(*record)
                                              ? record->Text(fields::LONGITUDE) + u'|' + record->Text(fields::LATITUDE)
                                              : QString());
    if (text::Trim(label).isEmpty()) {
        icon.SetVisible(false);
        if (anchor)
            anchor->SetVisible(false);
        return;
    }
    const bool has = record && photos::PhotoList(*record).Has(view);
    const std::size_t picture = !record ? 0 : !has ? 1 : text::Folded(view) == kFrontView ? 3 : 2;
    const bool located = record && HasCoordinates(*record);
    icon.SetPicture(desk.icons.imaTypeIcon[picture]);
    icon.SetVisible(true);
    // Anchor 0 is the one the others take their picture from.
    if (anchor && !(text::Folded(anchor->Name()) == "IMASUBJECTANCHOR"_L1 && anchor->Index() == 0)) {
        if (located)
            anchor->SetPicture(desk.icons.imaSubjectAnchor);
        anchor->SetVisible(located);
    }
}

/// How far a comp is from the subject, as its anchor's tool tip. No record is read for it: the anchors keep the places.
void TellProximity(ReportMirror& desk, SlotRef slot)
{
    const GroupRow& row = RowOf(slot.group);
    if (!row.anchors || slot.group == Group::Subject)
        return;
    forms::PictureBox& anchor = (desk.slots.*row.anchors)(slot.index);
    const QString subject = desk.slots.imaSubjectAnchor(1).property(kCoordinates).toString();
    const QString comp = anchor.property(kCoordinates).toString();
    anchor.SetToolTipText(comp.isEmpty()      ? QString()
                          : subject.isEmpty() ? kHasPlace // in words: a window keeps the last ones
                                              : kMilesAway.arg(static_cast<double>(DoCalcProximity(subject, comp)), 0, 'f', 1));
}

/// What stands beside one slot: each refresh, of one slot or of a group, comes here for each of its slots.
void ShowSlot(ReportMirror& desk, SlotRef slot, const Found& record)
{
    const GroupRow& row = RowOf(slot.group);
    Show(desk, TextOf(desk.report, slot).Text(), record, (desk.slots.*row.icons)(slot.index),
         row.anchors ? &(desk.slots.*row.anchors)(slot.index) : nullptr,
         row.texts ? kFrontView : SubjectView(slot.index));
    TellProximity(desk, slot);
}

/// @param view  0 all
void ShowSubject(ReportMirror& desk, const Found& record, int view)
{
    for (int i = 1; i <= photos::kSubjectPhotos; ++i)
        if (view == 0 || view == i)
            ShowSlot(desk, {Group::Subject, i}, record);
    for (const GroupRow& row : GroupTable())
        for (int i = 1; i <= row.slots; ++i)
            TellProximity(desk, {row.group, i});
}

} // namespace

QString SubjectView(int index)
{
    static const QStringList kViews = {kFrontView, u"REAR VIEW"_s, u"STREET SCENE"_s};
    return kViews.value(index - 1);
}

void SetSlotIcon(LinkDesk& desk, const QString& label, forms::PictureBox& icon, forms::PictureBox* anchor,
                 const QString& view)
{
    Show(desk, label, RecordOf(desk, label), icon, anchor, view);
}

void RefreshSubjectIcons(LinkDesk& desk, int view)
{
    Reported(desk.ports.prompter, "RefreshSubjectIcons",
             [&] { ShowSubject(desk, RecordOf(desk, desk.report.txtSubject.Text()), view); });
}

void RefreshSlotIcon(LinkDesk& desk, SlotRef slot)
{
    Reported(desk.ports.prompter, RowOf(slot.group).iconRoutine, [&] {
        const Found record = RecordOf(desk, TextOf(desk.report, slot).Text());
        if (slot.group == Group::Subject)
            ShowSubject(desk, record, 0);
        else
            ShowSlot(desk, slot, record);
    });
}

void RefreshSlotIcon(ReportMirror& desk, SlotRef slot, const store::Record& record)
{
    if (slot.group == Group::Subject)
        ShowSubject(desk, record, 0);
    else
        ShowSlot(desk, slot, record);
}

void RefreshIcons(LinkDesk& desk, Group group)
{
    const GroupRow& row = RowOf(group);
    if (!row.texts) {
        RefreshSubjectIcons(desk, 0);
        return;
    }
    Reported(desk.ports.prompter, row.iconRoutine, [&] {
        for (int i = 1; i <= row.slots; ++i)
            ShowSlot(desk, {group, i}, RecordOf(desk, (desk.report.*row.texts)(i).Text()));
    });
}

void RefreshCompIcons(LinkDesk& desk)
{
    RefreshIcons(desk, Group::Sales);
}

void RefreshAltCompIcons(LinkDesk& desk)
{
    RefreshIcons(desk, Group::Alternates);
}

void RefreshGeneralIcons(LinkDesk& desk)
{
    RefreshIcons(desk, Group::General);
}

void RefreshListingIcons(LinkDesk& desk)
{
    RefreshIcons(desk, Group::Listings);
}

void RefreshRentalIcons(LinkDesk& desk)
{
    RefreshIcons(desk, Group::Rentals);
}

void RefreshAllSlotIcons(LinkDesk& desk)
{
    for (const GroupRow& row : GroupTable())
        RefreshIcons(desk, row.group);
}

void SetAddendumIcon(LinkDesk& desk, forms::PictureBox& box, const forms::TextBox& label)
{
    // A slot that the form does not have stays hidden.
    const bool absent = !box.Visible() && !label.Enabled();
    const bool full = !text::Trim(label.Text()).isEmpty();
    desk.loader.ErrLoadPict(box, desk.globals.G_ProgramDir +
                                     (full ? u"Addendum_Full.bmp"_s : u"Addendum_Empty.bmp"_s));
    if (absent)
        box.SetVisible(false);
}

void RefreshAddendumIcons(LinkDesk& desk)
{
    Reported(desk.ports.prompter, "RefreshAddendumIcons", [&] {
        for (const GroupRow& row : GroupTable())
            for (int i = row.boxes ? row.slots : 0; i >= 1; --i)
                SetAddendumIcon(desk, (desk.slots.*row.boxes)(i), (desk.report.*row.texts)(i));
    });
}

} // namespace vasclip::link
