#include "link/slot_photos.h"

#include "common/paths.h"
#include "link/kel_channel.h"
#include "link/kel_helpers.h"
#include "link/messages.h"
#include "link/report_check.h"
#include "link/reporter.h"
#include "link/slot_table.h"
#include "link/talk.h"
#include "photos/photo_copies.h"
#include "platform/text/call_errors.h"
#include "platform/text/text.h"

namespace vasclip::link {

using namespace Qt::Literals::StringLiterals;

namespace {

/// In place of a slot's number, for the image objects of which there is one.
enum OneObject { kLocationMap = -1, kGeneralMap = -2, kFax = -3, kNoObject = -4 };

QString Prefix(const GroupRow& row)
{
    return row.wire + u'_';
}

/// Opens the active report and leaves its forms list in Text. @return false if it isn't the one on show
bool OpenForSending(LinkDesk& desk)
{
    KelQueryActiveReports(desk.txtDDE);
    if (const ReportCheck check = CheckAnsweredReport(desk); check.is == ReportIs::Another) {
        desk.state.notSent = check.words;
        return false;
    }
    const QString report = KelFirstToken(desk.txtDDE.Text());
    KelOpenReport(desk.txtDDE, report);
    KelListForms(desk.txtDDE, report);
    return true;
}

void FillSlot(LinkDesk& desk, forms::PictureBox& slot, const QString& entry)
{
    const qsizetype bar = entry.indexOf(u'|');
    const QString name = bar < 0 ? entry : entry.left(bar);
    QString path = bar < 0 ? QString() : entry.mid(bar + 1);
    if (path.endsWith(u';'))
        path.chop(1);
    const bool another = text::Folded(path) != text::Folded(desk.loader.Table().ErrGetPict(slot));
    if (!text::Trim(path).isEmpty() && another)
        LocateAndDisplay(desk, name, path);
    else
        desk.loader.geaClearImage(slot);
}

/// The picture that the report has kept comes back into the slot.
void ShowAgain(LinkDesk& desk, forms::PictureBox& slot, const QString& path)
{
    Reported(desk.ports.prompter, "ShowAgain", [&] {
        if (text::Trim(path).isEmpty() || !desk.disk.FileExists(path))
            desk.loader.geaClearImage(slot);
        else
            desk.loader.ErrLoadThumb(slot, path);
    });
}

/// Loads a picture into the slot and sends it, with the program in front before and after.
SlotSend ShowAndSend(LinkDesk& desk, const char* routine, const forms::Control& control,
                     forms::PictureBox& slot, int index, const QString& path)
{
    const QString before = desk.loader.Table().ErrGetPict(slot);
    const QString report = desk.addr.txtKelReport.Text();
    const bool loaded = Reported(desk.ports.prompter, routine,
                                 [&] { desk.loader.ErrLoadThumb(slot, path); });
    if (!loaded)
        return SlotSend::Failed;
    desk.ports.window.AppActivate();
    const SlotSend sent = KelSendSlotPhoto(desk, control, slot, index);
    desk.ports.window.AppActivate();
    // A refresh from another report has shown that one's picture meanwhile.
    if (sent == SlotSend::Failed && desk.addr.txtKelReport.Text() == report)
        ShowAgain(desk, slot, before);
    return sent;
}

} // namespace

QString ImageObjectName(const QString& controlName, int index)
{
    switch (index) {
    case kLocationMap:
        return u"MAP_LOCATION"_s;
    case kGeneralMap:
        return u"MAP_GENERAL_1"_s;
    case kFax:
        return u"FAX_SCAN_A"_s;
    case kNoObject:
        return {};
    default:
        break;
    }
    const GroupRow* row = GroupOfLetters(controlName);
    return row ? Prefix(*row) + text::Dec(index) + u'_' : QString();
}

QString PathOfView(const BookSources& desk, const photos::PhotoList& photos, const QString& view)
{
    return photos.Has(view) ? common::CkRSlash(desk.globals.G_PhotoDir) + photos.StemOf(view) + u".jpg"_s : QString();
}

SlotSend KelSendSlotPhoto(LinkDesk& desk, const forms::Control& control, const forms::PictureBox& slot,
                          int index)
{
    bool send = false;
    bool open = false;
    bool taken = false; // what a script after it comes to is another matter
    Reported(desk.ports.prompter, "KelSendSlotPhoto", [&] {
        QString object = ImageObjectName(control.Name(), index);
        open = OpenForSending(desk);
        if (!open)
            return;
        if (index >= 0)
            object += KelPhotoSizeOfPage(desk.txtDDE.Text());
        const QString path = text::Trim(desk.loader.Table().ErrGetPict(slot));
        // A name with nothing before its extension is no picture.
        send =
            !path.isEmpty() && !path.toUpper().contains("\\.JPG"_L1) && desk.disk.FileExists(path);
        KelSendPhoto2Object(desk.txtDDE, object, send ? path : QString());
        taken = true;
        SendScriptIfThere(desk, u"refresh.bas"_s);
    });
    return !taken ? SlotSend::Failed : send ? SlotSend::Sent : SlotSend::Cleared;
}

SlotSend SendKelTheView(LinkDesk& desk, const forms::Control& control, forms::PictureBox& slot, int index,
                        const photos::PhotoList& photos, const QString& view)
{
    const QString path = PathOfView(desk, photos, view);
    SlotSend sent = SlotSend::Cleared;
    if (path.isEmpty()) {
        desk.loader.geaClearImage(slot);
    } else {
        sent = ShowAndSend(desk, "SendKelTheView", control, slot, index, path);
        if (sent == SlotSend::Failed)
            return sent;
    }
    Reported(desk.ports.prompter, "SendKelTheView", [&] { SendScriptIfThere(desk, u"refresh.bas"_s); });
    return sent;
}

bool SendStoredView(LinkDesk& desk, const forms::Control& control, forms::PictureBox& slot, int index,
                    const photos::PhotoList& photos, const QString& view)
{
    const QString path = PathOfView(desk, photos, view);
    if (path.isEmpty() || !desk.photoDesk) {
        desk.loader.geaClearImage(slot);
        return true;
    }
    QString copy;
    const bool copied = Reported(desk.ports.prompter, "SendStoredView", [&] {
        copy = photos::CopyPhotoRename(*desk.photoDesk, path, slot);
    });
    return copied && ShowAndSend(desk, "SendStoredView", control, slot, index, copy) != SlotSend::Failed;
}

bool ClearSlotPhoto(LinkDesk& desk, forms::PictureBox& slot, bool ask)
{
    if (ask && !desk.ports.prompter.YesNo(desk.globals.productName, messages::kClearPhoto))
        return false;
    if (ask) { // the question gave time to bring another report to the front
        if (const ReportCheck check = CheckReport(desk); !check.Stands()) {
            desk.state.notSent = check.words;
            return false;
        }
    }
    const QString before = desk.loader.Table().ErrGetPict(slot);
    const QString report = desk.addr.txtKelReport.Text();
    desk.loader.geaClearImage(slot);
    const bool cleared = KelSendSlotPhoto(desk, slot, slot, slot.Index()) != SlotSend::Failed;
    if (!cleared && desk.addr.txtKelReport.Text() == report)
        ShowAgain(desk, slot, before);
    return cleared;
}

QString KelParseImages(const QString& images, const QString& key)
{
    const QString text = u';' + images;
    const qsizetype found = text.toUpper().indexOf(u';' + key.toUpper());
    if (found < 0)
        return {};
    const qsizetype end = text.indexOf(u';', found + 1);
    if (end < 0)
        throw RuntimeError(error::kInvalidCall, messages::kImagesCutOff.arg(text.mid(found + 1)));
    return text.mid(found + 1, end - found - 1);
}

void SetPhotos(LinkDesk& desk, const QString& group)
{
    const QString wanted = text::Folded(group);
    for (const GroupRow& row : GroupTable()) {
        if (wanted != row.wire)
            continue;
        Reported(desk.ports.prompter, "SetPhotos", [&] {
            const GroupRow::Pictures& array = desk.slots.*row.photos;
            for (int i = 1; i <= row.slots; ++i) {
                const QString key = Prefix(row) + text::Dec(i) + u'_';
                FillSlot(desk, array(i), KelParseImages(desk.addr.txtKelimages.Text(), key));
            }
        });
    }
}

void SetPhoto(LinkDesk& desk, forms::PictureBox& slot)
{
    const QString entry = KelParseImages(desk.addr.txtKelimages.Text(), ImageObjectName(slot.Name(), slot.Index()));
    desk.loader.geaClearImage(slot);
    FillSlot(desk, slot, entry);
}

void LocateAndDisplay(LinkDesk& desk, const QString& name, const QString& path)
{
    const QString upper = name.toUpper();
    if (upper.isEmpty() || upper == "MAP_LOCATION"_L1 || upper == "SUB_TITLE"_L1 ||
        upper == "SKETCH_SUBJECT"_L1)
        return;
    const qint16 index = GetIndexValue(name);
    if (index == -1 || !desk.disk.FileExists(path))
        return;
    constexpr qsizetype kTelling = 3; // letters of an object's name
    for (const GroupRow& row : GroupTable())
        if (upper.left(kTelling) == Prefix(row).left(kTelling))
            desk.loader.ErrLoadThumb((desk.slots.*row.photos)(index), path);
}

QStringList PicturesOfReport(const ReportMirror& desk)
{
    QStringList files;
    for (const GroupRow& row : GroupTable())
        for (int i = 1; i <= row.slots; ++i)
            files.append(text::Folded(desk.loader.Table().ErrGetPict((desk.slots.*row.photos)(i))));
    for (const QString& entry : desk.addr.txtKelimages.Text().split(u';', Qt::SkipEmptyParts))
        files.append(text::Folded(entry.section(u'|', 1)));
    files.removeAll(QString());
    return files;
}

void ClearAllSlots(ReportMirror& desk)
{
    for (const GroupRow& row : GroupTable())
        for (int i = 1; i <= row.slots; ++i)
            desk.loader.geaClearImage((desk.slots.*row.photos)(i));
}

} // namespace vasclip::link
