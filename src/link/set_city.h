#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

/// A record that is not stored from a column of the report.
inline constexpr qint16 kNoComp = -1;

enum class CityRule {
    Replace, ///< what the report tells of the comp takes the place of what the record holds
    Fill,    ///< only blank fields of the record take it
};

/// Gives the record of datDatabook its city, state and ZIP from the open report.
///
/// They come from the record's second address line, where it was just read from a comp, else from the slot
/// that bears the record's key. If neither tells city nor state and the record has none either, it inherits
/// the subject's by USESUBJCSZ: "CS" city and state, "CSZ" the ZIP too, "NONE" nothing. A record that is
/// being edited or added stays so, and the caller updates; any other is updated here.
/// @param comp  of the report from which the record is being stored, 1 to 9, or kSubjectComp; kNoComp for none
/// @throws RuntimeError of the record set
void ErrDatabookSetCity(LinkDesk& desk, CityRule rule, qint16 comp = kNoComp);

} // namespace vasclip::link
