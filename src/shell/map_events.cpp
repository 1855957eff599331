#include "shell/map_events.h"

#include "common/error_block.h"
#include "map/anchors.h"
#include "map/arrange_arrows.h"
#include "map/blink.h"
#include "map/cmd_prox.h"
#include "map/copy_map.h"
#include "map/frm_manual.h"
#include "map/frm_street_find.h"
#include "map/locator.h"
#include "map/map_keys.h"
#include "map/map_start.h"
#include "map/place_arrows.h"
#include "map/radius.h"
#include "map/rotate.h"
#include "map/selection.h"
#include "map/street_click.h"
#include "map/view.h"
#include "shell/map_parts.h"
#include "shell/program.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace vasclip::shell {

namespace {

constexpr int kMapPage = 1;

} // namespace

MapEvents::MapEvents(Program& program, forms::TabControl& tabSource)
    : m_program(program)
    , m_parts(program.Map())
    , m_tabSource(tabSource)
{
    WireButtons();
    WireBoxes();
}

void MapEvents::WireButtons()
{
    map::frm_MapTab& tab = m_parts.tab;
    map::MapDesk& desk = m_parts.Desk();
    const std::pair<forms::Button*, void (*)(map::MapDesk&)> buttons[] = {
        {&tab.cmdSubjectOnly, map::cmdSubjectOnly_Click},
        {&m_program.report.cmdSubjectAnd, map::cmdSubjectAnd_Click},
        {&tab.cmdGeoComp, map::cmdGeoComp_Click},
        {&tab.cmdin, map::cmdin_Click},
        {&tab.cmdout, map::cmdout_Click},
        {&tab.cmdDetail, map::cmdDetail_Click},
        {&tab.cmdRefreshMap, map::cmdRefreshMap_Click},
        {&tab.cmdClear, map::cmdClear_Click},
        {&tab.cmdClearPoint, map::cmdClearPoint_Click},
        {&tab.cmdAnchor, map::cmdAnchor_Click},
        {&tab.cmdAnchorOne, map::cmdAnchorOne_Click},
        {&tab.cmdRotate, map::cmdRotate_Click},
        {&tab.cmdArrange, map::cmdArrange_Click},
        {&tab.cmdCopyMap, map::cmdCopyMap_Click},
        {&tab.cmdPreviewMap, map::cmdPreviewMap_Click},
        {&tab.cmdProx, map::cmdProx_Click},
    };
    for (const auto& [button, clicked] : buttons)
        connect(button, &forms::Control::Clicked, this,
                [this, &desk, clicked = clicked] { Do([&] { clicked(desk); }); });
    const auto opens = [this, &desk](forms::Button& button, const auto& show) {
        connect(&button, &forms::Control::Clicked, this, [this, &desk, show] {
            if (!desk.state.working) // work that turned the queue would wait for the screen
                Do([&] { show(desk); });
        });
    };
    opens(tab.cmdLabelPosition, [this](map::MapDesk& of) {
        map::frm_StreetFind screen(of);
        m_program.Ports().screens.ShowModal(screen);
    });
    opens(tab.cmdmanual, [this](map::MapDesk& of) {
        map::frm_Manual screen(of);
        m_program.Ports().screens.ShowModal(screen);
    });
    for (int i = tab.optMapAddendum.First(); i <= tab.optMapAddendum.Last(); ++i)
        connect(&tab.optMapAddendum(i), &forms::Control::Clicked, this,
                [&desk, i] { map::optMapAddendum_Click(desk, i); });
    connect(&tab.lstaddresses, &forms::Control::Clicked, this,
            [this, &desk] { Do([&] { map::lstaddresses_Click(desk); }); });
}

