#pragma once

#include "link/comp2kel.h"
#include "link/link_desk.h"

#include <optional>

namespace vasclip::link {

/// A cell of a comp as the report holds it.
struct CompCell
{
    QString field; ///< upper case
    QString text;  ///< trimmed
};

/// Reads every mapped cell of a comp, row by row of the mapping; nothing is stored. A row of PROXIMITY is not
/// asked for. The queue is turned now and then, so that a slow forms program can be given up.
/// @param comp      1 to 9, 10 for the subject
/// @param compType  RENT, LIST and ALT are groups of their own, any other word is SALE
/// @param pages     mapping rows of a transfer's earlier comps; those of this one are added
/// @param goOn      asked after each turn of the queue; false ends the reading
/// @return the cells; none if the mapping has no rows for the comp, which has been said; nullopt if it was
/// given up
/// @throws RuntimeError of the exchange, with the cell it was at
[[nodiscard]] std::optional<QList<CompCell>> ReadCompData(LinkDesk& desk, const QString& formType,
                                                          const QString& report, qint16 comp,
                                                          const QString& compType, MappingPages& pages,
                                                          const std::function<bool()>& goOn = {});

/// Stores the cells in the record that a source is editing or adding; the caller stores that. A blank cell
/// overwrites what the record holds, but for its key and its address, which are those of `key`.
/// @throws RuntimeError of the record set, 3265 for a field that it does not have
void StoreCompData(const LinkDesk& desk, store::DataSource& record, const QString& key, const QList<CompCell>& cells);

/// Reads a comp's mapped fields from the report into the record that is on show, in one update; another may come on show meanwhile.
/// @return false if the mapping has no rows for it, which has been said
/// @throws RuntimeError; the record is then as it was
bool GetCompData(LinkDesk& desk, const QString& formType, const QString& report, qint16 comp,
                 const QString& compType);

} // namespace vasclip::link
