#pragma once

#include <QLatin1StringView>
#include <QString>

#include <span>

namespace vasclip::formsbook {

/// Forms of a family have the same lines in their grids.
enum class Family { House, Condo, Income, Land, Mobile, Short };

/// A form that can be the main form of a report.
struct Form
{
    QLatin1StringView code;
    QLatin1StringView title;
    Family family;
    int gridRow; ///< the row of the main page on which its comparison grid begins
};

/// The 66 main forms.
[[nodiscard]] std::span<const Form> Forms();

/// @return nullptr for a code that is none; read without regard to case
[[nodiscard]] const Form* FindForm(const QString& code);

} // namespace vasclip::formsbook
