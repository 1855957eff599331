#pragma once

#include "link/link_desk.h"
#include "photos/photo_list.h"

namespace vasclip::link {

/// Name of the report's image object for a slot, without the photo size.
/// @param controlName  classes the slot, in any case
/// @param index        1 and up; -1 the location map, -2 the general map, -3 the fax, -4 no object
/// @return "" for a control of no group
[[nodiscard]] QString ImageObjectName(const QString& controlName, int index);

/// What became of a slot's object in the report.
enum class SlotSend {
    Failed,  ///< the report did not take it, which has been reported, or another report is active than the tabs
             ///< show: nothing was sent then, and LinkState::notSent tells
    Sent,    ///< it shows the slot's file
    Cleared, ///< it was emptied: the slot holds no file, or one that is not there
};

/// Sends a slot's file to the report, or clears the object if the slot holds no file that is there.
/// @param control  its name classes the slot
SlotSend KelSendSlotPhoto(LinkDesk& desk, const forms::Control& control, const forms::PictureBox& slot,
                          int index);

/// Full path of a view of a record, "" if it has none of that name. The file need not be there.
[[nodiscard]] QString PathOfView(const BookSources& desk, const photos::PhotoList& photos, const QString& view);

/// Loads a stored view of a record into a slot and sends it. A record without that view
/// empties the slot. "refresh.bas" runs twice, once inside the send: the forms program has always been asked
/// so. What the report did not take is not on show: the slot has its picture of before again.
/// @return what the send came to; Cleared without a send for a record without that view
SlotSend SendKelTheView(LinkDesk& desk, const forms::Control& control, forms::PictureBox& slot, int index,
                        const photos::PhotoList& photos, const QString& view);

/// The same through a copy of the file under a stem of its own, for the views of another record: what is done
/// to the copy leaves that record's picture alone. "refresh.bas" runs once.
/// @return false if the copy or an exchange failed, which has been reported
bool SendStoredView(LinkDesk& desk, const forms::Control& control, forms::PictureBox& slot, int index,
                    const photos::PhotoList& photos, const QString& view);

/// Empties a slot and its object in the report. @param ask  asks first; @return false if the user said No or
/// an exchange failed
bool ClearSlotPhoto(LinkDesk& desk, forms::PictureBox& slot, bool ask);

/// The entry of a key within the images list, without its semicolons; "" if it is not there. Names in any
/// case.
/// @throws RuntimeError 5 for an entry without its closing semicolon
[[nodiscard]] QString KelParseImages(const QString& images, const QString& key);

/// Fills a group's slots from the images list of frm_Addr. A slot that already shows the file the report
/// names is emptied, so all slots are emptied before a refresh.
/// @param group  SUB, CMP, ALT, GN, RCMP or LCMP
void SetPhotos(LinkDesk& desk, const QString& group);

/// One slot from the images list of frm_Addr: the file that it names, or nothing.
/// @throws RuntimeError as KelParseImages
void SetPhoto(LinkDesk& desk, forms::PictureBox& slot);

/// Shows a picture file in the slot that an image object's name denotes. The report's maps and sketches, a
/// name without an index and a file that is not there do nothing.
void LocateAndDisplay(LinkDesk& desk, const QString& name, const QString& path);

/// The files that the open report shows, upper-cased: what its slots show here and what it named when it was read.
[[nodiscard]] QStringList PicturesOfReport(const ReportMirror& desk);

/// Empties the slots of all groups.
void ClearAllSlots(ReportMirror& desk);

} // namespace vasclip::link
