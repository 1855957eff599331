#include "platform/conduit/pipe_conduit.h"

#include "platform/conduit/channel_conduit.h"
#include "platform/text/runtime_error.h"

#include <QProcess>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

namespace {

/// A bridge is told to end by the end of its input, and made to if it does not listen.
class Bridge final : public QProcess
{
public:
    Bridge() = default;
    ~Bridge() override
    {
        constexpr int kPatienceMs = 1000;
        closeWriteChannel();
        if (state() != NotRunning && !waitForFinished(kPatienceMs)) {
            kill();
            waitForFinished(kPatienceMs);
        }
    }
};

} // namespace

std::unique_ptr<Conduit> MakePipeConduit(PipeOptions options)
{
    const int timeLimitMs = options.timeLimitMs;
    return std::make_unique<ChannelConduit>(
        [options = std::move(options)](const QDeadlineTimer& deadline) {
            auto bridge = std::make_unique<Bridge>();
            bridge->setProcessChannelMode(QProcess::ForwardedErrorChannel);
            bridge->start(options.program, options.arguments);
            if (!bridge->waitForStarted(static_cast<int>(deadline.remainingTime())))
                throw RuntimeError(error::kLinkNoAnswer, u"The bridge %1 cannot be started: %2"_s.arg(
                                                             options.program, bridge->errorString()));
            Bridge* raw = bridge.get();
            return std::make_unique<LinkChannel>(
                std::move(bridge), LinkChannel::Ways{[raw] { return raw->state() == QProcess::Running; }});
        },
        timeLimitMs);
}

} // namespace vasclip::conduit
