#include "link/slot_icons.h"

#include "link/reporter.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

using TextArray = forms::ControlArray<forms::TextBox>;
using PictureArray = forms::ControlArray<forms::PictureBox>;

const QString kFrontView = u"FRONT VIEW"_s;

QString FieldText(const store::DataSource& source, const QString& field)
{
    return source.Recordset().FieldIndex(field) < 0 ? QString() : store::GetFieldData(source, field);
}

bool HasCoordinates(const store::DataSource& source)
{
    return !FieldText(source, u"LONGITUDE"_s).isEmpty() && !FieldText(source, u"LATITUDE"_s).isEmpty();
}

void RefreshGroup(LinkDesk& desk, const char* routine, const TextArray& labels, const PictureArray& icons,
                  const PictureArray& anchors)
{
    Reported(desk.ports.prompter, routine, [&] {
        for (int i = labels.First(); i <= labels.Last(); ++i)
            SetSlotIcon(desk, labels(i).Text(), icons(i), &anchors(i), kFrontView);
    });
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
    store::DataSource& records = desk.sources.datDatabook;
    std::size_t picture = 0;
    bool located = false;
    if (store::FindRecord(desk.ports, records, label.toUpper(), u"CENTRALKEY"_s)) {
        photos::ReadPhotoLists(records, desk.lists.lstViews, desk.lists.lstimages);
        if (desk.lists.lstViews.IndexOf(view) < 0)
            picture = 1;
        else
            picture = text::Folded(view) == kFrontView ? 3 : 2;
        located = HasCoordinates(records);
    }
    icon.SetPicture(desk.icons.imaTypeIcon[picture]);
    icon.SetVisible(true);
    // Anchor 0 is the one the others take their picture from.
    if (anchor && !(text::Folded(anchor->Name()) == "IMASUBJECTANCHOR"_L1 && anchor->Index() == 0)) {
        if (located)
            anchor->SetPicture(desk.icons.imaSubjectAnchor);
        anchor->SetVisible(located);
    }
}

void RefreshSubjectIcons(LinkDesk& desk, int view)
{
    Reported(desk.ports.prompter, "RefreshSubjectIcons", [&] {
        for (int i = 1; i <= 3; ++i)
            if (view == 0 || view == i)
                SetSlotIcon(desk, desk.report.txtSubject.Text(), desk.slots.imaSubjectIcon(i),
                            &desk.slots.imaSubjectAnchor(i), SubjectView(i));
    });
}

void RefreshCompIcons(LinkDesk& desk)
{
    RefreshGroup(desk, "RefreshCompIcons", desk.report.txtComp, desk.slots.imaCompIcon,
                 desk.slots.imaCompAnchor);
}

void RefreshAltCompIcons(LinkDesk& desk)
{
    RefreshGroup(desk, "RefreshAltCompIcons", desk.report.txtAltComp, desk.slots.imaAltCompIcon,
                 desk.slots.imaAltCompAnchor);
}

void RefreshGeneralIcons(LinkDesk& desk)
{
    Reported(desk.ports.prompter, "RefreshGeneralIcons", [&] {
        const TextArray& labels = desk.report.txtgeneraladdr;
        for (int i = labels.First(); i <= labels.Last(); ++i)
            SetSlotIcon(desk, labels(i).Text(), desk.slots.imaGeneralIcon(i), nullptr, kFrontView);
    });
}

void RefreshListingIcons(LinkDesk& desk)
{
    RefreshGroup(desk, "RefreshListingIcons", desk.report.txtListing, desk.slots.imaListingIcon,
                 desk.slots.imaListingAnchor);
}

void RefreshRentalIcons(LinkDesk& desk)
{
    RefreshGroup(desk, "RefreshRentalIcons", desk.report.txtRental, desk.slots.imaRentalIcon,
                 desk.slots.imaRentalAnchor);
}

void RefreshAllSlotIcons(LinkDesk& desk)
{
    RefreshSubjectIcons(desk, 0);
    RefreshCompIcons(desk);
    RefreshAltCompIcons(desk);
    RefreshGeneralIcons(desk);
    RefreshListingIcons(desk);
    RefreshRentalIcons(desk);
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
    struct Row
    {
        const PictureArray& boxes;
        const TextArray& labels;
    };
    const Row rows[] = {{desk.slots.geaComp, desk.report.txtComp},
                        {desk.slots.geaAltComp, desk.report.txtAltComp},
                        {desk.slots.geaListing, desk.report.txtListing},
                        {desk.slots.geaRental, desk.report.txtRental}};
    Reported(desk.ports.prompter, "RefreshAddendumIcons", [&] {
        for (const Row& row : rows) {
            for (int i = row.labels.Last(); i >= row.labels.First(); --i)
                SetAddendumIcon(desk, row.boxes(i), row.labels(i));
        }
    });
}

} // namespace vasclip::link
