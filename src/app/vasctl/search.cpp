#include "app/vasctl/session.h"

#include "common/dates.h"
#include "databook/grid.h"
#include "databook/messages.h"
#include "databook/quick_find.h"
#include "databook/search_sql.h"
#include "platform/text/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numeric>

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;
using databook::SearchField;
using databook::SearchKind;

namespace {

/// What a range has for a side that was left out: no price, area, age or lot is beyond it.
constexpr qint64 kWidest = 999'999'999;
constexpr int kIndexSliceMilliseconds = 500;

struct Word
{
    QLatin1StringView word, meaning;
};
constexpr std::array kDateRanges = {Word{"prior"_L1, "On or Prior"_L1}, Word{"equal"_L1, "Equal To"_L1},
                                    Word{"after"_L1, "On or After"_L1}};

bool IsRange(const SearchField& row)
{
    return row.kind == SearchKind::NumericRange || row.kind == SearchKind::TextRange;
}

QString Option(const SearchField& row, QLatin1StringView end = {})
{
    return QString(row.option) + end;
}

/// A command line that does not say what to look for; the text says what is wrong with it.
struct Wrong
{
    QString text;
};

double NumberIn(const QString& option, QString typed, bool percent)
{
    if (percent && typed.endsWith(u'%'))
        typed.chop(1);
    typed.remove(u',').remove(u'$');
    bool number = false;
    const double value = text::Trim(typed).toDouble(&number);
    if (!number || !std::isfinite(value))
        throw Wrong{u"--%1 takes a number%2, not '%3'."_s.arg(
            option, percent ? u" or a percentage such as 10%"_s : QString(), typed)};
    return value;
}

QString TextOf(double number)
{
    return text::Trim(text::Str(number));
}

/// --price and --price-range, or --price-from and --price-to.
void TakeRange(const SearchField& row, const QCommandLineParser& options, databook::SearchForm& form)
{
    const QString about = Option(row);
    const QString range = Option(row, "-range"_L1);
    const QString from = Option(row, "-from"_L1);
    const QString to = Option(row, "-to"_L1);
    const bool sides = options.isSet(from) || options.isSet(to);
    if (sides && (options.isSet(about) || options.isSet(range)))
        throw Wrong{u"Give --%1 with --%2, or --%3 and --%4, not both."_s.arg(about, range, from, to)};
    if (options.isSet(range) && !options.isSet(about))
        throw Wrong{u"--%1 says how far from --%2, which is missing."_s.arg(range, about)};
    if (sides) {
        const double low = options.isSet(from) ? NumberIn(from, options.value(from), false) : 0;
        const double high =
            options.isSet(to) ? NumberIn(to, options.value(to), false) : static_cast<double>(kWidest);
        if (low > high)
            throw Wrong{u"--%1 %2 lies above --%3 %4."_s.arg(from, TextOf(low), to, TextOf(high))};
        form.texts[row.control] = TextOf((low + high) / 2);
        form.texts[row.rangeControl] = TextOf((high - low) / 2);
    } else if (options.isSet(about)) {
        NumberIn(about, options.value(about), false);
        if (options.isSet(range))
            NumberIn(range, options.value(range), true);
        form.texts[row.control] = options.value(about);
        form.texts[row.rangeControl] = databook::Look4Percent(options.value(about), options.value(range));
    }
}

void TakeDate(const SearchField& row, const QCommandLineParser& options, QDate today,
              databook::SearchForm& form)
{
    const QString about = Option(row);
    const QString range = Option(row, "-range"_L1);
    if (!options.isSet(about)) {
        if (options.isSet(range))
            throw Wrong{u"--%1 says on which side of --%2, which is missing."_s.arg(range, about)};
        return;
    }
    const QString date = options.value(about);
    if (!common::IsDate(date, today))
        throw Wrong{u"--%1 takes a date such as 6/30/2004, not '%2'."_s.arg(about, date)};
    form.texts[row.control] = common::FixDate(date, today);
    QString comparison = options.value(range);
    for (const Word& side : kDateRanges)
        if (comparison.compare(side.word, Qt::CaseInsensitive) == 0)
            comparison = QString(side.meaning);
    if (options.isSet(range) && databook::DateComparison(comparison).isEmpty())
        throw Wrong{u"--%1 takes prior, equal or after, not '%2'."_s.arg(range, comparison)};
    form.texts[row.rangeControl] = comparison;
}

int SortOf(const QCommandLineParser& options, int standing)
{
    if (!options.isSet(u"sort"_s))
        return standing;
    const QString wanted = text::Folded(options.value(u"sort"_s));
    if (const int sort = databook::SortGridOf(wanted); sort != 0)
        return sort;
    bool number = false;
    const int sort = wanted.toInt(&number);
    if (!number || sort < 0 || (sort > 0 && databook::OrderByText(sort).isEmpty()))
        throw Wrong{u"A search is sorted by ADDRESS, SALEDATE, SELLINGPR, GLA, PRICEGLA or LOADDATE, or as "
                    "SORTGRID has it by 0 to 6, not by '%1'."_s.arg(options.value(u"sort"_s))};
    return sort;
}

databook::SearchForm FormOf(const common::Globals& globals, const QCommandLineParser& options, QDate today)
{
    databook::SearchForm form;
    for (const SearchField& row : databook::SearchFields()) {
        if (IsRange(row)) {
            TakeRange(row, options, form);
        } else if (row.kind == SearchKind::Date) {
            TakeDate(row, options, today, form);
        } else if (options.isSet(Option(row))) {
            const QString value = options.value(Option(row));
            if (text::Trim(value).isEmpty())
                throw Wrong{u"--%1 has nothing to look for."_s.arg(Option(row))};
            form.texts[row.control] = value;
        }
    }
    if (options.isSet(u"ignore-pending"_s) && options.isSet(u"with-pending"_s))
        throw Wrong{u"--ignore-pending and --with-pending exclude each other."_s};
    form.ignorePending = options.isSet(u"ignore-pending"_s) ||
                         (globals.ignorePending != 0 && !options.isSet(u"with-pending"_s));
    form.wildcards = !options.isSet(u"exact"_s);
    form.sort = SortOf(options, databook::OrderByText(globals.sortGrid).isEmpty() ? 0 : globals.sortGrid);
    return form;
}

int Told(const Output& out, qint64 found)
{
    if (found == 0) {
        out.Error(databook::kNoCompsFound);
        return kNotFound;
    }
    if (!out.Json())
        out.Line(databook::FoundText(found));
    return kDone;
}

} // namespace

