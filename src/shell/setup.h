#pragma once

#include <QObject>

namespace vasclip::shell {

class DatabookInUse;
struct Menus;
class Program;
class RecordOnShow;
class WindowWants;

/// What the settings decide on the main screen: the settings screen, ticks and captions of the menus.
class Setup : public QObject
{
    Q_OBJECT
public:
    Setup(Program& program, RecordOnShow& shown, DatabookInUse& databook, Menus& menus, WindowWants& wants);

    /// What the pop-ups, the Setup and the Help menu show follows the settings.
    void LoadMenu();
    void ShowConfiguration();
    /// The area in which a comp is added by hand.
    void ToggleManualEntry();

private:
    void ShowViewTicks();

    Program& m_program;
    RecordOnShow& m_shown;
    DatabookInUse& m_databook;
    Menus& m_menus;
    WindowWants& m_wants;
};

} // namespace vasclip::shell
