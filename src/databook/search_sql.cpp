#include "databook/search_sql.h"

#include "databook/messages.h"
#include "platform/text/call_errors.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::databook {

using Text = QLatin1StringView;

namespace {

constexpr std::array kFields = {
    SearchField{Text("cboSearchKey"), Text(), fields::CENTRALKEY, SearchKind::Like, Text("key")},
    SearchField{Text("cboAddr"), Text(), fields::ADDRESS, SearchKind::Like, Text("address")},
    SearchField{Text("txtCity"), Text(), fields::CITY, SearchKind::Like, Text("city")},
    SearchField{Text("txtState"), Text(), fields::ST, SearchKind::Equal, Text("state")},
    SearchField{Text("txtZip"), Text(), fields::ZIP, SearchKind::Like, Text("zip")},
    SearchField{Text("txtCounty"), Text(), fields::COUNTY, SearchKind::Like, Text("county")},
    SearchField{Text("txtNeighbor"), Text(), fields::NEIGHBORHD, SearchKind::Like, Text("neighborhood")},
    SearchField{Text("txtBedRoom"), Text(), fields::BEDROOM, SearchKind::Equal, Text("bedrooms")},
    SearchField{Text("txtBath"), Text(), fields::BATH, SearchKind::Like, Text("baths")},
    SearchField{Text("txtTaxMap"), Text(), fields::TAXMAPNUM, SearchKind::Like, Text("tax-map")},
    SearchField{Text("txtCensus"), Text(), fields::CENSUSTRCT, SearchKind::Like, Text("census")},
    SearchField{Text("txtStories"), Text(), fields::STRCODE, SearchKind::Like, Text("stories")},
    SearchField{Text("txtCTS"), Text(), fields::CTSCODE, SearchKind::Like, Text("cts")},
    // --type is the comp type of a new record.
    SearchField{Text("txtType"), Text(), fields::APPRSLTYPE, SearchKind::Like, Text("comp-type")},
    SearchField{Text("txtPorchPati2"), Text(), fields::PORCHPATI2, SearchKind::Like, Text("porch")},
    SearchField{Text("txtNotes"), Text(), fields::NOTES, SearchKind::Like, Text("notes")},
    SearchField{Text("txtdesignappl"), Text(), fields::DESIGNAPPL, SearchKind::Like, Text("design")},
    SearchField{Text("txtSQFt"), Text("txtSQftRange"), fields::GLA, SearchKind::NumericRange, Text("sqft")},
    SearchField{Text("txtPrice"), Text("txtPriceRange"), fields::SELLINGPR, SearchKind::NumericRange,
                Text("price")},
    SearchField{Text("txtage"), Text("txtAgeRange"), fields::AGE, SearchKind::NumericRange, Text("age")},
    SearchField{Text("txtLandSize"), Text("txtLandSizeRange"), fields::LANDSIZE, SearchKind::TextRange,
                Text("land-size")},
    SearchField{Text("txtSaleDate"), Text("cboSaleRange"), fields::SALEDATE, SearchKind::Date,
                Text("sale-date")},
    SearchField{Text("txtLoadDate"), Text("cboLoadRange"), fields::LOADDATE, SearchKind::Date,
                Text("load-date")},
    SearchField{Text("txtPriceGLA"), Text("txtPriceGLARange"), fields::PRICEGLA, SearchKind::NumericRange,
                Text("price-gla")},
};

/// The text so far, ready for one more condition.
QString Joined(const QString& where)
{
    return where.isEmpty() ? QString() : where + u" AND "_s;
}

QString NumberText(double value)
{
    return text::Trim(text::Str(value));
}

/// A further filter of a statement that may have none yet.
QString Filtered(const QString& sql, const QString& condition)
{
    const bool filtered = sql.toUpper().contains(Text("WHERE"));
    return sql + (filtered ? u" AND "_s : u" WHERE "_s) + condition;
}

} // namespace

double NumberOf(QString typed)
{
    typed.remove(QLatin1Char(',')).remove(QLatin1Char('$'));
    return text::Val(typed);
}

std::span<const SearchField> SearchFields()
{
    return kFields;
}

QString AddEqual(const QString& where, const QString& field, const QString& value)
{
    const QString wanted = text::Folded(value);
    if (wanted.isEmpty())
        return where;
    return Joined(where) + u"UCASE("_s + field + u") = '"_s + wanted + QLatin1Char('\'');
}

QString AddLike(const QString& where, const QString& field, const QString& value, bool wildcards)
{
    const QString wanted = text::Folded(value);
    if (wanted.isEmpty())
        return where;
    const QString wildcard = wildcards ? u"*"_s : QString();
    return Joined(where) + u"UCASE("_s + field + u") LIKE '"_s + wildcard + wanted + wildcard +
           QLatin1Char('\'');
}

QString AddNumericRange(const QString& where, const QString& field, const QString& value,
                        const QString& range)
{
    if (text::Trim(value).isEmpty())
        return where;
    const double middle = NumberOf(value);
    const double width = NumberOf(range);
    return Joined(where) + field + u" BETWEEN "_s + NumberText(middle - width) + u" AND "_s +
           NumberText(middle + width);
}

