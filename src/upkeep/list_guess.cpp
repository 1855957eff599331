#include "upkeep/list_guess.h"

#include "upkeep/list_headings.h"
#include "upkeep/list_values.h"

#include <QRegularExpression>

#include <algorithm>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kHeadingWithin = 10; ///< lines of titles above the headings

/// The values in the columns of a kind that people wrote.
QStringList Written(const ListSample& sample, const ListLook& look, bool (*wanted)(const QString& field))
{
    QStringList values;
    for (const ListLine& line : sample.lines)
        for (qsizetype i = 0; line.number > look.headingLine && i < std::min(line.cells.size(), look.columns.size()); ++i)
            if (wanted(look.columns.at(i).field) && !line.cells.at(i).exact)
                values.append(line.cells.at(i).text.trimmed());
    return values;
}

} // namespace

ListSample SampleOf(const ListFile& file, const ListLook& look, qsizetype lines)
{
    ListSample sample;
    const auto reader = file.Open(look);
    while (const auto line = reader->Next()) {
        sample.whole = sample.lines.size() < lines;
        if (!sample.whole)
            break;
        sample.lines.append(*line);
    }
    return sample;
}

qint64 HeadingLineOf(const ListSample& sample)
{
    qint64 found = sample.lines.isEmpty() ? 0 : sample.lines.first().number;
    qsizetype most = 0;
    for (const ListLine& line : sample.lines.first(std::min(sample.lines.size(), kHeadingWithin))) {
        const auto meant = std::ranges::count_if(
            line.cells, [](const ListCell& cell) { return !cell.exact && !FieldOfHeading(cell.text).isEmpty(); });
        if (meant > most) {
            most = meant;
            found = line.number;
        }
    }
    return found;
}

std::optional<DateOrder> DatesOf(const ListSample& sample, const ListLook& look)
{
    int votes[3] = {};
    for (const QString& value : Written(sample, look, IsDateField)) {
        const auto can = [&](DateOrder order) { return ReadDate(value, order).kind == DateReading::Kind::Read; };
        const bool month = can(DateOrder::MonthFirst);
        const bool day = can(DateOrder::DayFirst);
        if (month != day)
            ++votes[static_cast<int>(month ? DateOrder::MonthFirst : DateOrder::DayFirst)];
        else if (!month && can(DateOrder::YearFirst))
            ++votes[static_cast<int>(DateOrder::YearFirst)];
    }
    const auto* const most = std::max_element(std::begin(votes), std::end(votes));
    return *most == 0 ? std::nullopt : std::optional(static_cast<DateOrder>(most - std::begin(votes)));
}

std::optional<QChar> DecimalOf(const ListSample& sample, const ListLook& look)
{
    // "1.234,5" and "1,5" tell, "1.234" does not: three digits behind a sign may be thousands.
    static const QRegularExpression kComma(u"(?:\\.[0-9]{3},|,[0-9]{1,2}(?:[^0-9]|$)|,[0-9]{4,}|\\.[0-9]{3}\\.)"_s);
    static const QRegularExpression kPoint(u"(?:,[0-9]{3}\\.|\\.[0-9]{1,2}(?:[^0-9]|$)|\\.[0-9]{4,}|,[0-9]{3},)"_s);
    int commas = 0;
    int points = 0;
    for (const QString& value : Written(sample, look, IsNumberField)) {
        commas += kComma.match(value).hasMatch();
        points += kPoint.match(value).hasMatch();
    }
    if (commas == points)
        return std::nullopt;
    return commas > points ? QChar(u',') : QChar(u'.');
}

} // namespace vasclip::upkeep
