#include "drops/actions.h"

#include "common/paths.h"
#include "drops/slot.h"
#include "drops/view_rule.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/slot_photos.h"
#include "link/transfer.h"
#include "photos/format_picture.h"
#include "photos/photo_copies.h"
#include "photos/photo_records.h"
#include "photos/trash.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

bool FromThumb(const Drag& drag)
{
    return text::Folded(drag.source) == "GEATHUMB"_L1;
}

bool FromFiles(const Drag& drag)
{
    return text::Folded(drag.source) == kFiles;
}

/// The picture is stored: its source goes to the trash and out of the browser. A file of another program
/// stays where it is.
void Consume(DropDesk& desk, const Drag& drag)
{
    if (FromFiles(drag))
        return;
    const bool moved = SendFiledToTrash(desk, drag.picture);
    if (!FromThumb(drag))
        desk.capture.RefreshCapture();
    else if (moved && desk.link.globals.autoDelete == 1 && desk.photos.PictureSaved)
        desk.capture.HideThumbOf(drag.picture.path);
}

Outcome NotStored(const DropDesk& desk, const QString& picture)
{
    const QString why = desk.photos.notSaved;
    return {false,
            why.isEmpty() ? u"%1 was not filed."_s.arg(common::WholeFileName(picture))
                          : u"%1 was not filed: %2"_s.arg(common::WholeFileName(picture), why),
            forms::Colour::Red,
            {}};
}

/// Files one picture with a record. @return false if the user gave up or it could not be filed
bool FileOne(DropDesk& desk, const Drag& drag, const QString& key, const photos::PointedFile& pointed,
             const QString& viewSource, Outcome& outcome)
{
    const QString& picture = pointed.path;
    const QString view = AskView(desk, viewSource, drag.index, picture, key);
    if (view.isEmpty())
        return false;
    if (const QString why = photos::WhyAnother(desk.link.disk, pointed); !why.isEmpty()) {
        outcome = {false, why, forms::Colour::Red, {}};
        return false;
    }
    desk.photos.PictureSaved = false;
    desk.photos.notSaved.clear();
    if (!photos::SavePhotoToRecord(desk.photos, key, picture, view)) {
        if (!desk.photos.notSaved.isEmpty())
            outcome = NotStored(desk, picture);
        return false;
    }
    Consume(desk, drag);
    outcome = {true, u"%1 is filed with %2 now."_s.arg(view, key), forms::Colour::Green, key};
    return true;
}

Outcome FileAll(DropDesk& desk, const Drag& drag, const QString& key, const QString& viewSource)
{
    Outcome outcome;
    QList<photos::PointedFile> pictures{drag.picture};
    for (const QString& file : drag.files.mid(1))
        pictures.append(photos::PointAt(desk.link.disk, file));
    int filed = 0;
    for (const photos::PointedFile& picture : std::as_const(pictures)) {
        if (!FileOne(desk, drag, key, picture, viewSource, outcome))
            break;
        ++filed;
    }
    if (filed > 1 && outcome.done)
        outcome.message = u"%1 pictures are filed with %2 now."_s.arg(filed).arg(key);
    if (filed > 0)
        outcome.record = key;
    return outcome;
}

} // namespace

bool SendFiledToTrash(DropDesk& desk, const photos::PointedFile& picture)
{
    if (!photos::WhyAnother(desk.link.disk, picture).isEmpty())
        return false;
    const common::FileNameParts parts = common::SplitFilePath(picture.path);
    const photos::TrashDesk trash{desk.link.ports, desk.link.disk, desk.link.globals};
    const auto saved = desk.photos.PictureSaved ? photos::PictureIs::Saved : photos::PictureIs::Unsaved;
    bool moved = false;
    // A trash that takes nothing costs the tidying, not the picture that is filed by now.
    (void)link::Reported(desk.link.ports.prompter, "SendToTrashCan", [&] {
        moved = photos::SendToTrashCan(trash, saved, desk.link.globals.G_CaptureDir, picture.path, parts.name,
                                       parts.extension) == photos::Trashed::Moved;
    });
    return moved;
}

