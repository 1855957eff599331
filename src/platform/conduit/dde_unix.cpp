#include "platform/conduit/dde_conduit.h"
#include "platform/conduit/pipe_conduit.h"
#include "platform/conduit/wine.h"

namespace vasclip::conduit {

using namespace Qt::Literals::StringLiterals;

std::unique_ptr<Conduit> MakeDdeConduit(DdeOptions options)
{
    PipeOptions pipe;
    pipe.program = FindWine(options.wine);
    const QString bridge = FindBridge(options.bridge);
    pipe.arguments = {bridge, u"--time-limit"_s, QString::number(options.timeLimitMs), u"--code-page"_s,
                      QString::number(options.codePage)};
    pipe.timeLimitMs = options.timeLimitMs;
    pipe.patience = options.patience;
    pipe.environment = WineEnvironment(options.winePrefix);
    pipe.carries = true;
    pipe.before = [program = pipe.program, bridge, prefix = options.winePrefix, patience = options.patience] {
        RequireBridge(bridge);
        RequirePrefix(prefix);
        RequireWine(program, patience);
    };
    return MakePipeConduit(std::move(pipe));
}

} // namespace vasclip::conduit
