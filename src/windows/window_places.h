#pragma once

class QMainWindow;
class QSettings;

namespace Ui {
class frm_Main;
}

namespace vasclip::windows {

/// Where the main window and its panes stand, kept from run to run.
class WindowPlaces
{
public:
    WindowPlaces(QMainWindow& window, Ui::frm_Main& ui, QSettings& settings);

    void Restore();
    void Save();
    void ResetLayout(); ///< the panes as they were designed
    void ResetSize();   ///< the window's own size and position too

private:
    void TakeFirstSize();

    QMainWindow& m_window;
    Ui::frm_Main& m_ui;
    QSettings& m_settings;
};

} // namespace vasclip::windows
