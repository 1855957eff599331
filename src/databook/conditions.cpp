#include "databook/conditions.h"

#include "databook/comp_types.h"
#include "databook/search_sql.h"
#include "platform/text/text.h"
#include "store/fields.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kPendingChip = u"ckbIgnorePending"_s;
const QString kDatedChip = u"optSort"_s;
const QString kWholeChip = u"search"_s;

/// What a condition is called: "%1" is the value, or the range's bounds.
struct Words
{
    QLatin1StringView control, words;
};

constexpr std::array kWords = {
    Words{"cboSearchKey"_L1, "Search key contains %1"_L1},
    Words{"cboAddr"_L1, "Address contains %1"_L1},
    Words{"txtCity"_L1, "City contains %1"_L1},
    Words{"txtState"_L1, "State is %1"_L1},
    Words{"txtZip"_L1, "ZIP contains %1"_L1},
    Words{"txtCounty"_L1, "County contains %1"_L1},
    Words{"txtNeighbor"_L1, "Neighborhood contains %1"_L1},
    Words{"txtBedRoom"_L1, "Bedrooms: %1"_L1},
    Words{"txtBath"_L1, "Baths contain %1"_L1},
    Words{"txtTaxMap"_L1, "Tax map contains %1"_L1},
    Words{"txtCensus"_L1, "Census tract contains %1"_L1},
    Words{"txtStories"_L1, "Stories contain %1"_L1},
    Words{"txtCTS"_L1, "CTS code contains %1"_L1},
    Words{"txtType"_L1, "Type contains %1"_L1},
    Words{"txtPorchPati2"_L1, "Porch, patio contains %1"_L1},
    Words{"txtNotes"_L1, "Notes contain %1"_L1},
    Words{"txtdesignappl"_L1, "Design, appeal contains %1"_L1},
    Words{"txtSQFt"_L1, "%1 sq. ft."_L1},
    Words{"txtPrice"_L1, "Price %1"_L1},
    Words{"txtage"_L1, "Age %1"_L1},
    Words{"txtLandSize"_L1, "Land size %1"_L1},
    Words{"txtSaleDate"_L1, "Sold %1"_L1},
    Words{"txtLoadDate"_L1, "Loaded %1"_L1},
    Words{"txtPriceGLA"_L1, "%1 per sq. ft."_L1},
};

QString WordsOf(QLatin1StringView control)
{
    const auto found =
        std::ranges::find_if(kWords, [control](const Words& row) { return row.control == control; });
    return found == kWords.end() ? u"%1"_s : QString(found->words);
}

QString NumberText(double value)
{
    return QLocale(QLocale::English).toString(value, 'f', value == static_cast<double>(qint64(value)) ? 0 : 2);
}

QString RangeText(const QString& value, const QString& range)
{
    const double middle = NumberOf(value);
    const double width = NumberOf(range);
    if (width == 0)
        return NumberText(middle);
    return u"%1 to %2"_s.arg(NumberText(middle - width), NumberText(middle + width));
}

QString DateText(const QString& date, const QString& range)
{
    const QString comparison = DateComparison(text::Trim(range).isEmpty() ? kOnOrAfter : range);
    return (comparison == "<="_L1   ? u"on or before %1"_s
            : comparison == ">="_L1 ? u"on or after %1"_s
                                    : u"on %1"_s)
        .arg(text::Trim(date));
}

QString ChipWords(const SearchField& field, const QString& value, const QString& range)
{
    const QString typed = text::Trim(value);
    switch (field.kind) {
    case SearchKind::NumericRange:
    case SearchKind::TextRange:
        return WordsOf(field.control).arg(RangeText(typed, range));
    case SearchKind::Date:
        return WordsOf(field.control).arg(DateText(typed, range));
    case SearchKind::Like:
        if (field.field == fields::APPRSLTYPE)
            for (const CompType& type : CompTypes())
                if (typed.toUpper() == QLatin1Char(type.letter))
                    return u"Type: %1"_s.arg(QString(type.listText).mid(2));
        break;
    case SearchKind::Equal:
        break;
    }
    return WordsOf(field.control).arg(u'"' + typed + u'"');
}

bool IsBlank(const SearchForm& form, const SearchField& field)
{
    return text::Trim(form.texts.value(field.control)).isEmpty();
}

QList<forms::Chip> ChipsOf(const SearchForm& form)
{
    QList<forms::Chip> chips;
    for (const SearchField& field : SearchFields())
        if (!IsBlank(form, field))
            chips.append({QString(field.control), ChipWords(field, form.texts.value(field.control),
                                                            form.texts.value(field.rangeControl))});
    // A sort by a date leaves out what has none.
    if (form.sort == 2)
        chips.append({kDatedChip, u"With a sale date"_s});
    else if (form.sort == 6)
        chips.append({kDatedChip, u"With a load date"_s});
    if (form.ignorePending)
        chips.append({kPendingChip, u"Without pending sales"_s});
    return chips;
}

} // namespace

QList<forms::Chip> Conditions(const RecordDesk& desk)
{
    QList<forms::Chip> chips;
    if (desk.state.search)
        chips = ChipsOf(*desk.state.search);
    else if (desk.state.searchOnDisplay)
        chips.append({kWholeChip, u"A search"_s});
    if (const QString typed = desk.txtQuickFind.Text().simplified(); !typed.isEmpty())
        chips.append({kQuickFindChip, u"Quick find: %1"_s.arg(typed)});
    return chips;
}

void EndSearch(GridState& state)
{
    state.searchOnDisplay = false;
    state.sqlText.clear();
}

void Relax(GridState& state, const QString& chip)
{
    if (!state.search) {
        EndSearch(state);
        return;
    }
    SearchForm form = *state.search;
    if (chip == kPendingChip)
        form.ignorePending = false;
    else if (chip == kDatedChip)
        form.sort = 0;
    for (const SearchField& field : SearchFields()) {
        if (chip == field.control)
            form.texts.remove(field.control); // without which its range says nothing
    }
    if (ChipsOf(form).isEmpty()) {
        EndSearch(state);
        return;
    }
    SearchStatement statement = BuildSearch(form);
    statement.sql.chop(statement.orderBy.size());
    state.sqlText = statement.sql + state.orderByText;
    state.search = form;
}

} // namespace vasclip::databook
