#include "app/vasctl/session.h"

#include "drops/swap_slots.h"
#include "link/messages.h"
#include "photos/slot_counts.h"
#include "platform/text/text.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

int RunSwap(Session& session, const Output& out, const QStringList& arguments)
{
    const auto number = [&](qsizetype i) {
        bool whole = false;
        const int comp = arguments.value(i).toInt(&whole);
        return whole && comp >= 1 && comp <= photos::kComps ? comp : 0;
    };
    const int a = number(0);
    const int b = number(1);
    if (arguments.size() != 2 || a == 0 || b == 0 || a == b) {
        out.Error(u"Usage: vasctl swap A B, two different comps from 1 to 9"_s);
        return kUsage;
    }
    if (!session.ReportIsOpen(out, link::messages::kNotRunning))
        return kNoLink;
    auto& program = session.WithReport();
    drops::DropDesk desk = program.Drops();
    const drops::Outcome outcome = drops::SwapSlots(desk, a, b);
    if (!outcome.done || outcome.colour == forms::Colour::Red) {
        if (!outcome.message.isEmpty())
            out.Error(outcome.message);
        return session.Prompter().Declined() ? kDeclined : kFailed;
    }
    out.Value({{u"comps"_s, QJsonArray{a, b}}, {u"message"_s, outcome.message}}, outcome.message);
    return kDone;
}

} // namespace vasclip::vasctl
