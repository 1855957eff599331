#pragma once

#include "forms/controls.h"

namespace vasclip::forms {

/// A screen without a window: its controls under their fixed names, its caption, its life.
///
/// A screen is a class named as it is known (frm_Rename), derived from this, that owns its controls and wires
/// their events to its handlers. It is shown through the ScreenPort and closed by Unload.
class Screen : public QObject
{
    Q_OBJECT
public:
    explicit Screen(const QString& name);

    ControlSet controls;

    [[nodiscard]] const QString& Name() const { return m_name; }
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);
    [[nodiscard]] bool IsOpen() const { return m_open; }

    /// A screen whose controls stand in this one's window too, such as the frame of the function keys;
    /// nullptr for none. It outlives the window.
    [[nodiscard]] virtual Screen* Companion() { return nullptr; }

    void Open();   ///< runs Form_Load; the port calls it before it shows the window
    void Unload(); ///< closes the screen unless QueryUnload refuses; the user's close comes here too
    void End();    ///< runs Form_Unload; the port calls it when the window has gone

Q_SIGNALS:
    void CaptionChanged();
    void Unloaded(); ///< the window may go

protected:
    virtual void Form_Load() {}
    /// May the screen close now? It may ask. False keeps it open.
    virtual bool QueryUnload() { return true; }
    virtual void Form_Unload() {}

private:
    QString m_name;
    QString m_caption;
    bool m_open = false;
};

/// Shows screens: windows show a real one, tests play a script on it, vasctl refuses.
class ScreenPort
{
public:
    virtual ~ScreenPort() = default;
    /// Opens the screen, shows it and returns when it has closed.
    virtual void ShowModal(Screen& screen) = 0;
    /// Closes every screen that is open, the last one first; none may refuse. Programs without windows have
    /// none.
    virtual void UnloadAllForms() {}
};

/// For programs without windows: nobody sits before a screen.
class NoScreens : public ScreenPort
{
public:
    void ShowModal(Screen& screen) override; ///< @throws RuntimeError 3219 that names the screen
};

} // namespace vasclip::forms
