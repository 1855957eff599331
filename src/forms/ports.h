#pragma once

#include "platform/text/time_source.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>

namespace vasclip::forms {

enum class Buttons { Ok, OkCancel, AbortRetryIgnore, YesNoCancel, YesNo, RetryCancel };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

/// Every question and every box goes through here: windows show a real box, tests script the answers, vasctl
/// asks on the terminal.
class Prompter
{
public:
    virtual ~Prompter() = default;
    /// @return the button chosen; closing a box is Cancel where it has one, No for YesNo, Abort for
    /// AbortRetryIgnore, else Ok
    virtual Answer MsgBox(Buttons buttons, Icon icon, const QString& title, const QString& text) = 0;
    /// What reached the top, one line without its time, for the program's log where it keeps one.
    virtual void Log(const QString&) {}
    /// @param filter  as "*.mdb|Access"; @return the path chosen (a drive path), "" on cancel
    virtual QString OpenDialog(const QString& filter, const QString& title, const QString& directory) = 0;
    /// @param directory  where to begin; @return the directory chosen (a drive path), "" on cancel
    virtual QString ChooseDirectory(const QString& title, const QString& directory) = 0;

    void Box(const QString& title, const QString& text) { MsgBox(Buttons::Ok, Icon::None, title, text); }
    void Info(const QString& title, const QString& text)
    {
        MsgBox(Buttons::Ok, Icon::Information, title, text);
    }
    bool YesNo(const QString& title, const QString& text)
    {
        return MsgBox(Buttons::YesNo, Icon::Question, title, text) == Answer::Yes;
    }
};

/// A turn of the message queue between two steps of a long operation.
class EventPump
{
public:
    virtual ~EventPump() = default;
    virtual void DoEvents() = 0;
};

class Clock : public text::TimeSource
{
public:
    /// Turns the queue until `seconds` have passed; returns at once for 0 or less.
    virtual void Wait(double seconds) = 0;
};

class RandomSource
{
public:
    virtual ~RandomSource() = default;
    [[nodiscard]] virtual double Rnd() = 0; ///< 0 to below 1
};

/// What the rules ask of the desktop while they work.
class WindowPort
{
public:
    virtual ~WindowPort() = default;
    virtual void AppActivate() = 0; ///< this program's main window to the front
    virtual void SetHourglass(bool on) = 0;
};

class ScreenPort; // forms/screen.h

/// The ports that a subsystem works with, owned by the program (or the test).
struct Ports
{
    Prompter& prompter;
    EventPump& pump;
    Clock& clock;
    RandomSource& random;
    WindowPort& window;
    ScreenPort& screens;
};

/// Thrown to end the process from within a rule ("the process ends"). Caught where events enter, after which
/// the program closes without asking. Not an error, hence no std::exception.
struct EndOfProgram
{
    int exitCode = 0;
};

/// The hourglass for a scope; the pointer comes back on every way out.
class Hourglass
{
public:
    explicit Hourglass(WindowPort& window)
        : m_window(window)
    {
        m_window.SetHourglass(true);
    }
    ~Hourglass() { m_window.SetHourglass(false); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    WindowPort& m_window;
};

} // namespace vasclip::forms
