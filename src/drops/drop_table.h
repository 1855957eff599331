#pragma once

#include "drops/drag.h"

#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <span>

namespace vasclip::drops {

enum class DropAction {
    SendViewOfIndex,     ///< the record's view of the subject slot's index goes to the report
    SendFrontView,       ///< the record's front view
    SendAskedView,       ///< the record's view that the user names
    FileIntoSlot,        ///< the picture is stored, goes to the report and to the slot's record
    FileIntoGeneral,     ///< the same with the view asked
    SendShownPhoto,      ///< the picture on show in the Databook
    SendShownAsked,      ///< the same with the view asked
    ReplaceSubjectPhotos,
    PasteCompAndPhoto,   ///< the comp's data and its front photo
    PasteComp,           ///< the comp's data alone
    SendProximity,       ///< the map's proximity on show, into the comp's cell
    ShowInSubject,       ///< the picture in all three subject slots, here alone
    FileInRecord,        ///< the picture is filed with the highlighted record
    SaveData,            ///< the slot's data go into the Databook
    SavePhoto,           ///< the slot's photo does
    SaveBoth,
    AdviseGeneral,       ///< how general photos are saved
    FileUnderAddress,    ///< the picture is filed with the record in the address box
    CopyBack,            ///< stored pictures back to the capture directory
    CopyIn,              ///< files of another program into the capture directory
    ToTrash,
};

/// What a drop of one named control on another does; names are upper-cased.
struct DropRule
{
    QLatin1StringView source;
    QLatin1StringView target;
    DropAction action;
    std::optional<Group> group = {}; ///< of the report slot, if there is one
};

/// The name of the source for files that come from another program.
inline constexpr QLatin1StringView kFiles{"FILES"};

/// The rule of a pair, names in any case; nullptr for a pair without one, which does nothing.
[[nodiscard]] const DropRule* RuleFor(const QString& source, const QString& target);

/// The hint while `source` is over `target`; empty for a pair without one.
[[nodiscard]] QString HintFor(const QString& source, const QString& target);

/// Every rule, for those who ask which controls are targets at all.
[[nodiscard]] std::span<const DropRule> Matrix();

/// What `DragSource` is for a drag that starts on a control.
[[nodiscard]] QString KindOfSource(const QString& name);

/// The icon of a drag after it has come over a control, or has left it.
[[nodiscard]] DragIcon IconOver(const QString& source, const QString& target, bool entering, DragIcon now);

} // namespace vasclip::drops
