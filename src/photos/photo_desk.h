#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "forms/controls.h"
#include "forms/ports.h"
#include "photos/photo_lists.h"
#include "photos/slots.h"
#include "platform/files/disk.h"
#include "store/data_source.h"

#include <functional>

namespace vasclip::photos {

/// The two questions about a picture that a screen asks.
class PhotoQuestions
{
public:
    virtual ~PhotoQuestions() = default;
    /// May a picture take the place of the one that the record has under that view?
    /// @param existing  path of the stored picture; @param fresh  path of the picture that is to be filed
    /// @param record    key of the record, which the question names
    /// @return Yes, No or Cancel
    virtual forms::Answer Overwrite(const QString& existing, const QString& fresh, const QString& record) = 0;
    /// Which view is it? @param picture  path, may be empty; @param proposal  view to begin with
    /// @param whose  what the picture belongs to, which the question names: a record's key, a slot; may be empty
    /// @return the view, "" when the user gave up
    virtual QString View(const QString& picture, const QString& proposal, const QString& whose) = 0;
};

/// What the filing of pictures works on. One for the program.
struct PhotoDesk
{
    PhotoDesk(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
              store::DataSource& databook, PhotoLists& lists, SlotLoader& loader, common::StatusDesk& status,
              PhotoQuestions& questions);

    forms::Ports ports;
    const files::Disk& disk;
    const common::Globals& globals;
    store::DataSource& databook; ///< table-type source of COMPS
    PhotoLists& lists;
    SlotLoader& loader;
    common::StatusDesk& status;
    PhotoQuestions& questions;
    /// Gives the record of a key its city (ErrDatabookSetCity). May be empty.
    std::function<void(const QString& key)> setCity;
    /// Adds a record of a key to the Databook. Without one the record gets its key and address alone.
    std::function<void(const QString& key)> addRecord;

    /// True only after FormatPictureNow has left a whole file under the stored name. Who moves a source away
    /// or reports success asks it.
    bool PictureSaved = false;
    QString CurrentView; ///< under which the next picture is filed
    /// Why the last FormatPictureNow left without a box of its own; "" if it did not.
    QString notSaved;

    // Working controls that no window shows.
    forms::ControlSet hidden;
    forms::PictureBox geaRes, geatemp;
};

} // namespace vasclip::photos
