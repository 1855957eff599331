#include "common/error_block.h"

#include "common/given_up.h"
#include "platform/engine/errors.h"

#include "platform/text/text.h"

#include <QThreadStorage>

#include <exception>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {

namespace {

constexpr int kNameLength = 20;
constexpr auto kMayBeCorrupt =
    "The databases may be corrupt.  Please run the rebuild programs. (Double Click on the "
    "icons) and restart Vasclip Manager."_L1;

QString FixedLength(const char* name)
{
    return QString::fromUtf8(name).leftJustified(kNameLength, u' ', true);
}

/// What belongs to the stack of calls, of which each thread has one. Scopes come and go with every cell that goes over
/// the link, so names are made texts only when asked for.
struct State
{
    const char* current = "";
    QString failed; ///< the innermost routine that the error on its way up has left
    QString givenUp; ///< what the user has read and will not try again
};

State& TheState()
{
    // What the language keeps for a thread is freed on Windows before it is taken down.
    static QThreadStorage<State> states;
    return states.localData();
}

/// The routine to name for an error that was just caught.
QString FailedRoutine()
{
    const State& state = TheState();
    return text::Trim(state.failed.isEmpty() ? FixedLength(state.current) : state.failed);
}

QString ErrorText(const RuntimeError& failure)
{
    return failure.Description() + ".\r\nError #"_L1 + text::Str(failure.Number()) + " in module "_L1 +
           FailedRoutine() + u'.';
}

} // namespace

RoutineScope::RoutineScope(const char* name)
    : m_previous(TheState().current)
    , m_unwinding(std::uncaught_exceptions())
{
    TheState().current = name;
    if (m_unwinding == 0) {
        TheState().failed.clear();
        TheState().givenUp.clear();
    }
}

RoutineScope::~RoutineScope()
{
    State& state = TheState();
    if (std::uncaught_exceptions() > m_unwinding && state.failed.isEmpty())
        state.failed = FixedLength(state.current);
    state.current = m_previous;
}

QString RoutineScope::Current()
{
    return FixedLength(TheState().current);
}

ErrorAction FileErrors(forms::Prompter& prompter, const RuntimeError& failure)
{
    switch (failure.Number()) {
    case error::kCouldNotUpdateLocked:
        prompter.Box({}, QString(kMayBeCorrupt));
        throw forms::EndOfProgram{1};
    case error::kCouldNotReadLocked:
        if (TheState().givenUp == failure.Description()) // an inner step has asked
            return ErrorAction::Raise;
        if (prompter.MsgBox(forms::Buttons::RetryCancel, forms::Icon::Exclamation, u"Vasclip"_s,
                            failure.Description() + u'.') == forms::Answer::Retry)
            return ErrorAction::Retry;
        TheState().givenUp = failure.Description();
        return ErrorAction::Raise;
    case error::kDeviceIo:
    case error::kDiskFull:
    case error::kDeviceUnavailable:
    case error::kDiskNotReady:
        switch (prompter.MsgBox(forms::Buttons::AbortRetryIgnore, forms::Icon::None, u"Error"_s,
                                ErrorText(failure))) {
        case forms::Answer::Retry:
        case forms::Answer::Ok:
            return ErrorAction::Retry;
        case forms::Answer::Ignore:
            return ErrorAction::Skip;
        case forms::Answer::Abort:
        case forms::Answer::Cancel:
            return ErrorAction::Abandon;
        default:
            return ErrorAction::Raise;
        }
    default:
        return ErrorAction::Raise;
    }
}

void ReportError(forms::Prompter& prompter, const RuntimeError& failure)
{
    State& state = TheState();
    const QString text = ErrorText(failure);
    prompter.Log(QString(text).replace("\r\n"_L1, " "_L1));
    if (std::exchange(state.givenUp, {}) != failure.Description())
        prompter.MsgBox(forms::Buttons::Ok, forms::Icon::Critical, u"Error"_s, text);
    state.failed.clear();
}

bool TakeGivenUp()
{
    return !std::exchange(TheState().givenUp, {}).isEmpty();
}

} // namespace vasclip::common
