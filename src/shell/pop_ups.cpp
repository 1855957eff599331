#include "shell/pop_ups.h"

#include "common/error_block.h"
#include "drops/router.h"
#include "drops/slot_menus.h"
#include "drops/swap_slots.h"
#include "link/messages.h"
#include "link/slot_table.h"
#include "link/talk.h"
#include "photos/capture_desk.h"
#include "platform/text/text.h"
#include "shell/adjust.h"
#include "shell/drags.h"
#include "shell/menus.h"
#include "shell/program.h"
#include "shell/record_photos.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

PopUps::PopUps(Program& program, Drags& drags, Menus& menus)
    : m_program(program)
    , m_drags(drags)
    , m_menus(menus)
{
    const photos::SlotControls& slots = program.slots;
    const auto eachOf = [](const forms::ControlArray<forms::PictureBox>& array, const auto& wire) {
        for (int i = std::max(1, array.First()); i <= array.Last(); ++i)
            wire(array(i));
    };
    for (const link::GroupRow& row : link::GroupTable()) {
        eachOf(slots.*row.icons, [this, group = row.group](forms::PictureBox& icon) {
            const auto save = [this, slot = link::SlotRef{group, icon.Index()}] {
                const common::RoutineScope scope{"Icon_Click"};
                drops::DropDesk desk = m_program.Drops();
                m_drags.Told(drops::SavePhotoOfSlot(desk, slot));
            };
            connect(&icon, &forms::Control::Clicked, this, save);
        });
        if (row.boxes)
            eachOf(slots.*row.boxes, [this, group = row.group](forms::PictureBox& box) {
                connect(&box, &forms::Control::Clicked, this, [this, slot = link::SlotRef{group, box.Index()}] {
                    const link::Talking talking(m_program.Link(), link::messages::kSendingSlots);
                    drops::DropDesk desk = m_program.Drops();
                    m_drags.Told(drops::ClickDataBox(desk, slot));
                });
            });
        eachOf(slots.*row.photos, [this](forms::PictureBox& slot) {
            connect(&slot, &forms::Control::DoubleClicked, this,
                    [this, &slot] { SlotPhoto_DblClick(m_program, slot); });
        });
    }
}

forms::Menu* PopUps::MenuOver(const forms::Control& control)
{
    m_point.control = control.Name();
    m_point.index = control.Index();
    const QString name = text::Folded(control.Name());
    const bool photoOnShow = name == u"GEAMAINTAIN"_s || name == u"LSTVIEWS"_s;
    m_point.file = photos::PointAt(
        m_program.Disk(),
        m_program.SlotTable().ErrGetPict(photoOnShow ? m_program.slots.geamaintain : control));
    m_point.photo = ShownPhoto(m_program);
    if (name == u"GEATHUMB"_s || name == u"FILCAPTURE"_s || name == u"GEALISTBOX"_s) {
        if (name == u"GEATHUMB"_s)
            m_program.Capture().geathumb_MouseDown(control.Index());
        m_menus.popThumb_M.SetEntryEnabled(kDeleteImageEntry, !m_point.file.path.isEmpty());
        return &m_menus.popThumb_M;
    }
    if (photoOnShow) {
        for (const int entry : {kRenameViewEntry, kDeletePhotoEntry})
            m_menus.popPhoto_M.SetEntryEnabled(entry, m_program.photoLists.lstViews.ListIndex() >= 0);
        return &m_menus.popPhoto_M;
    }
    const link::GroupRow* row = link::GroupOf(name);
    if (!row || name.startsWith(u"LBL"_s) || name.startsWith(u"TAB"_s))
        return nullptr;
    const bool subject = row->group == link::Group::Subject;
    if (name == u"IMAGENERAL"_s)
        return &m_menus.popGeneral_M;
    if (name.startsWith(u"IMA"_s)) {
        SetCorrectPicMenuText(subject);
        return &m_menus.popPicture_M;
    }
    if (name.startsWith(u"GEA"_s))
        return &m_menus.popPicAndData_M;
    if (!name.startsWith(u"TXT"_s))
        return nullptr;
    // The subject's data are not sent from the Databook.
    m_menus.popTextData_M.SetEntryEnabled(kObtainDataEntry, !subject);
    m_menus.popTextData_M.SetEntryEnabled(kObtainShownEntry, !subject);
    OfferSwap(control);
    return &m_menus.popTextData_M;
}

/// Only sales comps are swapped, and only with those that the report has.
void PopUps::OfferSwap(const forms::Control& slot)
{
    const bool sales = text::Folded(slot.Name()) == "TXTCOMP"_L1;
    const auto has = [this](int comp) {
        return m_program.report.txtComp(comp).Enabled() &&
               !link::OnMissingPage(m_program.report, {link::Group::Sales, comp});
    };
    m_swapComp = sales ? slot.Index() : 0;
    m_swapShown.clear();
    bool any = false;
    for (int comp = 1; comp <= m_program.report.txtComp.Last(); ++comp) {
        const QString address = text::Trim(m_program.report.txtComp(comp).Text());
        m_swapShown.append(address);
        const bool can = sales && comp != m_swapComp && has(comp);
        any = any || can;
        const QString named = address.isEmpty() ? u"(empty)"_s : QString(address).replace(u'&', u"&&"_s);
        m_menus.popTextData_M.SetEntryCaption(kSwapEntries, comp, u"Comp &%1: %2"_s.arg(comp).arg(named));
        m_menus.popTextData_M.SetEntryEnabled(kSwapEntries, comp, can);
    }
    m_menus.popTextData_M.SetEntryEnabled(kSwapEntry, any && has(std::max(1, m_swapComp)));
}

void PopUps::SetCorrectPicMenuText(bool subject)
{
    m_menus.popPicture_M.SetEntryCaption(kAllPhotosEntry, PictureEntryCaption(subject));
}

/// @return why the slot is not as it was when its menu opened; "" while it is
QString PopUps::WhyOtherSlotPhoto() const
{
    const auto* slot = m_program.controls.Find(m_point.control, m_point.index);
    const QString now = slot == nullptr ? QString() : text::Trim(m_program.SlotTable().ErrGetPict(*slot));
    return text::Folded(now) == text::Folded(m_point.file.path)
               ? QString()
               : u"The slot shows another photo now than when its menu opened. Nothing was done."_s;
}

void PopUps::OnSlot(const char* menu, const SlotWork& work, const QString& atWork)
{
    const common::RoutineScope scope{menu};
    const link::Talking talking(m_program.Link(), atWork.isEmpty() ? link::messages::kSendingSlots : atWork);
    drops::DropDesk desk = m_program.Drops();
    if (const link::GroupRow* row = link::GroupOf(m_point.control))
        m_drags.Told(work(desk, {row->group, m_point.index}));
}

void PopUps::OnPhoto(const char* menu, const SlotWork& work)
{
    if (!Refused(m_program.status, WhyOtherSlotPhoto()))
        OnSlot(menu, work);
}

void PopUps::Swap(int comp)
{
    const common::RoutineScope scope{"popTextData_M"};
    if (m_swapComp < 1 || comp < 1 || comp > m_swapShown.size())
        return;
    drops::DropDesk desk = m_program.Drops();
    m_drags.Told(
        drops::SwapSlots(desk, m_swapComp, comp, {m_swapShown[m_swapComp - 1], m_swapShown[comp - 1]}));
}

} // namespace vasclip::shell