QList<QCommandLineOption> SearchOptions()
{
    QList<QCommandLineOption> all;
    for (const SearchField& row : databook::SearchFields()) {
        const QString what = u"search: %1"_s.arg(QString(row.field));
        const QString about = Option(row);
        // --city, --state, --zip and --county are those of the city list as well.
        const bool known = QStringList{u"city"_s, u"state"_s, u"zip"_s, u"county"_s}.contains(about);
        if (row.kind == SearchKind::Date) {
            all.append({about, what + u", a date."_s, u"DATE"_s});
            all.append({Option(row, "-range"_L1), u"search: prior, equal or after (after)."_s, u"SIDE"_s});
        } else if (IsRange(row)) {
            all.append({about, what + u", a number."_s, u"N"_s});
            all.append({Option(row, "-range"_L1), u"search: so much more or less, or 10%."_s, u"N"_s});
            all.append({Option(row, "-from"_L1), what + u" from here."_s, u"N"_s});
            all.append({Option(row, "-to"_L1), what + u" up to here."_s, u"N"_s});
        } else if (!known) {
            all.append({about, what + (row.kind == SearchKind::Equal ? u" is TEXT."_s : u" holds TEXT."_s),
                        u"TEXT"_s});
        }
    }
    all.append({u"exact"_s, u"search: a text is the whole field, not a part of it."_s});
    all.append({u"ignore-pending"_s, u"search: no pending sales (else as IGNOREPENDING has it)."_s});
    all.append({u"with-pending"_s, u"search: pending sales too."_s});
    all.append({u"sql"_s, u"search: print the statement and do not run it."_s});
    return all;
}

