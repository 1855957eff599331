#include "windows/map_page.h"

#include "map/map_port.h"
#include "ui_frm_main.h"
#include "windows/binder.h"
#include "windows/focus_chain.h"
#include "windows/guard.h"
#include "windows/map_pane.h"
#include "windows/map_view.h"

using namespace Qt::StringLiterals;

namespace vasclip::windows {

MapPage::MapPage(map::MapPort& port, Binder& binder, Ui::frm_Main& ui)
    : m_port(port)
    , m_binder(binder)
    , m_ui(ui)
{
    // The numbers beside the list of the circle, the selected point's, and two pictures on their way.
    m_binder.DeclareUnseen({u"lstids"_s, u"lblMapID"_s, u"mapPic"_s, u"geatemp"_s});
    connect(ui.tabSource, &QTabWidget::currentChanged, this, &MapPage::Open);
    m_port.OnOtherMaps([this] { Open(); });
    Open();
}

MapPage::~MapPage()
{
    m_port.OnOtherMaps({});
}

void MapPage::Build()
{
    if (m_pane != nullptr)
        return;
    m_pane = new MapPane(m_port, m_binder.Guard(), m_ui.mapPane);
    m_ui.atlasPaneRows->addWidget(m_pane, 1);
    ChainFocus(m_ui.txtMapProximity, *m_pane);
    m_binder.Bind(*m_pane);
    connect(&m_pane->View(), &MapView::DragWanted, this, [this] {
        if (forms::Control* map = m_binder.ControlOf(&m_pane->View()))
            Q_EMIT m_binder.DragWanted(*map);
    });
    m_pane->hide();
}

void MapPage::Open()
{
    if (m_ui.tabSource->currentWidget() != m_ui.atlasPage)
        return;
    Build();
    bool maps = false;
    m_binder.Guard().Run([&] { maps = m_port.Shown(); });
    m_pane->setVisible(maps);
    m_ui.atlasEmpty->setVisible(!maps);
}

} // namespace vasclip::windows
