#include "comments/comment_upgrade.h"

#include "comments/messages.h"
#include "common/error_block.h"
#include "store/messages.h"
#include "store/upgrade.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace vasclip::comments {

using common::RoutineScope;

Upgrade CheckCommentsDBF(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals,
                         const QString& path)
{
    const RoutineScope scope{"CheckCommentsDBF"};
    const qsizetype present = store::FieldCount(engine, path);
    const std::optional<qsizetype> wanted = store::ReferenceCount(ports, engine, globals);
    if (!wanted)
        return Upgrade::NoTemplate;
    if (present == *wanted || !store::TakesFields(engine, path))
        return Upgrade::NotNeeded;
    if (ports.prompter.MsgBox(forms::Buttons::YesNo, forms::Icon::Exclamation, store::kPlainTitle,
                              globals.share != 0 ? kUpdateShared : kUpdateLocal) != forms::Answer::Yes)
        return Upgrade::Declined;
    try {
        return store::AppendAlone(ports, engine, path) == store::Appended::Locked ? Upgrade::Locked : Upgrade::Done;
    } catch (const RuntimeError& failure) {
        common::ReportError(ports.prompter, failure);
        return Upgrade::Failed;
    }
}

} // namespace vasclip::comments
