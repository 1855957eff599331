#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"
#include "drops/drop_table.h"

namespace vasclip::drops {

// What the rows of the table lead to. Each has passed the guards of its target.

/// A view of a record to a photo slot; for a general slot the view is asked.
Outcome SendRecordView(DropDesk& desk, const QString& key, const DropRule& rule, int index, const QString& view);
Outcome SendAskedView(DropDesk& desk, const QString& key, const DropRule& rule, int index);
/// The photo on show in the Databook tab as it was dragged; a general slot takes the view that is asked as its text.
Outcome SendShown(DropDesk& desk, const Drag& drag, const DropRule& rule, int index);
/// The map's proximity as it was dragged, into the cell of an alternate. Asked where it is another address's.
Outcome SendProximity(DropDesk& desk, const Drag& drag, SlotRef slot);
/// The three views of a record in place of the subject's.
Outcome ReplaceSubjectPhotos(DropDesk& desk, const QString& key);

/// A picture is stored, shown in the slot, sent, and saved with the slot's record.
Outcome FilePictureIntoSlot(DropDesk& desk, const Drag& drag, const DropRule& rule, int index);
Outcome ShowInSubject(DropDesk& desk, const QString& picture);
/// A picture is filed with the highlighted record of the grid.
Outcome FileInRecord(DropDesk& desk, const Drag& drag);
/// A picture is filed with the record whose address stands in the address box.
Outcome Drop2CBOFromCamera(DropDesk& desk, const Drag& drag);

/// The pictures of a slot or of a record go back to the capture directory.
Outcome CopyBack(DropDesk& desk, const Drag& drag, const DropRule& rule);
/// Files of another program are copied into the capture directory; what is neither JPEG nor BMP becomes JPEG.
Outcome CopyIn(DropDesk& desk, const QStringList& files);

/// A slot of the report goes into the Databook.
Outcome SaveSlot(DropDesk& desk, const Drag& drag, const DropRule& rule);
Outcome AdviseGeneral(DropDesk& desk);
Outcome ToTrash(DropDesk& desk, const Drag& drag);

/// Sends a filed picture to the trash of the capture directory, unless another one bears its name by now.
/// @return true if it has left its place
bool SendFiledToTrash(DropDesk& desk, const photos::PointedFile& picture);

} // namespace vasclip::drops
