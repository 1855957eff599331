// The pop-up menus over slots and pictures, and clicks on slots, icons and data boxes.

#include "common/error_block.h"
#include "drops/router.h"
#include "drops/slot_menus.h"
#include "drops/swap_slots.h"
#include "link/messages.h"
#include "link/tabs.h"
#include "link/talk.h"
#include "photos/capture_desk.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"
#include "shell/menus.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void frm_Main::WireSlots()
{
    const auto eachOf = [](const forms::ControlArray<forms::PictureBox>& array, const auto& wire) {
        for (int i = std::max(1, array.First()); i <= array.Last(); ++i)
            wire(array(i));
    };
    for (const auto* icons : {&slots.imaSubjectIcon, &slots.imaCompIcon, &slots.imaAltCompIcon,
                              &slots.imaListingIcon, &slots.imaRentalIcon, &slots.imaGeneralIcon})
        eachOf(*icons, [this](forms::PictureBox& icon) {
            const QString slot = icon.Name().chopped(4); // "Icon"
            const auto save = [this, slot, index = icon.Index()] {
                const common::RoutineScope scope{"Icon_Click"};
                drops::DropDesk desk = Drops();
                Told(drops::SavePhotoOfSlot(desk, drops::GroupOf(slot), index));
            };
            connect(&icon, &forms::Control::Clicked, this, save);
        });
    for (const auto* boxes : {&slots.geaComp, &slots.geaAltComp, &slots.geaListing, &slots.geaRental})
        eachOf(*boxes, [this](forms::PictureBox& box) {
            connect(&box, &forms::Control::Clicked, this, [this, &box] {
                const link::Talking talking(*m_link, link::messages::kSendingSlots);
                drops::DropDesk desk = Drops();
                Told(drops::ClickDataBox(desk, drops::GroupOf(box.Name()), box.Index()));
            });
        });
    for (const auto* photos : {&slots.imaSubject, &slots.imaComp, &slots.imaAltComp, &slots.imaListing,
                               &slots.imaRental, &slots.imaGeneral})
        eachOf(*photos, [this](forms::PictureBox& slot) {
            connect(&slot, &forms::Control::DoubleClicked, this, [this, &slot] { SlotPhoto_DblClick(slot); });
        });
    const std::pair<forms::Menu*, void (frm_Main::*)(int)> menus[] = {
        {&popPicture_M, &frm_Main::popPicture_M_Click},
        {&popGeneral_M, &frm_Main::popGeneral_M_Click},
        {&popTextData_M, &frm_Main::popTextData_M_Click},
        {&popPicAndData_M, &frm_Main::popPicAndData_M_Click}};
    for (const auto& [menu, handler] : menus)
        connect(menu, &forms::Menu::Chosen, this, [this, chosen = handler](const QString& array, int index) {
            if (array == kSwapEntries)
                popTextData_MSubSwap_Click(index);
            else
                (this->*chosen)(index);
        });
}

forms::Menu* frm_Main::MenuOver(const forms::Control& control)
{
    m_menuControl = control.Name();
    m_menuIndex = control.Index();
    const QString name = text::Folded(control.Name());
    if (name == u"FILCAPTURE"_s)
        m_capture->filCapture_Click();
    const bool photoOnShow = name == u"GEAMAINTAIN"_s || name == u"LSTVIEWS"_s;
    m_menuFile = photos::PointAt(
        m_base.disk, m_slotTable.ErrGetPict(photoOnShow ? slots.geamaintain : control));
    m_menuPhoto = ShownPhoto();
    if (name == u"GEATHUMB"_s || name == u"FILCAPTURE"_s || name == u"GEALISTBOX"_s) {
        if (name == u"GEATHUMB"_s)
            m_capture->geathumb_MouseDown(control.Index());
        popThumb_M.SetEntryEnabled(0, !m_menuFile.path.isEmpty());
        return &popThumb_M;
    }
    if (photoOnShow) {
        for (const int entry : {0, 1})
            popPhoto_M.SetEntryEnabled(entry, photoLists.lstViews.ListIndex() >= 0);
        return &popPhoto_M;
    }
    const QLatin1StringView group = drops::GroupOf(name);
    if (group.isEmpty() || name.startsWith(u"LBL"_s) || name.startsWith(u"TAB"_s))
        return nullptr;
    const bool subject = group == QLatin1StringView("SUBJECT");
    if (name == u"IMAGENERAL"_s)
        return &popGeneral_M;
    if (name.startsWith(u"IMA"_s)) {
        SetCorrectPicMenuText(subject);
        return &popPicture_M;
    }
    if (name.startsWith(u"GEA"_s))
        return &popPicAndData_M;
    if (!name.startsWith(u"TXT"_s))
        return nullptr;
    // The subject's data are not sent from the Databook.
    popTextData_M.SetEntryEnabled(0, !subject);
    popTextData_M.SetEntryEnabled(1, !subject);
    OfferSwap(control);
    return &popTextData_M;
}

