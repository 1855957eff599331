// The steps of the tour on the map.

#include "app/vasclip/tour/steps.h"
#include "common/paths.h"
#include "map/exports.h"
#include "map/map_desk.h"
#include "shell/map_parts.h"
#include "store/fields.h"
#include "windows/map_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTabWidget>

namespace vasclip::app {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kDrawn = 600; // milliseconds in which the parts of a map are there
const QString kNeighborhood = u"College Heights"_s;
constexpr auto kStreet = "Laurel Hill Rd"_L1;

shell::MapParts& Parts(const Stage& stage)
{
    return stage.main.program.Map();
}

QString Told(const Stage& stage)
{
    return stage.main.program.status.lblmsg.Caption();
}

bool Press(const Stage& stage, const QString& name)
{
    auto* button = stage.window.findChild<QAbstractButton*>(name);
    if (!button || !button->isEnabled())
        return stage.tour.Fail(u"There is no button %1 to press."_s.arg(name));
    button->click();
    Settle();
    return true;
}

/// As if typed: a text that is set is not told to the control.
void Write(const QWidget& window, const QString& box, const QString& text)
{
    if (auto* found = window.findChild<QLineEdit*>(box)) {
        found->selectAll();
        found->insert(text);
    }
}

void Point(QWidget& view, QEvent::Type type, QPointF at, Qt::MouseButtons held)
{
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, view.mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
    Settle(20);
}

void Drag(QWidget& view, QPointF from, QPointF to)
{
    constexpr int kSteps = 8;
    Point(view, QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (int step = 1; step <= kSteps; ++step)
        Point(view, QEvent::MouseMove, from + (to - from) * step / kSteps, Qt::LeftButton);
    Point(view, QEvent::MouseButtonRelease, to, Qt::NoButton);
}

QString Anchored(const Stage& stage, const QString& key)
{
    const auto record = map::FindComp(Parts(stage).Desk(), key);
    return record ? record->Text(fields::ANCHORED) : QString();
}

/// Drags a comp's arrow to another place, which anchors its record, and takes the anchor off again.
bool AnchorByDragging(const Stage& stage)
{
    auto* view = stage.window.findChild<windows::MapView*>();
    street::StreetMap& map = Parts(stage).Street();
    for (const auto& [id, point] : map.Points()) {
        const QPointF from = map.BoxOf(id).center();
        if (id < 2 || !view || !QRectF(view->rect()).adjusted(60, 60, -60, -60).contains(from) || map.PointAt(from) != id)
            continue;
        const street::Place before = point.place;
        Drag(*view, from, from + QPointF(24, -18));
        Settle(kDrawn);
        const QString key = stage.main.program.Map().tab.txtMapAddress.Text();
        const bool moved = map.Points().contains(id) && map.Points().at(id).place != before;
        if (!moved || Anchored(stage, key) != u"1")
            return stage.tour.Fail(u"The arrow of %1 was dragged, and is not anchored there."_s.arg(key));
        stage.tour.Shoot(stage.window, u"map-anchored"_s);
        stage.tour.Step(u"Dragged the arrow of %1 to another place, where it is anchored."_s.arg(key));
        // The next tour finds the record as it was.
        if (!Press(stage, u"cmdAnchorOne"_s) || Anchored(stage, key) == u"1")
            return stage.tour.Fail(u"The anchor of %1 did not come off."_s.arg(key));
        return true;
    }
    return stage.tour.Fail(u"No arrow lies free on the map to be dragged."_s);
}

/// The map picture and the proximities of the report; what is sent is held against the report at the tour's end.
bool SendToReport(const Stage& stage)
{
    if (!stage.tour.During(
            u"cmdPreviewMap"_s, [&] { Press(stage, u"cmdPreviewMap"_s); },
            [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"map-preview"_s); }))
        return false;
    const qsizetype images = stage.recorder.Images().size();
    if (!Press(stage, u"cmdCopyMap"_s))
        return false;
    Settle(kDrawn);
    if (stage.recorder.Images().size() <= images)
        return stage.tour.Fail(u"The map picture was not sent: %1"_s.arg(Told(stage)));
    stage.tour.Step(u"Sent the map picture into the report."_s);
    const int pokes = stage.recorder.Pokes();
    if (!Press(stage, u"cmdProx"_s))
        return false;
    Settle(kDrawn);
    stage.tour.Shoot(stage.window, u"map-proximity"_s);
    if (!Told(stage).startsWith(u"In the report ("_s) || stage.recorder.Pokes() <= pokes)
        return stage.tour.Fail(u"The proximities were not sent: %1"_s.arg(Told(stage)));
    stage.tour.Step(u"Sent the proximities: %1."_s.arg(Told(stage)));
    return true;
}

/// Finds the comps of a neighborhood by a search, and shows them all on the map.
bool LocateSearch(const Stage& stage)
{
    const bool searched = stage.tour.During(
        u"The search"_s, [&] { Q_EMIT stage.main.records.cmdSearch.Clicked(); },
        [&](QWidget& search) {
            Write(search, u"txtNeighbor"_s, kNeighborhood);
            Click(search, u"cmdSearch"_s);
            Settle();
            Click(search, u"cmdExit"_s);
        });
    auto* tabs = stage.window.findChild<QTabWidget*>(u"tabSource"_s);
    tabs->setCurrentIndex(1);
    const qint64 count = stage.main.sources.datsql.Count();
    const bool pressed = Press(stage, u"cmdGeoComp"_s);
    Settle(kDrawn);
    const auto placed = static_cast<qint64>(Parts(stage).Street().Points().size());
    stage.tour.Shoot(stage.window, u"map-locator"_s);
    stage.tour.Step(u"Searched for %1 and put the subject and its %2 comps on the map."_s.arg(kNeighborhood).arg(count));
    stage.main.DisplayAllRecords();
    return searched && pressed && count > 1 && placed == count + 1;
}

bool FindStreet(const Stage& stage)
{
    bool found = false;
    const bool shown = stage.tour.During(
        u"cmdLabelPosition"_s, [&] { Press(stage, u"cmdLabelPosition"_s); },
        [&](QWidget& dialog) {
            stage.tour.Shoot(dialog, u"map-find"_s);
            Write(dialog, u"txtStreet"_s, u"764 "_s + kStreet);
            Write(dialog, u"txtCity"_s, stage.main.addr.txtKelCity.Text());
            Write(dialog, u"txtState"_s, stage.main.addr.txtKelState.Text());
            const std::size_t before = Parts(stage).Street().Points().size();
            Click(dialog, u"cmdFind"_s);
            Settle();
            found = Parts(stage).Street().Points().size() > before;
        });
    Settle(kDrawn);
    stage.tour.Shoot(stage.window, u"map-found"_s);
    stage.tour.Step(u"Found 764 %1 on the map."_s.arg(kStreet));
    return shown && (found || stage.tour.Fail(u"764 %1 was not found on the map."_s.arg(kStreet)));
}

/// Every export for outside map programs; the files are looked at and taken away again.
bool Export(const Stage& stage)
{
    const QString text = u"appraisal.txt"_s;
    const QString database = stage.main.globals.mapExportFile;
    const std::pair<QString, QString> entries[] = {{u"To Delorme (tm) Street Atlas (current)"_s, text},
                                                   {u"To Delorme (tm) Street Atlas (2004 and prior)"_s, text},
                                                   {u"To Microsoft (tm) Streets (current)"_s, database},
                                                   {u"To Microsoft (tm) Streets (2001 and prior)"_s, database}};
    const files::Disk& disk = stage.main.program.Disk();
    bool all = true;
    for (const auto& [entry, name] : entries) {
        const QString file = map::FindExportDir(stage.main.globals) + name;
        all = stage.tour.Choose(stage.window, u"File > Export Address/Comp Data > "_s + entry) && all;
        Settle();
        if (!disk.FileExists(file))
            all = stage.tour.Fail(u"%1 wrote no %2: %3"_s.arg(entry, file, Told(stage)));
        else
            disk.Kill(file);
    }
    stage.tour.Shoot(stage.window, u"map-exported"_s);
    stage.tour.Step(u"Exported the report's addresses for outside map programs."_s);
    return all;
}

} // namespace

