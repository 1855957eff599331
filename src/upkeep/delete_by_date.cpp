#include "upkeep/delete_by_date.h"

#include "common/dates.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QDate kNoDay(1900, 1, 1);
const QString kStoredPicture = u"mm/dd/yyyy"_s;
const QString kShortPicture = u"m/d/yyyy"_s;

std::optional<QDate> DayOf(const QString& text, QDate today)
{
    const auto date = text::ReadDate(text, today);
    return date ? std::optional(date->date()) : std::nullopt;
}

} // namespace

std::optional<Deletion> Deletion::Of(const QString& typed, QDate today)
{
    const QString trimmed = text::Trim(typed);
    const auto read = text::ReadDate(trimmed, today);
    if (!read || !common::IsDate(trimmed, today))
        return std::nullopt;
    const bool spelledOut = trimmed == text::Format(*read, kShortPicture);
    return Deletion{spelledOut ? trimmed : text::Format(*read, kStoredPicture), read->date() == kNoDay};
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
