#pragma once

#include <QLatin1StringView>
#include <QString>

#include <span>

namespace vasclip::drops {

enum class DropAction {
    PasteCompAndPhoto, ///< the comp's data and its front photo
    PasteComp,         ///< the comp's data alone
};

/// What a drop of one named control on another does; names are upper-cased.
struct DropRule
{
    QLatin1StringView source;
    QLatin1StringView target;
    DropAction action;
    QLatin1StringView compType; ///< the report's group: SALE, ALT, LIST or RENT
};

/// The rule of a pair, names in any case; nullptr for a pair without one, which does nothing.
[[nodiscard]] const DropRule* RuleFor(const QString& source, const QString& target);

/// The hint while `source` is over `target`; empty for a pair without a rule.
[[nodiscard]] QString HintFor(const QString& source, const QString& target);

/// Every rule, for those who ask which controls are targets at all.
[[nodiscard]] std::span<const DropRule> Matrix();

} // namespace vasclip::drops
