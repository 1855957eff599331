#pragma once

#include "forms/screen.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>

namespace vasclip::tests {

/// Plays a script on each screen that is shown, then closes it. A screen without a script fails the test.
class ScriptedScreens : public forms::ScreenPort
{
public:
    using Script = std::function<void(forms::Screen& screen)>;
    void Play(Script script) { m_scripts.push_back(std::move(script)); }
    [[nodiscard]] const QStringList& Shown() const { return m_shown; }

    void ShowModal(forms::Screen& screen) override
    {
        m_shown.append(screen.Name());
        screen.Open();
        if (m_scripts.empty()) {
            ADD_FAILURE() << "nobody plays on " << screen.Name().toStdString();
        } else {
            const Script script = m_scripts.front();
            m_scripts.pop_front();
            script(screen);
        }
        if (screen.IsOpen())
            screen.Unload();
        screen.End();
    }

private:
    std::deque<Script> m_scripts;
    QStringList m_shown;
};

} // namespace vasclip::tests