void MapEvents::WireBoxes()
{
    map::frm_MapTab& tab = m_parts.tab;
    map::MapDesk& desk = m_parts.Desk();
    const auto heard = [this, &desk](forms::TextBox& box, void (*changed)(map::MapDesk&)) {
        connect(&box, &forms::TextBox::TextChanged, this, [this, &desk, changed] {
            if (m_ready)
                changed(desk);
        });
    };
    heard(tab.txtMapAddress, map::txtMapAddress_Change);
    // What is on show was measured from the subject that stood there before.
    connect(&m_program.report.txtSubject, &forms::TextBox::TextChanged, this, [this, &desk] {
        if (m_ready && !desk.state.working)
            map::ClearDetails(desk);
    });
    heard(tab.txtradius, map::txtradius_Change);
    heard(tab.txtfontsize, map::txtfontsize_Change);
    heard(tab.txtwidth, map::txtwidth_Change);
    connect(&tab.ckbRadius, &forms::CheckBox::Toggled, this, [this, &desk] {
        if (!m_ready)
            return;
        map::ckbRadius_Click(desk, MapOnShow());
        map::KeepMapSettings(desk);
    });
    connect(&tab.ckbLabelStreets, &forms::CheckBox::Toggled, this, [this, &desk] {
        if (!m_ready)
            return;
        map::ckbLabelStreets_Click(desk);
        map::KeepMapSettings(desk);
    });
    for (forms::CheckBox* box : {&tab.ckbFreeze, &tab.ckbArrange})
        connect(box, &forms::CheckBox::Toggled, this, [this, &desk] {
            if (m_ready)
                map::KeepMapSettings(desk);
        });
    link::ReportControls& report = m_program.report;
    // Whatever gives the button its words, they say what it places.
    for (forms::TabControl* data : {&report.TabData, &report.TabComp})
        connect(data, &forms::TabControl::TabClicked, this, [&report] { map::FollowTabs(report); });
    connect(&report.cmdSubjectAnd, &forms::Control::Changed, this, [&report] { map::FollowTabs(report); });
    map::FollowTabs(report);
}

void MapEvents::Do(const std::function<void()>& gesture)
{
    const common::RoutineScope scope{"Map"};
    const bool told = m_told;
    if (Shown()) {
        gesture();
    } else if (told) {
        map::TestMapFiles(m_parts.Desk(), m_parts.Problems());
    }
    ShowProblems();
}

bool MapEvents::MapOnShow() const
{
    return m_tabSource.Tab() == kMapPage;
}

street::StreetMap& MapEvents::Engine()
{
    return m_parts.Street();
}

bool MapEvents::Shown()
{
    map::MapDesk& desk = m_parts.Desk();
    if (!m_parts.Open()) {
        if (!std::exchange(m_told, true))
            map::TestMapFiles(desk, m_parts.Problems());
        return false;
    }
    if (!m_ready) {
        map::ReadMapSettings(desk);
        map::ConfigureMap(desk);
        m_parts.CentreOnMaps();
        m_ready = true;
    }
    return true;
}

void MapEvents::TakeOtherMaps()
{
    m_parts.Open();
    if (m_otherMaps)
        m_otherMaps();
}

bool MapEvents::PointClicked(qint32 id)
{
    return map::mapview_PointClick(m_parts.Desk(), id);
}

void MapEvents::PointDropped(qint32 id, street::Place place)
{
    map::MovePointTo(m_parts.Desk(), id, place);
}

void MapEvents::GroundClicked(street::Place place)
{
    map::StreetClick(m_parts.Desk(), place);
}

void MapEvents::Drawn()
{
    ShowProblems();
}

void MapEvents::ShowProblems()
{
    map::ShowMapProblems(m_parts.Desk(), m_parts.Problems());
}

QString MapEvents::DistanceOfLine(int line) const
{
    return m_parts.Desk().state.radiusDistances.value(line);
}

void MapEvents::AnchorAllOff()
{
    Do([this] { map::cmdAnchor_RightClick(m_parts.Desk()); });
}

void MapEvents::Step(const QString& spinner, int step)
{
    Do([&] {
        if (spinner == "spnradius"_L1)
            map::spnradius_Change(m_parts.Desk(), step);
        else if (spinner == "spnFontSize"_L1)
            map::spnFontSize_Change(m_parts.Desk(), step);
        else
            map::spnWidth_Change(m_parts.Desk(), step);
    });
}

bool MapEvents::KeyDown(int keyCode, int shift)
{
    return m_parts.Desk().state.inUse && map::mapview_KeyDown(m_parts.Desk(), keyCode, shift);
}

void MapEvents::KeyUp(int keyCode)
{
    map::mapview_KeyUp(m_parts.Desk(), keyCode);
}

} // namespace vasclip::shell