int RunSearch(Session& session, const Output& out, const QStringList& arguments,
              const QCommandLineParser& options)
{
    if (!arguments.isEmpty()) {
        out.Error(u"'%1' belongs to no field; say --address '%1', or use 'vasctl find'."_s.arg(
            arguments.join(u' ')));
        return kUsage;
    }
    try {
        const QDate today = session.Ports().clock.Today();
        const databook::SearchStatement statement =
            databook::BuildSearch(FormOf(session.Home().globals, options, today));
        if (options.isSet(u"sql"_s)) {
            out.Value(QJsonObject{{u"sql"_s, statement.sql}}, statement.sql);
            return kDone;
        }
        const std::optional<qint64> limit = LimitOf(out, options);
        if (!limit)
            return kUsage;
        const store::DataSource& source = session.WithDatabook().sources.datDatabook;
        const engine::TableDef table = source.Database().Table(session.Home().globals.G_Table);
        const store::Rows rows = store::ReadRows(source, databook::WithColumnsOf(table, statement.sql));
        const qint64 found = rows.Count();
        std::vector<qint64> places(static_cast<std::size_t>(std::min(found, *limit)));
        std::iota(places.begin(), places.end(), qint64{0});
        PrintComps(out, rows, places);
        return Told(out, found);
    } catch (const Wrong& wrong) {
        out.Error(wrong.text);
        return kUsage;
    }
}

int RunFind(Session& session, const Output& out, const QStringList& arguments,
            const QCommandLineParser& options)
{
    const std::optional<qint64> limit = LimitOf(out, options);
    if (!limit)
        return kUsage;
    engine::TextSearch search;
    search.words = databook::QuickFindWords(arguments.join(u' '));
    if (search.words.isEmpty()) {
        out.Error(u"Usage: vasctl find TEXT, words that a record holds in its key, address, city, "
                  "neighborhood or notes."_s);
        return kUsage;
    }
    auto& program = session.WithDatabook();
    engine::Database& database = program.sources.datDatabook.Database();
    search.table = program.globals.G_Table;
    search.fields = databook::QuickFindFields();
    engine::TextIndexTrouble told = engine::TextIndexTrouble::None;
    for (;;) {
        const engine::TextIndexState state =
            database.KeepTextIndex(search.table, search.fields, kIndexSliceMilliseconds);
        if (state.trouble != told && state.trouble != engine::TextIndexTrouble::None)
            std::fprintf(stderr, "vasctl: %s\n", qPrintable(databook::IndexText(state.trouble)));
        told = state.trouble;
        if (state.whole)
            break;
    }
    std::vector<engine::Bookmark> ids;
    for (engine::TextHits hits; !hits.done; search.afterId = hits.lastId) {
        hits = database.FindText(search);
        ids.insert(ids.end(), hits.ids.begin(), hits.ids.end());
    }
    const store::Rows rows(database, databook::WithColumnsOf(database.Table(program.globals.G_Table), databook::SelectAllText()) +
                               databook::OrderByText(program.globals.sortGrid));
    std::vector<qint64> places = rows.PlacesOf(ids);
    std::erase(places, -1);
    std::sort(places.begin(), places.end());
    const auto found = static_cast<qint64>(places.size());
    places.resize(static_cast<std::size_t>(std::min(found, *limit)));
    PrintComps(out, rows, places);
    return Told(out, found);
}

} // namespace vasclip::vasctl