bool Map(const Stage& stage)
{
    auto* tabs = stage.window.findChild<QTabWidget*>(u"tabSource"_s);
    if (!tabs)
        return stage.tour.Fail(u"There is no map tab."_s);
    tabs->setCurrentIndex(1);
    Settle(kDrawn);
    if (!Parts(stage).Desk().state.inUse)
        return stage.tour.Fail(u"The home has no maps."_s);
    bool done = Press(stage, u"cmdSubjectAnd"_s);
    Settle(kDrawn);
    stage.tour.Shoot(stage.window, u"map"_s);
    const std::size_t placed = Parts(stage).Street().Points().size();
    done = placed >= 2 && Press(stage, u"cmdArrange"_s) && done;
    Settle(kDrawn);
    stage.tour.Shoot(stage.window, u"map-arranged"_s);
    stage.tour.Step(u"Placed %1 points on the map and arranged them."_s.arg(placed));
    done = AnchorByDragging(stage) && done;
    // Where they belong again.
    done = Press(stage, u"cmdSubjectAnd"_s) && Press(stage, u"cmdArrange"_s) && done;
    done = SendToReport(stage) && done;
    done = FindStreet(stage) && done;
    done = stage.tour.During(
               u"cmdmanual"_s, [&] { Press(stage, u"cmdmanual"_s); },
               [&](QWidget& dialog) { stage.tour.Shoot(dialog, u"map-manual"_s); }) &&
           done;
    done = LocateSearch(stage) && done;
    done = Export(stage) && done;
    tabs->setCurrentIndex(0);
    Settle();
    return done;
}

bool MapData(const Stage& stage)
{
    return LookAt(stage, u"Maintenance > Map Data"_s, u"map-data"_s, [&](QWidget& dialog) {
        Click(dialog, u"cmdVerify"_s);
        Settle();
        stage.tour.Shoot(dialog, u"map-data-verified"_s);
        Click(dialog, u"cmdDiff"_s);
        Settle();
        stage.tour.Check(dialog);
    });
}

} // namespace vasclip::app
