#include "drops/drop_table.h"

#include "platform/text/text.h"

#include <algorithm>
#include <array>

namespace vasclip::drops {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::array kDropMatrix{
    DropRule{"GRDDATABOOK"_L1, "TXTCOMP"_L1, DropAction::PasteCompAndPhoto, "SALE"_L1},
    DropRule{"GRDDATABOOK"_L1, "TXTALTCOMP"_L1, DropAction::PasteCompAndPhoto, "ALT"_L1},
    DropRule{"GRDDATABOOK"_L1, "TXTLISTING"_L1, DropAction::PasteCompAndPhoto, "LIST"_L1},
    DropRule{"GRDDATABOOK"_L1, "TXTRENTAL"_L1, DropAction::PasteCompAndPhoto, "RENT"_L1},
    DropRule{"GRDDATABOOK"_L1, "GEACOMP"_L1, DropAction::PasteComp, "SALE"_L1},
    DropRule{"GRDDATABOOK"_L1, "GEAALTCOMP"_L1, DropAction::PasteComp, "ALT"_L1},
    DropRule{"GRDDATABOOK"_L1, "GEALISTING"_L1, DropAction::PasteComp, "LIST"_L1},
    DropRule{"GRDDATABOOK"_L1, "GEARENTAL"_L1, DropAction::PasteComp, "RENT"_L1},
};

struct HintRow
{
    QLatin1StringView source, target, text;
};

constexpr auto kPasteData = "Drop here to paste the comp data in the appraisal"_L1;
constexpr auto kPasteBoth = "Drop here to place both the photo and the comp data into the appraisal"_L1;

constexpr std::array kHints{
    HintRow{"GRDDATABOOK"_L1, "TXTCOMP"_L1, kPasteData},
    HintRow{"GRDDATABOOK"_L1, "TXTALTCOMP"_L1, kPasteData},
    HintRow{"GRDDATABOOK"_L1, "TXTLISTING"_L1, kPasteData},
    HintRow{"GRDDATABOOK"_L1, "TXTRENTAL"_L1, kPasteData},
    HintRow{"GRDDATABOOK"_L1, "GEACOMP"_L1, kPasteBoth},
    HintRow{"GRDDATABOOK"_L1, "GEAALTCOMP"_L1, kPasteBoth},
    HintRow{"GRDDATABOOK"_L1, "GEALISTING"_L1, kPasteBoth},
    HintRow{"GRDDATABOOK"_L1, "GEARENTAL"_L1, kPasteBoth},
};

} // namespace

const DropRule* RuleFor(const QString& source, const QString& target)
{
    const QString from = text::Folded(source);
    const QString to = text::Folded(target);
    const auto row = std::find_if(kDropMatrix.begin(), kDropMatrix.end(), [&](const DropRule& rule) {
        return rule.source == from && rule.target == to;
    });
    return row == kDropMatrix.end() ? nullptr : &*row;
}

QString HintFor(const QString& source, const QString& target)
{
    const QString from = text::Folded(source);
    const QString to = text::Folded(target);
    for (const HintRow& row : kHints) {
        if (row.source == from && row.target == to)
            return row.text;
    }
    return {};
}

std::span<const DropRule> Matrix()
{
    return kDropMatrix;
}

} // namespace vasclip::drops
