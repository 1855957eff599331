#pragma once

#include "databook/grid.h"
#include "databook/search_form.h"

#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <span>

namespace vasclip::databook {

using namespace Qt::StringLiterals;

/// How a field of the search screen is compared.
enum class SearchKind { Like, Equal, NumericRange, TextRange, Date };

/// One field of the search screen, in the order in which the statement takes it.
struct SearchField
{
    QLatin1StringView control;
    QLatin1StringView rangeControl; ///< "" for a field without a range
    QLatin1StringView field;        ///< of COMPS
    SearchKind kind;
    QLatin1StringView option; ///< its word on a command line, "sale-date"; that of its range ends in "-range"
};

[[nodiscard]] std::span<const SearchField> SearchFields();

/// The lines of the date range lists.
inline const QString kOnOrPrior = u"On or Prior"_s;
inline const QString kEqualTo = u"Equal To"_s;
inline const QString kOnOrAfter = u"On or After"_s;

// The fragment builders. Each takes the WHERE text built so far and gives it with one more condition; the
// value is trimmed, and a blank one adds nothing. Values stand in the text as they are: a quote in one is a
// syntax error of the statement.

[[nodiscard]] QString AddEqual(const QString& where, const QString& field, const QString& value);
/// @param wildcards  the value may stand anywhere in the field; otherwise it is the whole field
[[nodiscard]] QString AddLike(const QString& where, const QString& field, const QString& value,
                              bool wildcards);
/// The number in a box of the search; "$" and "," in it are passed over.
[[nodiscard]] double NumberOf(QString typed);

/// From the value less the range to the value plus the range; both are numbers, "$" and "," in them are
/// passed over.
[[nodiscard]] QString AddNumericRange(const QString& where, const QString& field, const QString& value,
                                      const QString& range);
/// The same for a field whose numbers are texts.
[[nodiscard]] QString AddTextRange(const QString& where, const QString& field, const QString& value,
                                   const QString& range);
/// @param comparison  a line of the date range lists; a blank one is "On or After"
[[nodiscard]] QString AddDate(const QString& where, const QString& field, const QString& date,
                              const QString& comparison);

/// "<=", "=" or ">=" for the text of a date range, without regard to case and blanks around it; "" for any
/// other text.
[[nodiscard]] QString DateComparison(const QString& range);

/// The column list of every search, letter for letter.
[[nodiscard]] const QString& SearchColumns();

struct SearchStatement
{
    QString sql;     ///< whole, with its ORDER BY
    QString orderBy; ///< that alone
    SearchForm form; ///< what it was built from
};

/// The statement of a search. @throws RuntimeError 5 for a date range that is none of the three
[[nodiscard]] SearchStatement BuildSearch(const SearchForm& form);

/// Makes a search the one on display and shows its records in the grid. What keeps the statement from running
/// leaves grid and search as they were. @return false if it was given up after a box. @throws as DisplayAllRecords
bool ShowSearch(const forms::Ports& ports, RecordDesk& desk, store::DataSource& datsql, GridRows& rows,
                const SearchStatement& statement);

/// The text of a range box when it is left: with a "%" in it the whole part of value * range / 100, else as
/// it is.
[[nodiscard]] QString Look4Percent(const QString& value, const QString& range);

/// The text that a range box takes when it is entered: value * percent / 100 if it is blank or 0; nullopt
/// leaves it as it is.
[[nodiscard]] std::optional<QString> AdjustPercent(const QString& value, const QString& range, float percent);

/// The status line for the number of comps found.
[[nodiscard]] QString FoundText(qint64 comps);

} // namespace vasclip::databook
