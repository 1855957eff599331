#pragma once

#include "link/link_desk.h"
#include "link/set_city.h"

namespace vasclip::link {

enum class PictureOutcome {
    Filed,
    IsThere,   ///< the slot shows the very file that the record keeps under the view
    NoAddress, ///< there is no key; `lblmsg` says so
    NoPicture, ///< the slot shows none; `lblmsg` says so
    NotFiled,  ///< the user kept the picture that was there, or it could not be stored, which has been said
};

/// Files a slot's picture under a view of the record of a key, which is added if there is
/// none, with city, state and ZIP. The picture is stored before the record names it.
/// @param comp  of the slot, as ErrDatabookSetCity takes it
PictureOutcome SavePictureToDatabook(LinkDesk& desk, const QString& key, forms::PictureBox& slot,
                                     const QString& view, qint16 comp = kNoComp);

} // namespace vasclip::link
