#include "upkeep/report_values.h"

#include "databook/comp_types.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

namespace {

const QDate kPending(1900, 1, 1);

QString DateText(const QDate& date)
{
    return date.toString(u"MM/dd/yyyy"_s);
}

QString Special(const QString& word, const ReportFacts& facts)
{
    if (word == u"DATE"_s)
        return QLocale(QLocale::English, QLocale::UnitedStates).toString(facts.now.date(), u"MMMM d, yyyy"_s);
    if (word == u"COUNT"_s)
        return NumberText(static_cast<double>(facts.count), Format::Number);
    if (word == u"DATABOOK"_s)
        return facts.databook;
    return word == u"COMPANY"_s ? facts.company : facts.search;
}

/// "Single Family" for "F".
QString TypeWords(const QString& letter)
{
    for (const databook::CompType& type : databook::CompTypes())
        if (letter.size() == 1 && letter[0].toUpper() == QLatin1Char(type.letter))
            return QString(type.listText).section(u'=', 1).trimmed();
    return letter;
}

bool IsPunctuation(const QString& text)
{
    return std::none_of(text.begin(), text.end(), [](QChar letter) { return letter.isLetterOrNumber(); });
}

} // namespace

std::optional<double> NumberIn(const QString& text)
{
    QString plain = text;
    plain.remove(u'$').remove(u',').remove(u' ');
    bool ok = false;
    const double value = plain.toDouble(&ok);
    return ok && std::isfinite(value) && std::abs(value) < 1e15 ? std::optional(value) : std::nullopt;
}

QString NumberText(double value, Format format)
{
    const double cents = std::round(value * 100) / 100;
    const bool whole = cents == std::round(cents);
    const QString digits =
        QLocale(QLocale::English, QLocale::UnitedStates).toString(std::abs(cents), 'f', whole ? 0 : 2);
    return (cents < 0 ? u"-"_s : QString()) + (format == Format::Money ? u"$"_s : QString()) + digits;
}

QString Printed(const QString& value, Format format, const QDate& today)
{
    const QString text = value.simplified();
    if (format == Format::Number || format == Format::Money) {
        const std::optional<double> number = NumberIn(text);
        // What was never worked out holds 0, which is no price.
        if (number)
            return *number == 0 && format == Format::Money ? QString() : NumberText(*number, format);
    } else if (format == Format::Type) {
        return TypeWords(text);
    } else if (format == Format::Date && text.size() >= 6) {
        if (const std::optional<QDateTime> date = text::ReadDate(text, today))
            return date->date() == kPending ? u"Pending"_s : DateText(date->date());
    }
    return text;
}

QString Printed(const store::Record& record, const QString& field, Format format, const QDate& today)
{
    return record.Has(field) ? Printed(record.Text(field), format, today) : QString();
}

QString LongText(const store::Record& record, const QString& field)
{
    return record.Has(field) ? record.Text(field).trimmed() : QString();
}

QString Filled(const Template& text, const store::Record* record, const ReportFacts& facts)
{
    QString result;
    bool any = text.pieces.isEmpty();
    for (const Template::Piece& piece : text.pieces) {
        const QString value = SpecialWords().contains(piece.field) ? Special(piece.field, facts)
                              : record ? Printed(*record, piece.field, piece.format, facts.now.date())
                                       : QString();
        if (value.isEmpty())
            continue;
        if (any || !IsPunctuation(piece.before))
            result += piece.before;
        result += value;
        any = true;
    }
    return any ? result + text.after : QString();
}

void Sums::Add(const QList<Total>& wanted, const store::Record& record)
{
    ++records;
    totals.resize(wanted.size());
    for (qsizetype i = 0; i < wanted.size(); ++i) {
        const std::optional<double> value =
            wanted[i].of == Total::Of::Count
                ? std::nullopt
                : NumberIn(record.Has(wanted[i].field) ? record.Text(wanted[i].field) : QString());
        if (!value)
            continue;
        One& one = totals[i];
        one.lowest = one.count == 0 ? *value : std::min(one.lowest, *value);
        one.highest = one.count == 0 ? *value : std::max(one.highest, *value);
        one.sum += *value;
        ++one.count;
    }
}

QString Sums::Text(const QList<Total>& wanted, qsizetype index) const
{
    const Total& total = wanted[index];
    if (total.of == Total::Of::Count)
        return NumberText(static_cast<double>(records), Format::Number);
    const One one = index < totals.size() ? totals[index] : One{};
    if (one.count == 0)
        return u"-"_s;
    switch (total.of) {
    case Total::Of::Average:
        return NumberText(std::round(one.sum / static_cast<double>(one.count)), total.format);
    case Total::Of::Lowest:
        return NumberText(one.lowest, total.format);
    case Total::Of::Highest:
        return NumberText(one.highest, total.format);
    default:
        return NumberText(one.sum, total.format);
    }
}

} // namespace vasclip::upkeep
