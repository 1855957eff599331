#include "link/slot_icons.h"

#include "link/reporter.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kFrontView = u"FRONT VIEW"_s;

bool HasCoordinates(const store::Record& record)
{
    const auto known = [&record](const QString& field) { return record.Has(field) && !record.Text(field).isEmpty(); };
    return known(fields::LONGITUDE) && known(fields::LATITUDE);
}

void Show(LinkDesk& desk, const std::optional<store::Record>& record, forms::PictureBox& icon, forms::PictureBox* anchor,
          const QString& view)
{
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

} // namespace

QString SubjectView(int index)
{
    static const QStringList kViews = {kFrontView, u"REAR VIEW"_s, u"STREET SCENE"_s};
    return kViews.value(index - 1);
}

void SetSlotIcon(LinkDesk& desk, const QString& label, forms::PictureBox& icon, forms::PictureBox* anchor,
                 const QString& view)
{
    if (text::Trim(label).isEmpty()) {
        icon.SetVisible(false);
        if (anchor)
            anchor->SetVisible(false);
        return;
    }
    Show(desk, store::ReadRecord(desk.ports, desk.sources.datDatabook, label), icon, anchor, view);
}

void RefreshSubjectIcons(LinkDesk& desk, int view)
{
    Reported(desk.ports.prompter, "RefreshSubjectIcons", [&] {
        for (int i = 1; i <= photos::kSubjectPhotos; ++i)
            if (view == 0 || view == i)
                SetSlotIcon(desk, desk.report.txtSubject.Text(), desk.slots.imaSubjectIcon(i),
                            &desk.slots.imaSubjectAnchor(i), SubjectView(i));
    });
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
            SetSlotIcon(desk, (desk.report.*row.texts)(i).Text(), (desk.slots.*row.icons)(i),
                        row.anchors ? &(desk.slots.*row.anchors)(i) : nullptr, kFrontView);
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
