#include "drops/actions.h"

#include "drops/slot.h"
#include "link/drop_comp.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

Outcome PasteRecord(DropDesk& drops, const Drag& drag, const DropRule& rule, forms::Control& target)
{
    link::LinkDesk& desk = drops.link;
    const Slot slot = SlotOf(desk, rule.group, target.Index());
    desk.state.dragSourceIndex = -1;
    desk.state.currentKey = text::Folded(drag.key);

    desk.ports.window.AppActivate();
    const link::DropOutcome result = link::DropComp(desk, target, slot.photo, rule.group, false);
    desk.ports.window.AppActivate();
    if (result == link::DropOutcome::Incomplete)
        return {false, u"Only a part of %1 reached the report. Drop it again."_s.arg(drag.key),
                forms::Colour::Red, {}};
    if (result == link::DropOutcome::NotFound)
        return {false, u"%1 is no longer in the Databook."_s.arg(drag.key), forms::Colour::Red, {}};
    if (result != link::DropOutcome::Sent)
        return {};

    slot.text.SetText(SlotText(desk.state));
    PhotoSent photo = PhotoSent::Yes;
    QString photoTold;
    if (rule.action == DropAction::PasteCompAndPhoto) {
        photos::ReadPhotoLists(desk.sources.datDatabook, desk.lists.lstViews, desk.lists.lstimages);
        photo = SendView(desk, slot.photo, u"FRONT VIEW"_s);
        if (const auto unsent = TellUnsent(desk, photo, u"FRONT VIEW"_s, slot.text.Text()))
            photoTold = unsent->message;
    }
    desk.loader.ErrLoadPict(*slot.data, desk.globals.G_ProgramDir + u"Addendum_Added.bmp"_s);
    slot.refreshIcons(desk);
    desk.ports.window.AppActivate();
    const QString shown = slot.text.Text();
    if (photo == PhotoSent::Cleared || photo == PhotoSent::Kept)
        return {true, u"%1 is in the report now. "_s.arg(shown) + photoTold, forms::Colour::Red, {}};
    if (photo == PhotoSent::Failed)
        return {true, u"%1 is in the report now, its photo is not."_s.arg(shown), forms::Colour::Red, {}};
    if (photo == PhotoSent::None)
        return {true, u"%1 is in the report now. It has no front view."_s.arg(shown), forms::Colour::Green, {}};
    return {true, u"%1 is in the report now."_s.arg(shown), forms::Colour::Green, {}};
}

} // namespace vasclip::drops
