#include "platform/conduit/pipe_conduit.h"

#include "platform/conduit/channel_conduit.h"
#include "platform/conduit/link_channel.h"
#include "platform/conduit/no_way.h"
#include "platform/text/runtime_error.h"

#include <QProcess>
#include <QProcessEnvironment>

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

/// A bridge that carries tells itself that the time is up, of the opening as of the exchange behind it, which takes it a
/// moment.
int CarryMs(int timeLimitMs)
{
    return 2 * timeLimitMs + 2000;
}

QProcessEnvironment With(const QStringList& variables)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : variables)
        environment.insert(variable.section(u'=', 0, 0), variable.section(u'=', 1));
    return environment;
}

/// The last line that it wrote to people, or how it ended.
QString LastWords(QProcess& bridge)
{
    const QString said = QString::fromLocal8Bit(bridge.readAllStandardError()).trimmed().section(u'\n', -1).trimmed();
    if (!said.isEmpty())
        return said.left(300);
    return bridge.exitStatus() == QProcess::CrashExit ? u"it crashed, without a word"_s
                                                      : u"with code %1, without a word"_s.arg(bridge.exitCode());
}

std::unique_ptr<LinkWay> Start(const PipeOptions& options, const QDeadlineTimer& deadline)
{
    if (options.before)
        options.before();
    auto bridge = std::make_unique<Bridge>();
    bridge->setProcessChannelMode(options.carries ? QProcess::SeparateChannels : QProcess::ForwardedErrorChannel);
    bridge->setProcessEnvironment(With(options.environment));
    bridge->start(options.program, options.arguments);
    if (!bridge->waitForStarted(static_cast<int>(deadline.remainingTime())))
        throw RuntimeError(options.carries ? kNoWay : error::kLinkNoAnswer,
                           u"The bridge %1 cannot be started: %2"_s.arg(options.program, bridge->errorString()));
    Bridge* raw = bridge.get();
    LinkChannel::Ways ways{[raw] { return raw->state() == QProcess::Running; }};
    ways.carries = options.carries;
    if (options.carries)
        ways.lastWords = [raw] { return raw->state() == QProcess::Running ? QString() : LastWords(*raw); };
    return std::make_unique<LinkChannel>(std::move(bridge), std::move(ways));
}

} // namespace

std::unique_ptr<Conduit> MakePipeConduit(PipeOptions options)
{
    const int timeLimitMs = options.carries ? CarryMs(options.timeLimitMs) : options.timeLimitMs;
    Patience* const patience = options.patience;
    return std::make_unique<ChannelConduit>(
        [options = std::move(options)](const QDeadlineTimer& deadline) { return Start(options, deadline); }, timeLimitMs,
        patience);
}

} // namespace vasclip::conduit
