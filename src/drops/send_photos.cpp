#include "drops/actions.h"

#include "drops/slot.h"
#include "drops/view_rule.h"
#include "link/slot_icons.h"
#include "link/slot_photos.h"
#include "platform/text/text.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

Outcome Gone(const QString& key)
{
    return {false, u"%1 is no longer in the Databook."_s.arg(key), forms::Colour::Red, {}};
}

Outcome Told(const link::LinkDesk& desk, const Taken& record, PhotoSent sent, const QString& view)
{
    const QString& key = record.key;
    if (const auto unsent = TellUnsent(desk, record, sent, view, key))
        return *unsent;
    if (sent == PhotoSent::None)
        return {true, u"%1 has no %2. The slot is empty now."_s.arg(key, view), forms::Colour::Blue, {}};
    return {true, u"The %1 of %2 is in the report now."_s.arg(view, key), forms::Colour::Green, {}};
}

/// The picture for the eyes while a view is asked: the front view, else the record's first one.
QString FrontFile(const link::LinkDesk& desk, const photos::PhotoList& photos)
{
    const QString front = u"FRONT VIEW"_s;
    const QString view = photos.Has(front) || photos.Pairs().isEmpty() ? front : photos.Pairs().first().first;
    return photos.StemOf(view).isEmpty() ? QString() : link::PathOfView(desk, photos, view);
}

/// @param caption  of a general slot whose view was asked
Outcome Send(DropDesk& drops, const QString& key, const DropRule& rule, int index, const QString& view,
             GeneralCaption* caption)
{
    link::LinkDesk& desk = drops.link;
    const std::optional<Taken> record = TakeRecord(desk, key);
    if (!record)
        return Gone(key);
    const Slot slot = SlotOf(desk, {*rule.group, index});
    const QString before = slot.text.Text();
    slot.text.SetText(record->Text());
    const PhotoSent sent = SendView(desk, *record, slot.photo, view);
    const bool general = rule.group == Group::General;
    Outcome outcome = Told(desk, *record, sent, view);
    outcome.stayed = true;
    const bool kept = sent == PhotoSent::Failed || sent == PhotoSent::Kept;
    GeneralTold told;
    if (general && !kept)
        told = TellGeneral(drops, index, caption);
    // What the report did not take is not its slot's record; a slot that shows another report by now stays.
    const bool stands = slot.text.Text() == record->Text();
    if (stands && (kept || told.Failed()))
        slot.text.SetText(before);
    if (text::Folded(slot.text.Text()) == text::Folded(record->Text()))
        link::RefreshSlotIcon(desk, slot.ref, record->record);
    else
        link::RefreshSlotIcon(desk, slot.ref);
    desk.ports.window.AppActivate();
    if (told.Failed() && sent == PhotoSent::Yes) {
        outcome.message.chop(1);
        outcome.message += told.Words();
        outcome.colour = forms::Colour::Red;
    } else if (!general && (sent == PhotoSent::Yes || sent == PhotoSent::None) && !text::Trim(before).isEmpty() &&
               text::Folded(before) != text::Folded(slot.text.Text()) &&
               text::Folded(before) != text::Folded(record->address)) {
        // The slot names the photo's record from here on; the report's own address is still the other one.
        outcome.message += u" The data beside it are still those of %1."_s.arg(text::Trim(before));
        outcome.colour = forms::Colour::Blue;
    }
    return outcome;
}

} // namespace

Outcome SendRecordView(DropDesk& drops, const QString& key, const DropRule& rule, int index,
                       const QString& view)
{
    return Send(drops, key, rule, index, view, nullptr);
}

Outcome SendAskedView(DropDesk& drops, const QString& key, const DropRule& rule, int index)
{
    const std::optional<Taken> record = TakeRecord(drops.link, key);
    if (!record)
        return Gone(key);
    GeneralCaption caption(drops, index);
    const QString front = FrontFile(drops.link, record->photos);
    const QString view = AskView(drops, u"CBOGENERAL"_s, index, front, text::Trim(key));
    if (view.isEmpty())
        return {};
    return Send(drops, key, rule, index, view, &caption);
}

Outcome SendShown(DropDesk& drops, const Drag& drag, const DropRule& rule, int index)
{
    std::optional<GeneralCaption> caption;
    if (rule.action == DropAction::SendShownAsked)
        caption.emplace(drops, index);
    if (caption && AskView(drops, u"CBOGENERAL"_s, index, drag.picture.path, drag.key).isEmpty())
        return {};
    link::LinkDesk& desk = drops.link;
    const std::optional<Taken> record = TakeRecord(desk, drag.key);
    if (!record)
        return Gone(drag.key);
    if (text::Folded(link::PathOfView(desk, record->photos, drag.view)) != text::Folded(drag.picture.path))
        return {false,
                u"The %1 of %2 is no longer the picture that you dragged. Nothing was sent."_s.arg(drag.view, drag.key),
                forms::Colour::Red, {}};
    return Send(drops, drag.key, rule, index, drag.view, caption ? &*caption : nullptr);
}

Outcome ReplaceSubjectPhotos(DropDesk& drops, const QString& key)
{
    link::LinkDesk& desk = drops.link;
    const QString question = u"This action overwrites the 3 main subject photos (if present) of %1 with the 3 "
                             u"main subject photos of %2. Continue?"_s;
    const auto answer = desk.ports.prompter.MsgBox(
        forms::Buttons::YesNoCancel, forms::Icon::Question, u"Overwrite Subject Photos"_s,
        question.arg(text::Trim(desk.report.txtSubject.Text()), text::Trim(key)));
    if (answer != forms::Answer::Yes)
        return {};
    const std::optional<Taken> record = TakeRecord(desk, key);
    if (!record)
        return Gone(key);
    PhotoSent worst = PhotoSent::Yes;
    QStringList missing;
    for (int i = 1; i <= photos::kSubjectPhotos; ++i) {
        const PhotoSent sent = SendView(desk, *record, desk.slots.imaSubject(i), link::SubjectView(i));
        if (sent == PhotoSent::Kept || sent == PhotoSent::Cleared)
            missing << TellUnsent(desk, *record, sent, link::SubjectView(i), record->key)->message;
        worst = std::max(worst, sent);
        if (sent == PhotoSent::Failed)
            break;
    }
    link::RefreshSubjectIcons(desk, 0);
    desk.ports.window.AppActivate();
    if (worst == PhotoSent::Failed && !desk.state.notSent.isEmpty())
        return NotSent(desk.state.notSent);
    if (worst == PhotoSent::Failed)
        return {false, u"Not all photos of %1 reached the report."_s.arg(text::Trim(key)), forms::Colour::Red,
                {}};
    if (!missing.isEmpty())
        return {true, missing.join(u' '), forms::Colour::Red, {}};
    if (worst == PhotoSent::None)
        return {true, u"The photos of %1 are in the report now; it doesn't have all three."_s.arg(text::Trim(key)),
                forms::Colour::Blue, {}};
    return {true, u"The 3 photos of %1 are in the report now."_s.arg(text::Trim(key)), forms::Colour::Green, {}};
}

} // namespace vasclip::drops
