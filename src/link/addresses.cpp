#include "link/addresses.h"

#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

using TextArray = forms::ControlArray<forms::TextBox>;

void ShowAddresses(ReportMirror& desk, Group group)
{
    const GroupRow& row = RowOf(group);
    const TextArray& from = desk.addr.*row.addresses;
    const TextArray& to = desk.report.*row.texts;
    for (int i = to.First(); i <= to.Last(); ++i)
        to(i).SetText(from(i).Text());
}

void AddAddress(forms::ListBox& list, const QString& address, const QString& city, const QString& state,
                const QString& zip)
{
    const QString entry = text::Trim(address + u", "_s + city + u", "_s + state + u", "_s + zip);
    if (!entry.isEmpty() && list.IndexOf(entry) < 0)
        list.AddItem(entry);
}

} // namespace

std::optional<ReportPlace> PlaceInReport(ReportMirror& desk, const QString& address)
{
    const QString key = text::Folded(address);
    if (key.isEmpty())
        return std::nullopt;
    if (key == text::Folded(desk.addr.txtCompAddr(0).Text()))
        return ReportPlace{Group::Subject, kSubjectComp};
    for (const GroupRow* row : GatheredGroups())
        for (int i = 1; i <= row->slots; ++i)
            if (key == text::Folded((desk.addr.*row->addresses)(i).Text()))
                return ReportPlace{row->group, static_cast<qint16>(i)};
    return std::nullopt;
}

void setSubjectLabels(ReportMirror& desk)
{
    desk.report.txtSubject.SetText(desk.addr.txtCompAddr(0).Text());
}

void SetSalesLabels(ReportMirror& desk)
{
    ShowAddresses(desk, Group::Sales);
}

void SetAltSalesLabels(ReportMirror& desk)
{
    ShowAddresses(desk, Group::Alternates);
}

void SetListingLabels(ReportMirror& desk)
{
    ShowAddresses(desk, Group::Listings);
}

void SetRentalLabels(ReportMirror& desk)
{
    ShowAddresses(desk, Group::Rentals);
}

void SetKelAddresses(ReportMirror& desk)
{
    setSubjectLabels(desk);
    SetSalesLabels(desk);
    SetAltSalesLabels(desk);
    SetListingLabels(desk);
    SetRentalLabels(desk);
    SetGeneralAddresses(desk);
}

void SetGeneralAddresses(ReportMirror& desk)
{
    const QString shown = desk.report.txtSubject.Text();
    const QString read = desk.addr.txtCompAddr(0).Text();
    const QString address = text::Folded(shown) != text::Folded(read) ? shown : read;
    const TextArray& general = desk.report.txtgeneraladdr;
    for (int i = general.First(); i <= general.Last(); ++i)
        general(i).SetText(address);
}

void ClearKelAddresses(frm_Addr& addr)
{
    for (forms::Control* control : addr.controls.All())
        if (auto* text = qobject_cast<forms::TextBox*>(control))
            text->SetText(QString());
    addr.lstAddr.Clear();
}

void ClearReportFields(frm_Addr& addr)
{
    const forms::TextBox* const kept[] = {&addr.txtKelReport, &addr.txtKelListForms, &addr.txtFormType,
                                          &addr.txtKelimages};
    for (forms::Control* control : addr.controls.All()) {
        auto* text = qobject_cast<forms::TextBox*>(control);
        if (text && std::find(std::begin(kept), std::end(kept), text) == std::end(kept))
            text->SetText(QString());
    }
}

void FillAddressList(LinkDesk& desk)
{
    forms::ListBox& list = desk.addr.lstAddr;
    list.Clear();
    AddAddress(list, desk.addr.txtCompAddr(0).Text(), desk.addr.txtKelCity.Text(),
               desk.addr.txtKelState.Text(), desk.addr.txtKelZip.Text());
    const frm_Addr& a = desk.addr;
    for (const GroupRow* row : GatheredGroups()) {
        for (int i = 1; i <= row->slots; ++i)
            AddAddress(list, (a.*row->addresses)(i).Text(), (a.*row->cities)(i).Text(), (a.*row->states)(i).Text(),
                       (a.*row->zips)(i).Text());
        desk.ports.pump.DoEvents();
    }
    const int empty = list.IndexOf(u", , ,"_s);
    if (empty >= 0)
        list.RemoveItem(empty);
}

} // namespace vasclip::link
