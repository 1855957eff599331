#pragma once

#include <QTimer>

#include <functional>

namespace vasclip::shell {

class Program;
class WindowWants;

/// The stop of the program, in its fixed order.
class Stop
{
public:
    Stop(Program& program, WindowWants& wants);

    /// Saves and closes; a second call does nothing.
    void Form_Unload();

private:
    void AtEnd(const std::function<void()>& step);
    void ClearTempFiles();

    Program& m_program;
    QTimer Timer1; ///< the exit of last resort, armed when the stop is over
};

} // namespace vasclip::shell
