#pragma once

#include <QObject>

namespace Ui {
class frm_Main;
}

namespace vasclip::map {
class MapPort;
}

namespace vasclip::windows {

class Binder;
class MapPane;

/// The tab with the map: its widgets come when it is first opened, and words stand there while there are no maps.
class MapPage : public QObject
{
    Q_OBJECT
public:
    /// All of it outlives the page.
    MapPage(map::MapPort& port, Binder& binder, Ui::frm_Main& ui);
    ~MapPage() override;

    void Build();
    /// What is on show follows the maps, if the tab is.
    void Open();

private:
    map::MapPort& m_port;
    Binder& m_binder;
    Ui::frm_Main& m_ui;
    MapPane* m_pane = nullptr;
};

} // namespace vasclip::windows
