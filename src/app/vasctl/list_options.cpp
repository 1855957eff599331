#include "app/vasctl/list_options.h"

#include "platform/text/text.h"
#include "store/fields.h"
#include "store/store.h"
#include "upkeep/code_pages.h"

#include <algorithm>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QLatin1StringView kListOptions[] = {"map"_L1,   "preset"_L1,   "delimiter"_L1, "code-page"_L1,
                                              "sheet"_L1, "headings"_L1, "dates"_L1,     "decimal"_L1};
struct Order
{
    QLatin1StringView word;
    upkeep::DateOrder order;
    QLatin1StringView name;
};
constexpr Order kOrders[] = {{"mdy"_L1, upkeep::DateOrder::MonthFirst, "month first"_L1},
                             {"dmy"_L1, upkeep::DateOrder::DayFirst, "day first"_L1},
                             {"ymd"_L1, upkeep::DateOrder::YearFirst, "year first"_L1}};

} // namespace

bool RefusesListOptions(const Output& out, const QCommandLineParser& options)
{
    for (const QLatin1StringView option : kListOptions)
        if (options.isSet(QString(option))) {
            out.Error(u"--%1 belongs to a CSV or spreadsheet file."_s.arg(option));
            return true;
        }
    return false;
}

std::optional<QChar> DelimiterOf(const Output& out, const QCommandLineParser& options)
{
    if (!options.isSet(u"delimiter"_s))
        return QChar();
    const QString given = options.value(u"delimiter"_s);
    if (given == "tab"_L1 || given == "\\t"_L1)
        return QChar(u'\t');
    if (given.size() == 1 && given != u'"' && given != u'\r' && given != u'\n')
        return given[0];
    out.Error(u"--delimiter takes one letter, or 'tab'; not '%1'."_s.arg(given));
    return std::nullopt;
}

std::optional<upkeep::ListChoice> ListChoiceOf(const Output& out, const QCommandLineParser& options)
{
    upkeep::ListChoice choice;
    const auto misuse = [&out](const QString& words) {
        out.Error(words);
        return std::nullopt;
    };
    choice.preset = options.value(u"preset"_s);
    choice.sheet = options.value(u"sheet"_s);
    for (const QLatin1StringView named : {"preset"_L1, "sheet"_L1})
        if (options.isSet(QString(named)) && options.value(QString(named)).isEmpty())
            return misuse(u"--%1 wants a name."_s.arg(named));
    const std::optional<QChar> delimiter = DelimiterOf(out, options);
    if (!delimiter)
        return std::nullopt;
    choice.delimiter = *delimiter;
    if (options.isSet(u"code-page"_s)) {
        const QString given = options.value(u"code-page"_s);
        choice.codePage = upkeep::CodePageOf(given);
        if (choice.codePage.isEmpty())
            return misuse(u"'%1' is no code page that can be read; these can: %2."_s.arg(given, upkeep::CodePages().join(u", "_s)));
    }
    if (options.isSet(u"headings"_s)) {
        bool number = false;
        choice.headingLine = options.value(u"headings"_s).toLongLong(&number);
        if (!number || *choice.headingLine < 0)
            return misuse(u"--headings takes the number of a line, 0 for a list without headings; not '%1'."_s.arg(
                options.value(u"headings"_s)));
    }
    if (options.isSet(u"dates"_s)) {
        const auto* const order = std::ranges::find(kOrders, options.value(u"dates"_s), &Order::word);
        if (order == std::end(kOrders))
            return misuse(u"--dates takes mdy, dmy or ymd; not '%1'."_s.arg(options.value(u"dates"_s)));
        choice.dates = order->order;
    }
    if (options.isSet(u"decimal"_s)) {
        const QString given = options.value(u"decimal"_s);
        if (given != "point"_L1 && given != "comma"_L1)
            return misuse(u"--decimal takes point or comma; not '%1'."_s.arg(given));
        choice.decimal = given == "comma"_L1 ? u',' : u'.';
    }
    return choice;
}

bool RefusesOtherKind(const Output& out, const upkeep::ListFile& file, const upkeep::ListChoice& choice)
{
    const bool text = !choice.delimiter.isNull() || !choice.codePage.isEmpty();
    if (file.IsWorkbook() && text)
        out.Error(u"--delimiter and --code-page belong to a CSV file."_s);
    else if (!file.IsWorkbook() && !choice.sheet.isEmpty())
        out.Error(u"--sheet belongs to a spreadsheet file."_s);
    else
        return false;
    return true;
}

bool MapColumn(const Output& out, const upkeep::TransferDesk& desk, upkeep::ListLook& look, const QString& choice)
{
    const QString heading = choice.section(u'=', 0, 0).trimmed();
    const QString field = text::Folded(choice.section(u'=', 1));
    const bool known = field.isEmpty() || store::FindField(desk.databook, field) != nullptr;
    const auto column = std::ranges::find_if(look.columns, [&](const upkeep::ListColumn& one) {
        return one.heading.compare(heading, Qt::CaseInsensitive) == 0;
    });
    if (!known || column == look.columns.end()) {
        out.Error(known ? u"The file has no column '%1'."_s.arg(heading) : u"The Databook has no field '%1'."_s.arg(field));
        return false;
    }
    if (field == fields::FRONTPHOTO) {
        out.Error(u"A list holds no pictures: no column goes into %1."_s.arg(field));
        return false;
    }
    for (upkeep::ListColumn& other : look.columns)
        if (other.field == field)
            other.field.clear();
    column->field = field;
    return true;
}

void TellLook(const Output& out, const upkeep::ListFile& file, const upkeep::ListLook& look)
{
    if (out.Json())
        return;
    for (const upkeep::ListColumn& column : look.columns)
        out.Line(u"%1 -> %2"_s.arg(column.heading, column.field.isEmpty() ? u"(left behind)"_s : column.field));
    const QString delimiter = look.delimiter == u'\t' ? u"tabs"_s : u"\"%1\""_s.arg(look.delimiter);
    const QString kind = file.IsWorkbook() ? u"sheet "_s + look.sheet : u"%1 with %2"_s.arg(look.codePage, delimiter);
    out.Line(u"Read as: %1, headings in line %2, dates %3, decimal %4."_s.arg(
        kind, QString::number(look.headingLine), std::ranges::find(kOrders, look.dates, &Order::order)->name,
        look.decimal == u',' ? u"comma"_s : u"point"_s));
}

} // namespace vasclip::vasctl