Outcome FilePictureIntoSlot(DropDesk& desk, const Drag& drag, const DropRule& rule, int index)
{
    link::LinkDesk& link = desk.link;
    const QString& picture = drag.picture.path;
    if (common::ParseFileName(picture).name.isEmpty())
        return picture.isEmpty() ? Outcome{} : NotSent(u"%1 can not be used: give it a name without \"]\"."_s.arg(picture));
    const bool general = rule.action == DropAction::FileIntoGeneral;
    std::optional<GeneralCaption> caption;
    if (general)
        caption.emplace(desk, index);
    const QString whose = u"General photo %1 of the report"_s.arg(index);
    if (general && AskView(desk, u"CBOGENERAL"_s, index, picture, whose).isEmpty())
        return {};
    if (const QString why = photos::WhyAnother(link.disk, drag.picture); !why.isEmpty())
        return {false, why, forms::Colour::Red, {}}; // while the view was asked
    forms::PictureBox& slot = SlotOf(link, {*rule.group, index}).photo;
    // A question stood: another report may be in front by now, and nothing has moved yet.
    const bool asked = general || !text::Trim(link.loader.Table().ErrGetPict(slot)).isEmpty();
    if (asked) {
        if (const link::ReportCheck check = link::CheckReport(link); !check.Stands())
            return NotSent(check.words);
    }
    if (!photos::FormatPictureNow(desk.photos, picture, slot))
        return NotStored(desk, picture);

    photos::SlotTable& table = link.loader.Table();
    Consume(desk, drag);
    link.loader.ErrLoadThumb(slot, table.ErrGetPict(slot));
    link.ports.window.AppActivate();
    const link::SlotSend sent = link::KelSendSlotPhoto(link, slot, slot, index);
    link.ports.window.AppActivate();
    // The picture stays in the slot, and a save files it under the view beside it.
    if (caption && sent == link::SlotSend::Failed)
        caption->Taken();
    if (sent == link::SlotSend::Failed && !link.state.notSent.isEmpty()) // the slot may show another report by now
        return NotSent(u"%1 is stored. %2"_s.arg(common::WholeFileName(picture), link.state.notSent));
    link.loader.ErrLoadThumb(slot, table.ErrGetPict(slot));
    photos::ApplyWriteProtect(link.ports, link.disk, link.globals, table.ErrGetPict(slot));
    const GeneralTold told = general && sent != link::SlotSend::Failed
                                 ? TellGeneral(desk, index, &*caption)
                                 : GeneralTold{};

    if (!general)
        link::SaveSlot2Database(link, {*rule.group, index});
    const QString name = common::WholeFileName(picture);
    if (sent == link::SlotSend::Failed)
        return {true, u"%1 is stored and in the slot; the report did not take it."_s.arg(name),
                forms::Colour::Red, {}};
    if (sent == link::SlotSend::Cleared)
        return {true, u"%1 was stored, but its file is missing now: the report's picture was cleared."_s.arg(name),
                forms::Colour::Red, {}};
    const QString rest =
        drag.files.size() > 1 ? u" A slot takes one picture; the others were left."_s : QString();
    return {true, u"%1 is in the report now"_s.arg(name) + told.Words() + rest,
            told.Failed() ? forms::Colour::Red : forms::Colour::Green, {}};
}

Outcome ShowInSubject(DropDesk& desk, const QString& picture)
{
    photos::SlotLoader& loader = desk.link.loader;
    for (int i = 1; i <= 3; ++i) {
        forms::PictureBox& box = desk.link.slots.imaSubject(i);
        loader.ErrLoadThumb(box, picture);
        if (text::Folded(loader.Table().ErrGetPict(box)) != text::Folded(picture))
            return {}; // which has been said, and would be said twice more
        loader.ErrLoadThumb(box, loader.Table().ErrGetPict(box));
    }
    return {true, u"The picture is on show; it has not gone to the report."_s, forms::Colour::Blue, {}};
}

Outcome FileInRecord(DropDesk& desk, const Drag& drag)
{
    const QString key = text::Trim(desk.grddatabook.CurrentText(fields::CENTRALKEY));
    if (key.isEmpty())
        return {};
    return FileAll(desk, drag, key, drag.source);
}

Outcome Drop2CBOFromCamera(DropDesk& desk, const Drag& drag)
{
    const QString key = text::Folded(desk.txtcentralkey.Text());
    if (key.isEmpty())
        return {};
    desk.link.lists.txtView.SetText(u"FRONT VIEW"_s);
    return FileAll(desk, drag, key, u"TXTVIEW"_s);
}

} // namespace vasclip::drops
