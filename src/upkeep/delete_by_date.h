#pragma once

#include <QDate>
#include <QString>

namespace vasclip::upkeep {

/// Which records a deletion by date means.
struct Deletion
{
    QString date;         ///< as the user typed it
    bool pending = false; ///< those without a date, and no others

    /// @param typed  a date; 1 January 1900 means the pending ones
    [[nodiscard]] static Deletion Of(const QString& typed, QDate today);
};

/// Is the record of this date one of them? A date on or before theirs is, but 1 January 1900, which means none. What is
/// no date stays.
[[nodiscard]] bool TestRec(const QString& held, const Deletion& deletion, QDate today);

} // namespace vasclip::upkeep
