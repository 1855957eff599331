#pragma once

#include "link/comp2kel.h"
#include "link/link_desk.h"

#include <optional>

namespace vasclip::link {

/// A field of a comp that the record has no value for, so that its cell keeps what it held.
struct UnsentField
{
    QString what; ///< "proximity", "city line"
    QString item;
};

/// What a send came to.
struct SendResult
{
    bool complete = false;
    int sent = 0;    ///< fields poked
    int rows = 0;    ///< of the mapping
    int failure = 0; ///< error number that ended it
    bool addressSent = false;
    QList<UnsentField> unsent; ///< only such as would name another comp, if one stood there
    QString report;
    bool cancelled = false;
    bool otherReport = false; ///< another report is active than the tabs show: nothing was sent
};

/// Fills a comp's column in the report with a record, field by field as the mapping says. Nothing is pumped between two
/// fields. A field that fails is reported with where the send stopped, and ends it: the fields before it stay in the
/// report.
/// @param comp  1 to 9, 10 for the subject; @param compType  the mapping's group: SALE, ALT, RENT, LIST
SendResult SendBulk(LinkDesk& desk, const store::Record& record, const QString& formType, const QString& report,
                    qint16 comp, const QString& compType);

/// False if the send ended because the forms program is gone or silent: there is nobody to ask for more.
[[nodiscard]] bool LinkSurvived(const SendResult& result);

/// One field as it goes out.
struct OutgoingField
{
    QString item, text;
    bool operator==(const OutgoingField&) const = default;
};
/// What a mapping row sends for a comp, if anything.
/// @param formName  of the set's first row, which stands for all
/// @throws RuntimeError 3265 for a row that names no column of the record
[[nodiscard]] std::optional<OutgoingField> FieldToSend(LinkDesk& desk, const store::Record& record, const MappingRow& row,
                                                       const QString& formName, qint16 comp);

} // namespace vasclip::link