QString AddTextRange(const QString& where, const QString& field, const QString& value, const QString& range)
{
    if (text::Trim(value).isEmpty())
        return where;
    const double middle = NumberOf(value);
    const double width = NumberOf(range);
    return Joined(where) + field + u" BETWEEN VAL('"_s + NumberText(middle - width) + u"') AND VAL('"_s +
           NumberText(middle + width) + u"')"_s;
}

QString DateComparison(const QString& range)
{
    const QString wanted = text::Folded(range);
    if (wanted == Text("ON OR PRIOR") || wanted == Text("ON OR PRIOR TO"))
        return u"<="_s;
    if (wanted == Text("EQUAL") || wanted == Text("EQUAL TO"))
        return u"="_s;
    if (wanted == Text("ON OR AFTER") || wanted == Text("ON OR AFTER TO"))
        return u">="_s;
    return {};
}

QString AddDate(const QString& where, const QString& field, const QString& date, const QString& comparison)
{
    const QString wanted = text::Trim(date);
    if (wanted.isEmpty())
        return where;
    const QString range = text::Trim(comparison).isEmpty() ? kOnOrAfter : comparison;
    return Joined(where) + u"COMPS."_s + field + DateComparison(range) + QLatin1Char('#') + wanted +
           QLatin1Char('#');
}

const QString& SearchColumns()
{
    static const QString columns =
        u"COMPS.FRONT,COMPS.CENTRALKEY,COMPS.ADDRESS, COMPS.PHOTOS, COMPS.CITY, COMPS.ST, COMPS.ZIP, "
        "COMPS.COUNTY, COMPS.NEIGHBORHD, COMPS.CENSUSTRCT, COMPS.TAXMAPNUM, COMPS.GLA, COMPS.SELLINGPR, "
        "COMPS.PRICEGLA, COMPS.BEDROOM, COMPS.BATH, COMPS.AGE, COMPS.APPRSLTYPE, COMPS.STRCODE, "
        "COMPS.CTSCODE, COMPS.LOADDATE, COMPS.SALEDATE, COMPS.PORCHPATI2, COMPS.BASEMENT, COMPS.PHOTOS, "
        "COMPS.LONGITUDE, COMPS.LATITUDE, COMPS.ANCHORED, Comps.DESIGNAPPL, COMPS.LANDSIZE, COMPS.NOTES"_s;
    return columns;
}

SearchStatement BuildSearch(const SearchForm& form)
{
    QString where;
    for (const SearchField& row : kFields) {
        const QString field(row.field);
        const QString value = form.texts.value(row.control);
        const QString range = form.texts.value(row.rangeControl);
        switch (row.kind) {
        case SearchKind::Like:
            where = AddLike(where, field, value, form.wildcards);
            break;
        case SearchKind::Equal:
            where = AddEqual(where, field, value);
            break;
        case SearchKind::NumericRange:
            where = AddNumericRange(where, field, value, range);
            break;
        case SearchKind::TextRange:
            where = AddTextRange(where, field, value, range);
            break;
        case SearchKind::Date:
            if (!text::Trim(value).isEmpty() && !text::Trim(range).isEmpty() &&
                DateComparison(range).isEmpty())
                throw RuntimeError(error::kInvalidCall, kNoDateRange.arg(range));
            where = AddDate(where, field, value, range);
            break;
        }
    }
    SearchStatement statement;
    statement.sql = u"SELECT "_s + SearchColumns() + u" FROM COMPS"_s +
                    (where.isEmpty() ? QString() : u" WHERE "_s + where);
    // A sort by a date stored as text: rows without a date have no place in it.
    if (form.sort == 2)
        statement.sql = Filtered(statement.sql, u"ISDATE(COMPS.SALEDATE)"_s);
    else if (form.sort == 6)
        statement.sql = Filtered(statement.sql, u"ISDATE(COMPS.LOADDATE)"_s);
    if (form.ignorePending)
        statement.sql = Filtered(statement.sql, u"COMPS.SALEDATE <> #01/01/1900#"_s);
    statement.orderBy = OrderByText(form.sort);
    statement.sql += statement.orderBy;
    statement.form = form;
    return statement;
}

bool ShowSearch(const forms::Ports& ports, RecordDesk& desk, store::DataSource& datsql, GridRows& rows,
                const SearchStatement& statement)
{
    const GridState before = desk.state;
    desk.state.sqlText = statement.sql;
    desk.state.orderByText = statement.orderBy;
    desk.state.searchOnDisplay = true;
    desk.state.search = statement.form;
    try {
        DisplayAllRecords(ports, desk, datsql, rows, 0);
    } catch (...) {
        desk.state = before;
        throw;
    }
    const bool shown = datsql.RecordSource() == desk.state.sqlText; // which may lack columns
    if (!shown)
        desk.state = before;
    return shown;
}

QString Look4Percent(const QString& value, const QString& range)
{
    if (!range.contains(QLatin1Char('%')))
        return range;
    return NumberText(std::trunc(NumberOf(value) * NumberOf(range) / 100));
}

std::optional<QString> AdjustPercent(const QString& value, const QString& range, float percent)
{
    if (!text::Trim(range).isEmpty() && NumberOf(range) != 0)
        return std::nullopt;
    return NumberText(NumberOf(value) * static_cast<double>(percent) / 100);
}

QString FoundText(qint64 comps)
{
    if (comps == 0)
        return kNoCompsFound;
    return QString::number(comps) + (comps == 1 ? kCompFound : kCompsFound);
}

} // namespace vasclip::databook
