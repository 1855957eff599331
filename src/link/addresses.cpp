#include "link/addresses.h"

#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

using TextArray = forms::ControlArray<forms::TextBox>;

void Copy(const TextArray& from, const TextArray& to)
{
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

std::array<AddressGroup, 4> AddressGroups(LinkDesk& desk)
{
    frm_Addr& a = desk.addr;
    ReportControls& r = desk.report;
    return {{{"SALE"_L1, a.txtCompAddr, a.txtCompCity, a.txtCompState, a.txtCompZip, r.txtComp},
             {"ALT"_L1, a.txtAltCompAddr, a.txtAltCompCity, a.txtAltCompState, a.txtAltCompZip, r.txtAltComp},
             {"RENT"_L1, a.txtRentalAddr, a.txtRentCity, a.txtRentState, a.txtRentZip, r.txtRental},
             {"LIST"_L1, a.txtListingAddr, a.txtListCity, a.txtListState, a.txtListZip, r.txtListing}}};
}

std::optional<ReportPlace> PlaceInReport(LinkDesk& desk, const QString& address)
{
    const QString key = text::Folded(address);
    if (key.isEmpty())
        return std::nullopt;
    if (key == text::Folded(desk.addr.txtCompAddr(0).Text()))
        return ReportPlace{"SALE"_L1, 10};
    for (const AddressGroup& group : AddressGroups(desk)) {
        for (int i = 1; i <= group.Last(); ++i) {
            if (key == text::Folded(group.addr(i).Text()))
                return ReportPlace{group.compType == "SALE"_L1 ? "COMP"_L1 : group.compType,
                                   static_cast<qint16>(i)};
        }
    }
    return std::nullopt;
}

void setSubjectLabels(LinkDesk& desk)
{
    desk.report.txtSubject.SetText(desk.addr.txtCompAddr(0).Text());
}

void SetSalesLabels(LinkDesk& desk)
{
    Copy(desk.addr.txtCompAddr, desk.report.txtComp);
}

void SetAltSalesLabels(LinkDesk& desk)
{
    Copy(desk.addr.txtAltCompAddr, desk.report.txtAltComp);
}

void SetListingLabels(LinkDesk& desk)
{
    Copy(desk.addr.txtListingAddr, desk.report.txtListing);
}

void SetRentalLabels(LinkDesk& desk)
{
    Copy(desk.addr.txtRentalAddr, desk.report.txtRental);
}

void SetKelAddresses(LinkDesk& desk)
{
    setSubjectLabels(desk);
    SetSalesLabels(desk);
    SetAltSalesLabels(desk);
    SetListingLabels(desk);
    SetRentalLabels(desk);
    SetGeneralAddresses(desk);
}

void SetGeneralAddresses(LinkDesk& desk)
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
    for (const AddressGroup& group : AddressGroups(desk)) {
        for (int i = 1; i <= group.Last(); ++i)
            AddAddress(list, group.addr(i).Text(), group.city(i).Text(), group.state(i).Text(),
                       group.zip(i).Text());
        desk.ports.pump.DoEvents();
    }
    const int empty = list.IndexOf(u", , ,"_s);
    if (empty >= 0)
        list.RemoveItem(empty);
}

} // namespace vasclip::link
