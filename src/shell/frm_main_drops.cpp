// Drags and drops on the main screen.

#include "common/error_block.h"
#include "drops/router.h"
#include "drops/slot_menus.h"
#include "link/transfer.h"
#include "photos/capture_desk.h"
#include "platform/picture/picture.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"

#include <algorithm>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

drops::DropDesk frm_Main::Drops()
{
    return {.link = *m_link,
            .photos = *m_photos,
            .capture = *m_capture,
            .grddatabook = records.grddatabook,
            .txtcentralkey = records.txtcentralkey,
            .routines = {.autoSave = [this](QLatin1StringView group,
                                            int index) { AutoSaveSlot(group, index); },
                         .save = [this](QLatin1StringView group, int index,
                                        drops::SlotPart part) { SaveSlotNow(group, index, part); }}};
}

void frm_Main::MakeRouter()
{
    m_router = std::make_unique<drops::Router>(Drops());
}

void frm_Main::SaveSlotNow(QLatin1StringView group, int index, drops::SlotPart part)
{
    using link::What;
    const common::RoutineScope scope{"SaveSlot"};
    const What what = part == drops::SlotPart::Data    ? What::Data
                      : part == drops::SlotPart::Photo ? What::Pic
                                                       : What::Both;
    if (group == "SALE"_L1)
        link::TransferComps(*m_link, false, index, what);
    else if (group == "ALT"_L1)
        link::TransferAltComps(*m_link, false, index, what);
    else if (group == "LIST"_L1)
        link::TransferListings(*m_link, false, index, what);
    else if (group == "RENT"_L1)
        link::TransferRentals(*m_link, false, index, what);
    else if (group == "GENERAL"_L1)
        link::TransferSubject(*m_link, What::Pic, 100 + index);
    else
        link::TransferSubject(*m_link, what, std::max(0, index));
}

void frm_Main::AutoSaveSlot(QLatin1StringView group, int index)
{
    if (group == "SALE"_L1)
        link::SaveComp2Database(*m_link, index);
    else if (group == "ALT"_L1)
        link::SaveAltComp2Database(*m_link, index);
    else if (group == "LIST"_L1)
        link::SaveListing2Database(*m_link, index);
    else if (group == "RENT"_L1)
        link::SaveRental2Database(*m_link, index);
    else if (group == "SUBJECT"_L1)
        link::SaveSubject2Database(*m_link, index);
}

drops::Drag frm_Main::grddatabook_dragCell()
{
    return m_router->Begin(records.grddatabook);
}

bool frm_Main::CanStart(const forms::Control& source) const
{
    return m_router->CanStart(source);
}

drops::Drag frm_Main::BeginDrag(const forms::Control& source, int shift)
{
    return m_router->Begin(source, shift);
}

bool frm_Main::Accepts(const QString& sourceName, const forms::Control& target) const
{
    return m_router->Accepts(sourceName, target);
}

/// What the row holds now, whatever was painted; "" if there is no such row.
static QString KeyInRow(const forms::Grid& grid, qint64 row)
{
    const forms::GridSource* source = grid.Source();
    if (source == nullptr || row < 0 || row >= source->RowCount())
        return {};
    const QStringList names = source->FieldNames();
    const auto key = std::find_if(names.cbegin(), names.cend(), [](const QString& name) {
        return name.compare("CENTRALKEY"_L1, Qt::CaseInsensitive) == 0;
    });
    return source->Row(row).value(key - names.cbegin());
}

bool frm_Main::TakeRow(qint64 row, const QString& key)
{
    const common::RoutineScope scope{"TakeRow"};
    const QString there = text::Trim(KeyInRow(records.grddatabook, row));
    if (there.isEmpty() || there != text::Trim(key)) {
        status.lblmsg.Show(u"The records have changed under the pointer; nothing was done. Drop it again."_s,
                           forms::Colour::Red);
        records.grddatabook.Refresh(); // to what stands there now
        return false;
    }
    records.grddatabook.SetRow(row);
    return true;
}

drops::Outcome frm_Main::Drop(const drops::Drag& drag, forms::Control& target)
{
    status.lblmsg.Show({}, forms::Colour::Normal);
    return Told(m_router->Drop(drag, target));
}

drops::Outcome frm_Main::DropFiles(const QStringList& files, forms::Control& target)
{
    if (files.isEmpty())
        return Told({false, u"Only picture files can be dropped here, no folders."_s, forms::Colour::Red, {}});
    status.lblmsg.Show({}, forms::Colour::Normal);
    return Told(m_router->Drop(m_router->BeginFiles(files), target));
}

/// A drop walks other records for its icons; the record on show comes back, or the one that has changed comes.
drops::Outcome frm_Main::Told(drops::Outcome outcome)
{
    Q_EMIT LinkLookWanted();
    const QString said = status.lblmsg.Caption();
    const forms::Colour colour = status.lblmsg.Fore();
    if (outcome.done && !outcome.record.isEmpty())
        ShowRecord(outcome.record);
    else if (records.grddatabook.Row() < 0 && !m_shownKey.isEmpty())
        ShowRecordPhoto(); // of a record that the grid leaves out
    else
        grddatabook_RowColChange();
    if (!outcome.message.isEmpty())
        status.lblmsg.Show(outcome.message, outcome.colour);
    else if (outcome.done && !said.isEmpty())
        status.lblmsg.Show(said, colour);
    return outcome;
}

void frm_Main::DragOver(const QString& sourceName, const QString& targetName)
{
    m_router->TargetDragOverKel(sourceName, targetName);
    status.lblmsg.Show(drops::HintFor(sourceName, targetName), forms::Colour::Normal);
}

QImage frm_Main::DragPicture() const
{
    const bool drop = m_router->State().DragIcon == drops::DragIcon::Drop;
    const QString path = globals.G_ProgramDir + (drop ? u"DropPict.Ico"_s : u"HandPict.Ico"_s);
    return m_base.disk.FileExists(path) ? QImage(m_base.disk.ToNative(path)) : QImage();
}

QString frm_Main::FileOf(const forms::Control& source) const
{
    const QString name = text::Folded(source.Name());
    // What a data box shows is a lamp of the program, no picture.
    const bool lamp = name.startsWith(u"GEA"_s) && !drops::GroupOf(name).isEmpty();
    if (lamp || !m_router->CanStart(source))
        return {};
    const QString path = name == u"FILCAPTURE"_s ? m_capture->SelectedFile()
                                                 : text::Trim(m_slotTable.ErrGetPict(source));
    return m_base.disk.FileExists(path) ? path : QString();
}

QString frm_Main::NativeFileOf(const forms::Control& source) const
{
    const QString path = FileOf(source);
    return path.isEmpty() ? QString() : m_base.disk.ToNative(path);
}

QImage frm_Main::ImageOf(const forms::Control& source) const
{
    const QString path = FileOf(source);
    return path.isEmpty() ? QImage() : picture::Load(m_base.disk, path);
}

} // namespace vasclip::shell
