#include "shell/slot_saves.h"

#include "common/error_block.h"
#include "link/transfer.h"

#include <algorithm>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

void SaveSlotNow(link::LinkDesk& desk, QLatin1StringView group, int index, drops::SlotPart part)
{
    using link::What;
    const common::RoutineScope scope{"SaveSlot"};
    const What what = part == drops::SlotPart::Data    ? What::Data
                      : part == drops::SlotPart::Photo ? What::Pic
                                                       : What::Both;
    if (group == "SALE"_L1)
        link::TransferComps(desk, false, index, what);
    else if (group == "ALT"_L1)
        link::TransferAltComps(desk, false, index, what);
    else if (group == "LIST"_L1)
        link::TransferListings(desk, false, index, what);
    else if (group == "RENT"_L1)
        link::TransferRentals(desk, false, index, what);
    else if (group == "GENERAL"_L1)
        link::TransferSubject(desk, What::Pic, 100 + index);
    else
        link::TransferSubject(desk, what, std::max(0, index));
}

void AutoSaveSlot(link::LinkDesk& desk, QLatin1StringView group, int index)
{
    if (group == "SALE"_L1)
        link::SaveComp2Database(desk, index);
    else if (group == "ALT"_L1)
        link::SaveAltComp2Database(desk, index);
    else if (group == "LIST"_L1)
        link::SaveListing2Database(desk, index);
    else if (group == "RENT"_L1)
        link::SaveRental2Database(desk, index);
    else if (group == "SUBJECT"_L1)
        link::SaveSubject2Database(desk, index);
}

} // namespace

drops::DropRoutines SlotSaves(link::LinkDesk& link)
{
    return {.autoSave = [&link](QLatin1StringView group, int index) { AutoSaveSlot(link, group, index); },
            .save = [&link](QLatin1StringView group, int index,
                            drops::SlotPart part) { SaveSlotNow(link, group, index, part); }};
}

} // namespace vasclip::shell
