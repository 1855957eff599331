#pragma once

#include "link/addresses.h"
#include "link/comp2kel.h"
#include "link/link_desk.h"

namespace vasclip::link {

enum class SaveOutcome {
    Added,     ///< a new record holds the comp
    Replaced,  ///< the record that was there holds it now
    Kept,      ///< the user kept the record as it was
    Blank,     ///< no address
    NoMapping, ///< nothing says where the form keeps the comp, which has been said
    GivenUp,   ///< cancelled while the cells were read
    Failed,    ///< reported; the record is as it was
    LinkLost,  ///< the same, and there is nobody at the other end
};

/// Stores a comp of the report as the record of a key, adding it or, after a question, replacing its data.
///
/// The cells are read first and stored in one update, with the comp's type, its city, state and ZIP, so the
/// record is whole or as it was, whatever happens meanwhile. A replaced record is loaded today. The record on show stays;
/// who shows the stored one refreshes it.
/// @param key       address; trimmed and upper-cased
/// @param place     where the comp stands in the report; with kNoComp the key alone is stored
/// @param pages, goOn  as ReadCompData
SaveOutcome SaveDataToDatabook(LinkDesk& desk, const QString& key, const ReportPlace& place,
                               MappingPages& pages, const std::function<bool()>& goOn = {});

} // namespace vasclip::link
