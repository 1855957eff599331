#pragma once

#include "forms/controls.h"
#include "link/slot_table.h"
#include "photos/pointed_file.h"

#include <QStringList>

namespace vasclip::drops {

using link::Group;
using link::SlotRef;

/// A drag of a named source.
struct Drag
{
    QString source = {}; ///< control name, any case: "grddatabook", "txtComp"
    int index = -1;      ///< of a control array
    QString key = {};    ///< CENTRALKEY of the record being dragged, if it is one
    photos::PointedFile picture = {}; ///< the picture being dragged, as it was when the drag began; may be empty
    QStringList files = {}; ///< drive paths, when they come from another program
    QString view = {};       ///< of the photo on show, when that is dragged
    QString refusal = {};    ///< why nothing may come of it, for the user's eyes
    QString text = {};       ///< of the map's proximity, when that is dragged
};

/// Of a drag: HandPict.Ico or DropPict.Ico of the program directory.
enum class DragIcon { Hand, Drop };

/// What is being dragged, written when a drag starts and kept until the next one.
struct DragState
{
    QString DragSource;     ///< "FILCAPTURE", "THUMB", "KEL"; "" for a record of the grid
    QString DraggedPicture; ///< full path, or empty
    qint16 DragIndex = -1;
    qint16 DragShift = 0;   ///< state of the shift keys at the press
    drops::DragIcon DragIcon = drops::DragIcon::Hand;
};

/// What a drop came to.
struct Outcome
{
    bool done = false;
    QString message; ///< for the status line; may be empty
    forms::Colour colour = forms::Colour::Normal;
    QString record = {}; ///< key of the record that has changed and should be on show; may be empty
    bool stayed = false; ///< the record on show was not left for another one meanwhile
};

/// Nothing went to the report, for a reason that is no fault.
[[nodiscard]] inline Outcome NotSent(const QString& words)
{
    return {false, words, forms::Colour::Red, {}};
}

} // namespace vasclip::drops
