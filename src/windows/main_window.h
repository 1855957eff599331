#pragma once

#include "windows/binder.h"
#include "windows/drag_desk.h"
#include "windows/menu_desk.h"
#include "windows/window_places.h"

#include <QMainWindow>

#include <memory>

class QAction;
class QActionGroup;
class QLabel;
class QSettings;
class QTabWidget;
class QToolButton;

namespace Ui {
class frm_Main;
}

namespace vasclip::forms {
class DropPort;
class MenuPort;
}
namespace vasclip::map {
class MapPort;
}

namespace vasclip::windows {

class EventGuard;
class GridMenu;
class MapPage;
class RecordGrid;
class SlotPage;
class Theme;

/// The window of frm_Main: bound to the controls by their names, it knows no rule.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// All of it outlives the window.
    /// @param settings  where places of splitters, the window's size and the theme are kept
    /// @throws RuntimeError if a widget cannot show its control
    MainWindow(forms::ControlSet& controls, forms::DropPort& port, forms::MenuPort& menus, EventGuard& guard, Theme& theme,
               QSettings& settings);
    ~MainWindow() override;

    /// Builds the slot pages that have not been shown yet, and the capture browser.
    void BuildAllPages();
    /// The capture browser's widgets. They come after the first paint. Does nothing the second time.
    void BuildCapture();
    /// Gives the map tab its map. Its widgets come when the tab is first opened.
    /// @param port  outlives the window
    void ShowMap(map::MapPort& port);
    /// See Binder::Leftovers; builds all pages first.
    [[nodiscard]] QStringList Leftovers();

    [[nodiscard]] Binder& Bindings() { return m_binder; }
    [[nodiscard]] DragDesk& Drags() { return m_drags; }
    [[nodiscard]] RecordGrid& Databook() const;

    /// Picks up what has the focus, else the current record, and asks where to drop it.
    void SendToSlot();
    /// The drag of the keyboard, from the control that has the focus or onto it.
    void PickUpOrDrop();
    void ResetLayout() { m_places.ResetLayout(); }
    void ResetSize() { m_places.ResetSize(); }
    /// The ground behind the tabs: the theme's own, or plain as the pages are.
    void ShowTabColours(bool themed);

Q_SIGNALS:
    void Unload();       ///< once, when the window has been closed by whatever way
    void FirstPainted(); ///< the grid stands on the screen

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildHeader();
    void BuildPages();
    void BuildViewMenu();
    void BuildPopups();
    void DeleteThumb(int index);
    void ShowWords();
    [[nodiscard]] forms::Control* FocusSource() const;
    void NextPane(int step);
    void ShowRecordCount();
    void FollowRecord();
    void MarkTheme();

    std::unique_ptr<Ui::frm_Main> m_ui;
    Theme& m_theme;
    forms::DropPort& m_port;
    forms::MenuPort& m_menuPort;
    Binder m_binder;
    DragDesk m_drags;
    MenuDesk m_menus;
    WindowPlaces m_places;
    QList<SlotPage*> m_pages;
    std::unique_ptr<MapPage> m_map;
    GridMenu* m_gridMenu = nullptr;
    QAction* m_send = nullptr;
    QToolButton* m_sendButton = nullptr;
    QActionGroup* m_themes = nullptr;
    QToolButton* m_themeButton = nullptr;
    bool m_unloaded = false;
};

} // namespace vasclip::windows
