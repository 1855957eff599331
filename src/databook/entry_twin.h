#pragma once

#include "databook/entry_record.h"
#include "databook/twin_watch.h"

namespace vasclip::databook {

/// The words under the address of an entry screen about another record that stands there, and the way to look at it.
class EntryTwin
{
public:
    /// All outlive it. @param note  of the box of the address
    EntryTwin(const EntryDesk& desk, const EntryRecord& record, FieldNote& note);

    void Typed() { m_watch.Typed(); }   ///< in the address or the city
    void Forget() { m_watch.Forget(); } ///< the boxes take what is stored
    bool Look();                        ///< @return false where there is nothing to look at

private:
    void Show();

    const EntryDesk& m_desk;
    const EntryRecord& m_record;
    FieldNote& m_note;
    TwinWatch m_watch;
};

} // namespace vasclip::databook