/// Only sales comps are swapped, and only with those that the report has.
void frm_Main::OfferSwap(const forms::Control& slot)
{
    const bool sales = text::Folded(slot.Name()) == "TXTCOMP"_L1;
    const auto has = [this](int comp) {
        return report.txtComp(comp).Enabled() && !link::SlotPageNotAvailable(report, u"txtComp"_s, comp);
    };
    m_swapComp = sales ? slot.Index() : 0;
    m_swapShown.clear();
    bool any = false;
    for (int comp = 1; comp <= report.txtComp.Last(); ++comp) {
        const QString address = text::Trim(report.txtComp(comp).Text());
        m_swapShown.append(address);
        const bool can = sales && comp != m_swapComp && has(comp);
        any = any || can;
        const QString named = address.isEmpty() ? u"(empty)"_s : QString(address).replace(u'&', u"&&"_s);
        popTextData_M.SetEntryCaption(kSwapEntries, comp, u"Comp &%1: %2"_s.arg(comp).arg(named));
        popTextData_M.SetEntryEnabled(kSwapEntries, comp, can);
    }
    popTextData_M.SetEntryEnabled(kSwapEntry, any && has(std::max(1, m_swapComp)));
}

void frm_Main::SetCorrectPicMenuText(bool subject)
{
    popPicture_M.SetEntryCaption(1, PictureEntryCaption(subject));
}

bool frm_Main::Refused(const QString& why)
{
    if (!why.isEmpty())
        status.lblmsg.Show(why, forms::Colour::Red);
    return !why.isEmpty();
}

/// @return why the slot is not as it was when its menu opened; "" while it is
QString frm_Main::WhyOtherSlotPhoto() const
{
    const auto* slot = controls.Find(m_menuControl, m_menuIndex);
    const QString now = slot == nullptr ? QString() : text::Trim(m_slotTable.ErrGetPict(*slot));
    return text::Folded(now) == text::Folded(m_menuFile.path)
               ? QString()
               : u"The slot shows another photo now than when its menu opened. Nothing was done."_s;
}

void frm_Main::popPicture_M_Click(int index)
{
    const common::RoutineScope scope{"popPicture_M"};
    if (Refused(WhyOtherSlotPhoto()))
        return;
    const link::Talking talking(*m_link, link::messages::kSendingSlots);
    drops::DropDesk desk = Drops();
    const QLatin1StringView group = drops::GroupOf(m_menuControl);
    if (index == 0)
        Told(drops::ObtainPhoto(desk, group, m_menuIndex));
    else if (index == 1)
        Told(drops::ObtainShownPhotos(desk, group, m_menuIndex));
    else if (index == 3)
        Told(drops::ClearPhoto(desk, group, m_menuIndex));
}

void frm_Main::popGeneral_M_Click(int index)
{
    const common::RoutineScope scope{"popGeneral_M"};
    if (Refused(WhyOtherSlotPhoto()))
        return;
    const link::Talking talking(*m_link, link::messages::kSendingSlots);
    drops::DropDesk desk = Drops();
    if (index == 0)
        Told(drops::ObtainGeneral(desk, m_menuIndex));
    else if (index == 2)
        Told(drops::ClearPhoto(desk, drops::GroupOf(m_menuControl), m_menuIndex));
}

void frm_Main::popTextData_M_Click(int index)
{
    const common::RoutineScope scope{"popTextData_M"};
    const link::Talking talking(*m_link, link::messages::kSendingSlots);
    drops::DropDesk desk = Drops();
    const QLatin1StringView group = drops::GroupOf(m_menuControl);
    if (index == 0)
        Told(drops::ObtainData(desk, group, m_menuIndex, drops::WithPhoto::No));
    else if (index == 1)
        Told(drops::ObtainShownData(desk, group, m_menuIndex, drops::WithPhoto::No));
    else if (index == 3)
        Told(drops::SaveDataOfSlot(desk, group, m_menuIndex));
}

drops::Outcome frm_Main::SwapComps(int target, int source)
{
    drops::DropDesk desk = Drops();
    return Told(drops::SwapSlots(desk, target, source));
}

void frm_Main::popTextData_MSubSwap_Click(int index)
{
    const common::RoutineScope scope{"popTextData_M"};
    if (m_swapComp < 1 || index < 1 || index > m_swapShown.size())
        return;
    drops::DropDesk desk = Drops();
    Told(drops::SwapSlots(desk, m_swapComp, index, {m_swapShown[m_swapComp - 1], m_swapShown[index - 1]}));
}

void frm_Main::popPicAndData_M_Click(int index)
{
    const common::RoutineScope scope{"popPicAndData_M"};
    const link::Talking talking(*m_link, link::messages::kSendingSlots);
    drops::DropDesk desk = Drops();
    const QLatin1StringView group = drops::GroupOf(m_menuControl);
    if (index == 0)
        Told(drops::ObtainData(desk, group, m_menuIndex, drops::WithPhoto::Yes));
    else if (index == 1)
        Told(drops::ObtainShownData(desk, group, m_menuIndex, drops::WithPhoto::Yes));
}

} // namespace vasclip::shell
