#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace vasclip::upkeep {

/// Which records a deletion by date means.
struct Deletion
{
    QString date;         ///< MM/DD/YYYY, or M/D/YYYY where it was typed so
    bool pending = false; ///< those without a date, and no others

    /// @param typed  a date, read whole; 1 January 1900 means the pending ones
    /// @return nothing for what is no date
    [[nodiscard]] static std::optional<Deletion> Of(const QString& typed, QDate today);
};

/// Is the record of this date one of them? A date on or before theirs is, but 1 January 1900, which means none. What is
/// no date stays.
[[nodiscard]] bool TestRec(const QString& held, const Deletion& deletion, QDate today);

} // namespace vasclip::upkeep
