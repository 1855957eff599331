#include "upkeep/delete_by_date.h"

#include "platform/text/dates.h"
#include "platform/text/text.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QDate kNoDay(1900, 1, 1);

std::optional<QDate> DayOf(const QString& text, QDate today)
{
    const auto date = text::ReadDate(text, today);
    return date ? std::optional(date->date()) : std::nullopt;
}

} // namespace

Deletion Deletion::Of(const QString& typed, QDate today)
{
    const QString date = text::Trim(typed).left(10);
    return {date, DayOf(date, today) == kNoDay};
}

bool TestRec(const QString& held, const Deletion& deletion, QDate today)
{
    const QString trimmed = text::Trim(held);
    const QDate day = trimmed.isEmpty() ? QDate() : DayOf(trimmed, today).value_or(QDate());
    if (deletion.pending)
        return trimmed.isEmpty() || day == kNoDay;
    const QDate last = DayOf(deletion.date, today).value_or(QDate());
    return day.isValid() && last.isValid() && day != kNoDay && day <= last;
}

} // namespace vasclip::upkeep
