#pragma once

#include "store/record.h"
#include "upkeep/report_layout.h"

#include <QDate>

namespace vasclip::upkeep {

/// What a report tells of itself beside its records.
struct ReportFacts
{
    QDateTime now;
    qint64 count = 0; ///< of its records
    QString databook; ///< file name
    QString search;   ///< in words, "" for all records
    QString company;
};

/// The number that a text is, with "$", "," and blanks passed over; nothing for one that is none.
[[nodiscard]] std::optional<double> NumberIn(const QString& text);
/// A number with its thousands parted by commas; cents where there are any.
[[nodiscard]] QString NumberText(double value, Format format);
/// A value as it is printed: on one line, without blanks around it.
[[nodiscard]] QString Printed(const QString& value, Format format, const QDate& today);
/// A field of a record as it is printed.
[[nodiscard]] QString Printed(const store::Record& record, const QString& field, Format format,
                              const QDate& today);
/// A field's text with its own line breaks.
[[nodiscard]] QString LongText(const store::Record& record, const QString& field);

/// The text of a template. Where a field is blank, what stands before it is left out, and so is punctuation
/// that nothing precedes; a template of blank fields alone is blank.
/// @param record  nullptr for the page's own
[[nodiscard]] QString Filled(const Template& text, const store::Record* record, const ReportFacts& facts);

/// What the totals of a layout know of the records so far.
struct Sums
{
    struct One
    {
        qint64 count = 0; ///< of the values that are numbers
        double sum = 0, lowest = 0, highest = 0;
    };
    qint64 records = 0;
    QList<One> totals; ///< in the order of the layout's

    void Add(const QList<Total>& wanted, const store::Record& record);
    [[nodiscard]] QString Text(const QList<Total>& wanted,
                               qsizetype index) const; ///< "-" where no value is a number
};

} // namespace vasclip::upkeep
