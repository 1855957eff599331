#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

/// A record that is not stored from a column of the report.
inline constexpr qint16 kNoComp = -1;

enum class CityRule {
    Replace, ///< what the report tells of the comp takes the place of what the record holds
    Fill,    ///< only blank fields of the record take it
};

/// Gives a record its city, state and ZIP from the open report.
///
/// They come from the record's second address line, where it was just read from a comp, else from the slot
/// that bears the record's key. If neither tells city nor state and the record has none either, it inherits
/// the subject's by USESUBJCSZ: "CS" city and state, "CSZ" the ZIP too, "NONE" nothing.
/// @param record  stands on it. A record that is being edited or added stays so, and the caller stores it; any other
///                is stored here
/// @param comp  of the report from which the record is being stored, 1 to 9, or kSubjectComp; kNoComp for none
/// @throws RuntimeError of the record set
void ErrDatabookSetCity(LinkDesk& desk, store::DataSource& record, CityRule rule, qint16 comp = kNoComp);
/// The same for the record of a key, whatever is on show; nothing without one.
void SetCityOf(LinkDesk& desk, const QString& key, CityRule rule, qint16 comp = kNoComp);

} // namespace vasclip::link
